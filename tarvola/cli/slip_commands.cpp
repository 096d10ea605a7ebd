// tarvola slip next-number | add | edit | show | list | remove | rates

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/given_document.h"
#include "tarvola/cli/person.h"
#include "tarvola/cli/slip_editor.h"
#include "tarvola/cli/slip_views.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;

/// What the slip commands take.
struct SlipOptions {
  std::string form;
  std::string number;
  std::string newNumber;
  std::string date;
  std::vector<std::string> assignments;
  std::string file;
  bool yes = false;
  ListOptions list;
};

/// The members that a slip's file may have beside its fields; the last five are what "slip show --json" prints.
constexpr GivenNames slipNames = {.number = "number", .others = {"month", "year", "correction", "gross", "tax"}};

/// A slip can only be saved whole where return and lists are there to be brought in step.
Period requireGround(const Context& context, const SlipForm& form) {
  const Period period = context.period();
  requireReturn(period);
  requireHeader(period, store::D113206);
  if (form.codes.kdForm == store::F113310.kdForm) requireHeader(period, store::D113210);
  return period;
}

void report(const Context& context, const SlipForm& form, const Period& period, const std::string& number,
            const SlipEditor& editor, const char* what) {
  for (const std::string& note : editor.notes()) context.err << "Note: " << note << '\n';
  if (context.json) return showSlip(context, form, period, number);
  const RecordsetPtr row = expandedDocuments(form.codes, period, number);
  context.out << what << " slip " << number << " (" << form.codes.kdForm << ", " << form.printedName << "): bruto "
              << rupiah(fieldNumber(row, form.gross)) << ", PPh " << rupiah(fieldNumber(row, form.tax)) << ".\n";
}

std::string requireDate(const std::string& date) {
  if (date.empty()) throw CommandFailure("The slip has no date.\nGive it with --date, as in --date 31/01/2009.", Usage);
  return readDate("date", date);
}

// --- the commands ------------------------------------------------------------------------------------------

void nextNumber(const SlipOptions& options, const Context& context) {
  context.connect();
  const SlipForm& form = requireSlipForm(options.form);
  const std::string number = SlipEditor(form, context.period()).nextNumber();
  if (context.json)
    context.out << jsonText(Json{{"form", form.codes.kdForm}, {"number", number}}) << '\n';
  else
    context.out << number << '\n';
}

/// Asks a person for number, date and every field.
GivenDocument askForSlip(Person& person, SlipEditor& editor, const GivenDocument& known) {
  GivenDocument asked = known;
  asked.number = person.ask("Nomor Bukti Potong", known.number.empty() ? editor.nextNumber() : known.number,
                            [&](const std::string& typed) { editor.requireFree(typed); });
  asked.date = person.ask("Tanggal Bukti Potong", known.date, [](const std::string& typed) { requireDate(typed); });
  editor.start();
  asked.values = person.askFields(
      editor.fields(), [&](const InputField& field) { return editor.current(field); },
      [&](const InputValue& value) { editor.put(value); });
  return asked;
}

void addSlip(const SlipOptions& options, const Context& context) {
  context.connect();
  GivenDocument given = readGivenFile(options.file, slipNames);
  const SlipForm& form = requireSlipForm(options.form.empty() ? given.form : options.form);
  const Period period = requireGround(context, form);
  SlipEditor editor(form, period);
  given.number = options.number.empty() ? given.number : options.number;
  given.date = options.date.empty() ? given.date : options.date;
  if (context.person != nullptr && options.file.empty() && options.assignments.empty())
    given = askForSlip(*context.person, editor, given);
  else
    given.values =
        merged(readMembers(editor.fields(), given.fields), readAssignments(editor.fields(), options.assignments));
  given.date = requireDate(given.date);
  if (given.number.empty()) given.number = editor.nextNumber();
  editor.requireFree(given.number);
  editor.add(given.number, given.date, given.values);
  report(context, form, period, given.number, editor, "Added");
}

const SlipForm& formOf(const SlipOptions& options, const Period& period) {
  if (options.form.empty()) return formOfSlip(options.number, period);
  requireSlipNumber(options.number);
  return requireSlipForm(options.form);
}

void editSlip(const SlipOptions& options, const Context& context) {
  context.connect();
  const Period asked = context.period();
  requireReturn(asked);
  const SlipForm& form = formOf(options, asked);
  const Period period = requireGround(context, form);
  SlipEditor editor(form, period);
  const GivenDocument given = readGivenFile(options.file, slipNames);
  if (!given.number.empty() && given.number != options.number)
    throw CommandFailure(options.file + " is of slip " + given.number + ", not of " + options.number +
                             ".\nA slip gets another number by --new-number.",
                         Usage);
  const InputValues values =
      merged(readMembers(editor.fields(), given.fields), readAssignments(editor.fields(), options.assignments));
  const std::string date = options.date.empty() ? given.date : options.date;
  if (values.empty() && date.empty() && options.newNumber.empty())
    throw CommandFailure("Nothing is to be changed.\nGive --set FIELD=VALUE, --from FILE, --date or --new-number.",
                         Usage);
  const bool changesNumber = !options.newNumber.empty() && options.newNumber != options.number;
  if (changesNumber) editor.requireFree(options.newNumber);
  editor.change(options.number, options.newNumber, date.empty() ? "" : readDate("date", date), values);
  report(context, form, period, changesNumber ? options.newNumber : options.number, editor, "Changed");
}

