// Payment files as a whole: every line accounted for, nothing booked where it does not belong, nothing doubled.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tarvola/interchange/CEksporSSPPBK.h"
#include "tarvola/interchange/CImporSSPPBK.h"
#include "tarvola/interchange/payment_codes.h"
#include "tarvola/interchange/payment_file_import.h"
#include "tarvola/runtime/errors.h"
#include "tests/interchange/payment_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* payment = "SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;411128;402";
constexpr const char* unnumbered = "SSP4;1;2009;0;0000000000000000;10/02/2009;1500000;411128;402";
constexpr const char* transfer = "PBK4;1;2009;PBK-0001/2009;15/02/2009;250000";
constexpr const char* transferAmongPayments = "PBK4;1;2009;;PBK-0001/2009;15/02/2009;250000;;";

class PaymentFile : public testing::Test {
 protected:
  PaymentFileImportResult importBytes(const std::string& bytes) const {
    store.folder().write("pay.csv", bytes);
    return importPaymentFile(
        {.path = store.path("pay.csv"), .month = 1, .year = 2009, .rejectPath = store.path("rejects.csv")});
  }
  PaymentFileImportResult importLines(const std::vector<std::string>& lines) const {
    return importBytes(join(lines, "\r\n") + "\r\n");
  }
  /// "read = stored + already there + refused".
  static std::string account(const ImportAccount& result) {
    return std::to_string(result.read) + " = " + std::to_string(result.stored) + " + " +
           std::to_string(result.alreadyThere) + " + " + std::to_string(result.refused);
  }
  template <class Action>
  static std::string failure(Action action) {
    try {
      action();
    } catch (const RunTimeError& error) {
      return error.description();
    }
    return "none";
  }

  PaymentStore store;
};

TEST_F(PaymentFile, StoresTheRowsThatTheOperationForOneLineStores) {
  CImporSSPPBK importer;
  importer.pImporSSPPBK(arrayOf(payment), 1, 2009, 0);
  importer.pImporSSPPBK(arrayOf(transfer), 1, 2009, 0);
  const std::vector<std::string> expected = store.records();
  ASSERT_THAT(expected, SizeIs(2));
  store.run("DELETE * FROM DATSSP");
  store.run("DELETE * FROM datPBKPPhMasa");
  EXPECT_EQ(account(importLines({payment, transfer})), "2 = 2 + 0 + 0");
  EXPECT_EQ(store.records(), expected);
  EXPECT_TRUE(store.messages().empty());
}

TEST_F(PaymentFile, TakesTransfersOfSixAndOfNineColumns) {
  EXPECT_EQ(account(importLines({transferAmongPayments})), "1 = 1 + 0 + 0");
  const std::vector<std::string> stored = store.transfers();
  EXPECT_EQ(account(importLines({transfer})), "1 = 0 + 1 + 0");
  store.run("DELETE * FROM datPBKPPhMasa");
  importLines({transfer});
  EXPECT_EQ(store.transfers(), stored);
}

TEST_F(PaymentFile, TakesBackWhatEachExportWrote) {
  store.payment({});
  store.payment({.number = "0000000000000000", .date = "11/02/2009", .amount = "7"});
  store.payment({.number = "0000000000000000", .date = "11/02/2009", .amount = "7"});
  CImporSSPPBK().pImporSSPPBK(arrayOf(transfer), 1, 2009, 0);
  const std::vector<std::string> before = store.records();
  CEksporSSPPBK files;
  files.pEksporSSPPBK(PaymentStore::filer, 4, 1, 2009, store.path("both.csv"), 0);
  files.pEksporSSP(PaymentStore::filer, 4, 1, 2009, store.path("ssp.csv"), 0);
  files.pEksporPBK(PaymentStore::filer, 4, 1, 2009, store.path("pbk.csv"), 0);
  EXPECT_EQ(account(importBytes(store.folder().read("both.csv"))), "4 = 0 + 4 + 0");
  store.run("DELETE * FROM DATSSP");
  store.run("DELETE * FROM datPBKPPhMasa");
  EXPECT_EQ(account(importBytes(store.folder().read("ssp.csv"))), "3 = 3 + 0 + 0");
  EXPECT_EQ(account(importBytes(store.folder().read("pbk.csv"))), "1 = 1 + 0 + 0");
  EXPECT_EQ(store.records(), before);
}

TEST_F(PaymentFile, KnowsPaymentsWithoutANumberByAllThatTheySayAsOftenAsTheySayIt) {
  const PaymentFileImportResult first = importLines({unnumbered, unnumbered});
  EXPECT_EQ(account(first), "2 = 2 + 0 + 0");
  EXPECT_EQ(first.unnumberedStored, 2U);
  const PaymentFileImportResult again = importLines({unnumbered, unnumbered, unnumbered});
  EXPECT_EQ(account(again), "3 = 1 + 2 + 0");
  EXPECT_EQ(again.unnumberedStored, 1U);
  EXPECT_EQ(account(importLines({"SSP4;1;2009;0;0000000000000000;10/02/2009;1500001;411128;402"})), "1 = 1 + 0 + 0");
  EXPECT_THAT(store.rows("SELECT TableKey FROM DATSSP"), ElementsAre("0", "0", "0", "0"));
  EXPECT_TRUE(store.messages().empty()) << "no search for a key that is never found";
}

