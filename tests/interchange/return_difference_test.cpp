#include "tarvola/interchange/return_difference.h"

#include <algorithm>
#include <map>
#include <random>

#include "tarvola/interchange/correct_return.h"
#include "tarvola/interchange/rebuild_return.h"
#include "tarvola/interchange/return_difference_rows.h"
#include "tarvola/store/form_layouts.h"
#include "tests/interchange/month_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

std::string wordOf(DifferenceKind kind) {
  return kind == DifferenceKind::Added ? "added" : kind == DifferenceKind::Removed ? "removed" : "changed";
}

/// "changed F113309 000001/PPH4: B13 1 -> 2, B15 ...".
std::vector<std::string> asTexts(const std::vector<DocumentDifference>& documents) {
  std::vector<std::string> texts;
  for (const DocumentDifference& each : documents) {
    std::string text =
        wordOf(each.kind) + " " + each.form + " " + each.number + (each.seq.empty() ? "" : "/" + each.seq);
    for (const FieldDifference& field : each.fields)
      text += (&field == each.fields.data() ? ": " : ", ") + field.field + " " + field.before + " -> " + field.after;
    texts.push_back(text);
  }
  return texts;
}

/// The month and its first correction, in which each test changes what it is about.
class Difference : public testing::Test {
 protected:
  Difference() { correctReturn({.month = 1, .year = 2009, .corrected = 0}); }

  /// Writes one field into the packed text of a document of the correction.
  void setField(const std::string& table, const std::string& form, const std::string& condition, std::string_view field,
                std::string_view value) {
    const std::string where = " WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = '" + form + "' AND " + condition;
    std::vector<std::string> fields = split(month.value("SELECT DAT_FORM FROM " + table + where), ';');
    fields.at(store::findLayout(form)->position(field).value()) = value;
    month.run("UPDATE " + table + " SET DAT_FORM = '" + join(fields, ";") + "'" + where);
  }
  void setSlipField(const std::string& form, std::string_view field, std::string_view value) {
    setField("DS_FORM_INDUK", form, "1 = 1", field, value);
  }
  static ReturnDifference compare() { return compareReturns(1, 2009, 0, 1); }

  MonthStore month;
};

TEST_F(Difference, IsNoneBetweenAReturnAndItsCopyOrItself) {
  EXPECT_TRUE(compare().isEmpty());
  EXPECT_TRUE(compareReturns(1, 2009, 0, 0).isEmpty());
  EXPECT_EQ(compare().taxOfCorrection(), 0);
}

TEST_F(Difference, TellsTheFieldsOfAChangedSlip) {
  setSlipField("F113309", "B13", "120000000");
  setSlipField("F113309", "NMWPLT", "Maria S.");
  setSlipField("F113309", "B12", "");
  month.run("UPDATE DS_FORM_INDUK SET FlagNPWP = 5 WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'F113309'");
  EXPECT_THAT(
      asTexts(compare().slips),
      ElementsAre("changed F113309 000001/PPH4: NMWPLT Maria Santoso -> Maria S., B12 Mobil -> , B13 100000000 -> "
                  "120000000, FlagNPWP 1 -> 5"));
}

TEST_F(Difference, TellsAddedAndRemovedDocumentsWithGrossAndTax) {
  month.run("UPDATE DS_FORM_INDUK SET NOBUKTI = '000009/PPH4' WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'F113309'");
  month.run("DELETE * FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'F113312'");
  EXPECT_THAT(asTexts(compare().slips),
              ElementsAre("removed F113309 000001/PPH4: JMLPHSL 100000000 -> , JmlB5 25000000 -> ",
                          "removed F113312 000003/PPH4: JMLBRUTO 60000000 -> , PPHDIPTG 6000000 -> ",
                          "added F113309 000009/PPH4: JMLPHSL  -> 100000000, JmlB5  -> 25000000"));
}

