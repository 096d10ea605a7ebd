// Which generation of layouts a period or a stored main form has.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tarvola/runtime/errors.h"
#include "tests/store/store_session.h"

namespace tarvola {
namespace {

using testing::ElementsAre;

/// A packed text of so many fields.
std::string packedOf(int fieldCount) { return std::string(static_cast<std::size_t>(fieldCount - 1), ';'); }

class LayoutGeneration : public testing::Test {
 protected:
  void store(const std::string& form, const std::string& kind, int fieldCount, int correction = 0,
             const std::string& code = "01") {
    session.execute(
        "INSERT INTO DS_FORM_INDUK (KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,KD_JENIS_PAJAK,DAT_FORM) "
        "VALUES ('" +
        form + "','" + code + "',1,2009," + std::to_string(correction) + ",'" + kind + "','" + packedOf(fieldCount) +
        "')");
  }
  bool isNew(std::string_view form, std::string_view correction = "0") {
    return general.IsNewSchema("1", "2009", correction, "013121660091000", form);
  }

  test::StoreSession session;
  CGeneralClass general;
};

TEST_F(LayoutGeneration, BeginsWithNovember2008) {
  struct Case {
    const char* month;
    const char* year;
    bool isNew;
  };
  for (const Case& period :
       {Case{"10", "2008", false}, Case{"11", "2008", true}, Case{"12", "2008", true}, Case{"12", "2007", false},
        Case{"1", "2009", true}, Case{" 11 ", " 2008 ", true}, Case{"01", "2009", true}, Case{"11", "08", false}})
    EXPECT_EQ(general.IsNewSchema(period.month, period.year), period.isNew) << period.month << "/" << period.year;
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(LayoutGeneration, OfAPeriodThatIsNoNumberIsUnknownAfterAMessage) {
  EXPECT_FALSE(general.IsNewSchema("Januari", "2009"));
  EXPECT_FALSE(general.IsNewSchema("1", ""));
  EXPECT_FALSE(general.IsNewSchema("1", "40000"));
  EXPECT_THAT(session.messages().texts(),
              ElementsAre(errorText(ErrorNumber::TypeMismatch), errorText(ErrorNumber::TypeMismatch),
                          errorText(ErrorNumber::Overflow)));
}

TEST_F(LayoutGeneration, OfTheMainFormIsNewWithExactly107Fields) {
  store("F113204", "113", 88, 0);
  store("F113204", "113", 107, 1);
  store("F113204", "113", 106, 2);
  store("F113204", "113", 108, 3);
  EXPECT_FALSE(isNew("F113204", "0"));
  EXPECT_TRUE(isNew("F113204", "1"));
  EXPECT_FALSE(isNew("F113204", "2"));
  EXPECT_FALSE(isNew("F113204", "3"));
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(LayoutGeneration, OfF113203IsNewWithExactly115Fields) {
  store("F113203", "114", 115, 0);
  store("F113203", "114", 107, 1);
  EXPECT_TRUE(isNew("F113203", "0"));
  EXPECT_FALSE(isNew("F113203", "1"));
}

TEST_F(LayoutGeneration, OfEveryOtherMainFormIsNew) {
  store("F113201", "111", 2);
  store("F113202", "112", 2);
  store("F113205", "118", 2);
  EXPECT_TRUE(isNew("F113201"));
  EXPECT_TRUE(isNew("F113202"));
  EXPECT_TRUE(isNew("F113205"));
}

// The text is cut before the form is looked at, so that one that is missing fails for every form.
TEST_F(LayoutGeneration, OfAFormWithoutAPackedTextIsUnknownAfterAMessage) {
  store("F113201", "111", 2);
  session.execute("UPDATE DS_FORM_INDUK SET DAT_FORM = NULL");
  EXPECT_FALSE(isNew("F113201"));
  EXPECT_THAT(session.messages().texts(), ElementsAre(errorText(ErrorNumber::InvalidUseOfNull)));
}

TEST_F(LayoutGeneration, IsThatOfTheFirstFilingWhereNoCorrectionIsNamed) {
  store("F113204", "113", 107, 0);
  store("F113204", "113", 88, 1);
  EXPECT_TRUE(general.IsNewSchema("1", "2009", "", "", "F113204"));
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(LayoutGeneration, IsLookedForUnderTheTaxKindOfTheForm) {
  store("F113204", "114", 107);
  EXPECT_FALSE(isNew("F113204"));
  EXPECT_THAT(session.messages().texts(), ElementsAre(errorText(ErrorNumber::NoCurrentRecord)));
}

TEST_F(LayoutGeneration, IsLookedForWithoutCorrectionAndKindOfAFormThatIsNoMainForm) {
  store("D113206", "113", 10, 7, "08");
  EXPECT_FALSE(isNew("D113206")) << "its document code is not 01";
  store("D113206", "113", 10, 7, "01");
  EXPECT_TRUE(isNew("D113206"));
}

// The name of the form is trimmed for its tax kind only, so that one with blanks around finds no row.
TEST_F(LayoutGeneration, OfAFormWithBlanksAroundItsNameIsNotFound) {
  store("F113204", "113", 107);
  EXPECT_FALSE(isNew(" F113204"));
  EXPECT_THAT(session.messages().texts(), ElementsAre(errorText(ErrorNumber::NoCurrentRecord)));
}

TEST_F(LayoutGeneration, OfAFormThatIsNotStoredIsUnknownAfterAMessage) {
  EXPECT_FALSE(isNew("F113204"));
  EXPECT_THAT(session.messages().texts(), ElementsAre(errorText(ErrorNumber::NoCurrentRecord)));
}

TEST_F(LayoutGeneration, AsksTheStoreForNoFormOfAnOldPeriod) {
  EXPECT_FALSE(general.IsNewSchema("10", "2008", "0", "", "F113204"));
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(LayoutGeneration, ReadsTheNumbersOfThePeriodFromTheFrontOfTheTexts) {
  store("F113204", "113", 107, 2);
  EXPECT_TRUE(isNew("F113204", "2 (kedua)"));
  EXPECT_FALSE(isNew("F113204", "kedua")) << "reads as 0";
}

TEST_F(LayoutGeneration, ATextThatCannotBeOpenedEndsInAMissingRecordset) {
  EXPECT_FALSE(isNew("F113204'"));
  EXPECT_EQ(session.messages().boxes().size(), 1U);
}

}  // namespace
}  // namespace tarvola
