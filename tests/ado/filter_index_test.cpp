#include "tarvola/ado/filter_index.h"

#include <gtest/gtest.h>

#include <random>

#include "tarvola/ado/filter.h"
#include "tarvola/ado/table_rows.h"

namespace tarvola::ado {
namespace {

std::shared_ptr<TableRows> mixedRows() {
  return std::make_shared<TableRows>(
      std::make_shared<const Columns>(std::vector<Column>{{.name = "T", .type = ColumnType::Text},
                                                          {.name = "N", .type = ColumnType::Double},
                                                          {.name = "A", .type = ColumnType::Any}}));
}

struct Criteria {
  Filter filter;
  RowCriteria rows;
  Criteria(std::string_view text, const Columns& columns) {
    filter.read(text);
    rows.bind(filter, columns);
  }
};

std::vector<std::uint32_t> found(const FilterIndex& index, const Rows& rows, const Criteria& criteria) {
  std::vector<std::uint32_t> result;
  index.find(rows, criteria.rows.indexable(), result);
  return result;
}

using Numbers = std::vector<std::uint32_t>;

TEST(FilterIndex, FindsRowsInRisingOrderWithoutRegardToCase) {
  const auto rows = mixedRows();
  for (const char* text : {"F1", "f2", "f1", "F3", "F1"}) rows->set(rows->append(), 0, text);
  const Criteria criteria("T = 'f1'", rows->columns());
  const FilterIndex index(*rows, criteria.rows.indexable());
  EXPECT_EQ(found(index, *rows, criteria), (Numbers{0, 2, 4}));
}

TEST(FilterIndex, FindsARowUnderItsNewValueAndNotUnderTheOld) {
  const auto rows = mixedRows();
  for (const char* text : {"a", "b", "a"}) rows->set(rows->append(), 0, text);
  const Criteria a("T = 'a'", rows->columns());
  const Criteria b("T = 'b'", rows->columns());
  FilterIndex index(*rows, a.rows.indexable());
  rows->set(0, 0, "b");
  index.rowChanged(*rows, 0);
  EXPECT_EQ(found(index, *rows, a), (Numbers{2}));
  EXPECT_EQ(found(index, *rows, b), (Numbers{0, 1}));
  rows->set(0, 0, "a");
  index.rowChanged(*rows, 0);
  EXPECT_EQ(found(index, *rows, a), (Numbers{0, 2}));
}

TEST(FilterIndex, ServesOnlyItsOwnColumns) {
  const auto rows = mixedRows();
  const Criteria text("T = 'a'", rows->columns());
  const Criteria both("T = 'a' AND N = 1", rows->columns());
  const FilterIndex index(*rows, text.rows.indexable());
  EXPECT_TRUE(index.covers(text.rows.indexable()));
  EXPECT_FALSE(index.covers(both.rows.indexable()));
}

TEST(FilterIndex, IsUsedForEqualitiesJoinedByAndAlone) {
  const auto rows = mixedRows();
  for (const std::string_view text : {"T = 'a' OR T = 'b'", "T <> 'a'", "N > 1", "T = NULL", "T LIKE 'a*'"}) {
    EXPECT_TRUE(Criteria(text, rows->columns()).rows.indexable().empty()) << text;
  }
  EXPECT_EQ(Criteria("T = 'a' AND (N = 1 AND A = 5)", rows->columns()).rows.indexable().size(), 3U);
}

// A date in a column that takes anything equals a quoted text by a reading that no hash can foresee.
TEST(FilterIndex, IsNotUsedForTheTextOfADateInAColumnThatTakesAnything) {
  const auto rows = mixedRows();
  EXPECT_TRUE(Criteria("A = '31/12/2010'", rows->columns()).rows.indexable().empty());
}

Variant randomValue(std::mt19937& random, std::size_t column) {
  if (random() % 8 == 0) return Variant::null();
  const int number = static_cast<int>(random() % 4);
  switch (column) {
    case 0:
      return std::string(random() % 2 == 0 ? "Form" : "fORM") + std::to_string(number) +
             std::string(random() % 2 * 9, 'x');
    case 1:
      return static_cast<double>(number);
    default:
      return random() % 2 == 0 ? Variant(number) : Variant("0" + std::to_string(number));
  }
}

std::string randomClause(std::mt19937& random, std::size_t column) {
  const std::string number = std::to_string(random() % 4);
  if (column == 0) return "T = 'form" + number + std::string(random() % 2 * 9, 'X') + "'";
  const std::string name = column == 1 ? "N" : "A";
  return name + (random() % 2 == 0 ? " = " + number : " = '0" + number + "'");
}

// The index must find exactly the rows that a walk with the same tests finds, whatever was changed in between.
TEST(FilterIndex, AgreesWithAWalkInRandomSteps) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const auto rows = mixedRows();
  FilterIndexes indexes;
  for (int step = 0; step < 3000; ++step) {
    const bool adds = rows->count() < 20 || random() % 10 == 0;
    const std::size_t row = adds ? rows->append() : random() % rows->count();
    const std::size_t column = random() % 3;
    rows->set(row, column, randomValue(random, column));
    indexes.cellChanged(*rows, row, column);

    std::string text = randomClause(random, random() % 3);
    if (random() % 2 == 0) text += " AND " + randomClause(random, random() % 3);
    const Criteria criteria(text, rows->columns());
    ASSERT_FALSE(criteria.rows.indexable().empty());
    Numbers byIndex;
    indexes.find(*rows, criteria.rows.indexable(), byIndex);
    Numbers byWalk;
    for (std::uint32_t i = 0; i < rows->count(); ++i) {
      if (criteria.rows.match(*rows, i)) byWalk.push_back(i);
    }
    ASSERT_EQ(byIndex, byWalk) << text << " at step " << step;
  }
}

}  // namespace
}  // namespace tarvola::ado
