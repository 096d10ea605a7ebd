#include "tarvola/interchange/base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarvola::interchange {

namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
static_assert(alphabet.size() == 64);

constexpr std::size_t bytesInGroup = 3;
constexpr std::size_t bytesInLine = 48;
constexpr char filler = '=';

/// What a character stands for, or one of the two kinds that stand for nothing.
constexpr std::int8_t foreign = -1;
constexpr std::int8_t blank = -2;

constexpr std::array<std::int8_t, 256> meanings = [] {
  std::array<std::int8_t, 256> table{};
  for (std::int8_t& meaning : table) meaning = foreign;
  for (std::size_t i = 0; i < alphabet.size(); ++i)
    table[static_cast<unsigned char>(alphabet[i])] = static_cast<std::int8_t>(i);
  for (const char c : {' ', '\t', '\r', '\n', '\v', '\f'}) table[static_cast<unsigned char>(c)] = blank;
  return table;
}();

constexpr std::size_t charactersInGroup = 4;

/// The two characters of each twelve bits.
constexpr std::array<std::array<char, 2>, 4096> pairs = [] {
  std::array<std::array<char, 2>, 4096> table{};
  for (std::size_t bits = 0; bits < table.size(); ++bits) table[bits] = {alphabet[bits >> 6], alphabet[bits & 0x3FU]};
  return table;
}();

/// The four characters of three bytes.
void putGroup(char* to, const char* bytes) {
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < bytesInGroup; ++i) bits = (bits << 8) | static_cast<unsigned char>(bytes[i]);
  for (const auto& pair : {pairs[bits >> 12], pairs[bits & 0xFFFU]}) to = std::copy(pair.begin(), pair.end(), to);
}

/// The four characters of one or two bytes, which end the text.
void putLastGroup(char* to, std::string_view bytes) {
  std::array<char, bytesInGroup> filled{};
  std::copy(bytes.begin(), bytes.end(), filled.begin());
  putGroup(to, filled.data());
  std::fill(to + bytes.size() + 1, to + charactersInGroup, filler);
}

}  // namespace

void Base64Lines::add(std::string_view bytes) {
  if (!pending_.empty()) {
    const std::size_t missing = std::min(bytesInLine - pending_.size(), bytes.size());
    pending_.append(bytes.substr(0, missing));
    bytes.remove_prefix(missing);
    if (pending_.size() < bytesInLine) return;
    writeLine(pending_);
    pending_.clear();
  }
  for (; bytes.size() >= bytesInLine; bytes.remove_prefix(bytesInLine)) writeLine(bytes.substr(0, bytesInLine));
  pending_ = bytes;
}

void Base64Lines::finish() {
  if (!pending_.empty()) writeLine(pending_);
  pending_.clear();
}

void Base64Lines::writeLine(std::string_view bytes) {
  line_.resize((bytes.size() + bytesInGroup - 1) / bytesInGroup * charactersInGroup);
  char* to = line_.data();
  for (; bytes.size() >= bytesInGroup; bytes.remove_prefix(bytesInGroup), to += charactersInGroup)
    putGroup(to, bytes.data());
  if (!bytes.empty()) putLastGroup(to, bytes);
  sink_(line_);
}

Base64Bytes readBase64(std::string_view text) {
  Base64Bytes result;
  result.bytes.reserve(text.size() / 4 * bytesInGroup);
  std::uint32_t bits = 0;
  unsigned bitCount = 0;
  bool isFilled = false;
  for (const char c : text) {
    const std::int8_t meaning = meanings[static_cast<unsigned char>(c)];
    if (meaning == blank) continue;
    if (c == filler) {
      isFilled = true;
      continue;
    }
    if (meaning == foreign || isFilled) {
      result.isWhole = false;
      return result;
    }
    bits = ((bits << 6) | static_cast<std::uint32_t>(meaning)) & 0xFFFU;
    bitCount += 6;
    if (bitCount < 8) continue;
    bitCount -= 8;
    result.bytes += static_cast<char>((bits >> bitCount) & 0xFFU);
  }
  return result;
}

}  // namespace tarvola::interchange
