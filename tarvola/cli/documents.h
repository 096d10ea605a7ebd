#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/tarvola.h"

/// What the store of the connected thread holds of a return.
namespace tarvola::cli {

store::Period storePeriod(const Period& period) noexcept;

bool returnExists(const Period& period);
/// Fails unless the return is there.
void requireReturn(const Period& period);
/// Fails unless the list of a code has its header in the return; a document that is saved without it would be lost from
/// the list.
void requireHeader(const Period& period, const store::FormCodes& list);

/// The documents of a form in a return, or those of a number, as they are stored.
RecordsetPtr storedDocuments(const store::FormCodes& form, const Period& period, std::string_view number = {});
/// The same as named fields.
RecordsetPtr expandedDocuments(const store::FormCodes& form, const Period& period, std::string_view number = {});

/// The value of a field as text; "" for Null.
std::string fieldText(const RecordsetPtr& row, std::string_view name);
/// The value of a field as number; 0 for Null and for a text that is no number.
double fieldNumber(const RecordsetPtr& row, std::string_view name);

/// "SPT Normal" or "SPT Pembetulan Ke-1".
std::string kindOf(const Period& period);

/// "#,##0" under the regional settings.
std::string rupiah(double value);
/// "1 slip", "2 slips".
template <class Count>
std::string counted(Count count, const char* one, const char* many) {
  return rupiah(static_cast<double>(count)) + ' ' + (count == 1 ? one : many);
}
/// A number for JSON: whole ones without a decimal point.
nlohmann::ordered_json jsonNumber(double value);
/// A value as it is printed. A text may be the name of a file or out of a damaged store: bytes that are no UTF-8 show
/// as U+FFFD, since whatever is printed must be JSON, and the work is done by then.
std::string jsonText(const nlohmann::ordered_json& value);
/// A field of a CSV line: in quotes where it holds what would break the line.
std::string csvField(const std::string& text);

}  // namespace tarvola::cli
