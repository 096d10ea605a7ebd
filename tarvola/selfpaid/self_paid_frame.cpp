#include "tarvola/selfpaid/self_paid_frame.h"

#include <utility>

#include "tarvola/ado/constants.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/packed_row.h"

namespace tarvola::selfpaid {
namespace {

using store::FormTable;
using store::Statement;
using store::text;

}  // namespace

SelfPaidFrame::SelfPaidFrame(const SelfPaidDescription& description) : description_(description) {}
SelfPaidFrame::~SelfPaidFrame() = default;

RecordsetPtr SelfPaidFrame::rs4_2Form() const { return form_; }
void SelfPaidFrame::rs4_2Form(RecordsetPtr rows) { form_ = std::move(rows); }

RecordsetPtr SelfPaidFrame::dataMember(std::string_view name) const {
  RecordsetPtr member;
  guarded([&] {
    if (name == "Primary") member = form_;
    if (name == "Secondary") member = store::chapter(form_, "d22Details1");
  });
  return member;
}

// --- fields ------------------------------------------------------------------------------------------

Variant SelfPaidFrame::field(std::string_view name) const {
  Variant value;
  guarded([&] { value = store::fieldValue(header_.get(), name); });
  return value;
}

std::string SelfPaidFrame::textField(std::string_view name) const {
  std::string value;
  guarded([&] { value = store::fieldText(header_.get(), name); });
  return value;
}

void SelfPaidFrame::putField(std::string_view name, const Variant& value) {
  guarded([&] { store::setField(header_.get(), name, value); });
}

// --- how a form is found -------------------------------------------------------------------------------

/// Opens a text into rs4_2Form; whether it found a row. A text that fails leaves a closed recordset there.
bool SelfPaidFrame::pOpenFormRecordset(const Statement& selection) {
  form_ = Recordset::create();
  store_.openInto(*form_, selection);
  return !store::isEmptyResult(form_);
}

/// The key of a form under the codes of this class.
store::DocumentKey SelfPaidFrame::ownKey(const store::Period& period, std::string_view paymentNumber) const {
  return {.npwp = {},
          .kdForm = description_.form.kdForm,
          .jenisDokumen = description_.form.jenisDokumen,
          .period = period,
          .noBukti = paymentNumber};
}

/// " AND DAT_FORM LIKE '...'": one form among those of a payment. The wildcards stand for location and date.
Statement SelfPaidFrame::patternCondition(const store::DocumentKey& key, double seq) const {
  std::string pattern = "%";
  for (const std::int16_t number : {key.period.msPajak, key.period.thPajak, key.period.kdPembetulanKe})
    pattern += CStr(std::int32_t{number}) + ";";
  pattern += description_.hasLocation ? "%;%;" : "%;";
  pattern.append(key.noBukti).append(";").append(CStr(seq)).append(";%");
  return Statement(" AND DAT_FORM LIKE ") << text(pattern);
}

store::Period SelfPaidFrame::loadedPeriod() const {
  return {.msPajak = store::fieldInteger(header_.get(), "MS_PAJAK"),
          .thPajak = store::fieldInteger(header_.get(), "TH_PAJAK"),
          .kdPembetulanKe = store::fieldInteger(header_.get(), "KD_PEMBETULAN_KE")};
}

/// Loads a form under the layout of this class, whatever form the key names.
void SelfPaidFrame::load(const store::DocumentKey& key, double seq) {
  pOpenFormRecordset(store::selectDocument(FormTable::Ssp, key) << patternCondition(key, seq));
  header_.set(store_.expand(description_.form.kdForm, form_));
}

// --- making and loading a form --------------------------------------------------------------------------

void SelfPaidFrame::createForm(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                               std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                               std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view sNmWP,
                               std::string_view sAlamat, std::string_view dateText) {
  guarded([&] {
    const store::DocumentKey key{.npwp = sNPWP,
                                 .kdForm = snmForm,
                                 .jenisDokumen = sJnsDok,
                                 .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq},
                                 .noBukti = sNoBukti,
                                 .kdJenisPajak = sJnsPjk};
    if (!store::isEmptyResult(store_.execute(store::selectOwnDocument(FormTable::Ssp, key)))) return;
    store::PackedRow packed(store::packedHead(
        {.npwp = std::string(sNPWP), .name = std::string(sNmWP), .address = std::string(sAlamat)}, key.period));
    if (description_.hasLocation) packed.text("Lokasi", "");
    // SEQ, one gross and one tax, whichever form it is. A fresh form has one separator more behind them.
    packed.text("Tgl_Potong", dateText).text("NTTP", sNoBukti).whole(0).whole(0).whole(0);
    store_.execute(store::insertDocument(FormTable::Ssp, key, packed.str() + ";", dateText));
  });
}

