#include "tarvola/store/store_file.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace tarvola::store {

bool isStoreFile(const std::string& path) {
  constexpr std::string_view mark("SQLite format 3\0", 16);
  // A pipe would wait for somebody who writes to it.
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return false;
  std::array<char, mark.size()> start{};
  std::ifstream file(path, std::ios::binary);
  return file.read(start.data(), static_cast<std::streamsize>(start.size())) &&
         std::string_view(start.data(), start.size()) == mark;
}

}  // namespace tarvola::store
