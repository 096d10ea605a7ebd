#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/module_state.h"
#include "tests/mainreturn/return_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace tarvola::test {
namespace {

constexpr const char* filer = "013121660091000";
const std::string packedHead = "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;3;2009;0";

class ReturnHeaders : public ReturnTest {
 protected:
  struct Call {
    std::string_view form = "F113204";
    std::string_view document = "01";
    std::string_view taxKind = "113";
    std::string_view name = "PT Contoh Sejahtera";
    std::string_view address = "Jl. Merdeka No. 1";
  };
  static void create(const Call& call) {
    CF113204 mainReturn;
    mainReturn.pCreateF113204Hdr(filer, call.form, call.document, 3, 2009, 0, "000009", call.taxKind, call.name,
                                 call.address, "10/04/2009");
  }
  /// A column in the order in which the rows were inserted. All columns are asked for, since a few of them would come
  /// from an index in its own order.
  std::vector<std::string> inserted(const std::string& table, const std::string& name) {
    std::vector<std::string> texts;
    for (const RecordsetPtr rows = query("SELECT * FROM " + table); !rows->get_EOF(); rows->MoveNext())
      texts.push_back(store::fieldText(rows, name));
    return texts;
  }
  std::vector<std::string> slipTableForms() { return inserted("DS_FORM_INDUK", "KD_FORM"); }
  std::vector<std::string> selfPaidForms() { return inserted("DAT_SSP_PPh22", "KD_FORM"); }
};

TEST_F(ReturnHeaders, AreSixDocumentsInTheOrderInWhichTheyAreMade) {
  makeReturn();
  EXPECT_THAT(slipTableForms(), ElementsAre("F113204", "D113210", "D113206"));
  EXPECT_THAT(selfPaidForms(), ElementsAre("DSewaTnhBgn", "DJasaKonstruksi", "DAlihTnhBgn"));
  EXPECT_THAT(inserted("DS_FORM_INDUK", "JENIS_DOKUMEN"), ElementsAre("01", "20", "08"));
  EXPECT_THAT(inserted("DAT_SSP_PPh22", "JENIS_DOKUMEN"), ElementsAre("11", "13", "18"));
}

TEST_F(ReturnHeaders, StartWithZeroInEveryNumberAndTodayAsTheDateOfTheReturn) {
  makeReturn();
  const std::string ten = "0;0;0;0;0;0;0;0;0;0;";
  EXPECT_EQ(packedText("F113204"), packedHead + ";0;0;0;0;" + ten + ten + ten + ten + ten + "0;0;0;0;0;0;;0;0;0;" +
                                       ";0;0;0;;0;0;0;0;0;" + "0;0;0;0;0;0;0;" + "15/04/2009");
  EXPECT_EQ(packedText("D113210"), packedHead + ";0;0;0;0;0;0;0;0;0;0;0;0;0;0;0");
  EXPECT_EQ(packedText("D113206"), packedHead + ";0;0;0;0");
  for (const char* list : {"DSewaTnhBgn", "DJasaKonstruksi", "DAlihTnhBgn"})
    EXPECT_EQ(packedText(list), packedHead + ";0;0") << list;
}

TEST_F(ReturnHeaders, OfANewReturnHaveEightyEightFieldsInTheMainForm) {
  makeReturn();
  const std::string packed = packedText("F113204");
  EXPECT_EQ(std::count(packed.begin(), packed.end(), ';'), 87);
}

TEST_F(ReturnHeaders, HoldTheGivenDateTwiceTheHeaderNumberAndNoOfficer) {
  makeReturn();
  for (const char* table : {"DS_FORM_INDUK", "DAT_SSP_PPh22"}) {
    const RecordsetPtr rows = query("SELECT * FROM " + std::string(table));
    ASSERT_EQ(rows->get_RecordCount(), 3);
    for (; !rows->get_EOF(); rows->MoveNext()) {
      EXPECT_EQ(store::fieldText(rows, "NPWP"), filer);
      EXPECT_EQ(store::fieldText(rows, "NOBUKTI"), "-");
      EXPECT_EQ(store::fieldText(rows, "KD_JENIS_PAJAK"), "113");
      EXPECT_EQ(store::fieldText(rows, "TGL_REKAM"), "10/04/2009");
      EXPECT_EQ(store::fieldText(rows, "TGL_UBAH"), "10/04/2009");
      EXPECT_EQ(store::fieldText(rows, "NIP"), "");
    }
  }
  EXPECT_THAT(column("SELECT FlagNPWP FROM DS_FORM_INDUK"), ElementsAre("0", "0", "0"));
}

TEST_F(ReturnHeaders, MadeTwiceAreStillOneRowOfEach) {
  makeReturn();
  makeReturn();
  EXPECT_THAT(slipTableForms(), ElementsAre("F113204", "D113210", "D113206"));
  EXPECT_THAT(selfPaidForms(), ElementsAre("DSewaTnhBgn", "DJasaKonstruksi", "DAlihTnhBgn"));
}

TEST_F(ReturnHeaders, MadeAgainKeepMainFormAndInterestListAndReplaceTheOthers) {
  makeReturn();
  run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'old'");
  run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'old'");
  makeReturn();
  EXPECT_EQ(packedText("F113204"), "old");
  EXPECT_EQ(packedText("D113210"), "old");
  for (const char* list : {"D113206", "DSewaTnhBgn", "DJasaKonstruksi", "DAlihTnhBgn"})
    EXPECT_THAT(packedText(list), testing::StartsWith(packedHead)) << list;
}

TEST_F(ReturnHeaders, MadeAgainReplaceOnlyTheFirstOfTwoRows) {
  makeReturn();
  run("INSERT INTO DAT_SSP_PPh22 VALUES ('013121660091000','DSewaTnhBgn','11',3,2009,0,'-','113','second','','','')");
  makeReturn();
  EXPECT_THAT(column("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE KD_FORM = 'DSewaTnhBgn'"),
              testing::UnorderedElementsAre("second", packedHead + ";0;0"));
}

TEST_F(ReturnHeaders, OfACorrectionStartWithZeroAmountsAsWell) {
  makeReturn();
  run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'amounts of the first filing'");
  makeReturn(1);
  EXPECT_THAT(packedText("F113204", 1), testing::StartsWith("013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;"
                                                            "3;2009;1;0;0;0;"));
  EXPECT_EQ(packedText("F113204", 0), "amounts of the first filing");
}

TEST_F(ReturnHeaders, AreLookedForByTheCallersTaxKindWhileFourOfThemAreMadeAs113) {
  create({.taxKind = "114"});
  EXPECT_THAT(inserted("DS_FORM_INDUK", "KD_JENIS_PAJAK"), ElementsAre("114", "114", "113"));
  EXPECT_THAT(inserted("DAT_SSP_PPh22", "KD_JENIS_PAJAK"), ElementsAre("113", "113", "113"));
  // So that a second call under another kind does not find the four, and they stand twice.
  create({.taxKind = "114"});
  EXPECT_THAT(slipTableForms(), ElementsAre("F113204", "D113210", "D113206", "D113206"));
  EXPECT_THAT(selfPaidForms(), SizeIs(6));
}

TEST_F(ReturnHeaders, LookForTheCallersFormButMakeTheMainForm) {
  makeReturn();
  create({.form = "D113210", .document = "20"});
  EXPECT_THAT(slipTableForms(), ElementsAre("F113204", "D113210", "D113206"));
  create({.form = "F113203"});
  EXPECT_THAT(slipTableForms(), ElementsAre("F113204", "D113210", "F113204", "D113206"));
}

TEST_F(ReturnHeaders, TakeTheCallersDocumentCodeForTheMainFormAlone) {
  create({.document = "99"});
  EXPECT_THAT(inserted("DS_FORM_INDUK", "JENIS_DOKUMEN"), ElementsAre("99", "20", "08"));
}

TEST_F(ReturnHeaders, StopAtTheStepThatFailsAndAreCompletedByASecondCall) {
  makeReturn();
  run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'");
  // The apostrophe fails the first INSERT. Main form and interest list exist, so that it is the rent list, whose old
  // row is gone by then; nothing behind it is reached.
  create({.name = "Toko Ma'mur"});
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("Syntax error")));
  EXPECT_THAT(slipTableForms(), ElementsAre("F113204", "D113210"));
  EXPECT_THAT(selfPaidForms(), ElementsAre("DJasaKonstruksi", "DAlihTnhBgn"));

  messages_.clear();
  makeReturn();
  EXPECT_THAT(slipTableForms(), ElementsAre("F113204", "D113210", "D113206"));
  EXPECT_THAT(selfPaidForms(), ElementsAre("DSewaTnhBgn", "DJasaKonstruksi", "DAlihTnhBgn"));
}

