
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tests/mainreturn/return_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace tarvola::test {
namespace {

class ReturnProperties : public ReturnTest {
 protected:
  ReturnProperties() {
    makeReturn();
    load(mainReturn_);
  }
  CF113204 mainReturn_;
};

struct NumberSetter {
  std::string_view field;
  void (CF113204::*set)(double);
};

// Where the property's spelling differs from the field's in case, the field is the one named on the left.
const NumberSetter numberSetters[] = {
    {"B1a13", &CF113204::aB1a13},     {"B1a14", &CF113204::aB1A14},     {"B1a15", &CF113204::aB1A15},
    {"B1a23", &CF113204::aB1a23},     {"B1a24", &CF113204::aB1a24},     {"B1a25", &CF113204::aB1A25},
    {"B1B3", &CF113204::aB1B3},       {"B1B4", &CF113204::aB1B4},       {"B1B5", &CF113204::aB1B5},
    {"B1C3", &CF113204::aB1C3},       {"B1C4", &CF113204::aB1C4},       {"B1C5", &CF113204::aB1C5},
    {"B2a3", &CF113204::aB2a3},       {"B2a4", &CF113204::aB2a4},       {"B2a5", &CF113204::aB2A5},
    {"B2b3", &CF113204::aB2b3},       {"B2b4", &CF113204::aB2b4},       {"B2b5", &CF113204::aB2B5},
    {"B33", &CF113204::aB33},         {"B34", &CF113204::aB34},         {"B35", &CF113204::aB35},
    {"B43", &CF113204::aB43},         {"B44", &CF113204::aB44},         {"B45", &CF113204::aB45},
    {"B5a3", &CF113204::aB5a3},       {"B5a4", &CF113204::aB5a4},       {"B5a5", &CF113204::aB5a5},
    {"B5b3", &CF113204::aB5b3},       {"B5b4", &CF113204::aB5b4},       {"B5b5", &CF113204::aB5b5},
    {"B6a13", &CF113204::aB6a13},     {"B6a14", &CF113204::aB6a14},     {"B6a15", &CF113204::aB6a15},
    {"B6a23", &CF113204::aB6a23},     {"B6a24", &CF113204::aB6a24},     {"B6a25", &CF113204::aB6a25},
    {"B6b13", &CF113204::aB6b13},     {"B6b14", &CF113204::aB6b14},     {"B6b15", &CF113204::aB6b15},
    {"B6b23", &CF113204::aB6b23},     {"B6b24", &CF113204::aB6b24},     {"B6b25", &CF113204::aB6b25},
    {"B6c13", &CF113204::aB6c13},     {"B6c14", &CF113204::aB6c14},     {"B6c15", &CF113204::aB6c15},
    {"B6c23", &CF113204::aB6c23},     {"B6c24", &CF113204::aB6c24},     {"B6c25", &CF113204::aB6c25},
    {"B73", &CF113204::aB73},         {"B74", &CF113204::aB74},         {"B75", &CF113204::aB75},
    {"B83", &CF113204::aB83},         {"B84", &CF113204::aB84},         {"B85", &CF113204::aB85},
    {"B93", &CF113204::aB93},         {"B94", &CF113204::aB94},         {"B95", &CF113204::aB95},
    {"B103", &CF113204::aB103},       {"B104", &CF113204::aB104},       {"B105", &CF113204::aB105},
    {"B11a3", &CF113204::aB11a3},     {"B11a4", &CF113204::aB11a4},     {"B11a5", &CF113204::aB11a5},
    {"B11b3", &CF113204::aB11b3},     {"B11b4", &CF113204::aB11b4},     {"B11b5", &CF113204::aB11b5},
    {"B11c3", &CF113204::aB11c3},     {"B11c4", &CF113204::aB11c4},     {"B11c5", &CF113204::aB11c5},
    {"c1", &CF113204::aC1},           {"C3", &CF113204::aC3},           {"B1a31_2", &CF113204::aB1a31_2},
    {"B1A41_2", &CF113204::aB1a41_2}, {"B1A51_2", &CF113204::aB1A51_2}, {"B1a32_2", &CF113204::aB1a32_2},
    {"B1A42_2", &CF113204::aB1A42_2}, {"B1A52_2", &CF113204::aB1A52_2}, {"B1b3_2", &CF113204::aB1b3_2},
    {"B1B4_2", &CF113204::aB1b4_2},   {"B1B5_2", &CF113204::aB1B5_2},   {"B1C3_2", &CF113204::aB1C3_2},
    {"B1C4_2", &CF113204::aB1C4_2},   {"B1C5_2", &CF113204::aB1C5_2},   {"B7A5", &CF113204::aB7A5},
    {"B7B5", &CF113204::aB7B5},       {"B7C5", &CF113204::aB7C5},       {"B8A31", &CF113204::aB8A31},
    {"B8A32", &CF113204::aB8A32},     {"B8A41", &CF113204::aB8A41},     {"B8A42", &CF113204::aB8A42},
    {"B8A51", &CF113204::aB8A51},     {"B8A52", &CF113204::aB8A52},     {"B8B31", &CF113204::aB8B31},
    {"B8B32", &CF113204::aB8B32},     {"B8B41", &CF113204::aB8B41},     {"B8B42", &CF113204::aB8B42},
    {"B8B51", &CF113204::aB8B51},     {"B8B52", &CF113204::aB8B52},     {"B8C31", &CF113204::aB8C31},
    {"B8C32", &CF113204::aB8C32},     {"B8C41", &CF113204::aB8C41},     {"B8C42", &CF113204::aB8C42},
    {"B8C51", &CF113204::aB8C51},     {"B8C52", &CF113204::aB8C52},     {"B9A3", &CF113204::aB9A3},
    {"B9A4", &CF113204::aB9A4},       {"B9A5", &CF113204::aB9A5},       {"B9B3", &CF113204::aB9B3},
    {"B9B4", &CF113204::aB9B4},       {"B9B5", &CF113204::aB9B5},       {"B9C3", &CF113204::aB9C3},
    {"B9C4", &CF113204::aB9C4},       {"B9C5", &CF113204::aB9C5},       {"B8B5", &CF113204::aB8B5},
    {"B55", &CF113204::aB55},
};

struct NumberGetter {
  std::string_view field;
  double (CF113204::*get)() const;
};

const NumberGetter numberGetters[] = {
    {"B1a15", &CF113204::aB1A15}, {"B1a25", &CF113204::aB1A25}, {"B1B5", &CF113204::aB1B5},
    {"B2a5", &CF113204::aB2A5},   {"B2b5", &CF113204::aB2B5},   {"B33", &CF113204::aB33},
    {"B35", &CF113204::aB35},     {"B45", &CF113204::aB45},     {"B5a5", &CF113204::aB5a5},
    {"B5b5", &CF113204::aB5b5},   {"B6a15", &CF113204::aB6a15}, {"B6a25", &CF113204::aB6a25},
    {"B6b15", &CF113204::aB6b15}, {"B6b25", &CF113204::aB6b25}, {"B6c15", &CF113204::aB6c15},
    {"B6c25", &CF113204::aB6c25}, {"B75", &CF113204::aB75},     {"B85", &CF113204::aB85},
    {"B95", &CF113204::aB95},     {"B105", &CF113204::aB105},   {"B11a5", &CF113204::aB11a5},
    {"B11b5", &CF113204::aB11b5}, {"B11c5", &CF113204::aB11c5}, {"c1", &CF113204::aC1},
    {"C3", &CF113204::aC3},
};

struct Mark {
  std::string_view field;
  void (CF113204::*set)(std::int16_t);
  std::int16_t (CF113204::*get)();
};

const Mark marks[] = {
    {"CHKC1", &CF113204::aCHKC1, &CF113204::aCHKC1}, {"CHKC2", &CF113204::aCHKC2, &CF113204::aCHKC2},
    {"CHKC3", &CF113204::aCHKC3, &CF113204::aCHKC3}, {"CHKC4", &CF113204::aCHKC4, &CF113204::aCHKC4},
    {"CHKC5", &CF113204::aCHKC5, &CF113204::aCHKC5}, {"CHKC6", &CF113204::aCHKC6, &CF113204::aCHKC6},
};

/// Writes a number of its own through every setter, so that two that met in one field would show.
void writeAllNumbers(CF113204& mainReturn) {
  double written = 0.5;
  for (const NumberSetter& property : numberSetters) (mainReturn.*property.set)(written++);
}

TEST_F(ReturnProperties, WriteEachItsOwnField) {
  writeAllNumbers(mainReturn_);
  double expected = 0.5;
  for (const NumberSetter& property : numberSetters)
    EXPECT_EQ(number(mainReturn_, property.field), expected++) << property.field;
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnProperties, ReadWhatTheFieldHolds) {
  writeAllNumbers(mainReturn_);
  for (const NumberGetter& property : numberGetters)
    EXPECT_EQ((mainReturn_.*property.get)(), number(mainReturn_, property.field)) << property.field;
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnProperties, ComputeNothingBesideTheirField) {
  const RecordsetPtr form = mainReturn_.rs4_2Form();
  const ado::Columns& columns = form->rows()->columns();
  std::vector<Variant> before;
  for (std::size_t field = 0; field < columns.count(); ++field)
    before.push_back(form->get_Collect(columns[field].name));
  mainReturn_.aB43(1000);
  std::vector<std::string> changed;
  for (std::size_t field = 0; field < columns.count(); ++field)
    if (!(form->get_Collect(columns[field].name) == before[field])) changed.push_back(columns[field].name);
  EXPECT_THAT(changed, ElementsAre("B43"));
}

TEST_F(ReturnProperties, AllSurviveASave) {
  writeAllNumbers(mainReturn_);
  mainReturn_.aB9A2("Jenis|A");
  mainReturn_.aB9B2("Jenis B");
  mainReturn_.aB9C2("Jenis C");
  mainReturn_.aB11a("Lain A");
  mainReturn_.aB11b("Lain B");
  mainReturn_.aB11c("Lain C");
  std::int16_t written = 10;
  for (const Mark& mark : marks) (mainReturn_.*mark.set)(written++);
  mainReturn_.aTGL_SETOR("09/04/2009");
  mainReturn_.aTGL_LAPOR("19/04/2009");
  mainReturn_.pUpdate();

  CF113204 again;
  load(again);
  double expected = 0.5;
  for (const NumberSetter& property : numberSetters)
    EXPECT_EQ(number(again, property.field), expected++) << property.field;
  EXPECT_EQ(value(again, "B9A2"), Variant("Jenis|A"));
  EXPECT_EQ(value(again, "B9B2"), Variant("Jenis B"));
  EXPECT_EQ(value(again, "B9C2"), Variant("Jenis C"));
  EXPECT_EQ(value(again, "B11a"), Variant("Lain A"));
  EXPECT_EQ(value(again, "B11b"), Variant("Lain B"));
  EXPECT_EQ(value(again, "B11c"), Variant("Lain C"));
  std::int16_t expectedMark = 10;
  for (const Mark& mark : marks) EXPECT_EQ((again.*mark.get)(), expectedMark++) << mark.field;
  EXPECT_EQ(again.aTGL_SETOR(), Variant("09/04/2009"));
  EXPECT_EQ(again.aTGL_LAPOR(), Variant("19/04/2009"));
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnProperties, OfMarksWriteAZeroForANullThatIsRead) {
  for (const Mark& mark : marks) {
    put(mainReturn_, mark.field, Variant::null());
    EXPECT_EQ((mainReturn_.*mark.get)(), 0) << mark.field;
    EXPECT_EQ(value(mainReturn_, mark.field), Variant(std::int16_t{0})) << mark.field;
  }
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnProperties, GiveZeroForNullPaymentsButFailForNullSlips) {
  put(mainReturn_, "c1", Variant::null());
  put(mainReturn_, "C3", Variant::null());
  EXPECT_EQ(mainReturn_.aC1(), 0);
  EXPECT_TRUE(value(mainReturn_, "c1").isNull()) << "unlike a mark, reading it writes nothing";
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_EQ(mainReturn_.aC3(), 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::InvalidUseOfNull)));
}

