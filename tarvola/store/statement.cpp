#include "tarvola/store/statement.h"

#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::store {
namespace {

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }
constexpr bool isLetter(char c) noexcept { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Digits with at most one point among them, after an optional sign and with blanks around.
bool isPlainNumber(std::string_view value) noexcept {
  value = Trim(value);
  if (!value.empty() && (value.front() == '-' || value.front() == '+')) value.remove_prefix(1);
  std::size_t digits = 0;
  std::size_t points = 0;
  for (const char c : value) {
    digits += isDigit(c) ? 1U : 0U;
    points += c == '.' ? 1U : 0U;
  }
  return digits > 0 && points <= 1 && digits + points == value.size();
}

bool isName(std::string_view value) noexcept {
  for (const char c : value)
    if (!isDigit(c) && !isLetter(c) && c != '_') return false;
  return !value.empty() && !isDigit(value.front());
}

[[noreturn]] void failWithOperatorMissing(std::string_view expression) {
  fail(ErrorNumber::SyntaxError, missingOperatorText(expression));
}

std::string quoted(std::string_view value) {
  std::string result;
  result.reserve(value.size() + 2);
  result += '\'';
  result += value;
  result += '\'';
  return result;
}

}  // namespace

Statement& Statement::operator<<(TextValue value) {
  if (value.value.find('\'') != std::string_view::npos) failWithOperatorMissing(quoted(value.value));
  text_ += '\'';
  text_ += value.value;
  text_ += '\'';
  return *this;
}

Statement& Statement::operator<<(NumberValue value) {
  text_ += numberLiteral(value.value);
  return *this;
}

Statement& Statement::operator<<(BareValue value) {
  if (!isPlainNumber(value.value)) failWithOperatorMissing(value.value);
  text_ += value.value;
  return *this;
}

Statement& Statement::operator<<(NameValue value) {
  if (!isName(value.value)) failWithOperatorMissing(value.value);
  text_ += value.value;
  return *this;
}

Statement& Statement::operator<<(std::int32_t value) {
  text_ += CStr(value);
  return *this;
}

}  // namespace tarvola::store
