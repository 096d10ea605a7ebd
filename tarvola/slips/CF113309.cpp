#include "tarvola/slips/CF113309.h"

namespace tarvola {

void CF113309::pCreateF113309Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view sNmWP,
                                 std::string_view sAlamat, std::string_view dTgl_Setor) {
  createStub({.key = keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk),
              .filerName = sNmWP,
              .filerAddress = sAlamat,
              .dateText = std::string(dTgl_Setor)});
}

/// The stub holds its own number.
std::string CF113309::stubText(const NewSlip& slip) const {
  return stubStart(slip).text("NoBukti", slip.key.noBukti).str();
}

void CF113309::pGetF113309(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                           std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                           std::string_view sJnsPjk, std::string_view /*sNmWP*/, std::string_view /*sAlamat*/,
                           Date /*dTgl_Setor*/) {
  load(keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk));
}

void CF113309::pDeleteF113309(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                              std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                              std::string_view sNoBukti, std::string_view sJnsPjk) {
  deleteSlip(keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk));
}

}  // namespace tarvola
