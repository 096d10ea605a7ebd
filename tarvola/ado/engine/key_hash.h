#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarvola::ado::engine {

/// A hash of statement texts, which are some hundred bytes long and looked up for every statement: sixteen bytes at a
/// step, each step one wide multiplication.
inline std::uint64_t hashKey(std::string_view key) noexcept {
  __extension__ using Wide = unsigned __int128;
  constexpr std::uint64_t even = 0x9e3779b97f4a7c15U;
  constexpr std::uint64_t odd = 0xd6e8feb86659fd93U;
  std::uint64_t hash = (key.size() + 1) * 0xa0761d6478bd642fU;
  const auto step = [&hash](const char* bytes, std::size_t count) {
    std::uint64_t words[2] = {};
    std::memcpy(words, bytes, count);
    const Wide product = static_cast<Wide>(words[0] ^ even ^ hash) * (words[1] ^ odd);
    hash = static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
  };
  const char* bytes = key.data();
  std::size_t left = key.size();
  for (; left >= 16; left -= 16, bytes += 16) step(bytes, 16);
  if (left > 0) step(bytes, left);
  return hash;
}

}  // namespace tarvola::ado::engine
