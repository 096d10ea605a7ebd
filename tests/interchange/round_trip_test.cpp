// Export, import and export again: what goes round comes back, but for what is known to be lost.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <random>

#include "tarvola/interchange/CEksporBP.h"
#include "tarvola/interchange/CImporBP.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/code_page.h"
#include "tests/interchange/interchange_store.h"

namespace tarvola::test {
namespace {

constexpr const char* filer = "013121660091000";

std::vector<std::string> linesOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  std::vector<std::string> lines;
  for (std::string line : split(fromAnsi(bytes), '\n')) {
    if (line.ends_with('\r')) line.pop_back();
    if (!line.empty()) lines.push_back(std::move(line));
  }
  return lines;
}

class RoundTrip : public testing::Test {
 protected:
  static void import(const std::vector<std::string>& lines) {
    CImporBP import;
    for (const std::string& line : lines) import.pImporPPh4(arrayOf(line), filer, 1, 2009, 0);
  }
  std::vector<std::string> exported() {
    CEksporBP().pEksporPPh("", 4, "1", "2009", 0, store.path("export.csv"), "");
    std::vector<std::string> lines = linesOf(store.path("export.csv"));
    if (!lines.empty()) lines.erase(lines.begin());
    return lines;
  }
  void empty() {
    for (const char* table : {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22", "D113210"})
      store.run(std::string("DELETE * FROM ") + table);
  }
  InterchangeStore store;
};

// --- every form with random values ---------------------------------------------------------------------

class RandomLines {
 public:
  explicit RandomLines(unsigned seed) : random_(seed) {}

  Line of(const char* form, int number) {
    const bool isSlip = std::string_view(form).starts_with("F1");
    Line line(form, isSlip ? std::to_string(100000 + number) + "/PPH4" : "NTPN" + std::to_string(number));
    line.with(8, date());
    if (isSlip) line.with(4, digits(15)).with(5, name()).with(6, name());
    return line;
  }
  std::string amount() { return std::to_string(between(0, 3) == 0 ? 0 : between(1, 999'999'999)); }
  std::string rate() {
    static const std::vector<std::string> rates = {"0", "0,1", "0,5", "2,5", "10", "15", "20", "25"};
    return rates[static_cast<std::size_t>(between(0, 7))];
  }
  std::string name() {
    static const std::vector<std::string> names = {"",          "PT Bumi Persada Tbk", "José Müller",       "A  B",
                                                   "x|y%z_[w]", "\"CV\" \\ Jaya",      "Jl. Raya No. 5 # 2"};
    return names[static_cast<std::size_t>(between(0, 6))];
  }
  std::string date() { return Format(Variant(Date::fromYmd(2009, 1, between(1, 31))), "DD/MM/YYYY"); }
  std::string digits(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += static_cast<char>('0' + between(0, 9));
    return text;
  }
  int between(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

 private:
  std::mt19937 random_;
};

/// The columns of a form that hold something, by what they hold.
struct FilledColumns {
  const char* form;
  std::vector<std::size_t> texts;
  std::vector<std::size_t> amounts;
  std::vector<std::size_t> rates;
};

const std::vector<FilledColumns> filledColumns = {
    {"F113309",
     {9, 14, 19, 24, 29, 34},
     {11, 13, 16, 18, 21, 23, 26, 28, 31, 33, 35, 37, 45},
     {12, 17, 22, 27, 32, 36}},
    {"F113310",
     {41},
     {11, 13, 16, 18, 21, 23, 26, 28, 31, 33, 35, 37, 38, 40, 42, 44, 45},
     {12, 17, 22, 27, 32, 36, 39, 43}},
    {"F113311", {}, {11, 13, 16, 18, 45}, {12, 17}},
    {"F113312", {9}, {11, 13}, {12}},
    {"F113316", {}, {11, 13, 16, 18, 21, 23, 26, 28, 31, 33, 45}, {12, 17, 22, 27, 32}},
    {"F113317", {9, 14}, {11, 16, 21, 26, 31, 35, 45}, {12, 36, 49, 50}},
    {"F113319", {}, {11, 13}, {12}},
    {"F113320", {}, {11, 13}, {12}},
    {"F113321", {}, {11, 13}, {12}},
    {"FSewaTnhBgn", {9}, {11, 13}, {}},
    {"FJasaKonstruksi", {}, {11, 13, 16, 18, 21, 23, 45}, {}},
    {"FAlihTnhBgn", {}, {11, 13}, {}},
};

/// A single item says its tax twice, in the item and as the total.
bool hasTotalOfItsOwn(const FilledColumns& columns) {
  return std::find(columns.amounts.begin(), columns.amounts.end(), 45U) != columns.amounts.end();
}

Line randomLine(RandomLines& random, const FilledColumns& columns, int number) {
  Line line = random.of(columns.form, number);
  for (const std::size_t column : columns.texts) line.with(column, random.name());
  for (const std::size_t column : columns.amounts) line.with(column, random.amount());
  for (const std::size_t column : columns.rates) line.with(column, random.rate());
  if (!hasTotalOfItsOwn(columns)) line.with(45, line.columns()[13]);
  const std::string_view form = columns.form;
  for (const std::size_t option : {10U, 15U, 20U, 25U, 30U})
    // A deposit without an amount has lost its code: 1 is what the export writes for it.
    if (form == "F113310")
      line.with(option, line.columns()[option + 1] == "0" ? "1" : random.between(0, 1) == 0 ? "0" : "1");
  if (form == "F113316")
    line.with(25, std::to_string(random.between(0, 2))).with(30, std::to_string(random.between(0, 2)));
  if (form == "F113317") line.with(46, random.date()).with(47, random.date()).with(48, random.date());
  return line;
}

TEST_F(RoundTrip, EveryFormComesBackAsItWentIn) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomLines random(seed);
  for (const FilledColumns& columns : filledColumns) {
    empty();
    std::vector<std::string> lines;
    for (int number = 0; number < 25; ++number) lines.push_back(randomLine(random, columns, number).text());
    import(lines);
    EXPECT_THAT(exported(), testing::UnorderedElementsAreArray(lines)) << columns.form;
  }
}

TEST_F(RoundTrip, AFileThatIsExportedAndImportedAgainGivesTheSameDocuments) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomLines random(seed);
  std::vector<std::string> lines;
  for (int number = 0; number < 60; ++number)
    lines.push_back(
        randomLine(random, filledColumns[static_cast<std::size_t>(number) % filledColumns.size()], number).text());
  import(lines);
  const std::vector<std::string> once = exported();
  // Slips come out in another order than they went in, so that the store of the second import is the one to compare.
  empty();
  import(once);
  const std::vector<std::string> documents = store.dump();
  const std::vector<std::string> twice = exported();
  EXPECT_EQ(twice, once);
  empty();
  import(twice);
  EXPECT_EQ(store.dump(), documents);
}

TEST_F(RoundTrip, DecimalsOfAmountsAndCodesOfZeroAmountsAreLost) {
  Line line("F113310");
  line.with(10, "0").with(11, "0").with(15, "0").with(16, "1000,75").with(17, "20").with(18, "200");
  import({line.text()});
  EXPECT_EQ(exported(), std::vector<std::string>{
                            line.with(10, "1").with(16, "1000").with(20, "1").with(25, "1").with(30, "1").text()});
}

// --- the sample month ------------------------------------------------------------------------------------

class SampleMonth : public RoundTrip {
 protected:
  SampleMonth() {
    lines = linesOf(TARVOLA_SOURCE_DIR "/examples/month-2009-01.csv");
    lines.erase(lines.begin());
    import(lines);
  }
  void rebuild() {
    CImporBP import;
    import.pBuildTRVPPh4(filer, 1, 2009, 0);
    import.pUpdateD113210({}, filer, 1, 2009, 0, "PT Contoh Sejahtera", "Jl. Merdeka No. 1");
    import.pUpdateTRVPPh4(filer, 1, 2009, 0);
  }
  /// The sum of a column over the lines of a form, of those alone whose option column holds a value.
  long long sum(std::string_view form, std::initializer_list<std::size_t> columns, std::size_t option = 0,
                std::string_view value = {}) const {
    long long total = 0;
    for (const std::string& line : lines) {
      const std::vector<std::string> parts = split(line, ';');
      if (parts[0] != form || (option != 0 && parts[option] != value)) continue;
      for (const std::size_t column : columns) total += std::stoll(parts[column]);
    }
    return total;
  }
  long long deposits(std::string_view code, std::size_t behind) const {
    long long total = 0;
    for (const std::size_t option : {10U, 15U, 20U, 25U, 30U}) total += sum("F113310", {option + behind}, option, code);
    return total;
  }
  std::vector<std::string> lines;
};

TEST_F(SampleMonth, EveryLineGoesInWithoutAMessage) {
  EXPECT_EQ(lines.size(), 240U);
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_INDUK"), "211");
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DAT_SSP_PPh22"), "29");
}

TEST_F(SampleMonth, TheExportGivesTheFileBackButForTheCodesOfZeroAmounts) {
  std::vector<std::string> expected;
  for (const std::string& line : lines) {
    std::vector<std::string> columns = split(line, ';');
    if (columns[0] == "F113310")
      for (const std::size_t option : {10U, 15U, 20U, 25U, 30U})
        if (columns[option + 1] == "0") columns[option] = "1";
    expected.push_back(join(columns, ";"));
  }
  EXPECT_THAT(exported(), testing::UnorderedElementsAreArray(expected));
}

TEST_F(SampleMonth, TheLinesOfTheReturnAreTheSumsOfTheColumns) {
  rebuild();
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
  CF113204 form;
  form.pGetF113204(filer, "F113204", "01", 1, 2009, 0, "-", "113");
  const auto field = [&](const char* name) { return CDbl(form.rs4_2Form()->get_Collect(name)); };
  struct Row {
    const char* gross;
    const char* tax;
    long long grossSum;
    long long taxSum;
  };
  const std::vector<Row> rows = {
      {"B1a13", "B1a15", deposits("0", 1), deposits("0", 3)},
      {"B1a23", "B1a25", deposits("1", 1), deposits("1", 3)},
      {"B1B3", "B1B5", sum("F113310", {35}), sum("F113310", {37})},
      {"B1C3", "B1C5", sum("F113310", {38}), sum("F113310", {40})},
      {"B2a3", "B2a5", sum("F113311", {11}), sum("F113311", {13})},
      {"B2b3", "B2b5", sum("F113311", {16}), sum("F113311", {18})},
      {"B33", "B35", sum("F113317", {35}), sum("F113317", {45})},
      {"B43", "B45", sum("F113309", {11, 16, 21, 26, 31, 35}), sum("F113309", {45})},
      {"B5a3", "B5a5", sum("F113312", {11}), sum("F113312", {13})},
      {"B5b3", "B5b5", sum("FSewaTnhBgn", {11}), sum("FSewaTnhBgn", {13})},
      {"B6a13", "B6a15", sum("F113316", {26}, 25, "1") + sum("F113316", {31}, 30, "1"),
       sum("F113316", {28}, 25, "1") + sum("F113316", {33}, 30, "1")},
      {"B6a23", "B6a25", sum("FJasaKonstruksi", {11}), sum("FJasaKonstruksi", {13})},
      {"B6b13", "B6b15", sum("F113316", {11, 16, 21}), sum("F113316", {13, 18, 23})},
      {"B6b23", "B6b25", sum("FJasaKonstruksi", {16}), sum("FJasaKonstruksi", {18})},
      {"B6c13", "B6c15", sum("F113316", {26}, 25, "2") + sum("F113316", {31}, 30, "2"),
       sum("F113316", {28}, 25, "2") + sum("F113316", {33}, 30, "2")},
      {"B6c23", "B6c25", sum("FJasaKonstruksi", {21}), sum("FJasaKonstruksi", {23})},
      {"B73", "B75", sum("FAlihTnhBgn", {11}), sum("FAlihTnhBgn", {13})},
      {"B83", "B85", sum("F113319", {11}), sum("F113319", {13})},
      {"B93", "B95", sum("F113320", {11}), sum("F113320", {13})},
      {"B103", "B105", sum("F113321", {11}), sum("F113321", {13})},
      {"B11a3", "B11a5", sum("F113310", {42}), sum("F113310", {44})},
  };
  long long allTax = 0;
  for (const Row& row : rows) {
    EXPECT_EQ(field(row.gross), static_cast<double>(row.grossSum)) << row.gross;
    EXPECT_EQ(field(row.tax), static_cast<double>(row.taxSum)) << row.tax;
    allTax += row.taxSum;
  }
  EXPECT_EQ(field("JmlB5"), static_cast<double>(allTax));
  EXPECT_EQ(field("C3"), 211);
}

TEST_F(SampleMonth, TheListOfSlipsSumsToTheLines) {
  rebuild();
  long long gross = sum("F113309", {11, 16, 21, 26, 31, 35}) + sum("F113310", {11, 16, 21, 26, 31, 35, 38, 42}) +
                    sum("F113311", {11, 16}) + sum("F113312", {11}) + sum("F113316", {11, 16, 21, 26, 31}) +
                    sum("F113317", {35});
  for (const char* form : {"F113319", "F113320", "F113321"}) gross += sum(form, {11});
  long long tax = 0;
  for (const char* form :
       {"F113309", "F113310", "F113311", "F113312", "F113316", "F113317", "F113319", "F113320", "F113321"})
    tax += sum(form, {45});
  EXPECT_EQ(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'"),
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;" + std::to_string(gross) + ";" +
                std::to_string(tax) + ";0;0");
}

TEST_F(SampleMonth, TheInterestHeaderSumsToTheLines) {
  rebuild();
  const std::vector<std::string> fields =
      split(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'D113210'"), ';');
  ASSERT_EQ(fields.size(), 21U);
  const std::map<std::size_t, long long> expected = {
      {7, deposits("0", 1)},      {8, deposits("0", 3)},      {10, deposits("1", 1)},     {11, deposits("1", 3)},
      {13, sum("F113310", {35})}, {14, sum("F113310", {37})}, {16, sum("F113310", {38})}, {17, sum("F113310", {40})}};
  for (const auto& [position, value] : expected) EXPECT_EQ(fields[position], std::to_string(value)) << position;
}

}  // namespace
}  // namespace tarvola::test
