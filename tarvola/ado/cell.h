#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/runtime/variant.h"

namespace tarvola::ado {

/// A value inside a set of rows, as a view: 16 bytes, no ownership. A text points into the rows that hold it and is
/// valid until that row is changed. What a loop over many rows reads instead of a Variant.
class Cell {
 public:
  using Type = Variant::Type;

  constexpr Cell() noexcept = default;  ///< Empty
  static constexpr Cell null() noexcept { return Cell(Type::Null); }
  static constexpr Cell integer(std::int16_t value) noexcept { return whole(Type::Integer, value); }
  static constexpr Cell longInteger(std::int32_t value) noexcept { return whole(Type::Long, value); }
  static constexpr Cell boolean(bool value) noexcept { return whole(Type::Boolean, value ? -1 : 0); }
  static constexpr Cell number(double value) noexcept { return real(Type::Double, value); }
  static Cell date(Date value) noexcept { return real(Type::Date, value.serial()); }
  static constexpr Cell text(std::string_view value) noexcept {
    Cell cell(Type::String);
    cell.data_.text = value.data();
    cell.length_ = static_cast<std::uint32_t>(value.size());
    return cell;
  }

  /// A view of a value that the platform keeps in a row; a text points into the value. Empty for an array or an object.
  static Cell of(const Variant& value) noexcept;

  [[nodiscard]] constexpr Type type() const noexcept { return type_; }
  [[nodiscard]] constexpr bool isNull() const noexcept { return type_ == Type::Null; }
  [[nodiscard]] constexpr bool isText() const noexcept { return type_ == Type::String; }
  /// The text of a String cell.
  [[nodiscard]] constexpr std::string_view text() const noexcept { return {data_.text, length_}; }

  /// The value as its own owner.
  [[nodiscard]] Variant toVariant() const;
  /// CDbl of the value: Null is error 94, a text that is no number 13.
  [[nodiscard]] double toDouble() const;
  /// CStr of the value appended: Null is error 94.
  void appendText(std::string& out) const;

 private:
  explicit constexpr Cell(Type type) noexcept : type_(type) {}
  static constexpr Cell whole(Type type, std::int32_t value) noexcept {
    Cell cell(type);
    cell.data_.whole = value;
    return cell;
  }
  static constexpr Cell real(Type type, double value) noexcept {
    Cell cell(type);
    cell.data_.real = value;
    return cell;
  }

  union Data {
    std::int32_t whole;
    double real;
    const char* text;
  };
  Data data_{.whole = 0};
  std::uint32_t length_ = 0;
  Type type_ = Type::Empty;
};

}  // namespace tarvola::ado
