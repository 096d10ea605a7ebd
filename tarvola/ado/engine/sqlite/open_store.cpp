#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::engine::sqlite {
namespace {

void checkFile(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    if (errno == EACCES) fail(ErrorNumber::AccessDenied, fileNotReadableText(path));
    fail(ErrorNumber::Unspecified, fileNotFoundText(path));
  }
  if (S_ISDIR(status.st_mode)) fail(ErrorNumber::Unspecified, folderNotFileText(path));
  // A pipe or a device would be waited for; an empty file would be taken for a store without tables.
  if (!S_ISREG(status.st_mode) || status.st_size == 0) {
    fail(ErrorNumber::Unspecified, unrecognizedFormatText(path));
  }
  if (::access(path.c_str(), R_OK) != 0) fail(ErrorNumber::AccessDenied, fileNotReadableText(path));
}

/// Whether a writer left changes beside the file that are not in it yet.
bool hasChangesBeside(const std::string& path) {
  struct stat status {};
  return ::stat((path + "-wal").c_str(), &status) == 0 && status.st_size > 0;
}

/// The name by which the engine opens a file that nobody can change where it lies (a read-only folder or disk),
/// where it cannot make the files that it otherwise needs beside it.
std::string unchangeableName(const std::string& path) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string name = path.starts_with('/') ? "file://" : "file:";
  for (const char letter : path) {
    if (letter != '%' && letter != '?' && letter != '#') {
      name += letter;
      continue;
    }
    const auto byte = static_cast<unsigned char>(letter);
    name += {'%', digits[byte >> 4U], digits[byte & 15U]};
  }
  return name + "?immutable=1";
}

constexpr const char* readSomething = "SELECT 1 FROM sqlite_master LIMIT 1";

bool needsWritableFolder(int code) { return (code & 0xff) == SQLITE_CANTOPEN || (code & 0xff) == SQLITE_READONLY; }

std::unique_ptr<Handle> openReadable(const std::string& path) {
  auto handle = std::make_unique<Handle>(path, path, SQLITE_OPEN_READWRITE);
  const int code = handle->tryExecute(readSomething);
  if (code == SQLITE_OK) return handle;
  if (!needsWritableFolder(code) || hasChangesBeside(path)) handle->fail(code);
  handle = std::make_unique<Handle>(path, unchangeableName(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
  handle->execute(readSomething);
  return handle;
}

// In WAL readers and one writer do not disturb each other. NORMAL writes through to the disk at checkpoints: a crash of
// the machine may cost the last statements, never the file. What is deleted is overwritten where its page is written
// anyway; some builds of the engine also overwrite and write every page that falls free, which doubles the writing of a
// removed return.
constexpr const char* sessionSettings =
    "PRAGMA synchronous=NORMAL;"
    "PRAGMA temp_store=MEMORY;"
    "PRAGMA secure_delete=FAST;"
    "PRAGMA cache_size=-8192;"
    "PRAGMA wal_autocheckpoint=4000;";

}  // namespace

std::unique_ptr<Handle> openStore(const std::string& path) {
  checkFile(path);
  auto handle = openReadable(path);
  handle->execute(sessionSettings);
  // A file that came from elsewhere may be in another mode; where it cannot be changed it is used as it is.
  handle->tryExecute("PRAGMA journal_mode=WAL");
  return handle;
}

}  // namespace tarvola::ado::engine::sqlite
