#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/variant.h"

namespace tarvola {

/// Takes the lines of payment files into the store, shows the records of a period, and writes their number into the
/// main return. Payments (SSP) go to table DATSSP, transfers of payments (PBK) to datPBKPPhMasa.
///
/// The application reads the file, leaves out the line of titles, cuts each line at ";" and hands over the array.
/// Payments have the nine columns of CEksporSSPPBK, transfers the six of pEksporPBK; a transfer of nine columns fails.
///
/// Every operation shows a failure as a message box and ends normally. There is no transaction: a run that is repeated
/// adds what is missing, and each payment without a number once more. Recordsets that an object gave are closed with
/// it. An object serves the thread that made it.
class CImporSSPPBK {
 public:
  /// Opens its connection. A failure shows at once, and the object lives on without one.
  CImporSSPPBK();
  /// Closes it.
  ~CImporSSPPBK();
  CImporSSPPBK(const CImporSSPPBK&) = delete;
  CImporSSPPBK& operator=(const CImporSSPPBK&) = delete;

  /// Stores one line of either kind; a line of another kind is passed over in silence.
  ///
  /// A payment is stored for the period of the arguments, not of its columns, under the number of PROFILE, its amount
  /// cut down to whole rupiah. If one of that period, account, kind, payment number and day is there already nothing is
  /// added, whatever its amount. A payment number of sixteen zeros is none: such payments are never looked up, each is
  /// added, and the search for its key shows a failure, so that its key is 0. A transfer is stored for the month of its
  /// columns, unless one of that number and month is there.
  ///
  /// A column that is missing, a date that is none or an apostrophe shows its message, possibly once for the look-up
  /// and once for the insert, and nothing is stored.
  void pImporSSPPBK(const Variant& strData, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorr);
  /// The same for payments alone; all other lines are passed over.
  void pImporSSP(const Variant& strData, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorr);

  /// The transfers in favour of sNPWP in a month. nullptr on failure.
  RecordsetPtr pGetPBK(std::string_view sNPWP, std::int16_t iPasal, std::int16_t iMsPjk, std::int16_t iThPjk);
  /// The payments of a period in the order of their dates. Month, year and correction must be numbers; sNPWP is not
  /// read. Payments of the kinds 390 and 416 are not shown, although the export writes them. nullptr on failure.
  RecordsetPtr pGetSSP(std::string_view sNPWP, std::int16_t iKodePasal, std::string_view sMsPjk,
                       std::string_view sThPjk, std::string_view sCorr);

  /// The highest correction number of a form in a month, -1 without one; 0 on failure. sNPWP is not read.
  std::int16_t aMaxKdPembetulan(std::string_view sNPWP, std::string_view skdform, std::int16_t iMsPjk,
                                std::int16_t iThPjk);
  /// Brings the latest return of a month up to date after an import: normalises its lines, sets aC1 to the number of
  /// payments and transfers and aCHKC1 to 1, and saves it. Without a return nothing happens.
  void pUpdateTRVPPh4(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk);
  /// The same in every step.
  void pUpdateTRVPPh4_2009(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tarvola
