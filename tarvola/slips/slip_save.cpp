// Saving a slip: its store row, the number memory, the list.
#include <string>

#include "tarvola/lists/CD113206.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/slips/slip_frame.h"
#include "tarvola/store/CGeneralClass.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/module_state.h"

namespace tarvola::slips {
namespace {

/// FlagNPWP of a slip: whether its filer had an NPWP when it was saved.
constexpr std::int16_t filerHasNpwp = 1;
constexpr std::int16_t filerHasNoNpwp = 2;
/// What the rule for filers without an NPWP divides the tax totals by: under today's rule the amounts stay, and the
/// surcharge does not enter a slip.
constexpr double noNpwpDivisor = 1.0;

}  // namespace

void SlipFrame::pUpdate() {
  guarded([&] {
    beforeSave();
    const std::string packed = store_.pack(form_);
    openStoreRows(selectStoredRow());
    const RecordsetPtr storeRow = header_.get();
    if (store::isEmptyResult(storeRow)) startStoreRow(storeRow);
    fillStoreRow(storeRow, packed);
    store::saveAndRequery(storeRow);
    moveNumberMemory();
    savedPeriod_ = formPeriod();
    beforeRollUp();
    pUpdD113206();
    pUpdF113204();
    if (!description_.keepsNamedFieldsAfterSave) form_ = nullptr;
    header_.set(nullptr);
  });
}

/// The stored row is found by the old number, so that a save can change it.
store::Statement SlipFrame::selectStoredRow() const {
  const std::string npwp = store::fieldText(form_, "npwp");
  const store::DocumentKey key{.npwp = npwp,
                               .kdForm = description_.form.kdForm,
                               .jenisDokumen = description_.form.jenisDokumen,
                               .period = formPeriod(),
                               .noBukti = old_.noBukti};
  return description_.saveAsksForFiler ? store::selectOwnDocument(store::FormTable::Induk, key)
                                       : store::selectDocument(store::FormTable::Induk, key);
}

/// A new store row with its key and dates. A row that is found keeps both dates: an edit does not touch the date of
/// change.
void SlipFrame::startStoreRow(const RecordsetPtr& storeRow) const {
  const std::string recordedOn = formatDate(today());
  storeRow->AddNew();
  store::setField(storeRow, "NPWP", store::fieldValue(form_, "npwp"));
  store::setField(storeRow, "KD_FORM", description_.form.kdForm);
  store::setField(storeRow, "JENIS_DOKUMEN", description_.form.jenisDokumen);
  for (const std::string_view column : {"MS_PAJAK", "TH_PAJAK", "KD_PEMBETULAN_KE"})
    store::setField(storeRow, column, store::fieldValue(form_, column));
  store::setField(storeRow, "KD_JENIS_PAJAK", store::taxKind);
  store::setField(storeRow, "TGL_REKAM", recordedOn);
  store::setField(storeRow, "TGL_UBAH", recordedOn);
  store::setField(storeRow, "NIP", "");
}

void SlipFrame::fillStoreRow(const RecordsetPtr& storeRow, const std::string& packed) {
  const bool withoutNpwp = moduleState().bNonNPWP;
  store::setField(storeRow, "FlagNPWP", withoutNpwp ? filerHasNoNpwp : filerHasNpwp);
  store::setField(storeRow, "DAT_FORM", packed);
  store::setField(storeRow, "NOBUKTI", store::fieldValue(form_, "NoBukti"));
  computeTotals();
  writeTotals(storeRow);
  if (!withoutNpwp) return;
  for (const TotalColumns& total : description_.totals)
    store::setField(storeRow, total.tax, store::fieldNumber(storeRow, total.tax) / noNpwpDivisor);
}

void SlipFrame::writeTotals(const RecordsetPtr& storeRow) {
  for (const TotalColumns& total : description_.totals) {
    store::setField(storeRow, total.gross, sumOfGross(total.rows));
    store::setField(storeRow, total.tax, sumOfTax(total.rows));
  }
}

void SlipFrame::moveNumberMemory() const {
  const ModuleState settings = moduleState();
  CGeneralClass general;
  general.pSetCon(settings.sDSN, settings.sUID, settings.sPWD);
  general.pUpdateNoNuktiHdr(store::taxArticle, store::fieldText(form_, "NoBukti"));
}

// --- the list ----------------------------------------------------------------------------------------

SlipFrame::ListAmounts SlipFrame::listAmounts() const {
  const RowRange all{.count = description_.rows.size()};
  ListAmounts amounts;
  amounts.grossRupiah = sumOfGross(all);
  amounts.taxRupiah = description_.taxSum.empty() ? sumOfTax(all) : store::fieldNumber(form_, description_.taxSum);
  for (std::size_t row = 0; row < all.count; ++row) {
    const AmountRow& fields = description_.rows[row];
    amounts.grossChangeRupiah += store::fieldNumber(form_, fields.gross) - old_.rows[row].grossRupiah;
    if (description_.remembersTaxSum) continue;
    amounts.taxChangeRupiah += store::fieldNumber(form_, fields.tax) - old_.rows[row].taxRupiah;
  }
  if (description_.remembersTaxSum) amounts.taxChangeRupiah = amounts.taxRupiah - old_.taxSumRupiah;
  return amounts;
}

SlipFrame::Amounts SlipFrame::changeOf(std::size_t row) const {
  const AmountRow& fields = description_.rows[row];
  return {.grossRupiah = store::fieldNumber(form_, fields.gross) - old_.rows[row].grossRupiah,
          .taxRupiah = store::fieldNumber(form_, fields.tax) - old_.rows[row].taxRupiah};
}

SlipFrame::Amounts SlipFrame::takenAway(std::size_t row) const {
  return {.grossRupiah = -old_.rows[row].grossRupiah, .taxRupiah = -old_.rows[row].taxRupiah};
}

std::string SlipFrame::listDate() const {
  const Variant date = store::fieldValue(form_, "Tgl_Potong");
  switch (description_.listDate) {
    case ListDate::DayMonthYear:
      return Format(date, "dd/MM/yyyy");
    case ListDate::DefaultText:
      return CStr(CDate(date));
    case ListDate::AsItStands:
      break;
  }
  return CStr(date);
}

void SlipFrame::pUpdD113206() {
  guarded([&] {
    constexpr std::int16_t collection = 0;
    const ListAmounts amounts = listAmounts();
    const store::Period period = formPeriod();
    CD113206 list;
    list.pCreateD113206Hdr(period.msPajak, period.thPajak, period.kdPembetulanKe, collection,
                           store::fieldText(form_, "NoBukti"), store::fieldText(form_, "NPWPLT"),
                           store::fieldText(form_, "ALMLT"), store::fieldText(form_, "NMWPLT"), listDate(),
                           amounts.grossRupiah, amounts.taxRupiah);
    list.pAssignStatus(status_.add, status_.edit, status_.remove);
    list.pGetDaftarInduk(store::fieldText(form_, "npwp"), savedPeriod_.msPajak, savedPeriod_.thPajak,
                         savedPeriod_.kdPembetulanKe);
    if (status_.addsOrEdits()) {
      list.pUpdDaftarPPhTdkFinal(amounts.grossChangeRupiah, amounts.taxChangeRupiah);
    } else {
      list.pUpdDaftarPPhTdkFinal(amounts.grossRupiah, amounts.taxRupiah);
    }
    list.pUpdate();
  });
}

}  // namespace tarvola::slips
