#include "bench/roads/statement_trace.h"

#include <sqlite3.h>

#include <string_view>
#include <utility>

namespace tarvola::bench {

namespace {

std::vector<NotedStatement>& noted() {
  static std::vector<NotedStatement> statements;
  return statements;
}

bool isOfTables(std::string_view statement) {
  for (const std::string_view verb : {"SELECT ", "INSERT ", "UPDATE ", "DELETE "})
    if (statement.substr(0, verb.size()) == verb) return statement.find("sqlite_") == std::string_view::npos;
  return false;
}

int note(unsigned, void*, void* statement, void*) {
  auto* const ran = static_cast<sqlite3_stmt*>(statement);
  char* const withValues = sqlite3_expanded_sql(ran);
  if (withValues != nullptr && isOfTables(withValues))
    noted().push_back({.text = sqlite3_sql(ran), .withValues = withValues});
  sqlite3_free(withValues);
  return 0;
}

int listen(sqlite3* handle, const char**, const sqlite3_api_routines*) {
  return sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, note, nullptr);
}

/// SQLite takes what it calls at each opening as a function without arguments and calls it with three.
using Entry = void (*)();
Entry entry() { return reinterpret_cast<Entry>(listen); }

}  // namespace

StatementTrace::StatementTrace() {
  noted().clear();
  sqlite3_auto_extension(entry());
}

StatementTrace::~StatementTrace() { sqlite3_cancel_auto_extension(entry()); }

std::vector<NotedStatement> StatementTrace::take() { return std::exchange(noted(), {}); }

}  // namespace tarvola::bench
