// The import of payment records: lines, look-ups, and the main return behind them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "tarvola/interchange/CEksporSSPPBK.h"
#include "tarvola/interchange/CImporSSPPBK.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/field_access.h"
#include "tests/interchange/payment_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr const char* payment = "SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;411128;402";
constexpr const char* transfer = "PBK4;1;2009;PBK-0001/2009;15/02/2009;250000";

class PaymentImport : public testing::Test {
 protected:
  void import(const std::string& line, std::int16_t month = 1, std::int16_t year = 2009, std::int16_t correction = 0) {
    importer.pImporSSPPBK(arrayOf(line), month, year, correction);
  }
  void importPaymentsOnly(const std::string& line) { importer.pImporSSP(arrayOf(line), 1, 2009, 0); }
  [[nodiscard]] std::string description(ErrorNumber number) const { return std::string(errorText(number)); }

  PaymentStore store;
  CImporSSPPBK importer;
};

// --- payments --------------------------------------------------------------------------------------------------

TEST_F(PaymentImport, StoresAPaymentUnderTheFilerOfTheProfile) {
  import(payment);
  EXPECT_THAT(store.payments(), ElementsAre("0|4|013121660091000|1|2009|0|411128|402|10/02/2009|0102030405060708|"
                                            "1500000||"));
  EXPECT_THAT(store.transfers(), IsEmpty());
  EXPECT_TRUE(store.messages().empty());
}

TEST_F(PaymentImport, StoresThePeriodOfItsArgumentsNotOfTheLine) {
  import(payment, 12, 2010, 3);
  EXPECT_THAT(store.payments(), ElementsAre(StartsWith("0|4|013121660091000|12|2010|3|")));
}

TEST_F(PaymentImport, CutsBlanksAroundEveryColumn) {
  import(" SSP4 ; 1 ; 2009 ; 0 ; 0102030405060708 ; 10/02/2009 ; 1500000 ; 411128 ; 402 ");
  EXPECT_THAT(store.payments(), ElementsAre("0|4|013121660091000|1|2009|0|411128|402|10/02/2009|0102030405060708|"
                                            "1500000||"));
}

TEST_F(PaymentImport, CutsTheCentsOfAnAmount) {
  const auto stored = [this](const std::string& amount) {
    store.run("DELETE * FROM DATSSP");
    import("SSP4;1;2009;0;1;10/02/2009;" + amount + ";411128;402");
    return store.value("SELECT JmlByr FROM DATSSP");
  };
  EXPECT_EQ(stored("100000,75"), "100000");
  EXPECT_EQ(stored("100000.75"), "100000");
  EXPECT_EQ(stored("1.500.000,99"), "1500000");
  EXPECT_EQ(stored("100.000"), "100000");
  EXPECT_EQ(stored("0,99"), "0");
  EXPECT_TRUE(store.messages().empty());
}

TEST_F(PaymentImport, AddsNothingForAPaymentThatIsThere) {
  import(payment);
  import(payment);
  import("SSP4;1;2009;0;0102030405060708;10/02/2009;999;411128;402");
  EXPECT_THAT(store.payments(), SizeIs(1)) << "also with another amount";
}

TEST_F(PaymentImport, TellsPaymentsApartByEveryPartOfTheirKey) {
  import(payment);
  import("SSP23;1;2009;0;0102030405060708;10/02/2009;1500000;411128;402");
  import("SSP4;1;2009;0;0102030405060709;10/02/2009;1500000;411128;402");
  import("SSP4;1;2009;0;0102030405060708;11/02/2009;1500000;411128;402");
  import("SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;0118;402");
  import("SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;411128;403");
  import(payment, 2);
  import(payment, 1, 2010);
  import(payment, 1, 2009, 1);
  EXPECT_THAT(store.payments(), SizeIs(9));
  EXPECT_TRUE(store.messages().empty());
}

TEST_F(PaymentImport, StoresAnotherWordInSilenceNowhere) {
  for (const char* line : {"STP4;1;2009;0;1;10/02/2009;1;411128;402", "ssp4;1;2009;0;1;10/02/2009;1;411128;402",
                           "pbk4;1;2009;1;15/02/2009;1", "1234;"})
    import(line);
  EXPECT_THAT(store.records(), IsEmpty());
  EXPECT_TRUE(store.messages().empty());
}

