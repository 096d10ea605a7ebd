#include "tarvola/lists/self_paid_list.h"

#include <array>
#include <string>
#include <utility>

#include "tarvola/lists/attachment_rows.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/CGeneralClass.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/packed_row.h"

namespace tarvola::lists {
namespace {

using store::bare;
using store::number;
using store::Statement;
using store::text;

constexpr std::string_view rowsTable = "LAMPIRAN_SSP_PPh22";
constexpr std::string_view grossSum = "JMLPHSL";
constexpr std::string_view taxSum = "JmlPPh";

}  // namespace

SelfPaidList::SelfPaidList(const SelfPaidListDescription& description) : description_(description) {}
SelfPaidList::~SelfPaidList() = default;

RecordsetPtr SelfPaidList::rs4_2Form() const { return form_; }
void SelfPaidList::rs4_2Form(RecordsetPtr rows) { form_ = std::move(rows); }
RecordsetPtr SelfPaidList::rs4_2FormColl1() const { return collection1_; }
void SelfPaidList::rs4_2FormColl1(RecordsetPtr rows) { collection1_ = std::move(rows); }

RecordsetPtr SelfPaidList::dataMember(std::string_view name) const {
  RecordsetPtr member;
  guarded([&] {
    if (name == "Primary") member = form_;
    if (name == "Secondary") member = store::chapter(form_, "d22Details1");
  });
  return member;
}

void SelfPaidList::pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData) {
  status_ = {.add = bAddData, .edit = bEditData, .remove = bDeleteData};
}

// --- the header row ----------------------------------------------------------------------------------

void SelfPaidList::pCreateHdrInduk(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                   std::string_view sNPWP, std::string_view sAlamat, std::string_view sNmWP,
                                   Date dTgl_Rekam) {
  guarded([&] {
    const store::DocumentKey key{.npwp = sNPWP,
                                 .kdForm = description_.header.kdForm,
                                 .jenisDokumen = description_.header.jenisDokumen,
                                 .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq}};
    store::PackedRow packed(store::packedHead(
        {.npwp = std::string(sNPWP), .name = std::string(sNmWP), .address = std::string(sAlamat)}, key.period));
    packed.whole(0).whole(0);
    store_.execute(store::insertDocument(description_.header.table, key, packed.str(), CStr(dTgl_Rekam)));
  });
}

bool SelfPaidList::pCheckHdr(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq) {
  bool exists = false;
  guarded([&] {
    Statement select("SELECT * FROM DAT_SSP_PPh22 WHERE ");
    if (description_.checkAsksForFiler) select << "NPWP = " << text(sNPWP) << " AND ";
    select << "KD_FORM = " << text(description_.header.kdForm) << " AND "
           << store::periodCondition({.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq});
    exists = store_.execute(select)->get_RecordCount() > 0;
  });
  return exists;
}

/// The header of a period. Year and correction come as texts and enter the statement bare: only numbers go through.
Statement SelfPaidList::selectHeader(std::int16_t month, std::string_view year, std::string_view correction) const {
  return Statement("SELECT * FROM DAT_SSP_PPh22 WHERE (KD_FORM =")
         << text(description_.header.kdForm) << " AND TH_PAJAK = " << bare(year)
         << " AND KD_PEMBETULAN_KE = " << bare(correction) << " AND MS_PAJAK = " << std::int32_t{month} << ")";
}

void SelfPaidList::pGetD113203(std::string_view /*sNPWP*/, std::int16_t bulan, std::string_view tahun,
                               std::string_view Pembetulan) {
  guarded([&] {
    // The rows are asked for without their period: the relation to the header selects them.
    form_ = store_.open(Statement("SHAPE {")
                        << selectHeader(bulan, tahun, Pembetulan)
                        << "} AS dD113202Hdr APPEND ({SELECT * FROM LAMPIRAN_SSP_PPh22 WHERE COLLNO = 0 } AS "
                           "d22Details1 RELATE KD_FORM TO KD_FORM, MS_PAJAK TO MS_PAJAK, TH_PAJAK TO TH_PAJAK, "
                           "KD_PEMBETULAN_KE TO KD_PEMBETULAN_KE) AS d22Details1 ");
    header_.set(store_.expand(description_.header.kdForm, form_));
    form_->MoveFirst();
    collection1_ = store_.expand(description_.rowsCode, store::chapter(form_, "d22Details1"));
  });
}

void SelfPaidList::pGetD113203Induk(std::string_view /*sNPWP*/, std::int16_t bulan, std::string_view tahun,
                                    std::string_view Pembetulan) {
  guarded([&] {
    form_ = store_.open(selectHeader(bulan, tahun, Pembetulan));
    header_.set(store_.expand(description_.header.kdForm, form_));
    form_ = nullptr;
  });
}

void SelfPaidList::pUpdateInduk() {
  guarded([&] {
    store::setField(form_, "DAT_FORM", store_.pack(header_.get()));
    store::saveAndRequery(form_);
  });
}

