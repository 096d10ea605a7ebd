#include <utility>

#include "tarvola/ado/recordset_state.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {

// The same object at every reading: it shows the chapter of whatever row the parent stands on.
RecordsetPtr Recordset::State::chapterOf(std::size_t column) {
  requireRow();
  Chapter& chapter = chapters[column - (columnCount - chapters.size())];
  if (chapter.child) return chapter.child;
  RecordsetPtr child = Recordset::create();
  State& state = *child->state_;
  state.connection = connection;
  state.connectionOpening = connectionOpening;
  state.isReadOnly = isReadOnly;
  state.childOfParent = std::make_unique<ChildOfParent>();
  state.attach({.rows = chapter.source.rows, .chapters = {}});
  state.followParent(*this, chapter.source);
  chapter.child = child;
  return child;
}

// Without a parent's row the chapter is empty. A parent that stayed where it was, with the values it had, leaves the
// child's cursor alone.
bool Recordset::State::followParent(const State& parent, const ado::ShapeChapter& chapter) {
  ChildOfParent& link = *childOfParent;
  std::optional<std::uint32_t> parentRow;
  if (parent.cursor.place == Place::OnRow) parentRow = parent.cursor.row;
  std::vector<std::pair<std::uint32_t, Variant>> values;
  for (std::size_t i = 0; parentRow && i < chapter.relation.size(); ++i) {
    const ado::Cell key = parent.rows->cell(*parentRow, chapter.relation[i].parentColumn);
    values.emplace_back(static_cast<std::uint32_t>(chapter.relation[i].childColumn), key.toVariant());
  }
  if (link.parentRow == parentRow && link.values == values) return false;
  link.parentRow = parentRow;
  link.values = std::move(values);
  showChapter();
  return true;
}

// A relation is a filter of equalities that the parent's row gives, and answered like one; a Null finds nothing.
void Recordset::State::showChapter() {
  ChildOfParent& link = *childOfParent;
  std::vector<std::uint32_t>& list = all.startList();
  if (link.parentRow) {
    std::vector<ado::RowTest> tests;
    for (const auto& [column, value] : link.values) tests.emplace_back(column, rows->columns()[column].type, value);
    findRows(tests, list);
    std::erase_if(list, [&link](std::uint32_t row) { return link.removed.contains(row); });
  }
  all.endList();
  selectRows();
  goToFirst();
}

void Recordset::State::retargetChildren() {
  for (const Chapter& chapter : chapters) {
    if (!chapter.child || !chapter.child->state_->isOpen()) continue;
    State& child = *chapter.child->state_;
    // The parent stays on its row only if that row, or a child's, could not be sent: the pending changes stay, too.
    if (child.pending.any()) continue;
    if (child.followParent(*this, chapter.source)) child.endMove();
  }
}

// What is pending in a child has been asked for before; a parent that goes takes its children with it.
void Recordset::State::closeChildren() noexcept {
  for (const Chapter& chapter : chapters) {
    if (chapter.child) chapter.child->state_->detach();
  }
}

}  // namespace tarvola
