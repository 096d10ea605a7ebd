#include <gtest/gtest.h>

#include "tests/ado/recordset_fixture.h"

namespace tarvola {
namespace {

using test::errorOf;
using test::here;
using test::namedSizes;
using test::namesOf;
using test::number;
using test::StockStore;

RecordsetPtr fourRows() { return Recordset::over(namedSizes({{"axe", 1}, {"bow", 2}, {"axe", 3}, {"cup", 4}})); }

TEST(RecordsetFilter, ShowsTheMatchingRowsAndStandsOnTheFirst) {
  const RecordsetPtr recordset = fourRows();
  recordset->MoveLast();
  recordset->put_Filter("NAME = 'AXE'");
  EXPECT_EQ(recordset->get_RecordCount(), 2);
  EXPECT_EQ(recordset->get_AbsolutePosition(), 1);
  recordset->MoveNext();
  EXPECT_EQ(recordset->get_Collect("SIZE"), Variant(std::int32_t{3}));
  recordset->MoveNext();
  EXPECT_EQ(here(*recordset), "EOF");
}

TEST(RecordsetFilter, WithoutMatchHasBothEnds) {
  const RecordsetPtr recordset = fourRows();
  recordset->put_Filter("NAME = 'dye'");
  EXPECT_EQ(here(*recordset), "BOF EOF");
  EXPECT_EQ(recordset->get_RecordCount(), 0);
  EXPECT_EQ(errorOf([&] { recordset->MoveFirst(); }), number(ErrorNumber::NoCurrentRecord));
}

TEST(RecordsetFilter, IsClearedByZeroOrAnEmptyTextAndGoesToTheFirstRow) {
  for (const Variant& none : {Variant(std::int16_t{0}), Variant(std::int32_t{0}), Variant("")}) {
    const RecordsetPtr recordset = fourRows();
    recordset->put_Filter("NAME = 'cup'");
    recordset->put_Filter(none);
    EXPECT_EQ(recordset->get_RecordCount(), 4);
    EXPECT_EQ(here(*recordset), "axe");
    EXPECT_EQ(recordset->get_Filter(), Variant(std::int32_t{0}));
  }
}

TEST(RecordsetFilter, ReadsBackAsItWasSet) {
  const RecordsetPtr recordset = fourRows();
  EXPECT_EQ(recordset->get_Filter(), Variant(std::int32_t{0}));
  recordset->put_Filter("SIZE > 1 OR SIZE < 0");
  EXPECT_EQ(recordset->get_Filter(), Variant("SIZE > 1 OR SIZE < 0"));
}

TEST(RecordsetFilter, ThatIsNoCriteriaLeavesTheFilterOfBefore) {
  const RecordsetPtr recordset = fourRows();
  recordset->put_Filter("NAME = 'axe'");
  recordset->MoveNext();
  EXPECT_EQ(errorOf([&] { recordset->put_Filter("NAME = axe"); }), number(ErrorNumber::WrongArguments));
  EXPECT_EQ(errorOf([&] { recordset->put_Filter("COLOR = 'red'"); }), number(ErrorNumber::ItemNotFound));
  EXPECT_EQ(recordset->get_RecordCount(), 2);
  EXPECT_EQ(recordset->get_AbsolutePosition(), 2);
  EXPECT_EQ(recordset->get_Filter(), Variant("NAME = 'axe'"));
}

TEST(RecordsetFilter, OfAnyOtherKindOfValueIsError3001) {
  const RecordsetPtr recordset = fourRows();
  for (const Variant& value : {Variant(), Variant::null(), Variant(true), Variant(1.0), Variant(std::int32_t{4}),
                               Variant(std::int32_t{-1}), Variant(Variant::Array{}), Variant(RecordsetPtr())}) {
    EXPECT_EQ(errorOf([&] { recordset->put_Filter(value); }), number(ErrorNumber::WrongArguments));
  }
  EXPECT_EQ(recordset->get_RecordCount(), 4);
}

TEST(RecordsetFilter, ByStateShowsWhatIsWaitingWhichIsNothing) {
  const RecordsetPtr recordset = fourRows();
  for (const std::int32_t constant : {1, 2, 5}) {
    recordset->put_Filter(constant);
    EXPECT_EQ(recordset->get_RecordCount(), 0);
    EXPECT_EQ(recordset->get_Filter(), Variant(constant));
  }
  recordset->put_Filter(std::int32_t{3});
  EXPECT_EQ(recordset->get_RecordCount(), 4);
}

TEST(RecordsetFilter, MayBeSetWhileItIsClosed) {
  const StockStore store;
  store.addGoods({"axe", "bow"});
  const RecordsetPtr goods = Recordset::create();
  goods->put_Filter("NAME = 'bow'");
  goods->Open("SELECT * FROM GOODS", store.connection());
  EXPECT_EQ(namesOf(*goods), "bow");
  EXPECT_EQ(here(*goods), "bow");
}

TEST(RecordsetFilter, GovernsEveryMoveAndCount) {
  const RecordsetPtr recordset = fourRows();
  recordset->put_Filter("SIZE >= 2");
  EXPECT_EQ(namesOf(*recordset), "bow axe cup");
  recordset->Move(2, adBookmarkFirst);
  EXPECT_EQ(here(*recordset), "cup");
  recordset->Move(-1);
  EXPECT_EQ(here(*recordset), "axe");
  EXPECT_EQ(recordset->get_AbsolutePosition(), 2);
  recordset->MovePrevious();
  recordset->MovePrevious();
  EXPECT_EQ(here(*recordset), "BOF");
  recordset->MoveFirst();
  EXPECT_EQ(recordset->GetString(), "bow\t2\raxe\t3\rcup\t4\r");
}

TEST(RecordsetFilter, LosesARowThatNoLongerMatchesOnceItIsUpdated) {
  const RecordsetPtr recordset = fourRows();
  recordset->put_Filter("NAME = 'axe'");
  recordset->put_Collect("NAME", "bow");
  EXPECT_EQ(recordset->get_RecordCount(), 2);
  recordset->Update();
  EXPECT_EQ(recordset->get_RecordCount(), 1);
  // The row can still be read; the next move goes on from the gap.
  EXPECT_EQ(here(*recordset), "bow");
  EXPECT_EQ(recordset->get_AbsolutePosition(), -1);
  recordset->MoveNext();
  EXPECT_EQ(recordset->get_Collect("SIZE"), Variant(std::int32_t{3}));
  EXPECT_EQ(recordset->get_AbsolutePosition(), 1);
}

TEST(RecordsetFilter, SkipsNoRowInALoopThatTakesEachRowOutOfIt) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"a", 2}, {"a", 3}, {"b", 4}}));
  recordset->put_Filter("NAME = 'a'");
  double visited = 0;
  while (!recordset->get_EOF()) {
    visited = visited * 10 + recordset->cell(1).toDouble();
    recordset->put_Collect("NAME", "b");
    recordset->MoveNext();
  }
  EXPECT_EQ(visited, 123);
  EXPECT_EQ(here(*recordset), "BOF EOF");
  recordset->put_Filter("NAME = 'b'");
  EXPECT_EQ(recordset->get_RecordCount(), 4);
}