TEST_F(PaymentImport, FailsOverTheLineOfTitles) {
  import("Kode Pasal Untuk SSP / Kode Pasal Untuk PBK ; Masa Pajak SSP / Masa(Bulan) Berlaku PBK");
  importPaymentsOnly("Kode Pasal Untuk SSP; Masa Pajak SSP; Tahun Pajak SSP");
  EXPECT_THAT(store.records(), IsEmpty());
  EXPECT_THAT(store.messages().texts(),
              ElementsAre(description(ErrorNumber::TypeMismatch), description(ErrorNumber::TypeMismatch)));
}

TEST_F(PaymentImport, ReadsTheArticleBeforeTheFiler) {
  dropTable(store.storePath(), "PROFILE");
  import("Kode Pasal Untuk SSP / Kode Pasal Untuk PBK ; Masa Pajak SSP / Masa(Bulan) Berlaku PBK");
  EXPECT_THAT(store.messages().texts(), ElementsAre(description(ErrorNumber::TypeMismatch)));
  store.messages().clear();
  import("XXX4;1;2009;0");
  EXPECT_THAT(store.messages().texts(), ElementsAre(testing::HasSubstr("PROFILE"))) << "and the filer before the word";
}

TEST_F(PaymentImport, StoresUnderAnEmptyNumberWithoutAProfile) {
  store.run("DELETE * FROM PROFILE");
  import(payment);
  EXPECT_THAT(store.payments(), ElementsAre(StartsWith("0|4||1|2009|0|")));
}

// --- payments without a number ---------------------------------------------------------------------------------

constexpr const char* unnumbered = "SSP4;1;2009;0;0000000000000000;10/02/2009;1500000;411128;402";

// The key is asked for with the column before the date, which holds the sixteen zeros.
TEST_F(PaymentImport, StoresAPaymentWithoutANumberUnderKeyZeroAfterTheMessageOfItsKey) {
  import(unnumbered);
  EXPECT_THAT(store.payments(), ElementsAre("0|4|013121660091000|1|2009|0|411128|402|10/02/2009|0000000000000000|"
                                            "1500000||"));
  EXPECT_THAT(store.messages().texts(), ElementsAre(criteriaMismatchText()));
}

TEST(PaymentMonth, HasSixCharactersForAMonthOfOneDigitAndOfTwo) {
  EXPECT_EQ(store::monthText(1, 2009), "012009");
  EXPECT_EQ(store::monthText(12, 2009), "122009");
}

TEST_F(PaymentImport, StoresAPaymentWithoutANumberEachTime) {
  for (int time = 0; time < 3; ++time) import(unnumbered);
  EXPECT_THAT(store.rows("SELECT TableKey FROM DATSSP"), ElementsAre("0", "0", "0"));
}

TEST_F(PaymentImport, KnowsOnlySixteenZerosAsNoNumber) {
  for (int time = 0; time < 2; ++time) {
    import("SSP4;1;2009;0;000000000000000;10/02/2009;1500000;411128;402");
    import("SSP4;1;2009;0; 0000000000000001 ;10/02/2009;1500000;411128;402");
    import("SSP4;1;2009;0;;10/02/2009;1500000;411128;402");
  }
  EXPECT_THAT(store.payments(), SizeIs(3));
  EXPECT_TRUE(store.messages().empty());
}

// --- transfers -------------------------------------------------------------------------------------------------

TEST_F(PaymentImport, StoresATransferInThirtyEightColumns) {
  import(transfer);
  EXPECT_TRUE(store.messages().empty());
  EXPECT_THAT(store.transfers(),
              ElementsAre("4|PBK-0001/2009|1|2009|1|||15/02/2009||||||1|2009||||||PT Contoh Sejahtera|"
                          "Jl. Merdeka No. 1|013121660091000|||1|2009||||||15/02/2009|250000||15/02/2009||"));
  EXPECT_EQ(split(store.transfers()[0], '|').size(), 38U);
}

