#include "tarvola/cli/report_summary.h"

#include <algorithm>
#include <optional>

#include "tarvola/cli/failure.h"
#include "tarvola/cli/selfpaid_editor.h"
#include "tarvola/cli/slip_forms.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

/// What a line begins with, and the words that tell payment and transfer lines from those of documents.
constexpr std::string_view lineStart = "113;";
constexpr std::string_view paymentWord = "77";
constexpr std::string_view transferWord = "PBK4";

/// A document's line: tax kind, document code, form code, packed text.
constexpr std::size_t formCodeField = 2;
constexpr std::size_t packedField = 3;
/// The main return's line has two values of its own between the form code and the fields of its packed text.
constexpr std::size_t statusField = 3;
constexpr std::size_t returnField = 5;
constexpr std::size_t paymentAmountField = 9;
constexpr std::size_t transferAmountField = 6;

class Fields {
 public:
  explicit Fields(std::string_view line) {
    for (std::size_t end = line.find(';'); end != std::string_view::npos; end = line.find(';')) {
      fields_.push_back(line.substr(0, end));
      line.remove_prefix(end + 1);
    }
    fields_.push_back(line);
  }

  [[nodiscard]] std::string_view text(std::size_t index) const {
    return index < fields_.size() ? fields_[index] : std::string_view();
  }
  [[nodiscard]] double number(std::size_t index) const { return tryNumber(text(index)).value_or(0); }

 private:
  std::vector<std::string_view> fields_;
};

std::vector<std::size_t> positionsOf(std::string_view kdForm, const std::vector<std::string_view>& names) {
  std::vector<std::size_t> positions;
  positions.reserve(names.size());
  for (const std::string_view name : names)
    positions.push_back(packedField + store::findLayout(kdForm)->position(name).value());
  return positions;
}

/// A form, and where its line has its gross and its tax.
struct FormPlaces {
  ReportedForm form;
  std::vector<std::size_t> gross;
  std::vector<std::size_t> tax;
};

std::vector<FormPlaces> allPlaces() {
  std::vector<FormPlaces> places;
  places.reserve(slipForms.size() + selfPaidForms().size());
  for (const SlipForm& form : slipForms)
    places.push_back({{.kdForm = form.codes.kdForm, .printedName = form.printedName},
                      positionsOf(form.codes.kdForm, {form.gross}),
                      positionsOf(form.codes.kdForm, {form.tax})});
  for (const SelfPaidForm& form : selfPaidForms())
    places.push_back({{.kdForm = form.codes.kdForm, .printedName = form.printedName},
                      positionsOf(form.codes.kdForm, form.gross),
                      positionsOf(form.codes.kdForm, form.tax)});
  return places;
}

double sumOf(const Fields& fields, const std::vector<std::size_t>& positions) {
  double sum = 0;
  for (const std::size_t position : positions) sum += fields.number(position);
  return sum;
}

/// Takes the lines one by one.
class Reading {
 public:
  void take(std::string_view line) {
    const Fields fields(line);
    if (fields.text(1) == paymentWord)
      count(summary_.paymentCount, summary_.paidRupiah, fields.number(paymentAmountField));
    else if (fields.text(1) == transferWord)
      count(summary_.transferCount, summary_.transferredRupiah, fields.number(transferAmountField));
    else if (fields.text(formCodeField) == store::F113204.kdForm)
      takeMainReturn(fields);
    else
      takeForm(fields);
  }

  ReportSummary finish() {
    if (!hasMainReturn_)
      throw CommandFailure("The report holds no line of a main return.\nAsk for another file from who wrote it.");
    for (const FormPlaces& each : places_)
      if (each.form.count > 0) summary_.forms.push_back(each.form);
    return std::move(summary_);
  }

 private:
  static void count(std::size_t& records, double& sum, double rupiah) {
    ++records;
    sum += rupiah;
  }

  void takeMainReturn(const Fields& fields) {
    if (std::exchange(hasMainReturn_, true)) return;
    const auto field = [](std::string_view name) {
      return returnField + store::findLayout(store::F113204.kdForm)->position(name).value();
    };
    const auto whole = [&](std::string_view name) { return static_cast<std::int16_t>(fields.number(field(name))); };
    summary_.period = {whole("MS_PAJAK"), whole("TH_PAJAK"), whole("KD_PEMBETULAN_KE")};
    summary_.npwp = fields.text(field("npwp"));
    summary_.name = fields.text(field("NmWP"));
    summary_.status = static_cast<int>(fields.number(statusField));
    summary_.grossRupiah = fields.number(field(mainreturn::totalGross));
    summary_.taxRupiah = fields.number(field(mainreturn::totalTax));
  }

  void takeForm(const Fields& fields) {
    const auto found = std::find_if(places_.begin(), places_.end(), [&](const FormPlaces& each) {
      return each.form.kdForm == fields.text(formCodeField);
    });
    if (found == places_.end()) return;
    ++found->form.count;
    found->form.grossRupiah += sumOf(fields, found->gross);
    found->form.taxRupiah += sumOf(fields, found->tax);
  }

  ReportSummary summary_;
  bool hasMainReturn_ = false;
  std::vector<FormPlaces> places_ = allPlaces();
};

}  // namespace

ReportSummary summaryOf(const ReportingFile& report) {
  Progress progress("Summing up", report.lines.size());
  Reading reading;
  std::string line;
  for (std::size_t i = 0; i < report.lines.size(); ++i) {
    // The texts of some forms go on over several lines; a new document begins with the tax kind.
    const bool begins = report.lines[i].starts_with(lineStart);
    if (begins && !line.empty()) reading.take(line);
    if (begins) line.clear();
    line += report.lines[i];
    progress.done(i + 1);
  }
  if (!line.empty()) reading.take(line);
  return reading.finish();
}

}  // namespace tarvola::cli
