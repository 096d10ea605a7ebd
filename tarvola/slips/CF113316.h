#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/slips/slip_operations.h"
#include "tarvola/slips/slip_parties.h"

namespace tarvola {

/// The withholding slip for construction services (F113316): three rows of construction work, which move line 6b of the
/// return, and two of planning or supervision, whose options (Opt4, Opt5) say which: 1 planning, line 6a; 2
/// supervision, line 6c; 0 neither. A row with option 0 reaches no line and no total column, but counts in the list.
///
/// The tax of a row is gross * tariff * 0.01, which can differ from a division by 100 in the last place.
class CF113316 final : public slips::SlipWithParties {
 public:
  CF113316() : SlipWithParties(slips::constructionServices) {}

  /// Inserts a stub row whose place for the slip number holds iKdPmtg; a row that exists already is left as it is, with
  /// no message.
  void pCreateF113316Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                         std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq, std::string_view sNoBukti,
                         std::string_view sJnsPjk, std::int16_t iKdPmtg, std::string_view sNmWP,
                         std::string_view sAlamat, std::string_view dTgl_Setor);
  slips::LoadOperation pGetF113316{*this};
  /// Clears both collections of the list of the slip.
  slips::DeleteOperation pDeleteF113316{*this};

  /// What rows 4 and 5 are. A save turns a Null Opt4 into 0. A Null Opt5 picks no line and then fails: the slip is
  /// stored by then, while list and return do not know of it.
  Variant aOpt4() const { return get("Opt4"); }
  void aOpt4(const Variant& value) { put("Opt4", value); }
  Variant aOpt5() const { return get("Opt5"); }
  void aOpt5(const Variant& value) { put("Opt5", value); }

  // Gross in rupiah and tariff in percent; the row's tax follows. The tax itself is stored as typed in.
  void aB13(double value) { put("B13", value); }
  void aB14(double value) { put("B14", value); }
  void aB15(double value) { put("B15", value); }
  void aB23(double value) { put("B23", value); }
  void aB24(double value) { put("B24", value); }
  void aB25(double value) { put("B25", value); }
  void aB33(double value) { put("B33", value); }
  void aB34(double value) { put("B34", value); }
  void aB35(double value) { put("B35", value); }
  void aB43(double value) { put("B43", value); }
  void aB44(double value) { put("B44", value); }
  void aB45(double value) { put("B45", value); }
  void aB53(double value) { put("B53", value); }
  void aB54(double value) { put("B54", value); }
  void aB55(double value) { put("B55", value); }

  using SlipFrame::aNoBukti;
  Variant aNoBukti() const { return get("NoBukti"); }
  /// The address of the filer has two names that write it, aAlmWP and aALM.
  void aAlmWP(const Variant& value) { put("ALM", value); }

 private:
  /// Opt4 and Opt5.
  using Options = std::array<std::int16_t, 2>;

  void rememberOldValues() override;
  void writeTotals(const RecordsetPtr& storeRow) override;
  void beforeRollUp() override;
  void moveReturnLines(CF113204& mainReturn) override;

  /// Whether a row is of that service. A Null option is of none.
  bool isService(std::string_view option, std::int16_t service) const;
  void takeOptionRows(const RecordsetPtr& returnRow) const;
  void moveOptionRows(const RecordsetPtr& returnRow) const;
  void moveOptionRow(const RecordsetPtr& returnRow, std::size_t optionRow, std::int16_t option) const;

  /// As the slip was loaded, and as it was saved; the return is moved by these.
  Options oldOptions_{};
  Options newOptions_{};
};

}  // namespace tarvola
