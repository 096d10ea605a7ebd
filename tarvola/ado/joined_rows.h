#pragma once

#include <vector>

#include "tarvola/ado/rows.h"

namespace tarvola::ado {

/// Several sets of rows of the same columns and table, one behind the other, as one set. New rows go to the last.
class ChainedRows final : public Rows {
 public:
  /// At least one set.
  explicit ChainedRows(std::vector<RowsPtr> parts);

  [[nodiscard]] std::size_t count() const noexcept override { return starts_.back() + parts_.back()->count(); }
  [[nodiscard]] Cell cell(std::size_t row, std::size_t column) const override;
  void set(std::size_t row, std::size_t column, const Variant& value) override;
  std::size_t append() override { return starts_.back() + parts_.back()->append(); }
  [[nodiscard]] const BaseTable* base() const noexcept override { return parts_.front()->base(); }
  [[nodiscard]] std::int64_t identity(std::size_t row) const noexcept override;
  void setIdentity(std::size_t row, std::int64_t identity) override;

 private:
  /// Which part holds a row.
  [[nodiscard]] std::size_t partOf(std::size_t row) const noexcept;

  std::vector<RowsPtr> parts_;
  /// The number of each part's first row.
  std::vector<std::size_t> starts_;
};

/// A set of rows with further columns behind its own that hold no values: the chapters of a parent, whose rows the
/// recordset keeps.
class RowsWithChapters final : public Rows {
 public:
  RowsWithChapters(RowsPtr rows, const std::vector<std::string>& chapterNames);

  [[nodiscard]] std::size_t count() const noexcept override { return rows_->count(); }
  [[nodiscard]] Cell cell(std::size_t row, std::size_t column) const override {
    return column < ownCount_ ? rows_->cell(row, column) : Cell();
  }
  void set(std::size_t row, std::size_t column, const Variant& value) override;
  std::size_t append() override { return rows_->append(); }
  [[nodiscard]] const BaseTable* base() const noexcept override { return rows_->base(); }
  [[nodiscard]] std::int64_t identity(std::size_t row) const noexcept override { return rows_->identity(row); }
  void setIdentity(std::size_t row, std::int64_t identity) override { rows_->setIdentity(row, identity); }

 private:
  RowsPtr rows_;
  std::size_t ownCount_;
};

}  // namespace tarvola::ado
