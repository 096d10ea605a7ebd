#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/CGeneralClass.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/layout_generation.h"
#include "tarvola/store/return_directory.h"
#include "tarvola/store/return_removal.h"

namespace tarvola {

RecordsetPtr CGeneralClass::aGetList(std::string_view /*sNPWP*/, std::string_view sJnsTrv, std::int16_t iMsPjk,
                                     std::int16_t iThPjk, std::int16_t iKdPembtln) {
  RecordsetPtr documents;
  guarded([&] { documents = store::listDocuments(store_, sJnsTrv, {iMsPjk, iThPjk, iKdPembtln}); });
  return documents;
}

std::int16_t CGeneralClass::aMaxKdPembetulan(std::string_view /*sNPWP*/, std::string_view sJnsTrv, std::int16_t iMsPjk,
                                             std::string_view skdform, std::int16_t iThPjk) {
  std::int16_t highest = 0;
  guarded([&] { highest = store::highestCorrection(store_, sJnsTrv, skdform, iMsPjk, iThPjk); });
  return highest;
}

// --- removal --------------------------------------------------------------------------------------------

void CGeneralClass::pDelete(std::string_view sNPWP, std::string_view sJnsTrv, std::int16_t iMsPjk, std::int16_t iThPjk,
                            std::int16_t iKdPembtln) {
  guarded([&] {
    if (pCekFormInduk(sJnsTrv, iMsPjk, iThPjk, iKdPembtln)) {
      store::RemovalProgress progress;
      store::removeDocuments(store_, sNPWP, sJnsTrv, {iMsPjk, iThPjk, iKdPembtln}, progress);
    }
    // Payments belong to the month, not to a correction: only the first filing takes them along.
    if (iKdPembtln != 0) return;
    pDeleteDATSSP(sNPWP, sJnsTrv, iMsPjk, iThPjk);
    pDeletePBK(sNPWP, sJnsTrv, iMsPjk, iThPjk);
  });
}

bool CGeneralClass::pCekFormInduk(std::string_view sJnsTrv, std::int16_t iMsPjk, std::int16_t iThPjk,
                                  std::int16_t iKdPembtln) {
  bool found = false;
  guarded([&] { found = store::hasDocuments(store_, sJnsTrv, {iMsPjk, iThPjk, iKdPembtln}); });
  return found;
}

void CGeneralClass::pDeleteDATSSP(std::string_view /*sNPWP*/, std::string_view sJnsTrv, std::int16_t iMsPjk,
                                  std::int16_t iThPjk) {
  guarded([&] {
    store::RemovalProgress progress;
    store::removePayments(store_, sJnsTrv, iMsPjk, iThPjk, progress);
  });
}

void CGeneralClass::pDeletePBK(std::string_view sNPWP, std::string_view sJnsTrv, std::int16_t iMsPjk,
                               std::int16_t iThPjk) {
  guarded([&] {
    store::RemovalProgress progress;
    store::removeTransfers(store_, sNPWP, sJnsTrv, iMsPjk, iThPjk, progress);
  });
}

// --- lookups --------------------------------------------------------------------------------------------

std::string CGeneralClass::pGetKdForm(std::string_view /*sNPWP*/, std::string_view strBukti, std::int16_t iMsPjk,
                                      std::int16_t iThPjk, std::int16_t iKdPembtln, std::int16_t iKdPasal) {
  std::string form;
  guarded([&] { form = store::formOfNumber(store_, strBukti, {iMsPjk, iThPjk, iKdPembtln}, iKdPasal); });
  return form;
}

RecordsetPtr CGeneralClass::pCheckNPWP(std::string_view strNPWP) {
  RecordsetPtr partner;
  guarded([&] { partner = store::findPartner(store_, strNPWP); });
  return partner;
}

RecordsetPtr CGeneralClass::aListBursa(std::string_view /*sNPWP*/, std::int16_t iMsPjk, std::int16_t iThPjk,
                                       std::int16_t iKdPemb) {
  RecordsetPtr exchanges;
  guarded([&] { exchanges = store::listExchanges(store_, {iMsPjk, iThPjk, iKdPemb}); });
  return exchanges;
}

bool CGeneralClass::IsNewSchema(std::string_view stringMasaPajak, std::string_view stringTahunPajak,
                                std::string_view stringPembetulan, std::string_view /*sNPWP*/,
                                std::string_view sNamaForm) {
  bool isNew = false;
  guarded([&] {
    const bool newPeriod = store::isNewPeriod(CInt(Trim(stringMasaPajak)), CInt(Trim(stringTahunPajak)));
    if (sNamaForm.empty() || !newPeriod) {
      isNew = newPeriod;
      return;
    }
    // Asked through a second object, which is silent: a text that fails shows as a missing recordset.
    CGeneralClass second;
    isNew = store::hasNewLayout(
        second.pGetRecordDbase(store::selectMainForm(sNamaForm, stringMasaPajak, stringTahunPajak, stringPembetulan)));
  });
  return isNew;
}

}  // namespace tarvola
