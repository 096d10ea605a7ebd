#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "tarvola/ado/recordset.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"

namespace tarvola::mainreturn {

/// What the two ways of copying a return do differently; all else is the same walk.
struct CopyManner {
  /// Only the rows of the old number are copied, and only those of the new one are cleared before; otherwise the rows
  /// of every filer. Attachments and payees of interest slips have no such column and go by the period alone.
  bool goesByFiler = false;
  /// The number inside the packed text is always replaced; otherwise only where it differs.
  bool alwaysWritesNumber = false;
  /// The column NPWP takes the new number; otherwise it keeps the row's.
  bool replacesNumberColumn = false;
  /// A rate of D113210 enters the statement as it reads under the regional settings. With a decimal comma 17,5 is then
  /// two values, and the statement fails; 15 is one. Otherwise the comma becomes a point.
  bool splicesRateAsRead = false;
};

/// A correction by the same filer.
inline constexpr CopyManner sameOffice{};
/// A correction that moves the return to the filer's new number.
inline constexpr CopyManner otherOffice{.goesByFiler = true, .alwaysWritesNumber = true, .replacesNumberColumn = true};

/// The main form, the lists of slips and the slips: what a copy takes of DS_FORM_INDUK and of DS_FORM_LAMPIRAN.
inline constexpr store::FixedText formsOfReturn =
    "(KD_FORM = 'F113204' OR KD_FORM = 'D113206' OR KD_FORM = 'D113207' OR KD_FORM = 'D113210' OR "
    "KD_FORM = 'D113208' OR KD_FORM = 'F113309' OR KD_FORM = 'F113310' OR "
    "KD_FORM = 'F113311' OR KD_FORM = 'F113312' OR KD_FORM = 'F113316' OR "
    "KD_FORM = 'F113319' OR KD_FORM = 'F113320' OR KD_FORM = 'F113321' OR "
    "KD_FORM = 'F113317')";

/// A copy of a return into its next correction.
struct ReturnCopy {
  const CopyManner& manner;
  std::string_view oldNumber;
  std::string_view newNumber;
  std::string_view kdJenisPajak;
  store::Period source;
  /// The source with its correction number plus 1.
  store::Period target;
};

// Each of these clears its table for the target and fills it from the source, row by row. A row is found anew by its
// filter before it is copied, so that rows which the filter cannot tell apart all become copies of the first; their
// number stays. The walk ends at the first row that fails, with those before it copied. The same copy again clears what
// there is and gives what an undisturbed one gives.

/// DS_FORM_INDUK: main form, list headers, slips. The packed texts say the number of the target.
void copyDocuments(const store::StoreObject& store, const ReturnCopy& copy);
/// DAT_SSP_PPh22: self-paid forms and the headers of their lists, likewise.
void copySelfPaidForms(const store::StoreObject& store, const ReturnCopy& copy);
/// DS_FORM_LAMPIRAN: the items of the lists of slips, of whatever filer. The packed texts are copied as they stand.
void copyListItems(const store::StoreObject& store, const ReturnCopy& copy);
/// LAMPIRAN_SSP_PPh22: the items of the self-paid lists, likewise.
void copySelfPaidListItems(const store::StoreObject& store, const ReturnCopy& copy);
/// D113210: the payees of interest slips. Their tax numbers are the payees' and stay whoever files. No filter here.
void copyPayees(const store::StoreObject& store, const ReturnCopy& copy);

/// The rows that a copy takes of one table, and the columns by which it finds each of them anew.
struct CopySource {
  RecordsetPtr rows;
  std::vector<std::string_view> foundBy;
};

// What each of the copies above would take. Payees are not looked for anew.
CopySource sourceOfDocuments(const store::StoreObject& store, const ReturnCopy& copy);
CopySource sourceOfSelfPaidForms(const store::StoreObject& store, const ReturnCopy& copy);
CopySource sourceOfListItems(const store::StoreObject& store, const ReturnCopy& copy);
CopySource sourceOfSelfPaidListItems(const store::StoreObject& store, const ReturnCopy& copy);
CopySource sourceOfPayees(const store::StoreObject& store, const ReturnCopy& copy);
CopySource sourceOfPayments(const store::StoreObject& store, std::int16_t article, const store::Period& source);

/// The list of exchanges, whose rows are told apart by their document code as well.
inline constexpr std::string_view exchangeList = "D113207";

/// DATSSP: adds the payment records of an article in a period once more, under the next correction number. Nothing is
/// cleared, so that a second run doubles them. Key, notes and time of day of a record are not copied.
void copyPayments(const store::StoreObject& store, std::int16_t article, const store::Period& source,
                  const store::Period& target);

/// How a copy of payment records went that leaves out those the target has.
struct CopiedPayments {
  std::int64_t copied = 0;
  /// Records of the source that the target held already, one for one.
  std::int64_t thereAlready = 0;
};

/// As copyPayments, but for the records that the target holds already: run again, after an interruption too, it gives
/// what one undisturbed run gives. Two records are the same if all that a copy carries is.
CopiedPayments copyMissingPayments(const store::StoreObject& store, std::int16_t article, const store::Period& source,
                                   const store::Period& target);

}  // namespace tarvola::mainreturn
