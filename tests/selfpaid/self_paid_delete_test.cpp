#include <array>

#include "tests/selfpaid/self_paid_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

template <class Form>
class SelfPaidDelete : public SelfPaidForms<Form> {
 protected:
  /// Deletes the form of N1 and SEQ 1 under these texts.
  static void removeUnder(Form& form, Text npwp, Text kdForm, Text document, Text taxKind) {
    form.pDeleteForm(npwp, kdForm, document, 1, 2009, 0, "N1", taxKind, 1);
  }
};
TYPED_TEST_SUITE(SelfPaidDelete, AllForms, FormNames);

// --- one form and its share ---------------------------------------------------------------------------------

TYPED_TEST(SelfPaidDelete, TakesTheFormOutOfListAndReturn) {
  add<TypeParam>("N1", 1, 1000, 100);
  add<TypeParam>("N2", 2, 3000, 600);
  remove<TypeParam>("N1", 1);
  EXPECT_THAT(this->forms(), ElementsAre("N2|" + packed<TypeParam>("N2", "2", "3000", "600")));
  EXPECT_THAT(this->listed(), ElementsAre("2|N2"));
  EXPECT_EQ(this->listSums(), "3000;600");
  EXPECT_EQ(this->line(), "3000;20;600");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidDelete, LeavesTheDefaultRateBehindTheLastForm) {
  add<TypeParam>("N1", 1, 1000, 150);
  ASSERT_EQ(this->line(), "1000;15;150");
  remove<TypeParam>("N1", 1);
  EXPECT_THAT(this->forms(), IsEmpty());
  EXPECT_EQ(this->listSums(), "0;0");
  EXPECT_EQ(this->line(), "0;" + std::string(Kind<TypeParam>::defaultRate) + ";0");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidDelete, TellsTheFormsOfAPaymentApartBySeq) {
  add<TypeParam>("N1", 1, 1000, 100);
  addBeside<TypeParam>("N1", 1, 2, 500, 25);
  remove<TypeParam>("N1", 1);
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "2", "500", "25")));
  EXPECT_THAT(this->listed(), ElementsAre("2|N1"));
  EXPECT_EQ(this->listSums(), "500;25");
  EXPECT_EQ(this->line(), "500;5;25");
  EXPECT_TRUE(this->messages.empty());
}

// On payment 5 the pattern of SEQ 1, "...;5;1;", is found in the text of the other form, "...;5;5;1;...", as well. Both
// forms go; the list keeps the row of the other.
TYPED_TEST(SelfPaidDelete, TakesAFormForAnotherWhereThePatternFitsBoth) {
  add<TypeParam>("5", 1, 1000, 100);
  addBeside<TypeParam>("5", 1, 5, 1, 0);
  remove<TypeParam>("5", 1);
  EXPECT_THAT(this->forms(), IsEmpty());
  EXPECT_THAT(this->listed(), ElementsAre("5|5"));
  EXPECT_EQ(this->listSums(), "1;0");
  EXPECT_EQ(this->line(), "1;0;0");
}

// Old values, list and return all need the form's fields: three messages, and nothing moves.
TYPED_TEST(SelfPaidDelete, TellsThreeTimesThatThereIsNoSuchForm) {
  add<TypeParam>("N1", 1, 1000, 100);
  const auto before = this->store.dump();
  remove<TypeParam>("N1", 2);
  EXPECT_THAT(this->messages.texts(), ElementsAre(noCurrentRecord, noCurrentRecord, noCurrentRecord));
  EXPECT_EQ(this->store.dump(), before);
}

TYPED_TEST(SelfPaidDelete, RemovesAListRowThatHasLostItsForm) {
  add<TypeParam>("N1", 1, 1000, 100);
  this->store.run("DELETE * FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N1'");
  remove<TypeParam>("N1", 1);
  EXPECT_THAT(this->listed(), IsEmpty());
  EXPECT_EQ(this->listSums(), "1000;100");
  EXPECT_EQ(this->line(), "1000;10;100");
}

// The form is loaded under the codes of its class, its row deleted under those of the caller. Where they differ the row
// stays, although its share is gone.
TYPED_TEST(SelfPaidDelete, LeavesTheRowOfOtherCodesAndTakesItsShareAllTheSame) {
  const Text kind = Kind<TypeParam>::form;
  const Text document = Kind<TypeParam>::document;
  const std::array<std::array<Text, 4>, 4> others = {{{"nobody", kind, document, "113"},
                                                      {filerNpwp, "FOther", document, "113"},
                                                      {filerNpwp, kind, "99", "113"},
                                                      {filerNpwp, kind, document, "112"}}};
  for (const auto& [npwp, kdForm, jenisDokumen, taxKind] : others) {
    SelfPaidStore fresh;
    add<TypeParam>("N1", 1, 1000, 100);
    TypeParam form;
    this->removeUnder(form, npwp, kdForm, jenisDokumen, taxKind);
    EXPECT_THAT(fresh.forms(kind), SizeIs(1));
    EXPECT_THAT(fresh.listed(Kind<TypeParam>::list), IsEmpty());
    EXPECT_EQ(fresh.listSums(Kind<TypeParam>::list), "0;0");
    EXPECT_EQ(fresh.ofReturn(Kind<TypeParam>::line()), "0;" + std::string(Kind<TypeParam>::defaultRate) + ";0");
  }
  EXPECT_TRUE(this->messages.empty());
}

