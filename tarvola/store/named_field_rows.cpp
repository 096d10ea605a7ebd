#include "tarvola/store/named_field_rows.h"

#include <algorithm>
#include <limits>

#include "tarvola/ado/column_value.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/store_texts.h"

namespace tarvola::store {
namespace {

constexpr std::size_t noRow = std::numeric_limits<std::size_t>::max();

/// A value as the field at that place holds it.
Variant convertForPlace(const Variant& value, const FieldPlace& place, ado::ColumnType columnType) {
  if (place.origin == FieldPlace::Origin::Plain || value.isNull()) return ado::convertForColumn(value, columnType);
  if (place.isNumeric()) {
    const Variant number = ado::convertForColumn(value, ado::ColumnType::Double);
    return numericCell(number.number(), place.type).toVariant();
  }
  if (place.type == FieldType::DateText && value.type() == Variant::Type::Date) return formatDate(value.date());
  return ado::convertForColumn(value, ado::ColumnType::LongText);
}

}  // namespace

NamedFieldRows::NamedFieldRows(std::shared_ptr<const Expansion> expansion, ado::RowsPtr source,
                               std::vector<std::size_t> rowNumbers, std::vector<std::string_view> texts)
    : Rows(expansion->columns),
      expansion_(std::move(expansion)),
      source_(std::move(source)),
      rowNumbers_(std::move(rowNumbers)),
      texts_(std::move(texts)),
      cutRow_(noRow) {}

std::shared_ptr<NamedFieldRows> NamedFieldRows::expand(const FormLayout& layout, ado::RowsPtr source,
                                                       std::vector<std::size_t> rowNumbers, std::size_t packedColumn) {
  std::vector<std::string_view> texts;
  texts.reserve(rowNumbers.size());
  std::size_t fieldCount = 0;
  for (const std::size_t row : rowNumbers) {
    const ado::Cell packed = source->cell(row, packedColumn);
    texts.push_back(packed.isText() ? packed.text() : std::string_view());
    fieldCount = std::max(fieldCount, countFields(texts.back()));
  }
  auto expansion = Expansion::of(layout, source->sharedColumns(), fieldCount);
  return std::shared_ptr<NamedFieldRows>(
      new NamedFieldRows(std::move(expansion), std::move(source), std::move(rowNumbers), std::move(texts)));
}

const NamedFieldRows* NamedFieldRows::behind(const Recordset& rows) {
  return dynamic_cast<const NamedFieldRows*>(rows.rows().get());
}

ado::Cell NamedFieldRows::cell(std::size_t row, std::size_t column) const {
  if (const Variant* value = written(row, column)) return ado::Cell::of(*value);
  if (row >= texts_.size()) return {};
  const FieldPlace& place = expansion_->places[column];
  if (place.origin == FieldPlace::Origin::Plain) return source_->cell(rowNumbers_[row], place.index);
  const std::optional<std::string_view> field = packedField(row, place);
  if (!field) return ado::Cell::null();
  return place.isNumeric() ? numericCell(*field, place.type) : ado::Cell::text(*field);
}

void NamedFieldRows::set(std::size_t row, std::size_t column, const Variant& value) {
  Variant held = convertForPlace(value, expansion_->places[column], columns()[column].type);
  WrittenRow& values = written_[row];
  if (values.empty()) values.resize(columns().count());
  values[column] = std::move(held);
}

std::size_t NamedFieldRows::append() { return texts_.size() + appendedCount_++; }

void NamedFieldRows::appendFieldText(std::string& out, std::size_t row, std::size_t column) const {
  const FieldPlace& place = expansion_->places[column];
  const bool isCut = place.isNumeric() && row < texts_.size() && written(row, column) == nullptr;
  if (isCut) {
    appendNumberAnew(out, packedField(row, place).value_or(std::string_view()));
    return;
  }
  const ado::Cell value = cell(row, column);
  if (!value.isNull()) value.appendText(out);
}

const Variant* NamedFieldRows::written(std::size_t row, std::size_t column) const {
  if (written_.empty()) return nullptr;
  const auto found = written_.find(row);
  if (found == written_.end() || !found->second[column]) return nullptr;
  return &*found->second[column];
}

/// The text at a place of the packed text; nothing if the row is too short for it.
std::optional<std::string_view> NamedFieldRows::packedField(std::size_t row, const FieldPlace& place) const {
  if (cutRow_ != row) {
    cutRow_ = noRow;
    cut_.cut(texts_[row]);
    cutRow_ = row;
  }
  if (place.index >= cut_.count()) return std::nullopt;
  if (place.partCount == 1) return cut_[place.index];
  return sharedPart(cut_[place.index], place.part, place.partCount);
}

bool NamedFieldRows::isNull(std::size_t row, std::size_t column) const {
  const ado::Cell value = cell(row, column);
  return value.isNull() || value.type() == Variant::Type::Empty;
}

bool NamedFieldRows::holdsSomething(std::size_t row, std::size_t column) const {
  if (isNull(row, column)) return false;
  const ado::Cell value = cell(row, column);
  // An empty text beyond the layout is part of a row that the library only carries; an empty extra is nothing.
  return !value.isText() || !value.text().empty() || expansion_->places[column].origin == FieldPlace::Origin::Beyond;
}

std::string NamedFieldRows::pack(std::size_t row) const {
  std::string out;
  out.reserve(row < texts_.size() ? texts_[row].size() + 64 : 64);
  std::size_t column = 0;
  for (const LayoutPosition& position : expansion_->layout->positions) {
    if (column > 0) out += fieldSeparator;
    appendPosition(out, row, column);
    column += position.fields.size();
  }
  std::size_t end = column + expansion_->layout->extras.size() + expansion_->beyondCount;
  while (end > column && !holdsSomething(row, end - 1)) --end;
  for (; column < end; ++column) {
    out += fieldSeparator;
    appendFieldToPack(out, row, column);
  }
  return out;
}

/// The fields that share the position of a column, joined; nothing at all if every one of them is Null.
void NamedFieldRows::appendPosition(std::string& out, std::size_t row, std::size_t firstColumn) const {
  const std::size_t start = out.size();
  const std::size_t partCount = expansion_->places[firstColumn].partCount;
  bool allNull = true;
  for (std::size_t part = 0; part < partCount; ++part) {
    if (part > 0) out += partSeparator;
    appendFieldToPack(out, row, firstColumn + part);
    allNull = allNull && isNull(row, firstColumn + part);
  }
  if (allNull) out.resize(start);
}

void NamedFieldRows::appendFieldToPack(std::string& out, std::size_t row, std::size_t column) const {
  const std::size_t start = out.size();
  appendFieldText(out, row, column);
  if (out.find(fieldSeparator, start) != std::string::npos)
    fail(ErrorNumber::InvalidProcedureCall, separatorInFieldText(columns()[column].name));
}

void appendFieldText(std::string& out, const Recordset& rows, std::size_t column) {
  if (const NamedFieldRows* fields = NamedFieldRows::behind(rows)) {
    fields->appendFieldText(out, rows.currentRow(), column);
    return;
  }
  const ado::Cell value = rows.cell(column);
  if (!value.isNull()) value.appendText(out);
}

}  // namespace tarvola::store
