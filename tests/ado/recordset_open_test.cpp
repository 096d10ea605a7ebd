#include <gtest/gtest.h>

#include "tarvola/runtime/error_texts.h"
#include "tests/ado/recordset_fixture.h"

namespace tarvola {
namespace {

using test::errorOf;
using test::here;
using test::namesOf;
using test::number;
using test::StockStore;

TEST(RecordsetOpen, StandsOnTheFirstRowAndCountsExactly) {
  const StockStore store;
  store.addGoods({"axe", "bow", "cup"});
  const RecordsetPtr goods = store.goods();
  EXPECT_EQ(goods->get_State(), adStateOpen);
  EXPECT_EQ(goods->get_RecordCount(), 3);
  EXPECT_FALSE(goods->get_BOF());
  EXPECT_FALSE(goods->get_EOF());
  EXPECT_EQ(here(*goods), "axe");
}

TEST(RecordsetOpen, OfNothingHasBothEndsAndNoRows) {
  const StockStore store;
  const RecordsetPtr goods = store.goods();
  EXPECT_EQ(here(*goods), "BOF EOF");
  EXPECT_EQ(goods->get_RecordCount(), 0);
  EXPECT_EQ(goods->get_AbsolutePosition(), -1);
  goods->AddNew();
  EXPECT_EQ(goods->get_RecordCount(), 1);
}

TEST(RecordsetOpen, OfAStatementWithoutRowsRunsItAndStaysClosed) {
  const StockStore store;
  store.addGoods({"axe", "bow"});
  const RecordsetPtr recordset = store.open("DELETE * FROM GOODS WHERE NAME = 'axe'");
  EXPECT_EQ(recordset->get_State(), adStateClosed);
  EXPECT_EQ(errorOf([&] { recordset->get_EOF(); }), number(ErrorNumber::ObjectClosed));
  EXPECT_EQ(store.stored("SELECT NAME FROM GOODS"), "bow|");
}

TEST(RecordsetOpen, OfAnOpenOneIsError3705) {
  const StockStore store;
  const RecordsetPtr goods = store.goods();
  EXPECT_EQ(errorOf([&] { goods->Open("SELECT * FROM GOODS", store.connection()); }), number(ErrorNumber::ObjectOpen));
  EXPECT_EQ(errorOf([&] { goods->put_CursorLocation(adUseClient); }), number(ErrorNumber::ObjectOpen));
}

TEST(RecordsetOpen, HoldsItsRowsWithTheClientWhateverWasAskedFor) {
  const StockStore store;
  const RecordsetPtr goods = Recordset::create();
  goods->put_CursorLocation(2);
  EXPECT_EQ(goods->get_CursorLocation(), 2);
  goods->Open("SELECT * FROM GOODS", store.connection());
  EXPECT_EQ(goods->get_CursorLocation(), adUseClient);
  EXPECT_EQ(store.connection()->Execute("SELECT * FROM GOODS")->get_CursorLocation(), adUseClient);
}

TEST(RecordsetOpen, WithoutAUsableConnectionIsError3709) {
  const RecordsetPtr recordset = Recordset::create();
  EXPECT_EQ(errorOf([&] { recordset->Open("SELECT * FROM GOODS", nullptr); }), number(ErrorNumber::ConnectionUnusable));
  EXPECT_EQ(errorOf([&] { recordset->Open("SELECT * FROM GOODS", Connection::create()); }),
            number(ErrorNumber::ConnectionUnusable));
}

TEST(RecordsetOpen, ThatFailsLeavesItClosedAndUsable) {
  const StockStore store;
  const RecordsetPtr recordset = Recordset::create();
  EXPECT_NE(errorOf([&] { recordset->Open("SELECT * FROM NOWHERE", store.connection()); }), 0);
  EXPECT_EQ(recordset->get_State(), adStateClosed);
  recordset->Open("SELECT * FROM GOODS", store.connection());
  EXPECT_EQ(recordset->get_State(), adStateOpen);
}

TEST(RecordsetOpen, TakesOnlyLocksAndKindsOfSourceThatItServes) {
  const StockStore store;
  const auto openWith = [&](std::int32_t lockType, std::int32_t options) {
    return errorOf(
        [&] { Recordset::create()->Open("SELECT * FROM GOODS", store.connection(), adOpenStatic, lockType, options); });
  };
  EXPECT_EQ(openWith(adLockReadOnly, adCmdText), 0);
  EXPECT_EQ(openWith(2, adCmdText), 0);
  EXPECT_EQ(openWith(adLockOptimistic, adCmdUnspecified), 0);
  EXPECT_EQ(openWith(adLockBatchOptimistic, adCmdText), number(ErrorNumber::NotCapable));
  EXPECT_EQ(openWith(17, adCmdText), number(ErrorNumber::WrongArguments));
  EXPECT_EQ(openWith(adLockOptimistic, 2), number(ErrorNumber::WrongArguments));
}

TEST(RecordsetOpen, KeepsAPrivateCopyUntilRequery) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  store.addGoods({"bow"});
  EXPECT_EQ(namesOf(*goods), "axe");
  goods->Requery();
  EXPECT_EQ(namesOf(*goods), "axe bow");
}

TEST(RecordsetClose, EndsEveryMemberWithError3704) {
  const StockStore store;
  const RecordsetPtr goods = store.goods();
  goods->Close();
  EXPECT_EQ(goods->get_State(), adStateClosed);
  const auto closed = number(ErrorNumber::ObjectClosed);
  EXPECT_EQ(errorOf([&] { goods->Close(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->get_BOF(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->get_RecordCount(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->get_AbsolutePosition(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->MoveFirst(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->Move(0); }), closed);
  EXPECT_EQ(errorOf([&] { goods->AddNew(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->Update(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->UpdateBatch(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->Delete(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->Requery(); }), closed);
  EXPECT_EQ(errorOf([&] { goods->get_Collect("NAME"); }), closed);
  EXPECT_EQ(errorOf([&] { goods->put_Collect("NAME", "x"); }), closed);
  EXPECT_EQ(errorOf([&] { goods->get_Fields().get_Item("NAME"); }), closed);
  EXPECT_EQ(errorOf([&] { goods->GetString(); }), closed);
  EXPECT_EQ(errorOf([&] { static_cast<void>(goods->cell(0)); }), closed);
  EXPECT_EQ(errorOf([&] { static_cast<void>(goods->column("NAME")); }), closed);
}

TEST(RecordsetClose, WhileARowIsBeingEditedIsError3219AndLosesNothing) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  goods->put_Collect("NAME", "bow");
  EXPECT_EQ(errorOf([&] { goods->Close(); }), number(ErrorNumber::NotAllowedInThisContext));
  goods->Update();
  goods->Close();
  EXPECT_EQ(store.stored("SELECT NAME FROM GOODS"), "bow|");
}

TEST(RecordsetClose, OfRowsMadeInMemoryAsksForNothing) {
  const RecordsetPtr recordset = Recordset::over(test::namedSizes({{"axe", 1}}));
  recordset->put_Collect("NAME", "bow");
  EXPECT_NO_THROW(recordset->Close());
}

TEST(RecordsetClose, LetsItBeOpenedOnAnotherText) {
  const StockStore store;
  store.addGoods({"axe", "bow"});
  store.addOrder("D1", 5, "first");
  const RecordsetPtr recordset = store.goods();
  recordset->put_Filter("NAME = 'bow'");
  recordset->Close();
  recordset->Open("SELECT * FROM ORDERS", store.connection());
  EXPECT_EQ(recordset->get_RecordCount(), 1);
  EXPECT_EQ(recordset->get_Collect("NOTE"), Variant("first"));
  EXPECT_EQ(recordset->get_Filter(), Variant(std::int32_t{0}));
}

TEST(RecordsetRequery, StandsOnTheFirstRowAgain) {
  const StockStore store;
  store.addGoods({"axe", "bow"});
  const RecordsetPtr goods = store.goods();
  goods->MoveLast();
  goods->Requery();
  EXPECT_EQ(here(*goods), "axe");
}

TEST(RecordsetRequery, AppliesACriteriaFilterAgain) {
  const StockStore store;
  store.addGoods({"axe", "bow"});
  const RecordsetPtr goods = store.goods();
  goods->put_Filter("NAME = 'bow'");
  store.addGoods({"bow"});
  goods->Requery();
  EXPECT_EQ(namesOf(*goods), "bow bow");
  EXPECT_EQ(goods->get_Filter(), Variant("NAME = 'bow'"));
  goods->put_Filter(std::int32_t{0});
  EXPECT_EQ(namesOf(*goods), "axe bow bow");
}

TEST(RecordsetRequery, WhileEditingOrAddingIsError3219) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.goods();
  goods->put_Collect("NAME", "bow");
  EXPECT_EQ(errorOf([&] { goods->Requery(); }), number(ErrorNumber::NotAllowedInThisContext));
  goods->CancelUpdate();
  goods->AddNew();
  EXPECT_EQ(errorOf([&] { goods->Requery(); }), number(ErrorNumber::NotAllowedInThisContext));
}

TEST(RecordsetRequery, OfRowsWithoutASourceIsNotPossible) {
  const StockStore store;
  EXPECT_EQ(errorOf([] { Recordset::over(test::namedSizes({}))->Requery(); }), number(ErrorNumber::NotCapable));
  EXPECT_EQ(errorOf([&] { store.connection()->Execute("SELECT * FROM GOODS")->Requery(); }),
            number(ErrorNumber::NotCapable));
}

TEST(RecordsetConnection, LivesAsLongAsTheRecordset) {
  RecordsetPtr goods;
  const StockStore store;
  store.addGoods({"axe"});
  {
    const ConnectionPtr own = store.connect();
    goods = Recordset::create();
    goods->Open("SELECT * FROM GOODS", own);
  }
  goods->put_Collect("NAME", "bow");
  goods->UpdateBatch();
  goods->Requery();
  EXPECT_EQ(here(*goods), "bow");
}

TEST(RecordsetConnection, OfASnapshotLivesAsLongAsTheSnapshot) {
  const StockStore store;
  store.addGoods({"axe", "bow"});
  const RecordsetPtr goods = store.connect()->Execute("SELECT * FROM GOODS");
  goods->MoveNext();
  EXPECT_EQ(here(*goods), "bow");
}

TEST(RecordsetConnection, ThatIsClosedClosesItsRecordsets) {
  const StockStore store;
  store.addGoods({"axe"});
  const ConnectionPtr own = store.connect();
  const RecordsetPtr goods = Recordset::create();
  goods->Open("SELECT * FROM GOODS", own);
  goods->put_Collect("NAME", "bow");
  own->Close();
  EXPECT_EQ(goods->get_State(), adStateClosed);
  EXPECT_EQ(errorOf([&] { goods->MoveFirst(); }), number(ErrorNumber::ObjectClosed));
  own->Open(test::connectionTextOf(store.path()));
  EXPECT_EQ(goods->get_State(), adStateClosed);
  goods->Open("SELECT * FROM GOODS", own);
  EXPECT_EQ(here(*goods), "axe");
}

TEST(RecordsetSnapshot, OfExecuteIsReadOnly) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.connection()->Execute("SELECT * FROM GOODS");
  const auto write = [&] { goods->put_Collect("NAME", "x"); };
  EXPECT_EQ(errorOf(write), number(ErrorNumber::NotCapable));
  EXPECT_EQ(test::errorTextOf(write),
            "Current Recordset does not support updating. This may be a limitation of the provider, or of the selected "
            "locktype.");
  EXPECT_EQ(errorOf([&] { goods->AddNew(); }), number(ErrorNumber::NotCapable));
  EXPECT_EQ(errorOf([&] { goods->Delete(); }), number(ErrorNumber::NotCapable));
  EXPECT_EQ(goods->get_RecordCount(), 1);
}

TEST(RecordsetSnapshot, IsAlsoWhatAReadOnlyLockGives) {
  const StockStore store;
  store.addGoods({"axe"});
  const RecordsetPtr goods = store.open("SELECT * FROM GOODS", adLockReadOnly);
  EXPECT_EQ(errorOf([&] { goods->put_Collect("NAME", "x"); }), number(ErrorNumber::NotCapable));
}

TEST(RecordsetDataMember, IsKept) {
  const RecordsetPtr recordset = Recordset::create();
  recordset->put_DataMember("Secondary");
  EXPECT_EQ(recordset->get_DataMember(), "Secondary");
}

}  // namespace
}  // namespace tarvola
