#include "tarvola/interchange/report_lines.h"

#include <algorithm>
#include <array>

#include "tarvola/interchange/control_sums.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/named_field_rows.h"

namespace tarvola::interchange {

namespace {

constexpr char separator = ';';

/// The named fields of the main return in the order of the line. The later fields of the form are not among them.
constexpr auto returnFields = std::to_array<std::string_view>({
    // clang-format off
    "npwp", "NmWP", "ALM", "MS_PAJAK", "TH_PAJAK", "KD_PEMBETULAN_KE",
    "B1a13", "B1a14", "B1a15", "B1a23", "B1a24", "B1a25", "B1B3", "B1B4", "B1B5", "B1C3", "B1C4", "B1C5",
    "B2a3", "B2a4", "B2a5", "B2b3", "B2b4", "B2b5", "B33", "B34", "B35", "B43", "B44", "B45",
    "B5a3", "B5a4", "B5a5", "B5b3", "B5b4", "B5b5",
    "B6a13", "B6a14", "B6a15", "B6a23", "B6a24", "B6a25", "B6b13", "B6b14", "B6b15", "B6b23", "B6b24", "B6b25",
    "B6c13", "B6c14", "B6c15", "B6c23", "B6c24", "B6c25",
    "B73", "B74", "B75", "B83", "B84", "B85", "B93", "B94", "B95", "B103", "B104", "B105",
    "B11a", "B11a3", "B11a4", "B11a5", "B11b", "B11b3", "B11b4", "B11b5", "B11c", "B11c3", "B11c4", "B11c5",
    "JmlB5", "JMLPHSL", "CHKC1", "c1", "CHKC2", "CHKC3", "C3", "CHKC4", "flagKuasa", "TGL_TRV",
    // clang-format on
});

/// Marks and quantities of part C: written as 0 where they were never set. Any other field is then empty.
constexpr auto zeroIfNull = std::to_array<std::string_view>({"CHKC1", "c1", "CHKC2", "CHKC3", "C3", "CHKC4"});

constexpr std::string_view returnDateField = returnFields.back();

bool isZeroIfNull(std::string_view field) {
  return std::find(zeroIfNull.begin(), zeroIfNull.end(), field) != zeroIfNull.end();
}

void appendReturnField(std::string& line, const Recordset& named, std::string_view field) {
  const std::size_t column = named.column(field);
  if (named.cell(column).isNull() && isZeroIfNull(field))
    line += '0';
  else
    store::appendFieldText(line, named, column);
}

void appendItem(std::string& line, std::string_view item) {
  line += item;
  line += separator;
}

}  // namespace

void ReportLines::addMainReturn(const ReportDocument& document, std::uint8_t status, double dJmlNKLB,
                                const RecordsetPtr& named) {
  if (named->get_BOF() && named->get_EOF()) return;
  line_.clear();
  appendItem(line_, store::taxKind);
  appendItem(line_, document.jenisDokumen);
  appendItem(line_, document.kdForm);
  appendItem(line_, CStr(std::int32_t{status}));
  appendItem(line_, CStr(dJmlNKLB));
  for (const std::string_view field : returnFields) {
    appendReturnField(line_, *named, field);
    line_ += separator;
  }
  removeLineBreaks(line_);
  returnDate_.clear();
  store::appendFieldText(returnDate_, *named, named->column(returnDateField));
}

void ReportLines::addForm(const ReportDocument& document) {
  const ReportForm* form = findReportForm(document.kdForm);
  if (form == nullptr) return;
  line_.clear();
  appendItem(line_, store::taxKind);
  appendItem(line_, document.jenisDokumen);
  appendItem(line_, Trim(document.kdForm));
  appendItem(line_, Trim(document.datForm));
  if (!form->summedFields.empty()) {
    fields_.cut(document.datForm);
    appendCStr(line_, controlSum(summedElements(*form), fields_));
    line_ += separator;
  }
  if (form->isClosing) appendItem(line_, returnDate_);
  if (!form->keepsLineBreaks) removeLineBreaks(line_);
  if (form->isClosing) closingLine_ = line_;
}

void removeLineBreaks(std::string& line) {
  if (line.find("\r\n") != std::string::npos) line = withoutLineBreaks(std::move(line));
}

}  // namespace tarvola::interchange
