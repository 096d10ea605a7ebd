#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/runtime/variant.h"

namespace tarvola::cli {

/// What a field of a form takes.
enum class InputKind {
  Text,
  Date,
  Amount,   ///< rupiah
  Percent,  ///< a tariff, 0 to 100
  Whole,    ///< an option or a number of days
};

/// A field that a person may fill in.
struct InputField {
  std::string name;
  InputKind kind = InputKind::Text;
  /// The words of the printed form.
  std::string label;
};

/// A value that was given for a field and passed all checks.
struct InputValue {
  std::string name;
  InputKind kind = InputKind::Text;
  Variant value;
};
using InputValues = std::vector<InputValue>;

/// Reads a value as a person types it: amounts as 1000000 or 1.000.000, tariffs as 2,5, dates as 31/01/2009. Fails with
/// what is wrong and how to write it. A text that no document can carry (";", apostrophe, line break) is refused.
Variant readInput(const InputField& field, std::string_view typed);
/// The same out of JSON, where numbers are numbers.
Variant readInput(const InputField& field, const nlohmann::json& value);

/// The field of a name, without regard to case. Fails with the fields that there are.
const InputField& requireField(const std::vector<InputField>& fields, std::string_view name);

/// Reads "NAME=VALUE" words; a name given twice is refused.
InputValues readAssignments(const std::vector<InputField>& fields, const std::vector<std::string>& words);
/// Reads the members of a JSON object.
InputValues readMembers(const std::vector<InputField>& fields, const nlohmann::ordered_json& object);
/// The values of both; what is assigned on the command line replaces what the file says.
InputValues merged(InputValues fromFile, const InputValues& assigned);

/// The value of a name, nullptr if it was not given.
const InputValue* findValue(const InputValues& values, std::string_view name);

/// Fails if a tax is more than the gross that it is taken from: a digit too few or too many, which can make a rate that
/// the return cannot hold. A tax without a gross passes.
void requirePlausibleTax(std::string_view field, double grossRupiah, double taxRupiah);

/// The whole content of a JSON file, which must be one object.
nlohmann::ordered_json readJsonObject(const std::string& path);

/// A date text, checked: the day as DD/MM/YYYY.
std::string readDate(std::string_view what, std::string_view typed);

}  // namespace tarvola::cli
