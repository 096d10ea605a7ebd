#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/runtime/errors.h"
#include "tests/ado/engine/process.h"
#include "tests/runtime/failures.h"
#include "tests/support/engine_store.h"

namespace tarvola::ado::engine::sqlite {
namespace {

TEST(AFullDisk, IsNamedWithTheFile) {
  const test::TempFolder folder;
  const std::string path = folder.path("s.db");
  const Handle handle(path, path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  handle.execute("CREATE TABLE T (A TEXT); PRAGMA max_page_count = 3");
  EXPECT_EQ(descriptionOf([&] {
              for (int row = 0; row < 100; ++row) handle.execute("INSERT INTO T VALUES (hex(zeroblob(1000)))");
            }),
            "[Microsoft][ODBC Microsoft Access Driver] Could not write to '" + path +
                "'; there is not enough space on the disk.");
}

std::string longInsert() {
  return "INSERT INTO DS_FORM_INDUK (NPWP, DAT_FORM) VALUES ('1', '" + std::string(20'000, 'x') + "')";
}

/// Writes until the system forbids the file to grow; 0 if that failed as it should.
int writeToTheLimit(const test::EngineStore& store) {
  ::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{.rlim_cur = 600'000, .rlim_max = 600'000};
  if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
  const auto session = store.session();
  for (int row = 0; row < 1000; ++row) {
    const std::string text = descriptionOf([&] { session->run(longInsert()); });
    if (text.empty()) continue;
    const std::string expected = "[Microsoft][ODBC Microsoft Access Driver] Disk or network error on '" + store.path();
    return text.starts_with(expected) ? 0 : 2;
  }
  return 3;
}

TEST(ADiskThatRefusesToWrite, FailsTheStatementAndLeavesTheStoreWhole) {
  const test::EngineStore store;
  EXPECT_EQ(test::exitCodeOf(test::startProcess([&] { return writeToTheLimit(store); })), 0);
  const auto session = store.session();
  const RowsPtr rows = session->run("SELECT * FROM DS_FORM_INDUK").rows;
  EXPECT_GT(rows->count(), 0U);
  for (std::size_t row = 0; row < rows->count(); ++row) EXPECT_EQ(rows->cell(row, 8).text().size(), 20'000U);
  EXPECT_NO_THROW(session->run(longInsert()));
}

}  // namespace
}  // namespace tarvola::ado::engine::sqlite
