// Telling a store from every other file.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tarvola/store/store_file.h"
#include "tests/store/store_session.h"
#include "tests/support/temp_folder.h"

namespace tarvola::store {
namespace {

TEST(StoreFile, IsKnownByItsFirstBytesWhateverItsName) {
  const test::StoreSession session;
  const test::TempFolder folder;
  std::filesystem::copy_file(session.store().path(), folder.path("month.csv"));
  EXPECT_TRUE(isStoreFile(session.store().path()));
  EXPECT_TRUE(isStoreFile(folder.path("month.csv")));
}

TEST(StoreFile, IsNoOtherFile) {
  const test::TempFolder folder;
  EXPECT_FALSE(isStoreFile(folder.write("a.tarvola", "Kode Form Bukti Potong")));
  EXPECT_FALSE(isStoreFile(folder.write("short", "SQLite format 3")));
  EXPECT_FALSE(isStoreFile(folder.write("empty", "")));
  EXPECT_FALSE(isStoreFile(folder.path("none")));
  EXPECT_FALSE(isStoreFile(folder.path()));
}

TEST(StoreFile, IsNotLookedForInAPipeWhichWouldWait) {
  const test::TempFolder folder;
  ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(isStoreFile(folder.path("pipe")));
}

}  // namespace
}  // namespace tarvola::store
