#include <array>

#include "tests/selfpaid/self_paid_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

template <class Form>
class SelfPaidSave : public SelfPaidForms<Form> {};
TYPED_TEST_SUITE(SelfPaidSave, AllForms, FormNames);

// --- the empty form ---------------------------------------------------------------------------------------

TYPED_TEST(SelfPaidSave, StartsFromAnEmptyFormWithOneSeparatorMore) {
  TypeParam form;
  create(form, "N1");
  const std::string kind(Kind<TypeParam>::form);
  EXPECT_EQ(this->store.row("SELECT * FROM DAT_SSP_PPh22 WHERE KD_FORM = '" + kind + "'"),
            std::string(filerNpwp) + "|" + kind + "|" + std::string(Kind<TypeParam>::document) + "|1|2009|0|N1|113|" +
                std::string(packedStart) + std::string(Kind<TypeParam>::beforeDate) +
                "05/02/2009;N1;0;0;0;|05/02/2009|05/02/2009|");
  EXPECT_TRUE(this->messages.empty());
}

// A form that exists is not looked into, so that not even a name that could not be written is noticed.
TYPED_TEST(SelfPaidSave, MakesNoEmptyFormBesideOneOfThatPayment) {
  add<TypeParam>("N1", 4, 1000, 100);
  const auto before = this->store.dump();
  TypeParam form;
  create(form, "N1", "PT A;B");
  EXPECT_EQ(this->store.dump(), before);
  EXPECT_TRUE(this->messages.empty());
}

// A form of another filer, form, document, period, payment or tax kind is another form.
TYPED_TEST(SelfPaidSave, MakesAnEmptyFormUnderEveryOtherKey) {
  const Text kind = Kind<TypeParam>::form;
  const Text document = Kind<TypeParam>::document;
  TypeParam form;
  create(form, "N1");
  const auto createUnder = [&](Text npwp, Text kdForm, Text jenis, std::int16_t month, std::int16_t year,
                               std::int16_t correction, Text number, Text taxKind) {
    form.pCreateHdr(npwp, kdForm, jenis, month, year, correction, number, taxKind, "n", "a", dateArgument<TypeParam>());
  };
  const auto createAll = [&] {
    createUnder("other", kind, document, 1, 2009, 0, "N1", "113");
    createUnder(filerNpwp, "FOther", document, 1, 2009, 0, "N1", "113");
    createUnder(filerNpwp, kind, "99", 1, 2009, 0, "N1", "113");
    createUnder(filerNpwp, kind, document, 2, 2009, 0, "N1", "113");
    createUnder(filerNpwp, kind, document, 1, 2010, 0, "N1", "113");
    createUnder(filerNpwp, kind, document, 1, 2009, 1, "N1", "113");
    createUnder(filerNpwp, kind, document, 1, 2009, 0, "N2", "113");
    createUnder(filerNpwp, kind, document, 1, 2009, 0, "N1", "112");
  };
  createAll();
  const auto all = this->store.dump();
  EXPECT_THAT(this->store.rows("SELECT * FROM DAT_SSP_PPh22 WHERE NOBUKTI <> '-'"), SizeIs(9));
  createAll();
  EXPECT_EQ(this->store.dump(), all);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSave, LoadsAFormIntoNamedFieldsAlone) {
  TypeParam form;
  create(form, "N1");
  load(form, "N1", 0);
  EXPECT_EQ(form.rs4_2Form(), nullptr);
  EXPECT_EQ(form.aNPWP(), Variant(filerNpwp));
  EXPECT_EQ(form.aNMWP(), Variant(filerName));
  EXPECT_EQ(form.aALM(), filerAddress);
  EXPECT_EQ(form.aTGL_POTONG(), Variant("05/02/2009"));
  EXPECT_TRUE(this->messages.empty());
}

