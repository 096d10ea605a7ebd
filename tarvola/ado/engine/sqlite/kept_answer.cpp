// The header declares the hook's functions on demand.
#define SQLITE_ENABLE_PREUPDATE_HOOK
#include "tarvola/ado/engine/sqlite/kept_answer.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "tarvola/ado/table_rows.h"

namespace tarvola::ado::engine::sqlite {
namespace {

bool isWholeAmount(sqlite3_value* value) {
  const int type = sqlite3_value_type(value);
  if (type == SQLITE_INTEGER) return true;
  return type == SQLITE_FLOAT && sqlite3_value_double(value) == std::trunc(sqlite3_value_double(value));
}

bool isNumber(sqlite3_value* held, std::int64_t wanted) {
  const int type = sqlite3_value_type(held);
  if (type == SQLITE_INTEGER) return sqlite3_value_int64(held) == wanted;
  return type == SQLITE_FLOAT && sqlite3_value_double(held) == static_cast<double>(wanted);
}

bool isText(sqlite3_value* held, const std::string& wanted, bool ignoresCase) {
  if (sqlite3_value_type(held) != SQLITE_TEXT) return false;
  const auto* const letters = reinterpret_cast<const char*>(sqlite3_value_text(held));
  const std::string_view there(letters, static_cast<std::size_t>(sqlite3_value_bytes(held)));
  if (!ignoresCase) return there == wanted;
  return there.size() == wanted.size() &&
         sqlite3_strnicmp(letters, wanted.c_str(), static_cast<int>(wanted.size())) == 0;
}

}  // namespace

/// A row before or behind a change.
class KeptAnswer::ChangingRow {
 public:
  using Read = int (*)(sqlite3*, int, sqlite3_value**);
  ChangingRow(sqlite3* database, Read read) : database_(database), read_(read) {}

  /// Nullptr for a value that cannot be told.
  [[nodiscard]] sqlite3_value* value(int column) const {
    sqlite3_value* found = nullptr;
    return read_(database_, column, &found) == SQLITE_OK ? found : nullptr;
  }
  [[nodiscard]] bool holds(const std::vector<Key>& keys) const {
    return std::ranges::all_of(keys, [this](const Key& key) {
      sqlite3_value* const held = value(key.column);
      if (held == nullptr) return false;
      return key.isText ? isText(held, key.text, key.ignoresCase) : isNumber(held, key.number);
    });
  }

 private:
  sqlite3* database_;
  Read read_;
};

KeptAnswer::KeptAnswer(std::string table, int columnCount, std::vector<Key> keys, std::vector<int> summed)
    : table_(std::move(table)),
      columnCount_(columnCount),
      keys_(std::move(keys)),
      summed_(std::move(summed)),
      sums_(summed_.size()) {}

void KeptAnswer::add(sqlite3_stmt* statement) {
  move(1, [statement](std::size_t place) { return sqlite3_column_value(statement, static_cast<int>(place)); });
}

bool KeptAnswer::follow(sqlite3* database, int operation) {
  if (sqlite3_preupdate_count(database) != columnCount_) return false;
  const ChangingRow before(database, sqlite3_preupdate_old);
  const ChangingRow behind(database, sqlite3_preupdate_new);
  if (operation != SQLITE_INSERT && before.holds(keys_) && !move(-1, before)) return false;
  return operation == SQLITE_DELETE || !behind.holds(keys_) || move(1, behind);
}

/// A Null is not told: a column that was added to the table reads as Null here, whatever its default.
bool KeptAnswer::move(int sign, const ChangingRow& row) {
  const bool isTold = std::ranges::all_of(summed_, [&row](int column) {
    if (column == rowCount) return true;
    sqlite3_value* const amount = row.value(column);
    return amount != nullptr && sqlite3_value_type(amount) != SQLITE_NULL;
  });
  if (isTold) move(sign, [&](std::size_t place) { return row.value(summed_[place]); });
  return isTold;
}

/// Puts a row in (+1) or takes it out (-1); `valueAt` gives the value that a summed column holds.
template <class ValueAt>
void KeptAnswer::move(int sign, ValueAt&& valueAt) {
  rows_ += sign;
  double mass = 0;
  for (std::size_t place = 0; place < summed_.size(); ++place) {
    if (summed_[place] == rowCount) continue;
    sqlite3_value* const amount = valueAt(place);
    if (!isWholeAmount(amount)) {
      oddRows_ += sign;
      return;
    }
    mass += std::abs(sqlite3_value_double(amount));
  }
  for (std::size_t place = 0; place < summed_.size(); ++place)
    if (summed_[place] != rowCount) sums_[place] += sign * sqlite3_value_double(valueAt(place));
  mass_ += sign * mass;
  peak_ = std::max(peak_, mass_);
}

RowsPtr KeptAnswer::asRow(const ColumnsPtr& columns) const {
  auto rows = std::make_shared<TableRows>(columns);
  Cell* const row = rows->addRow();
  for (std::size_t place = 0; place < summed_.size(); ++place) {
    if (summed_[place] == rowCount)
      row[place] = Cell::longInteger(static_cast<std::int32_t>(rows_));
    else
      row[place] = rows_ == 0 ? Cell::null() : Cell::number(sums_[place]);
  }
  return rows;
}

}  // namespace tarvola::ado::engine::sqlite
