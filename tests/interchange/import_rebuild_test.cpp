// Rebuilding the return when the lines of a file are in.

#include <gtest/gtest.h>

#include "tarvola/interchange/CImporBP.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tests/interchange/interchange_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

constexpr const char* filer = "013121660091000";
const std::string head = "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0";

class ImportRebuild : public testing::Test {
 protected:
  void import(const Line& line) { CImporBP().pImporPPh4(line.array(), filer, 1, 2009, 0); }
  void build() { CImporBP().pBuildTRVPPh4(filer, 1, 2009, 0); }
  Variant updateD113210() {
    return CImporBP().pUpdateD113210({}, filer, 1, 2009, 0, "PT Contoh Sejahtera", "Jl. Merdeka No. 1");
  }
  void interestLine(const char* payee, const char* kind, int gross, int tax) {
    store.run(std::string("INSERT INTO D113210 VALUES ('") + payee + "', 'N', 'A', 1, 2009, 0, '08/01/2009', '1', '" +
              kind + "', '', " + std::to_string(gross) + ", 20, " + std::to_string(tax) + ", '', '0')");
  }
  std::string packed(const char* form) {
    return store.value(std::string("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = '") + form + "'");
  }
  InterchangeStore store;
};

TEST_F(ImportRebuild, TheHeadersAreMadeInTheirOrder) {
  build();
  EXPECT_THAT(
      store.rows("SELECT NPWP, KD_FORM, JENIS_DOKUMEN, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, NOBUKTI, "
                 "KD_JENIS_PAJAK, DAT_FORM, TGL_REKAM, TGL_UBAH, NIP FROM DAT_SSP_PPh22"),
      testing::ElementsAre("013121660091000|DSewaTnhBgn|11|1|2009|0|-|113|" + head + ";0;0|10/02/2009|10/02/2009|",
                           "013121660091000|DJasaKonstruksi|13|1|2009|0|-|113|" + head + ";0;0|10/02/2009|10/02/2009|",
                           "013121660091000|DAlihTnhBgn|18|1|2009|0|-|113|" + head + ";0;0|10/02/2009|10/02/2009|"));
  EXPECT_THAT(store.rows("SELECT NPWP, KD_FORM, JENIS_DOKUMEN, NOBUKTI, KD_JENIS_PAJAK, TGL_REKAM, TGL_UBAH, NIP FROM "
                         "DS_FORM_INDUK"),
              testing::ElementsAre("013121660091000|D113206|08|-|113|10/02/2009|10/02/2009|",
                                   "013121660091000|F113204|01|-|113|10/02/2009|10/02/2009|"));
  EXPECT_EQ(packed("D113206"), head + ";0;0;0;0");
}

TEST_F(ImportRebuild, TheMainFormIsTheBlankOfEightyEightFields) {
  build();
  // 60 zeros for the lines 1a1 to 10, then three lines with a text each, totals, marks and the date.
  std::string expected = head;
  for (int i = 0; i < 60; ++i) expected += ";0";
  expected += ";;0;0;0;;0;0;0;;0;0;0;0;0;0;0;0;0;0;0;0;10/02/2009";
  EXPECT_EQ(packed("F113204"), expected);
  EXPECT_EQ(split(expected, ';').size(), 88U);
}

TEST_F(ImportRebuild, BuildingTwiceMakesNoSecondRowAndLeavesTheFirst) {
  build();
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'mine' WHERE KD_FORM = 'F113204'");
  const std::vector<std::string> before = store.dump();
  build();
  EXPECT_EQ(store.dump(), before);
}

TEST_F(ImportRebuild, TheSelfPaidListsAreMadeFirstAndTheMainFormLast) {
  refuseWrites(store.storePath(), "INSERT", "DS_FORM_INDUK", "NEW.KD_FORM = 'D113206'");
  build();
  EXPECT_EQ(store.rows("SELECT KD_FORM FROM DAT_SSP_PPh22").size(), 3U);
  EXPECT_THAT(store.rows("SELECT KD_FORM FROM DS_FORM_INDUK"), testing::IsEmpty());
  EXPECT_EQ(store.messages().texts().size(), 1U);
}

TEST_F(ImportRebuild, AListThatCannotBeMadeEndsTheBuilding) {
  refuseWrites(store.storePath(), "INSERT", "DAT_SSP_PPh22", "NEW.KD_FORM = 'DJasaKonstruksi'");
  build();
  EXPECT_THAT(store.rows("SELECT KD_FORM FROM DAT_SSP_PPh22"), testing::ElementsAre("DSewaTnhBgn"));
  EXPECT_THAT(store.rows("SELECT KD_FORM FROM DS_FORM_INDUK"), testing::IsEmpty());
}

