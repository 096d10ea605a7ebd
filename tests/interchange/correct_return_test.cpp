#include "tarvola/interchange/correct_return.h"

#include "tarvola/interchange/return_check.h"
#include "tarvola/interchange/return_difference.h"
#include "tarvola/runtime/errors.h"
#include "tests/interchange/month_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const CorrectionOrder firstCorrection{.month = 1, .year = 2009, .corrected = 0};

TEST(CorrectedReturn, IsAWholeCopyWithItsPayments) {
  MonthStore month;
  const CorrectionOutcome outcome = correctReturn(firstCorrection);
  EXPECT_THAT(outcome.obstacles, IsEmpty());
  EXPECT_EQ(outcome.target, outcome.source);
  EXPECT_EQ(outcome.target.slips, 3);
  EXPECT_EQ(outcome.target.interestPayees, 2);
  EXPECT_EQ(outcome.target.selfPaidForms, 2);
  EXPECT_EQ(outcome.paymentsCopied, 2);
  EXPECT_EQ(outcome.paymentsThere, 0);
  EXPECT_TRUE(compareReturns(1, 2009, 0, 1).isEmpty());
  EXPECT_THAT(checkReturn(1, 2009, 1), SizeIs(checkReturn(1, 2009, 0).size()));
  EXPECT_EQ(month.value("SELECT SUM(JmlByr) AS s FROM DATSSP WHERE KdPmbtln = 1"), "41200000");
}

TEST(CorrectedReturn, MadeAgainIsTheSame) {
  MonthStore month;
  correctReturn(firstCorrection);
  const std::vector<std::string> once = month.everything();
  const CorrectionOutcome again = correctReturn(firstCorrection);
  EXPECT_EQ(month.everything(), once) << "no payment is doubled";
  EXPECT_EQ(again.paymentsCopied, 0);
  EXPECT_EQ(again.paymentsThere, 2);
}

TEST(CorrectedReturn, ReplacesWhatItHeldButKeepsItsOwnPayments) {
  MonthStore month;
  correctReturn(firstCorrection);
  const std::vector<std::string> once = month.everything();
  month.pay("5000", "3000000000000003", 1, "405");
  month.run("DELETE * FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'F113309'");
  month.run("UPDATE D113210 SET BRUTO = 1 WHERE KD_PEMBETULAN_KE = 1");
  month.run("DELETE * FROM DATSSP WHERE KdPmbtln = 1 AND KdJnsStr = '403'");
  const CorrectionOutcome outcome = correctReturn(firstCorrection);
  EXPECT_EQ(outcome.paymentsCopied, 1);
  EXPECT_EQ(outcome.paymentsThere, 1);
  EXPECT_THAT(month.rows("SELECT NTPP FROM DATSSP WHERE KdPmbtln = 1 ORDER BY NTPP"),
              ElementsAre("2000000000000001", "2000000000000002", "3000000000000003"));
  EXPECT_THAT(compareReturns(1, 2009, 0, 1).slips, IsEmpty());
  EXPECT_THAT(compareReturns(1, 2009, 0, 1).interestPayees, IsEmpty());
}

// Two payments may be equal in all that a copy carries.
TEST(CorrectedReturn, CopiesEqualPaymentsOneForOne) {
  MonthStore month;
  for (int i = 0; i < 2; ++i) month.pay("0.1", "0000000000000000", 0, "199");
  month.pay("0.1", "0000000000000000", 1, "199");
  const CorrectionOutcome outcome = correctReturn(firstCorrection);
  EXPECT_EQ(outcome.paymentsCopied, 3);
  EXPECT_EQ(outcome.paymentsThere, 1);
  EXPECT_THAT(month.rows("SELECT NTPP FROM DATSSP WHERE KdPmbtln = 1 AND KdJnsStr = '199'"), SizeIs(2));
}

TEST(CorrectedReturn, IsNotTouchedWhereSomethingStandsInTheWay) {
  MonthStore month;
  correctReturn(firstCorrection);
  month.run("UPDATE DATSSP SET NPWP = 'it''s' WHERE KdPmbtln = 0 AND KdJnsStr = '403'");
  const std::vector<std::string> before = month.everything();
  const CorrectionOutcome outcome = correctReturn(firstCorrection);
  ASSERT_THAT(outcome.obstacles, SizeIs(1));
  EXPECT_EQ(outcome.obstacles[0].table, "DATSSP");
  EXPECT_EQ(outcome.obstacles[0].value, "it's");
  EXPECT_EQ(month.everything(), before);
}

