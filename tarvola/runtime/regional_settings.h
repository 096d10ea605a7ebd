#pragma once

#include <array>
#include <string>

namespace tarvola {

/// How numbers and dates are written and read. Everything that turns a number or a date into text or back
/// asks here, so that figures read alike in the store, in files and on screens.
struct RegionalSettings {
  enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

  char decimal = ',';
  char thousands = '.';
  char dateSeparator = '/';
  char timeSeparator = ':';
  DateOrder dateOrder = DateOrder::DayMonthYear;
  std::string currency = "Rp";
  std::array<std::string, 12> months;
  std::array<std::string, 12> shortMonths;
  /// From Sunday on.
  std::array<std::string, 7> days;
  std::array<std::string, 7> shortDays;

  /// Decimal comma, point for thousands, dd/MM/yyyy, months Januari to Desember.
  static RegionalSettings indonesian();
  /// Decimal point, comma for thousands, MM/dd/yyyy, months January to December.
  static RegionalSettings unitedStates();
};

/// The settings of this thread; Indonesian until replaced.
const RegionalSettings& regionalSettings() noexcept;
void setRegionalSettings(RegionalSettings settings);

/// Replaces the thread's settings for a scope.
class RegionalSettingsScope {
 public:
  explicit RegionalSettingsScope(RegionalSettings settings);
  ~RegionalSettingsScope();
  RegionalSettingsScope(const RegionalSettingsScope&) = delete;
  RegionalSettingsScope& operator=(const RegionalSettingsScope&) = delete;

 private:
  RegionalSettings before_;
};

}  // namespace tarvola
