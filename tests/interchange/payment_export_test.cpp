// The export of payment records: three files, their titles and lines.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tarvola/interchange/CEksporSSPPBK.h"
#include "tarvola/runtime/errors.h"
#include "tests/interchange/payment_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* titlesOfBoth =
    "Kode Pasal Untuk SSP / Kode Pasal Untuk PBK ; Masa Pajak SSP / Masa(Bulan) Berlaku PBK ; Tahun Pajak SSP / Tahun "
    "Berlaku PBK ; Pembetulan (SSP) ; NTPP (Nomor Tanda Pembayaran Pajak) SSP / Nomor Bukti PBK ; Tanggal Setor SSP / "
    "Tanggal Berlaku PBK ; Jumlah SSP / Jumlah PBK ; Kode MAP SSP ; Kode Jenis Setoran (KJS) SSP";
constexpr const char* titlesOfPayments =
    "Kode Pasal Untuk SSP; Masa Pajak SSP; Tahun Pajak SSP; Pembetulan (SSP) ; NTPP (Nomor Tanda Pembayaran Pajak) SSP "
    "; Tanggal Setor SSP; Jumlah SSP ; Kode MAP SSP ; Kode Jenis Setoran (KJS) SSP";
constexpr const char* titlesOfTransfers =
    "Kode Pasal Untuk PBK ; Masa(Bulan) Berlaku PBK ; Tahun Berlaku PBK ; Nomor Bukti PBK ; Tanggal Berlaku PBK ; "
    "Jumlah PBK";

class PaymentExport : public testing::Test {
 protected:
  [[nodiscard]] std::string file() const { return store.path("payments.csv"); }
  void exportBoth(std::int16_t correction = 0) { CEksporSSPPBK().pEksporSSPPBK(filer, 4, 1, 2009, file(), correction); }
  void exportPayments(std::int16_t correction = 0) {
    CEksporSSPPBK().pEksporSSP(filer, 4, 1, 2009, file(), correction);
  }
  void exportTransfers() { CEksporSSPPBK().pEksporPBK(filer, 4, 1, 2009, file(), 0); }

  /// The lines of the file, each of which must end in CR LF.
  [[nodiscard]] std::vector<std::string> lines() const {
    std::vector<std::string> all = split(store.folder().read("payments.csv"), '\n');
    EXPECT_EQ(all.back(), "");
    all.pop_back();
    for (std::string& line : all) {
      EXPECT_TRUE(line.ends_with('\r')) << line;
      line.pop_back();
    }
    return all;
  }
  /// The lines behind the titles.
  [[nodiscard]] std::vector<std::string> records() const {
    std::vector<std::string> all = lines();
    all.erase(all.begin());
    return all;
  }

  static constexpr const char* filer = PaymentStore::filer;
  PaymentStore store;
};

// --- lines -----------------------------------------------------------------------------------------------------

TEST_F(PaymentExport, OfBothKindsHasNineColumnsPaymentsFirst) {
  store.transfer({.number = "PBK-0001/2009"});
  store.payment({});
  exportBoth();
  EXPECT_THAT(lines(), ElementsAre(titlesOfBoth, "SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;411128;402",
                                   "PBK4;1;2009;;PBK-0001/2009;15/02/2009;250000;;"));
  EXPECT_TRUE(store.messages().empty()) << "success says nothing";
}

TEST_F(PaymentExport, OfPaymentsAloneHasNineColumns) {
  store.transfer({.number = "PBK-0001/2009"});
  store.payment({});
  exportPayments();
  EXPECT_THAT(lines(), ElementsAre(titlesOfPayments, "SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;411128;402"));
}

TEST_F(PaymentExport, OfTransfersAloneHasSixColumns) {
  store.transfer({.number = "PBK-0001/2009"});
  store.payment({});
  exportTransfers();
  EXPECT_THAT(lines(), ElementsAre(titlesOfTransfers, "PBK4;1;2009;PBK-0001/2009;15/02/2009;250000"));
}

TEST_F(PaymentExport, OfAnEmptyPeriodIsTheTitlesAlone) {
  exportBoth();
  EXPECT_THAT(lines(), ElementsAre(titlesOfBoth));
  exportPayments();
  EXPECT_THAT(lines(), ElementsAre(titlesOfPayments));
  exportTransfers();
  EXPECT_THAT(lines(), ElementsAre(titlesOfTransfers));
  EXPECT_TRUE(store.messages().empty());
}

