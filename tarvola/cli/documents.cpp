#include "tarvola/cli/documents.h"

#include <cmath>

#include "tarvola/cli/failure.h"
#include "tarvola/store/statement.h"

namespace tarvola::cli {

namespace {

using store::Statement;

RecordsetPtr rowsOf(const Statement& statement) {
  CGeneralClass general;
  RecordsetPtr rows = general.pGetRecordDbase(statement.str());
  if (rows == nullptr)
    throw CommandFailure("The store could not be read.\nTry again; if it fails again, restore a copy.");
  return rows;
}

bool headerExists(const Period& period, const store::FormCodes& form) {
  const store::DocumentKey key{
      .npwp = {}, .kdForm = form.kdForm, .jenisDokumen = form.jenisDokumen, .period = storePeriod(period)};
  return !rowsOf(store::selectDocument(form.table, key))->get_EOF();
}

}  // namespace

store::Period storePeriod(const Period& period) noexcept { return {period.month, period.year, period.correction}; }

bool returnExists(const Period& period) { return headerExists(period, store::F113204); }

void requireReturn(const Period& period) {
  if (returnExists(period)) return;
  throw CommandFailure("There is no return " + period.text() +
                       ".\nMake one with 'tarvola return create', or import an exchange file.");
}

void requireHeader(const Period& period, const store::FormCodes& list) {
  if (headerExists(period, list)) return;
  throw CommandFailure("The return " + period.text() + " lacks the header of its list " + std::string(list.kdForm) +
                       ".\nMake it with: tarvola return recount");
}

RecordsetPtr storedDocuments(const store::FormCodes& form, const Period& period, std::string_view number) {
  Statement select("SELECT * FROM ");
  select << store::name(store::tableName(form.table)) << " WHERE KD_FORM = " << store::text(form.kdForm) << " AND "
         << store::periodCondition(storePeriod(period)) << " AND KD_JENIS_PAJAK = " << store::text(store::taxKind);
  if (!number.empty()) select << " AND NOBUKTI = " << store::text(number);
  return rowsOf(select);
}

RecordsetPtr expandedDocuments(const store::FormCodes& form, const Period& period, std::string_view number) {
  return DatFormConverter().ExpandDatForm(form.kdForm, storedDocuments(form, period, number));
}

std::string fieldText(const RecordsetPtr& row, std::string_view name) {
  const Variant value = row->get_Collect(name);
  return value.isNull() ? std::string() : CStr(value);
}

double fieldNumber(const RecordsetPtr& row, std::string_view name) {
  const Variant value = row->get_Collect(name);
  return IsNumeric(value) ? CDbl(value) : 0;
}

std::string kindOf(const Period& period) {
  return period.correction == 0 ? "SPT Normal" : "SPT Pembetulan Ke-" + std::to_string(period.correction);
}

std::string rupiah(double value) { return Format(value, "#,##0"); }

nlohmann::ordered_json jsonNumber(double value) {
  constexpr double exactUpTo = 9e15;
  if (value == Int(value) && std::fabs(value) < exactUpTo) return static_cast<std::int64_t>(value);
  return value;
}

std::string jsonText(const nlohmann::ordered_json& value) {
  constexpr int indentation = 2;
  return value.dump(indentation, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::string csvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  return '"' + Replace(text, "\"", "\"\"") + '"';
}

}  // namespace tarvola::cli
