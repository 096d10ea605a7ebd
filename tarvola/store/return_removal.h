#pragma once

#include <cstdint>
#include <string_view>

#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

namespace tarvola::store {

// The removal of a return, table by table. Each table is one statement that commits by itself, so a failure leaves the
// tables before it without the return and those behind it with it; the same removal again goes on from there only as
// long as DS_FORM_INDUK holds a document.

/// Whether DS_FORM_INDUK holds any document of the return.
bool hasDocuments(const StoreObject& store, std::string_view kdJenisPajak, const Period& period);

/// Removes documents and attachments of a return. The payees of interest slips (table D113210) stay. A kind that is
/// none of the five returns: error 5, and nothing is removed.
void removeDocuments(const StoreObject& store, std::string_view npwp, std::string_view kdJenisPajak,
                     const Period& period);

/// Removes the payees of the interest slips of a return, which removeDocuments leaves where they are. Only the return
/// of kind "113" has such.
void removeInterestPayees(const StoreObject& store, const Period& period);

/// What removePayments and removeTransfers take.
RecordsetPtr paymentsOfMonth(const StoreObject& store, std::string_view kdJenisPajak, std::int16_t month,
                             std::int16_t year);
RecordsetPtr transfersOfMonth(const StoreObject& store, std::string_view npwp, std::string_view kdJenisPajak,
                              std::int16_t month, std::int16_t year);

/// Removes the payment records of a month, of all its corrections; for the return that the library computes only those
/// of its account codes and kinds of payment.
void removePayments(const StoreObject& store, std::string_view kdJenisPajak, std::int16_t month, std::int16_t year);

/// Removes the transfers of payments in favour of a filer in a month.
void removeTransfers(const StoreObject& store, std::string_view npwp, std::string_view kdJenisPajak, std::int16_t month,
                     std::int16_t year);

}  // namespace tarvola::store
