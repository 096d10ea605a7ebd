#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <thread>

#include "tarvola/ado/engine/session.h"
#include "tests/ado/engine/process.h"
#include "tests/support/engine_store.h"

namespace tarvola::ado {
namespace {

using test::EngineStore;

std::string insertSlip(int writer, int number) {
  return "INSERT INTO DS_FORM_INDUK (NPWP, KD_FORM, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, NOBUKTI, DAT_FORM) VALUES "
         "('013121660091000', 'F113309', " +
         std::to_string(writer) + ", 2009, 0, '" + std::to_string(number) + "/PPH4', 'a;b;c')";
}

std::string slipsOf(int writer) {
  return "SELECT NOBUKTI FROM DS_FORM_INDUK WHERE MS_PAJAK = " + std::to_string(writer);
}

// Each line of an import reads, then writes, then reads: what would fail if a read held its view of the file open.
int writeSlips(const EngineStore& store, int writer, int count) {
  const auto session = store.session();
  for (int number = 1; number <= count; ++number) {
    const auto before = session->run(slipsOf(writer) + " AND NOBUKTI = '" + std::to_string(number) + "/PPH4'").rows;
    if (before->count() != 0) return 1;
    session->run(insertSlip(writer, number));
  }
  return session->run(slipsOf(writer)).rows->count() == static_cast<std::size_t>(count) ? 0 : 2;
}

TEST(TwoProcesses, WriteAtOnceAndBothFinish) {
  constexpr int slips = 1500;
  const EngineStore store;
  const pid_t first = test::startProcess([&] { return writeSlips(store, 1, slips); });
  const pid_t second = test::startProcess([&] { return writeSlips(store, 2, slips); });
  EXPECT_EQ(test::exitCodeOf(first), 0);
  EXPECT_EQ(test::exitCodeOf(second), 0);
  EXPECT_EQ(store.session()->run("SELECT * FROM DS_FORM_INDUK").rows->count(), 2U * slips);
}

TEST(TwoThreads, WriteAtOnceAndBothFinish) {
  constexpr int slips = 800;
  const EngineStore store;
  int results[2] = {-1, -1};
  std::thread first([&] { results[0] = writeSlips(store, 1, slips); });
  std::thread second([&] { results[1] = writeSlips(store, 2, slips); });
  first.join();
  second.join();
  EXPECT_EQ(results[0], 0);
  EXPECT_EQ(results[1], 0);
}

TEST(AKilledProcess, LeavesAStoreThatHoldsAllItHadWritten) {
  const EngineStore store;
  int reports[2];
  ASSERT_EQ(::pipe(reports), 0);
  const pid_t writer = test::startProcess([&] {
    const auto session = store.session();
    for (int number = 1;; ++number) {
      session->run(insertSlip(1, number));
      if (::write(reports[1], &number, sizeof number) != sizeof number) return 1;
    }
  });
  int reported = 0;
  while (reported < 300) {
    ASSERT_EQ(::read(reports[0], &reported, sizeof reported), static_cast<ssize_t>(sizeof reported));
  }
  ::kill(writer, SIGKILL);
  EXPECT_EQ(test::exitCodeOf(writer), -1);
  ::close(reports[1]);
  while (::read(reports[0], &reported, sizeof reported) > 0) continue;

  const auto session = store.session();
  const RowsPtr rows = session->run(slipsOf(1) + " ORDER BY NOBUKTI").rows;
  EXPECT_GE(rows->count(), static_cast<std::size_t>(reported)) << "a statement that ended is in the store";
  EXPECT_LE(rows->count(), static_cast<std::size_t>(reported) + 1);
  EXPECT_NO_THROW(session->run(insertSlip(1, reported + 10)));
}

}  // namespace
}  // namespace tarvola::ado
