#pragma once

#include <sqlite3.h>
#include <unistd.h>

#include <csignal>

namespace tarvola::test {

/// Ends the process by SIGKILL just before the statement of a number, counted over all connections that are opened
/// while it lives. One object at a time, in a process that is good for nothing else.
class KillAtStatement {
 public:
  explicit KillAtStatement(int number) {
    left() = number;
    sqlite3_auto_extension(entry());
  }
  ~KillAtStatement() { sqlite3_cancel_auto_extension(entry()); }
  KillAtStatement(const KillAtStatement&) = delete;
  KillAtStatement& operator=(const KillAtStatement&) = delete;

 private:
  static int& left() {
    static int statements = 0;
    return statements;
  }
  static int count(unsigned, void*, void*, void*) {
    if (--left() == 0) kill(getpid(), SIGKILL);
    return 0;
  }
  static int listen(sqlite3* handle, const char**, const sqlite3_api_routines*) {
    return sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, count, nullptr);
  }
  /// SQLite takes what it calls at each opening as a function without arguments and calls it with three.
  using Entry = void (*)();
  static Entry entry() { return reinterpret_cast<Entry>(listen); }
};

}  // namespace tarvola::test
