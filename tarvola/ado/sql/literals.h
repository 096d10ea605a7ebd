#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tarvola/ado/cell.h"
#include "tarvola/ado/sql/compile.h"
#include "tarvola/runtime/date.h"
#include "tarvola/runtime/variant.h"

namespace tarvola::ado::sql {

/// The form in which a date lies in a store without a date type of its own: "2009-01-31", and with a time of day
/// "2009-01-31 13:45:00". Dates in this form sort as texts.
std::string isoDate(Date date);
void appendIsoDate(std::string& out, Date date);
/// The date of a text in exactly that form; nothing for any other text.
std::optional<Date> readIsoDate(std::string_view text) noexcept;

/// The value of a literal, converted. Not convertible: error -2147217913 "Data type mismatch in criteria expression.";
/// a date literal that is no date: -2147217900 "Syntax error in date in query expression '#...#'."
Variant convertLiteral(const Literal& literal, Conversion conversion);

/// The same without memory of its own: a text points into the literal, or into `scratch` if it had to be rewritten
/// (doubled quotes, a pattern, a number as text). Valid as long as both stay as they are.
Cell literalCell(const Literal& literal, Conversion conversion, std::string& scratch);

}  // namespace tarvola::ado::sql
