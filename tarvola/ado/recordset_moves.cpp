#include "tarvola/ado/recordset_state.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {

using Slot = ado::VisibleRows::Slot;

void Recordset::State::goToSlot(Slot slot) noexcept {
  cursor = {.place = Place::OnRow, .slot = slot, .row = shown->row(slot)};
}

// Past an end by any number of rows is one place just outside.
void Recordset::State::goToPosition(std::int64_t position) noexcept {
  if (position < 0) {
    cursor = {.place = Place::Before};
  } else if (position >= static_cast<std::int64_t>(shown->count())) {
    cursor = {.place = Place::Behind};
  } else {
    goToSlot(shown->at(static_cast<std::size_t>(position)));
  }
}

// The parent's row goes first: rows of a chapter may hang on it.
void Recordset::State::leaveRow() {
  if (pending.any()) update();
  for (const Chapter& chapter : chapters) {
    if (chapter.child && chapter.child->state_->isOpen()) chapter.child->state_->leaveRow();
  }
}

void Recordset::State::endMove() {
  if (!chapters.empty()) retargetChildren();
  self.MoveComplete();
}

void Recordset::State::moveFrom(std::int64_t base, std::int32_t count) {
  if (shown->count() == 0) {
    cursor = {.place = Place::Behind};
    fail(ErrorNumber::NoCurrentRecord);
  }
  goToPosition(base + count);
}

// From outside only the way back in is open. A row that is gone leaves a gap: forward, the row behind the gap is the
// first one met.
void Recordset::State::moveFromCurrent(std::int32_t count) {
  switch (cursor.place) {
    case Place::Before:
      if (count <= 0) fail(ErrorNumber::NoCurrentRecord);
      return moveFrom(-1, count);
    case Place::Behind:
      if (count >= 0) fail(ErrorNumber::NoCurrentRecord);
      return moveFrom(static_cast<std::int64_t>(shown->count()), count);
    default:
      break;
  }
  if (count == 0) return requireRow();
  const bool isGap = shown->isHidden(cursor.slot);
  const auto base = static_cast<std::int64_t>(shown->before(cursor.slot));
  goToPosition(base + count - (isGap && count > 0 ? 1 : 0));
}

void Recordset::MoveFirst() {
  state_->move([this] { state_->moveFrom(0, 0); });
}

void Recordset::MoveLast() {
  state_->move([this] { state_->moveFrom(static_cast<std::int64_t>(state_->shown->count()), -1); });
}

void Recordset::MoveNext() {
  State& state = *state_;
  state.move([&state] {
    if (state.cursor.place != State::Place::OnRow) return state.moveFromCurrent(1);
    const Slot next = state.shown->next(state.cursor.slot);
    if (next == ado::VisibleRows::noSlot) {
      state.cursor = {.place = State::Place::Behind};
    } else {
      state.goToSlot(next);
    }
  });
}

void Recordset::MovePrevious() {
  state_->move([this] { state_->moveFromCurrent(-1); });
}

void Recordset::Move(std::int32_t count, std::int32_t start) {
  if (start < adBookmarkCurrent || start > adBookmarkLast) fail(ErrorNumber::WrongArguments);
  State& state = *state_;
  state.move([&state, count, start] {
    if (start == adBookmarkCurrent) return state.moveFromCurrent(count);
    const std::int64_t last = static_cast<std::int64_t>(state.shown->count()) - 1;
    state.moveFrom(start == adBookmarkFirst ? 0 : last, count);
  });
}

}  // namespace tarvola
