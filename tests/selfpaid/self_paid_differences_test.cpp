// What each of the three forms does in a way of its own.
#include "tests/selfpaid/self_paid_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class SelfPaidDifferences : public testing::Test {
 protected:
  SelfPaidStore store;
  CapturedMessages messages;
};
using RentForm = SelfPaidDifferences;
using TransferForm = SelfPaidDifferences;
using ConstructionForm = SelfPaidDifferences;

/// 5 February 2009 at noon: with a time of day the wordings of a date part ways.
const Date paidAtNoon = Date::fromSerial(paidOn.serial() + 0.5);

// --- dates of an empty form -----------------------------------------------------------------------------------

TEST_F(RentForm, StartsWithTheDateInItsDefaultTextForm) {
  CPPhSewaTanahBangunan form;
  form.pCreateHdr("f", "FSewaTnhBgn", "12", 1, 2009, 0, "N1", "113", "n", "a", paidAtNoon);
  EXPECT_EQ(store.row("SELECT DAT_FORM, TGL_REKAM, TGL_UBAH FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N1'"),
            "f;n;a;1;2009;0;;05/02/2009 12:00:00;N1;0;0;0;|05/02/2009 12:00:00|05/02/2009 12:00:00");
  EXPECT_TRUE(messages.empty());
}

TEST_F(TransferForm, StartsWithTheDayAlone) {
  CPPhAlihTnhBgn form;
  form.pCreateHdr("f", "FAlihTnhBgn", "19", 1, 2009, 0, "N1", "113", "n", "a", paidAtNoon);
  EXPECT_EQ(store.row("SELECT DAT_FORM, TGL_REKAM, TGL_UBAH FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N1'"),
            "f;n;a;1;2009;0;05/02/2009;N1;0;0;0;|05/02/2009|05/02/2009");
  EXPECT_TRUE(messages.empty());
}

TEST_F(ConstructionForm, StartsWithTheTextOfTheDateAsItComes) {
  CPPhJasaKonstruksi form;
  form.pCreateHdr("f", "FJasaKonstruksi", "14", 1, 2009, 0, "N1", "113", "n", "a", "awal Februari");
  EXPECT_EQ(store.row("SELECT DAT_FORM, TGL_REKAM, TGL_UBAH FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N1'"),
            "f;n;a;1;2009;0;awal Februari;N1;0;0;0;|awal Februari|awal Februari");
  EXPECT_TRUE(messages.empty());
}

// --- rent -----------------------------------------------------------------------------------------------

TEST_F(RentForm, HandsItsLocationOnToTheList) {
  CPPhSewaTanahBangunan form;
  begin(form, "N1", 1);
  form.aLokasi("Jl. Braga");
  put(form, 1000, 100);
  save(form);
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM LAMPIRAN_SSP_PPh22"), "1;2009;1;1000;100;Jl. Braga;N1;05/02/2009;");
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N1'"),
            std::string(packedStart) + "Jl. Braga;05/02/2009;N1;1;1000;100");
  EXPECT_TRUE(messages.empty());
}

// Location and date may be any text, even one that holds the separator and so a position too much.
TEST_F(RentForm, IsFoundWhateverItsLocationAndDateAre) {
  CPPhSewaTanahBangunan form;
  create(form, "N1");
  for (const char* middle : {"Jl. Braga;31/12/1999", ";", "a;b;c"}) {
    store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'f;n;a;1;2009;0;" + std::string(middle) +
              ";N1;4;10;1' WHERE NOBUKTI = 'N1'");
    load(form, "N1", 4);
    EXPECT_EQ(form.aNPWP(), Variant("f")) << middle;
  }
  EXPECT_TRUE(messages.empty());
}

// The pattern asks for two fields, location and date, in front of the number.
TEST_F(RentForm, IsNotFoundIfItHasOneFieldInFrontOfItsNumber) {
  CPPhSewaTanahBangunan form;
  create(form, "N1");
  store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'f;n;a;1;2009;0;05/02/2009;N1;4;10;1' WHERE NOBUKTI = 'N1'");
  load(form, "N1", 4);
  EXPECT_TRUE(form.aNPWP().isEmpty());
  EXPECT_THAT(messages.texts(), ElementsAre(noCurrentRecord));
}

