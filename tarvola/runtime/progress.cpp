#include "tarvola/runtime/progress.h"

#include <chrono>
#include <utility>

#include "tarvola/runtime/shared_handler.h"

namespace tarvola {
namespace {

SharedHandler<ProgressHandler>& current() noexcept {
  static SharedHandler<ProgressHandler> handler;
  return handler;
}

/// Often enough for a bar that moves smoothly, seldom enough to cost nothing.
constexpr std::int64_t reportEveryMilliseconds = 20;

std::int64_t nowMilliseconds() noexcept {
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

void tell(std::string_view task, std::uint64_t done, std::uint64_t total) noexcept {
  try {
    if (const auto handler = current().get()) (*handler)(task, done, total);
  } catch (...) {
    // A bar that cannot be drawn must not stop the work that it shows.
  }
}

}  // namespace

void setProgressHandler(ProgressHandler handler) { current().exchange(std::move(handler)); }

Progress::Progress(std::string_view task, std::uint64_t total) noexcept
    : task_(task), total_(total), active_(current().isSet()) {}

Progress::~Progress() {
  if (hasUntold_) tell(task_, last_, total_);
}

void Progress::report(std::uint64_t count) noexcept {
  last_ = count;
  const std::int64_t now = nowMilliseconds();
  hasUntold_ = now < nextReport_;
  if (hasUntold_) return;
  nextReport_ = now + reportEveryMilliseconds;
  tell(task_, count, total_);
}

}  // namespace tarvola
