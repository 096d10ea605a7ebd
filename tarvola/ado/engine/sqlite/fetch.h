#pragma once

#include <sqlite3.h>

#include "tarvola/ado/table_rows.h"

namespace tarvola::ado::engine::sqlite {

/// Adds the row on which the statement stands. A value comes in its column's type; one that does not fit comes as what
/// it is. Behind the columns stands the identity if the rows have a base table.
void fetchRow(sqlite3_stmt* statement, TableRows& rows);

}  // namespace tarvola::ado::engine::sqlite