TEST_F(RentForm, GivesANullLocationAnEmptyText) {
  add<CPPhSewaTanahBangunan>("N1", 1, 1000, 100);
  CPPhSewaTanahBangunan form;
  beginEdit(form, "N1", 1);
  form.aLokasi(Variant::null());
  form.pUpdD113203();
  EXPECT_THAT(messages.texts(), ElementsAre(invalidUseOfNull));
  form.pHitPjk(1);
  form.pUpdD113203();
  EXPECT_THAT(messages.texts(), SizeIs(1));
}

TEST_F(RentForm, NeedsItsAmountsInTheReturn) {
  add<CPPhSewaTanahBangunan>("N1", 1, 1000, 100);
  store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = '" + packed<CPPhSewaTanahBangunan>("N1", "1", "", "") +
            "' WHERE NOBUKTI = 'N1'");
  CPPhSewaTanahBangunan form;
  beginEdit(form, "N1", 1);
  form.pUpdate();
  // Once for the list, once for the return: nobody has turned the Nulls into 0.
  EXPECT_THAT(messages.texts(), ElementsAre(invalidUseOfNull, invalidUseOfNull));
  EXPECT_EQ(store.listSums("DSewaTnhBgn"), "1000;100");
  EXPECT_EQ(store.ofReturn({"B5b3", "B5b5"}), "1000;100");
}

// --- transfer -------------------------------------------------------------------------------------------

TEST_F(TransferForm, KeepsItsLocationFromListAndReturn) {
  CPPhAlihTnhBgn form;
  begin(form, "N1", 1);
  form.aLokasi("Jl. Braga");
  put(form, 1000, 100);
  save(form);
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM LAMPIRAN_SSP_PPh22"), "1;2009;1;1000;100;N1;05/02/2009;");
  EXPECT_EQ(store.ofReturn({"B73", "B74", "B75"}), "1000;10;100");
  // Behind the positions of the form, in front of what else has none.
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'N1'"),
            packed<CPPhAlihTnhBgn>("N1", "1", "1000", "100") + ";Jl. Braga");
  EXPECT_TRUE(messages.empty());
}

TEST_F(TransferForm, IsFoundWhateverItsDateIs) {
  CPPhAlihTnhBgn form;
  create(form, "N1");
  for (const char* date : {"31/12/1999", "", "kapan saja"}) {
    store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'f;n;a;1;2009;0;" + std::string(date) +
              ";N1;4;10;1' WHERE NOBUKTI = 'N1'");
    load(form, "N1", 4);
    EXPECT_EQ(form.aTGL_POTONG(), Variant(date));
  }
  EXPECT_TRUE(messages.empty());
}

TEST_F(TransferForm, LeavesARateOfZeroBehindTheLastForm) {
  add<CPPhAlihTnhBgn>("N1", 1, 1000, 50);
  ASSERT_EQ(store.ofReturn({"B73", "B74", "B75"}), "1000;5;50");
  remove<CPPhAlihTnhBgn>("N1", 1);
  EXPECT_EQ(store.ofReturn({"B73", "B74", "B75"}), "0;0;0");
}

// The list of transfers asks for the filer when it looks for its header, and the header that it then makes is that of
// the filer of the profile: so each save of such a form makes another one.
TEST_F(TransferForm, OfAnotherFilerMakesAListHeaderAtEverySave) {
  CPPhAlihTnhBgn form;
  create(form, "N1", filerName, "999999999999999");
  for (int saves = 1; saves <= 2; ++saves) {
    load(form, "N1", 0);
    form.pAssignOldValues();
    save(form);
    EXPECT_THAT(store.rows("SELECT NPWP FROM DAT_SSP_PPh22 WHERE KD_FORM = 'DAlihTnhBgn'"),
                testing::AllOf(SizeIs(1 + saves), testing::Each(filerNpwp)));
  }
  EXPECT_TRUE(messages.empty());
}

TEST_F(RentForm, OfAnotherFilerUsesTheListHeaderThatIsThere) {
  CPPhSewaTanahBangunan form;
  create(form, "N1", filerName, "999999999999999");
  load(form, "N1", 0);
  form.pAssignOldValues();
  save(form);
  EXPECT_THAT(store.rows("SELECT NPWP FROM DAT_SSP_PPh22 WHERE KD_FORM = 'DSewaTnhBgn'"), SizeIs(1));
  EXPECT_TRUE(messages.empty());
}

