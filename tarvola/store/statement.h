#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvola::store {

/// A piece of a statement that stands in the program text. Values cannot become one.
class FixedText {
 public:
  consteval FixedText(const char* text) : text_(text) {}
  [[nodiscard]] constexpr std::string_view view() const noexcept { return text_; }

 private:
  std::string_view text_;
};

struct TextValue {
  std::string_view value;
};
struct NumberValue {
  double value;
};
struct BareValue {
  std::string_view value;
};
struct NameValue {
  std::string_view value;
};

/// A text in single quotes. The dialect knows no escape that its users may rely on: a value that holds an apostrophe
/// fails the statement with its syntax error, always, so that no value can become part of a statement.
inline TextValue text(std::string_view value) noexcept { return {value}; }
/// A number in its text form, with a decimal point.
inline NumberValue number(double value) noexcept { return {value}; }
/// A text spliced without quotes; only what reads as a plain number passes, anything else is a syntax error.
inline BareValue bare(std::string_view value) noexcept { return {value}; }
/// A table or column name out of a table of the program: letters, digits and underscores only.
inline NameValue name(std::string_view value) noexcept { return {value}; }

/// A statement being put together: fixed pieces and values. Nothing else can enter it.
///
///   Statement("SELECT * FROM BURSA WHERE BURSA = ") << text(sNamaBursa)
class Statement {
 public:
  explicit Statement(FixedText start) : text_(start.view()) {}

  Statement& operator<<(FixedText piece) {
    text_ += piece.view();
    return *this;
  }
  Statement& operator<<(TextValue value);
  Statement& operator<<(NumberValue value);
  Statement& operator<<(BareValue value);
  Statement& operator<<(NameValue value);
  /// Whole numbers, in plain decimal form.
  Statement& operator<<(std::int32_t value);
  /// Another statement's text, put together under the same rules.
  Statement& operator<<(const Statement& piece) {
    text_ += piece.text_;
    return *this;
  }

  [[nodiscard]] const std::string& str() const noexcept { return text_; }
  operator std::string_view() const noexcept { return text_; }  // NOLINT(google-explicit-constructor)

 private:
  std::string text_;
};

}  // namespace tarvola::store
