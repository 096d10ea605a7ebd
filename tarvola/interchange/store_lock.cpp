#include "tarvola/interchange/store_lock.h"

#if __has_include(<sys/file.h>)
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace tarvola::interchange {

namespace {

int openFolderOf(std::string_view storePath) {
  const std::filesystem::path path(storePath);
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return -1;
  const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
  return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

}  // namespace

StoreLock::StoreLock(std::string_view storePath) noexcept {
  try {
    folder_ = openFolderOf(storePath);
  } catch (...) {
    folder_ = -1;
  }
}

StoreLock::~StoreLock() {
  if (folder_ >= 0) close(folder_);
}

void StoreLock::lock() noexcept {
  if (folder_ < 0) return;
  while (flock(folder_, LOCK_EX) != 0 && errno == EINTR) {
  }
}

void StoreLock::unlock() noexcept {
  if (folder_ >= 0) flock(folder_, LOCK_UN);
}

}  // namespace tarvola::interchange

#else

namespace tarvola::interchange {

StoreLock::StoreLock(std::string_view) noexcept {}
StoreLock::~StoreLock() = default;
void StoreLock::lock() noexcept {}
void StoreLock::unlock() noexcept {}

}  // namespace tarvola::interchange

#endif
