#include "tarvola/cli/damage.h"

#include <algorithm>

#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/selfpaid_editor.h"
#include "tarvola/cli/slip_forms.h"

namespace tarvola::cli {

namespace {

/// The fields of a main form that was just made and not yet saved; a saved one has all of its layout.
constexpr std::size_t freshMainFormFields = 88;

bool isNumber(const store::LayoutPosition& position) {
  if (position.fields.size() != 1) return false;
  const store::FieldType type = position.fields.front().type;
  return type == store::FieldType::Integer || type == store::FieldType::Double;
}

bool isCount(const store::FormLayout& layout, std::size_t count) {
  if (equalsIgnoreCase(layout.code, store::F113204.kdForm) && count == freshMainFormFields) return true;
  return count >= layout.positions.size() && count <= layout.positions.size() + layout.extras.size();
}

/// "has 8 fields where 37 are expected", "" for a text that can be read.
std::string faultOf(const store::FormLayout& layout, std::string_view packed) {
  const auto count = static_cast<std::size_t>(std::count(packed.begin(), packed.end(), ';')) + 1;
  if (!isCount(layout, count))
    return "has " + std::to_string(count) + " fields where " + std::to_string(layout.positions.size()) +
           " are expected";
  for (const store::LayoutPosition& position : layout.positions) {
    const std::string_view field = packed.substr(0, packed.find(';'));
    if (!field.empty() && isNumber(position) && !tryNumber(field))
      return "holds \"" + std::string(field) + "\" in " + std::string(position.fields.front().name) +
             ", which is no number";
    packed.remove_prefix(std::min(field.size() + 1, packed.size()));
  }
  return "";
}

std::string nameOf(std::string_view document, const std::string& number) {
  return std::string(document) + (number == store::headerNumber ? "" : " " + number);
}

}  // namespace

std::vector<std::string> packedFaults(std::string_view layoutCode, std::string_view document,
                                      const RecordsetPtr& rows) {
  const store::FormLayout& layout = *store::findLayout(layoutCode);
  std::vector<std::string> faults;
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const std::string fault = faultOf(layout, fieldText(rows, "DAT_FORM"));
    if (!fault.empty()) faults.push_back(nameOf(document, fieldText(rows, "NOBUKTI")) + " " + fault);
  }
  return faults;
}

std::vector<std::string> packedFaults(const store::FormCodes& form, const Period& period, std::string_view number) {
  return packedFaults(form.kdForm, form.kdForm, storedDocuments(form, period, number));
}

std::vector<std::string> documentFaults(const Period& period) {
  std::vector<std::string> all;
  const auto add = [&](const store::FormCodes& form) {
    const std::vector<std::string> faults = packedFaults(form, period);
    all.insert(all.end(), faults.begin(), faults.end());
  };
  for (const SlipForm& form : slipForms) add(form.codes);
  for (const SelfPaidForm& form : selfPaidForms()) add(form.codes);
  return all;
}

void requireWhole(const std::vector<std::string>& faults, const std::string& consequence) {
  constexpr std::size_t most = 5;
  if (faults.empty()) return;
  std::string all;
  for (std::size_t i = 0; i < faults.size() && i < most; ++i) all += faults[i] + ".\n";
  if (faults.size() > most) all += "... and " + rupiah(static_cast<double>(faults.size() - most)) + " more.\n";
  throw CommandFailure(all + consequence + " See what is wrong with: tarvola return check");
}

}  // namespace tarvola::cli
