#pragma once

#include "tarvola/runtime/variant.h"
#include "tarvola/slips/slip_parties.h"

namespace tarvola::slips {

/// What the four slips with a single item have in common: one gross amount (JMLBRUTO), one tariff (Tarif) and one tax
/// (PPHDIPTG), which move one line of the return. There is no sum.
///
/// The tax is gross * tariff / 100, the product first, computed when either is written and cut down to whole rupiah by
/// pHitPjk. While one of them is Null the tax is Null.
class SingleItemSlip : public SlipWithParties {
 public:
  /// Gross in rupiah; the tax follows.
  void ajmlBruto(double value) { put("JMLBRUTO", value); }
  /// Tariff in percent; the tax follows.
  void aTarif(double value) { put("Tarif", value); }
  /// Tax in rupiah, as typed in.
  void aPPhDiptg(double value) { put("PPHDIPTG", value); }

  Variant aLokasi() const { return get("Lokasi"); }
  void aLokasi(const Variant& value) { put("Lokasi", value); }
  Variant aNMUSER() const { return get("NMUSER"); }
  void aNMUSER(const Variant& value) { put("NMUSER", value); }

 protected:
  using SlipWithParties::SlipWithParties;
};

}  // namespace tarvola::slips
