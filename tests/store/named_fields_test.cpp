#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "tarvola/ado/table_rows.h"
#include "tarvola/runtime/date.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/named_field_rows.h"
#include "tarvola/store/store_texts.h"

namespace tarvola::store {
namespace {

using ado::ColumnType;

constexpr std::size_t packedColumn = 3;

/// Store rows with a few plain columns and one packed text each.
std::shared_ptr<ado::TableRows> storeRows(const std::vector<Variant>& packedTexts) {
  static const auto columns =
      std::make_shared<const ado::Columns>(std::vector<ado::Column>{{"NPWP", ColumnType::Text},
                                                                    {"KD_FORM", ColumnType::Text},
                                                                    {"NOBUKTI", ColumnType::Text},
                                                                    {"DAT_FORM", ColumnType::LongText},
                                                                    {"Total_PPh", ColumnType::Double},
                                                                    {"TGL_REKAM", ColumnType::Date},
                                                                    {"d4_2Details1", ColumnType::Chapter}});
  auto rows = std::make_shared<ado::TableRows>(columns);
  for (const Variant& packed : packedTexts) {
    const std::size_t row = rows->append();
    rows->set(row, 0, "PLAIN-NPWP");
    rows->set(row, 1, "FORM");
    rows->set(row, 2, "000001/PPH4");
    rows->set(row, packedColumn, packed);
    rows->set(row, 4, 1500.0);
    rows->set(row, 5, Variant::null());
  }
  return rows;
}

std::shared_ptr<NamedFieldRows> expanded(std::string_view code, const std::vector<Variant>& packedTexts) {
  const FormLayout* layout = findLayout(code);
  EXPECT_NE(layout, nullptr) << code;
  std::vector<std::size_t> all(packedTexts.size());
  for (std::size_t row = 0; row < all.size(); ++row) all[row] = row;
  return NamedFieldRows::expand(*layout, storeRows(packedTexts), all, packedColumn);
}

std::size_t columnOf(const ado::Rows& rows, std::string_view name) {
  const auto found = rows.columns().find(name);
  EXPECT_TRUE(found.has_value()) << name;
  return found.value_or(0);
}

Variant valueOf(const ado::Rows& rows, std::string_view name, std::size_t row = 0) {
  return rows.cell(row, columnOf(rows, name)).toVariant();
}

void put(ado::Rows& rows, std::string_view name, const Variant& value, std::size_t row = 0) {
  rows.set(row, columnOf(rows, name), value);
}

std::string fieldTextOf(const NamedFieldRows& rows, std::string_view name, std::size_t row = 0) {
  std::string text;
  rows.appendFieldText(text, row, columnOf(rows, name));
  return text;
}

/// A self-paid construction form, whole: 17 positions.
constexpr const char* construction = "01.1;PT Satu;Jalan 1;1;2009;0;31/01/2009;NTTP1;3;1000;20;2000;40;0;0;60;3000";

TEST(NamedFields, GivesAFieldForEachPositionUnderItsNameAndType) {
  const auto rows = expanded("FJasaKonstruksi", {construction});
  EXPECT_EQ(valueOf(*rows, "npwp"), Variant("01.1"));
  EXPECT_EQ(valueOf(*rows, "MS_PAJAK"), Variant(std::int16_t{1}));
  EXPECT_EQ(valueOf(*rows, "TH_PAJAK"), Variant(std::int16_t{2009}));
  EXPECT_EQ(valueOf(*rows, "Tgl_Potong"), Variant("31/01/2009"));
  EXPECT_EQ(valueOf(*rows, "SEQ"), Variant(3.0));
  EXPECT_EQ(valueOf(*rows, "JMLPHSL"), Variant(3000.0));
}

TEST(NamedFields, FindsNamesWithoutRegardToCase) {
  const auto rows = expanded("FJasaKonstruksi", {construction});
  EXPECT_EQ(valueOf(*rows, "jmlbruto1"), Variant(1000.0));
}

TEST(NamedFields, AddsThePlainColumnsThatNoPositionNames) {
  const auto rows = expanded("FJasaKonstruksi", {construction});
  EXPECT_EQ(valueOf(*rows, "KD_FORM"), Variant("FORM"));
  EXPECT_EQ(valueOf(*rows, "NOBUKTI"), Variant("000001/PPH4"));
  EXPECT_EQ(valueOf(*rows, "Total_PPh"), Variant(1500.0));
  EXPECT_TRUE(valueOf(*rows, "TGL_REKAM").isNull());
}

TEST(NamedFields, LetsAPositionStandForThePlainColumnOfItsName) {
  const auto rows = expanded("FJasaKonstruksi", {construction});
  EXPECT_EQ(valueOf(*rows, "NPWP"), Variant("01.1")) << "npwp and NPWP are one field";
  EXPECT_EQ(valueOf(*expanded("F113309", {"1;2;3;4;5;6;7;000009/PPH4"}), "NOBUKTI"), Variant("000009/PPH4"));
}

TEST(NamedFields, HoldsNeitherThePackedTextNorTheChildRows) {
  const auto rows = expanded("FJasaKonstruksi", {construction});
  EXPECT_FALSE(rows->columns().find("DAT_FORM").has_value());
  EXPECT_FALSE(rows->columns().find("d4_2Details1").has_value());
}

TEST(NamedFields, ReadsEmptyTextAsNullInANumberAndAsEmptyInAText) {
  const auto rows = expanded("FSewaTnhBgn", {";;;;;;;;;;;"});
  EXPECT_EQ(valueOf(*rows, "npwp"), Variant(""));
  EXPECT_EQ(valueOf(*rows, "Tgl_Potong"), Variant(""));
  EXPECT_TRUE(valueOf(*rows, "MS_PAJAK").isNull());
  EXPECT_TRUE(valueOf(*rows, "JMLBRUTO").isNull());
}

TEST(NamedFields, ReadsAPositionThatTheRowIsTooShortForAsNull) {
  const auto rows = expanded("F113309", {"01.1;PT Satu;Jalan 1;1;2009;0;31/01/2009;000001/PPH4"});
  EXPECT_EQ(valueOf(*rows, "NoBukti"), Variant("000001/PPH4"));
  EXPECT_TRUE(valueOf(*rows, "NPWPLT").isNull());
  EXPECT_TRUE(valueOf(*rows, "B13").isNull());
}

TEST(NamedFields, ReadsAnEmptyAndAMissingPackedTextAsNullEverywhere) {
  for (const Variant& packed : {Variant(""), Variant::null()}) {
    const auto rows = expanded("F113310", {packed});
    EXPECT_TRUE(valueOf(*rows, "npwp").isNull());
    EXPECT_TRUE(valueOf(*rows, "JMLPHSL").isNull());
  }
}

TEST(NamedFields, KeepsATextInANumericPositionThatIsNoNumber) {
  const auto rows = expanded("D113206", {"1;2;3;x1;5;6;about 5;8;9;10"});
  EXPECT_EQ(valueOf(*rows, "A6"), Variant("about 5"));
  EXPECT_EQ(valueOf(*rows, "MS_PAJAK"), Variant("x1"));
  EXPECT_THROW(CDbl(valueOf(*rows, "A6")), RunTimeError) << "computing with it fails";
  EXPECT_EQ(rows->pack(0), "1;2;3;x1;5;6;about 5;8;9;10") << "nothing is lost";
}

TEST(NamedFields, AFilersNameWithASemicolonInTheStoreShiftsEveryLaterField) {
  const auto rows = expanded("D113206", {"01.1;PT A;B;Jalan 1;1;2009;0;10;20;30;40"});
  EXPECT_EQ(valueOf(*rows, "ALM"), Variant("B"));
  EXPECT_EQ(valueOf(*rows, "MS_PAJAK"), Variant("Jalan 1"));
  EXPECT_EQ(valueOf(*rows, "A6"), Variant(0.0));
  EXPECT_EQ(rows->pack(0), "01.1;PT A;B;Jalan 1;1;2009;0;10;20;30;40");
}

TEST(NamedFields, WritingThemChangesNothingInTheRowsTheyCameFrom) {
  const auto source = storeRows({construction});
  const auto rows = NamedFieldRows::expand(*findLayout("FJasaKonstruksi"), source, {0}, packedColumn);
  put(*rows, "PPH1", 99.0);
  put(*rows, "KD_FORM", "OTHER");
  EXPECT_EQ(source->cell(0, packedColumn).text(), construction);
  EXPECT_EQ(source->cell(0, 1).text(), "FORM");
  EXPECT_EQ(valueOf(*rows, "KD_FORM"), Variant("OTHER"));
}

TEST(NamedFields, KeepWhatTheRowHeldWhenItWasExpanded) {
  const auto source = storeRows({construction});
  const auto rows = NamedFieldRows::expand(*findLayout("FJasaKonstruksi"), source, {0}, packedColumn);
  EXPECT_EQ(valueOf(*rows, "PPH1"), Variant(20.0));
  source->set(0, packedColumn, "a;b;c");
  EXPECT_EQ(valueOf(*rows, "PPH1"), Variant(20.0));
  EXPECT_EQ(rows->pack(0), construction);
}

TEST(NamedFields, TakesOnlyTheRowsItIsGivenInTheirOrder) {
  const auto source = storeRows({"1;a", "2;b", "3;c", "4;d"});
  const auto rows = NamedFieldRows::expand(*findLayout("D113207"), source, {3, 1}, packedColumn);
  ASSERT_EQ(rows->count(), 2U);
  EXPECT_EQ(valueOf(*rows, "npwp", 0), Variant("4"));
  EXPECT_EQ(valueOf(*rows, "NmWP", 1), Variant("b"));
  EXPECT_EQ(valueOf(*rows, "NmWP", 0), Variant("d"));
}

// --- writing ------------------------------------------------------------------------------------------------

TEST(WritingAField, ReadsATextPutIntoANumberAtOnceAndPacksTheNumber) {
  const auto rows = expanded("D113206", {"1;2;3;4;5;6;7;8;9;10"});
  put(*rows, "A6", "1.250,50");
  EXPECT_EQ(valueOf(*rows, "A6"), Variant(1250.5));
  EXPECT_EQ(rows->pack(0), "1;2;3;4;5;6;1250,5;8;9;10");
}

TEST(WritingAField, RefusesATextThatIsNoNumberAndKeepsTheValue) {
  const auto rows = expanded("D113206", {"1;2;3;4;5;6;7;8;9;10"});
  for (const char* wrong : {"abc", "", " "}) {
    try {
      put(*rows, "A6", wrong);
      ADD_FAILURE() << "\"" << wrong << "\" went in";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.description(), errorText(ErrorNumber::ComTypeMismatch));
    }
  }
  EXPECT_EQ(valueOf(*rows, "A6"), Variant(7.0));
}

TEST(WritingAField, KeepsNullAsNullAndPacksItEmpty) {
  const auto rows = expanded("D113206", {"1;2;3;4;5;6;7;8;9;10"});
  put(*rows, "A6", Variant::null());
  put(*rows, "NmWP", Variant::null());
  EXPECT_TRUE(valueOf(*rows, "A6").isNull());
  EXPECT_EQ(rows->pack(0), "1;;3;4;5;6;;8;9;10");
}

TEST(WritingAField, CountsEmptyAs0InANumberAndAsEmptyInAText) {
  const auto rows = expanded("D113206", {"1;2;3;4;5;6;7;8;9;10"});
  put(*rows, "A6", Variant());
  put(*rows, "NmWP", Variant());
  EXPECT_EQ(valueOf(*rows, "A6"), Variant(0.0));
  EXPECT_EQ(valueOf(*rows, "NmWP"), Variant(""));
}

TEST(WritingAField, HoldsAWholeNumberInAnIntegerFieldAsInteger) {
  const auto rows = expanded("F113316", {"1"});
  put(*rows, "Opt4", 2.0);
  EXPECT_EQ(valueOf(*rows, "Opt4"), Variant(std::int16_t{2}));
  put(*rows, "Opt4", "1");
  EXPECT_EQ(valueOf(*rows, "Opt4"), Variant(std::int16_t{1}));
}

TEST(WritingAField, LosesNothingOfANumberThatIsNoInteger) {
  const auto rows = expanded("F113317", {"1"});
  put(*rows, "HoldingPeriode", 40000.0);
  EXPECT_EQ(valueOf(*rows, "HoldingPeriode"), Variant(std::int32_t{40000}));
  put(*rows, "HoldingPeriode", 1.5);
  EXPECT_EQ(valueOf(*rows, "HoldingPeriode"), Variant(1.5));
}

TEST(WritingAField, WritesADateIntoADateTextAsDayMonthYear) {
  const auto rows = expanded("D113206-CollA", {"1;2009;1;a;b;c;d;e;0;0"});
  put(*rows, "Tgl_Potong", Date::fromYmd(2009, 1, 5));
  EXPECT_EQ(valueOf(*rows, "Tgl_Potong"), Variant("05/01/2009"));
  EXPECT_EQ(rows->pack(0), "1;2009;1;a;b;c;d;05/01/2009;0;0");
}

TEST(WritingAField, KeepsADateTextAsItIs) {
  const auto rows = expanded("D113206-CollA", {"1;2009;1;a;b;c;d; 5/1/09 ;0;0"});
  EXPECT_EQ(rows->pack(0), "1;2009;1;a;b;c;d; 5/1/09 ;0;0");
  put(*rows, "Tgl_Potong", "someday");
  EXPECT_EQ(rows->pack(0), "1;2009;1;a;b;c;d;someday;0;0");
}

TEST(WritingAField, WritesANumberIntoATextInItsTextForm) {
  const auto rows = expanded("D113206", {"1;2;3;4;5;6;7;8;9;10"});
  put(*rows, "NmWP", 2.5);
  EXPECT_EQ(valueOf(*rows, "NmWP"), Variant("2,5"));
}

TEST(WritingAField, ConvertsToTheTypeOfAPlainColumn) {
  const auto rows = expanded("D113206", {"1;2;3;4;5;6;7;8;9;10"});
  put(*rows, "Total_PPh", "7,5");
  EXPECT_EQ(valueOf(*rows, "Total_PPh"), Variant(7.5));
  EXPECT_THROW(put(*rows, "Total_PPh", "x"), RunTimeError);
}

TEST(WritingAField, OfOneRowLeavesTheOthers) {
  const auto rows = expanded("D113207", {"1;a", "2;b"});
  put(*rows, "NmWP", "new", 1);
  EXPECT_EQ(rows->pack(0), "1;a;;;;");
  EXPECT_EQ(rows->pack(1), "2;new;;;;");
}

TEST(WritingAField, OfAnAddedRowMakesATextOfItsOwn) {
  const auto rows = expanded("D113207", {"1;a"});
  const std::size_t row = rows->append();
  EXPECT_EQ(rows->count(), 2U);
  put(*rows, "npwp", "9", row);
  EXPECT_EQ(rows->pack(row), "9;;;;;");
  EXPECT_TRUE(valueOf(*rows, "NmWP", row).isEmpty());
}

// --- packing --------------------------------------------------------------------------------------------------

TEST(Packing, WritesAllPositionsOfTheLayoutForAShortRow) {
  EXPECT_EQ(expanded("F113312", {"01.1;PT;Jl;1;2009;0;31/01/2009;5"})->pack(0),
            "01.1;PT;Jl;1;2009;0;31/01/2009;5;;;;;;;");
}

TEST(Packing, WritesNumbersAnewAndTextsAsTheyAre) {
  const auto rows = expanded("D113206-CollA", {"01;2009;007;01.1; b ;c;007;01/01/2009;1.000,50;-0"});
  EXPECT_EQ(rows->pack(0), "1;2009;7;01.1; b ;c;007;01/01/2009;1000,5;0");
}

TEST(Packing, DropsTheEmptyThirteenthFieldOfAFreshRentForm) {
  const auto rows = expanded("FSewaTnhBgn", {"01.1;PT;Jl;1;2009;0;;31/01/2009;NTTP;0;0;0;"});
  EXPECT_EQ(rows->pack(0), "01.1;PT;Jl;1;2009;0;;31/01/2009;NTTP;0;0;0");
}

TEST(Packing, FillsAFreshConstructionFormToItsFullLength) {
  const auto rows = expanded("FJasaKonstruksi", {"01.1;PT;Jl;1;2009;0;31/01/2009;NTTP;0;0;0;"});
  EXPECT_EQ(rows->pack(0), "01.1;PT;Jl;1;2009;0;31/01/2009;NTTP;0;0;0;;;;;;");
}

TEST(Packing, KeepsALineBreakInAText) {
  const auto rows = expanded("D113207", {"1;a\r\nb;c;1;2009;0"});
  EXPECT_EQ(rows->pack(0), "1;a\r\nb;c;1;2009;0");
}

TEST(Packing, RefusesASemicolonAndNamesTheField) {
  const auto rows = expanded("D113206", {"1;2;3;4;5;6;7;8;9;10"});
  put(*rows, "NmWP", "PT A; PT B");
  try {
    static_cast<void>(rows->pack(0));
    ADD_FAILURE() << "a text was packed";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::InvalidProcedureCall));
    EXPECT_EQ(error.description(), separatorInFieldText("NmWP"));
    EXPECT_NE(error.description().find("'NmWP'"), std::string::npos);
  }
}

