#include <gtest/gtest.h>

#include <random>

#include "tarvola/runtime/clock.h"
#include "tests/ado/sql/memory_store.h"
#include "tests/runtime/failures.h"

namespace tarvola::ado::sql {
namespace {

using Rows = std::vector<std::string>;

class DialectResults : public testing::Test {
 protected:
  void addBursa(std::initializer_list<const char*> values) {
    for (const char* value : values) store.run("INSERT INTO BURSA VALUES (" + std::string(value) + ")");
  }

  MemoryStore store;
};

TEST_F(DialectResults, FindRowsWithoutRegardToCase) {
  addBursa({"'Jakarta', 1", "'JAKARTA', 2", "'Süd', 3", "'SÜD', 4", "'Sud', 5", "Null, 6"});
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA = 'jakarta'"), (Rows{"1", "2"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA <> 'jakarta'"), (Rows{"3", "4", "5"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA = 'süd'"), (Rows{"3", "4"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA IN ('SÜD', 'jakarta')"), (Rows{"1", "2", "3", "4"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA LIKE '%üd'"), (Rows{"3", "4"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA LIKE 'j[a-c]K%'"), (Rows{"1", "2"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA NOT LIKE 'j%' AND BURSA NOT LIKE 's_d'"), Rows{});
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE Trim(BURSA) = 'JAKARTA'"), (Rows{"1", "2"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA BETWEEN 'k' AND 'i'"), (Rows{"1", "2"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA & '' = 'jAKARTA'"), (Rows{"1", "2"}));
}

TEST_F(DialectResults, GroupAndSortWithoutRegardToCase) {
  addBursa({"'b', 1", "'A', 2", "'a', 3", "Null, 4", "'B', 5"});
  EXPECT_EQ(store.run("SELECT COUNT(*) FROM (SELECT DISTINCT BURSA FROM BURSA)"), (Rows{"3"}));
  EXPECT_EQ(store.run("SELECT COUNT(J) FROM (SELECT DISTINCT Trim(BURSA) AS J FROM BURSA)"), (Rows{"2"}));
  EXPECT_EQ(store.run("SELECT COUNT(*) FROM BURSA GROUP BY BURSA"), (Rows{"1", "2", "2"}));
  EXPECT_EQ(store.run("SELECT COUNT(*) FROM BURSA GROUP BY Trim(BURSA)"), (Rows{"1", "2", "2"}));
  EXPECT_EQ(store.run("SELECT J FROM (SELECT Left(BURSA, 1) AS J FROM BURSA) WHERE J = 'B'"), (Rows{"b", "B"}));
  EXPECT_EQ(store.run("SELECT COUNT(*) FROM (SELECT BURSA FROM BURSA UNION SELECT BURSA FROM BURSA)"), (Rows{"3"}));
  // Nulls come first.
  EXPECT_EQ(store.run("SELECT ID FROM BURSA ORDER BY BURSA, ID"), (Rows{"4", "2", "3", "1", "5"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA ORDER BY 1 DESC"), (Rows{"5", "4", "3", "2", "1"}));
}

TEST_F(DialectResults, PassOverNullsInComparisons) {
  addBursa({"'a', 1", "Null, 2", "'b', Null"});
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA WHERE ID = NULL"), Rows{});
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA WHERE ID IS NULL"), (Rows{"b"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA NOT IN ('a')"), (Rows{"Null"}));
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA WHERE ID NOT IN (1, NULL)"), Rows{});
  EXPECT_EQ(store.run("SELECT BURSA & 'x', BURSA + 'x', ID + 1 FROM BURSA"),
            (Rows{"ax|ax|2", "x|Null|3", "bx|bx|Null"}));
  EXPECT_EQ(store.run("SELECT COUNT(*), COUNT(ID), SUM(ID), MAX(BURSA), AVG(ID) FROM BURSA"), (Rows{"3|2|3|b|1.5"}));
  EXPECT_EQ(store.run("SELECT COUNT(*), SUM(ID) FROM BURSA WHERE ID > 5"), (Rows{"0|Null"}));
  EXPECT_EQ(store.run("SELECT MAX(ID) FROM BURSA WHERE ID > 5 GROUP BY BURSA"), Rows{});
}

TEST_F(DialectResults, AreNullWhereANullIsComputedWith) {
  addBursa({"'a', 1", "Null, Null"});
  EXPECT_EQ(store.run("SELECT BURSA + Null, Null + BURSA, ID + Null, BURSA - Null, BURSA * Null FROM BURSA"),
            (Rows{"Null|Null|Null|Null|Null", "Null|Null|Null|Null|Null"}));
  EXPECT_EQ(store.run("SELECT BURSA & Null, Null & ID, Null & Null FROM BURSA"), (Rows{"a|1|", "||"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA + Null = 'a' OR (BURSA + Null) IS NULL"), (Rows{"1", "Null"}));
  store.run("UPDATE BURSA SET BURSA = BURSA + Null, ID = ID + Null");
  EXPECT_EQ(store.run("SELECT BURSA, ID FROM BURSA"), (Rows{"Null|Null", "Null|Null"}));
}

TEST_F(DialectResults, ReadNoTextAsANumberBesideANull) {
  addBursa({"'abc', Null", "'2,5', 4"});
  EXPECT_EQ(store.run("SELECT BURSA + ID, ID * BURSA, BURSA - 1 - ID FROM BURSA"),
            (Rows{"Null|Null|Null", "6.5|10.0|-2.5"}));
  store.run("UPDATE BURSA SET ID = 4");
  EXPECT_EQ(failureOf([&] { store.run("SELECT BURSA + ID FROM BURSA"); }), -2147217913);
}

TEST_F(DialectResults, FailForACountOrPlaceThatATextCannotHave) {
  for (const char* expression :
       {"Left('abc', -1)", "Right('abc', -1)", "Mid('abc', 0)", "Mid('abc', 1, -1)", "Chr(-1)", "Chr(256)", "Asc('')",
        "Space(-1)", "String(-1, 'x')", "String(1, '')", "InStr(0, 'a', 'b')"})
    EXPECT_EQ(failureOf([&] { store.run("SELECT " + std::string(expression)); }), 5) << expression;
}

TEST_F(DialectResults, TakeATextInPlaceOfAConditionForTrue) {
  addBursa({"'a', 1", "'b', 2"});
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA = 'a' OR 'c'"), (Rows{"1", "2"}));
}

TEST_F(DialectResults, FindPaymentsOfAMonthAndYear) {
  for (const char* values : {"1, 1, 2009", "2, 1, 2010", "3, 12, 2009"})
    store.run("INSERT INTO DATSSP (TableKey, MsPjk, ThPjk) VALUES (" + std::string(values) + ")");
  EXPECT_EQ(store.run("SELECT TableKey FROM DATSSP WHERE MsPjk = '012009'"), (Rows{"1"}));
  EXPECT_EQ(store.run("SELECT TableKey FROM DATSSP WHERE MsPjk = '122009'"), (Rows{"3"}));
  EXPECT_EQ(store.run("SELECT TableKey FROM DATSSP WHERE MsPjk = 1"), (Rows{"1", "2"}));
  store.run("DELETE * FROM DATSSP WHERE MsPjk = '012009'");
  EXPECT_EQ(store.changes(), 1);
}

TEST_F(DialectResults, ReadANumberDirectlyFollowedByAWord) {
  addBursa({"'a', 4", "'b', 5"});
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA WHERE ID = 4AND BURSA = 'a'"), (Rows{"a"}));
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA WHERE ID = 4OR ID = 5ORDER BY BURSA DESC"), (Rows{"b", "a"}));
}

TEST_F(DialectResults, ConvertWhatIsAssigned) {
  store.run("INSERT INTO Kinds VALUES (5, 1.5, '2,5', '7', '1.500,25', 'True', '31/12/2009', 'x')");
  EXPECT_EQ(store.run("SELECT * FROM Kinds"), (Rows{"5|1,5|2|7|1500.25|-1|2009-12-31|x"}));
  store.run("UPDATE Kinds SET T = D, I = D / 3, W = W + 1, N = T & '0', D = -D");
  EXPECT_EQ(store.run("SELECT T, I, W, N, D FROM Kinds"), (Rows{"1500,25|500|2010-01-01|50|-1500.25"}));
  EXPECT_EQ(store.run("SELECT W FROM Kinds WHERE W = DateValue('01/01/2010 10:00:00')"), (Rows{"2010-01-01"}));
  EXPECT_EQ(store.run("SELECT W FROM Kinds WHERE W BETWEEN #2/1/2010# AND #12/31/2009#"), (Rows{"2010-01-01"}));
  store.run("INSERT INTO Kinds (T, I, W) SELECT W, '9', '05/06/2010' FROM Kinds");
  EXPECT_EQ(store.run("SELECT T, I, W FROM Kinds WHERE I = 9"), (Rows{"01/01/2010|9|2010-06-05"}));
}

TEST_F(DialectResults, ComputeAsThePlatformDoes) {
  store.run("INSERT INTO Kinds (T, I, D, B, W) VALUES (' aBc ', 7, 2.5, True, #1/31/2009 13:45:00#)");
  const std::pair<const char*, const char*> rows[] = {
      {"7 / 2", "3.5"},
      {"7 \\ 2", "3"},
      {"-7 \\ 2", "-3"},
      {"7.6 \\ 2", "4"},
      {"7 MOD 4", "3"},
      {"1 + 2 * 3", "7"},
      {"(1 + 2) * 3", "9"},
      {"10 - 2 - 3", "5"},
      {"10 - (2 - 3)", "11"},
      {"12 / 2 / 3", "2.0"},
      {"12 / (2 * 3)", "2.0"},
      {"-2 ^ 2", "-4.0"},
      {"2 ^ 3 ^ 2", "64.0"},
      {"- -I", "7"},
      {"I = 7", "-1"},
      {"NOT I = 7", "0"},
      {"(I = 7) = True", "-1"},
      {"I > 5 AND B", "-1"},
      {"Trim(T)", "aBc"},
      {"UCase(T) & LCase(T)", " ABC  abc "},
      {"Left(T, 2) & '-' & Right(T, 2) & '-' & Right(T, 9) & '-' & Mid(T, 2, 2)", " a-c - aBc -aB"},
      {"Left(T, 1.5) & '|' & Right(T, 0) & '|' & Mid(T, 9) & '|' & Left(T, 0)", " a|||"},
      {"Chr(65) & Chr(128) & Chr(233)", "A€é"},
      {"Asc('é') & ' ' & Asc('€uro')", "233 128"},
      {"Format(5) & Format(N) & Format(N, '0') & Format(W)", "531/01/2009 13:45:00"},
      {"I + '5'", "12.0"},
      {"Len(T)", "5"},
      {"InStr(T, 'b')", "3"},
      {"InStr(4, T, 'a')", "0"},
      {"Replace(T, 'B', 'x')", " axc "},
      {"Val('12a') + 1", "13.0"},
      {"Int(-D)", "-3.0"},
      {"Fix(-D)", "-2.0"},
      {"Round(D)", "2.0"},
      {"Round(3.5)", "4.0"},
      {"Round(2.125, 2)", "2.12"},
      {"CLng(D)", "2"},
      {"CDbl('1,5') * 2", "3.0"},
      {"CStr(D)", "2,5"},
      {"CStr(W)", "31/01/2009 13:45:00"},
      {"Format(W, 'dd/mm/yyyy')", "31/01/2009"},
      {"Format(D, '0.00')", "2,50"},
      {"Year(W) * 10000 + Month(W) * 100 + Day(W)", "20090131"},
      {"DateValue(W)", "2009-01-31"},
      {"DateSerial(2009, 13, 0)", "2009-12-31"},
      {"W + 1", "2009-02-01 13:45:00"},
      {"DateValue(W) - #1/1/2009#", "30.0"},
      {"IIf(B, 'ja', 'nee')", "ja"},
      {"IIf(I > 100, 1, 2)", "2"},
      {"IsNull(N)", "-1"},
      {"IsNumeric('1,5')", "-1"},
      {"IsNumeric('1,5') = True", "-1"},
      {"IsNumeric('x')", "0"},
      {"IsNumeric(N)", "0"},
      {"IsDate('31/12/2009')", "-1"},
      {"IsDate('31/02/2009')", "0"},
      {"IsDate(W)", "-1"},
      {"IsDate(5)", "0"},
      {"IsDate(N)", "0"},
      {"CBool('True')", "-1"},
      {"CBool(0)", "0"},
      {"CBool(I) = True", "-1"},
      {"CByte(254.5)", "254"},
      {"'[' & Space(3) & ']'", "[   ]"},
      {"String(3, 'xy') & String(0, 'x')", "xxx"},
      {"String(2, 'é')", "éé"},
      {"Hour(W) * 10000 + Minute(W) * 100 + Second(W)", "134500"},
      // 31 January 2009 was a Saturday.
      {"Weekday(W)", "7"},
      {"DateAdd('m', 1, W)", "2009-02-28 13:45:00"},
      {"DateDiff('d', #12/31/2008#, W)", "31"},
      {"DatePart('ww', W)", "5"},
      {"'it''s'", "it's"},
      {"(SELECT MAX(I) FROM Kinds)", "7"},
  };
  for (const auto& [expression, value] : rows)
    EXPECT_EQ(store.run("SELECT " + std::string(expression) + " FROM Kinds"), (Rows{value})) << expression;
}

TEST_F(DialectResults, GiveTheFirstAndTheLastRowOfAGroup) {
  addBursa({"'b', 3", "'a', 1", "'b', 2", "'a', Null"});
  EXPECT_EQ(store.run("SELECT First(ID), Last(ID), First(BURSA), Last(BURSA) FROM BURSA"), (Rows{"3|Null|b|a"}));
  EXPECT_EQ(store.run("SELECT BURSA, First(ID), Last(ID) FROM BURSA GROUP BY BURSA"), (Rows{"a|1|Null", "b|3|2"}));
  EXPECT_EQ(store.run("SELECT First(ID) + 1 FROM BURSA WHERE BURSA = 'b'"), (Rows{"4"}));
  EXPECT_EQ(store.run("SELECT First(ID), Last(BURSA) FROM BURSA WHERE ID > 5"), (Rows{"Null|Null"}));
  EXPECT_EQ(store.run("SELECT Last(ID) FROM BURSA WHERE ID > 5 GROUP BY BURSA"), Rows{});
}

TEST_F(DialectResults, TakeOneRowAtMostOfAQueryThatStandsForAValue) {
  addBursa({"'a', 1", "'b', 2", "'c', 2"});
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA WHERE ID = (SELECT ID FROM BURSA WHERE BURSA = 'A')"), (Rows{"a"}));
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA WHERE ID = (SELECT ID FROM BURSA WHERE BURSA = 'x')"), Rows{});
  EXPECT_EQ(store.run("SELECT (SELECT b.BURSA FROM BURSA AS b WHERE b.ID = a.ID) FROM BURSA AS a WHERE ID = 1"),
            (Rows{"a"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE 'A' = (SELECT BURSA FROM BURSA WHERE ID = 1)"),
            (Rows{"1", "2", "2"}));
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA WHERE ID = (SELECT DISTINCT ID FROM BURSA WHERE ID = 2)"),
            (Rows{"b", "c"}));
  for (const char* several : {"SELECT ID FROM BURSA WHERE BURSA = (SELECT BURSA FROM BURSA WHERE ID = 2)",
                              "SELECT (SELECT b.BURSA FROM BURSA AS b WHERE b.ID = a.ID) FROM BURSA AS a",
                              "SELECT (SELECT COUNT(*) FROM BURSA GROUP BY BURSA) FROM BURSA",
                              "UPDATE BURSA SET ID = (SELECT ID FROM BURSA)"}) {
    EXPECT_EQ(descriptionOf([&] { store.run(several); }),
              "[Microsoft][ODBC Microsoft Access Driver] At most one record can be returned by this subquery.")
        << several;
  }
}

TEST_F(DialectResults, InsertWhatAStarStandsForByName) {
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, 1, 2, 'n', 'text')");
  store.run("INSERT INTO DS_FORM_INDUK (KD_FORM) VALUES ('before')");
  const std::string columns = "SELECT NOBUKTI, KD_FORM, TH_PAJAK FROM DS_FORM_LAMPIRAN";
  store.run("INSERT INTO DS_FORM_INDUK SELECT * FROM (" + columns + ")");
  EXPECT_EQ(store.run("SELECT KD_FORM, TH_PAJAK, NOBUKTI, NPWP FROM DS_FORM_INDUK"),
            (Rows{"before|Null|Null|Null", "D113206|2009|n|Null"}));
  store.run("INSERT INTO DS_FORM_LAMPIRAN SELECT * FROM DS_FORM_LAMPIRAN");
  EXPECT_EQ(store.run("SELECT KD_FORM, DAT_FORM FROM DS_FORM_LAMPIRAN"), (Rows{"D113206|text", "D113206|text"}));
}

TEST_F(DialectResults, TakeTodayFromTheClock) {
  setToday(Date::fromYmd(2009, 2, 1));
  EXPECT_EQ(store.run("SELECT Date()"), (Rows{"2009-02-01"}));
  setToday(std::nullopt);
}

TEST_F(DialectResults, JoinTables) {
  addBursa({"'a', 1", "'b', 2"});
  for (const char* values : {"'k1', 'A', 1, 0", "'k2', 'c', 1, 0"})
    store.run("INSERT INTO JENIS_KOMODITI VALUES (" + std::string(values) + ")");
  const std::string on = " JENIS_KOMODITI AS k ON (b.ID = k.PASAL) AND (b.BURSA = k.NAMA_KOMODITI)";
  EXPECT_EQ(store.run("SELECT BURSA, KODE_KOMODITI FROM BURSA AS b INNER JOIN" + on), (Rows{"a|k1"}));
  EXPECT_EQ(store.run("SELECT BURSA, KODE_KOMODITI FROM BURSA AS b LEFT JOIN" + on), (Rows{"a|k1", "b|Null"}));
  EXPECT_EQ(store.run("SELECT BURSA, KODE_KOMODITI FROM BURSA AS b RIGHT JOIN" + on), (Rows{"a|k1", "Null|k2"}));
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA, JENIS_KOMODITI WHERE ID = PASAL"), (Rows{"a", "a"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE ID NOT IN (SELECT PASAL FROM JENIS_KOMODITI)"), (Rows{"2"}));
  EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE EXISTS (SELECT * FROM JENIS_KOMODITI WHERE NAMA_KOMODITI = BURSA)"),
            (Rows{"1"}));
}

TEST_F(DialectResults, KeepTheOrderOfEachPartOfAUnionAll) {
  addBursa({"'b', 1", "'a', 2"});
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA ORDER BY BURSA UNION ALL SELECT BURSA FROM BURSA ORDER BY BURSA DESC"),
            (Rows{"a", "b", "b", "a"}));
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA UNION ALL SELECT BURSA FROM BURSA ORDER BY BURSA"),
            (Rows{"a", "a", "b", "b"}));
  EXPECT_EQ(store.run("SELECT BURSA FROM BURSA UNION ALL SELECT TOP 1 BURSA FROM BURSA ORDER BY ID DESC"),
            (Rows{"b", "a", "a"}));
  EXPECT_EQ(store.run("SELECT COUNT(*) FROM (SELECT ID FROM BURSA UNION ALL SELECT TOP 1 ID FROM BURSA ORDER BY ID)"),
            (Rows{"3"}));
}

TEST_F(DialectResults, KeepTheRowsThatTieWithTheLastOfTheTop) {
  addBursa({"'a', 3", "'b', 1", "'c', 2", "'d', 2", "'e', 5"});
  EXPECT_EQ(store.run("SELECT TOP 2 BURSA FROM BURSA ORDER BY ID"), (Rows{"b", "c", "d"}));
  EXPECT_EQ(store.run("SELECT TOP 1 BURSA, ID FROM BURSA ORDER BY ID DESC"), (Rows{"e|5"}));
  EXPECT_EQ(store.run("SELECT TOP 2 WITH TIES BURSA FROM BURSA ORDER BY ID"), (Rows{"b", "c", "d"}));
  EXPECT_EQ(store.run("SELECT TOP 3 * FROM BURSA").size(), 3U);
  // A share of 20 percent of five rows is one row, of 21 percent two.
  EXPECT_EQ(store.run("SELECT TOP 20 PERCENT ID FROM BURSA ORDER BY ID DESC"), (Rows{"5"}));
  EXPECT_EQ(store.run("SELECT TOP 21 PERCENT ID FROM BURSA ORDER BY ID DESC"), (Rows{"5", "3"}));
  EXPECT_EQ(store.run("SELECT COUNT(*) FROM (SELECT TOP 2 ID FROM BURSA ORDER BY ID)"), (Rows{"3"}));
}

// The text that the dialect writes for one group must say the same as grouping all rows does.
TEST_F(DialectResults, GiveTheLargestOfOneGroupAsGroupingAllRowsWould) {
  std::mt19937 random(1132060);
  constexpr const char* forms[] = {"'D113206'", "'d113206'", "'DSewaTnhBgn'", "Null"};
  for (int round = 0; round < 200; ++round) {
    store.run("DELETE * FROM DS_FORM_LAMPIRAN");
    for (std::size_t row = random() % 8; row > 0; --row) {
      const std::string seq = random() % 3 == 0 ? "Null" : std::to_string(random() % 100);
      const std::string month = std::to_string(random() % 2);
      store.run("INSERT INTO DS_FORM_LAMPIRAN (KD_FORM, MS_PAJAK, SEQ) VALUES (" + std::string(forms[random() % 4]) +
                "," + month + "," + seq + ")");
    }
    for (const std::string function : {"MAX", "MIN"}) {
      const std::string text =
          "SELECT " + function + "(SEQ) FROM DS_FORM_LAMPIRAN WHERE MS_PAJAK = 1 GROUP BY KD_FORM HAVING (KD_FORM = ";
      ASSERT_EQ(store.run(text + "'D113206')"), store.runNative(text + "'D113206')")) << function << " " << round;
      ASSERT_EQ(store.run(text + "'é')"), Rows{});
    }
  }
}

TEST_F(DialectResults, AnswerTheLargestOfOneGroupFromAnIndex) {
  store.runNative("CREATE INDEX i ON DS_FORM_LAMPIRAN (MS_PAJAK, KD_FORM, SEQ)");
  const std::string plan =
      store.plan("SELECT MAX(SEQ) FROM DS_FORM_LAMPIRAN WHERE MS_PAJAK = 1 GROUP BY KD_FORM HAVING (KD_FORM = 'x')");
  EXPECT_EQ(plan, "SEARCH DS_FORM_LAMPIRAN USING COVERING INDEX i (MS_PAJAK=? AND KD_FORM=?)\n");
}

struct NestingRow {
  std::string_view before;
  std::string_view inside;
  std::string_view after;
};

// What the dialect accepts fits the engine's own stack, however deep it is nested; what is deeper is refused in time.
TEST_F(DialectResults, StandEveryDepthThatTheDialectAccepts) {
  constexpr NestingRow rows[] = {
      {"1 - (", "ID", ")"},
      {"-(", "ID", ")"},
      {"-", "ID", ""},
      {"Abs(", "ID", ")"},
      {"1 + Abs(2 * (", "ID", "))"},
      {"IIf(ID = 1, 2, ", "ID", ")"},
      {"(ID = 1) - (", "ID", ")"},
      {"(SELECT MAX(ID) FROM BURSA WHERE ID = ", "1", ")"},
      {"(SELECT ID FROM BURSA WHERE ID = ", "1", ")"},
  };
  for (const NestingRow& row : rows) {
    std::string expression(row.inside);
    std::size_t accepted = 0;
    for (std::size_t depth = 1; depth < 90; ++depth) {
      expression = std::string(row.before) + expression + std::string(row.after);
      const std::string statement =
          "SELECT ID FROM BURSA WHERE ID IN (SELECT ID FROM (SELECT ID FROM BURSA WHERE ID = " + expression + "))";
      try {
        store.run(statement);
        ASSERT_EQ(++accepted, depth) << statement;
      } catch (const RunTimeError& error) {
        ASSERT_EQ(error.description(), "[Microsoft][ODBC Microsoft Access Driver] Query is too complex.");
      }
    }
    EXPECT_GE(accepted, 5U) << row.before;
  }
}

}  // namespace
}  // namespace tarvola::ado::sql
