#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/runtime/variant.h"

namespace tarvola::store {

// Reading and writing one field of the current row. Without a recordset: error 91; without a current row 3021; an
// unknown name 3265.

Variant fieldValue(const RecordsetPtr& rows, std::string_view name);
/// CDbl of the field; Null is error 94, a text that is no number 13.
double fieldNumber(const RecordsetPtr& rows, std::string_view name);
/// CInt of the field; Null is error 94.
std::int16_t fieldInteger(const RecordsetPtr& rows, std::string_view name);
/// CStr of the field; Null is error 94.
std::string fieldText(const RecordsetPtr& rows, std::string_view name);
bool isNullField(const RecordsetPtr& rows, std::string_view name);

/// As fieldNumber, but what stands for Null is given.
double fieldNumberOr(const RecordsetPtr& rows, std::string_view name, double ifNull);
/// As fieldText, but what stands for Null is given.
std::string fieldTextOr(const RecordsetPtr& rows, std::string_view name, std::string_view ifNull);

void setField(const RecordsetPtr& rows, std::string_view name, const Variant& value);
/// A Null becomes 0, any other value stays.
void nullToZero(const RecordsetPtr& rows, std::string_view name);
/// A Null becomes 0, any other value its Int: cut down to the whole rupiah, never rounded.
void nullToZeroElseInt(const RecordsetPtr& rows, std::string_view name);

/// The child rows in a chapter of the current row, as it was last read from the store.
RecordsetPtr chapter(const RecordsetPtr& rows, std::string_view name);

}  // namespace tarvola::store
