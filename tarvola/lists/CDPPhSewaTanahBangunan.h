#pragma once

#include "tarvola/lists/self_paid_list.h"

namespace tarvola {

/// The list of payments on the rent of land and buildings (DSewaTnhBgn). Its rows hold the place of the object.
class CDPPhSewaTanahBangunan : public lists::SelfPaidList {
 public:
  CDPPhSewaTanahBangunan() : SelfPaidList(lists::rentList) {}

  /// Replaces the row of the form with that payment number (sNoBukti) and SEQ, or adds it. The sums do not move.
  void pCreateD113203Hdr(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::int16_t iCollNo,
                         std::string_view sNoBukti, Date dtBayarSSP, std::string_view sKet, double dPhsl,
                         double dJmlPjk, double dSeq, std::string_view sLokasi);
};

}  // namespace tarvola
