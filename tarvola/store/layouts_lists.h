#pragma once

#include "tarvola/store/form_codes.h"
#include "tarvola/store/layout_building.h"

/// The lists of slips, D113206 and D113210, and the two list documents that are only carried along.
namespace tarvola::store::layouts {

/// Number and tax of the first collection, then of the second.
inline constexpr auto slipListHeader = joined(documentHead, amounts("A6", "A7", "B6", "B7"));

/// A row of either collection. SEQ outgrows an Integer in a large month.
inline constexpr auto slipListRow =
    joined(list(integer("MS_PAJAK"), integer("TH_PAJAK"), amount("SEQ"), text("NPWPLT"), text("ALMLT"), text("NMWPLT")),
           list(text("NoBukti"), dateText("Tgl_Potong"), amount("NOP"), amount("PPHDIPTG")));

/// Taxpayers, gross and tax of each group (domestic, foreign, SBI, giro), then of all.
inline constexpr auto interestListHeader =
    joined(documentHead, amounts("JML1A3", "JML1A4", "JML1A5", "JML1B3", "JML1B4", "JML1B5"),
           amounts("JML23", "JML24", "JML25", "JML33", "JML34", "JML35", "JML3", "JML4", "JML5"));

inline constexpr std::array<FormLayout, 6> listLayouts = {{
    {.code = D113206.kdForm, .positions = positionsOf<slipListHeader>, .extras = noExtras},
    {.code = "D113206-CollA", .positions = positionsOf<slipListRow>, .extras = noExtras},
    {.code = "D113206-CollB", .positions = positionsOf<slipListRow>, .extras = noExtras},
    {.code = D113210.kdForm, .positions = positionsOf<interestListHeader>, .extras = noExtras},
    {.code = "D113207", .positions = positionsOf<documentHead>, .extras = noExtras},
    {.code = "D113208", .positions = positionsOf<documentHead>, .extras = noExtras},
}};

static_assert(areSound(listLayouts));
static_assert(slipListHeader.size() == 10 && slipListRow.size() == 10 && interestListHeader.size() == 21);

}  // namespace tarvola::store::layouts
