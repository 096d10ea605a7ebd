#pragma once

#include "tarvola/slips/single_item_slip.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_operations.h"

namespace tarvola {

/// The withholding slip for interest on the savings of cooperatives (F113319), a single-item slip. It moves line 8 of
/// the return (B83, B84, B85). A new number is proposed from the slips of all nine forms.
class CF113319 final : public slips::SingleItemSlip {
 public:
  CF113319() : SingleItemSlip(slips::cooperativeInterest) {}

  /// The stub holds no slip number.
  slips::CreateOperation pCreateF113319Hdr{*this};
  slips::LoadOperation pGetF113319{*this};
  /// Clears both collections of the list of the slip.
  slips::DeleteOperation pDeleteF113319{*this};
};

}  // namespace tarvola
