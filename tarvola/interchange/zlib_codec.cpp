#include "tarvola/interchange/zlib_codec.h"

#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <new>

namespace tarvola::interchange {

namespace {

static_assert(zlibSuccess == Z_OK && zlibNoMemory == Z_MEM_ERROR);

const Bytef* bytesOf(std::string_view source) noexcept { return reinterpret_cast<const Bytef*>(source.data()); }

/// Runs a call of zlib that fills a buffer. The buffer is not cleared before: memory that the call does not write is
/// memory that the process never uses.
template <class Call>
std::int32_t fill(std::size_t roomBytes, std::string& result, Call call) noexcept try {
  if (roomBytes > std::numeric_limits<uLong>::max()) return zlibNoMemory;
  // Without any room zlib would call a sound stream damaged, so it is given a byte that must stay unused.
  const std::size_t givenBytes = std::max(roomBytes, std::size_t{1});
  const auto buffer = std::make_unique_for_overwrite<Bytef[]>(givenBytes);
  auto size = static_cast<uLongf>(givenBytes);
  const int code = call(buffer.get(), &size);
  if (code == Z_OK && size > roomBytes) return Z_BUF_ERROR;
  if (code == Z_OK) result.assign(reinterpret_cast<const char*>(buffer.get()), size);
  return code;
} catch (const std::bad_alloc&) {
  return zlibNoMemory;
}

}  // namespace

std::size_t roomToCompress(std::size_t sourceBytes) noexcept {
  const auto length = static_cast<double>(sourceBytes);
  return static_cast<std::size_t>(std::nearbyint(length + length * 0.01 + 12));
}

std::int32_t compressBytes(std::string_view source, std::size_t roomBytes, std::string& packed) noexcept {
  return fill(roomBytes, packed, [&](Bytef* to, uLongf* size) {
    return ::compress(to, size, bytesOf(source), static_cast<uLong>(source.size()));
  });
}

std::int32_t uncompressBytes(std::string_view& source, std::size_t roomBytes, std::string& plain) noexcept {
  return fill(roomBytes, plain, [&](Bytef* to, uLongf* size) {
    auto sourceBytes = static_cast<uLong>(source.size());
    const int code = ::uncompress2(to, size, bytesOf(source), &sourceBytes);
    source = source.substr(0, sourceBytes);
    return code;
  });
}

}  // namespace tarvola::interchange
