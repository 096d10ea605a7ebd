#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

namespace tarvola {

/// A handler of the whole process: set by one thread, called by any.
///
/// A call runs outside the lock on a handler of its own share, so a handler may replace itself, and one that is
/// replaced while it runs lives until it has returned.
template <typename Handler>
class SharedHandler {
 public:
  /// Puts another handler in place (an empty one takes it away) and gives the one before.
  Handler exchange(Handler handler) {
    auto next = handler ? std::make_shared<const Handler>(std::move(handler)) : nullptr;
    const std::lock_guard lock(mutex_);
    set_.store(next != nullptr, std::memory_order_release);
    const auto before = std::exchange(handler_, std::move(next));
    return before ? *before : Handler{};
  }

  /// The handler, or null without one.
  std::shared_ptr<const Handler> get() const {
    if (!isSet()) return nullptr;
    const std::lock_guard lock(mutex_);
    return handler_;
  }

  [[nodiscard]] bool isSet() const noexcept { return set_.load(std::memory_order_acquire); }

 private:
  mutable std::mutex mutex_;
  std::shared_ptr<const Handler> handler_;
  std::atomic<bool> set_{false};
};

}  // namespace tarvola
