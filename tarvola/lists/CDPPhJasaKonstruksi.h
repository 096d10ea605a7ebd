#pragma once

#include "tarvola/lists/self_paid_list.h"

namespace tarvola {

/// The list of payments on construction services (DJasaKonstruksi). Its rows hold the date of payment in its default
/// text form.
class CDPPhJasaKonstruksi : public lists::SelfPaidList {
 public:
  CDPPhJasaKonstruksi() : SelfPaidList(lists::constructionList) {}

  /// Replaces the row of the form with that payment number (sNoBukti) and SEQ, or adds it. The sums do not move.
  void pCreateD113203Hdr(std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::int16_t iCollNo,
                         std::string_view sNoBukti, Date dtBayarSSP, std::string_view sKet, double dPhsl,
                         double dJmlPjk, double dSeq);
};

}  // namespace tarvola
