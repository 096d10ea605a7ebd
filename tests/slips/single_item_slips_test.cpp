#include <memory>

#include "tarvola/slips/CF113312.h"
#include "tarvola/slips/CF113319.h"
#include "tarvola/slips/CF113320.h"
#include "tarvola/slips/CF113321.h"
#include "tarvola/slips/make_slip.h"
#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

constexpr std::string_view number = "000001/PPH4";

/// What the four slips differ in.
struct SingleForm {
  const char* kdForm;
  const char* jenisDokumen;
  std::string_view gross;
  std::string_view tariff;
  std::string_view tax;
  const char* defaultTariff;
  const char* stubTail;
  const char* locationInRow;
};

const std::vector<SingleForm> singleForms = {{"F113312", "05", "B5a3", "B5a4", "B5a5", "10", ";1", "Jakarta;"},
                                             {"F113319", "15", "B83", "B84", "B85", "10", "", ""},
                                             {"F113320", "16", "B93", "B94", "B95", "2,5", "", ""},
                                             {"F113321", "17", "B103", "B104", "B105", "10", "", ""}};

class SingleItemSlips : public testing::TestWithParam<SingleForm> {
 protected:
  std::unique_ptr<slips::SingleItemSlip> make() const {
    auto slip = slips::makeSlip(GetParam().kdForm);
    return std::unique_ptr<slips::SingleItemSlip>(dynamic_cast<slips::SingleItemSlip*>(slip.release()));
  }
  void add(std::string_view slipNumber, double gross, double tariff) const {
    const auto slip = make();
    startSlip(*slip, slipNumber);
    slip->aTarif(tariff);
    slip->ajmlBruto(gross);
    save(*slip);
  }
  std::string column(std::string_view name) const {
    return store.row("SELECT " + std::string(name) + " FROM DS_FORM_INDUK WHERE KD_FORM = '" + GetParam().kdForm + "'");
  }
  std::string line() const { return store.ofReturn({GetParam().gross, GetParam().tariff, GetParam().tax, "C3"}); }

  SlipStore store;
  CapturedMessages messages;
};

INSTANTIATE_TEST_SUITE_P(EveryForm, SingleItemSlips, testing::ValuesIn(singleForms),
                         [](const auto& form) { return std::string(form.param.kdForm); });

TEST_P(SingleItemSlips, StartFromAStubWithoutTheirNumber) {
  const auto slip = make();
  startSlip(*slip, number);
  EXPECT_EQ(column("DAT_FORM"), "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009" +
                                    std::string(GetParam().stubTail));
  EXPECT_EQ(column("JENIS_DOKUMEN"), GetParam().jenisDokumen);
}

TEST_P(SingleItemSlips, ComputeTheTaxWithTheProductFirst) {
  const auto slip = make();
  startSlip(*slip, number);
  slip->aTarif(7);
  slip->ajmlBruto(3);
  EXPECT_EQ(store::fieldNumber(slip->rs4_2Form(), "PPHDIPTG"), 3 * 7.0 / 100);
  slip->aTarif(2.5);
  EXPECT_EQ(fieldsOf(*slip, {"PPHDIPTG"}), "0,075");
  slip->aPPhDiptg(9);
  EXPECT_EQ(fieldsOf(*slip, {"JMLBRUTO", "Tarif", "PPHDIPTG"}), "3;2,5;9");
}

TEST_P(SingleItemSlips, HaveANullTaxUntilTheyAreNormalised) {
  const auto slip = make();
  startSlip(*slip, number);
  slip->ajmlBruto(1000.9);
  EXPECT_EQ(fieldsOf(*slip, {"JMLBRUTO", "PPHDIPTG"}), "1000,9;-null-");
  slip->pHitPjk(1);
  EXPECT_EQ(fieldsOf(*slip, {"JMLBRUTO", "Tarif", "PPHDIPTG"}), "1000;0;0");
}

// The tariff first: a text in the gross leaves the tax as it was, but not the tariff.
TEST_P(SingleItemSlips, AreNormalisedTariffFirst) {
  const auto slip = make();
  startSlip(*slip, number);
  const std::string location = GetParam().locationInRow;
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;05/01/2009;000001/PPH4;p;q;r;" + location +
            "satu;;1,5' WHERE NOBUKTI = '000001/PPH4'");
  slip->loadSlip(january, number);
  slip->pHitPjk(1);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Type mismatch"});
  EXPECT_EQ(fieldsOf(*slip, {"Tarif", "JMLBRUTO", "PPHDIPTG"}), "0;satu;1,5");
}

