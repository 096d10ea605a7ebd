#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvola {

/// What a rebuilding has to tell.
struct RebuildOutcome {
  /// Messages of what failed; if there are any, the return does not agree with its documents yet.
  std::vector<std::string> failures;
  /// Amounts of the documents that the main form does not show, by its own rules. The return is as it has to be, and a
  /// person should look.
  std::vector<std::string> warnings;
};

/// Rebuilds a return from its documents: makes the headers that are missing, sums the interest lines, recounts the main
/// form and the sums of all lists. Run twice it gives the same figures as once.
///
/// The thread's connection settings must have been given to pSetCon, and the store must name its filer. Messages that
/// the steps show are collected here instead. Rebuildings and imports of several processes wait for one another. Fails
/// with a RunTimeError if the store cannot be read.
RebuildOutcome rebuildReturn(std::int16_t month, std::int16_t year, std::int16_t correction);

}  // namespace tarvola
