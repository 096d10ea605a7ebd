#include "tarvola/ado/engine/sqlite/catalog.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace tarvola::ado::engine::sqlite {
namespace {

TEST(DeclaredType, GoesByTheFirstWord) {
  const struct {
    const char* declaration;
    ColumnType type;
  } cases[] = {
      {"TEXT", ColumnType::Text},
      {"VARCHAR(20)", ColumnType::Text},
      {"longtext", ColumnType::LongText},
      {"SMALLINT", ColumnType::Integer},
      {"INTEGER", ColumnType::Long},
      {"int", ColumnType::Long},
      {"DOUBLE", ColumnType::Double},
      {"DECIMAL (10,2)", ColumnType::Double},
      {"DOUBLE PRECISION", ColumnType::Double},
      {"DATE", ColumnType::Date},
      {"Datetime", ColumnType::Date},
      {"BOOLEAN", ColumnType::Boolean},
      {"", ColumnType::Any},
      {"BLOB", ColumnType::Any},
      {"TEXTUAL", ColumnType::Any},
  };
  for (const auto& [declaration, type] : cases) EXPECT_EQ(declaredType(declaration), type) << declaration;
}

TEST(DeclaredLength, IsThatOfATextInParentheses) {
  const std::pair<const char*, std::size_t> cases[] = {
      {"VARCHAR(20)", 20}, {"text (255)", 255}, {"CHAR(3)", 3},       {"TEXT", 0},   {"LONGTEXT(9)", 0},
      {"DECIMAL(10)", 0},  {"VARCHAR()", 0},    {"VARCHAR(many)", 0}, {"INT(4)", 0}, {"", 0},
  };
  for (const auto& [declaration, length] : cases) EXPECT_EQ(declaredLength(declaration), length) << declaration;
}

class Catalogs : public testing::Test {
 protected:
  test::TempFolder folder_;
  Handle handle_{folder_.path("c.db"), folder_.path("c.db"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE};
};

TEST_F(Catalogs, FindTablesWithoutRegardToCase) {
  handle_.execute("CREATE TABLE datPBKPPhMasa (PASAL SMALLINT, \"Nama Asal\" TEXT); CREATE VIEW V AS SELECT 1");
  const Catalog catalog(handle_);
  const sql::Table* const table = catalog.find("DATPBKPPHMASA");
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->name, "datPBKPPhMasa");
  ASSERT_EQ(table->columns.size(), 2U);
  EXPECT_EQ(table->columns[0].name, "PASAL");
  EXPECT_EQ(table->columns[0].type, ColumnType::Integer);
  EXPECT_EQ(table->columns[1].name, "Nama Asal");
  EXPECT_EQ(catalog.find("V"), nullptr);
  EXPECT_EQ(catalog.find("sqlite_master"), nullptr);
}

TEST_F(Catalogs, ForgetOnlyWhatHasChanged) {
  handle_.execute("CREATE TABLE A (X TEXT)");
  Catalog catalog(handle_);
  EXPECT_FALSE(catalog.forgetIfChanged()) << "nothing was read yet";
  EXPECT_NE(catalog.find("A"), nullptr);
  EXPECT_FALSE(catalog.forgetIfChanged());
  handle_.execute("CREATE TABLE B (X TEXT)");
  EXPECT_EQ(catalog.find("B"), nullptr);
  EXPECT_TRUE(catalog.forgetIfChanged());
  EXPECT_NE(catalog.find("B"), nullptr);
  EXPECT_NE(catalog.find("A"), nullptr);
}

}  // namespace
}  // namespace tarvola::ado::engine::sqlite
