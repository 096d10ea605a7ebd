#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "tarvola/ado/row_test.h"
#include "tarvola/ado/rows.h"

namespace tarvola::ado {

/// Finds the rows whose values in certain columns equal given ones, without walking the set.
///
/// A row that changes or is added gets one more entry under its new values; the old entry stays, since each row that
/// is found is tested before it counts. When half of the entries are such, the index is built anew.
class FilterIndex {
 public:
  /// An index over the columns of the tests, as the rows stand now.
  FilterIndex(const Rows& rows, std::span<const RowTest> tests);

  /// Whether it is an index over exactly those columns, in that order.
  [[nodiscard]] bool covers(std::span<const RowTest> tests) const noexcept;
  [[nodiscard]] bool covers(std::size_t column) const noexcept;

  /// The rows for which the tests hold, in rising order, put behind what `found` holds.
  void find(const Rows& rows, std::span<const RowTest> tests, std::vector<std::uint32_t>& found) const;

  /// One of the index's columns has a new value in that row.
  void rowChanged(const Rows& rows, std::size_t row);

 private:
  static constexpr std::uint32_t noEntry = ~std::uint32_t{0};
  struct Key {
    std::uint32_t column;
    Comparing comparing;
  };
  struct Entry {
    std::uint32_t row;
    std::uint32_t next;
    /// A part of the row's hash that its bucket does not say: whoever differs in it need not be looked at.
    std::uint32_t tag;
  };

  void build(const Rows& rows);
  void add(const Rows& rows, std::size_t row);
  [[nodiscard]] static std::uint32_t tagOf(std::uint64_t hash) noexcept {
    return static_cast<std::uint32_t>(hash >> 32U);
  }
  [[nodiscard]] std::size_t bucket(std::uint64_t hash) const noexcept { return hash & (firsts_.size() - 1); }

  std::vector<Key> keys_;
  /// For each bucket its first entry; as many buckets as a power of two.
  std::vector<std::uint32_t> firsts_;
  std::vector<Entry> entries_;
};

/// The indexes of a set of rows, each made when a filter first asks for its columns.
class FilterIndexes {
 public:
  /// The rows for which the tests hold, in rising order, put behind what `found` holds.
  void find(const Rows& rows, std::span<const RowTest> tests, std::vector<std::uint32_t>& found);
  /// To be told of every new value. A row that is added needs no word of its own: until it has values nothing finds it.
  void cellChanged(const Rows& rows, std::size_t row, std::size_t column);
  void clear() noexcept { indexes_.clear(); }

 private:
  std::vector<FilterIndex> indexes_;
};

}  // namespace tarvola::ado
