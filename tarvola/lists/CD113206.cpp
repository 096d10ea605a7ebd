#include "tarvola/lists/CD113206.h"

#include <array>
#include <optional>
#include <utility>

#include "tarvola/ado/engine/session.h"
#include "tarvola/lists/attachment_rows.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/packed_row.h"

namespace tarvola {
namespace {

using store::bare;
using store::Statement;
using store::text;

constexpr std::string_view rowsTable = "DS_FORM_LAMPIRAN";
constexpr std::string_view listCode = store::D113206.kdForm;

/// The columns of a row of the list that are summed.
constexpr std::string_view taxObjectColumn = "NOP";
constexpr std::string_view taxWithheldColumn = "PPHDIPTG";

Statement collectionCondition(const store::Period& period, std::int16_t collection) {
  return Statement("KD_FORM = ") << text(listCode) << " AND " << periodCondition(period)
                                 << " AND COLLNO = " << std::int32_t{collection};
}

Statement slipRowCondition(const store::Period& period, std::int16_t collection, std::string_view slipNumber) {
  return collectionCondition(period, collection) << " AND NOBUKTI = " << text(slipNumber);
}

Statement headerSelection(const store::Period& period) {
  return Statement("SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = ")
         << text(listCode) << " AND " << periodCondition(period);
}

Statement collectionSelection(const store::Period& period, std::int16_t collection) {
  return Statement("SELECT * FROM DS_FORM_LAMPIRAN WHERE COLLNO = ")
         << std::int32_t{collection} << " AND " << periodCondition(period);
}

// The rows are asked for without their form: the relation to the header is what keeps out those of other forms.
Statement listShape(const store::Period& period) {
  return Statement("SHAPE {") << headerSelection(period) << "} AS dD113206Hdr APPEND ({"
                              << collectionSelection(period, 0)
                              << "} AS d4_2Details1 RELATE KD_FORM TO KD_FORM, MS_PAJAK TO MS_PAJAK, "
                                 "TH_PAJAK TO TH_PAJAK) AS d4_2Details1,({"
                              << collectionSelection(period, 1)
                              << "} AS d4_2Details2 RELATE KD_FORM TO KD_FORM, MS_PAJAK TO MS_PAJAK, "
                                 "TH_PAJAK TO TH_PAJAK) AS d4_2Details2 ";
}

/// Where a form keeps the option that is read out of its packed text, counted from 0.
struct OptionPlace {
  std::string_view kdForm;
  std::size_t element;
};
constexpr std::array optionPlaces = {OptionPlace{.kdForm = store::F113310.kdForm, .element = 18},
                                     OptionPlace{.kdForm = store::F113312.kdForm, .element = 7},
                                     OptionPlace{.kdForm = store::F113316.kdForm, .element = 7}};

std::optional<std::size_t> optionElement(std::string_view kdForm) {
  for (const OptionPlace& place : optionPlaces)
    if (place.kdForm == kdForm) return place.element;
  return std::nullopt;
}

/// One field of a packed text, counted from 0; error 9 if the text has no such field.
std::string_view element(std::string_view packed, std::size_t index) {
  for (; index > 0; --index) {
    const std::size_t separator = packed.find(';');
    if (separator == std::string_view::npos) fail(ErrorNumber::SubscriptOutOfRange);
    packed.remove_prefix(separator + 1);
  }
  return packed.substr(0, packed.find(';'));
}

}  // namespace

CD113206::CD113206() = default;
CD113206::~CD113206() = default;

RecordsetPtr CD113206::rs4_2Form() const { return form_; }
void CD113206::rs4_2Form(RecordsetPtr rows) { form_ = std::move(rows); }
RecordsetPtr CD113206::rs4_2FormColl1() const { return collection1_; }
void CD113206::rs4_2FormColl1(RecordsetPtr rows) { collection1_ = std::move(rows); }
RecordsetPtr CD113206::rs4_2FormColl2() const { return collection2_; }
void CD113206::rs4_2FormColl2(RecordsetPtr rows) { collection2_ = std::move(rows); }
RecordsetPtr CD113206::rs4_2Hdr() const { return header_.get(); }
void CD113206::rs4_2Hdr(RecordsetPtr rows) { header_.set(std::move(rows)); }

RecordsetPtr CD113206::dataMember(std::string_view name) const {
  RecordsetPtr member;
  guarded([&] {
    if (name == "Primary") member = form_;
    if (name == "Secondary") member = store::chapter(form_, "d4_2Details1");
    if (name == "Ternary") member = store::chapter(form_, "d4_2Details2");
  });
  return member;
}

void CD113206::pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData) {
  status_ = {.add = bAddData, .edit = bEditData, .remove = bDeleteData};
}

// --- rows of the list --------------------------------------------------------------------------------

