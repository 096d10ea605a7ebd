#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "tarvola/slips/slip_description.h"
#include "tarvola/slips/slip_fields.h"
#include "tarvola/store/form_codes.h"

/// What the nine slip forms differ in, one description each.
namespace tarvola::slips {

/// All slip forms; the first six are the ones of NumberScan::SixForms.
inline constexpr std::array nineSlipForms = {store::F113309, store::F113310, store::F113311,
                                             store::F113312, store::F113316, store::F113317,
                                             store::F113319, store::F113320, store::F113321};

namespace detail {

inline constexpr std::array<std::int16_t, 1> firstCollection = {0};
inline constexpr std::array<std::int16_t, 2> bothCollections = {0, 1};

inline constexpr std::array<std::string_view, 6> prizeTariffs = {"B14", "B24", "B34", "B44", "B54", "B64"};
inline constexpr std::array prizeDefaults = {DefaultTariff{.item = "B14", .fields = prizeTariffs}};
inline constexpr std::array prizeTotals = {TotalColumns{.gross = "Total_Bruto", .tax = "Total_PPh", .rows = {0, 6}}};
inline constexpr std::array prizeLines = {
    ReturnLine{.gross = "B43", .tariff = "B44", .tax = "B45", .rows = {0, 6}, .defaultItem = "B14"}};

inline constexpr std::array<std::string_view, 8> interestTariffs = {"B1A4", "B1B4", "B1C4", "B24",
                                                                    "B34",  "B44",  "B54",  "B64"};
inline constexpr std::array interestDefaults = {DefaultTariff{.item = "WP DN", .fields = interestTariffs}};
/// Domestic and foreign, which the options of the rows fill; SBI, giro; the last pair holds other interest alone.
inline constexpr std::array interestTotals = {
    TotalColumns{.gross = "Total_Bruto1", .tax = "Total_PPh1"},
    TotalColumns{.gross = "Total_Bruto2", .tax = "Total_PPh2"},
    TotalColumns{.gross = "Total_Bruto3", .tax = "Total_PPh3", .rows = {5, 1}},
    TotalColumns{.gross = "Total_Bruto4", .tax = "Total_PPh4", .rows = {6, 1}},
    TotalColumns{.gross = "Total_Bruto", .tax = "Total_PPh", .rows = {7, 1}}};
inline constexpr std::array interestLines = {
    ReturnLine{.gross = "B1a13", .tariff = "B1a14", .tax = "B1a15", .defaultItem = "WP DN", .averageChoice = "DN"},
    ReturnLine{.gross = "B1a23", .tariff = "B1a24", .tax = "B1a25", .defaultItem = "WP DN", .averageChoice = "LN"},
    ReturnLine{.gross = "B1B3",
               .tariff = "B1B4",
               .tax = "B1B5",
               .rows = {5, 1},
               .defaultItem = "WP DN",
               .averageChoice = "SBI"},
    ReturnLine{.gross = "B1C3",
               .tariff = "B1C4",
               .tax = "B1C5",
               .rows = {6, 1},
               .defaultItem = "WP DN",
               .averageChoice = "GIRO"}};

inline constexpr std::array<std::string_view, 1> tariffB14 = {"B14"};
inline constexpr std::array<std::string_view, 1> tariffB24 = {"B24"};
inline constexpr std::array<std::string_view, 1> tariffB34 = {"B34"};
inline constexpr std::array<std::string_view, 1> tariffB44 = {"B44"};
inline constexpr std::array<std::string_view, 1> tariffB54 = {"B54"};
inline constexpr std::array exchangeDefaults = {DefaultTariff{.item = "B14", .fields = tariffB14},
                                                DefaultTariff{.item = "B24", .fields = tariffB24}};
inline constexpr std::array exchangeTotals = {
    TotalColumns{.gross = "Total_Bruto1", .tax = "Total_PPh1", .rows = {0, 1}},
    TotalColumns{.gross = "Total_Bruto2", .tax = "Total_PPh2", .rows = {1, 1}}};
inline constexpr std::array exchangeLines = {
    ReturnLine{
        .gross = "B2a3", .tariff = "B2a4", .tax = "B2a5", .rows = {0, 1}, .defaultItem = "B14", .averageChoice = "1"},
    ReturnLine{
        .gross = "B2b3", .tariff = "B2b4", .tax = "B2b5", .rows = {1, 1}, .defaultItem = "B24", .averageChoice = "2"}};

inline constexpr std::array<std::string_view, 1> singleTariff = {"Tarif"};
inline constexpr std::array singleDefaults = {DefaultTariff{.item = "Tarif", .fields = singleTariff}};
inline constexpr std::array singleTotals = {TotalColumns{.gross = "Total_Bruto", .tax = "Total_PPh", .rows = {0, 1}}};
inline constexpr std::array rentLines = {
    ReturnLine{.gross = "B5a3", .tariff = "B5a4", .tax = "B5a5", .rows = {0, 1}, .defaultItem = "Tarif"}};
inline constexpr std::array cooperativeLines = {
    ReturnLine{.gross = "B83", .tariff = "B84", .tax = "B85", .rows = {0, 1}, .defaultItem = "Tarif"}};
inline constexpr std::array futuresLines = {
    ReturnLine{.gross = "B93", .tariff = "B94", .tax = "B95", .rows = {0, 1}, .defaultItem = "Tarif"}};
inline constexpr std::array dividendLines = {
    ReturnLine{.gross = "B103", .tariff = "B104", .tax = "B105", .rows = {0, 1}, .defaultItem = "Tarif"}};

inline constexpr std::array constructionDefaults = {
    DefaultTariff{.item = "B14", .fields = tariffB14}, DefaultTariff{.item = "B24", .fields = tariffB24},
    DefaultTariff{.item = "B34", .fields = tariffB34}, DefaultTariff{.item = "B44", .fields = tariffB44},
    DefaultTariff{.item = "B54", .fields = tariffB54}};
inline constexpr std::array constructionTotals = {
    TotalColumns{.gross = "Total_Bruto1", .tax = "Total_PPh1"},
    TotalColumns{.gross = "Total_Bruto2", .tax = "Total_PPh2", .rows = {0, 3}},
    TotalColumns{.gross = "Total_Bruto3", .tax = "Total_PPh3"}};
/// Planning, work, supervision.
inline constexpr std::array constructionLines = {
    ReturnLine{.gross = "B6a13", .tariff = "B6a14", .tax = "B6a15", .defaultItem = "B44", .averageChoice = "1"},
    ReturnLine{.gross = "B6b13",
               .tariff = "B6b14",
               .tax = "B6b15",
               .rows = {0, 3},
               .defaultItem = "B14",
               .averageChoice = "2"},
    ReturnLine{.gross = "B6c13", .tariff = "B6c14", .tax = "B6c15", .defaultItem = "B44", .averageChoice = "3"}};

inline constexpr std::array bondLines = {
    ReturnLine{.gross = "B33", .tariff = "B34", .tax = "B35", .rows = {0, 1}, .defaultItem = "Tarif"}};

/// A single-item slip but for its codes and lines.
constexpr SlipDescription singleItem(const store::FormCodes& form, std::span<const ReturnLine> lines) {
  return {.form = form,
          .rows = singleRow,
          .fields = singleItemFields,
          .taxOf = productByHundred,
          .tariffTurn = TariffTurn::BeforeAmounts,
          .defaultTariffs = singleDefaults,
          .numberScan = NumberScan::NineForms,
          .totals = singleTotals,
          .listDate = ListDate::AsItStands,
          .collectionsCleared = bothCollections,
          .returnLines = lines};
}

/// Rent of land and buildings: it scans six forms and takes its date through a date.
constexpr SlipDescription rent() {
  SlipDescription description = singleItem(store::F113312, rentLines);
  description.stubEnd = StubEnd::KindOfAgent;
  description.numberScan = NumberScan::SixForms;
  description.listDate = ListDate::DefaultText;
  return description;
}

/// Dividends: a number is taken only if the same filer holds it.
constexpr SlipDescription dividend() {
  SlipDescription description = singleItem(store::F113321, dividendLines);
  description.duplicateCheckAsksForFiler = true;
  return description;
}

}  // namespace detail

/// Lottery prizes: six kinds of prize, each with gross, tariff and tax; one line of the return for all.
inline constexpr SlipDescription lotteryPrizes{.form = store::F113309,
                                               .rows = detail::prizeRows,
                                               .fields = detail::prizeFields,
                                               .stubEnd = StubEnd::SlipNumber,
                                               .taxOf = grossTimesShare,
                                               .grossSum = "JMLPHSL",
                                               .taxSum = "JmlB5",
                                               .remembersTaxSum = true,
                                               .defaultTariffs = detail::prizeDefaults,
                                               .totals = detail::prizeTotals,
                                               .collectionsCleared = detail::firstCollection,
                                               .returnLines = detail::prizeLines};

/// Interest: eight rows; four lines of the return and a text line. A save looks for its row whatever the filer.
inline constexpr SlipDescription interest{.form = store::F113310,
                                          .rows = detail::interestRows,
                                          .fields = detail::interestFields,
                                          .stubEnd = StubEnd::SlipNumber,
                                          .taxOf = grossTimesShare,
                                          .tariffTurn = TariffTurn::BehindEachRow,
                                          .grossSum = "JMLPHSL",
                                          .taxSum = "JmlB5",
                                          .remembersTaxSum = true,
                                          .remembersTariffs = false,
                                          .defaultTariffs = detail::interestDefaults,
                                          .numberScan = NumberScan::NineForms,
                                          .saveAsksForFiler = false,
                                          .keepsNamedFieldsAfterSave = true,
                                          .totals = detail::interestTotals,
                                          .collectionsCleared = detail::firstCollection,
                                          .returnLines = detail::interestLines};

/// Sales on a stock exchange: two rows, each with its own line, tariff and total columns.
inline constexpr SlipDescription exchangeSales{.form = store::F113311,
                                               .rows = detail::exchangeRows,
                                               .fields = detail::exchangeFields,
                                               .taxOf = productByHundred,
                                               .grossSum = "JMLPHSL",
                                               .taxSum = "JmlB5",
                                               .defaultTariffs = detail::exchangeDefaults,
                                               .totals = detail::exchangeTotals,
                                               .listDate = ListDate::AsItStands,
                                               .collectionsCleared = detail::firstCollection,
                                               .returnLines = detail::exchangeLines};

/// Construction services: five rows, three lines, two options that send a row to one of two of them.
inline constexpr SlipDescription constructionServices{.form = store::F113316,
                                                      .rows = detail::constructionRows,
                                                      .fields = detail::constructionFields,
                                                      .stubEnd = StubEnd::KindOfAgent,
                                                      .taxOf = productTimesHundredth,
                                                      .tariffTurn = TariffTurn::BehindEachRow,
                                                      .grossSum = "JMLPHSL",
                                                      .taxSum = "JmlB5",
                                                      .remembersTaxSum = true,
                                                      .defaultTariffs = detail::constructionDefaults,
                                                      .totals = detail::constructionTotals,
                                                      .collectionsCleared = detail::bothCollections,
                                                      .returnLines = detail::constructionLines};

/// Bonds: computed amounts are rounded to whole rupiah as they are written, in a way of the form's own.
inline constexpr SlipDescription bonds{.form = store::F113317,
                                       .rows = detail::bondRows,
                                       .fields = detail::bondFields,
                                       .remembersTariffs = false,
                                       .defaultTariffs = detail::singleDefaults,
                                       .totals = detail::singleTotals,
                                       .listDate = ListDate::AsItStands,
                                       .collectionsCleared = detail::firstCollection,
                                       .returnLines = detail::bondLines};

/// The four single-item slips.
inline constexpr SlipDescription landRent = detail::rent();
inline constexpr SlipDescription cooperativeInterest = detail::singleItem(store::F113319, detail::cooperativeLines);
inline constexpr SlipDescription futures = detail::singleItem(store::F113320, detail::futuresLines);
inline constexpr SlipDescription dividends = detail::dividend();

}  // namespace tarvola::slips
