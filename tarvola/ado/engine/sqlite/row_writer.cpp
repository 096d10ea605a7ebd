#include "tarvola/ado/engine/sqlite/row_writer.h"

#include "tarvola/ado/column_value.h"
#include "tarvola/ado/engine/sqlite/quoted.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::engine::sqlite {
namespace {

constexpr std::size_t keptStatements = 200;
constexpr char insertKind = 'I';
constexpr char updateKind = 'U';
constexpr char deleteKind = 'D';
// No name of a table or column holds it.
constexpr char separator = '\x1f';

ColumnType typeOf(const sql::Table& table, std::string_view column) {
  for (const Column& known : table.columns) {
    if (equalsIgnoreCase(known.name, column)) return known.type;
  }
  return ColumnType::Any;
}

std::vector<ColumnType> typesOf(const sql::Table& table, std::span<const ColumnValue> values) {
  std::vector<ColumnType> types;
  types.reserve(values.size());
  for (const ColumnValue& value : values) types.push_back(typeOf(table, value.column));
  return types;
}

bool isCompared(ColumnType type) { return type != ColumnType::LongText && type != ColumnType::Double; }

std::string insertText(std::string_view table, std::span<const ColumnValue> values) {
  if (values.empty()) return "INSERT INTO " + quoted(table) + " DEFAULT VALUES";
  std::string columns;
  std::string marks;
  for (const ColumnValue& value : values) {
    columns += (columns.empty() ? "" : ", ") + quoted(value.column);
    marks += marks.empty() ? "?" : ", ?";
  }
  return "INSERT INTO " + quoted(table) + " (" + columns + ") VALUES (" + marks + ")";
}

std::string updateText(std::string_view table, std::span<const ColumnValue> values,
                       std::span<const ColumnValue> expected, const std::vector<ColumnType>& expectedTypes) {
  std::string text = "UPDATE " + quoted(table) + " SET ";
  for (std::size_t index = 0; index < values.size(); ++index) {
    text += (index == 0 ? "" : ", ") + quoted(values[index].column) + " = ?";
  }
  text += " WHERE rowid = ?";
  for (std::size_t index = 0; index < expected.size(); ++index) {
    if (isCompared(expectedTypes[index])) text += " AND " + quoted(expected[index].column) + " IS ?";
  }
  return text;
}

void appendColumns(std::string& key, std::span<const ColumnValue> values) {
  for (const ColumnValue& value : values) (key += separator) += value.column;
}

}  // namespace

RowWriter::RowWriter(const Handle& handle, const Catalog& catalog)
    : handle_(handle), catalog_(catalog), binder_(handle), statements_(keptStatements) {}

RowWriter::Prepared& RowWriter::prepared(char kind, std::string_view table, std::span<const ColumnValue> values,
                                         std::span<const ColumnValue> expected) {
  (key_ = kind) += table;
  appendColumns(key_, values);
  key_ += separator;
  appendColumns(key_, expected);
  if (Prepared* const known = statements_.find(key_)) return *known;
  return statements_.add(key_, prepare(kind, table, values, expected));
}

RowWriter::Prepared RowWriter::prepare(char kind, std::string_view table, std::span<const ColumnValue> values,
                                       std::span<const ColumnValue> expected) const {
  const sql::Table& definition = catalog_.table(table);
  Prepared result{
      .statement = {}, .valueTypes = typesOf(definition, values), .expectedTypes = typesOf(definition, expected)};
  const std::string text = kind == insertKind   ? insertText(table, values)
                           : kind == updateKind ? updateText(table, values, expected, result.expectedTypes)
                                                : "DELETE FROM " + quoted(table) + " WHERE rowid = ?";
  result.statement = handle_.prepare(text, SQLITE_PREPARE_PERSISTENT);
  return result;
}

std::string& RowWriter::dateText(int parameter) {
  const auto place = static_cast<std::size_t>(parameter);
  if (dateTexts_.size() <= place) dateTexts_.resize(place + 1);
  return dateTexts_[place];
}

void RowWriter::bindValues(const Prepared& prepared, std::span<const ColumnValue> values, int& parameter) {
  converted_.clear();
  converted_.reserve(values.size());
  for (std::size_t index = 0; index < values.size(); ++index) {
    converted_.push_back(convertForColumn(values[index].value, prepared.valueTypes[index]));
    ++parameter;
    binder_.bindValue(prepared.statement.get(), parameter, converted_.back(), dateText(parameter));
  }
}

// A value is expected as it was read, even where it does not fit the column's type.
void RowWriter::bindExpected(const Prepared& prepared, std::span<const ColumnValue> expected, int& parameter) {
  for (std::size_t index = 0; index < expected.size(); ++index) {
    if (!isCompared(prepared.expectedTypes[index])) continue;
    ++parameter;
    binder_.bindValue(prepared.statement.get(), parameter, expected[index].value, dateText(parameter));
  }
}

std::int64_t RowWriter::changedRows(const Prepared& prepared) const {
  const ResetAtEnd reset(prepared.statement.get());
  const int code = sqlite3_step(prepared.statement.get());
  if (code != SQLITE_DONE) handle_.fail(code);
  return sqlite3_changes64(handle_.get());
}

std::int64_t RowWriter::insert(std::string_view table, std::span<const ColumnValue> values) {
  Prepared& row = prepared(insertKind, table, values, {});
  int parameter = 0;
  bindValues(row, values, parameter);
  changedRows(row);
  return sqlite3_last_insert_rowid(handle_.get());
}

bool RowWriter::update(std::string_view table, std::int64_t identity, std::span<const ColumnValue> values,
                       std::span<const ColumnValue> expected) {
  Prepared& row = prepared(updateKind, table, values, expected);
  int parameter = 0;
  bindValues(row, values, parameter);
  sqlite3_bind_int64(row.statement.get(), ++parameter, identity);
  bindExpected(row, expected, parameter);
  return changedRows(row) != 0;
}

bool RowWriter::remove(std::string_view table, std::int64_t identity) {
  Prepared& row = prepared(deleteKind, table, {}, {});
  sqlite3_bind_int64(row.statement.get(), 1, identity);
  return changedRows(row) != 0;
}

}  // namespace tarvola::ado::engine::sqlite
