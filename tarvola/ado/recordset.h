#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/cell.h"
#include "tarvola/ado/connection.h"
#include "tarvola/ado/constants.h"
#include "tarvola/ado/event.h"
#include "tarvola/ado/rows.h"
#include "tarvola/runtime/variant.h"

namespace tarvola {

class Field;
class Fields;

/// Rows with a current row, as a client cursor holds them: read whole at Open, changed in memory, written back row by
/// row.
///
/// Behaviour is that of a static client cursor under optimistic lock: a change goes to the store at Update, which
/// any move off the row, AddNew, UpdateBatch and a new Filter perform by themselves. What others write to the store
/// is not seen until Requery. Without a connection (rows made in memory) a change stays in memory.
///
/// Members that need a current row fail with error 3021 without one; on a closed recordset every member but Open,
/// put_Filter and the state fails with 3704.
class Recordset : public std::enable_shared_from_this<Recordset> {
 public:
  static RecordsetPtr create();
  /// A recordset over rows made in memory; the first row is current.
  static RecordsetPtr over(ado::RowsPtr rows);
  /// A read-only snapshot of rows that a connection delivered.
  static RecordsetPtr snapshot(ado::RowsPtr rows, ConnectionPtr connection);
  ~Recordset();

  /// Error 3705 while it is open.
  void put_CursorLocation(std::int32_t location);
  /// The client's (3) once it is open, whatever was asked for: rows are always held as a client cursor holds them.
  std::int32_t get_CursorLocation() const noexcept;

  /// Runs a SELECT or SHAPE text and holds its rows. Already open: error 3705. A statement without rows leaves it
  /// closed. The cursor is static whatever is asked for; a lock is read-only (1) or optimistic (3, and 2 is taken for
  /// it). Rows that only UpdateBatch would send (4) are not kept: error 3251.
  void Open(std::string_view source, const ConnectionPtr& connection, std::int32_t cursorType = adOpenStatic,
            std::int32_t lockType = adLockOptimistic, std::int32_t options = adCmdUnspecified);
  /// Error 3219 while a row is being edited that the store has not got yet, in a chapter too. Closes the chapters.
  void Close();
  /// adStateClosed also after the connection was closed behind it.
  std::int32_t get_State() const noexcept;

  bool get_BOF() const;
  bool get_EOF() const;
  /// Rows that the filter shows.
  std::int32_t get_RecordCount() const;
  /// Counted from 1 among the visible rows; -1 without rows and on a row that was removed or has left the filter, -2 at
  /// BOF, -3 at EOF.
  std::int32_t get_AbsolutePosition() const;
  std::int32_t get_EditMode() const;

  void MoveFirst();
  void MoveNext();
  void MovePrevious();
  void MoveLast();
  /// So many rows from the current row, the first (start 1) or the last (start 2). Past an end it lands just outside.
  void Move(std::int32_t count, std::int32_t start = adBookmarkCurrent);

  Fields& get_Fields();
  Variant get_Collect(const Variant& nameOrOrdinal) const;
  void put_Collect(const Variant& nameOrOrdinal, const Variant& value);

  /// A new row at the end, current and counted at once; written by the next Update.
  void AddNew();
  /// Sends the row being edited or added. If the store refuses, it stays current and in edit mode with its new values,
  /// and no move leaves it before an Update that succeeds or a CancelUpdate.
  void Update();
  /// Brings back what the row held; a row being added goes, and the row of before is current. Nothing pending: 3219.
  void CancelUpdate();
  /// Removes the current row from the store at once. The cursor stays on the dead row until a move.
  void Delete(std::int32_t affect = adAffectCurrent);
  /// Sends the row being edited or added; nothing else can be pending.
  void UpdateBatch(std::int32_t affect = adAffectAll);
  /// Reads the same text anew; a criteria filter is applied again. Chapters that were handed out are closed. Error 3219
  /// while a row is being edited or added, 3251 for rows without a text (made in memory, or a snapshot).
  void Requery(std::int32_t options = adCmdUnspecified);

  /// A criteria text ("KD_FORM = 'F113309' AND NOBUKTI = '000001/PPH4'"), or 0 or "" for all rows. The first row that
  /// matches becomes current. The filter lives: a row that no longer matches once it is updated leaves the visible
  /// rows, but stays current until a move. A text that is no criteria: error 3001, an unknown field 3265; the filter of
  /// before then stands.
  void put_Filter(const Variant& criteria);
  Variant get_Filter() const;

  /// The visible rows from the current one on as text; the cursor ends behind the last row taken.
  std::string GetString(std::int32_t format = adClipString, std::int32_t rowCount = -1,
                        std::string_view columnDelimiter = "\t", std::string_view rowDelimiter = "\r",
                        std::string_view nullText = "");

  /// Names the data member that the recordset shows, for screens that bind to it.
  void put_DataMember(std::string name);
  const std::string& get_DataMember() const noexcept;

  /// A move has ended, also at either end and after a failure.
  Event<> MoveComplete;
  /// A row is about to be added, changed, sent or removed.
  Event<> WillChangeRecord;

  // --- for loops over many rows: a column is looked up once, its cells are read without a copy -------------------
  /// The column's place; error 3265 for an unknown name.
  [[nodiscard]] std::size_t column(std::string_view name) const;
  /// The value of the current row there.
  [[nodiscard]] ado::Cell cell(std::size_t column) const;
  /// The numbers of the visible rows in their order, for a walk that leaves the cursor where it is.
  [[nodiscard]] std::vector<std::size_t> visibleRows() const;
  /// The rows behind the recordset, and the number of the current one.
  [[nodiscard]] const ado::RowsPtr& rows() const;
  [[nodiscard]] std::size_t currentRow() const;

 private:
  Recordset();
  friend class Field;
  friend class Fields;
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tarvola
