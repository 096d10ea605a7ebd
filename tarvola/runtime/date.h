#pragma once

#include <compare>
#include <cstdint>

namespace tarvola {

/// A moment in days since 30 December 1899: whole days with the time of day as fraction.
///
/// Before that day the fraction still counts forward from midnight, so -1.25 is 29 December, 06:00.
/// Years run from 100 to 9999; whatever lies outside fails with error 6 "Overflow".
class Date {
 public:
  /// 30 December 1899, midnight.
  constexpr Date() noexcept = default;

  /// Whether a serial number lies in the years 100 to 9999.
  static bool canHold(double days) noexcept;
  /// Takes a serial number as it stands. Outside the years 100 to 9999: error 6.
  static Date fromSerial(double days);

  /// A day of the calendar. Month and day roll over (month 13 is January of the next year, day 0 the
  /// last of the month before); years 0 to 29 mean 2000 to 2029 and 30 to 99 mean 1930 to 1999.
  static Date fromYmd(int year, int month, int day);

  [[nodiscard]] constexpr double serial() const noexcept { return days_; }
  [[nodiscard]] int year() const noexcept;
  [[nodiscard]] int month() const noexcept;
  [[nodiscard]] int day() const noexcept;
  [[nodiscard]] int hour() const noexcept;
  [[nodiscard]] int minute() const noexcept;
  [[nodiscard]] int second() const noexcept;

  /// The same day at midnight.
  [[nodiscard]] Date dayOnly() const noexcept;
  [[nodiscard]] bool hasTime() const noexcept;

  friend constexpr bool operator==(Date left, Date right) noexcept { return left.days_ == right.days_; }
  friend constexpr auto operator<=>(Date left, Date right) noexcept { return left.days_ <=> right.days_; }

 private:
  explicit constexpr Date(double days) noexcept : days_(days) {}
  double days_ = 0;
};

}  // namespace tarvola
