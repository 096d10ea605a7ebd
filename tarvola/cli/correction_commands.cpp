// tarvola return correct

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/filer.h"
#include "tarvola/cli/person.h"
#include "tarvola/cli/return_contents_view.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;

struct CorrectionOptions {
  std::string newNpwp;
  bool yes = false;
};

// --- what is asked for -------------------------------------------------------------------------------------

Period behind(const Period& period) {
  if (period.correction >= 99)
    throw CommandFailure("Corrections run to 99, and " + period.text() + " is the last one.", Usage);
  Period next = period;
  ++next.correction;
  return next;
}

/// The number under which the return stands now.
std::string numberOf(const Period& period) {
  const RecordsetPtr form = expandedDocuments(store::F113204, period);
  return fieldText(form, "npwp");
}

/// The new number as digits, "" if none is given.
std::string readNewNpwp(const std::string& typed, const Period& period, const Context& context) {
  if (typed.empty()) return {};
  std::string npwp = npwpDigits(typed);
  if (npwp.size() != 15 || npwp.find_first_not_of("0123456789") != std::string::npos)
    throw CommandFailure(
        "The NPWP " + typed + " does not have 15 digits.\nWrite it as 013121660093000 or as 01.312.166.0-093.000.",
        Usage);
  if (npwp == numberOf(period))
    throw CommandFailure("The return " + period.text() + " stands under NPWP " + formattedNpwp(npwp) +
                             " already.\nLeave --new-npwp out for a correction at the same office.",
                         Usage);
  if (!hasRightCheckDigit(npwp))
    context.err << "Warning: the check digit of NPWP " << formattedNpwp(npwp) << " is wrong.\n";
  return npwp;
}

void requireFreeOrConsent(const Period& target, const Context& context, bool yes) {
  const store::ReturnContents held = store::contentsOf(store::StoreObject(), storePeriod(target));
  if (held.documents() == 0) return;
  requireConsent(context.person, yes,
                 "The return " + target.text() + " is there already (" + inWords(held) + "). Replace it?",
                 "Nothing was changed.");
}

// --- what stands in the way ----------------------------------------------------------------------------------

struct ObstacleText {
  CopyObstacleKind kind;
  std::string_view what;
  std::string_view advice;
};

constexpr std::array obstacleTexts = {
    ObstacleText{CopyObstacleKind::Apostrophe, "an apostrophe in",
                 "Write texts without apostrophe, as in: tarvola slip edit --number NUMBER --set FIELD=VALUE"},
    ObstacleText{CopyObstacleKind::MissingValue, "nothing in",
                 "Remove documents without a number, or restore a copy of the store."},
    ObstacleText{CopyObstacleKind::SameKey, "another row has the same",
                 "Give one of two documents another number: tarvola slip edit --number NUMBER --form FORM --new-number "
                 "NUMBER"},
    ObstacleText{CopyObstacleKind::OtherFiler, "stands under another", "Documents of another filer cannot move along."},
    ObstacleText{CopyObstacleKind::OtherFilerInTarget, "the correction holds it under another",
                 "Remove the correction first: tarvola return remove"}};

const ObstacleText& textOf(CopyObstacleKind kind) {
  return *std::find_if(obstacleTexts.begin(), obstacleTexts.end(),
                       [kind](const ObstacleText& each) { return each.kind == kind; });
}

std::string lineOf(const CopyObstacle& obstacle) {
  const std::string document = obstacle.form.empty() ? obstacle.table : obstacle.form;
  return "\n  " + document + " " + obstacle.number + ": " + std::string(textOf(obstacle.kind).what) + " " +
         obstacle.field + (obstacle.value.empty() ? "" : " (" + obstacle.value + ")");
}

