#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvola {

/// Codes of zlib that have a name here.
enum class CZErrors : std::int32_t {
  /// The destination is too small.
  InsufficientBuffer = -5,
};

/// zlib's one-shot compression behind operations on byte arrays and texts, with the sizes of the last operation.
///
/// Results are zlib's return codes, 0 for success; nothing is shown and nothing fails otherwise. The class reaches no
/// store. More than 2,147,483,647 bytes, or too little memory, give zlib's code for memory, -4.
class CompressZIt {
 public:
  /// The system's text for an error code of it, "" for a code that it does not know.
  std::string WinAPIError(std::int32_t lLastDLLError);
  /// Shows what the class is. True.
  bool About();

  /// Replaces bytes by their compressed form. An array of one element counts as empty, as one without elements does:
  /// 0 and nothing changes. On failure the bytes stay, OriginalSize is set and CompressedSize 0.
  std::int32_t CompressData(std::vector<std::uint8_t>& TheData);
  /// Replaces a text by its compressed form.
  ///
  /// The text goes through the ANSI code page into zlib, and what zlib makes of it comes back through the code page as
  /// if it were text: a character for each byte. Written to a file in that code page, these are zlib's bytes. On
  /// failure the text stays and both sizes are 0.
  std::int32_t CompressString(std::string& TheString);
  /// Replaces compressed bytes by the original ones, of which there are at most OrigSize and one more. An array of one
  /// element or none: 0 and nothing changes. On failure the bytes stay and both sizes are 0.
  std::int32_t DecompressData(std::vector<std::uint8_t>& TheData, std::int32_t OrigSize);
  /// Replaces a compressed text by the original, of at most OrigSize characters. On failure, among them -5 for an
  /// OrigSize that is too small, the text stays and both sizes are 0.
  std::int32_t DecompressString(std::string& TheString, std::int32_t OrigSize);

  /// Bytes of the compressed form in the last operation.
  [[nodiscard]] std::int32_t CompressedSize() const noexcept { return compressedSize_; }
  /// Bytes of the original in the last operation.
  [[nodiscard]] std::int32_t OriginalSize() const noexcept { return originalSize_; }

 private:
  void setSizes(std::size_t compressed, std::size_t original) noexcept;

  std::int32_t compressedSize_ = 0;
  std::int32_t originalSize_ = 0;
};

}  // namespace tarvola