TEST_P(SingleItemSlips, TakeTheirDefaultTariff) {
  const auto slip = make();
  startSlip(*slip, number);
  slip->getTaxRate();
  EXPECT_EQ(fieldsOf(*slip, {"Tarif"}), GetParam().defaultTariff);
  store.run("DELETE * FROM SETTING_TARIF_PPH");
  slip->getTaxRate();
  EXPECT_EQ(fieldsOf(*slip, {"Tarif"}), "0");
}

TEST_P(SingleItemSlips, WriteEveryFieldInItsPlace) {
  const auto slip = make();
  startSlip(*slip, number);
  slip->aLokasi("Jakarta");
  slip->aNMUSER("Siti");
  slip->aINVOICE("INV-1");
  slip->aTarif(12.5);
  slip->ajmlBruto(1000.5);
  save(*slip);
  const std::string behind = *GetParam().locationInRow ? ";INV-1;Siti" : ";INV-1;Siti;Jakarta";
  EXPECT_EQ(column("DAT_FORM"),
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009;000001/PPH4;"
            "021832415000000;Ani;Bandung;" +
                std::string(GetParam().locationInRow) + "1000;12,5;125" + behind);
  EXPECT_EQ(column("Total_Bruto, Total_PPh, Total_Bruto1, Total_PPh1"), "1000|125|0|0");
  EXPECT_EQ(store.listSums(), "1000;125");
  EXPECT_EQ(line(), "1000;12,5;125;1");
  slip->loadSlip(january, number);
  EXPECT_EQ(fieldsOf(*slip, {"Lokasi", "NMUSER", "INVOICE", "JMLBRUTO"}), "Jakarta;Siti;INV-1;1000");
  EXPECT_TRUE(messages.empty());
}

TEST_P(SingleItemSlips, MoveListAndReturnByTheDifference) {
  add(number, 1000, 10);
  add("000002/PPH4", 3000, 10);
  const auto slip = make();
  startEdit(*slip, number);
  slip->aTarif(20);
  slip->ajmlBruto(600);
  save(*slip);
  EXPECT_EQ(store.listSums(), "3600;420");
  EXPECT_EQ(line(), "3600;11,66;420;2");
}

// The row is looked for under its own filer: a slip that names another one is added beside the stored one.
TEST_P(SingleItemSlips, LookForTheirOwnFilerWhenTheyAreSaved) {
  add(number, 1000, 10);
  const auto slip = make();
  startEdit(*slip, number);
  slip->aNPWP("another");
  save(*slip);
  EXPECT_EQ(store.rows("SELECT NPWP FROM DS_FORM_INDUK WHERE NOBUKTI = '000001/PPH4' ORDER BY NPWP"),
            (std::vector<std::string>{"013121660091000", "another"}));
}

// A second collection is written by nobody but a direct call; a delete clears it of the slip all the same.
TEST_P(SingleItemSlips, ClearBothCollectionsWhenTheyAreDeleted) {
  add(number, 1000, 10);
  CD113206 list;
  list.pCreateD113206Hdr(1, 2009, 0, 1, number, "", "", "", "", 1, 1);
  list.pCreateD113206Hdr(1, 2009, 0, 1, "000002/PPH4", "", "", "", "", 1, 1);
  make()->removeSlip(filerNpwp, january, number);
  EXPECT_EQ(store.rows("SELECT COLLNO, NOBUKTI FROM DS_FORM_LAMPIRAN"), std::vector<std::string>{"1|000002/PPH4"});
  EXPECT_EQ(line(), std::string("0;") + GetParam().defaultTariff + ";0;0");
  EXPECT_TRUE(messages.empty());
}

TEST_P(SingleItemSlips, ReadAndWriteTheirTexts) {
  const auto slip = make();
  startSlip(*slip, number);
  slip->aNPWP("1");
  slip->aNMWP("2");
  slip->aALM("3");
  slip->aNPWPLT("4");
  slip->aNMWPLT("5");
  slip->aALMLT("6");
  slip->aLokasi("7");
  slip->aNMUSER("8");
  slip->aTGL_POTONG("09/01/2009");
  EXPECT_EQ(fieldsOf(*slip, {"npwp", "NmWP", "ALM", "NPWPLT", "NMWPLT", "ALMLT", "Lokasi", "NMUSER", "Tgl_Potong"}),
            "1;2;3;4;5;6;7;8;09/01/2009");
  EXPECT_EQ(slip->aNPWP(), Variant("1"));
  EXPECT_EQ(slip->aNMWP(), Variant("2"));
  EXPECT_EQ(slip->aALM(), "3");
  EXPECT_EQ(slip->aNPWPLT(), Variant("4"));
  EXPECT_EQ(slip->aNMWPLT(), Variant("5"));
  EXPECT_EQ(slip->aALMT(), "6");
  EXPECT_EQ(slip->aLokasi(), Variant("7"));
  EXPECT_EQ(slip->aNMUSER(), Variant("8"));
  EXPECT_EQ(slip->aTGL_POTONG(), Variant("09/01/2009"));
  EXPECT_TRUE(messages.empty());
}

