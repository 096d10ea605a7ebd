#include "tarvola/ado/recordset.h"

#include <utility>

#include "tarvola/ado/recordset_state.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

constexpr std::int32_t positionUnknown = -1;
constexpr std::int32_t positionBof = -2;
constexpr std::int32_t positionEof = -3;

}  // namespace

Recordset::Recordset() : state_(std::make_unique<State>(*this)) {}
Recordset::~Recordset() = default;

// One block of memory for the object and its count of owners.
RecordsetPtr Recordset::create() {
  struct Created final : Recordset {};
  return std::make_shared<Created>();
}

void Recordset::State::failClosed() { fail(ErrorNumber::ObjectClosed); }
void Recordset::State::failAnnouncing() { fail(ErrorNumber::ProcessingEvent); }

void Recordset::State::failWithoutRow() const {
  requireOpen();
  fail(cursor.place == Place::OnDeletedRow ? ErrorNumber::RowDeleted : ErrorNumber::NoCurrentRecord);
}

void Recordset::State::requireWritable() const {
  if (isReadOnly) fail(ErrorNumber::NotCapable, std::string(updatingNotSupportedText));
}

void Recordset::put_CursorLocation(std::int32_t location) {
  if (state_->isOpen()) fail(ErrorNumber::ObjectOpen);
  state_->cursorLocation = location;
}

std::int32_t Recordset::get_CursorLocation() const noexcept {
  return state_->isOpen() ? adUseClient : state_->cursorLocation;
}

std::int32_t Recordset::get_State() const noexcept { return state_->isOpen() ? adStateOpen : adStateClosed; }

bool Recordset::get_BOF() const {
  const State& state = *state_;
  state.requireOpen();
  switch (state.cursor.place) {
    case State::Place::Before:
      return true;
    case State::Place::Behind:
      return state.shown->count() == 0;
    default:
      return false;
  }
}

bool Recordset::get_EOF() const {
  const State& state = *state_;
  state.requireOpen();
  switch (state.cursor.place) {
    case State::Place::Behind:
      return true;
    case State::Place::Before:
      return state.shown->count() == 0;
    default:
      return false;
  }
}

std::int32_t Recordset::get_RecordCount() const {
  state_->requireOpen();
  return static_cast<std::int32_t>(state_->shown->count());
}

// A row that was removed or left the filter has no position of its own until the next move.
std::int32_t Recordset::get_AbsolutePosition() const {
  const State& state = *state_;
  state.requireOpen();
  if (state.cursor.place == State::Place::OnRow && !state.shown->isHidden(state.cursor.slot)) {
    return static_cast<std::int32_t>(state.shown->before(state.cursor.slot)) + 1;
  }
  const bool isAtEnd = state.cursor.place == State::Place::Before || state.cursor.place == State::Place::Behind;
  if (!isAtEnd || state.shown->count() == 0) return positionUnknown;
  return state.cursor.place == State::Place::Before ? positionBof : positionEof;
}

std::int32_t Recordset::get_EditMode() const {
  state_->requireRow();
  return state_->pending.mode;
}

void Recordset::put_DataMember(std::string name) { state_->dataMember = std::move(name); }
const std::string& Recordset::get_DataMember() const noexcept { return state_->dataMember; }

std::size_t Recordset::column(std::string_view name) const {
  state_->requireOpen();
  const auto column = state_->rows->columns().find(name);
  if (!column) fail(ErrorNumber::ItemNotFound);
  return *column;
}

ado::Cell Recordset::cell(std::size_t column) const {
  const State& state = *state_;
  state.requireRow();
  if (column >= state.columnCount) fail(ErrorNumber::ItemNotFound);
  return state.rows->cell(state.cursor.row, column);
}

std::vector<std::size_t> Recordset::visibleRows() const {
  state_->requireOpen();
  std::vector<std::size_t> rows;
  rows.reserve(state_->shown->count());
  state_->shown->forEach([&rows](std::uint32_t row) { rows.push_back(row); });
  return rows;
}

const ado::RowsPtr& Recordset::rows() const {
  state_->requireOpen();
  return state_->rows;
}

std::size_t Recordset::currentRow() const {
  state_->requireRow();
  return state_->cursor.row;
}

}  // namespace tarvola
