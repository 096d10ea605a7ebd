#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/slips/single_item_slip.h"
#include "tarvola/slips/slip_descriptions.h"

namespace tarvola {

/// The withholding slip for dividends of individuals (F113321), a single-item slip. It moves line 10 of the return
/// (B103, B104, B105). A new number is proposed from the slips of all nine forms.
///
/// Its search for duplicates asks for the filer: a number that another filer's slip holds counts as free.
class CF113321 final : public slips::SingleItemSlip {
 public:
  CF113321() : SingleItemSlip(slips::dividends) {}

  /// Inserts a stub row that holds no slip number; a row that exists already is left as it is, with no message.
  void pCreateF113321Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                         std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                         std::string_view sJnsPjk, std::string_view sNmWP, std::string_view sAlamat,
                         std::string_view dTgl_Setor);
  /// Loads a slip into rs4_2Form; without such a row it has no record. sNPWP, name, address and date are not read.
  void pGetF113321(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                   std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
                   std::string_view sNmWP, std::string_view sAlamat, Date dTgl_Setor);
  /// Deletes a slip, its list rows of both collections, and its share in list and return.
  void pDeleteF113321(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                      std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk);
};

}  // namespace tarvola
