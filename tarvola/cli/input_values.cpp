#include "tarvola/cli/input_values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "tarvola/cli/failure.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

/// Amounts are kept with 15 significant digits; from here on the last rupiah could be lost.
constexpr double tooLarge = 1e15;

[[noreturn]] void refuse(const std::string& field, const std::string& fault, const std::string& remedy) {
  throw CommandFailure(field + ": " + fault + "\n" + remedy, Usage);
}

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }
bool areDigits(std::string_view text) { return !text.empty() && std::all_of(text.begin(), text.end(), isDigit); }

/// "1000000" or "1.000.000": points stand only where they part thousands, so that "2.5" is no 25.
bool isWholePart(std::string_view text) {
  const std::size_t first = text.find('.');
  if (first == std::string_view::npos) return areDigits(text);
  if (first > 3 || !areDigits(text.substr(0, first))) return false;
  for (std::string_view rest = text.substr(first); !rest.empty(); rest.remove_prefix(4))
    if (rest.size() < 4 || rest[0] != '.' || !areDigits(rest.substr(1, 3))) return false;
  return true;
}

std::optional<double> plainNumber(std::string_view text) {
  std::string_view digits = text;
  if (!digits.empty() && digits.front() == '-') digits.remove_prefix(1);
  const std::size_t comma = digits.find(',');
  if (!isWholePart(digits.substr(0, comma))) return std::nullopt;
  if (comma != std::string_view::npos && !areDigits(digits.substr(comma + 1))) return std::nullopt;
  return tryNumber(text);
}

std::string inQuotes(std::string_view text) { return '"' + std::string(text) + '"'; }

Variant checkedAmount(const InputField& field, double value) {
  if (!std::isfinite(value) || std::fabs(value) >= tooLarge)
    refuse(field.name, "the amount has more than 15 digits.", "Amounts are whole rupiah below 1.000.000.000.000.000.");
  return value;
}

Variant checkedPercent(const InputField& field, double value) {
  if (!std::isfinite(value) || value < 0 || value > 100)
    refuse(field.name, numberLiteral(value) + " is no tariff.", "Tariffs are percentages from 0 to 100.");
  return value;
}

Variant checkedWhole(const InputField& field, double value) {
  if (!std::isfinite(value) || value != std::floor(value) || value < 0 || value > 32767)
    refuse(field.name, numberLiteral(value) + " is not a whole number from 0 to 32767.",
           "Options are 0, 1 or 2; periods are days.");
  return static_cast<std::int16_t>(value);
}

Variant checkedNumber(const InputField& field, double value) {
  switch (field.kind) {
    case InputKind::Percent:
      return checkedPercent(field, value);
    case InputKind::Whole:
      return checkedWhole(field, value);
    default:
      return checkedAmount(field, value);
  }
}

Variant checkedText(const InputField& field, std::string_view text) {
  const bool hasControl = std::any_of(text.begin(), text.end(), [](char c) { return c >= 0 && c < ' '; });
  if (hasControl || text.find_first_of(";'") != std::string_view::npos)
    refuse(field.name, "the text holds a semicolon, an apostrophe or a line break, which no document can carry.",
           "Write it without.");
  return std::string(Trim(text));
}

bool isNumeric(const InputField& field) { return field.kind != InputKind::Text && field.kind != InputKind::Date; }

}  // namespace

std::string readDate(std::string_view what, std::string_view typed) {
  // A date needs all three of its parts: "12/2009" would be read as the first of December.
  const bool whole =
      std::count(typed.begin(), typed.end(), '/') == 2 || std::count(typed.begin(), typed.end(), '-') == 2;
  const std::optional<Date> date = whole ? tryDate(typed) : std::nullopt;
  if (!date || date->hasTime()) refuse(std::string(what), inQuotes(typed) + " is no date.", "Write it as 31/01/2009.");
  return formatDate(*date);
}

Variant readInput(const InputField& field, std::string_view typed) {
  if (field.kind == InputKind::Text) return checkedText(field, typed);
  const std::string_view trimmed = Trim(typed);
  if (field.kind == InputKind::Date) return trimmed.empty() ? std::string() : readDate(field.name, trimmed);
  const std::optional<double> number = plainNumber(trimmed);
  if (!number)
    refuse(field.name, inQuotes(typed) + " is no number.",
           "Write amounts as 1000000 or 1.000.000, decimals behind a comma, as in 2,5.");
  return checkedNumber(field, *number);
}

