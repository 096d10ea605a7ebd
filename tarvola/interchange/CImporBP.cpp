#include "tarvola/interchange/CImporBP.h"

#include <string>
#include <vector>

#include "tarvola/interchange/import_rebuild.h"
#include "tarvola/interchange/import_registrations.h"
#include "tarvola/interchange/line_writer.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"

namespace tarvola {

namespace {

using interchange::ImportForm;
using interchange::ImportLine;
using interchange::LineWriter;
using store::Period;
using store::Statement;

/// The columns of a line as the caller hands them over. An array of texts as a rule; other values count by their text.
class LineColumns {
 public:
  explicit LineColumns(const Variant& columns) {
    texts_.reserve(columns.array().size());
    for (const Variant& column : columns.array()) texts_.push_back(CStr(column));
    views_.assign(texts_.begin(), texts_.end());
  }
  [[nodiscard]] ImportLine line() const noexcept { return ImportLine(views_); }

 private:
  std::vector<std::string> texts_;
  std::vector<std::string_view> views_;
};

/// The duplicate checks have traps of their own: one that fails shows its message and counts as "not there".
template <class Check>
bool isThere(Check check) {
  bool found = false;
  guarded([&] { found = check(); });
  return found;
}

/// Form row and list row are looked for apart, so that a repeated import fills in whichever is missing. A slip whose
/// list row is there gets no interest lines either.
void importSlip(const store::StoreObject& store, std::string_view npwp, const Period& period,
                const LineWriter& writer) {
  const store::FormCodes& codes = writer.form().codes;
  const auto inInduk = [&] {
    return interchange::findFormInduk(store, npwp, period, codes.kdForm, writer.noBukti()).has_value();
  };
  const auto inLampiran = [&] {
    return interchange::existsInLampiran(store, period, store::D113206.kdForm, writer.noBukti(), 0);
  };
  if (!isThere(inInduk)) writer.insertSlip();
  if (isThere(inLampiran)) return;
  writer.insertListRow(writer.nextSeq());
  if (codes.kdForm == store::F113310.kdForm) guarded([&] { writer.replaceInterestLines(); });
}

/// No check at all: each call stores the form once more. The list row goes first, since the form carries its SEQ.
void importSelfPaidForm(const LineWriter& writer) {
  const double seq = writer.nextSeq();
  writer.insertListRow(seq);
  writer.insertSelfPaidForm(seq);
}

void importLine(const store::StoreObject& store, std::string_view npwp, const Period& period, const ImportLine& line) {
  const store::FilerHeader filer = interchange::readFiler(store);
  const ImportForm* form = interchange::findImportForm(line.text(interchange::FormCode));
  if (form == nullptr) return;
  const LineWriter writer(store, period, filer, *form, line);
  if (form->codes.kind == store::FormKind::Slip)
    importSlip(store, npwp, period, writer);
  else
    importSelfPaidForm(writer);
}

// --- lookups -----------------------------------------------------------------------------------------------

/// The forms of an article that a lookup covers.
struct ArticleForms {
  std::int16_t article;
  store::FixedText condition;
};

// Articles other than 4 name forms of other returns that no class of the library handles.
constexpr ArticleForms slipForms[] = {
    {4,
     " AND (KD_FORM = 'F113309' OR KD_FORM = 'F113310' OR KD_FORM = 'F113311' OR KD_FORM = 'F113312' OR KD_FORM = "
     "'F113316' OR KD_FORM = 'F113317' OR KD_FORM = 'F113319'  OR KD_FORM = 'F113320'  OR KD_FORM = 'F113321')"},
    {15, " AND (KD_FORM = 'F113313' OR KD_FORM = 'F113314' OR KD_FORM = 'F113315' OR KD_FORM = 'PPh24')"},
    {21, " AND (KD_FORM = 'F113301' OR KD_FORM = 'F113302' OR KD_FORM = 'F113308_A')"},
    {22, " AND (KD_FORM = 'F113303' OR KD_FORM = 'F113304' OR KD_FORM = 'F113305')"},
    {23, " AND (KD_FORM = 'F113306' OR KD_FORM = 'F113307' OR KD_FORM = 'F113308' OR KD_FORM = 'F113318')"},
};

// Transfers of land and buildings (FAlihTnhBgn) are not among those of article 4.
constexpr ArticleForms selfPaidForms[] = {
    {4, " AND (KD_FORM = 'FSewaTnhBgn' OR KD_FORM = 'FJasaKonstruksi')"},
    {15, " AND (KD_FORM = 'FImblnPelPenLN')"},
    {22, " AND (KD_FORM = 'PPh22MigasFinal' OR KD_FORM = 'PPh22MigasTdkFinal' OR KD_FORM = 'PPh22Impor')"},
};

/// An article that the table does not have adds no condition.
void narrowToArticle(Statement& select, std::span<const ArticleForms> table, std::int16_t article) {
  for (const ArticleForms& forms : table)
    if (forms.article == article) select << forms.condition;
}

}  // namespace

struct CImporBP::State {
  store::StoreObject store;
};

CImporBP::CImporBP() : state_(std::make_unique<State>()) {}
CImporBP::~CImporBP() = default;

void CImporBP::pImporPPh4(const Variant& strData, std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk,
                          std::int16_t iKdPemb, bool) {
  guarded([&] { importLine(state_->store, sNPWP, {iMsPjk, iThPjk, iKdPemb}, LineColumns(strData).line()); });
}

void CImporBP::pBuildTRVPPh4(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iKdPemb,
                             const RecordsetPtr&) {
  guarded([&] { interchange::buildHeaders(state_->store, sNPWP, {iMsPjk, iThPjk, iKdPemb}); });
}

Variant CImporBP::pUpdateD113210(const Variant&, std::string_view sNPWP_, std::int16_t iMsPjk_, std::int16_t iThPjk_,
                                 std::int16_t iCorr_, std::string_view sNmWP_, std::string_view sAlmWP_) {
  Variant result;
  guarded([&] {
    const store::FilerHeader filer{std::string(sNPWP_), std::string(sNmWP_), std::string(sAlmWP_)};
    result = interchange::rebuildInterestHeader(state_->store, filer, {iMsPjk_, iThPjk_, iCorr_});
  });
  return result;
}

void CImporBP::pUpdateTRVPPh4(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iKdPemb,
                              const RecordsetPtr&) {
  guarded([&] { interchange::recountReturn(sNPWP, {iMsPjk, iThPjk, iKdPemb}, true); });
}

void CImporBP::pUpdateTRVPPh4_per42(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk,
                                    std::int16_t iKdPemb, const RecordsetPtr&) {
  guarded([&] { interchange::recountReturn(sNPWP, {iMsPjk, iThPjk, iKdPemb}, false); });
}

void CImporBP::pCreateNewBursa(const RecordsetPtr& rsTemp) {
  guarded([&] { interchange::registerExchanges(state_->store, rsTemp); });
}

void CImporBP::pCreateNewKomoditi(const RecordsetPtr& rsTemp) {
  guarded([&] { interchange::registerCommodities(state_->store, rsTemp); });
}

void CImporBP::pUpdateDataWP(const Variant& varTypeDataWP) {
  guarded([&] { interchange::registerPartner(state_->store, varTypeDataWP); });
}

RecordsetPtr CImporBP::pGetBursa() {
  RecordsetPtr rows;
  guarded([&] { rows = state_->store.execute("SELECT * FROM BURSA ORDER BY ID ASC"); });
  return rows;
}

RecordsetPtr CImporBP::pGetKomoditi() {
  RecordsetPtr rows;
  guarded([&] {
    rows = state_->store.execute("SELECT * FROM JENIS_KOMODITI WHERE PASAL = 22 ORDER BY KODE_KOMODITI ASC");
  });
  return rows;
}

RecordsetPtr CImporBP::pGetDataWP() {
  RecordsetPtr rows;
  guarded([&] { rows = state_->store.open("SELECT * FROM PARTNER_INFO"); });
  return rows;
}

RecordsetPtr CImporBP::pGetRecDbase(std::string_view, std::int16_t iKodePasal, std::int16_t iMsPjk, std::int16_t iThPjk,
                                    std::int16_t iKdPemb) {
  RecordsetPtr rows;
  guarded([&] {
    Statement select("SELECT * FROM DS_FORM_INDUK WHERE ");
    select << store::periodCondition({iMsPjk, iThPjk, iKdPemb});
    narrowToArticle(select, slipForms, iKodePasal);
    rows = state_->store.execute(select);
  });
  return rows;
}

RecordsetPtr CImporBP::pGetNTTP(std::string_view, std::int16_t iKodePasal, std::int16_t iMsPjk, std::int16_t iThPjk,
                                std::int16_t iKdPemb) {
  RecordsetPtr rows;
  guarded([&] {
    Statement select("SELECT NOBUKTI FROM DAT_SSP_PPH22 WHERE ");
    select << store::periodCondition({iMsPjk, iThPjk, iKdPemb});
    narrowToArticle(select, selfPaidForms, iKodePasal);
    rows = state_->store.execute(select);
  });
  return rows;
}

std::int16_t CImporBP::pGetMaxCorr(std::int16_t iMsPjk, std::int16_t iThPjk) {
  const RecordsetPtr rows = state_->store.execute(
      Statement("SELECT MAX(KD_PEMBETULAN_KE) AS MaxOfCorrSeq FROM DS_FORM_INDUK WHERE MS_PAJAK =")
      << std::int32_t{iMsPjk} << " AND TH_PAJAK =" << std::int32_t{iThPjk} << " ");
  return CInt(store::fieldNumberOr(rows, "MaxOfCorrSeq", 0));
}

}  // namespace tarvola
