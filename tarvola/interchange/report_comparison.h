#pragma once

#include <cstdint>
#include <string>

#include "tarvola/interchange/reporting_file.h"

namespace tarvola {

/// What CLaporData was asked to report, beside file and secret.
struct ReportRequest {
  std::int16_t month = 0;
  std::int16_t year = 0;
  std::int16_t correction = 0;
  std::uint8_t status = 0;
  double dJmlNKLB = 0;
  /// The correction whose payments are reported.
  std::int16_t paymentsCorrection = 0;
  std::string updateDate;
};

struct ReportComparison {
  /// The first line, from 1, that the file lacks, has too much, or has otherwise than the store; 0 if there is none.
  std::uint64_t firstDifference = 0;
  /// Lines with characters that the ANSI code page does not have; in the file "?" stands for each.
  std::uint64_t linesWithLostCharacters = 0;
  /// The first of them, from 1; 0 without one.
  std::uint64_t firstLostCharacters = 0;
};

/// Builds the lines of a report anew from the store of the thread's connection settings and compares them with those
/// that a file was read to hold. Equal line for line, the file says what the store says. Reports progress.
///
/// Fails with a RunTimeError if the store cannot be read.
ReportComparison compareReport(const ReportingFile& report, const ReportRequest& request);

}  // namespace tarvola