TEST_F(PaymentImport, StoresATransferForTheMonthOfItsLine) {
  importer.pImporSSPPBK(arrayOf("PBK4;11;2010;1;15/02/2009;250000,99"), 1, 2009, 0);
  EXPECT_EQ(store.value("SELECT MsPjkPBK, ThPjkPBK, JumlahPBK FROM datPBKPPhMasa"), "11|2010|250000");
}

TEST_F(PaymentImport, AddsNothingForATransferThatIsThere) {
  import(transfer);
  import(transfer);
  import("PBK4;1;2009;PBK-0001/2009;16/02/2009;999");
  EXPECT_THAT(store.transfers(), SizeIs(1));
  import("PBK4;2;2009;PBK-0001/2009;15/02/2009;250000");
  import("PBK4;1;2010;PBK-0001/2009;15/02/2009;250000");
  import("PBK23;1;2009;PBK-0001/2009;15/02/2009;250000");
  import("PBK4;1;2009;PBK-0002/2009;15/02/2009;250000");
  EXPECT_THAT(store.transfers(), SizeIs(5));
}

TEST_F(PaymentImport, OfPaymentsAlonePassesTransfersOver) {
  importPaymentsOnly(transfer);
  importPaymentsOnly(payment);
  EXPECT_THAT(store.transfers(), IsEmpty());
  EXPECT_THAT(store.payments(), SizeIs(1));
  EXPECT_TRUE(store.messages().empty());
}

// In the file of both kinds the number stands one column further right, where the date is looked for.
TEST_F(PaymentImport, FailsOverATransferOfNineColumns) {
  import("PBK4;1;2009;;PBK-0001/2009;15/02/2009;250000;;");
  EXPECT_THAT(store.transfers(), IsEmpty());
  EXPECT_THAT(store.messages().texts(), SizeIs(1)) << "the look-up finds nothing, the insert fails";
}

// --- lines that cannot be taken --------------------------------------------------------------------------------

struct BadLine {
  const char* because;
  const char* line;
  /// One for the look-up and one for the insert, where both meet the fault.
  std::size_t messageCount = 2;
};

class BadPaymentLine : public PaymentImport, public testing::WithParamInterface<BadLine> {};

TEST_P(BadPaymentLine, ShowsAMessageAndStoresNothing) {
  import(GetParam().line);
  EXPECT_THAT(store.records(), IsEmpty());
  EXPECT_THAT(store.messages().texts(), SizeIs(GetParam().messageCount)) << GetParam().because;
  for (const MessageBox& box : store.messages().boxes()) EXPECT_EQ(box.title, "");
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BadPaymentLine,
    testing::Values(
        BadLine{"the line is empty", "", 1}, BadLine{"no article stands behind the word", "SSP;1;2009;0", 1},
        BadLine{"the article is no number", "SSPx;1;2009;0;1;10/02/2009;1;411128;402", 1},
        BadLine{"the article is too large", "SSP40000;1;2009;0;1;10/02/2009;1;411128;402", 1},
        BadLine{"the columns behind the period are missing", "SSP4;1;2009;0", 1},
        BadLine{"the last column is missing", "SSP4;1;2009;0;1;10/02/2009;1;411128"},
        BadLine{"the date is none", "SSP4;1;2009;0;1;31/02/2009;1;411128;402"},
        BadLine{"the date is missing", "SSP4;1;2009;0;1;;1;411128;402"},
        BadLine{"the amount is none", "SSP4;1;2009;0;1;10/02/2009;satu juta;411128;402", 1},
        BadLine{"the amount is missing", "SSP4;1;2009;0;1;10/02/2009;;411128;402", 1},
        BadLine{"an apostrophe stands in the number", "SSP4;1;2009;0;1' OR '1'='1;10/02/2009;1;411128;402"},
        BadLine{"an apostrophe stands in the account", "SSP4;1;2009;0;1;10/02/2009;1;'); DELETE * FROM PROFILE --;402"},
        BadLine{"an apostrophe stands in the kind", "SSP4;1;2009;0;1;10/02/2009;1;411128;'"},
        BadLine{"an apostrophe stands in the date", "SSP4;1;2009;0;1;'10/02/2009';1;411128;402"},
        BadLine{"the month of a transfer is no number", "PBK4;Januari;2009;1;15/02/2009;250000"},
        BadLine{"the year of a transfer would end the statement", "PBK4;1;2009 OR 1 = 1;1;15/02/2009;250000"},
        BadLine{"the date of a transfer is none", "PBK4;1;2009;1;soon;250000", 1},
        BadLine{"the amount of a transfer is none", "PBK4;1;2009;1;15/02/2009;x", 1},
        BadLine{"an apostrophe stands in the number of a transfer", "PBK4;1;2009;1';15/02/2009;250000"},
        BadLine{"columns of a transfer are missing", "PBK4;1;2009;1", 1}));

