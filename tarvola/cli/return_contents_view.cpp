#include "tarvola/cli/return_contents_view.h"

#include "tarvola/cli/documents.h"

namespace tarvola::cli {

std::string inWords(const store::ReturnContents& contents) {
  std::string words = counted(contents.slips, "slip", "slips") + ", " +
                      counted(contents.selfPaidForms, "self-paid form", "self-paid forms");
  if (contents.interestPayees > 0)
    words += ", " + counted(contents.interestPayees, "payee of interest", "payees of interest");
  return words;
}

nlohmann::ordered_json asJson(const store::ReturnContents& contents) {
  return {{"mainForms", contents.mainForms},
          {"listHeaders", contents.listHeaders},
          {"slips", contents.slips},
          {"selfPaidForms", contents.selfPaidForms},
          {"listRows", contents.listRows},
          {"selfPaidListRows", contents.selfPaidListRows},
          {"interestPayees", contents.interestPayees}};
}

}  // namespace tarvola::cli
