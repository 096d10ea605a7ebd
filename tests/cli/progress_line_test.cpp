#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <string>
#include <thread>

#include "tarvola/cli/terminal.h"
#include "tarvola/runtime/progress.h"

namespace tarvola::test {
namespace {

/// What a terminal shows of work in a process of its own, byte for byte.
std::string onTerminal(const std::function<void()>& work) {
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    work();
    std::cout.flush();
    _exit(0);
  }
  std::string shown;
  char buffer[4096];
  for (ssize_t size = 0; (size = read(terminal, buffer, sizeof buffer)) > 0;)
    shown.append(buffer, static_cast<std::size_t>(size));
  close(terminal);
  waitpid(child, nullptr, 0);
  return shown;
}

void waitLongerThanAPersonWaits() { std::this_thread::sleep_for(std::chrono::milliseconds(1100)); }

TEST(ProgressLine, ShowsLongWorkAndIsGoneBeforeTheResult) {
  const std::string shown = onTerminal([] {
    const cli::ProgressLine line(std::cout, std::cerr);
    Progress progress("Counting", 1000000);
    waitLongerThanAPersonWaits();
    progress.done(250000);
    std::cout << "The result\n";
  });
  EXPECT_EQ(shown, "\r\033[KCounting 250.000 / 1.000.000 (25 %)\r\033[KThe result\r\n");
}

TEST(ProgressLine, IsGoneBeforeAMessageAndWhereTheWholeIsNotKnown) {
  const std::string shown = onTerminal([] {
    const cli::ProgressLine line(std::cout, std::cerr);
    waitLongerThanAPersonWaits();
    Progress("Reading", 0).done(16384);
    std::cerr << "tarvola: failed\n";
  });
  EXPECT_EQ(shown, "\r\033[KReading 16.384\r\033[Ktarvola: failed\r\n");
}

TEST(ProgressLine, LeavesAMessageBehindWhatWasPrintedBefore) {
  const std::string shown = onTerminal([] {
    const cli::ProgressLine line(std::cout, std::cerr);
    std::cout << "Asked ";
    std::cerr << "answered\n";
  });
  EXPECT_EQ(shown, "Asked answered\r\n");
}

TEST(ProgressLine, DoesNotShowShortWork) {
  const std::string shown = onTerminal([] {
    const cli::ProgressLine line(std::cout, std::cerr);
    Progress("Counting", 10).done(5);
    std::cout << "The result\n";
  });
  EXPECT_EQ(shown, "The result\r\n");
}

}  // namespace
}  // namespace tarvola::test
