#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/selfpaid/self_paid_descriptions.h"
#include "tarvola/selfpaid/self_paid_frame.h"

namespace tarvola {

/// The self-paid form for the rent of land and buildings (FSewaTnhBgn), in the list DSewaTnhBgn. It moves line 5b of
/// the return (B5b3, B5b4, B5b5); while that is 0, its rate is the default one of the rent slip F113312.
///
/// It alone keeps the location of the object (Lokasi) in its packed text, and hands it on to its list.
class CPPhSewaTanahBangunan final : public selfpaid::SelfPaidFrame {
 public:
  CPPhSewaTanahBangunan() : SelfPaidFrame(selfpaid::landRent) {}

  /// Inserts an empty form unless that payment number has one already, of whatever SEQ. dTgl_Setor is written in its
  /// default text form, so with its time of day if it has one.
  void pCreateHdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                  std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
                  std::string_view sNmWP, std::string_view sAlamat, Date dTgl_Setor);

  /// Gross and tax in rupiah.
  void ajmlBruto(double value) { putField("JMLBRUTO", value); }
  void aPPH(double value) { putField("PPH", value); }
  void aLokasi(const Variant& value) { putField("Lokasi", value); }
};

}  // namespace tarvola