TEST(Packing, WritesExtrasOnlyAsFarAsTheLastThatHoldsSomething) {
  const std::string slip = "1;2;3;1;2009;0;7;8;9;10;11;0;0;0;0;0;0;0;0";
  const auto rows = expanded("F113311", {slip});
  EXPECT_EQ(rows->pack(0), slip);
  put(*rows, "INVOICE", "INV-7");
  EXPECT_EQ(rows->pack(0), slip + ";INV-7");
  put(*rows, "BURSA", "Jakarta");
  EXPECT_EQ(rows->pack(0), slip + ";INV-7;Jakarta");
  put(*rows, "INVOICE", Variant::null());
  EXPECT_EQ(rows->pack(0), slip + ";;Jakarta");
  put(*rows, "BURSA", "");
  EXPECT_EQ(rows->pack(0), slip);
}

TEST(Packing, ReadsBackItsExtras) {
  const auto rows = expanded("F113317", {"1"});
  put(*rows, "OptPPhFinTdkDiptg", std::int16_t{1});
  const auto again = expanded("F113317", {rows->pack(0)});
  EXPECT_EQ(valueOf(*again, "OptPPhFinTdkDiptg"), Variant(std::int16_t{1}));
  EXPECT_EQ(valueOf(*again, "INVOICE"), Variant(""));
}

