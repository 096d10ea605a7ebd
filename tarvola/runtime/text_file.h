#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvola {

/// A text file being written: ANSI code page, lines closed by CR LF.
class TextFile {
 public:
  /// Makes the file, replacing one of that name. A folder that does not exist is error 76 "Path not found"; a file that
  /// may not be written 70 "Permission denied".
  static TextFile create(const std::string& path);
  /// The same where the file of that name is the caller's own: it is deleted first, which spares the system from
  /// bringing to the disk what nobody will read. A link, a file with a second name or a device is emptied.
  static TextFile createAnew(const std::string& path);

  TextFile(TextFile&&) noexcept;
  TextFile& operator=(TextFile&&) noexcept;
  /// Closes without a word; a caller that must know calls Close.
  ~TextFile();

  /// Appends the text and CR LF. A full disk is error 61 "Disk full".
  void WriteLine(std::string_view text);
  /// Appends bytes that are of the code page already, as they are and without a line end. Fails likewise.
  void WriteBytes(std::string_view bytes);
  /// Hands everything to the system. Fails if a write or the close failed.
  void Close();

 private:
  struct State;
  explicit TextFile(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

/// The bytes of a file. Missing is error 53 "File not found", a missing folder 76, unreadable 70.
std::string readFile(const std::string& path);

/// Reads a file line by line in constant memory. A line ends at CR LF, LF or the end of the file; the
/// line end is not part of the line.
class LineReader {
 public:
  static LineReader open(const std::string& path);
  LineReader(LineReader&&) noexcept;
  LineReader& operator=(LineReader&&) noexcept;
  ~LineReader();

  /// The next line as raw bytes, valid until the next call. False at the end.
  bool next(std::string_view& line);
  /// Bytes handed out so far, for progress; and those of the whole file.
  [[nodiscard]] std::uint64_t bytesRead() const noexcept;
  [[nodiscard]] std::uint64_t bytesTotal() const noexcept;

 private:
  struct State;
  explicit LineReader(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace tarvola
