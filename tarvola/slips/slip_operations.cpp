#include "tarvola/slips/slip_operations.h"

#include <string>

#include "tarvola/slips/slip_frame.h"

namespace tarvola::slips {

void CreateOperation::operator()(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view sNmWP,
                                 std::string_view sAlamat, std::string_view dTgl_Setor) {
  slip().createStub({.key = SlipFrame::keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk),
                     .filerName = sNmWP,
                     .filerAddress = sAlamat,
                     .dateText = std::string(dTgl_Setor)});
}

void LoadOperation::operator()(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                               std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                               std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view /*sNmWP*/,
                               std::string_view /*sAlamat*/, Date /*dTgl_Setor*/) {
  slip().load(SlipFrame::keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk));
}

void DeleteOperation::operator()(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk) {
  slip().deleteSlip(SlipFrame::keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk));
}

}  // namespace tarvola::slips
