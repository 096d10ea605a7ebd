#pragma once

#include "tarvola/store/form_codes.h"
#include "tarvola/store/layout_building.h"

/// The three self-paid forms, the headers of their lists and the rows of those lists.
namespace tarvola::store::layouts {

/// The rent form alone has a place for the location; it stands before the date, so that all later fields of the two
/// other forms stand one position earlier.
inline constexpr auto selfPaidRent =
    joined(documentHead, list(text("Lokasi"), dateText("Tgl_Potong"), text("NTTP")), amounts("SEQ", "JMLBRUTO", "PPH"));
inline constexpr auto selfPaidTransfer =
    joined(documentHead, list(dateText("Tgl_Potong"), text("NTTP")), amounts("SEQ", "JMLBRUTO", "PPH"));
inline constexpr auto selfPaidConstruction =
    joined(documentHead, list(dateText("Tgl_Potong"), text("NTTP")), amounts("SEQ", "JmlBruto1", "PPH1", "JmlBruto2"),
           amounts("PPH2", "JmlBruto3", "PPH3", "JmlPPh", "JMLPHSL"));

inline constexpr auto selfPaidExtras = joined(payee, list(text("keterangan")));
inline constexpr auto selfPaidTransferExtras = joined(list(text("Lokasi")), selfPaidExtras);

/// Sum of gross and sum of tax behind the head.
inline constexpr auto selfPaidListHeader = joined(documentHead, amounts("JMLPHSL", "JmlPPh"));

/// A row of a list: SEQ is the form's own, the number of the payment is NOBUKTI of the row.
inline constexpr auto selfPaidRowHead =
    joined(list(integer("MS_PAJAK"), integer("TH_PAJAK")), amounts("SEQ", "PHSL", "PPH"));
inline constexpr auto selfPaidRowEnd = list(text("NoBukti"), dateText("Tgl_Potong"), text("keterangan"));
inline constexpr auto selfPaidRow = joined(selfPaidRowHead, selfPaidRowEnd);
inline constexpr auto selfPaidRentRow = joined(selfPaidRowHead, list(text("Lokasi")), selfPaidRowEnd);

inline constexpr std::array<FormLayout, 9> selfPaidLayouts = {{
    {.code = FSewaTnhBgn.kdForm, .positions = positionsOf<selfPaidRent>, .extras = selfPaidExtras},
    {.code = FAlihTnhBgn.kdForm, .positions = positionsOf<selfPaidTransfer>, .extras = selfPaidTransferExtras},
    {.code = FJasaKonstruksi.kdForm, .positions = positionsOf<selfPaidConstruction>, .extras = selfPaidExtras},
    {.code = DSewaTnhBgn.kdForm, .positions = positionsOf<selfPaidListHeader>, .extras = noExtras},
    {.code = DAlihTnhBgn.kdForm, .positions = positionsOf<selfPaidListHeader>, .extras = noExtras},
    {.code = DJasaKonstruksi.kdForm, .positions = positionsOf<selfPaidListHeader>, .extras = noExtras},
    {.code = "DSewaTnhBgn-Coll", .positions = positionsOf<selfPaidRentRow>, .extras = noExtras},
    {.code = "DAlihTnhBgn-Coll", .positions = positionsOf<selfPaidRow>, .extras = noExtras},
    {.code = "DJasaKonstruksi-Coll", .positions = positionsOf<selfPaidRow>, .extras = noExtras},
}};

static_assert(areSound(selfPaidLayouts));
static_assert(selfPaidRent.size() == 12 && selfPaidTransfer.size() == 11 && selfPaidConstruction.size() == 17);
static_assert(selfPaidRentRow.size() == 9 && selfPaidRow.size() == 8 && selfPaidListHeader.size() == 8);

}  // namespace tarvola::store::layouts