/// The SEQ of a slip's row. A row that the slip has is removed and leaves its SEQ to the new one, so that the slip
/// keeps its place. SEQ of a first row is a count and no maximum, and no row is ever renumbered: with rows 1, 2, 3 and
/// 2 deleted, the next slip gets 3 as well.
std::int32_t CD113206::takePlace(const store::Period& period, std::int16_t collection, std::string_view slipNumber) {
  const RecordsetPtr row = store_.open(Statement("SELECT * FROM DS_FORM_LAMPIRAN WHERE ")
                                       << slipRowCondition(period, collection, slipNumber));
  if (store::isEmptyResult(row)) {
    const RecordsetPtr count = store_.execute(Statement("SELECT COUNT(*) AS JML FROM DS_FORM_LAMPIRAN WHERE ")
                                              << collectionCondition(period, collection));
    return CLng(store::fieldValue(count, "JML")) + 1;
  }
  const std::int32_t seq = CLng(store::fieldValue(row, "SEQ"));
  row->Delete(adAffectCurrent);
  return seq;
}

void CD113206::pCreateD113206Hdr(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::int16_t iCollNo,
                                 std::string_view sNoBukti, std::string_view sNPWPLT, std::string_view sAlmLt,
                                 std::string_view sNmWPLT, std::string_view dTgl_Potong, double dJmlObjPjk,
                                 double dPphDiptg) {
  guarded([&] {
    store::PackedRow slip;
    slip.text("NPWPLT", sNPWPLT).text("ALMLT", sAlmLt).text("NMWPLT", sNmWPLT).text("NoBukti", sNoBukti);
    slip.text("Tgl_Potong", dTgl_Potong).amount(dJmlObjPjk).amount(dPphDiptg);

    const store::Period period{.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq};
    const std::int32_t seq = takePlace(period, iCollNo, sNoBukti);
    store::PackedRow packed;
    packed.whole(iMsPjk).whole(iThPjk).whole(seq).fields(slip);
    // The old row is gone by now. What fails here, an apostrophe in a name, leaves the slip without a list row.
    store_.execute(Statement("INSERT INTO DS_FORM_LAMPIRAN VALUES (")
                   << text(listCode) << ", " << std::int32_t{iMsPjk} << ", " << std::int32_t{iThPjk} << ", "
                   << std::int32_t{iCorrSeq} << ", " << std::int32_t{iCollNo} << ", " << seq << ", " << text(sNoBukti)
                   << ", " << text(packed.str()) << ")");
  });
}

void CD113206::pCreateD113206CollA(std::string_view sNPWP, std::string_view sNmWP, std::string_view iMsPjk,
                                   std::string_view iThPjk, std::string_view iCorrSeq, std::int16_t iSeq,
                                   std::string_view iALMdetails, Date iDtA4details, std::string_view iNOBUKTI,
                                   std::string_view iNOP, std::string_view iPPhDiPtg) {
  guarded([&] {
    store::PackedRow packed;
    packed.text("MS_PAJAK", LTrim(iMsPjk)).text("TH_PAJAK", LTrim(iThPjk)).text("KD_PEMBETULAN_KE", LTrim(iCorrSeq));
    packed.whole(iSeq).text("NPWP", LTrim(sNPWP)).text("ALM", LTrim(iALMdetails)).text("NmWP", LTrim(sNmWP));
    packed.text("Tgl_Potong", CStr(iDtA4details)).text("NoBukti", LTrim(iNOBUKTI)).text("NOP", LTrim(iNOP));
    packed.text("PPHDIPTG", LTrim(iPPhDiPtg)).text("KD_PEMBETULAN_KE", LTrim(iCorrSeq));
    // The slip number stands without quotes, so that only a number goes through.
    store_.execute(Statement("INSERT INTO DS_FORM_LAMPIRAN (KD_FORM, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, COLLNO, "
                             "SEQ, NOBUKTI, DAT_FORM) VALUES(")
                   << text(listCode) << ", " << bare(iMsPjk) << ", " << bare(iThPjk) << ", " << bare(iCorrSeq)
                   << ", 0,  " << std::int32_t{iSeq} << ", " << bare(iNOBUKTI) << ", " << text(packed.str()) << ") ");
  });
}

void CD113206::pDeleteD113206Coll(std::string_view /*snmForm*/, std::int16_t iMsPjk, std::int16_t iThPjk,
                                  std::int16_t iCorrSeq, std::string_view sNoBukti, std::int16_t iCollNo) {
  guarded([&] {
    const store::Period period{.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq};
    lists::removeRows(store_, rowsTable, slipRowCondition(period, iCollNo, sNoBukti));
  });
}

void CD113206::pDelete(std::string_view snmForm, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq) {
  guarded([&] {
    lists::removeFromOldStore(store_, snmForm, {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq});
  });
}

// --- header and sums ---------------------------------------------------------------------------------

void CD113206::pGetDaftarInduk(std::string_view /*sNPWP*/, std::int16_t iMsPjk, std::int16_t iThPjk,
                               std::int16_t iCorrSeq) {
  guarded([&] {
    form_ = store_.open(headerSelection({.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq}));
    header_.set(store_.expand(listCode, form_));
    if (form_->get_RecordCount() != 0 || !form_->get_BOF()) form_->MoveFirst();
  });
}

