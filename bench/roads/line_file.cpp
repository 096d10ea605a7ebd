#include "bench/roads/line_file.h"

#include <cstdio>
#include <memory>
#include <string_view>

#include "tarvola/runtime/text_file.h"

namespace tarvola::bench {

std::vector<std::string> linesOf(const std::string& path) {
  std::vector<std::string> lines;
  LineReader reader = LineReader::open(path);
  for (std::string_view line; reader.next(line);) lines.emplace_back(std::string(line) + "\r\n");
  return lines;
}

void writeLines(const std::vector<std::string>& lines, const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
  for (const std::string& line : lines) std::fwrite(line.data(), 1, line.size(), file.get());
}

}  // namespace tarvola::bench
