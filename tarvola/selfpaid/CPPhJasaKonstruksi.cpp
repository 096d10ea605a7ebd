#include "tarvola/selfpaid/CPPhJasaKonstruksi.h"

namespace tarvola {

void CPPhJasaKonstruksi::pCreateHdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                    std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                    std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view sNmWP,
                                    std::string_view sAlamat, std::string_view dTgl_Setor) {
  createForm(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk, sNmWP, sAlamat, dTgl_Setor);
}

}  // namespace tarvola
