#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/tarvola.h"

/// Stored texts that cannot be read whole. Their fields read as nothing, so that a figure made from them would be wrong
/// in silence.
namespace tarvola::cli {

/// What is wrong with the packed texts of rows that have a NOBUKTI and a DAT_FORM: a sentence for each row whose number
/// of fields is not that of the layout, or that holds a text where a number belongs. `document` says what the rows are.
std::vector<std::string> packedFaults(std::string_view layoutCode, std::string_view document, const RecordsetPtr& rows);
/// The same for the documents of a form in a return, or for those of a number.
std::vector<std::string> packedFaults(const store::FormCodes& form, const Period& period, std::string_view number = {});

/// Those of all slips and self-paid forms of a return.
std::vector<std::string> documentFaults(const Period& period);

/// What follows for whoever reads what is shown of damaged rows.
inline constexpr const char* wrongFigures = "What is shown of it is not right.";

/// Fails with the faults and what follows from them, if there are any.
void requireWhole(const std::vector<std::string>& faults, const std::string& consequence);

}  // namespace tarvola::cli
