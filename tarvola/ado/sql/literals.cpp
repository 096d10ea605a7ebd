#include "tarvola/ado/sql/literals.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "tarvola/ado/sql/date_literal.h"
#include "tarvola/ado/sql/glob_pattern.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::sql {
namespace {

using Converter = Cell (*)(const Literal& literal, std::string& scratch);

[[noreturn]] void failMismatch() { fail(ErrorNumber::CriteriaMismatch, criteriaMismatchText()); }
[[noreturn]] void failOverflow() { fail(ErrorNumber::Unspecified, numericOverflowText()); }

/// The text with its doubled quotes made single. Without any it is the literal itself.
std::string_view plainText(const Literal& literal, std::string& scratch) {
  if (literal.text.find('\'') == std::string_view::npos) return literal.text;
  scratch.clear();
  for (std::size_t at = 0; at < literal.text.size(); ++at) {
    scratch += literal.text[at];
    if (literal.text[at] == '\'') ++at;
  }
  return scratch;
}

double numberOf(const Literal& literal) {
  double value = 0;
  const auto read = std::from_chars(literal.text.data(), literal.text.data() + literal.text.size(), value);
  if (read.ec != std::errc()) failOverflow();
  return value;
}

double numberOfText(const Literal& literal, std::string& scratch) {
  const std::optional<double> value = tryNumber(plainText(literal, scratch));
  if (!value) failMismatch();
  return *value;
}

Date dateOfText(const Literal& literal, std::string& scratch) {
  const std::string_view text = plainText(literal, scratch);
  if (const std::optional<Date> iso = readIsoDate(text)) return *iso;
  const std::optional<Date> date = tryDate(text);
  if (!date) failMismatch();
  return *date;
}

/// A whole number of the width of a column; halves go to the even neighbour.
template <class Whole>
Cell wholeCell(double value) {
  using Limits = std::numeric_limits<Whole>;
  const double rounded = std::nearbyint(value);
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) failOverflow();
  return Cell::longInteger(static_cast<std::int32_t>(rounded));
}

Cell textCell(std::string_view text, std::string& scratch) {
  scratch = text;
  return Cell::text(scratch);
}

// A whole number is handed on as such, so that a column of the result without a type of its own shows "0" and not
// "0.0".
Cell number(const Literal& literal, std::string&) {
  std::int32_t whole = 0;
  const char* end = literal.text.data() + literal.text.size();
  const auto read = std::from_chars(literal.text.data(), end, whole);
  return read.ec == std::errc() && read.ptr == end ? Cell::longInteger(whole) : Cell::number(numberOf(literal));
}

Cell text(const Literal& literal, std::string& scratch) { return Cell::text(plainText(literal, scratch)); }

Cell textToNumber(const Literal& literal, std::string& scratch) { return Cell::number(numberOfText(literal, scratch)); }

template <class Whole>
Cell textToWhole(const Literal& literal, std::string& scratch) {
  return wholeCell<Whole>(numberOfText(literal, scratch));
}

Cell numberToText(const Literal& literal, std::string& scratch) { return textCell(CStr(numberOf(literal)), scratch); }

Cell textToDate(const Literal& literal, std::string& scratch) { return Cell::date(dateOfText(literal, scratch)); }

Cell textToDay(const Literal& literal, std::string& scratch) {
  return Cell::date(dateOfText(literal, scratch).dayOnly());
}

Cell date(const Literal& literal, std::string&) { return Cell::date(dateOfLiteral(literal.text)); }

/// The six digits of a period, MMYYYY, as one number.
std::int32_t periodOf(const Literal& literal) {
  std::int32_t period = 0;
  const char* end = literal.text.data() + literal.text.size();
  const auto read = std::from_chars(literal.text.data(), end, period);
  const bool isPeriod =
      read.ec == std::errc() && read.ptr == end && literal.text.size() == 6 && period >= 10000 && period / 10000 <= 12;
  if (!isPeriod) failMismatch();
  return period;
}