Variant readInput(const InputField& field, const nlohmann::json& value) {
  if (value.is_string()) return readInput(field, std::string_view(value.get_ref<const std::string&>()));
  if (value.is_number() && isNumeric(field)) return checkedNumber(field, value.get<double>());
  refuse(field.name, value.dump() + (isNumeric(field) ? " is no number." : " is no text."),
         isNumeric(field) ? "Give a number." : "Give a text in quotes.");
}

const InputField& requireField(const std::vector<InputField>& fields, std::string_view name) {
  for (const InputField& field : fields)
    if (equalsIgnoreCase(field.name, name)) return field;
  if (equalsIgnoreCase(name, "NoBukti") || equalsIgnoreCase(name, "NTTP") || equalsIgnoreCase(name, "Tgl_Potong"))
    throw CommandFailure(std::string(name) + " is not set as a field.\nGive number and date as options of their own.",
                         Usage);
  std::string known;
  for (const InputField& field : fields) known += (known.empty() ? "" : ", ") + field.name;
  throw CommandFailure("The form has no field " + inQuotes(name) + " that can be set.\nIt has: " + known + ".", Usage);
}

const InputValue* findValue(const InputValues& values, std::string_view name) {
  const auto found = std::find_if(values.begin(), values.end(),
                                  [&](const InputValue& each) { return equalsIgnoreCase(each.name, name); });
  return found == values.end() ? nullptr : &*found;
}

namespace {

template <class Typed>
void addValue(InputValues& values, const std::vector<InputField>& fields, std::string_view name, const Typed& typed) {
  const InputField& field = requireField(fields, name);
  if (findValue(values, field.name) != nullptr)
    throw CommandFailure(field.name + " is given twice.\nGive each field once.", Usage);
  values.push_back({field.name, field.kind, readInput(field, typed)});
}

}  // namespace

InputValues readAssignments(const std::vector<InputField>& fields, const std::vector<std::string>& words) {
  InputValues values;
  for (const std::string& word : words) {
    const std::size_t sign = word.find('=');
    if (sign == std::string::npos || sign == 0)
      throw CommandFailure(inQuotes(word) + " sets no field.\nWrite --set FIELD=VALUE, as in --set B13=1000000.",
                           Usage);
    addValue(values, fields, Trim(std::string_view(word).substr(0, sign)), std::string_view(word).substr(sign + 1));
  }
  return values;
}

InputValues readMembers(const std::vector<InputField>& fields, const nlohmann::ordered_json& object) {
  InputValues values;
  for (const auto& [name, value] : object.items()) addValue(values, fields, name, nlohmann::json(value));
  return values;
}

InputValues merged(InputValues fromFile, const InputValues& assigned) {
  for (const InputValue& value : assigned) {
    const auto same = [&](const InputValue& each) { return equalsIgnoreCase(each.name, value.name); };
    fromFile.erase(std::remove_if(fromFile.begin(), fromFile.end(), same), fromFile.end());
    fromFile.push_back(value);
  }
  return fromFile;
}

void requirePlausibleTax(std::string_view field, double grossRupiah, double taxRupiah) {
  if (grossRupiah == 0 || std::fabs(taxRupiah) <= std::fabs(grossRupiah)) return;
  const auto rupiahText = [](double value) { return Format(value, "#,##0"); };
  refuse(std::string(field), "a tax of " + rupiahText(taxRupiah) + " on a gross of " + rupiahText(grossRupiah) + ".",
         "The tax is a part of the gross; see whether one of them has a digit too few or too many.");
}

nlohmann::ordered_json readJsonObject(const std::string& path) {
  try {
    nlohmann::ordered_json data = nlohmann::ordered_json::parse(readFile(path));
    if (data.is_object()) return data;
  } catch (const nlohmann::json::exception& failure) {
    throw CommandFailure(path + " is not JSON: " + failure.what());
  } catch (const RunTimeError& failure) {
    throw CommandFailure(path + ": " + failure.description());
  }
  throw CommandFailure(path + " must hold one JSON object.");
}

}  // namespace tarvola::cli
