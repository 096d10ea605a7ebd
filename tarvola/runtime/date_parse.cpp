// Reading dates: the text is cut into parts first, then the parts are tried as day, month and year.

#include <algorithm>
#include <array>
#include <cstdint>

#include "tarvola/runtime/calendar.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola {
namespace {

/// A part of a date as it is written: a number, or the name of a month.
struct DatePart {
  int value = 0;
  int digits = 0;
  bool isMonthName = false;

  /// A number of three or four digits can only be a year.
  [[nodiscard]] bool isFullYear() const noexcept { return digits > 2; }
};

struct DateWords {
  std::array<DatePart, 3> parts;
  std::size_t partCount = 0;
  std::optional<int> secondOfDay;
};

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

bool isLetter(char c) noexcept {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
}

int monthNamed(std::string_view word) noexcept {
  const RegionalSettings& settings = regionalSettings();
  for (std::size_t i = 0; i < settings.months.size(); ++i) {
    if (equalsIgnoreCase(word, settings.months[i]) || equalsIgnoreCase(word, settings.shortMonths[i])) {
      return static_cast<int>(i) + 1;
    }
  }
  return 0;
}

// --- cutting -----------------------------------------------------------------------------------------------

class DateReader {
 public:
  explicit DateReader(std::string_view text) noexcept : rest_(Trim(text)), settings_(regionalSettings()) {}

  /// False if the text holds anything that no date or time has.
  bool read(DateWords& words) noexcept {
    bool mayFollow = true;
    while (!rest_.empty()) {
      // Only words need nothing between them and a number: "31Desember2010".
      const bool isWord = isLetter(rest_.front());
      if (!mayFollow && !isWord) return false;
      if (!readItem(words)) return false;
      mayFollow = takeSeparator() || isWord;
    }
    // Something must follow a separator: "31/12/" is no date.
    return !endsInSeparator_ && (words.partCount > 0 || words.secondOfDay);
  }

 private:
  static constexpr int noNumber = -1;

  bool readItem(DateWords& words) noexcept {
    if (isDigit(rest_.front())) return isTimeAhead() ? readTime(words) : readNumber(words);
    return isLetter(rest_.front()) && readWord(words);
  }

  bool isTimeSign(char c) const noexcept {
    if (c == settings_.dateSeparator) return false;
    return c == settings_.timeSeparator || c == ':' || c == '.';
  }

  /// Digits, a time sign and a digit again. The point is such a sign too: "2.5" is five past two.
  bool isTimeAhead() const noexcept {
    const std::size_t digits = countDigits(rest_);
    return digits + 1 < rest_.size() && isTimeSign(rest_[digits]) && isDigit(rest_[digits + 1]);
  }

  static std::size_t countDigits(std::string_view text) noexcept {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
  }

  int takeNumber(std::size_t mostDigits) noexcept {
    const std::size_t digits = countDigits(rest_);
    if (digits == 0 || digits > mostDigits) return noNumber;
    int value = 0;
    for (const char c : rest_.substr(0, digits)) value = value * 10 + (c - '0');
    rest_.remove_prefix(digits);
    return value;
  }

  bool readNumber(DateWords& words) noexcept {
    constexpr std::size_t mostDigits = 4;
    const int digits = static_cast<int>(countDigits(rest_));
    const int value = takeNumber(mostDigits);
    return value != noNumber && addPart(words, {.value = value, .digits = digits});
  }

  bool readTime(DateWords& words) noexcept {
    if (words.secondOfDay) return false;
    std::array<int, 3> parts{};
    std::size_t count = 0;
    do {
      const int value = takeNumber(2);
      if (count == parts.size() || value == noNumber) return false;
      parts[count++] = value;
    } while (takeTimeSign());
    if (parts[0] > 23 || parts[1] > 59 || parts[2] > 59) return false;
    words.secondOfDay = parts[0] * 3600 + parts[1] * 60 + parts[2];
    return true;
  }

  bool takeTimeSign() noexcept {
    if (rest_.empty() || !isTimeSign(rest_.front())) return false;
    rest_.remove_prefix(1);
    return true;
  }

