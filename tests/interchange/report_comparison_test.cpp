// A report that was read back against the store: every line that is other than it should be must show.

#include <gtest/gtest.h>

#include "tarvola/interchange/report_comparison.h"
#include "tests/interchange/report_store.h"

namespace tarvola::test {
namespace {

class ReportAgainstStore : public testing::Test {
 protected:
  ReportAgainstStore() {
    store.mainReturn();
    store.document("F113311", packedText(19, {{11, "1000000"}, {14, "500000"}}));
    store.document("FSewaTnhBgn", "first\r\nsecond");
    store.document("D113210", "list");
    store.payment(7, "0118");
    store.compensation("PBK-1");
    store.writeReport();
    report = readReportingFile(store.reportPath(), "rahasia");
  }

  [[nodiscard]] ReportComparison compared() const {
    return compareReport(report, {.month = 1,
                                  .year = 2009,
                                  .correction = 0,
                                  .status = 1,
                                  .dJmlNKLB = 0,
                                  .paymentsCorrection = 0,
                                  .updateDate = "10/02/2009"});
  }

  ReportStore store;
  ReportingFile report;
};

TEST_F(ReportAgainstStore, AgreesLineForLineAlsoWhereATextHasLineBreaks) {
  ASSERT_EQ(report.lines.size(), 8U) << "profile, return, slip, two of the form, payment, transfer, list";
  EXPECT_EQ(compared().firstDifference, 0U);
  EXPECT_EQ(compared().linesWithLostCharacters, 0U);
}

TEST_F(ReportAgainstStore, AnyChangedLineShows) {
  for (std::size_t i = 0; i < report.lines.size(); ++i) {
    const std::string before = report.lines[i];
    report.lines[i] += "x";
    EXPECT_EQ(compared().firstDifference, i + 1);
    report.lines[i] = before;
  }
}

TEST_F(ReportAgainstStore, AMissingLineAndOneTooMuchShow) {
  report.lines.emplace_back("113;77;");
  EXPECT_EQ(compared().firstDifference, 9U);
  report.lines.resize(7);
  EXPECT_EQ(compared().firstDifference, 8U);
  report.lines.erase(report.lines.begin() + 5);
  EXPECT_EQ(compared().firstDifference, 6U);
}

TEST_F(ReportAgainstStore, AChangeInTheStoreSinceShows) {
  store.run("UPDATE DATSSP SET JmlByr = 1");
  EXPECT_EQ(compared().firstDifference, 6U);
}

TEST_F(ReportAgainstStore, CharactersThatTheCodePageLacksAreCountedAndNoDifference) {
  store.document("F113319", "Łódź");
  store.document("F113320", "Café €");
  store.writeReport();
  report = readReportingFile(store.reportPath(), "rahasia");
  const ReportComparison comparison = compared();
  EXPECT_EQ(comparison.firstDifference, 0U);
  EXPECT_EQ(comparison.linesWithLostCharacters, 1U);
  EXPECT_EQ(comparison.firstLostCharacters, 4U) << "behind profile, return and F113311";
}

}  // namespace
}  // namespace tarvola::test