Cell monthOfPeriod(const Literal& literal, std::string&) { return Cell::longInteger(periodOf(literal) / 10000); }
Cell yearOfPeriod(const Literal& literal, std::string&) { return Cell::longInteger(periodOf(literal) % 10000); }

Cell likeInGlob(const Literal& literal, std::string& scratch) {
  return textCell(globPattern(plainText(literal, scratch)), scratch);
}

Cell textToBoolean(const Literal& literal, std::string& scratch) {
  const std::string_view words = plainText(literal, scratch);
  if (equalsIgnoreCase(words, "True")) return Cell::boolean(true);
  if (equalsIgnoreCase(words, "False")) return Cell::boolean(false);
  return Cell::boolean(numberOfText(literal, scratch) != 0);
}

template <class Whole>
Cell numberToWhole(const Literal& literal, std::string&) {
  return wholeCell<Whole>(numberOf(literal));
}

template <class Whole>
Cell negatedToWhole(const Literal& literal, std::string&) {
  return wholeCell<Whole>(-numberOf(literal));
}

Cell numberToBoolean(const Literal& literal, std::string&) { return Cell::boolean(numberOf(literal) != 0); }

Cell numberToDate(const Literal& literal, std::string&) {
  constexpr double firstDay = -657434;
  constexpr double behindLastDay = 2958466;
  const double days = numberOf(literal);
  if (!(days >= firstDay && days < behindLastDay)) failOverflow();
  return Cell::date(Date::fromSerial(days));
}

Cell dateToText(const Literal& literal, std::string& scratch) {
  return textCell(CStr(dateOfLiteral(literal.text)), scratch);
}

Cell dateToNumber(const Literal& literal, std::string&) { return Cell::number(dateOfLiteral(literal.text).serial()); }

template <class Whole>
Cell dateToWhole(const Literal& literal, std::string&) {
  return wholeCell<Whole>(dateOfLiteral(literal.text).serial());
}

using Integer = std::int16_t;
using Long = std::int32_t;

struct ConversionRow {
  Conversion conversion;
  Converter converter;
};

constexpr auto conversionRows = std::to_array<ConversionRow>({
    {Conversion::Text, text},
    {Conversion::Number, number},
    {Conversion::TextToNumber, textToNumber},
    {Conversion::TextToInteger, textToWhole<Integer>},
    {Conversion::TextToLong, textToWhole<Long>},
    {Conversion::NumberToText, numberToText},
    {Conversion::TextToDate, textToDate},
    {Conversion::Date, date},
    {Conversion::MonthOfPeriod, monthOfPeriod},
    {Conversion::YearOfPeriod, yearOfPeriod},
    {Conversion::LikePattern, text},
    {Conversion::GlobPattern, likeInGlob},
    {Conversion::TextToDay, textToDay},
    {Conversion::TextToBoolean, textToBoolean},
    {Conversion::NumberToInteger, numberToWhole<Integer>},
    {Conversion::NumberToLong, numberToWhole<Long>},
    {Conversion::NegatedToInteger, negatedToWhole<Integer>},
    {Conversion::NegatedToLong, negatedToWhole<Long>},
    {Conversion::NumberToBoolean, numberToBoolean},
    {Conversion::NumberToDate, numberToDate},
    {Conversion::DateToText, dateToText},
    {Conversion::DateToNumber, dateToNumber},
    {Conversion::DateToInteger, dateToWhole<Integer>},
    {Conversion::DateToLong, dateToWhole<Long>},
});

static_assert(
    [] {
      for (std::size_t place = 0; place < conversionRows.size(); ++place)
        if (conversionRows[place].conversion != static_cast<Conversion>(place)) return false;
      return conversionRows.size() == static_cast<std::size_t>(Conversion::DateToLong) + 1;
    }(),
    "each conversion stands in its own place");

}  // namespace

Cell literalCell(const Literal& literal, Conversion conversion, std::string& scratch) {
  return conversionRows[static_cast<std::size_t>(conversion)].converter(literal, scratch);
}

Variant convertLiteral(const Literal& literal, Conversion conversion) {
  std::string scratch;
  return literalCell(literal, conversion, scratch).toVariant();
}

}  // namespace tarvola::ado::sql
