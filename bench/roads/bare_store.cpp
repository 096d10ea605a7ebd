#include "bench/roads/bare_store.h"

#include <stdexcept>

namespace tarvola::bench {

namespace {

void require(bool held, sqlite3* handle) {
  if (!held) throw std::runtime_error(sqlite3_errmsg(handle));
}

OwnedValue ownedValue(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      return sqlite3_column_int64(statement, column);
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    case SQLITE_TEXT:
      return std::string(static_cast<const char*>(sqlite3_column_blob(statement, column)),
                         static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
    default:
      return nullptr;
  }
}

struct ViewOf {
  BareValue operator()(std::nullptr_t) const { return nullptr; }
  BareValue operator()(std::int64_t value) const { return value; }
  BareValue operator()(double value) const { return value; }
  BareValue operator()(const std::string& value) const { return std::string_view(value); }
};

}  // namespace

std::vector<BareValue> viewsOf(const std::vector<OwnedValue>& values) {
  std::vector<BareValue> views;
  views.reserve(values.size());
  for (const OwnedValue& value : values) views.push_back(std::visit(ViewOf{}, value));
  return views;
}

BareStatement::BareStatement(sqlite3* handle, const std::string& text) {
  sqlite3_stmt* made = nullptr;
  require(sqlite3_prepare_v3(handle, text.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &made, nullptr) == SQLITE_OK, handle);
  statement_.reset(made);
}

void BareStatement::bind(int place, const BareValue& value) {
  sqlite3_stmt* statement = statement_.get();
  if (const auto* whole = std::get_if<std::int64_t>(&value))
    sqlite3_bind_int64(statement, place, *whole);
  else if (const auto* real = std::get_if<double>(&value))
    sqlite3_bind_double(statement, place, *real);
  else if (const auto* text = std::get_if<std::string_view>(&value))
    sqlite3_bind_text(statement, place, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
  else
    sqlite3_bind_null(statement, place);
}

std::int64_t BareStatement::run(std::initializer_list<BareValue> values) {
  int place = 0;
  for (const BareValue& value : values) bind(++place, value);
  return stepThrough();
}

std::int64_t BareStatement::run(const std::vector<BareValue>& values) {
  int place = 0;
  for (const BareValue& value : values) bind(++place, value);
  return stepThrough();
}

std::int64_t BareStatement::stepThrough() {
  sqlite3_stmt* statement = statement_.get();
  std::int64_t count = 0;
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
    ++count;
    const int columns = sqlite3_data_count(statement);
    for (int i = 0; i < columns; ++i) {
      switch (sqlite3_column_type(statement, i)) {
        case SQLITE_TEXT:
          sum_ += static_cast<std::uint64_t>(sqlite3_column_text(statement, i)[0]);
          sum_ += static_cast<std::uint64_t>(sqlite3_column_bytes(statement, i));
          break;
        case SQLITE_INTEGER:
          sum_ += static_cast<std::uint64_t>(sqlite3_column_int64(statement, i));
          break;
        case SQLITE_FLOAT:
          sum_ += static_cast<std::uint64_t>(sqlite3_column_double(statement, i));
          break;
        default:
          break;
      }
    }
  }
  require(code == SQLITE_DONE, sqlite3_db_handle(statement));
  sqlite3_reset(statement);
  return count;
}

std::vector<std::vector<OwnedValue>> BareStatement::rows() {
  sqlite3_stmt* statement = statement_.get();
  std::vector<std::vector<OwnedValue>> result;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    std::vector<OwnedValue>& row = result.emplace_back();
    for (int i = 0; i < sqlite3_data_count(statement); ++i) row.push_back(ownedValue(statement, i));
  }
  sqlite3_reset(statement);
  return result;
}

BareStore::BareStore(const std::string& path) {
  sqlite3* made = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &made, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  handle_.reset(made);
  require(code == SQLITE_OK, made);
  execute("PRAGMA journal_mode = WAL");
  execute("PRAGMA synchronous = NORMAL");
  execute("PRAGMA temp_store = MEMORY");
  execute("PRAGMA secure_delete = FAST");
  execute("PRAGMA cache_size = -8192");
  execute("PRAGMA wal_autocheckpoint = 4000");
}

void BareStore::execute(const std::string& text) {
  require(sqlite3_exec(handle_.get(), text.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, handle_.get());
}

}  // namespace tarvola::bench
