#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/columns.h"
#include "tarvola/ado/rows.h"

namespace tarvola::ado::engine::sqlite {

/// Sums of columns and the number of rows, over the rows of one table that hold given values, kept in step with every
/// row that comes or goes.
///
/// A kept sum is the very figure that adding up all rows gives, or it is not given. Doubles add up to the same in any
/// order as long as all of them are whole and nothing on the way passes 2^53. So a row that holds anything else is
/// counted apart and enters no sum, and the most that the sums were ever made of is remembered.
class KeptAnswer {
 public:
  /// What a row must hold in a column.
  struct Key {
    int column = 0;
    bool isText = false;
    bool ignoresCase = false;
    std::string text = {};
    std::int64_t number = 0;
  };
  /// What is summed: the amounts of a column, the whole numbers in one field of its packed texts, or the rows.
  struct Summed {
    static constexpr int rows = -1;
    static constexpr int wholeValue = -1;
    int column = rows;
    int field = wholeValue;
    int fieldCount = 0;
    char separator = ';';
  };
  /// Below this every whole number is a Double, and adding them up loses nothing.
  static constexpr double largestExact = 9007199254740992;

  /// An answer over no rows. `columnCount` is the number of columns of the table; `summed` has one for each part of the
  /// answer.
  KeptAnswer(std::string table, int columnCount, std::vector<Key> keys, std::vector<Summed> summed);

  [[nodiscard]] const std::string& table() const noexcept { return table_; }
  [[nodiscard]] const std::vector<Key>& keys() const noexcept { return keys_; }
  [[nodiscard]] const std::vector<Summed>& summed() const noexcept { return summed_; }

  /// Puts in the row that a statement stands on; it delivers what the answer sums, in the answer's order.
  void add(sqlite3_stmt* statement);
  /// Follows the change of a row that the engine is about to make. False if what the row holds cannot be told; the
  /// answer is of no use then.
  [[nodiscard]] bool follow(sqlite3* database, int operation);

  [[nodiscard]] bool isExact() const noexcept { return oddRows_ == 0 && peak_ < largestExact; }
  /// One row in these columns. A sum over no rows is Null.
  [[nodiscard]] RowsPtr asRow(const ColumnsPtr& columns) const;
  /// What is summed, in its order; 0 over no rows.
  [[nodiscard]] const std::vector<double>& sums() const noexcept { return sums_; }

 private:
  class ChangingRow;

  template <class ValueAt>
  void move(int sign, ValueAt&& valueAt);
  bool move(int sign, const ChangingRow& row);

  std::string table_;
  int columnCount_;
  std::vector<Key> keys_;
  std::vector<Summed> summed_;
  std::vector<double> sums_;
  /// Of the row that moves; kept so that no memory is asked for each time.
  std::vector<double> amounts_;
  std::int64_t rows_ = 0;
  /// Rows with an amount that is not whole.
  std::int64_t oddRows_ = 0;
  /// All amounts together, each without its sign, and the most that this has ever been.
  double mass_ = 0;
  double peak_ = 0;
};

}  // namespace tarvola::ado::engine::sqlite
