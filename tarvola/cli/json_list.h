#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string_view>

namespace tarvola::cli {

/// Prints a JSON object that holds a list, row by row as they come: the text of a whole object takes many times the
/// room of its rows. What comes out is what the object as a whole would be with an indent of two.
class JsonList {
 public:
  using Json = nlohmann::ordered_json;

  /// The members in front of the list, and its name.
  JsonList(std::ostream& out, const Json& before, std::string_view name);

  void add(const Json& row);
  /// Ends the list and the object, with the members behind the list.
  void end(const Json& after = Json::object());

 private:
  std::ostream& out_;
  bool isEmpty_ = true;
};

}  // namespace tarvola::cli