TEST_F(PaymentFile, KnowsANumberWithoutRegardToCase) {
  EXPECT_EQ(account(importLines({"PBK4;1;2009;pbk-a;15/02/2009;1", "PBK4;1;2009;PBK-A;15/02/2009;1"})),
            "2 = 1 + 1 + 0");
}

TEST_F(PaymentFile, TellsPaymentsApartByEveryPartOfTheirKey) {
  EXPECT_EQ(account(importLines({payment, "SSP4;1;2009;0;0102030405060709;10/02/2009;1500000;411128;402",
                                 "SSP4;1;2009;0;0102030405060708;11/02/2009;1500000;411128;402",
                                 "SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;0118;402",
                                 "SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;411128;403"})),
            "5 = 5 + 0 + 0");
}

TEST_F(PaymentFile, LeavesWhatTheStoreHasOtherwise) {
  importLines({payment, transfer});
  const std::vector<std::string> before = store.records();
  const PaymentFileImportResult result =
      importLines({"SSP4;1;2009;0;0102030405060708;10/02/2009;1500001;411128;402",
                   "PBK4;1;2009;PBK-0001/2009;15/02/2009;250001", "PBK4;1;2009;PBK-0001/2009;16/02/2009;250000"});
  EXPECT_EQ(account(result), "3 = 0 + 0 + 3");
  EXPECT_EQ(result.firstRefused.at(0).reason,
            "payment 0102030405060708 is in the store with 1.500.000 rupiah, which stay");
  EXPECT_EQ(store.records(), before);
}

TEST_F(PaymentFile, TakesEveryCodeThatAnExportTakesAndNoOther) {
  std::vector<std::string> lines;
  for (const PaymentCode& account : paymentAccounts)
    for (const PaymentCode& kind : paymentKinds)
      lines.push_back("SSP4;1;2009;0;1;10/02/2009;1;" + std::string(account.code) + ";" + std::string(kind.code));
  EXPECT_EQ(account(importLines(lines)), "130 = 130 + 0 + 0") << "5 accounts of 26 kinds";
  CEksporSSPPBK().pEksporSSP(PaymentStore::filer, 4, 1, 2009, store.path("ssp.csv"), 0);
  EXPECT_THAT(split(store.folder().read("ssp.csv"), '\n'), SizeIs(1 + 130 + 1));
  for (const char* line : {"SSP4;1;2009;0;2;10/02/2009;1;411121;402", "SSP4;1;2009;0;2;10/02/2009;1;411128;200",
                           "SSP4;1;2009;0;2;10/02/2009;1;;402", "SSP4;1;2009;0;2;10/02/2009;1;411128;"})
    EXPECT_EQ(account(importLines({line})), "1 = 0 + 0 + 1") << line;
}

TEST_F(PaymentFile, TakesADayOnlyAsItIsMeant) {
  const auto stored = [this](const std::string& day) {
    store.run("DELETE * FROM DATSSP");
    importLines({"SSP4;1;2009;0;1;" + day + ";1;411128;402"});
    return store.payments().empty() ? "" : store.value("SELECT TglSSP FROM DATSSP");
  };
  EXPECT_EQ(stored("10/02/2009"), "10/02/2009");
  EXPECT_EQ(stored("1/2/2009"), "01/02/2009");
  EXPECT_EQ(stored("10-02-2009"), "10/02/2009");
  EXPECT_EQ(stored("2009-02-10"), "10/02/2009");
  EXPECT_EQ(stored("29/02/2008"), "29/02/2008");
  for (const char* day : {"29/02/2009", "31/02/09", "10/02/09", "12/31/2009", "02/2009", "10/02", "20090210", "39854",
                          "10 Februari 2009", "10/02/2009 08:00", "", "10/02/2009/1", "//", "10/02/20099"})
    EXPECT_EQ(stored(day), "") << day;
}

TEST_F(PaymentFile, TakesWholeRupiahOnly) {
  const auto stored = [this](const std::string& amount) {
    store.run("DELETE * FROM DATSSP");
    importLines({"SSP4;1;2009;0;1;10/02/2009;" + amount + ";411128;402"});
    return store.payments().empty() ? "" : store.value("SELECT JmlByr FROM DATSSP");
  };
  EXPECT_EQ(stored("1500000"), "1500000");
  EXPECT_EQ(stored("1.500.000"), "1500000");
  EXPECT_EQ(stored("1.500.000,00"), "1500000");
  EXPECT_EQ(stored("0"), "0");
  EXPECT_EQ(stored("999999999999999"), "999999999999999");
  for (const char* amount : {"100000,75", "100000.75", "1,5", "-1", "", "x", "1000000000000000", "1 000"})
    EXPECT_EQ(stored(amount), "") << amount;
}

// --- the file --------------------------------------------------------------------------------------------------

