#include "tarvola/slips/slip_frame.h"

#include <utility>

#include "tarvola/lists/CD113206.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"

namespace tarvola::slips {
namespace {

using store::Statement;

/// A field by its name, nullptr if it is not there. The exact name comes first: nearly every caller knows it.
const SlipField* findField(std::span<const SlipField> fields, std::string_view name) noexcept {
  for (const SlipField& field : fields)
    if (field.name == name) return &field;
  for (const SlipField& field : fields)
    if (equalsIgnoreCase(field.name, name)) return &field;
  return nullptr;
}

}  // namespace

SlipFrame::SlipFrame(const SlipDescription& description)
    : description_(description), store_(store::StartUpWording::NumberAndOrigin) {}
SlipFrame::~SlipFrame() = default;

RecordsetPtr SlipFrame::rs4_2Form() const { return form_; }
void SlipFrame::rs4_2Form(RecordsetPtr rows) { form_ = std::move(rows); }

RecordsetPtr SlipFrame::dataMember(std::string_view name) const {
  RecordsetPtr member;
  guarded([&] {
    if (name == "Primary") member = header_.get();
    if (name == "Secondary") member = store::chapter(header_.get(), "d4_2Details1");
    if (name == "Ternary") member = store::chapter(header_.get(), "d4_2Details2");
  });
  return member;
}

// --- fields ------------------------------------------------------------------------------------------

Variant SlipFrame::get(std::string_view fieldName) const {
  Variant value;
  guarded([&] { value = store::fieldValue(form_, fieldName); });
  return value;
}

std::string SlipFrame::textField(std::string_view name) const {
  std::string value;
  guarded([&] { value = store::fieldText(form_, name); });
  return value;
}

double SlipFrame::numberField(std::string_view name) const {
  double value = 0;
  guarded([&] { value = store::fieldNumber(form_, name); });
  return value;
}

std::int16_t SlipFrame::integerField(std::string_view name) const {
  std::int16_t value = 0;
  guarded([&] { value = store::fieldInteger(form_, name); });
  return value;
}

void SlipFrame::put(std::string_view fieldName, const Variant& value) {
  guarded([&] {
    const SlipField* field = findField(description_.fields, fieldName);
    if (field == nullptr) fail(ErrorNumber::NoSuchMember);
    write(*field, value);
  });
}

Variant SlipFrame::typedValue(const SlipField& field, const Variant& value) {
  if (field.takesAnyValue) return value;
  switch (field.kind) {
    case FieldKind::Text:
    case FieldKind::Date:
      return CStr(value);
    case FieldKind::Amount:
    case FieldKind::Percent:
      return CDbl(value);
    case FieldKind::Option:
    case FieldKind::WholeNumber:
      break;
  }
  return CInt(value);
}

void SlipFrame::write(const SlipField& field, const Variant& value) {
  store::setField(form_, field.name, typedValue(field, value));
  if (description_.taxOf == nullptr) return;
  for (const AmountRow& row : description_.rows) {
    if (field.name != row.gross && field.name != row.tariff) continue;
    store::setField(form_, row.tax,
                    description_.taxOf(store::fieldValue(form_, row.gross), store::fieldValue(form_, row.tariff)));
  }
}

// --- what is worked out on the loaded slip ----------------------------------------------------------------

void SlipFrame::pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData) {
  status_ = {.add = bAddData, .edit = bEditData, .remove = bDeleteData};
}

void SlipFrame::pAssignOldValues() {
  guarded([&] {
    old_.noBukti = store::fieldTextOr(form_, "NoBukti", store::headerNumber);
    rememberOldValues();
  });
}

void SlipFrame::rememberOldValues() {
  for (std::size_t index = 0; index < description_.rows.size(); ++index) {
    const AmountRow& row = description_.rows[index];
    OldRow& old = old_.rows[index];
    old.grossRupiah = store::fieldNumberOr(form_, row.gross, 0);
    if (description_.remembersTariffs) old.tariffPercent = store::fieldNumberOr(form_, row.tariff, 0);
    old.taxRupiah = store::fieldNumberOr(form_, row.tax, 0);
  }
  if (description_.remembersTaxSum) old_.taxSumRupiah = store::fieldNumberOr(form_, description_.taxSum, 0);
}

