#include "tarvola/interchange/zlib_codec.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <utility>

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

struct Deflation::State {
  State() {
    if (::deflateInit(&stream, Z_DEFAULT_COMPRESSION) != Z_OK) throw std::bad_alloc();
  }
  ~State() { ::deflateEnd(&stream); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  /// Takes what the stream was given, and brings it to its end if asked to.
  void run(int flush) {
    do {
      std::array<Bytef, std::size_t{32} * 1024> made;
      stream.next_out = made.data();
      stream.avail_out = static_cast<uInt>(made.size());
      ::deflate(&stream, flush);
      packed.append(reinterpret_cast<const char*>(made.data()), made.size() - stream.avail_out);
    } while (stream.avail_out == 0);
  }

  z_stream stream{};
  std::string packed;
};

Deflation::Deflation() : state_(std::make_unique<State>()) {}
Deflation::~Deflation() = default;

void Deflation::add(std::string_view piece) {
  z_stream& stream = state_->stream;
  while (!piece.empty()) {
    const std::size_t taken = std::min<std::size_t>(piece.size(), std::numeric_limits<uInt>::max());
    // zlib does not write there; it only has no word for it.
    stream.next_in = const_cast<Bytef*>(bytesOf(piece));
    stream.avail_in = static_cast<uInt>(taken);
    state_->run(Z_NO_FLUSH);
    piece.remove_prefix(taken);
  }
}

std::string Deflation::finish() {
  state_->run(Z_FINISH);
  return std::move(state_->packed);
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
