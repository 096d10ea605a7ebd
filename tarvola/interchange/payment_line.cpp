#include "tarvola/interchange/payment_line.h"

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

constexpr std::size_t wordLength = 3;

/// Whether a sign of the thousands stands where one can: in "100.000", not in "100000.75", "1.5" or "1234.567".
bool partsGroupOfThree(std::string_view amount, std::size_t sign) {
  constexpr std::size_t groupLength = 3;
  const std::size_t firstDigit = amount.find_first_of("0123456789");
  return firstDigit < sign && sign - firstDigit <= groupLength && amount.size() - sign - 1 == groupLength;
}

/// Amounts from elsewhere have a decimal point. Read as a sign of the thousands it would make the figure a hundred
/// times too large, without a word.
std::string withDecimalSign(std::string amount) {
  const RegionalSettings& settings = regionalSettings();
  const std::size_t sign = amount.find(settings.thousands);
  const bool isOnlySign = sign != std::string::npos && amount.find(settings.thousands, sign + 1) == std::string::npos &&
                          amount.find(settings.decimal) == std::string::npos;
  if (isOnlySign && !partsGroupOfThree(amount, sign)) amount[sign] = settings.decimal;
  return amount;
}

}  // namespace

std::string PaymentLine::text(std::size_t column) const {
  if (column >= columns_.size()) fail(ErrorNumber::SubscriptOutOfRange);
  return std::string(Trim(CStr(columns_[column])));
}

double PaymentLine::wholeRupiah(std::size_t column) const { return Int(CDbl(withDecimalSign(text(column)))); }

std::string PaymentLine::word() const { return std::string(Left(text(0), wordLength)); }

std::int16_t PaymentLine::article() const { return CInt(Mid(text(0), wordLength + 1)); }

}  // namespace tarvola::interchange
