#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tarvola/ado/engine/embedded_store.h"
#include "tarvola/runtime/text_file.h"
#include "tests/cli/tool.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {
namespace {

TEST(ReadOnlyStore, IsToldAndStaysAsItWas) {
  const TempFolder folder;
  const std::string store = folder.path("s.tarvola");
  ASSERT_EQ(
      runTool({"store", "create", store, "--npwp", "013121660091000", "--name", "PT Contoh", "--address", "Jl. 1"})
          .code,
      0);
  ASSERT_EQ(chmod(store.c_str(), 0444), 0);
  ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
  const std::string before = folder.read("s.tarvola");
  Outcome outcome{};
  {
    const OrdinaryUser user;
    outcome = runTool({"return", "create", "-p", "01/2009", "-s", store});
  }
  EXPECT_EQ(chmod(folder.path().c_str(), 0755), 0);
  EXPECT_EQ(outcome.code, 1);
  EXPECT_NE(outcome.text.find("cannot be written"), std::string::npos) << outcome.text;
  EXPECT_EQ(folder.read("s.tarvola"), before);
}

/// A store like any other, but for one table.
void createStoreWithout(const std::string& table, const std::string& path) {
  std::string tables = readFile(TARVOLA_SOURCE_DIR "/schema/tables.sql");
  const std::size_t start = tables.find("CREATE TABLE " + table + " (");
  ASSERT_NE(start, std::string::npos);
  tables.erase(start, tables.find(");", start) + 2 - start);
  ado::engine::createEmbeddedStore(path, {.scripts = {tables}, .contents = {}});
}

class StoreWithoutTable : public testing::TestWithParam<const char*> {};

TEST_P(StoreWithoutTable, IsNotWorkedOn) {
  const TempFolder folder;
  const std::string store = folder.path("s.tarvola");
  createStoreWithout(GetParam(), store);
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"return", "show", "-p", "01/2009", "-s", store},
        std::vector<std::string>{"slip", "add", "-f", "lottery", "--date", "01/01/2009", "-p", "01/2009", "-s",
                                 store}}) {
    const Outcome outcome = runTool(words);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.text, "tarvola: " + store + " lacks a table that a store has: " + GetParam() +
                                ".\nRestore the file from a copy, or make a new store and import the month again.\n");
  }
}

INSTANTIATE_TEST_SUITE_P(EachTable, StoreWithoutTable,
                         testing::Values("DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22",
                                         "D113210", "DATSSP", "datPBKPPhMasa", "SETTING_TARIF_PPH",
                                         "SETTING_NOBUKTI_PPH", "PROFILE", "BURSA", "DS_REF_JENIS_PAJAK"),
                         [](const auto& table) { return table.param; });

}  // namespace
}  // namespace tarvola::test
