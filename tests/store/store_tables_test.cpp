#include <gtest/gtest.h>

#include "tarvola/runtime/errors.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"
#include "tests/store/store_session.h"

namespace tarvola::store {
namespace {

using test::StoreSession;

TEST(StoreTables, TakeARateThatIsWrittenBareWithAPoint) {
  StoreSession session;
  const StoreObject store;
  session.execute("DELETE * FROM SETTING_TARIF_PPH");
  store.execute(Statement("INSERT INTO SETTING_TARIF_PPH VALUES (4, 'F113309', 'B14', ") << number(2.5) << ")");
  EXPECT_EQ(fieldNumber(store.execute("SELECT * FROM SETTING_TARIF_PPH"), "TARIF_JML_BRUTO"), 2.5);
}

TEST(StoreTables, BreakAnInsertWhoseNumberIsWrittenWithAComma) {
  StoreSession session;
  const StoreObject store;
  const std::string before = session.dump();
  EXPECT_THROW(store.execute("INSERT INTO SETTING_TARIF_PPH VALUES (4, 'F113309', 'B14', 2,5)"), RunTimeError);
  EXPECT_EQ(session.dump(), before);
}

TEST(StoreTables, MatchColumnNamesWithoutRegardToCase) {
  StoreSession session;
  const StoreObject store;
  store.execute("INSERT INTO DS_FORM_INDUK (npwp, kd_form, TOTAL_BRUTO) VALUES ('01.1', 'F113309', 1500)");
  const RecordsetPtr rows = store.open("SELECT NPWP, Total_Bruto FROM DS_FORM_INDUK WHERE Npwp = '01.1'");
  EXPECT_EQ(fieldText(rows, "npwp"), "01.1");
  EXPECT_EQ(fieldNumber(rows, "total_bruto"), 1500);
}

TEST(StoreTables, HoldAListRowWithoutTheFilerItBelongsTo) {
  StoreSession session;
  const StoreObject store;
  const RecordsetPtr rows = store.open("SELECT * FROM DS_FORM_LAMPIRAN");
  EXPECT_THROW(static_cast<void>(rows->column("NPWP")), RunTimeError) << "rows of two filers cannot be told apart";
}

TEST(StoreTables, FailAStatementThatNamesAMissingTableOrColumn) {
  StoreSession session;
  const StoreObject store;
  EXPECT_THROW(store.execute("SELECT * FROM DAT_FORM_OLD"), RunTimeError);
  EXPECT_THROW(store.execute("SELECT * FROM BURSA WHERE NOSUCH = 1"), RunTimeError);
}

}  // namespace
}  // namespace tarvola::store
