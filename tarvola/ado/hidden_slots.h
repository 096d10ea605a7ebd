#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvola::ado {

/// Which slots of a sequence are taken out, with the count of those that lie in front of any slot.
///
/// Asking, taking out and putting back cost the logarithm of the size, so that a loop that removes row after row, or
/// asks for the k-th that is left, stays linear. Without a slot taken out it holds no memory.
class HiddenSlots {
 public:
  using Slot = std::uint32_t;

  [[nodiscard]] bool any() const noexcept { return count_ != 0; }
  [[nodiscard]] std::size_t count() const noexcept { return count_; }
  [[nodiscard]] bool contains(Slot slot) const noexcept {
    return slot < capacity() && (bits_[slot / 64] >> (slot % 64) & 1U) != 0;
  }

  void insert(Slot slot);
  void erase(Slot slot);
  void clear() noexcept;

  /// How many slots in front of this one are taken out.
  [[nodiscard]] std::size_t before(Slot slot) const noexcept;
  /// The slot that stands at a position when only those that are left count.
  [[nodiscard]] Slot shownAt(std::size_t position) const noexcept;

 private:
  [[nodiscard]] std::size_t capacity() const noexcept { return bits_.size() * 64; }
  void growTo(Slot slot);
  void rebuildSums();
  void addToSums(Slot slot, bool taken) noexcept;

  std::vector<std::uint64_t> bits_;
  /// A tree of partial sums: entry i (from 1) holds the count of taken slots in the lowbit(i) slots that end with
  /// slot i - 1. Its size is a power of two and one.
  std::vector<std::uint32_t> sums_;
  std::size_t count_ = 0;
};

}  // namespace tarvola::ado
