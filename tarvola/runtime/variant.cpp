#include "tarvola/runtime/variant.h"

#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

template <typename Stored, typename Alternatives>
const Stored& storedAs(const Alternatives& value) {
  const Stored* stored = std::get_if<Stored>(&value);
  if (stored == nullptr) fail(ErrorNumber::TypeMismatch);
  return *stored;
}

}  // namespace

Variant::Variant(Array value) : value_(std::make_shared<const Array>(std::move(value))) {}

Variant Variant::null() noexcept {
  Variant result;
  result.value_ = NullValue{};
  return result;
}

bool Variant::isNumber() const noexcept {
  switch (type()) {
    case Type::Integer:
    case Type::Long:
    case Type::Double:
    case Type::Boolean:
      return true;
    default:
      return false;
  }
}

std::int16_t Variant::integer() const { return storedAs<std::int16_t>(value_); }
std::int32_t Variant::longInteger() const { return storedAs<std::int32_t>(value_); }
double Variant::number() const { return storedAs<double>(value_); }
bool Variant::boolean() const { return storedAs<bool>(value_); }
Date Variant::date() const { return storedAs<Date>(value_); }
const std::string& Variant::string() const { return storedAs<std::string>(value_); }
const Variant::Array& Variant::array() const { return *storedAs<ArrayPtr>(value_); }
const RecordsetPtr& Variant::recordset() const { return storedAs<RecordsetPtr>(value_); }

bool operator==(const Variant& left, const Variant& right) {
  // Arrays are equal by their elements, however many of the values share one array.
  if (left.type() == Variant::Type::Array && right.type() == Variant::Type::Array) return left.array() == right.array();
  return left.value_ == right.value_;
}

}  // namespace tarvola
