#include "tarvola/cli/suggestion.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tarvola::cli {

namespace {

std::string_view withoutDashes(std::string_view word) {
  return word.substr(std::min(word.find_first_not_of('-'), word.size()));
}

/// How many letters were added, left out, mistaken or swapped with their neighbour.
std::size_t slipsBetween(std::string_view typed, std::string_view meant) {
  std::vector<std::vector<std::size_t>> slips(typed.size() + 1, std::vector<std::size_t>(meant.size() + 1));
  for (std::size_t i = 0; i <= typed.size(); ++i) slips[i][0] = i;
  for (std::size_t j = 0; j <= meant.size(); ++j) slips[0][j] = j;
  for (std::size_t i = 1; i <= typed.size(); ++i)
    for (std::size_t j = 1; j <= meant.size(); ++j) {
      const std::size_t mistaken = slips[i - 1][j - 1] + (typed[i - 1] == meant[j - 1] ? 0 : 1);
      slips[i][j] = std::min({slips[i - 1][j] + 1, slips[i][j - 1] + 1, mistaken});
      if (i > 1 && j > 1 && typed[i - 1] == meant[j - 2] && typed[i - 2] == meant[j - 1])
        slips[i][j] = std::min(slips[i][j], slips[i - 2][j - 2] + 1);
    }
  return slips[typed.size()][meant.size()];
}

/// Whoever mistypes more of a word than this meant another one.
constexpr std::size_t lettersForOneSlip = 3;

}  // namespace

std::string nearestWord(std::string_view typed, std::span<const std::string> known) {
  const std::string_view word = withoutDashes(typed);
  const std::string* nearest = nullptr;
  std::size_t fewest = std::max<std::size_t>(1, word.size() / lettersForOneSlip) + 1;
  for (const std::string& each : known) {
    const std::string_view candidate = withoutDashes(each);
    // A single letter is near to every other one.
    if (word.size() < 2 || candidate.size() < 2) continue;
    const std::size_t slips = candidate.starts_with(word) ? 0 : slipsBetween(word, candidate);
    if (slips >= fewest) continue;
    fewest = slips;
    nearest = &each;
  }
  return nearest == nullptr ? "" : *nearest;
}

std::string didYouMean(std::string_view typed, std::span<const std::string> known) {
  const std::string nearest = nearestWord(typed, known);
  return nearest.empty() ? "" : "\nDid you mean " + nearest + "?";
}

}  // namespace tarvola::cli