TEST_F(ReturnHeaders, StopAtTheInterestListBeforeTheSelfPaidLists) {
  makeReturn();
  run("DELETE * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113210'");
  create({.name = "Toko Ma'mur"});
  EXPECT_THAT(slipTableForms(), ElementsAre("F113204", "D113206"));
  EXPECT_THAT(selfPaidForms(), ElementsAre("DSewaTnhBgn", "DJasaKonstruksi", "DAlihTnhBgn"));
}

TEST_F(ReturnHeaders, WithASemicolonInTheNameAreNotMadeAtAll) {
  makeReturn();
  create({.name = "PT A;B"});
  EXPECT_THAT(messages_.texts(), SizeIs(1));
  EXPECT_THAT(slipTableForms(), SizeIs(3));
  EXPECT_THAT(selfPaidForms(), SizeIs(3));
  for (const char* list : {"DSewaTnhBgn", "DJasaKonstruksi", "DAlihTnhBgn"})
    EXPECT_EQ(packedText(list), packedHead + ";0;0") << list;
}

TEST_F(ReturnHeaders, WithAnApostropheInTheNumberOfTheFilerFailTheSearch) {
  CF113204 mainReturn;
  mainReturn.pCreateF113204Hdr("01'31", "F113204", "01", 3, 2009, 0, "-", "113", "PT A", "Jl. B", "10/04/2009");
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("Syntax error")));
  EXPECT_THAT(slipTableForms(), IsEmpty());
}

