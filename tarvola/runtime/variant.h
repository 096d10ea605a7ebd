#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tarvola/runtime/date.h"

namespace tarvola {

class Recordset;
using RecordsetPtr = std::shared_ptr<Recordset>;

/// A value that knows its own type, as a field of a recordset or a late-bound argument holds it.
///
/// Empty is "never given a value"; Null is the store's "no value". They differ everywhere: Empty counts
/// as 0 and as "", Null makes every sum Null and fails with error 94 where a plain type is needed.
class Variant {
 public:
  enum class Type { Empty, Null, Integer, Long, Double, Boolean, Date, String, Array, Recordset };
  using Array = std::vector<Variant>;

  Variant() noexcept = default;
  static Variant null() noexcept;
  Variant(std::int16_t value) noexcept : value_(value) {}
  Variant(std::int32_t value) noexcept : value_(value) {}
  Variant(double value) noexcept : value_(value) {}
  Variant(bool value) noexcept : value_(value) {}
  Variant(Date value) noexcept : value_(value) {}
  Variant(std::string value) noexcept : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}
  Variant(Array value);
  Variant(RecordsetPtr value) noexcept : value_(std::move(value)) {}

  [[nodiscard]] Type type() const noexcept { return static_cast<Type>(value_.index()); }
  [[nodiscard]] bool isEmpty() const noexcept { return type() == Type::Empty; }
  [[nodiscard]] bool isNull() const noexcept { return type() == Type::Null; }
  [[nodiscard]] bool isString() const noexcept { return type() == Type::String; }
  /// Integer, Long, Double or Boolean.
  [[nodiscard]] bool isNumber() const noexcept;

  // The value as it is stored; asking for another type than type() says is error 13.
  [[nodiscard]] std::int16_t integer() const;
  [[nodiscard]] std::int32_t longInteger() const;
  [[nodiscard]] double number() const;
  [[nodiscard]] bool boolean() const;
  [[nodiscard]] Date date() const;
  [[nodiscard]] const std::string& string() const;
  [[nodiscard]] const Array& array() const;
  [[nodiscard]] const RecordsetPtr& recordset() const;

  /// Same type and same value; no conversion takes place. For the platform's "=" see variant_math.h.
  friend bool operator==(const Variant& left, const Variant& right);

 private:
  struct NullValue {
    friend bool operator==(NullValue, NullValue) noexcept { return true; }
  };
  using ArrayPtr = std::shared_ptr<const Array>;
  std::variant<std::monostate, NullValue, std::int16_t, std::int32_t, double, bool, Date, std::string, ArrayPtr,
               RecordsetPtr>
      value_;
};

}  // namespace tarvola
