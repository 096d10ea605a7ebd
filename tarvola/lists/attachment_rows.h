#pragma once

#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"

namespace tarvola::lists {

// What the lists have in common: their attachment rows.

/// Deletes the rows of a table that meet a condition; without one nothing is run but the question.
void removeRows(const store::StoreObject& store, std::string_view table, const store::Statement& condition);

/// Deletes a list from the table of an older generation of stores; where it is missing, as it usually is, this fails.
void removeFromOldStore(const store::StoreObject& store, std::string_view listName, const store::Period& period);

/// The sums of two columns.
struct ColumnSums {
  double first = 0;
  double second = 0;
};
/// Adds up two columns over all rows, unrounded, and leaves the cursor behind the last one. A Null or negative value
/// does not count. Error 91 without a recordset.
ColumnSums addUp(const RecordsetPtr& rows, std::string_view firstColumn, std::string_view secondColumn);

}  // namespace tarvola::lists
