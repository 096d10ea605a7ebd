#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/event.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/lists/status_flags.h"
#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/selfpaid/self_paid_description.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"
#include "tarvola/store/watched_recordset.h"

namespace tarvola {
class CF113204;
}

namespace tarvola::selfpaid {

/// The frame of the three self-paid forms, on which a filer reports tax that he pays himself: one form for each payment
/// line. Where a form differs, its description (self_paid_descriptions.h) or its own class says so.
///
/// A form is one row of DAT_SSP_PPh22. Several forms of a period may carry the number of one payment (NTTP); SEQ tells
/// them apart. A form has no rate and computes no tax: gross and tax, both in rupiah, come from the caller.
///
/// The order of use: pCreateHdr, pGet, pAssignOldValues while the form is unchanged, pAssignStatus, write properties,
/// pHitPjk, pUpdate. The class enforces none of this. A property reads and writes the loaded form in memory; the store
/// changes in pUpdate alone.
///
/// A form is found by its number and by the pattern "month;year;correction;%;NTTP;SEQ;" in its packed text ("%" twice
/// where a location stands before the date). "%" stands for any text, separators included, so a form may be taken for
/// another: on payment 5, the form of SEQ 5 with a gross of 1 reads "...;5;5;1;..." and matches SEQ 1 as well.
///
/// Every operation shows a failure as a message box and ends normally; what it had written stays.
class SelfPaidFrame {
 public:
  SelfPaidFrame(const SelfPaidFrame&) = delete;
  SelfPaidFrame& operator=(const SelfPaidFrame&) = delete;

  /// The raw store row. The operations hold one only while they run, so that it is nullptr after each that succeeds.
  RecordsetPtr rs4_2Form() const;
  void rs4_2Form(RecordsetPtr rows);

  /// Raised when the loaded form has moved.
  Event<> MoveComplete;
  /// "Primary": rs4_2Form; "Secondary": its child rows d22Details1, which only a recordset set from outside has. Any
  /// other name: nullptr.
  RecordsetPtr dataMember(std::string_view name) const;

  /// What the save is doing. By these flags list and return are moved: an add or edit by the difference of new and old
  /// amounts, a delete by the whole. Without any flag the amounts of both stay.
  void pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData);
  /// Keeps number, amounts and SEQ of the loaded form: number and SEQ find the stored row again when a save changes
  /// them, the amounts turn a save into a difference. A Null number reads "-", a Null amount 0. Before the first call
  /// they are "" and 0, so that a save adds a row.
  void pAssignOldValues();

  /// Loads the form of a payment number and SEQ; without such a row there is no record. The filer, his name and address
  /// and the date are not read.
  void pGet(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
            std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
            std::string_view sNmWP, std::string_view sAlamat, Date dTgl_Setor, double dSeq);

  /// Turns Null amounts into 0 and, where the form has them, forms its sums. It rounds nothing. nrec is not read.
  void pHitPjk(std::int16_t nrec);

  /// Saves the form, then brings list and return in step. A row that is found by old number and SEQ is rewritten and
  /// keeps its date of change; otherwise a row is added under the filer of PROFILE, whatever filer the form names. No
  /// form is loaded afterwards.
  ///
  /// A failure in the list leaves the form saved and goes on with the return; one in the return leaves form and list
  /// saved. A failure before that leaves all three as they were, and the form loaded.
  void pUpdate();
  /// Brings the list in step: makes its header if the period has none, replaces the form's row (but not on a delete),
  /// moves the sums. An add counts as the difference from the old values too.
  void pUpdD113203();
  /// Brings the main return of the same period and correction in step: the form's lines and their average rates; then
  /// recomputes and saves it. The return must exist.
  void pUpdF113204();

  /// Deletes every form of the period with that payment number, whatever its SEQ, and touches neither list nor return.
  /// It looks for a form of sNPWP first; name, address and date are not read.
  void pDelete(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
               std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNTTP, std::string_view sJnsPjk,
               std::string_view sNmWP, std::string_view sAlamat, Date dTgl_Setor);
  /// Deletes one form and its list row and takes its share out of list and return. Where there is no such form all
  /// amounts stay and messages tell so.
  void pDeleteForm(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                   std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNTTP, std::string_view sJnsPjk,
                   double dSeq);

