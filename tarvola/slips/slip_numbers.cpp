// The numbers of the slips: the proposal of a new one, and the search for duplicates.
#include <algorithm>
#include <optional>
#include <span>
#include <string>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_frame.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"

namespace tarvola::slips {
namespace {

using store::Statement;
using store::text;

constexpr std::size_t digitCount = 6;
/// NOBUKTI of a row that some stores keep as a pattern for new slips; it is no slip's number.
constexpr std::string_view templateNumber = "TempleteKodeNoBukti";

constexpr std::span<const store::FormCodes> scannedForms(NumberScan scan) {
  return std::span(nineSlipForms).first(scan == NumberScan::SixForms ? 6 : 9);
}

/// "(KD_FORM = 'F113309' OR KD_FORM = ...)"
Statement isOneOf(std::span<const store::FormCodes> forms) {
  Statement condition("(KD_FORM = ");
  condition << text(forms.front().kdForm);
  for (const store::FormCodes& form : forms.subspan(1)) condition << " OR KD_FORM = " << text(form.kdForm);
  return condition << ")";
}

/// The number memory of the article: the last number used and the suffix of all numbers.
struct NumberMemory {
  double lastNumber = 0;
  std::string suffix;
};

NumberMemory numberMemory(const store::StoreObject& store) {
  const RecordsetPtr rows = store.execute("SELECT * FROM SETTING_NOBUKTI_PPH WHERE PASAL = 4");
  if (rows->get_RecordCount() != 1) return {};
  return {.lastNumber = store::fieldNumber(rows, "NO_URUT"),
          .suffix = std::string(Trim(store::fieldText(rows, "FORMAT_STRING")))};
}

/// The six digits of a stored number that bears the suffix; nothing for any other number.
std::optional<double> numberOf(std::string_view stored, std::string_view suffix) {
  if (stored == store::headerNumber || stored == templateNumber) return std::nullopt;
  const std::string_view trimmed = Trim(stored);
  if (Len(trimmed) != digitCount + Len(suffix) || !trimmed.ends_with(suffix)) return std::nullopt;
  return tryNumber(trimmed.substr(0, trimmed.size() - suffix.size()));
}

/// The greatest of a number and all numbers with the suffix among the first column's texts. Read as cells: a year may
/// hold a million of them.
double greatestNumber(const Recordset& slips, double start, std::string_view suffix) {
  const ado::RowsPtr& rows = slips.rows();
  double greatest = start;
  for (const std::size_t row : slips.visibleRows()) {
    const ado::Cell stored = rows->cell(row, 0);
    if (stored.isText()) greatest = std::max(greatest, numberOf(stored.text(), suffix).value_or(greatest));
  }
  return greatest;
}

/// Six digits and the suffix. A number of six digits or more has no zero to put in front and gives "": the proposal
/// ends at 099999.
std::string proposal(double number, std::string_view suffix) {
  const std::string digits = CStr(number);
  if (digits.size() >= digitCount) return {};
  return std::string(digitCount - digits.size(), '0') + digits + std::string(suffix);
}

}  // namespace

std::string SlipFrame::getNoBuktiHdr(std::int16_t iThPjk, std::int16_t iKdPembetulan) {
  std::string result;
  guarded([&] {
    const NumberMemory memory = numberMemory(store_);
    const RecordsetPtr slips =
        store_.execute(Statement("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE  TH_PAJAK = ")
                       << std::int32_t{iThPjk} << " AND KD_PEMBETULAN_KE = " << std::int32_t{iKdPembetulan} << " AND "
                       << isOneOf(scannedForms(description_.numberScan)) << " ORDER BY NOBUKTI ASC");
    result = proposal(greatestNumber(*slips, memory.lastNumber, memory.suffix) + 1, memory.suffix);
  });
  return result;
}

RecordsetPtr SlipFrame::pCheckNoBukti(std::string_view sNPWP, std::int16_t iThPjk, std::string_view strBukti,
                                      std::int16_t iKdPembetulan) {
  RecordsetPtr result;
  guarded([&] {
    Statement select("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE  ");
    if (description_.duplicateCheckAsksForFiler) select << "NPWP = " << text(sNPWP) << " AND ";
    select << "NOBUKTI = " << text(strBukti) << " AND  KD_PEMBETULAN_KE = " << std::int32_t{iKdPembetulan}
           << " AND  TH_PAJAK = " << std::int32_t{iThPjk} << " AND  KD_JENIS_PAJAK = " << text(store::taxKind)
           << " AND  " << isOneOf(nineSlipForms);
    result = store_.execute(select);
  });
  return result;
}

}  // namespace tarvola::slips
