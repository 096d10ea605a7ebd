#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/rows.h"
#include "tarvola/interchange/report_lines.h"

namespace tarvola::interchange {

/// The columns that a line of a document is made of, in the order of the selection that asks for them.
enum DocumentColumn : std::size_t { JenisDokumen = 0, KdForm = 1, DatForm = 2 };

/// Rows of documents that stand together and bear one document code.
struct DocumentRun {
  ado::Cell code;
  std::size_t first = 0;
  std::size_t count = 0;
};

/// The rows in the order of their document codes, those of one code as the store gave them. A store gives the rows of a
/// form together, so a few runs are put in order instead of a hundred thousand rows.
std::vector<DocumentRun> documentRuns(const ado::Rows& rows);

/// Calls write(const ReportDocument&) for each document in that order.
template <class Write>
void forEachDocument(const ado::Rows& rows, Write write) {
  const auto textOf = [&](std::size_t row, std::size_t column) {
    const ado::Cell cell = rows.cell(row, column);
    return cell.isText() ? cell.text() : std::string_view();
  };
  std::string code;
  for (const DocumentRun& run : documentRuns(rows)) {
    code.clear();
    if (!run.code.isNull()) run.code.appendText(code);
    for (std::size_t row = run.first; row < run.first + run.count; ++row)
      write(ReportDocument{.jenisDokumen = code, .kdForm = textOf(row, KdForm), .datForm = textOf(row, DatForm)});
  }
}

}  // namespace tarvola::interchange
