#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// Where the pieces of a statement begin and end. The reader of shapes and the tokenizer share these rules, so that both
// always see the same literals.

namespace tarvola::ado::sql {

enum class CharacterClass : std::uint8_t {
  Plain,    // blanks and signs
  Word,     // letters of names
  Digit,    // begins a number, unless a name has begun before it
  Quote,    // begins a text
  Hash,     // begins a date
  Name,     // begins a bracketed name
  Foreign,  // control characters, which no statement holds
};

namespace detail {

constexpr CharacterClass classify(unsigned character) {
  if (character >= '0' && character <= '9') return CharacterClass::Digit;
  if (character >= 'a' && character <= 'z') return CharacterClass::Word;
  if (character >= 'A' && character <= 'Z') return CharacterClass::Word;
  if (character == '_' || character == '$' || character >= 0x80) return CharacterClass::Word;
  if (character == '\'') return CharacterClass::Quote;
  if (character == '#') return CharacterClass::Hash;
  if (character == '[' || character == '"' || character == '`') return CharacterClass::Name;
  if (character < ' ' && (character < '\t' || character > '\r')) return CharacterClass::Foreign;
  return CharacterClass::Plain;
}

inline constexpr auto characterClasses = [] {
  std::array<CharacterClass, 256> classes{};
  for (unsigned character = 0; character < 256; ++character) classes[character] = classify(character);
  return classes;
}();

}  // namespace detail

inline CharacterClass classOf(char character) noexcept {
  return detail::characterClasses[static_cast<unsigned char>(character)];
}

inline bool isDigit(char character) noexcept { return classOf(character) == CharacterClass::Digit; }
inline bool isBlank(char character) noexcept { return character == ' ' || (character >= '\t' && character <= '\r'); }

inline bool isPartOfWord(char character) noexcept {
  const CharacterClass kind = classOf(character);
  return kind == CharacterClass::Word || kind == CharacterClass::Digit;
}

/// Behind the last character of a word (or of digits) that begins at `at`.
inline const char* wordEnd(const char* at, const char* end) noexcept {
  while (at != end && isPartOfWord(*at)) ++at;
  return at;
}

inline const char* digitsEnd(const char* at, const char* end) noexcept {
  while (at != end && isDigit(*at)) ++at;
  return at;
}

/// Behind the exponent at `at`, or `at` itself: an "e" is an exponent only with digits behind it, so that "4ELSE" stays
/// a number and a word.
inline const char* exponentEnd(const char* at, const char* end) noexcept {
  if (at == end || (*at != 'e' && *at != 'E')) return at;
  const char* digits = at + 1;
  if (digits != end && (*digits == '+' || *digits == '-')) ++digits;
  const char* behind = digitsEnd(digits, end);
  return behind == digits ? at : behind;
}

/// Behind a number that begins at `at` with a digit or a point. A number ends where no character can continue it:
/// "4AND" is 4 and AND.
inline const char* numberEnd(const char* at, const char* end) noexcept {
  at = digitsEnd(at, end);
  if (at != end && *at == '.') at = digitsEnd(at + 1, end);
  return exponentEnd(at, end);
}

/// Whether the point at `point` begins a number (".5") instead of parting two names ("t.c").
inline bool pointBeginsNumber(const char* begin, const char* point, const char* end) noexcept {
  if (point + 1 == end || !isDigit(point[1])) return false;
  if (point == begin) return true;
  const char before = point[-1];
  return !isPartOfWord(before) && before != ']' && before != '"' && before != '`';
}

/// The quote that closes the text opened at `open`, nullptr if none does. Two quotes in a row stand for one.
inline const char* closingQuote(const char* open, const char* end) noexcept {
  for (const char* at = open + 1; at < end; at += 2) {
    at = static_cast<const char*>(std::memchr(at, '\'', static_cast<std::size_t>(end - at)));
    if (at == nullptr || at + 1 == end || at[1] != '\'') return at;
  }
  return nullptr;
}

/// The sign that closes a date, nullptr if none does.
inline const char* closingHash(const char* open, const char* end) noexcept {
  return static_cast<const char*>(std::memchr(open + 1, '#', static_cast<std::size_t>(end - open - 1)));
}

/// The sign that closes a bracketed name, nullptr if none does.
inline const char* closingBracket(const char* open, const char* end) noexcept {
  const char closing = *open == '[' ? ']' : *open;
  return static_cast<const char*>(std::memchr(open + 1, closing, static_cast<std::size_t>(end - open - 1)));
}

/// Whether the bracket at `open` encloses a query, "[SELECT ...]. AS a": the old form of a query in FROM, whose closing
/// bracket is followed by a point and no name. "[Select a].[b]" is a column.
inline bool isQueryInBrackets(const char* open, const char* end) noexcept {
  constexpr std::string_view select = "SELECT";
  if (*open != '[') return false;
  const char* word = open + 1;
  while (word != end && isBlank(*word)) ++word;
  const char* behind = wordEnd(word, end);
  const std::string_view first(word, static_cast<std::size_t>(behind - word));
  const auto sameLetter = [](char upper, char other) { return upper == other || upper + ('a' - 'A') == other; };
  if (!std::equal(select.begin(), select.end(), first.begin(), first.end(), sameLetter)) return false;
  const char* closing = closingBracket(open, end);
  if (closing == nullptr || closing + 1 == end || closing[1] != '.') return false;
  if (closing + 2 == end) return true;
  const char next = closing[2];
  return !isPartOfWord(next) && classOf(next) != CharacterClass::Name && next != '*';
}

/// Whether any of the characters lies beyond ASCII.
inline bool isBeyondAscii(const char* at, const char* end) noexcept {
  std::uint64_t seen = 0;
  for (; end - at >= 8; at += 8) {
    std::uint64_t eight;
    std::memcpy(&eight, at, sizeof eight);
    seen |= eight;
  }
  for (; at != end; ++at) seen |= static_cast<unsigned char>(*at);
  return (seen & 0x8080808080808080ULL) != 0;
}

}  // namespace tarvola::ado::sql
