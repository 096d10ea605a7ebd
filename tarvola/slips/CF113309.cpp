#include "tarvola/slips/CF113309.h"

namespace tarvola {

void CF113309::pCreateF113309Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view sNmWP,
                                 std::string_view sAlamat, std::string_view dTgl_Setor) {
  const NewSlip slip{.key = {.npwp = sNPWP,
                             .kdForm = snmForm,
                             .jenisDokumen = sJnsDok,
                             .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq},
                             .noBukti = sNoBukti,
                             .kdJenisPajak = sJnsPjk},
                     .filerName = sNmWP,
                     .filerAddress = sAlamat,
                     .dateText = std::string(dTgl_Setor)};
  createStub(slip, [&] { return stubStart(slip).text("NoBukti", sNoBukti).str(); });
}

void CF113309::pGetF113309(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                           std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                           std::string_view sJnsPjk, std::string_view /*sNmWP*/, std::string_view /*sAlamat*/,
                           Date /*dTgl_Setor*/) {
  load({.npwp = sNPWP,
        .kdForm = snmForm,
        .jenisDokumen = sJnsDok,
        .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq},
        .noBukti = sNoBukti,
        .kdJenisPajak = sJnsPjk});
}

void CF113309::pDeleteF113309(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                              std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                              std::string_view sNoBukti, std::string_view sJnsPjk) {
  deleteSlip({.npwp = sNPWP,
              .kdForm = snmForm,
              .jenisDokumen = sJnsDok,
              .period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq},
              .noBukti = sNoBukti,
              .kdJenisPajak = sJnsPjk});
}

}  // namespace tarvola
