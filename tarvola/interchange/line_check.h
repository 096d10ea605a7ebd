#pragma once

#include <string>

#include "tarvola/interchange/import_forms.h"
#include "tarvola/interchange/import_line.h"
#include "tarvola/store/document_key.h"

namespace tarvola::interchange {

/// What is wrong with a line, "" if nothing: whatever would make a statement of its import fail half way, and whatever
/// would go in but make a figure wrong in silence. A line that passes can be written from its first row to its last.
std::string faultOf(const ImportLine& line, const store::Period& wanted);

}  // namespace tarvola::interchange
