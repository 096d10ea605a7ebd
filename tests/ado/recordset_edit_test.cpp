#include <gtest/gtest.h>

#include "tests/ado/recordset_fixture.h"

namespace tarvola {
namespace {

using test::errorOf;
using test::errorTextOf;
using test::here;
using test::namedSizes;
using test::namesOf;
using test::number;
using test::StockStore;

constexpr std::string_view allGoods = "SELECT NAME, SIZE FROM GOODS";

// --- AddNew -------------------------------------------------------------------------------------------------

TEST(RecordsetAddNew, AppendsAtTheEndWhateverTheOrderAndCountsAtOnce) {
  const StockStore store;
  store.addGoods({"bow", "cup"});
  const RecordsetPtr goods = store.open("SELECT * FROM GOODS ORDER BY NAME");
  goods->AddNew();
  EXPECT_EQ(goods->get_RecordCount(), 3);
  EXPECT_EQ(goods->get_AbsolutePosition(), 3);
  EXPECT_EQ(goods->get_EditMode(), adEditAdd);
  EXPECT_FALSE(goods->get_BOF());
  EXPECT_FALSE(goods->get_EOF());
  goods->put_Collect("NAME", "axe");
  goods->Update();
  EXPECT_EQ(namesOf(*goods), "bow cup axe");
  EXPECT_EQ(here(*goods), "axe");
  goods->MoveNext();
  EXPECT_EQ(here(*goods), "EOF");
}

TEST(RecordsetAddNew, SendsTheRowThatIsBeingAddedOrEditedFirst) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  goods->put_Collect("SIZE", 50);
  goods->AddNew();
  EXPECT_EQ(store.stored(allGoods), "axe,50|");
  goods->put_Collect("NAME", "bow");
  goods->AddNew();
  EXPECT_EQ(store.stored(allGoods), "axe,50|bow,null|");
}

TEST(RecordsetAddNew, NamesOnlyTheColumnsThatWereAssigned) {
  const StockStore store;
  const RecordsetPtr goods = store.goods();
  goods->AddNew();
  goods->put_Collect("NAME", "axe");
  goods->put_Collect("SIZE", Variant::null());
  goods->Update();
  // PRICE has a default of 7 in the store, which is not read back.
  EXPECT_EQ(store.stored("SELECT NAME, SIZE, PRICE FROM GOODS"), "axe,null,7|");
  EXPECT_TRUE(goods->get_Collect("PRICE").isEmpty());
  goods->Requery();
  EXPECT_EQ(goods->get_Collect("PRICE"), Variant(7.0));
}

TEST(RecordsetAddNew, WithNothingAssignedCannotBeSent) {
  const StockStore store;
  const RecordsetPtr goods = store.goods();
  goods->AddNew();
  const auto update = [&] { goods->Update(); };
  EXPECT_EQ(errorTextOf(update), "Cannot insert an empty row. Row must have at least one column value set.");
  EXPECT_EQ(errorOf(update), number(ErrorNumber::Unspecified));
  EXPECT_EQ(goods->get_EditMode(), adEditAdd);
  goods->CancelUpdate();
  EXPECT_EQ(store.stored(allGoods), "");
}

TEST(RecordsetAddNew, GivesTheRowItsIdentityForTheNextChange) {
  const StockStore store;
  store.addGoods({"axe", "axe"});
  const RecordsetPtr goods = store.goods();
  goods->AddNew();
  goods->put_Collect("NAME", "axe");
  goods->put_Collect("SIZE", 9);
  goods->Update();
  goods->put_Collect("SIZE", 10);
  goods->Update();
  EXPECT_EQ(store.stored(allGoods), "axe,1|axe,2|axe,10|");
  goods->Delete();
  EXPECT_EQ(store.stored(allGoods), "axe,1|axe,2|");
}

// The store has put its default into the column behind the recordset's back, so the row is not what it is believed to
// be. That is why programs ask again after adding.
TEST(RecordsetAddNew, OfARowWhoseDefaultWasNotReadBackCannotBeChangedThereBeforeRequery) {
  const StockStore store;
  const RecordsetPtr goods = store.goods();
  goods->AddNew();
  goods->put_Collect("NAME", "axe");
  goods->Update();
  goods->put_Collect("SHELF", "B2");
  EXPECT_EQ(errorOf([&] { goods->Update(); }), number(ErrorNumber::RowNotLocated));
  goods->CancelUpdate();
  goods->Requery();
  goods->put_Collect("SHELF", "B2");
  goods->Update();
  EXPECT_EQ(store.stored("SELECT NAME, SHELF FROM GOODS"), "axe,B2|");
}

TEST(RecordsetAddNew, InMemoryStaysInMemory) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"axe", 1}}));
  recordset->AddNew();
  recordset->put_Collect("NAME", "bow");
  recordset->UpdateBatch();
  recordset->AddNew();
  recordset->Update();
  EXPECT_EQ(recordset->get_RecordCount(), 3);
  recordset->Move(1, adBookmarkFirst);
  EXPECT_EQ(here(*recordset), "bow");
}

