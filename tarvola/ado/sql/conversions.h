#pragma once

#include "tarvola/ado/sql/compile.h"
#include "tarvola/ado/sql/types.h"

namespace tarvola::ado::sql {

/// What a literal becomes where it stands for itself.
constexpr Conversion asItStands(LiteralKind kind) {
  switch (kind) {
    case LiteralKind::Text:
      return Conversion::Text;
    case LiteralKind::Number:
      return Conversion::Number;
    case LiteralKind::Date:
      break;
  }
  return Conversion::Date;
}

/// What a literal becomes on its way into a column of some type.
struct AssignmentRow {
  Conversion fromText;
  Conversion fromNumber;
  Conversion fromDate;
};

constexpr AssignmentRow assignmentRow(ColumnType target) {
  if (target == ColumnType::Integer)
    return {.fromText = Conversion::TextToInteger,
            .fromNumber = Conversion::NumberToInteger,
            .fromDate = Conversion::DateToInteger};
  if (target == ColumnType::Long)
    return {
        .fromText = Conversion::TextToLong, .fromNumber = Conversion::NumberToLong, .fromDate = Conversion::DateToLong};
  switch (familyOf(target)) {
    case Family::Text:
      return {.fromText = Conversion::Text, .fromNumber = Conversion::NumberToText, .fromDate = Conversion::DateToText};
    case Family::Number:
      return {
          .fromText = Conversion::TextToNumber, .fromNumber = Conversion::Number, .fromDate = Conversion::DateToNumber};
    case Family::Boolean:
      return {.fromText = Conversion::TextToBoolean,
              .fromNumber = Conversion::NumberToBoolean,
              .fromDate = Conversion::DateToNumber};
    case Family::Date:
      return {.fromText = Conversion::TextToDate, .fromNumber = Conversion::NumberToDate, .fromDate = Conversion::Date};
    case Family::Any:
      break;
  }
  return {.fromText = Conversion::Text, .fromNumber = Conversion::Number, .fromDate = Conversion::Date};
}

constexpr Conversion assigned(LiteralKind kind, ColumnType target) {
  const AssignmentRow row = assignmentRow(target);
  switch (kind) {
    case LiteralKind::Text:
      return row.fromText;
    case LiteralKind::Number:
      return row.fromNumber;
    case LiteralKind::Date:
      break;
  }
  return row.fromDate;
}

}  // namespace tarvola::ado::sql