// --- construction services -----------------------------------------------------------------------------------

/// What a construction form has three of, and what it has none of.
template <class Form>
concept HasOneGross = requires(Form& form) {
  form.ajmlBruto(1.0);
};
template <class Form>
concept HasOneTax = requires(Form& form) {
  form.aPPH(1.0);
};
template <class Form>
concept HasLocation = requires(Form& form) {
  form.aLokasi("x");
};
static_assert(!HasOneGross<CPPhJasaKonstruksi> && !HasOneTax<CPPhJasaKonstruksi> && !HasLocation<CPPhJasaKonstruksi>);
static_assert(HasOneGross<CPPhAlihTnhBgn> && HasOneTax<CPPhAlihTnhBgn> && HasLocation<CPPhAlihTnhBgn>);

TEST_F(ConstructionForm, IsFoundWhateverItsDateIs) {
  CPPhJasaKonstruksi form;
  create(form, "N1");
  for (const char* date : {"31/12/1999", "", "kapan saja"}) {
    store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'f;n;a;1;2009;0;" + std::string(date) +
              ";N1;4;10;1;0;0;0;0;1;10' WHERE NOBUKTI = 'N1'");
    load(form, "N1", 4);
    EXPECT_EQ(form.aTGL_POTONG(), Variant(date));
  }
  EXPECT_TRUE(messages.empty());
}

struct Construction {
  double gross1 = 0, tax1 = 0, gross2 = 0, tax2 = 0, gross3 = 0, tax3 = 0;
};

void put(CPPhJasaKonstruksi& form, const Construction& amounts) {
  form.ajmlBruto1(amounts.gross1);
  form.aPPH1(amounts.tax1);
  form.ajmlBruto2(amounts.gross2);
  form.aPPH2(amounts.tax2);
  form.ajmlBruto3(amounts.gross3);
  form.aPPH3(amounts.tax3);
}

constexpr Construction threePairs{.gross1 = 1000, .tax1 = 40, .gross2 = 2000, .tax2 = 60, .gross3 = 5000, .tax3 = 250};

void addThreePairs() {
  CPPhJasaKonstruksi form;
  begin(form, "N1", 1);
  put(form, threePairs);
  save(form);
}

TEST_F(ConstructionForm, MovesALineOfTheReturnWithEachPair) {
  addThreePairs();
  EXPECT_EQ(store.ofReturn({"B6a23", "B6a24", "B6a25"}), "1000;4;40");
  EXPECT_EQ(store.ofReturn({"B6b23", "B6b24", "B6b25"}), "2000;3;60");
  EXPECT_EQ(store.ofReturn({"B6c23", "B6c24", "B6c25"}), "5000;5;250");
  EXPECT_EQ(store.ofReturn({"JMLPHSL", "JmlB5"}), "8000;350");
  EXPECT_EQ(store.listSums("DJasaKonstruksi"), "8000;350");
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM LAMPIRAN_SSP_PPh22"), "1;2009;1;8000;350;N1;05/02/2009;");
  EXPECT_THAT(store.forms("FJasaKonstruksi"),
              ElementsAre("N1|" + std::string(packedStart) + "05/02/2009;N1;1;1000;40;2000;60;5000;250;350;8000"));
  EXPECT_TRUE(messages.empty());
}

TEST_F(ConstructionForm, MovesEachLineByItsOwnDifference) {
  addThreePairs();
  CPPhJasaKonstruksi form;
  beginEdit(form, "N1", 1);
  put(form, {.gross1 = 3000, .tax1 = 30, .gross2 = 1000, .tax2 = 70, .gross3 = 5000, .tax3 = 500});
  save(form);
  EXPECT_EQ(store.ofReturn({"B6a23", "B6a24", "B6a25"}), "3000;1;30");
  EXPECT_EQ(store.ofReturn({"B6b23", "B6b24", "B6b25"}), "1000;7;70");
  EXPECT_EQ(store.ofReturn({"B6c23", "B6c24", "B6c25"}), "5000;10;500");
  EXPECT_EQ(store.listSums("DJasaKonstruksi"), "9000;600");
  EXPECT_TRUE(messages.empty());
}

