// tarvola return remove

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/person.h"
#include "tarvola/cli/return_contents_view.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;

std::string allInWords(const ReturnRemoval& removal) {
  std::string words = inWords(removal.contents);
  if (removal.payments > 0) words += ", " + counted(removal.payments, "payment record", "payment records");
  if (removal.transfers > 0) words += ", " + counted(removal.transfers, "transfer record", "transfer records");
  return words;
}

/// Payments belong to the month: the first filing takes those of its corrections along.
void warnOfLaterCorrection(const Period& period, const ReturnRemoval& removal, const Context& context) {
  const Messages messages;
  const std::int16_t last = CGeneralClass().aMaxKdPembetulan("", store::taxKind, period.month, "F113204", period.year);
  messages.throwIfAny();
  if (last <= period.correction) return;
  context.err << "Note: the return has a later correction, " << last << ", which stays.\n";
  if (removal.payments + removal.transfers > 0)
    context.err << "Note: the payments of the month go with the first filing, those of its corrections too.\n";
}

void removeOne(const Context& context, bool yes) {
  context.connect();
  const Period period = context.period();
  const ReturnRemoval found = whatRemovalTakes(period.month, period.year, period.correction);
  if (found.contents.isEmpty())
    throw CommandFailure("There is no return " + period.text() + ".\nSee what there is with: tarvola return list");
  warnOfLaterCorrection(period, found, context);
  requireConsent(context.person, yes, "Remove the return " + period.text() + " (" + allInWords(found) + ")?",
                 "Nothing was removed.");
  const ReturnRemoval removed = removeReturn(period.month, period.year, period.correction);
  if (!context.json) {
    context.out << "Removed the return " << period.text() << ": " << allInWords(removed) << ".\n";
    return;
  }
  Json rows = asJson(removed.contents);
  rows["payments"] = removed.payments;
  rows["transfers"] = removed.transfers;
  context.out << jsonText(Json{{"month", period.month},
                               {"year", period.year},
                               {"correction", period.correction},
                               {"removed", rows}})
              << '\n';
}

}  // namespace

void addReturnRemoval(CLI::App& group, Context& context) {
  CLI::App* remove =
      group.add_subcommand("remove", "Remove a return with all documents; a first filing takes its payments along");
  addPeriodOptions(*remove, context);
  auto yes = std::make_shared<bool>(false);
  remove->add_flag("-y,--yes", *yes, "Do not ask");
  remove->callback([yes, &context] { removeOne(context, *yes); });
}

}  // namespace tarvola::cli
