#include "tests/slips/interest_store.h"

namespace tarvola::test {
namespace {

/// What the slip itself works out and stores.
class InterestSlip : public testing::Test {
 protected:
  InterestSlip() { startSlip(slip, number); }
  std::string fields(std::initializer_list<std::string_view> names) const { return fieldsOf(slip, names); }

  InterestStore store;
  CapturedMessages messages;
  CF113310 slip;
};

// --- the stub ------------------------------------------------------------------------------------------------

TEST_F(InterestSlip, StartsFromAStubByTheKindOfPayee) {
  const std::string head = "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009;";
  const std::vector<std::pair<std::int16_t, std::string>> cases = {{std::int16_t{1}, head + "1/X;1;0;1;0;1;0;1;0;1;0"},
                                                                   {std::int16_t{2}, head + "2/X;0;0;0;0;0;0;0;0;0;0"},
                                                                   {std::int16_t{3}, ""},
                                                                   {std::int16_t{0}, ""}};
  for (const auto& [iOptWP, packed] : cases) {
    const std::string stubNumber = std::to_string(iOptWP) + "/X";
    CF113310 stub;
    stub.pCreateF113310Hdr(filerNpwp, "F113310", "03", 1, 2009, 0, stubNumber, "113", filerName, filerAddress,
                           "05/01/2009", iOptWP);
    EXPECT_EQ(store.row("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE NOBUKTI = '" + stubNumber + "'"), packed) << iOptWP;
  }
  slip.pGetF113310("", "F113310", "03", 1, 2009, 0, "2/X", "113", "", "", Date());
  EXPECT_EQ(fields({"NoBukti", "OPTDN1", "OPTLN5", "B1A3"}), "2/X;0;0;-null-");
  EXPECT_TRUE(messages.empty());
}

// The place that the list looks at lies behind the end of a stub.
TEST_F(InterestSlip, HasNoKindOfPayeeThatTheListCanRead) {
  EXPECT_EQ(CD113206().pGetOptWP("", number, 1, "F113310", 2009, 0), 0);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Subscript out of range"});
}

// --- properties ------------------------------------------------------------------------------------------------

struct RowCase {
  const char* gross;
  const char* tariff;
  const char* tax;
  void (CF113310::*putGross)(double);
  void (CF113310::*putTariff)(double);
  void (CF113310::*putTax)(double);
};

TEST_F(InterestSlip, ComputesTheTaxOfEachRow) {
  const std::vector<RowCase> rows = {{"B1A3", "B1A4", "B1A5", &CF113310::aB1a3, &CF113310::aB1A4, &CF113310::aB1A5},
                                     {"B1B3", "B1B4", "B1B5", &CF113310::aB1B3, &CF113310::aB1B4, &CF113310::aB1B5},
                                     {"B1C3", "B1C4", "B1C5", &CF113310::aB1C3, &CF113310::aB1C4, &CF113310::aB1C5},
                                     {"B23", "B24", "B25", &CF113310::aB23, &CF113310::aB24, &CF113310::aB25},
                                     {"B33", "B34", "B35", &CF113310::aB33, &CF113310::aB34, &CF113310::aB35},
                                     {"B43", "B44", "B45", &CF113310::aB43, &CF113310::aB44, &CF113310::aB45},
                                     {"B53", "B54", "B55", &CF113310::aB53, &CF113310::aB54, &CF113310::aB55},
                                     {"B63", "B64", "B65", &CF113310::aB63, &CF113310::aB64, &CF113310::aB65}};
  for (const RowCase& row : rows) {
    (slip.*row.putGross)(1234.5);
    EXPECT_EQ(fields({row.gross, row.tariff, row.tax}), "1234,5;-null-;-null-");
    (slip.*row.putTariff)(20);
    EXPECT_EQ(fields({row.tax}), "246,9");
    (slip.*row.putTax)(7.5);
    EXPECT_EQ(fields({row.gross, row.tariff, row.tax}), "1234,5;20;7,5");
  }
  // The tariff is divided first.
  slip.aB1A4(7);
  slip.aB1a3(3);
  EXPECT_EQ(store::fieldNumber(slip.rs4_2Form(), "B1A5"), 3 * (7.0 / 100));
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestSlip, GivesTheAmountsThatHaveAGetter) {
  double value = 1;
  const auto next = [&] { return value++; };
  slip.aB1a3(next());
  slip.aB1A4(next());
  slip.aB1B3(next());
  slip.aB1B4(next());
  slip.aB1C3(next());
  slip.aB1C4(next());
  slip.aB23(next());
  slip.aB24(next());
  slip.aB33(next());
  slip.aB34(next());
  slip.aB43(next());
  slip.aB44(next());
  value = 1;
  for (const Variant& read : {slip.aB1a3(), slip.aB1A4(), slip.aB1B3(), slip.aB1B4(), slip.aB1C3(), slip.aB1C4(),
                              slip.aB23(), slip.aB24(), slip.aB33(), slip.aB34(), slip.aB43(), slip.aB44()})
    EXPECT_EQ(read, Variant(value++));
}

struct OptionCase {
  const char* field;
  void (CF113310::*put)(std::int16_t);
  std::int16_t (CF113310::*get)() const;
};

TEST_F(InterestSlip, KeepsTheOptionsOfItsRows) {
  const std::vector<OptionCase> options = {
      {"OPTDN1", &CF113310::aOPTDN1, &CF113310::aOPTDN1}, {"OPTDN2", &CF113310::aOPTDN2, &CF113310::aOPTDN2},
      {"OPTDN3", &CF113310::aOPTDN3, &CF113310::aOPTDN3}, {"OPTDN4", &CF113310::aOPTDN4, &CF113310::aOPTDN4},
      {"OPTDN5", &CF113310::aOPTDN5, &CF113310::aOPTDN5}, {"OPTLN1", &CF113310::aOPTLN1, &CF113310::aOPTLN1},
      {"OPTLN2", &CF113310::aOPTLN2, &CF113310::aOPTLN2}, {"OPTLN3", &CF113310::aOPTLN3, &CF113310::aOPTLN3},
      {"OPTLN4", &CF113310::aOPTLN4, &CF113310::aOPTLN4}, {"OPTLN5", &CF113310::aOPTLN5, &CF113310::aOPTLN5}};
  std::int16_t value = 10;
  for (const OptionCase& option : options) {
    (slip.*option.put)(++value);
    EXPECT_EQ((slip.*option.get)(), value) << option.field;
    EXPECT_EQ(store::fieldInteger(slip.rs4_2Form(), option.field), value) << option.field;
  }
}

TEST_F(InterestSlip, KeepsSixCertificateNumbers) {
  slip.aAssignNoSKB1("a");
  slip.aAssignNoSKB2("b");
  slip.aAssignNoSKB3("c");
  slip.aAssignNoSKB4("d");
  slip.aAssignNoSKB5("e");
  slip.aAssignNoSKB6("f");
  std::string all;
  for (std::int16_t index = 0; index < 6; ++index) all += slip.aGetNoSKB(index);
  EXPECT_EQ(all, "abcdef");
  for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{6}, std::int16_t{32767}})
    EXPECT_EQ(slip.aGetNoSKB(index), "");
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestSlip, KeepsFourCountsThatNothingReads) {
  slip.aJmlNOPDN(1);
  slip.aJmlNOPLN(2);
  slip.aJmlPPhDN(3);
  slip.aJmlPPhLN(4);
  EXPECT_EQ(fields({"JmlNOPDN", "JmlNOPLN", "JmlPPhDN", "JmlPPhLN"}), "1;2;3;4");
}