TEST_F(ConstructionForm, TakesEachPairOutOfItsLine) {
  addThreePairs();
  CPPhJasaKonstruksi other;
  begin(other, "N2", 2);
  put(other, {.gross1 = 100, .tax1 = 10, .gross2 = 200, .tax2 = 40, .gross3 = 300, .tax3 = 90});
  save(other);
  remove<CPPhJasaKonstruksi>("N1", 1);
  EXPECT_EQ(store.ofReturn({"B6a23", "B6a24", "B6a25"}), "100;10;10");
  EXPECT_EQ(store.ofReturn({"B6b23", "B6b24", "B6b25"}), "200;20;40");
  EXPECT_EQ(store.ofReturn({"B6c23", "B6c24", "B6c25"}), "300;30;90");
  EXPECT_EQ(store.listSums("DJasaKonstruksi"), "600;140");
  EXPECT_TRUE(messages.empty());
}

// Planning and supervision share a default rate, the average of B44 (4) and B54 (6); work has its own, that of B14 (2),
// B24 (4) and B34 (3).
TEST_F(ConstructionForm, LeavesTheDefaultRatesInLinesThatItDoesNotMove) {
  CPPhJasaKonstruksi form;
  begin(form, "N1", 1);
  put(form, {.gross2 = 1000, .tax2 = 75});
  save(form);
  EXPECT_EQ(store.ofReturn({"B6a23", "B6a24", "B6a25"}), "0;5;0");
  EXPECT_EQ(store.ofReturn({"B6b23", "B6b24", "B6b25"}), "1000;7,5;75");
  EXPECT_EQ(store.ofReturn({"B6c23", "B6c24", "B6c25"}), "0;5;0");
  remove<CPPhJasaKonstruksi>("N1", 1);
  EXPECT_EQ(store.ofReturn({"B6a24", "B6b24", "B6c24"}), "5;3;5");
  EXPECT_TRUE(messages.empty());
}

// The averages of 2, 4, 4 and of 4, 4.9999 are rounded to three decimals and then cut to two.
TEST_F(ConstructionForm, CutsItsDefaultRates) {
  store.run("UPDATE SETTING_TARIF_PPH SET TARIF_JML_BRUTO = 4 WHERE ITEM_PENGHASILAN = 'B34'");
  store.run("UPDATE SETTING_TARIF_PPH SET TARIF_JML_BRUTO = 4.9999 WHERE ITEM_PENGHASILAN = 'B54'");
  CPPhJasaKonstruksi form;
  begin(form, "N1", 1);
  save(form);
  EXPECT_EQ(store.ofReturn({"B6a24", "B6b24", "B6c24"}), "4,5;3,33;4,5");
}

TEST_F(ConstructionForm, AddsItsTaxesOverANull) {
  store.run(
      "INSERT INTO DAT_SSP_PPh22 VALUES ('f', 'FJasaKonstruksi', '14', 1, 2009, 0, 'N1', '113', "
      "'f;n;a;1;2009;0;05/02/2009;N1;0;;10;;;;5;;', '', '', '')");
  CPPhJasaKonstruksi form;
  load(form, "N1", 0);
  form.pAssignOldValues();
  save(form);
  EXPECT_THAT(store.forms("FJasaKonstruksi"), ElementsAre("N1|f;n;a;1;2009;0;05/02/2009;N1;0;0;10;0;0;0;5;15;0"));
  EXPECT_TRUE(messages.empty());
}

TEST_F(ConstructionForm, ReplacesASumThatWasTypedIn) {
  CPPhJasaKonstruksi form;
  begin(form, "N1", 1);
  put(form, {.gross1 = 10.5, .tax1 = 1.25, .gross3 = 0.25, .tax3 = 0.5});
  form.aJMLPPH(999);
  save(form);
  EXPECT_THAT(store.forms("FJasaKonstruksi"),
              ElementsAre("N1|" + std::string(packedStart) + "05/02/2009;N1;1;10,5;1,25;0;0;0,25;0,5;1,75;10,75"));
}

