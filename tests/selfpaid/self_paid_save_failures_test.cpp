// What a save leaves that fails on its way.
#include "tests/selfpaid/self_paid_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

template <class Form>
class SelfPaidSaveFailures : public SelfPaidForms<Form> {};
TYPED_TEST_SUITE(SelfPaidSaveFailures, AllForms, FormNames);

// Packing comes before the store is asked, so a text that cannot be packed leaves everything as it was.
TYPED_TEST(SelfPaidSaveFailures, WritesNothingIfTheFormCannotBePacked) {
  add<TypeParam>("N1", 1, 1000, 100);
  const auto before = this->store.dump();
  TypeParam form;
  beginEdit(form, "N1", 1);
  form.aALM("Jl. A;B");
  put(form, 2000, 200);
  form.pUpdate();
  EXPECT_THAT(this->messages.texts(), ElementsAre(HasSubstr("'ALM' holds ';'")));
  EXPECT_EQ(form.rs4_2Form(), nullptr);
  EXPECT_EQ(this->store.dump(), before);
  // The form is still there and can be saved.
  form.aALM("Jl. A");
  form.pUpdate();
  EXPECT_EQ(this->line(), "2000;10;200");
}

// The question for the old row is put together before the form is packed.
TYPED_TEST(SelfPaidSaveFailures, TellsOfTheOldNumberBeforeTheOtherTexts) {
  TypeParam form;
  begin(form, "N1", 1);
  form.aNTTP("N'1");
  form.pAssignOldValues();
  form.aALM("Jl. A;B");
  form.pUpdate();
  EXPECT_THAT(this->messages.texts(), ElementsAre(HasSubstr("N'1")));
}

// The store refuses every write behind that of the form: list row, list header, return, in this order.
TYPED_TEST(SelfPaidSaveFailures, WritesListRowThenListHeaderThenReturn) {
  TypeParam form;
  begin(form, "N1", 1);
  put(form, 1000, 100);
  form.pHitPjk(1);
  refuseWrites(this->store.path(), "INSERT", "LAMPIRAN_SSP_PPh22", "1", "no list row");
  refuseWrites(this->store.path(), "UPDATE", "DAT_SSP_PPh22", "OLD.NOBUKTI = '-'", "no list header");
  refuseWrites(this->store.path(), "UPDATE", "DS_FORM_INDUK", "1", "no return");
  form.pUpdate();
  EXPECT_THAT(this->messages.texts(),
              ElementsAre(HasSubstr("no list row"), HasSubstr("no list header"), HasSubstr("no return")));
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "1", "1000", "100")));
  EXPECT_EQ(this->listSums(), "0;0");
  EXPECT_EQ(this->line(), "0;0;0");
}

TYPED_TEST(SelfPaidSaveFailures, MakesAMissingListHeaderBeforeTheListRow) {
  TypeParam form;
  begin(form, "N1", 1);
  put(form, 1000, 100);
  form.pHitPjk(1);
  this->store.run("DELETE * FROM DAT_SSP_PPh22 WHERE NOBUKTI = '-'");
  refuseWrites(this->store.path(), "INSERT", "LAMPIRAN_SSP_PPh22", "1", "no list row");
  refuseWrites(this->store.path(), "INSERT", "DAT_SSP_PPh22", "NEW.NOBUKTI = '-'", "no list header");
  form.pUpdate();
  // Without a header there is nothing to move and nothing to save.
  EXPECT_THAT(this->messages.texts(),
              ElementsAre(HasSubstr("no list header"), HasSubstr("no list row"), noCurrentRecord, noCurrentRecord));
  EXPECT_EQ(this->line(), "1000;10;100");
}

// The form is written before list and return are touched: if it cannot be, both stay.
TYPED_TEST(SelfPaidSaveFailures, TouchesNeitherListNorReturnIfTheFormCannotBeWritten) {
  TypeParam form;
  begin(form, "N1", 1);
  put(form, 1000, 100);
  form.pHitPjk(1);
  const auto before = this->store.dump();
  refuseWrites(this->store.path(), "UPDATE", "DAT_SSP_PPh22", "OLD.NOBUKTI = 'N1'");
  form.pUpdate();
  EXPECT_THAT(this->messages.texts(), ElementsAre(HasSubstr("refused")));
  EXPECT_EQ(this->store.dump(), before);
}

