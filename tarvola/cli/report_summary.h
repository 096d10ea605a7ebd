#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/interchange/reporting_file.h"

namespace tarvola::cli {

/// The documents of one form in a report.
struct ReportedForm {
  std::string_view kdForm;
  std::string_view printedName;
  std::size_t count = 0;
  double grossRupiah = 0;
  double taxRupiah = 0;
};

/// What a reporting file says as a whole.
struct ReportSummary {
  Period period;
  std::string npwp;
  std::string name;
  int status = 0;
  /// The totals of the main return.
  double grossRupiah = 0;
  double taxRupiah = 0;
  /// Forms of which there is a document, in the order of their codes.
  std::vector<ReportedForm> forms;
  std::size_t paymentCount = 0;
  double paidRupiah = 0;
  std::size_t transferCount = 0;
  double transferredRupiah = 0;
};

/// Takes the lines of a report apart. Fails if there is no line of a main return.
ReportSummary summaryOf(const ReportingFile& report);

}  // namespace tarvola::cli
