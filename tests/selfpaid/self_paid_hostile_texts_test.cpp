#include "tests/selfpaid/self_paid_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

/// Texts that would end the quotes around them, were they only glued into a statement.
constexpr Text hostileTexts[] = {
    "'", "N1'", "N1'; DELETE * FROM PROFILE; --", "' OR '1'='1", "%' OR DAT_FORM LIKE '", "');--", "N1''"};

template <class Form>
struct HostileCall {
  const char* name;
  void (*call)(Form&, Text);
};

/// Every text that an operation takes and that enters a statement.
template <class Form>
std::vector<HostileCall<Form>> hostileCalls() {
  return {
      {"CreateFiler", [](Form& f, Text t) { create(f, "N9", filerName, t); }},
      {"CreateName", [](Form& f, Text t) { create(f, "N9", t); }},
      {"CreateNumber", [](Form& f, Text t) { create(f, t); }},
      {"GetForm", [](Form& f, Text t) { f.pGet("", t, "12", 1, 2009, 0, "N1", "113", "", "", Date(), 1); }},
      {"GetDocument", [](Form& f, Text t) { f.pGet("", "F", t, 1, 2009, 0, "N1", "113", "", "", Date(), 1); }},
      {"GetNumber", [](Form& f, Text t) { load(f, t, 1); }},
      {"GetTaxKind", [](Form& f, Text t) { f.pGet("", "F", "12", 1, 2009, 0, "N1", t, "", "", Date(), 1); }},
      {"DeleteFiler", [](Form& f, Text t) { f.pDelete(t, "F", "12", 1, 2009, 0, "N1", "113", "", "", Date()); }},
      {"DeleteForm", [](Form& f, Text t) { f.pDelete("f", t, "12", 1, 2009, 0, "N1", "113", "", "", Date()); }},
      {"DeleteDocument", [](Form& f, Text t) { f.pDelete("f", "F", t, 1, 2009, 0, "N1", "113", "", "", Date()); }},
      {"DeleteNumber", [](Form& f, Text t) { f.pDelete("f", "F", "12", 1, 2009, 0, t, "113", "", "", Date()); }},
      {"DeleteTaxKind", [](Form& f, Text t) { f.pDelete("f", "F", "12", 1, 2009, 0, "N1", t, "", "", Date()); }},
      {"DeleteOneFiler", [](Form& f, Text t) { f.pDeleteForm(t, "F", "12", 1, 2009, 0, "N1", "113", 1); }},
      {"DeleteOneForm", [](Form& f, Text t) { f.pDeleteForm("f", t, "12", 1, 2009, 0, "N1", "113", 1); }},
      {"DeleteOneDocument", [](Form& f, Text t) { f.pDeleteForm("f", "F", t, 1, 2009, 0, "N1", "113", 1); }},
      {"DeleteOneNumber", [](Form& f, Text t) { f.pDeleteForm("f", "F", "12", 1, 2009, 0, t, "113", 1); }},
      {"DeleteOneTaxKind", [](Form& f, Text t) { f.pDeleteForm("f", "F", "12", 1, 2009, 0, "N1", t, 1); }},
      {"CheckNumber", [](Form& f, Text t) { f.pCheckNTTP("", 2009, t, 1, 0); }},
  };
}

/// The text properties; all of them enter the statement of an edit.
std::vector<HostileCall<selfpaid::SelfPaidFrame>> hostileProperties() {
  using Frame = selfpaid::SelfPaidFrame;
  return {
      {"aTGL_POTONG", [](Frame& f, Text t) { f.aTGL_POTONG(t); }},
      {"aNPWPLT", [](Frame& f, Text t) { f.aNPWPLT(t); }},
      {"aNMWPLT", [](Frame& f, Text t) { f.aNMWPLT(t); }},
      {"aALMLT", [](Frame& f, Text t) { f.aALMLT(t); }},
      {"aNTTP", [](Frame& f, Text t) { f.aNTTP(t); }},
      {"aALM", [](Frame& f, Text t) { f.aALM(t); }},
      {"aNPWP", [](Frame& f, Text t) { f.aNPWP(t); }},
      {"aNMWP", [](Frame& f, Text t) { f.aNMWP(t); }},
      {"aKeterangan", [](Frame& f, Text t) { f.aKeterangan(t); }},
  };
}

template <class Form>
class SelfPaidHostileTexts : public SelfPaidForms<Form> {
 protected:
  SelfPaidHostileTexts() {
    add<Form>("N1", 1, 1000, 100);
    addBeside<Form>("N1", 1, 2, 500, 50);
  }
};
TYPED_TEST_SUITE(SelfPaidHostileTexts, AllForms, FormNames);

TYPED_TEST(SelfPaidHostileTexts, FailEveryOperationAndTouchNothing) {
  const auto before = this->store.dump();
  for (const auto& hostile : hostileCalls<TypeParam>()) {
    for (const Text text : hostileTexts) {
      this->messages.clear();
      TypeParam form;
      hostile.call(form, text);
      EXPECT_THAT(this->messages.texts(), SizeIs(1)) << hostile.name << ": " << text;
      ASSERT_EQ(this->store.dump(), before) << hostile.name << ": " << text;
    }
  }
}

