#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "tarvola/interchange/file_columns.h"
#include "tarvola/store/form_codes.h"

/// What the import makes of the columns of a line, form by form.
namespace tarvola::interchange {

/// How a column enters a packed text, and what it must hold for that to make sense.
enum class Packing : std::uint8_t {
  Text,        ///< blanks cut
  Date,        ///< a text that says a day, or nothing
  Rate,        ///< a number or nothing, kept as the text that it is
  Number,      ///< a number, kept as the text that it is
  Option,      ///< 0, 1 or 2, kept as the text that it is
  Whole,       ///< an amount, cut down to whole rupiah
  OptionPair,  ///< the two options of a deposit: "1;0" for code 0, "0;1" for another, "0;0" for the amount "0" behind
               ///< it
  GrossTotal,  ///< the sum of the form's gross columns
  Seq,         ///< the number of the form's row in its list
};

struct Element {
  Packing packing;
  Column column = FormCode;
};

/// An amount that counts into a total of a slip's row, always or only if an option of the line has a certain value.
struct Addend {
  Column amount;
  std::optional<Column> option = {};
  double ifOptionIs = 0;
};

/// A total column of DS_FORM_INDUK.
struct Total {
  std::string_view column;
  std::span<const Addend> addends;
};

/// The import of one form.
struct ImportForm {
  store::FormCodes codes;
  /// The list that shows the form.
  store::FormCodes list;
  /// The packed text behind the six fields that name filer and period.
  std::span<const Element> packed;
  /// What the list row shows as gross and as tax: the sums of these columns.
  std::span<const Column> gross;
  std::span<const Column> tax;
  /// The totals that the slip's row carries; a self-paid form has none.
  std::span<const Total> totals = {};
  /// The list row shows 0 and 0 unless this amount differs from 0.
  std::optional<Column> listedByAmount = {};
  /// Whether the row of a self-paid list tells the location.
  bool listShowsLocation = false;
  /// How many columns a line must have: what stands behind may be missing, as spreadsheets leave it out.
  std::size_t columnsNeeded = index(TotalTax) + 1;
};

namespace detail {

template <class... Columns>
constexpr std::array<Element, sizeof...(Columns)> texts(Columns... columns) {
  return {Element{Packing::Text, columns}...};
}
template <class... Columns>
constexpr std::array<Element, sizeof...(Columns)> dates(Columns... columns) {
  return {Element{Packing::Date, columns}...};
}
template <class... Columns>
constexpr std::array<Element, sizeof...(Columns)> rates(Columns... columns) {
  return {Element{Packing::Rate, columns}...};
}
template <class... Columns>
constexpr std::array<Element, sizeof...(Columns)> wholes(Columns... columns) {
  return {Element{Packing::Whole, columns}...};
}
constexpr std::array<Element, 1> number(Column column) { return {Element{Packing::Number, column}}; }
constexpr std::array<Element, 1> option(Column column) { return {Element{Packing::Option, column}}; }
/// Kind, gross and tax of a prize.
constexpr std::array<Element, 3> prize(Column text, Column gross, Column tax) {
  return {Element{Packing::Text, text}, Element{Packing::Whole, gross}, Element{Packing::Whole, tax}};
}
/// Gross, rate and tax of an item.
constexpr std::array<Element, 3> item(Column gross, Column rate, Column tax) {
  return {Element{Packing::Whole, gross}, Element{Packing::Rate, rate}, Element{Packing::Whole, tax}};
}
template <class... Columns>
constexpr std::array<Element, sizeof...(Columns)> optionPairs(Columns... columns) {
  return {Element{Packing::OptionPair, columns}...};
}
inline constexpr std::array<Element, 1> grossTotal = {Element{Packing::GrossTotal}};
inline constexpr std::array<Element, 1> seq = {Element{Packing::Seq}};

/// Runs of elements, one behind the other.
template <std::size_t... Counts>
constexpr std::array<Element, (Counts + ...)> joined(const std::array<Element, Counts>&... runs) {
  std::array<Element, (Counts + ...)> all{};
  std::size_t count = 0;
  const auto append = [&](std::span<const Element> run) {
    for (const Element& element : run) all[count++] = element;
  };
  (append(runs), ...);
  return all;
}

inline constexpr auto slipHead = joined(dates(DateOfSlip), texts(Number));
inline constexpr auto payee = texts(PayeeNpwp, PayeeName, PayeeAddress);

}  // namespace detail

// --- packed texts ------------------------------------------------------------------------------------

inline constexpr auto lotteryPacked = detail::joined(
    detail::slipHead, detail::payee, detail::prize(Text1, Gross1, Tax1), detail::prize(Text2, Gross2, Tax2),
    detail::prize(Text3, Gross3, Tax3), detail::prize(Text4, Gross4, Tax4), detail::prize(Text5, Gross5, Tax5),
    detail::prize(Text6, Gross6, Tax6), detail::rates(Rate1, Rate2, Rate3, Rate4, Rate5, Rate6),
    // The total of a prize slip alone keeps its decimals.
    detail::number(TotalTax), detail::grossTotal);

inline constexpr auto interestPacked = detail::joined(
    detail::slipHead, detail::optionPairs(Option1, Option2, Option3, Option4, Option5), detail::payee,
    detail::item(Gross1, Rate1, Tax1), detail::item(Gross2, Rate2, Tax2), detail::item(Gross3, Rate3, Tax3),
    detail::item(Gross4, Rate4, Tax4), detail::item(Gross5, Rate5, Tax5), detail::item(Gross6, Rate6, Tax6),
    detail::item(Gross7, Rate7, Tax7), detail::texts(Text8), detail::item(Gross8, Rate8, Tax8),
    detail::wholes(TotalTax), detail::grossTotal);

inline constexpr auto exchangePacked =
    detail::joined(detail::slipHead, detail::payee, detail::item(Gross1, Rate1, Tax1),
                   detail::item(Gross2, Rate2, Tax2), detail::wholes(TotalTax), detail::grossTotal);

inline constexpr auto rentPacked =
    detail::joined(detail::slipHead, detail::payee, detail::texts(Text1), detail::item(Gross1, Rate1, Tax1));

inline constexpr auto singleItemPacked =
    detail::joined(detail::slipHead, detail::payee, detail::item(Gross1, Rate1, Tax1));

inline constexpr auto constructionPacked = detail::joined(
    detail::slipHead, detail::payee, detail::item(Gross1, Rate1, Tax1), detail::item(Gross2, Rate2, Tax2),
    detail::item(Gross3, Rate3, Tax3), detail::option(Option4), detail::item(Gross4, Rate4, Tax4),
    detail::option(Option5), detail::item(Gross5, Rate5, Tax5), detail::wholes(TotalTax), detail::grossTotal);

inline constexpr auto bondPacked = detail::joined(
    detail::dates(DateOfSlip, DueOn, BoughtOn, SoldOn), detail::texts(Number), detail::payee, detail::texts(Text1),
    detail::wholes(Gross1), detail::texts(Text2), detail::rates(Rate1),
    detail::wholes(Gross2, Gross3, Gross4, Gross5, Gross6, TotalTax), detail::rates(Rate6, HoldingDays, TimeDays));

inline constexpr auto selfPaidRentPacked = detail::joined(
    detail::texts(Text1), detail::dates(DateOfSlip), detail::texts(Number), detail::seq, detail::wholes(Gross1, Tax1));

inline constexpr auto selfPaidTransferPacked =
    detail::joined(detail::slipHead, detail::seq, detail::wholes(Gross1, Tax1));

inline constexpr auto selfPaidConstructionPacked =
    detail::joined(detail::slipHead, detail::seq, detail::wholes(Gross1, Tax1, Gross2, Tax2, Gross3, Tax3, TotalTax),
                   detail::grossTotal);

// --- gross and tax of the list row -------------------------------------------------------------------

inline constexpr std::array firstGross = {Gross1};
inline constexpr std::array twoGrosses = {Gross1, Gross2};
inline constexpr std::array threeGrosses = {Gross1, Gross2, Gross3};
inline constexpr std::array fiveGrosses = {Gross1, Gross2, Gross3, Gross4, Gross5};
inline constexpr std::array sixGrosses = {Gross1, Gross2, Gross3, Gross4, Gross5, Gross6};
inline constexpr std::array eightGrosses = {Gross1, Gross2, Gross3, Gross4, Gross5, Gross6, Gross7, Gross8};
inline constexpr std::array sixthGross = {Gross6};
inline constexpr std::array firstTax = {Tax1};
inline constexpr std::array threeTaxes = {Tax1, Tax2, Tax3};
inline constexpr std::array totalTax = {TotalTax};

// --- totals of the slip's row ------------------------------------------------------------------------

namespace detail {

template <class... Columns>
constexpr std::array<Addend, sizeof...(Columns)> sum(Columns... amounts) {
  return {Addend{.amount = amounts}...};
}
/// The five deposits of an interest slip on the side of that code.
constexpr std::array<Addend, 5> deposits(std::array<Column, 5> amounts, double code) {
  return {Addend{amounts[0], Option1, code}, Addend{amounts[1], Option2, code}, Addend{amounts[2], Option3, code},
          Addend{amounts[3], Option4, code}, Addend{amounts[4], Option5, code}};
}
/// Rows 4 and 5 of a construction slip as far as they have that option.
constexpr std::array<Addend, 2> optional(Column fourth, Column fifth, double code) {
  return {Addend{fourth, Option4, code}, Addend{fifth, Option5, code}};
}

inline constexpr std::array<Column, 5> depositGross = {Gross1, Gross2, Gross3, Gross4, Gross5};
inline constexpr std::array<Column, 5> depositTax = {Tax1, Tax2, Tax3, Tax4, Tax5};

inline constexpr auto allPrizes = sum(Gross1, Gross2, Gross3, Gross4, Gross5, Gross6);
inline constexpr auto domesticGross = deposits(depositGross, 0);
inline constexpr auto domesticTax = deposits(depositTax, 0);
inline constexpr auto foreignGross = deposits(depositGross, 1);
inline constexpr auto foreignTax = deposits(depositTax, 1);
inline constexpr auto planningGross = optional(Gross4, Gross5, 1);
inline constexpr auto planningTax = optional(Tax4, Tax5, 1);
inline constexpr auto supervisionGross = optional(Gross4, Gross5, 2);
inline constexpr auto supervisionTax = optional(Tax4, Tax5, 2);
inline constexpr auto workGross = sum(Gross1, Gross2, Gross3);
inline constexpr auto workTax = sum(Tax1, Tax2, Tax3);

inline constexpr auto gross1 = sum(Gross1);
inline constexpr auto gross2 = sum(Gross2);
inline constexpr auto gross6 = sum(Gross6);
inline constexpr auto gross7 = sum(Gross7);
inline constexpr auto gross8 = sum(Gross8);
inline constexpr auto tax1 = sum(Tax1);
inline constexpr auto tax2 = sum(Tax2);
inline constexpr auto tax6 = sum(Tax6);
inline constexpr auto tax7 = sum(Tax7);
inline constexpr auto tax8 = sum(Tax8);
inline constexpr auto taxOfAll = sum(TotalTax);

}  // namespace detail

inline constexpr std::array lotteryTotals = {Total{"Total_Bruto", detail::allPrizes},
                                             Total{"Total_PPh", detail::taxOfAll}};

/// Total_Bruto and Total_PPh of an interest slip hold the other interest, not the sum of the slip.
inline constexpr std::array interestTotals = {
    Total{"Total_Bruto", detail::gross8},         Total{"Total_PPh", detail::tax8},
    Total{"Total_Bruto1", detail::domesticGross}, Total{"Total_PPh1", detail::domesticTax},
    Total{"Total_Bruto2", detail::foreignGross},  Total{"Total_PPh2", detail::foreignTax},
    Total{"Total_Bruto3", detail::gross6},        Total{"Total_PPh3", detail::tax6},
    Total{"Total_Bruto4", detail::gross7},        Total{"Total_PPh4", detail::tax7}};

inline constexpr std::array exchangeTotals = {Total{"Total_Bruto1", detail::gross1}, Total{"Total_PPh1", detail::tax1},
                                              Total{"Total_Bruto2", detail::gross2}, Total{"Total_PPh2", detail::tax2}};

inline constexpr std::array singleItemTotals = {Total{"Total_Bruto", detail::gross1}, Total{"Total_PPh", detail::tax1}};

inline constexpr std::array constructionTotals = {
    Total{"Total_Bruto1", detail::planningGross},    Total{"Total_PPh1", detail::planningTax},
    Total{"Total_Bruto2", detail::workGross},        Total{"Total_PPh2", detail::workTax},
    Total{"Total_Bruto3", detail::supervisionGross}, Total{"Total_PPh3", detail::supervisionTax}};

inline constexpr std::array bondTotals = {Total{"Total_Bruto", detail::gross6}, Total{"Total_PPh", detail::taxOfAll}};

// --- the forms ---------------------------------------------------------------------------------------

inline constexpr std::array<ImportForm, 12> importForms = {{
    {.codes = store::F113309,
     .list = store::D113206,
     .packed = lotteryPacked,
     .gross = sixGrosses,
     .tax = totalTax,
     .totals = lotteryTotals},
    {.codes = store::F113310,
     .list = store::D113206,
     .packed = interestPacked,
     .gross = eightGrosses,
     .tax = totalTax,
     .totals = interestTotals},
    {.codes = store::F113311,
     .list = store::D113206,
     .packed = exchangePacked,
     .gross = twoGrosses,
     .tax = totalTax,
     .totals = exchangeTotals},
    {.codes = store::F113312,
     .list = store::D113206,
     .packed = rentPacked,
     .gross = firstGross,
     .tax = firstTax,
     .totals = singleItemTotals},
    {.codes = store::F113316,
     .list = store::D113206,
     .packed = constructionPacked,
     .gross = fiveGrosses,
     .tax = totalTax,
     .totals = constructionTotals},
    {.codes = store::F113317,
     .list = store::D113206,
     .packed = bondPacked,
     .gross = sixthGross,
     .tax = totalTax,
     .totals = bondTotals,
     .listedByAmount = Gross1,
     .columnsNeeded = columnCount},
    {.codes = store::FSewaTnhBgn,
     .list = store::DSewaTnhBgn,
     .packed = selfPaidRentPacked,
     .gross = firstGross,
     .tax = firstTax,
     .listShowsLocation = true},
    {.codes = store::FJasaKonstruksi,
     .list = store::DJasaKonstruksi,
     .packed = selfPaidConstructionPacked,
     .gross = threeGrosses,
     .tax = threeTaxes},
    {.codes = store::F113319,
     .list = store::D113206,
     .packed = singleItemPacked,
     .gross = firstGross,
     .tax = firstTax,
     .totals = singleItemTotals},
    {.codes = store::F113320,
     .list = store::D113206,
     .packed = singleItemPacked,
     .gross = firstGross,
     .tax = firstTax,
     .totals = singleItemTotals},
    {.codes = store::F113321,
     .list = store::D113206,
     .packed = singleItemPacked,
     .gross = firstGross,
     .tax = firstTax,
     .totals = singleItemTotals},
    {.codes = store::FAlihTnhBgn,
     .list = store::DAlihTnhBgn,
     .packed = selfPaidTransferPacked,
     .gross = firstGross,
     .tax = firstTax},
}};

/// The import of a form by its exact code, in the order in which a line's code is compared; nullptr for any other code.
constexpr const ImportForm* findImportForm(std::string_view kdForm) noexcept {
  for (const ImportForm& form : importForms)
    if (form.codes.kdForm == kdForm) return &form;
  return nullptr;
}

}  // namespace tarvola::interchange
