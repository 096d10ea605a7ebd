#pragma once

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tarvola/runtime/errors.h"

namespace tarvola::ado::engine::sqlite {

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Brings a statement back to its start when the scope ends. A read that is left half way would hold its
/// transaction open, and a write after it would fail on an outdated view of the file.
class ResetAtEnd {
 public:
  explicit ResetAtEnd(sqlite3_stmt* statement) noexcept : statement_(statement) {}
  ~ResetAtEnd() { sqlite3_reset(statement_); }
  ResetAtEnd(const ResetAtEnd&) = delete;
  ResetAtEnd& operator=(const ResetAtEnd&) = delete;

 private:
  sqlite3_stmt* statement_;
};

/// An open file of the embedded engine. Used by one thread.
class Handle {
 public:
  /// `flags` are those of sqlite3_open_v2. The file is not read yet.
  Handle(std::string path, std::string_view openName, int flags);
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  [[nodiscard]] sqlite3* get() const noexcept { return database_.get(); }
  [[nodiscard]] const std::string& path() const noexcept { return path_; }

  /// Fails with the platform's text for what stands in the way.
  [[nodiscard]] Statement prepare(std::string_view text, unsigned flags = 0) const;
  /// Runs a text of the engine's own, all statements in it, and discards what it gives.
  void execute(const std::string& text) const;
  /// Like execute, but gives the engine's code instead of failing.
  int tryExecute(const std::string& text) const noexcept;
  /// The first value of the first row.
  [[nodiscard]] std::int64_t number(std::string_view query) const;

  /// Fails for what the engine reported; with the failure of a function if one has ended the statement.
  [[noreturn]] void fail(int code) const;
  void failAfterStatement(const RunTimeError& error) { functionFailure_ = error; }

 private:
  struct Close {
    void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
  };
  struct LockWait {
    std::chrono::milliseconds patience;
    std::chrono::steady_clock::time_point begun;
  };
  static int waitForLock(void* wait, int timesBefore) noexcept;

  std::string path_;
  std::unique_ptr<LockWait> lockWait_;
  mutable std::optional<RunTimeError> functionFailure_;
  std::unique_ptr<sqlite3, Close> database_;
};

/// Opens an existing store for the work of a session. Fails with a text that names the file where it is missing, a
/// folder, no store, not readable or locked. A file that may only be read is opened for reading.
std::unique_ptr<Handle> openStore(const std::string& path);

}  // namespace tarvola::ado::engine::sqlite
