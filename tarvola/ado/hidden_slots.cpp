#include "tarvola/ado/hidden_slots.h"

#include <algorithm>
#include <bit>

namespace tarvola::ado {
namespace {

constexpr std::size_t lowBit(std::size_t index) { return index & (~index + 1); }

}  // namespace

void HiddenSlots::insert(Slot slot) {
  if (contains(slot)) return;
  if (slot >= capacity()) growTo(slot);
  bits_[slot / 64] |= std::uint64_t{1} << (slot % 64);
  addToSums(slot, true);
  ++count_;
}

void HiddenSlots::erase(Slot slot) {
  if (!contains(slot)) return;
  bits_[slot / 64] &= ~(std::uint64_t{1} << (slot % 64));
  addToSums(slot, false);
  --count_;
}

void HiddenSlots::clear() noexcept {
  bits_.clear();
  sums_.clear();
  count_ = 0;
}

std::size_t HiddenSlots::before(Slot slot) const noexcept {
  std::size_t sum = 0;
  for (std::size_t index = std::min<std::size_t>(slot, capacity()); index != 0; index -= lowBit(index)) {
    sum += sums_[index];
  }
  return sum;
}

// Walks down the tree: as long as the shown slots of the next block are all in front of the position, skip the block.
HiddenSlots::Slot HiddenSlots::shownAt(std::size_t position) const noexcept {
  std::size_t skipped = 0;
  std::size_t left = position;
  for (std::size_t block = capacity(); block != 0; block /= 2) {
    if (skipped + block > capacity()) continue;
    const std::size_t shown = block - sums_[skipped + block];
    if (shown > left) continue;
    skipped += block;
    left -= shown;
  }
  return static_cast<Slot>(skipped + left);
}

void HiddenSlots::growTo(Slot slot) {
  const std::size_t needed = std::bit_ceil(std::max<std::size_t>(std::size_t{slot} + 1, 64));
  bits_.resize(needed / 64);
  rebuildSums();
}

void HiddenSlots::rebuildSums() {
  sums_.assign(capacity() + 1, 0);
  for (std::size_t index = 1; index <= capacity(); ++index) {
    sums_[index] += contains(static_cast<Slot>(index - 1)) ? 1U : 0U;
    const std::size_t parent = index + lowBit(index);
    if (parent <= capacity()) sums_[parent] += sums_[index];
  }
}

void HiddenSlots::addToSums(Slot slot, bool taken) noexcept {
  for (std::size_t index = std::size_t{slot} + 1; index <= capacity(); index += lowBit(index)) {
    sums_[index] += taken ? 1U : ~std::uint32_t{0};
  }
}

}  // namespace tarvola::ado
