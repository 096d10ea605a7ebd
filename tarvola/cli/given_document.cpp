#include "tarvola/cli/given_document.h"

#include <algorithm>

#include "tarvola/cli/failure.h"

namespace tarvola::cli {

namespace {

std::string textMember(const nlohmann::ordered_json& value, const std::string& name) {
  if (!value.is_string()) throw CommandFailure("\"" + name + "\" must be a text.\nPut it in quotes.", Usage);
  return value.get<std::string>();
}

void takeMember(GivenDocument& given, const std::string& name, const nlohmann::ordered_json& value,
                const GivenNames& names) {
  if (name == "form")
    given.form = textMember(value, name);
  else if (name == names.number)
    given.number = textMember(value, name);
  else if (name == "date")
    given.date = textMember(value, name);
  else if (name == "fields" && value.is_object())
    given.fields.update(value);
  else if (std::find(names.others.begin(), names.others.end(), name) == names.others.end())
    given.fields[name] = value;
}

}  // namespace

GivenDocument readGivenFile(const std::string& path, const GivenNames& names) {
  GivenDocument given;
  if (path.empty()) return given;
  const nlohmann::ordered_json object = readJsonObject(path);
  for (const auto& [name, value] : object.items()) takeMember(given, name, value, names);
  return given;
}

}  // namespace tarvola::cli
