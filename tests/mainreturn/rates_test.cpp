#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/store/CGeneralClass.h"
#include "tests/mainreturn/return_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace tarvola::test {
namespace {

// --- one default rate -----------------------------------------------------------------------------------------

class DefaultRate : public ReturnTest {
 protected:
  double of(std::string_view item, std::string_view form, std::int16_t article = 4) {
    return mainReturn_.pGetDefaultTaxRate(article, item, form);
  }
  CF113204 mainReturn_;
};

TEST_F(DefaultRate, IsThatOfItsItemAndForm) {
  EXPECT_EQ(of("B14", "F113309"), 25);
  EXPECT_EQ(of("WP DN", "F113310"), 20);
  EXPECT_EQ(of("B24", "F113311"), 0.1);
  EXPECT_EQ(of("Tarif", "F113320"), 2.5);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(DefaultRate, OfConstructionIsAnAverageForTheFirstItemOfEachGroup) {
  EXPECT_EQ(of("B14", "F113316"), 3) << "of 2, 4 and 3";
  EXPECT_EQ(of("B44", "F113316"), 5) << "of 4 and 6";
  EXPECT_EQ(of("B24", "F113316"), 4) << "any other item stands for itself";
  EXPECT_EQ(of("B54", "F113316"), 6);
}

TEST_F(DefaultRate, IsAveragedForTheExactFormAndItemAlone) {
  // The store knows no case, the choice between one item and several does.
  EXPECT_EQ(of("b14", "F113316"), 2);
  EXPECT_EQ(of("B14", "f113316"), 2);
}

TEST_F(DefaultRate, IsZeroWithoutARowAndWithoutAMessage) {
  EXPECT_EQ(of("B99", "F113309"), 0);
  EXPECT_EQ(of("B14", "F113309", 21), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(DefaultRate, OfConstructionIsZeroWithAMessageWhereNoItemIsThere) {
  run("DELETE * FROM SETTING_TARIF_PPH WHERE KODE_FORM = 'F113316'");
  EXPECT_EQ(of("B14", "F113316"), 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::InvalidUseOfNull)));
}

TEST_F(DefaultRate, IsZeroWithAMessageForAnItemWithAnApostrophe) {
  EXPECT_EQ(of("B'14", "F113309"), 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("Syntax error")));
}

// --- the average over documents ---------------------------------------------------------------------------------

class AverageRate : public ReturnTest {
 protected:
  void addSlip(const std::map<std::string, std::string>& totals, std::string_view form = "F113310") {
    addDocument({.form = form, .totals = totals});
  }
  double of(std::string_view choice, std::string_view form = "F113310", std::string_view document = "03") {
    return mainReturn_.pHit_TarifRataan("013121660091000", form, document, 3, 2009, 0, "113", choice);
  }
  CF113204 mainReturn_;
};

TEST_F(AverageRate, IsTaxTimesHundredByGross) {
  addSlip({{"Total_Bruto", "600"}, {"Total_PPh", "100"}});
  addSlip({{"Total_Bruto", "400"}, {"Total_PPh", "50"}});
  EXPECT_EQ(mainReturn_.pHit_TarifRataan("013121660091000", "F113310", "03", 3, 2009, 0, "113"), 15);
}

TEST_F(AverageRate, IsRoundedToThreeDecimalsAndThenCutToTwo) {
  struct Row {
    const char* gross;
    const char* tax;
    double rate;
  };
  const Row rows[] = {
      {"1000000", "123456", 12.34},                     // 12,3456 -> 12,346 -> 12,34
      {"1000000", "123495", 12.35},                     // 12,3495 -> 12,350 -> 12,35: what is cut is the rounded text
      {"1000000", "123494", 12.34},                     // 12,3494 -> 12,349 -> 12,34
      {"300000", "100000", 33.33},  {"3", "2", 66.66},  // 66,6666.. -> 66,667 -> 66,66
      {"1000", "150", 15},          {"1000000", "999999", 100},
  };
  for (const Row& row : rows) {
    run("DELETE * FROM DS_FORM_INDUK");
    addSlip({{"Total_Bruto", row.gross}, {"Total_PPh", row.tax}});
    EXPECT_EQ(of(""), row.rate) << row.tax << " of " << row.gross;
  }
}

TEST_F(AverageRate, IsTakenFromThePairOfTotalsThatIsChosen) {
  addSlip({{"Total_Bruto", "1000"},
           {"Total_PPh", "10"},
           {"Total_Bruto1", "1000"},
           {"Total_PPh1", "20"},
           {"Total_Bruto2", "1000"},
           {"Total_PPh2", "30"},
           {"Total_Bruto3", "1000"},
           {"Total_PPh3", "40"},
           {"Total_Bruto4", "1000"},
           {"Total_PPh4", "50"}});
  EXPECT_EQ(of(""), 1);
  EXPECT_EQ(of("1"), 2);
  EXPECT_EQ(of("DN"), 2);
  EXPECT_EQ(of("2"), 3);
  EXPECT_EQ(of("LN"), 3);
  EXPECT_EQ(of("3"), 4);
  EXPECT_EQ(of("SBI"), 4);
  EXPECT_EQ(of("4"), 5);
  EXPECT_EQ(of("GIRO"), 5);
  EXPECT_EQ(of("5"), 0);
  EXPECT_EQ(of("dn"), 0) << "a choice is compared exactly";
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(AverageRate, CountsTheDocumentsOfOneFilerFormPeriodAndKind) {
  addSlip({{"Total_Bruto", "1000"}, {"Total_PPh", "100"}});
  EXPECT_EQ(of("", "F113310", "03"), 10);
  EXPECT_EQ(of("", "F113311", "03"), 0);
  EXPECT_EQ(of("", "F113310", "04"), 0);
  const auto rate = [&](std::string_view filer, std::int16_t month, std::int16_t year, std::int16_t correction,
                        std::string_view kind) {
    return mainReturn_.pHit_TarifRataan(filer, "F113310", "03", month, year, correction, kind, "");
  };
  EXPECT_EQ(rate("013121660091000", 3, 2009, 0, "113"), 10);
  EXPECT_EQ(rate("999", 3, 2009, 0, "113"), 0);
  EXPECT_EQ(rate("013121660091000", 4, 2009, 0, "113"), 0);
  EXPECT_EQ(rate("013121660091000", 3, 2008, 0, "113"), 0);
  EXPECT_EQ(rate("013121660091000", 3, 2009, 1, "113"), 0);
  EXPECT_EQ(rate("013121660091000", 3, 2009, 0, "114"), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(AverageRate, IsZeroWithoutDocuments) {
  EXPECT_EQ(of(""), 0);
  EXPECT_EQ(of("DN"), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(AverageRate, IsZeroWithoutAMessageIfAllFiveGrossSumsAreZero) {
  addSlip({{"Total_PPh", "5"}, {"Total_PPh1", "5"}});
  EXPECT_EQ(of(""), 0);
  EXPECT_EQ(of("1"), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(AverageRate, OfAZeroGrossBesideAnotherIsADivisionByZero) {
  addSlip({{"Total_Bruto", "1000"}, {"Total_PPh", "100"}, {"Total_PPh1", "5"}});
  EXPECT_EQ(of("DN"), 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::DivisionByZero)));
  messages_.clear();
  // Zero by zero has a message of its own.
  EXPECT_EQ(of("LN"), 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::Overflow)));
}

TEST_F(AverageRate, IsZeroForANullGrossBesideOneThatIsThere) {
  addSlip({{"Total_Bruto", "1000"}, {"Total_PPh", "100"}, {"Total_Bruto1", "Null"}, {"Total_PPh1", "5"}});
  EXPECT_EQ(of("DN"), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(AverageRate, TakesAnUnknownChoiceForZeroEvenWhereAnotherWouldFail) {
  addSlip({{"Total_Bruto1", "1000"}, {"Total_PPh1", "100"}});
  EXPECT_EQ(of("X"), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(AverageRate, FailsForANullTaxOfAGrossThatIsThere) {
  addSlip({{"Total_Bruto", "1000"}, {"Total_PPh", "Null"}});
  EXPECT_EQ(of(""), 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::InvalidUseOfNull)));
}

TEST_F(AverageRate, AndDefaultRateDoNotChangeForFilersWithoutAnNpwp) {
  addSlip({{"Total_Bruto", "1000"}, {"Total_PPh", "150"}});
  CGeneralClass general;
  general.pSet_NonNPWP_4a2(true, 120);
  EXPECT_EQ(of(""), 15);
  EXPECT_EQ(mainReturn_.pGetDefaultTaxRate(4, "B14", "F113309"), 25);
}

// --- the rates of a new return ------------------------------------------------------------------------------------

class RatesOfANewReturn : public ReturnTest {
 protected:
  RatesOfANewReturn() {
    makeReturn();
    load(mainReturn_);
  }
  void replaceSettings(const std::vector<std::string>& rows) {
    run("DELETE * FROM SETTING_TARIF_PPH");
    for (const std::string& row : rows)
      run("INSERT INTO SETTING_TARIF_PPH (PASAL, KODE_FORM, ITEM_PENGHASILAN, TARIF_JML_BRUTO) VALUES (" + row + ")");
  }
  CF113204 mainReturn_;
};

TEST_F(RatesOfANewReturn, AreThoseOfTheSettings) {
  run("UPDATE SETTING_TARIF_PPH SET TARIF_JML_BRUTO = 18 WHERE ITEM_PENGHASILAN = 'WP LN'");
  for (const char* field : {"B1C4", "B74"}) put(mainReturn_, field, 9.0);
  mainReturn_.getTaxRate();
  struct Expected {
    std::string_view field;
    double rate;
  };
  const Expected expected[] = {
      {"B1a14", 20}, {"B1a24", 20}, {"B1B4", 18}, {"B1C4", 0},  {"B2a4", 0.5}, {"B2b4", 0.1},
      {"B34", 15},   {"B44", 25},   {"B5a4", 10}, {"B5b4", 10}, {"B6a14", 5},  {"B6a24", 5},
      {"B6b14", 3},  {"B6b24", 3},  {"B6c14", 5}, {"B6c24", 5}, {"B74", 0},    {"B84", 10},
      {"B94", 2.5},  {"B104", 10},  {"B11a4", 0}, {"B11b4", 0}, {"B11c4", 0},
  };
  for (const Expected& row : expected) EXPECT_EQ(number(mainReturn_, row.field), row.rate) << row.field;
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(RatesOfANewReturn, LeaveWhatNoItemNames) {
  mainReturn_.aB11a4(3);
  mainReturn_.aB44(4);
  replaceSettings({"4,'F113316','B14',2", "4,'F113316','B44',4", "4,'F113309','B24',99", "4,'F113399','Tarif',99"});
  mainReturn_.getTaxRate();
  EXPECT_EQ(number(mainReturn_, "B11a4"), 3);
  EXPECT_EQ(number(mainReturn_, "B44"), 4);
  EXPECT_EQ(number(mainReturn_, "B74"), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(RatesOfANewReturn, TakeItemAndFormExactlyAsTheyAreWritten) {
  replaceSettings({"4,'F113309','b14',99", "4,'f113317','Tarif',99", "4,'F113316','B14',2", "4,'F113316','B44',4"});
  mainReturn_.getTaxRate();
  EXPECT_EQ(number(mainReturn_, "B44"), 0);
  EXPECT_EQ(number(mainReturn_, "B34"), 0);
}

TEST_F(RatesOfANewReturn, ReadArticleFourAlone) {
  replaceSettings({"21,'F113309','B14',99", "4,'F113316','B14',2", "4,'F113316','B44',4"});
  mainReturn_.getTaxRate();
  EXPECT_EQ(number(mainReturn_, "B44"), 0);
}

TEST_F(RatesOfANewReturn, OfConstructionAreAveragesToTwoDecimals) {
  replaceSettings({"4,'F113316','B14',2", "4,'F113316','B24',4", "4,'F113316','B34',4.01", "4,'F113316','B44',3.5",
                   "4,'F113316','B54',6.01"});
  mainReturn_.getTaxRate();
  EXPECT_EQ(number(mainReturn_, "B6b14"), 3.34) << "10,01 / 3 = 3,3366..";
  EXPECT_EQ(number(mainReturn_, "B6b24"), 3.34);
  EXPECT_EQ(number(mainReturn_, "B6a14"), 4.76) << "9,51 / 2 = 4,755";
  EXPECT_EQ(number(mainReturn_, "B6a24"), 4.76);
  EXPECT_EQ(number(mainReturn_, "B6c14"), 4.76);
  EXPECT_EQ(number(mainReturn_, "B6c24"), 4.76);
}

TEST_F(RatesOfANewReturn, OfConstructionGoOnFromWhatTheFieldsHeld) {
  mainReturn_.getTaxRate();
  mainReturn_.getTaxRate();
  // (5 + 4 + 6) / 2 and (3 + 2 + 4 + 3) / 3: a second call does not start from 0.
  EXPECT_EQ(number(mainReturn_, "B6a14"), 7.5);
  EXPECT_EQ(number(mainReturn_, "B6c24"), 7.5);
  EXPECT_EQ(number(mainReturn_, "B6b14"), 4);
}

TEST_F(RatesOfANewReturn, AreAllZeroWithoutSettingsAndTheDivisionFails) {
  run("DELETE * FROM SETTING_TARIF_PPH");
  for (const mainreturn::ReturnLine& line : mainreturn::returnLines) put(mainReturn_, line.rate, 9.0);
  mainReturn_.getTaxRate();
  for (const mainreturn::ReturnLine& line : mainreturn::returnLines)
    EXPECT_EQ(number(mainReturn_, line.rate), 0) << line.number;
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::Overflow))) << "zero divided by zero";
}

TEST_F(RatesOfANewReturn, WithoutConsultancyFailBehindTheRowsAndBeforeTheWork) {
  mainReturn_.aB6a14(5);
  replaceSettings({"4,'F113316','B14',2", "4,'F113316','B24',4", "4,'F113309','B14',25"});
  mainReturn_.getTaxRate();
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::DivisionByZero)));
  EXPECT_EQ(number(mainReturn_, "B44"), 25);
  EXPECT_EQ(number(mainReturn_, "B6a14"), 5);
  EXPECT_EQ(number(mainReturn_, "B6b14"), 6) << "the sum of the rows, not yet divided";
  EXPECT_EQ(number(mainReturn_, "B6b24"), 0);
}

TEST_F(RatesOfANewReturn, WithoutWorkFailBehindTheConsultancy) {
  replaceSettings({"4,'F113316','B44',4", "4,'F113316','B54',6"});
  mainReturn_.getTaxRate();
  EXPECT_THAT(messages_.texts(), SizeIs(1));
  EXPECT_EQ(number(mainReturn_, "B6a14"), 5);
  EXPECT_EQ(number(mainReturn_, "B6c24"), 5);
}

TEST_F(RatesOfANewReturn, FailBeforeAReturnIsLoaded) {
  CF113204 empty;
  empty.getTaxRate();
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::ObjectVariableNotSet)));
}

TEST_F(RatesOfANewReturn, AreReadWithADecimalPointWhereThatIsTheSetting) {
  const RegionalSettingsScope scope(RegionalSettings::unitedStates());
  mainReturn_.getTaxRate();
  EXPECT_EQ(number(mainReturn_, "B94"), 2.5);
  EXPECT_EQ(number(mainReturn_, "B6a14"), 5);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

}  // namespace
}  // namespace tarvola::test
