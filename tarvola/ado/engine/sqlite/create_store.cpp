#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "tarvola/ado/engine/embedded_store.h"
#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/ado/engine/sqlite/quoted.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::engine {
namespace {

using sqlite::Handle;
using sqlite::quoted;
using sqlite::ResetAtEnd;
using sqlite::Statement;

[[noreturn]] void failToCreate(const std::string& path, int systemError) {
  if (systemError == EEXIST) fail(ErrorNumber::FileAlreadyExists, fileExistsText(path));
  if (systemError == ENOENT || systemError == ENOTDIR) fail(ErrorNumber::PathNotFound);
  fail(ErrorNumber::PathFileAccessError, fileNotCreatedText(path, std::strerror(systemError)));
}

/// A new file of nobody else's, which disappears again unless it is kept.
class NewFile {
 public:
  explicit NewFile(const std::string& path) : path_(path) {
    constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, ownerOnly);
    if (descriptor < 0) failToCreate(path, errno);
    ::close(descriptor);
  }
  ~NewFile() {
    if (isKept_) return;
    for (const char* const ending : {"", "-journal", "-wal", "-shm"}) ::unlink((path_ + ending).c_str());
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  void keep() noexcept { isKept_ = true; }

 private:
  std::string path_;
  bool isKept_ = false;
};

Statement prepareInsert(const Handle& handle, const TableContent& content) {
  std::string columns;
  std::string marks;
  for (const std::string& column : content.columns) {
    columns += (columns.empty() ? "" : ", ") + quoted(column);
    marks += marks.empty() ? "?" : ", ?";
  }
  return handle.prepare("INSERT INTO " + quoted(content.table) + " (" + columns + ") VALUES (" + marks + ")");
}

void insertRow(const Handle& handle, const Statement& insert, const std::vector<std::string>& values) {
  const ResetAtEnd reset(insert.get());
  int parameter = 0;
  for (const std::string& value : values) {
    sqlite3_bind_text64(insert.get(), ++parameter, value.data(), value.size(), SQLITE_STATIC, SQLITE_UTF8);
  }
  const int code = sqlite3_step(insert.get());
  if (code != SQLITE_DONE) handle.fail(code);
}

void fillStore(const std::string& path, const StoreDefinition& definition) {
  const Handle handle(path, path, SQLITE_OPEN_READWRITE);
  handle.execute("PRAGMA journal_mode=WAL");
  handle.execute("BEGIN IMMEDIATE");
  for (const std::string_view script : definition.scripts) handle.execute(std::string(script));
  for (const TableContent& content : definition.contents) {
    const Statement insert = prepareInsert(handle, content);
    for (const std::vector<std::string>& values : content.rows) insertRow(handle, insert, values);
  }
  handle.execute("COMMIT");
}

}  // namespace

void createEmbeddedStore(const std::string& path, const StoreDefinition& definition) {
  NewFile file(path);
  fillStore(path, definition);
  file.keep();
}

}  // namespace tarvola::ado::engine
