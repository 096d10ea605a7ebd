#include <utility>

#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/recordset_state.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

constexpr std::int32_t adAffectAllChapters = 4;

/// Keeps a flag up for as long as it lives.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  ~Raised() { flag_ = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
};

/// What a column that was never given a value holds in the store is no value.
Variant stored(Variant value) { return value.isEmpty() ? Variant::null() : std::move(value); }

}  // namespace

void Recordset::State::announceChange() {
  if (self.WillChangeRecord.empty()) return;
  const Raised raised(isAnnouncing);
  self.WillChangeRecord();
}

const ado::BaseTable& Recordset::State::requireBase() const {
  const ado::BaseTable* const base = rows->base();
  if (base == nullptr || base->name.empty()) {
    fail(ErrorNumber::Unspecified, std::string(insufficientBaseTableText));
  }
  return *base;
}

// A row of a chapter belongs to the parent's current row from the start.
void Recordset::State::addRow() {
  announceChange();
  const Cursor before = cursor;
  const auto row = static_cast<std::uint32_t>(rows->append());
  ado::VisibleRows::Slot slot = all.append(row);
  if (shown != &all) slot = shown->append(row);
  cursor = {.place = Place::OnRow, .slot = slot, .row = row};
  pending.mode = adEditAdd;
  pending.before = before;
  if (!childOfParent) return;
  for (const auto& [column, value] : childOfParent->values) setValue(column, value);
}

void Recordset::State::update() {
  announceChange();
  if (connection) sendToStore();
  pending.clear();
  refreshVisibility();
}

// Only columns that were given a value are named. What the store itself puts into the others is not read back.
void Recordset::State::sendToStore() {
  const ado::BaseTable& base = requireBase();
  std::vector<ado::ColumnValue> values;
  std::vector<ado::ColumnValue> expected;
  for (std::size_t i = 0; i < pending.columns.size(); ++i) {
    const std::string& name = base.columns[pending.columns[i]];
    if (name.empty()) fail(ErrorNumber::Unspecified, std::string(insufficientBaseTableText));
    values.push_back({.column = name, .value = stored(rows->cell(cursor.row, pending.columns[i]).toVariant())});
    expected.push_back({.column = name, .value = stored(pending.originals[i])});
  }
  ado::Session& session = *connection->session();
  if (pending.mode == adEditInProgress) {
    session.updateRow(base, rows->identity(cursor.row), values, expected);
    return;
  }
  if (values.empty()) fail(ErrorNumber::Unspecified, std::string(emptyRowText));
  rows->setIdentity(cursor.row, session.insertRow(base, values));
}

void Recordset::State::restoreOriginals() {
  for (std::size_t i = 0; i < pending.columns.size(); ++i) {
    const std::size_t column = pending.columns[i];
    const bool takesEmpty = rows->columns()[column].type == ado::ColumnType::Any;
    rows->set(cursor.row, column, takesEmpty ? pending.originals[i] : stored(pending.originals[i]));
    indexes.cellChanged(*rows, cursor.row, column);
  }
  pending.clear();
}

void Recordset::State::hideCurrentRow() {
  shown->hide(cursor.slot);
  if (shown != &all) all.hide(all.slotOf(cursor.row));
  if (childOfParent) childOfParent->removed.insert(cursor.row);
}

void Recordset::State::dropNewRow() {
  hideCurrentRow();
  cursor = pending.before;
  pending.clear();
}

void Recordset::AddNew() {
  State& state = *state_;
  state.requireOpen();
  state.requireWritable();
  const bool hasNoParentRow = state.childOfParent && !state.childOfParent->parentRow;
  if (hasNoParentRow) fail(ErrorNumber::NoCurrentRecord);
  state.move([&state] { state.addRow(); });
}

void Recordset::Update() {
  State& state = *state_;
  state.requireRow();
  state.requireIdle();
  if (!state.pending.any()) return;
  state.update();
  state.retargetChildren();
}

// Every earlier row has gone to the store when it was left, so that at most one is still to be sent.
void Recordset::UpdateBatch(std::int32_t affect) {
  State& state = *state_;
  state.requireOpen();
  state.requireIdle();
  const bool isGroup = affect == adAffectGroup && state.filterConstant != adFilterNone && state.shown->count() != 0;
  const bool isKnown = affect == adAffectCurrent || affect == adAffectAll || affect == adAffectAllChapters || isGroup;
  if (!isKnown) fail(ErrorNumber::WrongArguments);
  if (state.pending.any()) Update();
}

void Recordset::CancelUpdate() {
  State& state = *state_;
  state.requireRow();
  state.requireIdle();
  if (!state.pending.any()) fail(ErrorNumber::NotAllowedInThisContext);
  state.announceChange();
  if (state.pending.mode == adEditInProgress) return state.restoreOriginals();
  state.dropNewRow();
  state.retargetChildren();
}

// A row that was never sent is only thrown away. If the store refuses, row and pending changes stay as they are.
void Recordset::Delete(std::int32_t affect) {
  State& state = *state_;
  state.requireRow();
  state.requireIdle();
  if (affect != adAffectCurrent) fail(ErrorNumber::WrongArguments);
  state.requireWritable();
  state.announceChange();
  if (state.connection && state.pending.mode != adEditAdd) {
    state.connection->session()->deleteRow(state.requireBase(), state.rows->identity(state.cursor.row));
  }
  state.pending.clear();
  state.hideCurrentRow();
  state.cursor.place = State::Place::OnDeletedRow;
  state.retargetChildren();
}

}  // namespace tarvola
