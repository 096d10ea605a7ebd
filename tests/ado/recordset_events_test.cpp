#include <gtest/gtest.h>

#include "tests/ado/recordset_fixture.h"

namespace tarvola {
namespace {

using test::errorOf;
using test::here;
using test::namedSizes;
using test::number;
using test::StockStore;

/// Counts how often each event of a recordset comes.
struct Counted {
  explicit Counted(Recordset& recordset) {
    recordset.MoveComplete.connect([this] { ++moves; });
    recordset.WillChangeRecord.connect([this] { ++changes; });
  }
  int moves = 0;
  int changes = 0;
};

TEST(RecordsetEvents, TellTheEndOfEveryMove) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"b", 2}}));
  const Counted counted(*recordset);
  recordset->MoveNext();
  recordset->MoveFirst();
  recordset->MoveLast();
  recordset->MovePrevious();
  recordset->Move(0, adBookmarkFirst);
  EXPECT_EQ(counted.moves, 5);
  recordset->put_Filter("NAME = 'b'");
  recordset->put_Filter("");
  EXPECT_EQ(counted.moves, 7);
  recordset->AddNew();
  EXPECT_EQ(counted.moves, 8);
}

TEST(RecordsetEvents, TellAMoveThatFailed) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({}));
  const Counted counted(*recordset);
  EXPECT_NE(errorOf([&] { recordset->MoveFirst(); }), 0);
  EXPECT_EQ(counted.moves, 1);
}

TEST(RecordsetEvents, TellOpenAndRequery) {
  const StockStore store;
  const RecordsetPtr goods = Recordset::create();
  const Counted counted(*goods);
  goods->Open("SELECT * FROM GOODS", store.connection());
  EXPECT_EQ(counted.moves, 1);
  goods->Requery();
  EXPECT_EQ(counted.moves, 2);
}

TEST(RecordsetEvents, SeeTheRowThatWasReached) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"b", 2}}));
  std::string seen;
  recordset->MoveComplete.connect([&] { seen += here(*recordset) + " "; });
  recordset->MoveNext();
  recordset->MoveNext();
  EXPECT_NE(errorOf([&] { recordset->MoveNext(); }), 0);
  EXPECT_EQ(seen, "b EOF EOF ");
}

TEST(RecordsetEvents, AnnounceTheFirstChangeOfARowItsSendingAndItsRemoval) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}}));
  const Counted counted(*recordset);
  recordset->put_Collect("NAME", "b");
  recordset->put_Collect("SIZE", 2);
  EXPECT_EQ(counted.changes, 1);
  recordset->Update();
  EXPECT_EQ(counted.changes, 2);
  recordset->AddNew();
  EXPECT_EQ(counted.changes, 3);
  recordset->put_Collect("NAME", "c");
  EXPECT_EQ(counted.changes, 3);
  recordset->CancelUpdate();
  EXPECT_EQ(counted.changes, 4);
  recordset->Delete();
  EXPECT_EQ(counted.changes, 5);
}

TEST(RecordsetEvents, ComeBeforeTheChange) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}}));
  std::string before;
  recordset->WillChangeRecord.connect([&] { before = here(*recordset); });
  recordset->put_Collect("NAME", "b");
  EXPECT_EQ(before, "a");
}

TEST(RecordsetEvents, AllowNoOperationWithinTheAnnouncementOfAChange) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}, {"b", 2}}));
  std::vector<std::int32_t> errors;
  Variant filter;
  recordset->WillChangeRecord.connect([&] {
    filter = recordset->get_Filter();
    errors.push_back(errorOf([&] { recordset->MoveNext(); }));
    errors.push_back(errorOf([&] { recordset->put_Filter("NAME = 'b'"); }));
    errors.push_back(errorOf([&] { recordset->put_Collect("NAME", "x"); }));
    errors.push_back(errorOf([&] { recordset->Update(); }));
    errors.push_back(errorOf([&] { recordset->Close(); }));
  });
  recordset->put_Collect("NAME", "c");
  EXPECT_EQ(errors, std::vector<std::int32_t>(5, number(ErrorNumber::ProcessingEvent)));
  EXPECT_EQ(filter, Variant(std::int32_t{2}));
  EXPECT_EQ(here(*recordset), "c");
}

TEST(RecordsetEvents, AFailingHandlerStopsTheChange) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}}));
  recordset->WillChangeRecord.connect([] { fail(ErrorNumber::OperationCanceled); });
  EXPECT_EQ(errorOf([&] { recordset->put_Collect("NAME", "b"); }), number(ErrorNumber::OperationCanceled));
  EXPECT_EQ(here(*recordset), "a");
  EXPECT_EQ(recordset->get_EditMode(), adEditNone);
  EXPECT_EQ(errorOf([&] { recordset->Delete(); }), number(ErrorNumber::OperationCanceled));
  EXPECT_EQ(recordset->get_RecordCount(), 1);
}

TEST(RecordsetEvents, OfADisconnectedHandlerComeNoMore) {
  const RecordsetPtr recordset = Recordset::over(namedSizes({{"a", 1}}));
  int moves = 0;
  const auto token = recordset->MoveComplete.connect([&] { ++moves; });
  recordset->MoveFirst();
  recordset->MoveComplete.disconnect(token);
  recordset->MoveFirst();
  EXPECT_EQ(moves, 1);
}

}  // namespace
}  // namespace tarvola
