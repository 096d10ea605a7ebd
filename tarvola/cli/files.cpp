#include "tarvola/cli/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "tarvola/cli/failure.h"
#include "tarvola/store/store_file.h"

namespace tarvola::cli {

namespace {

namespace fs = std::filesystem;

/// What the system says of an error, behind what could not be done.
[[noreturn]] void failBySystem(const std::string& what, int code) {
  throw CommandFailure(what + ": " + std::system_category().message(code) + ".\nNothing was left in its place.");
}

/// The file that a name means: of a link that which it leads to, so that the link stays.
std::string realPath(const std::string& path) {
  std::error_code error;
  const fs::path real = fs::weakly_canonical(path, error);
  return error || !fs::is_symlink(path, error) ? path : real.string();
}

void requireReplaceable(const std::string& path, bool force) {
  if (path.empty()) throw CommandFailure("The name of the file is empty.\nGive one.");
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) return;
  if (fs::is_directory(status)) throw CommandFailure(path + " is a folder.\nGive the name of a file.");
  if (store::isStoreFile(path))
    throw CommandFailure(path + " is a store, and all that it holds would be lost.\nGive another name.");
  if (!fs::is_regular_file(status))
    throw CommandFailure(path +
                         " is no ordinary file, and could not be put in its place as a whole.\nGive another name.");
  if (!force) throw CommandFailure(path + " exists already.\nGive another name, or replace it with --force.");
}

/// What a new file of this process may be used for by whom, as the system would have made it.
mode_t usualRights() {
  const mode_t masked = umask(0);
  umask(masked);
  return 0666 & ~masked;
}

mode_t rightsOf(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_mode & 0777 : usualRights();
}

/// Makes an empty file that only its owner may read. Where that fails, the writing itself will tell why.
void makePrivateFile(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (file >= 0) close(file);
}

/// Some file systems tell only now that the disk is full.
int syncFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return errno;
  const int code = fsync(file) == 0 ? 0 : errno;
  close(file);
  return code;
}

}  // namespace

void requireInputFile(const std::string& path, const char* what) {
  if (path.empty()) throw CommandFailure("The name of the file is empty.\nName " + std::string(what) + ".");
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) throw CommandFailure("There is no file " + path + ".\nName " + what + ".");
  if (fs::is_directory(status)) throw CommandFailure(path + " is a folder, not a file.\nName " + what + ".");
}

std::string missingFolderRemedy(const std::string& path) {
  return "There is no folder " + fs::path(path).parent_path().string() + ".\nMake it, or name another place.";
}

void requireFolder(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  std::error_code error;
  if (!folder.empty() && !fs::is_directory(folder, error)) throw CommandFailure(missingFolderRemedy(path));
}

FinishedFile::FinishedFile(const std::string& path, bool force)
    : path_(realPath(path)), partPath_(path_ + "." + std::to_string(getpid()) + ".part") {
  requireReplaceable(path_, force);
  makePrivateFile(partPath_);
}

FinishedFile::~FinishedFile() {
  std::error_code error;
  if (!partPath_.empty()) fs::remove(partPath_, error);
}

void FinishedFile::finish() {
  if (const int code = syncFile(partPath_); code != 0) failBySystem(path_ + " could not be written", code);
  chmod(partPath_.c_str(), rightsOf(path_));
  std::error_code error;
  fs::rename(partPath_, path_, error);
  if (error) failBySystem(path_ + " could not be put in its place", error.value());
  partPath_.clear();
}

}  // namespace tarvola::cli