// --- loading and saving -----------------------------------------------------------------------------------

class ReturnRecord : public ReturnTest {};

TEST_F(ReturnRecord, IsLoadedWithItsRawRowAndItsNamedFields) {
  makeReturn();
  CF113204 mainReturn;
  load(mainReturn);
  EXPECT_EQ(mainReturn.rs4_2Hdr()->get_RecordCount(), 1);
  EXPECT_EQ(store::fieldText(mainReturn.rs4_2Hdr(), "KD_FORM"), "F113204");
  EXPECT_EQ(mainReturn.aNPWP(), filer);
  EXPECT_EQ(number(mainReturn, "TH_PAJAK"), 2009);
  EXPECT_TRUE(value(mainReturn, "CHKC5").isNull()) << "a fresh row has no later fields";
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnRecord, IsLoadedWhateverFilerFormAndNumberTheCallerNames) {
  makeReturn();
  CF113204 mainReturn;
  mainReturn.pGetF113204("99", "X", "01", 3, 2009, 0, "000001", "113");
  EXPECT_EQ(mainReturn.aNPWP(), filer);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnRecord, IsFoundByDocumentPeriodCorrectionAndTaxKind) {
  makeReturn();
  const auto isFound = [&](std::string_view document, std::int16_t month, std::int16_t year, std::int16_t correction,
                           std::string_view taxKind) {
    CF113204 mainReturn;
    mainReturn.pGetF113204("", "", document, month, year, correction, "", taxKind);
    return mainReturn.rs4_2Hdr()->get_RecordCount() == 1;
  };
  EXPECT_TRUE(isFound("01", 3, 2009, 0, "113"));
  EXPECT_FALSE(isFound("02", 3, 2009, 0, "113"));
  EXPECT_FALSE(isFound("01", 4, 2009, 0, "113"));
  EXPECT_FALSE(isFound("01", 3, 2010, 0, "113"));
  EXPECT_FALSE(isFound("01", 3, 2009, 1, "113"));
  EXPECT_FALSE(isFound("01", 3, 2009, 0, "114"));
}

