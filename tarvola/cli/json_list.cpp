#include "tarvola/cli/json_list.h"

#include <ostream>
#include <string>

#include "tarvola/cli/documents.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::cli {

namespace {

/// The members of an object as they stand between its braces, each on a line of its own; "" for none.
std::string membersOf(const JsonList::Json& object) {
  if (object.empty()) return "";
  const std::string text = jsonText(object);
  constexpr std::size_t brace = 1;
  constexpr std::size_t lineEndAndBrace = 2;
  return text.substr(brace, text.size() - brace - lineEndAndBrace);
}

}  // namespace

JsonList::JsonList(std::ostream& out, const Json& before, std::string_view name) : out_(out) {
  const std::string members = membersOf(before);
  out_ << '{' << members << (members.empty() ? "" : ",") << "\n  " << jsonText(name) << ": [";
}

void JsonList::add(const Json& row) {
  // A line break inside a text is escaped, so those that are left are between the members.
  out_ << (isEmpty_ ? "" : ",") << "\n    " << Replace(jsonText(row), "\n", "\n    ");
  isEmpty_ = false;
}

void JsonList::end(const Json& after) {
  const std::string members = membersOf(after);
  out_ << (isEmpty_ ? "]" : "\n  ]") << (members.empty() ? "" : ",") << members << "\n}\n";
}

}  // namespace tarvola::cli