// --- Update --------------------------------------------------------------------------------------------------

TEST(RecordsetUpdate, IsWhatReachesTheStore) {
  const StockStore store;
  store.addGoods({"axe", "bow"});
  const RecordsetPtr goods = store.goods();
  goods->put_Collect("NAME", "cup");
  EXPECT_EQ(goods->get_EditMode(), adEditInProgress);
  EXPECT_EQ(store.stored(allGoods), "axe,1|bow,2|");
  goods->Update();
  EXPECT_EQ(goods->get_EditMode(), adEditNone);
  EXPECT_EQ(store.stored(allGoods), "cup,1|bow,2|");
}

TEST(RecordsetUpdate, WithNothingPendingDoesNothing) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  goods->Update();
  goods->UpdateBatch();
  goods->MoveNext();
  EXPECT_NO_THROW(goods->UpdateBatch());
  EXPECT_EQ(store.stored(allGoods), "axe,1|");
}

struct ImplicitCase {
  std::string name;
  void (*act)(Recordset&);
};

class RecordsetImplicitUpdate : public testing::TestWithParam<ImplicitCase> {};

TEST_P(RecordsetImplicitUpdate, SendsTheRowThatIsLeft) {
  const StockStore store;
  store.addGoods({"axe", "bow", "cup"});
  const RecordsetPtr goods = store.goods();
  goods->MoveNext();
  goods->put_Collect("SIZE", 20);
  GetParam().act(*goods);
  EXPECT_EQ(store.stored(allGoods), "axe,1|bow,20|cup,3|");
}

INSTANTIATE_TEST_SUITE_P(Cases, RecordsetImplicitUpdate,
                         testing::Values(ImplicitCase{"MoveFirst", [](Recordset& r) { r.MoveFirst(); }},
                                         ImplicitCase{"MoveLast", [](Recordset& r) { r.MoveLast(); }},
                                         ImplicitCase{"MoveNext", [](Recordset& r) { r.MoveNext(); }},
                                         ImplicitCase{"MovePrevious", [](Recordset& r) { r.MovePrevious(); }},
                                         ImplicitCase{"MoveByCount", [](Recordset& r) { r.Move(1); }},
                                         ImplicitCase{"MoveFromTheFirst",
                                                      [](Recordset& r) { r.Move(0, adBookmarkFirst); }},
                                         ImplicitCase{"AddNew", [](Recordset& r) { r.AddNew(); }},
                                         ImplicitCase{"Filter", [](Recordset& r) { r.put_Filter("NAME = 'axe'"); }},
                                         ImplicitCase{"NoFilter", [](Recordset& r) { r.put_Filter(std::int32_t{0}); }},
                                         ImplicitCase{"GetString", [](Recordset& r) { r.GetString(); }},
                                         ImplicitCase{"UpdateBatch", [](Recordset& r) { r.UpdateBatch(adAffectAll); }}),
                         [](const auto& one) { return one.param.name; });

