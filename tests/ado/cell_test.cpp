#include "tarvola/ado/cell.h"

#include <gtest/gtest.h>

#include "tarvola/runtime/errors.h"
#include "tests/runtime/failures.h"

namespace tarvola::ado {
namespace {

std::string textOf(const Cell& cell) {
  std::string text = ">";
  cell.appendText(text);
  return text;
}

TEST(Cell, BecomesTheVariantOfItsType) {
  EXPECT_EQ(Cell().toVariant(), Variant());
  EXPECT_EQ(Cell::null().toVariant(), Variant::null());
  EXPECT_EQ(Cell::integer(-7).toVariant(), Variant(std::int16_t{-7}));
  EXPECT_EQ(Cell::longInteger(70'000).toVariant(), Variant(std::int32_t{70'000}));
  EXPECT_EQ(Cell::number(2.5).toVariant(), Variant(2.5));
  EXPECT_EQ(Cell::boolean(true).toVariant(), Variant(true));
  EXPECT_EQ(Cell::boolean(false).toVariant(), Variant(false));
  EXPECT_EQ(Cell::date(Date::fromYmd(2009, 1, 31)).toVariant(), Variant(Date::fromYmd(2009, 1, 31)));
  EXPECT_EQ(Cell::text("0118").toVariant(), Variant("0118"));
}

TEST(Cell, BecomesANumberUnderTheRegionalSettings) {
  EXPECT_EQ(Cell().toDouble(), 0);
  EXPECT_EQ(Cell::integer(4).toDouble(), 4);
  EXPECT_EQ(Cell::boolean(true).toDouble(), -1);
  EXPECT_EQ(Cell::text("1.234,5").toDouble(), 1234.5);
  EXPECT_EQ(failureOf([] { static_cast<void>(Cell::null().toDouble()); }), 94);
  EXPECT_EQ(failureOf([] { static_cast<void>(Cell::text("abc").toDouble()); }), 13);
}

TEST(Cell, AppendsItsTextForm) {
  EXPECT_EQ(textOf(Cell()), ">");
  EXPECT_EQ(textOf(Cell::integer(12)), ">12");
  EXPECT_EQ(textOf(Cell::number(0.5)), ">0,5");
  EXPECT_EQ(textOf(Cell::boolean(true)), ">True");
  EXPECT_EQ(textOf(Cell::date(Date::fromYmd(2009, 1, 31))), ">31/01/2009");
  EXPECT_EQ(textOf(Cell::text("abc")), ">abc");
  EXPECT_EQ(failureOf([] { textOf(Cell::null()); }), 94);
}

}  // namespace
}  // namespace tarvola::ado
