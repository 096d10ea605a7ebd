#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"

namespace tarvola::mainreturn {

/// The criteria text by which a row is found anew: its own values in some fields, joined by AND.
class RowCriteria {
 public:
  RowCriteria(const Recordset& rows, std::span<const std::string_view> fields);

  /// "KD_FORM = 'F113309' AND NOBUKTI = '000001/PPH4'" with the values of the current row. A text with an apostrophe is
  /// error 3001: it would end its quotes and let the filter find another row. Null is error 94.
  [[nodiscard]] std::string ofCurrentRow() const;

 private:
  struct Column {
    std::string_view name;
    std::size_t place;
  };
  const Recordset& rows_;
  std::vector<Column> columns_;
};

/// Splices a value into a list of values by its type: texts and dates in quotes, numbers bare, Null as NULL, so that a
/// copied row says nothing that its source does not.
void appendValue(store::Statement& values, const ado::Cell& value);

/// The first columns of the current row by ordinal. Those that appendReplaced(ordinal) has appended in its own way, and
/// answered with true, are left to it.
template <class AppendReplaced>
void appendColumns(store::Statement& values, const Recordset& rows, std::size_t columnCount,
                   AppendReplaced&& appendReplaced) {
  for (std::size_t ordinal = 0; ordinal < columnCount; ++ordinal) {
    if (ordinal != 0) values << ",";
    if (!appendReplaced(ordinal)) appendValue(values, rows.cell(ordinal));
  }
}

/// Visits each row of a set, which is narrowed to the rows of `criteria` for the visit; the first of them is current.
/// The narrowing is answered from an index, so that the walk stays linear.
template <class Criteria, class Visit>
void forEachRowFiltered(const RecordsetPtr& rows, std::string_view task, Criteria&& criteria, Visit&& visit) {
  if (store::isEmptyResult(rows)) return;
  rows->MoveFirst();
  const std::int32_t rowCount = rows->get_RecordCount();
  Progress progress(task, static_cast<std::uint64_t>(rowCount));
  for (std::int32_t row = 0; row < rowCount; ++row) {
    rows->Move(row, adBookmarkFirst);
    if (rows->get_EOF()) break;
    rows->put_Filter(criteria());
    visit();
    rows->put_Filter(adFilterNone);
    progress.done(static_cast<std::uint64_t>(row) + 1);
  }
}

/// Visits each row of a set from the first on.
template <class Visit>
void forEachRow(const RecordsetPtr& rows, std::string_view task, Visit&& visit) {
  if (store::isEmptyResult(rows)) return;
  Progress progress(task, static_cast<std::uint64_t>(rows->get_RecordCount()));
  std::uint64_t done = 0;
  for (rows->MoveFirst(); !rows->get_EOF(); rows->MoveNext()) {
    visit(*rows);
    progress.done(++done);
  }
}

}  // namespace tarvola::mainreturn
