#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_frame.h"
#include "tarvola/slips/slip_operations.h"

namespace tarvola {

/// The withholding slip for bonds traded on the exchange (F113317): one bond with its dates and prices, its discount
/// (j2), its interest (k2), their total (JML) and the tax on it. It moves line 3 of the return (B33, B34, B35).
///
/// Amounts are rounded to whole rupiah as they are written, halves away from zero, where the other slips keep them and
/// cut them down later. The days come from the caller: the three dates are stored and nothing is computed from them.
class CF113317 final : public slips::SlipFrame {
 public:
  CF113317() : SlipFrame(slips::bonds) {}

  /// Inserts a stub row whose four dates are all dTgl_Setor; a row that exists already is left as it is, with no
  /// message. sUserName is not read.
  void pCreateF113317Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                         std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                         std::string_view sJnsPjk, std::string_view sUserName, std::string_view sNmWP,
                         std::string_view sAlamat, std::string_view dTgl_Setor);
  slips::LoadOperation pGetF113317{*this};
  slips::DeleteOperation pDeleteF113317{*this};

  // --- the bond -------------------------------------------------------------------------------------------------

  Variant aA1() const { return get("a1"); }
  void aA1(const Variant& value) { put("a1", value); }
  /// Series number. A value that is a number loses its points, "12.345" becomes "12345"; "A.1" stays.
  Variant aC1() const { return get("c1"); }
  void aC1(const Variant& value) { put("c1", value); }
  /// Due date, date of purchase, date of sale.
  Variant aE1() const { return get("E1"); }
  void aE1(const Variant& value) { put("E1", value); }
  Variant aF1() const { return get("F1"); }
  void aF1(const Variant& value) { put("F1", value); }
  Variant aG1() const { return get("G1"); }
  void aG1(const Variant& value) { put("G1", value); }

  // Each of these four works out the interest, k2 = b1 * d1 * 0.01 * HoldingPeriode / TimePeriode, but only while k2 is
  // 0: interest that was typed in or worked out before survives, and writing 0 into aK2 has it worked out again. A
  // TimePeriode of 0 or less sets k2 to 0, also one that was typed in. While one of the four is Null, k2 stays.
  /// Nominal value in rupiah.
  void aB1(const Variant& value) { put("b1", value); }
  /// Interest per year in percent.
  void aD1(double value) { put("d1", value); }
  /// Days for which the bond was held, and days that the interest is paid for.
  void aHoldingPeriode(std::int16_t value) { put("HoldingPeriode", value); }
  void aTimePeriode(std::int16_t value) { put("TimePeriode", value); }

  // Net purchase price (h1) and net sale price (i1), both without interest, work out the discount j2 = i1 - h1 once
  // both are there. The others store their amount, in rupiah.
  double aH1() const { return numberField("h1"); }
  void aH1(double value) { put("h1", value); }
  double aI1() const { return numberField("i1"); }
  void aI1(double value) { put("i1", value); }
  double aJ2() const { return numberField("j2"); }
  void aJ2(double value) { put("j2", value); }
  double aK2() const { return numberField("k2"); }
  void aK2(double value) { put("k2", value); }
  double aJML() const { return numberField("JML"); }
  void aJML(double value) { put("JML", value); }
  double aPPhFinal() const { return numberField("PPhFinal"); }
  void aPPhFinal(double value) { put("PPhFinal", value); }

  /// Tariff in percent; the tax of the total, PPhFinal = Tarif * JML * 0.01, follows once there is a total.
  double aTarif() const { return numberField("Tarif"); }
  void aTarif(double value) { put("Tarif", value); }

  /// A mark of the caller's own; no computation reads it. achk12 reads it too.
  std::int16_t aOPTPPhFINTdkDiptg() const { return integerField("OptPPhFinTdkDiptg"); }
  void aOPTPPhFINTdkDiptg(std::int16_t value) { put("OptPPhFinTdkDiptg", value); }
  std::int16_t achk12() const { return integerField("OptPPhFinTdkDiptg"); }

  // --- period, filer, payee ---------------------------------------------------------------------------------------

  std::int16_t aThPjk() const { return integerField("TH_PAJAK"); }
  void aThPjk(std::int16_t value) { put("TH_PAJAK", value); }
  std::int16_t aMsPjk() const { return integerField("MS_PAJAK"); }
  void aMsPjk(std::int16_t value) { put("MS_PAJAK", value); }
  using SlipFrame::aNPWP;
  void aNPWP(const Variant& value) { put("npwp", value); }
  using SlipFrame::aNoBukti;
  Variant aNoBukti() const { return get("NoBukti"); }
  using SlipFrame::aNPWPLT;
  Variant aNPWPLT() const { return get("NPWPLT"); }
  using SlipFrame::aNMWPLT;
  Variant aNMWPLT() const { return get("NMWPLT"); }
  using SlipFrame::aALMLT;
  Variant aALMLT() const { return get("ALMLT"); }
  /// Reads the filer's address and writes the payee's: the two sides of this property stand on different fields.
  Variant aALM() const { return get("ALM"); }
  void aALM(const Variant& value) { put("ALMLT", value); }

 private:
  std::string stubText(const NewSlip& slip) const override;
  void write(const slips::SlipField& field, const Variant& value) override;
  void beforeSave() override;
  /// nrec -1 (True) keeps the tax as it was typed in.
  void normalise(std::int16_t nrec) override;

  void workOutInterest();
  void workOutDiscount();
  void workOutTax();
};

}  // namespace tarvola