TEST(RecordsetFilter, TakesARowBackThatMatchesAgain) {
  const RecordsetPtr recordset = fourRows();
  recordset->put_Filter("NAME = 'axe'");
  recordset->put_Collect("NAME", "bow");
  recordset->Update();
  recordset->put_Collect("NAME", "axe");
  recordset->Update();
  EXPECT_EQ(recordset->get_RecordCount(), 2);
  EXPECT_EQ(recordset->get_AbsolutePosition(), 1);
}

TEST(RecordsetFilter, ShowsANewRowUntilItIsSavedWithoutMatching) {
  const RecordsetPtr recordset = fourRows();
  recordset->put_Filter("NAME = 'axe'");
  recordset->AddNew();
  EXPECT_EQ(recordset->get_RecordCount(), 3);
  recordset->put_Collect("NAME", "dye");
  recordset->Update();
  EXPECT_EQ(recordset->get_RecordCount(), 2);
  recordset->MoveNext();
  EXPECT_EQ(here(*recordset), "EOF");
  recordset->AddNew();
  recordset->put_Collect("NAME", "axe");
  recordset->Update();
  EXPECT_EQ(recordset->get_RecordCount(), 3);
  recordset->put_Filter("");
  EXPECT_EQ(namesOf(*recordset), "axe bow axe cup dye axe");
}

