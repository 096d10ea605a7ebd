#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <span>
#include <string>
#include <string_view>

#include "tarvola/interchange/exchange_file_reader.h"
#include "tarvola/runtime/errors.h"

/// What the fuzzers of files have in common.
namespace tarvola::fuzz {

/// Stops the fuzzer with its input where something does not hold.
inline void require(bool condition) {
  if (!condition) std::abort();
}

/// A file of those bytes, made anew for each input and of this process alone.
inline std::string fileWith(std::string_view bytes) {
  static const std::string path = "/tmp/tarvola-fuzz." + std::to_string(getpid());
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return path;
}

/// Reads the bytes as an exchange file and hands out the columns of each line. The reader may refuse the file; the work
/// may not fail, for it is given what the checks let through.
template <class Work>
void forEachLine(const std::uint8_t* data, std::size_t size, const interchange::ExchangeLayout& layout, Work work) {
  const auto workSurely = [&](std::span<const std::string_view> columns) noexcept { work(columns); };
  const std::string bytes(data, data + size);
  try {
    interchange::ExchangeFileReader reader(fileWith(bytes), layout);
    while (reader.next()) workSurely(reader.columns());
  } catch (const RunTimeError&) {
    // A file that is none is refused whole.
  }
}

}  // namespace tarvola::fuzz
