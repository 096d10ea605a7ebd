#include "tarvola/runtime/regional_settings.h"

#include <utility>

namespace tarvola {
namespace {

RegionalSettings& current() noexcept {
  thread_local RegionalSettings settings = RegionalSettings::indonesian();
  return settings;
}

}  // namespace

RegionalSettings RegionalSettings::indonesian() {
  RegionalSettings settings;
  settings.months = {"Januari", "Februari", "Maret",     "April",   "Mei",      "Juni",
                     "Juli",    "Agustus",  "September", "Oktober", "Nopember", "Desember"};
  settings.shortMonths = {"Jan", "Feb", "Mar", "Apr", "Mei", "Jun", "Jul", "Agust", "Sep", "Okt", "Nop", "Des"};
  settings.days = {"Minggu", "Senin", "Selasa", "Rabu", "Kamis", "Jumat", "Sabtu"};
  settings.shortDays = {"Minggu", "Sen", "Sel", "Rabu", "Kamis", "Jumat", "Sabtu"};
  return settings;
}

RegionalSettings RegionalSettings::unitedStates() {
  RegionalSettings settings;
  settings.decimal = '.';
  settings.thousands = ',';
  settings.dateOrder = DateOrder::MonthDayYear;
  settings.currency = "$";
  settings.months = {"January", "February", "March",     "April",   "May",      "June",
                     "July",    "August",   "September", "October", "November", "December"};
  settings.shortMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  settings.days = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  settings.shortDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  return settings;
}

const RegionalSettings& regionalSettings() noexcept { return current(); }
void setRegionalSettings(RegionalSettings settings) { current() = std::move(settings); }

RegionalSettingsScope::RegionalSettingsScope(RegionalSettings settings)
    : before_(std::exchange(current(), std::move(settings))) {}

RegionalSettingsScope::~RegionalSettingsScope() { current() = std::move(before_); }

}  // namespace tarvola