TEST_F(PaymentImport, FailsOverWhatIsNoArray) {
  importer.pImporSSPPBK(Variant("SSP4"), 1, 2009, 0);
  importer.pImporSSP(Variant(), 1, 2009, 0);
  EXPECT_THAT(store.messages().texts(),
              ElementsAre(description(ErrorNumber::TypeMismatch), description(ErrorNumber::TypeMismatch)));
}

TEST_F(PaymentImport, TakesColumnsThatAreNoTexts) {
  importer.pImporSSPPBK(
      Variant(Variant::Array{"SSP4", 1, 2009, 0, "1", Date::fromYmd(2009, 2, 10), 1500000.75, "411128", 402}), 1, 2009,
      0);
  EXPECT_TRUE(store.messages().empty());
  EXPECT_THAT(store.payments(), ElementsAre("0|4|013121660091000|1|2009|0|411128|402|10/02/2009|1|1500000||"));
}

TEST_F(PaymentImport, GoesOnBehindALineThatFailed) {
  import("SSP4;1;2009;0;1;no date;1;411128;402");
  import(payment);
  EXPECT_THAT(store.payments(), SizeIs(1));
}

TEST_F(PaymentImport, LeavesNothingButRecordsBehindAnyText) {
  for (const char* text : {"\" --", "\\", "a\nb", "[x]", "#1#", "?", "%_*", "\xC3\xA9"}) {
    store.run("DELETE * FROM DATSSP");
    import(std::string("SSP4;1;2009;0;") + text + ";10/02/2009;1;411128;402");
    EXPECT_EQ(store.value("SELECT NTPP FROM DATSSP"), text);
  }
  EXPECT_TRUE(store.messages().empty());
}

// --- there and back --------------------------------------------------------------------------------------------

TEST_F(PaymentImport, TakesBackWhatTheExportWrote) {
  for (const char* number : {"0102030405060708", "0102030405060709"})
    store.payment({.number = number, .amount = "1500000"});
  import(transfer);
  CEksporSSPPBK files;
  files.pEksporSSP(PaymentStore::filer, 4, 1, 2009, store.path("payments.csv"), 0);
  files.pEksporPBK(PaymentStore::filer, 4, 1, 2009, store.path("transfers.csv"), 0);
  const std::vector<std::string> before = store.records();
  store.run("DELETE * FROM DATSSP");
  store.run("DELETE * FROM datPBKPPhMasa");
  for (const char* file : {"payments.csv", "transfers.csv"})
    for (const std::string& line : split(store.folder().read(file), '\n'))
      if (line.starts_with("SSP4") || line.starts_with("PBK4")) import(line.substr(0, line.size() - 1));
  EXPECT_EQ(store.records(), before);
}

// --- look-ups --------------------------------------------------------------------------------------------------

TEST_F(PaymentImport, ShowsTheTransfersOfAMonth) {
  store.transfer({.number = "mine"});
  store.transfer({.number = "foreign", .npwp = "099999999000000"});
  store.transfer({.number = "month", .month = 2});
  store.transfer({.number = "year", .year = 2010});
  store.transfer({.number = "article", .article = 23});
  const RecordsetPtr found = importer.pGetPBK(PaymentStore::filer, 4, 1, 2009);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->get_RecordCount(), 1);
  EXPECT_EQ(store::fieldText(found, "NoBuktiPBK"), "mine");
  EXPECT_EQ(importer.pGetPBK("'", 4, 1, 2009), nullptr);
  EXPECT_THAT(store.messages().texts(), SizeIs(1));
}

