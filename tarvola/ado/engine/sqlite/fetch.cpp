#include "tarvola/ado/engine/sqlite/fetch.h"

#include <limits>
#include <string_view>

#include "tarvola/ado/sql/literals.h"

namespace tarvola::ado::engine::sqlite {
namespace {

template <class Narrow>
bool fits(std::int64_t value) {
  return value >= std::numeric_limits<Narrow>::min() && value <= std::numeric_limits<Narrow>::max();
}

Cell wholeNumber(std::int64_t value, ColumnType type) {
  if (type == ColumnType::Boolean) return Cell::boolean(value != 0);
  if (type == ColumnType::Integer && fits<std::int16_t>(value)) return Cell::integer(static_cast<std::int16_t>(value));
  if (type != ColumnType::Double && fits<std::int32_t>(value))
    return Cell::longInteger(static_cast<std::int32_t>(value));
  return Cell::number(static_cast<double>(value));
}

std::string_view textOf(sqlite3_value* value) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text == nullptr ? std::string_view()
                         : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void putText(Cell* cell, std::string_view text, ColumnType type, TableRows& rows) {
  if (type == ColumnType::Date) {
    if (const auto date = sql::readIsoDate(text)) {
      *cell = Cell::date(*date);
      return;
    }
  }
  rows.putText(cell, text);
}

void putValue(Cell* cell, sqlite3_value* value, ColumnType type, TableRows& rows) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      *cell = Cell::null();
      break;
    case SQLITE_INTEGER:
      *cell = wholeNumber(sqlite3_value_int64(value), type);
      break;
    case SQLITE_FLOAT:
      *cell = Cell::number(sqlite3_value_double(value));
      break;
    default:
      putText(cell, textOf(value), type, rows);
  }
}

}  // namespace

void fetchRow(sqlite3_stmt* statement, TableRows& rows) {
  const Columns& columns = rows.columns();
  const auto count = static_cast<int>(columns.count());
  Cell* const row = rows.addRow();
  for (int column = 0; column < count; ++column) {
    const auto place = static_cast<std::size_t>(column);
    putValue(row + place, sqlite3_column_value(statement, column), columns[place].type, rows);
  }
  if (rows.base() != nullptr) rows.addIdentity(sqlite3_column_int64(statement, count));
}

}  // namespace tarvola::ado::engine::sqlite
