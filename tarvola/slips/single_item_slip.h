#pragma once

#include <string>
#include <string_view>

#include "tarvola/runtime/variant.h"
#include "tarvola/slips/slip_frame.h"

namespace tarvola::slips {

/// What the four slips with a single item have in common: one gross amount (JMLBRUTO), one tariff (Tarif) and one tax
/// (PPHDIPTG), which move one line of the return. There is no sum.
///
/// The tax is gross * tariff / 100, the product first, computed when either is written and cut down to whole rupiah by
/// pHitPjk. While one of them is Null the tax is Null.
class SingleItemSlip : public SlipFrame {
 public:
  /// Gross in rupiah; the tax follows.
  void ajmlBruto(double value) { put("JMLBRUTO", value); }
  /// Tariff in percent; the tax follows.
  void aTarif(double value) { put("Tarif", value); }
  /// Tax in rupiah, as typed in.
  void aPPhDiptg(double value) { put("PPHDIPTG", value); }

  using SlipFrame::aNPWP;
  void aNPWP(const Variant& value) { put("npwp", value); }
  Variant aNMWP() const { return get("NmWP"); }
  void aNMWP(const Variant& value) { put("NmWP", value); }
  std::string aALM() const { return textField("ALM"); }
  void aALM(std::string_view value) { put("ALM", value); }

  using SlipFrame::aNPWPLT;
  Variant aNPWPLT() const { return get("NPWPLT"); }
  using SlipFrame::aNMWPLT;
  Variant aNMWPLT() const { return get("NMWPLT"); }
  /// The address of the payee has two names: aALMLT writes it, aALMT reads it.
  void aALMLT(std::string_view value) { put("ALMLT", value); }
  std::string aALMT() const { return textField("ALMLT"); }

  Variant aLokasi() const { return get("Lokasi"); }
  void aLokasi(const Variant& value) { put("Lokasi", value); }
  Variant aNMUSER() const { return get("NMUSER"); }
  void aNMUSER(const Variant& value) { put("NMUSER", value); }

 protected:
  using SlipFrame::SlipFrame;
};

}  // namespace tarvola::slips