TEST(RecordsetUpdate, ThatFailsKeepsTheRowCurrentAndInEditMode) {
  const StockStore store;
  store.run("INSERT INTO STRICT_GOODS (NAME, SIZE) VALUES ('axe', 1)");
  store.run("INSERT INTO STRICT_GOODS (NAME, SIZE) VALUES ('bow', 2)");
  const RecordsetPtr goods = store.open("SELECT * FROM STRICT_GOODS");
  goods->put_Collect("NAME", "BOW");
  EXPECT_NE(errorOf([&] { goods->MoveNext(); }), 0);
  EXPECT_EQ(here(*goods), "BOW");
  EXPECT_EQ(goods->get_EditMode(), adEditInProgress);
  EXPECT_NE(errorOf([&] { goods->put_Filter("NAME = 'axe'"); }), 0);
  EXPECT_EQ(goods->get_RecordCount(), 2);
  EXPECT_NE(errorOf([&] { goods->AddNew(); }), 0);
  EXPECT_EQ(goods->get_RecordCount(), 2);
  goods->CancelUpdate();
  EXPECT_EQ(here(*goods), "axe");
  goods->MoveNext();
  EXPECT_EQ(here(*goods), "bow");
}

TEST(RecordsetUpdate, OfANewRowThatTheStoreRefusesKeepsItBeingAdded) {
  const StockStore store;
  const RecordsetPtr goods = store.open("SELECT * FROM STRICT_GOODS");
  goods->AddNew();
  goods->put_Collect("NAME", "axe");
  EXPECT_NE(errorOf([&] { goods->Update(); }), 0);
  EXPECT_EQ(goods->get_EditMode(), adEditAdd);
  goods->put_Collect("SIZE", 4);
  goods->Update();
  EXPECT_EQ(store.stored("SELECT * FROM STRICT_GOODS"), "axe,4|");
}

TEST(RecordsetUpdate, OfARowThatSomebodyElseChangedOrRemovedFails) {
  const StockStore store;
  store.addGoods({"axe", "bow"});
  const RecordsetPtr goods = store.goods();
  store.run("UPDATE GOODS SET NAME = 'adze' WHERE NAME = 'axe'");
  goods->put_Collect("NAME", "arrow");
  const auto update = [&] { goods->Update(); };
  EXPECT_EQ(errorOf(update), number(ErrorNumber::RowNotLocated));
  EXPECT_EQ(errorTextOf(update),
            "Row cannot be located for updating. Some values may have been changed since it was last read.");
  goods->CancelUpdate();
  EXPECT_EQ(here(*goods), "axe");
  // Another column than the one that was changed meanwhile: nobody is overwritten.
  goods->put_Collect("SIZE", 11);
  goods->Update();
  EXPECT_EQ(store.stored(allGoods), "adze,11|bow,2|");
  store.run("DELETE * FROM GOODS WHERE SIZE = 11");
  goods->put_Collect("SIZE", 12);
  EXPECT_EQ(errorOf(update), number(ErrorNumber::RowNotLocated));
}

TEST(RecordsetUpdate, FindsItsRowAmongEqualOnes) {
  const StockStore store;
  store.run("INSERT INTO GOODS (NAME, SIZE) VALUES ('axe', 1)");
  store.run("INSERT INTO GOODS (NAME, SIZE) VALUES ('axe', 1)");
  const RecordsetPtr goods = store.goods();
  goods->MoveLast();
  goods->put_Collect("SIZE", 2);
  goods->Update();
  EXPECT_EQ(store.stored(allGoods), "axe,1|axe,2|");
}

