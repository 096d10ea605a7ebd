#pragma once

#include <string>
#include <string_view>

namespace tarvola::ado::engine::sqlite {

/// A name of a table or column in the engine's own quotes.
inline std::string quoted(std::string_view name) {
  std::string result = "\"";
  for (const char letter : name) {
    if (letter == '"') result += '"';
    result += letter;
  }
  return result + '"';
}

}  // namespace tarvola::ado::engine::sqlite
