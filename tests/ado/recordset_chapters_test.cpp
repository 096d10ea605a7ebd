#include <gtest/gtest.h>

#include "tests/ado/recordset_fixture.h"

namespace tarvola {
namespace {

using test::errorOf;
using test::here;
using test::namesOf;
using test::number;
using test::StockStore;

constexpr std::string_view ordersWithLines =
    "SHAPE {SELECT * FROM ORDERS} AS o APPEND ({SELECT * FROM LINES WHERE PART = 0} AS l RELATE KIND TO KIND, MONTH TO "
    "MONTH) AS Lines, ({SELECT * FROM LINES WHERE PART = 1} AS x RELATE KIND TO KIND, MONTH TO MONTH) AS Extras";

/// Two orders: D1 of May with lines a, b and the extra x, D2 of May with line c; a line of June belongs to nobody.
class Chapters : public testing::Test {
 protected:
  Chapters() {
    store.addOrder("D1", 5, "first");
    store.addOrder("D2", 5, "second");
    store.addLine("a", "D1", 5);
    store.addLine("c", "d2", 5);
    store.addLine("b", "D1", 5);
    store.addLine("lost", "D1", 6);
    store.addLine("x", "D1", 5, 1);
    orders = store.open(ordersWithLines);
  }

  [[nodiscard]] RecordsetPtr lines() const { return orders->get_Collect("Lines").recordset(); }