// A form of the same number is another slip.
TEST_F(Difference, KnowsASlipByItsFormToo) {
  month.run("UPDATE DS_FORM_INDUK SET NOBUKTI = '000001/PPH4' WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'F113312'");
  EXPECT_THAT(asTexts(compare().slips),
              ElementsAre("added F113312 000001/PPH4: JMLBRUTO  -> 60000000, PPHDIPTG  -> 6000000",
                          "removed F113312 000003/PPH4: JMLBRUTO 60000000 -> , PPHDIPTG 6000000 -> "));
}

TEST_F(Difference, PassesOverNumbersThatAreWrittenOtherwise) {
  setSlipField("F113309", "B13", "0100000000");
  setSlipField("F113309", "B23", "");
  setSlipField("F113312", "Tarif", "10,00");
  EXPECT_TRUE(compare().isEmpty());
  setSlipField("F113309", "B23", "ten");
  EXPECT_THAT(asTexts(compare().slips), ElementsAre("changed F113309 000001/PPH4: B23 0 -> ten"));
}

TEST_F(Difference, TellsTextsLetterByLetter) {
  setSlipField("F113309", "NMWPLT", "MARIA SANTOSO");
  EXPECT_THAT(asTexts(compare().slips),
              ElementsAre("changed F113309 000001/PPH4: NMWPLT Maria Santoso -> MARIA SANTOSO"));
}

TEST_F(Difference, TellsFieldsBehindTheLayoutAndTextsThatAreTooShort) {
  month.run(
      "UPDATE DS_FORM_INDUK SET DAT_FORM = '013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;1;08/01/2009'"
      " WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'F113312'");
  std::vector<std::string> texts = asTexts(compare().slips);
  ASSERT_THAT(texts, SizeIs(1));
  EXPECT_THAT(texts[0], testing::HasSubstr("NoBukti 000003/PPH4 -> , "));
  EXPECT_THAT(texts[0], testing::HasSubstr("PPHDIPTG 6000000 -> "));
  correctReturn({.month = 1, .year = 2009, .corrected = 0});
  const std::string packed =
      month.value("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'F113312'");
  month.run("UPDATE DS_FORM_INDUK SET DAT_FORM = '" + packed +
            ";inv;user;tail' WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'F113312'");
  EXPECT_THAT(asTexts(compare().slips),
              ElementsAre("changed F113312 000003/PPH4: INVOICE  -> inv, NMUSER  -> user, Field17  -> tail"));
}

TEST_F(Difference, TellsTheFilersNumberOnlyWhereItIsNotThatOfTheReturn) {
  setSlipField("F113309", "npwp", "021832415000000");
  EXPECT_THAT(asTexts(compare().slips),
              ElementsAre("changed F113309 000001/PPH4: npwp 013121660091000 -> 021832415000000"));
}

TEST_F(Difference, TellsSelfPaidFormsByPaymentAndSeq) {
  setField("DAT_SSP_PPh22", "FSewaTnhBgn", "DAT_FORM LIKE '%;2;30000000;3000000'", "PPH", "2500000");
  EXPECT_THAT(asTexts(compare().selfPaidForms),
              ElementsAre("changed FSewaTnhBgn 1000000000000001/2: PPH 3000000 -> 2500000"));
  setField("DAT_SSP_PPh22", "FSewaTnhBgn", "DAT_FORM LIKE '%;2;30000000;2500000'", "SEQ", "3");
  EXPECT_THAT(asTexts(compare().selfPaidForms),
              ElementsAre("removed FSewaTnhBgn 1000000000000001/2: JMLBRUTO 30000000 -> , PPH 3000000 -> ",
                          "added FSewaTnhBgn 1000000000000001/3: JMLBRUTO  -> 30000000, PPH  -> 2500000"));
}

