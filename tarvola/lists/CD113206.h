#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/event.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/lists/status_flags.h"
#include "tarvola/runtime/date.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"
#include "tarvola/store/watched_recordset.h"

namespace tarvola {

/// The list of withholding slips of a return (D113206): one header row in DS_FORM_INDUK with running sums, one row in
/// DS_FORM_LAMPIRAN for each slip.
///
/// A list row holds what the slip class passed in; nothing recomputes it from the slip. Row and slip are tied by month,
/// year, correction and slip number. Collection 0 holds the rows of all slip classes and is summed in A6 (tax objects)
/// and A7 (tax withheld), both in rupiah; collection 1 is summed in B6 and B7 and is filled by nobody but a direct
/// call.
///
/// Every operation shows a failure as a message box and ends normally; what it had written stays.
class CD113206 {
 public:
  /// Opens its connection; the recordsets stay empty until pGetDaftarInduk or pGetD113206.
  CD113206();
  ~CD113206();
  CD113206(const CD113206&) = delete;
  CD113206& operator=(const CD113206&) = delete;

  /// The raw header row; after pGetD113206 with the two collections as chapters d4_2Details1 and d4_2Details2.
  RecordsetPtr rs4_2Form() const;
  void rs4_2Form(RecordsetPtr rows);
  /// The rows of collection 0 and of collection 1 as named fields.
  RecordsetPtr rs4_2FormColl1() const;
  void rs4_2FormColl1(RecordsetPtr rows);
  RecordsetPtr rs4_2FormColl2() const;
  void rs4_2FormColl2(RecordsetPtr rows);
  /// The header row as named fields: what the sums are read from and written to.
  RecordsetPtr rs4_2Hdr() const;
  void rs4_2Hdr(RecordsetPtr rows);

  /// Raised when rs4_2Hdr has moved.
  Event<> MoveComplete;
  /// "Primary": rs4_2Form; "Secondary" and "Ternary": the child rows of collection 0 and 1, which need pGetD113206. Any
  /// other name: nullptr.
  RecordsetPtr dataMember(std::string_view name) const;

  /// What the caller is doing: the running sums grow by an add or edit, shrink by a delete, and stay without a flag.
  void pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData);

  /// Puts a slip's row into a collection. A row that the slip has already is replaced and keeps its SEQ; a new one gets
  /// the number of rows plus 1, which after a deletion another row may have as well. The sums do not move.
  ///
  /// The old row is gone before the new one is written: if that fails (an apostrophe in a text), the slip has no list
  /// row. A text that holds ";" fails before anything is touched.
  void pCreateD113206Hdr(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::int16_t iCollNo,
                         std::string_view sNoBukti, std::string_view sNPWPLT, std::string_view sAlmLt,
                         std::string_view sNmWPLT, std::string_view dTgl_Potong, double dJmlObjPjk, double dPphDiptg);

  /// An older way to put in a row of collection 0, with a layout of its own: it neither looks for the slip's row nor
  /// counts a SEQ. Month, year, correction and slip number must be numbers, since they enter the statement bare; any
  /// other slip number fails and no row is added.
  void pCreateD113206CollA(std::string_view sNPWP, std::string_view sNmWP, std::string_view iMsPjk,
                           std::string_view iThPjk, std::string_view iCorrSeq, std::int16_t iSeq,
                           std::string_view iALMdetails, Date iDtA4details, std::string_view iNOBUKTI,
                           std::string_view iNOP, std::string_view iPPhDiPtg);

  /// Deletes a slip's rows from a collection; the sums do not move. snmForm is not read.
  void pDeleteD113206Coll(std::string_view snmForm, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                          std::string_view sNoBukti, std::int16_t iCollNo);

  /// Names a table of an older generation of stores. Where it is missing the failure shows and nothing is deleted; the
  /// rows of a list go through CGeneralClass and pDeleteD113206Coll.
  void pDelete(std::string_view snmForm, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);

  /// Loads the header alone; the collections stay as they were. sNPWP is not read: a store holds one filer.
  void pGetDaftarInduk(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);
  /// Loads header and both collections. A missing header row fails.
  void pGetD113206(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);

  /// Recomputes the sums of collection 0 and nothing else. nrec is not read.
  void pHitPjk(std::int16_t nrec);
  /// Recompute A6 and A7, or B6 and B7, from the loaded collection; a Null or negative value does not count. Needs
  /// pGetD113206; the store is written by pUpdate.
  void pJmlPPhTdFinal(std::int16_t nrec);
  void pJmlPPhFinal(std::int16_t nrec);

  /// Adjust A6 by jObjPPh and A7 by jPPh, or B6 and B7, by the status. An edit passes the new amounts less the old
  /// ones. There is no floor at zero. The header must be loaded.
  void pUpdDaftarPPhTdkFinal(double jObjPPh, double jPPh);
  void pUpdDaftarPPhFinal(double jObjPPh, double jPPh);

  /// Writes the header's packed text to the store; the header must be loaded.
  void pUpdate();
  /// pGetD113206, pJmlPPhTdFinal and pUpdate as the last thing that is done with the object. The rows are not read
  /// anew, and not at all where the store knows their sums by heart.
  void recomputeForGood(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);

  /// NPWP of the filer, from the loaded header; "" if that fails.
  std::string aNPWP() const;

  /// Reads one option out of a slip's packed text by its place: of F113310 element 18, of F113312 and F113316 element
  /// 7, counted from 0. 0 for any other form, and unless exactly one row matches.
  ///
  /// In a full row these places hold a tax number or slip number, so that only a stub row gives a number and any other
  /// text fails; an F113310 stub has no element 18 and fails too.
  std::int16_t pGetOptWP(std::string_view sNPWP, std::string_view strBukti, std::int16_t iMsPjk,
                         std::string_view skdform, std::int16_t iThPjk, std::int16_t iPemb);

 private:
  /// The fields of the header that sum a collection.
  struct Sums {
    std::string_view taxObjects;
    std::string_view taxWithheld;
  };
  static constexpr Sums firstSums{.taxObjects = "A6", .taxWithheld = "A7"};
  static constexpr Sums secondSums{.taxObjects = "B6", .taxWithheld = "B7"};

  std::int32_t takePlace(const store::Period& period, std::int16_t collection, std::string_view slipNumber);
  bool takeKeptSums(const store::Period& period) noexcept;
  void addUpInto(const Sums& sums, const RecordsetPtr& collection);
  void adjust(const Sums& sums, double taxObjectsRupiah, double taxWithheldRupiah);

  // Destroyed from the last to the first: raw header, named header, collections, then converter and connection.
  store::StoreObject store_;
  RecordsetPtr collection2_;
  RecordsetPtr collection1_;
  store::WatchedRecordset header_{MoveComplete};
  RecordsetPtr form_;
  lists::StatusFlags status_;
};

}  // namespace tarvola
