#pragma once

#include <stdexcept>
#include <string>

namespace tarvola::cli {

/// What a command returns to the shell.
enum ExitCode : int {
  Done = 0,
  Failed = 1,   ///< the work could not be done; standard error says why and how to mend it
  Usage = 2,    ///< the command line is wrong
  Refused = 3,  ///< the work was done but for some lines that were refused and written aside
};

/// Ends a command: what is wrong, and behind a line break what to do about it.
class CommandFailure : public std::runtime_error {
 public:
  explicit CommandFailure(const std::string& message, ExitCode code = Failed)
      : std::runtime_error(message), code_(code) {}
  [[nodiscard]] ExitCode code() const noexcept { return code_; }

 private:
  ExitCode code_;
};

}  // namespace tarvola::cli
