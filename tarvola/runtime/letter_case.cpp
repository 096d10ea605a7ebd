// Comparing and folding without regard to case, for the letters of the ANSI code page.
//
// The small letter of every capital of the code page has as many bytes of UTF-8 as the capital itself. So a folded text
// is as long as the text, its characters stand where they stood, and texts can be compared byte by byte.

#include <algorithm>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/runtime/utf8.h"

namespace tarvola {
namespace {

using Byte = unsigned char;

constexpr char lowerAscii(char c) noexcept { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; }

constexpr bool isAscii(char c) noexcept { return static_cast<Byte>(c) < 0x80; }

/// A capital beyond ASCII in UTF-8 and its small letter. Capitals in one run have their small letters in one run.
struct CapitalRun {
  Byte lead;
  Byte first;
  Byte last;
  Byte smallLead;
  Byte smallFirst;
};

// The sign of multiplication, C3 97, stands in the midst of the capitals.
constexpr CapitalRun capitalRuns[] = {
    {.lead = 0xC3, .first = 0x80, .last = 0x96, .smallLead = 0xC3, .smallFirst = 0xA0},  // À to Ö
    {.lead = 0xC3, .first = 0x98, .last = 0x9E, .smallLead = 0xC3, .smallFirst = 0xB8},  // Ø to Þ
    {.lead = 0xC5, .first = 0x92, .last = 0x92, .smallLead = 0xC5, .smallFirst = 0x93},  // Œ
    {.lead = 0xC5, .first = 0xA0, .last = 0xA0, .smallLead = 0xC5, .smallFirst = 0xA1},  // Š
    {.lead = 0xC5, .first = 0xB8, .last = 0xB8, .smallLead = 0xC3, .smallFirst = 0xBF},  // Ÿ
    {.lead = 0xC5, .first = 0xBD, .last = 0xBD, .smallLead = 0xC5, .smallFirst = 0xBE},  // Ž
};

const CapitalRun* capitalAt(Byte lead, Byte second) noexcept {
  const auto found = std::find_if(std::begin(capitalRuns), std::end(capitalRuns), [&](const CapitalRun& run) {
    return run.lead == lead && run.first <= second && second <= run.last;
  });
  return found == std::end(capitalRuns) ? nullptr : found;
}

Byte byteAt(std::string_view text, std::size_t at) noexcept {
  return at < text.size() ? static_cast<Byte>(text[at]) : Byte{0};
}

/// The byte of the folded text at a place of the text.
Byte foldedByte(std::string_view text, std::size_t at) noexcept {
  const Byte byte = byteAt(text, at);
  if (byte < 0x80) return static_cast<Byte>(lowerAscii(static_cast<char>(byte)));
  if (const CapitalRun* run = capitalAt(byte, byteAt(text, at + 1))) return run->smallLead;
  const CapitalRun* run = at > 0 ? capitalAt(byteAt(text, at - 1), byte) : nullptr;
  return run != nullptr ? static_cast<Byte>(byte - run->first + run->smallFirst) : byte;
}

}  // namespace

int compareIgnoreCase(std::string_view left, std::string_view right) noexcept {
  const std::size_t common = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (isAscii(left[i]) && isAscii(right[i])) {
      const int difference = lowerAscii(left[i]) - lowerAscii(right[i]);
      if (difference != 0) return difference;
      continue;
    }
    // Even equal bytes may belong to letters whose small ones differ in this very byte (Ÿ and Š).
    const Byte leftByte = foldedByte(left, i);
    const Byte rightByte = foldedByte(right, i);
    if (leftByte != rightByte) return leftByte < rightByte ? -1 : 1;
  }
  if (left.size() == right.size()) return 0;
  return left.size() < right.size() ? -1 : 1;
}

bool equalsIgnoreCase(std::string_view left, std::string_view right) noexcept {
  return left.size() == right.size() && (left == right || compareIgnoreCase(left, right) == 0);
}

std::string foldCase(std::string_view text) {
  std::string folded(text);
  const std::size_t plain = utf8::asciiLength(text);
  std::transform(folded.begin(), folded.begin() + static_cast<std::ptrdiff_t>(plain), folded.begin(), lowerAscii);
  for (std::size_t i = plain; i < text.size(); ++i) folded[i] = static_cast<char>(foldedByte(text, i));
  return folded;
}

}  // namespace tarvola
