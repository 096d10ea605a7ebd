#include <gtest/gtest.h>

#include "tarvola/store/CGeneralClass.h"
#include "tests/store/store_session.h"

namespace tarvola {
namespace {

/// Texts that would end the quotes around them, were they only glued into a statement.
class HostileSlipNumber : public testing::TestWithParam<const char*> {};

TEST_P(HostileSlipNumber, ChangesNothingButWhatItsOperationChanges) {
  test::StoreSession session;
  session.execute("DELETE * FROM SETTING_NOBUKTI_PPH");
  CGeneralClass general;
  general.pUpdateNoNuktiHdr(4, "");
  const std::string before = session.dump();
  general.pUpdateNoNuktiHdr(4, GetParam());
  EXPECT_EQ(session.dump(), before);
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileSlipNumber,
                         testing::Values("'", "000009'", "000009'; DELETE * FROM PROFILE; --", "000009/PPH4'--",
                                         "' OR '1'='1", "\";\\", "000009\n/PPH4"));

/// Settings are the only other texts that the operations of this class take apart from whole statements.
class HostileSettings : public testing::TestWithParam<const char*> {};

TEST_P(HostileSettings, OpenNoStoreAndTouchNone) {
  test::StoreSession session;
  const std::string before = session.dump();
  CGeneralClass general;
  general.pSetCon(GetParam(), GetParam(), GetParam());
  EXPECT_FALSE(general.pCekKoneksi("SELECT * FROM PROFILE"));
  EXPECT_EQ(session.dump(), before);
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileSettings,
                         testing::Values("/no/such.tarvola;DSN=other", "'; DELETE", "/tmp/'.tarvola", "/no/\n.tarvola",
                                         "file:/no?mode=rwc", "/no/such.db?x=1"));

}  // namespace
}  // namespace tarvola