void SelfPaidFrame::pGet(std::string_view /*sNPWP*/, std::string_view snmForm, std::string_view sJnsDok,
                         std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                         std::string_view sJnsPjk, std::string_view /*sNmWP*/, std::string_view /*sAlamat*/,
                         Date /*dTgl_Setor*/, double dSeq) {
  guarded([&] {
    load({.npwp = {},
          .kdForm = snmForm,
          .jenisDokumen = sJnsDok,
          .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq},
          .noBukti = sNoBukti,
          .kdJenisPajak = sJnsPjk},
         dSeq);
    form_ = nullptr;
  });
}

// --- what is worked out on the loaded form -----------------------------------------------------------------

void SelfPaidFrame::pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData) {
  status_ = {.add = bAddData, .edit = bEditData, .remove = bDeleteData};
}

void SelfPaidFrame::pAssignOldValues() {
  guarded([&] {
    const RecordsetPtr& header = header_.get();
    old_.paymentNumber = store::fieldTextOr(header, "NTTP", store::headerNumber);
    for (std::size_t index = 0; index < description_.pairs.size(); ++index) {
      old_.pairs[index].taxRupiah = store::fieldNumberOr(header, description_.pairs[index].tax, 0);
      old_.pairs[index].grossRupiah = store::fieldNumberOr(header, description_.pairs[index].gross, 0);
    }
    // No sum is moved by the old sum of the taxes, but one that is no number keeps SEQ from being read.
    if (description_.hasSums()) old_.taxSumRupiah = store::fieldNumberOr(header, description_.taxSum, 0);
    old_.seq = store::fieldNumberOr(header, "SEQ", 0);
  });
}

void SelfPaidFrame::pHitPjk(std::int16_t /*nrec*/) {
  guarded([&] {
    const RecordsetPtr& header = header_.get();
    if (description_.hasLocation && store::isNullField(header, "Lokasi")) store::setField(header, "Lokasi", "");
    for (const AmountPair& pair : description_.pairs) {
      store::nullToZero(header, pair.gross);
      store::nullToZero(header, pair.tax);
    }
    if (!description_.hasSums()) return;
    store::setField(header, description_.taxSum, sumOf(&AmountPair::tax));
    store::setField(header, description_.grossSum, sumOf(&AmountPair::gross));
  });
}

/// The sum of one amount over all pairs of the loaded form.
double SelfPaidFrame::sumOf(std::string_view AmountPair::*amount) const {
  double sumRupiah = 0;
  for (const AmountPair& pair : description_.pairs) sumRupiah += store::fieldNumber(header_.get(), pair.*amount);
  return sumRupiah;
}

SelfPaidFrame::Amounts SelfPaidFrame::currentAmounts() const {
  return {.grossRupiah = sumOf(&AmountPair::gross), .taxRupiah = sumOf(&AmountPair::tax)};
}

SelfPaidFrame::Amounts SelfPaidFrame::changeOfAmounts() const {
  Amounts change;
  for (std::size_t index = 0; index < description_.pairs.size(); ++index) {
    const AmountPair& pair = description_.pairs[index];
    change.grossRupiah += store::fieldNumber(header_.get(), pair.gross) - old_.pairs[index].grossRupiah;
    change.taxRupiah += store::fieldNumber(header_.get(), pair.tax) - old_.pairs[index].taxRupiah;
  }
  return change;
}