  /// The forms of this kind and period that hold a payment number already, as rows of NOBUKTI; empty if it is free.
  /// A form of another kind is no duplicate. sNPWP is not read.
  RecordsetPtr pCheckNTTP(std::string_view sNPWP, std::int16_t iThPjk, std::string_view strNTTP, std::int16_t iMsPjk,
                          std::int16_t iKdPembetulan);
  /// The next SEQ of a collection of the form's list: one more than the greatest, 1 in an empty one. A gap is not
  /// filled.
  double pGetMaxSeqNo(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t KdP, std::int16_t iCollNo);

  // --- fields that all three forms have ---------------------------------------------------------------------

  /// Date of payment.
  Variant aTGL_POTONG() const { return field("Tgl_Potong"); }
  void aTGL_POTONG(const Variant& value) { putField("Tgl_Potong", value); }
  void aNPWPLT(const Variant& value) { putField("NPWPLT", value); }
  void aNMWPLT(const Variant& value) { putField("NMWPLT", value); }
  void aALMLT(const Variant& value) { putField("ALMLT", value); }
  /// Payment number.
  void aNTTP(const Variant& value) { putField("NTTP", value); }
  std::string aALM() const { return textField("ALM"); }
  void aALM(std::string_view value) { putField("ALM", value); }
  Variant aNPWP() const { return field("npwp"); }
  void aNPWP(const Variant& value) { putField("npwp", value); }
  Variant aNMWP() const { return field("NmWP"); }
  void aNMWP(const Variant& value) { putField("NmWP", value); }
  void aKeterangan(const Variant& value) { putField("keterangan", value); }
  void aSEQ(double value) { putField("SEQ", value); }

 protected:
  explicit SelfPaidFrame(const SelfPaidDescription& description);
  ~SelfPaidFrame();

  /// Inserts an empty form unless the key has a row, of whatever SEQ; then nothing happens. The date text goes into the
  /// packed text, TGL_REKAM and TGL_UBAH. A ";" in a text fails and nothing is written.
  void createForm(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                  std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
                  std::string_view sNmWP, std::string_view sAlamat, std::string_view dateText);

  Variant field(std::string_view name) const;
  std::string textField(std::string_view name) const;
  void putField(std::string_view name, const Variant& value);

 private:
  struct OldPair {
    double taxRupiah = 0;
    double grossRupiah = 0;
  };
  struct OldValues {
    std::string paymentNumber;
    std::array<OldPair, maximumPairs> pairs;
    double taxSumRupiah = 0;
    double seq = 0;
  };
  struct Amounts {
    double grossRupiah = 0;
    double taxRupiah = 0;
  };

  bool pOpenFormRecordset(const store::Statement& selection);
  store::DocumentKey ownKey(const store::Period& period, std::string_view paymentNumber) const;
  store::Statement patternCondition(const store::DocumentKey& key, double seq) const;
  void load(const store::DocumentKey& key, double seq);
  store::Period loadedPeriod() const;

  void addRow(const std::string& packed);
  void rewriteRow(const std::string& packed, const store::Period& period);
  void makeListHeader(FormList& list, const store::Period& period) const;
  ListRow listRow(const store::Period& period) const;
  double sumOf(std::string_view AmountPair::*amount) const;
  Amounts currentAmounts() const;
  Amounts changeOfAmounts() const;
  void moveListSums(FormList& list);
  void moveReturnLine(const RecordsetPtr& returnRow, std::size_t pairIndex) const;
  void setReturnRate(CF113204& mainReturn, const ReturnLine& line) const;

  const SelfPaidDescription& description_;
  // Destroyed from the last to the first: raw row, named fields, then converter and connection.
  store::StoreObject store_;
  store::WatchedRecordset header_{MoveComplete};
  RecordsetPtr form_;

  /// Period of the form that was saved or deleted last; the return is loaded by it.
  store::Period savedPeriod_;
  lists::StatusFlags status_;
  OldValues old_;
};

}  // namespace tarvola::selfpaid
