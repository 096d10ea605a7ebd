#include "tarvola/interchange/exported_documents.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <utility>

#include "tarvola/ado/row_test.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/named_field_rows.h"

namespace tarvola::interchange {

namespace {

std::optional<std::uint64_t> hashOf(const ado::Cell& cell) {
  return ado::RowTest::cellHash(cell, ado::Comparing::Text);
}

void requireNoApostrophe(const ado::Cell& cell) {
  if (cell.isText() && cell.text().find('\'') != std::string_view::npos) fail(ErrorNumber::WrongArguments);
}

}  // namespace

MetHashes::MetHashes(std::size_t expectedCount) : slots_(std::bit_ceil(std::max<std::size_t>(2 * expectedCount, 16))) {}

// A slot of 0 is free; the one hash that is 0 itself is then taken for new each time, so it is given another number.
bool MetHashes::add(std::uint64_t hash) {
  const std::uint64_t kept = hash == 0 ? 1 : hash;
  const std::size_t last = slots_.size() - 1;
  std::size_t slot = kept & last;
  while (slots_[slot] != 0 && slots_[slot] != kept) slot = (slot + 1) & last;
  const bool isNew = slots_[slot] == 0;
  slots_[slot] = kept;
  return isNew;
}

ExportedDocuments::ExportedDocuments(const store::StoreObject& store, RecordsetPtr rows)
    : store_(store),
      rows_(std::move(rows)),
      kdForm_(rows_->column("KD_FORM")),
      noBukti_(rows_->column("NOBUKTI")),
      datForm_(rows_->column("DAT_FORM")),
      met_(rows_->rows()->count()) {}

std::string_view ExportedDocuments::formOf(std::size_t row) const {
  const ado::Cell code = rows_->rows()->cell(row, kdForm_);
  return code.isText() ? code.text() : std::string_view();
}

// Every row is noted, also one whose code is spelled otherwise and which is not exported: a filter would find it.
const ExportForm* ExportedDocuments::next() {
  const std::size_t row = nextRow_++;
  isFirst_ = isFirstOfItsKind(row);
  return findExportForm(formOf(row));
}

/// Texts that a filter takes for equal have one hash. Rows of one hash need not be equal, but that a filter then finds
/// out.
bool ExportedDocuments::isFirstOfItsKind(std::size_t row) {
  const ado::Rows& rows = *rows_->rows();
  const auto form = hashOf(rows.cell(row, kdForm_));
  const auto number = hashOf(rows.cell(row, noBukti_));
  return form && number && met_.add(*form * 0x9E3779B97F4A7C15U ^ *number);
}

ExportedDocuments::Found ExportedDocuments::find(const ExportForm& form) {
  return isFirst_ ? asItStands(form) : filtered(form);
}

ExportedDocuments::Found ExportedDocuments::asItStands(const ExportForm& form) const {
  const std::size_t row = nextRow_ - 1;
  const ado::RowsPtr& rows = rows_->rows();
  requireNoApostrophe(rows->cell(row, noBukti_));
  if (form.codes.kind == store::FormKind::SelfPaidForm) requireNoApostrophe(rows->cell(row, datForm_));
  const store::FormLayout& layout = *store::findLayout(form.codes.kdForm);
  return {formOf(row), Recordset::over(store::NamedFieldRows::expand(layout, rows, {row}, datForm_))};
}

ExportedDocuments::Found ExportedDocuments::filtered(const ExportForm& form) {
  rows_->Move(static_cast<std::int32_t>(nextRow_) - 1, adBookmarkFirst);
  criteria_ = "KD_FORM = '";
  criteria_.append(form.codes.kdForm).append("' AND NOBUKTI = '");
  appendQuoted(noBukti_);
  if (form.codes.kind == store::FormKind::SelfPaidForm) {
    criteria_ += "' AND DAT_FORM = '";
    appendQuoted(datForm_);
  }
  criteria_ += '\'';
  rows_->put_Filter(criteria_);
  const std::string_view found = rows_->cell(kdForm_).text();
  RecordsetPtr named = store_.converter().ExpandDatForm(found, rows_);
  rows_->put_Filter("");
  return {found, std::move(named)};
}

void ExportedDocuments::appendQuoted(std::size_t column) {
  const ado::Cell value = rows_->cell(column);
  requireNoApostrophe(value);
  if (!value.isNull()) value.appendText(criteria_);
}

}  // namespace tarvola::interchange