// The layout is that of the class, whatever form is asked for; FOther has none.
TYPED_TEST(SelfPaidSave, ExpandsWhateverItLoadsUnderItsOwnLayout) {
  this->store.run("INSERT INTO DAT_SSP_PPh22 VALUES ('n', 'FOther', '99', 1, 2009, 0, 'N1', '113', '" +
                  packed<TypeParam>("N1", "1", "7", "1") + "', '', '', '')");
  TypeParam form;
  form.pGet("", "FOther", "99", 1, 2009, 0, "N1", "113", "", "", Date(), 1);
  EXPECT_EQ(form.aTGL_POTONG(), Variant("05/02/2009"));
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSave, LoadsNothingUnderAnotherKey) {
  add<TypeParam>("N1", 1, 1000, 100);
  const Text kind = Kind<TypeParam>::form;
  const Text document = Kind<TypeParam>::document;
  TypeParam form;
  form.pGet("", "FOther", document, 1, 2009, 0, "N1", "113", "", "", Date(), 1);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  form.pGet("", kind, "99", 1, 2009, 0, "N1", "113", "", "", Date(), 1);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  form.pGet("", kind, document, 2, 2009, 0, "N1", "113", "", "", Date(), 1);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  form.pGet("", kind, document, 1, 2010, 0, "N1", "113", "", "", Date(), 1);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  form.pGet("", kind, document, 1, 2009, 1, "N1", "113", "", "", Date(), 1);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  form.pGet("", kind, document, 1, 2009, 0, "N2", "113", "", "", Date(), 1);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  form.pGet("", kind, document, 1, 2009, 0, "N1", "112", "", "", Date(), 1);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  form.pGet("", kind, document, 1, 2009, 0, "N1", "113", "", "", Date(), 2);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  EXPECT_EQ(this->messages.texts(), std::vector<std::string>(8, noCurrentRecord));
  form.pGet("nobody", kind, document, 1, 2009, 0, "N1", "113", "", "", Date(), 1);
  EXPECT_EQ(form.aNPWP(), Variant(filerNpwp));
}

TYPED_TEST(SelfPaidSave, FindsASeqThatIsNotWhole) {
  add<TypeParam>("N1", 1.5, 1000, 100);
  TypeParam form;
  load(form, "N1", 1.5);
  EXPECT_EQ(form.aNPWP(), Variant(filerNpwp));
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "1,5", "1000", "100")));
  EXPECT_TRUE(this->messages.empty());
}

// --- adding ---------------------------------------------------------------------------------------------

TYPED_TEST(SelfPaidSave, RewritesTheEmptyFormAndMovesListAndReturn) {
  add<TypeParam>("N1", 1, 1000, 100);
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "1", "1000", "100")));
  EXPECT_THAT(this->listed(), ElementsAre("1|N1"));
  EXPECT_EQ(this->listSums(), "1000;100");
  EXPECT_EQ(this->line(), "1000;10;100");
  EXPECT_EQ(this->store.ofReturn({"JMLPHSL", "JmlB5"}), "1000;100");
  EXPECT_TRUE(this->messages.empty());
}

// Old values that were never kept are "" and 0, and no form is found by them.
TYPED_TEST(SelfPaidSave, AddsASecondFormToAPayment) {
  add<TypeParam>("N1", 1, 1000, 100);
  addBeside<TypeParam>("N1", 1, 2, 500, 25);
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "1", "1000", "100"),
                                         "N1|" + packed<TypeParam>("N1", "2", "500", "25")));
  EXPECT_THAT(this->listed(), ElementsAre("1|N1", "2|N1"));
  EXPECT_EQ(this->listSums(), "1500;125");
  EXPECT_EQ(this->line(), "1500;8,33;125");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSave, AddsARowUnderTheFilerOfTheProfileWithTodaysDate) {
  TypeParam form;
  create(form, "N1", filerName, "999999999999999");
  load(form, "N1", 0);
  form.aSEQ(1);
  form.aNTTP("N2");
  save(form);
  EXPECT_EQ(
      this->store.row("SELECT NPWP, KD_FORM, JENIS_DOKUMEN, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, KD_JENIS_PAJAK, "
                      "TGL_REKAM, TGL_UBAH, NIP FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N2'"),
      std::string(filerNpwp) + "|" + std::string(Kind<TypeParam>::form) + "|" + std::string(Kind<TypeParam>::document) +
          "|1|2009|0|113|07/02/2009|07/02/2009|");
  const std::string stored = this->store.row("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N2'");
  EXPECT_EQ(stored.substr(0, stored.find(';')), "999999999999999");
  EXPECT_TRUE(this->messages.empty());
}

// The short date of these settings would be 02/07/2009.
TYPED_TEST(SelfPaidSave, AddsARowWithTodayAsDayMonthYearUnderAnySettings) {
  const RegionalSettingsScope scope(RegionalSettings::unitedStates());
  TypeParam form;
  begin(form, "N1", 1);
  form.aNTTP("N2");
  form.pAssignOldValues();
  save(form);
  EXPECT_EQ(this->store.row("SELECT TGL_REKAM, TGL_UBAH FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N2'"),
            "07/02/2009|07/02/2009");
}

