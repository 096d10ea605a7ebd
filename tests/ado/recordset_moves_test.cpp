#include <gtest/gtest.h>

#include "tests/ado/recordset_fixture.h"

namespace tarvola {
namespace {

using test::errorOf;
using test::here;
using test::namedSizes;
using test::namesOf;
using test::number;

constexpr std::int32_t noRow = static_cast<std::int32_t>(ErrorNumber::NoCurrentRecord);

enum class Entry { Bof, Eof, Empty, Row };

/// Three rows a, b, c with the cursor where the case wants it; on b for a row.
RecordsetPtr standing(Entry entry) {
  if (entry == Entry::Empty) return Recordset::over(namedSizes({}));
  RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"b", 2}, {"c", 3}}));
  if (entry == Entry::Bof) recordset->MovePrevious();
  if (entry == Entry::Eof) recordset->Move(5);
  if (entry == Entry::Row) recordset->MoveNext();
  return recordset;
}

struct MoveCase {
  std::string name;
  Entry entry;
  void (*move)(Recordset&);
  std::int32_t error;
  std::string after;
};

class RecordsetMove : public testing::TestWithParam<MoveCase> {};

TEST_P(RecordsetMove, GoesByWhereTheCursorStands) {
  const RecordsetPtr recordset = standing(GetParam().entry);
  EXPECT_EQ(errorOf([&] { GetParam().move(*recordset); }), GetParam().error);
  EXPECT_EQ(here(*recordset), GetParam().after);
}

void first(Recordset& r) { r.MoveFirst(); }
void last(Recordset& r) { r.MoveLast(); }
void next(Recordset& r) { r.MoveNext(); }
void previous(Recordset& r) { r.MovePrevious(); }
template <int count>
void by(Recordset& r) {
  r.Move(count);
}

INSTANTIATE_TEST_SUITE_P(
    Table, RecordsetMove,
    testing::Values(
        MoveCase{"FirstFromBof", Entry::Bof, first, 0, "a"}, MoveCase{"LastFromBof", Entry::Bof, last, 0, "c"},
        MoveCase{"PreviousFromBof", Entry::Bof, previous, noRow, "BOF"},
        MoveCase{"BackFromBof", Entry::Bof, by<-2>, noRow, "BOF"},
        MoveCase{"NowhereFromBof", Entry::Bof, by<0>, noRow, "BOF"}, MoveCase{"NextFromBof", Entry::Bof, next, 0, "a"},
        MoveCase{"TwoFromBof", Entry::Bof, by<2>, 0, "b"}, MoveCase{"FirstFromEof", Entry::Eof, first, 0, "a"},
        MoveCase{"LastFromEof", Entry::Eof, last, 0, "c"}, MoveCase{"PreviousFromEof", Entry::Eof, previous, 0, "c"},
        MoveCase{"TwoBackFromEof", Entry::Eof, by<-2>, 0, "b"},
        MoveCase{"NowhereFromEof", Entry::Eof, by<0>, noRow, "EOF"},
        MoveCase{"NextFromEof", Entry::Eof, next, noRow, "EOF"},
        MoveCase{"TwoFromEof", Entry::Eof, by<2>, noRow, "EOF"},
        MoveCase{"FirstOfNothing", Entry::Empty, first, noRow, "BOF EOF"},
        MoveCase{"LastOfNothing", Entry::Empty, last, noRow, "BOF EOF"},
        MoveCase{"PreviousOfNothing", Entry::Empty, previous, noRow, "BOF EOF"},
        MoveCase{"NextOfNothing", Entry::Empty, next, noRow, "BOF EOF"},
        MoveCase{"NowhereOfNothing", Entry::Empty, by<0>, noRow, "BOF EOF"},
        MoveCase{"FirstFromARow", Entry::Row, first, 0, "a"}, MoveCase{"LastFromARow", Entry::Row, last, 0, "c"},
        MoveCase{"PreviousFromARow", Entry::Row, previous, 0, "a"},
        MoveCase{"PastTheFront", Entry::Row, by<-2>, 0, "BOF"},
        MoveCase{"FarPastTheFront", Entry::Row, by<-2000000000>, 0, "BOF"},
        MoveCase{"NowhereFromARow", Entry::Row, by<0>, 0, "b"}, MoveCase{"NextFromARow", Entry::Row, next, 0, "c"},
        MoveCase{"PastTheEnd", Entry::Row, by<2>, 0, "EOF"},
        MoveCase{"FarPastTheEnd", Entry::Row, by<2000000000>, 0, "EOF"}),
    [](const auto& one) { return one.param.name; });

