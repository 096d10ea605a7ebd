#include "tarvola/lists/CD113210.h"

#include "tarvola/ado/fields.h"
#include "tarvola/lists/interest_lines.h"
#include "tarvola/store/field_access.h"
#include "tests/lists/open_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

class InterestList : public testing::Test {
 protected:
  InterestList() { addHeader(january); }

  void addHeader(const store::Period& period, std::string_view sums = "0;0;0;0;0;0;0;0;0;0;0;0;0;0;0") const {
    store.addDocument(
        {.npwp = "013121660091000",
         .kdForm = store::D113210.kdForm,
         .jenisDokumen = store::D113210.jenisDokumen,
         .period = period},
        store::packedHead({.npwp = "013121660091000", .name = "PT Contoh", .address = "Jakarta"}, period) + ";" +
            std::string(sums));
  }
  void addLine(std::string_view kind, std::string_view payee, double gross, double tax,
               std::string_view period = "1, 2009, 0") const {
    store.run("INSERT INTO D113210 VALUES ('" + std::string(payee) + "', 'n', 'a', " + std::string(period) +
              ", '05/01/2009', '000001/PPH4', '" + std::string(kind) + "', '', " + std::to_string(gross) + ", 20, " +
              std::to_string(tax) + ", '', 0)");
  }
  std::string storedSums() const {
    const std::string packed = store.row("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'D113210'");
    std::size_t start = 0;
    for (int field = 0; field < 6; ++field) start = packed.find(';', start) + 1;
    return packed.substr(start);
  }
  std::string sums(std::initializer_list<std::string_view> names) const {
    std::string text;
    for (const std::string_view name : names)
      text += (text.empty() ? "" : ";") + store::fieldTextOr(list.rs4_2Hdr(), name, "-null-");
    return text;
  }
  /// The twelve sums as the table has them; what is not read stays -1.
  std::vector<double> table() {
    std::vector<double> v(12, -1);
    const Variant result = list.pGet_Tabel_D113210(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10],
                                                   v[11], "not read", 1, 2009, 0);
    EXPECT_TRUE(result.isEmpty());
    return v;
  }

  OpenStore store;
  CapturedMessages messages;
  CD113210 list;
};

// --- load and save ----------------------------------------------------------------------------------------

TEST_F(InterestList, LoadsItsHeaderByPeriodWhateverTheFiler) {
  list.pGetDaftarInduk("another", 1, 2009, 0);
  EXPECT_EQ(list.aNPWP(), "013121660091000");
  EXPECT_EQ(list.rs4_2Form()->get_RecordCount(), 1);
  EXPECT_EQ(list.dataMember("Primary"), list.rs4_2Form());
  CD113210 same;
  same.pGetD113210("", 1, 2009, 0);
  EXPECT_EQ(same.aNPWP(), "013121660091000");
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestList, HoldsNoRecordWithoutAHeader) {
  list.pGetD113210("", 2, 2009, 0);
  EXPECT_EQ(list.rs4_2Form()->get_RecordCount(), 0);
  EXPECT_EQ(list.rs4_2Hdr()->get_RecordCount(), 0);
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(list.aNPWP(), "");
  list.aJML23(5.0);
  list.pUpdate();
  EXPECT_EQ(messages.texts().size(), 3U);
}

TEST_F(InterestList, LoadsAndSavesTheHeaderOfItsPeriod) {
  addHeader({.msPajak = 2, .thPajak = 2009, .kdPembetulanKe = 0});
  addHeader({.msPajak = 1, .thPajak = 2010, .kdPembetulanKe = 0});
  addHeader({.msPajak = 1, .thPajak = 2009, .kdPembetulanKe = 1});
  store.addDocument({.npwp = "n", .kdForm = "D113206", .jenisDokumen = "08", .period = january}, "x");
  for (const auto load : {&CD113210::pGetDaftarInduk, &CD113210::pGetD113210}) {
    (list.*load)("", 1, 2009, 0);
    EXPECT_EQ(list.rs4_2Form()->get_RecordCount(), 1);
    list.aJML23(5.0);
    list.pUpdate();
    EXPECT_EQ(list.pGetD113210_rpt("", 1, 2009, 0)->get_RecordCount(), 1);
  }
  EXPECT_THAT(store.rows("SELECT MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE FROM DS_FORM_INDUK WHERE DAT_FORM LIKE "
                         "'%;5;0;0;0;0;0;5;0;0'"),
              testing::ElementsAre("1|2009|0"));
  EXPECT_EQ(store.rows("SELECT * FROM DS_FORM_INDUK WHERE DAT_FORM LIKE '%;0;0;0;0;0;0;0;0;0'").size(), 3U);
  EXPECT_TRUE(messages.empty());
}

