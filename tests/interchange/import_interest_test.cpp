// The rows that an imported interest slip gets in the table of interest lines.

#include <gtest/gtest.h>

#include "tarvola/interchange/CImporBP.h"
#include "tests/interchange/interchange_store.h"

namespace tarvola::test {
namespace {

/// A deposit, by its number from 1 to 5.
Line& deposit(Line& line, std::size_t group, const char* code, const char* gross, const char* rate, const char* tax) {
  const std::size_t first = 5 + 5 * group;
  return line.with(first, code).with(first + 1, gross).with(first + 2, rate).with(first + 3, tax);
}

class ImportInterest : public testing::Test {
 protected:
  void import(const Line& line) { CImporBP().pImporPPh4(line.array(), "013121660091000", 1, 2009, 0); }
  std::vector<std::string> lines() { return store.rows("SELECT JENIS, TEMPAT, BRUTO, TARIF, PPH FROM D113210"); }
  InterchangeStore store;
};

TEST_F(ImportInterest, DepositsAreSummedBySideAndSbiAndGiroStandAlone) {
  Line line("F113310");
  deposit(line, 1, "0", "1000", "20", "200");
  deposit(line, 2, "1", "3000", "10", "300");
  deposit(line, 3, "0", "500", "20", "100");
  deposit(line, 5, "1", "700", "10", "70");
  import(line.with(35, "4000").with(36, "15").with(37, "600").with(38, "250").with(39, "20").with(40, "50"));
  EXPECT_THAT(lines(),
              testing::ElementsAre("DN|DN|1500|20|300", "LN|LN|3700|10|370", "SBI||4000|15|600", "GIRO||250|20|50"));
  EXPECT_EQ(store.value("SELECT NPWP, NMWP, ALM, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, TGL_POTONG, NOBUKTI, ATR1, ATR2 "
                        "FROM D113210 WHERE JENIS = 'DN'"),
            "086556479946000|Maria Santoso|Jl. Hayam Wuruk 12|1|2009|0|08/01/2009|000001/PPH4||0");
}

TEST_F(ImportInterest, OtherInterestNeverReachesTheTable) {
  import(Line("F113310").with(41, "Obligasi").with(42, "900").with(43, "20").with(44, "180"));
  EXPECT_THAT(lines(), testing::IsEmpty());
}

TEST_F(ImportInterest, TheRateHalvesItsWayFromDepositToDeposit) {
  Line line("F113310");
  deposit(line, 1, "0", "1", "10", "0");
  deposit(line, 2, "0", "1", "10", "0");
  deposit(line, 3, "0", "1", "40", "0");
  deposit(line, 4, "1", "1", "10", "0");
  deposit(line, 5, "1", "1", "20", "0");
  import(line);
  EXPECT_THAT(lines(), testing::ElementsAre("DN|DN|3|25|0", "LN|LN|2|15|0"));
}

TEST_F(ImportInterest, ARateWithDecimalsIsWrittenWithAPoint) {
  Line line("F113310");
  deposit(line, 1, "0", "1000", "7,5", "75");
  import(deposit(line, 2, "1", "1000", "7.5", "75"));
  EXPECT_THAT(lines(), testing::ElementsAre("DN|DN|1000|7,5|75", "LN|LN|1000|7,5|75"));
}

TEST_F(ImportInterest, ARateOfSbiThatIsNoNumberFailsBehindTheRowsOfTheDeposits) {
  Line line("F113310");
  deposit(line, 1, "0", "1000", "20", "200");
  deposit(line, 2, "1", "500", "10", "50");
  import(line.with(35, "4000").with(36, "x").with(37, "600").with(38, "250").with(39, "20").with(40, "50"));
  EXPECT_THAT(lines(), testing::ElementsAre("DN|DN|1000|20|200", "LN|LN|500|10|50"));
  EXPECT_EQ(store.messages().texts().size(), 1U);
}

TEST_F(ImportInterest, ARateOfADepositThatIsNoNumberFailsBetweenTheOldRowsAndTheNew) {
  store.run(
      "INSERT INTO D113210 VALUES ('086556479946000', 'Maria Santoso', 'Jl. Hayam Wuruk 12', 1, 2009, 0, '08/01/2009', "
      "'000001/PPH4', 'DN', 'DN', 1, 20, 0, '', '0')");
  Line line("F113310");
  deposit(line, 1, "0", "1000", "20", "200");
  import(deposit(line, 5, "1", "500", "x", "50"));
  EXPECT_THAT(lines(), testing::IsEmpty());
  EXPECT_EQ(store.messages().texts().size(), 1U);
}

TEST_F(ImportInterest, TheSumsAreCutAndNotTheirItems) {
  Line line("F113310");
  deposit(line, 1, "0", "0,6", "20", "0,5");
  deposit(line, 2, "0", "0,6", "20", "0,6");
  import(line);
  EXPECT_THAT(lines(), testing::ElementsAre("DN|DN|1|20|1"));
}

TEST_F(ImportInterest, AnyCodeButZeroIsAbroad) {
  Line line("F113310");
  deposit(line, 1, "00", "1000", "20", "200");
  deposit(line, 2, "2", "500", "20", "100");
  deposit(line, 3, "", "300", "20", "60");
  import(line);
  EXPECT_THAT(lines(), testing::ElementsAre("DN|DN|1000|20|200", "LN|LN|800|20|160"));
}

TEST_F(ImportInterest, DepositsThatCancelOutMakeNoRow) {
  Line line("F113310");
  deposit(line, 1, "0", "1000", "20", "200");
  deposit(line, 2, "0", "-1000", "20", "-200");
  import(line);
  EXPECT_THAT(lines(), testing::IsEmpty());
}

TEST_F(ImportInterest, RowsOfTheSlipThatAreThereAreReplaced) {
  Line line("F113310");
  deposit(line, 1, "0", "1000", "20", "200");
  import(line);
  store.run("DELETE * FROM DS_FORM_LAMPIRAN");
  store.run(
      "INSERT INTO D113210 VALUES ('other', 'Other', '-', 1, 2009, 0, '08/01/2009', '000001/PPH4', 'DN', 'DN', 1, "
      "20, 0, '', '0')");
  import(line);
  EXPECT_THAT(lines(), testing::UnorderedElementsAre("DN|DN|1|20|0", "DN|DN|1000|20|200"));
}

TEST_F(ImportInterest, RowsOfAnotherPayeePeriodOrNumberStay) {
  const char* const others[] = {"NPWP = 'x'",      "NMWP = 'x'",           "ALM = 'x'",    "MS_PAJAK = 2",
                                "TH_PAJAK = 2010", "KD_PEMBETULAN_KE = 1", "NOBUKTI = 'x'"};
  for (const char* other : others) {
    store.run(
        "INSERT INTO D113210 VALUES ('086556479946000', 'Maria Santoso', 'Jl. Hayam Wuruk 12', 1, 2009, 0, "
        "'08/01/2009', '000001/PPH4', 'new', 'DN', 1, 20, 0, '', '0')");
    store.run(std::string("UPDATE D113210 SET JENIS = 'other', ") + other + " WHERE JENIS = 'new'");
  }
  Line line("F113310");
  import(deposit(line, 1, "0", "1000", "20", "200"));
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM D113210 WHERE JENIS = 'other'"), std::to_string(std::size(others)));
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM D113210"), std::to_string(std::size(others) + 1));
}

TEST_F(ImportInterest, ASlipThatIsListedAlreadyGetsNoRows) {
  Line line("F113310");
  deposit(line, 1, "0", "1000", "20", "200");
  store.run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206', 1, 2009, 0, 0, 1, '000001/PPH4', '')");
  import(line);
  EXPECT_THAT(lines(), testing::IsEmpty());
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_INDUK"), "1");
}

TEST_F(ImportInterest, TheRowsKeepTheBlanksOfTheLineThatTheFormLoses) {
  Line line("F113310");
  deposit(line, 1, "0", "1000", "20", "200").with(5, " Maria Santoso ");
  import(line);
  EXPECT_EQ(store.value("SELECT NMWP FROM D113210"), " Maria Santoso ");
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"), testing::HasSubstr(";Maria Santoso;"));
}

}  // namespace
}  // namespace tarvola::test
