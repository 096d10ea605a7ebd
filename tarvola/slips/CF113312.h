#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/slips/single_item_slip.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_operations.h"

namespace tarvola {

/// The withholding slip for rent of land and buildings (F113312), the single-item slip whose form has a place for the
/// location. It moves line 5a of the return (B5a3, B5a4, B5a5).
///
/// A new number is proposed from the slips of six forms: a slip of F113319, F113320 or F113321 is passed over. The date
/// reaches the list through a date, so a text that is none leaves the slip without its list row.
class CF113312 final : public slips::SingleItemSlip {
 public:
  CF113312() : SingleItemSlip(slips::landRent) {}

  /// Inserts a stub row whose place for the slip number holds iKdPmtg; a row that exists already is left as it is, with
  /// no message. dTgl_Setor is written in its default text form.
  void pCreateF113312Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                         std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                         std::string_view sJnsPjk, std::int16_t iKdPmtg, std::string_view sNmWP,
                         std::string_view sAlamat, Date dTgl_Setor);
  slips::LoadOperation pGetF113312{*this};
  /// Clears both collections of the list of the slip.
  slips::DeleteOperation pDeleteF113312{*this};
};

}  // namespace tarvola