void CD113206::pGetD113206(std::string_view /*sNPWP*/, std::int16_t iMsPjk, std::int16_t iThPjk,
                           std::int16_t iCorrSeq) {
  guarded([&] {
    form_ = store_.open(listShape({.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq}));
    const RecordsetPtr first = store::chapter(form_, "d4_2Details1");
    const RecordsetPtr second = store::chapter(form_, "d4_2Details2");
    header_.set(store_.expand(listCode, form_));
    form_->MoveFirst();
    collection1_ = store_.expand("D113206-CollA", first);
    collection2_ = store_.expand("D113206-CollB", second);
  });
}

void CD113206::pHitPjk(std::int16_t nrec) { pJmlPPhTdFinal(nrec); }

void CD113206::pJmlPPhTdFinal(std::int16_t /*nrec*/) {
  guarded([&] { addUpInto(firstSums, collection1_); });
}

void CD113206::pJmlPPhFinal(std::int16_t /*nrec*/) {
  guarded([&] { addUpInto(secondSums, collection2_); });
}

void CD113206::addUpInto(const Sums& sums, const RecordsetPtr& collection) {
  const lists::ColumnSums added = lists::addUp(collection, taxWithheldColumn, taxObjectColumn);
  store::setField(header_.get(), sums.taxObjects, added.second);
  store::setField(header_.get(), sums.taxWithheld, added.first);
}

void CD113206::pUpdDaftarPPhTdkFinal(double jObjPPh, double jPPh) {
  guarded([&] { adjust(firstSums, jObjPPh, jPPh); });
}

void CD113206::pUpdDaftarPPhFinal(double jObjPPh, double jPPh) {
  guarded([&] { adjust(secondSums, jObjPPh, jPPh); });
}

void CD113206::adjust(const Sums& sums, double taxObjectsRupiah, double taxWithheldRupiah) {
  if (!status_.addsOrEdits() && !status_.remove) return;
  const double sign = status_.addsOrEdits() ? 1 : -1;
  const RecordsetPtr& header = header_.get();
  store::setField(header, sums.taxObjects, store::fieldNumber(header, sums.taxObjects) + sign * taxObjectsRupiah);
  store::setField(header, sums.taxWithheld, store::fieldNumber(header, sums.taxWithheld) + sign * taxWithheldRupiah);
}

void CD113206::pUpdate() {
  guarded([&] {
    store::setField(form_, "DAT_FORM", store_.pack(header_.get()));
    store::saveAndRequery(form_);
  });
}

void CD113206::recomputeForGood(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk,
                                std::int16_t iCorrSeq) {
  if (!takeKeptSums({.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq})) {
    pGetD113206(sNPWP, iMsPjk, iThPjk, iCorrSeq);
    pJmlPPhTdFinal(1);
  }
  guarded([&] {
    store::setField(form_, "DAT_FORM", store_.pack(header_.get()));
    form_->UpdateBatch(adAffectAll);
  });
}

/// Loads the header and gives it the sums of the first collection. False if the rows must be read, which then tells of
/// whatever stands in the way.
bool CD113206::takeKeptSums(const store::Period& period) noexcept {
  try {
    const store::FormLayout& layout = *store::findLayout("D113206-CollA");
    const auto sums = store_.connection()->session()->packedSums(
        Statement("SELECT COUNT(*) AS JML FROM DS_FORM_LAMPIRAN WHERE ") << collectionCondition(period, 0),
        {.column = "DAT_FORM",
         .count = layout.positions.size(),
         .summed = {layout.position(taxObjectColumn).value(), layout.position(taxWithheldColumn).value()}});
    if (!sums) return false;
    form_ = store_.open(headerSelection(period));
    if (form_->get_RecordCount() != 1) return false;
    header_.set(store_.expand(listCode, form_));
    form_->MoveFirst();
    store::setField(header_.get(), firstSums.taxObjects, sums->front());
    store::setField(header_.get(), firstSums.taxWithheld, sums->back());
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

std::string CD113206::aNPWP() const {
  std::string npwp;
  guarded([&] { npwp = store::fieldText(header_.get(), "npwp"); });
  return npwp;
}

std::int16_t CD113206::pGetOptWP(std::string_view /*sNPWP*/, std::string_view strBukti, std::int16_t iMsPjk,
                                 std::string_view skdform, std::int16_t iThPjk, std::int16_t iPemb) {
  std::int16_t option = 0;
  guarded([&] {
    const store::Period period{.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iPemb};
    const RecordsetPtr slip =
        store_.execute(Statement("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE NOBUKTI = ")
                       << text(strBukti) << " AND " << periodCondition(period) << " AND KD_FORM = " << text(skdform));
    const auto place = optionElement(skdform);
    if (slip->get_RecordCount() != 1 || !place) return;
    const std::string packed = slip->GetString(adClipString, 1, ";", "");
    option = CInt(Variant(element(packed, *place)));
  });
  return option;
}

}  // namespace tarvola
