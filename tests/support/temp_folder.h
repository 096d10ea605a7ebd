#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarvola::test {

/// A folder of its own for each test, removed with all it holds at the end.
class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tarvola-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  [[nodiscard]] std::string path() const { return path_; }
  /// The path of a file in the folder.
  [[nodiscard]] std::string path(std::string_view file) const { return path_ + "/" + std::string(file); }

  /// Writes a file with these bytes; gives its path.
  std::string write(std::string_view file, std::string_view bytes) const {
    std::ofstream(path(file), std::ios::binary) << bytes;
    return path(file);
  }
  /// The bytes of a file, "" if there is none.
  [[nodiscard]] std::string read(std::string_view file) const {
    std::ifstream stream(path(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

 private:
  std::string path_;
};

}  // namespace tarvola::test
