#include "tarvola/runtime/variant.h"

#include <gtest/gtest.h>

#include "tarvola/runtime/variant_math.h"
#include "tests/runtime/failures.h"

namespace tarvola {
namespace {

const Variant null = Variant::null();
const Variant empty;

Variant integer(std::int16_t value) { return value; }
Variant longInteger(std::int32_t value) { return value; }

TEST(Variant, KnowsItsType) {
  EXPECT_EQ(empty.type(), Variant::Type::Empty);
  EXPECT_EQ(null.type(), Variant::Type::Null);
  EXPECT_EQ(integer(1).type(), Variant::Type::Integer);
  EXPECT_EQ(longInteger(1).type(), Variant::Type::Long);
  EXPECT_EQ(Variant(1.0).type(), Variant::Type::Double);
  EXPECT_EQ(Variant(true).type(), Variant::Type::Boolean);
  EXPECT_EQ(Variant(Date()).type(), Variant::Type::Date);
  EXPECT_EQ(Variant("a").type(), Variant::Type::String);
  EXPECT_EQ(Variant(Variant::Array{1.0}).type(), Variant::Type::Array);
  EXPECT_EQ(Variant(RecordsetPtr()).type(), Variant::Type::Recordset);
}

TEST(Variant, GivesItsValueOnlyAsItsOwnType) {
  EXPECT_EQ(integer(7).integer(), 7);
  EXPECT_EQ(longInteger(7).longInteger(), 7);
  EXPECT_EQ(Variant(0.5).number(), 0.5);
  EXPECT_TRUE(Variant(true).boolean());
  EXPECT_EQ(Variant(Date::fromSerial(5)).date(), Date::fromSerial(5));
  EXPECT_EQ(Variant("a").string(), "a");
  EXPECT_EQ(Variant(Variant::Array{1.0, "b"}).array().size(), 2U);
  EXPECT_EQ(Variant(RecordsetPtr()).recordset(), nullptr);
  EXPECT_EQ(failureOf([] { (void)integer(7).longInteger(); }), 13);
  EXPECT_EQ(failureOf([] { (void)Variant("7").number(); }), 13);
  EXPECT_EQ(failureOf([] { (void)null.string(); }), 13);
  EXPECT_EQ(failureOf([] { (void)empty.date(); }), 13);
  EXPECT_EQ(failureOf([] { (void)Variant(1.0).array(); }), 13);
}

TEST(Variant, IsANumberAsIntegerLongDoubleAndBooleanOnly) {
  for (const Variant& value : {integer(1), longInteger(1), Variant(1.0), Variant(true)}) EXPECT_TRUE(value.isNumber());
  for (const Variant& value : {empty, null, Variant("1"), Variant(Date()), Variant(Variant::Array{})}) {
    EXPECT_FALSE(value.isNumber());
  }
}

TEST(Variant, IsTheSameOnlyWithTypeAndValue) {
  EXPECT_EQ(integer(1), integer(1));
  EXPECT_NE(integer(1), longInteger(1));
  EXPECT_NE(integer(1), Variant("1"));
  EXPECT_EQ(null, null);
  EXPECT_NE(null, empty);
  EXPECT_NE(Variant(true), integer(-1));
  EXPECT_EQ(Variant(Variant::Array{1.0, "a"}), Variant(Variant::Array{1.0, "a"}));
  EXPECT_NE(Variant(Variant::Array{1.0}), Variant(Variant::Array{2.0}));
}

struct MathRow {
  Variant left;
  Variant right;
  Variant result;
};

TEST(VariantMath, AddsByTheTypesOfItsOperands) {
  const MathRow rows[] = {
      {null, integer(1), null},
      {"a", null, null},
      {empty, integer(5), integer(5)},
      {empty, empty, integer(0)},
      {empty, "a", "a"},
      {"a", empty, "a"},
      {"10", integer(5), 15.0},
      {longInteger(5), "1,5", 6.5},
      {"1", "2", "12"},
      {integer(32767), integer(1), longInteger(32768)},
      {longInteger(2147483647), integer(1), 2147483648.0},
      {integer(-32768), integer(-1), longInteger(-32769)},
      {integer(1), longInteger(1), longInteger(2)},
      {integer(1), 0.5, 1.5},
      {true, integer(1), integer(0)},
      {Date::fromSerial(10), integer(5), Date::fromSerial(15)},
      {Date::fromSerial(10), Date::fromSerial(5), Date::fromSerial(15)},
      {Date::fromSerial(2958465), integer(1), 2958466.0},
  };
  for (const MathRow& row : rows) EXPECT_EQ(add(row.left, row.right), row.result);
  EXPECT_EQ(failureOf([] { add("abc", integer(1)); }), 13);
  EXPECT_EQ(failureOf([] { add("", integer(1)); }), 13);
  EXPECT_EQ(failureOf([] { add(1.7E308, 1.7E308); }), 6);
  EXPECT_EQ(failureOf([] { add(Variant::Array{}, integer(1)); }), 13);
}

TEST(VariantMath, SubtractsMultipliesAndDivides) {
  EXPECT_EQ(subtract("10", "2"), Variant(8.0));
  EXPECT_EQ(subtract(integer(-32768), integer(1)), longInteger(-32769));
  EXPECT_EQ(subtract(Date::fromSerial(10), Date::fromSerial(4)), Variant(6.0));
  EXPECT_EQ(subtract(Date::fromSerial(10), integer(4)), Variant(Date::fromSerial(6)));
  EXPECT_EQ(subtract(empty, integer(4)), integer(-4));
  EXPECT_TRUE(subtract(integer(1), null).isNull());
  EXPECT_EQ(multiply("10", "2"), Variant(20.0));
  EXPECT_EQ(multiply(integer(300), integer(300)), longInteger(90000));
  EXPECT_EQ(multiply(longInteger(100000), longInteger(100000)), Variant(1E10));
  EXPECT_EQ(multiply(empty, 5.0), Variant(0.0));
  EXPECT_TRUE(multiply(null, integer(0)).isNull());
  EXPECT_EQ(failureOf([] { multiply("", integer(1)); }), 13);
  EXPECT_EQ(divide("7", "2"), Variant(3.5));
  EXPECT_EQ(divide(integer(6), integer(3)), Variant(2.0));
  EXPECT_TRUE(divide(null, integer(0)).isNull());
  EXPECT_EQ(failureOf([] { divide(integer(1), integer(0)); }), 11);
  EXPECT_EQ(failureOf([] { divide(integer(0), integer(0)); }), 6);
  EXPECT_EQ(failureOf([] { divide(integer(1), empty); }), 11);
  EXPECT_EQ(failureOf([] { divide(1E308, 1E-10); }), 6);
}

TEST(VariantMath, JoinsTextsWithNullAsNothing) {
  EXPECT_EQ(concatenate(null, "a"), Variant("a"));
  EXPECT_EQ(concatenate("a", null), Variant("a"));
  EXPECT_TRUE(concatenate(null, null).isNull());
  EXPECT_EQ(concatenate(empty, "a"), Variant("a"));
  EXPECT_EQ(concatenate(1.5, integer(2)), Variant("1,52"));
  EXPECT_EQ(concatenate(Date::fromYmd(2010, 12, 31), ""), Variant("31/12/2010"));
}

TEST(VariantMath, ComparesNumbersByValueTextsExactlyAndBothNever) {
  const MathRow rows[] = {
      {integer(5), 5.0, true},
      {integer(5), "5", false},
      {"5", integer(5), false},
      {"a", "a", true},
      {"a", "A", false},
      {"a", "a ", false},
      {empty, integer(0), true},
      {empty, "", true},
      {"", empty, true},
      {empty, empty, true},
      {empty, "0", false},
      {true, integer(-1), true},
      {Date::fromSerial(5), integer(5), true},
      {Date::fromYmd(2010, 12, 31), "31/12/2010", false},
      {null, integer(1), null},
      {null, null, null},
      {"", null, null},
  };
  for (const MathRow& row : rows) EXPECT_EQ(isEqual(row.left, row.right), row.result);
  EXPECT_EQ(failureOf([] { isEqual(Variant::Array{}, integer(1)); }), 13);
  EXPECT_EQ(failureOf([] { isEqual(RecordsetPtr(), "a"); }), 13);
}

TEST(VariantMath, OrdersNumbersBeforeTexts) {
  EXPECT_EQ(isLess(integer(4), 4.5), Variant(true));
  EXPECT_EQ(isLess(integer(99), "1"), Variant(true));
  EXPECT_EQ(isLess("1", integer(99)), Variant(false));
  EXPECT_EQ(isLess("10", "9"), Variant(true));
  EXPECT_EQ(isLess(empty, integer(1)), Variant(true));
  EXPECT_EQ(isLess(empty, "a"), Variant(true));
  EXPECT_TRUE(isLess(null, integer(1)).isNull());
}

TEST(VariantMath, DoesNotTakeNullAsTrue) {
  EXPECT_FALSE(isTrue(null));
  EXPECT_FALSE(isTrue(empty));
  EXPECT_TRUE(isTrue(true));
  EXPECT_TRUE(isTrue(integer(2)));
  EXPECT_FALSE(isTrue(0.0));
  EXPECT_TRUE(isTrue("True"));
  EXPECT_EQ(failureOf([] { isTrue("ya"); }), 13);
}

}  // namespace
}  // namespace tarvola
