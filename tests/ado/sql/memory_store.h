#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

#include "tarvola/ado/engine/sqlite/bind.h"
#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/ado/sql/compile.h"
#include "tests/ado/sql/tables.h"

namespace tarvola::ado::sql {

/// An embedded store in memory that holds the tables of the tests and runs statements of the dialect.
class MemoryStore {
 public:
  MemoryStore() {
    for (const Table& table : TestTables::all()) create(table);
  }

  /// Runs a statement of the dialect. A row is its values with "|" between them, a Null is "Null".
  std::vector<std::string> run(std::string_view statement) {
    Shape shape;
    readShape(statement, shape);
    const Compiled compiled = compile(statement, tables_, {});
    std::vector<std::string> rows;
    const std::size_t count = compiled.columns ? compiled.columns->count() : 0;
    for (const EngineText& part : compiled.parts) step(part, shape.literals, count, rows);
    return rows;
  }

  /// Runs a text of the engine's own.
  std::vector<std::string> runNative(const std::string& text) {
    std::vector<std::string> rows;
    step({text, {}}, {}, 1, rows);
    return rows;
  }

  std::int64_t changes() const { return sqlite3_changes64(handle()); }
  sqlite3* handle() const { return handle_.get(); }
  const Catalog& tables() const { return tables_; }

  /// How the engine goes about a statement, in its own words.
  std::string plan(std::string_view statement) {
    const Compiled compiled = compile(statement, tables_, {});
    const engine::sqlite::Statement prepared = handle_.prepare("EXPLAIN QUERY PLAN " + compiled.parts.front().text);
    std::string plan;
    while (sqlite3_step(prepared.get()) == SQLITE_ROW) plan += textOf(prepared.get(), 3) + "\n";
    return plan;
  }

 private:
  static std::string textOf(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text == nullptr ? "Null"
                           : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
  }

  void step(const EngineText& part, const std::vector<Literal>& literals, std::size_t columns,
            std::vector<std::string>& rows) {
    const engine::sqlite::Statement prepared = handle_.prepare(part.text);
    binder_.bindLiterals(prepared.get(), literals, part.parameters);
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(prepared.get())) == SQLITE_ROW) {
      std::string row;
      for (std::size_t column = 0; column < columns; ++column)
        row += (column == 0 ? "" : "|") + textOf(prepared.get(), static_cast<int>(column));
      rows.push_back(row);
    }
    if (code != SQLITE_DONE) handle_.fail(code);
  }

  void create(const Table& table) {
    std::string text = "CREATE TABLE \"" + table.name + "\" (";
    const char* between = "";
    for (const Column& column : table.columns) {
      text += between;
      text += "\"" + column.name + "\" " + std::string(declaration(column.type));
      between = ", ";
    }
    handle_.execute(text + ")");
  }

  static std::string_view declaration(ColumnType type) {
    switch (type) {
      case ColumnType::Text:
      case ColumnType::LongText:
        return "TEXT COLLATE NOCASE";
      case ColumnType::Integer:
      case ColumnType::Long:
      case ColumnType::Boolean:
        return "INTEGER";
      case ColumnType::Double:
        return "REAL";
      case ColumnType::Date:
        return "TEXT";
      default:
        return "";
    }
  }

  engine::sqlite::Handle handle_{"", ":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
  engine::sqlite::Binder binder_{handle_};
  TestTables tables_;
};

}  // namespace tarvola::ado::sql