TEST_F(PaymentImport, ShowsThePaymentsOfAPeriodInTheOrderOfTheirDates) {
  store.payment({.number = "second", .date = "20/02/2009"});
  store.payment({.number = "first", .date = "05/02/2009"});
  store.payment({.number = "correction", .correction = 1});
  store.payment({.number = "month", .month = 11});
  store.payment({.number = "article", .article = 23});
  const auto numbers = [this](const char* month, const char* correction) {
    const RecordsetPtr found = importer.pGetSSP("", 4, month, "2009", correction);
    std::string all;
    for (; !found->get_EOF(); found->MoveNext()) all += store::fieldText(found, "NTPP") + " ";
    return all;
  };
  EXPECT_EQ(numbers("1", "0"), "first second ");
  EXPECT_EQ(numbers("01", "1"), "correction ");
  EXPECT_EQ(numbers("11", "0"), "month ");
}

TEST_F(PaymentImport, ShowsFewerKindsOfPaymentThanTheExportWrites) {
  for (const char* kind : {"390", "416", "417", "401"}) store.payment({.kind = kind});
  const RecordsetPtr shown = importer.pGetSSP("", 4, "1", "2009", "0");
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(shown->get_RecordCount(), 2);
  CEksporSSPPBK().pEksporSSP(PaymentStore::filer, 4, 1, 2009, store.path("payments.csv"), 0);
  EXPECT_EQ(split(store.folder().read("payments.csv"), '\n').size(), 6U) << "titles, four payments, the last line end";
}

TEST_F(PaymentImport, ShowsAccountsAndKindsOfPaymentOneByOne) {
  static constexpr const char* kinds[] = {"100", "199", "300", "310", "312", "320", "322", "401",
                                          "402", "403", "404", "405", "406", "407", "408", "409",
                                          "417", "418", "419", "499", "500", "501", "510", "511"};
  for (const char* kind : kinds) store.payment({.account = "0173", .kind = kind});
  for (const char* account : {"0118", "0171", "0172", "411128"}) store.payment({.account = account});
  for (const char* kind : {"101", "390", "410", "416", "900"}) store.payment({.number = "other", .kind = kind});
  for (const char* account : {"0174", "411121"}) store.payment({.number = "other", .account = account});
  const RecordsetPtr shown = importer.pGetSSP("", 4, "1", "2009", "0");
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(shown->get_RecordCount(), static_cast<std::int32_t>(std::size(kinds) + 4));
  for (; !shown->get_EOF(); shown->MoveNext()) EXPECT_NE(store::fieldText(shown, "NTPP"), "other");
}

TEST_F(PaymentImport, ShowsNothingForAPeriodThatIsNoNumber) {
  EXPECT_EQ(importer.pGetSSP("", 4, "Januari", "2009", "0"), nullptr);
  EXPECT_EQ(importer.pGetSSP("", 4, "1", "2009", "0 OR 1 = 1"), nullptr);
  EXPECT_EQ(importer.pGetSSP("", 4, "1", "2009", ""), nullptr);
  EXPECT_THAT(store.messages().texts(), SizeIs(3));
}

TEST_F(PaymentImport, ItsRecordsetsCanBeChangedAndAreClosedWithIt) {
  store.payment({});
  RecordsetPtr shown;
  {
    CImporSSPPBK other;
    shown = other.pGetSSP("", 4, "1", "2009", "0");
    shown->put_Collect("JmlByr", 5.0);
    shown->Update();
    EXPECT_EQ(store.value("SELECT JmlByr FROM DATSSP"), "5");
  }
  EXPECT_EQ(shown->get_State(), adStateClosed);
}

// --- main return -----------------------------------------------------------------------------------------------

class PaymentsInTheReturn : public PaymentImport {
 protected:
  void makeReturn(std::int16_t correction = 0) {
    CF113204().pCreateF113204Hdr(PaymentStore::filer, "F113204", "01", 1, 2009, correction, "-", "113", "PT Contoh",
                                 "Jakarta", "10/02/2009");
  }
  static std::string marks(std::int16_t correction = 0) {
    CF113204 mainReturn;
    mainReturn.pGetF113204("", "F113204", "01", 1, 2009, correction, "-", "113");
    return CStr(mainReturn.aC1()) + " " + CStr(std::int32_t{mainReturn.aCHKC1()});
  }
};

