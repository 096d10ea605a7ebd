// What a save starts from, and what it gives the return: old values, default rates, the average rate.
#include "tests/selfpaid/self_paid_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

template <class Form>
class SelfPaidDefaults : public SelfPaidForms<Form> {};
TYPED_TEST_SUITE(SelfPaidDefaults, AllForms, FormNames);

// --- old values and defaults --------------------------------------------------------------------------------

TYPED_TEST(SelfPaidDefaults, KeepsTheOldValuesThatItReadBeforeOneThatIsNoNumber) {
  add<TypeParam>("N1", 1, 1000, 100);
  this->store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = '" + packed<TypeParam>("N1", "1", "seribu", "40") +
                  "' WHERE NOBUKTI = 'N1'");
  TypeParam form;
  load(form, "N1", 1);
  form.pAssignOldValues();
  EXPECT_THAT(this->messages.texts(), ElementsAre(typeMismatch));
  form.pAssignStatus(false, true, false);
  put(form, 1000, 100);
  save(form);
  // Number and tax were read, gross and SEQ were not: so the row is not found, and the gross counts whole.
  EXPECT_THAT(this->forms(), SizeIs(2));
  EXPECT_EQ(this->line(), "2000;8;160");
}

TYPED_TEST(SelfPaidDefaults, ReadsNullsAsNoNumberAndZero) {
  add<TypeParam>("N1", 1, 1000, 100);
  this->store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = '" + packed<TypeParam>("N1", "1", "", "") +
                  "' WHERE NOBUKTI = 'N1'");
  TypeParam form;
  beginEdit(form, "N1", 1);
  put(form, 200, 20);
  save(form);
  EXPECT_EQ(this->listSums(), "1200;120");
  EXPECT_EQ(this->line(), "1200;10;120");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidDefaults, ReadsANullNumberAsTheOneOfHeaders) {
  TypeParam form;
  create(form, "-");
  load(form, "-", 0);
  form.aNTTP(Variant::null());
  form.pAssignOldValues();
  form.aNTTP("N1");
  save(form);
  // The row of number "-" was found, else there would be two.
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "0", "0", "0")));
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidDefaults, GivesAnUntouchedFormZerosAndNoLocation) {
  TypeParam form;
  create(form, "N1");
  load(form, "N1", 0);
  form.pAssignOldValues();
  save(form);
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "0", "0", "0")));
  EXPECT_EQ(this->line(), "0;" + std::string(Kind<TypeParam>::defaultRate) + ";0");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidDefaults, RoundsNothingInTheForm) {
  add<TypeParam>("N1", 1, 1000.75, 100.25);
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "1", "1000,75", "100,25")));
  EXPECT_EQ(this->listSums(), "1000,75;100,25");
}

// --- the rate of the return ---------------------------------------------------------------------------------

struct RateCase {
  double gross, tax;
  const char* line;
};

TYPED_TEST(SelfPaidDefaults, SetsTheAverageRateOfItsLine) {
  constexpr RateCase cases[] = {
      {.gross = 1000, .tax = 100, .line = "1000;10;100"},
      // 66.666... gives 66.667 and then 66.66.
      {.gross = 3, .tax = 2, .line = "3;66,66;2"},
      // 9.9996 is rounded to 10 before it is cut, and the rate is worked out before the line is made whole.
      {.gross = 10000, .tax = 999.96, .line = "10000;10;999"},
      {.gross = 1000, .tax = 0, .line = "1000;0;0"},
      // A tax on nothing.
      {.gross = 0, .tax = 55, .line = ""},
  };
  for (const RateCase& test : cases) {
    SelfPaidStore fresh;
    add<TypeParam>("N1", 1, test.gross, test.tax);
    const std::string expected =
        *test.line != '\0' ? test.line : "0;" + std::string(Kind<TypeParam>::defaultRate) + ";55";
    EXPECT_EQ(fresh.ofReturn(Kind<TypeParam>::line()), expected);
  }
  EXPECT_TRUE(this->messages.empty());
}

// Cutting a rate reads its whole part as a number of 16 bits.
TYPED_TEST(SelfPaidDefaults, TellsOfARateThatIsTooGreatAndSetsZero) {
  add<TypeParam>("N1", 1, 1, 400);
  EXPECT_EQ(this->line(), "1;0;400");
  EXPECT_THAT(this->messages.texts(), ElementsAre(std::string(errorText(ErrorNumber::Overflow))));
}

// Every save makes the line whole, so a line of fractions falls behind its list.
TYPED_TEST(SelfPaidDefaults, LosesFractionsInTheReturnAtEverySave) {
  add<TypeParam>("N1", 1, 10.5, 1.5);
  add<TypeParam>("N2", 2, 10.5, 1.5);
  EXPECT_EQ(this->listSums(), "21;3");
  EXPECT_EQ(this->line(), "20;12,19;2");
}

// The sums of a list stop at 0, a line of the return does not.
TYPED_TEST(SelfPaidDefaults, LetsTheReturnGoBelowZeroAndTheListNot) {
  add<TypeParam>("N1", 1, -100, -10);
  EXPECT_EQ(this->listSums(), "0;0");
  EXPECT_EQ(this->line(), "-100;10;-10");
  EXPECT_TRUE(this->messages.empty());
}

}  // namespace
}  // namespace tarvola::test
