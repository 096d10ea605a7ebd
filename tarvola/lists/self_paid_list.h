#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/ado/event.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/lists/status_flags.h"
#include "tarvola/runtime/date.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"
#include "tarvola/store/watched_recordset.h"

namespace tarvola::lists {

/// How a row of a self-paid list writes the date of payment.
enum class PaymentDateForm : std::uint8_t {
  DayMonthYear,  ///< "dd/MM/yyyy"
  DefaultText,   ///< the date's default text form
};

/// What one self-paid list has of its own.
struct SelfPaidListDescription {
  store::FormCodes header;
  /// What the rows expand as.
  std::string_view rowsCode;
  /// Whether pCheckHdr asks for the filer as well as for the period.
  bool checkAsksForFiler = false;
  /// Whether a row holds the place of the object between the tax and the payment number.
  bool rowHoldsLocation = false;
  PaymentDateForm paymentDate = PaymentDateForm::DayMonthYear;
};

inline constexpr SelfPaidListDescription rentList{
    .header = store::DSewaTnhBgn, .rowsCode = "DSewaTnhBgn-Coll", .rowHoldsLocation = true};
inline constexpr SelfPaidListDescription transferList{
    .header = store::DAlihTnhBgn, .rowsCode = "DAlihTnhBgn-Coll", .checkAsksForFiler = true};
inline constexpr SelfPaidListDescription constructionList{
    .header = store::DJasaKonstruksi, .rowsCode = "DJasaKonstruksi-Coll", .paymentDate = PaymentDateForm::DefaultText};

/// The frame of the three lists of self-paid forms: one header row in DAT_SSP_PPh22 with two running sums, JMLPHSL
/// (gross) and JmlPPh (tax) in rupiah, and one row in LAMPIRAN_SSP_PPh22 for each form.
///
/// Row and form are tied by month, year, correction, payment number (NTTP) and SEQ, which the form class hands out.
/// Every operation shows a failure as a message box and ends normally; what it had written stays.
class SelfPaidList {
 public:
  SelfPaidList(const SelfPaidList&) = delete;
  SelfPaidList& operator=(const SelfPaidList&) = delete;

  /// The raw header row; after pGetD113203 with the rows as chapter d22Details1, nullptr after pGetD113203Induk.
  RecordsetPtr rs4_2Form() const;
  void rs4_2Form(RecordsetPtr rows);
  /// The rows as named fields, as pGetD113203 loads them.
  RecordsetPtr rs4_2FormColl1() const;
  void rs4_2FormColl1(RecordsetPtr rows);

  /// Raised when the header's named fields have moved.
  Event<> MoveComplete;
  /// "Primary": rs4_2Form; "Secondary": the child rows, which need pGetD113203. Any other name: nullptr.
  RecordsetPtr dataMember(std::string_view name) const;

  /// What the caller is doing; see pJmlPajak.
  void pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData);

  /// Inserts the header row with both sums 0; it does not look for one that exists.
  void pCreateHdrInduk(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNPWP,
                       std::string_view sAlamat, std::string_view sNmWP, Date dTgl_Rekam);
  /// Whether the period has a header row. Only the list of transfers asks for sNPWP as well.
  bool pCheckHdr(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq);

  /// Loads header and rows. A missing header row fails. sNPWP is not read; year and correction must be numbers.
  void pGetD113203(std::string_view sNPWP, std::int16_t bulan, std::string_view tahun, std::string_view Pembetulan);
  /// Loads the named fields of the header alone and drops rs4_2Form: the load before pJmlPajak and pUpdate.
  void pGetD113203Induk(std::string_view sNPWP, std::int16_t bulan, std::string_view tahun,
                        std::string_view Pembetulan);

  /// Writes the header's packed text through rs4_2Form as pGetD113203 leaves it.
  void pUpdateInduk();
  /// Writes the header's packed text to its row, which is added with the filer of PROFILE if it has gone since the
  /// load. Without a loaded header, or if PROFILE cannot be read, it fails and nothing is added.
  void pUpdate();

  /// Deletes the row of one form; the sums do not move. snmForm is not read.
  void pDeleteD113203Coll(std::string_view snmForm, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                          std::string_view sNoBukti, std::int16_t iCollNo, double dSeq);

  /// Recomputes both sums from the loaded rows; a Null or negative value does not count. nrec is not read. The store is
  /// written by pUpdateInduk.
  void pPPhFinal(std::int16_t nrec);
  /// Adjusts the sums by the status: an add or edit adds, anything else subtracts, also when no flag is set. A sum that
  /// falls below 0 becomes 0, each by itself.
  void pJmlPajak(double jPhsl, double jPPh);

 protected:
  explicit SelfPaidList(const SelfPaidListDescription& description);
  ~SelfPaidList();

  /// What a row of the list says about one payment.
  struct Row {
    store::Period period = {};
    std::int16_t collection = 0;
    std::string_view paymentNumber = {};
    Date paidOn = {};
    std::string_view remark = {};
    double grossRupiah = 0;
    double taxRupiah = 0;
    double seq = 0;
    std::string_view location = {};
  };
  /// Replaces the row with that payment number and SEQ, or adds it. A text that holds ";" fails before anything is
  /// touched; a text with an apostrophe fails the first statement that it enters.
  void createRow(const Row& row);

 private:
  std::string packed(const Row& row) const;
  store::Statement selectHeader(std::int16_t month, std::string_view year, std::string_view correction) const;
  store::Statement rowCondition(const Row& row) const;
  void addHeader(const RecordsetPtr& headers) const;
  void changeSum(std::string_view field, double changeRupiah);
  void floorSum(std::string_view field);

  const SelfPaidListDescription& description_;
  // Destroyed from the last to the first, converter and connection at the end.
  store::StoreObject store_;
  RecordsetPtr collection1_;
  store::WatchedRecordset header_{MoveComplete};
  RecordsetPtr form_;
  StatusFlags status_;
};

}  // namespace tarvola::lists
