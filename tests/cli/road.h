#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tarvola::test {

/// A road through the tool, as a person can read it: commands behind "$ " and, under each, what it prints. Standard
/// output and standard error stand together; an exit code other than 0 closes them as "[exit 1]". Lines that start with
/// "#" explain.
///
/// Beside "tarvola ..." a road knows "cat FILE" (shown as UTF-8), "sql STATEMENT" (rows of the store that was used
/// last, fields joined by "|"), "write FILE TEXT" (with \r, \n, \\ and \xHH), "append FILE TEXT", "folder NAME" and
/// "export NAME=VALUE". "answer TEXT" is what a person types at the next command, a line for each \n; "width N" makes
/// the output of the next command a terminal of so many columns.
struct Step {
  std::string command;
  std::string expected;
  int line = 0;
};

std::vector<Step> readRoad(const std::string& path);

/// Somebody who walks a road in the current folder.
class Walker {
 public:
  Walker() = default;
  ~Walker();
  Walker(const Walker&) = delete;
  Walker& operator=(const Walker&) = delete;

  /// Runs one command and gives what it prints.
  std::string run(const std::string& command);

 private:
  std::string runTool(std::vector<std::string> words);
  void setVariable(const std::string& assignment);

  std::optional<std::string> answers_;
  std::size_t width_ = 0;
  std::vector<std::string> variables_;
};

}  // namespace tarvola::test
