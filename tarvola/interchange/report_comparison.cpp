#include "tarvola/interchange/report_comparison.h"

#include <string_view>

#include "tarvola/interchange/report_writer.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/runtime/utf8.h"
#include "tarvola/store/store_object.h"

namespace tarvola {

namespace {

/// Walks the lines of the file beside those of the store.
class Walk {
 public:
  explicit Walk(const ReportingFile& report) : report_(report) {}

  /// The texts of some forms keep their line breaks and so stand on several lines of the file.
  void compareLine(std::string_view stored) {
    constexpr std::string_view lineEnd = "\r\n";
    for (std::size_t end = stored.find(lineEnd); end != std::string_view::npos; end = stored.find(lineEnd)) {
      comparePart(stored.substr(0, end));
      stored.remove_prefix(end + lineEnd.size());
    }
    comparePart(stored);
  }

  ReportComparison finish() {
    if (lineNumber_ < report_.lines.size()) note(result_.firstDifference, lineNumber_ + 1);
    return result_;
  }

 private:
  static void note(std::uint64_t& first, std::uint64_t lineNumber) {
    if (first == 0) first = lineNumber;
  }

  void comparePart(std::string_view stored) {
    ++lineNumber_;
    const bool isPlain = utf8::asciiLength(stored) == stored.size();
    const std::string written = isPlain ? std::string() : fromAnsi(toAnsi(stored));
    const std::string_view expected = isPlain ? stored : written;
    if (expected != stored) {
      ++result_.linesWithLostCharacters;
      note(result_.firstLostCharacters, lineNumber_);
    }
    if (lineNumber_ > report_.lines.size() || report_.lines[lineNumber_ - 1] != expected)
      note(result_.firstDifference, lineNumber_);
  }

  const ReportingFile& report_;
  std::uint64_t lineNumber_ = 0;
  ReportComparison result_;
};

}  // namespace

ReportComparison compareReport(const ReportingFile& report, const ReportRequest& request) {
  const std::string month = CStr(std::int32_t{request.month});
  const std::string year = CStr(std::int32_t{request.year});
  const std::string paymentsCorrection = CStr(std::int32_t{request.paymentsCorrection});
  store::StoreObject store;
  Walk walk(report);
  interchange::ReportWriter(store).buildLines({.month = month,
                                               .year = year,
                                               .correction = request.correction,
                                               .fileName = {},
                                               .status = request.status,
                                               .npwp = {},
                                               .dJmlNKLB = request.dJmlNKLB,
                                               .paymentsCorrection = paymentsCorrection,
                                               .secretSource = {},
                                               .updateDate = request.updateDate},
                                              [&](std::string_view line) { walk.compareLine(line); });
  return walk.finish();
}

}  // namespace tarvola
