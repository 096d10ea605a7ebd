#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"

namespace tarvola {

// The only conversions between text and numbers or dates, under the thread's RegionalSettings. Error numbers:
// 13 for a text that cannot be read, 6 for a value that does not fit, 94 for Null.

// --- to text ---------------------------------------------------------------------------------------

/// At most 15 significant digits, no thousands separator, exponent form beyond 15 digits on either side.
std::string CStr(double value);
void appendCStr(std::string& out, double value);
std::string CStr(std::int32_t value);
/// Short date; with the time behind it if there is one; the time alone on 30 December 1899.
std::string CStr(Date value);
/// By the value's type. Empty gives "", Null is error 94.
std::string CStr(const Variant& value);
/// "True" or "False". Nothing but a bool finds this form; without it a bool would be taken for a number.
template <std::same_as<bool> Boolean>
std::string CStr(Boolean value) {
  return value ? "True" : "False";
}
/// Point as decimal sign whatever the settings, a leading blank for numbers that are not negative.
std::string Str(double value);
/// A number in a statement's text: point decimals, whatever the settings; exponent form only where CStr has it.
std::string numberLiteral(double value);

/// The platform's Format. Knows number patterns (0 # . , % sections, literals), the named formats
/// "General Number", "Standard", "Fixed", "Percent", and date patterns ("DD/MM/YYYY"). Halves go away from zero on
/// the decimal text. A text is first read as a number (or date, by the pattern); unreadable it comes back unchanged.
std::string Format(const Variant& value, std::string_view pattern);
/// The fast form of Format(value, "DD/MM/YYYY").
std::string formatDate(Date value);

// --- from text -------------------------------------------------------------------------------------

double CDbl(std::string_view text);
double CDbl(const Variant& value);
inline double CDbl(const std::string& text) { return CDbl(std::string_view(text)); }
inline double CDbl(const char* text) { return CDbl(std::string_view(text)); }
/// Half to even; error 6 outside 16 bits.
std::int16_t CInt(const Variant& value);
std::int16_t CInt(double value);
/// Half to even; error 6 outside 32 bits.
std::int32_t CLng(const Variant& value);
bool CBool(const Variant& value);
Date CDate(const Variant& value);
/// The day of a text that can be read as a date; error 13 otherwise.
Date DateValue(std::string_view text);
/// As CDbl, but nothing where CDbl fails.
std::optional<double> tryNumber(std::string_view text) noexcept;
std::optional<Date> tryDate(std::string_view text) noexcept;
/// Whether CDbl would succeed. Of other types: numbers, Boolean and Empty are; Null, dates, objects are not.
bool IsNumeric(std::string_view text) noexcept;
bool IsNumeric(const Variant& value) noexcept;
inline bool IsNumeric(const std::string& text) noexcept { return IsNumeric(std::string_view(text)); }
inline bool IsNumeric(const char* text) noexcept { return IsNumeric(std::string_view(text)); }
/// The number at the front of a text, point decimals whatever the settings; 0 if there is none.
double Val(std::string_view text);

// --- numbers ---------------------------------------------------------------------------------------

/// The largest whole number not above the value.
double Int(double value) noexcept;
/// Int of a Variant: Null stays Null, a text goes through CDbl, whole types stay as they are.
Variant Int(const Variant& value);

// --- texts (characters are code points of UTF-8) ---------------------------------------------------------

/// Cuts blanks (code 32 only) at both ends, or at one.
std::string_view Trim(std::string_view text) noexcept;
std::string_view LTrim(std::string_view text) noexcept;
std::string_view RTrim(std::string_view text) noexcept;
std::size_t Len(std::string_view text) noexcept;
std::string_view Left(std::string_view text, std::size_t count) noexcept;
std::string_view Right(std::string_view text, std::size_t count) noexcept;
/// From a position counted from 1, to the end or so many characters.
std::string_view Mid(std::string_view text, std::size_t start, std::size_t count = std::string_view::npos);
/// Position from 1, 0 if not found. Case matters in InStr and does not in InStrText.
std::size_t InStr(std::string_view text, std::string_view part, std::size_t start = 1);
std::size_t InStrText(std::string_view text, std::string_view part, std::size_t start = 1);
std::string Replace(std::string_view text, std::string_view find, std::string_view with);
/// Removes every CR LF pair; a lone CR or LF stays.
std::string withoutLineBreaks(std::string text);
/// Equal without regard to case (of all letters of the ANSI code page).
bool equalsIgnoreCase(std::string_view left, std::string_view right) noexcept;
/// Order without regard to case: negative, 0, positive.
int compareIgnoreCase(std::string_view left, std::string_view right) noexcept;
/// The text in lower case, for keys that ignore case.
std::string foldCase(std::string_view text);

}  // namespace tarvola
