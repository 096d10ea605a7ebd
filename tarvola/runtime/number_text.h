#pragma once

#include <array>

namespace tarvola {

/// Room for any number that writeNumber writes.
using NumberBuffer = std::array<char, 48>;

/// Writes a number as CStr does, with a decimal sign of the caller's choice. Gives the end of the text.
char* writeNumber(char* to, double value, char decimalSign);

}  // namespace tarvola
