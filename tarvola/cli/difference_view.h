#pragma once

#include "tarvola/cli/commands.h"
#include "tarvola/interchange/return_difference.h"

namespace tarvola::cli {

/// Two returns of one month that are compared.
struct ComparedPeriods {
  Period before;
  Period after;
};

/// Prints what sets two returns apart: lines, documents, payments, and what is still to pay.
void printDifference(const ReturnDifference& difference, const ComparedPeriods& periods, const Context& context);
void printDifferenceJson(const ReturnDifference& difference, const ComparedPeriods& periods, const Context& context);

}  // namespace tarvola::cli
