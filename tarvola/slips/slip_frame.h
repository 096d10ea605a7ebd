#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tarvola/ado/event.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/lists/status_flags.h"
#include "tarvola/mainreturn/tax_rates.h"
#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/slips/slip_description.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/packed_row.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"
#include "tarvola/store/watched_recordset.h"

namespace tarvola {
class CF113204;
}

namespace tarvola::slips {

/// The frame of the nine withholding slips: the order of operations that all share. Where a form differs, its
/// description (slip_descriptions.h) or one of the protected steps says so.
///
/// A slip is one row of DS_FORM_INDUK, held while it is worked on as named fields in rs4_2Form. The order of use: load
/// it (pGetF...), pAssignOldValues while it is unchanged, pAssignStatus, write properties, pHitPjk, pUpdate. The class
/// enforces none of this. Amounts are in rupiah, tariffs in percent.
///
/// The operations that bear a form's number stand in the form's own class. Who holds a slip without knowing its form
/// uses createSlip, loadSlip, removeSlip, put and get.
///
/// Every operation shows a failure as a message box and ends normally; what it had written stays.
class SlipFrame {
 public:
  virtual ~SlipFrame();
  SlipFrame(const SlipFrame&) = delete;
  SlipFrame& operator=(const SlipFrame&) = delete;

  /// The slip as named fields; nullptr before a load and, for most forms, after a save.
  RecordsetPtr rs4_2Form() const;
  void rs4_2Form(RecordsetPtr rows);

  /// Raised when the raw store row has moved while it is being opened or saved.
  Event<> MoveComplete;
  /// "Primary": the raw store row; "Secondary" and "Ternary": its child rows d4_2Details1 and d4_2Details2. Any other
  /// name: nullptr.
  RecordsetPtr dataMember(std::string_view name) const;

  /// What the save is doing. By these flags list and return are moved: an add or edit by the difference of new and old
  /// amounts, a delete by the old amounts.
  void pAssignStatus(bool bAddData, bool bEditData, bool bDeleteData);
  /// Keeps number and amounts of the loaded slip: the number finds the stored row again when a save changes it, the
  /// amounts turn a save into a difference. A Null number reads "-", a Null amount 0.
  void pAssignOldValues();

  /// Normalises the slip: Null amounts and tariffs become 0, amounts are cut down to whole rupiah (1234.99 gives 1234),
  /// tariffs stay, the sums are formed. The tax is not computed anew from the cut gross. nrec is read by F113317 alone.
  void pHitPjk(std::int16_t nrec);
  /// Fills the tariffs of a new slip from the settings; 0 if the form has none there. The tax is not computed anew.
  void getTaxRate();

  /// Saves the slip: its store row (found by the old number, or added), the number memory, the list, the return. Most
  /// forms hold no row afterwards.
  ///
  /// A failure in the list leaves the slip saved and goes on with the return; one in the return leaves slip and list
  /// saved.
  void pUpdate();
  /// Brings the list D113206 in step: replaces the slip's list row, moves the sums. Without a flag set the row is
  /// inserted all the same, and the sums stay.
  void pUpdD113206();
  /// Brings the main return of the same period and correction in step: its lines, average tariffs, count of slips and
  /// marks; then recomputes and saves it. The return must exist.
  void pUpdF113204();

  /// Removes the slip's store row if it is there and touches neither list nor return. Only the key is read.
  void pDelete(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
               std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
               std::string_view sUserName, std::string_view sNmWP, std::string_view sAlamat, Date dTgl_Setor);

  /// Proposes a slip number for a year and correction: one more than the greatest of the memory and all numbers found
  /// with the memory's suffix, six digits and the suffix. A gap is not filled. From 100000 on, which has six digits
  /// without a zero in front, the result is "".
  std::string getNoBuktiHdr(std::int16_t iThPjk, std::int16_t iKdPembetulan);
  /// The slips of the year and correction that hold a number already; empty if it is free. The month takes no part, and
  /// sNPWP is read by F113321 alone.
  RecordsetPtr pCheckNoBukti(std::string_view sNPWP, std::int16_t iThPjk, std::string_view strBukti,
                             std::int16_t iKdPembetulan);