// --- normalisation -----------------------------------------------------------------------------------------------

TEST_F(InterestSlip, CountsRowsWithoutOptionsAsDomestic) {
  store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = 'n;a;b;1;2009;0;05/01/2009;000001/PPH4' WHERE KD_FORM = 'F113310'");
  slip.loadSlip(january, number);
  slip.aOPTLN2(1);
  slip.aB1a3(1000.9);
  slip.aB65(2.9);
  slip.pHitPjk(1);
  EXPECT_EQ(fields({"OPTDN1", "OPTLN1", "OPTDN2", "OPTLN2", "OPTDN5", "OPTLN5"}), "1;0;1;1;1;0");
  EXPECT_EQ(fields({"B1A3", "B1A4", "B1A5", "B62", "B63", "B65", "JmlB5", "JMLPHSL"}), "1000;0;0;;0;2;2;1000");
  EXPECT_TRUE(messages.empty());
}

// Row by row with its tariff; then options and text; then the sums.
TEST_F(InterestSlip, IsNormalisedInItsOrder) {
  store.run(
      "UPDATE DS_FORM_INDUK SET DAT_FORM = "
      "'n;a;b;1;2009;0;05/01/2009;000001/PPH4;;;;;;;;;;;p;q;r;1,5;;;2,5;;dua;3,5' WHERE KD_FORM = 'F113310'");
  slip.loadSlip(january, number);
  slip.pHitPjk(1);
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Type mismatch"});
  EXPECT_EQ(fields({"B1A3", "B1A4", "B1A5", "B1B3", "B1B4", "B1B5", "B1C3", "OPTDN1", "JmlB5"}),
            "1;0;0;2;-null-;dua;3,5;-null-;-null-");
}

