// Reading a reporting file back: whatever is wrong with it must show, and nothing wrong may be read over.

#include <gtest/gtest.h>

#include "tarvola/interchange/enciphering.h"
#include "tarvola/interchange/hashed_data.h"
#include "tarvola/interchange/report_stages.h"
#include "tarvola/interchange/report_texts.h"
#include "tarvola/interchange/zlib_codec.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/errors.h"
#include "tests/interchange/report_store.h"

namespace tarvola::test {
namespace {

using namespace tarvola::interchange;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::int32_t invalidFormat = static_cast<std::int32_t>(ErrorNumber::InvalidFileFormat);
constexpr std::int32_t wrongSecret = static_cast<std::int32_t>(ErrorNumber::AuthenticationFailed);

struct Failure {
  std::int32_t number = 0;
  std::string description;
};

template <class Action>
Failure failureOf(Action action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return {error.number(), error.description()};
  }
  return {};
}

class ReportReading : public testing::Test {
 protected:
  /// The reason alone, without the file's name in front.
  Failure readFailure(const std::string& bytes, std::string_view secret = "rahasia") const {
    const std::string path = folder_.write("report", bytes);
    Failure failure = failureOf([&] { readReportingFile(path, secret); });
    if (failure.number != 0) {
      EXPECT_THAT(failure.description, StartsWith(path + ": "));
      failure.description.erase(0, path.size() + 2);
    }
    return failure;
  }

  static std::string enciphered(std::string_view stageBytes, std::string_view secret = "rahasia") {
    std::string text;
    encipher(fromAnsi(stageBytes), passwordOf(secret), fillFromSystem,
             [&](std::string_view line) { text.append(line).append("\r\n"); });
    return text + "\r\n";
  }
  static std::string stageOf(const std::string& plain, std::size_t statedBytes) {
    std::string packed;
    EXPECT_EQ(compressBytes(plain, plain.size() + 1000, packed), 0);
    const std::string digits = std::to_string(statedBytes);
    return std::string(20 - digits.size(), '0') + digits + packed + "\r\n";
  }
  static std::string reportOf(const std::string& plain) { return enciphered(stageOf(plain, plain.size())); }

  TempFolder folder_;
};

const std::string shortReport =
    "113;01;F113204;1;0;\r\n113;04;F113311;" + packedText(19, {{11, "1"}, {14, "2"}}) + ";3;\r\n\r\n";

TEST_F(ReportReading, GivesLengthAndLinesOfAReport) {
  const ReportingFile report = readReportingFile(folder_.write("report", reportOf(shortReport)), "rahasia");
  EXPECT_EQ(report.byteLength, shortReport.size());
  EXPECT_THAT(report.lines,
              testing::ElementsAre("113;01;F113204;1;0;",
                                   "113;04;F113311;" + packedText(19, {{11, "1"}, {14, "2"}}) + ";3;", ""));
}

TEST_F(ReportReading, AWrongSecretIsSaidToBeOne) {
  const std::string bytes = reportOf(shortReport);
  for (int i = 0; i < 600; ++i) {
    const Failure failure = readFailure(bytes, "wrong " + std::to_string(i));
    EXPECT_EQ(failure.number, wrongSecret);
    EXPECT_EQ(failure.description, wrongSecretText());
  }
}

TEST_F(ReportReading, ATextThatWasNotCompressedIsReadBehindItsLength) {
  const std::string length = std::to_string(shortReport.size());
  const std::string stage = std::string(20 - length.size(), '0') + length + shortReport + "\r\n";
  EXPECT_EQ(readFailure(enciphered(stage)).description, "");
}

TEST_F(ReportReading, EveryCutShows) {
  const std::string bytes = reportOf(shortReport);
  const std::size_t lastCharacter = bytes.find_last_not_of("\r\n=");
  for (std::size_t length = 0; length <= lastCharacter; ++length)
    EXPECT_EQ(readFailure(bytes.substr(0, length)).number, invalidFormat) << length;
  EXPECT_EQ(readFailure(bytes.substr(0, 200)).description, cutOffText(145));
  EXPECT_EQ(readFailure(bytes.substr(0, lastCharacter + 1)).description, "");
}

/// Every byte in turn, with each of its bits turned over: the report is refused, or says what it said.
TEST_F(ReportReading, NoFlippedBitIsReadOver) {
  const std::string bytes = reportOf(shortReport);
  const std::vector<std::string> lines = readReportingFile(folder_.write("report", bytes), "rahasia").lines;
  std::size_t harmless = 0;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    for (int bit = 0; bit < 8; ++bit) {
      std::string changed = bytes;
      changed[at] = static_cast<char>(static_cast<unsigned char>(changed[at]) ^ (1U << bit));
      const std::string path = folder_.write("changed", changed);
      const Failure failure =
          failureOf([&] { EXPECT_EQ(readReportingFile(path, "rahasia").lines, lines) << at << " " << bit; });
      if (failure.number == 0) ++harmless;
    }
  }
  // Line ends may become other white space; in the last group of the Base64 some bits stand for nothing.
  EXPECT_LT(harmless, bytes.size() / 4);
}

