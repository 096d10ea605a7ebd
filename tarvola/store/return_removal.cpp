#include "tarvola/store/return_removal.h"

#include <string>

#include "tarvola/runtime/errors.h"
#include "tarvola/store/return_directory.h"
#include "tarvola/store/return_kinds.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_texts.h"

namespace tarvola::store {
namespace {

/// The article whose payments go with a return; 0, which no payment has, for another kind.
std::int32_t articleOf(std::string_view kdJenisPajak) {
  const ReturnKind* kind = findReturnKind(kdJenisPajak);
  return kind == nullptr ? 0 : kind->article;
}

Statement ofKindAndPeriod(std::string_view kdJenisPajak, const Period& period) {
  return kindCondition("KD_JENIS_PAJAK", kdJenisPajak) << " AND " << periodCondition(period);
}

void removeRows(const StoreObject& store, const Statement& deletion, RemovalProgress& progress) {
  std::int32_t rows = 0;
  store.connection()->Execute(deletion, &rows);
  progress.removed(rows);
}

void removeAttachments(const StoreObject& store, FixedText table, const Period& period,
                       std::span<const std::string_view> lists, RemovalProgress& progress) {
  // The attachment tables know no filer and no kind: the lists alone tell the returns apart.
  removeRows(store,
             Statement("DELETE * FROM ") << table << " WHERE " << periodCondition(period) << " AND "
                                         << anyFormCondition(lists),
             progress);
}

void removeSelfPaidForms(const StoreObject& store, std::string_view npwp, const ReturnKind& kind, const Period& period,
                         RemovalProgress& progress) {
  Statement condition = ofKindAndPeriod(kind.kdJenisPajak, period);
  if (kind.findsSelfPaidFormsByFiler) condition << " AND NPWP = " << text(npwp);
  removeRows(store, Statement("DELETE * FROM DAT_SSP_PPh22 WHERE ") << condition, progress);
  removeAttachments(store, "LAMPIRAN_SSP_PPh22", period, kind.selfPaidLists, progress);
}

void removeEachRow(const RecordsetPtr& rows, RemovalProgress& progress) {
  if (isEmptyResult(rows)) return;
  for (rows->MoveFirst(); !rows->get_EOF(); rows->MoveNext()) {
    rows->Delete(adAffectCurrent);
    progress.removed(1);
  }
  rows->Close();
}

}  // namespace

bool hasDocuments(const StoreObject& store, std::string_view kdJenisPajak, const Period& period) {
  // One row answers; the rows themselves would be the whole return.
  return !isEmptyResult(store.execute(Statement("SELECT TOP 1 KD_FORM FROM DS_FORM_INDUK WHERE ")
                                      << ofKindAndPeriod(kdJenisPajak, period)));
}

void removeDocuments(const StoreObject& store, std::string_view npwp, std::string_view kdJenisPajak,
                     const Period& period, RemovalProgress& progress) {
  const ReturnKind* kind = findReturnKind(kdJenisPajak);
  if (kind == nullptr) fail(ErrorNumber::InvalidProcedureCall, unknownReturnKindText(kdJenisPajak));
  removeRows(store, Statement("DELETE * FROM DS_FORM_INDUK WHERE ") << ofKindAndPeriod(kdJenisPajak, period), progress);
  removeAttachments(store, "DS_FORM_LAMPIRAN", period, kind->lists, progress);
  if (kind->hasSelfPaidForms()) removeSelfPaidForms(store, npwp, *kind, period, progress);
}

void removeInterestPayees(const StoreObject& store, const Period& period, RemovalProgress& progress) {
  removeRows(store, Statement("DELETE * FROM D113210 WHERE ") << periodCondition(period), progress);
}

RecordsetPtr paymentsOfMonth(const StoreObject& store, std::string_view kdJenisPajak, std::int16_t month,
                             std::int16_t year) {
  Statement selection("SELECT * FROM DATSSP WHERE MsPjk = ");
  selection << text(monthText(month, year)) << " AND KODEPASAL = " << articleOf(kdJenisPajak);
  if (kdJenisPajak == taxKind) {
    selection << " AND KdMAP IN ( '0118', '0171', '0172', '0173','411128')"
                 " AND KdJnsStr IN ( '100', '199', '300', '310', '312', '320', '322', '401', '402', '403', '404', "
                 "'405', '406', '407', '408', '409', '416', "
                 " '417','418','419','499','500','501','510','511')";
  }
  return store.open(selection << " ORDER BY TglSSP ASC");
}

RecordsetPtr transfersOfMonth(const StoreObject& store, std::string_view npwp, std::string_view kdJenisPajak,
                              std::int16_t month, std::int16_t year) {
  return store.open(Statement("SELECT * FROM datPBKPPhMasa WHERE NPWPTertuju = ")
                    << text(npwp) << " AND PASAL = " << articleOf(kdJenisPajak)
                    << " AND MsPjkPBK = " << std::int32_t{month} << " AND ThPjkPBK = " << std::int32_t{year});
}

void removePayments(const StoreObject& store, std::string_view kdJenisPajak, std::int16_t month, std::int16_t year,
                    RemovalProgress& progress) {
  removeEachRow(paymentsOfMonth(store, kdJenisPajak, month, year), progress);
}

void removeTransfers(const StoreObject& store, std::string_view npwp, std::string_view kdJenisPajak, std::int16_t month,
                     std::int16_t year, RemovalProgress& progress) {
  removeEachRow(transfersOfMonth(store, npwp, kdJenisPajak, month, year), progress);
}

}  // namespace tarvola::store
