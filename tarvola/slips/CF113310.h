#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/lists/interest_lines.h"
#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_frame.h"
#include "tarvola/slips/slip_operations.h"

namespace tarvola {

/// The withholding slip for interest (F113310): five rows of deposits, each domestic or foreign by a pair of options,
/// then SBI, giro and other interest. It moves the lines 1a1, 1a2, 1b, 1c and 11a of the return, and the list D113210.
///
/// A row marked on neither side counts for no side; one marked on both counts for both in the totals and in the return,
/// and as domestic in D113210. The columns Total_Bruto and Total_PPh hold other interest alone, not the slip's sum.
///
/// The tax of a row is gross * (tariff / 100). A save looks for its row whatever the filer, and leaves the slip in
/// rs4_2Form, so that pInsert_D113210 can follow it. The list D113210 moves by no save or delete: the caller runs
/// pDelD113210 before and pInsert_D113210 behind them.
class CF113310 final : public slips::SlipFrame {
 public:
  CF113310() : SlipFrame(slips::interest) {}

  /// Inserts a stub row; a row that exists already is left as it is, with no message. With iOptWP 1 every row of
  /// deposits is domestic, with 2 none is on any side; any other leaves the packed text empty.
  void pCreateF113310Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                         std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                         std::string_view sJnsPjk, std::string_view sNmWP, std::string_view sAlamat,
                         std::string_view dTgl_Setor, std::int16_t iOptWP);
  slips::LoadOperation pGetF113310{*this};
  slips::DeleteOperation pDeleteF113310{*this};

  /// Replaces the slip's lines in the table D113210 and writes the list's header anew. The slip's old lines are those
  /// of its payee (NPWP, name, address), period and number; they are gone before the new ones are worked out, so that a
  /// failure on the way leaves none or some.
  ///
  /// Domestic deposits make one line, foreign ones another, SBI and giro one each; what has no gross makes none. Other
  /// interest never gets there.
  void pInsert_D113210();
  /// Deletes the slip's lines and writes the list's header anew. Under a number that has changed since the lines were
  /// written there is nothing to delete: run it while the slip holds its old number.
  void pDelD113210();

  // Gross in rupiah and tariff in percent; the row's tax follows. The tax itself is stored as typed in.
  Variant aB1a3() const { return get("B1A3"); }
  void aB1a3(double value) { put("B1A3", value); }
  Variant aB1A4() const { return get("B1A4"); }
  void aB1A4(double value) { put("B1A4", value); }
  void aB1A5(double value) { put("B1A5", value); }
  Variant aB1B3() const { return get("B1B3"); }
  void aB1B3(double value) { put("B1B3", value); }
  Variant aB1B4() const { return get("B1B4"); }
  void aB1B4(double value) { put("B1B4", value); }
  void aB1B5(double value) { put("B1B5", value); }
  Variant aB1C3() const { return get("B1C3"); }
  void aB1C3(double value) { put("B1C3", value); }
  Variant aB1C4() const { return get("B1C4"); }
  void aB1C4(double value) { put("B1C4", value); }
  void aB1C5(double value) { put("B1C5", value); }
  Variant aB23() const { return get("B23"); }
  void aB23(double value) { put("B23", value); }
  Variant aB24() const { return get("B24"); }
  void aB24(double value) { put("B24", value); }
  void aB25(double value) { put("B25", value); }
  Variant aB33() const { return get("B33"); }
  void aB33(double value) { put("B33", value); }
  Variant aB34() const { return get("B34"); }
  void aB34(double value) { put("B34", value); }
  void aB35(double value) { put("B35", value); }
  Variant aB43() const { return get("B43"); }
  void aB43(double value) { put("B43", value); }
  Variant aB44() const { return get("B44"); }
  void aB44(double value) { put("B44", value); }
  void aB45(double value) { put("B45", value); }
  void aB53(double value) { put("B53", value); }
  void aB54(double value) { put("B54", value); }
  void aB55(double value) { put("B55", value); }
  void aB63(double value) { put("B63", value); }
  void aB64(double value) { put("B64", value); }
  void aB65(double value) { put("B65", value); }

