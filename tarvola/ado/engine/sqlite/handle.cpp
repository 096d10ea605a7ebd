#include "tarvola/ado/engine/sqlite/handle.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "tarvola/ado/engine/lock_patience.h"
#include "tarvola/ado/engine/sqlite/errors.h"
#include "tarvola/ado/engine/sqlite/functions.h"

namespace tarvola::ado::engine::sqlite {

Handle::Handle(std::string path, std::string_view openName, int flags)
    : path_(std::move(path)), lockWait_(std::make_unique<LockWait>(LockWait{lockPatience(), {}})) {
  sqlite3* database = nullptr;
  // One thread uses the handle, so the engine need not guard it; the long result codes tell the causes apart.
  const int code =
      sqlite3_open_v2(std::string(openName).c_str(), &database,
                      flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE | SQLITE_OPEN_EXRESCODE, nullptr);
  database_.reset(database);
  if (code != SQLITE_OK) fail(code);
  sqlite3_busy_handler(database, waitForLock, lockWait_.get());
  // A plan that depends on bound values would be made anew for every LIKE.
  sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_QPSG, 1, nullptr);
  // A misspelt name in quotes is an unknown name, never a text.
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  // A file may come from anywhere: nothing in its schema may reach beyond it.
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  registerFunctions(*this);
  registerAggregates(*this);
}

// Another writer holds the file for some microseconds, so the first waits are short.
int Handle::waitForLock(void* wait, int timesBefore) noexcept {
  auto& lock = *static_cast<LockWait*>(wait);
  const auto now = std::chrono::steady_clock::now();
  if (timesBefore == 0) lock.begun = now;
  if (now - lock.begun >= lock.patience) return 0;
  constexpr std::chrono::microseconds shortest{50};
  constexpr std::chrono::microseconds longest{10'000};
  std::this_thread::sleep_for(std::min(longest, shortest * (1 << std::min(timesBefore / 4, 8))));
  return 1;
}

void Handle::fail(int code) const {
  if (functionFailure_) throw *std::exchange(functionFailure_, std::nullopt);
  failWith(get(), code, path_);
}

Statement Handle::prepare(std::string_view text, unsigned flags) const {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v3(get(), text.data(), static_cast<int>(text.size()), flags, &statement, nullptr);
  Statement result(statement);
  if (code != SQLITE_OK) fail(code);
  return result;
}

int Handle::tryExecute(const std::string& text) const noexcept {
  return sqlite3_exec(get(), text.c_str(), nullptr, nullptr, nullptr);
}

void Handle::execute(const std::string& text) const {
  const int code = tryExecute(text);
  if (code != SQLITE_OK) fail(code);
}

std::int64_t Handle::number(std::string_view query) const {
  const Statement statement = prepare(query);
  const int code = sqlite3_step(statement.get());
  if (code == SQLITE_ROW) return sqlite3_column_int64(statement.get(), 0);
  if (code != SQLITE_DONE) fail(code);
  return 0;
}

}  // namespace tarvola::ado::engine::sqlite