  // --- the same for every form ----------------------------------------------------------------------------------

  /// "F113309" to "F113321".
  [[nodiscard]] std::string_view kdForm() const noexcept { return description_.form.kdForm; }
  /// The fields that put can write, in the order in which a person fills in the form.
  [[nodiscard]] std::span<const SlipField> writableFields() const noexcept { return description_.fields; }
  /// Writes a field of the loaded slip by its name, exactly as the field's property does: put("B13", 1000) of a lottery
  /// prize slip is aB13(1000), and the row's tax follows. Case does not matter. A field without a property that writes
  /// it is error 438.
  void put(std::string_view field, const Variant& value);
  /// Any named field of the loaded slip; Empty if that fails.
  Variant get(std::string_view field) const;

  /// Inserts the form's stub row, with every row of an interest slip domestic. A row that exists is left as it is.
  ///
  /// The stubs of most forms hold no number of their own: write aNoBukti behind loadSlip and before pAssignOldValues,
  /// so that the save finds its stub and does not leave it behind.
  void createSlip(const store::FilerHeader& filer, const store::Period& period, std::string_view noBukti,
                  Date dateOfSlip);
  /// Loads a slip; without such a row there is no record.
  void loadSlip(const store::Period& period, std::string_view noBukti);
  /// Deletes a slip, its list row, and its share in list and return.
  void removeSlip(std::string_view npwp, const store::Period& period, std::string_view noBukti);

  // --- fields that every form has ----------------------------------------------------------------------------------

  Variant aTGL_POTONG() const { return get("Tgl_Potong"); }
  void aTGL_POTONG(const Variant& value) { put("Tgl_Potong", value); }
  /// NPWP of the filer.
  Variant aNPWP() const { return get("npwp"); }
  // The party that tax was withheld from.
  void aNPWPLT(const Variant& value) { put("NPWPLT", value); }
  void aNMWPLT(const Variant& value) { put("NMWPLT", value); }
  void aALMLT(const Variant& value) { put("ALMLT", value); }
  void aNoBukti(const Variant& value) { put("NoBukti", value); }
  void aINVOICE(const Variant& value) { put("INVOICE", value); }

 protected:
  explicit SlipFrame(const SlipDescription& description);

  // --- what a form's class builds its own operations from; each shows its failure itself ------------------------

  static store::DocumentKey keyOf(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                  std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                  std::string_view sNoBukti, std::string_view sJnsPjk) noexcept;
  /// A slip that is to be made: its key, and what its packed text says.
  struct NewSlip {
    store::DocumentKey key;
    std::string_view filerName = {};
    std::string_view filerAddress = {};
    std::string dateText = {};
    /// iOptWP of F113310, iKdPmtg of F113312 and F113316; the other stubs hold none.
    std::int16_t option = 1;
  };
  /// Inserts a stub row unless the key has a row, which then stays as it is.
  void createStub(const NewSlip& slip);
  /// The first seven fields of a stub: filer, period, date.
  static store::PackedRow stubStart(const NewSlip& slip);
  /// Loads the row of a key, whatever its filer.
  void load(const store::DocumentKey& key);
  /// Opens the store rows of a statement and expands them; the raw rows are kept.
  void openRows(const store::Statement& selection);
  /// Deletes a slip with its list rows and brings list and return in step.
  void deleteSlip(const store::DocumentKey& key);
  friend class CreateOperation;
  friend class LoadOperation;
  friend class DeleteOperation;

  // Fields as properties of a plain type give them; 0 or "" behind a failure, as behind a Null.
  std::string textField(std::string_view name) const;
  double numberField(std::string_view name) const;
  std::int16_t integerField(std::string_view name) const;

  // --- the steps in which a form may differ; they run inside the operation's guard ------------------------------

