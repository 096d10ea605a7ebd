#include <gtest/gtest.h>

#include <random>

#include "tarvola/ado/sql/compile.h"
#include "tarvola/ado/sql/tokenizer.h"
#include "tests/runtime/failures.h"

namespace tarvola::ado::sql {
namespace {

/// The key with its marks made readable, a ":" and the literals with "," between them.
std::string shapeOf(std::string_view statement) {
  Shape shape;
  readShape(statement, shape);
  std::string text;
  for (const char character : shape.key) {
    const bool isMark = character >= '\x01' && character <= '\x05';
    text += isMark ? "<T><N><D><U><X>"[(character - 1) * 3 + 1] : character;
  }
  for (const Literal& literal : shape.literals) text.append(1, ':').append(literal.text);
  return text;
}

struct ShapeRow {
  std::string_view statement;
  std::string_view shape;
};

TEST(Shape, TakesEachLiteralOutOfTheStatement) {
  constexpr ShapeRow rows[] = {
      {"", ""},
      {"SELECT * FROM T", "SELECT * FROM T"},
      {"a = 'x'", "a = T:x"},
      {"a='it''s'AND b=''", "a=TAND b=T:it''s:"},
      {"a=5", "a=N:5"},
      {"a=4AND b=5OR c=1.5", "a=NAND b=NOR c=N:4:5:1.5"},
      {"a=.5,-7", "a=N,-N:.5:7"},
      {"a=1E+15 b=2e3 c=4ELSE d=4E", "a=N b=N c=NELSE d=NE:1E+15:2e3:4:4"},
      {"a=5.AND", "a=NAND:5."},
      {"d=#03/04/2026#", "d=D:03/04/2026"},
      {"a='É'", "a=U:É"},
      {"(1,'a',#b#)", "(N,T,D):1:a:b"},
      {"FROM [SELECT 'a' , 5]. AS q", "FROM [SELECT T , N]. AS q:a:5"},
      {"FROM [SELECT 'a' , 5] AS q", "FROM [SELECT 'a' , 5] AS q"},
  };
  for (const ShapeRow& row : rows) EXPECT_EQ(shapeOf(row.statement), row.shape);
}

TEST(Shape, LeavesDigitsInsideNamesAlone) {
  for (const std::string_view statement :
       {"Total_Bruto1", "D113210", "DS_FORM_INDUK.MS_PAJAK", "t1.c2", "DAT_SSP_PPh22", "F113204", "[4 a]", "`5`",
        "\"6'#\"", "_1", "é2", "WHEREa1"}) {
    EXPECT_EQ(shapeOf(statement), statement);
  }
}

TEST(Shape, IsTheSameForStatementsThatDifferInValuesOnly) {
  Shape one;
  Shape other;
  readShape("SELECT * FROM T WHERE a = 'x' AND b = 5", one);
  readShape("SELECT * FROM T WHERE a = '' AND b = 123456", other);
  EXPECT_EQ(one.key, other.key);
  readShape("SELECT * FROM T WHERE a = 'x' AND b = '5'", other);
  EXPECT_NE(one.key, other.key);
}

TEST(Shape, CannotBeForgedByMarksInTheStatement) {
  Shape real;
  Shape forged;
  readShape("a = 'x'", real);
  for (char mark = '\x01'; mark < '\t'; ++mark) {
    readShape(std::string("a = ") + mark, forged);
    EXPECT_NE(real.key, forged.key);
  }
}

TEST(Shape, KeepsItsMemoryWhenItIsReused) {
  const std::string statement = "SELECT * FROM T WHERE a = 'x' AND b = 5 AND c = #1/1/2009#";
  Shape shape;
  readShape(statement, shape);
  const auto* key = shape.key.data();
  const auto* literals = shape.literals.data();
  for (int time = 0; time < 3; ++time) readShape(statement, shape);
  EXPECT_EQ(shape.key.data(), key);
  EXPECT_EQ(shape.literals.data(), literals);
}

TEST(Shape, FailsForAnOpenTextOrDateAsTheGrammarDoes) {
  Shape shape;
  const auto tell = [&](std::string_view statement) { return descriptionOf([&] { readShape(statement, shape); }); };
  EXPECT_EQ(tell("SELECT * FROM T WHERE a = 'x"),
            "[Microsoft][ODBC Microsoft Access Driver] Syntax error in string in query expression 'a = 'x'.");
  EXPECT_EQ(tell("SELECT * FROM T WHERE a = #1/1"),
            "[Microsoft][ODBC Microsoft Access Driver] Syntax error in date in query expression 'a = #1/1'.");
  // The name in front of the open quote is met first.
  EXPECT_EQ(tell("SELECT * FROM T WHERE a = 'O'Brien'"),
            "[Microsoft][ODBC Microsoft Access Driver] Syntax error (missing operator) in query expression "
            "'a = 'O'Brien''.");
  EXPECT_EQ(failureOf([&] { readShape("'", shape); }), -2147217900);
}

// Shape and grammar must see the same literals, or a value would be bound in the place of another.
TEST(Shape, SeesTheLiteralsThatTheGrammarSees) {
  std::mt19937 random(20090131);
  constexpr std::string_view pieces[] = {"a",      "1", ".",    "'x'", "#d#", " ",        "E", "-",  "[b 1]",
                                         "\"c'\"", "_", "é",    "''",  "e5",  "..",       "(", "1.", "4A",
                                         "`",      "[", "\x01", ",",   "]",   "[SELECT ", "]."};
  for (int round = 0; round < 20'000; ++round) {
    std::string statement;
    for (int count = 0; count < 12; ++count) statement += pieces[random() % std::size(pieces)];
    Shape shape;
    if (failureOf([&] { readShape(statement, shape); }) != 0) continue;
    std::vector<std::string_view> seen;
    for (const Token& token : tokenize(statement))
      if (token.kind == TokenKind::Text || token.kind == TokenKind::Number || token.kind == TokenKind::Date)
        seen.push_back(token.text);
    ASSERT_EQ(seen.size(), shape.literals.size()) << statement;
    for (std::size_t place = 0; place < seen.size(); ++place)
      ASSERT_EQ(seen[place].data(), shape.literals[place].text.data()) << statement;
  }
}

}  // namespace
}  // namespace tarvola::ado::sql
