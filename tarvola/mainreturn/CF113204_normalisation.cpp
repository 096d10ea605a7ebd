#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"

namespace tarvola {
namespace {

using mainreturn::ReturnLine;

constexpr std::int16_t zero = 0;

/// Null becomes 0, any other amount its whole part: cut down, never rounded, so that nobody pays a rupiah that was not
/// withheld. -0.5 gives -1.
void makeWhole(const RecordsetPtr& form, std::string_view field) {
  const Variant amount = store::fieldValue(form, field);
  store::setField(form, field, amount.isNull() ? Variant(zero) : Variant(Int(CDbl(amount))));
}

void makeZeroOfNull(const RecordsetPtr& form, std::string_view field) {
  if (store::isNullField(form, field)) store::setField(form, field, zero);
}

/// The sum over all lines of one of their fields, as the record holds it by now.
double sumOf(const RecordsetPtr& form, std::string_view ReturnLine::*field) {
  double sum = 0;
  for (const ReturnLine& line : mainreturn::returnLines) sum += store::fieldNumber(form, line.*field);
  return sum;
}

}  // namespace

void CF113204::pHitPjk3204(std::int16_t /*nrec*/) {
  guarded([&] {
    for (const ReturnLine& line : mainreturn::returnLines) {
      makeWhole(form_, line.gross);
      makeZeroOfNull(form_, line.rate);
      makeWhole(form_, line.tax);
    }
    for (const std::string_view field : mainreturn::partC) makeZeroOfNull(form_, field);
    store::setField(form_, mainreturn::totalGross, sumOf(form_, &ReturnLine::gross));
    store::setField(form_, mainreturn::totalTax, sumOf(form_, &ReturnLine::tax));
  });
}

}  // namespace tarvola
