#pragma once

#include <string>
#include <string_view>

namespace tarvola::ado::sql {

/// The other form of a letter of the ANSI code page ("a" of "A", "É" of "é"), "" for any other character.
std::string_view otherCase(std::string_view character) noexcept;

/// The text in capitals, for the letters of the ANSI code page.
std::string upperCase(std::string_view text);

/// The first character of a text that is not empty, as its bytes of UTF-8; a broken byte stands for itself.
std::string_view firstCharacter(std::string_view text) noexcept;

}  // namespace tarvola::ado::sql
