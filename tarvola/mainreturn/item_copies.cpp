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

CopySource sourceOf(const store::StoreObject& store, const ReturnCopy& copy, const ItemTable& table) {
  return {.rows = store.execute(Statement("SELECT * FROM ")
                                << table.name << condition(table, copy.source) << " ORDER BY KD_FORM ASC"),
          .foundBy = {table.fieldsThatFind.begin(), table.fieldsThatFind.end()}};
}

void copyTable(const store::StoreObject& store, const ReturnCopy& copy, const ItemTable& table) {
  store.execute(Statement("DELETE * FROM ") << table.name << condition(table, copy.target));
  const CopySource source = sourceOf(store, copy, table);
  const RowCriteria criteria(*source.rows, source.foundBy);
  forEachRowFiltered(
      source.rows, table.task, [&criteria] { return criteria.ofCurrentRow(); },
      [&] { insertItem(store, table, *source.rows, copy.target.kdPembetulanKe); });
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

}  // namespace

void copyListItems(const store::StoreObject& store, const ReturnCopy& copy) { copyTable(store, copy, listItems); }

void copySelfPaidListItems(const store::StoreObject& store, const ReturnCopy& copy) {
  copyTable(store, copy, selfPaidListItems);
}

CopySource sourceOfListItems(const store::StoreObject& store, const ReturnCopy& copy) {
  return sourceOf(store, copy, listItems);
}

CopySource sourceOfSelfPaidListItems(const store::StoreObject& store, const ReturnCopy& copy) {
  return sourceOf(store, copy, selfPaidListItems);
}

CopySource sourceOfPayees(const store::StoreObject& store, const ReturnCopy& copy) {
  return {.rows = store.execute(Statement("SELECT * FROM D113210 WHERE ") << store::periodCondition(copy.source)),
          .foundBy = {}};
}

void copyPayees(const store::StoreObject& store, const ReturnCopy& copy) {
  store.execute(Statement("DELETE * FROM D113210 WHERE ") << store::periodCondition(copy.target));
  forEachRow(sourceOfPayees(store, copy).rows, "Copying interest payees",
             [&](const Recordset& row) { insertPayee(store, copy, row); });
}

}  // namespace tarvola::mainreturn