TEST(Packing, KeepsPositionsBeyondTheLayoutUnchangedAndInPlace) {
  const std::string row = "1;2;3;1;2009;0;left;007;;x;";
  const auto rows = expanded("D113207", {row, "1;2;3;1;2009;0"});
  EXPECT_EQ(valueOf(*rows, "Field6"), Variant("left"));
  EXPECT_EQ(valueOf(*rows, "Field7"), Variant("007"));
  EXPECT_EQ(valueOf(*rows, "Field10"), Variant(""));
  EXPECT_TRUE(valueOf(*rows, "Field6", 1).isNull());
  EXPECT_EQ(rows->pack(0), row);
  EXPECT_EQ(rows->pack(1), "1;2;3;1;2009;0");
}

TEST(Packing, KeepsAPlaceForEveryExtraInFrontOfWhatLiesBeyond) {
  const std::string row = "1;2;3;1;2009;0;7;8;9;10;11;0;0;0;0;0;0;0;0;;;beyond";
  const auto rows = expanded("F113311", {row});
  EXPECT_EQ(valueOf(*rows, "Field21"), Variant("beyond"));
  EXPECT_EQ(rows->pack(0), row);
}

// --- the main return -------------------------------------------------------------------------------------------

std::string freshReturn() {
  std::string text = "01.1;PT;Jl;1;2009;0";
  for (int line = 0; line < 60; ++line) text += ";0";
  return text + ";;0;0;0;;0;0;0;;0;0;0;0;0;0;0;0;0;0;0;0;31/01/2009";
}