TEST(RecordsetFilter, ForgetsRemovedRowsForGood) {
  const RecordsetPtr recordset = fourRows();
  recordset->put_Filter("NAME = 'axe'");
  recordset->Delete();
  EXPECT_EQ(recordset->get_RecordCount(), 1);
  recordset->put_Filter("");
  EXPECT_EQ(namesOf(*recordset), "bow axe cup");
  recordset->put_Filter("NAME = 'axe'");
  EXPECT_EQ(recordset->get_RecordCount(), 1);
}

TEST(RecordsetFilter, DropsAFilteredNewRowThatIsCancelled) {
  const RecordsetPtr recordset = fourRows();
  recordset->put_Filter("NAME = 'axe'");
  recordset->MoveLast();
  recordset->AddNew();
  recordset->put_Collect("NAME", "axe");
  recordset->CancelUpdate();
  EXPECT_EQ(recordset->get_RecordCount(), 2);
  EXPECT_EQ(recordset->get_Collect("SIZE"), Variant(std::int32_t{3}));
  recordset->put_Filter("");
  EXPECT_EQ(recordset->get_RecordCount(), 4);
}

// More rows than are walked: the answer comes from the index, through every kind of change.
TEST(RecordsetFilter, OfEqualitiesSeesEveryChangeInALargeSet) {
  const auto rows = namedSizes({});
  for (std::int32_t i = 0; i < 500; ++i) {
    const std::size_t row = rows->append();
    rows->set(row, 0, "K" + std::to_string(i % 10));
    rows->set(row, 1, i);
  }
  const RecordsetPtr recordset = Recordset::over(rows);
  recordset->put_Filter("NAME = 'k3' AND SIZE = 13");
  EXPECT_EQ(recordset->get_RecordCount(), 1);
  recordset->put_Collect("SIZE", 1000);
  recordset->put_Filter("SIZE = 1000 AND NAME = 'K3'");
  EXPECT_EQ(recordset->get_RecordCount(), 1);
  recordset->put_Filter("NAME = 'K3' AND SIZE = 13");
  EXPECT_EQ(recordset->get_RecordCount(), 0);
  recordset->AddNew();
  recordset->put_Collect("NAME", "K3");
  recordset->put_Collect("SIZE", 13);
  recordset->put_Filter("NAME = 'K3' AND SIZE = 13");
  EXPECT_EQ(recordset->get_RecordCount(), 1);
  recordset->Delete();
  recordset->put_Filter("NAME = 'K3'");
  EXPECT_EQ(recordset->get_RecordCount(), 50);
  recordset->put_Collect("NAME", "K4");
  recordset->CancelUpdate();
  recordset->put_Filter("NAME = 'K4'");
  EXPECT_EQ(recordset->get_RecordCount(), 50);
}

// So many values for one cell that the index is built anew while the row is still being edited.
TEST(RecordsetFilter, FindsARowAgainWhoseManyChangesWereTakenBack) {
  const auto rows = namedSizes({});
  for (std::int32_t i = 0; i < 20; ++i) rows->set(rows->append(), 0, "K" + std::to_string(i));
  const RecordsetPtr recordset = Recordset::over(rows);
  recordset->put_Filter("NAME = 'K3'");
  for (int change = 0; change < 200; ++change) recordset->put_Collect("NAME", "other");
  recordset->CancelUpdate();
  recordset->put_Filter("NAME = 'K3'");
  EXPECT_EQ(recordset->get_RecordCount(), 1);
  recordset->put_Filter("NAME = 'other'");
  EXPECT_EQ(recordset->get_RecordCount(), 0);
}

TEST(RecordsetFilter, ServesTheLoopThatFiltersForEachRow) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"b", 2}, {"c", 3}}));
  std::string visited;
  for (std::int32_t k = 0; k < 3; ++k) {
    recordset->Move(k, adBookmarkFirst);
    recordset->put_Filter("NAME = '" + here(*recordset) + "' AND SIZE = " + std::to_string(k + 1));
    ASSERT_EQ(recordset->get_RecordCount(), 1);
    visited += here(*recordset);
    recordset->put_Filter("");
  }
  EXPECT_EQ(visited, "abc");
}

}  // namespace
}  // namespace tarvola
