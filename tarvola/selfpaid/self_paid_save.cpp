// Saving a self-paid form: its store row, its list, its lines of the main return.
#include <string>

#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/runtime/variant_math.h"
#include "tarvola/selfpaid/self_paid_frame.h"
#include "tarvola/store/CGeneralClass.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/module_state.h"

namespace tarvola::selfpaid {
namespace {

using store::FormTable;
using store::Statement;
using store::text;

store::FilerHeader filerOfListHeader() {
  return store::filerOfPartnerColumns(
      CGeneralClass().pGetRecordDbase("SELECT NPWP,NAMA_WP_PARTNER,ALAMAT_WP_PARTNER FROM PROFILE"));
}

}  // namespace

// --- the store row --------------------------------------------------------------------------------------

void SelfPaidFrame::pUpdate() {
  guarded([&] {
    const store::Period period = loadedPeriod();
    const store::DocumentKey stored = ownKey(period, old_.paymentNumber);
    const Statement selection = store::selectDocument(FormTable::Ssp, stored) << patternCondition(stored, old_.seq);
    const std::string packed = store_.pack(header_.get());
    if (pOpenFormRecordset(selection)) {
      rewriteRow(packed, period);
    } else {
      addRow(packed);
    }
    form_ = nullptr;
    savedPeriod_ = period;
    pUpdD113203();
    pUpdF113204();
    header_.set(nullptr);
  });
}

void SelfPaidFrame::addRow(const std::string& packed) {
  const std::string npwp = store::npwpOfProfile(CGeneralClass().pGetRecordDbase("SELECT NPWP FROM PROFILE"));
  const std::string recordedOn = formatDate(today());
  form_->AddNew();
  store::setField(form_, "NPWP", npwp);
  store::setField(form_, "KD_FORM", description_.form.kdForm);
  store::setField(form_, "JENIS_DOKUMEN", description_.form.jenisDokumen);
  for (const std::string_view column : {"MS_PAJAK", "TH_PAJAK", "KD_PEMBETULAN_KE"})
    store::setField(form_, column, store::fieldValue(header_.get(), column));
  store::setField(form_, "KD_JENIS_PAJAK", store::taxKind);
  store::setField(form_, "TGL_REKAM", recordedOn);
  store::setField(form_, "TGL_UBAH", recordedOn);
  store::setField(form_, "NIP", "");
  store::setField(form_, "DAT_FORM", packed);
  store::setField(form_, "NOBUKTI", store::fieldValue(header_.get(), "NTTP"));
  store::saveAndRequery(form_);
}

/// Unlike the question before it, the statement asks for the filer that the form names. A form whose NPWP was changed
/// is found and not written.
void SelfPaidFrame::rewriteRow(const std::string& packed, const store::Period& period) {
  const std::string npwp = store::fieldText(header_.get(), "npwp");
  store::DocumentKey stored = ownKey(period, old_.paymentNumber);
  stored.npwp = npwp;
  store_.execute(Statement("UPDATE DAT_SSP_PPh22 SET NOBUKTI = ")
                 << text(store::fieldText(header_.get(), "NTTP")) << ", DAT_FORM = " << text(packed) << " WHERE "
                 << store::ownDocumentCondition(stored) << patternCondition(stored, old_.seq));
}

// --- the list ----------------------------------------------------------------------------------------

void SelfPaidFrame::pUpdD113203() {
  guarded([&] {
    const RecordsetPtr& header = header_.get();
    const std::string npwp = store::fieldText(header, "NPWP");
    const store::Period period = loadedPeriod();
    const std::unique_ptr<FormList> formList = description_.openList();
    lists::SelfPaidList& list = formList->list();
    if (!list.pCheckHdr(npwp, period.msPajak, period.thPajak, period.kdPembetulanKe)) makeListHeader(*formList, period);
    if (!status_.remove) formList->replaceRow(listRow(period));
    list.pGetD113203Induk(npwp, period.msPajak, CStr(std::int32_t{period.thPajak}),
                          CStr(std::int32_t{period.kdPembetulanKe}));
    moveListSums(*formList);
    list.pUpdate();
  });
}

void SelfPaidFrame::makeListHeader(FormList& list, const store::Period& period) const {
  const store::FilerHeader filer = filerOfListHeader();
  list.list().pCreateHdrInduk(period.msPajak, period.thPajak, period.kdPembetulanKe, filer.npwp, filer.address,
                              filer.name, today());
}

ListRow SelfPaidFrame::listRow(const store::Period& period) const {
  const RecordsetPtr& header = header_.get();
  return {.period = period,
          .paymentNumber = store::fieldText(header, "NTTP"),
          .paidOn = CDate(store::fieldValue(header, "Tgl_Potong")),
          .grossRupiah = sumOf(&AmountPair::gross),
          .taxRupiah = sumOf(&AmountPair::tax),
          .seq = store::fieldNumber(header, "SEQ"),
          .location = description_.hasLocation ? store::fieldText(header, "Lokasi") : std::string()};
}

/// Without any flag the list is not asked to move, since it would subtract then.
void SelfPaidFrame::moveListSums(FormList& list) {
  if (!status_.addsOrEdits() && !status_.remove) return;
  if (description_.hasSums()) pHitPjk(1);
  const Amounts amounts = status_.addsOrEdits() ? changeOfAmounts() : currentAmounts();
  list.list().pAssignStatus(status_.add, status_.edit, status_.onlyRemoves());
  list.list().pJmlPajak(amounts.grossRupiah, amounts.taxRupiah);
}

// --- the main return -----------------------------------------------------------------------------------

void SelfPaidFrame::pUpdF113204() {
  guarded([&] {
    const std::string npwp = store::fieldText(header_.get(), "npwp");
    CF113204 mainReturn;
    mainReturn.pGetF113204(npwp, store::F113204.kdForm, store::F113204.jenisDokumen, savedPeriod_.msPajak,
                           savedPeriod_.thPajak, savedPeriod_.kdPembetulanKe, store::headerNumber, store::taxKind);
    const RecordsetPtr returnRow = mainReturn.rs4_2Form();
    for (std::size_t index = 0; index < description_.pairs.size(); ++index) moveReturnLine(returnRow, index);
    for (const AmountPair& pair : description_.pairs) setReturnRate(mainReturn, pair.line);
    mainReturn.pHitPjk3204(1);
    mainReturn.pUpdate();
  });
}

void SelfPaidFrame::moveReturnLine(const RecordsetPtr& returnRow, std::size_t pairIndex) const {
  if (!status_.addsOrEdits() && !status_.remove) return;
  const AmountPair& pair = description_.pairs[pairIndex];
  const OldPair& old = old_.pairs[pairIndex];
  // A deleted form takes away what it was loaded with; what it holds by now plays no part.
  const auto move = [&](std::string_view lineField, std::string_view formField, double oldRupiah) {
    double amount = store::fieldNumber(returnRow, lineField);
    if (status_.addsOrEdits()) amount += store::fieldNumber(header_.get(), formField);
    store::setField(returnRow, lineField, amount - oldRupiah);
  };
  move(pair.line.gross, pair.gross, old.grossRupiah);
  move(pair.line.tax, pair.tax, old.taxRupiah);
}

/// The average of a line, tax * 100 / gross, or the default of one that is 0: rounded to three decimals and then cut to
/// two, so that 12.3456 gives 12.346 and then 12.34.
void SelfPaidFrame::setReturnRate(CF113204& mainReturn, const ReturnLine& line) const {
  const RecordsetPtr returnRow = mainReturn.rs4_2Form();
  const double grossRupiah = store::fieldNumber(returnRow, line.gross);
  if (grossRupiah == 0 && !line.defaultRate.isInSettings()) {
    // A plain 0, which has nothing to cut.
    store::setField(returnRow, line.rate, 0.0);
    return;
  }
  const Variant ratePercent =
      grossRupiah == 0
          ? Variant(mainReturn.pGetDefaultTaxRate(store::taxArticle, line.defaultRate.item, line.defaultRate.kdForm))
          : divide(multiply(store::fieldValue(returnRow, line.tax), 100.0), grossRupiah);
  store::setField(returnRow, line.rate, pRoundDown2(CDbl(Format(ratePercent, "0.000"))));
}

}  // namespace tarvola::selfpaid