// Packing comes first: a text that cannot be packed leaves the row as it was, loaded and stored.
TEST_F(InterestList, IsNotStoredWhenATextOfItsHeaderHoldsTheSeparator) {
  const auto before = store.dump();
  list.pGetD113210("", 1, 2009, 0);
  const std::string raw = store::fieldText(list.rs4_2Form(), "DAT_FORM");
  store::setField(list.rs4_2Hdr(), "NmWP", "PT A;B");
  list.aJML23(5.0);
  list.pUpdate();
  EXPECT_THAT(messages.texts(), testing::ElementsAre(testing::HasSubstr("'NmWP' holds ';'")));
  EXPECT_EQ(store::fieldText(list.rs4_2Form(), "DAT_FORM"), raw);
  EXPECT_EQ(store.dump(), before);
}

TEST_F(InterestList, LivesOnWithoutAStore) {
  moduleState() = {};
  CD113210 stranded;
  ASSERT_EQ(messages.texts().size(), 1U);
  stranded.pGetDaftarInduk("", 1, 2009, 0);
  stranded.pGetD113210("", 1, 2009, 0);
  EXPECT_EQ(stranded.pGetD113210_rpt("", 1, 2009, 0), nullptr);
  stranded.pUpdate();
  EXPECT_EQ(messages.texts().size(), 5U);
}

TEST_F(InterestList, FailsBeforeALoad) {
  list.aJML23(5.0);
  list.pUpdate();
  EXPECT_EQ(list.aNPWP(), "");
  EXPECT_EQ(list.dataMember("Secondary"), nullptr);
  EXPECT_EQ(messages.texts(), std::vector<std::string>(4, "Object variable or With block variable not set"));
}

TEST_F(InterestList, HasNoChildRows) {
  list.pGetD113210("", 1, 2009, 0);
  EXPECT_EQ(list.dataMember("Secondary"), nullptr);
  EXPECT_EQ(list.dataMember("Ternary"), nullptr);
  EXPECT_EQ(messages.texts().size(), 2U);
  EXPECT_EQ(list.dataMember("Other"), nullptr);
  EXPECT_EQ(messages.texts().size(), 2U);
}

TEST_F(InterestList, GivesAReportAndKeepsWhatIsLoaded) {
  addHeader({.msPajak = 2, .thPajak = 2009, .kdPembetulanKe = 0}, "7;0;0;0;0;0;0;0;0;0;0;0;7;0;0");
  list.pGetD113210("", 1, 2009, 0);
  const RecordsetPtr form = list.rs4_2Form();
  const RecordsetPtr header = list.rs4_2Hdr();
  const RecordsetPtr report = list.pGetD113210_rpt("", 2, 2009, 0);
  EXPECT_EQ(store::fieldText(report, "JML1A3"), "7");
  EXPECT_EQ(list.rs4_2Form(), form);
  EXPECT_EQ(list.rs4_2Hdr(), header);
  EXPECT_EQ(sums({"JML1A3"}), "0");
}

TEST_F(InterestList, TellsTheMovesOfItsHeader) {
  int moves = 0;
  list.MoveComplete.connect([&] { ++moves; });
  list.pGetD113210("", 1, 2009, 0);
  list.rs4_2Hdr()->MoveFirst();
  EXPECT_GT(moves, 0);
}

