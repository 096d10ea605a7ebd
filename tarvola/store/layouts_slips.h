#pragma once

#include "tarvola/store/form_codes.h"
#include "tarvola/store/layout_building.h"

/// The nine withholding slips.
namespace tarvola::store::layouts {

/// Positions 0 to 7 of every slip but the bond slip.
inline constexpr auto slipHead = joined(documentHead, list(dateText("Tgl_Potong"), text("NoBukti")));

/// F113309, lottery prizes: kind, gross and tax of six rows, then the six tariffs, then the sums of tax and gross.
inline constexpr auto lotterySlip =
    joined(slipHead, payee, list(text("B12"), amount("B13"), amount("B15"), text("B22"), amount("B23"), amount("B25")),
           list(text("B32"), amount("B33"), amount("B35"), text("B42"), amount("B43"), amount("B45")),
           list(text("B52"), amount("B53"), amount("B55"), text("B62"), amount("B63"), amount("B65")),
           amounts("B14", "B24", "B34", "B44", "B54", "B64", "JmlB5", "JMLPHSL"));
inline constexpr auto lotteryExtras = list(text("INVOICE"));

/// F113310, interest: the options in front of the payee, gross, tariff and tax of eight rows, the last with a text.
inline constexpr auto interestSlip =
    joined(slipHead,
           list(integer("OPTDN1"), integer("OPTLN1"), integer("OPTDN2"), integer("OPTLN2"), integer("OPTDN3"),
                integer("OPTLN3"), integer("OPTDN4"), integer("OPTLN4"), integer("OPTDN5"), integer("OPTLN5")),
           payee, amounts("B1A3", "B1A4", "B1A5", "B1B3", "B1B4", "B1B5", "B1C3", "B1C4", "B1C5"),
           amounts("B23", "B24", "B25", "B33", "B34", "B35", "B43", "B44", "B45", "B53", "B54", "B55"),
           list(text("B62")), amounts("B63", "B64", "B65", "JmlB5", "JMLPHSL"));
inline constexpr auto interestExtras = joined(list(text("INVOICE"), text("NoSKB1"), text("NoSKB2"), text("NoSKB3"),
                                                   text("NoSKB4"), text("NoSKB5"), text("NoSKB6")),
                                              amounts("JmlNOPDN", "JmlNOPLN", "JmlPPhDN", "JmlPPhLN"));

/// F113311, sales on the exchange.
inline constexpr auto exchangeSlip =
    joined(slipHead, payee, amounts("B13", "B14", "B15", "B23", "B24", "B25", "JmlB5", "JMLPHSL"));
inline constexpr auto exchangeExtras = list(text("INVOICE"), text("BURSA"));

/// F113312, rent of land and buildings: the single-item slip that has a place for the location.
inline constexpr auto rentSlip =
    joined(slipHead, payee, list(text("Lokasi")), amounts("JMLBRUTO", "Tarif", "PPHDIPTG"));
inline constexpr auto rentExtras = list(text("INVOICE"), text("NMUSER"));

/// F113319, F113320 and F113321.
inline constexpr auto singleItemSlip = joined(slipHead, payee, amounts("JMLBRUTO", "Tarif", "PPHDIPTG"));
inline constexpr auto singleItemExtras = list(text("INVOICE"), text("NMUSER"), text("Lokasi"));

/// F113316, construction services: rows 4 and 5 with an option in front (1 planning, 2 supervision, 0 neither).
inline constexpr auto constructionSlip = joined(
    slipHead, payee, amounts("B13", "B14", "B15", "B23", "B24", "B25", "B33", "B34", "B35"), list(integer("Opt4")),
    amounts("B43", "B44", "B45"), list(integer("Opt5")), amounts("B53", "B54", "B55"), amounts("JmlB5", "JMLPHSL"));
inline constexpr auto constructionExtras = list(text("INVOICE"));

/// F113317, bonds: three more dates in front of the slip number.
inline constexpr auto bondSlip =
    joined(documentHead, list(dateText("Tgl_Potong"), dateText("E1"), dateText("F1"), dateText("G1"), text("NoBukti")),
           payee, list(text("a1"), amount("b1"), text("c1"), amount("d1")),
           amounts("h1", "i1", "j2", "k2", "JML", "PPhFinal", "Tarif"),
           list(integer("HoldingPeriode"), integer("TimePeriode")));
inline constexpr auto bondExtras = list(text("INVOICE"), integer("OptPPhFinTdkDiptg"));

inline constexpr std::array<FormLayout, 9> slipLayouts = {{
    {.code = F113309.kdForm, .positions = positionsOf<lotterySlip>, .extras = lotteryExtras},
    {.code = F113310.kdForm, .positions = positionsOf<interestSlip>, .extras = interestExtras},
    {.code = F113311.kdForm, .positions = positionsOf<exchangeSlip>, .extras = exchangeExtras},
    {.code = F113312.kdForm, .positions = positionsOf<rentSlip>, .extras = rentExtras},
    {.code = F113316.kdForm, .positions = positionsOf<constructionSlip>, .extras = constructionExtras},
    {.code = F113317.kdForm, .positions = positionsOf<bondSlip>, .extras = bondExtras},
    {.code = F113319.kdForm, .positions = positionsOf<singleItemSlip>, .extras = singleItemExtras},
    {.code = F113320.kdForm, .positions = positionsOf<singleItemSlip>, .extras = singleItemExtras},
    {.code = F113321.kdForm, .positions = positionsOf<singleItemSlip>, .extras = singleItemExtras},
}};

static_assert(areSound(slipLayouts));
static_assert(lotterySlip.size() == 37 && interestSlip.size() == 48 && exchangeSlip.size() == 19);
static_assert(rentSlip.size() == 15 && singleItemSlip.size() == 14 && constructionSlip.size() == 30);
static_assert(bondSlip.size() == 27);

}  // namespace tarvola::store::layouts
