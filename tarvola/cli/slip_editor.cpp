#include "tarvola/cli/slip_editor.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "tarvola/cli/damage.h"
#include "tarvola/cli/documents.h"
#include "tarvola/cli/failure.h"
#include "tarvola/cli/terminal.h"
#include "tarvola/slips/CF113310.h"
#include "tarvola/slips/make_slip.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/statement.h"

namespace tarvola::cli {

namespace {

using slips::FieldKind;

/// Fields with a property that nobody fills in here: number and date are options of the commands, filer and period are
/// those of the return, and the total of a bond slip is always computed.
constexpr std::array<std::string_view, 8> notAsked = {"NoBukti", "Tgl_Potong", "npwp",     "NmWP",
                                                      "ALM",     "MS_PAJAK",   "TH_PAJAK", "JML"};
constexpr double tooLarge = 1e15;
/// pHitPjk of the bond slip keeps the tax as it was typed in when it is told True.
constexpr std::int16_t keepTax = -1;
constexpr std::int16_t computeTax = 1;

InputKind inputKind(FieldKind kind) {
  switch (kind) {
    case FieldKind::Date:
      return InputKind::Date;
    case FieldKind::Amount:
      return InputKind::Amount;
    case FieldKind::Percent:
      return InputKind::Percent;
    case FieldKind::Option:
    case FieldKind::WholeNumber:
      return InputKind::Whole;
    case FieldKind::Text:
      break;
  }
  return InputKind::Text;
}

std::vector<InputField> askedFields(const slips::SlipFrame& slip) {
  std::vector<InputField> fields;
  for (const slips::SlipField& field : slip.writableFields())
    if (std::find(notAsked.begin(), notAsked.end(), field.name) == notAsked.end())
      fields.push_back({std::string(field.name), inputKind(field.kind), std::string(field.label)});
  return fields;
}

bool isInterest(const SlipForm& form) { return form.codes.kdForm == store::F113310.kdForm; }
bool isConstruction(const SlipForm& form) { return form.codes.kdForm == store::F113316.kdForm; }
bool isBond(const SlipForm& form) { return form.codes.kdForm == store::F113317.kdForm; }

bool isSame(const Variant& left, const Variant& right) {
  if (IsNumeric(left) && IsNumeric(right)) return CDbl(left) == CDbl(right);
  return left.isString() && right.isString() && left.string() == right.string();
}

bool isAmount(const InputValue& value) { return value.kind != InputKind::Text && value.kind != InputKind::Date; }

/// A deposit is domestic or foreign. Whoever says one side takes it off the other, since a row on both sides would be
/// counted twice in the return.
InputValues withOneSide(InputValues values) {
  constexpr std::array<std::array<std::string_view, 2>, 5> sides = {
      {{"OPTDN1", "OPTLN1"}, {"OPTDN2", "OPTLN2"}, {"OPTDN3", "OPTLN3"}, {"OPTDN4", "OPTLN4"}, {"OPTDN5", "OPTLN5"}}};
  const auto isChosen = [](const InputValue* value) { return value != nullptr && CDbl(value->value) == 1; };
  for (const auto& side : sides) {
    const InputValue* domestic = findValue(values, side[0]);
    const InputValue* foreign = findValue(values, side[1]);
    if (isChosen(domestic) && isChosen(foreign))
      throw CommandFailure(std::string(side[0]) + " and " + std::string(side[1]) +
                               " are both 1; the row would count twice in the return.\nSet the side that the deposit "
                               "belongs to, and the other to 0.",
                           Usage);
    if (isChosen(domestic) && foreign == nullptr) values.push_back({std::string(side[1]), InputKind::Whole, 0.0});
    if (isChosen(foreign) && domestic == nullptr) values.push_back({std::string(side[0]), InputKind::Whole, 0.0});
  }
  return values;
}

/// A field that says nothing, as a stored slip reads: no text, no number.
Variant nothing(store::FieldType type) {
  const bool isText = type == store::FieldType::Text || type == store::FieldType::DateText;
  return isText ? Variant("") : Variant::null();
}

/// A row that was just added holds Empty in every field, which is another thing to the rules than a slip that says
/// nothing.
void clearFields(const RecordsetPtr& row, std::string_view kdForm) {
  const store::FormLayout& layout = *store::findLayout(kdForm);
  for (const store::LayoutPosition& position : layout.positions)
    for (const store::LayoutField& field : position.fields) row->put_Collect(field.name, nothing(field.type));
  for (const store::LayoutField& field : layout.extras) row->put_Collect(field.name, nothing(field.type));
}

/// Whether nominal value, rate or periods of a bond change, which its interest may or may not follow.
bool movesInterest(const InputValues& values) {
  constexpr std::array<std::string_view, 4> inputs = {"b1", "d1", "HoldingPeriode", "TimePeriode"};
  return std::any_of(inputs.begin(), inputs.end(),
                     [&](std::string_view input) { return findValue(values, input) != nullptr; });
}

/// A row of planning or supervision of which nobody says which it is, is neither. A save could not tell it from a
/// failure.
void chooseServices(slips::SlipFrame& slip) {
  for (const std::string_view option : {"Opt4", "Opt5"})
    if (slip.get(option).isNull()) slip.put(option, std::int16_t{0});
}

void requireOptions(const InputValues& values) {
  for (const InputValue& value : values) {
    const bool isService = equalsIgnoreCase(value.name, "Opt4") || equalsIgnoreCase(value.name, "Opt5");
    const bool isSide = value.name.rfind("OPTDN", 0) == 0 || value.name.rfind("OPTLN", 0) == 0;
    if ((isService && CDbl(value.value) > 2) || (isSide && CDbl(value.value) > 1))
      throw CommandFailure(value.name + ": there is no option " + CStr(value.value) + ".\n" +
                               (isService ? "1 is planning, 2 supervision, 0 neither." : "1 is yes, 0 is no."),
                           Usage);
  }
}

}  // namespace

std::vector<InputField> slipFields(const SlipForm& form) { return askedFields(*slips::makeSlip(form.codes.kdForm)); }

SlipEditor::SlipEditor(const SlipForm& form, const Period& period)
    : form_(form), period_(period), filer_(readFiler()), slip_(slips::makeSlip(form.codes.kdForm)) {
  fields_ = askedFields(*slip_);
}

SlipEditor::~SlipEditor() = default;

// --- numbers ---------------------------------------------------------------------------------------------

void SlipEditor::requireFree(std::string_view number) {
  requireSlipNumber(number);
  const Messages messages;
  const RecordsetPtr holders = slip_->pCheckNoBukti(filer_.npwp, period_.year, number, period_.correction);
  messages.throwIfAny();
  if (!holders->get_EOF())
    throw CommandFailure("The number " + std::string(number) + " is taken: a slip of " + std::to_string(period_.year) +
                         " holds it.\nThe next free number is " + nextNumber() + ".");
}

std::string SlipEditor::nextNumber() {
  const Messages messages;
  CGeneralClass general;
  const Variant parts = general.pGetNoBuktiHdr(store::taxArticle);
  const std::string suffix = CStr(parts.array().at(1));
  std::string proposal = slip_->getNoBuktiHdr(period_.year, period_.correction);
  messages.throwIfAny();
  const RecordsetPtr numbers =
      general.pGetRecordDbase((store::Statement("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE KD_JENIS_PAJAK = ")
                               << store::text(store::taxKind) << " AND TH_PAJAK = " << std::int32_t{period_.year}
                               << " AND KD_PEMBETULAN_KE = " << std::int32_t{period_.correction})
                                  .str());
  double greatest = CDbl(parts.array().at(0)) - 1;
  bool proposalIsFree = !proposal.empty() && proposal.ends_with(suffix);
  for (; numbers != nullptr && !numbers->get_EOF(); numbers->MoveNext()) {
    const std::string number = CStr(numbers->get_Collect("NOBUKTI"));
    if (number == proposal) proposalIsFree = false;
    if (number.size() == 6 + suffix.size() && number.ends_with(suffix))
      greatest = std::max(greatest, tryNumber(std::string_view(number).substr(0, 6)).value_or(0));
  }
  if (proposalIsFree) return proposal;
  if (greatest >= 999999)
    throw CommandFailure("All six-digit numbers of the year are used up.\nGive one with --number.");
  return Format(greatest + 1, "000000") + suffix;
}

// --- making and loading a slip ----------------------------------------------------------------------------

/// A new slip begins as named fields in memory, not as a row of the store: until the save there is nothing that an
/// interrupted command could leave behind.
void SlipEditor::start() {
  const Messages messages;
  slip_->loadSlip(storePeriod(period_), store::headerNumber);
  messages.throwIfAny();
  const RecordsetPtr row = slip_->rs4_2Form();
  row->AddNew();
  clearFields(row, form_.codes.kdForm);
  row->put_Collect("npwp", filer_.npwp);
  row->put_Collect("NmWP", filer_.name);
  row->put_Collect("ALM", filer_.address);
  row->put_Collect("MS_PAJAK", period_.month);
  row->put_Collect("TH_PAJAK", period_.year);
  row->put_Collect("KD_PEMBETULAN_KE", period_.correction);
  slip_->pAssignOldValues();
  slip_->pAssignStatus(true, false, false);
  slip_->getTaxRate();
  slip_->pHitPjk(computeTax);
  messages.throwIfAny();
}

Variant SlipEditor::current(const InputField& field) const { return slip_->get(field.name); }

void SlipEditor::put(const InputValue& value) {
  const Messages messages;
  slip_->put(value.name, value.value);
  messages.throwIfAny();
}

void SlipEditor::load(const std::string& number) {
  const Messages messages;
  slip_->loadSlip(storePeriod(period_), number);
  messages.throwIfAny();
  const RecordsetPtr row = slip_->rs4_2Form();
  const std::int32_t count = row->get_RecordCount();
  if (count == 0)
    throw CommandFailure("There is no slip " + number + " of form " + std::string(form_.codes.kdForm) +
                         " in the return " + period_.text() + ".\nSee its slips with: tarvola slip list");
  if (count > 1)
    throw CommandFailure(std::to_string(count) + " slips of form " + std::string(form_.codes.kdForm) +
                         " hold the number " + number + ".\nSee what the store holds with: tarvola return check");
}

// --- values ----------------------------------------------------------------------------------------------

/// Writes the values in the order of the form: a tax behind its gross and tariff, so that a tax that was typed in
/// stands.
void SlipEditor::apply(const InputValues& values) {
  const Messages messages;
  if (isConstruction(form_)) chooseServices(*slip_);
  if (isBond(form_)) interestBefore_ = CDbl(slip_->get("k2"));
  // While there is no time period the interest of a bond is 0; it is computed anew when the periods are written again.
  const InputValue* interest = isBond(form_) ? findValue(values, "k2") : nullptr;
  const bool computesInterest = interest != nullptr && CDbl(interest->value) == 0;
  const Variant timePeriod = computesInterest ? slip_->get("TimePeriode") : Variant();
  if (computesInterest) slip_->put("TimePeriode", 0.0);
  for (const InputField& field : fields_) {
    const InputValue* value = findValue(values, field.name);
    if (computesInterest && field.name == "k2") continue;
    if (value != nullptr)
      slip_->put(field.name, value->value);
    else if (computesInterest && field.name == "TimePeriode")
      slip_->put(field.name, timePeriod);
  }
  messages.throwIfAny();
}

void SlipEditor::compute(const InputValues& values) {
  const Messages messages;
  // A tax that was typed in stays, and so does one that was stored while only texts change.
  const bool keeps = findValue(values, "PPhFinal") != nullptr || std::none_of(values.begin(), values.end(), isAmount);
  slip_->pHitPjk(isBond(form_) && keeps ? keepTax : computeTax);
  messages.throwIfAny();
  requireSaneAmounts();
  noteDifferences(values);
}

void SlipEditor::requireSaneAmounts() const {
  for (const std::string_view field : {form_.gross, form_.tax}) {
    const Variant sum = slip_->get(field);
    if (!IsNumeric(sum) || !std::isfinite(CDbl(sum)) || std::fabs(CDbl(sum)) >= tooLarge)
      throw CommandFailure(
          std::string(field) + ": the sum of the slip has more than 15 digits.\nAmounts are whole rupiah.", Usage);
  }
  requirePlausibleTax(form_.tax, CDbl(slip_->get(form_.gross)), CDbl(slip_->get(form_.tax)));
}

void SlipEditor::noteDifferences(const InputValues& values) {
  for (const InputValue& value : values) {
    const Variant now = slip_->get(value.name);
    if (!isAmount(value) || isSame(now, value.value) || now.isNull()) continue;
    if (value.name == "k2" && CDbl(value.value) == 0) continue;
    notes_.push_back(
        value.name + " is stored as " + CStr(now) + ", not " + CStr(value.value) +
        (value.kind == InputKind::Amount ? ": amounts are whole rupiah and follow the form's own computation." : "."));
  }
  if (interestBefore_ != 0 && movesInterest(values) && findValue(values, "k2") == nullptr)
    notes_.push_back("the interest k2 is " + CStr(slip_->get("k2")) +
                     ". Once it is not 0 it stays as long as there is a time period; --set k2=0 has it computed anew.");
}

// --- saving ----------------------------------------------------------------------------------------------

void SlipEditor::add(const std::string& number, const std::string& date, const InputValues& given) {
  const InputValues values = withOneSide(given);
  requireOptions(values);
  start();
  slip_->rs4_2Form()->put_Collect("NoBukti", number);
  slip_->rs4_2Form()->put_Collect("Tgl_Potong", date);
  apply(values);
  notes_.clear();
  compute(values);
  try {
    save("", number);
  } catch (const CommandFailure& failure) {
    takeBack(number, failure.what());
  }
}

void SlipEditor::change(const std::string& number, const std::string& newNumber, const std::string& newDate,
                        const InputValues& given) {
  const InputValues values = withOneSide(given);
  requireOptions(values);
  requireWhole(packedFaults(form_.codes, period_, number), "It cannot be changed; remove it and enter it anew.");
  load(number);
  const Messages messages;
  slip_->pAssignOldValues();
  slip_->pAssignStatus(false, true, false);
  messages.throwIfAny();
  const std::string finalNumber = newNumber.empty() ? number : newNumber;
  slip_->put("NoBukti", finalNumber);
  if (!newDate.empty()) slip_->put("Tgl_Potong", newDate);
  apply(values);
  notes_.clear();
  compute(values);
  save(number, finalNumber);
}

/// The interest lines of a slip are found by its payee and number, so those of the stored slip go before it changes.
void SlipEditor::save(const std::string& oldNumber, const std::string& newNumber) {
  const Messages messages;
  if (isInterest(form_) && !oldNumber.empty()) {
    SlipEditor stored(form_, period_);
    stored.load(oldNumber);
    stored.removeInterestLines();
  }
  slip_->pUpdate();
  if (messages.failures().empty() && isInterest(form_)) addInterestLines();
  if (messages.failures().empty() && !oldNumber.empty() && oldNumber != newNumber) removeListRow(oldNumber);
  if (messages.failures().empty()) return;
  if (oldNumber.empty()) messages.throwIfAny();
  throw CommandFailure("The slip could not be saved whole: " + messages.failures().front() +
                       "\nBring lists and return in step with: tarvola return recount, and see: tarvola return check");
}

/// Takes a new slip out again whose save failed, wherever it failed.
void SlipEditor::takeBack(const std::string& number, const std::string& reason) {
  const Messages messages;
  deleteRow(number);
  removeListRow(number);
  const RebuildOutcome rebuilt = rebuildReturn(period_.month, period_.year, period_.correction);
  if (messages.failures().empty() && rebuilt.failures.empty())
    throw CommandFailure("The slip was not saved: " + reason + "\nThe store holds nothing of it.");
  throw CommandFailure("The slip was not saved: " + reason +
                       "\nSee what the store holds of it with: tarvola return check");
}

/// What a damaged slip had in list and return cannot be read from it, so they are recounted from what is left.
void SlipEditor::removeDamaged(const std::string& number) {
  const Messages messages;
  if (isInterest(form_))
    CGeneralClass().pExecQuery((store::Statement("DELETE * FROM D113210 WHERE NOBUKTI = ")
                                << store::text(number) << " AND " << store::periodCondition(storePeriod(period_)))
                                   .str());
  deleteRow(number);
  removeListRow(number);
  const RebuildOutcome rebuilt = rebuildReturn(period_.month, period_.year, period_.correction);
  messages.throwIfAny();
  if (!rebuilt.failures.empty())
    throw CommandFailure("The slip " + number + " is removed, but the return could not be recounted: " +
                         rebuilt.failures.front() + "\nSee what is wrong with: tarvola return check");
}

void SlipEditor::deleteRow(const std::string& number) {
  slip_->pDelete(filer_.npwp, form_.codes.kdForm, form_.codes.jenisDokumen, period_.month, period_.year,
                 period_.correction, number, store::taxKind, "", "", "", today());
}

/// A list row is found by its slip's number, so a slip that changes its number leaves the old one behind.
void SlipEditor::removeListRow(const std::string& number) const {
  CD113206().pDeleteD113206Coll(store::D113206.kdForm, period_.month, period_.year, period_.correction, number, 0);
}

void SlipEditor::addInterestLines() { dynamic_cast<CF113310&>(*slip_).pInsert_D113210(); }
void SlipEditor::removeInterestLines() { dynamic_cast<CF113310&>(*slip_).pDelD113210(); }

void SlipEditor::remove(const std::string& number) {
  load(number);
  if (!packedFaults(form_.codes, period_, number).empty()) return removeDamaged(number);
  const Messages messages;
  if (isInterest(form_)) removeInterestLines();
  slip_->removeSlip(filer_.npwp, storePeriod(period_), number);
  messages.throwIfAny();
}

}  // namespace tarvola::cli
