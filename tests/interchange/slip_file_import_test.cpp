// Importing a whole file and accounting for every line of it.

#include "tarvola/interchange/slip_file_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tarvola/interchange/CEksporBP.h"
#include "tarvola/interchange/CImporBP.h"
#include "tarvola/interchange/export_row.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_file.h"
#include "tests/interchange/interchange_store.h"

namespace tarvola::test {
namespace {

std::string fileOf(const std::vector<std::string>& lines, std::string_view lineEnd = "\r\n") {
  std::string bytes = interchange::exportHeader() + std::string(lineEnd);
  for (const std::string& line : lines) bytes += line + std::string(lineEnd);
  return bytes;
}

class SlipFileImportTest : public testing::Test {
 protected:
  SlipFileImportResult importBytes(std::string_view bytes) {
    store.folder().write("in.csv", bytes);
    return importFile(store.path("in.csv"));
  }
  SlipFileImportResult importLines(const std::vector<std::string>& lines) { return importBytes(fileOf(lines)); }
  SlipFileImportResult importFile(const std::string& path, const char* rejects = "rejects.csv") {
    return importSlipFile({.path = path, .month = 1, .year = 2009, .correction = 0, .rejectPath = store.path(rejects)});
  }
  /// read, stored, already there, refused.
  static std::string account(const SlipFileImportResult& result) {
    EXPECT_EQ(result.read, result.stored + result.alreadyThere + result.refused);
    EXPECT_THAT(result.rebuildFailures, testing::IsEmpty());
    return std::to_string(result.read) + " = " + std::to_string(result.stored) + " + " +
           std::to_string(result.alreadyThere) + " + " + std::to_string(result.refused);
  }
  std::string refusal(const std::string& line) {
    const SlipFileImportResult result = importLines({line});
    EXPECT_EQ(account(result), "1 = 0 + 0 + 1");
    EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_INDUK"), "0");
    EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM LAMPIRAN_SSP_PPh22"), "0");
    return result.firstRefused.empty() ? "" : result.firstRefused.front().reason;
  }
  [[nodiscard]] static std::string failure(const std::function<void()>& action) {
    try {
      action();
    } catch (const RunTimeError& error) {
      return error.description();
    }
    return "no failure";
  }
  std::string sample() const { return TARVOLA_SOURCE_DIR "/examples/month-2009-01.csv"; }
  InterchangeStore store;
};

const Line goodSlip = Line("F113319").with(11, "1000").with(12, "10").with(13, "100").with(45, "100");
const Line goodForm = Line("FSewaTnhBgn", "NTPN 1").with(9, "Jl. A").with(11, "3000").with(13, "300").with(45, "300");

// --- the account -----------------------------------------------------------------------------------------

TEST_F(SlipFileImportTest, TheSampleMonthGoesInWhole) {
  const SlipFileImportResult result = importFile(sample());
  EXPECT_EQ(account(result), "240 = 240 + 0 + 0");
  EXPECT_EQ(result.selfPaidStored, 29U);
  EXPECT_EQ(result.likeUtf8, 0U);
  EXPECT_FALSE(std::filesystem::exists(store.path("rejects.csv")));
  EXPECT_FALSE(std::filesystem::exists(store.path("rejects.csv.part")));
}

TEST_F(SlipFileImportTest, ItGivesTheSameDocumentsAsTheRoadLineByLine) {
  importFile(sample());
  const std::vector<std::string> accounted = store.dump();
  InterchangeStore other;
  CImporBP import;
  for (const std::string& line : split(fromAnsi(readFile(sample())), '\n'))
    if (line.starts_with("F"))
      import.pImporPPh4(arrayOf(line.substr(0, line.size() - 1)), "013121660091000", 1, 2009, 0);
  import.pBuildTRVPPh4("013121660091000", 1, 2009, 0);
  import.pUpdateD113210({}, "013121660091000", 1, 2009, 0, "PT Contoh Sejahtera", "Jl. Merdeka No. 1");
  import.pUpdateTRVPPh4("013121660091000", 1, 2009, 0);
  EXPECT_EQ(accounted, other.dump());
}

TEST_F(SlipFileImportTest, TheSameFileAgainStoresNothingAndChangesNothing) {
  importFile(sample());
  const std::vector<std::string> before = store.dump();
  EXPECT_EQ(account(importFile(sample())), "240 = 0 + 240 + 0");
  EXPECT_EQ(store.dump(), before);
}

TEST_F(SlipFileImportTest, TwoEqualSelfPaidLinesAreTwoFormsAndStayTwo) {
  const std::string line = goodForm.text();
  EXPECT_EQ(account(importLines({line, line})), "2 = 2 + 0 + 0");
  EXPECT_EQ(account(importLines({line, line})), "2 = 0 + 2 + 0");
  EXPECT_EQ(account(importLines({line, line, line})), "3 = 1 + 2 + 0");
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DAT_SSP_PPh22 WHERE KD_FORM = 'FSewaTnhBgn'"), "3");
  EXPECT_EQ(store.value("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE KD_FORM = 'DSewaTnhBgn'"),
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;9000;900");
}

TEST_F(SlipFileImportTest, ASelfPaidFormThatDiffersInOneFieldIsAnother) {
  importLines({goodForm.text()});
  EXPECT_EQ(account(importLines({Line(goodForm).with(11, "3001").text()})), "1 = 1 + 0 + 0");
  EXPECT_EQ(account(importLines({Line(goodForm).with(9, "Jl. B").text()})), "1 = 1 + 0 + 0");
  EXPECT_EQ(account(importLines({Line(goodForm).with(8, "09/01/2009").text()})), "1 = 1 + 0 + 0");
  EXPECT_EQ(account(importLines({Line(goodForm).with(7, "NTPN 2").text()})), "1 = 1 + 0 + 0");
}

TEST_F(SlipFileImportTest, AListRowWithoutItsFormIsCompleted) {
  importLines({goodForm.text(), Line(goodForm).with(7, "NTPN 2").text()});
  const std::vector<std::string> whole = store.dump();
  store.run("DELETE * FROM DAT_SSP_PPh22 WHERE KD_FORM = 'FSewaTnhBgn' AND NOBUKTI = 'NTPN 2'");
  const SlipFileImportResult result = importLines({goodForm.text(), Line(goodForm).with(7, "NTPN 2").text()});
  EXPECT_EQ(account(result), "2 = 1 + 1 + 0");
  std::vector<std::string> completed = store.dump();
  std::vector<std::string> expected = whole;
  std::sort(completed.begin(), completed.end());
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(completed, expected);
}

TEST_F(SlipFileImportTest, InterestLinesThatAreMissingAreCompleted) {
  const Line slip =
      Line("F113310").with(10, "0").with(11, "1000").with(12, "20").with(13, "200").with(38, "50").with(40, "10");
  importLines({slip.text()});
  const std::vector<std::string> whole = store.dump();
  store.run("DELETE * FROM D113210 WHERE JENIS = 'GIRO'");
  EXPECT_EQ(account(importLines({slip.text()})), "1 = 1 + 0 + 0");
  EXPECT_EQ(store.dump(), whole);
  EXPECT_EQ(account(importLines({slip.text()})), "1 = 0 + 1 + 0");
}

TEST_F(SlipFileImportTest, ASlipThatSaysSomethingElseThanTheStoredOneIsRefusedAndTheStoredOneStays) {
  importLines({goodSlip.text()});
  const SlipFileImportResult result = importLines({Line(goodSlip).with(11, "2000").text()});
  EXPECT_EQ(account(result), "1 = 0 + 0 + 1");
  EXPECT_EQ(result.firstRefused.front().reason, "slip 000001/PPH4 is in the store with other contents, which stay");
  EXPECT_EQ(store.value("SELECT Total_Bruto FROM DS_FORM_INDUK WHERE KD_FORM = 'F113319'"), "1000");
}

TEST_F(SlipFileImportTest, ANumberThatIsWrittenInAnotherWayIsNoOtherContents) {
  importLines({goodSlip.text()});
  EXPECT_EQ(account(importLines({Line(goodSlip).with(11, "1.000").with(12, "10,00").text()})), "1 = 0 + 1 + 0");
}

TEST_F(SlipFileImportTest, TheNumberOfAnotherFormsSlipIsRefusedSinceTheSlipWouldNotBeListed) {
  importLines({goodSlip.text()});
  const SlipFileImportResult result = importLines({Line(goodSlip).with(0, "F113320").text()});
  EXPECT_EQ(account(result), "1 = 0 + 0 + 1");
  EXPECT_EQ(result.firstRefused.front().reason,
            "the number 000001/PPH4 belongs to a slip of another form in this period");
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_INDUK WHERE KD_FORM = 'F113320'"), "0");
}

TEST_F(SlipFileImportTest, LineNumbersCountTheHeaderAndBlankLines) {
  const SlipFileImportResult result =
      importBytes(fileOf({"", goodSlip.text(), ";;;;", "   ", "F1;1;2009;0" + std::string(47, ';')}));
  EXPECT_EQ(account(result), "2 = 1 + 0 + 1");
  EXPECT_EQ(result.firstRefused.front().lineNumber, 6U);
}

TEST_F(SlipFileImportTest, OnlyTheFirstRefusedLinesAreKeptInMemory) {
  const SlipFileImportResult result = importLines(std::vector<std::string>(150, "F1;1;2009;0" + std::string(47, ';')));
  EXPECT_EQ(account(result), "150 = 0 + 0 + 150");
  EXPECT_EQ(result.firstRefused.size(), refusedLinesKept);
  EXPECT_EQ(split(store.folder().read("rejects.csv"), '\n').size(), 152U);
}

// --- the file --------------------------------------------------------------------------------------------

TEST_F(SlipFileImportTest, AFileThatIsNoneIsRefusedWholeAndWritesNothing) {
  struct Case {
    const char* bytes;
    const char* failure;
  };
  for (const Case& row :
       {Case{"", "is empty"}, Case{"\r\n;;;\r\n  \r\n", "is empty"}, Case{"\xEF\xBB\xBF", "is empty"},
        Case{"\xFF\xFEK", "is UTF-16"}, Case{"Kode Pasal Untuk SSP;1\r\n", "is no slip exchange file"},
        Case{"hello", "is no slip exchange file"}, Case{"Kode Form,Masa Pajak\r\n", "is no slip exchange file"}})
    EXPECT_THAT(failure([&] { importBytes(row.bytes); }), testing::HasSubstr(row.failure)) << row.bytes;
  EXPECT_EQ(failure([&] { importFile(store.path("none.csv")); }), "File not found");
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_INDUK"), "0");
  EXPECT_FALSE(std::filesystem::exists(store.path("rejects.csv.part")));
}

TEST_F(SlipFileImportTest, AHeaderAloneReadsNothingAndMakesNoReturn) {
  EXPECT_EQ(account(importBytes(fileOf({}))), "0 = 0 + 0 + 0");
  EXPECT_EQ(account(importBytes(interchange::exportHeader())), "0 = 0 + 0 + 0");
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_INDUK"), "0");
}

TEST_F(SlipFileImportTest, LineEndsOfEitherKindAndNoneAtTheEndAreTaken) {
  EXPECT_EQ(account(importBytes(fileOf({goodSlip.text()}, "\n"))), "1 = 1 + 0 + 0");
  EXPECT_EQ(account(importBytes(interchange::exportHeader() + "\n" + goodSlip.text())), "1 = 0 + 1 + 0");
  EXPECT_EQ(account(importBytes(goodSlip.text() + "\r\n")), "1 = 0 + 1 + 0");
}

TEST_F(SlipFileImportTest, AHeaderThatStandsAgainWhereFilesWerePutTogetherIsPassedOver) {
  EXPECT_EQ(account(importBytes(fileOf({goodSlip.text()}) + fileOf({goodForm.text()}))), "2 = 2 + 0 + 0");
}

TEST_F(SlipFileImportTest, LettersBeyondAsciiAreAnsiWithoutAMarkAndUtf8WithIt) {
  const std::string name = "Jos\xC3\xA9 M\xC3\xBCller \xE2\x82\xAC";
  importBytes(toAnsi(fileOf({Line(goodSlip).with(5, name).text()})));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'F113319'"), testing::HasSubstr(name));
  EXPECT_EQ(account(importBytes("\xEF\xBB\xBF" + fileOf({Line(goodSlip).with(5, name).text()}))), "1 = 0 + 1 + 0");
}

TEST_F(SlipFileImportTest, Utf8WithoutItsMarkIsTakenAsAnsiAndCounted) {
  const SlipFileImportResult result = importLines({Line(goodSlip).with(5, "Jos\xC3\xA9").text()});
  EXPECT_EQ(account(result), "1 = 1 + 0 + 0");
  EXPECT_EQ(result.likeUtf8, 1U);
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'F113319'"),
              testing::HasSubstr("Jos\xC3\x83\xC2\xA9"));
}

TEST_F(SlipFileImportTest, ABrokenLineOfAUtf8FileIsRefused) {
  const SlipFileImportResult result = importBytes("\xEF\xBB\xBF" + fileOf({Line(goodSlip).with(5, "Jos\xE9").text()}));
  EXPECT_EQ(account(result), "1 = 0 + 0 + 1");
  EXPECT_EQ(result.firstRefused.front().reason, "the line is not UTF-8, as the file says it is");
}

TEST_F(SlipFileImportTest, AStoreWithoutAFilerIsRefused) {
  store.run("DELETE * FROM PROFILE");
  EXPECT_EQ(failure([&] { importLines({goodSlip.text()}); }), "The store names no filer: the table PROFILE is empty");
}

TEST_F(SlipFileImportTest, ARejectFileThatCannotBeWrittenIsToldBeforeAnythingIsStored) {
  store.folder().write("in.csv", fileOf({goodSlip.text()}));
  EXPECT_THAT(failure([&] { importFile(store.path("in.csv"), "no/such/rejects.csv"); }),
              testing::HasSubstr("there is no folder " + store.path("no/such")));
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_INDUK"), "0");
}

// --- lines that are refused --------------------------------------------------------------------------------

TEST_F(SlipFileImportTest, AWrongNumberOfColumnsIsRefused) {
  EXPECT_EQ(refusal("F113319;1;2009"), "the line has 3 columns where 51 are expected");
  EXPECT_EQ(refusal("F113319"), "the line has 1 column where 51 are expected");
  EXPECT_EQ(refusal(goodSlip.text() + std::string(19, ';')),
            "the line has 70 columns where 51 are expected; a text may hold the separator ';'");
  EXPECT_EQ(refusal(goodSlip.text() + ";"),
            "the line has 52 columns where 51 are expected; a text may hold the separator ';'");
  const std::vector<std::string> bond(50, "0");
  EXPECT_EQ(refusal("F113317;" + join(bond, ";").substr(2)), "the line has 50 columns where 51 are expected");
}

TEST_F(SlipFileImportTest, EmptyColumnsThatASpreadsheetCutOffMayBeMissing) {
  std::string line = goodSlip.text();
  line.erase(line.find_last_not_of(';') + 1);
  EXPECT_EQ(split(line, ';').size(), 46U);
  EXPECT_EQ(account(importLines({line})), "1 = 1 + 0 + 0");
}

TEST_F(SlipFileImportTest, ALineOfAMegabyteIsRefused) {
  const std::string line = Line(goodSlip).with(5, std::string(1 << 20, 'x')).text();
  EXPECT_EQ(refusal(line),
            "the line has " + std::to_string(line.size()) + " bytes; a line of this file has at most 65535");
  // Without a header in front of it as well, and the rest of the file goes on.
  EXPECT_EQ(account(importBytes(line + "\r\n" + goodSlip.text())), "2 = 1 + 0 + 1");
}

TEST_F(SlipFileImportTest, AnUnknownFormCodeIsRefused) {
  EXPECT_EQ(refusal(Line(goodSlip).with(0, "F113399").text()), "the form code 'F113399' is unknown");
  EXPECT_EQ(refusal(Line(goodSlip).with(0, "f113319").text()), "the form code 'f113319' is unknown");
}

TEST_F(SlipFileImportTest, AnotherPeriodIsRefused) {
  EXPECT_EQ(refusal(Line(goodSlip).with(1, "2").text()),
            "the line is of 2/2009, correction 0, not of 1/2009, correction 0");
  EXPECT_EQ(refusal(Line(goodSlip).with(2, "2010").text()),
            "the line is of 1/2010, correction 0, not of 1/2009, correction 0");
  EXPECT_EQ(refusal(Line(goodSlip).with(3, "1").text()),
            "the line is of 1/2009, correction 1, not of 1/2009, correction 0");
  EXPECT_EQ(refusal(Line(goodSlip).with(1, "Januari").text()),
            "the line is of Januari/2009, correction 0, not of 1/2009, correction 0");
  EXPECT_EQ(account(importLines({Line(goodSlip).with(1, "01").text()})), "1 = 1 + 0 + 0");
}

TEST_F(SlipFileImportTest, AColumnThatDoesNotHoldWhatItMustIsNamedWithItsFault) {
  struct Case {
    const char* form;
    std::size_t column;
    const char* value;
    const char* reason;
  };
  for (const Case& row : {
           Case{"F113319", 11, "abc", "column 12 (Jumlah Nilai Bruto 1): 'abc' is no number"},
           Case{"F113319", 11, "", "column 12 (Jumlah Nilai Bruto 1): is empty"},
           Case{"F113319", 11, "1234.56",
                "column 12 (Jumlah Nilai Bruto 1): '1234.56' parts thousands in the wrong place; the decimal sign is "
                "','"},
           Case{"F113319", 12, "2.5",
                "column 13 (Tarif 1): '2.5' parts thousands in the wrong place; the decimal sign is ','"},
           Case{
               "F113319", 13, "1000000000000000",
               "column 14 (PPh Yang Dipotong  1): '1000000000000000' has more than 15 digits, so that not every rupiah "
               "of it could be kept"},
           Case{"F113319", 12, "ten", "column 13 (Tarif 1): 'ten' is no number"},
           Case{"F113319", 5, "Ma'ruf",
                "column 6 (Nama WP yang Dipotong): holds an apostrophe, which the store cannot take"},
           Case{"F113319", 7, "0'1", "column 8 (Nomor Bukti Potong): holds an apostrophe, which the store cannot take"},
           Case{"F113319", 7, " ", "column 8 (Nomor Bukti Potong): is empty; a slip is known by its number"},
           Case{"FAlihTnhBgn", 7, "-", "column 8 (Nomor Bukti Potong): '-' is the number of list headers"},
           Case{"F113319", 8, "31/02/2009", "column 9 (Tanggal Bukti Potong): '31/02/2009' is no date"},
           Case{"F113310", 10, "DN",
                "column 11 (Kode Option Tempat Penyimpanan 1 (Khusus F113310)): 'DN' is none of 0 and 1"},
           Case{"F113316", 25, "3", "column 26 (Kode Option Tempat Penyimpanan 4): '3' is none of 0, 1 and 2"},
           Case{"F113309", 45, "", "column 46 (Jumlah PPh Yang Dipotong): is empty"},
           Case{"F113317", 46, "soon", "column 47 (Tanggal Jatuh Tempo Obligasi): 'soon' is no date"},
       })
    EXPECT_EQ(refusal(Line(row.form).with(row.column, row.value).text()), row.reason) << row.form << " " << row.value;
}

TEST_F(SlipFileImportTest, InterestLinesNeedTheirRateAndTheDay) {
  const Line slip = Line("F113310").with(10, "0").with(11, "1000").with(12, "20").with(13, "200");
  EXPECT_EQ(refusal(Line(slip).with(12, "").text()), "column 13 (Tarif 1): is empty");
  EXPECT_EQ(refusal(Line(slip).with(8, "").text()),
            "column 9 (Tanggal Bukti Potong): is empty; interest lines need the day");
  EXPECT_EQ(account(importLines({Line(slip).with(17, "").text()})), "1 = 1 + 0 + 0");
}

TEST_F(SlipFileImportTest, ThousandsWhereTheyBelongAreTaken) {
  EXPECT_EQ(account(importLines({Line(goodSlip).with(11, "1.234.567,89").text()})), "1 = 1 + 0 + 0");
  EXPECT_EQ(store.value("SELECT Total_Bruto FROM DS_FORM_INDUK WHERE KD_FORM = 'F113319'"), "1234567");
}

TEST_F(SlipFileImportTest, ANulCharacterIsRefused) {
  EXPECT_EQ(refusal(Line(goodSlip).with(5, std::string_view("a\0b", 3)).text()),
            "column 6 (Nama WP yang Dipotong): holds a NUL character");
}

TEST_F(SlipFileImportTest, WhatTheStoreRefusesIsAccountedForAndTheRestGoesOn) {
  store.run(
      "INSERT INTO LAMPIRAN_SSP_PPh22 (KD_FORM, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, COLLNO) VALUES "
      "('DSewaTnhBgn', 1, 2009, 0, 0)");
  const SlipFileImportResult result = importLines({goodForm.text(), goodSlip.text()});
  EXPECT_EQ(account(result), "2 = 1 + 0 + 1");
  EXPECT_EQ(result.firstRefused.front().reason, "Invalid use of Null");
}

// --- the reject file -----------------------------------------------------------------------------------------

TEST_F(SlipFileImportTest, TheRejectFileHasTheLayoutOfTheFileAndAReason) {
  importLines({Line(goodSlip).with(5, "Jos\xE9").with(11, "a").text(), goodForm.text(), "F113319;1;2009"});
  EXPECT_EQ(store.folder().read("rejects.csv"),
            interchange::exportHeader() + ";Alasan Ditolak\r\n" +
                Line(goodSlip).with(5, "Jos\xE9").with(11, "a").text() +
                ";column 12 (Jumlah Nilai Bruto 1): 'a' is no number\r\nF113319;1;2009" + std::string(48, ';') +
                ";the line has 3 columns where 51 are expected\r\n");
}

TEST_F(SlipFileImportTest, AMendedRejectFileCanBeImportedFromAndToItsOwnPlace) {
  importLines({Line(goodSlip).with(11, "a").text(), Line(goodSlip).with(7, "2").with(11, "b").text()});
  std::string bytes = store.folder().read("rejects.csv");
  bytes.replace(bytes.find(";a;"), 3, ";1000;");
  store.folder().write("rejects.csv", bytes);
  EXPECT_EQ(account(importFile(store.path("rejects.csv"))), "2 = 1 + 0 + 1");
  // The line that was refused again holds one reason and not two.
  EXPECT_EQ(split(split(store.folder().read("rejects.csv"), '\n')[1], ';').size(), 52U);
  bytes = store.folder().read("rejects.csv");
  bytes.replace(bytes.find(";b;"), 3, ";1000;");
  store.folder().write("rejects.csv", bytes);
  EXPECT_EQ(account(importFile(store.path("rejects.csv"))), "1 = 1 + 0 + 0");
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_INDUK WHERE KD_FORM = 'F113319'"), "2");
}

TEST_F(SlipFileImportTest, TheRejectFileOfAUtf8FileIsUtf8) {
  importBytes("\xEF\xBB\xBF" + fileOf({Line(goodSlip).with(5, "Jos\xC3\xA9").with(11, "\xC3\xA9").text()}));
  const std::string bytes = store.folder().read("rejects.csv");
  EXPECT_TRUE(
      bytes.starts_with("\xEF\xBB\xBF"
                        "Kode Form"));
  EXPECT_THAT(bytes, testing::HasSubstr(";Jos\xC3\xA9;"));
  EXPECT_THAT(bytes, testing::HasSubstr("'\xC3\xA9' is no number"));
}

TEST_F(SlipFileImportTest, WithoutAPlaceForThemRefusedLinesAreOnlyCounted) {
  store.folder().write("in.csv", fileOf({"F113319;1;2009"}));
  const SlipFileImportResult result = importSlipFile({.path = store.path("in.csv"), .month = 1, .year = 2009});
  EXPECT_EQ(account(result), "1 = 0 + 0 + 1");
}

// --- the return ----------------------------------------------------------------------------------------------

TEST_F(SlipFileImportTest, NothingTakenMeansNoReturn) {
  importLines({"F113319;1;2009"});
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_INDUK"), "0");
}

TEST_F(SlipFileImportTest, OtherInterestOfASecondFileReachesTheReturn) {
  const Line slip =
      Line("F113310").with(38, "100").with(39, "20").with(40, "20").with(42, "1000").with(43, "20").with(44, "200");
  importLines({slip.text()});
  importLines({Line(slip).with(7, "000002/PPH4").text()});
  CF113204 form;
  form.pGetF113204("", "F113204", "01", 1, 2009, 0, "-", "113");
  EXPECT_EQ(form.aB11a5(), 400);
  EXPECT_EQ(CStr(form.rs4_2Form()->get_Collect("B11a")), "Lain-Lain");
}

TEST_F(SlipFileImportTest, ATextOfTheUsersOwnOnThatLineStaysWithItsAmounts) {
  const Line slip =
      Line("F113310").with(38, "100").with(39, "20").with(40, "20").with(42, "1000").with(43, "20").with(44, "200");
  importLines({slip.text()});
  {
    CF113204 form;
    form.pGetF113204("", "F113204", "01", 1, 2009, 0, "-", "113");
    form.aB11a("Hadiah");
    form.aB11a5(777);
    form.pUpdate();
  }
  importLines({Line(slip).with(7, "000002/PPH4").text()});
  CF113204 form;
  form.pGetF113204("", "F113204", "01", 1, 2009, 0, "-", "113");
  EXPECT_EQ(form.aB11a5(), 777);
}

TEST_F(SlipFileImportTest, WhatFailsInTheRecountIsTold) {
  // Without rates the average of the construction rates is nothing divided by nothing.
  store.run("DELETE * FROM SETTING_TARIF_PPH");
  const SlipFileImportResult result = importLines({goodSlip.text()});
  EXPECT_EQ(result.stored, 1U);
  EXPECT_EQ(result.rebuildFailures, std::vector<std::string>{"Overflow"});
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

}  // namespace
}  // namespace tarvola::test