TEST_F(ReportReading, DamageInTheContentIsNotBlamedOnTheSecret) {
  std::string plain;
  for (int i = 0; i < 2000; ++i) plain += "113;15;F113319;" + std::to_string(i * 7919 % 10007) + ";\r\n";
  const std::string bytes = reportOf(plain);
  // From behind the key's part to the last line of the Base64.
  for (std::size_t at = 200; at < bytes.size() - 8; at += 997) {
    std::string changed = bytes;
    if (changed[at] == '\r' || changed[at] == '\n') continue;
    changed[at] = changed[at] == 'A' ? 'B' : 'A';
    const Failure failure = readFailure(changed);
    EXPECT_EQ(failure.number, invalidFormat) << at;
    EXPECT_THAT(failure.description, StartsWith("the secret fits, but the file is damaged: ")) << at;
  }
}

TEST_F(ReportReading, AFileThatIsNoReportIsSaidToBeNone) {
  for (const char* bytes :
       {"Kode Form Bukti Potong;Masa Pajak", "PK\x03\x04 an archive", "hello", "QUJD", "\xFF\xFE", "="})
    EXPECT_EQ(readFailure(bytes).description, notEncipheredText()) << bytes;
  EXPECT_EQ(readFailure(std::string("MZ\x90\0\3", 5)).description, notEncipheredText());
}

TEST_F(ReportReading, AnEmptyFileIsSaidToBeEmpty) {
  for (const char* bytes : {"", "\r\n", " \r\n\r\n"}) EXPECT_EQ(readFailure(bytes).description, emptyReportText());
}

TEST_F(ReportReading, AnUnfinishedFileIsSaidToBeOne) {
  EXPECT_EQ(readFailure(shortReport).description, plainStageText());
  EXPECT_EQ(readFailure(stageOf(shortReport, shortReport.size())).description, compressedStageText());
}

TEST_F(ReportReading, AMissingFileIsNotFound) {
  const std::string path = folder_.path("missing");
  const Failure failure = failureOf([&] { readReportingFile(path, "rahasia"); });
  EXPECT_EQ(failure.number, static_cast<std::int32_t>(ErrorNumber::FileNotFound));
  EXPECT_EQ(failure.description, path + ": File not found");
}

