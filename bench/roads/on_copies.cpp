#include "bench/roads/on_copies.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <utility>

#include "bench/roads/line_file.h"
#include "bench/roads/statement_replay.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

void writeThrough(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  ::fsync(file);
  ::close(file);
}

}  // namespace

double secondsOfLibrary(const std::string& path, const std::function<void()>& work) {
  connectTo(path);
  std::optional<CGeneralClass> keptOpen(std::in_place);
  return seconds([&] {
    work();
    keptOpen.reset();
  });
}

double secondsOfStatements(const std::string& path, const std::vector<NotedStatement>& statements) {
  StatementReplay replay(path, statements);
  return seconds([&] {
    replay.run();
    replay.close();
  });
}

std::string copyOf(const BenchStore& store, const std::string& name) {
  std::string path = store.file(name + ".tarvola");
  for (const char* const ending : {"", "-wal", "-shm"}) std::filesystem::remove(path + ending);
  std::filesystem::copy_file(store.path(), path);
  writeThrough(path);
  return path;
}

std::vector<NotedStatement> statementsOf(const std::string& path, const std::function<void()>& work) {
  StatementTrace trace;
  connectTo(path);
  const CGeneralClass keptOpen;
  trace.take();
  work();
  return trace.take();
}

Measurement measureWriting(const std::string& road, const BenchStore& store, std::int64_t count,
                           const std::string& fileName, const std::function<void()>& work) {
  const std::vector<NotedStatement> statements = statementsOf(store.path(), work);
  const std::vector<std::string> lines = linesOf(store.file(fileName));
  Measurement result{.road = road, .slips = count, .operations = count};
  takeMedians(
      result, [&] { return secondsOfLibrary(store.path(), work); },
      [&] {
        StatementReplay reads(store.path(), statements);
        return seconds([&] {
          reads.run();
          writeLines(lines, store.file("floor.csv"));
          reads.close();
        });
      });
  return result;
}

Measurement measureOnCopies(const std::string& road, const BenchStore& store, std::int64_t slips,
                            const std::function<void()>& work) {
  const std::vector<NotedStatement> statements = statementsOf(copyOf(store, "noted"), work);
  Measurement result{.road = road, .slips = slips, .operations = slips};
  takeMedians(
      result, [&] { return secondsOfLibrary(copyOf(store, "ours"), work); },
      [&] { return secondsOfStatements(copyOf(store, "floor"), statements); });
  return result;
}

double peakMibOnCopy(const BenchStore& store, const std::function<void()>& work) {
  const std::string path = copyOf(store, "peak");
  return peakMibOf([&] {
    connectTo(path);
    work();
  });
}

}  // namespace tarvola::bench
