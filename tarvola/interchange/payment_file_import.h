#pragma once

#include <cstdint>
#include <string>

#include "tarvola/interchange/import_account.h"

namespace tarvola {

/// What became of every line.
struct PaymentFileImportResult : ImportAccount {
  /// Of the stored lines, those of payments without a number (sixteen zeros). Nothing tells two of them apart that say
  /// the same: compare this number with what you expect.
  std::uint64_t unnumberedStored = 0;
};

/// Imports a file of pEksporSSPPBK, pEksporSSP or pEksporPBK, writing the same rows as CImporSSPPBK::pImporSSPPBK, and
/// accounts for every line. The thread's connection settings must have been given to pSetCon, and the store must name
/// its filer. Payments belong to the correction that is named, transfers to the month. The main return is not touched:
/// see CImporSSPPBK::pUpdateTRVPPh4_2009.
///
/// A line is refused, with its number and reason, if it is neither payment nor transfer of article 4, has another
/// number of columns or another period, a day that is none, an amount that is no whole number of rupiah, an account or
/// kind of payment that no export takes, a text with an apostrophe, or if the store holds the record with another
/// amount or day. The reject file has the nine columns of both kinds with the reason in a tenth; mended, it can be
/// imported as it is.
///
/// Transfers may have the nine columns of the file of both kinds or the six of their own. The file is ANSI or, with its
/// mark, UTF-8; lines end in CR LF or LF; the header may be missing or stand several times. Importing a file again
/// doubles nothing: payments without a number are known by all that they say, as often as the file says it.
///
/// Other imports into the store wait until this one is done.
///
/// Fails with a RunTimeError, before anything is written, for a file that cannot be read to its end, is empty or is no
/// payment file, for a place of refused lines that cannot be written, and for a store without a filer. Reports
/// progress.
PaymentFileImportResult importPaymentFile(const FileImport& order);

}  // namespace tarvola
