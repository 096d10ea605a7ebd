#pragma once

#include <cstdint>
#include <string>

namespace tarvola::interchange {

/// Reads a file whole, as a text of the ANSI code page or as its bytes, in blocks.
///
/// Each block replaces the one before, so a file longer than a block comes back as its last block alone: that limit
/// stands. Nothing here fails: what cannot be read is "", and the error members say why.
class BlockReader {
 public:
  /// Of what a block holds at most, 0 until the first use, which sets it. A test sets a smaller one.
  std::int32_t blockBytes = 0;
  std::int32_t lastErrorNumber = 0;
  std::string lastErrorText;

  std::string pReadFile(const std::string& strFile) noexcept;
  /// The same, with the length of the file in bytes: of all of it, whatever comes back.
  std::string pReadFileSize(const std::string& strFile, std::int64_t& lengthBytes) noexcept;
  /// Whether a file of such a length comes back whole. That the reading sets the block size, this does too.
  bool readsWhole(std::int64_t lengthBytes) noexcept;
  /// The bytes of which pReadFileSize makes its text.
  std::string readBytes(const std::string& path, std::int64_t& lengthBytes) noexcept;

 private:
  void settleBlockBytes() noexcept;
};

}  // namespace tarvola::interchange
