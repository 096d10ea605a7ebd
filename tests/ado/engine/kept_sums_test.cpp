#include <gtest/gtest.h>
#include <sqlite3.h>

#include <array>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/engine/sqlite/kept_sums.h"
#include "tests/support/engine_store.h"

namespace tarvola::ado::engine::sqlite {
namespace {

using test::EngineStore;

// The same question in two forms: one whose answer is kept, and one that adds up the rows each time.
constexpr const char* question =
    "SELECT SUM(TOTAL_BRUTO) AS B, SUM(TOTAL_PPH) AS P, COUNT(*) AS N FROM DS_FORM_INDUK WHERE KD_FORM = 'F113309' AND "
    "MS_PAJAK = 1 AND TH_PAJAK = 2009";

/// What is asked on a handle of its own, which keeps nothing: "sum|sum|count".
std::string addedUp(const std::string& path, const std::string& condition) {
  sqlite3* other = nullptr;
  sqlite3_open(path.c_str(), &other);
  const std::string text = "SELECT sum(Total_Bruto), sum(Total_PPh), count(*) FROM DS_FORM_INDUK WHERE " + condition;
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(other, text.c_str(), -1, &statement, nullptr);
  sqlite3_step(statement);
  std::string result;
  for (int column = 0; column < 3; ++column) {
    const bool isNull = sqlite3_column_type(statement, column) == SQLITE_NULL;
    result += isNull ? "Null" : std::to_string(sqlite3_column_double(statement, column));
    result += '|';
  }
  sqlite3_finalize(statement);
  sqlite3_close(other);
  return result;
}

std::string written(const RowsPtr& rows) {
  std::string result;
  for (std::size_t column = 0; column < 3; ++column) {
    const Cell cell = rows->cell(0, column);
    result += cell.isNull() ? "Null" : std::to_string(cell.toDouble());
    result += '|';
  }
  return result;
}

class KeptSumsOfAStore : public testing::Test {
 protected:
  void change(const std::string& statement) { session_->run(statement); }
  /// The answer over the slips of the form, which must be what adding them up gives.
  std::string answer() {
    std::string kept = written(session_->run(question).rows);
    EXPECT_EQ(kept, addedUp(store_.path(), "KD_FORM = 'F113309' AND MS_PAJAK = 1 AND TH_PAJAK = 2009"));
    return kept;
  }
  void slip(const std::string& gross, const std::string& tax, const std::string& form = "F113309", int month = 1) {
    change("INSERT INTO DS_FORM_INDUK (KD_FORM, MS_PAJAK, TH_PAJAK, NOBUKTI, TOTAL_BRUTO, TOTAL_PPH) VALUES ('" + form +
           "', " + std::to_string(month) + ", 2009, 'n', " + gross + ", " + tax + ")");
  }
  void behindItsBack(const std::string& text) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(store_.path().c_str(), &other), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(other, text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(other);
    sqlite3_close(other);
  }

