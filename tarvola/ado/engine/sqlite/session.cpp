#include "tarvola/ado/engine/sqlite/session.h"

#include <algorithm>
#include <array>

#include "tarvola/ado/engine/sqlite/fetch.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::engine::sqlite {
namespace {

constexpr std::size_t keptStatements = 500;
constexpr std::array<std::string_view, 3> fileEndings{".db", ".sqlite", ".tarvola"};

bool endsIn(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && equalsIgnoreCase(text.substr(text.size() - ending.size()), ending);
}

/// Whether the engine had to read the statement anew because somebody has changed the tables.
bool wasReadAnew(const Statement& statement) {
  return sqlite3_stmt_status(statement.get(), SQLITE_STMTSTATUS_REPREPARE, 1) != 0;
}

}  // namespace

bool servesDataSource(const ConnectionText& text) {
  return text.dsn.find_first_of("/\\") != std::string::npos ||
         std::ranges::any_of(fileEndings, [&](std::string_view ending) { return endsIn(text.dsn, ending); });
}

std::shared_ptr<Session> openSession(const ConnectionText& text) {
  return std::make_shared<SqliteSession>(openStore(text.dsn));
}

SqliteSession::SqliteSession(std::unique_ptr<Handle> handle)
    : handle_(std::move(handle)),
      catalog_(*handle_),
      binder_(*handle_),
      statements_(keptStatements),
      rowWriter_(*handle_, catalog_),
      keptSums_(*handle_, catalog_) {}

// What failed because tables were changed behind the session's back is done once more by the tables as they are now.
// A statement that fails has changed nothing, so doing it again is safe.
template <class Work>
auto SqliteSession::withCurrentTables(Work&& work) {
  try {
    return work();
  } catch (const RunTimeError&) {
    if (!forgetChangedTables()) throw;
  }
  return work();
}

bool SqliteSession::forgetChangedTables() {
  if (!catalog_.forgetIfChanged()) return false;
  statements_.clear();
  rowWriter_.clear();
  keptSums_.clear();
  return true;
}

StatementResult SqliteSession::run(std::string_view statement) {
  return withCurrentTables([&] { return runOnce(statement); });
}

StatementResult SqliteSession::runOnce(std::string_view statement) {
  sql::readShape(statement, shape_);
  Prepared& shape = prepared(statement);
  const bool isSelect = shape.compiled.kind == sql::StatementKind::Select;
  if (shape.compiled.keptQuestion) {
    if (RowsPtr kept = keptSums_.answer(statement, shape.compiled, shape_.literals))
      return {.rows = std::move(kept), .recordsAffected = 0};
  }
  StatementResult result = isSelect ? select(shape) : change(shape);
  // It ran, but by columns that are not all there are any more; a change is done by then, a SELECT can be put right.
  const bool tablesChanged = std::ranges::any_of(shape.parts, wasReadAnew) && forgetChangedTables();
  return tablesChanged && isSelect ? runOnce(statement) : std::move(result);
}

SqliteSession::Prepared& SqliteSession::prepared(std::string_view statement) {
  if (Prepared* const known = statements_.find(shape_.key)) return *known;
  if (Prepared* const known = statements_.find(statement)) return *known;
  Prepared shape = prepare(statement);
  const std::string_view key = shape.compiled.reusable ? std::string_view(shape_.key) : statement;
  return statements_.add(key, std::move(shape));
}

SqliteSession::Prepared SqliteSession::prepare(std::string_view statement) const {
  Prepared shape{.compiled = sql::compile(statement, catalog_, {}), .base = {}, .parts = {}};
  if (!shape.compiled.base.name.empty()) shape.base = std::make_shared<const BaseTable>(shape.compiled.base);
  for (const sql::EngineText& part : shape.compiled.parts) {
    shape.parts.push_back(handle_->prepare(part.text, SQLITE_PREPARE_PERSISTENT));
  }
  return shape;
}

StatementResult SqliteSession::select(Prepared& shape) {
  auto rows = std::make_shared<TableRows>(shape.compiled.columns, shape.base);
  FetchProgress progress;
  for (std::size_t part = 0; part < shape.parts.size(); ++part) {
    sqlite3_stmt* const statement = shape.parts[part].get();
    const ResetAtEnd reset(statement);
    binder_.bindLiterals(statement, shape_.literals, shape.compiled.parts[part].parameters);
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
      fetchRow(statement, *rows);
      progress.countRow();
    }
    if (code != SQLITE_DONE) handle_->fail(code);
  }
  return {.rows = std::move(rows), .recordsAffected = 0};
}

StatementResult SqliteSession::change(Prepared& shape) {
  sqlite3_stmt* const statement = shape.parts.front().get();
  const ResetAtEnd reset(statement);
  binder_.bindLiterals(statement, shape_.literals, shape.compiled.parts.front().parameters);
  const int code = sqlite3_step(statement);
  if (code != SQLITE_DONE) handle_->fail(code);
  // Without a condition the engine empties the whole table and tells of no row.
  if (shape.compiled.kind == sql::StatementKind::Delete && shape_.literals.empty()) keptSums_.clear();
  return {.rows = nullptr, .recordsAffected = sqlite3_changes64(handle_->get())};
}

std::optional<std::vector<double>> SqliteSession::packedSums(std::string_view countStatement,
                                                             const PackedFields& fields) {
  return withCurrentTables([&] {
    sql::readShape(countStatement, shape_);
    return keptSums_.packedSums(countStatement, prepared(countStatement).compiled, shape_.literals, fields);
  });
}

std::int64_t SqliteSession::insertRow(const BaseTable& table, std::span<const ColumnValue> values) {
  return withCurrentTables([&] { return rowWriter_.insert(table.name, values); });
}

void SqliteSession::updateRow(const BaseTable& table, std::int64_t identity, std::span<const ColumnValue> values,
                              std::span<const ColumnValue> expected) {
  const bool found = withCurrentTables([&] { return rowWriter_.update(table.name, identity, values, expected); });
  if (!found) fail(ErrorNumber::RowNotLocated);
}

void SqliteSession::deleteRow(const BaseTable& table, std::int64_t identity) {
  if (!withCurrentTables([&] { return rowWriter_.remove(table.name, identity); })) fail(ErrorNumber::RowNotLocated);
}

}  // namespace tarvola::ado::engine::sqlite
