// The stages of the reporting file, its messages and what a failure leaves.

#include <gtest/gtest.h>

#include "tarvola/interchange/report_writer.h"
#include "tarvola/interchange/utf16.h"
#include "tarvola/runtime/errors.h"
#include "tests/interchange/other_ciphers.h"
#include "tests/interchange/report_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

using interchange::BlockReader;
using interchange::ReportWriter;
using testing::ElementsAre;

constexpr const char* periodOfNotice = "* Masa Pajak  : 1\r\n* Tahun Pajak : 2009\r\n* Pembetulan  : 0\r\n\r\n";

class ReportedFile : public testing::Test {
 protected:
  /// Writes the report of the period by a writer whose parts a test has replaced.
  void write(ReportWriter& writer) {
    writer.write({.month = "1",
                  .year = "2009",
                  .fileName = path_,
                  .status = 1,
                  .npwp = "013121660091000",
                  .paymentsCorrection = "0",
                  .secretSource = "rahasia",
                  .updateDate = "10/02/2009"});
  }
  /// The second stage by other programs.
  std::string secondStage() {
    const std::string wide = OtherCiphers().decipher(store.reportBytes(), "BF3096A9F3FB75DF");
    return interchange::ansiFromUtf16(wide).bytes;
  }
  static void fillWithOnes(std::span<std::uint8_t> bytes) { std::fill(bytes.begin(), bytes.end(), std::uint8_t{1}); }

  ReportStore store;
  std::string path_ = store.reportPath();
  store::StoreObject object;
};

TEST_F(ReportedFile, IsReadBackByOtherPrograms) {
  store.mainReturn();
  store.document("F113311", packedText(19, {{11, "1000000"}, {14, "500000"}}));
  store.document("F113319", "Café €");
  store.document("D113210", "list");
  store.payment(7, "0118");
  store.writeReport();

  const std::string plain =
      std::string(profileLine) + "\r\n" + mainLine() + "\r\n" + "113;04;F113311;" +
      packedText(19, {{11, "1000000"}, {14, "500000"}}) + ";1500000;\r\n" + "113;15;F113319;Caf\xE9 \x80;\r\n" +
      "113;77;1;2009;0;7;411128;401;10/02/2009;1500000,5;0102030405060708;\r\n" + "113;20;D113210;list;10/02/2009;\r\n";
  const std::string stage = secondStage();
  ASSERT_GT(stage.size(), 22U);
  EXPECT_EQ(stage.substr(0, 20), std::string(17, '0') + std::to_string(plain.size()));
  EXPECT_TRUE(stage.ends_with("\r\n"));
  EXPECT_EQ(OtherCiphers().inflate(stage.substr(20, stage.size() - 22)), plain);
}

TEST_F(ReportedFile, EndsWithTheLineEndOfTheBase64AndOneMore) {
  store.mainReturn();
  store.writeReport();
  const std::string bytes = store.reportBytes();
  EXPECT_TRUE(bytes.ends_with("\r\n\r\n"));
  EXPECT_FALSE(bytes.ends_with("\r\n\r\n\r\n"));
  std::vector<std::string> lines = split(bytes, '\n');
  lines.resize(lines.size() - 3);
  for (const std::string& line : lines) EXPECT_EQ(line.size(), 65U);
}

TEST_F(ReportedFile, SuccessShowsPeriodAndFile) {
  store.mainReturn();
  store.writeReport();
  ASSERT_EQ(store.messages().boxes().size(), 1U);
  const MessageBox& box = store.messages().boxes().front();
  EXPECT_EQ(box.text, std::string("Pelaporan Data TRV PPh Masa Pasal 4 Ayat (2) Untuk :\r\n\r\n") + periodOfNotice +
                          "Berhasil Diekspor Ke File : [" + path_ + "]");
  EXPECT_EQ(box.title, "INFORMASI");
  EXPECT_EQ(box.icon, MessageIcon::Information);
}

TEST_F(ReportedFile, APeriodWithoutMainReturnIsRefusedAndAnExistingFileStays) {
  store.document("F113319", "a slip alone makes no return");
  store.mainReturn(1);
  store.folder().write("report", "as it was");
  store.writeReport();
  ASSERT_EQ(store.messages().boxes().size(), 1U);
  const MessageBox& box = store.messages().boxes().front();
  EXPECT_EQ(box.text, std::string("TRV PPh Masa Pasal 4 Ayat (2) Untuk :\r\n\r\n") + periodOfNotice +
                          "Tidak Ada Pada DataBase, Proses Pelaporan Data Dibatalkan");
  EXPECT_EQ(box.title, "INFORMASI");
  EXPECT_EQ(box.icon, MessageIcon::Information);
  EXPECT_EQ(store.reportBytes(), "as it was");
}

TEST_F(ReportedFile, AMainReturnOfAnotherKindOfTaxIsNone) {
  store.mainReturn();
  store.run("UPDATE DS_FORM_INDUK SET KD_JENIS_PAJAK = '999'");
  store.writeReport();
  EXPECT_THAT(store.messages().texts(), ElementsAre(testing::EndsWith("Proses Pelaporan Data Dibatalkan")));
}

