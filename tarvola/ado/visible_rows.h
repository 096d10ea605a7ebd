#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "tarvola/ado/hidden_slots.h"

namespace tarvola::ado {

/// The rows that a recordset shows, in their order: all rows of a set, or a list of some. A row that is removed or no
/// longer matches keeps its slot and is only hidden, so that a cursor that stood on it still knows its neighbours.
///
/// All rows of a set take no memory of their own.
class VisibleRows {
 public:
  using Slot = HiddenSlots::Slot;
  static constexpr Slot noSlot = std::numeric_limits<Slot>::max();

  /// Shows the rows 0 to rowCount - 1.
  void showAll(std::size_t rowCount);
  /// Shows the rows that the caller then puts into the list, in rising order. The list is empty; its memory is kept.
  std::vector<std::uint32_t>& startList();
  /// To be called when the list is complete.
  void endList() noexcept { slotCount_ = static_cast<Slot>(list_.size()); }

  [[nodiscard]] std::size_t count() const noexcept { return slotCount_ - hidden_.count(); }
  [[nodiscard]] std::uint32_t row(Slot slot) const noexcept { return isList_ ? list_[slot] : slot; }
  /// The slot of a row, hidden or not; noSlot for a row that is not in the list.
  [[nodiscard]] Slot slotOf(std::uint32_t row) const noexcept;
  [[nodiscard]] bool shows(std::uint32_t row) const noexcept;
  /// The slot at a position among the shown ones; the position must be below count().
  [[nodiscard]] Slot at(std::size_t position) const noexcept {
    return hidden_.any() ? hidden_.shownAt(position) : static_cast<Slot>(position);
  }
  /// How many shown slots lie in front of a slot.
  [[nodiscard]] std::size_t before(Slot slot) const noexcept {
    return hidden_.any() ? slot - hidden_.before(slot) : slot;
  }
  /// The shown slot behind a slot, which may itself be hidden; noSlot past the end.
  [[nodiscard]] Slot next(Slot slot) const noexcept;

  /// Adds a row at the end; its number must be higher than all others'.
  Slot append(std::uint32_t row);
  void hide(Slot slot) { hidden_.insert(slot); }
  void show(Slot slot) { hidden_.erase(slot); }
  [[nodiscard]] bool isHidden(Slot slot) const noexcept { return hidden_.contains(slot); }

  /// Calls visit(row) for each shown row in order.
  template <class Visit>
  void forEach(Visit visit) const {
    for (Slot slot = 0; slot < slotCount_; ++slot) {
      if (!hidden_.contains(slot)) visit(row(slot));
    }
  }

 private:
  HiddenSlots hidden_;
  std::vector<std::uint32_t> list_;
  Slot slotCount_ = 0;
  bool isList_ = false;
};

inline VisibleRows::Slot VisibleRows::next(Slot slot) const noexcept {
  ++slot;
  if (hidden_.contains(slot)) slot = hidden_.shownAt(before(slot));
  return slot < slotCount_ ? slot : noSlot;
}

}  // namespace tarvola::ado
