#include "tarvola/runtime/clock.h"

#include <atomic>
#include <ctime>
#include <limits>

namespace tarvola {
namespace {

// A NaN stands for a running clock, so that one atomic number holds the whole state.
constexpr double running = std::numeric_limits<double>::quiet_NaN();
std::atomic<double> stoppedAt{running};

Date localToday() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return Date::fromYmd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

}  // namespace

Date today() {
  const double serial = stoppedAt.load(std::memory_order_relaxed);
  return serial == serial ? Date::fromSerial(serial) : localToday();
}

void setToday(std::optional<Date> day) noexcept {
  stoppedAt.store(day ? day->dayOnly().serial() : running, std::memory_order_relaxed);
}

}  // namespace tarvola
