#pragma once

#include <string>
#include <string_view>

namespace tarvola::ado::engine {

/// What a connection text says about the source: "...;DSN=...;UID=...;PWD=...;". Keywords are found without regard to
/// case, the first of a name counts, blanks around both are cut. A value may stand in braces, which is how one
/// that holds ";" is written; a closing brace inside is doubled.
struct ConnectionText {
  std::string dsn;
  std::string user;
  std::string password;
};

ConnectionText readConnectionText(std::string_view text);

/// A value in braces, so that it may hold anything.
std::string quotedValue(std::string_view value);

}  // namespace tarvola::ado::engine
