#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/ado/event.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/mainreturn/return_properties.h"
#include "tarvola/mainreturn/running_sums.h"
#include "tarvola/store/store_object.h"
#include "tarvola/store/watched_recordset.h"

namespace tarvola {

/// The main form of the monthly return, PPh Pasal 4 ayat (2): one row of DS_FORM_INDUK with 23 lines of gross, rate and
/// tax, their totals, and the marks of part C.
///
/// The order of use: pGetF113204, then properties, or pUpdF113204 for a recount from all documents; pHitPjk3204;
/// pUpdate. The class enforces none of this. Its fields are the properties of mainreturn::ReturnProperties. Amounts are
/// in rupiah, rates in percent. A period is month, year and correction number, 0 for the first filing.
///
/// Every operation shows a failure as a message box and ends normally; what it had written stays.
class CF113204 : public mainreturn::ReturnProperties {
 public:
  /// Opens its connection; there are no rows until pGetF113204 or pGetBukti.
  CF113204();
  ~CF113204();

  /// The store row as it is.
  RecordsetPtr rs4_2Hdr() const;
  void rs4_2Hdr(RecordsetPtr rows);
  /// The same row as named fields: what every property reads and writes.
  RecordsetPtr rs4_2Form() const;
  void rs4_2Form(RecordsetPtr rows);

  /// Raised when rs4_2Hdr has moved.
  Event<> MoveComplete;
  /// "Primary": rs4_2Hdr; "Secondary" and "Ternary": its child rows d2126Details1 and d2126Details2, which only a
  /// recordset set from outside has. Any other name: nullptr.
  RecordsetPtr dataMember(std::string_view name) const;

  // --- the record -----------------------------------------------------------------------------------------

  /// Makes sure that a return has its six header documents: main form, list of interest items, list of slips and the
  /// three self-paid lists, all amounts 0. Main form and list of interest items stay as they are if they exist; the
  /// four others are replaced. A failure leaves the documents before it done, and a second call fills the gaps.
  ///
  /// snmForm and sJnsDok say which main form is looked for; the one that is made is always F113204. sNoBukti is not
  /// read: a header has the number "-". dTgl_Rekam, a date text, becomes TGL_REKAM and TGL_UBAH. A ";" in name or
  /// address fails before anything is written.
  void pCreateF113204Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                         std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                         std::string_view sJnsPjk, std::string_view sNmWP, std::string_view sAlamat,
                         std::string_view dTgl_Rekam);
  /// Loads the return of a period. A missing row fails, and the object is of no use until the next load. sNPWP, snmForm
  /// and sNoBukti are not read: a store holds one filer.
  void pGetF113204(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                   std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk);
  /// Loads main forms by number and correction alone, of whatever period; none is no failure. Pembetulan must be a
  /// number; sNPWP is not read.
  void pGetBukti(std::string_view sNPWP, std::string_view NoBukti, std::string_view Pembetulan);
  /// Writes the loaded return to its store row. TGL_UBAH stays. Run pHitPjk3204 first.
  void pUpdate();
  /// Names a table of an older generation of stores. Where it is missing the failure shows, and nothing is deleted; a
  /// return is removed through CGeneralClass. snmForm enters the statement without quotes, so it must be a number.
  void pDelete(std::string_view snmForm, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);

  // --- computation ----------------------------------------------------------------------------------------

  /// Makes the lines whole before a save: Null becomes 0, gross and tax are cut down to whole rupiah (1234.99 gives
  /// 1234, -0.5 gives -1), rates keep their decimals, and the totals JMLPHSL (gross) and JmlB5 (tax) are formed. Reads
  /// nothing from the store. nrec is not read.
  void pHitPjk3204(std::int16_t nrec);
  /// Recounts the lines from all slips and self-paid forms of the period, sets their average rates, the number of slips
  /// C3 and the marks CHKC2 and CHKC3. The return must be loaded; the store is not written.
  ///
  /// A row that lacks an amount ends the recount with a message: lines of earlier forms stand, those of the form in
  /// progress and later ones keep their old values. Use a fresh object for each recount: the sums of SBI, giro and
  /// other interest go on from those of the object's last one.
  void pUpdF113204(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iKdPemb);

  // --- corrections ----------------------------------------------------------------------------------------
  //
  // A correction starts as a copy of the return it corrects, under the correction number iCorrSeq + 1 in the same
  // month. Each operation clears its own tables for that number first and makes all rows itself, so that it can be run
  // again at any time; after a failure, or a process that was ended in the middle, the same call gives what an
  // undisturbed one gives. A failure (a text with an apostrophe, which no statement can hold) ends the copy with what
  // was copied till then. Rows that are loaded in this object are left alone. iCorrSeq 32767 fails before anything is
  // cleared.

