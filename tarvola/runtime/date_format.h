#pragma once

#include <string>
#include <string_view>

#include "tarvola/runtime/date.h"

namespace tarvola {

/// A date by a pattern of d m y h n s q w letters, of any case. "/" and ":" print the settings' own separators.
std::string formatDatePattern(Date value, std::string_view pattern);

}  // namespace tarvola
