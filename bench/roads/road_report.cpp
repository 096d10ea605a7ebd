#include "bench/roads/road_report.h"

#include <filesystem>
#include <string>
#include <utility>

#include "bench/roads/cipher_floor.h"
#include "bench/roads/on_copies.h"
#include "bench/roads/statement_replay.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

constexpr const char* secret = "0123456789ABCDEF0123456789ABCDEF";

std::string reportPath(const BenchStore& store) { return store.file("report.tax"); }

std::string plainText(const BenchStore& store) {
  std::string plain;
  for (const std::string& line : readReportingFile(reportPath(store), secret).lines) plain += line + "\r\n";
  return plain;
}

}  // namespace

std::vector<Measurement> measureReport(const BenchStore& store, std::int64_t slips) {
  const auto work = [&] { writeReport(store); };
  StatementReplay reads(store.path(), statementsOf(store.path(), work));
  CipherFloor ciphers(plainText(store));
  Measurement bare{.road = "report / zlib, RC2", .slips = slips, .operations = slips};
  Measurement withReads{.road = "report / reads, zlib, RC2", .slips = slips, .operations = slips};
  connectTo(store);
  const CGeneralClass keptOpen;
  // Each run makes a new file, as a command does: where an old one is emptied, the system first brings it to the disk.
  const auto writeAnew = [&] {
    std::filesystem::remove(reportPath(store));
    return seconds(work);
  };
  takeMedians(bare, writeAnew, [&] { return seconds([&] { ciphers.run(); }); });
  takeMedians(withReads, writeAnew, [&] {
    return seconds([&] {
      reads.run();
      ciphers.run();
    });
  });
  return {bare, withReads};
}

void writeReport(const BenchStore& store) {
  const MessageBoxScope quiet([](const MessageBox&) {});
  CLaporData().pEksporDataTRV4_2009("1", "2009", 0, reportPath(store), 0, filerNpwp, 0, "0", secret, "21/02/2009");
}

}  // namespace tarvola::bench