std::size_t fieldsOf(const std::string& text) { return countFields(text); }

TEST(PackingTheReturn, GivesAFreshRow107Fields) {
  ASSERT_EQ(fieldsOf(freshReturn()), 88U);
  const auto rows = expanded("F113204", {freshReturn()});
  EXPECT_EQ(valueOf(*rows, "TGL_TRV"), Variant("31/01/2009"));
  EXPECT_TRUE(valueOf(*rows, "B9A2").isNull());
  EXPECT_EQ(rows->pack(0), freshReturn() + std::string(19, ';'));
  EXPECT_EQ(fieldsOf(rows->pack(0)), 107U);
}

TEST(PackingTheReturn, JoinsTheFieldsThatShareAPosition) {
  const auto rows = expanded("F113204", {freshReturn()});
  put(*rows, "B1A41_2", 2.5);
  put(*rows, "B9C2", "text with | and more");
  put(*rows, "B9C3", 7.0);
  put(*rows, "B55", 55.0);
  const std::string packed = rows->pack(0);
  EXPECT_EQ(packed, freshReturn() + ";;;;|2,5|" + std::string(13, ';') + "7|||text with | and more;;55");
  const auto again = expanded("F113204", {packed});
  EXPECT_TRUE(valueOf(*again, "B1a31_2").isNull());
  EXPECT_EQ(valueOf(*again, "B1A41_2"), Variant(2.5));
  EXPECT_TRUE(valueOf(*again, "B1A51_2").isNull());
  EXPECT_EQ(valueOf(*again, "B9C2"), Variant("text with | and more"));
  EXPECT_EQ(valueOf(*again, "B9C3"), Variant(7.0));
  EXPECT_EQ(valueOf(*again, "B55"), Variant(55.0));
  EXPECT_EQ(again->pack(0), packed);
}