  EngineStore store_;
  std::shared_ptr<Session> session_ = store_.session();
};

TEST_F(KeptSumsOfAStore, AreNullOverNoRows) {
  EXPECT_EQ(answer(), "Null|Null|0.000000|");
  slip("1000", "250");
  EXPECT_EQ(answer(), "1000.000000|250.000000|1.000000|");
  change("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'F113309'");
  EXPECT_EQ(answer(), "Null|Null|0.000000|");
}

TEST_F(KeptSumsOfAStore, FollowRowsThatComeChangeMoveAndGo) {
  slip("1000", "250");
  answer();
  slip("3000", "750");
  EXPECT_EQ(answer(), "4000.000000|1000.000000|2.000000|");
  slip("7", "7", "F113310");
  slip("7", "7", "F113309", 2);
  EXPECT_EQ(answer(), "4000.000000|1000.000000|2.000000|");
  change("UPDATE DS_FORM_INDUK SET TOTAL_BRUTO = 5000 WHERE TOTAL_BRUTO = 3000");
  EXPECT_EQ(answer(), "6000.000000|1000.000000|2.000000|");
  change("UPDATE DS_FORM_INDUK SET KD_FORM = 'F113309' WHERE KD_FORM = 'F113310'");
  EXPECT_EQ(answer(), "6007.000000|1007.000000|3.000000|");
  change("UPDATE DS_FORM_INDUK SET MS_PAJAK = 3 WHERE TOTAL_BRUTO = 1000");
  EXPECT_EQ(answer(), "5007.000000|757.000000|2.000000|");
  change("DELETE * FROM DS_FORM_INDUK WHERE TOTAL_BRUTO = 7");
  EXPECT_EQ(answer(), "5000.000000|750.000000|1.000000|");
}

TEST_F(KeptSumsOfAStore, FollowRowsThatARecordsetWrites) {
  answer();
  const BaseTable table{"DS_FORM_INDUK", {}};
  const std::vector<ColumnValue> values = {{"KD_FORM", "F113309"},
                                           {"MS_PAJAK", std::int16_t{1}},
                                           {"TH_PAJAK", std::int16_t{2009}},
                                           {"Total_Bruto", 100.0},
                                           {"Total_PPh", 20.0}};
  const std::int64_t identity = session_->insertRow(table, values);
  EXPECT_EQ(answer(), "100.000000|20.000000|1.000000|");
  const std::vector<ColumnValue> more = {{"Total_Bruto", 300.0}};
  session_->updateRow(table, identity, more, {});
  EXPECT_EQ(answer(), "300.000000|20.000000|1.000000|");
  session_->deleteRow(table, identity);
  EXPECT_EQ(answer(), "Null|Null|0.000000|");
}

TEST_F(KeptSumsOfAStore, CompareKeysWithoutRegardToCase) {
  answer();
  slip("1", "1", "f113309");
  EXPECT_EQ(answer(), "1.000000|1.000000|1.000000|");
  slip("1", "1", "F113309 ");
  EXPECT_EQ(answer(), "1.000000|1.000000|1.000000|");
}

TEST_F(KeptSumsOfAStore, SeeATableThatWasEmptiedAtOnce) {
  slip("1000", "250");
  answer();
  change("DELETE * FROM DS_FORM_INDUK");
  EXPECT_EQ(answer(), "Null|Null|0.000000|");
}

TEST_F(KeptSumsOfAStore, SeeWhatOthersWrite) {
  slip("1000", "250");
  answer();
  behindItsBack("INSERT INTO DS_FORM_INDUK (KD_FORM, MS_PAJAK, TH_PAJAK, Total_Bruto) VALUES ('F113309', 1, 2009, 5)");
  EXPECT_EQ(answer(), "1005.000000|250.000000|2.000000|");
  slip("2", "2");
  behindItsBack("UPDATE DS_FORM_INDUK SET Total_PPh = 1 WHERE Total_Bruto = 5");
  slip("3", "3");
  EXPECT_EQ(answer(), "1010.000000|256.000000|4.000000|");
}

TEST_F(KeptSumsOfAStore, ForgetAStatementThatIsTakenBack) {
  slip("1000", "250");
  slip("2000", "500");
  change("UPDATE DS_FORM_INDUK SET NIP = '1' WHERE TOTAL_BRUTO = 1000");
  change("UPDATE DS_FORM_INDUK SET NIP = 'x' WHERE TOTAL_BRUTO = 2000");
  answer();
  // The second row has no number to read, and what the first one became is taken back.
  EXPECT_THROW(change("UPDATE DS_FORM_INDUK SET TOTAL_BRUTO = CDbl(NIP)"), RunTimeError);
  EXPECT_EQ(answer(), "3000.000000|750.000000|2.000000|");
}

TEST_F(KeptSumsOfAStore, AddUpTheRowsWhileAnAmountIsNotWhole) {
  slip("0.1", "1");
  slip("0.2", "1");
  answer();
  slip("0.3", "1");
  EXPECT_EQ(answer(), "0.600000|3.000000|3.000000|");
  change("UPDATE DS_FORM_INDUK SET TOTAL_BRUTO = 10");
  EXPECT_EQ(answer(), "30.000000|3.000000|3.000000|");
  change("UPDATE DS_FORM_INDUK SET TOTAL_PPH = Null");
  EXPECT_EQ(answer(), "30.000000|Null|3.000000|");
  slip("5", "Null");
  change("UPDATE DS_FORM_INDUK SET TOTAL_PPH = 4");
  EXPECT_EQ(answer(), "35.000000|16.000000|4.000000|");
}

// --- what is kept, and what is not ---------------------------------------------------------------------------

/// Asks the kept sums themselves, so that a test sees whether they answer.
class AnswersByHeart : public testing::Test {
 protected:
  RowsPtr ask(const std::string& statement) {
    const sql::Compiled compiled = sql::compile(statement, catalog_, {});
    if (!compiled.keptQuestion) return nullptr;
    sql::Shape shape;
    sql::readShape(statement, shape);
    return sums_.answer(statement, compiled, shape.literals);
  }
  void insert(const std::string& gross, int count = 1) {
    for (int i = 0; i < count; ++i)
      handle_->execute(
          "INSERT INTO DS_FORM_INDUK (KD_FORM, MS_PAJAK, TH_PAJAK, Total_Bruto, Total_PPh) VALUES "
          "('F113309', 1, 2009, " +
          gross + ", 0)");
  }

