#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/form_layouts.h"
#include "tests/mainreturn/return_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace tarvola::test {
namespace {

// --- the table of lines --------------------------------------------------------------------------------------

TEST(ReturnLines, StandInTheOrderOfThePackedTextEachGrossRateTax) {
  const store::FormLayout& layout = *store::findLayout("F113204");
  std::size_t expected = 6;
  for (const mainreturn::ReturnLine& line : mainreturn::returnLines) {
    if (!line.ownText.empty()) {
      EXPECT_EQ(layout.position(line.ownText), expected++) << line.number;
    }
    EXPECT_EQ(layout.position(line.gross), expected++) << line.number;
    EXPECT_EQ(layout.position(line.rate), expected++) << line.number;
    EXPECT_EQ(layout.position(line.tax), expected++) << line.number;
  }
  EXPECT_EQ(layout.position("JmlB5"), expected);
}

TEST(ReturnLines, AreFilledFromFormsThatExist) {
  std::size_t filled = 0;
  for (const mainreturn::ReturnLine& line : mainreturn::returnLines) {
    if (line.filledFrom.empty()) continue;
    ++filled;
    EXPECT_NE(store::findForm(line.filledFrom), nullptr) << line.number;
  }
  EXPECT_EQ(filled, 21U) << "lines 11b and 11c are filled by hand alone";
}

// --- pHitPjk3204 ---------------------------------------------------------------------------------------------

class ReturnNormalisation : public ReturnTest {
 protected:
  ReturnNormalisation() {
    makeReturn();
    load(mainReturn_);
  }
  void putNullIntoAllLines() {
    for (const mainreturn::ReturnLine& line : mainreturn::returnLines)
      for (const std::string_view field : {line.gross, line.rate, line.tax}) put(mainReturn_, field, Variant::null());
    for (const char* field : {"CHKC1", "CHKC2", "CHKC3", "CHKC4", "c1", "C3", "JMLPHSL", "JmlB5"})
      put(mainReturn_, field, Variant::null());
  }
  bool isNull(std::string_view field) { return value(mainReturn_, field).isNull(); }

