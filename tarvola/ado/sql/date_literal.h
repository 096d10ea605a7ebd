#pragma once

#include <string_view>

#include "tarvola/runtime/date.h"

namespace tarvola::ado::sql {

/// The date of a literal, what stands between its signs: #...#.
///
/// Slashed forms are read month first where that is possible, else day first, whatever the regional settings:
/// #03/04/2026# is 4 March, #13/04/2026# is 13 April. A year in front leaves no doubt: #2026-04-13#.
/// Not readable: error -2147217900 "Syntax error in date in query expression '#...#'."
Date dateOfLiteral(std::string_view text);

}  // namespace tarvola::ado::sql
