// Which field of which form counts on which line, one field at a time.
#include "tarvola/mainreturn/return_lines.h"
#include "tests/mainreturn/return_fixture.h"

using testing::IsEmpty;

namespace tarvola::test {
namespace {

struct FieldCase {
  std::string_view form;
  const char* field;
  /// The field of the return that takes the amount, "" if none does.
  std::string_view target;
  /// Options that the amount needs.
  std::map<std::string, std::string> options = {};
};

const std::vector<FieldCase> fieldCases = {
    {"F113309", "B13", "B43"},
    {"F113309", "B23", "B43"},
    {"F113309", "B33", "B43"},
    {"F113309", "B43", "B43"},
    {"F113309", "B53", "B43"},
    {"F113309", "B63", "B43"},
    {"F113309", "JmlB5", "B45"},
    // The tax of a prize comes from its sum alone.
    {"F113309", "B15", ""},
    {"F113310", "B1A3", "B1a13", {{"OPTDN1", "1"}}},
    {"F113310", "B1A5", "B1a15", {{"OPTDN1", "1"}}},
    {"F113310", "B1B3", "B1a13", {{"OPTDN2", "1"}}},
    {"F113310", "B1B5", "B1a15", {{"OPTDN2", "1"}}},
    {"F113310", "B1C3", "B1a13", {{"OPTDN3", "1"}}},
    {"F113310", "B1C5", "B1a15", {{"OPTDN3", "1"}}},
    {"F113310", "B23", "B1a13", {{"OPTDN4", "1"}}},
    {"F113310", "B25", "B1a15", {{"OPTDN4", "1"}}},
    {"F113310", "B33", "B1a13", {{"OPTDN5", "1"}}},
    {"F113310", "B35", "B1a15", {{"OPTDN5", "1"}}},
    {"F113310", "B1A3", "B1a23", {{"OPTLN1", "1"}}},
    {"F113310", "B1A5", "B1a25", {{"OPTLN1", "1"}}},
    {"F113310", "B1B3", "B1a23", {{"OPTLN2", "1"}}},
    {"F113310", "B1B5", "B1a25", {{"OPTLN2", "1"}}},
    {"F113310", "B1C3", "B1a23", {{"OPTLN3", "1"}}},
    {"F113310", "B1C5", "B1a25", {{"OPTLN3", "1"}}},
    {"F113310", "B23", "B1a23", {{"OPTLN4", "1"}}},
    {"F113310", "B25", "B1a25", {{"OPTLN4", "1"}}},
    {"F113310", "B33", "B1a23", {{"OPTLN5", "1"}}},
    {"F113310", "B35", "B1a25", {{"OPTLN5", "1"}}},
    {"F113310", "B43", "B1B3"},
    {"F113310", "B45", "B1B5"},
    {"F113310", "B53", "B1C3"},
    {"F113310", "B55", "B1C5"},
    // Other interest shows on line 11a only beside giro.
    {"F113310", "B63", ""},
    {"F113310", "B65", ""},
    {"F113311", "B13", "B2a3"},
    {"F113311", "B15", "B2a5"},
    {"F113311", "B23", "B2b3"},
    {"F113311", "B25", "B2b5"},
    {"F113312", "JMLBRUTO", "B5a3"},
    {"F113312", "PPHDIPTG", "B5a5"},
    // The three plain rows of construction lead to 6b, the two with an option to 6a and 6c.
    {"F113316", "B13", "B6b13"},
    {"F113316", "B15", "B6b15"},
    {"F113316", "B23", "B6b13"},
    {"F113316", "B25", "B6b15"},
    {"F113316", "B33", "B6b13"},
    {"F113316", "B35", "B6b15"},
    {"F113316", "B43", "B6a13", {{"Opt4", "1"}}},
    {"F113316", "B45", "B6a15", {{"Opt4", "1"}}},
    {"F113316", "B43", "B6c13", {{"Opt4", "2"}}},
    {"F113316", "B45", "B6c15", {{"Opt4", "2"}}},
    {"F113316", "B53", "B6a13", {{"Opt5", "1"}}},
    {"F113316", "B55", "B6a15", {{"Opt5", "1"}}},
    {"F113316", "B53", "B6c13", {{"Opt5", "2"}}},
    {"F113316", "B55", "B6c15", {{"Opt5", "2"}}},
    {"F113316", "B43", ""},
    {"F113316", "B55", ""},
    {"F113317", "JML", "B33"},
    {"F113317", "PPhFinal", "B35"},
    {"FSewaTnhBgn", "JMLBRUTO", "B5b3"},
    {"FSewaTnhBgn", "PPH", "B5b5"},
    {"FJasaKonstruksi", "JmlBruto1", "B6a23"},
    {"FJasaKonstruksi", "PPH1", "B6a25"},
    {"FJasaKonstruksi", "JmlBruto2", "B6b23"},
    {"FJasaKonstruksi", "PPH2", "B6b25"},
    {"FJasaKonstruksi", "JmlBruto3", "B6c23"},
    {"FJasaKonstruksi", "PPH3", "B6c25"},
    // Its sums are not read.
    {"FJasaKonstruksi", "JmlPPh", ""},
    {"FJasaKonstruksi", "JMLPHSL", ""},
    {"F113319", "JMLBRUTO", "B83"},
    {"F113319", "PPHDIPTG", "B85"},
    {"F113320", "JMLBRUTO", "B93"},
    {"F113320", "PPHDIPTG", "B95"},
    {"F113321", "JMLBRUTO", "B103"},
    {"F113321", "PPHDIPTG", "B105"},
    {"FAlihTnhBgn", "JMLBRUTO", "B73"},
    {"FAlihTnhBgn", "PPH", "B75"},
};

class RecountOfOneField : public ReturnTest {
 protected:
  RecountOfOneField() { makeReturn(); }
};

TEST_F(RecountOfOneField, ReachesItsLineAndNoOther) {
  for (const FieldCase& test : fieldCases) {
    Document document{.form = test.form, .fields = test.options};
    document.fields[test.field] = "1000";
    addDocument(document);
    CF113204 mainReturn;
    recount(mainReturn);
    for (const mainreturn::ReturnLine& line : mainreturn::returnLines)
      for (const std::string_view field : {line.gross, line.tax})
        EXPECT_EQ(number(mainReturn, field), field == test.target ? 1000 : 0)
            << test.form << "." << test.field << " on " << field;
    run("DELETE * FROM DS_FORM_INDUK WHERE NOBUKTI <> '-'");
    run("DELETE * FROM DAT_SSP_PPh22 WHERE NOBUKTI <> '-'");
  }
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

struct RateCase {
  std::string_view form;
  std::string_view rate;
  const char* gross;
  const char* tax;
};

// The rate of a self-paid line is its tax times 100 by its gross, with all decimals.
TEST_F(RecountOfOneField, GivesEachSelfPaidLineItsQuotient) {
  const RateCase cases[] = {{"FSewaTnhBgn", "B5b4", "JMLBRUTO", "PPH"},
                            {"FJasaKonstruksi", "B6a24", "JmlBruto1", "PPH1"},
                            {"FJasaKonstruksi", "B6b24", "JmlBruto2", "PPH2"},
                            {"FJasaKonstruksi", "B6c24", "JmlBruto3", "PPH3"},
                            {"FAlihTnhBgn", "B74", "JMLBRUTO", "PPH"}};
  for (const RateCase& test : cases) {
    addDocument({.form = test.form, .fields = {{test.gross, "3"}, {test.tax, "1"}}});
    CF113204 mainReturn;
    recount(mainReturn);
    for (const mainreturn::ReturnLine& line : mainreturn::returnLines)
      EXPECT_EQ(number(mainReturn, line.rate), line.rate == test.rate ? 100.0 / 3 : 0) << test.form << line.rate;
    run("DELETE * FROM DAT_SSP_PPh22 WHERE NOBUKTI <> '-'");
  }
}

// Pair n holds a rate of n percent, the pair of all totals one of 9.
TEST_F(RecountOfOneField, TakesEachAverageFromItsPairOfTotals) {
  struct AverageCase {
    std::string_view form;
    std::map<std::string, std::string> fields;
    std::string_view rate;
    double percent;
  };
  const AverageCase cases[] = {
      {"F113309", {{"B13", "1"}}, "B44", 9},
      {"F113310", {{"B1A3", "1"}, {"OPTDN1", "1"}}, "B1a14", 1},
      {"F113310", {{"B1A3", "1"}, {"OPTLN1", "1"}}, "B1a24", 2},
      {"F113310", {{"B43", "1"}}, "B1B4", 3},
      {"F113310", {{"B53", "1"}}, "B1C4", 4},
      {"F113311", {{"B13", "1"}}, "B2a4", 1},
      {"F113311", {{"B23", "1"}}, "B2b4", 2},
      {"F113312", {{"JMLBRUTO", "1"}}, "B5a4", 9},
      {"F113316", {{"B43", "1"}, {"Opt4", "1"}}, "B6a14", 1},
      {"F113316", {{"B13", "1"}}, "B6b14", 2},
      {"F113316", {{"B43", "1"}, {"Opt4", "2"}}, "B6c14", 3},
      {"F113317", {{"JML", "1"}}, "B34", 9},
      {"F113319", {{"JMLBRUTO", "1"}}, "B84", 9},
      {"F113320", {{"JMLBRUTO", "1"}}, "B94", 9},
      {"F113321", {{"JMLBRUTO", "1"}}, "B104", 9},
  };
  for (const AverageCase& test : cases) {
    addDocument({.form = test.form,
                 .fields = test.fields,
                 .totals = {{"Total_Bruto", "100"},
                            {"Total_PPh", "9"},
                            {"Total_Bruto1", "100"},
                            {"Total_PPh1", "1"},
                            {"Total_Bruto2", "100"},
                            {"Total_PPh2", "2"},
                            {"Total_Bruto3", "100"},
                            {"Total_PPh3", "3"},
                            {"Total_Bruto4", "100"},
                            {"Total_PPh4", "4"}}});
    CF113204 mainReturn;
    recount(mainReturn);
    for (const mainreturn::ReturnLine& line : mainreturn::returnLines)
      EXPECT_EQ(number(mainReturn, line.rate), line.rate == test.rate ? test.percent : 0) << test.form << line.rate;
    run("DELETE * FROM DS_FORM_INDUK WHERE NOBUKTI <> '-'");
  }
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

}  // namespace
}  // namespace tarvola::test
