#include "tarvola/interchange/utf16.h"

#include <algorithm>
#include <array>
#include <optional>

#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/utf8.h"

namespace tarvola::interchange {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstBeyondOneUnit = 0x10000;

char32_t takeCharacter(std::string_view& text) noexcept {
  const utf8::Character character = utf8::decode(text);
  text.remove_prefix(character.length);
  return character.valid ? character.code : replacement;
}

/// The two bytes of a code unit, the lower one first.
using UnitBytes = std::array<char, 2>;

constexpr UnitBytes bytesOfUnit(char32_t unit) {
  return {static_cast<char>(unit & 0xFFU), static_cast<char>(unit >> 8)};
}

void appendUnit(std::string& out, char32_t unit) {
  const UnitBytes bytes = bytesOfUnit(unit);
  out.append(bytes.data(), bytes.size());
}

void appendCharacter(std::string& out, char32_t code) {
  if (code < firstBeyondOneUnit) return appendUnit(out, code);
  const char32_t offset = code - firstBeyondOneUnit;
  appendUnit(out, 0xD800U + (offset >> 10));
  appendUnit(out, 0xDC00U + (offset & 0x3FFU));
}

constexpr char16_t firstSpecial = 0x80;
constexpr char16_t behindSpecial = 0xA0;

/// What the bytes 80 to 9F hexadecimal stand for; all others have the number of their character.
const std::array<char16_t, behindSpecial - firstSpecial>& specialUnits() {
  static const auto units = [] {
    std::array<char16_t, behindSpecial - firstSpecial> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
      const std::string text = fromAnsi(std::string(1, static_cast<char>(firstSpecial + i)));
      table[i] = static_cast<char16_t>(utf8::decode(text).code);
    }
    return table;
  }();
  return units;
}

/// What each byte of the code page is in UTF-16.
const std::array<UnitBytes, 256>& unitsOfBytes() {
  static const auto units = [] {
    std::array<UnitBytes, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
      const bool isSpecial = byte >= firstSpecial && byte < behindSpecial;
      table[byte] = bytesOfUnit(isSpecial ? specialUnits()[byte - firstSpecial] : static_cast<char32_t>(byte));
    }
    return table;
  }();
  return units;
}

std::optional<char> ansiOf(char16_t unit) {
  if (unit < firstSpecial || (unit >= behindSpecial && unit <= 0xFF)) return static_cast<char>(unit);
  const auto& units = specialUnits();
  const auto found = std::find(units.begin(), units.end(), unit);
  if (found == units.end()) return std::nullopt;
  return static_cast<char>(firstSpecial + (found - units.begin()));
}

}  // namespace

std::string toUtf16(std::string_view text) {
  std::string out;
  out.reserve(2 * text.size());
  while (!text.empty()) appendCharacter(out, takeCharacter(text));
  return out;
}

std::string utf16FromAnsi(std::string_view bytes) {
  const auto& units = unitsOfBytes();
  std::string out(2 * bytes.size(), '\0');
  char* to = out.data();
  for (const char byte : bytes) to = std::copy_n(units[static_cast<unsigned char>(byte)].data(), 2, to);
  return out;
}

AnsiBytes ansiFromUtf16(std::string_view utf16) {
  AnsiBytes result;
  result.bytes.reserve(utf16.size() / 2);
  for (std::size_t at = 0; at + 1 < utf16.size(); at += 2) {
    const auto low = static_cast<unsigned char>(utf16[at]);
    const auto high = static_cast<unsigned char>(utf16[at + 1]);
    const std::optional<char> byte = ansiOf(static_cast<char16_t>(low | (high << 8)));
    result.bytes += byte.value_or('?');
    if (!byte) ++result.foreignCount;
  }
  return result;
}

}  // namespace tarvola::interchange
