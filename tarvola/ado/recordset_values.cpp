#include <algorithm>
#include <cmath>

#include "tarvola/ado/column_value.h"
#include "tarvola/ado/recordset_state.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

/// Any number is an ordinal, a fraction rounded half to even. Nothing for other kinds of value.
double ordinalOf(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Integer:
      return value.integer();
    case Variant::Type::Long:
      return value.longInteger();
    case Variant::Type::Boolean:
      return value.boolean() ? -1 : 0;
    case Variant::Type::Double:
      return std::nearbyint(value.number());
    default:
      fail(ErrorNumber::ItemNotFound);
  }
}

}  // namespace

const Variant* Recordset::State::PendingEdit::original(std::size_t column) const noexcept {
  const auto place = std::find(columns.begin(), columns.end(), column);
  return place == columns.end() ? nullptr : &originals[static_cast<std::size_t>(place - columns.begin())];
}

void Recordset::State::PendingEdit::clear() noexcept {
  mode = adEditNone;
  columns.clear();
  originals.clear();
}

// A text is a name, "0" too.
std::size_t Recordset::State::columnOf(const Variant& nameOrOrdinal) const {
  requireOpen();
  if (nameOrOrdinal.isString()) {
    if (const auto column = rows->columns().find(nameOrOrdinal.string())) return *column;
    fail(ErrorNumber::ItemNotFound);
  }
  const double ordinal = ordinalOf(nameOrOrdinal);
  if (!(ordinal >= 0 && ordinal < static_cast<double>(columnCount))) fail(ErrorNumber::ItemNotFound);
  return static_cast<std::size_t>(ordinal);
}

Variant Recordset::State::value(std::size_t column) {
  requireRow();
  if (isChapter(column)) return chapterOf(column);
  return rows->cell(cursor.row, column).toVariant();
}

Variant Recordset::State::originalValue(std::size_t column) {
  const Variant* const original = pending.original(column);
  return original != nullptr ? *original : value(column);
}

// The value is converted and stored before the row counts as being edited, so that a value which cannot be stored
// leaves no edit behind.
void Recordset::State::setValue(std::size_t column, const Variant& newValue) {
  requireRow();
  requireWritable();
  if (isChapter(column)) fail(ErrorNumber::NotCapable);
  requireIdle();
  ado::requireLength(newValue, rows->columns()[column]);
  if (!pending.any()) announceChange();
  if (pending.original(column) == nullptr) {
    Variant original = rows->cell(cursor.row, column).toVariant();
    rows->set(cursor.row, column, newValue);
    pending.columns.push_back(static_cast<std::uint32_t>(column));
    pending.originals.push_back(std::move(original));
  } else {
    rows->set(cursor.row, column, newValue);
  }
  if (!pending.any()) pending.mode = adEditInProgress;
  indexes.cellChanged(*rows, cursor.row, column);
}

Fields& Recordset::get_Fields() {
  if (!state_->fields) state_->fields.reset(new Fields(*this));
  return *state_->fields;
}

Variant Recordset::get_Collect(const Variant& nameOrOrdinal) const {
  return state_->value(state_->columnOf(nameOrOrdinal));
}

void Recordset::put_Collect(const Variant& nameOrOrdinal, const Variant& value) {
  state_->setValue(state_->columnOf(nameOrOrdinal), value);
}

}  // namespace tarvola
