#include "tarvola/cli/selfpaid_editor.h"

#include <algorithm>

#include "tarvola/cli/damage.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/selfpaid_handle.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/store/statement.h"

namespace tarvola::cli {

namespace {

InputField text(const char* name, const char* label) { return {name, InputKind::Text, label}; }
InputField amount(const char* name, const char* label) { return {name, InputKind::Amount, label}; }

const InputField location = text("Lokasi", "Lokasi Tanah dan atau Bangunan");
const InputField remark = text("keterangan", "Keterangan");
const InputField gross = amount("JMLBRUTO", "Jumlah Penghasilan Bruto");
const InputField tax = amount("PPH", "PPh Yang Dibayar Sendiri");

std::string seqText(double seq) { return numberLiteral(seq); }

/// Where a form that is added beside another on the same payment begins from nothing.
Variant nothing(const InputField& field) { return field.kind == InputKind::Text ? Variant("") : Variant(0.0); }

}  // namespace

// --- the forms -------------------------------------------------------------------------------------------

const std::vector<SelfPaidForm>& selfPaidForms() {
  static const std::vector<SelfPaidForm> forms = {
      {.codes = store::FSewaTnhBgn,
       .list = store::DSewaTnhBgn,
       .word = "rent",
       .printedName = "Persewaan Tanah dan/atau Bangunan",
       .gross = {"JMLBRUTO"},
       .tax = {"PPH"},
       .fields = {location, gross, tax, remark}},
      {.codes = store::FAlihTnhBgn,
       .list = store::DAlihTnhBgn,
       .word = "transfer",
       .printedName = "Pengalihan Hak atas Tanah dan/atau Bangunan",
       .gross = {"JMLBRUTO"},
       .tax = {"PPH"},
       .fields = {location, gross, tax, remark}},
      {.codes = store::FJasaKonstruksi,
       .list = store::DJasaKonstruksi,
       .word = "construction",
       .printedName = "Usaha Jasa Konstruksi",
       .gross = {"JmlBruto1", "JmlBruto2", "JmlBruto3"},
       .tax = {"PPH1", "PPH2", "PPH3"},
       .fields = {amount("JmlBruto1", "Bruto Perencana Konstruksi"), amount("PPH1", "PPh Perencana Konstruksi"),
                  amount("JmlBruto2", "Bruto Pelaksana Konstruksi"), amount("PPH2", "PPh Pelaksana Konstruksi"),
                  amount("JmlBruto3", "Bruto Pengawas Konstruksi"), amount("PPH3", "PPh Pengawas Konstruksi"),
                  remark}}};
  return forms;
}

const SelfPaidForm& requireSelfPaidForm(std::string_view codeOrWord) {
  std::string known;
  for (const SelfPaidForm& form : selfPaidForms()) {
    if (equalsIgnoreCase(form.codes.kdForm, codeOrWord) || equalsIgnoreCase(form.word, codeOrWord)) return form;
    known.append(known.empty() ? "" : ", ").append(form.codes.kdForm).append(" (").append(form.word).append(")");
  }
  if (codeOrWord.empty()) throw CommandFailure("No form is named.\nName one with --form: " + known + ".", Usage);
  throw CommandFailure("There is no self-paid form \"" + std::string(codeOrWord) + "\".\nThere are: " + known + ".",
                       Usage);
}

void requirePaymentNumber(std::string_view ntpn) {
  const bool isPlain = std::all_of(ntpn.begin(), ntpn.end(), [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  });
  if (ntpn.empty() || ntpn.size() > 32 || !isPlain)
    throw CommandFailure("\"" + std::string(ntpn) +
                             "\" is no payment number (NTPN).\nIt has letters and digits only, as 4845931239000001.",
                         Usage);
}

// --- numbers ---------------------------------------------------------------------------------------------

SelfPaidEditor::SelfPaidEditor(const SelfPaidForm& form, const Period& period)
    : form_(form), period_(period), handle_(makeHandle(form)) {}

SelfPaidEditor::~SelfPaidEditor() = default;

double SelfPaidEditor::nextSeq() {
  const Messages messages;
  const double next = handle_->frame().pGetMaxSeqNo(period_.month, period_.year, period_.correction, 0);
  messages.throwIfAny();
  return next;
}

std::vector<double> SelfPaidEditor::seqsOf(const std::string& ntpn) const {
  std::vector<double> seqs;
  for (const RecordsetPtr rows = expandedDocuments(form_.codes, period_, ntpn); !rows->get_EOF(); rows->MoveNext())
    seqs.push_back(fieldNumber(rows, "SEQ"));
  std::sort(seqs.begin(), seqs.end());
  return seqs;
}

double SelfPaidEditor::requireSeq(const std::string& ntpn, const std::optional<double>& given) const {
  requirePaymentNumber(ntpn);
  const std::vector<double> seqs = seqsOf(ntpn);
  const std::string where = std::string(form_.codes.kdForm) + " with payment " + ntpn;
  if (seqs.empty() || (given && std::count(seqs.begin(), seqs.end(), *given) == 0))
    throw CommandFailure("There is no form " + where + (given ? " and SEQ " + seqText(*given) : std::string()) +
                         " in the return " + period_.text() + ".\nSee its forms with: tarvola selfpaid list");
  if (given) return *given;
  if (seqs.size() == 1) return seqs.front();
  std::string all;
  for (const double seq : seqs) all += (all.empty() ? "" : ", ") + seqText(seq);
  throw CommandFailure("Several forms " + where + " stand in the return " + period_.text() +
                       ".\nName one with --seq: " + all + ".");
}

/// A form is found by a pattern in its packed text, which may match another form of the same payment as well: one whose
/// amounts or texts read like number and SEQ. Such a form must not be taken for the one that is meant.
void SelfPaidEditor::requireDistinct(const std::string& ntpn, double seq) const {
  CGeneralClass general;
  store::Statement select("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE KD_FORM = ");
  select << store::text(form_.codes.kdForm) << " AND NOBUKTI = " << store::text(ntpn) << " AND "
         << store::periodCondition(storePeriod(period_));
  const RecordsetPtr rows = general.pGetRecordDbase(select.str());
  const std::string mark = ";" + ntpn + ";" + seqText(seq) + ";";
  int matches = 0;
  for (; rows != nullptr && !rows->get_EOF(); rows->MoveNext())
    if (CStr(rows->get_Collect("DAT_FORM")).find(mark) != std::string::npos) ++matches;
  if (matches > 1)
    throw CommandFailure(
        "Several forms of payment " + ntpn + " read like SEQ " + seqText(seq) +
        ", so that they cannot be told apart safely.\nSee what the store holds with: tarvola return check");
}

// --- saving ----------------------------------------------------------------------------------------------

/// Loads what a new form starts from: an empty row, or, on a payment that stands on a form already, that form without
/// its old values, so that the save adds a row.
void SelfPaidEditor::begin(const std::string& ntpn, const std::string& date) {
  selfpaid::SelfPaidFrame& frame = handle_->frame();
  const std::vector<double> seqs = seqsOf(ntpn);
  if (seqs.empty()) handle_->create(readFiler(), period_, ntpn, date);
  frame.pGet("", form_.codes.kdForm, form_.codes.jenisDokumen, period_.month, period_.year, period_.correction, ntpn,
             store::taxKind, "", "", today(), seqs.empty() ? 0 : seqs.front());
  if (seqs.empty()) frame.pAssignOldValues();
  frame.pAssignStatus(true, false, false);
  frame.aTGL_POTONG(date);
  for (const InputField& field : form_.fields) handle_->put(field.name, nothing(field));
}

void SelfPaidEditor::apply(const InputValues& values) {
  for (const InputField& field : form_.fields)
    if (const InputValue* value = findValue(values, field.name)) handle_->put(field.name, value->value);
  handle_->frame().pHitPjk(1);
}

void SelfPaidEditor::requirePlausible(const std::string& ntpn, double seq, const InputValues& values) const {
  const RecordsetPtr stored = expandedDocuments(form_.codes, period_, ntpn);
  while (!stored->get_EOF() && fieldNumber(stored, "SEQ") != seq) stored->MoveNext();
  const auto amount = [&](std::string_view field) {
    const InputValue* value = findValue(values, field);
    if (value != nullptr) return CDbl(value->value);
    return stored->get_EOF() ? 0.0 : fieldNumber(stored, field);
  };
  for (std::size_t i = 0; i < form_.gross.size(); ++i)
    requirePlausibleTax(form_.tax[i], amount(form_.gross[i]), amount(form_.tax[i]));
}

void SelfPaidEditor::add(const std::string& ntpn, double seq, const std::string& date, const InputValues& values) {
  requireWhole(packedFaults(form_.codes, period_, ntpn), "No form is added beside it; remove it and enter it anew.");
  const std::vector<double> seqs = seqsOf(ntpn);
  if (std::count(seqs.begin(), seqs.end(), seq) > 0)
    throw CommandFailure("Payment " + ntpn + " stands on a form with SEQ " + seqText(seq) +
                         " already.\nThe next free SEQ is " + seqText(nextSeq()) + ".");
  requirePlausible(ntpn, seq, values);
  const Messages messages;
  try {
    begin(ntpn, date);
    handle_->frame().aSEQ(seq);
    apply(values);
    messages.throwIfAny();
    handle_->frame().pUpdate();
    messages.throwIfAny();
  } catch (const CommandFailure& failure) {
    takeBack(ntpn, seq, seqs.empty(), failure.what());
  }
}

/// Takes a new form out again whose save failed, wherever it failed. If it is the first of its payment, all that the
/// payment has is of it; a form that the payment stood on before stays.
void SelfPaidEditor::takeBack(const std::string& ntpn, double seq, bool isFirst, const std::string& reason) {
  const Messages messages;
  std::unique_ptr<Handle> fresh = makeHandle(form_);
  const std::vector<double> seqs = seqsOf(ntpn);
  if (isFirst)
    fresh->frame().pDelete(readFiler().npwp, form_.codes.kdForm, form_.codes.jenisDokumen, period_.month, period_.year,
                           period_.correction, ntpn, store::taxKind, "", "", today());
  else if (std::count(seqs.begin(), seqs.end(), seq) > 0)
    fresh->frame().pDeleteForm(readFiler().npwp, form_.codes.kdForm, form_.codes.jenisDokumen, period_.month,
                               period_.year, period_.correction, ntpn, store::taxKind, seq);
  fresh->removeListRow(period_, ntpn, seq);
  const RebuildOutcome rebuilt = rebuildReturn(period_.month, period_.year, period_.correction);
  if (messages.failures().empty() && rebuilt.failures.empty())
    throw CommandFailure("The form was not saved: " + reason + "\nThe store holds nothing of it.");
  throw CommandFailure("The form was not saved: " + reason +
                       "\nSee what the store holds of it with: tarvola return check");
}

void SelfPaidEditor::change(const std::string& ntpn, double seq, const std::string& newNtpn, const std::string& newDate,
                            const InputValues& values) {
  requireWhole(packedFaults(form_.codes, period_, ntpn), "It cannot be changed; remove it and enter it anew.");
  requireDistinct(ntpn, seq);
  requirePlausible(ntpn, seq, values);
  const Messages messages;
  selfpaid::SelfPaidFrame& frame = handle_->frame();
  frame.pGet("", form_.codes.kdForm, form_.codes.jenisDokumen, period_.month, period_.year, period_.correction, ntpn,
             store::taxKind, "", "", today(), seq);
  frame.pAssignOldValues();
  frame.pAssignStatus(false, true, false);
  if (!newNtpn.empty()) frame.aNTTP(newNtpn);
  if (!newDate.empty()) frame.aTGL_POTONG(newDate);
  apply(values);
  messages.throwIfAny();
  frame.pUpdate();
  // A list row is found by its form's payment number, so a form that changes it leaves the old one behind.
  if (messages.failures().empty() && !newNtpn.empty() && newNtpn != ntpn) handle_->removeListRow(period_, ntpn, seq);
  if (!messages.failures().empty())
    throw CommandFailure(
        "The form could not be saved whole: " + messages.failures().front() +
        "\nBring lists and return in step with: tarvola return recount, and see: tarvola return check");
}

/// Whether the amounts of a form can be read, so that list and return can be moved by them.
bool SelfPaidEditor::hasAmounts(const std::string& ntpn, double seq) const {
  const auto isReadable = [](const RecordsetPtr& row, const std::vector<std::string_view>& fields) {
    return std::all_of(fields.begin(), fields.end(),
                       [&](std::string_view field) { return IsNumeric(row->get_Collect(field)); });
  };
  for (const RecordsetPtr rows = expandedDocuments(form_.codes, period_, ntpn); !rows->get_EOF(); rows->MoveNext())
    if (fieldNumber(rows, "SEQ") == seq) return isReadable(rows, form_.gross) && isReadable(rows, form_.tax);
  return false;
}

/// What a damaged form had in list and return cannot be read from it, nor which of its payment's list rows is its own.
/// So it goes with all that the payment has, and list and return are recounted from what is left.
void SelfPaidEditor::removeDamaged(const std::string& ntpn) {
  if (seqsOf(ntpn).size() > 1)
    throw CommandFailure("The form cannot be read, and payment " + ntpn +
                         " stands on others as well.\nRemove those that can be read first.");
  const Messages messages;
  handle_->frame().pDelete(readFiler().npwp, form_.codes.kdForm, form_.codes.jenisDokumen, period_.month, period_.year,
                           period_.correction, ntpn, store::taxKind, "", "", today());
  CGeneralClass().pExecQuery((store::Statement("DELETE * FROM LAMPIRAN_SSP_PPh22 WHERE KD_FORM = ")
                              << store::text(form_.list.kdForm) << " AND NOBUKTI = " << store::text(ntpn) << " AND "
                              << store::periodCondition(storePeriod(period_)))
                                 .str());
  const RebuildOutcome rebuilt = rebuildReturn(period_.month, period_.year, period_.correction);
  messages.throwIfAny();
  if (!rebuilt.failures.empty())
    throw CommandFailure("The form of payment " + ntpn + " is removed, but the return could not be recounted: " +
                         rebuilt.failures.front() + "\nSee what is wrong with: tarvola return check");
}

void SelfPaidEditor::remove(const std::string& ntpn, double seq) {
  if (!hasAmounts(ntpn, seq)) return removeDamaged(ntpn);
  requireDistinct(ntpn, seq);
  const Messages messages;
  handle_->frame().pDeleteForm(readFiler().npwp, form_.codes.kdForm, form_.codes.jenisDokumen, period_.month,
                               period_.year, period_.correction, ntpn, store::taxKind, seq);
  messages.throwIfAny();
}

}  // namespace tarvola::cli
