#pragma once

#include <string>
#include <vector>

namespace tarvola::bench {

/// A statement that ran.
struct NotedStatement {
  /// As it was prepared, with parameters.
  std::string text;
  /// With the values of the parameters in their places.
  std::string withValues;
};

/// Notes every statement that any SQLite handle of this process runs while it lives, with its values. Only handles
/// opened while a trace lives are heard.
class StatementTrace {
 public:
  StatementTrace();
  ~StatementTrace();
  StatementTrace(const StatementTrace&) = delete;
  StatementTrace& operator=(const StatementTrace&) = delete;

  /// The statements since the last call that read or write the store's tables.
  std::vector<NotedStatement> take();
};

}  // namespace tarvola::bench