TEST_F(InterestSlip, TakesOneDefaultTariffInAllRows) {
  slip.getTaxRate();
  EXPECT_EQ(fields({"B1A4", "B1B4", "B1C4", "B24", "B34", "B44", "B54", "B64"}), "20;20;20;20;20;20;20;20");
  store.run("DELETE * FROM SETTING_TARIF_PPH");
  slip.getTaxRate();
  EXPECT_EQ(fields({"B1A4", "B64"}), "0;0");
}

// --- the stored row ------------------------------------------------------------------------------------------------

TEST_F(InterestSlip, WritesEveryFieldInItsPlaceAndStaysLoaded) {
  slip.getTaxRate();
  slip.aB1a3(1000);
  slip.aB1B3(2000);
  setSide(slip, 2, 0, 1);
  slip.aB1C3(3000);
  setSide(slip, 3, 1, 1);
  slip.aB23(4000);
  setSide(slip, 4, 0, 0);
  slip.aB33(5000);
  slip.aB43(6000);
  slip.aB53(7000);
  slip.aB62("Obligasi");
  slip.aB63(8000);
  save(slip);
  EXPECT_EQ(store.slipColumn("DAT_FORM"),
            "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;05/01/2009;000001/PPH4;1;0;0;1;1;1;0;0;1;0;"
            "021832415000000;Ani;Bandung;1000;20;200;2000;20;400;3000;20;600;4000;20;800;5000;20;1000;6000;20;1200;"
            "7000;20;1400;Obligasi;8000;20;1600;7200;36000");
  // Rows 1, 3 and 5 are domestic, 2 and 3 foreign: row 3 counts twice and row 4 not at all.
  EXPECT_EQ(store.slipColumn("Total_Bruto1, Total_PPh1, Total_Bruto2, Total_PPh2, Total_Bruto3, Total_PPh3, "
                             "Total_Bruto4, Total_PPh4, Total_Bruto, Total_PPh"),
            "9000|1800|5000|1000|6000|1200|7000|1400|8000|1600");
  EXPECT_EQ(store.listSums(), "36000;7200");
  EXPECT_EQ(store.ofReturn({"B1a13", "B1a15", "B1a23", "B1a25", "B1B3", "B1B5", "B1C3", "B1C5", "B11a", "B11a3",
                            "B11a4", "B11a5", "C3"}),
            "9000;1800;5000;1000;6000;1200;7000;1400;Obligasi;8000;20;1600;1");
  EXPECT_EQ(fields({"NoBukti", "B1A3"}), "000001/PPH4;1000");
  EXPECT_EQ(slip.dataMember("Primary"), nullptr);
  EXPECT_TRUE(messages.empty());
}