TEST_F(ReturnRecord, ThatIsMissingShowsTheMessageOfTheMoveAndLeavesTheObjectUnusable) {
  CF113204 mainReturn;
  load(mainReturn);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::NoCurrentRecord)));
  // The move comes last: raw row and named fields are there by then, and both are empty.
  EXPECT_EQ(mainReturn.rs4_2Hdr()->get_RecordCount(), 0);
  EXPECT_EQ(mainReturn.rs4_2Form()->get_RecordCount(), 0);
  messages_.clear();
  mainReturn.aB33(5);
  EXPECT_EQ(mainReturn.aB33(), 0);
  mainReturn.pHitPjk3204(1);
  mainReturn.pUpdF113204(3, 2009, 0);
  mainReturn.pUpdate();
  EXPECT_THAT(messages_.texts(), SizeIs(5));
  EXPECT_THAT(column("SELECT KD_FORM FROM DS_FORM_INDUK"), IsEmpty());
}

TEST_F(ReturnRecord, CannotBeSavedOverTheLastOneWhenTheNextLoadFails) {
  makeReturn();
  CF113204 mainReturn;
  load(mainReturn);
  mainReturn.aB33(5);
  mainReturn.pGetF113204("", "", "0'1", 3, 2009, 0, "", "113");
  EXPECT_EQ(mainReturn.rs4_2Hdr()->get_State(), adStateClosed);
  const std::string before = packedText("F113204");
  mainReturn.pUpdate();
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("Syntax error"), description(ErrorNumber::ObjectClosed)));
  EXPECT_EQ(packedText("F113204"), before);
}

TEST_F(ReturnRecord, HoldsAWrittenPropertyInMemoryUntilItIsSaved) {
  makeReturn();
  const std::string before = packedText("F113204");
  CF113204 mainReturn;
  load(mainReturn);
  mainReturn.aB33(1500000);
  EXPECT_EQ(mainReturn.aB33(), 1500000);
  EXPECT_EQ(packedText("F113204"), before);
  mainReturn.pUpdate();
  EXPECT_THAT(packedText("F113204"), HasSubstr(";1500000;"));
  CF113204 again;
  load(again);
  EXPECT_EQ(again.aB33(), 1500000);
}

TEST_F(ReturnRecord, SavedChangesThePackedTextAndNothingElseOfItsRow) {
  makeReturn();
  const std::string rest =
      "SELECT NPWP + KD_FORM + JENIS_DOKUMEN + NOBUKTI + KD_JENIS_PAJAK + TGL_REKAM + TGL_UBAH + NIP "
      "FROM DS_FORM_INDUK WHERE KD_FORM = 'F113204'";
  const auto before = column(rest);
  CF113204 mainReturn;
  load(mainReturn);
  mainReturn.aB33(1);
  mainReturn.pUpdate();
  EXPECT_EQ(column(rest), before);
  EXPECT_THAT(column("SELECT TGL_UBAH FROM DS_FORM_INDUK WHERE KD_FORM = 'F113204'"), ElementsAre("10/04/2009"));
  EXPECT_THAT(column("SELECT FlagNPWP FROM DS_FORM_INDUK WHERE KD_FORM = 'F113204'"), ElementsAre("0"));
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnRecord, HasAHundredAndSevenFieldsOnceItIsSaved) {
  makeReturn();
  CF113204 mainReturn;
  load(mainReturn);
  mainReturn.pUpdate();
  const std::string packed = packedText("F113204");
  EXPECT_EQ(std::count(packed.begin(), packed.end(), ';'), 106);
}

