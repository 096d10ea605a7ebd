#pragma once

#include <utility>

#include "tarvola/ado/event.h"
#include "tarvola/ado/recordset.h"

namespace tarvola::store {

/// A recordset member whose moves its owner passes on: each MoveComplete of the recordset raises the owner's event. A
/// recordset that takes its place is heard from then on, the one before is not; WillChangeRecord is not listened to.
class WatchedRecordset {
 public:
  /// The event must outlive this object.
  explicit WatchedRecordset(Event<>& moved) noexcept : moved_(moved) {}
  ~WatchedRecordset() { leave(); }
  WatchedRecordset(const WatchedRecordset&) = delete;
  WatchedRecordset& operator=(const WatchedRecordset&) = delete;

  [[nodiscard]] const RecordsetPtr& get() const noexcept { return rows_; }

  void set(RecordsetPtr rows) {
    leave();
    rows_ = std::move(rows);
    if (rows_) token_ = rows_->MoveComplete.connect([this] { moved_(); });
  }

 private:
  // A recordset that was handed out lives on without its owner, so the handler must not stay behind.
  void leave() {
    if (rows_) rows_->MoveComplete.disconnect(token_);
  }

  Event<>& moved_;
  RecordsetPtr rows_;
  Event<>::Token token_ = 0;
};

}  // namespace tarvola::store
