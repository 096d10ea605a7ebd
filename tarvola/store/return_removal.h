#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/runtime/progress.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

namespace tarvola::store {

// The removal of a return, table by table. Each table is one statement that commits by itself, so a failure leaves the
// tables before it without the return and those behind it with it; the same removal again goes on from there only as
// long as DS_FORM_INDUK holds a document.

/// Tells how many rows a removal has taken so far, table by table.
class RemovalProgress {
 public:
  /// Without the number of all rows, progress tells only of those that are gone.
  explicit RemovalProgress(std::int64_t rowsInAll = 0) noexcept
      : progress_("Removing the return", static_cast<std::uint64_t>(rowsInAll)) {}

  void removed(std::int64_t rows) noexcept { progress_.done(rows_ += static_cast<std::uint64_t>(rows)); }

 private:
  Progress progress_;
  std::uint64_t rows_ = 0;
};

/// Whether DS_FORM_INDUK holds any document of the return.
bool hasDocuments(const StoreObject& store, std::string_view kdJenisPajak, const Period& period);

/// Removes documents and attachments of a return. The payees of interest slips (table D113210) stay. A kind that is
/// none of the five returns: error 5, and nothing is removed.
void removeDocuments(const StoreObject& store, std::string_view npwp, std::string_view kdJenisPajak,
                     const Period& period, RemovalProgress& progress);

/// Removes the payees of the interest slips of a return, which removeDocuments leaves where they are. Only the return
/// of kind "113" has such.
void removeInterestPayees(const StoreObject& store, const Period& period, RemovalProgress& progress);

/// What removePayments and removeTransfers take.
RecordsetPtr paymentsOfMonth(const StoreObject& store, std::string_view kdJenisPajak, std::int16_t month,
                             std::int16_t year);
RecordsetPtr transfersOfMonth(const StoreObject& store, std::string_view npwp, std::string_view kdJenisPajak,
                              std::int16_t month, std::int16_t year);

/// Removes the payment records of a month, of all its corrections; for the return that the library computes only those
/// of its account codes and kinds of payment.
void removePayments(const StoreObject& store, std::string_view kdJenisPajak, std::int16_t month, std::int16_t year,
                    RemovalProgress& progress);

/// Removes the transfers of payments in favour of a filer in a month.
void removeTransfers(const StoreObject& store, std::string_view npwp, std::string_view kdJenisPajak, std::int16_t month,
                     std::int16_t year, RemovalProgress& progress);

}  // namespace tarvola::store
