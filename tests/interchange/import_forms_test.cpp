// What the import writes for a line of each form, against the rules of the forms in a small notation of the test's own.

#include <gtest/gtest.h>

#include "tarvola/interchange/CImporBP.h"
#include "tests/interchange/interchange_store.h"

namespace tarvola::test {
namespace {

/// The rules of one form. An element is the number of a column (from 0): "8" the column with blanks cut, "I11" its
/// amount without decimals, "I11+I16" a sum, "P10" the option pair of column 10. The notation knows nothing of the
/// import's tables.
struct FormRule {
  const char* form;
  const char* document;
  const char* packed;
  /// Column of the totals and what it holds, one after the other.
  std::vector<std::pair<const char*, const char*>> totals;
  const char* listGross;
  const char* listTax;
};

const char* const sixGross = "I11+I16+I21+I26+I31+I35";
const char* const eightGross = "I11+I16+I21+I26+I31+I35+I38+I42";

const std::vector<FormRule> slipRules = {
    {"F113309",
     "02",
     "8 7 4 5 6 9 I11 I13 14 I16 I18 19 I21 I23 24 I26 I28 29 I31 I33 34 I35 I37 12 17 22 27 32 36 45 "
     "I11+I16+I21+I26+I31+I35",
     {{"Total_Bruto", sixGross}, {"Total_PPh", "I45"}},
     sixGross,
     "I45"},
    {"F113310",
     "03",
     "8 7 P10 P15 P20 P25 P30 4 5 6 I11 12 I13 I16 17 I18 I21 22 I23 I26 27 I28 I31 32 I33 I35 36 I37 I38 39 I40 41 "
     "I42 "
     "43 I44 I45 I11+I16+I21+I26+I31+I35+I38+I42",
     // Columns 10 and 20 say 0, columns 15 and 25 say 1, column 30 says 2, which is in neither total.
     {{"Total_Bruto", "I42"},
      {"Total_PPh", "I44"},
      {"Total_Bruto1", "I11+I21"},
      {"Total_PPh1", "I13+I23"},
      {"Total_Bruto2", "I16+I26"},
      {"Total_PPh2", "I18+I28"},
      {"Total_Bruto3", "I35"},
      {"Total_PPh3", "I37"},
      {"Total_Bruto4", "I38"},
      {"Total_PPh4", "I40"}},
     eightGross,
     "I45"},
    {"F113311",
     "04",
     "8 7 4 5 6 I11 12 I13 I16 17 I18 I45 I11+I16",
     {{"Total_Bruto1", "I11"}, {"Total_PPh1", "I13"}, {"Total_Bruto2", "I16"}, {"Total_PPh2", "I18"}},
     "I11+I16",
     "I45"},
    {"F113312", "05", "8 7 4 5 6 9 I11 12 I13", {{"Total_Bruto", "I11"}, {"Total_PPh", "I13"}}, "I11", "I13"},
    {"F113316",
     "06",
     "8 7 4 5 6 I11 12 I13 I16 17 I18 I21 22 I23 25 I26 27 I28 30 I31 32 I33 I45 I11+I16+I21+I26+I31",
     // Column 25 says 1, column 30 says 2.
     {{"Total_Bruto1", "I26"},
      {"Total_PPh1", "I28"},
      {"Total_Bruto2", "I11+I16+I21"},
      {"Total_PPh2", "I13+I18+I23"},
      {"Total_Bruto3", "I31"},
      {"Total_PPh3", "I33"}},
     "I11+I16+I21+I26+I31",
     "I45"},
    {"F113317",
     "07",
     "8 46 47 48 7 4 5 6 9 I11 14 12 I16 I21 I26 I31 I35 I45 36 49 50",
     {{"Total_Bruto", "I35"}, {"Total_PPh", "I45"}},
     "I35",
     "I45"},
    {"F113319", "15", "8 7 4 5 6 I11 12 I13", {{"Total_Bruto", "I11"}, {"Total_PPh", "I13"}}, "I11", "I13"},
    {"F113320", "16", "8 7 4 5 6 I11 12 I13", {{"Total_Bruto", "I11"}, {"Total_PPh", "I13"}}, "I11", "I13"},
    {"F113321", "17", "8 7 4 5 6 I11 12 I13", {{"Total_Bruto", "I11"}, {"Total_PPh", "I13"}}, "I11", "I13"},
};

struct SelfPaidRule {
  const char* form;
  const char* document;
  const char* list;
  /// Q is SEQ.
  const char* packed;
  const char* listPacked;
};

const std::vector<SelfPaidRule> selfPaidRules = {
    {"FSewaTnhBgn", "12", "DSewaTnhBgn", "9 8 7 Q I11 I13", "Q I11 I13 9 7 8 E"},
    {"FJasaKonstruksi", "14", "DJasaKonstruksi", "8 7 Q I11 I13 I16 I18 I21 I23 I45 I11+I16+I21",
     "Q I11+I16+I21 I13+I18+I23 7 8 E"},
    {"FAlihTnhBgn", "19", "DAlihTnhBgn", "8 7 Q I11 I13", "Q I11 I13 7 8 E"},
};

/// A line in which no two columns hold the same: amounts with decimals, rates, texts with blanks around.
Line fullLine(const char* form) {
  Line line(form);
  for (const std::size_t amount : {11U, 13U, 16U, 18U, 21U, 23U, 26U, 28U, 31U, 33U, 35U, 37U, 38U, 40U, 42U, 44U, 45U})
    line.with(amount, std::to_string(1000 + amount) + ",75");
  for (const std::size_t rate : {12U, 17U, 22U, 27U, 32U, 36U, 39U, 43U}) line.with(rate, std::to_string(rate) + ",5");
  for (const std::size_t text : {9U, 14U, 19U, 24U, 29U, 34U, 41U})
    line.with(text, "  text " + std::to_string(text) + " ");
  line.with(10, "0").with(15, "1").with(20, "0").with(25, "1").with(30, "2");
  return line.with(46, "15/06/2017").with(47, "01/01/2008").with(48, "25/01/2009").with(49, "61").with(50, "182");
}

std::string amountOf(const Line& line, std::size_t column) {
  const std::string& text = line.columns()[column];
  return text.substr(0, text.find(','));
}

std::string trimmed(std::string text) {
  text.erase(0, text.find_first_not_of(' ') == std::string::npos ? text.size() : text.find_first_not_of(' '));
  return text.erase(text.find_last_not_of(' ') + 1);
}

std::string element(const Line& line, const std::string& rule, const std::string& seq) {
  if (rule == "Q") return seq;
  if (rule == "E") return "";
  if (rule[0] == 'P') return line.columns()[std::stoul(rule.substr(1))] == "0" ? "1;0" : "0;1";
  if (rule[0] != 'I') return trimmed(line.columns()[std::stoul(rule)]);
  long sum = 0;
  for (const std::string& addend : split(rule, '+')) sum += std::stol(amountOf(line, std::stoul(addend.substr(1))));
  return std::to_string(sum);
}

std::string packedBy(const Line& line, const char* rule, const std::string& seq = "") {
  std::vector<std::string> elements;
  for (const std::string& part : split(rule, ' ')) elements.push_back(element(line, part, seq));
  return join(elements, ";");
}

const std::string head = "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;";

class ImportForms : public testing::Test {
 protected:
  void import(const Line& line) { CImporBP().pImporPPh4(line.array(), "013121660091000", 1, 2009, 0); }
  InterchangeStore store;
};

TEST_F(ImportForms, EachSlipGetsThePackedTextOfItsForm) {
  for (const FormRule& rule : slipRules) {
    const Line line = fullLine(rule.form).with(7, std::string(rule.form) + "/1");
    import(line);
    EXPECT_EQ(store.value(std::string("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = '") + rule.form + "'"),
              head + packedBy(line, rule.packed));
  }
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

TEST_F(ImportForms, EachSlipGetsTheColumnsOfItsRow) {
  for (const FormRule& rule : slipRules) {
    import(fullLine(rule.form).with(7, std::string(rule.form) + "/1"));
    EXPECT_EQ(store.value("SELECT NPWP, JENIS_DOKUMEN, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, NOBUKTI, KD_JENIS_PAJAK, "
                          "TGL_REKAM, TGL_UBAH, NIP, FlagNPWP FROM DS_FORM_INDUK WHERE KD_FORM = '" +
                          std::string(rule.form) + "'"),
              std::string("013121660091000|") + rule.document + "|1|2009|0|" + rule.form +
                  "/1|113|10/02/2009|10/02/2009|-|1");
  }
}

TEST_F(ImportForms, EachSlipCarriesTheTotalsOfItsFormAndNoOthers) {
  for (const FormRule& rule : slipRules) {
    const Line line = fullLine(rule.form).with(7, std::string(rule.form) + "/1");
    import(line);
    for (const char* column : {"Total_Bruto", "Total_PPh", "Total_Bruto1", "Total_PPh1", "Total_Bruto2", "Total_PPh2",
                               "Total_Bruto3", "Total_PPh3", "Total_Bruto4", "Total_PPh4"}) {
      std::string expected = "0";
      for (const auto& [name, sum] : rule.totals)
        if (std::string_view(name) == column) expected = packedBy(line, sum);
      EXPECT_EQ(
          store.value(std::string("SELECT ") + column + " FROM DS_FORM_INDUK WHERE KD_FORM = '" + rule.form + "'"),
          expected)
          << rule.form << " " << column;
    }
  }
}

TEST_F(ImportForms, EachSlipGetsItsListRow) {
  int seq = 0;
  for (const FormRule& rule : slipRules) {
    const std::string number = std::string(rule.form) + "/1";
    const Line line = fullLine(rule.form).with(7, number);
    import(line);
    const std::string packed = "1;2009;" + std::to_string(++seq) + ";" + packedBy(line, "4 6 5 7 8") + ";" +
                               packedBy(line, rule.listGross) + ";" + packedBy(line, rule.listTax);
    EXPECT_EQ(store.value("SELECT * FROM DS_FORM_LAMPIRAN WHERE NOBUKTI = '" + number + "'"),
              "D113206|1|2009|0|0|" + std::to_string(seq) + "|" + number + "|" + packed);
  }
}

TEST_F(ImportForms, EachSelfPaidFormGetsItsFormAndListRow) {
  for (const SelfPaidRule& rule : selfPaidRules) {
    for (const char* seq : {"1", "2"}) {
      const Line line = fullLine(rule.form).with(7, std::string("NTPN ") + seq);
      import(line);
      EXPECT_EQ(store.value(std::string("SELECT * FROM DAT_SSP_PPh22 WHERE KD_FORM = '") + rule.form +
                            "' AND NOBUKTI = 'NTPN " + seq + "'"),
                std::string("013121660091000|") + rule.form + "|" + rule.document + "|1|2009|0|NTPN " + seq + "|113|" +
                    head + packedBy(line, rule.packed, seq) + "|10/02/2009|10/02/2009|-");
      EXPECT_EQ(store.value(std::string("SELECT * FROM LAMPIRAN_SSP_PPh22 WHERE KD_FORM = '") + rule.list +
                            "' AND NOBUKTI = 'NTPN " + seq + "'"),
                std::string(rule.list) + "|1|2009|0|0|" + seq + "|NTPN " + seq + "|1;2009;" +
                    packedBy(line, rule.listPacked, seq));
    }
  }
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

TEST_F(ImportForms, AnInterestAmountOfZeroLosesTheCodeInFrontOfIt) {
  import(Line("F113310").with(10, "0").with(11, "0").with(15, "1").with(16, "0").with(20, "0").with(21, "500"));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"),
              testing::HasSubstr(";000001/PPH4;0;0;0;0;1;0;0;0;0;0;086556479946000;"));
}

TEST_F(ImportForms, OnlyTheExactTextZeroLosesTheCode) {
  import(Line("F113310").with(10, "0").with(11, "0,0").with(15, "1").with(16, " 0"));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"), testing::HasSubstr(";000001/PPH4;1;0;0;1;0;0;"));
}

TEST_F(ImportForms, AmountsAreCutDownAndNeverRounded) {
  import(Line("F113319").with(11, "1234,56").with(13, "-0,5"));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"), testing::EndsWith(";1234;0;-1"));
}

TEST_F(ImportForms, AnAmountWithADecimalPointLosesItsDecimalsToo) {
  struct Case {
    const char* amount;
    const char* stored;
  };
  // A point that parts a group of three is one of the thousands; any other single one is the decimal sign.
  for (const Case& row : {Case{"1234.56", "1234"}, Case{"-0.5", "-1"}, Case{"1234.567", "1234"}, Case{"1.234", "1234"},
                          Case{" 1.234.567 ", "1234567"}, Case{"1.234,56", "1234"}}) {
    store.run("DELETE * FROM DS_FORM_INDUK");
    import(Line("F113319").with(11, row.amount));
    EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"),
                testing::EndsWith(std::string(";") + row.stored + ";0;0"))
        << row.amount;
    EXPECT_EQ(store.value("SELECT Total_Bruto FROM DS_FORM_INDUK"), row.stored) << row.amount;
  }
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

TEST_F(ImportForms, TheTotalOfAPrizeSlipAloneKeepsItsDecimals) {
  import(Line("F113309").with(45, "15,5"));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"), testing::EndsWith(";15,5;0"));
  EXPECT_EQ(store.value("SELECT Total_PPh FROM DS_FORM_INDUK"), "15");
}

TEST_F(ImportForms, TheFlagGoesByThePayeesNumber) {
  struct Case {
    const char* payee;
    const char* flag;
  };
  for (const Case& row : {Case{"", "0"}, Case{"   ", "0"}, Case{"000000000060000", "2"}, Case{"000000000", "2"},
                          Case{"00000000", "1"}, Case{"086556479946000", "1"}}) {
    store.run("DELETE * FROM DS_FORM_INDUK");
    import(Line("F113319").with(4, row.payee));
    EXPECT_EQ(store.value("SELECT FlagNPWP FROM DS_FORM_INDUK"), row.flag) << "payee '" << row.payee << "'";
  }
}

TEST_F(ImportForms, ABondSlipWithoutNominalValueIsListedWithZeroAndZero) {
  import(Line("F113317").with(11, "0").with(35, "900").with(45, "135").with(49, "1").with(50, "1"));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"), testing::EndsWith(";0;0"));
  EXPECT_EQ(store.value("SELECT Total_Bruto, Total_PPh FROM DS_FORM_INDUK"), "900|135");
}

TEST_F(ImportForms, LineBreaksLeaveThePackedTextsAndLoneOnesStay) {
  import(Line("F113319").with(5, "PT Dua\r\nBaris\nTiga"));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"), testing::HasSubstr(";PT DuaBaris\nTiga;"));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"), testing::HasSubstr(";PT DuaBaris\nTiga;"));
}

TEST_F(ImportForms, WithoutAProfileTheHeadIsEmpty) {
  store.run("DELETE * FROM PROFILE");
  import(Line("F113319"));
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"), testing::StartsWith(";;;1;2009;0;08/01/2009;"));
  EXPECT_EQ(store.value("SELECT NPWP FROM DS_FORM_INDUK"), "");
}

}  // namespace
}  // namespace tarvola::test
