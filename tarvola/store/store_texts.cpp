#include "tarvola/store/store_texts.h"

namespace tarvola::store {

std::string separatorInFieldText(std::string_view field) {
  std::string result = "Field '";
  result += field;
  return result += "' holds ';', which parts the fields of a document. The document was not written.";
}

std::string unknownFormText(std::string_view formCode) {
  std::string result = "Form '";
  result += formCode;
  return result += "' is not known.";
}

std::string noNamedFieldsText() { return "The recordset does not hold the named fields of a form."; }

std::string unknownReturnKindText(std::string_view kdJenisPajak) {
  std::string result = "No return has the tax kind '";
  result += kdJenisPajak;
  return result += "'. Nothing was removed.";
}

}  // namespace tarvola::store
