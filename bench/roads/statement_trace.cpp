#include "bench/roads/statement_trace.h"

#include <sqlite3.h>

#include <string_view>
#include <utility>

namespace tarvola::bench {

namespace {

std::vector<std::string>& noted() {
  static std::vector<std::string> statements;
  return statements;
}

bool isOfTables(std::string_view statement) {
  for (const std::string_view verb : {"SELECT ", "INSERT ", "UPDATE ", "DELETE "})
    if (statement.substr(0, verb.size()) == verb) return statement.find("sqlite_") == std::string_view::npos;
  return false;
}

int note(unsigned, void*, void* statement, void*) {
  char* const text = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
  if (text != nullptr && isOfTables(text)) noted().emplace_back(text);
  sqlite3_free(text);
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

std::vector<std::string> StatementTrace::take() { return std::exchange(noted(), {}); }

}  // namespace tarvola::bench