TEST_F(ReportReading, AnotherLengthThanTheStatedOneIsRefused) {
  EXPECT_THAT(readFailure(enciphered(stageOf(shortReport, shortReport.size() + 1))).description,
              HasSubstr("and holds " + std::to_string(shortReport.size())));
  EXPECT_THAT(readFailure(enciphered(stageOf(shortReport, shortReport.size() - 1))).description,
              HasSubstr("and holds " + std::to_string(shortReport.size())));
  EXPECT_THAT(readFailure(enciphered(stageOf(shortReport, shortReport.size() / 2))).description,
              HasSubstr("cannot be decompressed"));
  EXPECT_THAT(readFailure(enciphered(stageOf(shortReport, 10'000'000))).description,
              HasSubstr("length cannot be true"));
  // A report of more bytes than fit into a block was written in spite of it.
  EXPECT_EQ(readFailure(enciphered(stageOf(shortReport, 327'680'001))).description,
            "it is of 327.680.001 bytes of lines; a report takes no more than 327.680.000, and of more than that holds "
            "the last part alone");
  EXPECT_THAT(readFailure(enciphered(stageOf(shortReport, 327'680'000))).description,
              HasSubstr("length cannot be true"));
  std::string stage = stageOf(shortReport, shortReport.size());
  stage.replace(0, 20, 20, '9');
  EXPECT_THAT(readFailure(enciphered(stage)).description, HasSubstr("length cannot be true"));
  const std::string uncompressed = "00000000000400000000" + shortReport + "\r\n";
  EXPECT_EQ(readFailure(enciphered(uncompressed)).description, beyondBlockText(400'000'000));
}

TEST_F(ReportReading, AContentThatIsNoSecondStageIsRefused) {
  const std::string stage = stageOf(shortReport, shortReport.size());
  for (const std::string& content : {std::string("hello, this is no report"), stage.substr(1), stage.substr(0, 19),
                                     stage.substr(0, stage.size() - 2), stage.substr(0, stage.size() - 5) + "\r\n",
                                     stage.substr(0, stage.size() - 2) + "x\r\n"})
    EXPECT_THAT(readFailure(enciphered(content)).description, StartsWith("the secret fits, but the file is damaged: "));
}

TEST_F(ReportReading, EveryControlSumIsCompared) {
  struct Case {
    const char* kdForm;
    std::size_t fieldCount;
    std::vector<std::size_t> elements;
    const char* sum;
  };
  for (const Case& form :
       {Case{"F113309", 37, {12, 15, 18, 21, 24, 27}, "42"},
        Case{"F113310", 48, {21, 24, 27, 30, 33, 36, 39, 43}, "56"}, Case{"F113311", 19, {11, 14}, "14"},
        Case{"F113316", 30, {11, 14, 17, 21, 25}, "35"}, Case{"FJasaKonstruksi", 17, {9, 11, 13}, "21"}}) {
    std::map<std::size_t, std::string> amounts;
    for (const std::size_t element : form.elements) amounts[element] = "7";
    const auto lineWith = [&](const std::string& sum) {
      return std::string("113;02;") + form.kdForm + ";" + packedText(form.fieldCount, amounts) + ";" + sum + ";\r\n";
    };
    EXPECT_EQ(readFailure(reportOf(lineWith(form.sum))).description, "") << form.kdForm;
    EXPECT_EQ(readFailure(reportOf(lineWith("8"))).description, otherSumText(1, form.kdForm, "8", form.sum));
    for (const std::size_t element : form.elements) {
      amounts[element] = "9";
      EXPECT_EQ(readFailure(reportOf("113;77;\r\n" + lineWith(form.sum))).description,
                otherSumText(2, form.kdForm, form.sum, std::to_string(std::stoi(form.sum) + 2)));
      amounts[element] = "seven";
      EXPECT_EQ(readFailure(reportOf(lineWith(form.sum))).description, unreadableSumText(1, form.kdForm));
      amounts[element] = "7";
    }
  }
}

TEST_F(ReportReading, ALineThatIsTooShortForItsControlSumIsRefused) {
  EXPECT_EQ(readFailure(reportOf("113;04;F113311;" + packedText(14, {{11, "1"}}) + ";1;\r\n")).description,
            unreadableSumText(1, "F113311"));
  EXPECT_EQ(readFailure(reportOf("113;04;F113311;\r\n")).description, unreadableSumText(1, "F113311"));
}

TEST_F(ReportReading, LinesWithoutAControlSumPassAsTheyAre) {
  EXPECT_EQ(
      readFailure(reportOf("113;05;F113312;x;\r\n113;04;f113311;x;\r\nF113311\r\n113;\r\n;;F113311;\r\n")).description,
      "");
}

}  // namespace
}  // namespace tarvola::test