void SlipFrame::pHitPjk(std::int16_t nrec) {
  guarded([&] { normalise(nrec); });
}

void SlipFrame::normalise(std::int16_t /*nrec*/) {
  normaliseRows();
  normaliseSums();
}

void SlipFrame::normaliseSums() {
  const RowRange all{.count = description_.rows.size()};
  if (!description_.taxSum.empty()) store::setField(form_, description_.taxSum, sumOfTax(all));
  if (!description_.grossSum.empty()) store::setField(form_, description_.grossSum, sumOfGross(all));
}

void SlipFrame::normaliseRows() {
  const auto normaliseTariffs = [this] {
    for (const AmountRow& row : description_.rows) store::nullToZero(form_, row.tariff);
  };
  if (description_.tariffTurn == TariffTurn::BeforeAmounts) normaliseTariffs();
  for (const AmountRow& row : description_.rows) {
    store::nullToZeroElseInt(form_, row.gross);
    store::nullToZeroElseInt(form_, row.tax);
    if (description_.tariffTurn == TariffTurn::BehindEachRow) store::nullToZero(form_, row.tariff);
  }
  if (description_.tariffTurn == TariffTurn::BehindAllAmounts) normaliseTariffs();
}

double SlipFrame::sumOfGross(RowRange rows) const {
  double sum = 0;
  for (const AmountRow& row : description_.rows.subspan(rows.first, rows.count))
    sum += store::fieldNumber(form_, row.gross);
  return sum;
}

double SlipFrame::sumOfTax(RowRange rows) const {
  double sum = 0;
  for (const AmountRow& row : description_.rows.subspan(rows.first, rows.count))
    sum += store::fieldNumber(form_, row.tax);
  return sum;
}

store::Period SlipFrame::formPeriod() const {
  return {.msPajak = store::fieldInteger(form_, "MS_PAJAK"),
          .thPajak = store::fieldInteger(form_, "TH_PAJAK"),
          .kdPembetulanKe = store::fieldInteger(form_, "KD_PEMBETULAN_KE")};
}

// --- opening and making rows --------------------------------------------------------------------------

store::DocumentKey SlipFrame::keyOf(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                    std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                    std::string_view sNoBukti, std::string_view sJnsPjk) noexcept {
  return {.npwp = sNPWP,
          .kdForm = snmForm,
          .jenisDokumen = sJnsDok,
          .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq},
          .noBukti = sNoBukti,
          .kdJenisPajak = sJnsPjk};
}

/// A slip of this form, of whatever filer.
store::DocumentKey SlipFrame::ownKey(const store::Period& period, std::string_view noBukti) const noexcept {
  return {.npwp = {},
          .kdForm = description_.form.kdForm,
          .jenisDokumen = description_.form.jenisDokumen,
          .period = period,
          .noBukti = noBukti};
}

store::PackedRow SlipFrame::stubStart(const NewSlip& slip) {
  store::PackedRow packed(store::packedHead({.npwp = std::string(slip.key.npwp),
                                             .name = std::string(slip.filerName),
                                             .address = std::string(slip.filerAddress)},
                                            slip.key.period));
  packed.text("Tgl_Potong", slip.dateText);
  return packed;
}

std::string SlipFrame::stubText(const NewSlip& slip) const {
  store::PackedRow packed = stubStart(slip);
  switch (description_.stubEnd) {
    case StubEnd::SlipNumber:
      packed.text("NoBukti", slip.key.noBukti);
      break;
    case StubEnd::KindOfAgent:
      packed.whole(slip.option);
      break;
    case StubEnd::Date:
      break;
  }
  return packed.str();
}

void SlipFrame::createStub(const NewSlip& slip) {
  guarded([&] {
    if (!store::isEmptyResult(store_.execute(store::selectOwnDocument(store::FormTable::Induk, slip.key)))) return;
    store_.execute(store::insertDocument(store::FormTable::Induk, slip.key, stubText(slip), slip.dateText));
  });
}