TEST_F(InterestList, NamesATableThatIsNotThereWhenDeleted) {
  const auto before = store.dump();
  list.pDelete("D113210", 1, 2009, 0);
  list.pDelete("1", 1, 2009, 0);
  EXPECT_EQ(messages.texts().size(), 2U);
  EXPECT_EQ(store.dump(), before);
}

// --- the setters ------------------------------------------------------------------------------------------

struct SetterCase {
  const char* field;
  const char* total;
  void (CD113210::*put)(const Variant&);
};

TEST_F(InterestList, AddsEachSumToTheTotalOfItsColumn) {
  const std::vector<SetterCase> cases = {{"JML1A3", "JML3", &CD113210::aJML1A3}, {"JML1A4", "JML4", &CD113210::aJML1A4},
                                         {"JML1A5", "JML5", &CD113210::aJML1A5}, {"JML1B3", "JML3", &CD113210::aJML1B3},
                                         {"JML1B4", "JML4", &CD113210::aJML1B4}, {"JML1B5", "JML5", &CD113210::aJML1B5},
                                         {"JML24", "JML4", &CD113210::aJML24},   {"JML23", "JML3", &CD113210::aJML23},
                                         {"JML25", "JML5", &CD113210::aJML25},   {"JML33", "JML3", &CD113210::aJML33},
                                         {"JML34", "JML4", &CD113210::aJML34},   {"JML35", "JML5", &CD113210::aJML35}};
  list.pGetD113210("", 1, 2009, 0);
  double value = 1;
  double totals[3] = {0, 0, 0};
  for (const SetterCase& test : cases) {
    (list.*test.put)(value);
    totals[test.total[3] - '3'] += value;
    EXPECT_EQ(store::fieldNumber(list.rs4_2Hdr(), test.field), value) << test.field;
    EXPECT_EQ(store::fieldNumber(list.rs4_2Hdr(), "JML3"), totals[0]) << test.field;
    EXPECT_EQ(store::fieldNumber(list.rs4_2Hdr(), "JML4"), totals[1]) << test.field;
    EXPECT_EQ(store::fieldNumber(list.rs4_2Hdr(), "JML5"), totals[2]) << test.field;
    value *= 2;
  }
  EXPECT_EQ(storedSums(), "0;0;0;0;0;0;0;0;0;0;0;0;0;0;0");
  list.pUpdate();
  // The values are 1, 2, 4 and so on in the order of the setters, where the gross of SBI (64) comes before its payees.
  EXPECT_EQ(storedSums(), "1;2;4;8;16;32;128;64;256;512;1024;2048;649;1106;2340");
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestList, LeavesTheOtherTotalsAloneWhenPayeesAreSet) {
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;2;0;0;0;0;0;0;0;0;1;0;0;3;77;88'");
  list.pGetD113210("", 1, 2009, 0);
  list.aJML23(5.0);
  EXPECT_EQ(sums({"JML1A3", "JML1B3", "JML23", "JML33", "JML3", "JML4", "JML5"}), "2;0;5;1;8;77;88");
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestList, ReadsATextAsANumber) {
  list.pGetD113210("", 1, 2009, 0);
  list.aJML24("1.250,5");
  EXPECT_EQ(sums({"JML24", "JML4"}), "1250,5;1250,5");
  list.aJML24("banyak");
  list.aJML24(Variant::null());
  EXPECT_EQ(messages.texts(), (std::vector<std::string>{"Type mismatch", "Invalid use of Null"}));
  EXPECT_EQ(sums({"JML24", "JML4"}), "1250,5;1250,5");
}

// The sum itself is written before its column is added up.
TEST_F(InterestList, KeepsTheOldTotalWhenAnotherKindIsNull) {
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;0;0;0;;0;0;0;0;0;0;0;0;9;0;0'");
  list.pGetD113210("", 1, 2009, 0);
  list.aJML1A3(2.0);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_EQ(sums({"JML1A3", "JML1B3", "JML3"}), "2;-null-;9");
}

// --- the table --------------------------------------------------------------------------------------------

