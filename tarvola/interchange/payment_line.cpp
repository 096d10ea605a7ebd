#include "tarvola/interchange/payment_line.h"

#include "tarvola/interchange/amount_text.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

constexpr std::size_t wordLength = 3;

}  // namespace

std::string PaymentLine::text(std::size_t column) const {
  if (column >= columns_.size()) fail(ErrorNumber::SubscriptOutOfRange);
  return std::string(Trim(CStr(columns_[column])));
}

double PaymentLine::wholeRupiah(std::size_t column) const { return Int(amountOf(text(column))); }

std::string PaymentLine::word() const { return std::string(Left(text(0), wordLength)); }

std::int16_t PaymentLine::article() const { return CInt(Mid(text(0), wordLength + 1)); }

}  // namespace tarvola::interchange