// --- deleting ----------------------------------------------------------------------------------------

void SelfPaidFrame::pDelete(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                            std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNTTP,
                            std::string_view sJnsPjk, std::string_view /*sNmWP*/, std::string_view /*sAlamat*/,
                            Date /*dTgl_Setor*/) {
  guarded([&] {
    const store::DocumentKey key{.npwp = sNPWP,
                                 .kdForm = snmForm,
                                 .jenisDokumen = sJnsDok,
                                 .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq},
                                 .noBukti = sNTTP,
                                 .kdJenisPajak = sJnsPjk};
    if (store::isEmptyResult(store_.execute(store::selectOwnDocument(FormTable::Ssp, key)))) return;
    store_.execute(Statement("DELETE * FROM DAT_SSP_PPh22 WHERE ") << store::documentCondition(key));
  });
}

void SelfPaidFrame::pDeleteForm(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNTTP,
                                std::string_view sJnsPjk, double dSeq) {
  guarded([&] {
    store::DocumentKey key = ownKey({.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq}, sNTTP);
    load(key, dSeq);
    if (!header_.get()->get_BOF()) header_.get()->MoveFirst();
    form_ = nullptr;
    pAssignOldValues();
    pAssignStatus(false, false, true);
    // The form was loaded under the codes of this class; the row to delete is the one of the caller's filer and codes.
    key.npwp = sNPWP;
    key.kdForm = snmForm;
    key.jenisDokumen = sJnsDok;
    key.kdJenisPajak = sJnsPjk;
    const Statement condition = store::ownDocumentCondition(key) << patternCondition(key, dSeq);
    if (!store::isEmptyResult(store_.execute(Statement("SELECT * FROM DAT_SSP_PPh22 WHERE ") << condition)))
      store_.execute(Statement("DELETE * FROM DAT_SSP_PPh22 WHERE ") << condition);
    savedPeriod_ = key.period;
    description_.openList()->list().pDeleteD113203Coll(description_.list.kdForm, iMsPjk, iThPjk, iCorrSeq, sNTTP,
                                                       listCollection, dSeq);
    // The named fields still hold the form whose row has gone.
    pUpdD113203();
    pUpdF113204();
    header_.set(nullptr);
  });
}

// --- looking things up ---------------------------------------------------------------------------------

RecordsetPtr SelfPaidFrame::pCheckNTTP(std::string_view /*sNPWP*/, std::int16_t iThPjk, std::string_view strNTTP,
                                       std::int16_t iMsPjk, std::int16_t iKdPembetulan) {
  RecordsetPtr found;
  guarded([&] {
    found = store_.execute(Statement("SELECT NOBUKTI FROM DAT_SSP_PPh22 WHERE  NOBUKTI = ")
                           << text(strNTTP) << " AND KD_PEMBETULAN_KE = " << std::int32_t{iKdPembetulan}
                           << " AND MS_PAJAK = " << std::int32_t{iMsPjk} << " AND TH_PAJAK = " << std::int32_t{iThPjk}
                           << " AND KD_JENIS_PAJAK = " << text(store::taxKind)
                           << " AND KD_FORM = " << text(description_.form.kdForm));
  });
  return found;
}

double SelfPaidFrame::pGetMaxSeqNo(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t KdP, std::int16_t iCollNo) {
  double next = 0;
  guarded([&] {
    const store::Period period{.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = KdP};
    const RecordsetPtr greatest =
        store_.execute(Statement("SELECT MAX(SEQ) AS MaxOfSeqNo FROM LAMPIRAN_SSP_PPh22 WHERE ")
                       << store::periodCondition(period) << " AND COLLNO = " << std::int32_t{iCollNo}
                       << " GROUP BY KD_FORM HAVING (KD_FORM=" << text(description_.list.kdForm) << ")");
    next = store::isEmptyResult(greatest) ? 1 : store::fieldNumber(greatest, "MaxOfSeqNo") + 1;
  });
  return next;
}

}  // namespace tarvola::selfpaid
