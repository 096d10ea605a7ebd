#include "tarvola/lists/attachment_rows.h"

#include <cstdint>

#include "tarvola/ado/cell.h"

namespace tarvola::lists {
namespace {

double countedPart(const ado::Cell& value) {
  if (value.isNull()) return 0;
  const double amount = value.toDouble();
  return amount >= 0 ? amount : 0;
}

}  // namespace

void removeRows(const store::StoreObject& store, std::string_view table, const store::Statement& condition) {
  using store::Statement;
  const auto found = store.execute(Statement("SELECT * FROM ") << store::name(table) << " WHERE " << condition);
  if (found->get_RecordCount() == 0) return;
  store.execute(Statement("DELETE * FROM ") << store::name(table) << " WHERE " << condition);
}

void removeFromOldStore(const store::StoreObject& store, std::string_view listName, const store::Period& period) {
  store.execute(store::Statement("DELETE * FROM DAT_FORM WHERE ((NmForm=")
                << store::bare(listName) << ") AND (MsPjk=" << std::int32_t{period.msPajak} << ") AND (ThPjk="
                << std::int32_t{period.thPajak} << ") AND (CorrSEQ=" << std::int32_t{period.kdPembetulanKe} << ") )");
}

ColumnSums addUp(const RecordsetPtr& rows, std::string_view firstColumn, std::string_view secondColumn) {
  ColumnSums sums;
  if (store::isEmptyResult(rows)) return sums;
  if (!rows->get_BOF()) rows->MoveFirst();
  const std::size_t first = rows->column(firstColumn);
  const std::size_t second = rows->column(secondColumn);
  for (; !rows->get_EOF(); rows->MoveNext()) {
    sums.first += countedPart(rows->cell(first));
    sums.second += countedPart(rows->cell(second));
  }
  return sums;
}

}  // namespace tarvola::lists
