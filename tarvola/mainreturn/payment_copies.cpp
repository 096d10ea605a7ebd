#include <array>
#include <cmath>
#include <string>
#include <unordered_map>

#include "tarvola/mainreturn/return_copy.h"
#include "tarvola/mainreturn/row_walk.h"
#include "tarvola/store/statement.h"

namespace tarvola::mainreturn {
namespace {

using store::Statement;

/// What a copy carries of a payment record beside its period.
constexpr std::array<std::string_view, 7> copiedColumns = {"NPWP", "KDMAP",  "KDJNSSTR", "TGLSSP",
                                                           "NTPP", "JMLBYR", "KodePasal"};

RecordsetPtr paymentsOf(const store::StoreObject& store, std::int16_t article, const store::Period& period) {
  return store.execute(Statement("select * from DATSSP where KodePasal =")
                       << std::int32_t{article} << " and MsPjk=" << std::int32_t{period.msPajak} << " and ThPjk="
                       << std::int32_t{period.thPajak} << " and KdPmbtln=" << std::int32_t{period.kdPembetulanKe});
}

/// The date of a payment enters as a day: a time of day is lost.
void appendDay(Statement& values, const ado::Cell& date) {
  if (date.isNull()) return appendValue(values, date);
  appendValue(values << "DATEVALUE(", date);
  values << ")";
}

void insertPayment(const store::StoreObject& store, const Recordset& row, const store::Period& target) {
  const auto append = [&row](Statement& values, std::string_view column) {
    appendValue(values, row.cell(row.column(column)));
  };
  Statement insert("INSERT INTO DATSSP(NPWP,MSPJK,THPJK,KDMAP,KDJNSSTR,TGLSSP,NTPP,JMLBYR,KodePasal,KdPmbtln) VALUES(");
  append(insert, "NPWP");
  insert << "," << std::int32_t{target.msPajak} << "," << std::int32_t{target.thPajak};
  for (const std::string_view column : {"KDMAP", "KDJNSSTR"}) append(insert << ",", column);
  appendDay(insert << ",", row.cell(row.column("TGLSSP")));
  for (const std::string_view column : {"NTPP", "JMLBYR", "KodePasal"}) append(insert << ",", column);
  store.execute(insert << "," << std::int32_t{target.kdPembetulanKe} << ") ;");
}

/// A date as the day that a copy has of it.
ado::Cell dayOf(const ado::Cell& value) {
  if (value.type() != Variant::Type::Date) return value;
  return ado::Cell::date(Date::fromSerial(std::floor(value.toDouble())));
}

/// What tells a record from others to a copy. Null is told from an empty text.
std::string contentOf(const Recordset& row) {
  std::string content;
  for (const std::string_view column : copiedColumns) {
    const ado::Cell value = dayOf(row.cell(row.column(column)));
    if (!value.isNull()) value.appendText(content += '=');
    content += ';';
  }
  return content;
}

}  // namespace

CopySource sourceOfPayments(const store::StoreObject& store, std::int16_t article, const store::Period& source) {
  return {.rows = paymentsOf(store, article, source), .foundBy = {}};
}

void copyPayments(const store::StoreObject& store, std::int16_t article, const store::Period& source,
                  const store::Period& target) {
  forEachRow(paymentsOf(store, article, source), "Copying payments",
             [&](const Recordset& row) { insertPayment(store, row, target); });
}

CopiedPayments copyMissingPayments(const store::StoreObject& store, std::int16_t article, const store::Period& source,
                                   const store::Period& target) {
  std::unordered_map<std::string, std::int64_t> held;
  for (const RecordsetPtr rows = paymentsOf(store, article, target); !rows->get_EOF(); rows->MoveNext())
    ++held[contentOf(*rows)];
  CopiedPayments result;
  forEachRow(paymentsOf(store, article, source), "Copying payments", [&](const Recordset& row) {
    const auto same = held.find(contentOf(row));
    if (same != held.end() && same->second > 0) {
      --same->second;
      ++result.thereAlready;
      return;
    }
    insertPayment(store, row, target);
    ++result.copied;
  });
  return result;
}

}  // namespace tarvola::mainreturn
