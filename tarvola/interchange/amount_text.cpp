#include "tarvola/interchange/amount_text.h"

#include <string>

#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

/// Whether a sign of the thousands stands where one can: in "100.000", not in "100000.75", "1.5" or "1234.567".
bool partsGroupOfThree(std::string_view amount, std::size_t sign) {
  constexpr std::size_t groupLength = 3;
  const std::size_t firstDigit = amount.find_first_of("0123456789");
  return firstDigit < sign && sign - firstDigit <= groupLength && amount.size() - sign - 1 == groupLength;
}

/// Where the only sign of the thousands stands that is meant as the decimal sign; npos for an amount without one.
std::size_t foreignDecimalSign(std::string_view amount, const RegionalSettings& settings) {
  const std::size_t sign = amount.find(settings.thousands);
  if (sign == std::string_view::npos) return sign;
  const bool isOnlySign = amount.find(settings.thousands, sign + 1) == std::string_view::npos &&
                          amount.find(settings.decimal) == std::string_view::npos;
  return isOnlySign && !partsGroupOfThree(amount, sign) ? sign : std::string_view::npos;
}

}  // namespace

double amountOf(std::string_view text) {
  const RegionalSettings& settings = regionalSettings();
  const std::string_view trimmed = Trim(text);
  const std::size_t sign = foreignDecimalSign(trimmed, settings);
  if (sign == std::string_view::npos) return CDbl(trimmed);
  std::string amount(trimmed);
  amount[sign] = settings.decimal;
  return CDbl(std::string_view(amount));
}

}  // namespace tarvola::interchange
