#include "tarvola/interchange/slip_file_layout.h"

#include "tarvola/interchange/export_row.h"
#include "tarvola/interchange/file_columns.h"
#include "tarvola/interchange/import_forms.h"
#include "tarvola/interchange/import_texts.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

const ExchangeLayout slipFileLayout{
    .columnCount = columnCount,
    .header = [] { return exportHeader(); },
    .isHeader = [](std::string_view first) { return equalsIgnoreCase(first, fileColumns.front().title); },
    .isDataLine = [](std::string_view first) { return findImportForm(first) != nullptr; },
    .foreignFileText = notAnExchangeFileText};

}  // namespace tarvola::interchange
