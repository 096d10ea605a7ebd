#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tarvola::store {

/// How a position of a packed text is read.
enum class FieldType : std::uint8_t { Text, DateText, Integer, Double };

struct LayoutField {
  std::string_view name;
  FieldType type = FieldType::Text;
};

/// One position of a packed text: usually one field. A few positions of the main form hold several, joined by "|".
struct LayoutPosition {
  std::span<const LayoutField> fields;
};

/// The order of the fields of a form, a list header or a list row: the only place that knows positions.
///
/// A row is packed with all its positions. The extras stand behind them and are written only as far as the last one
/// that holds something, so that a row without them has exactly the positions of its form.
struct FormLayout {
  /// What ExpandDatForm is asked with: a form code, or a list's code with "-Coll", "-CollA", "-CollB" for its rows.
  std::string_view code;
  std::span<const LayoutPosition> positions;
  std::span<const LayoutField> extras;

  /// The position, from 0, that holds a field of the layout (extras count on behind it); case does not matter.
  [[nodiscard]] std::optional<std::size_t> position(std::string_view fieldName) const noexcept;
};

/// A field as ExpandDatForm names it.
struct NamedField {
  std::string name;
  FieldType type = FieldType::Text;
};

/// The field at a position of a packed text, the last of those that share it; behind the layout, and for an unknown one
/// (nullptr), a text Field<n>.
NamedField fieldAt(const FormLayout* layout, std::size_t position);

/// The layout of a code, nullptr for an unknown one. D113207 and D113208 have the six leading positions only.
const FormLayout* findLayout(std::string_view code) noexcept;
/// All layouts, for tests and documents.
std::span<const FormLayout> allLayouts() noexcept;

}  // namespace tarvola::store
