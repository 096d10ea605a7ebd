#pragma once

#include <array>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "tarvola/cli/input_values.h"

namespace tarvola::cli {

/// What a JSON file says of a document beside its fields.
struct GivenNames {
  /// The member that holds the document's number.
  std::string_view number;
  /// Members that the tool prints with a document and that say nothing new.
  std::array<std::string_view, 5> others;
};

/// A document as it was given: in a file, by options, or by answers.
struct GivenDocument {
  std::string form;
  std::string number;
  std::string date;
  /// The fields of the file, not yet read: which fields there are depends on the form.
  nlohmann::ordered_json fields = nlohmann::ordered_json::object();
  InputValues values;
};

/// Reads a file with an object of form, number, date and fields. The fields may also stand at the top, without
/// "fields". An empty path gives an empty document.
GivenDocument readGivenFile(const std::string& path, const GivenNames& names);

}  // namespace tarvola::cli