TEST_F(PaymentExport, ReplacesTheFileThatIsThere) {
  store.folder().write("payments.csv", std::string(10000, 'x'));
  exportTransfers();
  EXPECT_THAT(lines(), ElementsAre(titlesOfTransfers));
}

TEST_F(PaymentExport, WritesAmountsInTheirDefaultTextForm) {
  store.payment({.amount = "1500000.5"});
  store.payment({.date = "11/02/2009", .amount = "123456789012"});
  exportPayments();
  EXPECT_EQ(split(records()[0], ';')[6], "1500000,5");
  EXPECT_EQ(split(records()[1], ';')[6], "123456789012");
}

TEST_F(PaymentExport, CutsBlanksAndTakesLineBreaksOut) {
  store.payment({.number = "  01\r\n02 "});
  store.transfer({.number = " A\r\nB\nC "});
  exportBoth();
  const std::string bytes = store.folder().read("payments.csv");
  EXPECT_NE(bytes.find("SSP4;1;2009;0;0102;10/02/2009;"), std::string::npos);
  EXPECT_NE(bytes.find("PBK4;1;2009;;AB\nC;15/02/2009;"), std::string::npos) << "a lone one stays";
}

TEST_F(PaymentExport, LeavesTheColumnOfAMissingValueEmpty) {
  store.run("INSERT INTO DATSSP (KodePasal,MsPjk,ThPjk,KdPmbtln,KdMAP,KdJnsStr) VALUES (4,1,2009,0,'0118','100')");
  exportPayments();
  EXPECT_THAT(records(), ElementsAre("SSP4;1;2009;0;;;;0118;100"));
}

TEST_F(PaymentExport, WritesTheAnsiCodePage) {
  store.transfer({.number = "Jos\xC3\xA9"});
  exportTransfers();
  EXPECT_NE(store.folder().read("payments.csv").find("Jos\xE9;"), std::string::npos);
}

TEST_F(PaymentExport, JoinsWordAndArticleWithoutABlank) {
  store.payment({.article = 23});
  store.transfer({.number = "1", .article = 23});
  CEksporSSPPBK().pEksporSSPPBK(filer, 23, 1, 2009, file(), 0);
  EXPECT_TRUE(records()[0].starts_with("SSP23;1;2009;0;"));
  EXPECT_TRUE(records()[1].starts_with("PBK23;1;2009;;"));
}

// --- selection -------------------------------------------------------------------------------------------------

TEST_F(PaymentExport, WritesPaymentsInTheOrderOfTheirDates) {
  store.payment({.number = "third", .date = "20/02/2009"});
  store.payment({.number = "first", .date = "05/02/2009"});
  store.payment({.number = "second", .date = "10/02/2009"});
  exportPayments();
  ASSERT_THAT(records(), SizeIs(3));
  for (const auto& [place, number] : {std::pair(0U, "first"), {1U, "second"}, {2U, "third"}})
    EXPECT_EQ(split(records()[place], ';')[4], number);
}

TEST_F(PaymentExport, TakesOneArticleMonthAndCorrectionOfPaymentsWhoeverMadeThem) {
  store.payment({.number = "mine"});
  store.payment({.number = "whoever", .date = "11/02/2009", .npwp = "099999999000000"});
  store.payment({.number = "article", .article = 23});
  store.payment({.number = "month", .month = 2});
  store.payment({.number = "year", .year = 2010});
  store.payment({.number = "correction", .correction = 1});
  exportPayments();
  EXPECT_THAT(records(), SizeIs(2));
  exportPayments(1);
  ASSERT_THAT(records(), SizeIs(1));
  EXPECT_TRUE(records()[0].starts_with("SSP4;1;2009;1;correction;"));
}

TEST_F(PaymentExport, TakesTransfersOfTheMonthInFavourOfTheFilerWhateverTheCorrection) {
  store.transfer({.number = "mine"});
  store.transfer({.number = "foreign", .npwp = "099999999000000"});
  store.transfer({.number = "article", .article = 23});
  store.transfer({.number = "month", .month = 2});
  store.transfer({.number = "year", .year = 2010});
  exportBoth(5);
  EXPECT_THAT(records(), ElementsAre("PBK4;1;2009;;mine;15/02/2009;250000;;"));
}

