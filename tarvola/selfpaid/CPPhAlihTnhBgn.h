#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/selfpaid/self_paid_descriptions.h"
#include "tarvola/selfpaid/self_paid_frame.h"

namespace tarvola {

/// The self-paid form for the transfer of land and buildings (FAlihTnhBgn), in the list DAlihTnhBgn. It moves line 7 of
/// the return (B73, B74, B75), which has no default rate: while it is 0 the rate is 0.
///
/// Its list asks for the filer when it looks for its header, so a form that names another filer than the header makes a
/// second one.
class CPPhAlihTnhBgn final : public selfpaid::SelfPaidFrame {
 public:
  CPPhAlihTnhBgn() : SelfPaidFrame(selfpaid::landTransfer) {}

  /// Inserts an empty form unless that payment number has one already, of whatever SEQ. dTgl_Setor is written
  /// "DD/MM/YYYY", so without a time of day.
  void pCreateHdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                  std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
                  std::string_view sNmWP, std::string_view sAlamat, Date dTgl_Setor);

  /// Gross and tax in rupiah.
  void ajmlBruto(double value) { putField("JMLBRUTO", value); }
  void aPPH(double value) { putField("PPH", value); }
  /// Kept behind the positions of the form; it reaches neither list nor return.
  void aLokasi(const Variant& value) { putField("Lokasi", value); }
};

}  // namespace tarvola
