// The reporting file of the tool, read by other programs: what the tax office finds in it is what the store says.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "tarvola/runtime/code_page.h"
#include "tarvola/tarvola.h"
#include "tests/cli/tool.h"
#include "tests/interchange/other_ciphers.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {
namespace {

/// The password that the secret "rahasia" makes, worked out with the digests of OpenSSL.
constexpr const char* passwordOfRahasia = "BF3096A9F3FB75DF";

std::vector<std::string> cut(const std::string& text, const std::string& separator) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t end = text.find(separator); end != std::string::npos; end = text.find(separator, begin)) {
    parts.push_back(text.substr(begin, end - begin));
    begin = end + separator.size();
  }
  if (begin < text.size()) parts.push_back(text.substr(begin));
  return parts;
}

std::string exampleFile(const std::string& name) {
  std::ifstream file(std::string(TARVOLA_SOURCE_DIR) + "/examples/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class ReportByOthers : public testing::Test {
 protected:
  void SetUp() override {
    setenv("TARVOLA_SECRET", "rahasia", 1);
    makeExampleMonth(store_);
    const Outcome slip =
        runTool({"slip", "add", "-f", "dividends", "-n", "009999/PPH4", "--date", "31/01/2009", "--set",
                 "NMWPLT=Jos\u00e9 M\u00fcller \u20ac", "--set", "JMLBRUTO=1000000", "-p", "01/2009", "-s", store_});
    EXPECT_EQ(slip.code, 0) << slip.text;
    const Outcome written = runTool({"report", "write", folder_.path("report"), "--status", "1", "--nklb", "12.500",
                                     "--updated", "10/02/2009", "-p", "01/2009", "-s", store_});
    EXPECT_EQ(written.code, 0) << written.text;
  }
  void TearDown() override { unsetenv("TARVOLA_SECRET"); }

  /// The second stage, its UTF-16 as bytes of the code page. All characters above are of Latin 1 but the euro sign
  /// and those that the bytes 80 to 9F stand for.
  [[nodiscard]] std::string secondStage() const {
    const std::string wide = OtherCiphers().decipher(folder_.read("report"), passwordOfRahasia);
    std::string utf8;
    for (std::size_t at = 0; at + 1 < wide.size(); at += 2) {
      const auto byteAt = [&wide](std::size_t place) { return unsigned{static_cast<unsigned char>(wide[place])}; };
      const unsigned code = byteAt(at) | byteAt(at + 1) << 8U;
      if (code >= 0x800) utf8 += static_cast<char>(0xE0U | (code >> 12U));
      if (code >= 0x800) utf8 += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
      if (code >= 0x80 && code < 0x800) utf8 += static_cast<char>(0xC0U | (code >> 6U));
      utf8 += static_cast<char>(code < 0x80 ? code : 0x80U | (code & 0x3FU));
    }
    return toAnsi(utf8);
  }

  /// The packed texts of the forms in the store.
  [[nodiscard]] std::vector<std::string> packedTexts(const std::string& form, const char* table) const {
    std::vector<std::string> texts;
    CGeneralClass general;
    general.pSetCon(store_, "", "");
    const RecordsetPtr rows =
        general.pGetRecordDbase(std::string("SELECT DAT_FORM FROM ") + table + " WHERE KD_FORM = '" + form + "'");
    for (; !rows->get_EOF(); rows->MoveNext()) texts.push_back(toAnsi(CStr(rows->get_Collect("DAT_FORM"))));
    return texts;
  }

  TempFolder folder_;
  std::string store_ = folder_.path("s.tarvola");
};

/// A form, its document code, how many there are, and the elements of its control sum.
struct Form {
  const char* kdForm;
  const char* code;
  std::size_t count;
  std::vector<std::size_t> summed;
  const char* table = "DS_FORM_INDUK";
};

TEST_F(ReportByOthers, HoldsEveryDocumentPaymentAndTransfer) {
  const std::string stage = secondStage();
  ASSERT_GT(stage.size(), 22U);
  ASSERT_TRUE(stage.ends_with("\r\n"));
  const std::string plain = OtherCiphers().inflate(stage.substr(20, stage.size() - 22));
  const std::string length = std::to_string(plain.size());
  EXPECT_EQ(stage.substr(0, 20), std::string(20 - length.size(), '0') + length);

  std::vector<std::string> lines = cut(plain, "\r\n");
  EXPECT_TRUE(lines.front().starts_with("113;00;1.0;10/02/2009;024573180013000;PT Bank Contoh Nusantara;"));
  EXPECT_TRUE(lines.at(1).starts_with("113;01;F113204;1;12500;024573180013000;PT Bank Contoh Nusantara;"));
  EXPECT_TRUE(lines.back().starts_with("113;20;D113210;024573180013000;"));

  // What is left when every line that the store calls for is taken out are profile, main return and closing list.
  const auto take = [&](const std::string& line) {
    const auto found = std::find(lines.begin(), lines.end(), line);
    EXPECT_NE(found, lines.end()) << line;
    if (found != lines.end()) lines.erase(found);
  };
  for (const Form& form :
       {Form{"F113309", "02", 28, {12, 15, 18, 21, 24, 27}},
        Form{"F113310", "03", 76, {21, 24, 27, 30, 33, 36, 39, 43}}, Form{"F113311", "04", 22, {11, 14}},
        Form{"F113312", "05", 28, {}}, Form{"F113316", "06", 20, {11, 14, 17, 21, 25}}, Form{"F113317", "07", 11, {}},
        Form{"F113319", "15", 9, {}}, Form{"F113320", "16", 5, {}}, Form{"F113321", "17", 13, {}},
        Form{"FSewaTnhBgn", "12", 12, {}, "DAT_SSP_PPh22"},
        Form{"FJasaKonstruksi", "14", 9, {9, 11, 13}, "DAT_SSP_PPh22"},
        Form{"FAlihTnhBgn", "19", 8, {}, "DAT_SSP_PPh22"}}) {
    const std::vector<std::string> texts = packedTexts(form.kdForm, form.table);
    EXPECT_EQ(texts.size(), form.count) << form.kdForm;
    for (const std::string& text : texts) {
      std::string line = std::string("113;") + form.code + ";" + form.kdForm + ";" + text + ";";
      long long sum = 0;
      const std::vector<std::string> fields = cut(text, ";");
      for (const std::size_t element : form.summed) sum += std::stoll(fields.at(element));
      if (!form.summed.empty()) line += std::to_string(sum) + ";";
      take(line);
    }
  }
  for (const std::string& row : cut(exampleFile("payments-2009-01.csv"), "\r\n")) {
    const std::vector<std::string> fields = cut(row, ";");
    if (fields.front() == "SSP4")
      take("113;77;1;2009;0;0;" + fields[7] + ";" + fields[8] + ";" + fields[5] + ";" + fields[6] + ";" + fields[4] +
           ";");
    if (fields.front() == "PBK4") take("113;PBK4;1;2009;" + fields[4] + ";" + fields[5] + ";" + fields[6] + ";");
  }
  EXPECT_EQ(lines.size(), 3U);
}

TEST_F(ReportByOthers, HoldsLettersBeyondAsciiInTheCodePage) {
  const std::string stage = secondStage();
  ASSERT_GT(stage.size(), 22U);
  const std::string plain = OtherCiphers().inflate(stage.substr(20, stage.size() - 22));
  EXPECT_NE(plain.find(";Jos\xE9 M\xFCller \x80;"), std::string::npos);
}

}  // namespace
}  // namespace tarvola::test
