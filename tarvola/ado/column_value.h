#pragma once

#include "tarvola/ado/columns.h"
#include "tarvola/runtime/variant.h"

namespace tarvola::ado {

/// A value as a column of that type holds it: converted under the regional settings, a text into a number or a date
/// included. Null stays Null, and a column of type Any takes the value as it is.
/// Not convertible: error -2147352571 "Type mismatch."; outside the column's range: -2147217887.
Variant convertForColumn(const Variant& value, ColumnType type);

/// Fails with error -2147217887 for a value whose text is longer than the column's length.
void requireLength(const Variant& value, const Column& column);

}  // namespace tarvola::ado
