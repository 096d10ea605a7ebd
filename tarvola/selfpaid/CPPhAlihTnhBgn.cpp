#include "tarvola/selfpaid/CPPhAlihTnhBgn.h"

#include "tarvola/runtime/text_forms.h"

namespace tarvola {

void CPPhAlihTnhBgn::pCreateHdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view sNmWP,
                                std::string_view sAlamat, Date dTgl_Setor) {
  createForm(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk, sNmWP, sAlamat,
             formatDate(dTgl_Setor));
}

}  // namespace tarvola