TEST_F(ReportedFile, ARefusedPeriodMakesNoFile) {
  store.writeReport();
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(ReportedFile, IsMadeBeforeTheProfileIsRead) {
  store.mainReturn();
  store.folder().write("report", "as it was");
  dropTable(store.storePath(), "PROFILE");
  store.writeReport();
  EXPECT_THAT(store.messages().texts(), ElementsAre(testing::HasSubstr("PROFILE")));
  EXPECT_EQ(store.reportBytes(), "");
}

TEST_F(ReportedFile, HoldsTheProfileBeforeTheDocumentsAreSelected) {
  store.mainReturn();
  dropTable(store.storePath(), "DAT_SSP_PPh22");
  store.writeReport();
  EXPECT_THAT(store.messages().texts(), ElementsAre(testing::HasSubstr("DAT_SSP_PPh22")));
  EXPECT_EQ(store.reportBytes(), std::string(profileLine) + "\r\n");
}

TEST_F(ReportedFile, IsFinishedWhenItsMessageIsShown) {
  store.mainReturn();
  std::string bytesAtMessage;
  {
    const MessageBoxScope scope([&](const MessageBox&) { bytesAtMessage = store.reportBytes(); });
    store.writeReport();
  }
  EXPECT_EQ(bytesAtMessage, store.reportBytes());
  EXPECT_THAT(readReportingFile(path_, "rahasia").lines, ElementsAre(profileLine, mainLine(), ""));
}

TEST_F(ReportedFile, IsEmptyWhereTheCipherFails) {
  store.mainReturn();
  ReportWriter writer(object);
  writer.random = [](std::span<std::uint8_t>) { fail(ErrorNumber::CannotCreateObject); };
  EXPECT_THROW(write(writer), RunTimeError);
  EXPECT_EQ(store.reportBytes(), "") << "the file of the stage before is gone when the cipher begins";
}

TEST_F(ReportedFile, ReplacesALongerFile) {
  store.mainReturn();
  store.folder().write("report", std::string(100'000, 'x'));
  EXPECT_THAT(store.reportedLines(), ElementsAre(profileLine, mainLine(), ""));
}

TEST_F(ReportedFile, AFolderThatDoesNotExistHasAMessageOfItsOwn) {
  store.mainReturn();
  ReportStore::writeReportTo(store.path("nowhere/report"));
  ASSERT_EQ(store.messages().boxes().size(), 1U);
  const MessageBox& box = store.messages().boxes().front();
  EXPECT_EQ(box.text, "Lokasi Atau Tempat Penyimpanan Data Yang Akan Diekspor Tidak Valid/Tidak Ditemukan");
  EXPECT_EQ(box.title, "INFORMASI");
  EXPECT_EQ(box.icon, MessageIcon::Information);
}

TEST_F(ReportedFile, AnyOtherFailureShowsItsDescriptionWithoutATitle) {
  store.mainReturn();
  ReportStore::writeReportTo(store.folder().path());
  ASSERT_EQ(store.messages().boxes().size(), 1U);
  EXPECT_EQ(store.messages().boxes().front().text, "Path/File access error");
  EXPECT_EQ(store.messages().boxes().front().title, "");
}

TEST_F(ReportedFile, APeriodThatIsNoNumberFailsTheStatement) {
  store.mainReturn();
  CLaporData().pEksporDataTRV4_2009("1 OR 1=1", "2009", 0, path_, 1, "", 0, "0", "rahasia", "");
  EXPECT_THAT(store.messages().texts(), ElementsAre(testing::StartsWith("[Microsoft][ODBC Microsoft Access Driver] ")));
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(ReportedFile, WithoutSettingsTheCreationShowsAndEveryReportAfterIt) {
  moduleState() = {};
  CLaporData report;
  EXPECT_EQ(store.messages().boxes().size(), 1U);
  store.messages().clear();
  report.pEksporDataTRV4_2009("1", "2009", 0, path_, 1, "", 0, "0", "rahasia", "");
  EXPECT_EQ(store.messages().boxes().size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(ReportedFile, TwoReportsOfOneReturnDifferInEveryLineButTheFirst) {
  store.mainReturn();
  store.writeReport();
  const std::vector<std::string> first = split(store.reportBytes(), '\n');
  store.writeReport();
  const std::vector<std::string> second = split(store.reportBytes(), '\n');
  ASSERT_EQ(first.size(), second.size());
  for (std::size_t i = 1; i + 2 < first.size(); ++i) EXPECT_NE(first[i], second[i]) << i;
}

TEST_F(ReportedFile, WithKnownRandomNumbersTheFileIsTheSameToTheLastByte) {
  store.mainReturn();
  std::vector<std::string> files;
  for (int run = 0; run < 2; ++run) {
    ReportWriter writer(object);
    writer.random = fillWithOnes;
    write(writer);
    files.push_back(store.reportBytes());
  }
  EXPECT_EQ(files[0], files[1]);
  EXPECT_THAT(store.reportedLines(), testing::SizeIs(3));
}

TEST_F(ReportedFile, AFailureOfThePasswordShowsCriticallyAndTheReportIsEncipheredWithNone) {
  store.mainReturn();
  ReportWriter writer(object);
  writer.password = [](std::string_view) -> std::string { fail(ErrorNumber::CannotCreateObject); };
  write(writer);
  ASSERT_EQ(store.messages().boxes().size(), 2U);
  const MessageBox& box = store.messages().boxes().front();
  EXPECT_EQ(box.text, "funcHashData : \r\nActiveX component can't create object");
  EXPECT_EQ(box.title, "clsEkspor1706");
  EXPECT_EQ(box.icon, MessageIcon::Critical);
  const std::string wide = OtherCiphers().decipher(store.reportBytes(), "");
  EXPECT_THAT(interchange::ansiFromUtf16(wide).bytes, testing::StartsWith("00000000000000000"));
}

TEST_F(ReportedFile, ASecretOfMoreThan32CharactersGivesThePasswordOfItsFirst32) {
  store.mainReturn();
  const std::string first32 = "0123456789ABCDEF0123456789ABCDEF";
  store.writeReport({.secret = first32 + " and more"});
  EXPECT_THAT(readReportingFile(path_, first32).lines, ElementsAre(profileLine, mainLine(), ""));
  EXPECT_THAT(readReportingFile(path_, first32 + "xyz").lines, testing::SizeIs(3));
}

TEST_F(ReportedFile, AFileLongerThanABlockComesBackAsItsLastBlockUnderItsWholeLength) {
  store.mainReturn();
  ReportWriter writer(object);
  // The lines are longer than this, what they are compressed to is not.
  writer.reader.blockBytes = 600;
  write(writer);
  const std::string plain = std::string(profileLine) + "\r\n" + mainLine() + "\r\n\r\n";
  ASSERT_GT(plain.size(), 600U);
  ASSERT_LT(plain.size(), 1200U);
  const std::string stage = secondStage();
  ASSERT_LE(stage.size(), 600U);
  EXPECT_EQ(stage.substr(0, 20),
            std::string(20 - std::to_string(plain.size()).size(), '0') + std::to_string(plain.size()));
  EXPECT_EQ(OtherCiphers().inflate(stage.substr(20, stage.size() - 22)), plain.substr(600));
  try {
    readReportingFile(path_, "rahasia");
    ADD_FAILURE() << "the file was read";
  } catch (const RunTimeError& error) {
    EXPECT_THAT(error.description(), testing::HasSubstr("and holds " + std::to_string(plain.size() - 600)));
  }
}

TEST(BlockReading, GivesTheTextAndTheLengthOfAFile) {
  const TempFolder folder;
  BlockReader reader;
  std::int64_t length = 0;
  EXPECT_EQ(reader.blockBytes, 0);
  EXPECT_EQ(reader.pReadFileSize(folder.write("file", "Caf\xE9;\r\n"), length), "Café;\r\n");
  EXPECT_EQ(length, 7);
  EXPECT_EQ(reader.blockBytes, 327'680'000);
  EXPECT_EQ(reader.lastErrorNumber, 0);
  EXPECT_EQ(reader.pReadFile(folder.path("file")), "Café;\r\n");
}

TEST(BlockReading, EachBlockReplacesTheOneBefore) {
  struct Case {
    std::int32_t blockBytes;
    const char* text;
  };
  const TempFolder folder;
  const std::string path = folder.write("file", "0123456789");
  for (const Case& row : {Case{3, "9"}, Case{4, "89"}, Case{5, "56789"}, Case{9, "9"}, Case{10, "0123456789"},
                          Case{11, "0123456789"}, Case{1, "9"}}) {
    BlockReader reader;
    reader.blockBytes = row.blockBytes;
    std::int64_t length = 0;
    EXPECT_EQ(reader.pReadFileSize(path, length), row.text) << row.blockBytes;
    EXPECT_EQ(length, 10);
  }
}

TEST(BlockReading, ABlockHasAnUpperLimit) {
  const TempFolder folder;
  BlockReader reader;
  reader.blockBytes = 2'000'000'000;
  EXPECT_EQ(reader.pReadFile(folder.write("file", "text")), "text");
  EXPECT_EQ(reader.blockBytes, 655'350'000);
}

TEST(BlockReading, AFileThatIsEmptyOrMissingIsNothingAndTheErrorIsNoted) {
  const TempFolder folder;
  BlockReader reader;
  for (const std::string& path : {folder.write("empty", ""), folder.path("missing")}) {
    std::int64_t length = 1;
    EXPECT_EQ(reader.pReadFileSize(path, length), "");
    EXPECT_EQ(length, 0);
    EXPECT_EQ(reader.lastErrorNumber, static_cast<std::int32_t>(0x80040001U));
    EXPECT_EQ(reader.lastErrorText, "File Does Not Exist");
  }
  reader.pReadFile(folder.write("file", "text"));
  EXPECT_EQ(reader.lastErrorNumber, 0);
  EXPECT_EQ(reader.lastErrorText, "");
}

}  // namespace
}  // namespace tarvola::test
