#pragma once

#include "tarvola/slips/single_item_slip.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_operations.h"

namespace tarvola {

/// The withholding slip for dividends of individuals (F113321), a single-item slip. It moves line 10 of the return
/// (B103, B104, B105). A new number is proposed from the slips of all nine forms.
///
/// Its search for duplicates asks for the filer: a number that another filer's slip holds counts as free.
class CF113321 final : public slips::SingleItemSlip {
 public:
  CF113321() : SingleItemSlip(slips::dividends) {}

  /// The stub holds no slip number.
  slips::CreateOperation pCreateF113321Hdr{*this};
  slips::LoadOperation pGetF113321{*this};
  /// Clears both collections of the list of the slip.
  slips::DeleteOperation pDeleteF113321{*this};
};

}  // namespace tarvola
