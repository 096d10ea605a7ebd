#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarvola::cli {

/// Which of the known words somebody meant who typed another: one that begins with it, else the one that the fewest
/// slips of the fingers make of it (a letter more, less, wrong, or two swapped). "" if none is near.
std::string nearestWord(std::string_view typed, std::span<const std::string> known);

/// "\nDid you mean WORD?" for that word; "" if none is near.
std::string didYouMean(std::string_view typed, std::span<const std::string> known);

}  // namespace tarvola::cli