TEST(RecordsetUpdate, OfASetWithoutBaseTableFailsOnlyWhenItIsSent) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr sums = store.open("SELECT MAX(SIZE) AS LARGEST FROM GOODS");
  sums->put_Collect("LARGEST", 5);
  EXPECT_EQ(sums->get_Collect("LARGEST"), Variant(std::int32_t{5}));
  const auto update = [&] { sums->Update(); };
  EXPECT_EQ(errorTextOf(update), "Insufficient base table information for updating or refreshing.");
  EXPECT_EQ(errorOf(update), number(ErrorNumber::Unspecified));
  sums->CancelUpdate();
  EXPECT_EQ(errorTextOf([&] { sums->Delete(); }), "Insufficient base table information for updating or refreshing.");
}

TEST(RecordsetUpdateBatch, TakesTheKnownKindsOfRows) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  EXPECT_NO_THROW(goods->UpdateBatch(adAffectCurrent));
  EXPECT_NO_THROW(goods->UpdateBatch(adAffectAll));
  EXPECT_EQ(errorOf([&] { goods->UpdateBatch(adAffectGroup); }), number(ErrorNumber::WrongArguments));
  EXPECT_EQ(errorOf([&] { goods->UpdateBatch(9); }), number(ErrorNumber::WrongArguments));
}

// --- CancelUpdate ----------------------------------------------------------------------------------------

TEST(RecordsetCancelUpdate, BringsBackWhatTheRowHeld) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  goods->put_Collect("NAME", "bow");
  goods->put_Collect("NAME", "cup");
  goods->put_Collect("REMARK", "new");
  goods->CancelUpdate();
  EXPECT_EQ(goods->get_EditMode(), adEditNone);
  EXPECT_EQ(goods->get_Collect("NAME"), Variant("axe"));
  EXPECT_TRUE(goods->get_Collect("REMARK").isNull());
  goods->MoveFirst();
  EXPECT_EQ(store.stored(allGoods), "axe,1|");
}

TEST(RecordsetCancelUpdate, ThrowsANewRowAwayAndReturnsToTheRowOfBefore) {
  const StockStore store;
  store.addGoods({"axe", "bow", "cup"});
  const RecordsetPtr goods = store.goods();
  goods->MoveNext();
  goods->AddNew();
  goods->put_Collect("NAME", "dye");
  goods->CancelUpdate();
  EXPECT_EQ(here(*goods), "bow");
  EXPECT_EQ(goods->get_RecordCount(), 3);
  goods->MoveLast();
  EXPECT_EQ(here(*goods), "cup");
}

TEST(RecordsetCancelUpdate, OfTheFirstRowOfAllLeavesNothing) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({}));
  recordset->AddNew();
  recordset->CancelUpdate();
  EXPECT_EQ(here(*recordset), "BOF EOF");
}

TEST(RecordsetCancelUpdate, WithNothingPendingIsAnError) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"axe", 1}}));
  EXPECT_EQ(errorOf([&] { recordset->CancelUpdate(); }), number(ErrorNumber::NotAllowedInThisContext));
}

// --- Delete --------------------------------------------------------------------------------------------------

TEST(RecordsetDelete, RemovesTheRowAtOnceAndStaysOnTheDeadRow) {
  const StockStore store;
  store.addGoods({"axe", "bow", "cup"});
  const RecordsetPtr goods = store.goods();
  goods->MoveNext();
  goods->Delete();
  EXPECT_EQ(store.stored(allGoods), "axe,1|cup,3|");
  EXPECT_EQ(goods->get_RecordCount(), 2);
  EXPECT_FALSE(goods->get_BOF());
  EXPECT_FALSE(goods->get_EOF());
  const auto read = [&] { goods->get_Collect("NAME"); };
  EXPECT_EQ(errorOf(read), number(ErrorNumber::RowDeleted));
  EXPECT_EQ(errorTextOf(read), "Row handle referred to a deleted row or a row marked for deletion.");
  EXPECT_EQ(errorOf([&] { goods->Delete(); }), number(ErrorNumber::RowDeleted));
  EXPECT_EQ(errorOf([&] { goods->put_Collect("NAME", "x"); }), number(ErrorNumber::RowDeleted));
  EXPECT_EQ(errorOf([&] { goods->get_EditMode(); }), number(ErrorNumber::RowDeleted));
  EXPECT_EQ(errorOf([&] { goods->Move(0); }), number(ErrorNumber::RowDeleted));
  EXPECT_EQ(goods->get_AbsolutePosition(), -1);
}

