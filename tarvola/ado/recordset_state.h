#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "tarvola/ado/connection.h"
#include "tarvola/ado/fields.h"
#include "tarvola/ado/filter.h"
#include "tarvola/ado/filter_index.h"
#include "tarvola/ado/hidden_slots.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/ado/row_test.h"
#include "tarvola/ado/rows.h"
#include "tarvola/ado/shape.h"
#include "tarvola/ado/visible_rows.h"

namespace tarvola {

/// What a recordset consists of. Inside the recordset layer only.
struct Recordset::State {
  /// Where the cursor stands. Without visible rows both ends are one; Behind then stands for both.
  enum class Place : std::uint8_t { Before, OnRow, OnDeletedRow, Behind };
  /// The slot may be hidden: the row was removed, or the filter shows it no longer. The next move then goes on from the
  /// gap that it left, so that no row is skipped.
  struct Cursor {
    Place place = Place::Behind;
    ado::VisibleRows::Slot slot = 0;
    std::uint32_t row = 0;
  };

  /// The row that is being edited or added: which columns have new values, and what they held before.
  struct PendingEdit {
    std::int32_t mode = adEditNone;
    std::vector<std::uint32_t> columns;
    std::vector<Variant> originals;
    /// Of AddNew: where CancelUpdate returns to.
    Cursor before;

    [[nodiscard]] bool any() const noexcept { return mode != adEditNone; }
    [[nodiscard]] const Variant* original(std::size_t column) const noexcept;
    void clear() noexcept;
  };

  struct CriteriaFilter {
    ado::Filter text;
    ado::RowCriteria criteria;
  };

  struct Chapter {
    ado::ShapeChapter source;
    /// Made when the column is first read; from then on it follows the parent's moves.
    RecordsetPtr child;
  };

  /// Of a recordset that shows the chapter of a parent's row.
  struct ChildOfParent {
    /// The child's columns of the relation with the values of the parent's row, which new rows are given.
    std::vector<std::pair<std::uint32_t, Variant>> values;
    /// Rows that were removed, whatever parent they belonged to.
    ado::HiddenSlots removed;
    /// The parent's row whose chapter is shown.
    std::optional<std::uint32_t> parentRow;
  };

  explicit State(Recordset& owner) : self(owner) {}
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  // --- what may be done now (recordset.cpp) ---
  [[nodiscard]] bool isOpen() const noexcept {
    return rows && (!connection || connection->opening() == connectionOpening);
  }
  void requireOpen() const {
    if (!isOpen()) failClosed();
  }
  void requireRow() const {
    if (cursor.place != Place::OnRow || !isOpen()) failWithoutRow();
  }
  void requireWritable() const;
  /// No operation can be nested into the announcement of a change.
  void requireIdle() const {
    if (isAnnouncing) failAnnouncing();
  }
  [[noreturn]] static void failClosed();
  [[noreturn]] void failWithoutRow() const;
  [[noreturn]] static void failAnnouncing();

  // --- opening and closing (recordset_open.cpp) ---
  void attach(ado::ShapeResult result);
  void detach() noexcept;
  void requireNothingPendingForStore() const;

  // --- the cursor (recordset_moves.cpp) ---
  /// Runs one step of the cursor. Changes of the row that is left are sent first; if that fails the cursor stays. The
  /// end is told to children and handlers whether the step succeeds or fails.
  template <class Step>
  void move(Step step);
  /// Sends what is pending in the current row and in the children's.
  void leaveRow();
  void endMove();
  void goToSlot(ado::VisibleRows::Slot slot) noexcept;
  void goToPosition(std::int64_t position) noexcept;
  void goToFirst() noexcept { goToPosition(0); }
  void moveFrom(std::int64_t base, std::int32_t count);
  void moveFromCurrent(std::int32_t count);

  // --- values (recordset_values.cpp) ---
  [[nodiscard]] std::size_t columnOf(const Variant& nameOrOrdinal) const;
  [[nodiscard]] bool isChapter(std::size_t column) const noexcept { return column >= columnCount - chapters.size(); }
  [[nodiscard]] Variant value(std::size_t column);
  [[nodiscard]] Variant originalValue(std::size_t column);
  void setValue(std::size_t column, const Variant& newValue);

  // --- changes (recordset_edit.cpp) ---
  void announceChange();
  void addRow();
  void update();
  void sendToStore();
  [[nodiscard]] const ado::BaseTable& requireBase() const;
  void restoreOriginals();
  void dropNewRow();
  void hideCurrentRow();

  // --- what is shown (recordset_filter.cpp) ---
  void selectRows();
  [[nodiscard]] bool filterShows(std::size_t row) const;
  void findRows(std::span<const ado::RowTest> tests, std::vector<std::uint32_t>& found);
  void refreshVisibility();
  void setFilterText(const std::string& criteria);
  void setFilterConstant(std::int32_t constant);

  // --- chapters (recordset_chapters.cpp) ---
  [[nodiscard]] RecordsetPtr chapterOf(std::size_t column);
  /// Whether the chapter is another one than before.
  bool followParent(const State& parent, const ado::ShapeChapter& chapter);
  void showChapter();
  void retargetChildren();
  void closeChildren() noexcept;

  Recordset& self;
  ado::RowsPtr rows;  ///< null while closed
  Cursor cursor;
  bool isReadOnly = false;
  bool isAnnouncing = false;
  std::uint32_t connectionOpening = 0;
  std::size_t columnCount = 0;
  ConnectionPtr connection;  ///< null for rows made in memory
  std::string source;

  /// All rows that were not removed (of a child: those of its chapter), and those of them that the filter shows.
  ado::VisibleRows all;
  ado::VisibleRows matches;
  ado::VisibleRows* shown = &all;

  PendingEdit pending;
  std::unique_ptr<CriteriaFilter> filter;
  /// The last filter but one, whose memory the next one uses.
  std::unique_ptr<CriteriaFilter> spareFilter;
  /// A filter by a constant instead of a criteria text; 0 for none.
  std::int32_t filterConstant = adFilterNone;
  ado::FilterIndexes indexes;

  std::vector<Chapter> chapters;
  std::unique_ptr<ChildOfParent> childOfParent;

  std::unique_ptr<Fields> fields;
  std::string dataMember;
  std::int32_t cursorLocation = 2;
};

template <class Step>
void Recordset::State::move(Step step) {
  requireOpen();
  requireIdle();
  try {
    if (pending.any() || !chapters.empty()) leaveRow();
    step();
  } catch (...) {
    endMove();
    throw;
  }
  endMove();
}

}  // namespace tarvola
