#include <utility>

#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/recordset_state.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

constexpr std::int32_t adLockPessimistic = 2;
constexpr std::int32_t adCmdUnknown = 8;

ado::ShapeResult runSource(std::string_view source, ado::Session& session) {
  if (ado::isShapeCommand(source)) return ado::openShape(source, session);
  return {.rows = session.run(source).rows, .chapters = {}};
}

/// A pessimistic lock is replaced by the nearest one that a client cursor has. Rows that only UpdateBatch sends are
/// not kept by this layer; taking them for ones that are sent at once would write what nobody asked to be written.
void requireKnownLock(std::int32_t lockType) {
  if (lockType == adLockBatchOptimistic) fail(ErrorNumber::NotCapable);
  if (lockType != adLockReadOnly && lockType != adLockPessimistic && lockType != adLockOptimistic) {
    fail(ErrorNumber::WrongArguments);
  }
}

void requireCommandText(std::int32_t options) {
  if (options != adCmdUnspecified && options != adCmdText && options != adCmdUnknown) {
    fail(ErrorNumber::WrongArguments);
  }
}

}  // namespace

RecordsetPtr Recordset::over(ado::RowsPtr rows) {
  RecordsetPtr recordset = create();
  recordset->state_->attach({.rows = std::move(rows), .chapters = {}});
  return recordset;
}

RecordsetPtr Recordset::snapshot(ado::RowsPtr rows, ConnectionPtr connection) {
  RecordsetPtr recordset = create();
  State& state = *recordset->state_;
  state.connectionOpening = connection ? connection->opening() : 0;
  state.connection = std::move(connection);
  state.isReadOnly = true;
  state.attach({.rows = std::move(rows), .chapters = {}});
  return recordset;
}

// Every cursor becomes a static one, whatever type is asked for.
void Recordset::Open(std::string_view source, const ConnectionPtr& connection, std::int32_t /*cursorType*/,
                     std::int32_t lockType, std::int32_t options) {
  State& state = *state_;
  if (state.isOpen()) fail(ErrorNumber::ObjectOpen);
  if (!connection) fail(ErrorNumber::ConnectionUnusable);
  requireKnownLock(lockType);
  requireCommandText(options);
  ado::ShapeResult result = runSource(source, *connection->session());
  if (!result.rows) return;
  if (state.rows) state.detach();
  state.source = source;
  state.connection = connection;
  state.connectionOpening = connection->opening();
  state.isReadOnly = lockType == adLockReadOnly;
  state.attach(std::move(result));
  MoveComplete();
}

void Recordset::Close() {
  state_->requireOpen();
  state_->requireIdle();
  state_->requireNothingPendingForStore();
  state_->detach();
}

// The children of before keep nothing that is still true, so they end here.
void Recordset::Requery(std::int32_t /*options*/) {
  State& state = *state_;
  state.requireOpen();
  state.requireIdle();
  if (state.pending.any()) fail(ErrorNumber::NotAllowedInThisContext);
  state.requireNothingPendingForStore();
  if (!state.connection || state.source.empty()) fail(ErrorNumber::NotCapable);
  state.attach(runSource(state.source, *state.connection->session()));
  MoveComplete();
}

void Recordset::State::requireNothingPendingForStore() const {
  if (pending.any() && connection) fail(ErrorNumber::NotAllowedInThisContext);
  for (const Chapter& chapter : chapters) {
    if (chapter.child) chapter.child->state_->requireNothingPendingForStore();
  }
}

// A filter may have been set while the recordset was closed, or stands since before a Requery. It is bound to the new
// columns before anything changes.
void Recordset::State::attach(ado::ShapeResult result) {
  if (!result.rows) fail(ErrorNumber::ObjectClosed);
  if (filter) {
    ado::RowCriteria criteria;
    criteria.bind(filter->text, result.rows->columns());
    filter->criteria = std::move(criteria);
  }
  closeChildren();
  chapters.clear();
  for (ado::ShapeChapter& chapter : result.chapters) chapters.push_back({.source = std::move(chapter), .child = {}});
  rows = std::move(result.rows);
  columnCount = rows->columns().count();
  pending.clear();
  indexes.clear();
  all.showAll(rows->count());
  selectRows();
  goToFirst();
}

void Recordset::State::detach() noexcept {
  closeChildren();
  chapters.clear();
  rows.reset();
  connection.reset();
  childOfParent.reset();
  filter.reset();
  filterConstant = adFilterNone;
  columnCount = 0;
  cursor = {};
  pending.clear();
  indexes.clear();
  all.showAll(0);
  shown = &all;
}

}  // namespace tarvola
