#include "tarvola/ado/shape.h"

#include <gtest/gtest.h>

#include "tarvola/ado/shape_narrowing.h"
#include "tests/ado/recordset_fixture.h"

namespace tarvola::ado {
namespace {

using test::errorOf;
using test::number;

TEST(ShapeCommandText, IsKnownByItsFirstWord) {
  EXPECT_TRUE(isShapeCommand("SHAPE {SELECT * FROM A}"));
  EXPECT_TRUE(isShapeCommand(" \r\n shape{SELECT * FROM A}"));
  EXPECT_FALSE(isShapeCommand("SELECT * FROM SHAPE"));
  EXPECT_FALSE(isShapeCommand("SHAPES {}"));
  EXPECT_FALSE(isShapeCommand(""));
}

TEST(ShapeCommandText, OfTheListsIsReadWithItsTwoChapters) {
  const ShapeCommand command = readShapeCommand(
      "SHAPE {SELECT * FROM H WHERE A = 1} AS dHdr APPEND ({SELECT * FROM L Where COLLNO = 0} AS d1 RELATE KD_FORM TO "
      "KD_FORM, MS_PAJAK TO MS) AS d1,({SELECT * From L Where COLLNO = 1} AS d2 RELATE KD_FORM TO KD_FORM) AS d2 ");
  EXPECT_EQ(command.statement, "SELECT * FROM H WHERE A = 1");
  ASSERT_EQ(command.children.size(), 2U);
  EXPECT_EQ(command.children[0].statement, "SELECT * FROM L Where COLLNO = 0");
  EXPECT_EQ(command.children[0].name, "d1");
  ASSERT_EQ(command.children[0].relation.size(), 2U);
  EXPECT_EQ(command.children[0].relation[1].parentColumn, "MS_PAJAK");
  EXPECT_EQ(command.children[0].relation[1].childColumn, "MS");
  EXPECT_EQ(command.children[1].name, "d2");
  EXPECT_EQ(command.children[1].relation.size(), 1U);
}

TEST(ShapeCommandText, NeedsNoChapters) {
  const ShapeCommand command = readShapeCommand("SHAPE {SELECT 1} AS a;");
  EXPECT_EQ(command.statement, "SELECT 1");
  EXPECT_TRUE(command.children.empty());
}

TEST(ShapeCommandText, TakesQuotedNamesAndNamesWithoutAs) {
  const ShapeCommand command =
      readShapeCommand("SHAPE {p} [the parent] APPEND ({c} 'x y' RELATE \"P 1\" TO [C 1]) \"lines of it\"");
  EXPECT_EQ(command.children[0].relation[0].parentColumn, "P 1");
  EXPECT_EQ(command.children[0].relation[0].childColumn, "C 1");
  EXPECT_EQ(command.children[0].name, "lines of it");
}

TEST(ShapeCommandText, WithoutANameGivesTheChapterOne) {
  const ShapeCommand command = readShapeCommand("SHAPE {p} APPEND ({c} RELATE a TO b), ({c} RELATE a TO b)");
  EXPECT_EQ(command.children[0].name, "Chapter1");
  EXPECT_EQ(command.children[1].name, "Chapter2");
}

TEST(ShapeCommandText, LeavesABraceInQuotesToTheStatement) {
  EXPECT_EQ(readShapeCommand("SHAPE {SELECT '}' FROM A}").statement, "SELECT '}' FROM A");
}

class ShapeRefusal : public testing::TestWithParam<std::string_view> {};

TEST_P(ShapeRefusal, IsASyntaxErrorOfTheShapingService) {
  const auto read = [] { readShapeCommand(GetParam()); };
  EXPECT_EQ(errorOf(read), number(ErrorNumber::SyntaxError));
  EXPECT_TRUE(test::errorTextOf(read).starts_with("Syntax error in SHAPE command. "));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ShapeRefusal,
    testing::Values("", "SHAPE", "SHAPE SELECT * FROM A", "SHAPE {SELECT * FROM A", "SHAPE {SELECT 'a} AS b",
                    "SHAPE {p} APPEND", "SHAPE {p} APPEND {c} RELATE a TO b", "SHAPE {p} APPEND ({c})",
                    "SHAPE {p} APPEND ({c} RELATE a)", "SHAPE {p} APPEND ({c} RELATE a TO)",
                    "SHAPE {p} APPEND ({c} RELATE a TO b", "SHAPE {p} APPEND ({c} RELATE a TO b) AS",
                    "SHAPE {p} APPEND ({c} RELATE a TO b),", "SHAPE {p} APPEND ({c} RELATE a TO b) AS c d",
                    "SHAPE {p} AS [x", "SHAPE {p} AS a b", "SHAPE {p} APPEND ({c} RELATE a TO PARAMETER 0)",
                    "SHAPE {p} APPEND ((SHAPE {c}) RELATE a TO b)", "SHAPE {p} COMPUTE p BY a"));

TEST(ShapeCommandText, WithAShapeWithinIsRefusedByName) {
  EXPECT_EQ(test::errorTextOf([] { readShapeCommand("SHAPE {p} APPEND (SHAPE {c} APPEND ({d} RELATE a TO b) AS e)"); }),
            "Syntax error in SHAPE command. A SHAPE within a SHAPE is not supported.");
}

// --- narrowing ------------------------------------------------------------------------------------------

struct NarrowingCase {
  std::string_view statement;
  std::string_view narrowed;  ///< "" if it must be left alone
};

class ShapeNarrowing : public testing::TestWithParam<NarrowingCase> {};

TEST_P(ShapeNarrowing, AddsAConditionToPlainStatementsOnly) {
  const auto select = readPlainSelect(GetParam().statement);
  EXPECT_EQ(select ? withCondition(*select, "K = 1") : "", GetParam().narrowed);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ShapeNarrowing,
    testing::Values(
        NarrowingCase{"SELECT * FROM T", "SELECT * FROM T WHERE K = 1"},
        NarrowingCase{"select*from [T 1] ;", "select*from [T 1] WHERE K = 1"},
        NarrowingCase{"SELECT * From T Where A = 0 OR B = 4 ", "SELECT * From T WHERE ( A = 0 OR B = 4) AND K = 1"},
        NarrowingCase{"SELECT * FROM T WHERE ORDER_NO = 1", "SELECT * FROM T WHERE ( ORDER_NO = 1) AND K = 1"},
        NarrowingCase{"SELECT * FROM T WHERE A = 'x ORDER BY y)'",
                      "SELECT * FROM T WHERE ( A = 'x ORDER BY y)') AND K = 1"},
        NarrowingCase{"SELECT * FROM T WHERE A IN (SELECT B FROM U GROUP BY B)",
                      "SELECT * FROM T WHERE ( A IN (SELECT B FROM U GROUP BY B)) AND K = 1"},
        NarrowingCase{"SELECT A FROM T", ""}, NarrowingCase{"SELECT * FROM T, U", ""},
        NarrowingCase{"SELECT * FROM T AS U", ""}, NarrowingCase{"SELECT DISTINCT * FROM T", ""},
        NarrowingCase{"SELECT * FROM T ORDER BY A", ""}, NarrowingCase{"SELECT * FROM T WHERE A = 4ORDER BY A", ""},
        NarrowingCase{"SELECT * FROM T WHERE A = 1 UNION SELECT * FROM U", ""},
        NarrowingCase{"SELECT * FROM T WHERE A = 1) OR (B = 2", ""}, NarrowingCase{"SELECT * FROM T WHERE (A = 1", ""},
        NarrowingCase{"SELECT * FROM T WHERE A = 'x", ""}, NarrowingCase{"SELECT * FROM T WHERE A = [x", ""},
        NarrowingCase{"SELECT * FROM T WHERE ", ""}, NarrowingCase{"SELECT * FROM T WHERE A = 1; DELETE * FROM T", ""},
        NarrowingCase{"DELETE * FROM T", ""}, NarrowingCase{"SELECT * FROM", ""}, NarrowingCase{"", ""}));

std::shared_ptr<TableRows> parents() {
  return std::make_shared<TableRows>(std::make_shared<const Columns>(
      std::vector<Column>{{.name = "KIND", .type = ColumnType::Text}, {.name = "MONTH", .type = ColumnType::Integer}}));
}

void addParent(TableRows& rows, const Variant& kind, const Variant& month) {
  const std::size_t row = rows.append();
  rows.set(row, 0, kind);
  rows.set(row, 1, month);
}

const std::vector<ShapeRelation> bothColumns{{.parentColumn = 0, .childColumn = 0},
                                             {.parentColumn = 1, .childColumn = 1}};
const std::vector<ShapeRelationText> bothNames{{.parentColumn = "KIND", .childColumn = "K"},
                                               {.parentColumn = "MONTH", .childColumn = "M"}};

TEST(ShapeKeys, AreTheDistinctKeysOfTheParentsAsLiterals) {
  const auto rows = parents();
  addParent(*rows, "D'1", 5);
  addParent(*rows, "D2", 5);
  addParent(*rows, "D'1", 5);
  addParent(*rows, Variant::null(), 5);
  const auto conditions = keyConditions(*rows, bothColumns, bothNames);
  ASSERT_TRUE(conditions);
  EXPECT_EQ(*conditions, (std::vector<std::string>{"K = 'D''1' AND M = 5", "K = 'D2' AND M = 5"}));
}

TEST(ShapeKeys, ThatDifferInCaseAloneAreOne) {
  const auto rows = parents();
  addParent(*rows, "Da", 5);
  addParent(*rows, "dA", 5);
  const auto conditions = keyConditions(*rows, bothColumns, bothNames);
  ASSERT_TRUE(conditions);
  EXPECT_EQ(*conditions, (std::vector<std::string>{"K = 'Da' AND M = 5"}));
}

TEST(ShapeKeys, AreNotUsedWhenThereAreMoreThanFifty) {
  const auto rows = parents();
  for (int month = 1; month <= 50; ++month) addParent(*rows, "D", month);
  EXPECT_EQ(keyConditions(*rows, bothColumns, bothNames)->size(), 50U);
  addParent(*rows, "D", 51);
  EXPECT_FALSE(keyConditions(*rows, bothColumns, bothNames));
}

}  // namespace
}  // namespace tarvola::ado
