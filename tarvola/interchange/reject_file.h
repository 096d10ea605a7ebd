#pragma once

#include <fstream>
#include <string>
#include <string_view>

#include "tarvola/interchange/exchange_file_reader.h"

namespace tarvola::interchange {

/// The file of refused lines: the layout of the import file, in its encoding, with the reason as one column more.
///
/// It is written beside its place and moved there at the end, so that the file that is being read may have that very
/// name, and an import that is interrupted leaves an older reject file as it was. Without refused lines there is none.
class RejectFile {
 public:
  /// Fails at once, saying why and what to do, if the place cannot be written or is a folder or a store. An empty path
  /// writes nothing.
  RejectFile(std::string path, FileEncoding encoding, const ExchangeLayout& layout);
  /// Gives up what was written unless finish was called.
  ~RejectFile();
  RejectFile(const RejectFile&) = delete;
  RejectFile& operator=(const RejectFile&) = delete;

  void add(std::string_view lineBytes, std::string_view reason);
  /// Puts the file in its place. Fails if a write failed.
  void finish();

 private:
  void write(std::string_view bytes);
  [[nodiscard]] std::size_t missingSeparators(std::string_view lineBytes) const;
  [[nodiscard]] std::string encoded(std::string_view text) const;

  std::string path_;
  std::string partPath_;
  FileEncoding encoding_;
  const ExchangeLayout& layout_;
  std::ofstream file_;
  bool hasLines_ = false;
};

}  // namespace tarvola::interchange
