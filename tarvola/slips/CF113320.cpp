#include "tarvola/slips/CF113320.h"

namespace tarvola {

void CF113320::pCreateF113320Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view sNmWP,
                                 std::string_view sAlamat, std::string_view dTgl_Setor) {
  createStub({.key = keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk),
              .filerName = sNmWP,
              .filerAddress = sAlamat,
              .dateText = std::string(dTgl_Setor)});
}

void CF113320::pGetF113320(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                           std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                           std::string_view sJnsPjk, std::string_view /*sNmWP*/, std::string_view /*sAlamat*/,
                           Date /*dTgl_Setor*/) {
  load(keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk));
}

void CF113320::pDeleteF113320(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                              std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                              std::string_view sNoBukti, std::string_view sJnsPjk) {
  deleteSlip(keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk));
}

}  // namespace tarvola
