#include "tarvola/runtime/number_parse.h"

#include <charconv>
#include <limits>

#include "tarvola/runtime/regional_settings.h"

namespace tarvola {
namespace {

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }
bool isBlank(char c) noexcept { return c == ' ' || c == '\t'; }
char lower(char c) noexcept { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

void skipBlanks(std::string_view& text) noexcept {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
}

bool take(std::string_view& text, char c) noexcept {
  if (text.empty() || text.front() != c) return false;
  text.remove_prefix(1);
  return true;
}

bool take(std::string_view& text, std::string_view word) noexcept {
  if (word.empty() || text.substr(0, word.size()) != word) return false;
  text.remove_prefix(word.size());
  return true;
}

/// Digits of an exponent. Beyond this size the number is 0 or too large whatever its digits are.
constexpr std::int64_t mostExponent = 1'000'000'000;

/// An exponent counts only with a digit behind it; "12e" is 12 with something left over.
void takeExponent(std::string_view& text, DecimalText& number) noexcept {
  std::string_view rest = text;
  if (rest.empty() || (lower(rest.front()) != 'e' && lower(rest.front()) != 'd')) return;
  rest.remove_prefix(1);
  const bool negative = take(rest, '-');
  if (!negative) take(rest, '+');
  if (rest.empty() || !isDigit(rest.front())) return;
  std::int64_t exponent = 0;
  for (; !rest.empty() && isDigit(rest.front()); rest.remove_prefix(1)) {
    if (exponent < mostExponent) exponent = exponent * 10 + (rest.front() - '0');
  }
  number.scale(negative ? -exponent : exponent);
  text = rest;
}

std::optional<std::int64_t> signedValue(std::uint64_t bits) noexcept {
  if (bits <= std::numeric_limits<std::uint16_t>::max()) return static_cast<std::int16_t>(bits);
  if (bits <= std::numeric_limits<std::uint32_t>::max()) return static_cast<std::int32_t>(bits);
  return std::nullopt;
}

/// What may stand around the digits, each once: a sign before or behind or parentheses, and the currency.
class Surroundings {
 public:
  explicit Surroundings(std::string_view currency) noexcept : currency_(currency) {}

  void takeBefore(std::string_view& text) noexcept {
    do skipBlanks(text);
    while (takeSign(text) || takeCurrency(text) || takeOpening(text));
  }

  void takeBehind(std::string_view& text) noexcept {
    do skipBlanks(text);
    while (takeSign(text) || takeCurrency(text) || takeClosing(text));
  }

  [[nodiscard]] bool complete() const noexcept { return !open_; }
  [[nodiscard]] bool negative() const noexcept { return negative_; }

 private:
  bool takeSign(std::string_view& text) noexcept {
    if (signed_) return false;
    negative_ = take(text, '-');
    signed_ = negative_ || take(text, '+');
    return signed_;
  }

  bool takeCurrency(std::string_view& text) noexcept {
    if (hasCurrency_) return false;
    hasCurrency_ = take(text, currency_);
    return hasCurrency_;
  }

  bool takeOpening(std::string_view& text) noexcept {
    if (signed_ || !take(text, '(')) return false;
    signed_ = negative_ = open_ = true;
    return true;
  }

  bool takeClosing(std::string_view& text) noexcept {
    if (!open_ || !take(text, ')')) return false;
    open_ = false;
    return true;
  }

  std::string_view currency_;
  bool signed_ = false;
  bool negative_ = false;
  bool open_ = false;
  bool hasCurrency_ = false;
};

bool parseRadix(std::string_view text, DecimalText& number) noexcept {
  if (!takeRadix(text, number)) return false;
  skipBlanks(text);
  return text.empty();
}

}  // namespace

bool takeDigits(std::string_view& text, const NumberSigns& signs, DecimalText& number) noexcept {
  bool any = false;
  for (; !text.empty(); text.remove_prefix(1)) {
    if (isDigit(text.front())) {
      number.addWholeDigit(text.front());
      any = true;
    } else if (text.front() != signs.thousands) {
      break;
    }
  }
  if (take(text, signs.decimal)) {
    for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1)) {
      number.addFractionDigit(text.front());
      any = true;
    }
  }
  if (any) takeExponent(text, number);
  return any;
}

bool takeRadix(std::string_view& text, DecimalText& number) noexcept {
  if (text.size() < 3 || text[0] != '&') return false;
  const bool hexadecimal = lower(text[1]) == 'h';
  if (!hexadecimal && lower(text[1]) != 'o') return false;
  const char* first = text.data() + 2;
  std::uint64_t bits = 0;
  const auto [end, problem] = std::from_chars(first, text.data() + text.size(), bits, hexadecimal ? 16 : 8);
  if (problem != std::errc{}) return false;
  const std::optional<std::int64_t> value = signedValue(bits);
  if (!value) return false;
  number.setWhole(*value);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return true;
}

bool parseNumber(std::string_view text, DecimalText& number) noexcept {
  const RegionalSettings& settings = regionalSettings();
  skipBlanks(text);
  if (!text.empty() && text.front() == '&') return parseRadix(text, number);
  Surroundings around(settings.currency);
  around.takeBefore(text);
  if (!takeDigits(text, {settings.decimal, settings.thousands}, number)) return false;
  around.takeBehind(text);
  number.setNegative(around.negative());
  return text.empty() && around.complete();
}

}  // namespace tarvola
