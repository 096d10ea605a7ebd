#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/store/store_object.h"

namespace tarvola {

/// The way into the store: the thread's connection settings, small queries, slip numbers, the directory of returns.
///
/// pSetCon on one object must come before any other class of the library is created on that thread. Every operation
/// shows a failure as a message box and ends normally, but for the three that are silent.
class CGeneralClass {
 public:
  /// Opens its connection if the thread has settings already; without them it waits for pSetCon.
  CGeneralClass();
  ~CGeneralClass();
  CGeneralClass(const CGeneralClass&) = delete;
  CGeneralClass& operator=(const CGeneralClass&) = delete;

  /// Stores the settings for the thread and opens this object's connection with them. If that fails the message shows,
  /// the settings stay stored, and the object has no connection.
  void pSetCon(std::string_view sDSN, std::string_view sUID, std::string_view sPWD);

  /// Runs a text and discards any result. Silent: a failure leaves no trace.
  void pExecQuery(std::string_view sSql);
  /// Whether a text can be opened. Silent: this is the way to probe a query without a message.
  bool pCekKoneksi(std::string_view sSql);
  /// Opens a text; the recordset is the caller's. Silent: nullptr on failure.
  RecordsetPtr pGetRecordDbase(std::string_view sSql);

  /// Marks the slips saved from now on as those of a filer without an NPWP, or ends that. No rate changes:
  /// the surcharge is the application's matter, and dblTarifNonNPWP is read by nothing.
  void pSet_NonNPWP_4a2(bool bVal, double dblTarifNonNPWP);

  /// Proposes the next slip number of an article: an array of two texts, the six-digit number and the suffix. The
  /// memory is not moved, so a number proposed twice is the same number.
  Variant pGetNoBuktiHdr(std::int16_t intPasal);
  /// Moves the article's number memory forward to the number that a saved slip has.
  void pUpdateNoNuktiHdr(std::int16_t intPasal, std::string_view strNoBukti);

  // --- the directory of returns; all five kinds of return in the store, of whatever filer ---------------------
  // sJnsTrv is a tax kind: "113" is the return that the library computes. To "111" and "114" the documents of the
  // shared kind "117" belong as well.

  /// The documents of a return: period, name (URAIAN), form, document code and number, in the order of the last three.
  /// A document whose kind and code have no name in DS_REF_JENIS_PAJAK is not shown. nullptr on failure.
  RecordsetPtr aGetList(std::string_view sNPWP, std::string_view sJnsTrv, std::int16_t iMsPjk, std::int16_t iThPjk,
                        std::int16_t iKdPembtln);
  /// The highest correction number of a form in a month, -1 if there is none: the next one is this plus 1. Shared
  /// documents do not count. 0 on failure.
  std::int16_t aMaxKdPembetulan(std::string_view sNPWP, std::string_view sJnsTrv, std::int16_t iMsPjk,
                                std::string_view skdform, std::int16_t iThPjk);
  /// Removes a return with all its documents and attachments; the payees of interest slips (table D113210) stay. With
  /// the first filing (iKdPembtln 0) the payments of the month go too, also if there was no document: of all filers
  /// where they are payment records, those in favour of sNPWP where they are transfers.
  ///
  /// There is no way back, and no transaction: a failure between two tables leaves the earlier ones emptied. Then, or
  /// for a kind that is none of the five, payments stay.
  void pDelete(std::string_view sNPWP, std::string_view sJnsTrv, std::int16_t iMsPjk, std::int16_t iThPjk,
               std::int16_t iKdPembtln);
  /// The form that a slip number of a period stands on, among the slip forms of the article iKdPasal (of all forms, if
  /// the article has none): its KD_FORM if exactly one row has the number, else "".
  std::string pGetKdForm(std::string_view sNPWP, std::string_view strBukti, std::int16_t iMsPjk, std::int16_t iThPjk,
                         std::int16_t iKdPembtln, std::int16_t iKdPasal);
  /// The partner with that tax number, name and address; no row if none is registered. nullptr on failure.
  RecordsetPtr pCheckNPWP(std::string_view strNPWP);
  /// The list of exchanges (D113207) of a return as named fields. nullptr on failure.
  RecordsetPtr aListBursa(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iKdPemb);
  /// Whether a period has the newer layout of the forms: from November 2008 on. With the name of a main form it is
  /// whether the stored form of that period and correction has it: F113204 with exactly 107 fields, F113203 with 115,
  /// any other form always. False on failure, and a form that is not stored is one. sNPWP is not read.
  bool IsNewSchema(std::string_view stringMasaPajak, std::string_view stringTahunPajak,
                   std::string_view stringPembetulan = "", std::string_view sNPWP = "",
                   std::string_view sNamaForm = "");

 private:
  // Each shows its own failure and lets pDelete go on.
  bool pCekFormInduk(std::string_view sJnsTrv, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iKdPembtln);
  void pDeleteDATSSP(std::string_view sNPWP, std::string_view sJnsTrv, std::int16_t iMsPjk, std::int16_t iThPjk);
  void pDeletePBK(std::string_view sNPWP, std::string_view sJnsTrv, std::int16_t iMsPjk, std::int16_t iThPjk);

  store::StoreObject store_;
};

}  // namespace tarvola