TEST_F(ImportRebuild, HeadersAreLookedForByTheNumberOfTheArgumentAndCarryThatOfProfile) {
  for (int time = 0; time < 2; ++time) CImporBP().pBuildTRVPPh4("021832415000000", 1, 2009, 0, nullptr);
  EXPECT_THAT(store.rows("SELECT NPWP FROM DS_FORM_INDUK WHERE KD_FORM = 'F113204'"),
              testing::ElementsAre(filer, filer));
}

TEST_F(ImportRebuild, WithoutAProfileTheHeadersNameNobody) {
  store.run("DELETE * FROM PROFILE");
  CImporBP().pBuildTRVPPh4("", 1, 2009, 0, nullptr);
  EXPECT_EQ(packed("D113206"), ";;;1;2009;0;0;0;0;0");
}

TEST_F(ImportRebuild, TheInterestHeaderCountsPayeesOnceAndSumsByKind) {
  interestLine("1", "DN", 100, 20);
  interestLine("1", "DN", 200, 40);
  interestLine("2", "DN", 10, 2);
  interestLine("1", "LN", 30, 3);
  interestLine("3", "SBI", 40, 6);
  interestLine("1", "GIRO", 50, 10);
  interestLine("1", "XX", 999, 999);
  const Variant result = updateD113210();
  EXPECT_EQ(packed("D113210"), head + ";2;310;62;1;30;3;1;40;6;1;50;10;5;430;81");
  EXPECT_EQ(CStr(result), packed("D113210"));
  EXPECT_EQ(store.value("SELECT JENIS_DOKUMEN, NOBUKTI, KD_JENIS_PAJAK, NIP, FlagNPWP FROM DS_FORM_INDUK"),
            "20|-|113||0");
}

