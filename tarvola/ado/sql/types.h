#pragma once

#include <cstdint>

#include "tarvola/ado/columns.h"

namespace tarvola::ado::sql {

/// What the dialect tells apart when values meet: within a family any two values compare, across two they clash.
enum class Family : std::uint8_t { Any, Text, Number, Boolean, Date };

constexpr Family familyOf(ColumnType type) {
  switch (type) {
    case ColumnType::Text:
    case ColumnType::LongText:
      return Family::Text;
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Double:
      return Family::Number;
    case ColumnType::Boolean:
      return Family::Boolean;
    case ColumnType::Date:
      return Family::Date;
    case ColumnType::Any:
    case ColumnType::Chapter:
      return Family::Any;
  }
  return Family::Any;
}

constexpr bool isWhole(ColumnType type) { return type == ColumnType::Integer || type == ColumnType::Long; }

/// Whether a comparison of the two fails with "Data type mismatch in criteria expression.": a text with anything that
/// is no text. Numbers, truth values and dates are all numbers underneath.
constexpr bool clash(Family left, Family right) {
  if (left == Family::Any || right == Family::Any) return false;
  return (left == Family::Text) != (right == Family::Text);
}

/// The type of a column whose rows come from two places.
constexpr ColumnType commonType(ColumnType left, ColumnType right) {
  if (left == right) return left;
  if (familyOf(left) != familyOf(right) || familyOf(left) == Family::Any) return ColumnType::Any;
  if (familyOf(left) == Family::Text) return ColumnType::LongText;
  return isWhole(left) && isWhole(right) ? ColumnType::Long : ColumnType::Double;
}

}  // namespace tarvola::ado::sql