TEST_F(ReturnProperties, OfAmountsFailForNull) {
  put(mainReturn_, "B33", Variant::null());
  EXPECT_EQ(mainReturn_.aB33(), 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::InvalidUseOfNull)));
}

TEST_F(ReturnProperties, GiveTotalTaxAndDatesAsTheyStand) {
  EXPECT_EQ(CDbl(mainReturn_.aJmlB5()), 0);
  put(mainReturn_, "JmlB5", Variant::null());
  EXPECT_TRUE(mainReturn_.aJmlB5().isNull());
  EXPECT_EQ(mainReturn_.aTGL_LAPOR(), Variant("15/04/2009"));
  EXPECT_TRUE(mainReturn_.aTGL_SETOR().isNull());
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnProperties, TakeADateAsTheTextOfItsDay) {
  mainReturn_.aTGL_SETOR(Date::fromYmd(2009, 4, 9));
  EXPECT_EQ(mainReturn_.aTGL_SETOR(), Variant("09/04/2009"));
}

TEST_F(ReturnProperties, OfLineTextsTakeNull) {
  mainReturn_.aB11a(Variant::null());
  EXPECT_TRUE(value(mainReturn_, "B11a").isNull());
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnProperties, ASemicolonInATextFailsTheSaveAndTheStoreKeepsItsRow) {
  const std::string before = packedText("F113204");
  mainReturn_.aB11a("a;b");
  mainReturn_.pUpdate();
  EXPECT_THAT(messages_.texts(), SizeIs(1));
  EXPECT_EQ(packedText("F113204"), before);
}

}  // namespace
}  // namespace tarvola::test
