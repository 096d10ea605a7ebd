#include "tarvola/interchange/return_check_packed.h"

#include <algorithm>

#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

using store::FieldType;

// --- packed texts ------------------------------------------------------------------------------------------

PackedRowReader::PackedRowReader(std::string_view layoutCode) : layout_(*store::findLayout(layoutCode)) {}

bool PackedRowReader::read(CheckReport& report, std::string_view document, std::string_view packed) {
  fields_.cut(packed);
  const std::size_t least = layout_.positions.size();
  const std::size_t most = least + layout_.extras.size();
  if (fields_.count() >= least && fields_.count() <= most) return true;
  report.add({.kind = CheckKind::FieldCount,
              .document = std::string(document),
              .field = "DAT_FORM",
              .stored = std::to_string(fields_.count()),
              .recounted = std::to_string(least)});
  return false;
}

std::size_t PackedRowReader::positionOf(std::string_view field) const {
  const auto [place, isNew] = positions_.try_emplace(field);
  if (isNew) place->second = layout_.position(field).value_or(static_cast<std::size_t>(-1));
  return place->second;
}

std::string_view PackedRowReader::text(std::string_view field) const {
  const std::size_t position = positionOf(field);
  return position < fields_.count() ? fields_[position] : std::string_view();
}

double PackedRowReader::number(std::string_view field) const { return tryNumber(text(field)).value_or(0); }

double PackedRowReader::sumOf(std::span<const std::string_view> fields) const {
  double sum = 0;
  for (const std::string_view field : fields) sum += number(field);
  return sum;
}

namespace {

/// What a readable value of the type would have been, "" if it is readable.
std::string_view wanted(FieldType type, std::string_view value, bool isNeeded) {
  const bool isNumber = type == FieldType::Integer || type == FieldType::Double;
  if (value.empty()) return isNumber && isNeeded ? "a number" : "";
  if (isNumber && !tryNumber(value)) return "a number";
  if (type == FieldType::DateText && !Trim(value).empty() && !tryDate(Trim(value))) return "a date";
  return "";
}

}  // namespace

void PackedRowReader::checkReadable(CheckReport& report, std::string_view document,
                                    std::span<const std::string_view> needed) const {
  for (std::size_t position = 0; position < layout_.positions.size() && position < fields_.count(); ++position) {
    // Only the main form holds several fields in one position, and it is read by its own class.
    const store::LayoutField& field = layout_.positions[position].fields.front();
    const bool isNeeded = std::find(needed.begin(), needed.end(), field.name) != needed.end();
    const std::string_view instead = wanted(field.type, fields_[position], isNeeded);
    if (!instead.empty()) report.compare(CheckKind::Unreadable, document, field.name, fields_[position], instead);
  }
}

// --- rows --------------------------------------------------------------------------------------------------

DocumentColumns::DocumentColumns(const Recordset& rows)
    : npwp(rows.column("NPWP")),
      kdForm(rows.column("KD_FORM")),
      jenisDokumen(rows.column("JENIS_DOKUMEN")),
      noBukti(rows.column("NOBUKTI")),
      kdJenisPajak(rows.column("KD_JENIS_PAJAK")),
      datForm(rows.column("DAT_FORM")) {}

std::string textOf(const ado::Cell& cell) {
  std::string text;
  if (!cell.isNull()) cell.appendText(text);
  return text;
}

void checkCodes(const CheckContext& context, std::string_view document, const store::FormCodes& form,
                std::string_view npwp, std::string_view jenisDokumen, std::string_view kdJenisPajak) {
  context.report.compare(CheckKind::WrongCode, document, "JENIS_DOKUMEN", jenisDokumen, form.jenisDokumen);
  context.report.compare(CheckKind::WrongCode, document, "KD_JENIS_PAJAK", kdJenisPajak, store::taxKind);
  context.report.compare(CheckKind::OtherFiler, document, "NPWP", npwp, context.filer.npwp);
}

void checkHead(const CheckContext& context, std::string_view document, const PackedRowReader& packed,
               std::string_view npwp, std::string_view numberField, std::string_view number) {
  const auto compare = [&](std::string_view field, const auto& stored, const auto& recounted) {
    context.report.compare(CheckKind::OtherThanRow, document, field, stored, recounted);
  };
  compare("npwp", packed.text("npwp"), npwp);
  compare("MS_PAJAK", packed.number("MS_PAJAK"), double(context.period.msPajak));
  compare("TH_PAJAK", packed.number("TH_PAJAK"), double(context.period.thPajak));
  compare("KD_PEMBETULAN_KE", packed.number("KD_PEMBETULAN_KE"), double(context.period.kdPembetulanKe));
  if (!numberField.empty()) compare(numberField, packed.text(numberField), number);
}

}  // namespace tarvola::interchange
