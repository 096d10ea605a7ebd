#include <gtest/gtest.h>

#include "tarvola/ado/sql/compile.h"
#include "tarvola/runtime/errors.h"
#include "tests/ado/sql/tables.h"

namespace tarvola::ado::sql {
namespace {

constexpr std::int32_t mismatch = -2147217913;
constexpr std::int32_t tooFew = -2147217904;
constexpr std::int32_t syntax = -2147217900;
constexpr std::int32_t noTable = -2147217865;
constexpr std::int32_t unspecified = -2147467259;

struct RefusedRow {
  std::string_view statement;
  std::int32_t number;
  std::string_view description;  // behind the name of the driver
};

/// Compiles a statement as an engine does: the shape is read first.
void refuse(const RefusedRow& row) {
  try {
    Shape shape;
    readShape(row.statement, shape);
    compile(row.statement, TestTables(), {});
    ADD_FAILURE() << "accepted: " << row.statement;
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), row.number) << row.statement.substr(0, 200);
    EXPECT_EQ(error.description(), "[Microsoft][ODBC Microsoft Access Driver] " + std::string(row.description))
        << row.statement.substr(0, 200);
  }
}

TEST(RefusedDialect, SaysWhichPartOfTheStatementCannotBeRead) {
  constexpr RefusedRow rows[] = {
      {"", syntax, "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."},
      {"HELLO", syntax, "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."},
      {"CREATE TABLE x (a INTEGER)", syntax,
       "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."},
      {"SELECT", syntax,
       "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or "
       "the punctuation is incorrect."},
      {"SELECT FROM BURSA", syntax,
       "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or "
       "the punctuation is incorrect."},
      {"SELECT ID, FROM BURSA", syntax,
       "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or "
       "the punctuation is incorrect."},
      {"SELECT ID AS Value FROM BURSA", syntax,
       "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or "
       "the punctuation is incorrect."},
      {"SELECT ID AS select FROM BURSA", syntax,
       "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or "
       "the punctuation is incorrect."},
      {"SELECT *", syntax, "Query input must contain at least one table or query."},
      {"SELECT * FROM", syntax, "Syntax error in FROM clause."},
      {"SELECT * FROM BURSA WHEREID = 5", syntax, "Syntax error in FROM clause."},
      {"SELECT * FROM BURSAWHERE ID = 5", syntax, "Syntax error in FROM clause."},
      {"SELECT * FROM BURSA JOIN PROFILE ON BURSA.ID = PROFILE.NPWP", syntax, "Syntax error in FROM clause."},
      {"SELECT * FROM BURSA INNER JOIN PROFILE", syntax, "Syntax error in JOIN operation."},
      {"SELECT * FROM BURSA WHERE", syntax, "Syntax error in WHERE clause."},
      {"SELECT * FROM BURSA GROUP BY", syntax, "Syntax error in GROUP BY clause."},
      {"SELECT * FROM BURSA GROUP ID", syntax, "Syntax error in GROUP BY clause."},
      {"SELECT ID FROM BURSA GROUP BY ID HAVING", syntax, "Syntax error in HAVING clause."},
      {"SELECT * FROM BURSA ORDER BY", syntax, "Syntax error in ORDER BY clause."},
      {"SELECT * FROM BURSA ORDER BY 3", syntax, "Syntax error in ORDER BY clause."},
      {"SELECT NPWP FROM PROFILE UNION FROM PROFILE", syntax, "Syntax error in union query."},
      {"INSERT BURSA VALUES ('x', 1)", syntax, "Syntax error in INSERT INTO statement."},
      {"INSERT INTO BURSA VALUES ('x', )", syntax, "Syntax error in INSERT INTO statement."},
      {"INSERT INTO BURSA VALUES ('x', 1", syntax, "Syntax error in INSERT INTO statement."},
      {"INSERT INTO BURSA VALUES ('x', 1), ('y', 2)", syntax, "Syntax error in INSERT INTO statement."},
      {"INSERT INTO BURSA VALUES ('x', (SELECT 1))", syntax, "Syntax error in INSERT INTO statement."},
      {"UPDATE BURSA ID = 5", syntax, "Syntax error in UPDATE statement."},
      {"UPDATE BURSA SET ID =", syntax, "Syntax error in UPDATE statement."},
      {"DELETE BURSA", syntax, "Syntax error in DELETE statement."},
      {"DELETE * FROM", syntax, "Syntax error in FROM clause."},
      {"SELECT * FROM [SELECT ID FROM BURSA). AS q", syntax, "Syntax error in FROM clause."},
      {"SELECT * FROM (SELECT ID FROM BURSA]. AS q", syntax,
       "Missing ), ], or Item in query expression 'SELECT ID FROM BURSA]. AS q'."},
      {"SELECT * FROM BURSA]", syntax, "Syntax error in FROM clause."},
      {"SELECT * FROM BURSA; x", syntax, "Characters found after end of SQL statement."},
      {"SELECT * FROM BURSA;;", syntax, "Characters found after end of SQL statement."},
  };
  for (const RefusedRow& row : rows) refuse(row);
}

