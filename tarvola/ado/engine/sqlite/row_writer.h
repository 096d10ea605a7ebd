#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/engine/bounded_cache.h"
#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/engine/sqlite/bind.h"
#include "tarvola/ado/engine/sqlite/catalog.h"
#include "tarvola/ado/engine/sqlite/handle.h"

namespace tarvola::ado::engine::sqlite {

/// Writes single rows that are known by their identity, the rowid. One statement is prepared for each table and set
/// of columns.
class RowWriter {
 public:
  RowWriter(const Handle& handle, const Catalog& catalog);

  std::int64_t insert(std::string_view table, std::span<const ColumnValue> values);
  /// Whether the row was there and still held what was expected. Long texts and Doubles are not compared: the first
  /// are too long, the second need not come back from a client as they were.
  bool update(std::string_view table, std::int64_t identity, std::span<const ColumnValue> values,
              std::span<const ColumnValue> expected);
  /// Whether the row was there.
  bool remove(std::string_view table, std::int64_t identity);

  void clear() noexcept { statements_.clear(); }

 private:
  struct Prepared {
    Statement statement;
    std::vector<ColumnType> valueTypes;
    std::vector<ColumnType> expectedTypes;
  };

  Prepared& prepared(char kind, std::string_view table, std::span<const ColumnValue> values,
                     std::span<const ColumnValue> expected);
  Prepared prepare(char kind, std::string_view table, std::span<const ColumnValue> values,
                   std::span<const ColumnValue> expected) const;
  void bindValues(const Prepared& prepared, std::span<const ColumnValue> values, int& parameter);
  void bindExpected(const Prepared& prepared, std::span<const ColumnValue> expected, int& parameter);
  std::string& dateText(int parameter);
  std::int64_t changedRows(const Prepared& prepared) const;

  const Handle& handle_;
  const Catalog& catalog_;
  Binder binder_;
  BoundedCache<Prepared> statements_;
  std::string key_;
  // What the parameters of the statement that runs point into.
  std::vector<Variant> converted_;
  std::deque<std::string> dateTexts_;
};

}  // namespace tarvola::ado::engine::sqlite
