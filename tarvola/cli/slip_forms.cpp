#include "tarvola/cli/slip_forms.h"

#include <algorithm>

#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/store/statement.h"

namespace tarvola::cli {

namespace {

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// What a suffix may hold: what a printed number has, and nothing that could end a field or a text.
bool isSuffix(std::string_view text) noexcept {
  const auto isPlain = [](char c) {
    return isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '/' || c == '-' || c == '.';
  };
  return text.empty() || (text.size() > 1 && text.front() == '/' && std::all_of(text.begin(), text.end(), isPlain));
}

}  // namespace

const SlipForm& requireSlipForm(std::string_view codeOrWord) {
  std::string known;
  for (const SlipForm& form : slipForms) {
    if (equalsIgnoreCase(form.codes.kdForm, codeOrWord) || equalsIgnoreCase(form.word, codeOrWord)) return form;
    known.append(known.empty() ? "" : ", ").append(form.codes.kdForm).append(" (").append(form.word).append(")");
  }
  if (codeOrWord.empty()) throw CommandFailure("No form is named.\nName one with --form: " + known + ".", Usage);
  throw CommandFailure("There is no slip form \"" + std::string(codeOrWord) + "\".\nThere are: " + known + ".", Usage);
}

const SlipForm& formOfSlip(std::string_view number, const Period& period) {
  requireSlipNumber(number);
  CGeneralClass general;
  const RecordsetPtr rows =
      general.pGetRecordDbase((store::Statement("SELECT KD_FORM FROM DS_FORM_INDUK WHERE NOBUKTI = ")
                               << store::text(number) << " AND KD_JENIS_PAJAK = " << store::text(store::taxKind)
                               << " AND " << store::periodCondition(storePeriod(period)) << " ORDER BY KD_FORM")
                                  .str());
  std::vector<std::string> holders;
  for (; rows != nullptr && !rows->get_EOF(); rows->MoveNext()) holders.push_back(CStr(rows->get_Collect("KD_FORM")));
  if (holders.size() == 1) return requireSlipForm(holders.front());
  if (holders.empty())
    throw CommandFailure("There is no slip " + std::string(number) + " in the return " + period.text() +
                         ".\nSee its slips with: tarvola slip list");
  std::string all;
  for (const std::string& holder : holders) all += (all.empty() ? "" : ", ") + holder;
  throw CommandFailure("The number " + std::string(number) + " is held by several slips: " + all +
                       ".\nName the form with --form.");
}

void requireSlipNumber(std::string_view number) {
  const std::string_view digits = number.substr(0, 6);
  if (digits.size() == 6 && std::all_of(digits.begin(), digits.end(), isDigit) && isSuffix(number.substr(6))) return;
  throw CommandFailure(
      "\"" + std::string(number) + "\" is no slip number.\nWrite six digits and the suffix, as in 000123/PPH4.", Usage);
}

}  // namespace tarvola::cli