TEST_F(Difference, TellsPayeesOfInterestBySlipAndKind) {
  month.run("UPDATE D113210 SET BRUTO = 600000.5, NMWP = 'Budi' WHERE KD_PEMBETULAN_KE = 1 AND JENIS = 'LN'");
  month.run("UPDATE D113210 SET JENIS = 'SBI' WHERE KD_PEMBETULAN_KE = 1 AND JENIS = 'DN'");
  EXPECT_THAT(asTexts(compare().interestPayees),
              ElementsAre("removed DN 000002/PPH4: BRUTO 1000000 -> , PPH 200000 -> ",
                          "changed LN 000002/PPH4: NMWP Maria Santoso -> Budi, BRUTO 500000 -> 600000,5",
                          "added SBI 000002/PPH4: BRUTO  -> 1000000, PPH  -> 200000"));
}

TEST_F(Difference, TellsPaymentRecordsAndNotWhatNoCopyCarries) {
  month.run("UPDATE DATSSP SET Catatan = 'note', TableKey = 7 WHERE KdPmbtln = 0");
  EXPECT_TRUE(compare().isEmpty());
  month.pay("5000000", "3000000000000003", 1, "405");
  month.run("UPDATE DATSSP SET TglSSP = DateValue('12/02/2009') WHERE KdPmbtln = 1 AND KdJnsStr = '403'");
  EXPECT_THAT(asTexts(compare().payments), ElementsAre("changed 403 2000000000000002: TglSSP 10/02/2009 -> 12/02/2009",
                                                       "added 405 3000000000000003: JmlByr  -> 5000000"));
}

TEST_F(Difference, TellsLinesOtherFieldsAndTheBalance) {
  month.run("DELETE * FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE = 1 AND KD_FORM = 'F113312'");
  month.run("DELETE * FROM DS_FORM_LAMPIRAN WHERE KD_PEMBETULAN_KE = 1 AND NOBUKTI = '000003/PPH4'");
  EXPECT_THAT(rebuildReturn(1, 2009, 1).failures, IsEmpty());
  setSlipField("F113204", "B5a3", "0");
  setSlipField("F113204", "B5a5", "0");
  setSlipField("F113204", "JMLPHSL", "201500000");
  setSlipField("F113204", "JmlB5", "35287500");
  setSlipField("F113204", "TGL_SETOR", "10/03/2009");
  month.run(
      "INSERT INTO datPBKPPhMasa (PASAL,MsPjkPBK,ThPjkPBK,NPWPTertuju,JumlahPBK) VALUES (4,1,2009,"
      "'013121660091000',50000)");
  const ReturnDifference difference = compare();
  ASSERT_THAT(difference.lines, SizeIs(1));
  EXPECT_EQ(difference.lines[0].line, "5a");
  EXPECT_EQ(difference.lines[0].before, (LineAmounts{.gross = 60000000, .rate = 10, .tax = 6000000}));
  EXPECT_EQ(difference.lines[0].after.gross, 0);
  std::vector<std::string> fields;
  for (const FieldDifference& each : difference.returnFields)
    fields.push_back(each.field + " " + each.before + " -> " + each.after);
  EXPECT_THAT(fields, ElementsAre("C3 3 -> 2", "TGL_SETOR  -> 10/03/2009"));
  EXPECT_EQ(difference.before,
            (ReturnBalance{.gross = 261500000, .tax = 41287500, .payments = 41200000, .transfers = 50000}));
  EXPECT_EQ(difference.before.unpaid(), 37500);
  EXPECT_EQ(difference.after.tax, 35287500);
  EXPECT_EQ(difference.taxOfCorrection(), -6000000);
}

TEST_F(Difference, OfAReturnThatIsNotThereIsAllOfTheOther) {
  const ReturnDifference difference = compareReturns(1, 2009, 1, 7);
  EXPECT_THAT(difference.slips, SizeIs(3));
  EXPECT_THAT(difference.selfPaidForms, SizeIs(2));
  EXPECT_EQ(std::count_if(difference.lines.begin(), difference.lines.end(),
                          [](const LineDifference& each) { return each.before.gross > 0; }),
            5);
  EXPECT_EQ(difference.after.tax, 0);
  EXPECT_TRUE(std::all_of(difference.slips.begin(), difference.slips.end(),
                          [](const DocumentDifference& each) { return each.kind == DifferenceKind::Removed; }));
}

