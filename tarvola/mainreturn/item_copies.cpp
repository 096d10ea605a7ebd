#include <algorithm>
#include <array>

#include "tarvola/mainreturn/return_copy.h"
#include "tarvola/mainreturn/row_walk.h"
#include "tarvola/store/statement.h"

namespace tarvola::mainreturn {
namespace {

using store::FixedText;
using store::Statement;

/// A table of list items.
struct ItemTable {
  FixedText name;
  FixedText forms;
  std::string_view task;
  /// By what a row is found. Where SEQ is not in it, several rows of one slip are copied as the first of them.
  std::span<const std::string_view> fieldsThatFind;
};

constexpr std::array<std::string_view, 3> itemOfSlip = {"KD_FORM", "NOBUKTI", "COLLNO"};
constexpr std::array<std::string_view, 4> itemOfList = {"KD_FORM", "NOBUKTI", "COLLNO", "SEQ"};

constexpr ItemTable listItems{.name = "DS_FORM_LAMPIRAN",
                              .forms = formsOfReturn,
                              .task = "Copying the list of slips",
                              .fieldsThatFind = itemOfSlip};
constexpr ItemTable selfPaidListItems{
    .name = "LAMPIRAN_SSP_PPh22",
    .forms = "(KD_FORM = 'DSewaTnhBgn' OR KD_FORM = 'DJasaKonstruksi'  OR KD_FORM = 'DAlihTnhBgn')",
    .task = "Copying the self-paid lists",
    .fieldsThatFind = itemOfList};

// The tables of items have no column for the filer or the kind of return.
Statement condition(const ItemTable& table, const store::Period& period) {
  return Statement(" WHERE ") << table.forms << " AND " << store::periodCondition(period);
}

void insertItem(const store::StoreObject& store, const ItemTable& table, const Recordset& row,
                std::int16_t correction) {
  enum Ordinal : std::size_t { KdPembetulanKe = 3, Count = 8 };
  Statement insert("INSERT INTO ");
  insert << table.name << " VALUES (";
  appendColumns(insert, row, Count, [&](std::size_t ordinal) {
    if (ordinal != KdPembetulanKe) return false;
    insert << std::int32_t{correction};
    return true;
  });
  store.execute(insert << ")");
}

void copyTable(const store::StoreObject& store, const ReturnCopy& copy, const ItemTable& table) {
  store.execute(Statement("DELETE * FROM ") << table.name << condition(table, copy.target));
  const RecordsetPtr rows = store.execute(Statement("SELECT * FROM ")
                                          << table.name << condition(table, copy.source) << " ORDER BY KD_FORM ASC");
  const RowCriteria criteria(*rows, table.fieldsThatFind);
  forEachRowFiltered(
      rows, table.task, [&criteria] { return criteria.ofCurrentRow(); },
      [&] { insertItem(store, table, *rows, copy.target.kdPembetulanKe); });
}

/// As read, a rate of 17.5 is "17,5" where the decimal sign is a comma: two values, so that the statement has one too
/// many and fails.
void appendRate(Statement& values, const ado::Cell& rate, const CopyManner& manner) {
  if (!manner.splicesRateAsRead || rate.isNull()) return appendValue(values, rate);
  std::string asRead;
  rate.appendText(asRead);
  const std::string_view text = asRead;
  const std::size_t comma = std::min(text.find(','), text.size());
  values << store::bare(text.substr(0, comma));
  if (comma != text.size()) values << "," << store::bare(text.substr(comma + 1));
}

void insertPayee(const store::StoreObject& store, const ReturnCopy& copy, const Recordset& row) {
  enum Ordinal : std::size_t { KdPembetulanKe = 5, Tarif = 11, Count = 15 };
  Statement insert(
      "INSERT INTO D113210(NPWP, NMWP, ALM, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, TGL_POTONG,NOBUKTI,JENIS,TEMPAT, "
      "BRUTO, TARIF, PPH, ATR1, ATR2) VALUES (");
  appendColumns(insert, row, Count, [&](std::size_t ordinal) {
    if (ordinal == KdPembetulanKe) insert << std::int32_t{copy.target.kdPembetulanKe};
    if (ordinal == Tarif) appendRate(insert, row.cell(ordinal), copy.manner);
    return ordinal == KdPembetulanKe || ordinal == Tarif;
  });
  store.execute(insert << ")");
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

}  // namespace

void copyListItems(const store::StoreObject& store, const ReturnCopy& copy) { copyTable(store, copy, listItems); }

void copySelfPaidListItems(const store::StoreObject& store, const ReturnCopy& copy) {
  copyTable(store, copy, selfPaidListItems);
}

void copyPayees(const store::StoreObject& store, const ReturnCopy& copy) {
  store.execute(Statement("DELETE * FROM D113210 WHERE ") << store::periodCondition(copy.target));
  forEachRow(store.execute(Statement("SELECT * FROM D113210 WHERE ") << store::periodCondition(copy.source)),
             "Copying interest payees", [&](const Recordset& row) { insertPayee(store, copy, row); });
}

void copyPayments(const store::StoreObject& store, std::int16_t article, const store::Period& source,
                  const store::Period& target) {
  forEachRow(store.execute(Statement("select * from DATSSP where KodePasal =")
                           << std::int32_t{article} << " and MsPjk=" << std::int32_t{source.msPajak} << " and ThPjk="
                           << std::int32_t{source.thPajak} << " and KdPmbtln=" << std::int32_t{source.kdPembetulanKe}),
             "Copying payments", [&](const Recordset& row) { insertPayment(store, row, target); });
}

}  // namespace tarvola::mainreturn
