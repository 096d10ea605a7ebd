#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/selfpaid/self_paid_descriptions.h"
#include "tarvola/selfpaid/self_paid_frame.h"

namespace tarvola {

/// The self-paid form for construction services (FJasaKonstruksi), in the list DJasaKonstruksi. Its three pairs of
/// gross and tax, for planning, work and supervision, move the lines 6a2, 6b2 and 6c2 of the return (B6a23 to B6c25).
/// While a line is 0 its rate is a default one of the slip F113316: of item B14 for work, of item B44 for the two
/// others.
///
/// Its pHitPjk forms the sums JmlPPh (tax) and JMLPHSL (gross), the one computation among the self-paid forms.
class CPPhJasaKonstruksi final : public selfpaid::SelfPaidFrame {
 public:
  CPPhJasaKonstruksi() : SelfPaidFrame(selfpaid::constructionServices) {}

  /// Inserts an empty form unless that payment number has one already, of whatever SEQ. It is written as far as the
  /// first pair; the first save fills it. dTgl_Setor is written as it comes.
  void pCreateHdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                  std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
                  std::string_view sNmWP, std::string_view sAlamat, std::string_view dTgl_Setor);

  // Gross and tax in rupiah: planning, work, supervision.
  void ajmlBruto1(double value) { putField("JmlBruto1", value); }
  void ajmlBruto2(double value) { putField("JmlBruto2", value); }
  void ajmlBruto3(double value) { putField("JmlBruto3", value); }
  void aPPH1(double value) { putField("PPH1", value); }
  void aPPH2(double value) { putField("PPH2", value); }
  void aPPH3(double value) { putField("PPH3", value); }
  /// The sum of the taxes, which pHitPjk replaces.
  void aJMLPPH(double value) { putField("JmlPPh", value); }
};

}  // namespace tarvola
