#include <gtest/gtest.h>

#include <random>

#include "tests/ado/sql/memory_store.h"
#include "tests/runtime/failures.h"

// No value can become part of what the engine reads.

namespace tarvola::ado::sql {
namespace {

std::string engineTextOf(std::string_view statement) {
  std::string text;
  for (const EngineText& part : compile(statement, TestTables(), {}).parts) text += part.text + "\n";
  return text;
}

/// A text literal that holds any character but an apostrophe that stands alone.
std::string hostileLiteral(std::mt19937& random) {
  constexpr std::string_view pieces[] = {
      "''", "\"", ";", "--", "/*",   "*/", "?", ")",     "(", "OR 1=1", "DROP TABLE BURSA", "\\", "%", "_", "[",
      "]",  "`",  "#", "\n", "\x01", "5",  " ", "rowid", "{", "é"};
  std::string literal = "'";
  for (std::size_t count = random() % 12; count > 0; --count) literal += pieces[random() % std::size(pieces)];
  return literal + "'";
}

TEST(Injection, NeverChangesTheTextThatTheEngineReads) {
  std::mt19937 random(411128);
  const std::string insert = engineTextOf("INSERT INTO BURSA VALUES ('x', 1)");
  const std::string update = engineTextOf("UPDATE BURSA SET BURSA = 'x' WHERE BURSA = 'x'");
  const std::string plain = engineTextOf("SELECT ID FROM BURSA WHERE BURSA = 'x' AND BURSA LIKE 'x'");
  const std::string folded = engineTextOf("SELECT ID FROM BURSA WHERE BURSA = 'é' AND BURSA LIKE 'é'");
  const std::string foldedUpdate = engineTextOf("UPDATE BURSA SET BURSA = 'x' WHERE BURSA = 'é'");
  for (int round = 0; round < 5'000; ++round) {
    const std::string value = hostileLiteral(random);
    const bool isFolded = value.find("é") != std::string::npos;
    ASSERT_EQ(engineTextOf("INSERT INTO BURSA VALUES (" + value + ", 1)"), insert) << value;
    ASSERT_EQ(engineTextOf("UPDATE BURSA SET BURSA = " + value + " WHERE BURSA = " + value),
              isFolded ? foldedUpdate : update);
    ASSERT_EQ(engineTextOf("SELECT ID FROM BURSA WHERE BURSA = " + value + " AND BURSA LIKE " + value),
              isFolded ? folded : plain);
  }
}

TEST(Injection, KeepsHostileValuesAsTheyAre) {
  std::mt19937 random(411128);
  MemoryStore store;
  for (int round = 0; round < 300; ++round) {
    const std::string value = hostileLiteral(random);
    store.run("DELETE * FROM BURSA");
    store.run("INSERT INTO BURSA VALUES (" + value + ", 1)");
    EXPECT_EQ(store.run("SELECT ID FROM BURSA WHERE BURSA = " + value), std::vector<std::string>{"1"}) << value;
  }
}

TEST(Injection, FailsForAValueThatHoldsAnApostrophe) {
  MemoryStore store;
  store.run("INSERT INTO BURSA VALUES ('a', 1)");
  for (const std::string value :
       {"O'Brien", "'", "a' b", "'; DELETE FROM BURSA; --", "' UNION SELECT NPWP FROM PROFILE"})
    EXPECT_EQ(failureOf([&] { store.run("SELECT ID FROM BURSA WHERE BURSA = '" + value + "'"); }), -2147217900)
        << value;
  EXPECT_EQ(store.run("SELECT COUNT(*) FROM BURSA"), std::vector<std::string>{"1"});
}

TEST(Injection, TakesNoStatementBehindAnother) {
  MemoryStore store;
  store.run("INSERT INTO BURSA VALUES ('a', 1)");
  EXPECT_THROW(store.run("SELECT * FROM BURSA; DELETE FROM BURSA"), RunTimeError);
  EXPECT_THROW(store.run("DELETE FROM BURSA WHERE ID = 1; DELETE FROM BURSA"), RunTimeError);
  EXPECT_THROW(store.run("SELECT * FROM BURSA -- comment"), RunTimeError);
  EXPECT_THROW(store.run("SELECT * FROM BURSA /* comment */"), RunTimeError);
  EXPECT_THROW(store.run("ATTACH DATABASE 'x' AS y"), RunTimeError);
  EXPECT_THROW(store.run("PRAGMA user_version"), RunTimeError);
  EXPECT_THROW(store.run("SELECT * FROM sqlite_master"), RunTimeError);
  EXPECT_EQ(store.run("SELECT COUNT(*) FROM BURSA"), std::vector<std::string>{"1"});
}

TEST(Injection, TakesNoControlCharacterIntoAName) {
  using namespace std::string_literals;
  for (const std::string& name : {"[a\0b]"s, "[\x01]"s, "\"\x1b\""s, "`a\0`"s}) {
    EXPECT_EQ(failureOf([&] { engineTextOf("SELECT ID AS " + name + " FROM BURSA"); }), -2147217900);
    EXPECT_EQ(failureOf([&] { engineTextOf("SELECT ID FROM BURSA AS " + name); }), -2147217900);
  }
}

TEST(Injection, QuotesNamesThatHoldTheQuoteOfTheEngine) {
  EXPECT_EQ(engineTextOf("SELECT a.ID FROM BURSA AS [x\"y], BURSA AS a"),
            "SELECT \"a\".\"ID\" FROM \"BURSA\" AS \"x\"\"y\", \"BURSA\" AS \"a\"\n");
}

}  // namespace
}  // namespace tarvola::ado::sql
