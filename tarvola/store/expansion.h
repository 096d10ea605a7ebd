#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "tarvola/ado/columns.h"
#include "tarvola/store/form_layouts.h"

namespace tarvola::store {

/// Where a column of named fields takes its value from.
struct FieldPlace {
  enum class Origin : std::uint8_t {
    Layout,  ///< a position of the layout
    Extra,   ///< an extra behind the layout
    Beyond,  ///< a position that the layout does not know: Field<n>
    Plain,   ///< a column of the row itself
  };
  Origin origin = Origin::Layout;
  FieldType type = FieldType::Text;
  /// Which of the fields that share the position, and how many do.
  std::uint8_t part = 0;
  std::uint8_t partCount = 1;
  /// The position in the packed text, or the column of the row.
  std::uint32_t index = 0;

  [[nodiscard]] bool isNumeric() const noexcept { return type == FieldType::Integer || type == FieldType::Double; }
};

/// The named fields of a layout over rows of given columns: positions first, then extras, Field<n>, plain columns.
///
/// Made once for each layout and shape of rows and shared by all recordsets of it, so that expanding one row at a time
/// costs next to nothing.
struct Expansion {
  const FormLayout* layout = nullptr;
  ado::ColumnsPtr source;
  std::size_t beyondCount = 0;
  ado::ColumnsPtr columns;
  std::vector<FieldPlace> places;

  /// The expansion of rows whose longest packed text has `fieldCount` fields.
  static std::shared_ptr<const Expansion> of(const FormLayout& layout, const ado::ColumnsPtr& source,
                                             std::size_t fieldCount);
};

}  // namespace tarvola::store