// The list row takes payment, date, amounts in this order; the first that cannot be read ends it.
TYPED_TEST(SelfPaidSaveFailures, ReadsPaymentThenDateThenAmountsForItsListRow) {
  TypeParam form;
  begin(form, "N1", 1);
  put(form, 1000, 100);
  form.aSEQ(1);
  form.aTGL_POTONG("tidak tahu");
  form.aNTTP(Variant::null());
  form.pUpdD113203();
  form.aNTTP("N1");
  this->store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = '" + packed<TypeParam>("N1", "0", "", "") +
                  "' WHERE NOBUKTI = 'N1'");
  load(form, "N1", 0);
  form.aTGL_POTONG("tidak tahu");
  form.pUpdD113203();
  form.aTGL_POTONG("05/02/2009");
  form.pUpdD113203();
  EXPECT_THAT(this->messages.texts(), ElementsAre(invalidUseOfNull, typeMismatch, invalidUseOfNull));
  EXPECT_THAT(this->listed(), IsEmpty());
}

// The list fails over a date that cannot be read, but has made its header by then. The form stays, the return moves.
TYPED_TEST(SelfPaidSaveFailures, GoesOnWithTheReturnIfTheListFails) {
  this->store.run("DELETE * FROM DAT_SSP_PPh22");
  TypeParam form;
  begin(form, "N1", 1);
  put(form, 1000, 100);
  form.aTGL_POTONG("tidak tahu");
  save(form);
  EXPECT_THAT(this->messages.texts(), ElementsAre(typeMismatch));
  EXPECT_THAT(this->forms(), SizeIs(1));
  EXPECT_THAT(this->listed(), IsEmpty());
  EXPECT_EQ(this->listSums(), "0;0");
  EXPECT_EQ(this->line(), "1000;10;100");
}

TYPED_TEST(SelfPaidSaveFailures, TellsOfTheListBeforeTheReturn) {
  this->store.run("DELETE * FROM DS_FORM_INDUK");
  TypeParam form;
  begin(form, "N1", 1);
  put(form, 1000, 100);
  form.aTGL_POTONG("tidak tahu");
  save(form);
  ASSERT_FALSE(this->messages.empty());
  EXPECT_EQ(this->messages.texts().front(), typeMismatch);
  EXPECT_EQ(this->messages.texts()[1], noCurrentRecord);
  EXPECT_THAT(this->forms(), SizeIs(1));
}

TYPED_TEST(SelfPaidSaveFailures, SavesFormAndListWithoutAReturn) {
  this->store.run("DELETE * FROM DS_FORM_INDUK");
  add<TypeParam>("N1", 1, 1000, 100);
  EXPECT_FALSE(this->messages.empty());
  EXPECT_THAT(this->forms(), SizeIs(1));
  EXPECT_EQ(this->listSums(), "1000;100");
}

TYPED_TEST(SelfPaidSaveFailures, MakesAListHeaderThatIsMissing) {
  this->store.run("DELETE * FROM DAT_SSP_PPh22");
  add<TypeParam>("N1", 1, 1000, 100);
  EXPECT_EQ(this->store.row("SELECT * FROM DAT_SSP_PPh22 WHERE NOBUKTI = '-'"),
            std::string(filerNpwp) + "|" + std::string(Kind<TypeParam>::list) + "|" +
                std::string(Kind<TypeParam>::listDocument) + "|1|2009|0|-|113|" + std::string(packedStart) +
                "1000;100|07/02/2009|07/02/2009|");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSaveFailures, MakesAListHeaderWithoutAFilerIfTheProfileIsEmpty) {
  this->store.run("DELETE * FROM DAT_SSP_PPh22");
  this->store.run("DELETE * FROM PROFILE");
  add<TypeParam>("N1", 1, 1000, 100);
  EXPECT_EQ(this->store.row("SELECT NPWP, DAT_FORM FROM DAT_SSP_PPh22 WHERE NOBUKTI = '-'"), "|;;;1;2009;0;1000;100");
  EXPECT_TRUE(this->messages.empty());
}

}  // namespace
}  // namespace tarvola::test
