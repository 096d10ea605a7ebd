#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tarvola/ado/recordset.h"
#include "tarvola/ado/rows.h"
#include "tarvola/store/expansion.h"
#include "tarvola/store/packed_text.h"

namespace tarvola::store {

/// The named fields of packed texts.
///
/// The texts are those that the rows held when they were expanded, and are cut apart only when somebody looks: the row
/// that was read last keeps its cuts. What is written stays here, in memory, until pack makes a text of it.
class NamedFieldRows final : public ado::Rows {
 public:
  /// Over the given rows of `source`, whose packed texts lie in one column.
  static std::shared_ptr<NamedFieldRows> expand(const FormLayout& layout, ado::RowsPtr source,
                                                std::vector<std::size_t> rowNumbers, std::size_t packedColumn);

  /// The named fields behind a recordset, nullptr if it holds something else.
  static const NamedFieldRows* behind(const Recordset& rows);

  [[nodiscard]] std::size_t count() const noexcept override { return texts_.size() + appendedCount_; }
  [[nodiscard]] ado::Cell cell(std::size_t row, std::size_t column) const override;
  /// A text put into a numeric field is read as a number at once, a Date put into a date text is written as
  /// dd/MM/yyyy. Not convertible: error -2147352571, and the field keeps its value.
  void set(std::size_t row, std::size_t column, const Variant& value) override;
  std::size_t append() override;

  /// The text form of a field, Null as nothing: what cell gives through CStr, without reading a number that is written
  /// in its text form already.
  void appendFieldText(std::string& out, std::size_t row, std::size_t column) const;

  /// The packed text of a row. A ";" in a field is error 5.
  [[nodiscard]] std::string pack(std::size_t row) const;

 private:
  using WrittenRow = std::vector<std::optional<Variant>>;

  NamedFieldRows(std::shared_ptr<const Expansion> expansion, ado::RowsPtr source, std::vector<std::size_t> rowNumbers,
                 std::vector<std::string_view> texts);

  [[nodiscard]] const Variant* written(std::size_t row, std::size_t column) const;
  [[nodiscard]] std::optional<std::string_view> packedField(std::size_t row, const FieldPlace& place) const;
  [[nodiscard]] bool isNull(std::size_t row, std::size_t column) const;
  [[nodiscard]] bool holdsSomething(std::size_t row, std::size_t column) const;
  void appendPosition(std::string& out, std::size_t row, std::size_t firstColumn) const;
  void appendFieldToPack(std::string& out, std::size_t row, std::size_t column) const;

  std::shared_ptr<const Expansion> expansion_;
  ado::RowsPtr source_;
  std::vector<std::size_t> rowNumbers_;
  std::vector<std::string_view> texts_;
  std::size_t appendedCount_ = 0;
  std::unordered_map<std::size_t, WrittenRow> written_;

  mutable PackedText cut_;
  mutable std::size_t cutRow_;
};

/// The text form of a field of the current row appended, Null as nothing.
void appendFieldText(std::string& out, const Recordset& rows, std::size_t column);

}  // namespace tarvola::store