// --- the points in which the four differ ---------------------------------------------------------------------

TEST_P(SingleItemSlips, ProposeANumberFromTheFormsThatTheyScan) {
  CF113319 other;
  startSlip(other, "000007");
  const bool scansSixForms = std::string_view(GetParam().kdForm) == "F113312";
  EXPECT_EQ(make()->getNoBuktiHdr(2009, 0), scansSixForms ? "000001" : "000008");
}

TEST_P(SingleItemSlips, FindADuplicateOfAnotherFilerUnlessTheyAreDividends) {
  CF113319 other;
  startSlip(other, number);
  const bool asksForFiler = std::string_view(GetParam().kdForm) == "F113321";
  EXPECT_EQ(make()->pCheckNoBukti("another", 2009, number, 0)->get_RecordCount(), asksForFiler ? 0 : 1);
  EXPECT_EQ(make()->pCheckNoBukti(filerNpwp, 2009, number, 0)->get_RecordCount(), 1);
}

// The date of a rent slip passes through a date; that of the others reaches the list as it stands.
TEST_P(SingleItemSlips, HandTheirDateToTheList) {
  const auto slip = make();
  startSlip(*slip, number);
  slip->aTGL_POTONG("5 Jan 2009");
  save(*slip);
  const bool passesThroughADate = std::string_view(GetParam().kdForm) == "F113312";
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"),
            std::string("1;2009;1;021832415000000;Bandung;Ani;000001/PPH4;") +
                (passesThroughADate ? "05/01/2009" : "5 Jan 2009") + ";0;0");
  EXPECT_TRUE(messages.empty());
}

class RentSlip : public testing::Test {
 protected:
  SlipStore store;
  CapturedMessages messages;
  CF113312 slip;
};

TEST_F(RentSlip, HoldsTheKindOfAgentWhereItsNumberBelongs) {
  slip.pCreateF113312Hdr(filerNpwp, "F113312", "05", 1, 2009, 0, number, "113", 2, filerName, filerAddress,
                         Date::fromYmd(2009, 1, 5));
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'F113312'"),
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009;2");
  EXPECT_EQ(CD113206().pGetOptWP("", number, 1, "F113312", 2009, 0), 2);
  slip.pGetF113312("", "F113312", "05", 1, 2009, 0, number, "113", "", "", Date());
  EXPECT_EQ(fieldsOf(slip, {"NoBukti"}), "2");
  slip.pDeleteF113312(filerNpwp, "F113312", "05", 1, 2009, 0, number, "113");
  EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'F113312'"), "none");
  EXPECT_TRUE(messages.empty());
}

TEST_F(RentSlip, WithADateThatIsNoneHasNoListRow) {
  startSlip(slip, number);
  slip.aTGL_POTONG("awal Januari");
  slip.ajmlBruto(1000);
  save(slip);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Type mismatch"});
  EXPECT_TRUE(store.listed().empty());
  EXPECT_EQ(store.ofReturn({"B5a3", "C3"}), "1000;1");
}

template <class Slip>
void makeLoadAndDelete(slips::CreateOperation Slip::*create, slips::LoadOperation Slip::*load,
                       slips::DeleteOperation Slip::*remove, const char* form, const char* document) {
  SlipStore store;
  CapturedMessages messages;
  Slip slip;
  (slip.*create)(filerNpwp, form, document, 1, 2009, 0, number, "113", filerName, filerAddress, "05/01/2009");
  (slip.*load)("", form, document, 1, 2009, 0, number, "113", "", "", Date());
  EXPECT_EQ(fieldsOf(slip, {"npwp", "Tgl_Potong", "NoBukti"}), "013121660091000;05/01/2009;-null-");
  (slip.*remove)(filerNpwp, form, document, 1, 2009, 0, number, "113");
  EXPECT_EQ(store.row("SELECT * FROM DS_FORM_INDUK WHERE NOBUKTI = '000001/PPH4'"), "none");
  EXPECT_TRUE(messages.empty());
}

TEST(SingleItemOperations, BearTheNumberOfTheirForm) {
  makeLoadAndDelete(&CF113319::pCreateF113319Hdr, &CF113319::pGetF113319, &CF113319::pDeleteF113319, "F113319", "15");
  makeLoadAndDelete(&CF113320::pCreateF113320Hdr, &CF113320::pGetF113320, &CF113320::pDeleteF113320, "F113320", "16");
  makeLoadAndDelete(&CF113321::pCreateF113321Hdr, &CF113321::pGetF113321, &CF113321::pDeleteF113321, "F113321", "17");
}

}  // namespace
}  // namespace tarvola::test