TEST(RecordsetMoves, OnlyTheSecondStepPastAnEndIsAnError) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"b", 2}}));
  recordset->MoveNext();
  recordset->MoveNext();
  EXPECT_EQ(here(*recordset), "EOF");
  EXPECT_EQ(errorOf([&] { recordset->MoveNext(); }), noRow);
  recordset->MoveFirst();
  recordset->MovePrevious();
  EXPECT_EQ(here(*recordset), "BOF");
  EXPECT_EQ(errorOf([&] { recordset->MovePrevious(); }), noRow);
}

struct FromCase {
  std::int32_t count;
  std::int32_t start;
  std::string after;
};

class RecordsetMoveFrom : public testing::TestWithParam<FromCase> {};

// Wherever the cursor stands, on a row or outside.
TEST_P(RecordsetMoveFrom, CountsFromTheRowThatIsNamed) {
  for (const Entry entry : {Entry::Row, Entry::Bof, Entry::Eof}) {
    const RecordsetPtr recordset = standing(entry);
    recordset->Move(GetParam().count, GetParam().start);
    EXPECT_EQ(here(*recordset), GetParam().after);
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, RecordsetMoveFrom,
                         testing::Values(FromCase{0, adBookmarkFirst, "a"}, FromCase{2, adBookmarkFirst, "c"},
                                         FromCase{3, adBookmarkFirst, "EOF"}, FromCase{-1, adBookmarkFirst, "BOF"},
                                         FromCase{0, adBookmarkLast, "c"}, FromCase{-2, adBookmarkLast, "a"},
                                         FromCase{-3, adBookmarkLast, "BOF"}, FromCase{1, adBookmarkLast, "EOF"}));

TEST(RecordsetMoves, FromTheFirstRowOfNothingIsAnError) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({}));
  EXPECT_EQ(errorOf([&] { recordset->Move(0, adBookmarkFirst); }), noRow);
  EXPECT_EQ(errorOf([&] { recordset->Move(0, adBookmarkLast); }), noRow);
}

TEST(RecordsetMoves, FromAnUnknownStartIsError3001) {
  const RecordsetPtr recordset = standing(Entry::Row);
  EXPECT_EQ(errorOf([&] { recordset->Move(0, 3); }), number(ErrorNumber::WrongArguments));
}

TEST(RecordsetPosition, CountsFromOneAndNamesTheEnds) {
  const RecordsetPtr recordset = standing(Entry::Row);
  EXPECT_EQ(recordset->get_AbsolutePosition(), 2);
  recordset->Move(5);
  EXPECT_EQ(recordset->get_AbsolutePosition(), -3);
  recordset->Move(-5);
  EXPECT_EQ(recordset->get_AbsolutePosition(), -2);
}

TEST(RecordsetPosition, IsRequiredByEverythingThatNeedsARow) {
  for (const Entry entry : {Entry::Bof, Entry::Eof, Entry::Empty}) {
    const RecordsetPtr recordset = standing(entry);
    EXPECT_EQ(errorOf([&] { recordset->get_Collect("NAME"); }), noRow);
    EXPECT_EQ(errorOf([&] { recordset->put_Collect("NAME", "x"); }), noRow);
    EXPECT_EQ(errorOf([&] { recordset->get_Fields().get_Item("NAME").get_Value(); }), noRow);
    EXPECT_EQ(errorOf([&] { recordset->Delete(); }), noRow);
    EXPECT_EQ(errorOf([&] { recordset->Update(); }), noRow);
    EXPECT_EQ(errorOf([&] { recordset->CancelUpdate(); }), noRow);
    EXPECT_EQ(errorOf([&] { recordset->get_EditMode(); }), noRow);
    EXPECT_EQ(errorOf([&] { static_cast<void>(recordset->cell(0)); }), noRow);
    EXPECT_EQ(errorOf([&] { static_cast<void>(recordset->currentRow()); }), noRow);
    EXPECT_EQ(errorOf([&] { recordset->GetString(); }), noRow);
  }
}

TEST(RecordsetVisibleRows, LeaveTheCursorWhereItIs) {
  const RecordsetPtr recordset = standing(Entry::Row);
  EXPECT_EQ(namesOf(*recordset), "a b c");
  EXPECT_EQ(here(*recordset), "b");
  EXPECT_EQ(recordset->currentRow(), 1U);
}

}  // namespace
}  // namespace tarvola
