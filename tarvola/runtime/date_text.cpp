// Dates in their text form, and the conversion of values to dates.

#include "tarvola/runtime/calendar.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola {
namespace {

char* writeTwo(char* to, int value) noexcept {
  *to++ = static_cast<char>('0' + value / 10);
  *to++ = static_cast<char>('0' + value % 10);
  return to;
}

char* writeYear(char* to, int year) noexcept { return writeTwo(writeTwo(to, year / 100), year % 100); }

/// A day in the settings' order, each part with its full count of digits.
std::string shortDate(const calendar::Day& day, RegionalSettings::DateOrder order, char separator) {
  std::string text(10, separator);
  char* to = text.data();
  switch (order) {
    case RegionalSettings::DateOrder::DayMonthYear:
      writeYear(writeTwo(writeTwo(to, day.day) + 1, day.month) + 1, day.year);
      break;
    case RegionalSettings::DateOrder::MonthDayYear:
      writeYear(writeTwo(writeTwo(to, day.month) + 1, day.day) + 1, day.year);
      break;
    case RegionalSettings::DateOrder::YearMonthDay:
      writeTwo(writeTwo(writeYear(to, day.year) + 1, day.month) + 1, day.day);
      break;
  }
  return text;
}

/// H:mm:ss, the hour without a leading zero.
std::string longTime(int secondOfDay, char separator) {
  std::string text = CStr(std::int32_t{secondOfDay / 3600});
  for (const int part : {secondOfDay / 60 % 60, secondOfDay % 60}) {
    text += separator;
    text += static_cast<char>('0' + part / 10);
    text += static_cast<char>('0' + part % 10);
  }
  return text;
}

}  // namespace

std::string formatDate(Date value) {
  return shortDate(calendar::dayOf(value), RegionalSettings::DateOrder::DayMonthYear, regionalSettings().dateSeparator);
}

std::string CStr(Date value) {
  const RegionalSettings& settings = regionalSettings();
  const auto [day, second] = calendar::momentOf(value);
  if (day == 0) return longTime(second, settings.timeSeparator);
  std::string text = shortDate(calendar::dayOf(day), settings.dateOrder, settings.dateSeparator);
  if (second != 0) text += ' ' + longTime(second, settings.timeSeparator);
  return text;
}

Date CDate(const Variant& value) {
  if (value.type() == Variant::Type::Date) return value.date();
  if (value.isString()) {
    if (const auto date = tryDate(value.string())) return *date;
  }
  return Date::fromSerial(CDbl(value));
}

Date DateValue(std::string_view text) {
  const std::optional<Date> date = tryDate(text);
  if (!date) fail(ErrorNumber::TypeMismatch);
  return date->dayOnly();
}

}  // namespace tarvola
