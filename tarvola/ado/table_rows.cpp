#include "tarvola/ado/table_rows.h"

#include <algorithm>
#include <type_traits>

#include "tarvola/ado/column_value.h"

namespace tarvola::ado {
namespace {

constexpr std::size_t firstBlockBytes = 1024;
constexpr std::size_t largestBlockBytes = std::size_t{1} << 21;

}  // namespace

// Blocks double, so that one row costs one small block and a hundred thousand cost few large ones.
void TextArena::addBlock(std::size_t neededBytes) {
  const std::size_t doubled = blocks_.empty() ? firstBlockBytes : blocks_.back().bytes() * 2;
  GrowingBlock& block = blocks_.emplace_back();
  block.growTo(std::max(std::min(doubled, largestBlockBytes), neededBytes));
  next_ = static_cast<char*>(block.data());
  room_ = block.bytes();
}

TableRows::TableRows(ColumnsPtr columns, std::shared_ptr<const BaseTable> base)
    : Rows(std::move(columns)), base_(std::move(base)), columnCount_(this->columns().count()) {}

void TableRows::makeRoom() {
  static_assert(std::is_trivially_copyable_v<Cell> && std::is_trivially_destructible_v<Cell>);
  const std::size_t rows = rowCapacity_ == 0 ? 1 : std::max<std::size_t>(rowCapacity_ * 2, 8);
  const std::size_t rowBytes = std::max<std::size_t>(columnCount_, 1) * sizeof(Cell);
  cells_.growTo(rows * rowBytes);
  rowCapacity_ = cells_.bytes() / rowBytes;
}

Cell* TableRows::addRow() {
  if (rowCount_ == rowCapacity_) makeRoom();
  Cell* const row = cells() + rowCount_ * columnCount_;
  std::uninitialized_fill_n(row, columnCount_, Cell());
  ++rowCount_;
  return row;
}

std::size_t TableRows::append() {
  addRow();
  if (base_) setIdentity(rowCount_ - 1, 0);
  return rowCount_ - 1;
}

void TableRows::setIdentity(std::size_t row, std::int64_t identity) {
  if (row >= identities_.size()) identities_.resize(row + 1);
  identities_[row] = identity;
}

void TableRows::set(std::size_t row, std::size_t column, const Variant& value) {
  const Variant held = convertForColumn(value, columns()[column].type);
  const Cell view = Cell::of(held);
  cells()[row * columnCount_ + column] = view.isText() ? Cell::text(texts_.keep(view.text())) : view;
}

}  // namespace tarvola::ado
