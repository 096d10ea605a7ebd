// Every property goes into the store and comes back.
#include <map>

#include "tarvola/store/DatFormConverter.h"
#include "tests/selfpaid/self_paid_store.h"

namespace tarvola::test {
namespace {

using testing::ElementsAre;

/// What the fields must read as, by name.
using Expected = std::map<std::string, Variant>;

void writeCommonFields(selfpaid::SelfPaidFrame& form, Expected& expected) {
  form.aTGL_POTONG(Date::fromYmd(2009, 2, 6));
  expected["Tgl_Potong"] = "06/02/2009";
  form.aNPWPLT("021832415000000");
  expected["NPWPLT"] = "021832415000000";
  form.aNMWPLT("Ani & Anak");
  expected["NMWPLT"] = "Ani & Anak";
  form.aALMLT("Jl. Dago No. 2, \"Bandung\"");
  expected["ALMLT"] = "Jl. Dago No. 2, \"Bandung\"";
  form.aNTTP("0102030405060708");
  expected["NTTP"] = "0102030405060708";
  form.aALM("Jl. Thamrin");
  expected["ALM"] = "Jl. Thamrin";
  form.aNPWP(filerNpwp);
  expected["NPWP"] = filerNpwp;
  form.aNMWP("PT Contoh Jaya – Ω");
  expected["NmWP"] = "PT Contoh Jaya – Ω";
  form.aKeterangan("lunas");
  expected["keterangan"] = "lunas";
  form.aSEQ(12);
  expected["SEQ"] = 12.0;
}

void writeOwnFields(CPPhSewaTanahBangunan& form, Expected& expected) {
  form.aLokasi("Jl. Braga 5");
  expected["Lokasi"] = "Jl. Braga 5";
  form.ajmlBruto(1234567890.5);
  expected["JMLBRUTO"] = 1234567890.5;
  form.aPPH(123456789.05);
  expected["PPH"] = 123456789.05;
}
void writeOwnFields(CPPhAlihTnhBgn& form, Expected& expected) {
  form.aLokasi("Jl. Braga 5");
  expected["Lokasi"] = "Jl. Braga 5";
  form.ajmlBruto(1234567890.5);
  expected["JMLBRUTO"] = 1234567890.5;
  form.aPPH(123456789.05);
  expected["PPH"] = 123456789.05;
}
void writeOwnFields(CPPhJasaKonstruksi& form, Expected& expected) {
  form.ajmlBruto1(1000.5);
  form.aPPH1(10);
  form.ajmlBruto2(2000);
  form.aPPH2(20);
  form.ajmlBruto3(3000);
  form.aPPH3(30.25);
  form.aJMLPPH(60.25);
  expected["JmlBruto1"] = 1000.5;
  expected["PPH1"] = 10.0;
  expected["JmlBruto2"] = 2000.0;
  expected["PPH2"] = 20.0;
  expected["JmlBruto3"] = 3000.0;
  expected["PPH3"] = 30.25;
  expected["JmlPPh"] = 60.25;
  expected["JMLPHSL"] = 6000.5;
}

/// The whole packed text, written down by hand.
template <class Form>
constexpr Text expectedText = "";
template <>
constexpr Text expectedText<CPPhSewaTanahBangunan> =
    "013121660091000;PT Contoh Jaya – Ω;Jl. Thamrin;1;2009;0;Jl. Braga 5;06/02/2009;0102030405060708;12;1234567890,5;"
    "123456789,05;021832415000000;Ani & Anak;Jl. Dago No. 2, \"Bandung\";lunas";
template <>
constexpr Text expectedText<CPPhAlihTnhBgn> =
    "013121660091000;PT Contoh Jaya – Ω;Jl. Thamrin;1;2009;0;06/02/2009;0102030405060708;12;1234567890,5;"
    "123456789,05;Jl. Braga 5;021832415000000;Ani & Anak;Jl. Dago No. 2, \"Bandung\";lunas";
template <>
constexpr Text expectedText<CPPhJasaKonstruksi> =
    "013121660091000;PT Contoh Jaya – Ω;Jl. Thamrin;1;2009;0;06/02/2009;0102030405060708;12;1000,5;10;2000;20;3000;"
    "30,25;60,25;6000,5;021832415000000;Ani & Anak;Jl. Dago No. 2, \"Bandung\";lunas";

template <class Form>
class SelfPaidRoundTrip : public SelfPaidForms<Form> {
 protected:
  /// Saves a form with every property written.
  Expected saveAll() {
    Expected expected;
    Form form;
    begin(form, "N1", 1);
    writeCommonFields(form, expected);
    writeOwnFields(form, expected);
    save(form);
    return expected;
  }
};
TYPED_TEST_SUITE(SelfPaidRoundTrip, AllForms, FormNames);

TYPED_TEST(SelfPaidRoundTrip, KeepsEveryPropertyInItsPlace) {
  this->saveAll();
  EXPECT_THAT(this->forms(), ElementsAre("0102030405060708|" + std::string(expectedText<TypeParam>)));
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidRoundTrip, ReadsEveryPropertyBack) {
  const Expected expected = this->saveAll();
  const std::string kind(Kind<TypeParam>::form);
  const RecordsetPtr raw = this->store.connect()->Execute("SELECT * FROM DAT_SSP_PPh22 WHERE KD_FORM = '" + kind + "'");
  const RecordsetPtr fields = DatFormConverter().ExpandDatForm(kind, raw);
  for (const auto& [name, value] : expected) EXPECT_EQ(store::fieldValue(fields, name), value) << name;

  TypeParam form;
  load(form, "0102030405060708", 12);
  EXPECT_EQ(form.aTGL_POTONG(), expected.at("Tgl_Potong"));
  EXPECT_EQ(form.aALM(), "Jl. Thamrin");
  EXPECT_EQ(form.aNPWP(), expected.at("NPWP"));
  EXPECT_EQ(form.aNMWP(), expected.at("NmWP"));
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidRoundTrip, ChangesNothingWhenSavedUnchanged) {
  this->saveAll();
  // The first of the two saves also brings the return to whole rupiah, which a fraction would move again.
  const auto before = this->store.dump();
  TypeParam form;
  beginEdit(form, "0102030405060708", 12);
  form.pAssignStatus(false, false, false);
  save(form);
  std::vector<std::string> after = this->store.dump();
  EXPECT_EQ(this->forms().front(), "0102030405060708|" + std::string(expectedText<TypeParam>));
  // The list row is replaced without a remark, as it was made; only the rate of the return may follow its whole rupiah.
  const auto withoutReturn = [](std::vector<std::string> rows) {
    std::erase_if(rows, [](const std::string& row) { return row.find("|F113204|") != std::string::npos; });
    return rows;
  };
  EXPECT_EQ(withoutReturn(after), withoutReturn(before));
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidRoundTrip, ReadsUnderOtherSettingsWhatItWroteUnderThem) {
  RegionalSettingsScope scope(RegionalSettings::unitedStates());
  add<TypeParam>("N1", 1.5, 1000.25, 100.5);
  remove<TypeParam>("N1", 1.5);
  EXPECT_TRUE(this->forms().empty());
  EXPECT_TRUE(this->listed().empty());
  EXPECT_EQ(this->listSums(), "0;0");
  EXPECT_TRUE(this->messages.empty());
}

}  // namespace
}  // namespace tarvola::test
