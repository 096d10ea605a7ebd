#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "bench/roads/bare_store.h"
#include "bench/roads/statement_trace.h"

namespace tarvola::bench {

/// Noted statements, to be run again in their order on a bare handle: each text prepared once, the values bound, every
/// row stepped and read. Each statement commits by itself, as it did.
class StatementReplay {
 public:
  /// Prepares the statements on a store and takes their values apart; nothing of that belongs to the floor.
  StatementReplay(const std::string& path, const std::vector<NotedStatement>& statements);

  void run();
  /// Closes the store; nothing can be run any more.
  void close();

 private:
  struct Step {
    std::size_t statement;
    std::vector<OwnedValue> owned;
    std::vector<BareValue> values;
  };

  BareStore store_;
  std::vector<BareStatement> prepared_;
  std::vector<Step> steps_;
};

}  // namespace tarvola::bench