TYPED_TEST(SelfPaidSave, AddsARowWithoutAFilerIfTheProfileNamesNone) {
  add<TypeParam>("N1", 1, 1000, 100);
  this->store.run("UPDATE PROFILE SET NPWP = NULL");
  addBeside<TypeParam>("N1", 1, 2, 500, 25);
  this->store.run("DELETE * FROM PROFILE");
  addBeside<TypeParam>("N1", 1, 3, 500, 25);
  EXPECT_THAT(this->store.rows("SELECT NPWP FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N1' ORDER BY NPWP"),
              ElementsAre("", "", filerNpwp));
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSave, AddsNothingIfTheProfileCannotBeRead) {
  add<TypeParam>("N1", 1, 1000, 100);
  dropTable(this->store.path(), "PROFILE");
  addBeside<TypeParam>("N1", 1, 2, 500, 25);
  EXPECT_THAT(this->forms(), SizeIs(1));
  EXPECT_EQ(this->listSums(), "1000;100");
  EXPECT_EQ(this->line(), "1000;10;100");
  EXPECT_THAT(this->messages.texts(), ElementsAre(objectVariableNotSet));
}

// --- editing --------------------------------------------------------------------------------------------

TYPED_TEST(SelfPaidSave, FindsAFormByItsOldNumberAndSeq) {
  add<TypeParam>("N1", 1, 1000, 100);
  TypeParam form;
  beginEdit(form, "N1", 1);
  form.aNTTP("N9");
  form.aSEQ(3);
  save(form);
  EXPECT_THAT(this->forms(), ElementsAre("N9|" + packed<TypeParam>("N9", "3", "1000", "100")));
  EXPECT_EQ(this->listSums(), "1000;100");
  EXPECT_EQ(this->line(), "1000;10;100");
  // The list row of the old number is replaced by no one.
  EXPECT_THAT(this->listed(), ElementsAre("1|N1", "3|N9"));
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSave, MovesTheSumsByTheDifferenceOfAnEdit) {
  add<TypeParam>("N1", 1, 1000, 100);
  add<TypeParam>("N2", 2, 3000, 300);
  TypeParam form;
  beginEdit(form, "N1", 1);
  put(form, 400, 20);
  save(form);
  EXPECT_EQ(this->listSums(), "3400;320");
  EXPECT_EQ(this->line(), "3400;9,41;320");
  EXPECT_THAT(this->listed(), ElementsAre("1|N1", "2|N2"));
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSave, EditsOneFormAmongThoseOfItsPayment) {
  add<TypeParam>("N1", 1, 1000, 100);
  addBeside<TypeParam>("N1", 1, 2, 500, 25);
  TypeParam form;
  beginEdit(form, "N1", 2);
  put(form, 700, 95);
  save(form);
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "1", "1000", "100"),
                                         "N1|" + packed<TypeParam>("N1", "2", "700", "95")));
  EXPECT_THAT(this->listed(), ElementsAre("1|N1", "2|N1"));
  EXPECT_EQ(this->listSums(), "1700;195");
  EXPECT_EQ(this->line(), "1700;11,47;195");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSave, KeepsTheDateOfChangeOfARowThatItFinds) {
  add<TypeParam>("N1", 1, 1000, 100);
  setToday(Date::fromYmd(2009, 3, 20));
  TypeParam form;
  beginEdit(form, "N1", 1);
  put(form, 2000, 200);
  save(form);
  EXPECT_EQ(this->store.row("SELECT TGL_REKAM, TGL_UBAH FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N1'"),
            "05/02/2009|05/02/2009");
}

TYPED_TEST(SelfPaidSave, AddsARowIfTheOldValuesAreThoseOfAnotherForm) {
  add<TypeParam>("N1", 1, 1000, 100);
  TypeParam form;
  beginEdit(form, "N1", 1);
  form.aNTTP("N2");
  form.pAssignOldValues();
  save(form);
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "1", "1000", "100"),
                                         "N2|" + packed<TypeParam>("N2", "1", "1000", "100")));
}

// A form is not written under no payment number or for no filer: Null enters no statement.
TYPED_TEST(SelfPaidSave, WritesNoFormWhosePaymentOrFilerIsNull) {
  add<TypeParam>("N1", 1, 1000, 100);
  const auto before = this->store.dump();
  TypeParam form;
  beginEdit(form, "N1", 1);
  put(form, 2000, 200);
  form.aNTTP(Variant::null());
  save(form);
  form.aNTTP("N1");
  form.aNPWP(Variant::null());
  save(form);
  EXPECT_THAT(this->messages.texts(), ElementsAre(invalidUseOfNull, invalidUseOfNull));
  EXPECT_EQ(this->store.dump(), before);
}

