#include "tarvola/runtime/utf8.h"

namespace tarvola::utf8 {
namespace {

/// What a first byte announces: the length, and the bounds of the byte behind it, which rule out over-long forms,
/// surrogates and too large numbers.
struct LeadByte {
  std::size_t length;
  unsigned char lowestSecond;
  unsigned char highestSecond;
};

constexpr LeadByte leadByte(unsigned char byte) noexcept {
  if (byte < 0x80) return {1, 0, 0};
  if (byte < 0xC2) return {0, 0, 0};
  if (byte < 0xE0) return {2, 0x80, 0xBF};
  if (byte == 0xE0) return {3, 0xA0, 0xBF};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3, 0x80, 0xBF};
  if (byte == 0xF0) return {4, 0x90, 0xBF};
  if (byte < 0xF4) return {4, 0x80, 0xBF};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

}  // namespace

Character decode(std::string_view text) noexcept {
  const auto first = static_cast<unsigned char>(text.front());
  const LeadByte lead = leadByte(first);
  if (lead.length == 1) return {first, 1, true};
  if (lead.length == 0) return {0, 1, false};
  char32_t code = first & (0x7FU >> lead.length);
  for (std::size_t i = 1; i < lead.length; ++i) {
    const auto byte = static_cast<unsigned char>(i < text.size() ? text[i] : '\0');
    const unsigned char lowest = i == 1 ? lead.lowestSecond : 0x80;
    const unsigned char highest = i == 1 ? lead.highestSecond : 0xBF;
    if (byte < lowest || byte > highest) return {0, i, false};
    code = (code << 6) | (byte & 0x3FU);
  }
  return {code, lead.length, true};
}

}  // namespace tarvola::utf8