void removeSlip(const SlipOptions& options, const Context& context) {
  context.connect();
  const Period asked = context.period();
  requireReturn(asked);
  const SlipForm& form = formOf(options, asked);
  const Period period = requireGround(context, form);
  SlipEditor editor(form, period);
  requireConsent(context.person, options.yes,
                 "Remove slip " + options.number + " (" + std::string(form.printedName) + ")?", "Nothing was removed.");
  editor.remove(options.number);
  if (context.json)
    context.out << jsonText(Json{{"removed", options.number}, {"form", form.codes.kdForm}}) << '\n';
  else
    context.out << "Removed slip " << options.number << " (" << form.codes.kdForm << ").\n";
}

void showOne(const SlipOptions& options, const Context& context) {
  context.connect();
  const Period period = context.period();
  requireReturn(period);
  showSlip(context, formOf(options, period), period, options.number);
}

void listAll(const SlipOptions& options, const Context& context) {
  context.connect();
  const Period period = context.period();
  requireReturn(period);
  listSlips(context, period, options.list);
}

// --- their options -----------------------------------------------------------------------------------------

constexpr const char* formHelp = "Form of the slip, as F113309 or lottery";

void addFieldOptions(CLI::App& command, SlipOptions& options) {
  command.add_option("--date", options.date, "Date of the slip, as 31/01/2009")->type_name("DATE");
  command.add_option("--set", options.assignments, "A field, as B13=1000000; may be repeated")
      ->allow_extra_args(false)
      ->type_name("FIELD=VALUE");
  command.add_option("--from", options.file, "Fields from JSON, as 'slip show --json' prints")->type_name("FILE");
}

}  // namespace

void addSlipCommands(CLI::App& app, Context& context) {
  auto options = std::make_shared<SlipOptions>();
  CLI::App* group = app.add_subcommand("slip", "Enter, show and remove withholding slips")
                        ->group(groups::documents)
                        ->require_subcommand(1);
  const auto command = [&](const char* name, const char* help, void (*work)(const SlipOptions&, const Context&)) {
    CLI::App* added = group->add_subcommand(name, help);
    addPeriodOptions(*added, context);
    added->callback([options, work, &context] { work(*options, context); });
    return added;
  };

  CLI::App* next = command("next-number", "Propose a number for a new slip", nextNumber);
  next->add_option("-f,--form", options->form, formHelp)->type_name("FORM");

  CLI::App* add = command("add", "Add a slip; without fields it asks for them", addSlip);
  add->add_option("-f,--form", options->form, formHelp)->type_name("FORM");
  add->add_option("-n,--number", options->number, "Number of the slip; else the next free one")->type_name("NUMBER");
  addFieldOptions(*add, *options);

  CLI::App* edit = command("edit", "Change a slip; list and return move along", editSlip);
  edit->add_option("-n,--number", options->number, "Number of the slip")->type_name("NUMBER")->required();
  edit->add_option("-f,--form", options->form, "Form, where several slips hold the number")->type_name("FORM");
  edit->add_option("--new-number", options->newNumber, "A number that the slip gets instead")->type_name("NUMBER");
  addFieldOptions(*edit, *options);

  CLI::App* show = command("show", "Show the fields of a slip", showOne);
  show->add_option("-n,--number", options->number, "Number of the slip")->type_name("NUMBER")->required();
  show->add_option("-f,--form", options->form, "Form, where several slips hold the number")->type_name("FORM");

  CLI::App* list = command("list", "List the slips of a return with their sums", listAll);
  list->add_option("-f,--form", options->list.form, "Only slips of this form")->type_name("FORM");
  list->add_flag("--csv", options->list.csv, "Print the list as CSV");

  CLI::App* remove = command("remove", "Remove a slip; list and return move along", removeSlip);
  remove->add_option("-n,--number", options->number, "Number of the slip")->type_name("NUMBER")->required();
  remove->add_option("-f,--form", options->form, "Form, where several slips hold the number")->type_name("FORM");
  remove->add_flag("-y,--yes", options->yes, "Do not ask");

  CLI::App* rates = group->add_subcommand("rates", "Show the default tariffs of new slips");
  rates->add_option("-f,--form", options->form, "Only those of this form")->type_name("FORM");
  rates->callback([options, &context] {
    context.connect();
    showRates(context, options->form);
  });
}

}  // namespace tarvola::cli
