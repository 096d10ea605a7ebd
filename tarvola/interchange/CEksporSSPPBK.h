#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace tarvola {

/// Writes payment records of a return into text files: payments (SSP, table DATSSP) of a period and transfers of
/// payments (PBK, table datPBKPPhMasa) of its month.
///
/// A file is text in the ANSI code page with CR LF line ends: one line of titles, then a line for each record, columns
/// separated by ";", nothing quoted. Values are trimmed; dates and amounts (rupiah) stand in their default text form,
/// "10/02/2009" and "1500000,5". CR LF inside a value is taken out.
///
///   SSP4;1;2009;0;0102030405060708;10/02/2009;1500000;411128;402      pEksporSSPPBK and pEksporSSP
///   PBK4;1;2009;;PBK-0001/2009;15/02/2009;250000;;                     pEksporSSPPBK
///   PBK4;1;2009;PBK-0001/2009;15/02/2009;250000                        pEksporPBK, and what CImporSSPPBK takes
///
/// An existing file is replaced, also where the period has no records: then the titles stand alone. Success says
/// nothing. A folder that does not exist shows a message of its own; any other failure shows its description and leaves
/// the file as far as it was written.
///
/// The connection settings must have been given to pSetCon of another class on this thread before. An object serves the
/// thread that made it.
class CEksporSSPPBK {
 public:
  /// Opens its connection. A failure shows at once, and the object lives on without one.
  CEksporSSPPBK();
  /// Closes it.
  ~CEksporSSPPBK();
  CEksporSSPPBK(const CEksporSSPPBK&) = delete;
  CEksporSSPPBK& operator=(const CEksporSSPPBK&) = delete;

  // iKodePasal is the article, 4 for the return that the library computes; iCorr the correction whose payments are
  // written. Only payments of the article's account codes and kinds of payment are taken, in the order of their dates,
  // of whatever filer. Transfers are those in favour of sNPWP.

  /// Payments, and behind them transfers, nine columns each.
  void pEksporSSPPBK(std::string_view sNPWP, std::int16_t iKodePasal, std::int16_t iMsPjk, std::int16_t iThPjk,
                     std::string_view strFileName, std::int16_t iCorr);
  /// Payments alone, nine columns.
  void pEksporSSP(std::string_view sNPWP, std::int16_t iKodePasal, std::int16_t iMsPjk, std::int16_t iThPjk,
                  std::string_view strFileName, std::int16_t iCorr);
  /// Transfers alone, six columns. iCorr is not read.
  void pEksporPBK(std::string_view sNPWP, std::int16_t iKodePasal, std::int16_t iMsPjk, std::int16_t iThPjk,
                  std::string_view strFileName, std::int16_t iCorr);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tarvola