TEST_F(ReturnRecord, CanBeChangedAndSavedAgainAfterASave) {
  makeReturn();
  CF113204 mainReturn;
  load(mainReturn);
  mainReturn.aB33(1);
  mainReturn.pUpdate();
  mainReturn.aB33(2);
  mainReturn.pUpdate();
  CF113204 again;
  load(again);
  EXPECT_EQ(again.aB33(), 2);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnRecord, GivesItsMarkAsZeroWhereItIsNullAndSavesTheZero) {
  makeReturn();
  putPosition("CHKC1", "");
  CF113204 mainReturn;
  load(mainReturn);
  ASSERT_TRUE(value(mainReturn, "CHKC1").isNull());
  EXPECT_EQ(mainReturn.aCHKC1(), 0);
  EXPECT_EQ(value(mainReturn, "CHKC1"), Variant(std::int16_t{0}));
  mainReturn.pUpdate();
  CF113204 again;
  load(again);
  EXPECT_FALSE(value(again, "CHKC1").isNull());
}

TEST_F(ReturnRecord, OfAnotherKindIsLoadedByNumberAndCorrection) {
  makeReturn();
  makeReturn(1);
  CF113204 mainReturn;
  mainReturn.pGetBukti("not read", "-", "1");
  EXPECT_EQ(mainReturn.rs4_2Hdr()->get_RecordCount(), 1);
  EXPECT_EQ(number(mainReturn, "KD_PEMBETULAN_KE"), 1);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnRecord, ThatIsMissingByNumberIsNoFailure) {
  makeReturn();
  CF113204 mainReturn;
  mainReturn.pGetBukti("", "000001", "0");
  EXPECT_EQ(mainReturn.rs4_2Hdr()->get_RecordCount(), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnRecord, IsNotLoadedByACorrectionThatIsNoNumber) {
  makeReturn();
  CF113204 mainReturn;
  mainReturn.pGetBukti("", "-", "0 OR 1=1");
  EXPECT_EQ(mainReturn.rs4_2Hdr()->get_State(), adStateClosed);
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("Syntax error")));
}

TEST_F(ReturnRecord, IsNotRemovedByTheDeleteThatNamesATableOfOlderStores) {
  makeReturn();
  CF113204 mainReturn;
  mainReturn.pDelete("113204", 3, 2009, 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("DAT_FORM")));
  messages_.clear();
  // The name stands without quotes, so that only a number enters the statement.
  mainReturn.pDelete("F113204", 3, 2009, 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(HasSubstr("Syntax error")));
  EXPECT_THAT(column("SELECT KD_FORM FROM DS_FORM_INDUK"), SizeIs(3));
}

// --- the object ---------------------------------------------------------------------------------------------

class ReturnObject : public ReturnTest {};

TEST_F(ReturnObject, MadeBeforeTheSettingsShowsAMessageAndLivesOn) {
  moduleState() = {};
  CF113204 mainReturn;
  EXPECT_THAT(messages_.texts(), SizeIs(1));
  messages_.clear();
  load(mainReturn);
  EXPECT_THAT(messages_.texts(), SizeIs(1));
  messages_.clear();
  EXPECT_EQ(mainReturn.aJumlahBP("", 0, 3, 2009), 0);
  EXPECT_EQ(mainReturn.pGetDefaultTaxRate(4, "B14", "F113309"), 0);
  EXPECT_THAT(messages_.texts(), SizeIs(2));
}

TEST_F(ReturnObject, BeforeALoadAnswersEveryPropertyWithAMessage) {
  CF113204 mainReturn;
  EXPECT_EQ(mainReturn.aB33(), 0);
  EXPECT_EQ(mainReturn.aNPWP(), "");
  EXPECT_EQ(mainReturn.aCHKC1(), 0);
  EXPECT_TRUE(mainReturn.aTGL_LAPOR().isEmpty());
  mainReturn.aB33(1);
  const std::string text = description(ErrorNumber::ObjectVariableNotSet);
  EXPECT_THAT(messages_.texts(), ElementsAre(text, text, text, text, text));
  EXPECT_EQ(messages_.boxes().front().title, "");
}

