#include "tarvola/ado/column_value.h"

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado {
namespace {

Variant convert(const Variant& value, ColumnType type) {
  switch (type) {
    case ColumnType::Text:
    case ColumnType::LongText:
      return CStr(value);
    case ColumnType::Integer:
      return CInt(value);
    case ColumnType::Long:
      return CLng(value);
    case ColumnType::Double:
      return CDbl(value);
    case ColumnType::Boolean:
      return CBool(value);
    case ColumnType::Date:
      return CDate(value);
    default:
      return value;
  }
}

bool isHeldAlready(Variant::Type held, ColumnType type) {
  switch (type) {
    case ColumnType::Any:
      return true;
    case ColumnType::Text:
    case ColumnType::LongText:
      return held == Variant::Type::String;
    case ColumnType::Integer:
      return held == Variant::Type::Integer;
    case ColumnType::Long:
      return held == Variant::Type::Long;
    case ColumnType::Double:
      return held == Variant::Type::Double;
    case ColumnType::Boolean:
      return held == Variant::Type::Boolean;
    case ColumnType::Date:
      return held == Variant::Type::Date;
    case ColumnType::Chapter:
      return false;
  }
  return false;
}

bool isObject(const Variant& value) {
  return value.type() == Variant::Type::Array || value.type() == Variant::Type::Recordset;
}

}  // namespace

Variant convertForColumn(const Variant& value, ColumnType type) {
  if (isObject(value) || type == ColumnType::Chapter) fail(ErrorNumber::WrongTypeForOperation);
  if (value.isNull() || isHeldAlready(value.type(), type)) return value;
  try {
    return convert(value, type);
  } catch (const RunTimeError& error) {
    const bool outOfRange = error.number() == static_cast<std::int32_t>(ErrorNumber::Overflow);
    fail(outOfRange ? ErrorNumber::MultipleStepErrors : ErrorNumber::ComTypeMismatch);
  }
}

void requireLength(const Variant& value, const Column& column) {
  if (column.length == 0) return;
  const Variant held = convertForColumn(value, column.type);
  if (held.isString() && Len(held.string()) > column.length) fail(ErrorNumber::MultipleStepErrors);
}

}  // namespace tarvola::ado
