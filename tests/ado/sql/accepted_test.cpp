#include <gtest/gtest.h>

#include <span>

#include "tarvola/ado/sql/compile.h"
#include "tests/ado/sql/tables.h"

namespace tarvola::ado::sql {
namespace {

Compiled compiled(std::string_view statement) { return compile(statement, TestTables(), {}); }

/// The engine's text, and behind it the number of each literal that is bound; parts with a line between them.
std::string engineTextOf(std::string_view statement) {
  std::string text;
  for (const EngineText& part : compiled(statement).parts) {
    if (!text.empty()) text += "\n";
    text += part.text;
    for (const Parameter& parameter : part.parameters) text += " " + std::to_string(parameter.literal);
  }
  return text;
}

std::string columnNamesOf(std::string_view statement) {
  const Compiled result = compiled(statement);
  std::string names;
  for (std::size_t place = 0; place < result.columns->count(); ++place)
    names += (place == 0 ? "" : " ") + (*result.columns)[place].name;
  return names;
}

struct AcceptedRow {
  std::string_view dialect;
  std::string_view engine;
};

void expectAll(std::span<const AcceptedRow> rows) {
  for (const AcceptedRow& row : rows) EXPECT_EQ(engineTextOf(row.dialect), row.engine) << row.dialect;
}

TEST(AcceptedDialect, NamesTablesAndColumnsAsTheStoreDoes) {
  constexpr AcceptedRow rows[] = {
      {"select bursa from bursa", R"(SELECT "BURSA", rowid FROM "BURSA")"},
      {"SELECT * FROM BURSA;", R"(SELECT "BURSA", "ID", rowid FROM "BURSA")"},
      {"SELECT [BURSA].[ID], `ID`, \"id\" FROM [BURSA]", R"(SELECT "ID", "ID", "ID", rowid FROM "BURSA")"},
      {"SELECT b.ID FROM BURSA AS b", R"(SELECT "ID", rowid FROM "BURSA" AS "b")"},
      {"SELECT b.* FROM BURSA b", R"(SELECT "BURSA", "ID", rowid FROM "BURSA" AS "b")"},
      {"SELECT [Second Column] FROM [other table]", R"(SELECT "Second Column", rowid FROM "Other Table")"},
      {"SELECT 5", "SELECT ? 0"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, BindsEveryLiteral) {
  constexpr AcceptedRow rows[] = {
      {"SELECT ID FROM BURSA WHERE BURSA = 'a' AND ID = 4AND ID <> 5OR ID > .5",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "BURSA" = ? AND "ID" = ? AND "ID" <> ? OR "ID" > ? 0 1 2 3)"},
      {"SELECT ID FROM BURSA WHERE ID = 0ORDER BY ID ASC",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "ID" = ? ORDER BY "ID" 0)"},
      {"SELECT W FROM Kinds WHERE W > #1/31/2009# AND W < {d '2010-01-31'}",
       R"(SELECT "W", rowid FROM "Kinds" WHERE "W" > ? AND "W" < ? 0 1)"},
      {"SELECT ID FROM BURSA WHERE ((ID = 1) AND (ID = 2 OR (ID = 3)))",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "ID" = ? AND ("ID" = ? OR "ID" = ?) 0 1 2)"},
      {"SELECT ID FROM BURSA WHERE NOT ID = 1 AND NOT (ID = 2 OR ID = 3)",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE NOT "ID" = ? AND NOT ("ID" = ? OR "ID" = ?) 0 1 2)"},
      {"SELECT ID FROM BURSA WHERE BURSA IN ('a','b') AND ID NOT IN (1, 2)",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "BURSA" IN (?, ?) AND "ID" NOT IN (?, ?) 0 1 2 3)"},
      {"SELECT ID FROM BURSA WHERE BURSA IS NULL OR ID IS NOT NULL OR ID = NULL",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "BURSA" IS NULL OR "ID" IS NOT NULL OR "ID" = NULL)"},
      {"SELECT ID FROM BURSA WHERE BURSA LIKE '%a%' AND BURSA NOT LIKE 'b_'",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "BURSA" GLOB ? AND "BURSA" NOT GLOB ? 0 1)"},
      // The bounds of a BETWEEN may stand in either order.
      {"SELECT ID FROM BURSA WHERE ID BETWEEN 5 AND 1",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "ID" BETWEEN min(?, ?) AND max(?, ?) 0 1 0 1)"},
      {"SELECT ID FROM BURSA WHERE BURSA = 'a' OR 'b'",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "BURSA" = ? OR ? IS NOT NULL 0 1)"},
      {"SELECT T FROM Kinds WHERE B AND NOT B AND B = True",
       R"(SELECT "T", rowid FROM "Kinds" WHERE "B" AND NOT "B" AND "B" = -1)"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, ComputesAsTheDialectDoes) {
  constexpr AcceptedRow rows[] = {
      {"SELECT 1 + 2 * 3 - (4 - 5)", "SELECT ? + ? * ? - (? - ?) 0 1 2 3 4"},
      {"SELECT (1 + 2) * 3", "SELECT (? + ?) * ? 0 1 2"},
      {"SELECT 7 / 2", "SELECT ? * 1.0 / ? 0 1"},
      {"SELECT 7 \\ 2, 7 MOD 2", "SELECT ? / ?, ? % ? 0 1 2 3"},
      {"SELECT D \\ I FROM Kinds", R"(SELECT tv_clng("D") / "I", rowid FROM "Kinds")"},
      {"SELECT -2 ^ 2", "SELECT -(tv_power(?, ?)) 0 1"},
      // Two signs in a row would begin a comment of the engine.
      {"SELECT - -I, --5, 1 - -5 FROM Kinds", R"(SELECT -(-"I"), -(-?), ? - -?, rowid FROM "Kinds" 0 1 2)"},
      {"SELECT -(I = 1) FROM Kinds", R"(SELECT -(-("I" = ?)), rowid FROM "Kinds" 0)"},
      {"SELECT I = 1, NOT B FROM Kinds", R"(SELECT -("I" = ?), -(NOT "B"), rowid FROM "Kinds" 0)"},
      {"SELECT T + L, T & I FROM Kinds",
       R"(SELECT "T" || "L", coalesce("T", '') || coalesce(tv_cstr("I"), ''), rowid FROM "Kinds")"},
      {"SELECT W + 30, W - W FROM Kinds",
       R"(SELECT tv_date(tv_serial("W") + ?), tv_serial("W") - tv_serial("W"), rowid FROM "Kinds" 0)"},
      // A text is read as a number only where no other operand is Null.
      {"SELECT 7 + '5', T + 5 FROM Kinds", R"(SELECT ? + ?, tv_cdbl("T") + ?, rowid FROM "Kinds" 0 1 2)"},
      {"SELECT T * I - 1 FROM Kinds",
       R"(SELECT CASE WHEN "I" IS NOT NULL THEN tv_cdbl("T") END * "I" - ?, rowid FROM "Kinds" 0)"},
      {"SELECT Left(T, 2), RIGHT(T, 3), Mid$(T, 2), Len(T) FROM Kinds",
       R"(SELECT substr("T", 1, tv_count(?)), substr("T", max(length("T") - tv_count(?) + 1, 1)), )"
       R"(substr("T", tv_position(?)), length("T"), rowid )"
       R"(FROM "Kinds" 0 1 2)"},
      {"SELECT IIf(I > 5, 'a', 'b') FROM Kinds",
       R"(SELECT CASE WHEN "I" > ? THEN ? ELSE ? END, rowid FROM "Kinds" 0 1 2)"},
      {"SELECT I FROM Kinds WHERE W = DateValue('31/12/2009') AND W = CDate('31/12/2009')",
       R"(SELECT "I", rowid FROM "Kinds" WHERE "W" = ? AND "W" = ? 0 1)"},
      {"SELECT DateValue(W), DateValue(T) FROM Kinds",
       R"(SELECT substr("W", 1, 10), substr(tv_cdate("T"), 1, 10), rowid FROM "Kinds")"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, ConvertsAComputedValueToTheWidthOfItsColumnWhereItCouldBeWider) {
  constexpr AcceptedRow rows[] = {
      {"UPDATE Kinds SET I = N, N = I, I = I", R"(UPDATE "Kinds" SET "I" = tv_integer("N"), "N" = "I", "I" = "I")"},
      {"UPDATE Kinds SET I = D, N = D + 1, I = B, N = T",
       R"(UPDATE "Kinds" SET "I" = tv_integer("D"), "N" = tv_long("D" + ?), "I" = "B", "N" = tv_long("T") 0)"},
      {"UPDATE Kinds SET I = W, N = W, D = W",
       R"(UPDATE "Kinds" SET "I" = tv_dateinteger("W"), "N" = tv_datelong("W"), "D" = tv_serial("W"))"},
      {"INSERT INTO Kinds (I, N) SELECT N, I FROM Kinds",
       R"(INSERT INTO "Kinds" ("I", "N") SELECT tv_integer("N"), "I" FROM "Kinds")"},
      {"UPDATE Kinds SET I = NULL, N = I + NULL", R"(UPDATE "Kinds" SET "I" = NULL, "N" = NULL)"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, TakesArithmeticWithANullForNull) {
  constexpr AcceptedRow rows[] = {
      {"SELECT T + NULL, NULL + T, T + NULL + L FROM Kinds", R"(SELECT NULL, NULL, NULL, rowid FROM "Kinds")"},
      {"SELECT I + NULL, D * NULL, T - NULL, W + NULL FROM Kinds",
       R"(SELECT NULL, NULL, NULL, NULL, rowid FROM "Kinds")"},
      {"SELECT T \\ NULL, T MOD NULL, T ^ NULL, (T / NULL) * 2 FROM Kinds",
       R"(SELECT NULL, NULL, NULL, NULL, rowid FROM "Kinds")"},
      // Joining takes it for an empty text, and the three truth values have rules of their own.
      {"SELECT T & NULL FROM Kinds", R"(SELECT coalesce("T", '') || coalesce(NULL, ''), rowid FROM "Kinds")"},
      {"SELECT I FROM Kinds WHERE B OR NULL", R"(SELECT "I", rowid FROM "Kinds" WHERE "B" OR NULL)"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, ComparesTextsWithoutRegardToCase) {
  constexpr AcceptedRow rows[] = {
      // A column brings the rule with it, a computed text does not.
      {"SELECT ID FROM BURSA WHERE Trim(BURSA) = 'a'",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE trim("BURSA") COLLATE NOCASE = ? 0)"},
      {"SELECT ID FROM BURSA WHERE Trim(BURSA) IN ('a') AND 'a' = 'A'",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE trim("BURSA") COLLATE NOCASE IN (?) AND ? COLLATE NOCASE = ? 0 1 2)"},
      {"SELECT ID FROM BURSA WHERE BURSA BETWEEN 'a' AND 'b'",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "BURSA" BETWEEN min(? COLLATE NOCASE, ?) AND )"
       R"(max(? COLLATE NOCASE, ?) 0 1 0 1)"},
      {"SELECT DISTINCT Trim(BURSA) FROM BURSA ORDER BY Trim(BURSA)",
       R"(SELECT DISTINCT trim("BURSA") COLLATE NOCASE FROM "BURSA" ORDER BY trim("BURSA") COLLATE NOCASE)"},
      {"SELECT MAX(Trim(BURSA)) FROM BURSA GROUP BY Trim(BURSA)",
       R"(SELECT max(trim("BURSA") COLLATE NOCASE) FROM "BURSA" GROUP BY trim("BURSA") COLLATE NOCASE)"},
      // The engine knows the case of ASCII letters only.
      {"SELECT ID FROM BURSA WHERE BURSA = 'É' AND BURSA IN ('a', 'É') AND BURSA LIKE '%É'",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE tv_fold("BURSA") = tv_fold(?) AND )"
       R"(tv_fold("BURSA") IN (tv_fold(?), tv_fold(?)) AND "BURSA" GLOB ? 0 1 2 3)"},
      {"SELECT ID FROM BURSA WHERE BURSA BETWEEN 'a' AND 'É'",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE tv_fold("BURSA") BETWEEN min(tv_fold(?), tv_fold(?)) AND )"
       R"(max(tv_fold(?), tv_fold(?)) 0 1 0 1)"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, JoinsTables) {
  constexpr AcceptedRow rows[] = {
      {"SELECT a.ID FROM BURSA a, JENIS_KOMODITI b WHERE a.ID = b.PASAL",
       R"(SELECT "a"."ID" FROM "BURSA" AS "a", "JENIS_KOMODITI" AS "b" WHERE "a"."ID" = "b"."PASAL")"},
      {"SELECT ID, KODE_FORM FROM BURSA INNER JOIN SETTING_TARIF_PPH ON (ID = PASAL) AND (BURSA = KODE_FORM)",
       R"(SELECT "BURSA"."ID", "SETTING_TARIF_PPH"."KODE_FORM" FROM "BURSA" INNER JOIN "SETTING_TARIF_PPH" ON )"
       R"("BURSA"."ID" = "SETTING_TARIF_PPH"."PASAL" AND "BURSA"."BURSA" = "SETTING_TARIF_PPH"."KODE_FORM")"},
      {"SELECT a.ID FROM (BURSA a LEFT JOIN BURSA b ON a.ID = b.ID) RIGHT OUTER JOIN BURSA c ON b.ID = c.ID",
       R"(SELECT "a"."ID" FROM "BURSA" AS "a" LEFT JOIN "BURSA" AS "b" ON "a"."ID" = "b"."ID" )"
       R"(RIGHT JOIN "BURSA" AS "c" ON "b"."ID" = "c"."ID")"},
      {"SELECT a.ID FROM BURSA a INNER JOIN (BURSA b INNER JOIN BURSA c ON b.ID = c.ID) ON a.ID = b.ID",
       R"(SELECT "a"."ID" FROM "BURSA" AS "a" INNER JOIN ("BURSA" AS "b" INNER JOIN "BURSA" AS "c" ON )"
       R"("b"."ID" = "c"."ID") ON "a"."ID" = "b"."ID")"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, NestsQueries) {
  constexpr AcceptedRow rows[] = {
      {"SELECT COUNT(J) as N FROM ( SELECT DISTINCT(NPWP) as J FROM D113210 WHERE MS_PAJAK = 1AND JENIS='DN') ; ",
       R"(SELECT count("J") FROM (SELECT DISTINCT "D113210"."NPWP" AS "J" FROM "D113210" WHERE )"
       R"("D113210"."MS_PAJAK" = ? AND "D113210"."JENIS" = ?) AS "tv_1" 0 1)"},
      {"SELECT q.ID FROM (SELECT ID FROM BURSA) AS q", R"(SELECT "ID" FROM (SELECT "BURSA"."ID" FROM "BURSA") AS "q")"},
      // The old form, in brackets.
      {"SELECT q.ID FROM [SELECT ID FROM BURSA]. AS q",
       R"(SELECT "ID" FROM (SELECT "BURSA"."ID" FROM "BURSA") AS "q")"},
      {"SELECT ID FROM [ select ID from BURSA where BURSA = 'a' or ID = 5]. WHERE ID = 6",
       R"(SELECT "ID" FROM (SELECT "BURSA"."ID" FROM "BURSA" WHERE "BURSA"."BURSA" = ? OR "BURSA"."ID" = ?) )"
       R"(AS "tv_1" WHERE "ID" = ? 0 1 2)"},
      {"SELECT ID FROM BURSA WHERE ID IN (SELECT PASAL FROM JENIS_KOMODITI WHERE NAMA_KOMODITI = BURSA)",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE "ID" IN (SELECT "JENIS_KOMODITI"."PASAL" FROM "JENIS_KOMODITI" WHERE )"
       R"("JENIS_KOMODITI"."NAMA_KOMODITI" = "BURSA"."BURSA"))"},
      {"SELECT ID FROM BURSA WHERE EXISTS (SELECT * FROM PROFILE) AND ID = (SELECT MAX(ID) FROM BURSA)",
       R"(SELECT "ID", rowid FROM "BURSA" WHERE EXISTS (SELECT "PROFILE"."NPWP", "PROFILE"."NAMA_WP_PARTNER", )"
       R"("PROFILE"."ALAMAT_WP_PARTNER", "PROFILE"."NAMA_WP_PROFILE", "PROFILE"."Alamat" FROM "PROFILE") AND )"
       R"("ID" = (SELECT max("BURSA"."ID") FROM "BURSA"))"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, RunsThePartsOfAUnionAllOneAfterAnother) {
  constexpr AcceptedRow rows[] = {
      {"SELECT NPWP FROM DS_FORM_INDUK UNION ALL SELECT NPWP FROM PROFILE",
       "SELECT \"NPWP\" FROM \"DS_FORM_INDUK\"\nSELECT \"NPWP\" FROM \"PROFILE\""},
      {"SELECT NPWP FROM DS_FORM_INDUK WHERE MS_PAJAK = 1 ORDER BY JENIS_DOKUMEN ASC UNION ALL "
       "SELECT NPWP FROM DAT_SSP_PPh22 WHERE MS_PAJAK = 2 ORDER BY JENIS_DOKUMEN ASC ",
       "SELECT \"NPWP\" FROM \"DS_FORM_INDUK\" WHERE \"MS_PAJAK\" = ? ORDER BY \"JENIS_DOKUMEN\" 0\n"
       "SELECT \"NPWP\" FROM \"DAT_SSP_PPh22\" WHERE \"MS_PAJAK\" = ? ORDER BY \"JENIS_DOKUMEN\" 1"},
      // One order, behind the last part, sorts the whole.
      {"SELECT NPWP FROM DS_FORM_INDUK UNION ALL SELECT KD_FORM FROM DAT_SSP_PPh22 ORDER BY NPWP DESC",
       R"(SELECT "NPWP" FROM "DS_FORM_INDUK" UNION ALL SELECT "KD_FORM" FROM "DAT_SSP_PPh22" ORDER BY 1 DESC)"},
      {"SELECT NPWP AS n FROM DS_FORM_INDUK ORDER BY KD_FORM UNION SELECT NPWP FROM PROFILE ORDER BY n",
       R"(SELECT "NPWP" FROM "DS_FORM_INDUK" UNION SELECT "NPWP" FROM "PROFILE" ORDER BY 1)"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, AsksForTheLargestOfOneGroupByIndex) {
  constexpr AcceptedRow rows[] = {
      {"SELECT MAX(SEQ) AS m FROM DS_FORM_LAMPIRAN WHERE MS_PAJAK = 1 GROUP BY KD_FORM HAVING (KD_FORM='D113206')",
       R"(SELECT "SEQ" FROM "DS_FORM_LAMPIRAN" WHERE "MS_PAJAK" = ? AND "KD_FORM" = ? ORDER BY "SEQ" DESC LIMIT 1 0 1)"},
      {"SELECT MIN(SEQ) FROM DS_FORM_LAMPIRAN GROUP BY KD_FORM HAVING 'D113206' = KD_FORM",
       R"(SELECT "SEQ" FROM "DS_FORM_LAMPIRAN" WHERE ? = "KD_FORM" ORDER BY "SEQ" NULLS LAST LIMIT 1 0)"},
      {"SELECT MAX(SEQ) FROM DS_FORM_LAMPIRAN WHERE MS_PAJAK = 1 OR MS_PAJAK = 2 GROUP BY KD_FORM HAVING KD_FORM='x'",
       R"(SELECT "SEQ" FROM "DS_FORM_LAMPIRAN" WHERE ("MS_PAJAK" = ? OR "MS_PAJAK" = ?) AND "KD_FORM" = ? )"
       R"(ORDER BY "SEQ" DESC LIMIT 1 0 1 2)"},
      // Anything else is grouped as it stands.
      {"SELECT MAX(SEQ), KD_FORM FROM DS_FORM_LAMPIRAN GROUP BY KD_FORM HAVING KD_FORM='x'",
       R"(SELECT max("SEQ"), "KD_FORM" FROM "DS_FORM_LAMPIRAN" GROUP BY "KD_FORM" HAVING "KD_FORM" = ? 0)"},
      {"SELECT MAX(SEQ) FROM DS_FORM_LAMPIRAN GROUP BY KD_FORM, NOBUKTI HAVING KD_FORM='x'",
       R"(SELECT max("SEQ") FROM "DS_FORM_LAMPIRAN" GROUP BY "KD_FORM", "NOBUKTI" HAVING "KD_FORM" = ? 0)"},
      {"SELECT MAX(SEQ) FROM DS_FORM_LAMPIRAN GROUP BY KD_FORM HAVING KD_FORM <> 'x'",
       R"(SELECT max("SEQ") FROM "DS_FORM_LAMPIRAN" GROUP BY "KD_FORM" HAVING "KD_FORM" <> ? 0)"},
      {"SELECT SUM(SEQ) FROM DS_FORM_LAMPIRAN GROUP BY KD_FORM HAVING KD_FORM = 'x'",
       R"(SELECT sum("SEQ") FROM "DS_FORM_LAMPIRAN" GROUP BY "KD_FORM" HAVING "KD_FORM" = ? 0)"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, ChangesTables) {
  constexpr AcceptedRow rows[] = {
      {"DELETE * FROM BURSA", R"(DELETE FROM "BURSA")"},
      {"DELETE FROM BURSA WHERE ID = 5 ;", R"(DELETE FROM "BURSA" WHERE "ID" = ? 0)"},
      {"DELETE b.* FROM BURSA AS b WHERE b.ID = 5", R"(DELETE FROM "BURSA" AS "b" WHERE "ID" = ? 0)"},
      {" UPDATE BURSA SET BURSA='a', ID = ID + 1 WHERE   ID = 5 ;",
       R"(UPDATE "BURSA" SET "BURSA" = ?, "ID" = tv_integer("ID" + ?) WHERE "ID" = ? 0 1 2)"},
      {"UPDATE Kinds SET D = D * 2, T = T & 'x', I = T, T = D, N = NULL",
       R"(UPDATE "Kinds" SET "D" = "D" * ?, "T" = coalesce("T", '') || ?, "I" = tv_integer("T"), "T" = tv_cstr("D"), )"
       R"("N" = NULL 0 1)"},
      {"INSERT INTO BURSA VALUES ('a' , 5)", R"(INSERT INTO "BURSA" ("BURSA", "ID") VALUES (?, ?) 0 1)"},
      {"INSERT INTO BURSA(id)VALUES(-5);", R"(INSERT INTO "BURSA" ("ID") VALUES (?) 0)"},
      {"INSERT INTO BURSA (ID, BURSA) SELECT PASAL, NAMA_KOMODITI FROM JENIS_KOMODITI WHERE PASAL = 22",
       R"(INSERT INTO "BURSA" ("ID", "BURSA") SELECT "PASAL", "NAMA_KOMODITI" FROM "JENIS_KOMODITI" WHERE )"
       R"("PASAL" = ? 0)"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, ComparesThePaymentMonthWithATextOfMonthAndYear) {
  constexpr AcceptedRow rows[] = {
      {"SELECT NTPP FROM DATSSP WHERE MsPjk = '012009' AND KodePasal = 4",
       R"(SELECT "NTPP", rowid FROM "DATSSP" WHERE ("MsPjk" = ? AND "ThPjk" = ?) AND "KodePasal" = ? 0 0 1)"},
      {"SELECT NTPP FROM DATSSP WHERE NOT '012009' = MsPjk",
       R"(SELECT "NTPP", rowid FROM "DATSSP" WHERE NOT ("MsPjk" = ? AND "ThPjk" = ?) 0 0)"},
      {"SELECT NTPP FROM DATSSP WHERE MsPjk = 1", R"(SELECT "NTPP", rowid FROM "DATSSP" WHERE "MsPjk" = ? 0)"},
  };
  expectAll(rows);
}

TEST(AcceptedDialect, ConvertsWhatIsAssigned) {
  using enum Conversion;
  const Compiled result =
      compiled("INSERT INTO Kinds (T, I, D, B, W, X) VALUES ('a', '5', '1,5', 'True', '31/12/2009', 'x')");
  const Conversion fromTexts[] = {Text, TextToInteger, TextToNumber, TextToBoolean, TextToDate, Text};
  const Compiled numbers = compiled("INSERT INTO Kinds (T, I, D, B, W, X) VALUES (1, 2, 3, 4, 5, 6)");
  const Conversion fromNumbers[] = {NumberToText, NumberToInteger, Number, NumberToBoolean, NumberToDate, Number};
  for (std::size_t place = 0; place < std::size(fromTexts); ++place) {
    EXPECT_EQ(result.parts[0].parameters[place].conversion, fromTexts[place]);
    EXPECT_EQ(numbers.parts[0].parameters[place].conversion, fromNumbers[place]);
  }
  // The width of the column, for each kind of literal and for a number below zero.
  const Compiled longs = compiled("UPDATE Kinds SET N = '5', N = 5, N = -5, N = #1/1/2009#");
  const Conversion toLong[] = {TextToLong, NumberToLong, NegatedToLong, DateToLong};
  const Compiled integers = compiled("UPDATE Kinds SET I = '5', I = 5, I = -5, I = #1/1/2009#");
  const Conversion toInteger[] = {TextToInteger, NumberToInteger, NegatedToInteger, DateToInteger};
  for (std::size_t place = 0; place < std::size(toLong); ++place) {
    EXPECT_EQ(longs.parts[0].parameters[place].conversion, toLong[place]);
    EXPECT_EQ(integers.parts[0].parameters[place].conversion, toInteger[place]);
  }
  const Compiled day = compiled("INSERT INTO Kinds (W) VALUES (DateValue('31/12/2009 10:00'))");
  EXPECT_EQ(day.parts[0].parameters[0].conversion, TextToDay);
}

TEST(AcceptedDialect, NamesTheColumnsOfTheResult) {
  EXPECT_EQ(columnNamesOf("SELECT * FROM bursa"), "BURSA ID");
  EXPECT_EQ(columnNamesOf("SELECT npwp, KD_FORM AS Kode, [NIP] AS [No Induk] FROM DS_FORM_INDUK"),
            "npwp Kode No Induk");
  EXPECT_EQ(columnNamesOf("SELECT MAX(ID), ID + 1 AS a, COUNT(*) FROM BURSA GROUP BY ID + 1, ID"),
            "Expr1000 a Expr1001");
  EXPECT_EQ(columnNamesOf("SELECT a.ID, b.ID, b.BURSA FROM BURSA a, BURSA b"), "a.ID b.ID BURSA");
  EXPECT_EQ(columnNamesOf("SELECT * FROM BURSA, [Other Table]"), "BURSA ID T Second Column");
  EXPECT_EQ(columnNamesOf("SELECT a.*, b.ID FROM BURSA a, BURSA b"), "BURSA a.ID b.ID");
  EXPECT_EQ(columnNamesOf("SELECT NPWP AS n FROM PROFILE UNION ALL SELECT KD_FORM FROM DS_FORM_INDUK"), "n");
}

TEST(AcceptedDialect, KnowsTheTypesOfTheResult) {
  using enum ColumnType;
  const Compiled result =
      compiled("SELECT T, L, I, N, D, B, W, X, I = 1, T & 'x', DateValue(T), 5, 'a', D / 2, Year(W) FROM Kinds");
  const ColumnType types[] = {Text,    LongText, Integer, Long, Double, Boolean, Date,   Any,
                              Boolean, Text,     Date,    Any,  Text,   Double,  Integer};
  for (std::size_t place = 0; place < std::size(types); ++place)
    EXPECT_EQ((*result.columns)[place].type, types[place]) << place;
  const Compiled sums = compiled("SELECT COUNT(*), SUM(I), AVG(N), MAX(T), MIN(W), MAX(I) FROM Kinds");
  const ColumnType sumTypes[] = {Long, Double, Double, Text, Date, Integer};
  for (std::size_t place = 0; place < std::size(sumTypes); ++place)
    EXPECT_EQ((*sums.columns)[place].type, sumTypes[place]) << place;
  const Compiled both = compiled("SELECT T, I, I, 0 FROM Kinds UNION ALL SELECT L, D, T, I FROM Kinds");
  const ColumnType bothTypes[] = {LongText, Double, Any, Any};
  for (std::size_t place = 0; place < std::size(bothTypes); ++place)
    EXPECT_EQ((*both.columns)[place].type, bothTypes[place]) << place;
}

TEST(AcceptedDialect, KnowsTheTableThatRowsLieIn) {
  const Compiled plain = compiled("SELECT id, 0 AS Flag, BURSA AS Nama FROM bursa WHERE ID = 5");
  EXPECT_EQ(plain.base.name, "BURSA");
  EXPECT_EQ(plain.base.columns, (std::vector<std::string>{"ID", "", "BURSA"}));
  for (const std::string_view statement :
       {"SELECT DISTINCT ID FROM BURSA", "SELECT MAX(ID) FROM BURSA", "SELECT ID FROM BURSA GROUP BY ID",
        "SELECT a.ID FROM BURSA a, BURSA b", "SELECT ID FROM BURSA UNION ALL SELECT ID FROM BURSA",
        "SELECT ID FROM (SELECT ID FROM BURSA)", "SELECT 5", "DELETE * FROM BURSA"})
    EXPECT_EQ(compiled(statement).base.name, "") << statement;
}

TEST(AcceptedDialect, IsKeptByItsWholeTextWhereANumberDecidesWhatItIs) {
  EXPECT_FALSE(compiled("SELECT ID FROM BURSA ORDER BY 1").reusable);
  EXPECT_FALSE(compiled("SELECT TOP 5 ID FROM BURSA").reusable);
  EXPECT_FALSE(compiled("SELECT Left(BURSA, 2) FROM BURSA GROUP BY Left(BURSA, 2)").reusable);
  EXPECT_TRUE(compiled("SELECT ID FROM BURSA WHERE ID = 5 AND BURSA = 'x' ORDER BY ID").reusable);
}

TEST(AcceptedDialect, WritesForAnEngineWithOtherWords) {
  const EngineDialect other{.identifierQuote = '`',
                            .identityColumn = "",
                            .caseInsensitive = "",
                            .likeOperator = "LIKE",
                            .likePattern = Conversion::LikePattern,
                            .leastFunction = "least",
                            .greatestFunction = "greatest"};
  const Compiled result = compile(
      "SELECT ID FROM BURSA WHERE BURSA LIKE 'a%' AND ID BETWEEN 1 AND 2 AND Trim(BURSA) = 'x'", TestTables(), other);
  EXPECT_EQ(result.parts[0].text,
            "SELECT `ID` FROM `BURSA` WHERE `BURSA` LIKE ? AND `ID` BETWEEN least(?, ?) AND greatest(?, ?) AND "
            "trim(`BURSA`) = ?");
  EXPECT_EQ(result.parts[0].parameters[0].conversion, Conversion::LikePattern);
}

}  // namespace
}  // namespace tarvola::ado::sql
