#pragma once

#include <string>
#include <string_view>

namespace tarvola::ado::sql {

/// Puts a LIKE pattern of the dialect into the words of GLOB.
///
/// The dialect has % for any text, _ for any character and sets in [ ], with [!a-c] for all others, and ignores the
/// case of letters. GLOB has * and ? and sets, and minds it: so each letter becomes a set of its two forms.
std::string globPattern(std::string_view pattern);

}  // namespace tarvola::ado::sql
