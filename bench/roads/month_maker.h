#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvola {
class CImporBP;
}

namespace tarvola::bench {

/// So many lines of an exchange file, as raw ANSI text without line ends: those of the example month over and over,
/// each with a document number, tax number and amounts of its own.
std::vector<std::string> makeMonth(std::int64_t count);

/// The columns of a line, in UTF-8.
std::vector<std::string> columnsOf(const std::string& line);

/// A new store for a made-up filer in a folder of its own; removed with the object.
class BenchStore {
 public:
  BenchStore();
  ~BenchStore();
  BenchStore(const BenchStore&) = delete;
  BenchStore& operator=(const BenchStore&) = delete;
  [[nodiscard]] std::string path() const { return folder_ + "/bench.tarvola"; }
  [[nodiscard]] std::string file(const std::string& name) const { return folder_ + "/" + name; }

 private:
  std::string folder_;
};

inline constexpr const char* filerNpwp = "013121660091000";
inline constexpr std::int16_t benchMonth = 1;
inline constexpr std::int16_t benchYear = 2009;

/// Points this thread's classes to the store.
void connectTo(const std::string& path);
void connectTo(const BenchStore& store);
/// Imports the lines into the store through pImporPPh4, and rebuilds the return.
void fill(const BenchStore& store, const std::vector<std::string>& lines);
/// One line, and all of them, without the rebuilding.
void importLine(CImporBP& import, const std::string& line);
void importLines(const std::vector<std::string>& lines);
void rebuild();

}  // namespace tarvola::bench
