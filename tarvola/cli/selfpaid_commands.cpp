// tarvola selfpaid next-seq | add | edit | show | list | remove

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <tuple>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/damage.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/given_document.h"
#include "tarvola/cli/person.h"
#include "tarvola/cli/selfpaid_editor.h"
#include "tarvola/cli/table.h"

namespace tarvola::cli {

namespace {

using Json = nlohmann::ordered_json;

struct SelfPaidOptions {
  std::string form;
  std::string ntpn;
  std::string newNtpn;
  std::string date;
  std::optional<double> seq;
  std::vector<std::string> assignments;
  std::string file;
  bool yes = false;
  bool csv = false;
};

constexpr GivenNames selfPaidNames = {.number = "ntpn", .others = {"month", "year", "correction", "gross", "tax"}};

// --- reading forms -----------------------------------------------------------------------------------------

/// A stored form, read from its named fields.
struct StoredForm {
  const SelfPaidForm* form = nullptr;
  std::string ntpn;
  double seq = 0;
  std::string date;
  double grossRupiah = 0;
  double taxRupiah = 0;
  Json fields;
};

double sumOf(const RecordsetPtr& row, const std::vector<std::string_view>& fields) {
  double sum = 0;
  for (const std::string_view field : fields) sum += fieldNumber(row, field);
  return sum;
}

StoredForm readForm(const SelfPaidForm& form, const RecordsetPtr& row) {
  StoredForm stored{.form = &form,
                    .ntpn = fieldText(row, "NTTP"),
                    .seq = fieldNumber(row, "SEQ"),
                    .date = fieldText(row, "Tgl_Potong"),
                    .grossRupiah = sumOf(row, form.gross),
                    .taxRupiah = sumOf(row, form.tax),
                    .fields = Json::object()};
  for (const InputField& field : form.fields)
    stored.fields[field.name] =
        field.kind == InputKind::Text ? Json(fieldText(row, field.name)) : jsonNumber(fieldNumber(row, field.name));
  return stored;
}

std::vector<StoredForm> readForms(const Period& period, const std::string& onlyForm) {
  std::vector<StoredForm> forms;
  for (const SelfPaidForm& form : selfPaidForms()) {
    if (!onlyForm.empty() && &form != &requireSelfPaidForm(onlyForm)) continue;
    for (const RecordsetPtr rows = expandedDocuments(form.codes, period); !rows->get_EOF(); rows->MoveNext())
      forms.push_back(readForm(form, rows));
  }
  std::stable_sort(forms.begin(), forms.end(), [](const StoredForm& left, const StoredForm& right) {
    return std::tie(left.form, left.seq, left.ntpn) < std::tie(right.form, right.seq, right.ntpn);
  });
  return forms;
}

std::vector<std::string> faultsOf(const Period& period, const std::string& onlyForm) {
  std::vector<std::string> all;
  for (const SelfPaidForm& form : selfPaidForms()) {
    if (!onlyForm.empty() && &form != &requireSelfPaidForm(onlyForm)) continue;
    const std::vector<std::string> faults = packedFaults(form.codes, period);
    all.insert(all.end(), faults.begin(), faults.end());
  }
  return all;
}

StoredForm readOne(const SelfPaidForm& form, const Period& period, const std::string& ntpn, double seq) {
  for (const RecordsetPtr rows = expandedDocuments(form.codes, period, ntpn); !rows->get_EOF(); rows->MoveNext())
    if (fieldNumber(rows, "SEQ") == seq) return readForm(form, rows);
  throw CommandFailure("There is no form " + std::string(form.codes.kdForm) + " with payment " + ntpn + " and SEQ " +
                       numberLiteral(seq) + ".");
}

// --- showing them --------------------------------------------------------------------------------------------

Json asJson(const StoredForm& stored, const Period& period) {
  return {{"form", stored.form->codes.kdForm},
          {"ntpn", stored.ntpn},
          {"seq", jsonNumber(stored.seq)},
          {"date", stored.date},
          {"month", period.month},
          {"year", period.year},
          {"correction", period.correction},
          {"gross", jsonNumber(stored.grossRupiah)},
          {"tax", jsonNumber(stored.taxRupiah)},
          {"fields", stored.fields}};
}

void printOne(const StoredForm& stored, const Period& period, std::ostream& out) {
  out << stored.form->codes.kdForm << ", " << stored.form->printedName << "\nPayment " << stored.ntpn << ", SEQ "
      << numberLiteral(stored.seq) << ", of " << stored.date << ", return " << period.text() << "\n\n";
  Table table({{"Field"}, {"Value", Table::Align::Right}, {"Uraian"}});
  for (const InputField& field : stored.form->fields) {
    const Json& value = stored.fields[field.name];
    table.add({field.name, value.is_string() ? value.get<std::string>() : rupiah(value.get<double>()), field.label});
  }
  table.addRule();
  table.add({"", rupiah(stored.grossRupiah), "Jumlah Penghasilan Bruto"});
  table.add({"", rupiah(stored.taxRupiah), "Jumlah PPh Yang Dibayar Sendiri"});
  table.print(out);
}

void printList(const std::vector<StoredForm>& forms, const Period& period, const Context& context) {
  if (forms.empty()) {
    context.out << "The return " << period.text() << " holds no such forms.\n";
    return;
  }
  Table table({{"Form"},
               {"SEQ", Table::Align::Right},
               {"NTPN"},
               {"Date"},
               {"Bruto (Rp)", Table::Align::Right},
               {"PPh (Rp)", Table::Align::Right}});
  double gross = 0;
  double tax = 0;
  for (const StoredForm& each : forms) {
    table.add({std::string(each.form->codes.kdForm), numberLiteral(each.seq), each.ntpn, each.date,
               rupiah(each.grossRupiah), rupiah(each.taxRupiah)});
    gross += each.grossRupiah;
    tax += each.taxRupiah;
  }
  table.addRule();
  table.add({std::to_string(forms.size()) + (forms.size() == 1 ? " form" : " forms"), "", "", "", rupiah(gross),
             rupiah(tax)});
  table.print(context.out);
}

void printListCsv(const std::vector<StoredForm>& forms, std::ostream& out) {
  out << "form,seq,ntpn,date,gross,tax\n";
  for (const StoredForm& each : forms)
    out << each.form->codes.kdForm << ',' << numberLiteral(each.seq) << ',' << csvField(each.ntpn) << ',' << each.date
        << ',' << numberLiteral(each.grossRupiah) << ',' << numberLiteral(each.taxRupiah) << '\n';
}

// --- the commands ------------------------------------------------------------------------------------------

/// The kind of form and the return of a command that changes documents.
struct Ground {
  const SelfPaidForm& form;
  Period period;
};

Ground requireGround(const SelfPaidOptions& options, const Context& context, const std::string& formOfFile = "") {
  context.connect();
  const SelfPaidForm& form = requireSelfPaidForm(options.form.empty() ? formOfFile : options.form);
  const Period period = context.period();
  requireReturn(period);
  return {form, period};
}

void report(const Context& context, const Ground& ground, const std::string& ntpn, double seq, const char* what) {
  const StoredForm stored = readOne(ground.form, ground.period, ntpn, seq);
  if (context.json)
    context.out << jsonText(asJson(stored, ground.period)) << '\n';
  else
    context.out << what << " form " << ground.form.codes.kdForm << ", payment " << ntpn << ", SEQ "
                << numberLiteral(seq) << ": bruto " << rupiah(stored.grossRupiah) << ", PPh "
                << rupiah(stored.taxRupiah) << ".\n";
}

std::string requireDate(const std::string& date) {
  if (date.empty())
    throw CommandFailure("The form has no date of payment.\nGive it with --date, as in --date 15/02/2009.", Usage);
  return readDate("date", date);
}

double requireWholeSeq(double seq) {
  if (seq >= 1 && seq == Int(seq) && seq < 1e9) return seq;
  throw CommandFailure(numberLiteral(seq) + " is no SEQ.\nSEQs count the forms of a list from 1.", Usage);
}

void nextSeq(const SelfPaidOptions& options, const Context& context) {
  const Ground ground = requireGround(options, context);
  const double seq = SelfPaidEditor(ground.form, ground.period).nextSeq();
  if (context.json)
    context.out << jsonText(Json{{"form", ground.form.codes.kdForm}, {"seq", jsonNumber(seq)}}) << '\n';
  else
    context.out << numberLiteral(seq) << '\n';
}

GivenDocument askForForm(Person& person, const SelfPaidForm& form, const GivenDocument& known) {
  GivenDocument asked = known;
  asked.number = person.ask("NTPN", known.number, [](const std::string& typed) { requirePaymentNumber(typed); });
  asked.date = person.ask("Tanggal Pembayaran", known.date, [](const std::string& typed) { requireDate(typed); });
  asked.values = person.askFields(
      form.fields, [](const InputField& field) { return field.kind == InputKind::Text ? Variant("") : Variant(0.0); },
      [](const InputValue&) {});
  return asked;
}

void addForm(const SelfPaidOptions& options, const Context& context) {
  GivenDocument given = readGivenFile(options.file, selfPaidNames);
  const Json seqOfFile = given.fields.contains("seq") ? given.fields["seq"] : Json();
  given.fields.erase("seq");
  const Ground ground = requireGround(options, context, given.form);
  if (!options.ntpn.empty()) given.number = options.ntpn;
  if (!options.date.empty()) given.date = options.date;
  if (context.person != nullptr && options.file.empty() && options.assignments.empty())
    given = askForForm(*context.person, ground.form, given);
  else
    given.values =
        merged(readMembers(ground.form.fields, given.fields), readAssignments(ground.form.fields, options.assignments));
  requirePaymentNumber(given.number);
  given.date = requireDate(given.date);
  SelfPaidEditor editor(ground.form, ground.period);
  const double fallback = seqOfFile.is_number() ? seqOfFile.get<double>() : editor.nextSeq();
  const double seq = requireWholeSeq(options.seq.value_or(fallback));
  editor.add(given.number, seq, given.date, given.values);
  report(context, ground, given.number, seq, "Added");
}

void editForm(const SelfPaidOptions& options, const Context& context) {
  GivenDocument given = readGivenFile(options.file, selfPaidNames);
  given.fields.erase("seq");
  const Ground ground = requireGround(options, context, given.form);
  SelfPaidEditor editor(ground.form, ground.period);
  const double seq = editor.requireSeq(options.ntpn, options.seq);
  const InputValues values =
      merged(readMembers(ground.form.fields, given.fields), readAssignments(ground.form.fields, options.assignments));
  const std::string date = options.date.empty() ? given.date : options.date;
  if (values.empty() && date.empty() && options.newNtpn.empty())
    throw CommandFailure("Nothing is to be changed.\nGive --set FIELD=VALUE, --from FILE, --date or --new-ntpn.",
                         Usage);
  const bool changesNumber = !options.newNtpn.empty() && options.newNtpn != options.ntpn;
  if (changesNumber) {
    requirePaymentNumber(options.newNtpn);
    const std::vector<double> taken = editor.seqsOf(options.newNtpn);
    if (std::count(taken.begin(), taken.end(), seq) > 0)
      throw CommandFailure("Payment " + options.newNtpn + " stands on a form with SEQ " + numberLiteral(seq) +
                           " already.");
  }
  editor.change(options.ntpn, seq, options.newNtpn, date.empty() ? "" : readDate("date", date), values);
  report(context, ground, changesNumber ? options.newNtpn : options.ntpn, seq, "Changed");
}

void removeForm(const SelfPaidOptions& options, const Context& context) {
  const Ground ground = requireGround(options, context);
  SelfPaidEditor editor(ground.form, ground.period);
  const double seq = editor.requireSeq(options.ntpn, options.seq);
  const std::string what =
      std::string(ground.form.codes.kdForm) + ", payment " + options.ntpn + ", SEQ " + numberLiteral(seq);
  requireConsent(context.person, options.yes, "Remove form " + what + "?", "Nothing was removed.");
  editor.remove(options.ntpn, seq);
  if (context.json)
    context.out << jsonText(
                       Json{{"removed", options.ntpn}, {"seq", jsonNumber(seq)}, {"form", ground.form.codes.kdForm}})
                << '\n';
  else
    context.out << "Removed form " << what << ".\n";
}

void showForm(const SelfPaidOptions& options, const Context& context) {
  const Ground ground = requireGround(options, context);
  const double seq = SelfPaidEditor(ground.form, ground.period).requireSeq(options.ntpn, options.seq);
  const StoredForm stored = readOne(ground.form, ground.period, options.ntpn, seq);
  if (context.json)
    context.out << jsonText(asJson(stored, ground.period)) << '\n';
  else
    printOne(stored, ground.period, context.out);
  requireWhole(packedFaults(ground.form.codes, ground.period, options.ntpn), wrongFigures);
}

void printListJson(const std::vector<StoredForm>& forms, const Period& period, std::ostream& out) {
  Json list = Json::array();
  for (const StoredForm& each : forms) list.push_back(asJson(each, period));
  out << jsonText(list) << '\n';
}

void listForms(const SelfPaidOptions& options, const Context& context) {
  context.connect();
  const Period period = context.period();
  requireReturn(period);
  const std::vector<StoredForm> forms = readForms(period, options.form);
  if (context.json)
    printListJson(forms, period, context.out);
  else if (options.csv)
    printListCsv(forms, context.out);
  else
    printList(forms, period, context);
  requireWhole(faultsOf(period, options.form), wrongFigures);
}

// --- their options -----------------------------------------------------------------------------------------

void addFieldOptions(CLI::App& command, SelfPaidOptions& options) {
  command.add_option("--date", options.date, "Date of payment, as 15/02/2009")->type_name("DATE");
  command.add_option("--set", options.assignments, "A field, as PPH=1000000; may be repeated")
      ->allow_extra_args(false)
      ->type_name("FIELD=VALUE");
  command.add_option("--from", options.file, "Fields from JSON, as 'selfpaid show --json' prints")->type_name("FILE");
}

}  // namespace

void addSelfPaidCommands(CLI::App& app, Context& context) {
  auto options = std::make_shared<SelfPaidOptions>();
  CLI::App* group = app.add_subcommand("selfpaid", "Enter, show and remove self-paid forms")
                        ->group(groups::documents)
                        ->require_subcommand(1);
  const auto command = [&](const char* name, const char* help, void (*work)(const SelfPaidOptions&, const Context&)) {
    CLI::App* added = group->add_subcommand(name, help);
    addPeriodOptions(*added, context);
    added->add_option("-f,--form", options->form, "rent, transfer or construction (or the form's code)")
        ->type_name("FORM");
    added->callback([options, work, &context] { work(*options, context); });
    return added;
  };
  const auto addKey = [&](CLI::App* to) {
    to->add_option("-n,--ntpn", options->ntpn, "Number of the payment (NTPN)")->type_name("NUMBER")->required();
    to->add_option("--seq", options->seq, "SEQ of the form, where a payment stands on several")->type_name("SEQ");
  };

  command("next-seq", "Propose a SEQ for a new form", nextSeq);

  CLI::App* add = command("add", "Add a form; without fields it asks for them", addForm);
  add->add_option("-n,--ntpn", options->ntpn, "Number of the payment (NTPN)")->type_name("NUMBER");
  add->add_option("--seq", options->seq, "SEQ of the form; without it the next free one")->type_name("SEQ");
  addFieldOptions(*add, *options);

  CLI::App* edit = command("edit", "Change a form; list and return move along", editForm);
  addKey(edit);
  edit->add_option("--new-ntpn", options->newNtpn, "A payment number that the form gets instead")->type_name("NUMBER");
  addFieldOptions(*edit, *options);

  addKey(command("show", "Show the fields of a form", showForm));
  command("list", "List the forms of a return with their sums", listForms)
      ->add_flag("--csv", options->csv, "Print the list as CSV");

  CLI::App* remove = command("remove", "Remove a form; list and return move along", removeForm);
  addKey(remove);
  remove->add_flag("-y,--yes", options->yes, "Do not ask");
}

}  // namespace tarvola::cli
