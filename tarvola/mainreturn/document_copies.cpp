#include <array>
#include <vector>

#include "tarvola/mainreturn/return_copy.h"
#include "tarvola/mainreturn/row_walk.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/statement.h"

namespace tarvola::mainreturn {
namespace {

using store::FixedText;
using store::Statement;
using store::text;

/// A table of documents.
struct DocumentTable {
  FixedText name;
  FixedText forms;
  std::string_view task;
  /// Whether a row is found by its packed text as well. Two forms of one payment with one text are then copied as the
  /// first of them twice.
  bool findsByText = false;
  /// The columns behind the twelve that every document has.
  std::span<const std::string_view> furtherColumns = {};
};

constexpr std::array<std::string_view, 11> slipColumns = {"FlagNPWP",   "Total_Bruto",  "Total_PPh",  "Total_Bruto1",
                                                          "Total_PPh1", "Total_Bruto2", "Total_PPh2", "Total_Bruto3",
                                                          "Total_PPh3", "Total_Bruto4", "Total_PPh4"};

constexpr DocumentTable documentTable{
    .name = "DS_FORM_INDUK", .forms = formsOfReturn, .task = "Copying slips", .furtherColumns = slipColumns};
constexpr DocumentTable selfPaidTable{.name = "DAT_SSP_PPh22",
                                      .forms =
                                          "(KD_FORM = 'FSewaTnhBgn' OR KD_FORM = 'DSewaTnhBgn' "
                                          " OR KD_FORM = 'FJasaKonstruksi' OR KD_FORM = 'DJasaKonstruksi'  "
                                          " OR KD_FORM = 'FAlihTnhBgn' OR KD_FORM = 'DAlihTnhBgn')",
                                      .task = "Copying self-paid forms",
                                      .findsByText = true};

std::vector<std::string_view> fieldsThatFind(const DocumentTable& table, const CopyManner& manner) {
  std::vector<std::string_view> fields;
  if (manner.goesByFiler) fields.emplace_back("NPWP");
  fields.insert(fields.end(), {"KD_FORM", "NOBUKTI"});
  if (table.findsByText) fields.emplace_back("DAT_FORM");
  return fields;
}

std::vector<std::string_view> withDocumentCode(std::vector<std::string_view> fields) {
  fields.emplace_back("JENIS_DOKUMEN");
  return fields;
}

/// The rows of one table of documents, with what a loop over many thousand of them looks up once.
class DocumentRows {
 public:
  DocumentRows(const DocumentTable& table, const CopyManner& manner, RecordsetPtr rows)
      : rows_(std::move(rows)),
        kdForm_(rows_->column("KD_FORM")),
        criteria_(*rows_, fieldsThatFind(table, manner)),
        criteriaOfExchangeList_(*rows_, withDocumentCode(fieldsThatFind(table, manner))) {
    for (const std::string_view column : table.furtherColumns) further_.push_back(rows_->column(column));
  }

  [[nodiscard]] const RecordsetPtr& rows() const noexcept { return rows_; }
  [[nodiscard]] const std::vector<std::size_t>& furtherColumns() const noexcept { return further_; }

  [[nodiscard]] std::string_view formOfRow() const {
    const ado::Cell form = rows_->cell(kdForm_);
    return form.isText() ? form.text() : std::string_view();
  }
  [[nodiscard]] std::string criteriaOfRow() const {
    return (formOfRow() == exchangeList ? criteriaOfExchangeList_ : criteria_).ofCurrentRow();
  }

 private:
  RecordsetPtr rows_;
  std::size_t kdForm_;
  RowCriteria criteria_;
  RowCriteria criteriaOfExchangeList_;
  std::vector<std::size_t> further_;
};

Statement condition(const DocumentTable& table, const ReturnCopy& copy, const store::Period& period,
                    std::string_view npwp) {
  Statement condition(" WHERE ");
  condition << table.forms << " AND " << store::periodCondition(period)
            << " AND KD_JENIS_PAJAK = " << text(copy.kdJenisPajak);
  if (copy.manner.goesByFiler) condition << " AND NPWP = " << text(npwp);
  return condition;
}

/// The packed text of the row that the filter found, with the filer's number and the correction of the target in it.
std::string packedForTarget(const store::StoreObject& store, const ReturnCopy& copy, const DocumentRows& documents) {
  const RecordsetPtr fields = store.expand(documents.formOfRow(), documents.rows());
  const bool differs = Trim(store::fieldTextOr(fields, "npwp", "")) != Trim(copy.newNumber);
  if (differs || copy.manner.alwaysWritesNumber) store::setField(fields, "npwp", copy.newNumber);
  store::setField(fields, "KD_PEMBETULAN_KE", copy.target.kdPembetulanKe);
  return store.pack(fields);
}

void insertDocument(const store::StoreObject& store, const ReturnCopy& copy, const DocumentTable& table,
                    const DocumentRows& documents) {
  enum Ordinal : std::size_t { Npwp = 0, KdPembetulanKe = 5, DatForm = 8, Count = 12 };
  const std::string packed = packedForTarget(store, copy, documents);
  Statement insert("INSERT INTO ");
  insert << table.name
         << " (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,DAT_FORM,"
            "TGL_REKAM,TGL_UBAH,NIP";
  for (const std::string_view column : table.furtherColumns) insert << "," << store::name(column);
  insert << ") VALUES (";
  appendColumns(insert, *documents.rows(), Count, [&](std::size_t ordinal) {
    if (ordinal == KdPembetulanKe) {
      insert << std::int32_t{copy.target.kdPembetulanKe};
    } else if (ordinal == DatForm) {
      insert << text(packed);
    } else if (ordinal == Npwp && copy.manner.replacesNumberColumn) {
      insert << text(copy.newNumber);
    } else {
      return false;
    }
    return true;
  });
  for (const std::size_t column : documents.furtherColumns())
    appendValue(insert << ",", documents.rows()->cell(column));
  store.execute(insert << ")");
}

CopySource sourceOf(const store::StoreObject& store, const ReturnCopy& copy, const DocumentTable& table) {
  return {.rows = store.execute(Statement("SELECT * FROM ")
                                << table.name << condition(table, copy, copy.source, copy.oldNumber)
                                << " ORDER BY KD_FORM ASC"),
          .foundBy = fieldsThatFind(table, copy.manner)};
}

void copyTable(const store::StoreObject& store, const ReturnCopy& copy, const DocumentTable& table) {
  store.execute(Statement("DELETE * FROM ") << table.name << condition(table, copy, copy.target, copy.newNumber));
  const DocumentRows documents(table, copy.manner, sourceOf(store, copy, table).rows);
  forEachRowFiltered(
      documents.rows(), table.task, [&documents] { return documents.criteriaOfRow(); },
      [&] { insertDocument(store, copy, table, documents); });
}

}  // namespace

void copyDocuments(const store::StoreObject& store, const ReturnCopy& copy) { copyTable(store, copy, documentTable); }

void copySelfPaidForms(const store::StoreObject& store, const ReturnCopy& copy) {
  copyTable(store, copy, selfPaidTable);
}

CopySource sourceOfDocuments(const store::StoreObject& store, const ReturnCopy& copy) {
  return sourceOf(store, copy, documentTable);
}

CopySource sourceOfSelfPaidForms(const store::StoreObject& store, const ReturnCopy& copy) {
  return sourceOf(store, copy, selfPaidTable);
}

}  // namespace tarvola::mainreturn
