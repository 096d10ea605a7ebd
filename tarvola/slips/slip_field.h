#pragma once

#include <cstdint>
#include <string_view>

namespace tarvola::slips {

/// What a field of a slip holds.
enum class FieldKind : std::uint8_t {
  Text,
  Date,         ///< a date in text, "DD/MM/YYYY"
  Amount,       ///< rupiah
  Percent,      ///< a rate
  Option,       ///< a whole number that picks one of a few cases
  WholeNumber,  ///< days, month, year
};

/// A field of a slip that can be written, and how.
struct SlipField {
  /// The field's name; its property is "a" and this name.
  std::string_view name;
  FieldKind kind = FieldKind::Text;
  /// What the printed forms call it, for prompts; "" where they have no words for it.
  std::string_view label = {};
  /// Whether the property takes any value, Null included. Otherwise Null is error 94, and what cannot be turned into
  /// the kind's type error 13.
  bool takesAnyValue = false;
};

}  // namespace tarvola::slips
