#include "tarvola/ado/sql/engine_functions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "tarvola/ado/sql/date_intervals.h"
#include "tarvola/ado/sql/letters.h"
#include "tarvola/ado/sql/literals.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::sql {
namespace {

using Arguments = std::span<const Variant>;

[[noreturn]] void failMismatch() { fail(ErrorNumber::CriteriaMismatch, criteriaMismatchText()); }

double numberOf(const Variant& value) {
  if (!value.isString()) return CDbl(value);
  const std::optional<double> number = tryNumber(value.string());
  if (!number) failMismatch();
  return *number;
}

Date dateOf(const Variant& value) {
  if (!value.isString()) return Date::fromSerial(numberOf(value));
  if (const std::optional<Date> iso = readIsoDate(value.string())) return *iso;
  const std::optional<Date> date = tryDate(value.string());
  if (!date) failMismatch();
  return *date;
}

std::string textOf(const Variant& value) { return CStr(value); }

int wholeOf(const Variant& value) { return CLng(Variant(numberOf(value))); }

/// A number as a column of that width holds it, halves to the even neighbour.
template <class Whole>
Variant fitting(double value) {
  using Limits = std::numeric_limits<Whole>;
  const double rounded = std::nearbyint(value);
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) fail(ErrorNumber::Unspecified, numericOverflowText());
  return {static_cast<std::int32_t>(rounded)};
}

/// A count or position in a text, at least so large.
std::size_t countOf(const Variant& value, int least) {
  const int count = wholeOf(value);
  if (count < least) fail(ErrorNumber::InvalidProcedureCall);
  return static_cast<std::size_t>(count);
}

/// The character of a code of the ANSI code page.
std::string characterOf(std::int32_t code) {
  if (code < 0 || code > 255) fail(ErrorNumber::InvalidProcedureCall);
  const char byte = static_cast<char>(code);
  return fromAnsi({&byte, 1});
}

/// The code of a text's first character.
std::int32_t codeOf(std::string_view text) {
  if (text.empty()) fail(ErrorNumber::InvalidProcedureCall);
  return static_cast<unsigned char>(toAnsi(Left(text, 1)).front());
}

/// A text on its way into a column that holds so many characters.
std::string boundedText(std::string text, std::size_t length) {
  if (Len(text) > length) fail(ErrorNumber::Unspecified, fieldTooSmallText());
  return text;
}

/// So many times the first character of a text.
std::string repeated(std::size_t count, std::string_view text) {
  // More than an engine holds in one value.
  constexpr std::size_t longest = 100'000'000;
  if (text.empty()) fail(ErrorNumber::InvalidProcedureCall);
  if (count > longest) fail(ErrorNumber::OutOfMemory);
  const std::string_view first = Left(text, 1);
  std::string made;
  made.reserve(count * first.size());
  for (std::size_t place = 0; place < count; ++place) made += first;
  return made;
}

std::int16_t byteOf(const Variant& value) {
  constexpr std::int16_t largest = 255;
  const std::int16_t whole = CInt(numberOf(value));
  if (whole < 0 || whole > largest) fail(ErrorNumber::Overflow);
  return whole;
}

/// A number is a day only where it is asked for as one.
bool isDate(const Variant& value) {
  return value.isString() && (readIsoDate(value.string()) || tryDate(value.string()));
}

/// Rounds at a decimal place, halves to the even neighbour.
double roundedAt(double value, int places) {
  if (places < 0 || places > 22) fail(ErrorNumber::InvalidProcedureCall);
  const double scale = std::pow(10.0, places);
  const double scaled = value * scale;
  return std::isfinite(scaled) ? std::nearbyint(scaled) / scale : value;
}

double signOf(double value) { return value > 0 ? 1 : value < 0 ? -1 : 0; }

