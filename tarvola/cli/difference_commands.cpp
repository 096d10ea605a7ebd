// tarvola return diff

#include <CLI/CLI.hpp>
#include <memory>
#include <vector>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/difference_view.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

struct DifferenceOptions {
  std::vector<int> corrections;
  bool exitCode = false;
};

/// The return of a month under another correction number.
Period numbered(Period period, int correction) {
  if (correction < 0 || correction > 99)
    throw CommandFailure("Corrections run from 0 (the first filing) to 99.", Usage);
  period.correction = static_cast<std::int16_t>(correction);
  return period;
}

/// The two that were named, or the last correction and the return before it.
ComparedPeriods periodsOf(const Period& month, const std::vector<int>& corrections) {
  if (!corrections.empty()) return {numbered(month, corrections.front()), numbered(month, corrections.back())};
  const Messages messages;
  const int last = CGeneralClass().aMaxKdPembetulan("", store::taxKind, month.month, "F113204", month.year);
  messages.throwIfAny();
  if (last < 1)
    throw CommandFailure("The return " + month.text() +
                         " has no correction to compare.\nMake one with: tarvola return correct");
  return {numbered(month, last - 1), numbered(month, last)};
}

int compare(const Context& context, const DifferenceOptions& options) {
  context.connect();
  const ComparedPeriods periods = periodsOf(context.period(), options.corrections);
  requireReturn(periods.before);
  requireReturn(periods.after);
  const ReturnDifference difference =
      compareReturns(periods.before.month, periods.before.year, periods.before.correction, periods.after.correction);
  if (context.json)
    printDifferenceJson(difference, periods, context);
  else
    printDifference(difference, periods, context);
  return options.exitCode && !difference.isEmpty() ? Failed : Done;
}

}  // namespace

void addReturnDifference(CLI::App& group, Context& context, int& exitCode) {
  CLI::App* diff = group.add_subcommand("diff", "Show what sets two corrections of a return apart, and the tax to pay");
  addPeriodOption(*diff, context);
  auto options = std::make_shared<DifferenceOptions>();
  diff->add_option("-c,--correction", options->corrections,
                   "The two to compare; without it the last one and the one before")
      ->expected(2)
      ->type_name("A B");
  diff->add_flag("--exit-code", options->exitCode, "Exit with 1 if the two differ; without it with 0 either way");
  diff->callback([options, &context, &exitCode] { exitCode = compare(context, *options); });
}

}  // namespace tarvola::cli
