#include "tarvola/ado/joined_rows.h"

#include <algorithm>

#include "tarvola/runtime/errors.h"

namespace tarvola::ado {
namespace {

ColumnsPtr withChapters(const Columns& columns, const std::vector<std::string>& chapterNames) {
  std::vector<Column> all;
  all.reserve(columns.count() + chapterNames.size());
  for (std::size_t i = 0; i < columns.count(); ++i) all.push_back(columns[i]);
  for (const std::string& name : chapterNames) all.push_back({.name = name, .type = ColumnType::Chapter});
  return std::make_shared<const Columns>(std::move(all));
}

}  // namespace

ChainedRows::ChainedRows(std::vector<RowsPtr> parts) : Rows(parts.front()->sharedColumns()), parts_(std::move(parts)) {
  starts_.reserve(parts_.size());
  std::size_t start = 0;
  for (const RowsPtr& part : parts_) {
    starts_.push_back(start);
    start += part->count();
  }
}

// Empty parts share their start with the next one; the last part that starts there is the one that has the row.
std::size_t ChainedRows::partOf(std::size_t row) const noexcept {
  const auto behind = std::upper_bound(starts_.begin(), starts_.end(), row);
  return static_cast<std::size_t>(behind - starts_.begin()) - 1;
}

Cell ChainedRows::cell(std::size_t row, std::size_t column) const {
  const std::size_t part = partOf(row);
  return parts_[part]->cell(row - starts_[part], column);
}

void ChainedRows::set(std::size_t row, std::size_t column, const Variant& value) {
  const std::size_t part = partOf(row);
  parts_[part]->set(row - starts_[part], column, value);
}

std::int64_t ChainedRows::identity(std::size_t row) const noexcept {
  const std::size_t part = partOf(row);
  return parts_[part]->identity(row - starts_[part]);
}

void ChainedRows::setIdentity(std::size_t row, std::int64_t identity) {
  const std::size_t part = partOf(row);
  parts_[part]->setIdentity(row - starts_[part], identity);
}

RowsWithChapters::RowsWithChapters(RowsPtr rows, const std::vector<std::string>& chapterNames)
    : Rows(withChapters(rows->columns(), chapterNames)), rows_(std::move(rows)), ownCount_(rows_->columns().count()) {}

void RowsWithChapters::set(std::size_t row, std::size_t column, const Variant& value) {
  if (column >= ownCount_) fail(ErrorNumber::NotCapable);
  rows_->set(row, column, value);
}

}  // namespace tarvola::ado
