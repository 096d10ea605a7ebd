#pragma once

#include <string>
#include <string_view>

namespace tarvola::store {

// What a person reads when a packed text cannot be made or read. All go with error 5.

/// A value holds ";", which parts the fields of a packed text: "Field 'NmWP' holds ';', ...".
std::string separatorInFieldText(std::string_view field);
/// No layout is known for a form code.
std::string unknownFormText(std::string_view formCode);
/// A recordset that did not come from ExpandDatForm is to be packed.
std::string noNamedFieldsText();

}  // namespace tarvola::store