// The stored row is looked for without the filer and written with him. So the form stays as it was, while list and
// return move.
TYPED_TEST(SelfPaidSave, FindsAFormWhoseFilerWasChangedButDoesNotWriteIt) {
  add<TypeParam>("N1", 1, 1000, 100);
  TypeParam form;
  beginEdit(form, "N1", 1);
  form.aNPWP("999999999999999");
  put(form, 3000, 300);
  save(form);
  EXPECT_THAT(this->forms(), ElementsAre("N1|" + packed<TypeParam>("N1", "1", "1000", "100")));
  EXPECT_EQ(this->line(), "3000;10;300");
}

// On payment 5 the text of the second form reads "...;5;5;1;...", in which the pattern of SEQ 1, "...;5;1;", is found.
TYPED_TEST(SelfPaidSave, TakesAFormForAnotherWhereThePatternFitsBoth) {
  add<TypeParam>("5", 1, 1000, 100);
  addBeside<TypeParam>("5", 1, 5, 1, 0);
  ASSERT_THAT(this->forms(), SizeIs(2));
  TypeParam form;
  beginEdit(form, "5", 1);
  put(form, 2000, 200);
  save(form);
  EXPECT_THAT(this->forms(), ElementsAre("5|" + packed<TypeParam>("5", "1", "2000", "200"),
                                         "5|" + packed<TypeParam>("5", "1", "2000", "200")));
  EXPECT_EQ(this->listSums(), "2001;200");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSave, HoldsNoFormAfterwards) {
  add<TypeParam>("N1", 1, 1000, 100);
  TypeParam form;
  beginEdit(form, "N1", 1);
  form.pUpdate();
  EXPECT_EQ(form.rs4_2Form(), nullptr);
  EXPECT_TRUE(this->messages.empty());
  const auto before = this->store.dump();
  form.aSEQ(4);
  form.pUpdate();
  EXPECT_THAT(this->messages.texts(), ElementsAre(objectVariableNotSet, objectVariableNotSet));
  EXPECT_EQ(this->store.dump(), before);
}

// --- periods ----------------------------------------------------------------------------------------------

template <class Form>
void saveIn(const store::Period& period, double gross, bool isNew) {
  const auto& [month, year, correction] = period;
  Form form;
  if (isNew)
    form.pCreateHdr(filerNpwp, Kind<Form>::form, Kind<Form>::document, month, year, correction, "N1", "113", filerName,
                    filerAddress, dateArgument<Form>());
  form.pGet(filerNpwp, Kind<Form>::form, Kind<Form>::document, month, year, correction, "N1", "113", filerName,
            filerAddress, paidOn, isNew ? 0 : 1);
  form.pAssignOldValues();
  form.pAssignStatus(isNew, !isNew, false);
  form.aSEQ(1);
  put(form, gross, gross / 10);
  save(form);
}

// The same payment and SEQ in four periods: each has its form, its list and its return.
TYPED_TEST(SelfPaidSave, MovesListAndReturnOfItsOwnMonthYearAndCorrection) {
  constexpr std::array<store::Period, 4> periods = {
      {january, {.msPajak = 2, .thPajak = 2009}, {.msPajak = 1, .thPajak = 2010}, {1, 2009, 1}}};
  for (std::size_t index = 1; index < periods.size(); ++index) this->store.createReturn(periods[index]);
  std::array<double, periods.size()> gross = {1000, 2000, 3000, 4000};
  const auto check = [&] {
    for (std::size_t index = 0; index < periods.size(); ++index) {
      const std::string sums = CStr(gross[index]) + ";" + CStr(gross[index] / 10);
      const std::string rate = gross[index] == 0 ? std::string(Kind<TypeParam>::defaultRate) : "10";
      EXPECT_EQ(this->store.ofReturn(Kind<TypeParam>::line(), periods[index]),
                CStr(gross[index]) + ";" + rate + ";" + CStr(gross[index] / 10));
      const std::string where =
          " WHERE KD_FORM = '" + std::string(Kind<TypeParam>::list) + "' AND " + periodCondition(periods[index]).str();
      EXPECT_TRUE(this->store.row("SELECT DAT_FORM FROM DAT_SSP_PPh22" + where).ends_with(";" + sums));
      EXPECT_THAT(this->store.rows("SELECT SEQ FROM LAMPIRAN_SSP_PPh22" + where), SizeIs(gross[index] == 0 ? 0 : 1));
    }
  };
  for (std::size_t index = 0; index < periods.size(); ++index) saveIn<TypeParam>(periods[index], gross[index], true);
  check();
  for (std::size_t index = 0; index < periods.size(); ++index)
    saveIn<TypeParam>(periods[index], gross[index] += 10, false);
  check();
  for (const std::size_t index : {3U, 0U}) {
    const auto& [month, year, correction] = periods[index];
    TypeParam form;
    form.pDeleteForm(filerNpwp, Kind<TypeParam>::form, Kind<TypeParam>::document, month, year, correction, "N1", "113",
                     1);
    gross[index] = 0;
    check();
  }
  EXPECT_THAT(this->forms(), SizeIs(2));
  EXPECT_TRUE(this->messages.empty());
}

