#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/date.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_operations.h"
#include "tarvola/slips/slip_parties.h"

namespace tarvola {

/// The withholding slip for sales on a stock exchange (F113311): founder shares in row 1, other shares in row 2, each
/// with gross, tariff and tax, a line of the return (2a, 2b) and a pair of total columns of its own.
///
/// The tax is gross * tariff / 100, the product first. The slip carries the name of an exchange, and its class keeps
/// the table BURSA in which the names stand.
class CF113311 final : public slips::SlipWithFiler {
 public:
  CF113311() : SlipWithFiler(slips::exchangeSales) {}

  /// Inserts a stub row that holds no slip number; a row that exists already is left as it is, with no message.
  /// dTgl_Setor is written in its default text form; sUserName is not read.
  void pCreateF113311Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                         std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                         std::string_view sJnsPjk, std::string_view sUserName, std::string_view sNmWP,
                         std::string_view sAlamat, Date dTgl_Setor);
  slips::LoadOperation pGetF113311{*this};
  /// Deletes a slip, its list row, and its share in list and return. strBursa is not read.
  void pDeleteF113311(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok, std::int16_t iMsPjk,
                      std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti, std::string_view sJnsPjk,
                      std::string_view strBursa);
  /// Loads a slip by number and correction alone, whatever its period and filer, and keeps the raw row ("Primary").
  /// Pembetulan must be a number; sNPWP is not read.
  void pGetBukti(std::string_view sNPWP, std::string_view NoBukti, std::string_view Pembetulan);

  // --- the exchanges -------------------------------------------------------------------------------------------

  /// The names (BURSA) in the order of their ID.
  RecordsetPtr getBursa();
  /// Whether a name is not usable yet: True unless it stands in the table exactly once. A name that stands twice so
  /// counts as new, and is added a third time by who trusts the answer. False behind a failure.
  bool checkBursa(std::string_view sNamaBursa);
  /// Adds a name behind the others. An empty table has no last ID: the failure shows and nothing is added.
  void addBursa(std::string_view sNamaBursa);
  /// ID of a name; an unknown name fails and gives 0.
  std::int16_t pGetIndexBursa(std::string_view sNamaBursa);

  std::string aBursa() const { return textField("BURSA"); }
  void aBursa(std::string_view value) { put("BURSA", value); }

  // Gross in rupiah and tariff in percent; the row's tax follows. The tax itself is stored as typed in.
  void aB13(double value) { put("B13", value); }
  void aB14(double value) { put("B14", value); }
  void aB15(double value) { put("B15", value); }
  void aB23(double value) { put("B23", value); }
  void aB24(double value) { put("B24", value); }
  void aB25(double value) { put("B25", value); }
};

}  // namespace tarvola