void SelfPaidList::pUpdate() {
  guarded([&] {
    const RecordsetPtr& header = header_.get();
    const Statement select = selectHeader(store::fieldInteger(header, "MS_PAJAK"), store::fieldText(header, "TH_PAJAK"),
                                          store::fieldText(header, "KD_PEMBETULAN_KE"));
    const std::string packed = store_.pack(header);
    form_ = store_.open(select);
    if (store::isEmptyResult(form_)) addHeader(form_);
    store::setField(form_, "DAT_FORM", packed);
    store::setField(form_, "NOBUKTI", store::headerNumber);
    store::saveAndRequery(form_);
  });
}

void SelfPaidList::addHeader(const RecordsetPtr& headers) const {
  const std::string npwp = store::npwpOfProfile(CGeneralClass().pGetRecordDbase("SELECT NPWP FROM PROFILE"));
  const std::string recordedOn = formatDate(today());
  headers->AddNew();
  store::setField(headers, "NPWP", npwp);
  store::setField(headers, "KD_FORM", description_.header.kdForm);
  store::setField(headers, "JENIS_DOKUMEN", description_.header.jenisDokumen);
  for (const std::string_view column : {"MS_PAJAK", "TH_PAJAK", "KD_PEMBETULAN_KE"})
    store::setField(headers, column, store::fieldValue(header_.get(), column));
  store::setField(headers, "KD_JENIS_PAJAK", store::taxKind);
  store::setField(headers, "TGL_REKAM", recordedOn);
  store::setField(headers, "TGL_UBAH", recordedOn);
  store::setField(headers, "NIP", "");
}

// --- rows of the list --------------------------------------------------------------------------------

std::string SelfPaidList::packed(const Row& row) const {
  store::PackedRow packed;
  packed.whole(row.period.msPajak).whole(row.period.thPajak).amount(row.seq);
  packed.amount(row.grossRupiah).amount(row.taxRupiah);
  if (description_.rowHoldsLocation) packed.text("Lokasi", row.location);
  const bool fixedForm = description_.paymentDate == PaymentDateForm::DayMonthYear;
  packed.text("NoBukti", row.paymentNumber);
  packed.text("Tgl_Potong", fixedForm ? formatDate(row.paidOn) : CStr(row.paidOn));
  return packed.text("keterangan", row.remark).str();
}

Statement SelfPaidList::rowCondition(const Row& row) const {
  return Statement("KD_FORM = ") << text(description_.header.kdForm) << " AND " << store::periodCondition(row.period)
                                 << " AND COLLNO = " << std::int32_t{row.collection}
                                 << " AND NOBUKTI = " << text(row.paymentNumber) << " AND SEQ = " << number(row.seq);
}

void SelfPaidList::createRow(const Row& row) {
  guarded([&] {
    const std::string datForm = packed(row);
    removeRows(store_, rowsTable, rowCondition(row));
    // The old row is gone by now. What fails here leaves the form without a list row.
    store_.execute(Statement("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES (")
                   << text(description_.header.kdForm) << ", " << std::int32_t{row.period.msPajak} << ", "
                   << std::int32_t{row.period.thPajak} << ", " << std::int32_t{row.period.kdPembetulanKe} << ", "
                   << std::int32_t{row.collection} << ", " << number(row.seq) << ", " << text(row.paymentNumber) << ", "
                   << text(datForm) << ")");
  });
}

void SelfPaidList::pDeleteD113203Coll(std::string_view /*snmForm*/, std::int16_t iMsPjk, std::int16_t iThPjk,
                                      std::int16_t iCorrSeq, std::string_view sNoBukti, std::int16_t iCollNo,
                                      double dSeq) {
  guarded([&] {
    Row row;
    row.period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq};
    row.collection = iCollNo;
    row.paymentNumber = sNoBukti;
    row.seq = dSeq;
    removeRows(store_, rowsTable, rowCondition(row));
  });
}

// --- sums --------------------------------------------------------------------------------------------

void SelfPaidList::pPPhFinal(std::int16_t /*nrec*/) {
  guarded([&] {
    const ColumnSums sums = addUp(collection1_, "PHSL", "PPH");
    store::setField(header_.get(), grossSum, sums.first);
    store::setField(header_.get(), taxSum, sums.second);
  });
}

void SelfPaidList::pJmlPajak(double jPhsl, double jPPh) {
  guarded([&] {
    // Without any flag the amounts are subtracted, unlike in the list of slips, where nothing happens then.
    const double sign = status_.addsOrEdits() ? 1 : -1;
    changeSum(grossSum, sign * jPhsl);
    changeSum(taxSum, sign * jPPh);
    floorSum(grossSum);
    floorSum(taxSum);
  });
}

void SelfPaidList::changeSum(std::string_view field, double changeRupiah) {
  store::setField(header_.get(), field, store::fieldNumber(header_.get(), field) + changeRupiah);
}

void SelfPaidList::floorSum(std::string_view field) {
  if (store::fieldNumber(header_.get(), field) < 0) store::setField(header_.get(), field, 0.0);
}

}  // namespace tarvola::lists
