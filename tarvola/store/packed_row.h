#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tarvola::store {

/// The packed text (DAT_FORM) of a row being put together in the order of its fields, with ";" between them.
class PackedRow {
 public:
  PackedRow() = default;
  /// Goes on behind fields that are packed already.
  explicit PackedRow(std::string head) noexcept : text_(std::move(head)), started_(true) {}

  /// Whole numbers in plain decimal form.
  PackedRow& whole(std::int32_t value);
  /// Amounts in their default text form, under the regional settings of this moment.
  PackedRow& amount(double value);
  /// A text as it stands. One that holds ";" is error 5, since it would shift every field behind it.
  PackedRow& text(std::string_view fieldName, std::string_view value);
  /// The fields of another row behind those of this one.
  PackedRow& fields(const PackedRow& behind);

  [[nodiscard]] const std::string& str() const noexcept { return text_; }

 private:
  void separate();

  std::string text_;
  bool started_ = false;
};

}  // namespace tarvola::store
