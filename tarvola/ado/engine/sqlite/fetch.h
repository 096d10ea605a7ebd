#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <optional>

#include "tarvola/ado/table_rows.h"
#include "tarvola/runtime/progress.h"

namespace tarvola::ado::engine::sqlite {

/// Adds the row on which the statement stands. A value comes in its column's type; one that does not fit comes as what
/// it is. Behind the columns stands the identity if the rows have a base table.
void fetchRow(sqlite3_stmt* statement, TableRows& rows);

/// Tells of the progress of a statement that has many rows; the others are done before anybody wonders.
class FetchProgress {
 public:
  void countRow() {
    if (++count_ % tellEvery == 0) tell();
  }

 private:
  static constexpr std::uint64_t tellEvery = 16'384;

  void tell() {
    if (!progress_) progress_.emplace("Reading the store", std::uint64_t{0});
    progress_->done(count_);
  }

  std::uint64_t count_ = 0;
  std::optional<Progress> progress_;
};

}  // namespace tarvola::ado::engine::sqlite
