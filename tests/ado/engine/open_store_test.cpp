#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "tarvola/ado/engine/lock_patience.h"
#include "tarvola/ado/engine/session.h"
#include "tarvola/runtime/errors.h"
#include "tests/ado/engine/process.h"
#include "tests/runtime/failures.h"
#include "tests/support/engine_store.h"

namespace tarvola::ado {
namespace {

using test::connectionTextOf;
using test::EngineStore;
using test::TempFolder;

constexpr auto unspecified = static_cast<std::int32_t>(ErrorNumber::Unspecified);
constexpr auto accessDenied = static_cast<std::int32_t>(ErrorNumber::AccessDenied);

std::string openingFails(const std::string& text, std::int32_t number) {
  EXPECT_EQ(failureOf([&] { Session::open(text); }), number);
  return descriptionOf([&] { Session::open(text); });
}

/// Gives up after a moment where the product waits ten seconds.
class ShortPatience {
 public:
  ShortPatience() { engine::setLockPatience(std::chrono::milliseconds(100)); }
  ~ShortPatience() { engine::setLockPatience(std::chrono::seconds(10)); }
};

TEST(OpenStore, NamesAFileThatIsMissing) {
  const TempFolder folder;
  const std::string path = folder.path("x.tarvola");
  EXPECT_EQ(openingFails(connectionTextOf(path), unspecified),
            "[Microsoft][ODBC Microsoft Access Driver] Could not find file '" + path + "'.");
  EXPECT_FALSE(std::filesystem::exists(path)) << "a store is never made by opening it";
}

TEST(OpenStore, NamesAFileInAFolderThatIsMissing) {
  const TempFolder folder;
  const std::string path = folder.path("no/such/x.tarvola");
  EXPECT_EQ(openingFails(connectionTextOf(path), unspecified),
            "[Microsoft][ODBC Microsoft Access Driver] Could not find file '" + path + "'.");
}

TEST(OpenStore, TellsAFolderFromAFile) {
  const TempFolder folder;
  EXPECT_EQ(openingFails(connectionTextOf(folder.path()), unspecified),
            "[Microsoft][ODBC Microsoft Access Driver] '" + folder.path() + "' is a folder, not a file.");
}

TEST(OpenStore, RefusesWhatIsNoStore) {
  const TempFolder folder;
  const std::string garbage = folder.write("garbage.db", std::string(8192, '\x17'));
  const std::string text = folder.write("text.db", "NPWP;NAMA\r\n");
  const std::string empty = folder.write("empty.db", "");
  const std::string pipe = folder.path("pipe.db");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {garbage, text, empty, pipe}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(openingFails(connectionTextOf(path), unspecified),
              "[Microsoft][ODBC Microsoft Access Driver] Unrecognized database format '" + path + "'.");
  }
  EXPECT_EQ(folder.read("text.db"), "NPWP;NAMA\r\n") << "it is left as it was";
  EXPECT_EQ(folder.read("empty.db"), "");
}

TEST(OpenStore, TakesAnyOtherSourceForOneOfTheDriverManager) {
  const std::string expected =
      "[Microsoft][ODBC Driver Manager] Data source name not found and no default driver specified";
  for (const char* dsn : {"pajak", "db", "tarvola", ""}) {
    SCOPED_TRACE(dsn);
    EXPECT_EQ(openingFails(connectionTextOf(dsn), unspecified), expected);
  }
  EXPECT_EQ(openingFails("", unspecified), expected);
}

TEST(OpenStore, KnowsAFileByItsNameAlone) {
  for (const char* dsn : {"x.DB", "x.Sqlite", "x.tarvola", ".\\x", "./x"}) {
    SCOPED_TRACE(dsn);
    EXPECT_EQ(openingFails(connectionTextOf(dsn), unspecified),
              "[Microsoft][ODBC Microsoft Access Driver] Could not find file '" + std::string(dsn) + "'.");
  }
}

TEST(OpenStore, DoesNotCheckTheTables) {
  const TempFolder folder;
  engine::createEmbeddedStore(folder.path("bare.db"), {.scripts = {"CREATE TABLE T (A TEXT)"}, .contents = {}});
  const auto session = Session::open(connectionTextOf(folder.path("bare.db")));
  EXPECT_EQ(
      descriptionOf([&] { session->run("SELECT * FROM BURSA"); }),
      "[Microsoft][ODBC Microsoft Access Driver] The Microsoft Jet database engine cannot find the input table or "
      "query 'BURSA'.  Make sure it exists and that its name is spelled correctly.");
}

TEST(OpenStore, SaysSoWhenAnotherOneHoldsTheFile) {
  const ShortPatience patience;
  const EngineStore store;
  int ready[2];
  int finish[2];
  ASSERT_EQ(::pipe(ready), 0);
  ASSERT_EQ(::pipe(finish), 0);
  const pid_t holder = test::startProcess([&] {
    sqlite3* database = nullptr;
    sqlite3_open(store.path().c_str(), &database);
    sqlite3_exec(database, "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    char sign = 'r';
    if (::write(ready[1], &sign, 1) != 1 || ::read(finish[0], &sign, 1) != 1) return 1;
    return 0;
  });
  char sign = 0;
  ASSERT_EQ(::read(ready[0], &sign, 1), 1);
  EXPECT_EQ(openingFails(store.connectionText(), unspecified),
            "[Microsoft][ODBC Microsoft Access Driver] Could not use '" + store.path() + "'; file already in use.");
  ASSERT_EQ(::write(finish[1], &sign, 1), 1);
  EXPECT_EQ(test::exitCodeOf(holder), 0);
  EXPECT_NO_THROW(Session::open(store.connectionText()));
}

TEST(OpenStore, FailsAWriteWhileAnotherOneWrites) {
  const EngineStore store;
  const ShortPatience patience;
  const auto session = store.session();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(store.path().c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(descriptionOf([&] { session->run("INSERT INTO BURSA VALUES ('X', 1)"); }),
            "[Microsoft][ODBC Microsoft Access Driver] Could not use '" + store.path() + "'; file already in use.");
  EXPECT_EQ(session->run("SELECT * FROM BURSA").rows->count(), 0U) << "readers are not disturbed";
  ASSERT_EQ(sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_NO_THROW(session->run("INSERT INTO BURSA VALUES ('X', 1)"));
  sqlite3_close(other);
}

TEST(OpenStore, NamesADamagedFile) {
  const EngineStore store;
  store.session()->run("INSERT INTO BURSA VALUES ('X', 1)");
  std::string bytes = store.folder().read("store.tarvola");
  for (std::size_t place = 4096; place < bytes.size(); ++place) bytes[place] = '\x55';
  store.folder().write("store.tarvola", bytes);
  EXPECT_EQ(descriptionOf([&] { store.session()->run("SELECT * FROM BURSA"); }),
            "[Microsoft][ODBC Microsoft Access Driver] The file '" + store.path() + "' is damaged.");
}

/// 0 if a user without rights can read the store and a write fails as it should; else the step that did not.
int readsButCannotWrite(const EngineStore& store) {
  if (!test::becomeNobody()) return 1;
  const auto session = store.session();
  if (session->run("SELECT * FROM BURSA").rows->count() != 1) return 2;
  const std::string expected =
      "[Microsoft][ODBC Microsoft Access Driver] Operation must use an updatable query. The file '" + store.path() +
      "' cannot be written.";
  if (descriptionOf([&] { session->run("INSERT INTO BURSA VALUES ('Y', 2)"); }) != expected) return 3;
  if (descriptionOf([&] { session->run("DELETE * FROM BURSA"); }) != expected) return 4;
  if (session->run("SELECT * FROM BURSA").rows->count() != 1) return 5;
  return 0;
}

class ReadOnlyStore : public testing::Test {
 protected:
  ReadOnlyStore() { store_.session()->run("INSERT INTO BURSA VALUES ('X', 1)"); }
  ~ReadOnlyStore() override { allow(store_.folder().path(), 0755); }
  static void allow(const std::string& path, unsigned rights) { ::chmod(path.c_str(), rights); }

  EngineStore store_;
};

TEST_F(ReadOnlyStore, IsReadInAFolderThatCanBeWritten) {
  allow(store_.path(), 0444);
  allow(store_.folder().path(), 0777);
  EXPECT_EQ(test::exitCodeOf(test::startProcess([&] { return readsButCannotWrite(store_); })), 0);
}

TEST_F(ReadOnlyStore, IsReadInAFolderThatCannotBeWritten) {
  allow(store_.path(), 0444);
  allow(store_.folder().path(), 0555);
  EXPECT_EQ(test::exitCodeOf(test::startProcess([&] { return readsButCannotWrite(store_); })), 0);
}

TEST_F(ReadOnlyStore, IsReadUnderANameThatHoldsSignsOfAnAddress) {
  const std::string odd = store_.folder().path("100% #1? toko.tarvola");
  std::filesystem::copy_file(store_.path(), odd);
  allow(odd, 0444);
  allow(store_.folder().path(), 0555);
  EXPECT_EQ(test::exitCodeOf(test::startProcess([&] {
              if (!test::becomeNobody()) return 1;
              return Session::open(connectionTextOf(odd))->run("SELECT * FROM BURSA").rows->count() == 1 ? 0 : 2;
            })),
            0);
}

TEST_F(ReadOnlyStore, IsRefusedWhereItMayNotBeRead) {
  allow(store_.path(), 0000);
  allow(store_.folder().path(), 0755);
  EXPECT_EQ(test::exitCodeOf(test::startProcess([&] {
              if (!test::becomeNobody()) return 1;
              const std::string text = openingFails(store_.connectionText(), accessDenied);
              return text == "[Microsoft][ODBC Microsoft Access Driver] Could not open '" + store_.path() +
                                 "'; you need permission to read it."
                         ? 0
                         : 2;
            })),
            0);
}

}  // namespace
}  // namespace tarvola::ado
