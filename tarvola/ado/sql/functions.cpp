#include "tarvola/ado/sql/functions.h"

#include <algorithm>
#include <array>

#include "tarvola/ado/sql/parser.h"

namespace tarvola::ado::sql {
namespace {

using enum ColumnType;

constexpr auto functionRows = std::to_array<FunctionRow>({
    // Aggregates.
    {.name = "COUNT", .arguments = "A", .engine = "count({1})", .type = Long, .isAggregate = true},
    {.name = "SUM", .arguments = "N", .engine = "sum({1})", .type = Double, .isAggregate = true},
    {.name = "AVG", .arguments = "N", .engine = "avg({1})", .type = Double, .isAggregate = true},
    {.name = "MIN", .arguments = "A", .engine = "min({1})", .typeFrom = 1, .isAggregate = true},
    {.name = "MAX", .arguments = "A", .engine = "max({1})", .typeFrom = 1, .isAggregate = true},
    {.name = "FIRST", .arguments = "A", .engine = "tv_first({1})", .typeFrom = 1, .isAggregate = true},
    {.name = "LAST", .arguments = "A", .engine = "tv_last({1})", .typeFrom = 1, .isAggregate = true},
    // Texts.
    {.name = "LEFT", .arguments = "TC", .engine = "substr({1}, 1, {2})", .type = Text},
    {.name = "RIGHT", .arguments = "TC", .engine = "substr({1}, max(length({1}) - {2} + 1, 1))", .type = Text},
    {.name = "MID", .arguments = "TP", .engine = "substr({1}, {2})", .type = Text},
    {.name = "MID", .arguments = "TPC", .engine = "substr({1}, {2}, {3})", .type = Text},
    {.name = "LEN", .arguments = "T", .engine = "length({1})", .type = Long},
    {.name = "TRIM", .arguments = "T", .engine = "trim({1})", .type = Text},
    {.name = "LTRIM", .arguments = "T", .engine = "ltrim({1})", .type = Text},
    {.name = "RTRIM", .arguments = "T", .engine = "rtrim({1})", .type = Text},
    {.name = "UCASE", .arguments = "T", .engine = "tv_ucase({1})", .type = Text},
    {.name = "LCASE", .arguments = "T", .engine = "tv_lcase({1})", .type = Text},
    {.name = "REPLACE", .arguments = "TTT", .engine = "replace({1}, {2}, {3})", .type = Text},
    {.name = "INSTR", .arguments = "TT", .engine = "tv_instr({1}, {2}, 1)", .type = Long},
    {.name = "INSTR", .arguments = "NTT", .engine = "tv_instr({2}, {3}, {1})", .type = Long},
    {.name = "CHR", .arguments = "N", .engine = "tv_chr({1})", .type = Text},
    {.name = "ASC", .arguments = "T", .engine = "tv_asc({1})", .type = Long},
    {.name = "SPACE", .arguments = "N", .engine = "tv_string({1}, ' ')", .type = Text},
    {.name = "STRING", .arguments = "NT", .engine = "tv_string({1}, {2})", .type = Text},
    {.name = "STR", .arguments = "N", .engine = "tv_str({1})", .type = Text},
    {.name = "CSTR", .arguments = "T", .engine = "{1}", .type = Text},
    {.name = "FORMAT",
     .arguments = "DT",
     .engine = "coalesce(tv_formatdate({1}, {2}), '')",
     .type = Text,
     .onlyForFirst = Family::Date},
    {.name = "FORMAT", .arguments = "AT", .engine = "coalesce(tv_format({1}, {2}), '')", .type = Text},
    {.name = "FORMAT", .arguments = "T", .engine = "coalesce({1}, '')", .type = Text},
    // Numbers.
    {.name = "VAL", .arguments = "T", .engine = "tv_val({1})", .type = Double},
    {.name = "ABS", .arguments = "N", .engine = "abs({1})", .typeFrom = 1},
    {.name = "INT", .arguments = "N", .engine = "tv_int({1})", .typeFrom = 1},
    {.name = "FIX", .arguments = "N", .engine = "tv_fix({1})", .typeFrom = 1},
    {.name = "SGN", .arguments = "N", .engine = "tv_sgn({1})", .type = Integer},
    {.name = "ROUND", .arguments = "N", .engine = "tv_round({1}, 0)", .type = Double},
    {.name = "ROUND", .arguments = "NN", .engine = "tv_round({1}, {2})", .type = Double},
    {.name = "CDBL", .arguments = "N", .engine = "{1}", .type = Double},
    {.name = "CSNG", .arguments = "N", .engine = "{1}", .type = Double},
    {.name = "CCUR", .arguments = "N", .engine = "{1}", .type = Double},
    {.name = "CBYTE", .arguments = "N", .engine = "tv_cbyte({1})", .type = Integer},
    {.name = "CINT", .arguments = "N", .engine = "tv_cint({1})", .type = Integer},
    {.name = "CLNG", .arguments = "N", .engine = "tv_clng({1})", .type = Long},
    // Dates.
    {.name = "CDATE", .arguments = "D", .engine = "{1}", .type = Date},
    {.name = "DATEVALUE", .arguments = "d", .engine = "{1}", .type = Date},
    {.name = "DATESERIAL", .arguments = "NNN", .engine = "tv_dateserial({1}, {2}, {3})", .type = Date},
    {.name = "DATE", .arguments = "", .engine = "tv_today()", .type = Date},
    {.name = "NOW", .arguments = "", .engine = "strftime('%Y-%m-%d %H:%M:%S', 'now', 'localtime')", .type = Date},
    {.name = "YEAR", .arguments = "D", .engine = "CAST(substr({1}, 1, 4) AS INTEGER)", .type = Integer},
    {.name = "MONTH", .arguments = "D", .engine = "CAST(substr({1}, 6, 2) AS INTEGER)", .type = Integer},
    {.name = "DAY", .arguments = "D", .engine = "CAST(substr({1}, 9, 2) AS INTEGER)", .type = Integer},
    {.name = "HOUR", .arguments = "D", .engine = "tv_datepart('h', {1})", .type = Integer},
    {.name = "MINUTE", .arguments = "D", .engine = "tv_datepart('n', {1})", .type = Integer},
    {.name = "SECOND", .arguments = "D", .engine = "tv_datepart('s', {1})", .type = Integer},
    {.name = "WEEKDAY", .arguments = "D", .engine = "tv_datepart('w', {1})", .type = Integer},
    {.name = "DATEPART", .arguments = "TD", .engine = "tv_datepart({1}, {2})", .type = Integer},
    {.name = "DATEADD", .arguments = "TND", .engine = "tv_dateadd({1}, {2}, {3})", .type = Date},
    {.name = "DATEDIFF", .arguments = "TDD", .engine = "tv_datediff({1}, {2}, {3})", .type = Long},
    // Choices and questions.
    {.name = "CBOOL", .arguments = "A", .engine = "tv_cbool({1})", .type = Boolean},
    {.name = "IIF", .arguments = "BAA", .engine = "CASE WHEN {1} THEN {2} ELSE {3} END", .typeFrom = 2},
    {.name = "ISNULL", .arguments = "A", .engine = "({1} IS NULL)", .type = Boolean, .isCondition = true},
    {.name = "ISNUMERIC",
     .arguments = "A",
     .engine = "coalesce(tv_isnumeric({1}), 0)",
     .type = Boolean,
     .isCondition = true},
    {.name = "ISDATE", .arguments = "A", .engine = "coalesce(tv_isdate({1}), 0)", .type = Boolean, .isCondition = true},
});

std::string_view withoutTypeSign(std::string_view name) {
  return name.ends_with('$') ? name.substr(0, name.size() - 1) : name;
}

}  // namespace

bool isFunction(std::string_view name) noexcept {
  return std::ranges::any_of(functionRows,
                             [name](const FunctionRow& row) { return sameName(row.name, withoutTypeSign(name)); });
}

bool isAggregate(std::string_view name) noexcept {
  return std::ranges::any_of(functionRows,
                             [name](const FunctionRow& row) { return row.isAggregate && sameName(row.name, name); });
}

const FunctionRow* findFunction(std::string_view name, std::size_t argumentCount, Family first) noexcept {
  const auto found = std::ranges::find_if(functionRows, [&](const FunctionRow& row) {
    const bool fits = row.onlyForFirst == Family::Any || row.onlyForFirst == first;
    return fits && row.arguments.size() == argumentCount && sameName(row.name, withoutTypeSign(name));
  });
  return found == functionRows.end() ? nullptr : &*found;
}

std::string_view conversionFunction(Family from, ColumnType fromType, ColumnType to) noexcept {
  const Family target = familyOf(to);
  if (target == Family::Any || from == Family::Any) return {};
  if (isWhole(to) && from == Family::Number) return isWhole(fromType) ? std::string_view{} : "tv_clng";
  if (target == from || (target == Family::Number && from == Family::Boolean)) return {};
  switch (target) {
    case Family::Text:
      return from == Family::Date ? "tv_datetext" : "tv_cstr";
    case Family::Number:
      return from == Family::Date ? "tv_serial" : isWhole(to) ? "tv_clng" : "tv_cdbl";
    case Family::Boolean:
      return from == Family::Date ? std::string_view{} : "tv_cbool";
    case Family::Date:
      return from == Family::Text ? "tv_cdate" : "tv_date";
    case Family::Any:
      break;
  }
  return {};
}

std::string_view assignmentFunction(Family from, ColumnType fromType, ColumnType to) noexcept {
  if (!isWhole(to)) return conversionFunction(from, fromType, to);
  const bool fits = from == Family::Boolean || fromType == to || fromType == Integer;
  if (fits) return {};
  if (from == Family::Date) return to == Integer ? "tv_dateinteger" : "tv_datelong";
  return to == Integer ? "tv_integer" : "tv_long";
}

}  // namespace tarvola::ado::sql