TEST_F(ImportRebuild, AnEmptyPeriodGetsAnInterestHeaderOfZeros) {
  updateD113210();
  EXPECT_EQ(packed("D113210"), head + ";0;0;0;0;0;0;0;0;0;0;0;0;0;0;0");
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

TEST_F(ImportRebuild, OnlyInterestLinesOfThePeriodCount) {
  interestLine("1", "DN", 100, 20);
  for (const char* other : {"MS_PAJAK = 2", "TH_PAJAK = 2010", "KD_PEMBETULAN_KE = 1"}) {
    interestLine("2", "SBI", 40, 6);
    store.run(std::string("UPDATE D113210 SET ") + other + ", JENIS = 'DN' WHERE JENIS = 'SBI'");
  }
  updateD113210();
  EXPECT_EQ(packed("D113210"), head + ";1;100;20;0;0;0;0;0;0;0;0;0;1;100;20");
}

TEST_F(ImportRebuild, AnotherFilersInterestHeaderStays) {
  CImporBP().pUpdateD113210({}, "021832415000000", 1, 2009, 0, "PT Lain", "Jl. Lain");
  interestLine("1", "DN", 100, 20);
  updateD113210();
  EXPECT_THAT(
      store.rows("SELECT NPWP, DAT_FORM FROM DS_FORM_INDUK"),
      testing::ElementsAre("021832415000000|021832415000000;PT Lain;Jl. Lain;1;2009;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0;0",
                           std::string(filer) + "|" + head + ";1;100;20;0;0;0;0;0;0;0;0;0;1;100;20"));
}

TEST_F(ImportRebuild, TheInterestHeaderThatIsThereIsWrittenAnew) {
  updateD113210();
  interestLine("1", "DN", 100, 20);
  updateD113210();
  EXPECT_EQ(packed("D113210"), head + ";1;100;20;0;0;0;0;0;0;0;0;0;1;100;20");
}

TEST_F(ImportRebuild, AnApostropheInTheNameLeavesTheInterestHeaderAsItWas) {
  updateD113210();
  const std::string before = packed("D113210");
  EXPECT_TRUE(CImporBP().pUpdateD113210({}, filer, 1, 2009, 0, "Ma'ruf", "x").isEmpty());
  EXPECT_EQ(packed("D113210"), before);
  EXPECT_EQ(store.messages().texts().size(), 1U);
}

/// One document of each self-paid kind and two slips.
void importSmallMonth(const std::function<void(const Line&)>& import) {
  import(Line("F113319", "000001/PPH4").with(11, "1000").with(12, "10").with(13, "100").with(45, "100"));
  import(Line("F113312", "000002/PPH4").with(11, "2000").with(12, "10").with(13, "200").with(45, "200"));
  import(Line("FSewaTnhBgn", "NTPN 1").with(11, "3000").with(13, "300").with(45, "300"));
  import(Line("FJasaKonstruksi", "NTPN 2")
             .with(11, "4000")
             .with(13, "160")
             .with(16, "500")
             .with(18, "10")
             .with(45, "170"));
  import(Line("FAlihTnhBgn", "NTPN 3").with(11, "6000").with(13, "300").with(45, "300"));
}

TEST_F(ImportRebuild, TheRecountFillsTheMainFormAndAllLists) {
  importSmallMonth([&](const Line& line) { import(line); });
  build();
  CImporBP().pUpdateTRVPPh4(filer, 1, 2009, 0);
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
  EXPECT_EQ(packed("D113206"), head + ";3000;300;0;0");
  EXPECT_THAT(store.rows("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE NOBUKTI = '-'"),
              testing::ElementsAre(head + ";3000;300", head + ";4500;170", head + ";6000;300"));
  CF113204 form;
  form.pGetF113204(filer, "F113204", "01", 1, 2009, 0, "-", "113");
  EXPECT_EQ(form.aB85(), 100);
  EXPECT_EQ(form.aB5a5(), 200);
  EXPECT_EQ(form.aB5b5(), 300);
  EXPECT_EQ(form.aB6a25(), 160);
  EXPECT_EQ(form.aB6b25(), 10);
  EXPECT_EQ(form.aB75(), 300);
  EXPECT_EQ(form.aC3(), 2);
  EXPECT_EQ(CDbl(form.aJmlB5()), 1070);
}

TEST_F(ImportRebuild, DefaultRatesComeFirstAndAveragesOfTheSlipsReplaceThem) {
  import(Line("F113319").with(11, "1000").with(12, "7").with(13, "70").with(45, "70"));
  build();
  CImporBP().pUpdateTRVPPh4(filer, 1, 2009, 0);
  CF113204 form;
  form.pGetF113204(filer, "F113204", "01", 1, 2009, 0, "-", "113");
  // Line 8 has the slip's 7 percent and not the 10 of the settings; line 9 without slips has the 2,5 of the settings.
  EXPECT_EQ(CDbl(form.rs4_2Form()->get_Collect("B84")), 7);
  EXPECT_EQ(CDbl(form.rs4_2Form()->get_Collect("B94")), 2.5);
}

TEST_F(ImportRebuild, TheOlderRecountLeavesTheListOfTransfers) {
  importSmallMonth([&](const Line& line) { import(line); });
  build();
  CImporBP().pUpdateTRVPPh4_per42(filer, 1, 2009, 0);
  EXPECT_THAT(store.rows("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE NOBUKTI = '-'"),
              testing::ElementsAre(head + ";3000;300", head + ";4500;170", head + ";0;0"));
}

TEST_F(ImportRebuild, TheMainFormIsRecountedFirstThenTheListOfSlipsThenTheSelfPaidLists) {
  importSmallMonth([&](const Line& line) { import(line); });
  // A recount without that list's header, and what the other headers say when its message is shown.
  const auto whenMissing = [&](const std::string& table, const std::string& list) {
    for (const char* of : {"DS_FORM_INDUK", "DAT_SSP_PPh22"})
      store.run(std::string("DELETE * FROM ") + of + " WHERE NOBUKTI = '-'");
    build();
    const std::string blank = packed("F113204");
    store.run("DELETE * FROM " + table + " WHERE KD_FORM = '" + list + "'");
    std::vector<std::string> seen;
    const MessageBoxScope scope([&](const MessageBox&) {
      if (!seen.empty()) return;
      seen.push_back(packed("F113204") == blank ? "blank" : "recounted");
      for (const char* of : {"DS_FORM_INDUK WHERE KD_FORM = 'D113206'", "DAT_SSP_PPh22 WHERE NOBUKTI = '-'"})
        for (const std::string& row : store.rows(std::string("SELECT DAT_FORM FROM ") + of)) seen.push_back(row);
    });
    CImporBP().pUpdateTRVPPh4(filer, 1, 2009, 0);
    return seen;
  };
  EXPECT_THAT(whenMissing("DS_FORM_INDUK", "D113206"),
              testing::ElementsAre("recounted", head + ";0;0", head + ";0;0", head + ";0;0"));
  EXPECT_THAT(whenMissing("DAT_SSP_PPh22", "DJasaKonstruksi"),
              testing::ElementsAre("recounted", head + ";3000;300;0;0", head + ";3000;300", head + ";0;0"));
}

TEST_F(ImportRebuild, AFailureInTheListLeavesTheMainFormRecounted) {
  importSmallMonth([&](const Line& line) { import(line); });
  build();
  store.run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'");
  CImporBP().pUpdateTRVPPh4(filer, 1, 2009, 0);
  EXPECT_FALSE(store.messages().empty());
  CF113204 form;
  form.pGetF113204(filer, "F113204", "01", 1, 2009, 0, "-", "113");
  EXPECT_EQ(form.aB85(), 100);
}

}  // namespace
}  // namespace tarvola::test