  EngineStore store_;
  std::unique_ptr<Handle> handle_ = openStore(store_.path());
  Catalog catalog_{*handle_};
  KeptSums sums_{*handle_, catalog_};
};

TEST_F(AnswersByHeart, AreGivenForSumsAndCountsOverEqualColumns) {
  EXPECT_NE(ask(question), nullptr);
  EXPECT_NE(ask("SELECT COUNT(*) AS N FROM DS_FORM_LAMPIRAN WHERE (NOBUKTI = 'it''s' AND SEQ = 5) AND COLLNO = 0"),
            nullptr);
}

TEST_F(AnswersByHeart, AreNotGivenForAnyOtherQuestion) {
  for (const char* other :
       {"SELECT SUM(TOTAL_BRUTO) AS B FROM DS_FORM_INDUK",
        "SELECT MAX(TOTAL_BRUTO) AS B FROM DS_FORM_INDUK WHERE MS_PAJAK = 1",
        "SELECT SUM(TOTAL_BRUTO) AS B FROM DS_FORM_INDUK WHERE MS_PAJAK = 1 OR TH_PAJAK = 2009",
        "SELECT SUM(TOTAL_BRUTO) AS B FROM DS_FORM_INDUK WHERE MS_PAJAK > 1",
        "SELECT SUM(TOTAL_BRUTO) AS B FROM DS_FORM_INDUK WHERE MS_PAJAK = 1.5",
        "SELECT SUM(TOTAL_BRUTO) AS B FROM DS_FORM_INDUK WHERE NOT MS_PAJAK = 1",
        "SELECT SUM(TOTAL_BRUTO + 1) AS B FROM DS_FORM_INDUK WHERE MS_PAJAK = 1",
        "SELECT SUM(TOTAL_BRUTO) AS B, KD_FORM FROM DS_FORM_INDUK WHERE MS_PAJAK = 1 GROUP BY KD_FORM",
        "SELECT SUM(TOTAL_BRUTO) AS B FROM DS_FORM_INDUK WHERE DAT_FORM = 'x'",
        "SELECT SUM(TOTAL_BRUTO) AS B FROM DS_FORM_INDUK WHERE NPWP = '\xC3\xA9'",
        "SELECT SUM(A.TOTAL_BRUTO) AS B FROM DS_FORM_INDUK A INNER JOIN DS_FORM_INDUK C ON A.NPWP = C.NPWP WHERE "
        "A.MS_PAJAK = 1"}) {
    SCOPED_TRACE(other);
    try {
      EXPECT_EQ(ask(other), nullptr);
    } catch (const RunTimeError&) {
      ADD_FAILURE() << "the dialect does not read it";
    }
  }
}

TEST_F(AnswersByHeart, StopWhileAnAmountIsNotWholeAndGoOnBehindIt) {
  insert("1000");
  EXPECT_NE(ask(question), nullptr);
  insert("0.5");
  EXPECT_EQ(ask(question), nullptr);
  handle_->execute("DELETE FROM DS_FORM_INDUK WHERE Total_Bruto = 0.5");
  ASSERT_NE(ask(question), nullptr);
  EXPECT_EQ(ask(question)->cell(0, 0).toDouble(), 1000);
}

TEST_F(AnswersByHeart, StopBeyondTheLargestExactSumUntilTheRowsAreReadAnew) {
  insert("9007199254740991");
  EXPECT_NE(ask(question), nullptr);
  insert("1");
  EXPECT_EQ(ask(question), nullptr);
  handle_->execute("DELETE FROM DS_FORM_INDUK WHERE Total_Bruto > 1");
  // What was added up beyond it may have lost a rupiah.
  EXPECT_EQ(ask(question), nullptr);
  sums_.clear();
  ASSERT_NE(ask(question), nullptr);
  EXPECT_EQ(ask(question)->cell(0, 0).toDouble(), 1);
}

TEST_F(AnswersByHeart, SumTheFieldsOfPackedTexts) {
  const char* rows = "SELECT COUNT(*) AS N FROM DS_FORM_LAMPIRAN WHERE COLLNO = 0";
  const auto sums = [&](std::string_view column = "DAT_FORM") -> std::string {
    const sql::Compiled compiled = sql::compile(rows, catalog_, {});
    sql::Shape shape;
    sql::readShape(rows, shape);
    const auto found =
        sums_.packedSums(rows, compiled, shape.literals, {.column = column, .count = 3, .summed = {1, 2}});
    return found ? std::to_string(found->at(0)) + "|" + std::to_string(found->at(1)) : "none";
  };
  const auto add = [&](const std::string& packed, const std::string& collection = "0") {
    handle_->execute("INSERT INTO DS_FORM_LAMPIRAN (COLLNO, DAT_FORM) VALUES (" + collection + ", " + packed + ")");
  };
  EXPECT_EQ(sums(), "0.000000|0.000000");
  add("'5;100;20'");
  add("'x;007;0'");
  add("'5;3;3'", "1");
  EXPECT_EQ(sums(), "107.000000|20.000000");
  EXPECT_EQ(sums("NO_COLUMN"), "none");
  handle_->execute("UPDATE DS_FORM_LAMPIRAN SET DAT_FORM = '5;1;1' WHERE DAT_FORM = '5;100;20'");
  EXPECT_EQ(sums(), "8.000000|1.000000");
  for (const char* packed : {"'1;2'", "'1;2;3;4'", "'1;;3'", "'1;-2;3'", "'1;2,5;3'", "'1;2;1.000'", "'1;2;1E3'",
                             "'1;2;1234567890123456'", "Null", "5"}) {
    add(packed);
    EXPECT_EQ(sums(), "none") << packed;
    handle_->execute("DELETE FROM DS_FORM_LAMPIRAN WHERE rowid = (SELECT max(rowid) FROM DS_FORM_LAMPIRAN)");
    EXPECT_EQ(sums(), "8.000000|1.000000") << packed;
  }
}

TEST_F(AnswersByHeart, AreRightAfterMoreChangesThanAreFollowed) {
  insert("1");
  ask(question);
  insert("1", 1500);
  ASSERT_NE(ask(question), nullptr);
  EXPECT_EQ(ask(question)->cell(0, 0).toDouble(), 1501);
}

TEST_F(KeptSumsOfAStore, AreRightAfterAnyWork) {
  const auto seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  const auto upTo = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  const std::array<std::string, 3> amounts = {"1000", "250000000", "12.75"};
  for (int step = 0; step < 600; ++step) {
    const std::string amount = amounts[static_cast<std::size_t>(upTo(20) == 0 ? 2 : upTo(1))];
    const std::string form = upTo(2) == 0 ? "F113310" : "F113309";
    switch (upTo(5)) {
      case 0:
        change("UPDATE DS_FORM_INDUK SET KD_FORM = '" + form + "', TOTAL_PPH = " + amount +
               " WHERE NOBUKTI = 'n' AND MS_PAJAK = " + std::to_string(1 + upTo(1)));
        break;
      case 1:
        change("DELETE * FROM DS_FORM_INDUK WHERE TOTAL_BRUTO = " + amount);
        break;
      case 2:
        behindItsBack("UPDATE DS_FORM_INDUK SET Total_Bruto = Total_Bruto + 1");
        break;
      default:
        slip(amount, "3", form, 1 + upTo(1));
    }
    ASSERT_NO_FATAL_FAILURE(answer());
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace tarvola::ado::engine::sqlite
