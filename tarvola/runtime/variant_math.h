#pragma once

#include "tarvola/runtime/variant.h"

namespace tarvola {

// Arithmetic and comparison of values whose types are known only at run time.
//
// Null makes the result Null; Empty counts as 0. A text is read as a number (error 13 if it is none), but
// "+" joins two texts. Integer results that do not fit widen to Long and then to Double.
Variant add(const Variant& left, const Variant& right);
Variant subtract(const Variant& left, const Variant& right);
Variant multiply(const Variant& left, const Variant& right);
/// Always a Double. x/0 is error 11, 0/0 error 6.
Variant divide(const Variant& left, const Variant& right);

/// The "&" of the platform: Null counts as "", but Null & Null is Null.
Variant concatenate(const Variant& left, const Variant& right);

/// left = right, three-valued: Null when either is Null. A number never equals a text.
Variant isEqual(const Variant& left, const Variant& right);
/// left < right, three-valued. A number is less than any text.
Variant isLess(const Variant& left, const Variant& right);
/// What an If makes of a condition: Null is not taken.
bool isTrue(const Variant& condition);

}  // namespace tarvola