  bool readWord(DateWords& words) noexcept {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), isLetter);
    const std::string_view word = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(word.size());
    if (equalsIgnoreCase(word, "AM")) return applyHalfOfDay(words, 0);
    if (equalsIgnoreCase(word, "PM")) return applyHalfOfDay(words, 12);
    const int month = monthNamed(word);
    return month != 0 && addPart(words, {.value = month, .isMonthName = true});
  }

  /// AM and PM follow a time of 1 to 12 hours, once.
  bool applyHalfOfDay(DateWords& words, int hoursAdded) noexcept {
    constexpr int secondsPerHour = 3600;
    if (!words.secondOfDay || halfOfDayRead_) return false;
    const int hour = *words.secondOfDay / secondsPerHour;
    if (hour > 12) return false;
    words.secondOfDay = *words.secondOfDay % secondsPerHour + (hour % 12 + hoursAdded) * secondsPerHour;
    halfOfDayRead_ = true;
    return true;
  }

  static bool addPart(DateWords& words, DatePart part) noexcept {
    if (words.partCount == words.parts.size()) return false;
    words.parts[words.partCount++] = part;
    return true;
  }

  /// Blanks, with at most one other separator among them.
  bool takeSeparator() noexcept {
    const bool blank = skipBlanks();
    endsInSeparator_ = !rest_.empty() && isDateSign(rest_.front());
    if (endsInSeparator_) {
      rest_.remove_prefix(1);
      skipBlanks();
    }
    return blank || endsInSeparator_;
  }

  bool isDateSign(char c) const noexcept { return c == '/' || c == '-' || c == ',' || c == settings_.dateSeparator; }

  bool skipBlanks() noexcept {
    const std::size_t before = rest_.size();
    rest_ = LTrim(rest_);
    return rest_.size() != before;
  }

  std::string_view rest_;
  const RegionalSettings& settings_;
  bool endsInSeparator_ = false;
  bool halfOfDayRead_ = false;
};

// --- trying ------------------------------------------------------------------------------------------------

/// Which part is the year, the month and the day; none if it is not written.
struct PartOrder {
  static constexpr int absent = -1;
  int year;
  int month;
  int day;
};

constexpr PartOrder dayMonthYear{.year = 2, .month = 1, .day = 0};
constexpr PartOrder monthDayYear{.year = 2, .month = 0, .day = 1};
constexpr PartOrder yearMonthDay{.year = 0, .month = 1, .day = 2};
constexpr PartOrder yearDayMonth{.year = 0, .month = 2, .day = 1};
constexpr PartOrder dayMonth{.year = PartOrder::absent, .month = 1, .day = 0};
constexpr PartOrder monthDay{.year = PartOrder::absent, .month = 0, .day = 1};
constexpr PartOrder monthYear{.year = 1, .month = 0, .day = PartOrder::absent};
constexpr PartOrder yearMonth{.year = 0, .month = 1, .day = PartOrder::absent};

// Behind the settings' own order the others follow, until one gives a day that exists. So 12/31/2010 is
// 31 December, and 30/02/10 is 10 February 1930.
constexpr std::array dayFirst = {dayMonthYear, yearMonthDay, monthDayYear, yearDayMonth};
constexpr std::array monthFirst = {monthDayYear, yearMonthDay, dayMonthYear, yearDayMonth};
constexpr std::array yearFirst = {yearMonthDay, dayMonthYear, monthDayYear, yearDayMonth};
constexpr std::array dayFirstOfTwo = {dayMonth, monthDay, monthYear, yearMonth};
constexpr std::array monthFirstOfTwo = {monthDay, dayMonth, monthYear, yearMonth};
// With a name of the month its place is known; only day and year are open.
constexpr std::array<PartOrder, 6> named = {{{.year = 2, .month = 1, .day = 0},
                                             {.year = 0, .month = 1, .day = 2},
                                             {.year = 2, .month = 0, .day = 1},
                                             {.year = 1, .month = 0, .day = 2},
                                             {.year = 1, .month = 2, .day = 0},
                                             {.year = 0, .month = 2, .day = 1}}};

