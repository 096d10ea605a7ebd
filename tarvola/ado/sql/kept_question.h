#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tarvola::ado::sql {

struct Query;

/// A question whose answer can be kept in step with every row that comes or goes, so that it need not be asked twice:
/// sums of amounts, and the number of rows, of the rows of one table that hold given values in given columns.
struct KeptQuestion {
  /// A column and the literal of the statement that it must equal.
  struct Key {
    std::string column;
    std::size_t literal = 0;
    bool isText = false;
  };

  std::string table;
  std::vector<Key> keys;
  /// For each column of the answer the column that is summed, "" for COUNT(*).
  std::vector<std::string> summed;
};

/// The question of a checked query, if it is such a one.
std::optional<KeptQuestion> keptQuestionOf(const Query& query);

}  // namespace tarvola::ado::sql