TEST_F(InterestList, OfAnEmptyTableIsAllZero) {
  EXPECT_EQ(table(), std::vector<double>(12, 0));
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestList, CountsAPayeeOnceInAKind) {
  addLine("DN", "payee", 1000, 200);
  addLine("DN", "payee", 500, 100);
  addLine("GIRO", "payee", 30, 6);
  addLine("LN", "second", 7, 1);
  addLine("SBI", "second", 9, 2);
  addLine("SBI", "third", 9, 2);
  EXPECT_EQ(table(), (std::vector<double>{1, 1500, 300, 1, 7, 1, 2, 18, 4, 1, 30, 6}));
  EXPECT_EQ(storedSums(), "0;0;0;0;0;0;0;0;0;0;0;0;0;0;0");
}

// One payee with a domestic line and one of giro counts once in each kind, and so twice in the total.
TEST_F(InterestList, CountsAPayeeOfTwoKindsTwiceInItsTotal) {
  addLine("DN", "payee", 1000, 200);
  addLine("GIRO", "payee", 30, 6);
  const std::vector<double> v = table();
  list.pGetD113210("", 1, 2009, 0);
  list.aJML1A3(v[0]);
  list.aJML1B3(v[3]);
  list.aJML23(v[6]);
  list.aJML33(v[9]);
  EXPECT_EQ(sums({"JML1A3", "JML1B3", "JML23", "JML33", "JML3"}), "1;0;0;1;2");
}

TEST_F(InterestList, AddsUpFractions) {
  addLine("LN", "payee", 1000.25, 200.5);
  addLine("LN", "second", 0.5, 0.25);
  EXPECT_EQ(table(), (std::vector<double>{0, 0, 0, 2, 1000.75, 200.75, 0, 0, 0, 0, 0, 0}));
}

TEST_F(InterestList, PassesOverOtherKindsPeriodsAndCorrections) {
  addLine("OTHER", "payee", 1000, 200);
  addLine("", "payee", 1000, 200);
  addLine("DN", "payee", 1000, 200, "2, 2009, 0");
  addLine("DN", "payee", 1000, 200, "1, 2010, 0");
  addLine("DN", "payee", 1000, 200, "1, 2009, 1");
  EXPECT_EQ(table(), std::vector<double>(12, 0));
}

TEST_F(InterestList, LeavesTheVariablesAsTheyWereWhenTheTableIsGone) {
  dropTable(store.path(), "D113210");
  EXPECT_EQ(table(), std::vector<double>(12, -1));
  EXPECT_EQ(messages.texts().size(), 1U);
}

// The payees of a kind are counted before its amounts are added up, kind by kind: with amounts that cannot be added the
// first count is there and nothing behind it.
TEST_F(InterestList, ReadsKindByKindAndCountsFirst) {
  addLine("DN", "payee", 1000, 200);
  runNative(store.path(), "ALTER TABLE D113210 RENAME COLUMN PPH TO OTHER");
  std::vector<double> expected(12, -1);
  expected[0] = 1;
  EXPECT_EQ(table(), expected);
  EXPECT_EQ(messages.texts().size(), 1U);
}

// --- the lines of a slip --------------------------------------------------------------------------------------

struct HalvingCase {
  std::vector<double> rates;
  double rate;
};

TEST(DepositSum, HalvesItsRateFromDepositToDeposit) {
  const std::vector<HalvingCase> cases = {
      {{}, 0}, {{10}, 10}, {{10, 20}, 15}, {{10, 10, 40}, 25}, {{40, 10, 10}, 17.5}, {{0, 20}, 10}};
  for (const HalvingCase& test : cases) {
    lists::DepositSum sum("LN");
    for (const double rate : test.rates) sum.add(100.5, rate, 1.5);
    EXPECT_EQ(sum.line().ratePercent, test.rate);
    EXPECT_EQ(sum.line().grossRupiah, 100.5 * static_cast<double>(test.rates.size()));
    EXPECT_EQ(sum.line().taxRupiah, 1.5 * static_cast<double>(test.rates.size()));
    EXPECT_EQ(sum.line().kind, "LN");
    EXPECT_EQ(sum.line().place, "LN");
  }
}

}  // namespace
}  // namespace tarvola::test
