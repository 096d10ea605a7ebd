#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace tarvola::interchange {

/// Takes a text line by line; a line comes without its end.
using LineSink = std::function<void(std::string_view line)>;

/// Bytes as Base64 in lines of 64 characters. A last line that is exactly full is followed by no empty one.
class Base64Lines {
 public:
  explicit Base64Lines(const LineSink& sink) : sink_(sink) {}
  void add(std::string_view bytes);
  /// Hands out what is left, filled up with "=".
  void finish();

 private:
  void writeLine(std::string_view bytes);

  const LineSink& sink_;
  std::string pending_;
  std::string line_;
};

/// What Base64 stands for, as far as it could be read.
struct Base64Bytes {
  std::string bytes;
  /// False if the text holds a character that does not belong there; the bytes end before it.
  bool isWhole = true;
};

/// Reads Base64 whose lines may end anywhere, or nowhere. White space counts for nothing; "=" at the end may be
/// missing.
Base64Bytes readBase64(std::string_view text);

}  // namespace tarvola::interchange
