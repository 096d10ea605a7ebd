#include "tarvola/ado/sql/letters.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/runtime/utf8.h"

namespace tarvola::ado::sql {
namespace {

constexpr std::string_view capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZŒŠŸŽÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ";

/// The capitals and their small letters, character by character: a small letter is as long as its capital.
struct Letters {
  std::string small = foldCase(capitals);

  [[nodiscard]] static std::size_t find(std::string_view letters, std::string_view character) noexcept {
    for (std::size_t at = 0; at < letters.size(); at += firstCharacter(letters.substr(at)).size())
      if (firstCharacter(letters.substr(at)) == character) return at;
    return std::string_view::npos;
  }
};

const Letters& letters() {
  static const Letters made;
  return made;
}

/// Of an ASCII letter the other case, of another ASCII character nothing: most characters, without a search.
std::string_view otherCaseOfAscii(char character) noexcept {
  static constexpr std::string_view small = "abcdefghijklmnopqrstuvwxyz";
  if (character >= 'a' && character <= 'z') return capitals.substr(static_cast<std::size_t>(character - 'a'), 1);
  if (character >= 'A' && character <= 'Z') return small.substr(static_cast<std::size_t>(character - 'A'), 1);
  return {};
}

}  // namespace

std::string_view firstCharacter(std::string_view text) noexcept {
  if (static_cast<unsigned char>(text.front()) < 0x80) return text.substr(0, 1);
  const utf8::Character first = utf8::decode(text);
  return text.substr(0, first.valid ? first.length : 1);
}

std::string_view otherCase(std::string_view character) noexcept {
  if (static_cast<unsigned char>(character.front()) < 0x80) return otherCaseOfAscii(character.front());
  const std::string_view small = letters().small;
  if (const std::size_t at = Letters::find(capitals, character); at != std::string_view::npos)
    return small.substr(at, character.size());
  const std::size_t at = Letters::find(small, character);
  return at == std::string_view::npos ? std::string_view{} : capitals.substr(at, character.size());
}

std::string upperCase(std::string_view text) {
  std::string upper;
  upper.reserve(text.size());
  while (!text.empty()) {
    const std::string_view character = firstCharacter(text);
    const std::size_t at = Letters::find(letters().small, character);
    upper += at == std::string_view::npos ? character : capitals.substr(at, character.size());
    text.remove_prefix(character.size());
  }
  return upper;
}

}  // namespace tarvola::ado::sql
