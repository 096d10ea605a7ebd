// "return correct" that is killed on the way, and run again.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <random>
#include <sstream>
#include <thread>

#include "tarvola/cli/commands.h"
#include "tarvola/tarvola.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {
namespace {

using Clock = std::chrono::steady_clock;

int runTool(const std::vector<std::string>& words) {
  std::ostringstream out;
  return cli::run(words, out, out);
}

class KilledCorrection : public testing::Test {
 protected:
  static constexpr int slipCount = 200;

  KilledCorrection() : store_(folder_.path("s.tarvola")) {
    EXPECT_EQ(
        runTool({"store", "create", store_, "--npwp", "013121660091000", "--name", "PT Contoh", "--address", "Jl"}), 0);
    const std::string file = folder_.path("month.csv");
    EXPECT_EQ(runTool({"import", writeMonth(file), "-p", "01/2009", "-s", store_}), 0);
    connect();
    for (int payment = 1; payment <= 100; ++payment)
      CGeneralClass().pExecQuery(
          "INSERT INTO DATSSP (KodePasal,NPWP,MsPjk,ThPjk,KdPmbtln,KdMAP,KdJnsStr,TglSSP,NTPP,JmlByr) VALUES "
          "(4,'013121660091000',1,2009,0,'411128','405',DateValue('10/02/2009'),'" +
          std::to_string(payment % 50) + "',1000)");
    disconnect();
  }

  /// Slips of dividends, interest and self-paid rents, a line each.
  static std::string writeMonth(const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    for (int slip = 1; slip <= slipCount; ++slip) {
      const std::string number = Format(static_cast<double>(slip), "000000") + "/PPH4";
      const bool isInterest = slip % 2 == 0;
      file << lineOf(isInterest ? "F113310" : "F113321", number, "086556479946000;Maria;Jl. 1",
                     isInterest ? "20" : "10", isInterest ? "200" : "100");
      if (slip % 4 == 1) file << lineOf("FSewaTnhBgn", "1000" + std::to_string(slip), ";;", "0", "100");
    }
    return path;
  }
  /// A line of the exchange file with an amount of 1000 in its first row.
  static std::string lineOf(const std::string& form, const std::string& number, const std::string& payee,
                            const std::string& rate, const std::string& tax) {
    std::string line = form + ";1;2009;0;" + payee + ";" + number + ";08/01/2009;;0;1000;" + rate + ";" + tax;
    for (int row = 2; row <= 5; ++row) line += ";;0;0;0;0";
    line += ";;0;0;0;0;0;0;;0;0;0;" + tax;
    return line + ";;;;;\r\n";
  }

  void connect() { CGeneralClass().pSetCon(store_, "", ""); }
  /// No handle of the store may be open in this process while another one is forked off it.
  static void disconnect() { cli::closeStore(); }

  std::string everything() {
    CGeneralClass general;
    general.pSetCon(store_, "", "");
    std::string all;
    for (const char* table :
         {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "D113210", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22", "DATSSP"}) {
      const RecordsetPtr rows = general.pGetRecordDbase(std::string("SELECT * FROM ") + table);
      EXPECT_NE(rows, nullptr);
      all += std::string(table) + "\n";
      if (!rows->get_EOF()) all += rows->GetString(adClipString, -1, "|", "\n", "Null");
    }
    return all;
  }
  [[nodiscard]] std::vector<std::string> words() const {
    return {"return", "correct", "-p", "01/2009", "-s", store_, "--yes"};
  }
  pid_t startCorrection() {
    const pid_t child = fork();
    if (child == 0) _exit(runTool(words()));
    return child;
  }
  static int endOf(pid_t child) {
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return status;
  }

  TempFolder folder_;
  std::string store_;
};

TEST_F(KilledCorrection, IsCompletedByTheSameCommand) {
  const std::string before = everything();
  const auto started = Clock::now();
  ASSERT_EQ(endOf(startCorrection()), 0);
  const auto duration = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - started);
  const std::string whole = everything();
  ASSERT_GT(whole.size(), 2 * before.size() - 100);
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  int leftIncomplete = 0;
  for (int round = 0; round < 8; ++round) {
    ASSERT_EQ(runTool({"return", "remove", "-p", "01/2009", "-c", "1", "-s", store_, "--yes"}), 0);
    {
      CGeneralClass general;
      general.pSetCon(store_, "", "");
      general.pExecQuery("DELETE * FROM DATSSP WHERE KdPmbtln = 1");
    }
    ASSERT_EQ(everything(), before) << "round " << round;
    const pid_t child = startCorrection();
    std::this_thread::sleep_for(duration * (random() % 1000) / 1000);
    kill(child, SIGKILL);
    endOf(child);
    const std::string left = everything();
    leftIncomplete += left != before && left != whole ? 1 : 0;
    ASSERT_EQ(runTool(words()), 0);
    ASSERT_EQ(everything(), whole) << "round " << round;
  }
  EXPECT_GT(leftIncomplete, 0);
}

}  // namespace
}  // namespace tarvola::test
