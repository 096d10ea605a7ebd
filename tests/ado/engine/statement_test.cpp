#include <gtest/gtest.h>
#include <sqlite3.h>

#include <limits>

#include "tarvola/ado/engine/session.h"
#include "tarvola/runtime/errors.h"
#include "tests/runtime/failures.h"
#include "tests/support/engine_store.h"

namespace tarvola::ado {
namespace {

using test::connectionTextOf;
using test::EngineStore;
using test::TempFolder;

constexpr auto rowNotLocated = static_cast<std::int32_t>(ErrorNumber::RowNotLocated);

class Statements : public testing::Test {
 protected:
  RowsPtr select(const std::string& statement) { return session_->run(statement).rows; }
  std::int64_t change(const std::string& statement) { return session_->run(statement).recordsAffected; }
  Variant value(const RowsPtr& rows, std::string_view column, std::size_t row = 0) {
    return rows->cell(row, rows->columns().find(column).value()).toVariant();
  }
  /// Runs a text of the engine's own on a handle of its own, as another program would.
  void behindItsBack(const std::string& text) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(store_.path().c_str(), &other), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(other, text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(other);
    sqlite3_close(other);
  }

  EngineStore store_;
  std::shared_ptr<Session> session_ = store_.session();
};

TEST_F(Statements, GiveEachValueInItsColumnsType) {
  change(
      "INSERT INTO DATSSP (TableKey, KodePasal, NPWP, MsPjk, ThPjk, KdPmbtln, KdMAP, KdJnsStr, TglSSP, NTPP, JmlByr) "
      "VALUES (70000, 4, '013121660091000', 1, 2009, 0, '411128', '403', DateValue('31/01/2009'), "
      "'0000000000000000', 1500000)");
  const RowsPtr rows = select("SELECT * FROM DATSSP");
  ASSERT_EQ(rows->count(), 1U);
  EXPECT_EQ(value(rows, "TableKey"), Variant(std::int32_t{70'000}));
  EXPECT_EQ(value(rows, "KodePasal"), Variant(std::int16_t{4}));
  EXPECT_EQ(value(rows, "NTPP"), Variant("0000000000000000"));
  EXPECT_EQ(value(rows, "TglSSP"), Variant(Date::fromYmd(2009, 1, 31)));
  EXPECT_EQ(value(rows, "JmlByr"), Variant(1'500'000.0));
  EXPECT_EQ(value(rows, "Catatan"), Variant::null());
  ASSERT_NE(rows->base(), nullptr);
  EXPECT_EQ(rows->base()->name, "DATSSP");
}

TEST_F(Statements, GiveTheStoresDefaultsForColumnsLeftOut) {
  change("INSERT INTO DS_FORM_INDUK (NPWP, NOBUKTI) VALUES ('1', '-')");
  const RowsPtr rows = select("SELECT * FROM DS_FORM_INDUK");
  EXPECT_EQ(value(rows, "FlagNPWP"), Variant(std::int16_t{0}));
  EXPECT_EQ(value(rows, "Total_PPh4"), Variant(0.0));
  EXPECT_EQ(value(rows, "DAT_FORM"), Variant::null());
}

TEST_F(Statements, TellAnEmptyTextFromNull) {
  change("INSERT INTO PARTNER_INFO (NPWP_PARTNER, NAMA_WP_PARTNER) VALUES ('1', '')");
  const RowsPtr rows = select("SELECT * FROM PARTNER_INFO");
  EXPECT_EQ(value(rows, "NAMA_WP_PARTNER"), Variant(""));
  EXPECT_EQ(value(rows, "ALAMAT_PARTNER"), Variant::null());
}

TEST_F(Statements, GiveAValueThatDoesNotFitItsColumnAsWhatItIs) {
  behindItsBack(
      "INSERT INTO DATSSP (MsPjk, ThPjk, TableKey, JmlByr, TglSSP) "
      "VALUES ('satu', 40000, 3000000000, 'banyak', 'kemarin')");
  const RowsPtr rows = select("SELECT * FROM DATSSP");
  EXPECT_EQ(value(rows, "MsPjk"), Variant("satu"));
  EXPECT_EQ(value(rows, "ThPjk"), Variant(std::int32_t{40'000}));
  EXPECT_EQ(value(rows, "TableKey"), Variant(3e9));
  EXPECT_EQ(value(rows, "JmlByr"), Variant("banyak"));
  EXPECT_EQ(value(rows, "TglSSP"), Variant("kemarin"));
}

TEST_F(Statements, ReadADateWithATime) {
  behindItsBack("INSERT INTO DATSSP (TglSSP) VALUES ('2009-01-31 06:00:00')");
  const Variant moment = value(select("SELECT * FROM DATSSP"), "TglSSP");
  ASSERT_EQ(moment.type(), Variant::Type::Date);
  EXPECT_EQ(moment.date().serial(), Date::fromYmd(2009, 1, 31).serial() + 0.25);
}

TEST_F(Statements, GiveEachRunItsOwnValues) {
  for (int number = 1; number <= 50; ++number) {
    change("INSERT INTO BURSA VALUES ('Bursa " + std::to_string(number) + "', " + std::to_string(number) + ")");
  }
  for (int number = 50; number >= 1; --number) {
    const RowsPtr rows = select("SELECT ID FROM BURSA WHERE BURSA = 'bursa " + std::to_string(number) + "'");
    ASSERT_EQ(rows->count(), 1U);
    EXPECT_EQ(value(rows, "ID"), Variant(static_cast<std::int16_t>(number)));
  }
  EXPECT_EQ(select("SELECT ID FROM BURSA WHERE BURSA = 'none'")->count(), 0U);
}

TEST_F(Statements, KeepTheValuesOfRowsThatWereReadBefore) {
  change("INSERT INTO BURSA VALUES ('first', 1)");
  const RowsPtr before = select("SELECT * FROM BURSA WHERE ID = 1");
  change("UPDATE BURSA SET BURSA = 'second' WHERE ID = 1");
  EXPECT_EQ(value(before, "BURSA"), Variant("first"));
  EXPECT_EQ(value(select("SELECT * FROM BURSA WHERE ID = 1"), "BURSA"), Variant("second"));
}

TEST_F(Statements, CountTheRowsThatTheyChanged) {
  EXPECT_EQ(change("INSERT INTO BURSA VALUES ('a', 1)"), 1);
  EXPECT_EQ(change("INSERT INTO BURSA VALUES ('b', 2)"), 1);
  EXPECT_EQ(change("UPDATE BURSA SET ID = 7"), 2);
  EXPECT_EQ(change("DELETE * FROM BURSA WHERE ID = 8"), 0);
  EXPECT_EQ(change("DELETE * FROM BURSA"), 2);
  EXPECT_EQ(session_->run("DELETE * FROM BURSA").rows, nullptr);
}

TEST_F(Statements, KeepTheTextsThatTheyWereGiven) {
  const std::string text = "a;b \xC3\xA9 ~ % _ \" \\ 100%";
  change("INSERT INTO PARTNER_INFO (NPWP_PARTNER, NAMA_WP_PARTNER) VALUES ('000001', '" + text + "')");
  const RowsPtr rows = select("SELECT * FROM PARTNER_INFO WHERE NPWP_PARTNER = '000001'");
  ASSERT_EQ(rows->count(), 1U);
  EXPECT_EQ(value(rows, "NAMA_WP_PARTNER"), Variant(text));
  EXPECT_EQ(value(rows, "NPWP_PARTNER"), Variant("000001"));
}

TEST_F(Statements, KeepADateOfRecordingAsItWasPassed) {
  change("INSERT INTO DS_FORM_INDUK (NPWP, TGL_REKAM, TGL_UBAH) VALUES ('1', '31/01/2009', '1-2-09')");
  const RowsPtr rows = select("SELECT * FROM DS_FORM_INDUK");
  EXPECT_EQ(value(rows, "TGL_REKAM"), Variant("31/01/2009"));
  EXPECT_EQ(value(rows, "TGL_UBAH"), Variant("1-2-09"));
}

TEST_F(Statements, RunMoreShapesThanAreKept) {
  change("INSERT INTO BURSA VALUES ('a', 1)");
  for (int round = 0; round < 2; ++round) {
    for (int shape = 0; shape < 700; ++shape) {
      const RowsPtr rows = select("SELECT ID AS X" + std::to_string(shape) + " FROM BURSA WHERE ID = 1");
      ASSERT_EQ(value(rows, "X" + std::to_string(shape)), Variant(std::int16_t{1}));
    }
  }
}

TEST_F(Statements, HoldTheFileOpenForNoLongerThanTheyRun) {
  for (int number = 0; number < 100; ++number) change("INSERT INTO BURSA VALUES ('a', 1)");
  const RowsPtr rows = select("SELECT * FROM BURSA");
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(store_.path().c_str(), &other), SQLITE_OK);
  EXPECT_EQ(sqlite3_wal_checkpoint_v2(other, nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr), SQLITE_OK)
      << "an open read would make this wait";
  sqlite3_close(other);
  change("INSERT INTO BURSA VALUES ('a', 2)");
  EXPECT_EQ(rows->count(), 100U);
}

TEST_F(Statements, SeeATableThatWasMadeBehindTheirBack) {
  EXPECT_THROW(select("SELECT * FROM BARU"), RunTimeError);
  behindItsBack("CREATE TABLE BARU (A SMALLINT); INSERT INTO BARU VALUES (5)");
  EXPECT_EQ(value(select("SELECT * FROM BARU"), "A"), Variant(std::int16_t{5}));
}

TEST_F(Statements, SeeAColumnThatWasAddedBehindTheirBack) {
  change("INSERT INTO BURSA VALUES ('a', 1)");
  EXPECT_EQ(select("SELECT * FROM BURSA")->columns().count(), 2U);
  behindItsBack("ALTER TABLE BURSA ADD COLUMN KOTA TEXT DEFAULT 'Jakarta'");
  const RowsPtr rows = select("SELECT * FROM BURSA");
  ASSERT_EQ(rows->columns().count(), 3U);
  EXPECT_EQ(value(rows, "KOTA"), Variant("Jakarta"));
  EXPECT_EQ(rows->identity(0), 1);
}

TEST_F(Statements, MissATableThatWasRemovedBehindTheirBack) {
  change("INSERT INTO BURSA VALUES ('a', 1)");
  behindItsBack("DROP TABLE BURSA");
  EXPECT_EQ(failureOf([&] { change("INSERT INTO BURSA VALUES ('b', 2)"); }),
            static_cast<std::int32_t>(ErrorNumber::UnknownTable));
}

TEST_F(Statements, ReportABrokenConstraintInThePlatformsWords) {
  behindItsBack("CREATE TABLE KUNCI (A TEXT PRIMARY KEY NOT NULL, B TEXT); INSERT INTO KUNCI VALUES ('x', 'y')");
  EXPECT_EQ(failureOf([&] { change("INSERT INTO KUNCI VALUES ('x', 'z')"); }),
            static_cast<std::int32_t>(ErrorNumber::IntegrityViolation));
  EXPECT_EQ(descriptionOf([&] { change("INSERT INTO KUNCI VALUES ('x', 'z')"); }).substr(0, 100),
            "[Microsoft][ODBC Microsoft Access Driver] The changes you requested to the table were not successful");
  EXPECT_EQ(descriptionOf([&] { change("INSERT INTO KUNCI (B) VALUES ('z')"); }),
            "[Microsoft][ODBC Microsoft Access Driver] The field 'KUNCI.A' cannot contain a Null value because the "
            "Required property for this field is set to True.  Enter a value in this field.");
  EXPECT_EQ(select("SELECT * FROM KUNCI")->count(), 1U);
}

TEST_F(Statements, LeaveTheStoreAsItWasWhenTheyFail) {
  behindItsBack("CREATE TABLE KUNCI (A TEXT UNIQUE); INSERT INTO KUNCI VALUES ('x'), ('y')");
  EXPECT_THROW(change("UPDATE KUNCI SET A = 'z'"), RunTimeError);
  EXPECT_EQ(select("SELECT * FROM KUNCI WHERE A = 'x' OR A = 'y'")->count(), 2U);
}

TEST_F(Statements, FailAsTheFunctionFailsThatTheyCall) {
  change("INSERT INTO BURSA VALUES ('12,5', 1)");
  EXPECT_EQ(value(select("SELECT CDbl(BURSA) AS X FROM BURSA"), "X"), Variant(12.5));
  change("UPDATE BURSA SET BURSA = 'no number'");
  EXPECT_EQ(failureOf([&] { select("SELECT CDbl(BURSA) AS X FROM BURSA"); }),
            static_cast<std::int32_t>(ErrorNumber::CriteriaMismatch));
  EXPECT_EQ(value(select("SELECT BURSA FROM BURSA"), "BURSA"), Variant("no number")) << "the session goes on";
}

// 16 bits hold -32768 to 32767, 32 bits -2147483648 to 2147483647.
TEST_F(Statements, RefuseANumberThatIsWiderThanItsColumn) {
  const char* const overflow = "[Microsoft][ODBC Microsoft Access Driver] Numeric field overflow.";
  change("INSERT INTO DATSSP (MsPjk, TableKey) VALUES (32767, 2147483647)");
  change("UPDATE DATSSP SET MsPjk = -32768, TableKey = -2147483648");
  const RowsPtr rows = select("SELECT * FROM DATSSP");
  EXPECT_EQ(value(rows, "MsPjk"), Variant(std::int16_t{-32768}));
  EXPECT_EQ(value(rows, "TableKey"), Variant(std::numeric_limits<std::int32_t>::min()));
  for (const char* const wide : {
           "INSERT INTO DATSSP (MsPjk) VALUES (32768)",
           "INSERT INTO DATSSP (MsPjk) VALUES (-32769)",
           "INSERT INTO DATSSP (MsPjk) VALUES ('40.000')",
           "INSERT INTO DATSSP (MsPjk) VALUES (#1/1/2009#)",
           "INSERT INTO DATSSP (MsPjk) SELECT TableKey FROM DATSSP",
           "INSERT INTO DATSSP (MsPjk) SELECT 40000 FROM DATSSP",
           "INSERT INTO DATSSP (TableKey) VALUES (2147483648)",
           "INSERT INTO DATSSP (TableKey) VALUES ('-2147483649')",
           "UPDATE DATSSP SET MsPjk = 40000",
           "UPDATE DATSSP SET MsPjk = MsPjk - 1",
           "UPDATE DATSSP SET TableKey = TableKey - 1",
           "UPDATE DATSSP SET MsPjk = IIf(MsPjk < 0, 40000, 1)",
           "UPDATE DATSSP SET MsPjk = '4' & '0000'",
       }) {
    EXPECT_EQ(failureOf([&] { change(wide); }), static_cast<std::int32_t>(ErrorNumber::Unspecified)) << wide;
    EXPECT_EQ(descriptionOf([&] { change(wide); }), overflow) << wide;
  }
  const RowsPtr after = select("SELECT * FROM DATSSP");
  ASSERT_EQ(after->count(), 1U);
  EXPECT_EQ(value(after, "MsPjk"), Variant(std::int16_t{-32768}));
  // In a comparison no column is filled, so that any number may stand there.
  EXPECT_EQ(select("SELECT * FROM DATSSP WHERE MsPjk < 40000")->count(), 1U);
}

// The first row is changed by the time the second one fails, and is changed back; a sum that was asked for before does
// not count it.
TEST_F(Statements, ChangeNothingWhenALaterRowIsTooWide) {
  change("INSERT INTO DS_FORM_INDUK (NOBUKTI, MS_PAJAK, Total_Bruto) VALUES ('1', 3, 100)");
  change("INSERT INTO DS_FORM_INDUK (NOBUKTI, MS_PAJAK, Total_Bruto) VALUES ('2', 3, 10)");
  const std::string sum = "SELECT SUM(Total_Bruto) AS S, COUNT(*) AS N FROM DS_FORM_INDUK WHERE MS_PAJAK = 3";
  ASSERT_EQ(value(select(sum), "S"), Variant(110.0));
  EXPECT_THROW(change("UPDATE DS_FORM_INDUK SET Total_Bruto = 7, TH_PAJAK = IIf(NOBUKTI = '2', 40000, 2009)"),
               RunTimeError);
  EXPECT_EQ(value(select(sum), "S"), Variant(110.0));
  EXPECT_EQ(value(select(sum), "N"), Variant(std::int32_t{2}));
  EXPECT_EQ(value(select("SELECT * FROM DS_FORM_INDUK WHERE NOBUKTI = '1'"), "TH_PAJAK"), Variant::null());
}

TEST_F(Statements, RefuseATextThatIsLongerThanItsColumn) {
  const char* const tooSmall =
      "[Microsoft][ODBC Microsoft Access Driver] The field is too small to accept the amount of data you attempted to "
      "add.  Try inserting or pasting less data.";
  behindItsBack("CREATE TABLE SEMPIT (KODE VARCHAR(3), NAMA VARCHAR(9), N SMALLINT)");
  change("INSERT INTO SEMPIT VALUES ('a\xC3\xA9z', 'Jakarta', 7)");
  change("INSERT INTO SEMPIT (KODE, NAMA) VALUES (123, Null)");
  change("UPDATE SEMPIT SET KODE = Left(NAMA, 3) WHERE N = 7");
  for (const char* const wide : {
           "INSERT INTO SEMPIT VALUES ('abcd', '', 0)",
           "INSERT INTO SEMPIT (KODE) VALUES (1234)",
           "INSERT INTO SEMPIT (KODE) VALUES (#1/1/2009#)",
           "INSERT INTO SEMPIT (KODE) SELECT NAMA FROM SEMPIT",
           "INSERT INTO SEMPIT (KODE) SELECT 'x' & NAMA FROM SEMPIT",
           "UPDATE SEMPIT SET KODE = 'abcd'",
           "UPDATE SEMPIT SET KODE = NAMA",
           "UPDATE SEMPIT SET KODE = N * 1000",
       }) {
    EXPECT_EQ(failureOf([&] { change(wide); }), static_cast<std::int32_t>(ErrorNumber::Unspecified)) << wide;
    EXPECT_EQ(descriptionOf([&] { change(wide); }), tooSmall) << wide;
  }
  const RowsPtr rows = select("SELECT * FROM SEMPIT");
  ASSERT_EQ(rows->count(), 2U);
  EXPECT_EQ(value(rows, "KODE", 0), Variant("Jak"));
  EXPECT_EQ(value(rows, "KODE", 1), Variant("123"));
}

TEST_F(Statements, PutThePartsOfAUnionBehindEachOther) {
  for (const char* values : {"('c', 3)", "('a', 1)", "('b', 2)"})
    change(std::string("INSERT INTO BURSA VALUES ") + values);
  const RowsPtr rows = select(
      "SELECT BURSA, ID FROM BURSA WHERE ID > 1 ORDER BY ID ASC UNION ALL SELECT BURSA, 0 AS ID FROM BURSA WHERE ID = "
      "1");
  ASSERT_EQ(rows->count(), 3U);
  EXPECT_EQ(value(rows, "BURSA", 0), Variant("b"));
  EXPECT_EQ(value(rows, "BURSA", 1), Variant("c"));
  EXPECT_EQ(value(rows, "BURSA", 2), Variant("a"));
  EXPECT_EQ(rows->base(), nullptr);
}

class RowsByIdentity : public Statements {
 protected:
  const BaseTable bursa_{.name = "BURSA", .columns = {"BURSA", "ID"}};
  const BaseTable induk_{.name = "DS_FORM_INDUK", .columns = {}};
};

TEST_F(RowsByIdentity, AreToldApartThoughAllTheirValuesAreTheSame) {
  for (int copy = 0; copy < 3; ++copy) change("INSERT INTO BURSA VALUES ('same', 1)");
  const RowsPtr rows = select("SELECT * FROM BURSA");
  const ColumnValue newId[] = {{"ID", std::int16_t{9}}};
  session_->updateRow(bursa_, rows->identity(1), newId, {});
  session_->deleteRow(bursa_, rows->identity(0));
  const RowsPtr after = select("SELECT * FROM BURSA");
  ASSERT_EQ(after->count(), 2U);
  EXPECT_EQ(value(after, "ID", 0), Variant(std::int16_t{9}));
  EXPECT_EQ(value(after, "ID", 1), Variant(std::int16_t{1}));
}

TEST_F(RowsByIdentity, AreAddedWithTheColumnsThatWereGiven) {
  const ColumnValue values[] = {{"npwp", "1"},
                                {"MS_PAJAK", std::int16_t{3}},
                                {"Total_Bruto", 2.5},
                                {"DAT_FORM", "a;b"},
                                {"NOBUKTI", Variant::null()}};
  const std::int64_t identity = session_->insertRow(induk_, values);
  const RowsPtr rows = select("SELECT * FROM DS_FORM_INDUK");
  ASSERT_EQ(rows->count(), 1U);
  EXPECT_EQ(rows->identity(0), identity);
  EXPECT_EQ(value(rows, "NPWP"), Variant("1"));
  EXPECT_EQ(value(rows, "MS_PAJAK"), Variant(std::int16_t{3}));
  EXPECT_EQ(value(rows, "Total_Bruto"), Variant(2.5));
  EXPECT_EQ(value(rows, "DAT_FORM"), Variant("a;b"));
  EXPECT_EQ(value(rows, "NOBUKTI"), Variant::null());
  EXPECT_EQ(value(rows, "Total_PPh"), Variant(0.0)) << "the default of a column that was left out";
}

TEST_F(RowsByIdentity, TakeEveryTypeInTheColumnsOwnForm) {
  behindItsBack("CREATE TABLE SEMUA (T TEXT, I SMALLINT, L INTEGER, D DOUBLE, B BOOLEAN, H DATE)");
  const ColumnValue values[] = {{"T", 1.5}, {"I", "7"}, {"L", "1.000"}, {"D", "2,5"}, {"B", true}, {"H", "31/01/2009"}};
  session_->insertRow({.name = "SEMUA", .columns = {}}, values);
  const RowsPtr rows = select("SELECT * FROM SEMUA");
  EXPECT_EQ(value(rows, "T"), Variant("1,5"));
  EXPECT_EQ(value(rows, "I"), Variant(std::int16_t{7}));
  EXPECT_EQ(value(rows, "L"), Variant(std::int32_t{1000}));
  EXPECT_EQ(value(rows, "D"), Variant(2.5));
  EXPECT_EQ(value(rows, "B"), Variant(true));
  EXPECT_EQ(value(rows, "H"), Variant(Date::fromYmd(2009, 1, 31)));
  EXPECT_EQ(select("SELECT * FROM SEMUA WHERE B = -1")->count(), 1U) << "True is stored as -1";
  EXPECT_EQ(select("SELECT * FROM SEMUA WHERE H = DateValue('31/01/2009')")->count(), 1U);
}

TEST_F(RowsByIdentity, AreNotChangedWhenSomebodyElseChangedThem) {
  change("INSERT INTO BURSA VALUES ('old', 1)");
  const std::int64_t identity = select("SELECT * FROM BURSA")->identity(0);
  change("UPDATE BURSA SET BURSA = 'changed'");
  const ColumnValue values[] = {{"BURSA", "mine"}};
  const ColumnValue expected[] = {{"BURSA", "old"}};
  EXPECT_EQ(failureOf([&] { session_->updateRow(bursa_, identity, values, expected); }), rowNotLocated);
  EXPECT_EQ(descriptionOf([&] { session_->updateRow(bursa_, identity, values, expected); }),
            "Row cannot be located for updating. Some values may have been changed since it was last read.");
  EXPECT_EQ(value(select("SELECT * FROM BURSA"), "BURSA"), Variant("changed"));
}

TEST_F(RowsByIdentity, AreExpectedToHoldNullWhereTheyHeldNull) {
  change("INSERT INTO BURSA (ID) VALUES (1)");
  const std::int64_t identity = select("SELECT * FROM BURSA")->identity(0);
  const ColumnValue values[] = {{"BURSA", "mine"}};
  const ColumnValue expected[] = {{"BURSA", Variant::null()}};
  session_->updateRow(bursa_, identity, values, expected);
  EXPECT_EQ(value(select("SELECT * FROM BURSA"), "BURSA"), Variant("mine"));
  EXPECT_EQ(failureOf([&] { session_->updateRow(bursa_, identity, values, expected); }), rowNotLocated);
}

TEST_F(RowsByIdentity, AreNotComparedByLongTextsAndDoubles) {
  change("INSERT INTO DS_FORM_INDUK (NPWP, DAT_FORM, Total_Bruto) VALUES ('1', 'a;b', 3)");
  const std::int64_t identity = select("SELECT * FROM DS_FORM_INDUK")->identity(0);
  const ColumnValue values[] = {{"DAT_FORM", "c"}, {"Total_Bruto", 4.0}};
  const ColumnValue expected[] = {{"DAT_FORM", "something else"}, {"Total_Bruto", 99.0}, {"NPWP", "1"}};
  session_->updateRow(induk_, identity, values, expected);
  EXPECT_EQ(value(select("SELECT * FROM DS_FORM_INDUK"), "DAT_FORM"), Variant("c"));
}

TEST_F(RowsByIdentity, CannotBeWrittenOnceTheyAreGone) {
  change("INSERT INTO BURSA VALUES ('a', 1)");
  const std::int64_t identity = select("SELECT * FROM BURSA")->identity(0);
  session_->deleteRow(bursa_, identity);
  const ColumnValue values[] = {{"ID", std::int16_t{2}}};
  EXPECT_EQ(failureOf([&] { session_->deleteRow(bursa_, identity); }), rowNotLocated);
  EXPECT_EQ(failureOf([&] { session_->updateRow(bursa_, identity, values, {}); }), rowNotLocated);
}

}  // namespace
}  // namespace tarvola::ado
