#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/cell.h"
#include "tarvola/store/form_layouts.h"

namespace tarvola::store {

/// What parts the fields of a packed text, and the fields that share one position.
inline constexpr char fieldSeparator = ';';
inline constexpr char partSeparator = '|';

/// A packed text and where its fields begin. Cutting costs one pass; the text itself is not copied and must outlive
/// the cut.
class PackedText {
 public:
  void cut(std::string_view text);
  /// Fields of the text. An empty text has none, every other one more than it has separators.
  [[nodiscard]] std::size_t count() const noexcept { return count_; }
  [[nodiscard]] std::string_view operator[](std::size_t index) const noexcept {
    return text_.substr(starts_[index], starts_[index + 1] - starts_[index] - 1);
  }

 private:
  std::string_view text_;
  std::vector<std::uint32_t> starts_;
  std::size_t count_ = 0;
};

/// How many fields a packed text has, without cutting it.
std::size_t countFields(std::string_view text) noexcept;

/// One of several fields that share a position; the last takes whatever remains. Nothing if the position has fewer, or
/// is empty as a whole.
std::optional<std::string_view> sharedPart(std::string_view position, std::size_t part, std::size_t partCount) noexcept;

/// The value of a numeric field: Null for an empty one, the text itself if it is no number. A field of type Integer
/// gives an Integer, a Long or a Double, whichever holds its number whole.
ado::Cell numericCell(std::string_view text, FieldType type) noexcept;
/// The number as a numeric field of that type holds it.
ado::Cell numericCell(double number, FieldType type) noexcept;

/// The default text form of the number that a text says: "01" gives "1". Text that is no number is appended as it is.
void appendNumberAnew(std::string& out, std::string_view text);

}  // namespace tarvola::store
