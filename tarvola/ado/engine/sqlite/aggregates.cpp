#include <memory>
#include <string>

#include "tarvola/ado/engine/sqlite/functions.h"
#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/ado/sql/engine_functions.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::engine::sqlite {
namespace {

struct Registered {
  sql::KeptValue keeps;
  Handle* handle;
};

/// What a group has kept so far. The engine hands it out filled with zeros and forgets it without a destructor.
struct Group {
  sqlite3_value* kept;
};

void keep(sqlite3_context* context, Group& group, sqlite3_value* value) {
  sqlite3_value_free(group.kept);
  group.kept = sqlite3_value_dup(value);
  if (group.kept == nullptr) sqlite3_result_error_nomem(context);
}

// No exception may pass through the engine: the failure waits in the handle until the statement has ended.
void failOverSecondRow(sqlite3_context* context, Handle& handle) noexcept {
  try {
    const RunTimeError error(static_cast<std::int32_t>(ErrorNumber::Unspecified), tooManyRowsInSubqueryText());
    sqlite3_result_error(context, error.what(), -1);
    handle.failAfterStatement(error);
  } catch (...) {
    sqlite3_result_error_nomem(context);
  }
}

void takeRow(sqlite3_context* context, int, sqlite3_value** values) noexcept {
  const auto& [keeps, handle] = *static_cast<const Registered*>(sqlite3_user_data(context));
  auto* const group = static_cast<Group*>(sqlite3_aggregate_context(context, sizeof(Group)));
  if (group == nullptr) return sqlite3_result_error_nomem(context);
  if (group->kept == nullptr || keeps == sql::KeptValue::Last) return keep(context, *group, *values);
  if (keeps == sql::KeptValue::Only) failOverSecondRow(context, *handle);
}

void giveKept(sqlite3_context* context) noexcept {
  auto* const group = static_cast<Group*>(sqlite3_aggregate_context(context, 0));
  if (group == nullptr || group->kept == nullptr) return sqlite3_result_null(context);
  sqlite3_result_value(context, group->kept);
  sqlite3_value_free(group->kept);
  group->kept = nullptr;
}

void forget(void* registered) noexcept { delete static_cast<Registered*>(registered); }

}  // namespace

void registerAggregates(Handle& handle) {
  for (const sql::EngineAggregate& aggregate : sql::engineAggregates()) {
    auto registered = std::make_unique<Registered>(Registered{.keeps = aggregate.keeps, .handle = &handle});
    const int code =
        sqlite3_create_function_v2(handle.get(), std::string(aggregate.name).c_str(), 1, SQLITE_UTF8 | SQLITE_INNOCUOUS,
                                   registered.release(), nullptr, takeRow, giveKept, forget);
    if (code != SQLITE_OK) handle.fail(code);
  }
}

}  // namespace tarvola::ado::engine::sqlite