  CF113204 mainReturn_;
};

TEST_F(ReturnNormalisation, MakesZeroOfEveryNull) {
  putNullIntoAllLines();
  mainReturn_.pHitPjk3204(1);
  for (const mainreturn::ReturnLine& line : mainreturn::returnLines)
    for (const std::string_view field : {line.gross, line.rate, line.tax}) {
      ASSERT_FALSE(isNull(field)) << field;
      EXPECT_EQ(number(mainReturn_, field), 0) << field;
    }
  for (const char* field : {"CHKC1", "CHKC2", "CHKC3", "CHKC4", "c1", "C3", "JMLPHSL", "JmlB5"}) {
    ASSERT_FALSE(isNull(field)) << field;
    EXPECT_EQ(number(mainReturn_, field), 0) << field;
  }
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnNormalisation, CutsGrossAndTaxAndCountsWhatIsLeft) {
  mainReturn_.aB43(1000.75);
  mainReturn_.aB45(15.5);
  mainReturn_.pHitPjk3204(1);
  EXPECT_EQ(number(mainReturn_, "B43"), 1000);
  EXPECT_EQ(number(mainReturn_, "B45"), 15);
  EXPECT_EQ(number(mainReturn_, "JMLPHSL"), 1000);
  EXPECT_EQ(number(mainReturn_, "JmlB5"), 15);
}

TEST_F(ReturnNormalisation, CutsDownAndNeverRounds) {
  struct Row {
    double before;
    double after;
  };
  const Row rows[] = {{1234.99, 1234}, {1234, 1234}, {-0.5, -1}, {-1234.01, -1235}, {0.999, 0}, {1e15 + 0.5, 1e15}};
  for (const Row& row : rows) {
    mainReturn_.aB33(row.before);
    mainReturn_.aB35(row.before);
    mainReturn_.pHitPjk3204(0);
    EXPECT_EQ(number(mainReturn_, "B33"), row.after) << row.before;
    EXPECT_EQ(number(mainReturn_, "B35"), row.after) << row.before;
  }
}

TEST_F(ReturnNormalisation, CutsEveryLine) {
  double expectedGross = 0;
  double expectedTax = 0;
  double amount = 100.5;
  for (const mainreturn::ReturnLine& line : mainreturn::returnLines) {
    put(mainReturn_, line.gross, amount);
    put(mainReturn_, line.tax, amount / 10);
    amount += 100;
  }
  mainReturn_.pHitPjk3204(1);
  amount = 100;
  for (const mainreturn::ReturnLine& line : mainreturn::returnLines) {
    EXPECT_EQ(number(mainReturn_, line.gross), amount) << line.number;
    EXPECT_EQ(number(mainReturn_, line.tax), amount / 10) << line.number;
    expectedGross += amount;
    expectedTax += amount / 10;
    amount += 100;
  }
  // 100 + 200 + ... + 2300 and a tenth of it.
  EXPECT_EQ(expectedGross, 27600);
  EXPECT_EQ(number(mainReturn_, "JMLPHSL"), expectedGross);
  EXPECT_EQ(number(mainReturn_, "JmlB5"), expectedTax);
}

TEST_F(ReturnNormalisation, LeavesRatesTheirDecimals) {
  mainReturn_.aB44(1.5);
  mainReturn_.aB84(33.333333333333336);
  mainReturn_.pHitPjk3204(1);
  EXPECT_EQ(number(mainReturn_, "B44"), 1.5);
  EXPECT_EQ(number(mainReturn_, "B84"), 33.333333333333336);
}

TEST_F(ReturnNormalisation, RunTwiceChangesNothing) {
  mainReturn_.aB43(1000.75);
  mainReturn_.aB45(-15.5);
  mainReturn_.pHitPjk3204(1);
  mainReturn_.pUpdate();
  const std::string once = packedText("F113204");
  mainReturn_.pHitPjk3204(1);
  mainReturn_.pUpdate();
  EXPECT_EQ(packedText("F113204"), once);
}

TEST_F(ReturnNormalisation, LeavesTheLastTwoMarksAndTheLaterFieldsAlone) {
  put(mainReturn_, "CHKC5", Variant::null());
  put(mainReturn_, "CHKC6", Variant::null());
  mainReturn_.aB8A31(10.75);
  mainReturn_.aB55(99.5);
  mainReturn_.pHitPjk3204(1);
  EXPECT_TRUE(isNull("CHKC5"));
  EXPECT_TRUE(isNull("CHKC6"));
  EXPECT_EQ(number(mainReturn_, "B8A31"), 10.75);
  EXPECT_EQ(number(mainReturn_, "JMLPHSL"), 0);
  EXPECT_EQ(number(mainReturn_, "JmlB5"), 0);
}

TEST_F(ReturnNormalisation, KeepsMarksThatAreSet) {
  mainReturn_.aCHKC1(1);
  mainReturn_.aC1(3);
  mainReturn_.aC3(4);
  mainReturn_.pHitPjk3204(1);
  EXPECT_EQ(mainReturn_.aCHKC1(), 1);
  EXPECT_EQ(mainReturn_.aC1(), 3);
  EXPECT_EQ(mainReturn_.aC3(), 4);
}

TEST_F(ReturnNormalisation, ReadsAmountsThatAreTextsOfNumbers) {
  mainReturn_.rs4_2Form()->put_Collect("B43", "1000,75");
  mainReturn_.pHitPjk3204(1);
  EXPECT_EQ(number(mainReturn_, "B43"), 1000);
}

// A text where an amount belongs stops the walk, which makes its order visible.

class ReturnNormalisationOrder : public ReturnNormalisation {
 protected:
  /// Everything Null but one field, which holds a text that is no number.
  void runWithTextIn(std::string_view field) {
    putPosition(field, "abc");
    load(mainReturn_);
    for (const mainreturn::ReturnLine& line : mainreturn::returnLines)
      for (const std::string_view other : {line.gross, line.rate, line.tax})
        if (other != field) put(mainReturn_, other, Variant::null());
    for (const char* other : {"CHKC1", "C3", "JMLPHSL", "JmlB5"}) put(mainReturn_, other, Variant::null());
    mainReturn_.pHitPjk3204(1);
    EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::TypeMismatch)));
  }
};

TEST_F(ReturnNormalisationOrder, GrossComesBeforeRate) {
  runWithTextIn("B1a13");
  EXPECT_TRUE(isNull("B1a14"));
  EXPECT_TRUE(isNull("B1a15"));
}

