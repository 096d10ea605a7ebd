#include "tarvola/runtime/date_format.h"

#include <charconv>

#include "tarvola/runtime/calendar.h"
#include "tarvola/runtime/format_pattern.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola {
namespace {

/// A date taken apart once for all elements of a pattern.
struct DateParts {
  Date date;
  calendar::Day day;
  int second;

  explicit DateParts(Date value) noexcept
      : date(value), day(calendar::dayOf(value)), second(calendar::momentOf(value).second) {}
};

void appendNumber(std::string& out, int value, int leastDigits) {
  const std::string digits = CStr(std::int32_t{value});
  const auto least = static_cast<std::size_t>(leastDigits);
  if (digits.size() < least) out.append(least - digits.size(), '0');
  out += digits;
}

const std::string& nameOf(const auto& names, int number) { return names[static_cast<std::size_t>(number - 1)]; }

int weekOfYear(const DateParts& parts) noexcept {
  // Weeks run from Sunday, and the first one holds 1 January.
  const int day = calendar::dayOfYear(parts.date);
  const int weekdayOfFirst = (calendar::weekday(parts.date) - 1 - (day - 1) % 7 + 7) % 7;
  return (day - 1 + weekdayOfFirst) / 7 + 1;
}

/// An element of a date pattern in lower case, and what it prints.
struct DateElement {
  std::string_view letters;
  void (*append)(std::string& out, const DateParts& parts);
};

// Of elements that begin alike the longer stands first.
constexpr DateElement elements[] = {
    {"dddd",
     [](std::string& out, const DateParts& p) { out += nameOf(regionalSettings().days, calendar::weekday(p.date)); }},
    {"ddd", [](std::string& out,
               const DateParts& p) { out += nameOf(regionalSettings().shortDays, calendar::weekday(p.date)); }},
    {"dd", [](std::string& out, const DateParts& p) { appendNumber(out, p.day.day, 2); }},
    {"d", [](std::string& out, const DateParts& p) { appendNumber(out, p.day.day, 1); }},
    {"mmmm", [](std::string& out, const DateParts& p) { out += nameOf(regionalSettings().months, p.day.month); }},
    {"mmm", [](std::string& out, const DateParts& p) { out += nameOf(regionalSettings().shortMonths, p.day.month); }},
    {"mm", [](std::string& out, const DateParts& p) { appendNumber(out, p.day.month, 2); }},
    {"m", [](std::string& out, const DateParts& p) { appendNumber(out, p.day.month, 1); }},
    {"yyyy", [](std::string& out, const DateParts& p) { appendNumber(out, p.day.year, 4); }},
    {"yy", [](std::string& out, const DateParts& p) { appendNumber(out, p.day.year % 100, 2); }},
    {"y", [](std::string& out, const DateParts& p) { appendNumber(out, calendar::dayOfYear(p.date), 1); }},
    {"hh", [](std::string& out, const DateParts& p) { appendNumber(out, p.second / 3600, 2); }},
    {"h", [](std::string& out, const DateParts& p) { appendNumber(out, p.second / 3600, 1); }},
    {"nn", [](std::string& out, const DateParts& p) { appendNumber(out, p.second / 60 % 60, 2); }},
    {"n", [](std::string& out, const DateParts& p) { appendNumber(out, p.second / 60 % 60, 1); }},
    {"ss", [](std::string& out, const DateParts& p) { appendNumber(out, p.second % 60, 2); }},
    {"s", [](std::string& out, const DateParts& p) { appendNumber(out, p.second % 60, 1); }},
    {"ww", [](std::string& out, const DateParts& p) { appendNumber(out, weekOfYear(p), 1); }},
    {"w", [](std::string& out, const DateParts& p) { appendNumber(out, calendar::weekday(p.date), 1); }},
    {"q", [](std::string& out, const DateParts& p) { appendNumber(out, (p.day.month + 2) / 3, 1); }},
    {"c", [](std::string& out, const DateParts& p) { out += CStr(p.date); }},
    {"/", [](std::string& out, const DateParts&) { out += regionalSettings().dateSeparator; }},
    {":", [](std::string& out, const DateParts&) { out += regionalSettings().timeSeparator; }},
};

const DateElement* elementAt(std::string_view pattern) noexcept {
  for (const DateElement& element : elements) {
    const std::string_view front = pattern.substr(0, element.letters.size());
    if (equalsIgnoreCase(front, element.letters)) return &element;
  }
  return nullptr;
}

bool isMonthNumber(const DateElement& element) noexcept { return element.letters == "m" || element.letters == "mm"; }
bool isHour(const DateElement& element) noexcept { return element.letters.front() == 'h'; }
bool isSeparator(const DateElement& element) noexcept { return element.letters == ":" || element.letters == "/"; }

}  // namespace

std::string formatDatePattern(Date value, std::string_view pattern) {
  const DateParts parts(value);
  std::string out;
  std::string_view literal;
  bool afterHour = false;
  while (!pattern.empty()) {
    if (takeQuoted(pattern, literal)) {
      out += literal;
      continue;
    }
    const DateElement* element = elementAt(pattern);
    if (element == nullptr) {
      out += pattern.front();
      pattern.remove_prefix(1);
      continue;
    }
    pattern.remove_prefix(element->letters.size());
    // "m" right behind the hour means minutes: "hh:mm" is 06:05, "dd/mm" is 31/12.
    if (afterHour && isMonthNumber(*element)) element = elementAt(element->letters == "mm" ? "nn" : "n");
    element->append(out, parts);
    if (!isSeparator(*element)) afterHour = isHour(*element);
  }
  return out;
}

}  // namespace tarvola
