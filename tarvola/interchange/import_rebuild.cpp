#include "tarvola/interchange/import_rebuild.h"

#include <array>

#include "tarvola/interchange/line_writer.h"
#include "tarvola/lists/CD113206.h"
#include "tarvola/lists/CDPPhAlihTnhBgn.h"
#include "tarvola/lists/CDPPhJasaKonstruksi.h"
#include "tarvola/lists/CDPPhSewaTanahBangunan.h"
#include "tarvola/lists/interest_sums.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/mainreturn/blank_return.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using store::name;
using store::Statement;
using store::text;

/// A header document, and what its packed text says behind the head. The main form's text ends in today's date and is
/// made when it is needed.
struct HeaderDocument {
  store::FormCodes codes;
  std::string_view zeros;
};

constexpr std::array<HeaderDocument, 5> headerDocuments = {{{store::DSewaTnhBgn, ";0;0"},
                                                            {store::DJasaKonstruksi, ";0;0"},
                                                            {store::DAlihTnhBgn, ";0;0"},
                                                            {store::D113206, ";0;0;0;0"},
                                                            {store::F113204, ""}}};

/// What a header row says behind its KD_JENIS_PAJAK is written without FlagNPWP, which an older store lacks.
void insertHeader(const store::StoreObject& store, const HeaderDocument& document, const store::FilerHeader& filer,
                  const store::Period& period) {
  const bool isMain = document.codes.kind == store::FormKind::MainReturn;
  const std::string datForm =
      store::packedHead(filer, period) + (isMain ? mainreturn::blankReturn() : std::string(document.zeros));
  const std::string date = formatDate(today());
  Statement insert("INSERT INTO ");
  insert << name(store::tableName(document.codes.table));
  if (document.codes.table == store::FormTable::Induk)
    insert << "  (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,DAT_FORM,"
              "TGL_REKAM,TGL_UBAH,NIP) ";
  insert << " VALUES (" << text(filer.npwp) << "," << text(document.codes.kdForm) << ","
         << text(document.codes.jenisDokumen) << "," << std::int32_t{period.msPajak} << ","
         << std::int32_t{period.thPajak} << "," << std::int32_t{period.kdPembetulanKe} << ",'-','113'," << text(datForm)
         << "," << text(date) << "," << text(date) << ",'')";
  store.execute(insert);
}

bool headerExists(const store::StoreObject& store, const store::FormCodes& codes, std::string_view npwp,
                  const store::Period& period) {
  if (codes.table == store::FormTable::Ssp) return existsInSsp(store, npwp, period, codes.kdForm, store::headerNumber);
  return findFormInduk(store, npwp, period, codes.kdForm, store::headerNumber).has_value();
}

// --- the list of interest lines ---------------------------------------------------------------------------

void ensureInterestHeader(const store::StoreObject& store, const store::DocumentKey& key, const std::string& head) {
  if (!store::isEmptyResult(store.open(store::selectOwnDocument(store::FormTable::Induk, key)))) return;
  const std::string blank = head + ";0;0;0;0;0;0;0;0;0;0;0;0;0;0;0";
  store.execute(store::insertDocument(store::FormTable::Induk, key, blank, formatDate(today())));
}

// --- the recount --------------------------------------------------------------------------------------

void recountMainForm(std::string_view npwp, const store::Period& period) {
  CF113204 form;
  form.pGetF113204(npwp, store::F113204.kdForm, store::F113204.jenisDokumen, period.msPajak, period.thPajak,
                   period.kdPembetulanKe, store::headerNumber, store::taxKind);
  form.getTaxRate();
  form.pUpdF113204(period.msPajak, period.thPajak, period.kdPembetulanKe);
  form.pHitPjk3204(1);
  form.pUpdate();
}

void recountSlipList(std::string_view npwp, const store::Period& period) {
  CD113206 list;
  list.recomputeForGood(npwp, period.msPajak, period.thPajak, period.kdPembetulanKe);
}

template <class List>
void recountSelfPaidList(std::string_view npwp, const store::Period& period) {
  List list;
  list.pGetD113203(npwp, period.msPajak, CStr(std::int32_t{period.thPajak}), CStr(std::int32_t{period.kdPembetulanKe}));
  list.pPPhFinal(1);
  list.pUpdateInduk();
}

}  // namespace

void buildHeaders(const store::StoreObject& store, std::string_view npwp, const store::Period& period) {
  const store::FilerHeader filer = readFiler(store);
  for (const HeaderDocument& document : headerDocuments)
    if (!headerExists(store, document.codes, npwp, period)) insertHeader(store, document, filer, period);
}

std::string rebuildInterestHeader(const store::StoreObject& store, const store::FilerHeader& filer,
                                  const store::Period& period) {
  const store::DocumentKey key{.npwp = filer.npwp,
                               .kdForm = store::D113210.kdForm,
                               .jenisDokumen = store::D113210.jenisDokumen,
                               .period = period};
  ensureInterestHeader(store, key, store::packedHead(filer, period));
  return lists::rewriteInterestHeader(store, filer, period);
}

void recountReturn(std::string_view npwp, const store::Period& period, bool withTransferList) {
  recountMainForm(npwp, period);
  recountSlipList(npwp, period);
  recountSelfPaidList<CDPPhSewaTanahBangunan>(npwp, period);
  recountSelfPaidList<CDPPhJasaKonstruksi>(npwp, period);
  if (withTransferList) recountSelfPaidList<CDPPhAlihTnhBgn>(npwp, period);
}

}  // namespace tarvola::interchange
