#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/interchange/exchange_layout.h"
#include "tarvola/runtime/text_file.h"

namespace tarvola::interchange {

/// How the bytes of a file stand for letters.
enum class FileEncoding : std::uint8_t { Ansi, Utf8 };

inline constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
/// Longer lines are not cut into columns: no record fills a hundredth of this.
inline constexpr std::size_t longestLineBytes = 65'535;

/// Reads the data lines of an exchange file in constant memory, passing over header and blank lines.
///
/// A file that begins with the UTF-8 mark is UTF-8, any other ANSI. A header with more titles than the layout has
/// columns is that of a reject file: the last column of its lines, if it is beyond those, is a reason and is dropped.
class ExchangeFileReader {
 public:
  /// Fails with error 321 for a file that is empty, UTF-16, or begins with neither header nor data line.
  ExchangeFileReader(const std::string& path, const ExchangeLayout& layout);

  /// Goes to the next data line. False at the end.
  bool next();

  /// The line's number in the file, from 1.
  [[nodiscard]] std::uint64_t lineNumber() const noexcept { return lineNumber_; }
  /// The line's bytes, without line end and reason.
  [[nodiscard]] std::string_view bytes() const noexcept { return bytes_; }
  /// The columns in UTF-8. A line that is too long or broken has none.
  [[nodiscard]] const std::vector<std::string_view>& columns() const noexcept { return columns_; }
  /// Whether the bytes are no text of the file's encoding.
  [[nodiscard]] bool isBroken() const noexcept { return isBroken_; }
  [[nodiscard]] bool isTooLong() const noexcept { return bytes_.size() > longestLineBytes; }
  /// Whether an ANSI line holds letters beyond ASCII that all read as UTF-8.
  [[nodiscard]] bool isLikeUtf8() const noexcept { return isLikeUtf8_; }

  [[nodiscard]] FileEncoding encoding() const noexcept { return encoding_; }
  [[nodiscard]] std::uint64_t bytesRead() const noexcept { return lines_.bytesRead(); }
  [[nodiscard]] std::uint64_t bytesTotal() const noexcept { return lines_.bytesTotal(); }

 private:
  bool readLine();
  void takeFirstLine(const std::string& path);
  void cut();
  void decode();
  [[nodiscard]] bool isHeader() const;

  const ExchangeLayout& layout_;
  LineReader lines_;
  FileEncoding encoding_ = FileEncoding::Ansi;
  bool hasReasons_ = false;
  bool isFirstTaken_ = false;
  std::uint64_t lineNumber_ = 0;
  std::string_view bytes_;
  std::string text_;
  std::vector<std::string_view> columns_;
  bool isBroken_ = false;
  bool isLikeUtf8_ = false;
};

}  // namespace tarvola::interchange
