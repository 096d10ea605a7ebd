#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/event.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/lists/status_flags.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"
#include "tarvola/store/watched_recordset.h"

namespace tarvola {

/// The list of interest (D113210): one header row in DS_FORM_INDUK with fifteen sums, over the interest lines that the
/// slip F113310 writes into the table D113210.
///
/// Four kinds of interest have three sums each: different payees (their names end in 3), gross (4) and tax (5), both in
/// rupiah. Three totals add up the kinds: JML3, JML4, JML5. So JML3 counts a payee with lines of two kinds twice.
///
/// Every operation shows a failure as a message box and ends normally; what it had written stays.
class CD113210 {
 public:
  /// Opens its connection; the recordsets stay empty until pGetDaftarInduk or pGetD113210.
  CD113210();
  ~CD113210();
  CD113210(const CD113210&) = delete;
  CD113210& operator=(const CD113210&) = delete;

  /// The raw header row.
  RecordsetPtr rs4_2Form() const;
  void rs4_2Form(RecordsetPtr rows);
  /// The header row as named fields: what the sums are written to.
  RecordsetPtr rs4_2Hdr() const;
  void rs4_2Hdr(RecordsetPtr rows);

  /// Raised when rs4_2Hdr has moved.
  Event<> MoveComplete;
  /// "Primary": rs4_2Form. "Secondary" and "Ternary" ask it for child rows, which it only has if it was set from
  /// outside, and fail otherwise. Any other name: nullptr.
  RecordsetPtr dataMember(std::string_view name) const;

  /// Stored; no operation of this list reads the flags.
  void pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData);

  /// Names a table of an older generation of stores. Where it is missing the failure shows and nothing is deleted.
  void pDelete(std::string_view snmForm, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);

  /// Both load the header of a period; without one they leave no record. sNPWP is not read: a store holds one filer.
  void pGetDaftarInduk(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);
  void pGetD113210(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);
  /// The header as named fields, for a report; what is loaded stays loaded.
  RecordsetPtr pGetD113210_rpt(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);

  /// Writes the header's packed text to the store; the header must be loaded.
  void pUpdate();

  /// NPWP of the filer, from the loaded header; "" if that fails.
  std::string aNPWP() const;

  // Each sets a sum of one kind and, from the four kinds, the total of its column; pUpdate stores them. The header must
  // be loaded. A value that is no number leaves the sum as it was; a Null in another kind leaves the total as it was.
  void aJML1A3(const Variant& value) { setSum("JML1A3", value, payeeColumn); }
  void aJML1A4(const Variant& value) { setSum("JML1A4", value, grossColumn); }
  void aJML1A5(const Variant& value) { setSum("JML1A5", value, taxColumn); }
  void aJML1B3(const Variant& value) { setSum("JML1B3", value, payeeColumn); }
  void aJML1B4(const Variant& value) { setSum("JML1B4", value, grossColumn); }
  void aJML1B5(const Variant& value) { setSum("JML1B5", value, taxColumn); }
  void aJML24(const Variant& value) { setSum("JML24", value, grossColumn); }
  void aJML23(const Variant& value) { setSum("JML23", value, payeeColumn); }
  void aJML25(const Variant& value) { setSum("JML25", value, taxColumn); }
  void aJML33(const Variant& value) { setSum("JML33", value, payeeColumn); }
  void aJML34(const Variant& value) { setSum("JML34", value, grossColumn); }
  void aJML35(const Variant& value) { setSum("JML35", value, taxColumn); }

  /// Recounts the twelve sums from the table into the caller's variables; the header stays as it is. A failure leaves
  /// the later variables as they were passed. sNPWP is not read. The result is always Empty.
  Variant pGet_Tabel_D113210(double& dJml1A3, double& dJml1A4, double& dJml1A5, double& dJml1B3, double& dJml1B4,
                             double& dJml1B5, double& dJml23, double& dJml24, double& dJml25, double& dJml33,
                             double& dJml34, double& dJml35, std::string_view sNPWP, std::int16_t iMs, std::int16_t iTh,
                             std::int16_t iCorr);

 private:
  /// A column of the list: its total, and the sums that the total adds up.
  struct Column {
    std::string_view total;
    std::string_view domestic;
    std::string_view foreign;
    std::string_view sbi;
    std::string_view giro;
  };
  static constexpr Column payeeColumn{
      .total = "JML3", .domestic = "JML1A3", .foreign = "JML1B3", .sbi = "JML23", .giro = "JML33"};
  static constexpr Column grossColumn{
      .total = "JML4", .domestic = "JML1A4", .foreign = "JML1B4", .sbi = "JML24", .giro = "JML34"};
  static constexpr Column taxColumn{
      .total = "JML5", .domestic = "JML1A5", .foreign = "JML1B5", .sbi = "JML25", .giro = "JML35"};

  void load(const store::Period& period);
  void setSum(std::string_view field, const Variant& value, const Column& column);

  // Destroyed from the last to the first: raw header, named header, then converter and connection.
  store::StoreObject store_;
  store::WatchedRecordset header_{MoveComplete};
  RecordsetPtr form_;
  lists::StatusFlags status_;
};

}  // namespace tarvola