TEST_F(ReturnNormalisationOrder, RateComesBeforeTax) {
  runWithTextIn("B1a15");
  EXPECT_FALSE(isNull("B1a13"));
  EXPECT_FALSE(isNull("B1a14"));
  EXPECT_TRUE(isNull("B1a23"));
}

TEST_F(ReturnNormalisationOrder, LinesComeInTheOrderOfTheForm) {
  runWithTextIn("B33");
  EXPECT_FALSE(isNull("B2b5"));
  EXPECT_TRUE(isNull("B34"));
  EXPECT_TRUE(isNull("B43"));
}

TEST_F(ReturnNormalisationOrder, MarksComeBehindAllLinesAndTotalsLast) {
  runWithTextIn("B11c5");
  EXPECT_FALSE(isNull("B11c4"));
  EXPECT_TRUE(isNull("CHKC1"));
  EXPECT_TRUE(isNull("C3"));
  EXPECT_TRUE(isNull("JMLPHSL"));
  EXPECT_TRUE(isNull("JmlB5"));
}

TEST_F(ReturnNormalisationOrder, AFieldThatTheRecordDoesNotHaveEndsItThere) {
  run("INSERT INTO D113210 (NPWP, BRUTO, TARIF) VALUES ('1', 10.75, Null)");
  const RecordsetPtr rows = Recordset::create();
  rows->Open("SELECT BRUTO AS B1a13, TARIF AS B1a14 FROM D113210", connection_, adOpenStatic, adLockOptimistic,
             adCmdText);
  mainReturn_.rs4_2Form(rows);
  mainReturn_.pHitPjk3204(1);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::ItemNotFound)));
  EXPECT_EQ(number(mainReturn_, "B1a13"), 10);
  EXPECT_EQ(number(mainReturn_, "B1a14"), 0);
}

// The fields in the order in which they are made whole: the lines of the form with gross, rate and tax, the marks, the
// totals.
constexpr std::string_view fieldsInOrder[] = {
    "B1a13", "B1a14", "B1a15", "B1a23", "B1a24", "B1a25", "B1B3",  "B1B4",  "B1B5",  "B1C3",    "B1C4",
    "B1C5",  "B2a3",  "B2a4",  "B2a5",  "B2b3",  "B2b4",  "B2b5",  "B33",   "B34",   "B35",     "B43",
    "B44",   "B45",   "B5a3",  "B5a4",  "B5a5",  "B5b3",  "B5b4",  "B5b5",  "B6a13", "B6a14",   "B6a15",
    "B6a23", "B6a24", "B6a25", "B6b13", "B6b14", "B6b15", "B6b23", "B6b24", "B6b25", "B6c13",   "B6c14",
    "B6c15", "B6c23", "B6c24", "B6c25", "B73",   "B74",   "B75",   "B83",   "B84",   "B85",     "B93",
    "B94",   "B95",   "B103",  "B104",  "B105",  "B11a3", "B11a4", "B11a5", "B11b3", "B11b4",   "B11b5",
    "B11c3", "B11c4", "B11c5", "CHKC1", "CHKC2", "CHKC3", "CHKC4", "c1",    "C3",    "JMLPHSL", "JmlB5"};

TEST_F(ReturnNormalisationOrder, IsThatOfTheFormWhereverARecordLacksAField) {
  run("INSERT INTO D113210 (NPWP) VALUES ('1')");
  for (const std::string_view missing : fieldsInOrder) {
    // All other fields, each of them Null.
    std::string columns;
    for (const std::string_view field : fieldsInOrder)
      if (field != missing) columns.append(columns.empty() ? "BRUTO AS " : ", BRUTO AS ").append(field);
    const RecordsetPtr rows = Recordset::create();
    rows->Open("SELECT " + columns + " FROM D113210", connection_, adOpenStatic, adLockOptimistic, adCmdText);
    mainReturn_.rs4_2Form(rows);
    messages_.clear();
    mainReturn_.pHitPjk3204(1);
    EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::ItemNotFound))) << missing;
    bool isReached = true;
    for (const std::string_view field : fieldsInOrder) {
      isReached = isReached && field != missing;
      if (field != missing) {
        EXPECT_EQ(!isNull(field), isReached) << field << " where there is no " << missing;
      }
    }
  }
}

}  // namespace
}  // namespace tarvola::test
