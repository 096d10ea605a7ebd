// Copies that fail or are killed on the way, and what they leave.

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "tarvola/store/module_state.h"
#include "tests/mainreturn/copy_fixture.h"
#include "tests/support/refusing_store.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace tarvola::test {
namespace {

class FailingCopy : public CopyTest {
 protected:
  /// One row that the target held before in each table, to see which tables were cleared.
  void fillTarget() {
    addDocument({.form = "F113321", .number = "before", .correction = 1});
    addItem("DS_FORM_LAMPIRAN", "D113206", "before", "", 1, 0, 1);
    addPayee("before", "15", "DN", 1);
    addDocument({.form = "FSewaTnhBgn", .number = "before", .correction = 1});
    addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", "before", "", 1, 0, 1);
  }
  std::vector<std::string> tablesNotCleared() {
    std::vector<std::string> tables;
    for (const CopiedTable& table : {documents, listItems, payees, selfPaidForms, selfPaidItems})
      if (!column("SELECT NOBUKTI FROM " + std::string(table.name) + " WHERE NOBUKTI = 'before'").empty())
        tables.emplace_back(table.name);
    return tables;
  }
  std::vector<std::string> copiedForms() {
    return column("SELECT KD_FORM FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE = 1 ORDER BY KD_FORM");
  }
  /// Puts a text into a column, past the statements' own quotes.
  void put(const std::string& table, const std::string& column, const std::string& condition, const std::string& text) {
    const RecordsetPtr rows = Recordset::create();
    rows->Open("SELECT * FROM " + table + " WHERE " + condition, connection_);
    rows->put_Collect(column, text);
    rows->UpdateBatch();
  }
};

TEST_F(FailingCopy, ThatCannotClearCopiesNothing) {
  fill();
  fillTarget();
  refuseWrites(store_.path(), "DELETE", "DS_FORM_INDUK");
  refuseWrites(store_.path(), "DELETE", "DAT_SSP_PPh22");
  const std::vector<std::vector<Row>> before = everything();
  copy();
  copySelfPaid();
  EXPECT_EQ(everything(), before);
  EXPECT_THAT(messages_.texts(), SizeIs(2));
}

TEST_F(FailingCopy, InTheDocumentsLeavesThoseBeforeItAndTouchesNoTableBehind) {
  fill();
  fillTarget();
  refuseWrites(store_.path(), "INSERT", "DS_FORM_INDUK", "NEW.KD_FORM = 'F113311'");
  copy();
  EXPECT_THAT(copiedForms(), ElementsAre("D113206", "D113210", "F113204", "F113309", "F113310"));
  EXPECT_THAT(tablesNotCleared(), ElementsAre("DS_FORM_LAMPIRAN", "D113210", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22"));
  EXPECT_THAT(messages_.texts(), SizeIs(1));
}

TEST_F(FailingCopy, InTheListItemsLeavesThePayeesUntouched) {
  fill();
  fillTarget();
  refuseWrites(store_.path(), "INSERT", "DS_FORM_LAMPIRAN");
  copy();
  EXPECT_THAT(copiedForms(), SizeIs(12));
  EXPECT_THAT(rows(listItems, 1), IsEmpty()) << "cleared before it is filled";
  EXPECT_THAT(tablesNotCleared(), ElementsAre("D113210", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22"));
}

TEST_F(FailingCopy, InTheSelfPaidFormsLeavesTheirItemsUntouched) {
  fill();
  fillTarget();
  refuseWrites(store_.path(), "INSERT", "DAT_SSP_PPh22", "NEW.KD_FORM = 'FAlihTnhBgn'");
  copySelfPaid();
  EXPECT_THAT(column("SELECT KD_FORM FROM DAT_SSP_PPh22 WHERE KD_PEMBETULAN_KE = 1 ORDER BY KD_FORM"),
              ElementsAre("DAlihTnhBgn", "DJasaKonstruksi", "DSewaTnhBgn"));
  EXPECT_THAT(tablesNotCleared(), ElementsAre("DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "D113210", "LAMPIRAN_SSP_PPh22"));
}

TEST_F(FailingCopy, RunAgainIsTheWholeCopy) {
  fill();
  put("DS_FORM_INDUK", "DAT_FORM", "KD_FORM = 'F113316'",
      "013121660091000;PT Contoh;Jakarta;3;2009;0;10/03/2009;000005/PPH4;1;Ja'far");
  copy();
  EXPECT_THAT(copiedForms(), ElementsAre("D113206", "D113210", "F113204", "F113309", "F113310", "F113311", "F113312"));
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("Syntax error")));
  run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'F113316'");
  copy();
  expectCopy(documents);
  expectCopy(listItems);
  expectCopy(payees);
}

// --- texts that would change a filter or a statement ---------------------------------------------------------------

TEST_F(FailingCopy, OverANumberThatWouldWidenItsFilterCopiesNoOtherRowInItsPlace) {
  addDocument({.form = "F113309", .number = "000001/PPH4"});
  addDocument({.form = "F113319", .number = "000002/PPH4"});
  put("DS_FORM_INDUK", "NOBUKTI", "KD_FORM = 'F113319'", "x' OR KD_FORM = 'F113309");
  copy();
  EXPECT_THAT(copiedForms(), ElementsAre("F113309"));
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::WrongArguments)));
}

TEST_F(FailingCopy, OverAnItemOrSelfPaidFormWithAnApostropheEndsThere) {
  addItem("DS_FORM_LAMPIRAN", "D113206", "1", "1");
  put("DS_FORM_LAMPIRAN", "DAT_FORM", "NOBUKTI = '1'", "'); DELETE * FROM PROFILE; --");
  addDocument({.form = "FSewaTnhBgn", .number = "1"});
  put("DAT_SSP_PPh22", "DAT_FORM", "NOBUKTI = '1'", "' OR '1' = '1");
  copy();
  copySelfPaid();
  EXPECT_THAT(rows(listItems, 1), IsEmpty());
  EXPECT_THAT(rows(selfPaidForms, 1), IsEmpty());
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("Syntax error"), description(ErrorNumber::WrongArguments)));
  EXPECT_THAT(column("SELECT NPWP FROM PROFILE"), SizeIs(1));
}

