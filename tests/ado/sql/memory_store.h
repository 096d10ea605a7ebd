#pragma once

#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tarvola/ado/sql/compile.h"
#include "tarvola/ado/sql/engine_functions.h"
#include "tarvola/ado/sql/literals.h"
#include "tarvola/runtime/errors.h"
#include "tests/ado/sql/tables.h"

namespace tarvola::ado::sql {

/// An embedded store in memory that holds the tables of the tests and runs statements of the dialect.
class MemoryStore {
 public:
  MemoryStore() {
    sqlite3* opened = nullptr;
    check(sqlite3_open(":memory:", &opened));
    handle_.reset(opened);
    for (const EngineFunction& function : engineFunctions()) add(function);
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

  std::int64_t changes() const { return sqlite3_changes64(handle_.get()); }
  sqlite3* handle() const { return handle_.get(); }
  const Catalog& tables() const { return tables_; }

  /// How the engine goes about a statement, in its own words.
  std::string plan(std::string_view statement) {
    const Compiled compiled = compile(statement, tables_, {});
    const Prepared prepared = prepare("EXPLAIN QUERY PLAN " + compiled.parts.front().text);
    std::string plan;
    while (sqlite3_step(prepared.get()) == SQLITE_ROW) plan += textOf(prepared.get(), 3) + "\n";
    return plan;
  }

 private:
  struct CloseHandle {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
  };
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using Prepared = std::unique_ptr<sqlite3_stmt, Finalize>;

  void check(int code) const {
    if (code == SQLITE_OK || code == SQLITE_DONE || code == SQLITE_ROW) return;
    throw std::runtime_error(handle_ ? sqlite3_errmsg(handle_.get()) : sqlite3_errstr(code));
  }

  Prepared prepare(const std::string& text) const {
    sqlite3_stmt* made = nullptr;
    check(sqlite3_prepare_v2(handle_.get(), text.c_str(), -1, &made, nullptr));
    return Prepared(made);
  }

  static std::string textOf(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text == nullptr ? "Null"
                           : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
  }

  void step(const EngineText& part, const std::vector<Literal>& literals, std::size_t columns,
            std::vector<std::string>& rows) const {
    const Prepared prepared = prepare(part.text);
    int place = 0;
    for (const Parameter& parameter : part.parameters)
      bind(prepared.get(), ++place, convertLiteral(literals.at(parameter.literal), parameter.conversion));
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(prepared.get())) == SQLITE_ROW) {
      std::string row;
      for (std::size_t column = 0; column < columns; ++column)
        row += (column == 0 ? "" : "|") + textOf(prepared.get(), static_cast<int>(column));
      rows.push_back(row);
    }
    check(code);
  }

  static void bind(sqlite3_stmt* statement, int place, const Variant& value) {
    switch (value.type()) {
      case Variant::Type::String:
        sqlite3_bind_text(statement, place, value.string().c_str(), static_cast<int>(value.string().size()),
                          SQLITE_TRANSIENT);
        break;
      case Variant::Type::Date:
        sqlite3_bind_text(statement, place, isoDate(value.date()).c_str(), -1, SQLITE_TRANSIENT);
        break;
      case Variant::Type::Long:
        sqlite3_bind_int(statement, place, value.longInteger());
        break;
      case Variant::Type::Boolean:
        sqlite3_bind_int(statement, place, value.boolean() ? -1 : 0);
        break;
      default:
        sqlite3_bind_double(statement, place, value.number());
    }
  }

  void add(const EngineFunction& function) {
    void* const itself = const_cast<EngineFunction*>(&function);
    check(sqlite3_create_function(handle_.get(), function.name.data(), static_cast<int>(function.argumentCount),
                                  SQLITE_UTF8, itself, callFunction, nullptr, nullptr));
  }

  static Variant variantOf(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
      case SQLITE_NULL:
        return Variant::null();
      case SQLITE_INTEGER:
        return {static_cast<std::int32_t>(sqlite3_value_int(value))};
      case SQLITE_FLOAT:
        return {sqlite3_value_double(value)};
      default:
        return {reinterpret_cast<const char*>(sqlite3_value_text(value))};
    }
  }

  static void callFunction(sqlite3_context* context, int count, sqlite3_value** values) {
    const auto& function = *static_cast<const EngineFunction*>(sqlite3_user_data(context));
    std::vector<Variant> arguments;
    for (int place = 0; place < count; ++place) arguments.push_back(variantOf(values[place]));
    try {
      giveBack(context, function(arguments));
    } catch (const RunTimeError& error) {
      sqlite3_result_error(context, error.what(), -1);
    }
  }

  static void giveBack(sqlite3_context* context, const Variant& value) {
    switch (value.type()) {
      case Variant::Type::Null:
        return sqlite3_result_null(context);
      case Variant::Type::String:
        return sqlite3_result_text(context, value.string().c_str(), -1, SQLITE_TRANSIENT);
      case Variant::Type::Date:
        return sqlite3_result_text(context, isoDate(value.date()).c_str(), -1, SQLITE_TRANSIENT);
      case Variant::Type::Integer:
        return sqlite3_result_int(context, value.integer());
      case Variant::Type::Long:
        return sqlite3_result_int(context, value.longInteger());
      case Variant::Type::Boolean:
        return sqlite3_result_int(context, value.boolean() ? 1 : 0);
      default:
        return sqlite3_result_double(context, value.number());
    }
  }

  void create(const Table& table) {
    std::string text = "CREATE TABLE \"" + table.name + "\" (";
    const char* between = "";
    for (const Column& column : table.columns) {
      text += between;
      text += "\"" + column.name + "\" " + std::string(declaration(column.type));
      between = ", ";
    }
    check(sqlite3_exec(handle_.get(), (text + ")").c_str(), nullptr, nullptr, nullptr));
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

  std::unique_ptr<sqlite3, CloseHandle> handle_;
  TestTables tables_;
};

}  // namespace tarvola::ado::sql