TEST_F(PaymentExport, KnowsAccountsAndKindsOfPaymentOneByOne) {
  static constexpr const char* kinds[] = {"100", "199", "300", "310", "312", "320", "322", "390", "401",
                                          "402", "403", "404", "405", "406", "407", "408", "409", "416",
                                          "417", "418", "419", "499", "500", "501", "510", "511"};
  for (const char* kind : kinds) store.payment({.number = "p", .account = "0173", .kind = kind});
  for (const char* account : {"0118", "0171", "0172", "411128"}) store.payment({.number = "p", .account = account});
  for (const char* kind : {"101", "410", "900", "420"}) store.payment({.number = "other", .kind = kind});
  for (const char* account : {"0174", "411121"}) store.payment({.number = "other", .account = account});
  exportPayments();
  EXPECT_THAT(records(), SizeIs(std::size(kinds) + 4)) << "401 stands twice in the list and is written once";
  EXPECT_THAT(records(), testing::Not(testing::Contains(testing::HasSubstr("other"))));
  exportBoth();
  EXPECT_THAT(records(), SizeIs(std::size(kinds) + 4));
}

// --- failures --------------------------------------------------------------------------------------------------

TEST_F(PaymentExport, IntoAFolderThatDoesNotExistShowsItsOwnMessage) {
  CEksporSSPPBK payments;
  const std::string path = store.path("missing/payments.csv");
  payments.pEksporSSPPBK(filer, 4, 1, 2009, path, 0);
  payments.pEksporSSP(filer, 4, 1, 2009, path, 0);
  payments.pEksporPBK(filer, 4, 1, 2009, path, 0);
  ASSERT_THAT(store.messages().boxes(), SizeIs(3));
  for (const MessageBox& box : store.messages().boxes()) {
    EXPECT_EQ(box.text, "Lokasi Atau Tempat Penyimpanan Data Yang Akan Diekspor Tidak Valid/Tidak Ditemukan");
    EXPECT_EQ(box.title, "INFORMASI");
    EXPECT_EQ(box.icon, MessageIcon::Information);
  }
}

TEST_F(PaymentExport, ToAFileThatCannotBeWrittenShowsTheDescriptionWithoutATitle) {
  CEksporSSPPBK().pEksporSSP(filer, 4, 1, 2009, store.folder().path(), 0);
  ASSERT_THAT(store.messages().boxes(), SizeIs(1));
  EXPECT_EQ(store.messages().boxes()[0].title, "");
  EXPECT_EQ(store.messages().boxes()[0].icon, MessageIcon::None);
}

// The file is made before the store is asked, so that it is there with its titles.
TEST_F(PaymentExport, ThatFailsHalfWayLeavesTheFileAsFarAsItWasWritten) {
  store.payment({});
  CEksporSSPPBK().pEksporSSPPBK("' OR '1' = '1", 4, 1, 2009, file(), 0);
  EXPECT_THAT(lines(), ElementsAre(titlesOfBoth, "SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;411128;402"));
  ASSERT_THAT(store.messages().texts(), ElementsAre(testing::HasSubstr("Syntax error")));
  EXPECT_EQ(store.messages().boxes()[0].title, "");
}

TEST_F(PaymentExport, ToAFullDiskShowsIt) {
  store.payment({});
  CEksporSSPPBK().pEksporSSPPBK(filer, 4, 1, 2009, "/dev/full", 0);
  EXPECT_THAT(store.messages().texts(), ElementsAre(errorText(ErrorNumber::DiskFull)));
}

TEST_F(PaymentExport, ChangesNothingInTheStore) {
  store.payment({});
  store.transfer({.number = "1"});
  const std::vector<std::string> before = store.records();
  exportBoth();
  EXPECT_EQ(store.records(), before);
}

TEST(PaymentExportWithoutSettings, ShowsItsFailureOnceAtTheStartAndOnceForEachOperation) {
  moduleState() = {};
  CapturedMessages messages;
  TempFolder folder;
  {
    CEksporSSPPBK payments;
    EXPECT_THAT(messages.boxes(), SizeIs(1));
    payments.pEksporSSP("1", 4, 1, 2009, folder.path("payments.csv"), 0);
  }
  EXPECT_THAT(messages.boxes(), SizeIs(2)) << "its end says nothing more";
}

}  // namespace
}  // namespace tarvola::test
