#include "tarvola/lists/CDPPhJasaKonstruksi.h"

namespace tarvola {

void CDPPhJasaKonstruksi::pCreateD113203Hdr(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                            std::int16_t iCollNo, std::string_view sNoBukti, Date dtBayarSSP,
                                            std::string_view sKet, double dPhsl, double dJmlPjk, double dSeq) {
  createRow({.period = {.msPajak = iMsPjk, .thPajak = iThPjk, .kdPembetulanKe = iCorrSeq},
             .collection = iCollNo,
             .paymentNumber = sNoBukti,
             .paidOn = dtBayarSSP,
             .remark = sKet,
             .grossRupiah = dPhsl,
             .taxRupiah = dJmlPjk,
             .seq = dSeq});
}

}  // namespace tarvola
