#include "bench/roads/month_maker.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tarvola/runtime/code_page.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

std::vector<std::string> exampleLines() {
  std::ifstream file(std::string(TARVOLA_SOURCE_DIR) + "/examples/month-2009-01.csv", std::ios::binary);
  std::vector<std::string> lines;
  std::string line;
  std::getline(file, line);
  while (std::getline(file, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

/// The line with another number in its eighth column.
std::string withNumber(const std::string& line, std::int64_t number) {
  std::size_t start = 0;
  for (int i = 0; i < 7; ++i) start = line.find(';', start) + 1;
  const std::string made =
      line[0] == 'F' && line[1] == '1' ? fmt::format("{:06}/PPH4", number) : fmt::format("{:016}", number);
  return line.substr(0, start) + made + line.substr(line.find(';', start));
}

/// Digits without an end, the same in every run.
class Digits {
 public:
  explicit Digits(std::int64_t seed) : state_(static_cast<std::uint64_t>(seed) * 0x9E3779B97F4A7C15U + 1) {}
  char next() {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<char>('0' + (state_ >> 33U) % 10);
  }

 private:
  std::uint64_t state_;
};

/// The line with other digits in every tax number and amount. Lines that repeat would be compressed as no month can be.
std::string withOwnDigits(std::string line, std::int64_t number) {
  constexpr std::size_t shortest = 5;
  constexpr std::string_view digits = "0123456789";
  Digits own(number);
  const std::size_t behindForm = line.find(';');
  for (std::size_t start = line.find_first_of(digits, behindForm); start != std::string::npos;) {
    const std::size_t end = std::min(line.find_first_not_of(digits, start), line.size());
    // The first digit stays, so that an amount does not lose its size.
    for (std::size_t i = start + 1; i < end && end - start >= shortest; ++i) line[i] = own.next();
    start = line.find_first_of(digits, end);
  }
  return line;
}

}  // namespace

std::vector<std::string> makeMonth(std::int64_t count) {
  const std::vector<std::string> example = exampleLines();
  std::vector<std::string> lines;
  lines.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 0; i < count; ++i)
    lines.push_back(withNumber(withOwnDigits(example[static_cast<std::size_t>(i) % example.size()], i + 1), i + 1));
  return lines;
}

std::vector<std::string> columnsOf(const std::string& line) {
  std::vector<std::string> columns;
  std::size_t start = 0;
  for (std::size_t end = line.find(';'); end != std::string::npos; start = end + 1, end = line.find(';', start))
    columns.push_back(fromAnsi(std::string_view(line).substr(start, end - start)));
  columns.push_back(fromAnsi(std::string_view(line).substr(start)));
  return columns;
}

BenchStore::BenchStore() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tarvola-bench-XXXXXX").string();
  folder_ = mkdtemp(pattern.data());
  FilerProfile filer;
  filer.npwp = filerNpwp;
  filer.name = "PT Contoh Sejahtera";
  filer.address = "Jl. Contoh No. 1 Jakarta";
  createStore(path(), filer);
}

BenchStore::~BenchStore() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

void connectTo(const BenchStore& store) { connectTo(store.path()); }

void connectTo(const std::string& path) {
  // A thread that still has the settings of a store that is gone tells so when the object is made; nobody needs to hear
  // it.
  const MessageBoxScope quiet([](const MessageBox&) {});
  CGeneralClass general;
  general.pSetCon(path, "", "");
}

void importLine(CImporBP& import, const std::string& line) {
  Variant::Array columns;
  columns.reserve(52);
  for (std::string& column : columnsOf(line)) columns.emplace_back(std::move(column));
  import.pImporPPh4(Variant(std::move(columns)), filerNpwp, benchMonth, benchYear, 0);
}

void importLines(const std::vector<std::string>& lines) {
  CImporBP import;
  for (const std::string& line : lines) importLine(import, line);
}

void rebuild() {
  CImporBP import;
  import.pBuildTRVPPh4(filerNpwp, benchMonth, benchYear, 0);
  import.pUpdateD113210(Variant(), filerNpwp, benchMonth, benchYear, 0, "", "");
  import.pUpdateTRVPPh4(filerNpwp, benchMonth, benchYear, 0);
}

void fill(const BenchStore& store, const std::vector<std::string>& lines) {
  connectTo(store);
  const CGeneralClass keptOpen;
  importLines(lines);
  rebuild();
}

}  // namespace tarvola::bench
