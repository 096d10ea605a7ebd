#include "tarvola/lists/CD113210.h"

#include <array>
#include <utility>

#include "tarvola/lists/attachment_rows.h"
#include "tarvola/lists/interest_sums.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"

namespace tarvola {
namespace {

constexpr std::string_view listCode = store::D113210.kdForm;

store::Statement headerSelection(const store::Period& period) {
  return store::Statement("SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = ")
         << store::text(listCode) << " AND " << periodCondition(period);
}

}  // namespace

CD113210::CD113210() = default;
CD113210::~CD113210() = default;

RecordsetPtr CD113210::rs4_2Form() const { return form_; }
void CD113210::rs4_2Form(RecordsetPtr rows) { form_ = std::move(rows); }
RecordsetPtr CD113210::rs4_2Hdr() const { return header_.get(); }
void CD113210::rs4_2Hdr(RecordsetPtr rows) { header_.set(std::move(rows)); }

RecordsetPtr CD113210::dataMember(std::string_view name) const {
  RecordsetPtr member;
  guarded([&] {
    if (name == "Primary") member = form_;
    if (name == "Secondary") member = store::chapter(form_, "d4_2Details1");
    if (name == "Ternary") member = store::chapter(form_, "d4_2Details2");
  });
  return member;
}

void CD113210::pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData) {
  status_ = {.add = bAddData, .edit = bEditData, .remove = bDeleteData};
}

void CD113210::pDelete(std::string_view snmForm, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq) {
  guarded([&] {
    lists::removeFromOldStore(store_, snmForm, {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq});
  });
}

// --- the header ----------------------------------------------------------------------------------------

void CD113210::load(const store::Period& period) {
  guarded([&] {
    form_ = store_.open(headerSelection(period));
    header_.set(store_.expand(listCode, form_));
    if (form_->get_RecordCount() != 0 || !form_->get_BOF()) form_->MoveFirst();
  });
}

void CD113210::pGetDaftarInduk(std::string_view /*sNPWP*/, std::int16_t iMsPjk, std::int16_t iThPjk,
                               std::int16_t iCorrSeq) {
  load({.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq});
}

void CD113210::pGetD113210(std::string_view /*sNPWP*/, std::int16_t iMsPjk, std::int16_t iThPjk,
                           std::int16_t iCorrSeq) {
  load({.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq});
}

RecordsetPtr CD113210::pGetD113210_rpt(std::string_view /*sNPWP*/, std::int16_t iMsPjk, std::int16_t iThPjk,
                                       std::int16_t iCorrSeq) {
  RecordsetPtr report;
  guarded([&] {
    const store::Period period{.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq};
    report = store_.expand(listCode, store_.open(headerSelection(period)));
  });
  return report;
}

void CD113210::pUpdate() {
  guarded([&] {
    store::setField(form_, "DAT_FORM", store_.pack(header_.get()));
    store::saveAndRequery(form_);
  });
}

std::string CD113210::aNPWP() const {
  std::string npwp;
  guarded([&] { npwp = store::fieldText(header_.get(), "npwp"); });
  return npwp;
}

// --- sums ----------------------------------------------------------------------------------------------

void CD113210::setSum(std::string_view field, const Variant& value, const Column& column) {
  guarded([&] {
    const RecordsetPtr& header = header_.get();
    store::setField(header, field, CDbl(value));
    double total = 0;
    for (const std::string_view sum : {column.domestic, column.foreign, column.sbi, column.giro})
      total += store::fieldNumber(header, sum);
    store::setField(header, column.total, total);
  });
}

Variant CD113210::pGet_Tabel_D113210(double& dJml1A3, double& dJml1A4, double& dJml1A5, double& dJml1B3,
                                     double& dJml1B4, double& dJml1B5, double& dJml23, double& dJml24, double& dJml25,
                                     double& dJml33, double& dJml34, double& dJml35, std::string_view /*sNPWP*/,
                                     std::int16_t iMs, std::int16_t iTh, std::int16_t iCorr) {
  struct Sums {
    double& payees;
    double& gross;
    double& tax;
  };
  // In the order of the kinds.
  const std::array<Sums, lists::interestKinds.size()> results = {
      {{dJml1A3, dJml1A4, dJml1A5}, {dJml1B3, dJml1B4, dJml1B5}, {dJml23, dJml24, dJml25}, {dJml33, dJml34, dJml35}}};
  guarded([&] {
    const store::Period period{.msPajak = iMs, .thPajak = iTh, .kdPembetulanKe = iCorr};
    for (std::size_t index = 0; index < results.size(); ++index) {
      const lists::InterestKind& kind = lists::interestKinds[index];
      results[index].payees = lists::countPayees(store_, kind, period);
      const lists::InterestSums sums = lists::sumInterest(store_, kind, period);
      results[index].gross = sums.grossRupiah;
      results[index].tax = sums.taxRupiah;
    }
  });
  return {};
}

}  // namespace tarvola
