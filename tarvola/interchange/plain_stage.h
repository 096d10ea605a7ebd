#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tarvola/interchange/zlib_codec.h"
#include "tarvola/runtime/text_file.h"

namespace tarvola::interchange {

/// The first stage of a reporting file while it is written. Each line goes into the file and, block by block, to the
/// compression of the second stage, which then need not read the file and never holds its text whole.
class PlainStage {
 public:
  /// Makes the file as TextFile does.
  explicit PlainStage(const std::string& path);
  /// What was written so far goes into the file, without a word; a caller that must know calls Close.
  ~PlainStage();
  PlainStage(const PlainStage&) = delete;
  PlainStage& operator=(const PlainStage&) = delete;

  /// Appends the text and CR LF to the file. Fails as TextFile does.
  void WriteLine(std::string_view text);
  /// Hands everything to the system. Fails if a write or the close failed.
  void Close();

  // --- of the closed file ---------------------------------------------------------------------------------
  [[nodiscard]] std::int64_t lengthBytes() const noexcept { return lengthBytes_; }
  /// Its bytes compressed; nothing if that failed. To be called once.
  std::optional<std::string> compressed() noexcept;

 private:
  void passOn();
  void compressBlock() noexcept;

  TextFile file_;
  /// Nothing once it failed.
  std::optional<Deflation> compression_;
  std::string block_;
  std::int64_t lengthBytes_ = 0;
};

}  // namespace tarvola::interchange
