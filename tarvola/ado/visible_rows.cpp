#include "tarvola/ado/visible_rows.h"

namespace tarvola::ado {

void VisibleRows::showAll(std::size_t rowCount) {
  hidden_.clear();
  list_.clear();
  slotCount_ = static_cast<Slot>(rowCount);
  isList_ = false;
}

std::vector<std::uint32_t>& VisibleRows::startList() {
  showAll(0);
  isList_ = true;
  return list_;
}

VisibleRows::Slot VisibleRows::slotOf(std::uint32_t row) const noexcept {
  if (!isList_) return row < slotCount_ ? row : noSlot;
  const auto place = std::lower_bound(list_.begin(), list_.end(), row);
  return place != list_.end() && *place == row ? static_cast<Slot>(place - list_.begin()) : noSlot;
}

bool VisibleRows::shows(std::uint32_t row) const noexcept {
  const Slot slot = slotOf(row);
  return slot != noSlot && !isHidden(slot);
}

VisibleRows::Slot VisibleRows::append(std::uint32_t row) {
  if (isList_) list_.push_back(row);
  return slotCount_++;
}

}  // namespace tarvola::ado
