#pragma once

#include <array>
#include <cstdint>

#include "tarvola/store/layout_building.h"

/// The main return, F113204.
namespace tarvola::store::layouts {

/// The 23 lines of the form, each gross, rate and tax; the last three have a text of their own in front.
inline constexpr auto returnLines = joined(
    amounts("B1a13", "B1a14", "B1a15", "B1a23", "B1a24", "B1a25", "B1B3", "B1B4", "B1B5", "B1C3", "B1C4", "B1C5"),
    amounts("B2a3", "B2a4", "B2a5", "B2b3", "B2b4", "B2b5"), amounts("B33", "B34", "B35", "B43", "B44", "B45"),
    amounts("B5a3", "B5a4", "B5a5", "B5b3", "B5b4", "B5b5"),
    amounts("B6a13", "B6a14", "B6a15", "B6a23", "B6a24", "B6a25"),
    amounts("B6b13", "B6b14", "B6b15", "B6b23", "B6b24", "B6b25"),
    amounts("B6c13", "B6c14", "B6c15", "B6c23", "B6c24", "B6c25"), amounts("B73", "B74", "B75", "B83", "B84", "B85"),
    amounts("B93", "B94", "B95", "B103", "B104", "B105"), list(text("B11a")), amounts("B11a3", "B11a4", "B11a5"),
    list(text("B11b")), amounts("B11b3", "B11b4", "B11b5"), list(text("B11c")), amounts("B11c3", "B11c4", "B11c5"));

/// Totals, the marks of part C with the quantities behind them, and the dates.
inline constexpr auto returnClosing =
    joined(amounts("JmlB5", "JMLPHSL"),
           list(integer("CHKC1"), amount("c1"), integer("CHKC2"), integer("CHKC3"), amount("C3"), integer("CHKC4"),
                integer("flagKuasa"), dateText("TGL_TRV"), integer("CHKC5"), integer("CHKC6"), dateText("TGL_SETOR")));

/// The fields of the later form. There are more of them than positions up to the 107 by which a row counts as new, so
/// that several share one position. The texts stand last in theirs, since a text may hold the "|" that parts them.
inline constexpr auto returnLaterFields =
    joined(amounts("B1a31_2", "B1A41_2", "B1A51_2", "B1a32_2", "B1A42_2", "B1A52_2"),
           amounts("B1b3_2", "B1B4_2", "B1B5_2", "B1C3_2", "B1C4_2", "B1C5_2"), amounts("B7A5", "B7B5", "B7C5"),
           amounts("B8A31", "B8A41", "B8A51", "B8A32", "B8A42", "B8A52"),
           amounts("B8B31", "B8B41", "B8B51", "B8B32", "B8B42", "B8B52"),
           amounts("B8C31", "B8C41", "B8C51", "B8C32", "B8C42", "B8C52"), amounts("B9A3", "B9A4", "B9A5"),
           list(text("B9A2")), amounts("B9B3", "B9B4", "B9B5"), list(text("B9B2")), amounts("B9C3", "B9C4", "B9C5"),
           list(text("B9C2")), amounts("B8B5", "B55"));

inline constexpr auto returnFields = joined(documentHead, returnLines, returnClosing, returnLaterFields);

/// Positions 0 to 90 hold a field each; sixteen more hold the later fields.
inline constexpr std::size_t returnPositionCount = 107;
inline constexpr std::size_t returnPlainPositionCount = 91;
inline constexpr auto returnFieldCounts = [] {
  constexpr std::array<std::uint8_t, 16> later = {3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 4, 4, 4, 1, 1};
  std::array<std::uint8_t, returnPositionCount> counts{};
  for (std::size_t position = 0; position < counts.size(); ++position)
    counts[position] = position < returnPlainPositionCount ? 1 : later[position - returnPlainPositionCount];
  return counts;
}();

inline constexpr std::array<FormLayout, 1> returnLayouts = {{
    {.code = "F113204", .positions = groupedPositions<returnFields, returnFieldCounts>, .extras = noExtras},
}};

static_assert(documentHead.size() + returnLines.size() + returnClosing.size() == returnPlainPositionCount);
static_assert(fieldCount(returnLayouts[0]) == returnFields.size(), "every field has its place in a position");
static_assert(areSound(returnLayouts));

}  // namespace tarvola::store::layouts
