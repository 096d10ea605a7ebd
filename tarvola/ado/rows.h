#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tarvola/ado/cell.h"
#include "tarvola/ado/columns.h"

namespace tarvola::ado {

/// Where the rows of an updatable set lie in the store: one table, and for each column of the set the name of
/// the table's column it shows ("" for an expression, which cannot be written).
struct BaseTable {
  std::string name;
  std::vector<std::string> columns;
};

/// The rows behind a recordset: a private copy of what the store held, or rows made in memory.
///
/// A row keeps its number for the life of the set; removing one is the recordset's matter. Two kinds exist: what an
/// engine delivered, and the named fields of packed texts, which are cut apart only when somebody looks.
class Rows {
 public:
  virtual ~Rows() = default;
  Rows(const Rows&) = delete;
  Rows& operator=(const Rows&) = delete;

  [[nodiscard]] const Columns& columns() const noexcept { return *columns_; }
  [[nodiscard]] const ColumnsPtr& sharedColumns() const noexcept { return columns_; }

  [[nodiscard]] virtual std::size_t count() const noexcept = 0;
  [[nodiscard]] virtual Cell cell(std::size_t row, std::size_t column) const = 0;
  /// Stores a value, converted to the column's type (a column of type Any takes it as it is). Not convertible:
  /// error -2147352571 "Type mismatch.", too long or out of range: -2147217887; the cell then keeps its value.
  virtual void set(std::size_t row, std::size_t column, const Variant& value) = 0;
  /// A new row at the end, all cells Empty... Returns its number.
  virtual std::size_t append() = 0;

  /// The table that writes go to, nullptr if the set has none (an aggregate, a union, rows made in memory).
  [[nodiscard]] virtual const BaseTable* base() const noexcept { return nullptr; }
  /// The row's identity in that table, and its setting after an insert.
  [[nodiscard]] virtual std::int64_t identity(std::size_t) const noexcept { return 0; }
  virtual void setIdentity(std::size_t, std::int64_t) {}

 protected:
  explicit Rows(ColumnsPtr columns) : columns_(std::move(columns)) {}

 private:
  ColumnsPtr columns_;
};

using RowsPtr = std::shared_ptr<Rows>;

}  // namespace tarvola::ado
