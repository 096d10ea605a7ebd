#include "tarvola/interchange/reporting_file.h"

#include "tarvola/interchange/hashed_data.h"
#include "tarvola/interchange/report_stages.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/text_file.h"

namespace tarvola {

namespace {

ReportingFile read(const std::string& path, std::string_view secretSource) {
  const std::string stage = interchange::decipherReport(readFile(path), interchange::passwordOf(secretSource));
  ReportingFile report;
  {
    const std::string plain = interchange::decompressReport(stage);
    report.byteLength = plain.size();
    report.lines = interchange::linesOfReport(plain);
  }
  Progress progress("Checking control sums", report.lines.size());
  for (std::size_t i = 0; i < report.lines.size(); ++i) {
    interchange::requireControlSum(report.lines[i], i + 1);
    progress.done(i + 1);
  }
  return report;
}

}  // namespace

ReportingFile readReportingFile(const std::string& path, std::string_view secretSource) try {
  return read(path, secretSource);
} catch (const RunTimeError& error) {
  throw RunTimeError(error.number(), path + ": " + error.description());
}

}  // namespace tarvola
