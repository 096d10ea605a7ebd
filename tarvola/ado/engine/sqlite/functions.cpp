#include "tarvola/ado/engine/sqlite/functions.h"

#include <array>
#include <cassert>
#include <limits>
#include <memory>
#include <new>
#include <string>

#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/ado/sql/engine_functions.h"
#include "tarvola/ado/sql/literals.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::engine::sqlite {
namespace {

constexpr std::size_t mostArguments = 8;

struct Registered {
  const sql::EngineFunction* function;
  Handle* handle;
};

Variant wholeNumber(std::int64_t value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (value < Limits::min() || value > Limits::max()) return static_cast<double>(value);
  return static_cast<std::int32_t>(value);
}

Variant argument(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return Variant::null();
    case SQLITE_INTEGER:
      return wholeNumber(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
      return sqlite3_value_double(value);
    default:
      break;
  }
  const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return "";
  return std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void giveText(sqlite3_context* context, const std::string& text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void give(sqlite3_context* context, const Variant& result) {
  switch (result.type()) {
    case Variant::Type::Integer:
      return sqlite3_result_int(context, result.integer());
    case Variant::Type::Long:
      return sqlite3_result_int(context, result.longInteger());
    case Variant::Type::Double:
      return sqlite3_result_double(context, result.number());
    case Variant::Type::Boolean:
      return sqlite3_result_int(context, result.boolean() ? -1 : 0);
    case Variant::Type::Date:
      return giveText(context, sql::isoDate(result.date()));
    case Variant::Type::String:
      return giveText(context, result.string());
    default:
      return sqlite3_result_null(context);
  }
}

// No exception may pass through the engine: the failure waits in the handle until the statement has ended.
void call(sqlite3_context* context, int count, sqlite3_value** values) noexcept {
  const auto& [function, handle] = *static_cast<const Registered*>(sqlite3_user_data(context));
  try {
    std::array<Variant, mostArguments> arguments;
    const auto used = static_cast<std::size_t>(count);
    for (std::size_t index = 0; index < used; ++index) arguments[index] = argument(values[index]);
    give(context, (*function)(std::span<const Variant>(arguments).first(used)));
  } catch (const RunTimeError& error) {
    handle->failAfterStatement(error);
    sqlite3_result_error(context, error.what(), -1);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

void forget(void* registered) noexcept { delete static_cast<Registered*>(registered); }

}  // namespace

void registerFunctions(Handle& handle) {
  for (const sql::EngineFunction& function : sql::engineFunctions()) {
    assert(function.argumentCount <= mostArguments);
    const int purity = function.isConstant ? SQLITE_DETERMINISTIC : 0;
    auto registered = std::make_unique<Registered>(Registered{.function = &function, .handle = &handle});
    const int code = sqlite3_create_function_v2(
        handle.get(), std::string(function.name).c_str(), static_cast<int>(function.argumentCount),
        SQLITE_UTF8 | SQLITE_INNOCUOUS | purity, registered.release(), call, nullptr, nullptr, forget);
    if (code != SQLITE_OK) handle.fail(code);
  }
}

}  // namespace tarvola::ado::engine::sqlite