TEST_F(InterestSlip, MarksASlipOfAFilerWithoutAnNpwpAndChangesNoTotal) {
  CGeneralClass().pSet_NonNPWP_4a2(true, 120);
  slip.getTaxRate();
  slip.aB1a3(1000);
  slip.aB63(500);
  save(slip);
  CGeneralClass().pSet_NonNPWP_4a2(false, 0);
  EXPECT_EQ(store.slipColumn("FlagNPWP, Total_PPh1, Total_PPh"), "2|200|100");
}

// The row is found by period and number: a slip that names another filer finds that of the first.
TEST_F(InterestSlip, FindsItsRowWhateverTheFiler) {
  store::setField(slip.rs4_2Form(), "npwp", "another");
  save(slip);
  EXPECT_EQ(store.slipColumn("NPWP, NOBUKTI"), "013121660091000|000001/PPH4");
}

TEST_F(InterestSlip, WithNullAmountsFailsBeforeTheStoreIsTouched) {
  const auto before = store.dump();
  slip.pUpdate();
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"});
  EXPECT_EQ(store.dump(), before);
}

// The totals come first when the return is moved, before it is loaded: a stub that is deleted has none, so that the
// return stays, which never counted it.
TEST_F(InterestSlip, DeletedAsAStubLeavesTheReturnAlone) {
  CF113204 mainReturn;
  mainReturn.pGetF113204("", "", "01", 1, 2009, 0, "", "113");
  mainReturn.aC3(5);
  mainReturn.pUpdate();
  slip.pDeleteF113310(filerNpwp, "F113310", "03", 1, 2009, 0, number, "113");
  // On no side, too: the gross of the slip is one of its totals.
  slip.pCreateF113310Hdr(filerNpwp, "F113310", "03", 1, 2009, 0, number, "113", "n", "a", "05/01/2009", 2);
  slip.pDeleteF113310(filerNpwp, "F113310", "03", 1, 2009, 0, number, "113");
  EXPECT_EQ(messages.texts(), std::vector<std::string>(2, "Invalid use of Null"));
  EXPECT_EQ(store.slipColumn("NOBUKTI"), "none");
  EXPECT_EQ(store.ofReturn({"B1a13", "C3"}), "0;5");
}

// Any one of the eight grosses and of the taxes of SBI, giro and other interest is part of a total.
TEST_F(InterestSlip, HasNoTotalsOverANullOnAnyRow) {
  for (const auto* field : {"B1A3", "B1B3", "B1C3", "B23", "B33", "B43", "B45", "B53", "B55", "B63", "B65"}) {
    slip.loadSlip(january, number);
    slip.pHitPjk(1);
    for (int row = 1; row <= 5; ++row) setSide(slip, row, 0, 0);
    store::setField(slip.rs4_2Form(), field, Variant::null());
    messages.clear();
    const auto before = store.dump();
    slip.pUpdF113204();
    EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"}) << field;
    EXPECT_EQ(store.dump(), before) << field;
  }
  // The tax of a deposit on no side is part of none.
  startSlip(slip, number);
  slip.pHitPjk(1);
  setSide(slip, 1, 0, 0);
  store::setField(slip.rs4_2Form(), "B1A5", Variant::null());
  messages.clear();
  slip.pUpdate();
  EXPECT_EQ(messages.texts(), std::vector<std::string>{});
}

// An option that is Null marks no side.
TEST_F(InterestSlip, WithoutOptionsIsOnNoSide) {
  slip.getTaxRate();
  slip.aB1a3(1000);
  slip.aB1B3(500);
  slip.pHitPjk(1);
  store::setField(slip.rs4_2Form(), "OPTDN1", Variant::null());
  slip.pUpdate();
  EXPECT_EQ(store.slipColumn("Total_Bruto1, Total_PPh1, Total_Bruto2"), "500|100|0");
  EXPECT_EQ(store.listSums(), "1500;300");
  EXPECT_TRUE(messages.empty());
}

}  // namespace
}  // namespace tarvola::test