TEST_F(ReturnObject, OffersItsRawRowAsThePrimaryDataMember) {
  makeReturn();
  CF113204 mainReturn;
  load(mainReturn);
  EXPECT_EQ(mainReturn.dataMember("Primary"), mainReturn.rs4_2Hdr());
  EXPECT_EQ(mainReturn.dataMember("Fourth"), nullptr);
  EXPECT_EQ(mainReturn.dataMember(""), nullptr);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnObject, HasNoChildRowsOfItsOwnForTheOtherDataMembers) {
  makeReturn();
  CF113204 mainReturn;
  load(mainReturn);
  EXPECT_EQ(mainReturn.dataMember("Secondary"), nullptr);
  EXPECT_EQ(mainReturn.dataMember("Ternary"), nullptr);
  EXPECT_THAT(messages_.texts(), SizeIs(2));
}

TEST_F(ReturnObject, OffersTheChildRowsOfARawRowThatIsSetFromOutside) {
  makeReturn();
  const auto rows = [&](std::string_view chapter) {
    const RecordsetPtr shaped = Recordset::create();
    shaped->Open(
        "SHAPE {SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'} APPEND ({SELECT * FROM "
        "DS_FORM_LAMPIRAN} AS " +
            std::string(chapter) + " RELATE KD_FORM TO KD_FORM) AS " + std::string(chapter),
        connection_, adOpenStatic, adLockOptimistic, adCmdText);
    return shaped;
  };
  run("INSERT INTO DS_FORM_LAMPIRAN VALUES ('D113206',3,2009,0,0,1,'000001','text')");
  CF113204 mainReturn;
  mainReturn.rs4_2Hdr(rows("d2126Details1"));
  ASSERT_NE(mainReturn.dataMember("Secondary"), nullptr);
  EXPECT_EQ(mainReturn.dataMember("Secondary")->get_RecordCount(), 1);
  mainReturn.rs4_2Hdr(rows("d2126Details2"));
  ASSERT_NE(mainReturn.dataMember("Ternary"), nullptr);
  EXPECT_EQ(mainReturn.dataMember("Ternary")->get_RecordCount(), 1);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnObject, PassesOnTheMovesOfItsRawRowAndOfNoOther) {
  makeReturn();
  CF113204 mainReturn;
  load(mainReturn);
  const RecordsetPtr first = mainReturn.rs4_2Hdr();
  int moves = 0;
  mainReturn.MoveComplete.connect([&moves] { ++moves; });
  first->MoveFirst();
  EXPECT_EQ(moves, 1);

  load(mainReturn);
  const int movesOfLoad = moves - 1;
  EXPECT_GT(movesOfLoad, 0);
  first->MoveFirst();
  EXPECT_EQ(moves, 1 + movesOfLoad) << "the recordset of the load before is not heard any more";
}

TEST_F(ReturnObject, LeavesARawRowThatWasHandedOutUsable) {
  makeReturn();
  RecordsetPtr raw;
  int moves = 0;
  {
    CF113204 mainReturn;
    mainReturn.MoveComplete.connect([&moves] { ++moves; });
    load(mainReturn);
    raw = mainReturn.rs4_2Hdr();
  }
  const int movesBefore = moves;
  raw->MoveFirst();
  EXPECT_EQ(moves, movesBefore);
  EXPECT_EQ(store::fieldText(raw, "KD_FORM"), "F113204");
}

TEST_F(ReturnObject, WorksOnNamedFieldsThatAreSetFromOutside) {
  makeReturn();
  CF113204 one;
  load(one);
  CF113204 other;
  other.rs4_2Form(one.rs4_2Form());
  other.aB33(7);
  EXPECT_EQ(one.aB33(), 7);
}

}  // namespace
}  // namespace tarvola::test
