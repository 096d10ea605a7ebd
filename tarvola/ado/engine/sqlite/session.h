#pragma once

#include <memory>
#include <vector>

#include "tarvola/ado/engine/bounded_cache.h"
#include "tarvola/ado/engine/connection_text.h"
#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/engine/sqlite/bind.h"
#include "tarvola/ado/engine/sqlite/catalog.h"
#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/ado/engine/sqlite/kept_sums.h"
#include "tarvola/ado/engine/sqlite/row_writer.h"
#include "tarvola/ado/sql/compile.h"

namespace tarvola::ado::engine::sqlite {

/// Whether the source is a file: its name holds a "/" or a backslash, or ends in .db, .sqlite or .tarvola.
bool servesDataSource(const ConnectionText& text);
std::shared_ptr<Session> openSession(const ConnectionText& text);

/// A store in one file, and the statements that were prepared on it.
class SqliteSession final : public Session {
 public:
  explicit SqliteSession(std::unique_ptr<Handle> handle);

  StatementResult run(std::string_view statement) override;
  std::optional<std::vector<double>> packedSums(std::string_view countStatement, const PackedFields& fields) override;
  std::int64_t insertRow(const BaseTable& table, std::span<const ColumnValue> values) override;
  void updateRow(const BaseTable& table, std::int64_t identity, std::span<const ColumnValue> values,
                 std::span<const ColumnValue> expected) override;
  void deleteRow(const BaseTable& table, std::int64_t identity) override;

 private:
  /// A statement read by the dialect, and its parts prepared.
  struct Prepared {
    sql::Compiled compiled;
    std::shared_ptr<const BaseTable> base;
    std::vector<Statement> parts;
  };

  template <class Work>
  auto withCurrentTables(Work&& work);
  bool forgetChangedTables();
  StatementResult runOnce(std::string_view statement);
  Prepared& prepared(std::string_view statement);
  Prepared prepare(std::string_view statement) const;
  StatementResult select(Prepared& shape);
  StatementResult change(Prepared& shape);

  std::unique_ptr<Handle> handle_;
  Catalog catalog_;
  sql::Shape shape_;
  Binder binder_;
  BoundedCache<Prepared> statements_;
  RowWriter rowWriter_;
  KeptSums keptSums_;
};

}  // namespace tarvola::ado::engine::sqlite
