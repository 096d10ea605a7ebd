#include "tarvola/slips/CF113311.h"
#include "tarvola/slips/make_slip.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tests/slips/slip_store.h"

// The frame of the nine forms, one form after the other, by what each is known to differ in.
namespace tarvola::test {
namespace {

constexpr std::string_view number = "000001/PPH4";

struct Form {
  const char* kdForm;
  const char* jenisDokumen;
  /// A tariff and a gross of the form, and the gross and tax that follow in its line of the return.
  const char* tariff;
  const char* gross;
  std::string_view lineGross;
  std::string_view lineTax;
  bool scansNineForms = false;
  bool asksForFilerInDuplicates = false;
  bool asksForFilerInSave = true;
  bool staysLoaded = false;
  bool clearsBothCollections = false;
  /// What the list row says for "5 Jan 2009" and for "awal Januari"; nullptr where there is no list row.
  const char* listDate = "05/01/2009";
  const char* listDateOfNoDate = "awal Januari";
};

void PrintTo(const Form& form, std::ostream* out) { *out << form.kdForm; }

const std::vector<Form> forms = {
    {.kdForm = "F113309", .jenisDokumen = "02", .tariff = "B14", .gross = "B13", .lineGross = "B43", .lineTax = "B45"},
    {.kdForm = "F113310",
     .jenisDokumen = "03",
     .tariff = "B1A4",
     .gross = "B1A3",
     .lineGross = "B1a13",
     .lineTax = "B1a15",
     .scansNineForms = true,
     .asksForFilerInSave = false,
     .staysLoaded = true},
    {.kdForm = "F113311",
     .jenisDokumen = "04",
     .tariff = "B24",
     .gross = "B23",
     .lineGross = "B2b3",
     .lineTax = "B2b5",
     .listDate = "5 Jan 2009"},
    {.kdForm = "F113312",
     .jenisDokumen = "05",
     .tariff = "Tarif",
     .gross = "JMLBRUTO",
     .lineGross = "B5a3",
     .lineTax = "B5a5",
     .clearsBothCollections = true,
     .listDateOfNoDate = nullptr},
    {.kdForm = "F113316",
     .jenisDokumen = "06",
     .tariff = "B24",
     .gross = "B23",
     .lineGross = "B6b13",
     .lineTax = "B6b15",
     .clearsBothCollections = true},
    {.kdForm = "F113317",
     .jenisDokumen = "07",
     .tariff = "Tarif",
     .gross = "j2",
     .lineGross = "B33",
     .lineTax = "B35",
     .listDate = "5 Jan 2009"},
    {.kdForm = "F113319",
     .jenisDokumen = "15",
     .tariff = "Tarif",
     .gross = "JMLBRUTO",
     .lineGross = "B83",
     .lineTax = "B85",
     .scansNineForms = true,
     .clearsBothCollections = true,
     .listDate = "5 Jan 2009"},
    {.kdForm = "F113320",
     .jenisDokumen = "16",
     .tariff = "Tarif",
     .gross = "JMLBRUTO",
     .lineGross = "B93",
     .lineTax = "B95",
     .scansNineForms = true,
     .clearsBothCollections = true,
     .listDate = "5 Jan 2009"},
    {.kdForm = "F113321",
     .jenisDokumen = "17",
     .tariff = "Tarif",
     .gross = "JMLBRUTO",
     .lineGross = "B103",
     .lineTax = "B105",
     .scansNineForms = true,
     .asksForFilerInDuplicates = true,
     .clearsBothCollections = true,
     .listDate = "5 Jan 2009"}};

class SlipOfEveryForm : public testing::TestWithParam<Form> {
 protected:
  static std::unique_ptr<slips::SlipFrame> make() { return slips::makeSlip(GetParam().kdForm); }
  /// Starts a slip of 1000 rupiah at 20 percent.
  static std::unique_ptr<slips::SlipFrame> started(std::string_view slipNumber = number,
                                                   const store::Period& period = january) {
    auto slip = make();
    startSlip(*slip, slipNumber, period);
    write(*slip, 1000);
    return slip;
  }
  static void write(slips::SlipFrame& slip, double gross) {
    slip.put(GetParam().tariff, 20.0);
    slip.put(GetParam().gross, gross);
    if (slip.kdForm() == "F113316") slip.put("Opt5", std::int16_t{0});
  }
  void addSlipOfForm(std::string_view slipNumber = number, const store::Period& period = january) const {
    save(*started(slipNumber, period));
  }
  std::string line(const store::Period& period = january) const {
    return store.ofReturn({GetParam().lineGross, GetParam().lineTax, "C3"}, period);
  }
  std::string select(std::string_view columns) const {
    return "SELECT " + std::string(columns) + " FROM DS_FORM_INDUK WHERE KD_FORM = '" + GetParam().kdForm + "'";
  }
  std::string listed() const { return store.row("SELECT DAT_FORM FROM DS_FORM_LAMPIRAN"); }
  static std::string listRow(const char* date) {
    return "1;2009;1;021832415000000;Bandung;Ani;000001/PPH4;" + std::string(date) + ";1000;200";
  }

