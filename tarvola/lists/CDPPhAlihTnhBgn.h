#pragma once

#include "tarvola/lists/self_paid_list.h"

namespace tarvola {

/// The list of payments on the transfer of land and buildings (DAlihTnhBgn). It alone asks for the filer in pCheckHdr.
class CDPPhAlihTnhBgn : public lists::SelfPaidList {
 public:
  CDPPhAlihTnhBgn() : SelfPaidList(lists::transferList) {}

  /// Replaces the row of the form with that payment number (sNoBukti) and SEQ, or adds it. The sums do not move.
  /// sLokasi is not read: the row has no such field.
  void pCreateD113203Hdr(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::int16_t iCollNo,
                         std::string_view sNoBukti, Date dtBayarSSP, std::string_view sKet, double dPhsl,
                         double dJmlPjk, double dSeq, std::string_view sLokasi);
};

}  // namespace tarvola