// The period of the return is the one that a save has kept. Before the first there is none.
TYPED_TEST(SelfPaidSave, MovesNoReturnBeforeItHasKeptAPeriod) {
  TypeParam form;
  begin(form, "N1", 1);
  put(form, 1000, 100);
  form.pHitPjk(1);
  const auto before = this->store.dump();
  form.pUpdF113204();
  EXPECT_THAT(this->messages.texts(), testing::Contains(noCurrentRecord));
  EXPECT_EQ(this->store.dump(), before);
  this->messages.clear();
  form.pUpdate();
  EXPECT_EQ(this->line(), "1000;10;100");
  EXPECT_TRUE(this->messages.empty());
}

// --- the flags ------------------------------------------------------------------------------------------

struct FlagCase {
  bool add, edit, remove;
  const char* list;
  const char* line;
  bool replacesRow;
};

// A form of 300 and 30 becomes one of 1000 and 100, beside another of 5000 and 500.
TYPED_TEST(SelfPaidSave, MovesListAndReturnByTheFlags) {
  constexpr FlagCase cases[] = {
      // Without a flag the form and its list row are saved all the same.
      {.add = false, .edit = false, .remove = false, .list = "5300;530", .line = "5300;10;530", .replacesRow = true},
      {.add = false, .edit = true, .remove = false, .list = "6000;600", .line = "6000;10;600", .replacesRow = true},
      // An add counts as the difference from the old values.
      {.add = true, .edit = false, .remove = false, .list = "6000;600", .line = "6000;10;600", .replacesRow = true},
      {.add = true, .edit = true, .remove = false, .list = "6000;600", .line = "6000;10;600", .replacesRow = true},
      // A delete takes the amounts of this moment out of the list, and the old ones out of the return.
      {.add = false, .edit = false, .remove = true, .list = "4300;430", .line = "5000;10;500", .replacesRow = false},
      {.add = true, .edit = false, .remove = true, .list = "6000;600", .line = "6000;10;600", .replacesRow = false},
      {.add = false, .edit = true, .remove = true, .list = "6000;600", .line = "6000;10;600", .replacesRow = false},
  };
  for (const FlagCase& flags : cases) {
    SelfPaidStore fresh;
    add<TypeParam>("N1", 1, 300, 30);
    add<TypeParam>("N2", 2, 5000, 500);
    TypeParam form;
    beginEdit(form, "N1", 1);
    form.pAssignStatus(flags.add, flags.edit, flags.remove);
    put(form, 1000, 100);
    save(form);
    EXPECT_EQ(fresh.listSums(Kind<TypeParam>::list), flags.list);
    EXPECT_EQ(fresh.ofReturn(Kind<TypeParam>::line()), flags.line);
    const std::string row = fresh.row("SELECT DAT_FORM FROM LAMPIRAN_SSP_PPh22 WHERE SEQ = 1");
    EXPECT_EQ(row.starts_with("1;2009;1;1000;100;"), flags.replacesRow) << row;
  }
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidSave, SetsTheRateOfTheReturnWithoutAFlagToo) {
  add<TypeParam>("N1", 1, 0, 0);
  this->store.run("UPDATE SETTING_TARIF_PPH SET TARIF_JML_BRUTO = 12.3456");
  TypeParam form;
  load(form, "N1", 1);
  save(form);
  // 12.3456 gives 12.346 and then 12.34. A transfer has no default rate.
  const bool hasDefault = Kind<TypeParam>::defaultRate != "0";
  EXPECT_EQ(this->line(), hasDefault ? "0;12,34;0" : "0;0;0");
  EXPECT_TRUE(this->messages.empty());
}

}  // namespace
}  // namespace tarvola::test