  SlipStore store;
  CapturedMessages messages;
};

INSTANTIATE_TEST_SUITE_P(EveryForm, SlipOfEveryForm, testing::ValuesIn(forms),
                         [](const auto& form) { return std::string(form.param.kdForm); });

// --- stub and load --------------------------------------------------------------------------------------------

TEST_P(SlipOfEveryForm, HasAStubUnderItsOwnCodes) {
  startSlip(*make(), number);
  EXPECT_EQ(
      store.row(select("NPWP, JENIS_DOKUMEN, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, NOBUKTI, KD_JENIS_PAJAK, "
                       "TGL_REKAM, TGL_UBAH, NIP, FlagNPWP")),
      "013121660091000|" + std::string(GetParam().jenisDokumen) + "|1|2009|0|000001/PPH4|113|05/01/2009|05/01/2009||0");
}

// The raw row is heard from while it opens, and is gone behind the load.
TEST_P(SlipOfEveryForm, TellsThatItsRowHasMovedWhenItIsLoaded) {
  const auto slip = make();
  startSlip(*slip, number);
  int moves = 0;
  slip->MoveComplete.connect([&] { ++moves; });
  slip->loadSlip(january, number);
  EXPECT_GT(moves, 0);
  EXPECT_EQ(slip->dataMember("Primary"), nullptr);
}

TEST_P(SlipOfEveryForm, HasNoChildRows) {
  const auto slip = make();
  startSlip(*slip, number);
  EXPECT_EQ(slip->dataMember("Secondary"), nullptr);
  EXPECT_EQ(slip->dataMember("Ternary"), nullptr);
  EXPECT_EQ(slip->dataMember("primary"), nullptr);
  EXPECT_EQ(messages.texts(), std::vector<std::string>(2, "Object variable or With block variable not set"));
}

// --- numbers ----------------------------------------------------------------------------------------------------

TEST_P(SlipOfEveryForm, ProposesANumberFromTheFormsThatItScans) {
  int stored = 10;
  int greatest = 0;
  for (std::size_t index = 0; index < forms.size(); ++index) {
    const std::string ofOther = "0000" + std::to_string(++stored);
    store.addDocument(
        {.npwp = "n", .kdForm = forms[index].kdForm, .jenisDokumen = "x", .period = january, .noBukti = ofOther}, "x");
    if (index < 6 || GetParam().scansNineForms) greatest = stored;
    EXPECT_EQ(make()->getNoBuktiHdr(2009, 0), "0000" + std::to_string(greatest + 1)) << forms[index].kdForm;
  }
}

TEST_P(SlipOfEveryForm, FindsANumberTakenInAnyForm) {
  for (const Form& other : forms) {
    const std::string taken = std::string("7/") + other.kdForm;
    store.addDocument({.npwp = "holder",
                       .kdForm = other.kdForm,
                       .jenisDokumen = "x",
                       .period = {.msPajak = 9, .thPajak = 2009, .kdPembetulanKe = 0},
                       .noBukti = taken},
                      "x");
    EXPECT_EQ(make()->pCheckNoBukti("holder", 2009, taken, 0)->get_RecordCount(), 1) << other.kdForm;
    const int found = make()->pCheckNoBukti("another", 2009, taken, 0)->get_RecordCount();
    EXPECT_EQ(found, GetParam().asksForFilerInDuplicates ? 0 : 1) << other.kdForm;
    EXPECT_EQ(make()->pCheckNoBukti("holder", 2009, taken, 1)->get_RecordCount(), 0);
    EXPECT_EQ(make()->pCheckNoBukti("holder", 2008, taken, 0)->get_RecordCount(), 0);
  }
  EXPECT_TRUE(messages.empty());
}

// --- save -------------------------------------------------------------------------------------------------------

TEST_P(SlipOfEveryForm, HoldsItsRowBehindASaveOnlyIfItIsInterest) {
  const auto slip = started();
  save(*slip);
  EXPECT_EQ(slip->rs4_2Form() != nullptr, GetParam().staysLoaded);
  EXPECT_EQ(slip->dataMember("Primary"), nullptr);
  EXPECT_TRUE(messages.empty());
}

TEST_P(SlipOfEveryForm, HandsItsDateToTheList) {
  const auto slip = started();
  slip->aTGL_POTONG("5 Jan 2009");
  save(*slip);
  EXPECT_EQ(listed(), listRow(GetParam().listDate));
  EXPECT_TRUE(messages.empty());
}

// A date that is none is no hindrance but to the rent slip, whose date passes through a date: the list then hears
// nothing at all, while the return moves.
TEST_P(SlipOfEveryForm, HandsWhatIsNoDateToTheListAsItStandsOrNotAtAll) {
  const auto slip = started();
  slip->aTGL_POTONG("awal Januari");
  save(*slip);
  const bool hasListRow = GetParam().listDateOfNoDate != nullptr;
  EXPECT_EQ(listed(), hasListRow ? listRow(GetParam().listDateOfNoDate) : "none");
  EXPECT_EQ(store.listSums(), hasListRow ? "1000;200" : "0;0");
  EXPECT_EQ(messages.empty(), hasListRow);
  EXPECT_EQ(line(), "1000;200;1");
}

TEST_P(SlipOfEveryForm, LooksForItsRowUnderItsFilerUnlessItIsInterest) {
  addSlipOfForm();
  const auto slip = make();
  startEdit(*slip, number);
  store::setField(slip->rs4_2Form(), "npwp", "another");
  save(*slip);
  EXPECT_EQ(store.rows(select("NPWP")).size(), GetParam().asksForFilerInSave ? 2U : 1U);
}

TEST_P(SlipOfEveryForm, MarksAFilerWithoutAnNpwpAndChangesNoTotal) {
  addSlipOfForm("000001/PPH4");
  CGeneralClass().pSet_NonNPWP_4a2(true, 120);
  addSlipOfForm("000002/PPH4");
  CGeneralClass().pSet_NonNPWP_4a2(false, 0);
  const std::string totals =
      "Total_Bruto, Total_PPh, Total_Bruto1, Total_PPh1, Total_Bruto2, Total_PPh2, Total_Bruto3, Total_PPh3, "
      "Total_Bruto4, Total_PPh4";
  EXPECT_EQ(store.row(select("FlagNPWP") + " AND NOBUKTI = '000001/PPH4'"), "1");
  EXPECT_EQ(store.row(select("FlagNPWP") + " AND NOBUKTI = '000002/PPH4'"), "2");
  const std::vector<std::string> both = store.rows(select(totals));
  ASSERT_EQ(both.size(), 2U);
  EXPECT_EQ(both[0], both[1]);
  EXPECT_THAT(both[0], testing::HasSubstr("1000|200"));
  EXPECT_EQ(line(), "2000;400;2");
}

// Month, year and correction each make another return.
TEST_P(SlipOfEveryForm, MovesTheReturnOfItsOwnMonthYearAndCorrection) {
  const std::vector<store::Period> others = {{.msPajak = 2, .thPajak = 2009, .kdPembetulanKe = 0},
                                             {.msPajak = 1, .thPajak = 2010, .kdPembetulanKe = 0},
                                             {.msPajak = 1, .thPajak = 2009, .kdPembetulanKe = 1}};
  for (const store::Period& period : others) {
    store.createReturn(period);
    addSlipOfForm(number, period);
    EXPECT_EQ(line(period), "1000;200;1");
    EXPECT_EQ(store.listSums(period), "1000;200");
  }
  EXPECT_EQ(line(), "0;0;0");
  EXPECT_EQ(store.listSums(), "0;0");
  make()->removeSlip(filerNpwp, others.back(), number);
  EXPECT_EQ(line(others[0]) + " " + line(others[1]) + " " + line(others[2]), "1000;200;1 1000;200;1 0;0;0");
  EXPECT_TRUE(messages.empty());
}

TEST_P(SlipOfEveryForm, CountsAsAddedEditedAndDeleted) {
  addSlipOfForm();
  EXPECT_EQ(line() + " " + store.listSums(), "1000;200;1 1000;200");
  const auto slip = make();
  startEdit(*slip, number);
  write(*slip, 300);
  save(*slip);
  EXPECT_EQ(line() + " " + store.listSums(), "300;60;1 300;60");
  startEdit(*slip, number);
  slip->pAssignStatus(false, false, true);
  save(*slip);
  EXPECT_EQ(line() + " " + store.listSums(), "0;0;0 0;0");
  EXPECT_TRUE(messages.empty());
}

// --- delete -----------------------------------------------------------------------------------------------------

TEST_P(SlipOfEveryForm, ClearsTheCollectionsOfTheListThatItMayStandIn) {
  addSlipOfForm();
  CD113206 list;
  list.pCreateD113206Hdr(1, 2009, 0, 1, number, "", "", "", "", 1, 1);
  make()->removeSlip(filerNpwp, january, number);
  EXPECT_EQ(store.row("SELECT COLLNO FROM DS_FORM_LAMPIRAN"), GetParam().clearsBothCollections ? "none" : "1");
  EXPECT_EQ(line(), "0;0;0");
  EXPECT_TRUE(messages.empty());
}

// Old amounts over Nulls are 0: a stub takes nothing from the lines, but it was never counted and is counted off.
// Interest needs its totals first, which a stub has not.
TEST_P(SlipOfEveryForm, DeletedAsAStubTakesNothingButItsCount) {
  addSlipOfForm();
  startSlip(*make(), "000002/PPH4");
  make()->removeSlip(filerNpwp, january, "000002/PPH4");
  const bool isInterest = GetParam().staysLoaded;
  EXPECT_EQ(line(), isInterest ? "1000;200;1" : "1000;200;0");
  EXPECT_EQ(messages.texts(),
            isInterest ? std::vector<std::string>{"Invalid use of Null"} : std::vector<std::string>{});
  EXPECT_EQ(store.rows(select("NOBUKTI")), std::vector<std::string>{std::string(number)});
}

// --- child rows where a raw row is kept -----------------------------------------------------------------------

TEST(SlipChildRows, AreMissingInARawRowThatIsKept) {
  const SlipStore store;
  CapturedMessages messages;
  CF113311 slip;
  startSlip(slip, number);
  slip.pGetBukti("", number, "0");
  ASSERT_NE(slip.dataMember("Primary"), nullptr);
  EXPECT_EQ(slip.dataMember("Secondary"), nullptr);
  EXPECT_EQ(slip.dataMember("Ternary"), nullptr);
  EXPECT_EQ(messages.texts(),
            std::vector<std::string>(
                2, "Item cannot be found in the collection corresponding to the requested name or ordinal."));
}

}  // namespace
}  // namespace tarvola::test
