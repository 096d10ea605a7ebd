#include "tarvola/runtime/text_forms.h"
#include "tarvola/slips/CF113317.h"
#include "tarvola/slips/make_slip.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/store/form_layouts.h"
#include "tests/slips/slip_store.h"

namespace tarvola::test {
namespace {

using slips::FieldKind;
using slips::SlipField;

class SlipFields : public testing::TestWithParam<std::string_view> {
 protected:
  static Variant sampleOf(const SlipField& field) {
    switch (field.kind) {
      case FieldKind::Text:
        return "Kata-kata";
      case FieldKind::Date:
        return "06/01/2009";
      case FieldKind::Option:
        return std::int16_t{1};
      case FieldKind::WholeNumber:
        return std::int16_t{12};
      case FieldKind::Amount:
      case FieldKind::Percent:
        break;
    }
    return 25.0;
  }

  SlipStore store;
  CapturedMessages messages;
};

INSTANTIATE_TEST_SUITE_P(EveryForm, SlipFields,
                         testing::Values("F113309", "F113310", "F113311", "F113312", "F113316", "F113317", "F113319",
                                         "F113320", "F113321"),
                         [](const auto& form) { return std::string(form.param); });

TEST_P(SlipFields, HaveAPlaceInTheirForm) {
  const auto slip = slips::makeSlip(GetParam());
  ASSERT_NE(slip, nullptr);
  EXPECT_EQ(slip->kdForm(), GetParam());
  const store::FormLayout* layout = store::findLayout(GetParam());
  ASSERT_NE(layout, nullptr);
  for (const SlipField& field : slip->writableFields()) EXPECT_TRUE(layout->position(field.name)) << field.name;
  EXPECT_GE(slip->writableFields().size(), 9U);
}

// The tool writes them in this order; whatever one of them works out, the last word on a field is its own.
TEST_P(SlipFields, AreReadBackAsTheyWereWritten) {
  const auto slip = slips::makeSlip(GetParam());
  startSlip(*slip, "000001/PPH4");
  for (const SlipField& field : slip->writableFields()) {
    slip->put(field.name, sampleOf(field));
    EXPECT_EQ(CStr(slip->get(field.name)), CStr(sampleOf(field))) << field.name;
  }
  EXPECT_TRUE(messages.empty());
}

TEST_P(SlipFields, AreFoundWithoutRegardToCase) {
  const auto slip = slips::makeSlip(GetParam());
  startSlip(*slip, "000001/PPH4");
  slip->put("nmwplt", "Budi");
  EXPECT_EQ(slip->get("NMWPLT"), Variant("Budi"));
  EXPECT_EQ(slip->get("NmWpLt"), Variant("Budi"));
}

TEST_P(SlipFields, WithoutAPropertyCannotBeWritten) {
  const auto slip = slips::makeSlip(GetParam());
  startSlip(*slip, "000001/PPH4");
  slip->put("KD_PEMBETULAN_KE", std::int16_t{3});
  slip->put("NoSuchField", 1.0);
  slip->put("", 1.0);
  EXPECT_EQ(messages.texts(), std::vector<std::string>(3, "Object doesn't support this property or method"));
  EXPECT_EQ(fieldsOf(*slip, {"KD_PEMBETULAN_KE"}), "0");
}

TEST_P(SlipFields, OfAPlainTypeRefuseNullAndWhatCannotBeTurnedIntoIt) {
  const auto slip = slips::makeSlip(GetParam());
  startSlip(*slip, "000001/PPH4");
  for (const SlipField& field : slip->writableFields()) {
    messages.clear();
    slip->put(field.name, sampleOf(field));
    slip->put(field.name, Variant::null());
    if (field.takesAnyValue) {
      EXPECT_TRUE(messages.empty()) << field.name;
      EXPECT_TRUE(slip->get(field.name).isNull()) << field.name;
      continue;
    }
    EXPECT_EQ(messages.texts(), std::vector<std::string>{"Invalid use of Null"}) << field.name;
    if (field.kind == FieldKind::Text) continue;
    slip->put(field.name, "bukan angka");
    EXPECT_EQ(messages.texts().back(), "Type mismatch") << field.name;
    EXPECT_EQ(CStr(slip->get(field.name)), CStr(sampleOf(field))) << field.name;
  }
}

TEST_P(SlipFields, OfNoLoadedSlipFail) {
  const auto slip = slips::makeSlip(GetParam());
  EXPECT_TRUE(slip->get("NoBukti").isEmpty());
  slip->put("NoBukti", "1");
  EXPECT_EQ(messages.texts(), std::vector<std::string>(2, "Object variable or With block variable not set"));
  messages.clear();
  startSlip(*slip, "000001/PPH4");
  EXPECT_TRUE(slip->get("NoSuchField").isEmpty());
  EXPECT_EQ(messages.texts().size(), 1U);
}

// Stub, load, save and delete without knowing the form. The number is written before the old values are taken, so that
// no stub stays behind.
TEST_P(SlipFields, AreSavedAndDeletedWithTheirSlipWhateverItsForm) {
  const auto slip = slips::makeSlip(GetParam());
  startSlip(*slip, "000001/PPH4");
  slip->put("INVOICE", "INV-1");
  if (GetParam() == "F113316") slip->put("Opt5", std::int16_t{0});
  save(*slip);
  EXPECT_TRUE(messages.empty());
  const std::string ofForm = " FROM DS_FORM_INDUK WHERE KD_FORM = '" + std::string(GetParam()) + "'";
  EXPECT_EQ(store.rows("SELECT NOBUKTI, NPWP, FlagNPWP" + ofForm),
            std::vector<std::string>{"000001/PPH4|013121660091000|1"});
  EXPECT_EQ(store.listed(), std::vector<std::string>{"000001/PPH4"});
  EXPECT_EQ(store.ofReturn({"C3", "CHKC2", "CHKC3"}), "1;1;1");
  slip->loadSlip(january, "000001/PPH4");
  EXPECT_EQ(fieldsOf(*slip, {"INVOICE", "NMWPLT", "Tgl_Potong"}), "INV-1;Ani;05/01/2009");
  slip->removeSlip(filerNpwp, january, "000001/PPH4");
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(store.row("SELECT NOBUKTI" + ofForm), "none");
  EXPECT_TRUE(store.listed().empty());
  EXPECT_EQ(store.ofReturn({"C3", "CHKC2", "CHKC3"}), "0;0;0");
}

TEST_P(SlipFields, OfAnEditKeepTheirRowDateAndPlaceInTheList) {
  for (const auto* number : {"000001/PPH4", "000002/PPH4"}) {
    const auto slip = slips::makeSlip(GetParam());
    startSlip(*slip, number);
    if (GetParam() == "F113316") slip->put("Opt5", std::int16_t{0});
    save(*slip);
  }
  setToday(Date::fromYmd(2010, 6, 30));
  const auto slip = slips::makeSlip(GetParam());
  startEdit(*slip, "000001/PPH4");
  slip->aNMWPLT("Budi");
  save(*slip);
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(
      store.rows("SELECT TGL_REKAM, TGL_UBAH FROM DS_FORM_INDUK WHERE KD_FORM = '" + std::string(GetParam()) + "'"),
      std::vector<std::string>(2, "05/01/2009|05/01/2009"));
  EXPECT_EQ(store.rows("SELECT SEQ, NOBUKTI FROM DS_FORM_LAMPIRAN ORDER BY SEQ"),
            (std::vector<std::string>{"1|000001/PPH4", "2|000002/PPH4"}));
  EXPECT_EQ(store.ofReturn({"C3"}), "2");
}

TEST(SlipMaker, KnowsTheNineFormsByTheirExactCode) {
  const SlipStore store;
  CapturedMessages messages;
  for (const store::FormCodes& form : slips::nineSlipForms)
    EXPECT_EQ(slips::makeSlip(form.kdForm)->kdForm(), form.kdForm);
  for (const auto* code : {"", "f113309", "F113309 ", "F113204", "D113206", "F113313"})
    EXPECT_EQ(slips::makeSlip(code), nullptr) << code;
}

// --- a field by its name does what its property does ------------------------------------------------------------

TEST(SlipFieldByName, ComputesTheTaxOfItsRow) {
  const SlipStore store;
  CF113309 slip;
  startSlip(slip, "000001/PPH4");
  slip.put("B14", 25.0);
  slip.put("b13", "1.000");
  EXPECT_EQ(fieldsOf(slip, {"B13", "B14", "B15"}), "1000;25;250");
}

TEST(SlipFieldByName, WorksOutTheInterestOfABond) {
  const SlipStore store;
  CF113317 slip;
  startSlip(slip, "000001/PPH4");
  slip.put("K2", 0.0);
  slip.put("TimePeriode", 365.0);
  slip.put("HoldingPeriode", 90.0);
  slip.put("D1", 12.0);
  slip.put("B1", "1.000.000");
  EXPECT_EQ(fieldsOf(slip, {"b1", "k2"}), "1000000;29589");
}

// aALM of a bond slip writes the payee's address; the filer's has no property that writes it.
TEST(SlipFieldByName, IsTheFieldAndNotTheProperty) {
  const SlipStore store;
  CapturedMessages messages;
  CF113317 slip;
  startSlip(slip, "000001/PPH4");
  slip.put("ALM", "Medan");
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"Object doesn't support this property or method"});
}

}  // namespace
}  // namespace tarvola::test