  StockStore store;
  RecordsetPtr orders;
};

TEST_F(Chapters, AreTheLastFieldsOfTheParent) {
  Fields& fields = orders->get_Fields();
  EXPECT_EQ(fields.get_Count(), 5);
  EXPECT_EQ(fields.get_Item(std::int32_t{3}).get_Name(), "Lines");
  EXPECT_EQ(fields.get_Item("EXTRAS").get_Value().type(), Variant::Type::Recordset);
  EXPECT_EQ(orders->get_Collect("NOTE"), Variant("first"));
  EXPECT_EQ(orders->get_RecordCount(), 2);
}

TEST_F(Chapters, ShowTheRowsOfTheParentsRow) {
  EXPECT_EQ(namesOf(*lines()), "a b");
  EXPECT_EQ(here(*lines()), "a");
  EXPECT_EQ(namesOf(*orders->get_Collect("Extras").recordset()), "x");
}

TEST_F(Chapters, AreTheSameRecordsetUnderEachOfTheirNames) {
  Field& field = orders->get_Fields().get_Item("Lines");
  EXPECT_EQ(field.get_UnderlyingValue().recordset(), lines());
  EXPECT_EQ(field.get_OriginalValue().recordset(), lines());
  EXPECT_EQ(field.get_Value().recordset(), lines());
}

TEST_F(Chapters, FollowTheParentsMoves) {
  const RecordsetPtr child = lines();
  child->MoveNext();
  orders->MoveNext();
  EXPECT_EQ(namesOf(*child), "c");
  EXPECT_EQ(here(*child), "c");
  orders->MoveNext();
  EXPECT_EQ(here(*child), "BOF EOF");
  EXPECT_EQ(child->get_RecordCount(), 0);
  orders->MoveFirst();
  EXPECT_EQ(namesOf(*child), "a b");
}

TEST_F(Chapters, KeepTheirCursorWhileTheParentStaysOnItsRow) {
  const RecordsetPtr child = lines();
  child->MoveNext();
  orders->MoveFirst();
  EXPECT_EQ(here(*child), "b");
}

TEST_F(Chapters, NeedAParentRow) {
  orders->MoveLast();
  orders->MoveNext();
  EXPECT_EQ(errorOf([&] { orders->get_Collect("Lines"); }), number(ErrorNumber::NoCurrentRecord));
}

TEST_F(Chapters, TellTheirOwnHandlersWhenTheParentMoves) {
  int moves = 0;
  lines()->MoveComplete.connect([&] { ++moves; });
  orders->MoveNext();
  EXPECT_EQ(moves, 1);
}

TEST_F(Chapters, CannotBeWritten) {
  EXPECT_EQ(errorOf([&] { orders->put_Collect("Lines", "x"); }), number(ErrorNumber::NotCapable));
}

TEST_F(Chapters, ReachTheStoreLikeAnyRecordset) {
  const RecordsetPtr child = lines();
  child->put_Collect("ITEM", "aa");
  child->Update();
  child->MoveNext();
  child->Delete();
  EXPECT_EQ(store.stored("SELECT ITEM FROM LINES WHERE PART = 0"), "aa|c|lost|");
  EXPECT_EQ(child->get_RecordCount(), 1);
}

TEST_F(Chapters, SendTheirPendingChangesWhenTheParentMoves) {
  lines()->put_Collect("ITEM", "aa");
  orders->MoveNext();
  EXPECT_EQ(store.stored("SELECT ITEM FROM LINES WHERE PART = 0"), "aa|c|b|lost|");
  orders->MoveFirst();
  EXPECT_EQ(namesOf(*lines()), "aa b");
}

TEST_F(Chapters, DoNotShowRemovedRowsAgain) {
  lines()->Delete();
  orders->MoveNext();
  orders->MoveFirst();
  EXPECT_EQ(namesOf(*lines()), "b");
}

TEST_F(Chapters, GiveNewRowsTheParentsKey) {
  const RecordsetPtr child = lines();
  child->AddNew();
  child->put_Collect("ITEM", "n");
  child->Update();
  EXPECT_EQ(store.stored("SELECT KIND, MONTH FROM LINES WHERE ITEM = 'n'"), "D1,5|");
  EXPECT_EQ(namesOf(*child), "a b n");
  orders->MoveNext();
  orders->MoveFirst();
  EXPECT_EQ(namesOf(*child), "a b n");
}

TEST_F(Chapters, TakeNoNewRowWithoutAParentRow) {
  const RecordsetPtr child = lines();
  orders->MoveLast();
  orders->MoveNext();
  EXPECT_EQ(errorOf([&] { child->AddNew(); }), number(ErrorNumber::NoCurrentRecord));
}

TEST_F(Chapters, CanBeFiltered) {
  const RecordsetPtr child = lines();
  child->put_Filter("ITEM = 'b' AND PART = 0");
  EXPECT_EQ(namesOf(*child), "b");
  orders->MoveNext();
  EXPECT_EQ(namesOf(*child), "");
  child->put_Filter("");
  EXPECT_EQ(namesOf(*child), "c");
}

TEST_F(Chapters, AreClosedWithTheirParent) {
  const RecordsetPtr child = lines();
  orders->Close();
  EXPECT_EQ(child->get_State(), adStateClosed);
}

TEST_F(Chapters, KeepAPendingChangeFromBeingClosedAway) {
  lines()->put_Collect("ITEM", "aa");
  EXPECT_EQ(errorOf([&] { orders->Close(); }), number(ErrorNumber::NotAllowedInThisContext));
  EXPECT_EQ(errorOf([&] { orders->Requery(); }), number(ErrorNumber::NotAllowedInThisContext));
}

TEST_F(Chapters, AreReadAnewByTheParentsRequery) {
  const RecordsetPtr before = lines();
  store.addLine("late", "D1", 5);
  orders->Requery();
  EXPECT_EQ(before->get_State(), adStateClosed);
  EXPECT_EQ(namesOf(*lines()), "a b late");
}

TEST_F(Chapters, OutliveTheirParent) {
  const RecordsetPtr child = lines();
  orders.reset();
  child->MoveNext();
  EXPECT_EQ(here(*child), "b");
  child->put_Collect("ITEM", "bb");
  child->Update();
  EXPECT_EQ(namesOf(*child), "a bb");
}

TEST_F(Chapters, OfAParentRowBeingAddedAreEmptyUntilItHasItsKey) {
  const RecordsetPtr child = lines();
  orders->AddNew();
  EXPECT_EQ(child->get_RecordCount(), 0);
  orders->put_Collect("KIND", "d1");
  orders->put_Collect("MONTH", 5);
  orders->Update();
  EXPECT_EQ(namesOf(*child), "a b");
}

TEST_F(Chapters, OfARemovedParentRowAreEmpty) {
  const RecordsetPtr child = lines();
  orders->Delete();
  EXPECT_EQ(here(*child), "BOF EOF");
  orders->MoveNext();
  EXPECT_EQ(namesOf(*child), "c");
}

TEST_F(Chapters, AreLeftOutOfTheParentsText) { EXPECT_EQ(orders->GetString(adClipString, 1, ","), "D1,5,first\r"); }

TEST_F(Chapters, OfExecuteAreReadOnly) {
  const RecordsetPtr snapshot = store.connection()->Execute(ordersWithLines);
  const RecordsetPtr child = snapshot->get_Collect("Lines").recordset();
  EXPECT_EQ(namesOf(*child), "a b");
  EXPECT_EQ(errorOf([&] { child->put_Collect("ITEM", "x"); }), number(ErrorNumber::NotCapable));
}

TEST(ChaptersOfNothing, HaveTheirColumnsAndNoRows) {
  const StockStore store;
  store.addLine("a", "D1", 5);
  const RecordsetPtr orders = store.open(ordersWithLines);
  EXPECT_EQ(here(*orders), "BOF EOF");
  orders->AddNew();
  const RecordsetPtr child = orders->get_Collect("Lines").recordset();
  EXPECT_EQ(child->get_RecordCount(), 0);
  EXPECT_EQ(child->get_Fields().get_Count(), 4);
}

TEST(ChaptersOfNulls, AreEmpty) {
  const StockStore store;
  store.run("INSERT INTO ORDERS (KIND, NOTE) VALUES ('D1', 'without month')");
  store.run("INSERT INTO LINES (ITEM, KIND, PART) VALUES ('a', 'D1', 0)");
  const RecordsetPtr orders = store.open(ordersWithLines);
  EXPECT_EQ(orders->get_Collect("Lines").recordset()->get_RecordCount(), 0);
}

TEST(ChaptersOfManyParents, AreTheSameReadKeyByKeyOrWhole) {
  const StockStore store;
  for (int month = 1; month <= 60; ++month) {
    store.addOrder("D1", month, "order");
    store.addLine("m" + std::to_string(month), "D1", month);
    store.addLine("n" + std::to_string(month), "D1", month);
  }
  for (const std::string_view condition : {"MONTH <= 60", "MONTH <= 7"}) {
    const RecordsetPtr orders = store.open("SHAPE {SELECT * FROM ORDERS WHERE " + std::string(condition) +
                                           "} APPEND ({SELECT * FROM LINES} RELATE MONTH TO MONTH) AS Lines");
    const RecordsetPtr child = orders->get_Collect("Lines").recordset();
    for (; !orders->get_EOF(); orders->MoveNext()) {
      const std::string month = std::to_string(static_cast<int>(orders->cell(1).toDouble()));
      ASSERT_EQ(namesOf(*child), "m" + month + " n" + month);
    }
  }
}

// A chapter that was put together from several statements takes changes and new rows like any other.
TEST(ChaptersOfManyParents, CanBeChanged) {
  const StockStore store;
  for (int month = 1; month <= 3; ++month) {
    store.addOrder("D1", month, "order");
    store.addLine("m" + std::to_string(month), "D1", month);
  }
  const RecordsetPtr orders =
      store.open("SHAPE {SELECT * FROM ORDERS} APPEND ({SELECT * FROM LINES} RELATE MONTH TO MONTH) AS Lines");
  const RecordsetPtr child = orders->get_Collect("Lines").recordset();
  orders->MoveNext();
  child->put_Collect("ITEM", "changed");
  child->AddNew();
  child->put_Collect("ITEM", "new");
  child->Update();
  child->put_Collect("ITEM", "newer");
  child->Update();
  EXPECT_EQ(namesOf(*child), "changed newer");
  EXPECT_EQ(store.stored("SELECT ITEM, MONTH FROM LINES"), "m1,1|changed,2|m3,3|newer,2|");
  orders->MoveLast();
  EXPECT_EQ(namesOf(*child), "m3");
}

TEST(ChaptersOfSpecialKeys, AreFoundByTheWholeValue) {
  const StockStore store;
  const RecordsetPtr adder = store.open("SELECT * FROM ORDERS");
  adder->AddNew();
  adder->put_Collect("KIND", "it's");
  adder->put_Collect("MONTH", 1);
  adder->Update();
  const RecordsetPtr lines = store.open("SELECT * FROM LINES");
  for (const char* kind : {"it's", "it", "IT'S"}) {
    lines->AddNew();
    lines->put_Collect("ITEM", kind);
    lines->put_Collect("KIND", kind);
  }
  lines->Update();
  const RecordsetPtr orders =
      store.open("SHAPE {SELECT * FROM ORDERS} APPEND ({SELECT * FROM LINES} RELATE KIND TO KIND) AS Lines");
  EXPECT_EQ(namesOf(*orders->get_Collect("Lines").recordset()), "it's IT'S");
}

TEST(ChaptersOfSpecialKeys, AreNotReadTwiceForParentsThatDifferInCaseAlone) {
  const StockStore store;
  store.addOrder("d1", 5, "small");
  store.addOrder("D1", 5, "large");
  store.addLine("a", "D1", 5);
  const RecordsetPtr orders =
      store.open("SHAPE {SELECT * FROM ORDERS} APPEND ({SELECT * FROM LINES} RELATE KIND TO KIND) AS Lines");
  EXPECT_EQ(namesOf(*orders->get_Collect("Lines").recordset()), "a");
  orders->MoveNext();
  EXPECT_EQ(namesOf(*orders->get_Collect("Lines").recordset()), "a");
}

TEST(ChaptersOfSpecialKeys, AreFoundWithoutRegardToTheCaseOfAnyLetter) {
  const StockStore store;
  store.addOrder("CAF\u00c9", 5, "large");
  store.addLine("a", "caf\u00e9", 5);
  const RecordsetPtr orders =
      store.open("SHAPE {SELECT * FROM ORDERS} APPEND ({SELECT * FROM LINES} RELATE KIND TO KIND) AS Lines");
  EXPECT_EQ(namesOf(*orders->get_Collect("Lines").recordset()), "a");
}

TEST(ChaptersOfSpecialKeys, AreFoundByAllDigitsOfAFraction) {
  const StockStore store;
  const RecordsetPtr goods = store.goods();
  goods->AddNew();
  goods->put_Collect("NAME", "axe");
  goods->put_Collect("PRICE", 0.1 + 0.2);
  goods->Update();
  const RecordsetPtr shaped =
      store.open("SHAPE {SELECT * FROM GOODS} APPEND ({SELECT * FROM GOODS} RELATE PRICE TO PRICE) AS Same");
  EXPECT_EQ(namesOf(*shaped->get_Collect("Same").recordset()), "axe");
}

TEST(ChaptersOfOtherTypes, AreRelatedByTheChildColumnsType) {
  const StockStore store;
  store.run("INSERT INTO ORDERS (KIND, NOTE) VALUES ('5', 'text five')");
  store.addLine("a", "D1", 5);
  const RecordsetPtr orders =
      store.open("SHAPE {SELECT * FROM ORDERS} APPEND ({SELECT * FROM LINES} RELATE KIND TO MONTH) AS Lines");
  EXPECT_EQ(namesOf(*orders->get_Collect("Lines").recordset()), "a");
}

TEST(ShapeOpening, FailsForColumnsThatDoNotExist) {
  const StockStore store;
  store.addOrder("D1", 5, "first");
  for (const std::string_view relation : {"NOWHERE TO KIND", "KIND TO NOWHERE"}) {
    EXPECT_EQ(errorOf([&] {
                store.open("SHAPE {SELECT * FROM ORDERS} APPEND ({SELECT * FROM LINES} RELATE " +
                           std::string(relation) + ") AS Lines");
              }),
              number(ErrorNumber::SyntaxError));
  }
}

TEST(ShapeOpening, PassesTheStoresOwnErrorsOn) {
  const StockStore store;
  store.addOrder("D1", 5, "first");
  EXPECT_EQ(errorOf([&] { store.open("SHAPE {SELECT * FROM NOWHERE}"); }), number(ErrorNumber::UnknownTable));
  EXPECT_EQ(errorOf([&] {
              store.open("SHAPE {SELECT * FROM ORDERS} APPEND ({SELECT * FROM NOWHERE} RELATE KIND TO KIND) AS Lines");
            }),
            number(ErrorNumber::UnknownTable));
}

TEST(ShapeOpening, WithoutChaptersGivesAPlainRecordset) {
  const StockStore store;
  store.addOrder("D1", 5, "first");
  const RecordsetPtr orders = store.open("SHAPE {SELECT * FROM ORDERS}");
  EXPECT_EQ(orders->get_Fields().get_Count(), 3);
  orders->put_Collect("NOTE", "changed");
  orders->Update();
  EXPECT_EQ(store.stored("SELECT NOTE FROM ORDERS"), "changed|");
}

}  // namespace
}  // namespace tarvola
