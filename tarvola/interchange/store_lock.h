#pragma once

#include <string_view>

namespace tarvola::interchange {

/// Keeps imports of different processes and threads into one store from mixing their steps: what one of them looks up
/// and then writes, no other writes in between.
///
/// It binds those who take it and nobody else. The lock lies on the folder of the store's file, so that nothing is left
/// behind and a process that dies lets go of it. A store that is no file has none; then lock does nothing.
class StoreLock {
 public:
  explicit StoreLock(std::string_view storePath) noexcept;
  ~StoreLock();
  StoreLock(const StoreLock&) = delete;
  StoreLock& operator=(const StoreLock&) = delete;

  void lock() noexcept;
  void unlock() noexcept;

 private:
  int folder_ = -1;
};

}  // namespace tarvola::interchange