constexpr auto functions = std::to_array<EngineFunction>({
    // Conversions.
    {"tv_fold", 1, true, [](Arguments a) { return a[0].isString() ? Variant(foldCase(a[0].string())) : a[0]; }},
    {"tv_cdbl", 1, true, [](Arguments a) { return Variant(numberOf(a[0])); }},
    {"tv_clng", 1, true, [](Arguments a) { return Variant(CLng(Variant(numberOf(a[0])))); }},
    {"tv_cint", 1, true, [](Arguments a) { return Variant(CInt(numberOf(a[0]))); }},
    {"tv_integer", 1, true, [](Arguments a) { return fitting<std::int16_t>(numberOf(a[0])); }},
    {"tv_long", 1, true, [](Arguments a) { return fitting<std::int32_t>(numberOf(a[0])); }},
    {"tv_dateinteger", 1, true, [](Arguments a) { return fitting<std::int16_t>(dateOf(a[0]).serial()); }},
    {"tv_datelong", 1, true, [](Arguments a) { return fitting<std::int32_t>(dateOf(a[0]).serial()); }},
    {"tv_cbool", 1, true, [](Arguments a) { return Variant(CBool(a[0])); }},
    {"tv_cstr", 1, true, [](Arguments a) { return Variant(textOf(a[0])); }},
    {"tv_cdate", 1, true, [](Arguments a) { return Variant(dateOf(a[0])); }},
    {"tv_date", 1, true, [](Arguments a) { return Variant(Date::fromSerial(numberOf(a[0]))); }},
    {"tv_serial", 1, true, [](Arguments a) { return Variant(dateOf(a[0]).serial()); }},
    {"tv_datetext", 1, true, [](Arguments a) { return Variant(CStr(dateOf(a[0]))); }},
    {"tv_fit", 2, true, [](Arguments a) { return Variant(boundedText(textOf(a[0]), countOf(a[1], 0))); }},
    // Texts.
    {"tv_ucase", 1, true, [](Arguments a) { return Variant(upperCase(textOf(a[0]))); }},
    {"tv_lcase", 1, true, [](Arguments a) { return Variant(foldCase(textOf(a[0]))); }},
    {"tv_instr", 3, true,
     [](Arguments a) {
       return Variant(static_cast<std::int32_t>(InStrText(textOf(a[0]), textOf(a[1]), countOf(a[2], 1))));
     }},
    {"tv_count", 1, true, [](Arguments a) { return Variant(static_cast<std::int32_t>(countOf(a[0], 0))); }},
    {"tv_position", 1, true, [](Arguments a) { return Variant(static_cast<std::int32_t>(countOf(a[0], 1))); }},
    {"tv_chr", 1, true, [](Arguments a) { return Variant(characterOf(wholeOf(a[0]))); }},
    {"tv_asc", 1, true, [](Arguments a) { return Variant(codeOf(textOf(a[0]))); }},
    {"tv_string", 2, true, [](Arguments a) { return Variant(repeated(countOf(a[0], 0), textOf(a[1]))); }},
    {"tv_str", 1, true, [](Arguments a) { return Variant(Str(numberOf(a[0]))); }},
    {"tv_format", 2, true, [](Arguments a) { return Variant(Format(a[0], textOf(a[1]))); }},
    {"tv_formatdate", 2, true, [](Arguments a) { return Variant(Format(Variant(dateOf(a[0])), textOf(a[1]))); }},
    // Numbers.
    {"tv_val", 1, true, [](Arguments a) { return Variant(Val(textOf(a[0]))); }},
    {"tv_int", 1, true, [](Arguments a) { return Variant(Int(numberOf(a[0]))); }},
    {"tv_fix", 1, true, [](Arguments a) { return Variant(std::trunc(numberOf(a[0]))); }},
    {"tv_sgn", 1, true, [](Arguments a) { return Variant(signOf(numberOf(a[0]))); }},
    {"tv_round", 2, true, [](Arguments a) { return Variant(roundedAt(numberOf(a[0]), wholeOf(a[1]))); }},
    {"tv_power", 2, true, [](Arguments a) { return Variant(std::pow(numberOf(a[0]), numberOf(a[1]))); }},
    {"tv_cbyte", 1, true, [](Arguments a) { return Variant(byteOf(a[0])); }},
    // Questions, answered with the engine's own truth value.
    {"tv_isnumeric", 1, true, [](Arguments a) { return Variant(std::int32_t{IsNumeric(a[0])}); }},
    {"tv_isdate", 1, true, [](Arguments a) { return Variant(std::int32_t{isDate(a[0])}); }},
    // Dates.
    {"tv_today", 0, false, [](Arguments) { return Variant(today()); }},
    {"tv_dateserial", 3, true,
     [](Arguments a) { return Variant(Date::fromYmd(wholeOf(a[0]), wholeOf(a[1]), wholeOf(a[2]))); }},
    {"tv_dateadd", 3, true,
     [](Arguments a) { return Variant(addInterval(textOf(a[0]), wholeOf(a[1]), dateOf(a[2]))); }},
    {"tv_datediff", 3, true,
     [](Arguments a) { return Variant(intervalsBetween(textOf(a[0]), dateOf(a[1]), dateOf(a[2]))); }},
    {"tv_datepart", 2, true, [](Arguments a) { return Variant(intervalOf(textOf(a[0]), dateOf(a[1]))); }},
});

}  // namespace

Variant EngineFunction::operator()(std::span<const Variant> arguments) const {
  const bool hasNull = std::ranges::any_of(arguments, [](const Variant& value) { return value.isNull(); });
  return hasNull ? Variant::null() : call(arguments);
}

std::span<const EngineFunction> engineFunctions() noexcept { return functions; }

std::span<const EngineAggregate> engineAggregates() noexcept {
  static constexpr auto aggregates = std::to_array<EngineAggregate>({
      {.name = "tv_first", .keeps = KeptValue::First},
      {.name = "tv_last", .keeps = KeptValue::Last},
      {.name = "tv_only", .keeps = KeptValue::Only},
  });
  return aggregates;
}

}  // namespace tarvola::ado::sql
