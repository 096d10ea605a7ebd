#include "tarvola/interchange/line_check.h"

#include <algorithm>
#include <array>

#include "tarvola/interchange/import_texts.h"
#include "tarvola/interchange/value_check.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

std::string faultOfDate(std::string_view value) {
  return value.empty() || tryDate(value) ? std::string() : noDateText(value);
}

bool isOneOf(const ImportLine& line, Column column, std::initializer_list<double> values) {
  return std::any_of(values.begin(), values.end(), [&](double value) { return line.saysOption(column, value); });
}

std::string faultOfElement(const ImportLine& line, const Element& element) {
  const std::string_view value = line.text(element.column);
  switch (element.packing) {
    case Packing::Text:
      return faultOfText(value);
    case Packing::Date:
      return faultOfDate(value);
    case Packing::Rate:
      return value.empty() ? std::string() : faultOfNumber(value);
    case Packing::Number:
    case Packing::Whole:
      return faultOfNumber(value);
    case Packing::Option:
      return isOneOf(line, element.column, {0, 1, 2}) ? std::string() : noOptionText(value, "0, 1 and 2");
    case Packing::OptionPair:
      return isOneOf(line, element.column, {0, 1}) ? std::string() : noOptionText(value, "0 and 1");
    case Packing::GrossTotal:
    case Packing::Seq:
      return {};
  }
  return {};
}

std::string faultOfNumberColumn(const ImportForm& form, const ImportLine& line) {
  const std::string_view noBukti = line.text(Number);
  if (noBukti == store::headerNumber) return headerNumberText();
  if (noBukti.empty() && form.codes.kind == store::FormKind::Slip) return noSlipNumberText();
  return {};
}

/// The period that a line says must be the one that it is imported into: the import itself goes by the latter alone.
bool isOfPeriod(const ImportLine& line, const store::Period& wanted) {
  const auto says = [&](Column column, std::int16_t value) { return line.saysOption(column, value); };
  return says(Month, wanted.msPajak) && says(Year, wanted.thPajak) && says(Correction, wanted.kdPembetulanKe);
}

// --- interest slips ----------------------------------------------------------------------------------

/// A group of an interest slip whose amount makes a row in the table of interest lines.
struct InterestGroup {
  Column gross;
  Column rate;
};

constexpr std::array<InterestGroup, 7> interestGroups = {{{Gross1, Rate1},
                                                          {Gross2, Rate2},
                                                          {Gross3, Rate3},
                                                          {Gross4, Rate4},
                                                          {Gross5, Rate5},
                                                          {Gross6, Rate6},
                                                          {Gross7, Rate7}}};

/// The interest lines need the rate of each group with an amount, and the day, in columns of number and date.
std::string faultOfInterest(const ImportLine& line) {
  bool hasLines = false;
  for (const InterestGroup& group : interestGroups) {
    if (line.number(group.gross) == 0) continue;
    hasLines = true;
    if (line.text(group.rate).empty()) return inColumnText(group.rate, noNumberText(""));
  }
  if (hasLines && line.text(DateOfSlip).empty()) return inColumnText(DateOfSlip, noDateText(""));
  return {};
}

std::string faultOfColumns(const ImportForm& form, const ImportLine& line) {
  if (const std::string fault = faultOfNumberColumn(form, line); !fault.empty()) return inColumnText(Number, fault);
  for (const Element& element : form.packed)
    if (const std::string fault = faultOfElement(line, element); !fault.empty())
      return inColumnText(element.column, fault);
  return form.codes.kdForm == store::F113310.kdForm ? faultOfInterest(line) : std::string();
}

}  // namespace

std::string faultOf(const ImportLine& line, const store::Period& wanted) {
  if (line.count() > columnCount || line.count() <= index(Correction)) return columnCountText(line.count());
  const ImportForm* form = findImportForm(line.text(FormCode));
  if (form == nullptr) return unknownFormCodeText(line.text(FormCode));
  if (line.count() < form->columnsNeeded) return columnCountText(line.count());
  if (!isOfPeriod(line, wanted))
    return otherPeriodText(line.text(Month), line.text(Year), line.text(Correction), wanted);
  return faultOfColumns(*form, line);
}

}  // namespace tarvola::interchange