TEST(RefusedDialect, ShowsTheExpressionThatCannotBeRead) {
  constexpr RefusedRow rows[] = {
      {"SELECT * FROM BURSA WHERE ID =", syntax, "Syntax error (missing operator) in query expression 'ID ='."},
      {"SELECT * FROM BURSA WHERE ID = AND BURSA = 'x' ORDER BY ID", syntax,
       "Syntax error (missing operator) in query expression 'ID = AND BURSA = 'x''."},
      {"SELECT * FROM BURSA WHERE BURSA = 'O'Brien' AND ID = 5", syntax,
       "Syntax error (missing operator) in query expression 'BURSA = 'O'Brien' AND ID = 5'."},
      {"SELECT * FROM BURSA WHERE ID = 5 AND1 = 1", syntax,
       "Syntax error (missing operator) in query expression 'ID = 5 AND1 = 1'."},
      {"SELECT * FROM BURSA WHERE ID IS 5", syntax, "Syntax error (missing operator) in query expression 'ID IS 5'."},
      {"SELECT ID nama, BURSA FROM BURSA", syntax, "Syntax error (missing operator) in query expression 'ID nama'."},
      {"SELECT COUNT(DISTINCT ID) FROM BURSA", syntax,
       "Syntax error (missing operator) in query expression 'COUNT(DISTINCT ID)'."},
      {"SELECT ID FROM BURSA ORDER BY ID ID DESC", syntax,
       "Syntax error (missing operator) in query expression 'ID ID DESC'."},
      {"SELECT * FROM (SELECT ID FROM BURSA WHERE ID = = 5) AS q", syntax,
       "Syntax error (missing operator) in query expression 'ID = = 5'."},
      {"INSERT INTO BURSA VALUES ('O'Brien', 1)", syntax,
       "Syntax error (missing operator) in query expression ''O'Brien', 1)'."},
      {"UPDATE BURSA SET BURSA = 'a' 'b', ID = 5 WHERE ID = 5", syntax,
       "Syntax error (missing operator) in query expression ''a' 'b''."},
      {"SELECT * FROM BURSA AS a INNER JOIN BURSA AS b ON a.ID = b.ID INNER JOIN BURSA AS c ON a.ID = c.ID", syntax,
       "Syntax error (missing operator) in query expression 'a.ID = b.ID INNER JOIN BURSA AS c ON a.ID = "
       "c.ID'."},
      {"SELECT * FROM BURSA WHERE BURSA = 'O''Brien", syntax,
       "Syntax error in string in query expression 'BURSA = 'O''Brien'."},
      {"SELECT * FROM BURSA WHERE ID = #1/1", syntax, "Syntax error in date in query expression 'ID = #1/1'."},
      {"SELECT * FROM BURSA WHERE ID = 5)", syntax, "Extra ) in query expression 'ID = 5)'."},
      {"SELECT * FROM BURSA WHERE (ID = 5", syntax, "Missing ), ], or Item in query expression '(ID = 5'."},
      {"SELECT * FROM BURSA WHERE ID = [x", syntax, "Missing ), ], or Item in query expression 'ID = [x'."},
  };
  for (const RefusedRow& row : rows) refuse(row);
}

