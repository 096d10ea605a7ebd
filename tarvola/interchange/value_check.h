#pragma once

#include <string>
#include <string_view>

/// What is wrong with a value of a line, as a person reads it; "" if nothing is.
namespace tarvola::interchange {

/// Of an amount or a rate: no number, thousands parted in the wrong place, or more digits than are kept exactly.
std::string faultOfNumber(std::string_view value);
/// Of a text: an apostrophe or a NUL character, which no statement takes.
std::string faultOfText(std::string_view value);

}  // namespace tarvola::interchange
