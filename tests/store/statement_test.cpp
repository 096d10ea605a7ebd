#include "tarvola/store/statement.h"

#include <gtest/gtest.h>

#include <limits>

#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"

namespace tarvola::store {
namespace {

template <class Body>
RunTimeError failureOf(Body body) {
  try {
    body();
  } catch (const RunTimeError& error) {
    return error;
  }
  ADD_FAILURE() << "nothing failed";
  return {0, ""};
}

TEST(Statement, PutsATextInSingleQuotes) {
  EXPECT_EQ((Statement("SELECT * FROM BURSA WHERE BURSA = ") << text("Jakarta")).str(),
            "SELECT * FROM BURSA WHERE BURSA = 'Jakarta'");
}

TEST(Statement, PutsAnEmptyTextAsTwoQuotes) { EXPECT_EQ((Statement("x = ") << text("")).str(), "x = ''"); }

TEST(Statement, KeepsEverythingButAnApostropheInAText) {
  const std::string_view odd = "a\"b;--/* */ % _ [x] \\ \r\n \xC3\xA9";
  EXPECT_EQ((Statement("") << text(odd)).str(), "'" + std::string(odd) + "'");
}

TEST(Statement, RefusesAnApostropheWithTheDriversSyntaxError) {
  const RunTimeError error = failureOf([] { Statement("x = ") << text("Ma'ruf"); });
  EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::SyntaxError));
  EXPECT_EQ(error.description(), missingOperatorText("'Ma'ruf'"));
}

class HostileText : public testing::TestWithParam<const char*> {};

TEST_P(HostileText, NeverBecomesPartOfAStatement) {
  EXPECT_THROW(Statement("x = ") << text(GetParam()), RunTimeError);
  EXPECT_THROW(Statement("x = ") << bare(GetParam()), RunTimeError);
  EXPECT_THROW(Statement("x = ") << name(GetParam()), RunTimeError);
}

INSTANTIATE_TEST_SUITE_P(Apostrophes, HostileText,
                         testing::Values("'", "''", "' OR '1'='1", "x'; DELETE * FROM DS_FORM_INDUK; --", "\\'", "a''b",
                                         "1' UNION SELECT * FROM PROFILE WHERE '1'='1"));

TEST(Statement, WritesANumberWithAPointWhateverTheRegionalSettings) {
  const RegionalSettingsScope scope(RegionalSettings::indonesian());
  EXPECT_EQ((Statement("") << number(7.5)).str(), "7.5");
  EXPECT_EQ((Statement("") << number(-1000000)).str(), "-1000000");
}

TEST(Statement, WritesWholeNumbersPlainly) {
  EXPECT_EQ((Statement("MS_PAJAK = ") << 1 << " AND x = " << -32768).str(), "MS_PAJAK = 1 AND x = -32768");
}

struct BareCase {
  const char* value;
  bool passes;
};
class BareText : public testing::TestWithParam<BareCase> {};

TEST_P(BareText, PassesOnlyIfItReadsAsAPlainNumber) {
  if (GetParam().passes) {
    EXPECT_EQ((Statement("") << bare(GetParam().value)).str(), GetParam().value);
    return;
  }
  const RunTimeError error = failureOf([] { Statement("") << bare(GetParam().value); });
  EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::SyntaxError));
}

INSTANTIATE_TEST_SUITE_P(Cases, BareText,
                         testing::Values(BareCase{"1", true}, BareCase{"012", true}, BareCase{"-5", true},
                                         BareCase{"+5", true}, BareCase{" 7 ", true}, BareCase{"2.50", true},
                                         BareCase{".5", true}, BareCase{"5.", true}, BareCase{"", false},
                                         BareCase{" ", false}, BareCase{".", false}, BareCase{"-", false},
                                         BareCase{"1 OR 1=1", false}, BareCase{"1;", false}, BareCase{"1--", false},
                                         BareCase{"1e5", false}, BareCase{"0x10", false}, BareCase{"1,5", false},
                                         BareCase{"1.2.3", false}, BareCase{"TH_PAJAK", false}, BareCase{"- 5", false},
                                         BareCase{"1\n2", false}, BareCase{"(1)", false}));

TEST(Statement, TakesNamesOfLettersDigitsAndUnderscores) {
  EXPECT_EQ((Statement("SELECT * FROM ") << name("DAT_SSP_PPh22")).str(), "SELECT * FROM DAT_SSP_PPh22");
  for (const char* wrong : {"", "a b", "a;", "a.b", "[a]", "1a", "a-b"})
    EXPECT_THROW(Statement("") << name(wrong), RunTimeError) << wrong;
}

TEST(Statement, TakesInAnotherStatement) {
  const Statement period = Statement("MS_PAJAK = ") << 3;
  EXPECT_EQ((Statement("SELECT 1 WHERE ") << period << " AND x").str(), "SELECT 1 WHERE MS_PAJAK = 3 AND x");
}

}  // namespace
}  // namespace tarvola::store
