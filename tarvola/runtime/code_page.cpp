#include "tarvola/runtime/code_page.h"

#include <algorithm>
#include <array>

#include "tarvola/runtime/utf8.h"

namespace tarvola {
namespace {

/// The bytes 80 to 9F hexadecimal. All others have the number of their character.
constexpr std::array<char16_t, 32> specialCodes = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned firstSpecial = 0x80;
constexpr unsigned behindSpecial = 0xA0;

/// The UTF-8 of one byte beyond ASCII.
struct EncodedByte {
  std::array<char, 3> bytes;
  std::uint8_t length;
};

constexpr EncodedByte encode(char32_t code) {
  const auto tail = [](char32_t bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
  if (code < 0x800) return {{static_cast<char>(0xC0U | (code >> 6)), tail(code), 0}, 2};
  return {{static_cast<char>(0xE0U | (code >> 12)), tail(code >> 6), tail(code)}, 3};
}

constexpr std::array<EncodedByte, 128> encodedBytes = [] {
  std::array<EncodedByte, 128> table{};
  for (unsigned i = 0; i < table.size(); ++i) {
    const unsigned byte = firstSpecial + i;
    table[i] = encode(byte < behindSpecial ? char32_t{specialCodes[i]} : char32_t{byte});
  }
  return table;
}();

constexpr char substitute = '?';

char ansiOf(char32_t code) noexcept {
  if (code < firstSpecial || (code >= behindSpecial && code <= 0xFF)) return static_cast<char>(code);
  const auto found = std::find(specialCodes.begin(), specialCodes.end(), code);
  if (found == specialCodes.end()) return substitute;
  return static_cast<char>(firstSpecial + static_cast<unsigned>(found - specialCodes.begin()));
}

}  // namespace

void appendFromAnsi(std::string& out, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t plain = utf8::asciiLength(bytes);
    out.append(bytes.data(), plain);
    bytes.remove_prefix(plain);
    if (bytes.empty()) return;
    const EncodedByte& encoded = encodedBytes[static_cast<unsigned char>(bytes.front()) - firstSpecial];
    out.append(encoded.bytes.data(), encoded.length);
    bytes.remove_prefix(1);
  }
}

void appendToAnsi(std::string& out, std::string_view text) {
  while (!text.empty()) {
    const std::size_t plain = utf8::asciiLength(text);
    out.append(text.data(), plain);
    text.remove_prefix(plain);
    if (text.empty()) return;
    const utf8::Character character = utf8::decode(text);
    out += character.valid ? ansiOf(character.code) : substitute;
    text.remove_prefix(character.length);
  }
}

std::string fromAnsi(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  appendFromAnsi(out, bytes);
  return out;
}

std::string toAnsi(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  appendToAnsi(out, text);
  return out;
}

bool isUtf8(std::string_view bytes) noexcept {
  for (;;) {
    bytes.remove_prefix(utf8::asciiLength(bytes));
    if (bytes.empty()) return true;
    const utf8::Character character = utf8::decode(bytes);
    if (!character.valid) return false;
    bytes.remove_prefix(character.length);
  }
}

}  // namespace tarvola
