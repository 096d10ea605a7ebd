#include "tarvola/interchange/remove_return.h"

#include "tarvola/interchange/CImporSSPPBK.h"
#include "tarvola/interchange/correct_return.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/progress.h"
#include "tests/interchange/month_store.h"

namespace tarvola::test {
namespace {

using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

std::vector<std::string> withoutPayees(std::vector<std::string> rows) {
  std::erase_if(rows, [](const std::string& row) { return row.starts_with("D113210: "); });
  return rows;
}

TEST(RemovedReturn, IsGoneAsPDeleteRemovesItAndItsPayeesToo) {
  MonthStore removed;
  const ReturnRemoval taken = removeReturn(1, 2009, 0);
  EXPECT_EQ(taken.contents, (store::ReturnContents{.mainForms = 1,
                                                   .listHeaders = 5,
                                                   .slips = 3,
                                                   .selfPaidForms = 2,
                                                   .listRows = 3,
                                                   .selfPaidListRows = 2,
                                                   .interestPayees = 2}));
  EXPECT_EQ(taken.payments, 2);
  EXPECT_EQ(taken.transfers, 0);
  const std::vector<std::string> left = removed.everything();
  EXPECT_EQ(left, withoutPayees(left));
  EXPECT_THAT(removed.rows("SELECT * FROM DATSSP"), IsEmpty());

  MonthStore deleted;
  CGeneralClass().pDelete("013121660091000", "113", 1, 2009, 0);
  EXPECT_EQ(withoutPayees(deleted.everything()), left);
}

// One main form, five list headers, three slips and two self-paid forms, five rows of lists, two payees and two
// payments make 20 rows: payments one by one, then each table as a whole.
TEST(RemovedReturn, TellsOfItsProgressRowByRowOfAllTables) {
  MonthStore month;
  std::vector<std::uint64_t> told;
  std::uint64_t whole = 0;
  setProgressHandler([&](std::string_view task, std::uint64_t done, std::uint64_t total) {
    if (task != "Removing the return") return;
    told.push_back(done);
    whole = total;
  });
  removeReturn(1, 2009, 0);
  setProgressHandler(nullptr);
  EXPECT_EQ(whole, 20U);
  ASSERT_THAT(told, Not(IsEmpty()));
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_EQ(told.back(), 20U);
}

TEST(RemovedReturn, TellsOfTheRowsThatPDeleteRemoves) {
  MonthStore month;
  std::uint64_t rows = 0;
  setProgressHandler([&](std::string_view task, std::uint64_t done, std::uint64_t) {
    if (task == "Removing the return") rows = std::max(rows, done);
  });
  CGeneralClass().pDelete("013121660091000", "113", 1, 2009, 0);
  setProgressHandler(nullptr);
  EXPECT_EQ(rows, 16U) << "documents and rows of lists, but no payees; payments are counted by themselves";
}

// To the last byte of every table.
TEST(RemovedReturn, LeavesEveryOtherReturnAsItIs) {
  MonthStore month;
  const std::vector<std::string> alone = month.everything();
  correctReturn({.month = 1, .year = 2009, .corrected = 0});
  month.run(
      "INSERT INTO datPBKPPhMasa (PASAL,MsPjkPBK,ThPjkPBK,NPWPTertuju,JumlahPBK) VALUES (4,1,2009,"
      "'013121660091000',250000)");
  const std::vector<std::string> both = month.everything();
  const ReturnRemoval taken = removeReturn(1, 2009, 1);
  EXPECT_EQ(taken.payments + taken.transfers, 0) << "payments go with the first filing only";
  std::vector<std::string> expected = both;
  std::erase_if(expected, [&](const std::string& row) {
    return !row.starts_with("DATSSP") && !row.starts_with("datPBK") &&
           std::find(alone.begin(), alone.end(), row) == alone.end();
  });
  EXPECT_EQ(month.everything(), expected);
  EXPECT_THAT(month.rows("SELECT * FROM DATSSP"), SizeIs(4));
}

TEST(RemovedReturn, TakesThePaymentsOfAllCorrectionsWithTheFirstFiling) {
  MonthStore month;
  correctReturn({.month = 1, .year = 2009, .corrected = 0});
  month.run(
      "INSERT INTO datPBKPPhMasa (PASAL,MsPjkPBK,ThPjkPBK,NPWPTertuju,JumlahPBK) VALUES (4,1,2009,"
      "'013121660091000',250000)");
  EXPECT_EQ(whatRemovalTakes(1, 2009, 0).payments, 4);
  const ReturnRemoval taken = removeReturn(1, 2009, 0);
  EXPECT_EQ(taken.payments, 4);
  EXPECT_EQ(taken.transfers, 1);
  EXPECT_EQ(store::contentsOf(store::StoreObject(), {1, 2009, 1}).slips, 3);
}

// An import stores a transfer under the filer's number without the blanks that PROFILE may have around it.
TEST(RemovedReturn, TakesTheTransfersAlsoWhereTheNumberOfTheFilerHasBlanksAround) {
  MonthStore month;
  month.run("UPDATE PROFILE SET NPWP = ' 013121660091000 '");
  CImporSSPPBK().pImporSSPPBK(arrayOf("PBK4;1;2009;PBK-0001/2009;15/02/2009;250000"), 1, 2009, 0);
  ASSERT_THAT(month.rows("SELECT NPWPTertuju FROM datPBKPPhMasa"), testing::ElementsAre("013121660091000"));
  EXPECT_EQ(whatRemovalTakes(1, 2009, 0).transfers, 1);
  EXPECT_EQ(removeReturn(1, 2009, 0).transfers, 1);
  EXPECT_THAT(month.rows("SELECT * FROM datPBKPPhMasa"), IsEmpty());
}

TEST(RemovalThatIsLookedAt, ChangesNothing) {
  MonthStore month;
  const std::vector<std::string> before = month.everything();
  EXPECT_EQ(whatRemovalTakes(1, 2009, 0).contents.slips, 3);
  EXPECT_TRUE(whatRemovalTakes(2, 2009, 0).contents.isEmpty());
  EXPECT_EQ(month.everything(), before);
}

class InterruptedRemoval : public testing::TestWithParam<const char*> {};

// Wherever it ends, documents or their rows are left, so that whoever looks finds something to go on with.
TEST_P(InterruptedRemoval, IsFinishedByTheSameCall) {
  MonthStore month;
  refuseWrites(month.storePath(), "DELETE", GetParam());
  EXPECT_THROW(removeReturn(1, 2009, 0), RunTimeError);
  EXPECT_FALSE(whatRemovalTakes(1, 2009, 0).contents.isEmpty());
  month.allowWrites("DELETE", GetParam());
  removeReturn(1, 2009, 0);
  for (const char* table : copiedTables)
    EXPECT_THAT(month.rows(std::string("SELECT * FROM ") + table), IsEmpty()) << table;
  EXPECT_THAT(month.rows("SELECT * FROM DATSSP"), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Tables, InterruptedRemoval,
                         testing::Values("DATSSP", "D113210", "DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22",
                                         "LAMPIRAN_SSP_PPh22"),
                         [](const auto& table) { return table.param; });

}  // namespace
}  // namespace tarvola::test
