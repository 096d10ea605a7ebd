#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/store/store_object.h"

namespace tarvola {

/// The way into the store: the thread's connection settings, small queries, slip numbers.
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

 private:
  store::StoreObject store_;
};

}  // namespace tarvola
