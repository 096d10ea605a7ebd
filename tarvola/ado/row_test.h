#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/cell.h"
#include "tarvola/ado/columns.h"
#include "tarvola/ado/filter.h"
#include "tarvola/ado/rows.h"

namespace tarvola::ado {

/// How the values of a column are compared: as texts without regard to case, as numbers (dates by their serial number,
/// True as -1), or, where a column takes anything, by what the single cell holds.
enum class Comparing : std::uint8_t { Text, Number, Mixed };

Comparing comparingOf(ColumnType type) noexcept;

/// One comparison of a column of a row with a fixed value, the value already of the column's type.
class RowTest {
 public:
  /// A clause of a criteria text. Unknown field: error 3265; a value that cannot become the column's type: 3001.
  /// Texts are not copied: the clause's text must live as long as the test.
  RowTest(const FilterClause& clause, const Columns& columns);
  /// Equality with a value of another set of rows, which is copied. Nothing equals Null.
  RowTest(std::size_t column, ColumnType type, const Variant& value);

  [[nodiscard]] bool holds(const Cell& cell) const;

  [[nodiscard]] std::size_t column() const noexcept { return column_; }
  /// Whether an index of the column can find the rows: equality with a value, and no row hides behind a second way to
  /// read that value (a date in text form against a column that takes anything).
  [[nodiscard]] bool isIndexable() const;
  [[nodiscard]] std::uint64_t valueHash() const;
  /// Equal cells have equal hashes. Nothing for a cell that equals no value.
  static std::optional<std::uint64_t> cellHash(const Cell& cell, Comparing comparing);

 private:
  void convertValue(const FilterClause& clause, ColumnType type);
  void takeText(std::string text);
  [[nodiscard]] std::string_view text() const noexcept { return ownsText_ ? std::string_view(ownText_) : text_; }
  [[nodiscard]] bool holdsText(std::string_view value) const;
  [[nodiscard]] std::partial_ordering order(const Cell& cell) const;
  [[nodiscard]] std::partial_ordering orderMixed(const Cell& cell) const;

  std::uint32_t column_ = 0;
  FilterOperator comparison_ = FilterOperator::Equal;
  FilterValueKind kind_ = FilterValueKind::Null;
  Comparing comparing_ = Comparing::Text;
  bool ownsText_ = false;
  std::string_view text_;
  std::string ownText_;
  std::optional<double> number_;
};

/// A criteria text bound to the columns of a set of rows.
class RowCriteria {
 public:
  /// Replaces what it held. The filter must live as long as the criteria are used. On failure it holds nothing of use.
  void bind(const Filter& filter, const Columns& columns);

  [[nodiscard]] bool match(const Rows& rows, std::size_t row) const;

  /// The tests, if they are equalities joined by AND that an index can answer; otherwise nothing.
  [[nodiscard]] std::span<const RowTest> indexable() const noexcept {
    return isIndexable_ ? tests_ : std::span<const RowTest>();
  }

 private:
  std::vector<RowTest> tests_;
  const std::vector<std::size_t>* alternativeEnds_ = nullptr;
  bool isIndexable_ = false;
};

/// Whether all tests hold for a row.
bool allHold(std::span<const RowTest> tests, const Rows& rows, std::size_t row);

}  // namespace tarvola::ado
