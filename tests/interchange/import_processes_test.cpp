// Imports that are killed, and imports that run side by side.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "tarvola/interchange/export_row.h"
#include "tarvola/interchange/slip_file_import.h"
#include "tarvola/runtime/text_file.h"
#include "tests/interchange/interchange_store.h"
#include "tests/interchange/kill_at_statement.h"

namespace tarvola::test {
namespace {

using Clock = std::chrono::steady_clock;

std::string samplePath() { return TARVOLA_SOURCE_DIR "/examples/month-2009-01.csv"; }

SlipFileImportResult importFile(const std::string& path) {
  return importSlipFile({.path = path, .month = 1, .year = 2009});
}

/// Imports in a process of its own, which ends with 0 if every line was taken.
pid_t startImport(const std::string& path) {
  const pid_t child = fork();
  if (child != 0) return child;
  int code = 1;
  try {
    const SlipFileImportResult result = importFile(path);
    code = result.refused == 0 && result.rebuildFailures.empty() ? 0 : 2;
  } catch (...) {
  }
  _exit(code);
}

/// The status that the process ended with.
int endOf(pid_t child) {
  int status = -1;
  waitpid(child, &status, 0);
  return status;
}

/// The return that the sample makes when nothing disturbs it, and how long its import takes.
struct Undisturbed {
  std::vector<std::string> dump;
  Clock::duration time{};
};

Undisturbed undisturbed() {
  InterchangeStore store;
  const Clock::time_point start = Clock::now();
  EXPECT_EQ(endOf(startImport(samplePath())), 0);
  return {.dump = store.dump(), .time = Clock::now() - start};
}

TEST(KilledImport, IsCompletedByTheSameImportAgainToTheVeryDocumentsOfAnUndisturbedOne) {
  const Undisturbed whole = undisturbed();
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> moment(0.0, 1.1);
  int killed = 0;
  for (int round = 0; round < 12; ++round) {
    InterchangeStore store;
    const pid_t child = startImport(samplePath());
    std::this_thread::sleep_for(whole.time * moment(random));
    kill(child, SIGKILL);
    killed += WIFSIGNALED(endOf(child)) ? 1 : 0;
    const SlipFileImportResult again = importFile(samplePath());
    ASSERT_EQ(again.refused, 0U);
    ASSERT_EQ(again.read, again.stored + again.alreadyThere);
    ASSERT_THAT(again.rebuildFailures, testing::IsEmpty());
    ASSERT_EQ(store.dump(), whole.dump) << "round " << round;
  }
  EXPECT_GT(killed, 0);
}

/// A line of each of the twelve forms, with what makes them write all that they can.
std::string oneOfEachForm() {
  std::string file = interchange::exportHeader() + "\r\n";
  int number = 0;
  for (const char* form : {"F113309", "F113310", "F113311", "F113312", "F113316", "F113317", "F113319", "F113320",
                           "F113321", "FSewaTnhBgn", "FJasaKonstruksi", "FAlihTnhBgn"}) {
    Line line(form, "00000" + std::to_string(++number) + "/PPH4");
    line.with(11, "1000").with(12, "10").with(13, "100").with(45, "100");
    if (std::string_view(form) == "F113310")
      line.with(35, "2000").with(37, "200").with(38, "3000").with(40, "300").with(45, "600");
    file += line.text() + "\r\n";
  }
  return file;
}

/// The status of an import that is killed just before a statement.
int endOfImportKilledAt(int statement, const std::string& path) {
  const pid_t child = fork();
  if (child == 0) {
    const KillAtStatement kill(statement);
    importFile(path);
    _exit(0);
  }
  return endOf(child);
}

TEST(KilledImport, IsCompletedWhicheverStatementItWasKilledAt) {
  std::vector<std::string> whole;
  {
    InterchangeStore store;
    importFile(store.folder().write("month.csv", oneOfEachForm()));
    whole = store.dump();
  }
  InterchangeStore store;
  const std::string path = store.folder().write("month.csv", oneOfEachForm());
  const std::vector<std::string> empty = store.dump();
  constexpr int beyondAll = 5000;
  int statement = 1;
  for (; statement < beyondAll; ++statement) {
    const int status = endOfImportKilledAt(statement, path);
    if (WIFEXITED(status)) break;
    const SlipFileImportResult again = importFile(path);
    ASSERT_EQ(again.refused, 0U) << "statement " << statement;
    ASSERT_EQ(again.stored + again.alreadyThere, 12U) << "statement " << statement;
    ASSERT_THAT(again.rebuildFailures, testing::IsEmpty()) << "statement " << statement;
    ASSERT_EQ(store.dump(), whole) << "statement " << statement;
    for (const char* table : {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22", "D113210"})
      store.run(std::string("DELETE * FROM ") + table);
    ASSERT_EQ(store.dump(), empty);
  }
  // Twelve lines with a form and a list row each, six headers, and what reads and recounts them.
  EXPECT_GT(statement, 100);
  EXPECT_LT(statement, beyondAll);
}

TEST(ImportThatLacksRows, IsCompletedByTheSameImportAgain) {
  // A store in which the rows behind a certain point are missing.
  const Undisturbed whole = undisturbed();
  struct Cut {
    const char* table;
    const char* keep;
  };
  for (const Cut& cut : {Cut{"DS_FORM_LAMPIRAN", "SEQ <= 100"}, Cut{"LAMPIRAN_SSP_PPh22", "SEQ <= 3"}}) {
    InterchangeStore store;
    importFile(samplePath());
    store.run(std::string("DELETE * FROM ") + cut.table + " WHERE NOT (" + cut.keep + ")");
    if (std::string_view(cut.table) == "LAMPIRAN_SSP_PPh22")
      store.run("DELETE * FROM DAT_SSP_PPh22 WHERE KD_FORM LIKE 'F%'");
    const SlipFileImportResult again = importFile(samplePath());
    EXPECT_EQ(again.refused, 0U);
    const std::vector<std::string> counted = store.rows("SELECT KD_FORM, NOBUKTI FROM DAT_SSP_PPh22");
    EXPECT_EQ(counted.size(), 32U);
    EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM LAMPIRAN_SSP_PPh22"), "29");
    EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_LAMPIRAN"), "211");
    EXPECT_EQ(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'F113204'"), [&] {
      for (const std::string& row : whole.dump)
        if (row.find("|F113204|") != std::string::npos) return split(row, '|')[8];
      return std::string();
    }());
  }
}

TEST(ImportsSideBySide, BothFinishAndTheReturnHoldsTheSumOfBoth) {
  const Undisturbed whole = undisturbed();
  InterchangeStore store;
  std::vector<std::string> halves(2, interchange::exportHeader() + "\r\n");
  std::size_t number = 0;
  for (const std::string& line : split(readFile(samplePath()), '\n'))
    if (line.starts_with('F')) halves[number++ % 2] += line + "\n";
  std::vector<pid_t> children;
  for (std::size_t i = 0; i < halves.size(); ++i)
    children.push_back(startImport(store.folder().write("half" + std::to_string(i) + ".csv", halves[i])));
  for (const pid_t child : children) EXPECT_EQ(endOf(child), 0);

  const auto headers = [](const std::vector<std::string>& dump) {
    std::vector<std::string> rows;
    for (const std::string& row : dump)
      if (row.find("|-|113|") != std::string::npos) rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    return rows;
  };
  EXPECT_EQ(headers(store.dump()), headers(whole.dump));
  EXPECT_EQ(headers(whole.dump).size(), 6U);
  EXPECT_EQ(store.dump().size(), whole.dump.size());
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM (SELECT DISTINCT SEQ FROM DS_FORM_LAMPIRAN)"), "211");
}

TEST(ImportsSideBySide, TheSameFileTwiceAtOnceStoresEachSlipOnce) {
  InterchangeStore store;
  const pid_t first = startImport(samplePath());
  const pid_t second = startImport(samplePath());
  EXPECT_EQ(endOf(first), 0);
  EXPECT_EQ(endOf(second), 0);
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM DS_FORM_LAMPIRAN"), "211");
  EXPECT_EQ(store.value("SELECT COUNT(*) AS N FROM (SELECT DISTINCT NOBUKTI FROM DS_FORM_LAMPIRAN)"), "211");
}

}  // namespace
}  // namespace tarvola::test
