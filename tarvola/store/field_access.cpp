#include "tarvola/store/field_access.h"

#include "tarvola/ado/fields.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::store {
namespace {

Recordset& needed(const RecordsetPtr& rows) {
  if (!rows) fail(ErrorNumber::ObjectVariableNotSet);
  return *rows;
}

}  // namespace

Variant fieldValue(const RecordsetPtr& rows, std::string_view name) { return needed(rows).get_Collect(name); }

double fieldNumber(const RecordsetPtr& rows, std::string_view name) { return CDbl(fieldValue(rows, name)); }

std::int16_t fieldInteger(const RecordsetPtr& rows, std::string_view name) { return CInt(fieldValue(rows, name)); }

std::string fieldText(const RecordsetPtr& rows, std::string_view name) { return CStr(fieldValue(rows, name)); }

bool isNullField(const RecordsetPtr& rows, std::string_view name) { return fieldValue(rows, name).isNull(); }

double fieldNumberOr(const RecordsetPtr& rows, std::string_view name, double ifNull) {
  const Variant value = fieldValue(rows, name);
  return value.isNull() ? ifNull : CDbl(value);
}

std::string fieldTextOr(const RecordsetPtr& rows, std::string_view name, std::string_view ifNull) {
  const Variant value = fieldValue(rows, name);
  return value.isNull() ? std::string(ifNull) : CStr(value);
}

void setField(const RecordsetPtr& rows, std::string_view name, const Variant& value) {
  needed(rows).put_Collect(name, value);
}

void nullToZero(const RecordsetPtr& rows, std::string_view name) {
  if (isNullField(rows, name)) setField(rows, name, 0.0);
}

void nullToZeroElseInt(const RecordsetPtr& rows, std::string_view name) {
  const Variant value = fieldValue(rows, name);
  setField(rows, name, value.isNull() ? Variant(0.0) : Int(value));
}

RecordsetPtr chapter(const RecordsetPtr& rows, std::string_view name) {
  return needed(rows).get_Fields().get_Item(name).get_UnderlyingValue().recordset();
}

}  // namespace tarvola::store
