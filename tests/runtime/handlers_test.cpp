#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>

#include "tarvola/runtime/message_box.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola {
namespace {

TEST(Messages, GoToTheHandlerOfTheScopeAndThenToTheOneBefore) {
  std::vector<std::string> outer;
  std::vector<std::string> inner;
  const MessageBoxScope outerScope([&](const MessageBox& box) { outer.push_back(box.text); });
  {
    const MessageBoxScope innerScope([&](const MessageBox& box) { inner.push_back(box.title + "|" + box.text); });
    showMessage({.text = "a", .title = "INFORMASI", .icon = MessageIcon::Information});
  }
  showMessage({.text = "b", .title = "", .icon = MessageIcon::None});
  EXPECT_EQ(inner, std::vector<std::string>{"INFORMASI|a"});
  EXPECT_EQ(outer, std::vector<std::string>{"b"});
}

TEST(Messages, GoToStandardErrorWithoutAHandler) {
  const MessageBoxScope scope(nullptr);
  testing::internal::CaptureStderr();
  showMessage({.text = "Overflow", .title = "", .icon = MessageIcon::None});
  showMessage({.text = "Path not found", .title = "INFORMASI", .icon = MessageIcon::Critical});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Overflow\nINFORMASI: Path not found\n");
}

TEST(Messages, AreNotLostWithAHandlerThatFails) {
  const MessageBoxScope scope([](const MessageBox&) { throw std::runtime_error("no screen"); });
  testing::internal::CaptureStderr();
  showMessage({.text = "Overflow", .title = "", .icon = MessageIcon::None});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Overflow\n");
}

TEST(Messages, MayReplaceTheirOwnHandler) {
  int shown = 0;
  const MessageBoxScope scope([&](const MessageBox&) {
    ++shown;
    setMessageBoxHandler([&](const MessageBox&) { shown += 10; });
  });
  showMessage({});
  showMessage({});
  EXPECT_EQ(shown, 11);
}

TEST(Messages, ReachHandlersThatOtherThreadsReplace) {
  std::atomic<int> shown{0};
  const MessageBoxScope scope([&](const MessageBox&) { ++shown; });
  constexpr int perThread = 2000;
  std::vector<std::thread> threads;
  for (int i = 0; i < 3; ++i) {
    threads.emplace_back([] {
      for (int j = 0; j < perThread; ++j) showMessage({.text = "x", .title = "", .icon = MessageIcon::None});
    });
  }
  for (int j = 0; j < perThread; ++j) setMessageBoxHandler([&](const MessageBox&) { ++shown; });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(shown, 3 * perThread);
}

struct Report {
  std::string task;
  std::uint64_t done;
  std::uint64_t total;
  friend bool operator==(const Report&, const Report&) = default;
};

class ProgressReports : public testing::Test {
 protected:
  void SetUp() override {
    setProgressHandler([this](std::string_view task, std::uint64_t done, std::uint64_t total) {
      reports_.push_back({std::string(task), done, total});
    });
  }
  void TearDown() override { setProgressHandler(nullptr); }

  std::vector<Report> reports_;
};

TEST_F(ProgressReports, AlwaysHoldTheFirstAndTheLastAndFewBetween) {
  constexpr std::uint64_t total = 100000;
  {
    Progress progress("Ekspor", total);
    for (std::uint64_t i = 1; i <= total; ++i) progress.done(i);
  }
  ASSERT_GE(reports_.size(), 2U);
  EXPECT_LT(reports_.size(), total);
  EXPECT_EQ(reports_.front(), (Report{"Ekspor", 1, total}));
  EXPECT_EQ(reports_.back(), (Report{"Ekspor", total, total}));
}

TEST_F(ProgressReports, TellEachCountOnce) {
  { Progress("Impor", 1).done(1); }
  EXPECT_EQ(reports_, std::vector<Report>{(Report{"Impor", 1, 1})});
}

TEST_F(ProgressReports, AreSilentWithoutWork) {
  { const Progress progress("Impor", 0); }
  EXPECT_TRUE(reports_.empty());
}

TEST(ProgressWithoutHandler, IsSilent) {
  Progress progress("Impor", 1);
  progress.done(1);
  std::vector<Report> reports;
  setProgressHandler([&](std::string_view task, std::uint64_t done, std::uint64_t total) {
    reports.push_back({std::string(task), done, total});
  });
  progress.done(2);
  setProgressHandler(nullptr);
  EXPECT_TRUE(reports.empty());
}

TEST(ProgressHandlerThatFails, DoesNotStopTheWork) {
  setProgressHandler([](std::string_view, std::uint64_t, std::uint64_t) { throw std::runtime_error("no bar"); });
  int steps = 0;
  {
    Progress progress("Impor", 2);
    for (std::uint64_t i = 1; i <= 2; ++i) {
      progress.done(i);
      ++steps;
    }
  }
  setProgressHandler(nullptr);
  EXPECT_EQ(steps, 2);
}

TEST(RegionalSettings, BelongToTheThread) {
  const RegionalSettingsScope scope(RegionalSettings::unitedStates());
  std::string elsewhere;
  std::thread([&] { elsewhere = CStr(1.5); }).join();
  EXPECT_EQ(CStr(1.5), "1.5");
  EXPECT_EQ(elsewhere, "1,5");
}

TEST(RegionalSettings, ComeBackAfterAScope) {
  {
    const RegionalSettingsScope scope(RegionalSettings::unitedStates());
    EXPECT_EQ(regionalSettings().currency, "$");
  }
  EXPECT_EQ(regionalSettings().currency, "Rp");
  EXPECT_EQ(regionalSettings().months[10], "Nopember");
  EXPECT_EQ(regionalSettings().shortMonths[7], "Agust");
}

}  // namespace
}  // namespace tarvola