TEST_F(PaymentFile, ThatIsNoneIsRefusedWholeAndWritesNothing) {
  struct Case {
    std::string bytes;
    const char* failure;
  };
  for (const Case& row :
       {Case{"", "is empty"}, Case{"\r\n;;\r\n", "is empty"}, Case{"\xFF\xFEK", "is UTF-16"},
        Case{"Kode Form Bukti Potong / Kode Form;1\r\n", "is no payment file"}, Case{"hello", "is no payment file"}})
    EXPECT_THAT(failure([&] { importBytes(row.bytes); }), HasSubstr(row.failure)) << row.bytes;
  EXPECT_EQ(failure([&] { importPaymentFile({.path = store.path("none.csv")}); }), "File not found");
  EXPECT_THAT(store.records(), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(store.path("rejects.csv")));
}

// At the end it would be too late: the lines would be stored, and the refused ones nowhere.
TEST_F(PaymentFile, WithAPlaceThatCannotTakeItsRefusedLinesWritesNothing) {
  store.folder().write("pay.csv",
                       "SSP4;1;2009;0;1;10/02/2009;5;411128;402\r\nSSP4;1;2009;0;2;10/02/2009;x;411128;402\r\n");
  std::filesystem::create_directory(store.path("folder"));
  const auto failureWith = [this](const std::string& rejectPath) {
    return failure([&] {
      importPaymentFile({.path = store.path("pay.csv"), .month = 1, .year = 2009, .rejectPath = rejectPath});
    });
  };
  EXPECT_EQ(failureWith(store.path("none/r.csv")), "Refused lines cannot be written to " + store.path("none/r.csv") +
                                                       ": there is no folder " + store.path("none") +
                                                       ". Make it, or name another place for them");
  EXPECT_EQ(failureWith(store.path("folder")),
            "Refused lines cannot be written to " + store.path("folder") + ": it is a folder. Name a file for them");
  EXPECT_EQ(failureWith(store.storePath()), "Refused lines cannot be written to " + store.storePath() +
                                                ": it is a store, and they would take its place. Name another file "
                                                "for them");
  EXPECT_THAT(store.records(), IsEmpty());
  for (const auto& entry : std::filesystem::directory_iterator(store.folder().path()))
    EXPECT_NE(entry.path().extension(), ".part") << entry.path();
}

TEST_F(PaymentFile, WithALineThatNobodyCanHoldWritesNothingOfTheLinesBeforeIt) {
  constexpr std::size_t longer = std::size_t{65} * 1024 * 1024;
  EXPECT_THAT(failure([&] { importBytes(std::string(payment) + "\r\n" + std::string(longer, 'x')); }),
              HasSubstr("Line 2 is longer than 67108864 bytes"));
  EXPECT_THAT(store.records(), IsEmpty());
}

TEST_F(PaymentFile, RefusesALineThatIsLongerThanAnyRecord) {
  const PaymentFileImportResult result = importLines({payment, std::string(payment) + std::string(70'000, ' ')});
  EXPECT_EQ(account(result), "2 = 1 + 0 + 1");
  EXPECT_EQ(result.firstRefused.front().reason, "the line has 70060 bytes; a line of this file has at most 65535");
}

TEST_F(PaymentFile, MayEndItsLinesInEitherWayAndCarryTheUtf8Mark) {
  EXPECT_EQ(account(importBytes(std::string(payment) + "\n" + transfer)), "2 = 2 + 0 + 0");
  EXPECT_EQ(account(importBytes("\xEF\xBB\xBF" + std::string(payment) + "\n")), "1 = 0 + 1 + 0");
}

TEST_F(PaymentFile, ItsRefusedLinesGoInOnceTheyAreMended) {
  importLines({"SSP4;1;2009;0;1;31/02/2009;5;411128;402", "PBK4;1;2009;PBK-1;15/02/2009;x",
               "PBK4;1;2009;;PBK-2;15/02/2009;x;;"});
  std::string rejects = store.folder().read("rejects.csv");
  rejects = Replace(rejects, "31/02/2009", "28/02/2009");
  rejects = Replace(rejects, ";x;", ";7;");
  EXPECT_EQ(account(importBytes(rejects)), "3 = 3 + 0 + 0");
  EXPECT_EQ(store.value("SELECT JmlByr FROM DATSSP"), "5");
  EXPECT_THAT(store.rows("SELECT NoBuktiPBK, JumlahPBK FROM datPBKPPhMasa ORDER BY NoBuktiPBK"),
              ElementsAre("PBK-1|7", "PBK-2|7"));
}

TEST_F(PaymentFile, NeedsAFiler) {
  store.run("DELETE * FROM PROFILE");
  EXPECT_THAT(failure([&] { importLines({payment}); }), HasSubstr("names no filer"));
  EXPECT_THAT(store.records(), IsEmpty());
}

TEST_F(PaymentFile, LeavesThePaymentsOfOtherPeriodsAlone) {
  store.payment({.month = 2});
  store.payment({.correction = 1});
  store.payment({.article = 23});
  EXPECT_EQ(account(importLines({payment})), "1 = 1 + 0 + 0");
  EXPECT_THAT(store.payments(), SizeIs(4));
}

}  // namespace
}  // namespace tarvola::test
