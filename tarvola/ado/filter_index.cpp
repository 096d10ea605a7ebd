#include "tarvola/ado/filter_index.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <optional>

namespace tarvola::ado {
namespace {

/// A program filters one recordset by a handful of column sets; more at a time are somebody's changing texts.
constexpr std::size_t mostIndexes = 8;

constexpr std::uint64_t joined(std::uint64_t hash, std::uint64_t next) {
  return (hash ^ next) * 0x9E3779B97F4A7C15U ^ (hash >> 29U);
}

/// The hash of a row over the columns of an index; nothing if one of them has no value, which no equality finds.
template <class Keys>
std::optional<std::uint64_t> rowHash(const Rows& rows, std::size_t row, const Keys& keys) {
  std::uint64_t hash = 0;
  for (const auto& key : keys) {
    const auto next = RowTest::cellHash(rows.cell(row, key.column), key.comparing);
    if (!next) return std::nullopt;
    hash = joined(hash, *next);
  }
  return hash;
}

}  // namespace

FilterIndex::FilterIndex(const Rows& rows, std::span<const RowTest> tests) {
  keys_.reserve(tests.size());
  for (const RowTest& test : tests) {
    const auto column = static_cast<std::uint32_t>(test.column());
    keys_.push_back({.column = column, .comparing = comparingOf(rows.columns()[column].type)});
  }
  build(rows);
}

bool FilterIndex::covers(std::span<const RowTest> tests) const noexcept {
  return std::equal(keys_.begin(), keys_.end(), tests.begin(), tests.end(),
                    [](const Key& key, const RowTest& test) { return key.column == test.column(); });
}

bool FilterIndex::covers(std::size_t column) const noexcept {
  return std::any_of(keys_.begin(), keys_.end(), [column](const Key& key) { return key.column == column; });
}

// From the last row to the first: each entry goes to the front of its chain, so that a chain rises.
void FilterIndex::build(const Rows& rows) {
  entries_.clear();
  entries_.reserve(rows.count());
  firsts_.assign(std::bit_ceil(std::max<std::size_t>(rows.count(), 16)), noEntry);
  for (std::size_t row = rows.count(); row-- != 0;) add(rows, row);
}

void FilterIndex::add(const Rows& rows, std::size_t row) {
  const auto hash = rowHash(rows, row, keys_);
  if (!hash) return;
  std::uint32_t& first = firsts_[bucket(*hash)];
  entries_.push_back({.row = static_cast<std::uint32_t>(row), .next = first, .tag = tagOf(*hash)});
  first = static_cast<std::uint32_t>(entries_.size() - 1);
}

void FilterIndex::rowChanged(const Rows& rows, std::size_t row) {
  if (entries_.size() >= 2 * firsts_.size()) {
    build(rows);
  } else {
    add(rows, row);
  }
}

void FilterIndex::find(const Rows& rows, std::span<const RowTest> tests, std::vector<std::uint32_t>& found) const {
  std::uint64_t hash = 0;
  for (const RowTest& test : tests) hash = joined(hash, test.valueHash());
  const std::size_t start = found.size();
  for (std::uint32_t entry = firsts_[bucket(hash)]; entry != noEntry; entry = entries_[entry].next) {
    const std::uint32_t row = entries_[entry].row;
    if (entries_[entry].tag == tagOf(hash) && allHold(tests, rows, row)) found.push_back(row);
  }
  // Entries that were added later stand in front, and a row may have several.
  const auto first = found.begin() + static_cast<std::ptrdiff_t>(start);
  if (std::adjacent_find(first, found.end(), std::greater_equal<>()) == found.end()) return;
  std::sort(first, found.end());
  found.erase(std::unique(first, found.end()), found.end());
}

void FilterIndexes::find(const Rows& rows, std::span<const RowTest> tests, std::vector<std::uint32_t>& found) {
  auto index = std::find_if(indexes_.begin(), indexes_.end(),
                            [tests](const FilterIndex& candidate) { return candidate.covers(tests); });
  if (index == indexes_.end()) {
    if (indexes_.size() == mostIndexes) indexes_.erase(indexes_.begin());
    index = indexes_.emplace(indexes_.end(), rows, tests);
  }
  index->find(rows, tests, found);
}

void FilterIndexes::cellChanged(const Rows& rows, std::size_t row, std::size_t column) {
  for (FilterIndex& index : indexes_) {
    if (index.covers(column)) index.rowChanged(rows, row);
  }
}

}  // namespace tarvola::ado