TEST(RefusedDialect, CountsEachUnknownNameOnceAsAParameter) {
  constexpr RefusedRow rows[] = {
      {"SELECT * FROM BURSA WHERE Nama = 'x'", tooFew, "Too few parameters. Expected 1."},
      {"SELECT x, y, X FROM BURSA WHERE z.a = Y", tooFew, "Too few parameters. Expected 3."},
      {"SELECT * FROM BURSA WHERE BURSA = \"x\"", tooFew, "Too few parameters. Expected 1."},
      {"SELECT * FROM BURSA WHERE ID = ?", tooFew, "Too few parameters. Expected 1."},
      {"SELECT ID AS n FROM BURSA WHERE n = 5", tooFew, "Too few parameters. Expected 1."},
      {"SELECT ID AS n FROM BURSA GROUP BY ID HAVING n = 5", tooFew, "Too few parameters. Expected 1."},
      {"SELECT ID AS n FROM BURSA ORDER BY n", tooFew, "Too few parameters. Expected 1."},
      {"INSERT INTO BURSA VALUES (abc, def)", tooFew, "Too few parameters. Expected 2."},
      {"UPDATE BURSA SET Nama = 'x', ID = y", tooFew, "Too few parameters. Expected 2."},
      {"DELETE * FROM DAT_FORM WHERE ((NmForm=F113204) AND (MsPjk=1) AND (ThPjk=2009) AND (CorrSEQ=0) )", tooFew,
       "Too few parameters. Expected 1."},
      {"SELECT * FROM BURSA WHERE ID = 'x' OR Nama = 'x'", tooFew, "Too few parameters. Expected 1."},
  };
  for (const RefusedRow& row : rows) refuse(row);
}

// Only a point with no name behind it makes a query of what stands in brackets.
TEST(RefusedDialect, TakesBracketsAroundAWordForAName) {
  constexpr RefusedRow rows[] = {
      {"SELECT [Select a] FROM BURSA", tooFew, "Too few parameters. Expected 1."},
      {"SELECT [Select a].[b], [Select a].c FROM BURSA", tooFew, "Too few parameters. Expected 2."},
      {"SELECT * FROM [SELECT ID FROM BURSA] AS q", noTable,
       "The Microsoft Jet database engine cannot find the input table or query 'SELECT ID FROM BURSA'.  Make sure it "
       "exists and that its name is spelled correctly."},
  };
  for (const RefusedRow& row : rows) refuse(row);
}

TEST(RefusedDialect, NamesTheTableThatDoesNotExist) {
  constexpr RefusedRow rows[] = {
      {"SELECT * FROM NoTable", noTable,
       "The Microsoft Jet database engine cannot find the input table or query 'NoTable'.  Make sure it "
       "exists and that its name is spelled correctly."},
      {"SELECT x FROM BURSA, [No Table] WHERE y = 1", noTable,
       "The Microsoft Jet database engine cannot find the input table or query 'No Table'.  Make sure it "
       "exists and that its name is spelled correctly."},
      {"INSERT INTO NoTable VALUES (1)", noTable,
       "The Microsoft Jet database engine cannot find the input table or query 'NoTable'.  Make sure it "
       "exists and that its name is spelled correctly."},
      {"UPDATE NoTable SET a = 1", noTable,
       "The Microsoft Jet database engine cannot find the input table or query 'NoTable'.  Make sure it "
       "exists and that its name is spelled correctly."},
      {"DELETE * FROM NoTable WHERE a = 1", noTable,
       "The Microsoft Jet database engine cannot find the input table or query 'NoTable'.  Make sure it "
       "exists and that its name is spelled correctly."},
      {"SELECT x.* FROM BURSA", noTable,
       "The Microsoft Jet database engine cannot find the input table or query 'x'.  Make sure it exists "
       "and that its name is spelled correctly."},
      {"DELETE x.* FROM BURSA", noTable,
       "The Microsoft Jet database engine cannot find the input table or query 'x'.  Make sure it exists "
       "and that its name is spelled correctly."},
  };
  for (const RefusedRow& row : rows) refuse(row);
}

