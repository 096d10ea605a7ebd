// The directory of returns: documents, corrections, slip numbers, partners, exchanges.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tarvola/ado/fields.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/field_access.h"
#include "tests/store/store_session.h"

namespace tarvola {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* filer = "013121660091000";

struct Document {
  std::string form;
  std::string code = "01";
  std::string kind = "113";
  std::string number = "-";
  int month = 1;
  int year = 2009;
  int correction = 0;
  std::string packed = "013121660091000;PT Contoh;Jakarta;1;2009;0";
};

class Directory : public testing::Test {
 protected:
  void add(const Document& document) {
    session.execute(
        "INSERT INTO DS_FORM_INDUK (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,"
        "KD_JENIS_PAJAK,DAT_FORM) VALUES ('013121660091000','" +
        document.form + "','" + document.code + "'," + std::to_string(document.month) + "," +
        std::to_string(document.year) + "," + std::to_string(document.correction) + ",'" + document.number + "','" +
        document.kind + "','" + document.packed + "')");
  }
  void name(const std::string& kind, const std::string& code, const std::string& text) {
    session.execute("INSERT INTO DS_REF_JENIS_PAJAK (KD_JENIS_PAJAK,KD_DOK_TRV,URAIAN) VALUES ('" + kind + "','" +
                    code + "','" + text + "')");
  }
  /// The list of a return, columns by "|".
  std::string list(std::string_view kind, std::int16_t month = 1, std::int16_t year = 2009,
                   std::int16_t correction = 0) {
    const RecordsetPtr rows = general.aGetList(filer, kind, month, year, correction);
    if (!rows) return "(nothing)";
    return rows->get_EOF() ? "" : rows->GetString(adClipString, -1, "|", "\n", "<null>");
  }
  void expectSyntaxError() {
    ASSERT_THAT(session.messages().boxes(), testing::SizeIs(1));
    EXPECT_THAT(session.messages().texts()[0], testing::HasSubstr("Syntax error"));
    EXPECT_EQ(session.messages().boxes()[0].title, "");
  }

  test::StoreSession session;
  CGeneralClass general;
};

// --- aGetList --------------------------------------------------------------------------------------------------

TEST_F(Directory, ListsAReturnInTheOrderOfFormCodeAndNumber) {
  session.execute("DELETE * FROM DS_REF_JENIS_PAJAK");
  name("113", "01", "Induk");
  name("113", "02", "Undian");
  name("113", "15", "Koperasi");
  add({.form = "F113319", .code = "15", .number = "000001/PPH4"});
  add({.form = "F113309", .code = "02", .number = "000003/PPH4"});
  add({.form = "F113309", .code = "02", .number = "000002/PPH4"});
  add({.form = "F113309", .code = "01", .number = "000009/PPH4"});
  add({.form = "F113204"});
  EXPECT_EQ(list("113"),
            "1|2009|0|Induk|F113204|01|-\n"
            "1|2009|0|Induk|F113309|01|000009/PPH4\n"
            "1|2009|0|Undian|F113309|02|000002/PPH4\n"
            "1|2009|0|Undian|F113309|02|000003/PPH4\n"
            "1|2009|0|Koperasi|F113319|15|000001/PPH4\n");
}

TEST_F(Directory, ListsOnlyThePeriodThatIsAskedFor) {
  add({.form = "F113204", .month = 2});
  add({.form = "F113204", .year = 2010});
  add({.form = "F113204", .correction = 1});
  EXPECT_EQ(list("113"), "");
  EXPECT_THAT(list("113", 1, 2009, 1), testing::StartsWith("1|2009|1|"));
}

TEST_F(Directory, ShowsADocumentThatStandsTwiceOnce) {
  add({.form = "F113309", .code = "02", .number = "000002/PPH4"});
  add({.form = "F113309", .code = "02", .number = "000002/PPH4"});
  const std::string rows = list("113");
  EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 1);
}