// The sum of the taxes is formed before that of the gross amounts.
TEST_F(ConstructionForm, FormsTheSumOfTaxesBesideAGrossThatIsNoNumber) {
  store.run(
      "INSERT INTO DAT_SSP_PPh22 VALUES ('f', 'FJasaKonstruksi', '14', 1, 2009, 0, 'N1', '113', "
      "'f;n;a;1;2009;0;05/02/2009;N1;0;seribu;10;0;2;0;3;0;0', '', '', '')");
  CPPhJasaKonstruksi form;
  load(form, "N1", 0);
  form.pHitPjk(1);
  EXPECT_THAT(messages.texts(), ElementsAre(typeMismatch));
  form.pUpdate();
  EXPECT_THAT(store.forms("FJasaKonstruksi"),
              testing::Contains("N1|f;n;a;1;2009;0;05/02/2009;N1;0;seribu;10;0;2;0;3;15;0"));
}

// Its list row comes first and needs the amounts; only then is the form normalised. So Nulls fail, and stay Nulls.
TEST_F(ConstructionForm, IsNotNormalisedBeforeItsListRowIsMade) {
  CPPhJasaKonstruksi form;
  begin(form, "N1", 1);
  form.pUpdD113203();
  EXPECT_THAT(messages.texts(), ElementsAre(invalidUseOfNull));
  EXPECT_THAT(store.listed("DJasaKonstruksi"), IsEmpty());
  form.pUpdate();
  EXPECT_THAT(store.forms("FJasaKonstruksi"),
              ElementsAre("N1|" + std::string(packedStart) + "05/02/2009;N1;1;0;0;;;;;;"));
}

// A delete makes no list row, so the form is normalised in time.
TEST_F(ConstructionForm, IsNormalisedBeforeADeleteMovesItsList) {
  addThreePairs();
  CPPhJasaKonstruksi form;
  create(form, "N2");
  load(form, "N2", 0);
  form.ajmlBruto1(400);
  form.aPPH1(20);
  form.pAssignStatus(false, false, true);
  form.pUpdD113203();
  EXPECT_EQ(store.listSums("DJasaKonstruksi"), "7600;330");
  EXPECT_TRUE(messages.empty());
}

// The sums that the list causes come too late for the packed text.
TEST_F(ConstructionForm, IsStoredWithoutSumsIfNobodyNormalisedIt) {
  CPPhJasaKonstruksi form;
  begin(form, "N1", 1);
  put(form, threePairs);
  form.pUpdate();
  EXPECT_THAT(store.forms("FJasaKonstruksi"),
              ElementsAre("N1|" + std::string(packedStart) + "05/02/2009;N1;1;1000;40;2000;60;5000;250;;"));
  EXPECT_EQ(store.listSums("DJasaKonstruksi"), "8000;350");
}

// Pair after pair, tax before gross: behind a gross of the second pair that is no number, all that was read is the
// first pair and the second tax.
TEST_F(ConstructionForm, ReadsItsOldValuesPairByPairTaxFirst) {
  addThreePairs();
  store.run(
      "UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'f;n;a;1;2009;0;05/02/2009;N1;1;1000;40;dua;60;5000;250;350;8000' "
      "WHERE NOBUKTI = 'N1'");
  CPPhJasaKonstruksi form;
  beginEdit(form, "N1", 1);
  EXPECT_THAT(messages.texts(), ElementsAre(typeMismatch));
  put(form, threePairs);
  save(form);
  EXPECT_EQ(store.ofReturn({"B6a23", "B6a25", "B6b23", "B6b25", "B6c23", "B6c25"}), "1000;40;4000;60;10000;500");
}

// No line is moved by the old sum of taxes. Still it is read before SEQ, and one that is no number hides it.
TEST_F(ConstructionForm, LosesItsOldSeqBehindASumThatIsNoNumber) {
  addThreePairs();
  store.run(
      "UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'f;n;a;1;2009;0;05/02/2009;N1;1;1000;40;2000;60;5000;250;tiga;8000' "
      "WHERE NOBUKTI = 'N1'");
  CPPhJasaKonstruksi form;
  beginEdit(form, "N1", 1);
  EXPECT_THAT(messages.texts(), ElementsAre(typeMismatch));
  save(form);
  EXPECT_THAT(store.forms("FJasaKonstruksi"), SizeIs(2));
  EXPECT_EQ(store.listSums("DJasaKonstruksi"), "8000;350");
}

}  // namespace
}  // namespace tarvola::test
