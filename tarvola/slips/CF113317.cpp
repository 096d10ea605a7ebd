#include "tarvola/slips/CF113317.h"

#include <algorithm>
#include <array>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/runtime/variant_math.h"
#include "tarvola/store/field_access.h"

namespace tarvola {
namespace {

/// Amounts that are rounded as they are written.
constexpr std::array<std::string_view, 7> roundedFields = {"b1", "h1", "i1", "j2", "k2", "JML", "PPhFinal"};
/// What the interest, the discount and the tax are worked out from.
constexpr std::array<std::string_view, 4> interestFields = {"b1", "d1", "HoldingPeriode", "TimePeriode"};
constexpr std::array<std::string_view, 2> priceFields = {"h1", "i1"};
constexpr std::string_view tariffField = "Tarif";

template <std::size_t Count>
bool isOneOf(const std::array<std::string_view, Count>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// Rounded by way of the formatted text, 29589.5 to "29.590": halves go away from zero.
double wholeRupiah(const Variant& amount) { return CDbl(Format(amount, "#,##0")); }

Variant withoutPoints(const Variant& value) {
  return IsNumeric(value) ? Variant(Replace(CStr(value), ".", "")) : value;
}

}  // namespace

void CF113317::pCreateF113317Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view /*sUserName*/,
                                 std::string_view sNmWP, std::string_view sAlamat, std::string_view dTgl_Setor) {
  createStub({.key = keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk),
              .filerName = sNmWP,
              .filerAddress = sAlamat,
              .dateText = std::string(dTgl_Setor)});
}

/// Four times the same date: of the slip, of maturity, of purchase, of sale. The separator behind the second has a
/// blank on each side, so that E1 ends and F1 begins with one until the slip is saved. The number is "0".
std::string CF113317::stubText(const NewSlip& slip) const {
  return stubStart(slip)
      .text("E1", slip.dateText + " ")
      .text("F1", " " + slip.dateText)
      .text("G1", slip.dateText)
      .text("NoBukti", "0")
      .str();
}

/// The blanks of the stub do not outlive the first save.
void CF113317::beforeSave() {
  for (const std::string_view field : {"E1", "F1"}) {
    const Variant date = store::fieldValue(namedFields(), field);
    if (date.isString()) store::setField(namedFields(), field, Trim(date.string()));
  }
}

// --- what writing a field works out --------------------------------------------------------------------------

void CF113317::write(const slips::SlipField& field, const Variant& value) {
  if (isOneOf(roundedFields, field.name)) {
    store::setField(namedFields(), field.name, wholeRupiah(typedValue(field, value)));
  } else {
    SlipFrame::write(field, field.name == "c1" ? withoutPoints(value) : value);
  }
  if (isOneOf(interestFields, field.name)) workOutInterest();
  if (isOneOf(priceFields, field.name)) workOutDiscount();
  if (field.name == tariffField) workOutTax();
}

void CF113317::workOutInterest() {
  const RecordsetPtr& form = namedFields();
  const Variant time = store::fieldValue(form, "TimePeriode");
  if (!time.isNull() && CDbl(time) <= 0) return store::setField(form, "k2", 0.0);
  Variant interest = multiply(store::fieldValue(form, "b1"), store::fieldValue(form, "d1"));
  interest = divide(multiply(multiply(interest, 0.01), store::fieldValue(form, "HoldingPeriode")), time);
  if (interest.isNull()) return;
  // Interest that equals the new one may be stored again, to no effect; any other that is not 0 stays.
  if (store::fieldNumberOr(form, "k2", 0) == 0) store::setField(form, "k2", wholeRupiah(interest));
}

void CF113317::workOutDiscount() {
  const RecordsetPtr& form = namedFields();
  const Variant discount = subtract(store::fieldValue(form, "i1"), store::fieldValue(form, "h1"));
  if (!discount.isNull()) store::setField(form, "j2", wholeRupiah(discount));
}

void CF113317::workOutTax() {
  const RecordsetPtr& form = namedFields();
  const Variant tax = multiply(multiply(store::fieldValue(form, tariffField), store::fieldValue(form, "JML")), 0.01);
  if (!tax.isNull()) store::setField(form, "PPhFinal", wholeRupiah(tax));
}

void CF113317::normalise(std::int16_t nrec) {
  constexpr std::int16_t keepsTax = -1;
  const RecordsetPtr& form = namedFields();
  for (const std::string_view field : {"a1", "c1"})
    if (store::isNullField(form, field)) store::setField(form, field, "");
  for (const std::string_view field : {"b1", "i1", "h1", "j2", "k2"}) store::nullToZeroElseInt(form, field);
  for (const std::string_view field : {"d1", "Tarif", "HoldingPeriode", "TimePeriode"}) store::nullToZero(form, field);
  store::setField(form, "JML", store::fieldNumber(form, "j2") + store::fieldNumber(form, "k2"));
  if (nrec != keepsTax) workOutTax();
}

}  // namespace tarvola