[[noreturn]] void refuse(const std::vector<CopyObstacle>& obstacles, const Period& period) {
  constexpr std::size_t shown = 10;
  std::string text = "The return " + period.text() + " cannot be copied as it stands. Nothing was changed.";
  for (std::size_t index = 0; index < std::min(shown, obstacles.size()); ++index) text += lineOf(obstacles[index]);
  if (obstacles.size() > shown) text += "\n  and " + std::to_string(obstacles.size() - shown) + " more";
  for (const ObstacleText& each : obstacleTexts)
    if (std::any_of(obstacles.begin(), obstacles.end(),
                    [&](const CopyObstacle& obstacle) { return obstacle.kind == each.kind; }))
      text += "\n" + std::string(each.advice);
  throw CommandFailure(text);
}

// --- making it ---------------------------------------------------------------------------------------------

CorrectionOutcome make(const CorrectionOrder& order, const Period& target) {
  try {
    return correctReturn(order);
  } catch (const RunTimeError& failure) {
    throw CommandFailure("The return " + target.text() + " could not be made whole: " +
                         withoutOrigin(failure.description()) + "\nRun the command again to complete it.");
  }
}

void printOutcome(const CorrectionOutcome& outcome, const Period& source, const Period& target, const std::string& npwp,
                  const Context& context) {
  if (context.json) {
    context.out << jsonText(Json{{"month", target.month},
                                 {"year", target.year},
                                 {"correction", target.correction},
                                 {"corrected", source.correction},
                                 {"npwp", npwp},
                                 {"contents", asJson(outcome.target)},
                                 {"paymentsCopied", outcome.paymentsCopied},
                                 {"paymentsThere", outcome.paymentsThere}})
                << '\n';
    return;
  }
  context.out << "Made the return " << target.text() << ", from " << kindOf(source) << ": " << inWords(outcome.target)
              << ".\n";
  if (outcome.paymentsCopied > 0)
    context.out << "Copied " << counted(outcome.paymentsCopied, "payment record", "payment records") << ".\n";
  if (outcome.paymentsThere > 0)
    context.out << counted(outcome.paymentsThere, "payment record was", "payment records were")
                << " there already and not copied again.\n";
}

/// Documents of forms that no return of this kind has are not copied; that must not pass in silence.
void requireWhole(const CorrectionOutcome& outcome, const Period& source) {
  if (outcome.source == outcome.target) return;
  throw CommandFailure("The return " + source.text() + " holds rows that the copy does not know (" +
                       inWords(outcome.source) + " against " + inWords(outcome.target) +
                       ").\nSee: tarvola return check");
}

void noteFiler(const std::string& npwp, const Context& context) {
  const Filer filer = readFiler();
  if (filer.npwp != npwp)
    context.err << "Note: the filer of the store still has NPWP " << formattedNpwp(filer.npwp)
                << ". Documents that are entered from now on carry that one.\n";
}

void correct(const Context& context, const CorrectionOptions& options) {
  context.connect();
  const Period source = context.period();
  requireReturn(source);
  const Period target = behind(source);
  const CorrectionOrder order{.month = source.month,
                              .year = source.year,
                              .corrected = source.correction,
                              .newNpwp = readNewNpwp(options.newNpwp, source, context)};
  requireFreeOrConsent(target, context, options.yes);
  const CorrectionOutcome outcome = make(order, target);
  if (!outcome.obstacles.empty()) refuse(outcome.obstacles, source);
  const std::string npwp = numberOf(target);
  printOutcome(outcome, source, target, npwp, context);
  requireWhole(outcome, source);
  if (!order.newNpwp.empty()) noteFiler(npwp, context);
}

}  // namespace

void addReturnCorrection(CLI::App& group, Context& context) {
  CLI::App* command = group.add_subcommand("correct", "Make the next correction of a return, a copy of it");
  addPeriodOptions(*command, context);
  auto options = std::make_shared<CorrectionOptions>();
  command->add_option("--new-npwp", options->newNpwp, "The filer's new number, after a move to another tax office")
      ->type_name("NPWP");
  command->add_flag("-y,--yes", options->yes, "Replace a correction that is there already, and do not ask");
  command->callback([options, &context] { correct(context, *options); });
}

}  // namespace tarvola::cli
