#pragma once

#include <string>
#include <string_view>

namespace tarvola::store {

// What a person reads when a packed text cannot be made or read, or a return is not known. All go with error 5.

/// A value holds ";", which parts the fields of a packed text: "Field 'NmWP' holds ';', ...".
std::string separatorInFieldText(std::string_view field);
/// No layout is known for a form code.
std::string unknownFormText(std::string_view formCode);
/// A recordset that did not come from ExpandDatForm is to be packed.
std::string noNamedFieldsText();
/// A return is to be removed of a tax kind that none of the returns has.
std::string unknownReturnKindText(std::string_view kdJenisPajak);

}  // namespace tarvola::store