// The row goes before list and return are touched.
TYPED_TEST(SelfPaidDelete, LeavesListAndReturnIfTheRowCannotBeDeleted) {
  add<TypeParam>("N1", 1, 1000, 100);
  const auto before = this->store.dump();
  TypeParam form;
  this->removeUnder(form, "no'body", Kind<TypeParam>::form, Kind<TypeParam>::document, "113");
  EXPECT_THAT(this->messages.texts(), SizeIs(1));
  EXPECT_EQ(this->store.dump(), before);
}

// The store refuses every write behind that of the form: list row, list header, return, in this order.
TYPED_TEST(SelfPaidDelete, DeletesFormThenListRowThenMovesListHeaderThenReturn) {
  add<TypeParam>("N1", 1, 1000, 100);
  refuseWrites(this->store.path(), "DELETE", "LAMPIRAN_SSP_PPh22", "1", "no list row");
  refuseWrites(this->store.path(), "UPDATE", "DAT_SSP_PPh22", "1", "no list header");
  refuseWrites(this->store.path(), "UPDATE", "DS_FORM_INDUK", "1", "no return");
  remove<TypeParam>("N1", 1);
  EXPECT_THAT(this->messages.texts(),
              ElementsAre(HasSubstr("no list row"), HasSubstr("no list header"), HasSubstr("no return")));
  EXPECT_THAT(this->forms(), IsEmpty());
  EXPECT_THAT(this->listed(), ElementsAre("1|N1"));
  EXPECT_EQ(this->listSums(), "1000;100");
  EXPECT_EQ(this->line(), "1000;10;100");
}

// The old values are kept before the row is looked for under the caller's codes.
TYPED_TEST(SelfPaidDelete, KeepsTheOldValuesBeforeItLooksForTheRow) {
  TypeParam form;
  this->removeUnder(form, "no'body", Kind<TypeParam>::form, Kind<TypeParam>::document, "113");
  EXPECT_THAT(this->messages.texts(), ElementsAre(noCurrentRecord, HasSubstr("no'body")));
}

TYPED_TEST(SelfPaidDelete, HoldsNoFormAfterwardsAndTellsOfTheMove) {
  add<TypeParam>("N1", 1, 1000, 100);
  TypeParam form;
  int moves = 0;
  form.MoveComplete.connect([&] { ++moves; });
  load(form, "N1", 1);
  form.aSEQ(1);
  EXPECT_EQ(moves, 0);
  this->removeUnder(form, filerNpwp, Kind<TypeParam>::form, Kind<TypeParam>::document, "113");
  EXPECT_EQ(moves, 1);
  EXPECT_TRUE(this->messages.empty());
  EXPECT_EQ(form.rs4_2Form(), nullptr);
  form.aSEQ(2);
  EXPECT_THAT(this->messages.texts(), ElementsAre(objectVariableNotSet));
}

// --- every form of a payment ---------------------------------------------------------------------------------

TYPED_TEST(SelfPaidDelete, RemovesEveryFormOfAPaymentAndNothingElse) {
  add<TypeParam>("N1", 1, 1000, 100);
  addBeside<TypeParam>("N1", 1, 2, 500, 25);
  add<TypeParam>("N2", 3, 10, 1);
  TypeParam form;
  form.pDelete(filerNpwp, Kind<TypeParam>::form, Kind<TypeParam>::document, 1, 2009, 0, "N1", "113", "", "", Date());
  EXPECT_THAT(this->forms(), ElementsAre("N2|" + packed<TypeParam>("N2", "3", "10", "1")));
  EXPECT_THAT(this->listed(), ElementsAre("1|N1", "2|N1", "3|N2"));
  EXPECT_EQ(this->listSums(), "1510;126");
  EXPECT_TRUE(this->line().starts_with("1510;"));
  EXPECT_TRUE(this->messages.empty());
}

// A form of the filer is asked for, but the delete does not name him.
TYPED_TEST(SelfPaidDelete, RemovesTheFormsOfOtherFilersWithThoseOfTheFiler) {
  TypeParam form;
  create(form, "N1");
  create(form, "N1", filerName, "other");
  ASSERT_THAT(this->forms(), SizeIs(2));
  form.pDelete("other", Kind<TypeParam>::form, Kind<TypeParam>::document, 1, 2009, 0, "N1", "113", "", "", Date());
  EXPECT_THAT(this->forms(), IsEmpty());
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidDelete, RemovesNoFormOfAnotherKey) {
  add<TypeParam>("N1", 1, 1000, 100);
  const Text kind = Kind<TypeParam>::form;
  const Text document = Kind<TypeParam>::document;
  const auto before = this->store.dump();
  TypeParam form;
  form.pDelete("nobody", kind, document, 1, 2009, 0, "N1", "113", "", "", Date());
  form.pDelete(filerNpwp, "FOther", document, 1, 2009, 0, "N1", "113", "", "", Date());
  form.pDelete(filerNpwp, kind, "99", 1, 2009, 0, "N1", "113", "", "", Date());
  form.pDelete(filerNpwp, kind, document, 2, 2009, 0, "N1", "113", "", "", Date());
  form.pDelete(filerNpwp, kind, document, 1, 2010, 0, "N1", "113", "", "", Date());
  form.pDelete(filerNpwp, kind, document, 1, 2009, 1, "N1", "113", "", "", Date());
  form.pDelete(filerNpwp, kind, document, 1, 2009, 0, "N2", "113", "", "", Date());
  form.pDelete(filerNpwp, kind, document, 1, 2009, 0, "N1", "112", "", "", Date());
  EXPECT_EQ(this->store.dump(), before);
  EXPECT_TRUE(this->messages.empty());
}

}  // namespace
}  // namespace tarvola::test
