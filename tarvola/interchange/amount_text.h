#pragma once

#include <string_view>

namespace tarvola::interchange {

/// The number that a column of a file says.
///
/// It reads as every number under the regional settings, with one exception. A sign of the thousands that parts no
/// group of three is the decimal sign: 100000.75 is no ten million, and 1234.56 no 123456. Files from elsewhere have a
/// decimal point, and read as a sign of the thousands it would make the figure a hundred times too large, without a
/// word. No number: error 13.
double amountOf(std::string_view text);

}  // namespace tarvola::interchange