TEST_F(FailingCopy, WithAnApostropheInNumberOrKindClearsNoMoreThanItMust) {
  fill();
  copy();
  const std::vector<std::vector<Row>> before = everything();
  CF113204().pCopyAllData(filer, "113' OR '1' = '1", 3, 2009, 0);
  CF113204().pCopyAllDataSSP(filer, "113' OR '1' = '1", 3, 2009, 0);
  EXPECT_EQ(everything(), before);
  EXPECT_THAT(messages_.texts(), SizeIs(2));
}

TEST_F(FailingCopy, WithASeparatorInTheNumberWritesNoDocument) {
  fill();
  copy(0, "013121660091000;0");
  EXPECT_THAT(rows(documents, 1), IsEmpty());
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("holds ';'")));
}

TEST_F(FailingCopy, OverADocumentWithoutANumberShowsWhy) {
  addDocument({.form = "F113309", .number = "1"});
  run("UPDATE DS_FORM_INDUK SET NOBUKTI = NULL");
  copy();
  EXPECT_THAT(rows(documents, 1), IsEmpty());
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::InvalidUseOfNull)));
}

TEST(CopyWithoutSettings, FailsInEveryOperationWithItsMessage) {
  moduleState() = {};
  CapturedMessages messages;
  CF113204 mainReturn;
  messages.clear();
  mainReturn.pCopyAllData("1", "113", 3, 2009, 0);
  mainReturn.pCopyAllDataSSP("1", "113", 3, 2009, 0);
  mainReturn.pCopySSP_42(4, 3, 2009, 0);
  mainReturn.pCopyAllDataOldKPP("1", "2", "113", 3, 2009, 0);
  mainReturn.pCopyAllDataSSPOldKPP("1", "2", "113", 3, 2009, 0);
  EXPECT_THAT(messages.texts(), SizeIs(5));
}

// --- a copy that is killed -------------------------------------------------------------------------------------

class KilledCopy : public CopyTest {
 protected:
  using Clock = std::chrono::steady_clock;

  KilledCopy() {
    makeReturn();
    for (int slip = 1; slip <= 400; ++slip) {
      const std::string number = std::to_string(slip) + "/PPH4";
      addDocument({.form = slip % 2 == 0 ? "F113309" : "F113319", .number = number});
      addItem("DS_FORM_LAMPIRAN", "D113206", number, "3;2009;" + number, slip);
      if (slip % 4 == 0) addPayee(number, "20");
      if (slip % 4 == 1) addDocument({.form = "FSewaTnhBgn", .number = number});
      if (slip % 4 == 1) addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", number, number, slip);
    }
    disconnect();
  }
  /// No handle of the store may be open in this process while another one is forked off it.
  void disconnect() { connection_.reset(); }
  void connect() { connection_ = store_.connect(); }

  pid_t startCopy() {
    const pid_t child = fork();
    if (child != 0) return child;
    copy();
    copySelfPaid();
    _exit(messages_.empty() ? 0 : 1);
  }
  static int endOf(pid_t child) {
    int status = -1;
    waitpid(child, &status, 0);
    return status;
  }
  std::vector<std::vector<Row>> everythingConnected() {
    connect();
    const std::vector<std::vector<Row>> all = everything();
    disconnect();
    return all;
  }
};

TEST_F(KilledCopy, IsMadeByTheSameCopyAgainExactlyWhatAnUndisturbedOneIs) {
  const Clock::time_point start = Clock::now();
  ASSERT_EQ(endOf(startCopy()), 0);
  const Clock::duration wholeTime = Clock::now() - start;
  const std::vector<std::vector<Row>> whole = everythingConnected();

  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> moment(0.0, 1.0);
  int killed = 0;
  int leftIncomplete = 0;
  for (int round = 0; round < 10; ++round) {
    const pid_t child = startCopy();
    std::this_thread::sleep_for(wholeTime * moment(random));
    kill(child, SIGKILL);
    killed += WIFSIGNALED(endOf(child)) ? 1 : 0;
    leftIncomplete += everythingConnected() != whole ? 1 : 0;
    ASSERT_EQ(endOf(startCopy()), 0);
    ASSERT_EQ(everythingConnected(), whole) << "round " << round;
  }
  EXPECT_GT(killed, 0);
  EXPECT_GT(leftIncomplete, 0);
}

}  // namespace
}  // namespace tarvola::test
