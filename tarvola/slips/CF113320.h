#pragma once

#include "tarvola/slips/single_item_slip.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_operations.h"

namespace tarvola {

/// The withholding slip for futures contracts (F113320), a single-item slip. It moves line 9 of the return
/// (B93, B94, B95). A new number is proposed from the slips of all nine forms.
class CF113320 final : public slips::SingleItemSlip {
 public:
  CF113320() : SingleItemSlip(slips::futures) {}

  /// The stub holds no slip number.
  slips::CreateOperation pCreateF113320Hdr{*this};
  slips::LoadOperation pGetF113320{*this};
  /// Clears both collections of the list of the slip.
  slips::DeleteOperation pDeleteF113320{*this};
};

}  // namespace tarvola