TEST(CorrectedReturn, OfAMonthWithoutMainFormFails) {
  MonthStore month;
  const std::vector<std::string> before = month.everything();
  EXPECT_THROW(correctReturn({.month = 2, .year = 2009, .corrected = 0}), RunTimeError);
  EXPECT_EQ(month.everything(), before);
}

// The number of the main form counts, not that of the store's filer: a return that has moved stays where it is.
TEST(CorrectedReturn, OfAMovedReturnStaysUnderItsNumber) {
  MonthStore month;
  correctReturn({.month = 1, .year = 2009, .corrected = 0, .newNpwp = "013121660093000"});
  correctReturn({.month = 1, .year = 2009, .corrected = 1});
  EXPECT_THAT(month.rows("SELECT NPWP FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE = 2 GROUP BY NPWP"),
              ElementsAre("013121660093000"));
  EXPECT_TRUE(compareReturns(1, 2009, 1, 2).isEmpty());
}

// Payees with a broken rate (17,5) move along.
TEST(MovedReturn, StandsUnderTheNewNumberAndSaysElseTheSame) {
  MonthStore month;
  const CorrectionOutcome outcome =
      correctReturn({.month = 1, .year = 2009, .corrected = 0, .newNpwp = "013121660093000"});
  EXPECT_THAT(outcome.obstacles, IsEmpty());
  EXPECT_EQ(outcome.target, outcome.source);
  for (const char* table : {"DS_FORM_INDUK", "DAT_SSP_PPh22"})
    for (const std::string& row :
         month.rows(std::string("SELECT NPWP, DAT_FORM FROM ") + table + " WHERE KD_PEMBETULAN_KE = 1"))
      EXPECT_TRUE(row.starts_with("013121660093000|013121660093000;")) << row;
  EXPECT_THAT(month.rows("SELECT NPWP FROM D113210 GROUP BY NPWP"), ElementsAre("086556479946000"));
  EXPECT_THAT(month.rows("SELECT TARIF FROM D113210 WHERE KD_PEMBETULAN_KE = 1 ORDER BY TARIF"),
              ElementsAre("17,5", "20"));
  const ReturnDifference difference = compareReturns(1, 2009, 0, 1);
  EXPECT_THAT(difference.slips, IsEmpty());
  EXPECT_THAT(difference.selfPaidForms, IsEmpty());
  ASSERT_THAT(difference.returnFields, SizeIs(1));
  EXPECT_EQ(difference.returnFields[0].field, "npwp");
  EXPECT_EQ(difference.returnFields[0].after, "013121660093000");
}

TEST(MovedReturn, IsNotMadeOverOneThatHasNotMoved) {
  MonthStore month;
  correctReturn(firstCorrection);
  const std::vector<std::string> before = month.everything();
  const CorrectionOutcome outcome =
      correctReturn({.month = 1, .year = 2009, .corrected = 0, .newNpwp = "013121660093000"});
  EXPECT_THAT(outcome.obstacles, SizeIs(11)) << "six headers, three slips, two self-paid forms";
  EXPECT_EQ(month.everything(), before);
}

// --- a correction that ends in the middle ------------------------------------------------------------------------

class InterruptedCorrection : public testing::TestWithParam<std::tuple<const char*, const char*>> {
 protected:
  static std::string table() { return std::get<0>(GetParam()); }
  static std::string condition() { return std::get<1>(GetParam()); }
};

TEST_P(InterruptedCorrection, IsCompletedByTheSameCallToWhatAnUndisturbedOneGives) {
  MonthStore undisturbed;
  correctReturn(firstCorrection);
  const std::vector<std::string> whole = undisturbed.everything();
  MonthStore month;
  refuseWrites(month.storePath(), "INSERT", table(), condition());
  EXPECT_THROW(correctReturn(firstCorrection), RunTimeError);
  EXPECT_NE(month.everything(), whole);
  month.allowWrites("INSERT", table());
  correctReturn(firstCorrection);
  EXPECT_EQ(month.everything(), whole);
}

INSTANTIATE_TEST_SUITE_P(Places, InterruptedCorrection,
                         testing::Values(std::tuple("DS_FORM_INDUK", "1"),
                                         std::tuple("DS_FORM_INDUK", "NEW.KD_FORM = 'F113310'"),
                                         std::tuple("DS_FORM_LAMPIRAN", "NEW.NOBUKTI = '000003/PPH4'"),
                                         std::tuple("D113210", "NEW.JENIS = 'LN'"),
                                         std::tuple("DAT_SSP_PPh22", "NEW.KD_FORM = 'FSewaTnhBgn'"),
                                         std::tuple("LAMPIRAN_SSP_PPh22", "1"),
                                         std::tuple("DATSSP", "NEW.KdJnsStr = '403'")));

}  // namespace
}  // namespace tarvola::test
