#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "tarvola/runtime/variant.h"
#include "tarvola/slips/slip_field.h"
#include "tarvola/store/form_codes.h"

namespace tarvola::slips {

/// The fields of one row of a slip: gross and tax in rupiah, tariff in percent.
struct AmountRow {
  std::string_view gross;
  std::string_view tariff;
  std::string_view tax;
};

/// Some rows of a slip that follow one another, counted from 0.
struct RowRange {
  std::size_t first = 0;
  std::size_t count = 0;
};

// How a form takes its percentage. The three can differ in the last places, so each form keeps its own; a Null gross or
// tariff makes the tax Null.
/// gross * (tariff / 100)
Variant grossTimesShare(const Variant& gross, const Variant& tariff);
/// gross * tariff / 100
Variant productByHundred(const Variant& gross, const Variant& tariff);
/// gross * tariff * 0.01
Variant productTimesHundredth(const Variant& gross, const Variant& tariff);

/// When the normalisation of a slip (pHitPjk) comes to the tariffs. It matters to a slip that holds a text where an
/// amount belongs: the fields before it are normalised, those behind it are not.
enum class TariffTurn : std::uint8_t { BehindAllAmounts, BehindEachRow, BeforeAmounts };

/// What a new slip's packed text ends with, behind filer, period and date.
enum class StubEnd : std::uint8_t {
  Date,  ///< nothing more: the slip does not know its number
  SlipNumber,
  KindOfAgent,  ///< the caller's iKdPmtg, where other slips hold their number; the list reads it from there
};

/// Which forms the proposal of a slip number looks at. The two sets may propose different numbers for the same year.
enum class NumberScan : std::uint8_t { SixForms, NineForms };

/// How the date of a slip reaches its list row.
enum class ListDate : std::uint8_t {
  DayMonthYear,  ///< read as a date and written "dd/MM/yyyy"
  DefaultText,   ///< read as a date and written in its default text form
  AsItStands,
};

/// The columns of the slip's store row that hold its totals, and the slip's rows that feed them.
struct TotalColumns {
  std::string_view gross;
  std::string_view tax;
  RowRange rows = {};
};

/// A line of the main return that the slip moves, and the slip's rows that feed it.
struct ReturnLine {
  std::string_view gross;
  std::string_view tariff;
  std::string_view tax;
  RowRange rows = {};
  /// The item of the settings whose rate stands while the line is 0; "" where the form sets the rate itself.
  std::string_view defaultItem = {};
  /// Which pair of total columns gives the average rate otherwise.
  std::string_view averageChoice = {};
};

/// An item of the settings and the tariff fields of a new slip that take its rate.
struct DefaultTariff {
  std::string_view item;
  std::span<const std::string_view> fields;
};

/// Everything in which a slip form differs from the others, as far as a table can say it.
struct SlipDescription {
  store::FormCodes form;
  std::span<const AmountRow> rows;
  /// The fields that have a property to write them.
  std::span<const SlipField> fields;
  StubEnd stubEnd = StubEnd::Date;
  /// nullptr where the form computes its tax in a way of its own.
  Variant (*taxOf)(const Variant& gross, const Variant& tariff) = nullptr;
  TariffTurn tariffTurn = TariffTurn::BehindAllAmounts;
  /// The fields that hold the sum of the rows' gross and tax, "" where the form has none.
  std::string_view grossSum = {};
  std::string_view taxSum = {};
  /// Whether the change of the list's tax is that of taxSum; otherwise it is that of the rows.
  bool remembersTaxSum = false;
  /// Whether the old tariffs are read along with the old amounts. Nothing uses them, but one that is no number fails.
  bool remembersTariffs = true;
  std::span<const DefaultTariff> defaultTariffs;
  NumberScan numberScan = NumberScan::SixForms;
  bool duplicateCheckAsksForFiler = false;
  bool saveAsksForFiler = true;
  bool keepsNamedFieldsAfterSave = false;
  std::span<const TotalColumns> totals;
  ListDate listDate = ListDate::DayMonthYear;
  /// The list's collections that a delete clears of the slip.
  std::span<const std::int16_t> collectionsCleared;
  std::span<const ReturnLine> returnLines;
};

/// No form has more rows.
inline constexpr std::size_t maximumRows = 8;

}  // namespace tarvola::slips