  /// Gross and tax of the slip as its list row shows them, and the change against the old values.
  struct ListAmounts {
    double grossRupiah = 0;
    double taxRupiah = 0;
    double grossChangeRupiah = 0;
    double taxChangeRupiah = 0;
  };
  /// What a new stub's packed text says.
  virtual std::string stubText(const NewSlip& slip) const;
  /// What writing a field does. Behind a gross or tariff the tax of its row follows, unrounded.
  virtual void write(const SlipField& field, const Variant& value);
  virtual void rememberOldValues();
  virtual void normalise(std::int16_t nrec);
  /// Runs before the slip is packed.
  virtual void beforeSave() {}
  /// Runs before the totals are written and before the return is moved.
  virtual void computeTotals() {}
  virtual void writeTotals(const RecordsetPtr& storeRow);
  /// Runs behind the saved row, before list and return are moved.
  virtual void beforeRollUp() {}
  virtual ListAmounts listAmounts() const;
  virtual void moveReturnLines(CF113204& mainReturn);

  // --- parts of these steps --------------------------------------------------------------------------------

  struct OldRow {
    double grossRupiah = 0;
    double tariffPercent = 0;
    double taxRupiah = 0;
  };
  struct OldValues {
    std::string noBukti;
    std::array<OldRow, maximumRows> rows;
    double taxSumRupiah = 0;
  };
  struct Amounts {
    double grossRupiah = 0;
    double taxRupiah = 0;
  };
  /// Gross, tax and tariff of every row.
  void normaliseRows();
  /// The sums of tax and gross over all rows, where the form has fields for them.
  void normaliseSums();
  /// What the rows hold by now, added up.
  double sumOfGross(RowRange rows) const;
  double sumOfTax(RowRange rows) const;
  /// By how much a row has changed from its old values, and by how much it changes when it is taken away.
  Amounts changeOf(std::size_t row) const;
  Amounts takenAway(std::size_t row) const;
  /// Moves a line's gross and tax by the slip's rows that feed it, one by one, so that fractions add up in this order.
  void moveReturnLine(const RecordsetPtr& returnRow, const ReturnLine& line) const;
  /// Takes the old amounts of these rows from a line.
  void takeFromLine(const RecordsetPtr& returnRow, const ReturnLine& line) const;
  static void addToLine(const RecordsetPtr& returnRow, const ReturnLine& line, const Amounts& change);
  /// Sets a line's tariff: the default while the line is 0, the average over all slips of the period otherwise.
  void setReturnTariff(CF113204& mainReturn, const ReturnLine& line);
  double defaultTariff(CF113204& mainReturn, std::string_view item) const;
  double averageTariff(std::string_view choice);

  [[nodiscard]] const SlipDescription& description() const noexcept { return description_; }
  [[nodiscard]] const RecordsetPtr& storeRow() const noexcept { return header_.get(); }
  [[nodiscard]] const RecordsetPtr& namedFields() const noexcept { return form_; }
  [[nodiscard]] const lists::StatusFlags& status() const noexcept { return status_; }
  [[nodiscard]] const OldValues& oldValues() const noexcept { return old_; }
  [[nodiscard]] const store::StoreObject& storeObject() const noexcept { return store_; }
  [[nodiscard]] store::Period formPeriod() const;
  /// A value as a field's property takes it.
  static Variant typedValue(const SlipField& field, const Variant& value);

 private:
  void openStoreRows(const store::Statement& selection);
  store::Statement selectStoredRow() const;
  void startStoreRow(const RecordsetPtr& storeRow) const;
  void fillStoreRow(const RecordsetPtr& storeRow, const std::string& packed);
  void moveNumberMemory() const;
  std::string listDate() const;
  void countSlip(const RecordsetPtr& returnRow) const;
  void loadForDelete(const store::DocumentKey& key);
  void removeStoreRow(const store::DocumentKey& key) const;
  void putTariff(const DefaultTariff& tariff, double percent);
  store::DocumentKey ownKey(const store::Period& period, std::string_view noBukti) const noexcept;

  const SlipDescription& description_;
  // Destroyed from the last to the first: raw row, named fields, then converter and connection.
  store::StoreObject store_;
  RecordsetPtr form_;
  store::WatchedRecordset header_{MoveComplete};

  /// The period of the slip that was saved or deleted last; list and return are loaded by it.
  store::Period savedPeriod_;
  /// Sums of all slips of the form, while the return is moved.
  std::optional<mainreturn::TotalPairs> formTotals_;
  lists::StatusFlags status_;
  OldValues old_;
};

}  // namespace tarvola::slips