  /// Copies main form, list headers, slips, their list items and the payees of interest slips. The number and the
  /// correction inside the packed text of each document become sNPWP and the new one; packed texts of list items stay
  /// as they are. Documents go by tax kind skdJnsPjk, whoever filed them; items and payees by the period alone.
  ///
  /// Slips that share form and number are copied as the first of them, as often as there are such. So are list items
  /// of one slip.
  void pCopyAllData(std::string_view sNPWP, std::string_view skdJnsPjk, std::int16_t iMsPjk, std::int16_t iThPjk,
                    std::int16_t iCorrSeq);
  /// Copies the self-paid forms with the headers and items of their lists, likewise. Forms that share number and packed
  /// text are copied as the first of them; case does not matter.
  void pCopyAllDataSSP(std::string_view sNPWP, std::string_view skdJnsPjk, std::int16_t iMsPjk, std::int16_t iThPjk,
                       std::int16_t iCorrSeq);
  /// Copies the payment records of the article sKdPsl, without their keys and notes. The one copy that clears nothing:
  /// a second run doubles the records.
  void pCopySSP_42(std::int16_t sKdPsl, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);
  /// As pCopyAllData, for a filer who has moved to another tax office: of the documents those of sNpwpOld are copied
  /// and only those of sNpwpNew cleared before; the copies stand under sNpwpNew, in the column and in the packed text.
  /// Payees keep their numbers.
  ///
  /// Under a decimal comma a payee with a broken rate (17,5) fails: it enters the statement as it reads.
  void pCopyAllDataOldKPP(std::string_view sNpwpOld, std::string_view sNpwpNew, std::string_view skdJnsPjk,
                          std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);
  /// As pCopyAllDataSSP, under the new number likewise.
  void pCopyAllDataSSPOldKPP(std::string_view sNpwpOld, std::string_view sNpwpNew, std::string_view skdJnsPjk,
                             std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);

  // --- rates ----------------------------------------------------------------------------------------------

  /// Default rate of an item of income (strKdPhsl: "B14", "Tarif", ...) of a form; 0 without one in the settings. Of
  /// F113316 "B14" stands for the average of B14, B24 and B34, and "B44" for that of B44 and B54.
  double pGetDefaultTaxRate(std::int16_t iKdPasal, std::string_view strKdPhsl, std::string_view strKdForm);
  /// Average rate over the documents of a form and period: tax * 100 / gross, rounded to three decimals and then cut to
  /// two, so that 12.3456 gives 12.34. sPil picks the totals: "" all, "1" or "DN", "2" or "LN", "3" or "SBI", "4" or
  /// "GIRO". 0 without documents or amounts; a gross of 0 beside others that are not fails, and the result is 0.
  double pHit_TarifRataan(std::string_view sNPWP, std::string_view skdform, std::string_view sJnsDok,
                          std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorr, std::string_view sJnsPjk,
                          std::string_view sPil = "");
  /// Sets the rate fields of the loaded return from the settings, for a return that has no slips yet. Construction
  /// lines take the average of their items and fail without one; the fields before them are set by then.
  void getTaxRate();

  // --- counts and sums for part C; sNPWP is read by none of them ------------------------------------------

  /// Payment records of the article in the period. The three texts must be numbers.
  double aJumlahSSP(std::string_view sNPWP, std::string_view sMsPjk, std::string_view sThPjk, std::string_view sCorr);
  /// Transfer records of an article in the month.
  double aJumlahPBK(std::string_view sNPWP, std::int16_t iPasal, std::int16_t iMsPjk, std::int16_t iThPjk);
  /// Slips of all nine forms in the period.
  double aJumlahBP(std::string_view sNPWP, std::int16_t iKdPemb, std::int16_t iMsPjk, std::int16_t iThPjk);
  /// Rupiah of the payment records that aJumlahSSP counts. A record without an amount fails, and the result is 0.
  double aTotalNominalSSP(std::string_view sNPWP, std::string_view sMsPjk, std::string_view sThPjk,
                          std::string_view sCorr);
  /// Rupiah of the transfer records that aJumlahPBK counts; failing likewise.
  double aTotalNominalPBK(std::string_view sNPWP, std::int16_t iPasal, std::int16_t iMsPjk, std::int16_t iThPjk);

 private:
  Recordset& newHeader();
  void loadNamedFields();

  store::StoreObject store_;
  store::WatchedRecordset header_{MoveComplete};
  mainreturn::RunningSums interest_;
};

}  // namespace tarvola