TEST_F(PaymentsInTheReturn, GiveMinusOneAsTheCorrectionOfAMonthWithoutAReturn) {
  EXPECT_EQ(importer.aMaxKdPembetulan("", "F113204", 1, 2009), -1);
  makeReturn(0);
  makeReturn(2);
  EXPECT_EQ(importer.aMaxKdPembetulan("", "F113204", 1, 2009), 2);
  EXPECT_EQ(importer.aMaxKdPembetulan("", "F113204", 2, 2009), -1);
  EXPECT_EQ(importer.aMaxKdPembetulan("", "F113309", 1, 2009), -1);
  EXPECT_TRUE(store.messages().empty());
  EXPECT_EQ(importer.aMaxKdPembetulan("", "'", 1, 2009), 0);
  EXPECT_THAT(store.messages().texts(), SizeIs(1));
}

TEST_F(PaymentsInTheReturn, DoNothingWithoutAReturn) {
  store.payment({});
  const std::vector<std::string> before = store.dump();
  importer.pUpdateTRVPPh4(PaymentStore::filer, 1, 2009);
  importer.pUpdateTRVPPh4_2009(PaymentStore::filer, 1, 2009);
  EXPECT_EQ(store.dump(), before);
  EXPECT_TRUE(store.messages().empty());
}

TEST_F(PaymentsInTheReturn, AreCountedIntoTheLatestCorrectionAlone) {
  makeReturn(0);
  makeReturn(1);
  store.payment({});
  for (int i = 0; i < 2; ++i) store.payment({.kind = "999", .correction = 1});
  store.transfer({.number = "1"});
  store.transfer({.number = "of whomever", .npwp = "099999999000000"});
  store.transfer({.number = "article", .article = 23});
  importer.pUpdateTRVPPh4(PaymentStore::filer, 1, 2009);
  EXPECT_EQ(marks(1), "4 1") << "whatever account and kind of payment";
  EXPECT_EQ(marks(0), "0 0");
  EXPECT_TRUE(store.messages().empty());
}

TEST_F(PaymentsInTheReturn, AreCountedTheSameWayByBothOperations) {
  makeReturn();
  store.payment({});
  importer.pUpdateTRVPPh4_2009(PaymentStore::filer, 1, 2009);
  EXPECT_EQ(marks(), "1 1");
  const std::vector<std::string> after = store.dump();
  importer.pUpdateTRVPPh4(PaymentStore::filer, 1, 2009);
  EXPECT_EQ(store.dump(), after);
}

TEST_F(PaymentsInTheReturn, AreMarkedAlsoWhereThereAreNone) {
  makeReturn();
  importer.pUpdateTRVPPh4(PaymentStore::filer, 1, 2009);
  EXPECT_EQ(marks(), "0 1");
}

TEST_F(PaymentsInTheReturn, LeaveItsLinesNormalised) {
  makeReturn();
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "F113204", "01", 1, 2009, 0, "-", "113");
  mainReturn.aB33(1000.9);
  mainReturn.aB35(100.9);
  mainReturn.pUpdate();
  importer.pUpdateTRVPPh4(PaymentStore::filer, 1, 2009);
  mainReturn.pGetF113204("", "F113204", "01", 1, 2009, 0, "-", "113");
  EXPECT_EQ(mainReturn.aB33(), 1000);
  EXPECT_EQ(mainReturn.aJmlB5(), Variant(100.0));
}

TEST(PaymentImportWithoutSettings, ShowsItsFailureAtTheStartAndForEachOperation) {
  moduleState() = {};
  CapturedMessages messages;
  {
    CImporSSPPBK importer;
    EXPECT_THAT(messages.boxes(), SizeIs(1));
    messages.clear();
    importer.pImporSSPPBK(arrayOf(payment), 1, 2009, 0);
    EXPECT_EQ(importer.pGetPBK("", 4, 1, 2009), nullptr);
    EXPECT_EQ(importer.pGetSSP("", 4, "1", "2009", "0"), nullptr);
    EXPECT_EQ(importer.aMaxKdPembetulan("", "F113204", 1, 2009), 0);
  }
  EXPECT_THAT(messages.boxes(), SizeIs(4)) << "its end says nothing more";
}

}  // namespace
}  // namespace tarvola::test
