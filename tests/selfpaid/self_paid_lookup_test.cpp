#include "tests/selfpaid/self_paid_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;

template <class Form>
class SelfPaidLookup : public SelfPaidForms<Form> {
 protected:
  void addListRow(Text list, const char* rest) {
    this->store.run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES ('" + std::string(list) + "', " + rest + ", 'x', '')");
  }
  static std::int32_t countOf(const RecordsetPtr& rows) { return rows ? rows->get_RecordCount() : -1; }
};
TYPED_TEST_SUITE(SelfPaidLookup, AllForms, FormNames);

// --- payment numbers ----------------------------------------------------------------------------------------

TYPED_TEST(SelfPaidLookup, FindsAPaymentNumberWithinItsPeriod) {
  add<TypeParam>("N1", 1, 1000, 100);
  addBeside<TypeParam>("N1", 1, 2, 500, 25);
  TypeParam form;
  const RecordsetPtr found = form.pCheckNTTP("nobody", 2009, "n1", 1, 0);
  ASSERT_EQ(this->countOf(found), 2);
  EXPECT_EQ(store::fieldText(found, "NOBUKTI"), "N1");
  EXPECT_EQ(this->countOf(form.pCheckNTTP(filerNpwp, 2009, "N1", 1, 1)), 0);
  EXPECT_EQ(this->countOf(form.pCheckNTTP(filerNpwp, 2009, "N1", 2, 0)), 0);
  EXPECT_EQ(this->countOf(form.pCheckNTTP(filerNpwp, 2010, "N1", 1, 0)), 0);
  EXPECT_EQ(this->countOf(form.pCheckNTTP(filerNpwp, 2009, "N2", 1, 0)), 0);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLookup, FindsNoPaymentNumberOfAnotherKind) {
  add<CPPhSewaTanahBangunan>("N1", 1, 1000, 100);
  add<CPPhAlihTnhBgn>("N1", 1, 1000, 100);
  add<CPPhJasaKonstruksi>("N1", 1, 1000, 100);
  this->store.run("DELETE * FROM DAT_SSP_PPh22 WHERE KD_FORM = '" + std::string(Kind<TypeParam>::form) + "'");
  TypeParam form;
  EXPECT_EQ(this->countOf(form.pCheckNTTP(filerNpwp, 2009, "N1", 1, 0)), 0);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLookup, FindsNoPaymentNumberOfAnotherTaxKind) {
  add<TypeParam>("N1", 1, 1000, 100);
  this->store.run("UPDATE DAT_SSP_PPh22 SET KD_JENIS_PAJAK = '112' WHERE NOBUKTI = 'N1'");
  TypeParam form;
  EXPECT_EQ(this->countOf(form.pCheckNTTP(filerNpwp, 2009, "N1", 1, 0)), 0);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLookup, GivesNoRowsForANumberThatBreaksTheQuestion) {
  TypeParam form;
  EXPECT_EQ(form.pCheckNTTP(filerNpwp, 2009, "N'1", 1, 0), nullptr);
  EXPECT_EQ(this->messages.texts().size(), 1U);
}

// --- SEQ ------------------------------------------------------------------------------------------------

