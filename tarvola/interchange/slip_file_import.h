#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvola {

/// What is to be imported: a slip export file into one period.
struct SlipFileImport {
  std::string path = {};
  std::int16_t month = 0;
  std::int16_t year = 0;
  /// 0 is the first filing.
  std::int16_t correction = 0;
  /// Where refused lines go; "" for nowhere. An existing file is replaced once there are any; it may be `path` itself.
  std::string rejectPath = {};
};

/// A line that was not taken, by its number in the file (from 1, the header included), and why.
struct RefusedLine {
  std::uint64_t lineNumber = 0;
  std::string reason;
};

/// What became of every line: read = stored + alreadyThere + refused. Header and blank lines are not counted.
struct SlipFileImportResult {
  std::uint64_t read = 0;
  /// Lines that wrote something: new documents, and documents that an interrupted import had left incomplete.
  std::uint64_t stored = 0;
  std::uint64_t alreadyThere = 0;
  std::uint64_t refused = 0;
  /// Of the stored lines, those of self-paid forms. A form that is in two files, or was entered by hand and is
  /// imported too, is not recognised unless it is the same to the last field: compare this number with what you expect.
  std::uint64_t selfPaidStored = 0;
  /// Lines that read like UTF-8 in a file without a UTF-8 mark: their letters beyond ASCII have probably come in wrong.
  std::uint64_t likeUtf8 = 0;
  /// The first refused lines, at most `refusedLinesKept`; all of them are in the reject file.
  std::vector<RefusedLine> firstRefused;
  /// Messages of the rebuilding; if there are any, the return does not agree with its documents yet.
  std::vector<std::string> rebuildFailures;
  /// What a person should look at in the rebuilt return (see RebuildOutcome).
  std::vector<std::string> rebuildWarnings;
};

inline constexpr std::size_t refusedLinesKept = 100;

/// The title of the 52nd column of a reject file.
inline constexpr std::string_view refusalReasonTitle = "Alasan Ditolak";

/// Imports a file line by line through the same road as CImporBP::pImporPPh4, accounts for every line, and rebuilds
/// the return. The thread's connection settings must have been given to pSetCon, and the store must name its filer.
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
SlipFileImportResult importSlipFile(const SlipFileImport& order);

}  // namespace tarvola