TEST_F(Directory, LeavesOutADocumentWithoutAName) {
  add({.form = "D113207", .code = "99"});
  EXPECT_EQ(list("113"), "");
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(Directory, CountsSharedDocumentsToTwoReturnsAndToNoOther) {
  for (const char* kind : {"111", "112", "113", "114", "117", "118"}) {
    name(kind, "77", std::string("name ") + kind);
    add({.form = std::string("FORM") + kind, .code = "77", .kind = kind});
  }
  EXPECT_EQ(list("111"), "1|2009|0|name 111|FORM111|77|-\n1|2009|0|name 117|FORM117|77|-\n");
  EXPECT_EQ(list("114"), "1|2009|0|name 114|FORM114|77|-\n1|2009|0|name 117|FORM117|77|-\n");
  EXPECT_EQ(list("112"), "1|2009|0|name 112|FORM112|77|-\n");
  EXPECT_EQ(list("113"), "1|2009|0|name 113|FORM113|77|-\n");
  EXPECT_EQ(list("117"), "1|2009|0|name 117|FORM117|77|-\n");
  EXPECT_EQ(list("118"), "1|2009|0|name 118|FORM118|77|-\n");
}

TEST_F(Directory, ListFailsOverAKindWithAnApostrophe) {
  EXPECT_EQ(list("113' OR '1' = '1"), "(nothing)");
  expectSyntaxError();
}

// --- aMaxKdPembetulan ------------------------------------------------------------------------------------------

TEST_F(Directory, GivesMinusOneForAMonthWithoutAReturnSoThatTheNextIsTheFirstFiling) {
  EXPECT_EQ(general.aMaxKdPembetulan(filer, "113", 1, "F113204", 2009), -1);
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(Directory, GivesTheHighestCorrectionOfTheFormInTheMonth) {
  add({.form = "F113204", .correction = 0});
  add({.form = "F113204", .correction = 10});
  add({.form = "F113204", .correction = 9});
  add({.form = "F113309", .code = "02", .number = "000001/PPH4", .correction = 11});
  add({.form = "F113204", .month = 2, .correction = 12});
  add({.form = "F113204", .year = 2010, .correction = 13});
  add({.form = "F113204", .kind = "117", .correction = 14});
  EXPECT_EQ(general.aMaxKdPembetulan("someone else", "113", 1, "F113204", 2009), 10);
}

TEST_F(Directory, DoesNotCountSharedDocumentsToTheHighestCorrection) {
  add({.form = "F113201", .kind = "117", .correction = 3});
  EXPECT_EQ(general.aMaxKdPembetulan(filer, "111", 1, "F113201", 2009), -1);
}

TEST_F(Directory, TheHighestCorrectionOfAFormWithAnApostropheIsZeroAfterAMessage) {
  EXPECT_EQ(general.aMaxKdPembetulan(filer, "113", 1, "F113204'", 2009), 0);
  expectSyntaxError();
}

// --- pGetKdForm ------------------------------------------------------------------------------------------------

struct ArticleCase {
  std::int16_t article;
  std::vector<std::string> forms;
};

class SlipFormsOfAnArticle : public Directory, public testing::WithParamInterface<ArticleCase> {};

TEST_P(SlipFormsOfAnArticle, AreFoundByTheirNumberAndNoOtherFormIs) {
  static const std::vector<std::string> all = {
      "F113204", "D113206", "F113301", "F113302", "F113303", "F113304",   "F113305", "F113306", "F113307",
      "F113308", "F113309", "F113310", "F113311", "F113312", "F113308_A", "F113313", "F113314", "F113315",
      "F113316", "F113317", "F113319", "F113320", "F113321", "PPh24",     "F113318"};
  for (const std::string& form : all) add({.form = form, .number = "number of " + form});
  for (const std::string& form : all) {
    const bool belongs = testing::Value(GetParam().forms, testing::Contains(form));
    EXPECT_EQ(general.pGetKdForm(filer, "number of " + form, 1, 2009, 0, GetParam().article), belongs ? form : "")
        << form;
  }
  EXPECT_TRUE(session.messages().empty());
}

INSTANTIATE_TEST_SUITE_P(Articles, SlipFormsOfAnArticle,
                         testing::Values(ArticleCase{4,
                                                     {"F113309", "F113310", "F113311", "F113312", "F113316", "F113317",
                                                      "F113319", "F113320", "F113321"}},
                                         ArticleCase{15, {"F113313", "F113314", "F113315", "PPh24"}},
                                         ArticleCase{21, {"F113301", "F113302", "F113308_A"}},
                                         ArticleCase{22, {"F113303", "F113304", "F113305"}},
                                         ArticleCase{23, {"F113306", "F113307", "F113308"}}));

TEST_F(Directory, FindsAnyFormForAnArticleWithoutSlips) {
  add({.form = "D113206", .number = "000001"});
  EXPECT_EQ(general.pGetKdForm(filer, "000001", 1, 2009, 0, 26), "D113206");
}

TEST_F(Directory, ANumberOnTwoFormsOfOnePeriodIsOnNone) {
  add({.form = "F113309", .number = "000001/PPH4"});
  add({.form = "F113319", .number = "000001/PPH4"});
  EXPECT_EQ(general.pGetKdForm(filer, "000001/PPH4", 1, 2009, 0, 4), "");
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(Directory, ANumberIsLookedForInItsOwnPeriod) {
  add({.form = "F113309", .number = "000001/PPH4"});
  add({.form = "F113319", .number = "000001/PPH4", .correction = 1});
  EXPECT_EQ(general.pGetKdForm(filer, "000001/PPH4", 1, 2009, 0, 4), "F113309");
  EXPECT_EQ(general.pGetKdForm(filer, "000001/PPH4", 1, 2009, 1, 4), "F113319");
  EXPECT_EQ(general.pGetKdForm(filer, "000001/PPH4", 2, 2009, 0, 4), "");
  EXPECT_EQ(general.pGetKdForm(filer, "000001/PPH4", 1, 2010, 0, 4), "");
}

TEST_F(Directory, ANumberWithAnApostropheIsOnNoFormAfterAMessage) {
  add({.form = "F113309", .number = "000001/PPH4"});
  EXPECT_EQ(general.pGetKdForm(filer, "' OR NOBUKTI = '000001/PPH4", 1, 2009, 0, 4), "");
  expectSyntaxError();
}

// --- pCheckNPWP, aListBursa -----------------------------------------------------------------------------------

TEST_F(Directory, FindsAPartnerByItsNumber) {
  session.execute(
      "INSERT INTO PARTNER_INFO (NPWP_PARTNER,NAMA_WP_PARTNER,ALAMAT_PARTNER) VALUES ('021832415000000','PT Mitra',"
      "'Bandung')");
  const RecordsetPtr found = general.pCheckNPWP("021832415000000");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->get_Fields().get_Count(), 3);
  EXPECT_EQ(found->GetString(adClipString, -1, "|"), "021832415000000|PT Mitra|Bandung\r");
}

TEST_F(Directory, AnUnknownPartnerIsARecordsetWithoutRows) {
  const RecordsetPtr found = general.pCheckNPWP("021832415000000");
  ASSERT_NE(found, nullptr);
  EXPECT_TRUE(found->get_BOF() && found->get_EOF());
}

TEST_F(Directory, APartnerWithAnApostropheIsNothingAfterAMessage) {
  EXPECT_EQ(general.pCheckNPWP("' OR '1' = '1"), nullptr);
  expectSyntaxError();
}

TEST_F(Directory, GivesTheListOfExchangesAsNamedFields) {
  add({.form = "D113207", .packed = "013121660091000;PT Contoh;Jakarta;1;2009;0;Bursa A;5"});
  add({.form = "D113207", .correction = 1, .packed = "013121660091000;PT Lain;Jakarta;1;2009;1"});
  add({.form = "D113206", .packed = "013121660091000;PT Salah;Jakarta;1;2009;0;0;0;0;0"});
  const RecordsetPtr rows = general.aListBursa(filer, 1, 2009, 0);
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(rows->get_RecordCount(), 1);
  EXPECT_EQ(store::fieldText(rows, "NmWP"), "PT Contoh");
  EXPECT_EQ(store::fieldText(rows, "Field6"), "Bursa A");
  EXPECT_EQ(store::fieldText(rows, "KD_FORM"), "D113207");
}

TEST_F(Directory, AReturnWithoutExchangesGivesARecordsetWithoutRows) {
  const RecordsetPtr rows = general.aListBursa(filer, 1, 2009, 0);
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(rows->get_RecordCount(), 0);
  EXPECT_TRUE(session.messages().empty());
}

TEST(DirectoryWithoutSettings, FailsInEveryOperationWithItsMessage) {
  moduleState() = {};
  test::CapturedMessages messages;
  CGeneralClass general;
  EXPECT_EQ(general.aGetList(filer, "113", 1, 2009, 0), nullptr);
  EXPECT_EQ(general.aMaxKdPembetulan(filer, "113", 1, "F113204", 2009), 0);
  EXPECT_EQ(general.pGetKdForm(filer, "000001", 1, 2009, 0, 4), "");
  EXPECT_EQ(general.pCheckNPWP(filer), nullptr);
  EXPECT_EQ(general.aListBursa(filer, 1, 2009, 0), nullptr);
  const std::vector<std::string> notSet(5, std::string(errorText(ErrorNumber::ObjectVariableNotSet)));
  EXPECT_EQ(messages.texts(), notSet);
}

}  // namespace
}  // namespace tarvola