TEST(RefusedDialect, RefusesTypesThatClashWhateverTheTableHolds) {
  constexpr RefusedRow rows[] = {
      {"SELECT * FROM BURSA WHERE ID = '5'", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE '5' = ID", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE BURSA = 5", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE BURSA <> 5", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE ID > 'a'", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE BURSA IN ('a', 5)", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE ID NOT IN ('5')", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE ID BETWEEN 1 AND '5'", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE BURSA BETWEEN 1 AND 5", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE BURSA = ID", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE ID IN (SELECT BURSA FROM BURSA)", mismatch,
       "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE ID = (SELECT MAX(BURSA) FROM BURSA)", mismatch,
       "Data type mismatch in criteria expression."},
      {"SELECT * FROM BURSA WHERE Trim(BURSA) = 5", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM Kinds WHERE D = '5'", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM Kinds WHERE N = '5'", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM Kinds WHERE B = 'True'", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM Kinds WHERE W = '31/12/2009'", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM Kinds WHERE T = #1/1/2009#", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM Kinds WHERE L = 5", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM DATSSP WHERE MsPjk <> '012009'", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM DATSSP WHERE MsPjk IN ('012009')", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT * FROM DATSSP WHERE ThPjk = '2009'", mismatch, "Data type mismatch in criteria expression."},
      {"SELECT KD_FORM FROM DS_FORM_INDUK GROUP BY KD_FORM HAVING KD_FORM = 5", mismatch,
       "Data type mismatch in criteria expression."},
      {"SELECT SUM(BURSA) FROM BURSA", mismatch, "Data type mismatch in criteria expression."},
      {"DELETE * FROM BURSA WHERE ID = '5'", mismatch, "Data type mismatch in criteria expression."},
      {"UPDATE BURSA SET ID = 5 WHERE BURSA = 5", mismatch, "Data type mismatch in criteria expression."},
  };
  for (const RefusedRow& row : rows) refuse(row);
}

TEST(RefusedDialect, ComparesValuesAndFieldsOfAnInsert) {
  constexpr RefusedRow rows[] = {
      {"INSERT INTO BURSA VALUES ('x')", syntax, "Number of query values and destination fields are not the same."},
      {"INSERT INTO BURSA VALUES ('x', 1,5)", syntax,
       "Number of query values and destination fields are not the same."},
      {"INSERT INTO BURSA (ID) VALUES (1, 2)", syntax,
       "Number of query values and destination fields are not the same."},
      {"INSERT INTO BURSA SELECT NPWP FROM PROFILE", syntax,
       "Number of query values and destination fields are not the same."},
      {"INSERT INTO BURSA (BURSA, Nama) VALUES ('x', 1)", syntax,
       "The INSERT INTO statement contains the following unknown field name: 'Nama'.  Make sure you have "
       "typed the name correctly, and try the operation again."},
      {"INSERT INTO BURSA (BURSA, bursa) VALUES ('x', 1)", syntax, "Duplicate output destination 'bursa'."},
      // A star fills the columns of its names.
      {"INSERT INTO BURSA SELECT * FROM SETTING_TARIF_PPH", syntax,
       "The INSERT INTO statement contains the following unknown field name: 'PASAL'.  Make sure you have "
       "typed the name correctly, and try the operation again."},
  };
  for (const RefusedRow& row : rows) refuse(row);
}

TEST(RefusedDialect, RefusesWhatCanMeanNothingOrTwoThings) {
  constexpr RefusedRow rows[] = {
      {"SELECT NPWP FROM DS_FORM_INDUK, DATSSP", syntax,
       "The specified field 'NPWP' could refer to more than one table listed in the FROM clause of your SQL "
       "statement."},
      {"SELECT KD_FORM, COUNT(*) FROM DS_FORM_INDUK", syntax,
       "You tried to execute a query that does not include the specified expression 'KD_FORM' as part of an "
       "aggregate function."},
      {"SELECT KD_FORM FROM DS_FORM_INDUK GROUP BY NPWP", syntax,
       "You tried to execute a query that does not include the specified expression 'KD_FORM' as part of an "
       "aggregate function."},
      {"SELECT * FROM BURSA GROUP BY BURSA", syntax,
       "You tried to execute a query that does not include the specified expression 'ID' as part of an "
       "aggregate function."},
      {"SELECT BURSA FROM BURSA GROUP BY BURSA HAVING ID = 5", syntax,
       "You tried to execute a query that does not include the specified expression 'ID' as part of an "
       "aggregate function."},
      {"SELECT BURSA FROM BURSA GROUP BY BURSA ORDER BY BURSA.ID", syntax,
       "You tried to execute a query that does not include the specified expression 'BURSA.ID' as part of "
       "an aggregate function."},
      {"SELECT ID FROM BURSA WHERE MAX(ID) = 5", syntax, "Cannot have aggregate function in WHERE clause (MAX(ID))."},
      {"SELECT SUM(MAX(ID)) FROM BURSA", syntax, "Cannot have aggregate function in expression (MAX(ID))."},
      {"SELECT Nz(ID, 0) FROM BURSA", syntax, "Undefined function 'Nz' in expression."},
      {"SELECT Left(BURSA) FROM BURSA", syntax,
       "Wrong number of arguments used with function in query expression 'Left(BURSA)'."},
      {"SELECT NPWP FROM PROFILE UNION SELECT NPWP, KD_FORM FROM DS_FORM_INDUK", syntax,
       "The number of columns in the two selected tables or queries of a union query do not match."},
      {"SELECT NPWP FROM PROFILE UNION SELECT NPWP FROM DS_FORM_INDUK ORDER BY KD_FORM", syntax,
       "The ORDER BY expression (KD_FORM) includes fields that are not selected by the query.  Only those "
       "fields requested in the first query can be included in an ORDER BY expression."},
      {"SELECT ID FROM BURSA WHERE ID IN (SELECT ID, BURSA FROM BURSA)", syntax,
       "You have written a subquery that can return more than one field without using the EXISTS reserved "
       "word in the main query's FROM clause. Revise the SELECT statement of the subquery to request only "
       "one field."},
  };
  for (const RefusedRow& row : rows) refuse(row);
}

std::string repeated(std::string_view piece, std::size_t times) {
  std::string text;
  for (std::size_t time = 0; time < times; ++time) text += piece;
  return text;
}

TEST(RefusedDialect, StopsBeforeAnyStackRunsOut) {
  const std::string from = "SELECT * FROM BURSA WHERE ID = ";
  const std::string statements[] = {
      from + repeated("(", 100'000) + "ID",
      "SELECT * FROM BURSA WHERE " + repeated("NOT ", 100'000) + "ID",
      from + repeated("-", 100'000) + "ID",
      from + repeated("1 = ", 100'000) + "ID",
      from + repeated("1 + ", 100'000) + "ID",
      from + repeated("1 ^ ", 100'000) + "ID",
      from + repeated("2 * 3 + 4 \\ 5 MOD ", 100'000) + "ID",
      from + repeated("Abs(", 100'000) + "ID",
      from + repeated("Abs(", 50) + "ID" + repeated(")", 50),
      from + repeated("1 AND ID = ", 100'000) + "ID",
      "SELECT * FROM " + repeated("(", 100'000),
      "SELECT * FROM " + repeated("(SELECT * FROM ", 100'000),
      "SELECT ID FROM BURSA" + repeated(" UNION ALL SELECT ID FROM BURSA", 100'000),
  };
  for (const std::string& statement : statements) refuse({statement, unspecified, "Query is too complex."});
}

}  // namespace
}  // namespace tarvola::ado::sql
