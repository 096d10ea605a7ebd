#include "tarvola/store/CGeneralClass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "tarvola/runtime/errors.h"
#include "tests/store/store_session.h"

namespace tarvola {
namespace {

using test::CapturedMessages;
using test::StoreFixture;
using test::StoreSession;

class GeneralClass : public testing::Test {
 protected:
  StoreSession session;
};

TEST(GeneralClassWithoutSettings, CanBeCreatedBeforeSetConInSilence) {
  moduleState() = {};
  CapturedMessages messages;
  CGeneralClass general;
  EXPECT_TRUE(messages.empty());
}

TEST(GeneralClassWithoutSettings, FailsInEveryOperationAndCrashesInNone) {
  moduleState() = {};
  CapturedMessages messages;
  CGeneralClass general;
  general.pExecQuery("SELECT * FROM BURSA");
  EXPECT_FALSE(general.pCekKoneksi("SELECT * FROM BURSA"));
  EXPECT_EQ(general.pGetRecordDbase("SELECT * FROM BURSA"), nullptr);
  EXPECT_TRUE(messages.empty()) << "the three are silent";
  const Variant number = general.pGetNoBuktiHdr(4);
  EXPECT_EQ(number, Variant(Variant::Array{"", ""}));
  general.pUpdateNoNuktiHdr(4, "000001/PPH4");
  EXPECT_THAT(messages.texts(), testing::ElementsAre(errorText(ErrorNumber::ObjectVariableNotSet),
                                                     errorText(ErrorNumber::ObjectVariableNotSet)));
}

TEST(GeneralClassWithoutSettings, OpensItsConnectionAtSetCon) {
  moduleState() = {};
  const StoreFixture store;
  CapturedMessages messages;
  CGeneralClass general;
  general.pSetCon(store.path(), "", "");
  EXPECT_TRUE(messages.empty());
  EXPECT_TRUE(general.pCekKoneksi("SELECT * FROM BURSA"));
  moduleState() = {};
}

TEST(GeneralClassWithWrongSettings, StoresThemShowsTheMessageAndHasNoConnection) {
  moduleState() = {};
  CapturedMessages messages;
  CGeneralClass general;
  general.pSetCon("/no/such/folder/store.tarvola", "admin", "x");
  EXPECT_EQ(messages.boxes().size(), 1U);
  EXPECT_EQ(messages.boxes().at(0).title, "");
  EXPECT_FALSE(messages.boxes().at(0).text.empty());
  EXPECT_EQ(moduleState().sConnString,
            "PROVIDER=MSDataShape;Data PROVIDER=MSDASQL;DSN=/no/such/folder/store.tarvola;UID=admin;PWD=x;");
  messages.clear();
  EXPECT_FALSE(general.pCekKoneksi("SELECT * FROM BURSA"));
  EXPECT_TRUE(messages.empty());
  moduleState() = {};
}

TEST_F(GeneralClass, OpensItsConnectionAtCreationIfTheThreadHasSettings) {
  CGeneralClass general;
  EXPECT_TRUE(general.pCekKoneksi("SELECT * FROM PROFILE"));
}

TEST_F(GeneralClass, KeepsItsConnectionWhenAnotherObjectReplacesTheSettings) {
  CGeneralClass first;
  first.pExecQuery("INSERT INTO BURSA VALUES ('Surabaya', 77)");
  const StoreFixture other;
  CGeneralClass second;
  second.pSetCon(other.path(), "", "");
  const std::string_view text = "SELECT * FROM BURSA WHERE ID = 77";
  EXPECT_FALSE(first.pGetRecordDbase(text)->get_EOF());
  EXPECT_TRUE(second.pGetRecordDbase(text)->get_EOF());
  EXPECT_TRUE(CGeneralClass().pGetRecordDbase(text)->get_EOF()) << "new objects take the new settings";
}

TEST_F(GeneralClass, HasNoSettingsOnASecondThread) {
  CGeneralClass general;
  bool opened = true;
  std::thread([&] { opened = CGeneralClass().pCekKoneksi("SELECT * FROM PROFILE"); }).join();
  EXPECT_FALSE(opened);
}

TEST_F(GeneralClass, ExecQueryRunsAStatement) {
  CGeneralClass general;
  general.pExecQuery("DELETE * FROM BURSA");
  general.pExecQuery("INSERT INTO BURSA VALUES ('Jakarta', 1)");
  EXPECT_EQ(session.rowsOf("SELECT * FROM BURSA"), "Jakarta|1\n");
}

TEST_F(GeneralClass, ExecQueryIsSilentWhenTheStatementFails) {
  const std::string before = session.dump();
  CGeneralClass general;
  for (const char* wrong : {"", "nonsense", "DELETE * FROM NOSUCHTABLE", "SELECT * FROM BURSA WHERE BURSA = 'a'b'"})
    general.pExecQuery(wrong);
  EXPECT_TRUE(session.messages().empty());
  EXPECT_EQ(session.dump(), before);
}

TEST_F(GeneralClass, CekKoneksiProbesATextWithoutAMessage) {
  CGeneralClass general;
  EXPECT_TRUE(general.pCekKoneksi("SELECT * FROM DS_FORM_INDUK"));
  EXPECT_FALSE(general.pCekKoneksi("SELECT * FROM NOSUCHTABLE"));
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(GeneralClass, GetRecordDbaseGivesAnOpenRecordsetThatCanBeChanged) {
  CGeneralClass general;
  general.pExecQuery("DELETE * FROM BURSA");
  RecordsetPtr rows = general.pGetRecordDbase("SELECT * FROM BURSA");
  ASSERT_NE(rows, nullptr);
  EXPECT_TRUE(rows->get_BOF() && rows->get_EOF());
  rows->AddNew();
  rows->put_Collect("BURSA", "Medan");
  rows->put_Collect("ID", std::int16_t{9});
  rows->UpdateBatch();
  EXPECT_EQ(session.rowsOf("SELECT * FROM BURSA"), "Medan|9\n");
}

TEST_F(GeneralClass, GetRecordDbaseGivesNothingOnFailureAndSaysNothing) {
  EXPECT_EQ(CGeneralClass().pGetRecordDbase("SELECT * FROM NOSUCHTABLE"), nullptr);
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(GeneralClass, ARecordsetOutlivesTheObjectThatGaveIt) {
  RecordsetPtr rows = CGeneralClass().pGetRecordDbase("SELECT * FROM PROFILE");
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(rows->get_Collect("NPWP"), Variant(test::filerOfTests().npwp));
  rows->Requery();
  EXPECT_EQ(rows->get_RecordCount(), 1);
}

TEST_F(GeneralClass, SetNonNpwpMarksTheThreadWhateverTheRateSays) {
  CGeneralClass general;
  const std::string before = session.dump();
  general.pSet_NonNPWP_4a2(true, 120);
  EXPECT_TRUE(moduleState().bNonNPWP);
  general.pSet_NonNPWP_4a2(false, 0);
  EXPECT_FALSE(moduleState().bNonNPWP);
  EXPECT_EQ(session.dump(), before) << "no rate changes";
}

}  // namespace
}  // namespace tarvola
