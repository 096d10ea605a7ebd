#include "tarvola/ado/table_rows.h"

#include <gtest/gtest.h>

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"
#include "tests/runtime/failures.h"

namespace tarvola::ado {
namespace {

constexpr auto mismatch = static_cast<std::int32_t>(ErrorNumber::ComTypeMismatch);
constexpr auto multipleStep = static_cast<std::int32_t>(ErrorNumber::MultipleStepErrors);
constexpr auto wrongType = static_cast<std::int32_t>(ErrorNumber::WrongTypeForOperation);

ColumnsPtr oneColumn(ColumnType type) { return std::make_shared<const Columns>(std::vector<Column>{{"x", type}}); }

/// What a cell of that type holds after a value was put into it.
Variant stored(ColumnType type, const Variant& value) {
  TableRows rows(oneColumn(type));
  rows.append();
  rows.set(0, 0, value);
  return rows.cell(0, 0).toVariant();
}

std::int32_t failureOfStoring(ColumnType type, const Variant& value) {
  TableRows rows(oneColumn(type));
  rows.append();
  rows.set(0, 0, Variant::null());
  const std::int32_t number = failureOf([&] { rows.set(0, 0, value); });
  EXPECT_TRUE(rows.cell(0, 0).isNull()) << "a value that was refused leaves the cell alone";
  return number;
}

TEST(TableRows, ConvertAValueToTheColumnsType) {
  struct {
    ColumnType type;
    Variant value;
    Variant stored;
  } const cases[] = {
      {ColumnType::Integer, "12", std::int16_t{12}},
      {ColumnType::Integer, "1.500", std::int16_t{1500}},
      {ColumnType::Integer, 2.5, std::int16_t{2}},
      {ColumnType::Integer, true, std::int16_t{-1}},
      {ColumnType::Integer, Variant(), std::int16_t{0}},
      {ColumnType::Long, "70000", std::int32_t{70'000}},
      {ColumnType::Long, std::int16_t{7}, std::int32_t{7}},
      {ColumnType::Double, "1.234,56", 1234.56},
      {ColumnType::Double, std::int16_t{3}, 3.0},
      {ColumnType::Double, Variant(), 0.0},
      {ColumnType::Boolean, "True", true},
      {ColumnType::Boolean, std::int16_t{0}, false},
      {ColumnType::Date, "31/01/2009", Date::fromYmd(2009, 1, 31)},
      {ColumnType::Date, "2009-01-31", Date::fromYmd(2009, 1, 31)},
      {ColumnType::Text, 1234.5, "1234,5"},
      {ColumnType::Text, Date::fromYmd(2009, 1, 31), "31/01/2009"},
      {ColumnType::Text, "a;b", "a;b"},
      {ColumnType::Text, "", ""},
      {ColumnType::Text, Variant(), ""},
      {ColumnType::LongText, std::int32_t{5}, "5"},
      {ColumnType::Any, "5", "5"},
      {ColumnType::Any, 5.0, 5.0},
      {ColumnType::Any, Variant(), Variant()},
      {ColumnType::Integer, Variant::null(), Variant::null()},
      {ColumnType::Text, Variant::null(), Variant::null()},
      {ColumnType::Date, Variant::null(), Variant::null()},
  };
  for (std::size_t index = 0; index < std::size(cases); ++index) {
    EXPECT_EQ(stored(cases[index].type, cases[index].value), cases[index].stored) << "case " << index;
  }
}

TEST(TableRows, RefuseWhatTheColumnCannotHold) {
  EXPECT_EQ(failureOfStoring(ColumnType::Integer, "abc"), mismatch);
  EXPECT_EQ(failureOfStoring(ColumnType::Integer, ""), mismatch);
  EXPECT_EQ(failureOfStoring(ColumnType::Integer, 40'000.0), multipleStep);
  EXPECT_EQ(failureOfStoring(ColumnType::Integer, "40000"), multipleStep);
  EXPECT_EQ(failureOfStoring(ColumnType::Long, 3e9), multipleStep);
  EXPECT_EQ(failureOfStoring(ColumnType::Double, "12a"), mismatch);
  EXPECT_EQ(failureOfStoring(ColumnType::Date, "31/02/2009"), mismatch);
  EXPECT_EQ(failureOfStoring(ColumnType::Date, ""), mismatch);
  EXPECT_EQ(failureOfStoring(ColumnType::Any, Variant(Variant::Array{Variant(1.0)})), wrongType);
}

TEST(TableRows, ReadNumbersByTheSettingsOfTheThread) {
  EXPECT_EQ(stored(ColumnType::Double, "1,5"), Variant(1.5));
  const RegionalSettingsScope american(RegionalSettings::unitedStates());
  EXPECT_EQ(stored(ColumnType::Double, "1,500.5"), Variant(1500.5));
}

TEST(TableRows, AddEmptyRowsAtTheEnd) {
  TableRows rows(std::make_shared<const Columns>(std::vector<Column>{{"a", ColumnType::Text}, {"b", {}}}));
  EXPECT_EQ(rows.count(), 0U);
  EXPECT_EQ(rows.append(), 0U);
  EXPECT_EQ(rows.append(), 1U);
  EXPECT_EQ(rows.count(), 2U);
  EXPECT_EQ(rows.cell(1, 1).toVariant(), Variant());
  EXPECT_EQ(rows.base(), nullptr);
  EXPECT_EQ(rows.identity(1), 0);
}

TEST(TableRows, RememberTheIdentityOfEachRow) {
  TableRows rows(oneColumn(ColumnType::Text),
                 std::make_shared<const BaseTable>(BaseTable{.name = "BURSA", .columns = {"x"}}));
  rows.addRow();
  rows.addIdentity(41);
  EXPECT_EQ(rows.append(), 1U);
  EXPECT_EQ(rows.identity(0), 41);
  EXPECT_EQ(rows.identity(1), 0) << "not in the store yet";
  rows.setIdentity(1, 42);
  EXPECT_EQ(rows.identity(1), 42);
  EXPECT_EQ(rows.base()->name, "BURSA");
}

TEST(TableRows, KeepEveryTextOfManyRows) {
  TableRows rows(std::make_shared<const Columns>(
      std::vector<Column>{{"n", ColumnType::Long}, {"form", ColumnType::Text}, {"text", ColumnType::LongText}}));
  const auto longText = [](int row) {
    return std::string(static_cast<std::size_t>(row % 977), 'x') + std::to_string(row);
  };
  for (int row = 0; row < 20'000; ++row) {
    Cell* const cells = rows.addRow();
    cells[0] = Cell::longInteger(row);
    rows.putText(cells + 1, row < 10'000 ? "F113309" : "F113310");
    rows.putText(cells + 2, longText(row));
  }
  ASSERT_EQ(rows.count(), 20'000U);
  for (int row = 0; row < 20'000; ++row) {
    const auto place = static_cast<std::size_t>(row);
    ASSERT_EQ(rows.cell(place, 0).toVariant(), Variant(std::int32_t{row}));
    ASSERT_EQ(rows.cell(place, 1).text(), row < 10'000 ? "F113309" : "F113310");
    ASSERT_EQ(rows.cell(place, 2).text(), longText(row));
  }
}

TEST(TableRows, ChangeOneCellOfATextThatSeveralRowsShare) {
  TableRows rows(oneColumn(ColumnType::Text));
  for (int row = 0; row < 3; ++row) rows.putText(rows.addRow(), "same");
  rows.set(1, 0, "other");
  EXPECT_EQ(rows.cell(0, 0).text(), "same");
  EXPECT_EQ(rows.cell(1, 0).text(), "other");
  EXPECT_EQ(rows.cell(2, 0).text(), "same");
}

TEST(TableRows, HoldATextLargerThanAnyBlock) {
  TableRows rows(oneColumn(ColumnType::LongText));
  const std::string large(5'000'000, 'y');
  rows.putText(rows.addRow(), large);
  rows.putText(rows.addRow(), "small");
  EXPECT_EQ(rows.cell(0, 0).text(), large);
  EXPECT_EQ(rows.cell(1, 0).text(), "small");
}

}  // namespace
}  // namespace tarvola::ado