TYPED_TEST(SelfPaidHostileTexts, FailAnEditInEveryPropertyAndTouchNothing) {
  const auto before = this->store.dump();
  for (const auto& hostile : hostileProperties()) {
    for (const Text text : hostileTexts) {
      this->messages.clear();
      TypeParam form;
      beginEdit(form, "N1", 1);
      put(form, 7, 7);
      hostile.call(form, text);
      save(form);
      EXPECT_THAT(this->messages.texts(), SizeIs(1)) << hostile.name << ": " << text;
      ASSERT_EQ(this->store.dump(), before) << hostile.name << ": " << text;
    }
  }
}

TYPED_TEST(SelfPaidHostileTexts, ThatHoldTheSeparatorFailAnyPropertyAndTouchNothing) {
  const auto before = this->store.dump();
  for (const auto& hostile : hostileProperties()) {
    for (const Text text : {";", "a;b", "113;"}) {
      this->messages.clear();
      TypeParam form;
      beginEdit(form, "N1", 1);
      hostile.call(form, text);
      save(form);
      EXPECT_THAT(this->messages.texts(), ElementsAre(testing::HasSubstr("holds ';'"))) << hostile.name;
      ASSERT_EQ(this->store.dump(), before) << hostile.name;
    }
  }
}

TYPED_TEST(SelfPaidHostileTexts, ThatHoldTheSeparatorMakeNoEmptyForm) {
  const auto before = this->store.dump();
  TypeParam form;
  create(form, "N9;");
  create(form, "N9", "PT A;B");
  create(form, "N9", filerName, "01;02");
  EXPECT_THAT(this->messages.texts(), SizeIs(3));
  EXPECT_EQ(this->store.dump(), before);
}

// A new row is written field by field, so that an apostrophe passes. It fails in the list's statement, and the list has
// counted a form then that none of its rows shows.
TYPED_TEST(SelfPaidHostileTexts, WithAnApostropheMakeAFormThatItsListDoesNotShow) {
  TypeParam form;
  load(form, "N1", 1);
  form.pAssignStatus(true, false, false);
  form.aNTTP("N'3");
  form.aSEQ(3);
  form.aALM("Jl. Ma'ruf");
  put(form, 250, 25);
  save(form);
  EXPECT_THAT(this->messages.texts(), SizeIs(1));
  EXPECT_THAT(this->forms(), SizeIs(3));
  EXPECT_THAT(this->listed(), ElementsAre("1|N1", "2|N1"));
  EXPECT_EQ(this->listSums(), "1750;175");
  EXPECT_EQ(this->line(), "1750;10;175");
}

// A number that is a pattern itself is compared as it stands in NOBUKTI, so that it finds no other form.
TYPED_TEST(SelfPaidHostileTexts, ThatArePatternsFindNoOtherForm) {
  const auto before = this->store.dump();
  for (const Text text : {"%", "N%", "N_", "_1", "[N]1", "*", "N?"}) {
    TypeParam form;
    load(form, text, 1);
    EXPECT_TRUE(form.aNPWP().isEmpty()) << text;
    form.pDelete(filerNpwp, Kind<TypeParam>::form, Kind<TypeParam>::document, 1, 2009, 0, text, "113", "", "", Date());
  }
  EXPECT_EQ(this->messages.texts(), std::vector<std::string>(7, noCurrentRecord));
  EXPECT_EQ(this->store.dump(), before);
}

// In a pattern "[N]" stands for the letter N, so a form of that number does not fit its own pattern and is not found.
TYPED_TEST(SelfPaidHostileTexts, ThatAreSetsHideTheirOwnForm) {
  TypeParam form;
  create(form, "[N]7");
  EXPECT_THAT(this->forms(), SizeIs(3));
  load(form, "[N]7", 0);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  EXPECT_THAT(this->messages.texts(), ElementsAre(noCurrentRecord));
}

TEST(SelfPaidHostileLocation, FailsAnEditOfARentForm) {
  SelfPaidStore store;
  CapturedMessages messages;
  add<CPPhSewaTanahBangunan>("N1", 1, 1000, 100);
  const auto before = store.dump();
  for (const Text text : {"Jl. Ma'ruf", "a;b"}) {
    CPPhSewaTanahBangunan form;
    beginEdit(form, "N1", 1);
    form.aLokasi(text);
    save(form);
  }
  EXPECT_THAT(messages.texts(), SizeIs(2));
  EXPECT_EQ(store.dump(), before);
}

TEST(SelfPaidHostileDate, FailsTheEmptyConstructionForm) {
  SelfPaidStore store;
  CapturedMessages messages;
  const auto before = store.dump();
  CPPhJasaKonstruksi form;
  for (const Text text : {"5'2", "05;02"})
    form.pCreateHdr(filerNpwp, "FJasaKonstruksi", "14", 1, 2009, 0, "N1", "113", "n", "a", text);
  EXPECT_THAT(messages.texts(), SizeIs(2));
  EXPECT_EQ(store.dump(), before);
}

}  // namespace
}  // namespace tarvola::test
