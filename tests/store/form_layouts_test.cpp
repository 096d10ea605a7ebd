#include "tarvola/store/form_layouts.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "tarvola/store/form_codes.h"

namespace tarvola::store {
namespace {

/// A form as it stands on paper, written down here by hand: one word for each position, "|" between fields that share
/// one. A leading sign tells the type: # Double, % Integer, @ date text, none text.
struct WrittenDown {
  std::string_view code;
  std::string_view positions;
  std::string_view extras = "";
};

constexpr WrittenDown writtenDown[] = {
    {"F113204",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE "
     "#B1a13 #B1a14 #B1a15 #B1a23 #B1a24 #B1a25 #B1B3 #B1B4 #B1B5 #B1C3 #B1C4 #B1C5 "
     "#B2a3 #B2a4 #B2a5 #B2b3 #B2b4 #B2b5 #B33 #B34 #B35 #B43 #B44 #B45 "
     "#B5a3 #B5a4 #B5a5 #B5b3 #B5b4 #B5b5 #B6a13 #B6a14 #B6a15 #B6a23 #B6a24 #B6a25 "
     "#B6b13 #B6b14 #B6b15 #B6b23 #B6b24 #B6b25 #B6c13 #B6c14 #B6c15 #B6c23 #B6c24 #B6c25 "
     "#B73 #B74 #B75 #B83 #B84 #B85 #B93 #B94 #B95 #B103 #B104 #B105 "
     "B11a #B11a3 #B11a4 #B11a5 B11b #B11b3 #B11b4 #B11b5 B11c #B11c3 #B11c4 #B11c5 "
     "#JmlB5 #JMLPHSL %CHKC1 #c1 %CHKC2 %CHKC3 #C3 %CHKC4 %flagKuasa @TGL_TRV "
     "%CHKC5 %CHKC6 @TGL_SETOR "
     "#B1a31_2|#B1A41_2|#B1A51_2 #B1a32_2|#B1A42_2|#B1A52_2 #B1b3_2|#B1B4_2|#B1B5_2 #B1C3_2|#B1C4_2|#B1C5_2 "
     "#B7A5|#B7B5|#B7C5 #B8A31|#B8A41|#B8A51 #B8A32|#B8A42|#B8A52 #B8B31|#B8B41|#B8B51 #B8B32|#B8B42|#B8B52 "
     "#B8C31|#B8C41|#B8C51 #B8C32|#B8C42|#B8C52 "
     "#B9A3|#B9A4|#B9A5|B9A2 #B9B3|#B9B4|#B9B5|B9B2 #B9C3|#B9C4|#B9C5|B9C2 #B8B5 #B55"},
    {"F113309",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NoBukti NPWPLT NMWPLT ALMLT "
     "B12 #B13 #B15 B22 #B23 #B25 B32 #B33 #B35 B42 #B43 #B45 B52 #B53 #B55 B62 #B63 #B65 "
     "#B14 #B24 #B34 #B44 #B54 #B64 #JmlB5 #JMLPHSL",
     "INVOICE"},
    {"F113310",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NoBukti "
     "%OPTDN1 %OPTLN1 %OPTDN2 %OPTLN2 %OPTDN3 %OPTLN3 %OPTDN4 %OPTLN4 %OPTDN5 %OPTLN5 NPWPLT NMWPLT ALMLT "
     "#B1A3 #B1A4 #B1A5 #B1B3 #B1B4 #B1B5 #B1C3 #B1C4 #B1C5 #B23 #B24 #B25 #B33 #B34 #B35 "
     "#B43 #B44 #B45 #B53 #B54 #B55 B62 #B63 #B64 #B65 #JmlB5 #JMLPHSL",
     "INVOICE NoSKB1 NoSKB2 NoSKB3 NoSKB4 NoSKB5 NoSKB6 #JmlNOPDN #JmlNOPLN #JmlPPhDN #JmlPPhLN"},
    {"F113311",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NoBukti NPWPLT NMWPLT ALMLT "
     "#B13 #B14 #B15 #B23 #B24 #B25 #JmlB5 #JMLPHSL",
     "INVOICE BURSA"},
    {"F113312",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NoBukti NPWPLT NMWPLT ALMLT "
     "Lokasi #JMLBRUTO #Tarif #PPHDIPTG",
     "INVOICE NMUSER"},
    {"F113316",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NoBukti NPWPLT NMWPLT ALMLT "
     "#B13 #B14 #B15 #B23 #B24 #B25 #B33 #B34 #B35 %Opt4 #B43 #B44 #B45 %Opt5 #B53 #B54 #B55 #JmlB5 #JMLPHSL",
     "INVOICE"},
    {"F113317",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong @E1 @F1 @G1 NoBukti NPWPLT NMWPLT ALMLT "
     "a1 #b1 c1 #d1 #h1 #i1 #j2 #k2 #JML #PPhFinal #Tarif %HoldingPeriode %TimePeriode",
     "INVOICE %OptPPhFinTdkDiptg"},
    {"F113319",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NoBukti NPWPLT NMWPLT ALMLT "
     "#JMLBRUTO #Tarif #PPHDIPTG",
     "INVOICE NMUSER Lokasi"},
    {"F113320",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NoBukti NPWPLT NMWPLT ALMLT "
     "#JMLBRUTO #Tarif #PPHDIPTG",
     "INVOICE NMUSER Lokasi"},
    {"F113321",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NoBukti NPWPLT NMWPLT ALMLT "
     "#JMLBRUTO #Tarif #PPHDIPTG",
     "INVOICE NMUSER Lokasi"},
    {"FSewaTnhBgn", "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE Lokasi @Tgl_Potong NTTP #SEQ #JMLBRUTO #PPH",
     "NPWPLT NMWPLT ALMLT keterangan"},
    {"FAlihTnhBgn", "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NTTP #SEQ #JMLBRUTO #PPH",
     "Lokasi NPWPLT NMWPLT ALMLT keterangan"},
    {"FJasaKonstruksi",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE @Tgl_Potong NTTP #SEQ #JmlBruto1 #PPH1 #JmlBruto2 #PPH2 "
     "#JmlBruto3 #PPH3 #JmlPPh #JMLPHSL",
     "NPWPLT NMWPLT ALMLT keterangan"},
    {"D113206", "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE #A6 #A7 #B6 #B7"},
    {"D113206-CollA", "%MS_PAJAK %TH_PAJAK #SEQ NPWPLT ALMLT NMWPLT NoBukti @Tgl_Potong #NOP #PPHDIPTG"},
    {"D113206-CollB", "%MS_PAJAK %TH_PAJAK #SEQ NPWPLT ALMLT NMWPLT NoBukti @Tgl_Potong #NOP #PPHDIPTG"},
    {"D113210",
     "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE #JML1A3 #JML1A4 #JML1A5 #JML1B3 #JML1B4 #JML1B5 "
     "#JML23 #JML24 #JML25 #JML33 #JML34 #JML35 #JML3 #JML4 #JML5"},
    {"D113207", "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE"},
    {"D113208", "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE"},
    {"DSewaTnhBgn", "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE #JMLPHSL #JmlPPh"},
    {"DAlihTnhBgn", "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE #JMLPHSL #JmlPPh"},
    {"DJasaKonstruksi", "npwp NmWP ALM %MS_PAJAK %TH_PAJAK %KD_PEMBETULAN_KE #JMLPHSL #JmlPPh"},
    {"DSewaTnhBgn-Coll", "%MS_PAJAK %TH_PAJAK #SEQ #PHSL #PPH Lokasi NoBukti @Tgl_Potong keterangan"},
    {"DAlihTnhBgn-Coll", "%MS_PAJAK %TH_PAJAK #SEQ #PHSL #PPH NoBukti @Tgl_Potong keterangan"},
    {"DJasaKonstruksi-Coll", "%MS_PAJAK %TH_PAJAK #SEQ #PHSL #PPH NoBukti @Tgl_Potong keterangan"},
};

std::string sign(FieldType type) {
  switch (type) {
    case FieldType::Double:
      return "#";
    case FieldType::Integer:
      return "%";
    case FieldType::DateText:
      return "@";
    case FieldType::Text:
      return "";
  }
  return "?";
}

std::string positionsInWords(const FormLayout& layout) {
  std::string words;
  for (const LayoutPosition& position : layout.positions) {
    if (!words.empty()) words += ' ';
    for (std::size_t part = 0; part < position.fields.size(); ++part) {
      if (part > 0) words += '|';
      words.append(sign(position.fields[part].type)).append(position.fields[part].name);
    }
  }
  return words;
}

std::string extrasInWords(const FormLayout& layout) {
  std::string words;
  for (const LayoutField& field : layout.extras) {
    if (!words.empty()) words += ' ';
    words.append(sign(field.type)).append(field.name);
  }
  return words;
}

class LayoutOf : public testing::TestWithParam<WrittenDown> {};

TEST_P(LayoutOf, HasTheFieldsOfTheFormInTheirOrder) {
  const FormLayout* layout = findLayout(GetParam().code);
  ASSERT_NE(layout, nullptr);
  EXPECT_EQ(positionsInWords(*layout), GetParam().positions);
  EXPECT_EQ(extrasInWords(*layout), GetParam().extras);
}

INSTANTIATE_TEST_SUITE_P(EveryForm, LayoutOf, testing::ValuesIn(writtenDown), [](const auto& form) {
  std::string name(form.param.code);
  std::erase(name, '-');
  return name;
});

TEST(FormLayouts, HasNoLayoutThatIsNotWrittenDown) {
  std::set<std::string_view> known;
  for (const WrittenDown& form : writtenDown) known.insert(form.code);
  std::set<std::string_view> all;
  for (const FormLayout& layout : allLayouts()) all.insert(layout.code);
  EXPECT_EQ(all, known);
  EXPECT_EQ(allLayouts().size(), std::size(writtenDown));
}

TEST(FormLayouts, HasALayoutForEveryFormCode) {
  for (const FormCodes& form : allForms) EXPECT_NE(findLayout(form.kdForm), nullptr) << form.kdForm;
}

TEST(FormLayouts, FindsNothingForAnUnknownCodeAndTellsCaseApart) {
  EXPECT_EQ(findLayout("F113313"), nullptr);
  EXPECT_EQ(findLayout("f113309"), nullptr);
  EXPECT_EQ(findLayout(""), nullptr);
}

TEST(FormLayouts, MainReturnHas107PositionsOfWhichTheFirst88AreThoseOfAFreshOne) {
  const FormLayout* layout = findLayout("F113204");
  EXPECT_EQ(layout->positions.size(), 107U);
  EXPECT_EQ(layout->position("TGL_TRV"), 87U);
  EXPECT_EQ(layout->position("B55"), 106U);
}

TEST(FormLayouts, FindsAPositionWithoutRegardToCase) {
  EXPECT_EQ(findLayout("F113309")->position("NPWP"), 0U);
  EXPECT_EQ(findLayout("F113204")->position("b9a2"), 102U);
}

TEST(FormLayouts, CountsExtrasOnBehindThePositions) {
  EXPECT_EQ(findLayout("F113309")->position("INVOICE"), 37U);
  EXPECT_EQ(findLayout("FAlihTnhBgn")->position("Lokasi"), 11U);
  EXPECT_EQ(findLayout("FSewaTnhBgn")->position("Lokasi"), 6U);
}

TEST(FormLayouts, KnowsNoPositionOfAnUnknownField) { EXPECT_EQ(findLayout("F113309")->position("B99"), std::nullopt); }

}  // namespace
}  // namespace tarvola::store