  // Options: 1 if the row belongs to that side, 0 if it does not.
  std::int16_t aOPTDN1() const { return integerField("OPTDN1"); }
  void aOPTDN1(std::int16_t value) { put("OPTDN1", value); }
  std::int16_t aOPTDN2() const { return integerField("OPTDN2"); }
  void aOPTDN2(std::int16_t value) { put("OPTDN2", value); }
  std::int16_t aOPTDN3() const { return integerField("OPTDN3"); }
  void aOPTDN3(std::int16_t value) { put("OPTDN3", value); }
  std::int16_t aOPTDN4() const { return integerField("OPTDN4"); }
  void aOPTDN4(std::int16_t value) { put("OPTDN4", value); }
  std::int16_t aOPTDN5() const { return integerField("OPTDN5"); }
  void aOPTDN5(std::int16_t value) { put("OPTDN5", value); }
  std::int16_t aOPTLN1() const { return integerField("OPTLN1"); }
  void aOPTLN1(std::int16_t value) { put("OPTLN1", value); }
  std::int16_t aOPTLN2() const { return integerField("OPTLN2"); }
  void aOPTLN2(std::int16_t value) { put("OPTLN2", value); }
  std::int16_t aOPTLN3() const { return integerField("OPTLN3"); }
  void aOPTLN3(std::int16_t value) { put("OPTLN3", value); }
  std::int16_t aOPTLN4() const { return integerField("OPTLN4"); }
  void aOPTLN4(std::int16_t value) { put("OPTLN4", value); }
  std::int16_t aOPTLN5() const { return integerField("OPTLN5"); }
  void aOPTLN5(std::int16_t value) { put("OPTLN5", value); }

  /// What other interest is paid for.
  void aB62(const Variant& value) { put("B62", value); }
  // Stored, and read by nothing in the library.
  void aJmlNOPDN(double value) { put("JmlNOPDN", value); }
  void aJmlNOPLN(double value) { put("JmlNOPLN", value); }
  void aJmlPPhDN(double value) { put("JmlPPhDN", value); }
  void aJmlPPhLN(double value) { put("JmlPPhLN", value); }

  /// Certificate numbers; iIndex 0 to 5 stands for 1 to 6, and any other gives "".
  std::string aGetNoSKB(std::int16_t iIndex) const;
  void aAssignNoSKB1(std::string_view value) { put("NoSKB1", value); }
  void aAssignNoSKB2(std::string_view value) { put("NoSKB2", value); }
  void aAssignNoSKB3(std::string_view value) { put("NoSKB3", value); }
  void aAssignNoSKB4(std::string_view value) { put("NoSKB4", value); }
  void aAssignNoSKB5(std::string_view value) { put("NoSKB5", value); }
  void aAssignNoSKB6(std::string_view value) { put("NoSKB6", value); }

 private:
  /// What the slip comes to: the kinds in the order of the total columns, and the gross of all rows.
  struct Totals {
    std::array<Amounts, 5> kinds;
    double slipGrossRupiah = 0;
  };

  std::string stubText(const NewSlip& slip) const override;
  void rememberOldValues() override;
  void normalise(std::int16_t nrec) override;
  void computeTotals() override { pHitTotalF113310(); }
  void writeTotals(const RecordsetPtr& storeRow) override;
  ListAmounts listAmounts() const override;
  void moveReturnLines(CF113204& mainReturn) override;

  void pHitTotalF113310();
  template <class AmountsOf>
  Totals totalsOf(const AmountsOf& amountsOf) const;
  bool isMarked(std::string_view option) const;
  void moveSide(const RecordsetPtr& returnRow, const slips::ReturnLine& line, const Amounts& now,
                const Amounts& old) const;
  void takeFromReturn(CF113204& mainReturn);
  void addToReturn(CF113204& mainReturn);
  void setOtherTariff(CF113204& mainReturn);

  std::string spliced(std::string_view name) const;
  lists::InterestSlip interestSlip() const;
  lists::InterestLine depositLine(std::string_view side) const;
  lists::InterestLine lineOf(std::string_view kind, const slips::AmountRow& row) const;
  void pUpdHdrD113210() const;

  Totals totals_;
  Totals oldTotals_;
};

}  // namespace tarvola