TYPED_TEST(SelfPaidLookup, StartsSeqAtOne) {
  TypeParam form;
  EXPECT_EQ(form.pGetMaxSeqNo(1, 2009, 0, 0), 1);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLookup, GivesOneMoreThanTheGreatestSeqAndFillsNoGap) {
  TypeParam form;
  this->addListRow(Kind<TypeParam>::list, "1, 2009, 0, 0, 7");
  this->addListRow(Kind<TypeParam>::list, "1, 2009, 0, 0, 3");
  EXPECT_EQ(form.pGetMaxSeqNo(1, 2009, 0, 0), 8);
  this->addListRow(Kind<TypeParam>::list, "1, 2009, 0, 0, 7.5");
  EXPECT_EQ(form.pGetMaxSeqNo(1, 2009, 0, 0), 8.5);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLookup, CountsSeqByListPeriodAndCollection) {
  TypeParam form;
  const Text list = Kind<TypeParam>::list;
  this->addListRow(list, "1, 2009, 0, 0, 2");
  this->addListRow(list, "1, 2009, 0, 1, 30");
  this->addListRow(list, "2, 2009, 0, 0, 40");
  this->addListRow(list, "1, 2010, 0, 0, 50");
  this->addListRow(list, "1, 2009, 1, 0, 60");
  for (const Text other : {"DSewaTnhBgn", "DAlihTnhBgn", "DJasaKonstruksi"})
    if (other != list) this->addListRow(other, "1, 2009, 0, 0, 70");
  EXPECT_EQ(form.pGetMaxSeqNo(1, 2009, 0, 0), 3);
  EXPECT_EQ(form.pGetMaxSeqNo(1, 2009, 0, 1), 31);
  EXPECT_EQ(form.pGetMaxSeqNo(2, 2009, 0, 0), 41);
  EXPECT_EQ(form.pGetMaxSeqNo(1, 2010, 0, 0), 51);
  EXPECT_EQ(form.pGetMaxSeqNo(1, 2009, 1, 0), 61);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLookup, FailsOverRowsWithoutSeq) {
  TypeParam form;
  this->addListRow(Kind<TypeParam>::list, "1, 2009, 0, 0, NULL");
  EXPECT_EQ(form.pGetMaxSeqNo(1, 2009, 0, 0), 0);
  EXPECT_THAT(this->messages.texts(), ElementsAre(invalidUseOfNull));
}

// --- data members and objects without a store -----------------------------------------------------------------

TYPED_TEST(SelfPaidLookup, ShowsRawRowAndChildRowsThatWereSetFromOutside) {
  add<TypeParam>("N1", 1, 1000, 100);
  const std::string list(Kind<TypeParam>::list);
  const RecordsetPtr rows = Recordset::create();
  rows->Open("SHAPE {SELECT * FROM DAT_SSP_PPh22 WHERE KD_FORM = '" + list +
                 "'} APPEND ({SELECT * FROM LAMPIRAN_SSP_PPh22} AS d22Details1 RELATE KD_FORM TO KD_FORM) AS "
                 "d22Details1",
             this->store.connect(), adOpenStatic, adLockOptimistic, adCmdText);
  TypeParam form;
  form.rs4_2Form(rows);
  EXPECT_EQ(form.rs4_2Form(), rows);
  EXPECT_EQ(form.dataMember("Primary"), rows);
  ASSERT_NE(form.dataMember("Secondary"), nullptr);
  EXPECT_EQ(store::fieldText(form.dataMember("Secondary"), "NOBUKTI"), "N1");
  EXPECT_EQ(form.dataMember("Ternary"), nullptr);
  EXPECT_EQ(form.dataMember("primary"), nullptr);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLookup, HasNoChildRowsOfItsOwn) {
  TypeParam form;
  EXPECT_EQ(form.dataMember("Primary"), nullptr);
  EXPECT_TRUE(this->messages.empty());
  EXPECT_EQ(form.dataMember("Secondary"), nullptr);
  EXPECT_THAT(this->messages.texts(), ElementsAre(objectVariableNotSet));
}

TYPED_TEST(SelfPaidLookup, LivesOnWithoutAStore) {
  moduleState() = {};
  TypeParam form;
  ASSERT_EQ(this->messages.texts().size(), 1U);
  create(form, "N1");
  load(form, "N1", 0);
  form.pAssignOldValues();
  form.pHitPjk(1);
  form.pUpdate();
  form.pUpdD113203();
  form.pUpdF113204();
  form.pDelete("", "", "", 1, 2009, 0, "N1", "113", "", "", Date());
  form.pDeleteForm("", "", "", 1, 2009, 0, "N1", "113", 1);
  EXPECT_EQ(form.pCheckNTTP("", 2009, "N1", 1, 0), nullptr);
  EXPECT_EQ(form.pGetMaxSeqNo(1, 2009, 0, 0), 0);
  EXPECT_EQ(this->messages.texts().size(), 12U);
}

}  // namespace
}  // namespace tarvola::test
