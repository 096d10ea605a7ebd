#include "tarvola/cli/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <filesystem>
#include <system_error>

#include "tarvola/cli/failure.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/store_file.h"

namespace tarvola::cli {

namespace {

namespace fs = std::filesystem;

bool isTerminal(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return false;
  const bool is = isatty(file) != 0;
  close(file);
  return is;
}

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

/// What a store keeps beside itself is as much of it as its file.
void requireNotOfStore(const std::string& path) {
  for (const std::string_view ending : {"-wal", "-shm", "-journal"}) {
    if (!path.ends_with(ending)) continue;
    const std::string store = path.substr(0, path.size() - ending.size());
    if (store::isStoreFile(store))
      throw CommandFailure(path + " belongs to the store " + store + ".\nGive another name.");
  }
}

void requireReplaceable(const std::string& path, bool force) {
  if (path.empty()) throw CommandFailure("The name of the file is empty.\nGive one.");
  requireNotOfStore(path);
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

void requireFolder(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  std::error_code error;
  if (!folder.empty() && !fs::is_directory(folder, error)) throw CommandFailure(missingFolderRemedy(path));
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

/// Makes an empty file that only its owner may read. 0, or the code of the system.
int makePrivateFile(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (file < 0) return errno;
  close(file);
  return 0;
}

/// The signals by which a person or the system ends a process that may still do something about it.
constexpr std::array endingSignals = {SIGHUP, SIGINT, SIGTERM};

/// The file that such a signal takes away; a command writes one at a time. A handler may look at nothing but memory
/// that is always there.
std::array<char, PATH_MAX> unfinishedPath{};

void takeAwayUnfinished(int signal) {
  unlink(unfinishedPath.data());
  // Then the signal ends the process, as it would have.
  std::signal(signal, SIG_DFL);
  raise(signal);
}

void takeAwayOnSignal(const std::string& path) {
  if (path.size() >= unfinishedPath.size()) return;
  *std::copy(path.begin(), path.end(), unfinishedPath.begin()) = '\0';
  for (const int signal : endingSignals) {
    struct sigaction old {};
    sigaction(signal, nullptr, &old);
    // What the caller ignores, as under nohup, stays ignored.
    if (old.sa_handler != SIG_DFL) continue;
    struct sigaction action {};
    action.sa_handler = takeAwayUnfinished;
    sigaction(signal, &action, nullptr);
  }
}

void leaveOnSignal() {
  for (const int signal : endingSignals) {
    struct sigaction old {};
    sigaction(signal, nullptr, &old);
    if (old.sa_handler == takeAwayUnfinished) std::signal(signal, SIG_DFL);
  }
}

/// What a person can do where a file cannot be written, by the library's words for it.
struct WriteRemedy {
  ErrorNumber failure;
  const char* remedy;
};

constexpr std::array writeRemedies = {
    WriteRemedy{ErrorNumber::DiskFull, "Make room on the disk, or name another place."},
    WriteRemedy{ErrorNumber::PermissionDenied, "Name a place where you may write."},
    WriteRemedy{ErrorNumber::DeviceIoError,
                "See whether the disk works and how large a file may be, or name another "
                "place."}};

const WriteRemedy* findRemedy(std::string_view failure) {
  const auto found = std::find_if(writeRemedies.begin(), writeRemedies.end(),
                                  [&](const WriteRemedy& each) { return errorText(each.failure) == failure; });
  return found == writeRemedies.end() ? nullptr : &*found;
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
  if (fs::is_block_file(status) || (fs::is_character_file(status) && !isTerminal(path)))
    throw CommandFailure(path + " is a device, not a file.\nName " + what + ".");
}

std::string missingFolderRemedy(const std::string& path) {
  return "There is no folder " + fs::path(path).parent_path().string() + ".\nMake it, or name another place.";
}

void requireOtherFile(const std::string& written, const std::string& read) {
  std::error_code error;
  if (fs::equivalent(written, read, error))
    throw CommandFailure(written + " is a file that this command reads, and would be lost.\nGive another name.");
}

void requirePlaceOfRefused(const std::string& path, const std::string& input) {
  requireOtherFile(path, input);
  requireNotOfStore(path);
}

FinishedFile::FinishedFile(const std::string& path, bool force)
    : path_(realPath(path)), partPath_(path_ + "." + std::to_string(getpid()) + ".part") {
  requireReplaceable(path_, force);
  requireFolder(path_);
  takeAwayOnSignal(partPath_);
  const int code = makePrivateFile(partPath_);
  if (code == 0) return;
  leaveOnSignal();
  throw CommandFailure(path_ + " could not be written: " + std::system_category().message(code) +
                       ".\nName another place.");
}

FinishedFile::~FinishedFile() {
  std::error_code error;
  if (!partPath_.empty()) fs::remove(partPath_, error);
  leaveOnSignal();
}

void FinishedFile::requireWritten(const Messages& messages) const {
  for (const std::string& failure : messages.failures())
    if (findRemedy(failure) != nullptr) failUnwritten(failure);
  messages.throwIfAny();
}

void FinishedFile::failUnwritten(const std::string& failure) const {
  const WriteRemedy* known = findRemedy(failure);
  throw CommandFailure(path_ + " could not be written: " + failure + ".\n" +
                       (known == nullptr ? "Name another place." : known->remedy));
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
