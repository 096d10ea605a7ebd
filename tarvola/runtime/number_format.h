#pragma once

#include <string>
#include <string_view>

namespace tarvola {

/// A number by a pattern of 0 # . , % literals and sections.
std::string formatNumber(double value, std::string_view pattern);

/// What the pattern's fourth section prints for Null; "" without one.
std::string formatNull(std::string_view pattern);

}  // namespace tarvola
