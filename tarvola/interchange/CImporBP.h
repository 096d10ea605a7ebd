#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/variant.h"

namespace tarvola {

/// Takes the lines of a slip export file into the store, rebuilds the return after the last one, and registers what
/// the lines name: exchanges, commodities, partners.
///
/// The application reads the file and calls pImporPPh4 for each data line, then pBuildTRVPPh4, pUpdateD113210 and
/// pUpdateTRVPPh4. importSlipFile (slip_file_import.h) does all of that and accounts for every line.
///
/// Every operation but pGetMaxCorr shows a failure as a message box and ends normally. There is no transaction: what
/// was written before a failure stays. An object serves the thread that made it.
class CImporBP {
 public:
  CImporBP();
  ~CImporBP();
  CImporBP(const CImporBP&) = delete;
  CImporBP& operator=(const CImporBP&) = delete;

  /// Stores one line: strData is an array of its columns, element 0 the form code. The period is that of the arguments,
  /// not that of the columns; amounts are cut down to whole rupiah.
  ///
  /// A slip whose form row (by sNPWP, period, form and number) or list row is there already keeps it, so a repeated
  /// import fills only what is missing. A self-paid form has no such check and is stored once more. A line of an
  /// unknown form code is passed over in silence. A failure (a column missing, an amount that is no number, an
  /// apostrophe in a text) shows its message; the rest of the line is lost. bFlagF113310 is accepted and not used.
  void pImporPPh4(const Variant& strData, std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk,
                  std::int16_t iKdPemb, bool bFlagF113310 = false);

  // --- rebuilding the return --------------------------------------------------------------------------

  /// Makes the header documents that are missing: the three self-paid lists, the list of slips, the main form with all
  /// lines 0. What exists is left untouched. rsTemp is not used.
  void pBuildTRVPPh4(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iKdPemb,
                     const RecordsetPtr& rsTemp = nullptr);
  /// Writes the header of the list of interest lines anew: for DN, LN, SBI and GIRO the number of different payees, the
  /// gross and the tax in rupiah, and the totals; makes the row if it is missing. All interest lines of the period
  /// count, whoever their filer. Gives the packed text that was written; sDataImpor is not used.
  Variant pUpdateD113210(const Variant& sDataImpor, std::string_view sNPWP_, std::int16_t iMsPjk_, std::int16_t iThPjk_,
                         std::int16_t iCorr_, std::string_view sNmWP_, std::string_view sAlmWP_);
  /// Recounts the main form from all documents of the period, then the sums of the list of slips and of the three
  /// self-paid lists. The headers must exist. A failure in a step leaves the steps before it done. rsTemp is not used.
  void pUpdateTRVPPh4(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iKdPemb,
                      const RecordsetPtr& rsTemp = nullptr);
  /// The same without the list of transfers of land and buildings.
  void pUpdateTRVPPh4_per42(std::string_view sNPWP, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iKdPemb,
                            const RecordsetPtr& rsTemp = nullptr);

  // --- registrations ----------------------------------------------------------------------------------

  /// Registers each exchange of the column BURSA that is not there yet, under the next ID.
  void pCreateNewBursa(const RecordsetPtr& rsTemp);
  /// Registers each commodity (KODE_KOMODITI, NAMA_KOMODITI) that is not there yet. It gets the next code; the code of
  /// the row is not kept.
  void pCreateNewKomoditi(const RecordsetPtr& rsTemp);
  /// Registers a partner: an array of NPWP, name and address.
  void pUpdateDataWP(const Variant& varTypeDataWP);

  // --- lookups ----------------------------------------------------------------------------------------

  /// All exchanges in the order of their ID; nullptr on failure, as with the lookups below.
  RecordsetPtr pGetBursa();
  /// The commodities of article 22 in the order of their codes.
  RecordsetPtr pGetKomoditi();
  /// All partners; the rows can be changed.
  RecordsetPtr pGetDataWP();
  /// The form rows of a period: those of the article's forms, or all rows for an article without forms of its own.
  /// sNPWP is not used.
  RecordsetPtr pGetRecDbase(std::string_view sNPWP, std::int16_t iKodePasal, std::int16_t iMsPjk, std::int16_t iThPjk,
                            std::int16_t iKdPemb);
  /// The payment numbers (NOBUKTI) of a period's self-paid forms. Transfers of land and buildings are not among
  /// them. sNPWP is not used.
  RecordsetPtr pGetNTTP(std::string_view sNPWP, std::int16_t iKodePasal, std::int16_t iMsPjk, std::int16_t iThPjk,
                        std::int16_t iKdPemb);
  /// The highest correction number of a month, 0 for a month without rows. Has no trap: a failure is thrown as
  /// RunTimeError.
  std::int16_t pGetMaxCorr(std::int16_t iMsPjk, std::int16_t iThPjk);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tarvola
