#pragma once

#include <string>
#include <vector>

namespace tarvola::bench {

/// Notes every statement that any SQLite handle of this process runs while it lives, with its values in place. Only
/// handles opened while a trace lives are heard.
class StatementTrace {
 public:
  StatementTrace();
  ~StatementTrace();
  StatementTrace(const StatementTrace&) = delete;
  StatementTrace& operator=(const StatementTrace&) = delete;

  /// The statements since the last call that read or write the store's tables.
  std::vector<std::string> take();
};

}  // namespace tarvola::bench
