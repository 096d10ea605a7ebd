// The header declares the hook's functions on demand.
#define SQLITE_ENABLE_PREUPDATE_HOOK
#include "tarvola/ado/engine/sqlite/kept_answer.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "tarvola/ado/table_rows.h"

namespace tarvola::ado::engine::sqlite {
namespace {

using Summed = KeptAnswer::Summed;

std::string_view textOf(sqlite3_value* value) {
  const auto* const letters = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {letters, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

/// An amount without decimals.
std::optional<double> wholeAmount(sqlite3_value* value) {
  const int type = sqlite3_value_type(value);
  if (type != SQLITE_INTEGER && type != SQLITE_FLOAT) return std::nullopt;
  const double amount = sqlite3_value_double(value);
  return amount == std::trunc(amount) ? std::optional(amount) : std::nullopt;
}

/// The digits of a field; nothing for a field that holds anything else, or more than a Double holds.
std::optional<double> digitsOf(std::string_view field) {
  constexpr std::size_t mostDigits = 15;
  if (field.empty() || field.size() > mostDigits) return std::nullopt;
  std::int64_t number = 0;
  for (const char digit : field) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = number * 10 + (digit - '0');
  }
  return static_cast<double>(number);
}

std::optional<double> packedAmount(sqlite3_value* value, const Summed& summed) {
  if (sqlite3_value_type(value) != SQLITE_TEXT) return std::nullopt;
  const std::string_view text = textOf(value);
  if (std::ranges::count(text, summed.separator) != summed.fieldCount - 1) return std::nullopt;
  std::size_t begin = 0;
  for (int field = 0; field < summed.field; ++field) begin = text.find(summed.separator, begin) + 1;
  return digitsOf(text.substr(begin, text.find(summed.separator, begin) - begin));
}

/// The amount of a row that can be kept: one that is whole.
std::optional<double> amountOf(sqlite3_value* value, const Summed& summed) {
  return summed.field == Summed::wholeValue ? wholeAmount(value) : packedAmount(value, summed);
}

bool isNumber(sqlite3_value* held, std::int64_t wanted) {
  const int type = sqlite3_value_type(held);
  if (type == SQLITE_INTEGER) return sqlite3_value_int64(held) == wanted;
  return type == SQLITE_FLOAT && sqlite3_value_double(held) == static_cast<double>(wanted);
}

bool isText(sqlite3_value* held, const std::string& wanted, bool ignoresCase) {
  if (sqlite3_value_type(held) != SQLITE_TEXT) return false;
  const std::string_view there = textOf(held);
  if (!ignoresCase) return there == wanted;
  return there.size() == wanted.size() &&
         sqlite3_strnicmp(there.data(), wanted.c_str(), static_cast<int>(wanted.size())) == 0;
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

KeptAnswer::KeptAnswer(std::string table, int columnCount, std::vector<Key> keys, std::vector<Summed> summed)
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
  const bool isTold = std::ranges::all_of(summed_, [&row](const Summed& summed) {
    if (summed.column == Summed::rows) return true;
    sqlite3_value* const amount = row.value(summed.column);
    return amount != nullptr && sqlite3_value_type(amount) != SQLITE_NULL;
  });
  if (isTold) move(sign, [&](std::size_t place) { return row.value(summed_[place].column); });
  return isTold;
}

/// Puts a row in (+1) or takes it out (-1); `valueAt` gives the value that a part of the answer is summed from.
template <class ValueAt>
void KeptAnswer::move(int sign, ValueAt&& valueAt) {
  rows_ += sign;
  amounts_.assign(summed_.size(), 0);
  double mass = 0;
  for (std::size_t place = 0; place < summed_.size(); ++place) {
    if (summed_[place].column == Summed::rows) continue;
    const auto amount = amountOf(valueAt(place), summed_[place]);
    if (!amount) {
      oddRows_ += sign;
      return;
    }
    amounts_[place] = *amount;
    mass += std::abs(*amount);
  }
  for (std::size_t place = 0; place < summed_.size(); ++place) sums_[place] += sign * amounts_[place];
  mass_ += sign * mass;
  peak_ = std::max(peak_, mass_);
}

RowsPtr KeptAnswer::asRow(const ColumnsPtr& columns) const {
  auto rows = std::make_shared<TableRows>(columns);
  Cell* const row = rows->addRow();
  for (std::size_t place = 0; place < summed_.size(); ++place) {
    if (summed_[place].column == Summed::rows)
      row[place] = Cell::longInteger(static_cast<std::int32_t>(rows_));
    else
      row[place] = rows_ == 0 ? Cell::null() : Cell::number(sums_[place]);
  }
  return rows;
}

}  // namespace tarvola::ado::engine::sqlite