TEST(PackingTheReturn, EmptiesAPositionWhenAllItsFieldsAreNullAgain) {
  const auto rows = expanded("F113204", {freshReturn() + std::string(8, ';') + "1|2|3" + std::string(11, ';')});
  EXPECT_EQ(valueOf(*rows, "B7B5"), Variant(2.0));
  for (const char* field : {"B7A5", "B7B5", "B7C5"}) put(*rows, field, Variant::null());
  EXPECT_EQ(rows->pack(0), freshReturn() + std::string(19, ';'));
}

// --- the text form of a field ------------------------------------------------------------------------------------

TEST(FieldText, IsTheDefaultTextFormOfTheValue) {
  const auto rows = expanded("D113206-CollA", {"01;2009;;01.1; b ;c;007;01/01/2009;1.000,50;no number"});
  EXPECT_EQ(fieldTextOf(*rows, "MS_PAJAK"), "1");
  EXPECT_EQ(fieldTextOf(*rows, "SEQ"), "");
  EXPECT_EQ(fieldTextOf(*rows, "ALMLT"), " b ");
  EXPECT_EQ(fieldTextOf(*rows, "NOP"), "1000,5");
  EXPECT_EQ(fieldTextOf(*rows, "PPHDIPTG"), "no number");
  EXPECT_EQ(fieldTextOf(*rows, "Total_PPh"), "1500");
  EXPECT_EQ(fieldTextOf(*rows, "TGL_REKAM"), "");
  put(*rows, "NOP", 2.5);
  EXPECT_EQ(fieldTextOf(*rows, "NOP"), "2,5");
}

