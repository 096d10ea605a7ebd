#include "tarvola/store/module_state.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/message_box.h"
#include "tarvola/runtime/regional_settings.h"

namespace tarvola {
namespace {

TEST(ModuleState, BuildsTheConnectionTextFromTheThreeValues) {
  setModuleConnection("Pajak", "admin", "rahasia");
  EXPECT_EQ(moduleState().sDSN, "Pajak");
  EXPECT_EQ(moduleState().sUID, "admin");
  EXPECT_EQ(moduleState().sPWD, "rahasia");
  EXPECT_EQ(moduleState().sConnString, "PROVIDER=MSDataShape;Data PROVIDER=MSDASQL;DSN=Pajak;UID=admin;PWD=rahasia;");
  moduleState() = {};
}

TEST(ModuleState, KeepsThePlacesOfEmptyValues) {
  setModuleConnection("Pajak", "", "");
  EXPECT_EQ(moduleState().sConnString, "PROVIDER=MSDataShape;Data PROVIDER=MSDASQL;DSN=Pajak;UID=;PWD=;");
  moduleState() = {};
}

TEST(ModuleState, IsEmptyOnASecondThread) {
  setModuleConnection("Pajak", "admin", "rahasia");
  moduleState().bNonNPWP = true;
  std::string seen = "not asked";
  bool flag = true;
  std::thread([&] {
    seen = moduleState().sConnString;
    flag = moduleState().bNonNPWP;
  }).join();
  EXPECT_EQ(seen, "");
  EXPECT_FALSE(flag);
  moduleState() = {};
}

struct CutCase {
  double value;
  double expected;
};
class RoundDown2 : public testing::TestWithParam<CutCase> {};

TEST_P(RoundDown2, CutsTheTextBehindTheSecondDecimal) {
  EXPECT_DOUBLE_EQ(pRoundDown2(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, RoundDown2,
                         testing::Values(CutCase{5, 5}, CutCase{0.129, 0.12}, CutCase{12.3456, 12.34},
                                         CutCase{12.3, 12.3}, CutCase{12.999, 12.99}, CutCase{0, 0}, CutCase{-7, -7},
                                         CutCase{-12.3456, -12.34}, CutCase{32767.999, 32767.99},
                                         CutCase{0.1 + 0.2, 0.3}));

TEST(RoundDown2, LosesTheMinusSignBelowOne) { EXPECT_DOUBLE_EQ(pRoundDown2(-0.5), 0.5); }

TEST(RoundDown2, ShowsTheOverflowAndGives0ForAWholePartOutside16Bits) {
  std::vector<MessageBox> shown;
  const MessageBoxScope scope([&](const MessageBox& message) { shown.push_back(message); });
  EXPECT_EQ(pRoundDown2(33000.5), 0);
  EXPECT_EQ(pRoundDown2(-40000.25), 0);
  EXPECT_EQ(pRoundDown2(33000), 0) << "also without decimals, since the whole part is taken first";
  ASSERT_EQ(shown.size(), 3U);
  EXPECT_EQ(shown[0].text, errorText(ErrorNumber::Overflow));
  EXPECT_EQ(shown[0].title, "");
}

TEST(RoundDown2, ReadsTheExponentOfAVerySmallNumberAsItStands) {
  // 3,33333333333333E-02 is the text of 1/30, so that the cut gives 3,33.
  EXPECT_DOUBLE_EQ(pRoundDown2(1.0 / 30), 3.33);
}

}  // namespace
}  // namespace tarvola
