#pragma once

#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "tarvola/ado/growing_block.h"
#include "tarvola/ado/rows.h"

namespace tarvola::ado {

/// Holds the texts of a set of rows, one behind the other in blocks that never move.
class TextArena {
 public:
  /// A copy of the text that stays valid for the life of the arena.
  std::string_view keep(std::string_view text) {
    if (text.empty()) return "";
    if (text.size() > room_) addBlock(text.size());
    char* const place = next_;
    std::memcpy(place, text.data(), text.size());
    next_ += text.size();
    room_ -= text.size();
    return {place, text.size()};
  }

 private:
  void addBlock(std::size_t neededBytes);

  std::vector<GrowingBlock> blocks_;
  char* next_ = nullptr;
  std::size_t room_ = 0;
};

/// The rows that an engine delivered: all cells in one block, all texts in an arena.
///
/// A text that repeats the one above it in its column is held once, which a period's rows do in most of their columns.
class TableRows final : public Rows {
 public:
  /// `base` is the table that writes go to, null if there is none.
  explicit TableRows(ColumnsPtr columns, std::shared_ptr<const BaseTable> base = nullptr);

  [[nodiscard]] std::size_t count() const noexcept override { return rowCount_; }
  [[nodiscard]] Cell cell(std::size_t row, std::size_t column) const override {
    return cells()[row * columnCount_ + column];
  }
  /// A text is read under the regional settings of the thread. Empty counts as 0 and as "".
  void set(std::size_t row, std::size_t column, const Variant& value) override;
  std::size_t append() override;

  [[nodiscard]] const BaseTable* base() const noexcept override { return base_.get(); }
  [[nodiscard]] std::int64_t identity(std::size_t row) const noexcept override {
    return row < identities_.size() ? identities_[row] : 0;
  }
  void setIdentity(std::size_t row, std::int64_t identity) override;

  // --- for the engine that fills it --------------------------------------------------------------------
  /// A new row at the end: the first of its cells, all Empty. Valid until the next row is added.
  Cell* addRow();
  void addIdentity(std::int64_t identity) { identities_.push_back(identity); }
  /// Puts a text into a cell of the row that was added last.
  void putText(Cell* cell, std::string_view text) {
    const bool repeats = rowCount_ > 1 && (cell - columnCount_)->isText() && (cell - columnCount_)->text() == text;
    *cell = repeats ? *(cell - columnCount_) : Cell::text(texts_.keep(text));
  }

 private:
  [[nodiscard]] Cell* cells() const noexcept { return static_cast<Cell*>(cells_.data()); }
  void makeRoom();

  std::shared_ptr<const BaseTable> base_;
  GrowingBlock cells_;
  std::size_t columnCount_;
  std::size_t rowCount_ = 0;
  std::size_t rowCapacity_ = 0;
  std::vector<std::int64_t> identities_;
  TextArena texts_;
};

}  // namespace tarvola::ado
