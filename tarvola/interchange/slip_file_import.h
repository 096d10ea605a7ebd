#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tarvola/interchange/import_account.h"

namespace tarvola {

/// What became of every line, and of the return behind them.
struct SlipFileImportResult : ImportAccount {
  /// Of the stored lines, those of self-paid forms. A form that is in two files, or was entered by hand and is
  /// imported too, is not recognised unless it is the same to the last field: compare this number with what you expect.
  std::uint64_t selfPaidStored = 0;
  /// Messages of the rebuilding; if there are any, the return does not agree with its documents yet.
  std::vector<std::string> rebuildFailures;
  /// What a person should look at in the rebuilt return (see RebuildOutcome).
  std::vector<std::string> rebuildWarnings;
};

/// Imports a slip export file line by line through the same road as CImporBP::pImporPPh4, accounts for every line, and
/// rebuilds the return. The thread's connection settings must have been given to pSetCon, and the store must name its
/// filer.
///
/// Nothing of a line is written unless all of it can be. A line is refused, with its number and reason, if it has
/// another number of columns than the form needs, an unknown form code, another period than the one asked for, an
/// amount that is no number, a text that the store cannot take (an apostrophe), or if the store fails on it. The reject
/// file has the layout of the file with the reason in a 52nd column; mended, it can be imported as it is.
///
/// The file is ANSI or, with its mark, UTF-8; lines end in CR LF or LF; the header may be missing. Importing a file
/// again, also after an interruption at any moment, completes what is missing and doubles nothing: slips are known by
/// their number, self-paid forms by all that they say, as often as the file says it. So two equal self-paid lines in
/// one file are two forms, and remain two.
///
/// Several processes may import different files into one period at once. Memory does not grow with the file; for each
/// self-paid form that the period held before, its text is kept.
///
/// Fails with a RunTimeError, before anything is written, for a file that cannot be read, is empty or is no slip export
/// file, for a place of refused lines that cannot be written, and for a store without a filer. Reports progress.
SlipFileImportResult importSlipFile(const FileImport& order);

}  // namespace tarvola
