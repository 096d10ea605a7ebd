#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/runtime/message_box.h"

namespace tarvola::cli {

/// Sends the library's progress to standard error while it lives, if that is a terminal: one line that is drawn anew,
/// for work that takes longer than a second. Whatever a command prints clears it first, and so does the end.
class ProgressLine {
 public:
  /// `out` and `err` are what the command prints to.
  ProgressLine(std::ostream& out, std::ostream& err);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

 private:
  class Drawing;
  std::unique_ptr<Drawing> drawing_;
};

/// Collects the library's messages while it lives. The library tells of a failure by a message alone, so a command asks
/// here whether its work was done.
class Messages {
 public:
  Messages();
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  /// Fails the command with the messages of failures that have come so far, if any.
  void throwIfAny() const;
  /// Fails the command with the informative messages (title "INFORMASI") that have come so far, if any, and with what
  /// to do about them: for work that tells of its failures alone.
  void throwIfNotified(const std::string& remedy) const;
  [[nodiscard]] const std::vector<std::string>& failures() const noexcept { return failures_; }

 private:
  std::vector<std::string> notices_;
  std::string noticeTitle_;
  std::vector<std::string> failures_;
  /// Gives the messages back to whoever collected them before.
  MessageBoxScope scope_;
};

/// A failure's text without the names in brackets that say which part of the system it comes from.
std::string withoutOrigin(std::string_view text);

}  // namespace tarvola::cli