void SlipFrame::createSlip(const store::FilerHeader& filer, const store::Period& period, std::string_view noBukti,
                           Date dateOfSlip) {
  NewSlip slip{.key = ownKey(period, noBukti),
               .filerName = filer.name,
               .filerAddress = filer.address,
               .dateText = formatDate(dateOfSlip)};
  slip.key.npwp = filer.npwp;
  createStub(slip);
}

void SlipFrame::load(const store::DocumentKey& key) {
  guarded([&] {
    openRows(store::selectDocument(store::FormTable::Induk, key));
    if (!form_->get_BOF() || form_->get_RecordCount() != 0) form_->MoveFirst();
    header_.set(nullptr);
  });
}

/// Opens a text into rs4_2Hdr, which is heard from before it opens. A text that fails leaves a closed recordset there.
void SlipFrame::openStoreRows(const Statement& selection) {
  header_.set(Recordset::create());
  store_.openInto(*header_.get(), selection);
}

void SlipFrame::loadSlip(const store::Period& period, std::string_view noBukti) { load(ownKey(period, noBukti)); }

void SlipFrame::openRows(const Statement& selection) {
  openStoreRows(selection);
  form_ = store_.expand(description_.form.kdForm, header_.get());
}

// --- deleting ----------------------------------------------------------------------------------------

void SlipFrame::deleteSlip(const store::DocumentKey& key) {
  guarded([&] {
    loadForDelete(key);
    pAssignOldValues();
    pAssignStatus(false, false, true);
    savedPeriod_ = key.period;
    const auto& [month, year, correction] = key.period;
    {
      CD113206 list;
      for (const std::int16_t collection : description_.collectionsCleared)
        list.pDeleteD113206Coll(store::D113206.kdForm, month, year, correction, key.noBukti, collection);
      removeStoreRow(key);
      list.recomputeForGood(key.npwp, month, year, correction);
    }
    pUpdF113204();
  });
}

/// Loads the slip under the form's own codes, whatever codes the caller named: those count for the row to delete.
void SlipFrame::loadForDelete(const store::DocumentKey& key) {
  openRows(store::selectDocument(store::FormTable::Induk, ownKey(key.period, key.noBukti)));
  if (!form_->get_BOF()) form_->MoveFirst();
  header_.set(nullptr);
}

void SlipFrame::removeSlip(std::string_view npwp, const store::Period& period, std::string_view noBukti) {
  store::DocumentKey key = ownKey(period, noBukti);
  key.npwp = npwp;
  deleteSlip(key);
}

void SlipFrame::removeStoreRow(const store::DocumentKey& key) const {
  if (store::isEmptyResult(store_.execute(store::selectDocument(store::FormTable::Induk, key)))) return;
  store_.execute(Statement("DELETE * FROM DS_FORM_INDUK WHERE ") << store::documentCondition(key));
}

void SlipFrame::pDelete(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                        std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
                        std::string_view /*sUserName*/, std::string_view /*sNmWP*/, std::string_view /*sAlamat*/,
                        Date /*dTgl_Setor*/) {
  guarded([&] { removeStoreRow(keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk)); });
}

// --- the settings --------------------------------------------------------------------------------------

void SlipFrame::getTaxRate() {
  guarded([&] {
    const RecordsetPtr tariffs =
        store_.open(Statement("SELECT * FROM SETTING_TARIF_PPH WHERE PASAL = 4 AND KODE_FORM = ")
                    << store::text(description_.form.kdForm) << " ORDER BY ITEM_PENGHASILAN ASC");
    if (store::isEmptyResult(tariffs)) {
      for (const DefaultTariff& tariff : description_.defaultTariffs) putTariff(tariff, 0);
      return;
    }
    for (; !tariffs->get_EOF(); tariffs->MoveNext()) {
      const std::string item = store::fieldTextOr(tariffs, "ITEM_PENGHASILAN", "");
      for (const DefaultTariff& tariff : description_.defaultTariffs)
        if (tariff.item == item) putTariff(tariff, store::fieldNumber(tariffs, "TARIF_JML_BRUTO"));
    }
  });
}

void SlipFrame::putTariff(const DefaultTariff& tariff, double percent) {
  for (const std::string_view fieldName : tariff.fields) store::setField(form_, fieldName, percent);
}

}  // namespace tarvola::slips
