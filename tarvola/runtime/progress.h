#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace tarvola {

/// How far a long operation is: what it does, how much is done, how much there is in all (0: not known).
using ProgressHandler = std::function<void(std::string_view task, std::uint64_t done, std::uint64_t total)>;

/// Sets what hears of progress, for all threads. Without a handler reporting costs nothing.
void setProgressHandler(ProgressHandler handler);

/// Tells of progress; at most every few milliseconds a call reaches the handler, the last one always does. The text
/// of the task must outlive the object.
class Progress {
 public:
  Progress(std::string_view task, std::uint64_t total) noexcept;
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void done(std::uint64_t count) noexcept {
    if (active_) report(count);
  }

 private:
  void report(std::uint64_t count) noexcept;
  std::string_view task_;
  std::uint64_t total_;
  std::uint64_t last_ = 0;
  std::int64_t nextReport_ = 0;
  bool active_;
  bool hasUntold_ = false;
};

}  // namespace tarvola
