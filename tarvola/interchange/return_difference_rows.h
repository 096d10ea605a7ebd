#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/recordset.h"
#include "tarvola/store/form_layouts.h"

/// Bringing the rows of two returns together.
namespace tarvola::interchange {

/// A row of the earlier return and the one of the later return that belongs to it; one of them where there is no other.
struct RowPair {
  std::optional<std::size_t> before;
  std::optional<std::size_t> after;
};

/// What a row says, in one text.
using RowContent = std::function<std::string(std::size_t)>;

/// Brings rows of equal keys together, in linear time. Where several rows of one return share a key, those of equal
/// content are taken together first, and the others in their order; only then the contents are asked for.
std::vector<RowPair> pairRows(const std::vector<std::string>& keysBefore, const std::vector<std::string>& keysAfter,
                              const RowContent& contentBefore, const RowContent& contentAfter);

/// Whether two values of a field say the same: numbers by their value, an empty one being 0, texts letter by letter.
bool saysTheSame(store::FieldType type, std::string_view before, std::string_view after);

/// Whether a field holds numbers.
constexpr bool isNumeric(store::FieldType type) noexcept {
  return type == store::FieldType::Integer || type == store::FieldType::Double;
}

}  // namespace tarvola::interchange
