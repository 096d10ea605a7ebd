#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/store/statement.h"

namespace tarvola::store {

// Two generations of the main forms' packed texts exist. No mark tells them apart, only the period and, for two of the
// forms, the number of fields.

/// Whether the newer layout was in force: from November 2008 on.
bool isNewPeriod(std::int16_t month, std::int16_t year) noexcept;

/// Finds the stored main form of a period. The numbers are read from the front of the texts. A form that is no main
/// form is looked for without correction and tax kind.
Statement selectMainForm(std::string_view kdForm, std::string_view month, std::string_view year,
                         std::string_view correction);

/// Whether the packed text of the current row has the newer layout. Without a row: error 3021.
bool hasNewLayout(const RecordsetPtr& mainForm);

}  // namespace tarvola::store
