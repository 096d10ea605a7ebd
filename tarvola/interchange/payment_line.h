#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/runtime/variant.h"

namespace tarvola::interchange {

/// One line of a payment file, as the array of its columns that the application cut it into.
class PaymentLine {
 public:
  /// What is no array is error 13.
  explicit PaymentLine(const Variant& columns) : columns_(columns.array()) {}

  /// A column, counted from 0, without blanks around. One that the line lacks is error 9.
  [[nodiscard]] std::string text(std::size_t column) const;
  /// The amount in a column, cut down to whole rupiah: 100000,75 gives 100000, and so does 100000.75. No number: error
  /// 13.
  [[nodiscard]] double wholeRupiah(std::size_t column) const;

  /// The first three characters of the first column: "SSP" or "PBK".
  [[nodiscard]] std::string word() const;
  /// The number behind them. No number, as in the line of titles: error 13.
  [[nodiscard]] std::int16_t article() const;

 private:
  const Variant::Array& columns_;
};

}  // namespace tarvola::interchange
