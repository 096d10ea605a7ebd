#include <gtest/gtest.h>

#include <thread>

#include "tarvola/ado/connection.h"
#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/errors.h"
#include "tests/runtime/failures.h"
#include "tests/support/engine_store.h"

namespace tarvola::ado {
namespace {

using test::EngineStore;

TEST(SharedSession, IsOneForAllConnectionsOfAThreadOnTheSameText) {
  const EngineStore store;
  const ConnectionPtr first = store.connect();
  const ConnectionPtr second = store.connect();
  EXPECT_EQ(first->session(), second->session());
  EXPECT_EQ(Session::open(store.connectionText()), first->session());
}

TEST(SharedSession, IsAnotherForAnotherText) {
  const EngineStore store;
  const auto session = store.session();
  EXPECT_NE(Session::open("DSN=" + store.path()), session);
}

TEST(SharedSession, IsAnotherInAnotherThread) {
  const EngineStore store;
  const auto session = store.session();
  session->run("INSERT INTO BURSA VALUES ('here', 1)");
  std::size_t rowsSeen = 0;
  bool isTheSame = true;
  std::thread([&] {
    const auto other = store.session();
    isTheSame = other == session;
    rowsSeen = other->run("SELECT * FROM BURSA").rows->count();
    other->run("INSERT INTO BURSA VALUES ('there', 2)");
  }).join();
  EXPECT_FALSE(isTheSame);
  EXPECT_EQ(rowsSeen, 1U);
  EXPECT_EQ(session->run("SELECT * FROM BURSA").rows->count(), 2U);
}

TEST(SharedSession, EndsWithTheLastConnection) {
  const EngineStore store;
  ConnectionPtr first = store.connect();
  ConnectionPtr second = store.connect();
  const std::weak_ptr<Session> session = first->session();
  first->Close();
  EXPECT_FALSE(session.expired());
  second.reset();
  EXPECT_TRUE(session.expired());
  EXPECT_NO_THROW(store.connect()->Execute("SELECT * FROM BURSA"));
}

TEST(SharedSession, OutlivesTheCloseOfOneConnection) {
  const EngineStore store;
  const ConnectionPtr first = store.connect();
  const ConnectionPtr second = store.connect();
  first->Close();
  EXPECT_EQ(first->get_State(), adStateClosed);
  EXPECT_EQ(failureOf([&] { first->Execute("SELECT * FROM BURSA"); }), 3704);
  EXPECT_EQ(failureOf([&] { first->Close(); }), 3704);
  EXPECT_EQ(failureOf([&] { static_cast<void>(first->session()); }), 3709);
  EXPECT_NO_THROW(second->Execute("SELECT * FROM BURSA"));
  first->Open(store.connectionText());
  EXPECT_EQ(first->get_State(), adStateOpen);
  EXPECT_EQ(failureOf([&] { first->Open(store.connectionText()); }), 3705);
}

TEST(Connection, StaysClosedWhenTheStoreCannotBeOpened) {
  const ConnectionPtr connection = Connection::create();
  EXPECT_THROW(connection->Open("DSN=/no/such/file.db"), RunTimeError);
  EXPECT_EQ(connection->get_State(), adStateClosed);
  EXPECT_THROW(connection->Open(""), RunTimeError);
  EXPECT_EQ(connection->get_State(), adStateClosed);
}

TEST(Connection, GivesASnapshotOfASelectAndAClosedRecordsetOtherwise) {
  const EngineStore store;
  RecordsetPtr rows;
  {
    const ConnectionPtr connection = store.connect();
    std::int32_t affected = -5;
    EXPECT_EQ(connection->Execute("INSERT INTO BURSA VALUES ('a', 1)", &affected)->get_State(), adStateClosed);
    EXPECT_EQ(affected, 1);
    rows = connection->Execute("SELECT * FROM BURSA");
  }
  ASSERT_EQ(rows->get_State(), adStateOpen) << "it keeps its connection alive";
  EXPECT_EQ(rows->get_RecordCount(), 1);
  EXPECT_EQ(rows->get_Collect("bursa"), Variant("a"));
  EXPECT_EQ(failureOf([&] { rows->put_Collect("BURSA", "b"); }), 3251);
}

TEST(Connection, RunsAHierarchicalCommand) {
  const EngineStore store;
  const ConnectionPtr connection = store.connect();
  connection->Execute("INSERT INTO BURSA VALUES ('a', 1)");
  connection->Execute("INSERT INTO SETTING_NOBUKTI_PPH VALUES (1, '/X', '000001')");
  const RecordsetPtr parent = connection->Execute(
      "SHAPE {SELECT * FROM BURSA} APPEND ({SELECT * FROM SETTING_NOBUKTI_PPH} RELATE ID TO PASAL) AS child");
  const Variant child = parent->get_Collect("child");
  ASSERT_EQ(child.type(), Variant::Type::Recordset);
  EXPECT_EQ(child.recordset()->get_Collect("NO_URUT"), Variant("000001"));
}

}  // namespace
}  // namespace tarvola::ado