TEST(RecordsetDelete, IsFollowedByTheRowBehindOrInFront) {
  const auto standingOnDeadB = [] {
    RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"b", 2}, {"c", 3}, {"d", 4}}));
    recordset->MoveNext();
    recordset->Delete();
    return recordset;
  };
  RecordsetPtr recordset = standingOnDeadB();
  recordset->MoveNext();
  EXPECT_EQ(here(*recordset), "c");
  recordset = standingOnDeadB();
  recordset->MovePrevious();
  EXPECT_EQ(here(*recordset), "a");
  recordset = standingOnDeadB();
  recordset->Move(2);
  EXPECT_EQ(here(*recordset), "d");
  recordset = standingOnDeadB();
  recordset->Move(1, adBookmarkFirst);
  EXPECT_EQ(here(*recordset), "c");
}

TEST(RecordsetDelete, InALoopWithMoveNextVisitsEveryRowOnce) {
  const StockStore store;
  store.addGoods({"a", "b", "c", "d"});
  const RecordsetPtr goods = store.goods();
  std::string visited;
  while (!goods->get_EOF()) {
    visited += here(*goods);
    goods->Delete();
    goods->MoveNext();
  }
  EXPECT_EQ(visited, "abcd");
  EXPECT_EQ(store.stored(allGoods), "");
  EXPECT_EQ(here(*goods), "BOF EOF");
  EXPECT_EQ(errorOf([&] { goods->MoveLast(); }), number(ErrorNumber::NoCurrentRecord));
}

TEST(RecordsetDelete, OfTheOnlyRowLeavesNoFirstOne) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}}));
  recordset->Delete();
  EXPECT_FALSE(recordset->get_BOF());
  EXPECT_FALSE(recordset->get_EOF());
  EXPECT_EQ(errorOf([&] { recordset->MoveFirst(); }), number(ErrorNumber::NoCurrentRecord));
  EXPECT_EQ(here(*recordset), "BOF EOF");
}

TEST(RecordsetDelete, TakesOnlyTheCurrentRow) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}}));
  for (const std::int32_t affect : {0, adAffectGroup, adAffectAll, 4}) {
    EXPECT_EQ(errorOf([&] { recordset->Delete(affect); }), number(ErrorNumber::WrongArguments));
  }
  EXPECT_EQ(recordset->get_RecordCount(), 1);
}

TEST(RecordsetDelete, OfARowThatIsGoneFailsAndKeepsIt) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  store.run("DELETE * FROM GOODS");
  EXPECT_EQ(errorOf([&] { goods->Delete(); }), number(ErrorNumber::RowNotLocated));
  EXPECT_EQ(here(*goods), "axe");
  EXPECT_EQ(goods->get_RecordCount(), 1);
}

TEST(RecordsetDelete, OfARowBeingAddedThrowsItAway) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  goods->AddNew();
  goods->put_Collect("NAME", "bow");
  goods->Delete();
  EXPECT_EQ(goods->get_RecordCount(), 1);
  goods->MoveFirst();
  EXPECT_EQ(store.stored(allGoods), "axe,1|");
}

TEST(RecordsetDelete, DropsThePendingChangesOfItsRow) {
  const StockStore store;
  store.addGoods({"axe", "bow"});
  const RecordsetPtr goods = store.goods();
  goods->put_Collect("SIZE", 100);
  goods->Delete();
  goods->MoveNext();
  EXPECT_EQ(here(*goods), "bow");
  EXPECT_EQ(store.stored(allGoods), "bow,2|");
}

}  // namespace
}  // namespace tarvola