/// The parts of one text, tried in one order after the other.
class DateTrial {
 public:
  explicit DateTrial(const DateWords& words) noexcept : words_(words) {}

  template <typename Orders>
  std::optional<Date> firstOf(const Orders& orders) const noexcept {
    for (const PartOrder& order : orders) {
      if (const auto date = as(order)) return date;
    }
    return std::nullopt;
  }

 private:
  const DatePart& part(int index) const noexcept { return words_.parts[static_cast<std::size_t>(index)]; }

  std::optional<Date> as(const PartOrder& order) const noexcept {
    const std::optional<int> year = yearOf(order);
    const std::optional<int> month = monthOf(order);
    const std::optional<int> day = dayOf(order);
    if (!year || !month || !day || *day > calendar::daysInMonth(*year, *month)) return std::nullopt;
    return Date::fromYmd(*year, *month, *day);
  }

  std::optional<int> yearOf(const PartOrder& order) const noexcept {
    if (order.year == PartOrder::absent) return today().year();
    const DatePart& written = part(order.year);
    if (written.isMonthName) return std::nullopt;
    // Two numbers of two digits are never year and month: 31/02 is a mistake, not February 1931.
    if (!written.isFullYear() && order.day == PartOrder::absent && order.year < order.month) return std::nullopt;
    const int year = written.isFullYear() ? written.value : calendar::fullYear(written.value);
    return year >= calendar::firstYear ? std::optional(year) : std::nullopt;
  }

  std::optional<int> monthOf(const PartOrder& order) const noexcept {
    const DatePart& written = part(order.month);
    if (hasMonthName() != written.isMonthName || written.isFullYear()) return std::nullopt;
    return written.value >= 1 && written.value <= 12 ? std::optional(written.value) : std::nullopt;
  }

  std::optional<int> dayOf(const PartOrder& order) const noexcept {
    if (order.day == PartOrder::absent) return 1;
    const DatePart& written = part(order.day);
    if (written.isMonthName || written.isFullYear() || written.value < 1) return std::nullopt;
    return written.value;
  }

  bool hasMonthName() const noexcept {
    return std::any_of(words_.parts.begin(), words_.parts.begin() + static_cast<std::ptrdiff_t>(words_.partCount),
                       [](const DatePart& p) { return p.isMonthName; });
  }

  const DateWords& words_;
};

std::optional<Date> dayOf(const DateWords& words) noexcept {
  using Order = RegionalSettings::DateOrder;
  const Order order = regionalSettings().dateOrder;
  const DateTrial trial(words);
  if (words.partCount == 2) {
    return order == Order::DayMonthYear ? trial.firstOf(dayFirstOfTwo) : trial.firstOf(monthFirstOfTwo);
  }
  if (words.partCount != 3) return std::nullopt;
  const bool isNamed =
      std::any_of(words.parts.begin(), words.parts.end(), [](const DatePart& p) { return p.isMonthName; });
  if (isNamed) return trial.firstOf(named);
  if (order == Order::DayMonthYear) return trial.firstOf(dayFirst);
  return order == Order::MonthDayYear ? trial.firstOf(monthFirst) : trial.firstOf(yearFirst);
}

/// The time of day counts forward from midnight, before 30 December 1899 as well.
Date withTime(Date day, int second) noexcept {
  const double fraction = static_cast<double>(second) / calendar::secondsPerDay;
  return Date::fromSerial(day.serial() < 0 ? day.serial() - fraction : day.serial() + fraction);
}

}  // namespace

std::optional<Date> tryDate(std::string_view text) noexcept {
  DateWords words;
  if (!DateReader(text).read(words)) return std::nullopt;
  if (words.partCount == 0) return withTime(Date(), *words.secondOfDay);
  const std::optional<Date> day = dayOf(words);
  return day && words.secondOfDay ? withTime(*day, *words.secondOfDay) : day;
}

}  // namespace tarvola
