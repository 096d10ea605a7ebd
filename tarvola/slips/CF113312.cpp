#include "tarvola/slips/CF113312.h"

#include "tarvola/runtime/text_forms.h"

namespace tarvola {

void CF113312::pCreateF113312Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk, std::int16_t iKdPmtg,
                                 std::string_view sNmWP, std::string_view sAlamat, Date dTgl_Setor) {
  createStub({.key = keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk),
              .filerName = sNmWP,
              .filerAddress = sAlamat,
              .dateText = CStr(dTgl_Setor),
              .option = iKdPmtg});
}

}  // namespace tarvola
