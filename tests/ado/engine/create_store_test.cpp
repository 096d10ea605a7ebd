#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "tarvola/ado/engine/embedded_store.h"
#include "tarvola/ado/engine/session.h"
#include "tarvola/runtime/errors.h"
#include "tests/ado/engine/process.h"
#include "tests/runtime/failures.h"
#include "tests/support/engine_store.h"

namespace tarvola::ado::engine {
namespace {

using test::TempFolder;

const StoreDefinition oneTable{
    .scripts = {"CREATE TABLE T (A TEXT, N SMALLINT, D DOUBLE)"},
    .contents = {{.table = "T", .columns = {"A", "N", "D"}, .rows = {{"007", "7", "0.5"}, {"it's", "8", "2"}}}}};

TEST(CreateEmbeddedStore, FillsItsTables) {
  const TempFolder folder;
  createEmbeddedStore(folder.path("s.db"), oneTable);
  const RowsPtr rows = Session::open("DSN=" + folder.path("s.db"))->run("SELECT * FROM T").rows;
  ASSERT_EQ(rows->count(), 2U);
  EXPECT_EQ(rows->cell(0, 0).toVariant(), Variant("007"));
  EXPECT_EQ(rows->cell(0, 1).toVariant(), Variant(std::int16_t{7}));
  EXPECT_EQ(rows->cell(0, 2).toVariant(), Variant(0.5));
  EXPECT_EQ(rows->cell(1, 0).toVariant(), Variant("it's"));
}

TEST(CreateEmbeddedStore, MakesOneFileForItsOwnerAlone) {
  const TempFolder folder;
  const mode_t before = ::umask(0);
  createEmbeddedStore(folder.path("s.db"), oneTable);
  ::umask(before);
  struct stat status {};
  ASSERT_EQ(::stat(folder.path("s.db").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  const auto files = std::filesystem::directory_iterator(folder.path());
  EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "nothing is left beside it";
}

TEST(CreateEmbeddedStore, KeepsTheFilesBesideItForTheOwnerToo) {
  const TempFolder folder;
  const mode_t before = ::umask(0);
  createEmbeddedStore(folder.path("s.db"), oneTable);
  const auto session = Session::open("DSN=" + folder.path("s.db"));
  session->run("INSERT INTO T VALUES ('x', 1, 1)");
  ::umask(before);
  for (const auto& file : std::filesystem::directory_iterator(folder.path())) {
    struct stat status {};
    ASSERT_EQ(::stat(file.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U) << file.path();
  }
}

TEST(CreateEmbeddedStore, RefusesAFileThatExists) {
  const TempFolder folder;
  const std::string path = folder.write("s.db", "precious");
  EXPECT_EQ(failureOf([&] { createEmbeddedStore(path, oneTable); }), 58);
  EXPECT_EQ(descriptionOf([&] { createEmbeddedStore(path, oneTable); }), "File already exists: '" + path + "'");
  EXPECT_EQ(folder.read("s.db"), "precious");
}

TEST(CreateEmbeddedStore, RefusesALinkThatLeadsNowhere) {
  const TempFolder folder;
  std::filesystem::create_symlink(folder.path("target"), folder.path("s.db"));
  EXPECT_EQ(failureOf([&] { createEmbeddedStore(folder.path("s.db"), oneTable); }), 58);
  EXPECT_FALSE(std::filesystem::exists(folder.path("target")));
}

TEST(CreateEmbeddedStore, NamesAFolderThatIsMissing) {
  const TempFolder folder;
  EXPECT_EQ(failureOf([&] { createEmbeddedStore(folder.path("no/s.db"), oneTable); }), 76);
}

TEST(CreateEmbeddedStore, NamesAFolderThatMayNotBeWrittenTo) {
  const TempFolder folder;
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
  const std::string path = folder.path("s.db");
  EXPECT_EQ(test::exitCodeOf(test::startProcess([&] {
              if (!test::becomeNobody()) return 1;
              const auto create = [&] { createEmbeddedStore(path, oneTable); };
              if (failureOf(create) != 75) return 2;
              return descriptionOf(create) == "Could not create '" + path + "': Permission denied" ? 0 : 3;
            })),
            0);
}

TEST(CreateEmbeddedStore, LeavesNothingBehindWhenItFails) {
  const TempFolder folder;
  StoreDefinition broken = oneTable;
  broken.contents.front().rows.push_back({"no", "number", "here", "but too many"});
  broken.scripts.push_back("CREATE TABLE T (A TEXT)");
  EXPECT_THROW(createEmbeddedStore(folder.path("s.db"), broken), RunTimeError);
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace tarvola::ado::engine
