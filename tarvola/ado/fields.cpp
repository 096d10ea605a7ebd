#include "tarvola/ado/fields.h"

#include "tarvola/ado/recordset_state.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {

Recordset::State& Field::state() const {
  Recordset::State& state = *owner_->state_;
  if (!state.isOpen() || column_ >= state.columnCount) fail(ErrorNumber::ObjectInvalid);
  return state;
}

const std::string& Field::get_Name() const { return state().rows->columns()[column_].name; }
Variant Field::get_Value() const { return state().value(column_); }
void Field::put_Value(const Variant& value) { state().setValue(column_, value); }
Variant Field::get_OriginalValue() const { return state().originalValue(column_); }

// A client cursor does not ask the store again: it answers with what it last read or sent.
Variant Field::get_UnderlyingValue() const { return state().originalValue(column_); }

std::int32_t Fields::get_Count() const {
  const Recordset::State& state = *owner_->state_;
  return state.isOpen() ? static_cast<std::int32_t>(state.columnCount) : 0;
}

Field& Fields::get_Item(const Variant& nameOrOrdinal) {
  const Recordset::State& state = *owner_->state_;
  const std::size_t column = state.columnOf(nameOrOrdinal);
  if (items_.size() < state.columnCount) items_.resize(state.columnCount);
  std::unique_ptr<Field>& item = items_[column];
  if (!item) item.reset(new Field(*owner_, column));
  return *item;
}

}  // namespace tarvola
