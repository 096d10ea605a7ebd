#pragma once

#include <array>

#include "tarvola/lists/CDPPhAlihTnhBgn.h"
#include "tarvola/lists/CDPPhJasaKonstruksi.h"
#include "tarvola/lists/CDPPhSewaTanahBangunan.h"
#include "tarvola/selfpaid/self_paid_description.h"

/// What the three self-paid forms differ in, one description each.
namespace tarvola::selfpaid {

namespace detail {

/// Rent has one rate, whoever pays the tax: a line that is 0 takes that of the rent slip.
inline constexpr std::array rentPairs = {
    AmountPair{.gross = "JMLBRUTO",
               .tax = "PPH",
               .line = {.gross = "B5b3",
                        .rate = "B5b4",
                        .tax = "B5b5",
                        .defaultRate = {.item = "Tarif", .kdForm = store::F113312.kdForm}}}};

/// Transfers have no default rate.
inline constexpr std::array transferPairs = {
    AmountPair{.gross = "JMLBRUTO", .tax = "PPH", .line = {.gross = "B73", .rate = "B74", .tax = "B75"}}};

/// Planning, work, supervision. The default rates are those of the slip for construction services, where one item
/// stands for planning and supervision and another for work.
inline constexpr DefaultRate consultancyRate{.item = "B44", .kdForm = store::F113316.kdForm};
inline constexpr DefaultRate workRate{.item = "B14", .kdForm = store::F113316.kdForm};
inline constexpr std::array constructionPairs = {
    AmountPair{.gross = "JmlBruto1",
               .tax = "PPH1",
               .line = {.gross = "B6a23", .rate = "B6a24", .tax = "B6a25", .defaultRate = consultancyRate}},
    AmountPair{.gross = "JmlBruto2",
               .tax = "PPH2",
               .line = {.gross = "B6b23", .rate = "B6b24", .tax = "B6b25", .defaultRate = workRate}},
    AmountPair{.gross = "JmlBruto3",
               .tax = "PPH3",
               .line = {.gross = "B6c23", .rate = "B6c24", .tax = "B6c25", .defaultRate = consultancyRate}}};
static_assert(constructionPairs.size() <= maximumPairs);

}  // namespace detail

inline constexpr SelfPaidDescription landRent{.form = store::FSewaTnhBgn,
                                              .list = store::DSewaTnhBgn,
                                              .openList = openList<CDPPhSewaTanahBangunan>,
                                              .hasLocation = true,
                                              .pairs = detail::rentPairs};

inline constexpr SelfPaidDescription landTransfer{.form = store::FAlihTnhBgn,
                                                  .list = store::DAlihTnhBgn,
                                                  .openList = openList<CDPPhAlihTnhBgn>,
                                                  .pairs = detail::transferPairs};

inline constexpr SelfPaidDescription constructionServices{.form = store::FJasaKonstruksi,
                                                          .list = store::DJasaKonstruksi,
                                                          .openList = openList<CDPPhJasaKonstruksi>,
                                                          .pairs = detail::constructionPairs,
                                                          .grossSum = "JMLPHSL",
                                                          .taxSum = "JmlPPh"};

}  // namespace tarvola::selfpaid