// --- rows of equal keys ----------------------------------------------------------------------------------------

using interchange::pairRows;
using interchange::RowPair;

struct Row {
  std::string key;
  std::string content;
};

/// "b0-a2 b1- -a3": the pairs by row number, in the order of the text.
std::vector<std::string> pairsOf(const std::vector<Row>& before, const std::vector<Row>& after) {
  const auto keys = [](const std::vector<Row>& rows) {
    std::vector<std::string> all;
    for (const Row& row : rows) all.push_back(row.key);
    return all;
  };
  std::vector<std::string> texts;
  for (const RowPair& pair : pairRows(
           keys(before), keys(after), [&](std::size_t row) { return before[row].content; },
           [&](std::size_t row) { return after[row].content; }))
    texts.push_back((pair.before ? "b" + std::to_string(*pair.before) : "") + "-" +
                    (pair.after ? "a" + std::to_string(*pair.after) : ""));
  return texts;
}

TEST(RowPairs, BelongTogetherByTheirKey) {
  EXPECT_THAT(pairsOf({{"1", "x"}, {"2", "y"}, {"3", "z"}}, {{"3", "other"}, {"1", "x"}, {"4", "w"}}),
              UnorderedElementsAre("b0-a1", "b1-", "b2-a0", "-a2"));
  EXPECT_THAT(pairsOf({}, {}), IsEmpty());
}

TEST(RowPairs, OfOneKeyTakeEqualRowsFirstAndTheOthersInOrder) {
  EXPECT_THAT(pairsOf({{"1", "x"}, {"1", "y"}, {"1", "z"}}, {{"1", "p"}, {"1", "x"}, {"1", "q"}, {"1", "r"}}),
              UnorderedElementsAre("b0-a1", "b1-a0", "b2-a2", "-a3"));
  EXPECT_THAT(pairsOf({{"1", "x"}, {"1", "x"}}, {{"1", "x"}}),
              UnorderedElementsAre(testing::AnyOf("b0-a0", "b1-a0"), testing::AnyOf("b0-", "b1-")));
}

// Whatever the rows: each stands in exactly one pair, pairs share their key, and only what the other side lacks is left
// over.
TEST(RowPairs, HoldEachRowOnce) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  for (int round = 0; round < 200; ++round) {
    const auto make = [&] {
      std::vector<Row> rows(random() % 12);
      for (Row& row : rows) row = {std::to_string(random() % 4), std::to_string(random() % 3)};
      return rows;
    };
    const std::vector<Row> before = make();
    const std::vector<Row> after = make();
    std::vector<std::string> keysBefore;
    std::vector<std::string> keysAfter;
    for (const Row& row : before) keysBefore.push_back(row.key);
    for (const Row& row : after) keysAfter.push_back(row.key);
    std::vector<int> seenBefore(before.size());
    std::vector<int> seenAfter(after.size());
    std::map<std::string, std::pair<int, int>> alone;
    for (const RowPair& pair : pairRows(
             keysBefore, keysAfter, [&](std::size_t row) { return before[row].content; },
             [&](std::size_t row) { return after[row].content; })) {
      ASSERT_TRUE(pair.before || pair.after);
      if (pair.before) ++seenBefore[*pair.before];
      if (pair.after) ++seenAfter[*pair.after];
      if (pair.before && pair.after) {
        EXPECT_EQ(before[*pair.before].key, after[*pair.after].key);
      } else if (pair.before) {
        ++alone[before[*pair.before].key].first;
      } else {
        ++alone[after[*pair.after].key].second;
      }
    }
    EXPECT_THAT(seenBefore, testing::Each(1));
    EXPECT_THAT(seenAfter, testing::Each(1));
    for (const auto& [key, counts] : alone) EXPECT_TRUE(counts.first == 0 || counts.second == 0) << key;
  }
}

}  // namespace
}  // namespace tarvola::test
