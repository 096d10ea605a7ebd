#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvola {

/// A file that is to be imported into one return.
struct FileImport {
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

/// What became of every line of an imported file: read = stored + alreadyThere + refused. Header and blank lines are
/// not counted.
struct ImportAccount {
  std::uint64_t read = 0;
  /// Lines that wrote something: new records, and records that an interrupted import had left incomplete.
  std::uint64_t stored = 0;
  std::uint64_t alreadyThere = 0;
  std::uint64_t refused = 0;
  /// Lines that read like UTF-8 in a file without a UTF-8 mark: their letters beyond ASCII have probably come in wrong.
  std::uint64_t likeUtf8 = 0;
  /// The first refused lines, at most `refusedLinesKept`; all of them are in the reject file.
  std::vector<RefusedLine> firstRefused;
};

inline constexpr std::size_t refusedLinesKept = 100;

/// The title of the column that a reject file has behind those of its layout.
inline constexpr std::string_view refusalReasonTitle = "Alasan Ditolak";

}  // namespace tarvola
