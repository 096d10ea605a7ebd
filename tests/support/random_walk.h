#pragma once

#include <cstdlib>
#include <random>

namespace tarvola::test {

using Random = std::mt19937;

/// A seed for a random walk: that of TARVOLA_SEED, else one of chance. A walk prints it when it fails.
inline unsigned seedOfThisRun() {
  const char* given = std::getenv("TARVOLA_SEED");
  return given != nullptr ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device{}();
}

}  // namespace tarvola::test