// --- laws -------------------------------------------------------------------------------------------------------

class EveryLayout : public testing::TestWithParam<FormLayout> {};

/// A value that a field of that type may hold, ";" and (in a shared position) "|" left out.
Variant randomValue(FieldType type, std::mt19937& random) {
  if (random() % 6 == 0) return Variant::null();
  switch (type) {
    case FieldType::Integer:
      return static_cast<std::int16_t>(random() % 65536 - 32768);
    case FieldType::Double:
      return static_cast<double>(static_cast<std::int64_t>(random()) - 2147483648LL) / 100;
    case FieldType::DateText:
      return Date::fromYmd(2009, static_cast<int>(random() % 12) + 1, 17);
    case FieldType::Text:
      break;
  }
  static const char* const texts[] = {
      "", " ", "PT Maju, Tbk.", "Jl. \"A\" no. 5", "a\r\nb", "01", "\xC3\xA9\xE2\x82\xAC", "|", "'"};
  return texts[random() % std::size(texts)];
}

TEST_P(EveryLayout, ReadsBackWhateverWasPacked) {
  const std::uint32_t seed = std::random_device{}();
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  for (int round = 0; round < 50; ++round) {
    const auto rows = expanded(GetParam().code, {""});
    std::vector<std::string> names;
    const auto fill = [&](const LayoutField& field) {
      names.emplace_back(field.name);
      put(*rows, field.name, randomValue(field.type, random));
    };
    for (const LayoutPosition& position : GetParam().positions)
      for (const LayoutField& field : position.fields) fill(field);
    for (const LayoutField& field : GetParam().extras) fill(field);
    const std::string packed = rows->pack(0);
    const auto again = expanded(GetParam().code, {packed});
    for (const std::string& name : names) {
      // A text that is Null packs as an empty position and so reads as "".
      ASSERT_EQ(fieldTextOf(*again, name), fieldTextOf(*rows, name)) << name << " of " << packed;
      const Variant value = valueOf(*rows, name);
      const bool packsEmpty = value.isNull() || (value.isString() && value.string().empty());
      if (!packsEmpty) {
        ASSERT_EQ(valueOf(*again, name), value) << name << " of " << packed;
      }
    }
    ASSERT_EQ(again->pack(0), packed);
  }
}

TEST_P(EveryLayout, PacksAnyTextTwiceToTheSameText) {
  const std::uint32_t seed = std::random_device{}();
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  for (int round = 0; round < 200; ++round) {
    std::string text(random() % 400, ' ');
    for (char& c : text) c = ";;;|0123,.-aE \r\n"[random() % 16];
    const auto rows = expanded(GetParam().code, {text});
    const std::string once = rows->pack(0);
    ASSERT_EQ(expanded(GetParam().code, {once})->pack(0), once) << "of " << text;
  }
}

INSTANTIATE_TEST_SUITE_P(Layouts, EveryLayout,
                         testing::ValuesIn(std::vector<FormLayout>(allLayouts().begin(), allLayouts().end())),
                         [](const auto& form) {
                           std::string name(form.param.code);
                           std::erase(name, '-');
                           return name;
                         });

}  // namespace
}  // namespace tarvola::store
