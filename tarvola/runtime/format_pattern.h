#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tarvola {

/// One element of a number pattern.
struct PatternElement {
  enum class Kind { ForcedDigit, OptionalDigit, Point, Comma, Percent, SectionEnd, Literal };
  Kind kind;
  /// What a literal prints.
  std::string_view text;
};

/// Reads a number pattern element by element.
class NumberPatternReader {
 public:
  explicit NumberPatternReader(std::string_view pattern) noexcept : rest_(pattern) {}
  bool next(PatternElement& element) noexcept;
  [[nodiscard]] std::string_view rest() const noexcept { return rest_; }

 private:
  std::string_view rest_;
};

/// Takes text in double quotes or a character behind a backslash off the front of a pattern; both print themselves in
/// number and date patterns alike. An open quote reaches to the end.
bool takeQuoted(std::string_view& pattern, std::string_view& literal) noexcept;

/// The sections of a number pattern: positive (or all), negative, zero, Null.
struct PatternSections {
  std::array<std::string_view, 4> sections;
  std::size_t count = 0;

  [[nodiscard]] bool has(std::size_t index) const noexcept { return index < count && !sections[index].empty(); }
};

PatternSections sectionsOf(std::string_view pattern) noexcept;

/// Whether a pattern is one of dates: the first letter or sign in it that means anything belongs to dates.
bool isDatePattern(std::string_view pattern) noexcept;

}  // namespace tarvola
