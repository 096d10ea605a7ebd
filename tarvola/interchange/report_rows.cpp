#include "tarvola/interchange/report_rows.h"

#include <algorithm>

#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

bool isSameCode(const ado::Cell& left, const ado::Cell& right) {
  if (left.isText() && right.isText()) return left.text() == right.text();
  return left.isNull() && right.isNull();
}

/// Null stands in front, as in every order of the store.
bool isBefore(const ado::Cell& left, const ado::Cell& right) {
  if (left.isText() && right.isText()) return compareIgnoreCase(left.text(), right.text()) < 0;
  if (left.isNull() || right.isNull()) return left.isNull() && !right.isNull();
  return left.toDouble() < right.toDouble();
}

}  // namespace

std::vector<DocumentRun> documentRuns(const ado::Rows& rows) {
  std::vector<DocumentRun> runs;
  for (std::size_t row = 0; row < rows.count(); ++row) {
    const ado::Cell code = rows.cell(row, JenisDokumen);
    if (runs.empty() || !isSameCode(runs.back().code, code)) runs.push_back({.code = code, .first = row});
    ++runs.back().count;
  }
  std::stable_sort(runs.begin(), runs.end(),
                   [](const DocumentRun& left, const DocumentRun& right) { return isBefore(left.code, right.code); });
  return runs;
}

}  // namespace tarvola::interchange
