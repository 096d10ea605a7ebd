#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarvola::utf8 {

/// A character at the front of a text: its code point and length in bytes, or how many bytes are broken.
struct Character {
  char32_t code;
  std::size_t length;
  bool valid;
};

constexpr bool isContinuation(char byte) noexcept { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// The length of the run of plain ASCII at the front of a text. Eight bytes a step, since most texts are nothing else.
inline std::size_t asciiLength(std::string_view text) noexcept {
  constexpr std::uint64_t highBits = 0x8080808080808080ULL;
  std::size_t at = 0;
  for (; at + sizeof(std::uint64_t) <= text.size(); at += sizeof(std::uint64_t)) {
    std::uint64_t word;
    std::memcpy(&word, text.data() + at, sizeof word);
    if ((word & highBits) != 0) break;
  }
  while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80) ++at;
  return at;
}

/// Reads the first character of a text that is not empty. Over-long forms, surrogates and what lies beyond
/// 10FFFF are broken; a broken sequence ends before the first byte that cannot belong to it.
Character decode(std::string_view text) noexcept;

}  // namespace tarvola::utf8
