#include "tarvola/mainreturn/copy_obstacles.h"

#include <array>
#include <optional>
#include <unordered_map>

#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/packed_text.h"

namespace tarvola::mainreturn {
namespace {

using store::FixedText;
using store::Statement;

constexpr char apostrophe = '\'';
constexpr std::string_view task = "Looking through the return";

std::string textOf(const ado::Cell& value) {
  std::string text;
  if (!value.isNull()) value.appendText(text);
  return text;
}

/// What a row's packed text is expanded as: a list's rows by their collection.
std::string layoutCodeOf(std::string_view table, std::string_view form, std::string_view collection) {
  if (table == "DS_FORM_LAMPIRAN") return std::string(form) + (collection == "1" ? "-CollB" : "-CollA");
  if (table == "LAMPIRAN_SSP_PPh22") return std::string(form) + "-Coll";
  return std::string(form);
}

/// The rows of one table under the eyes of a search.
class Search {
 public:
  Search(std::string_view table, CopySource source, std::vector<CopyObstacle>& obstacles)
      : table_(table), source_(std::move(source)), rows_(*source_.rows->rows()), obstacles_(obstacles) {}

  void run() {
    if (source_.rows->get_EOF()) return;
    std::vector<std::size_t> keyColumns;
    for (const std::string_view name : source_.foundBy) keyColumns.push_back(source_.rows->column(name));
    Progress progress(task, rows_.count());
    for (row_ = 0; row_ < rows_.count(); ++row_) {
      for (std::size_t column = 0; column < rows_.columns().count(); ++column) lookAtText(column);
      if (!keyColumns.empty()) lookAtKey(keyColumns);
      progress.done(row_ + 1);
    }
  }

 private:
  [[nodiscard]] std::string valueOf(std::string_view column) const {
    const std::optional<std::size_t> place = rows_.columns().find(column);
    return place ? textOf(rows_.cell(row_, *place)) : std::string();
  }

  void report(CopyObstacleKind kind, std::string_view field, std::string_view value) {
    const std::string number = valueOf("NOBUKTI");
    obstacles_.push_back({.kind = kind,
                          .table = std::string(table_),
                          .form = valueOf("KD_FORM"),
                          .number = number.empty() ? valueOf("NTPP") : number,
                          .field = std::string(field),
                          .value = std::string(value)});
  }

  void lookAtText(std::size_t column) {
    const ado::Cell value = rows_.cell(row_, column);
    if (!value.isText() || value.text().find(apostrophe) == std::string_view::npos) return;
    const std::string& name = rows_.columns()[column].name;
    if (!equalsIgnoreCase(name, "DAT_FORM")) return report(CopyObstacleKind::Apostrophe, name, value.text());
    store::PackedText fields;
    fields.cut(value.text());
    const store::FormLayout* layout = store::findLayout(layoutCodeOf(table_, valueOf("KD_FORM"), valueOf("COLLNO")));
    for (std::size_t position = 0; position < fields.count(); ++position)
      if (fields[position].find(apostrophe) != std::string_view::npos)
        report(CopyObstacleKind::Apostrophe, store::fieldAt(layout, position).name, fields[position]);
  }

  void lookAtKey(const std::vector<std::size_t>& keyColumns) {
    std::string key;
    for (const std::size_t column : keyColumns) {
      const ado::Cell value = rows_.cell(row_, column);
      if (value.isNull()) return report(CopyObstacleKind::MissingValue, rows_.columns()[column].name, "");
      value.appendText(key);
      key += '\n';
    }
    if (equalsIgnoreCase(valueOf("KD_FORM"), exchangeList)) key += valueOf("JENIS_DOKUMEN");
    const auto [first, isNew] = firstOf_.try_emplace(foldCase(key), row_);
    if (!isNew && !isSameAs(first->second)) report(CopyObstacleKind::SameKey, source_.foundBy.back(), "");
  }

  [[nodiscard]] bool isSameAs(std::size_t other) const {
    for (std::size_t column = 0; column < rows_.columns().count(); ++column)
      if (textOf(rows_.cell(row_, column)) != textOf(rows_.cell(other, column))) return false;
    return true;
  }

  std::string_view table_;
  CopySource source_;
  const ado::Rows& rows_;
  std::vector<CopyObstacle>& obstacles_;
  std::size_t row_ = 0;
  /// The first row of each key. Keys ignore case, as the filter of a copy does.
  std::unordered_map<std::string, std::size_t> firstOf_;
};

/// Documents of a period that stand under another number than `npwp`.
void lookForOthers(const store::StoreObject& store, const ReturnCopy& copy, const store::Period& period,
                   std::string_view npwp, CopyObstacleKind kind, std::vector<CopyObstacle>& obstacles) {
  constexpr std::array<FixedText, 2> tables = {"DS_FORM_INDUK", "DAT_SSP_PPh22"};
  for (const FixedText table : tables) {
    const RecordsetPtr rows = store.execute(Statement("SELECT KD_FORM, NOBUKTI, NPWP FROM ")
                                            << table << " WHERE " << store::periodCondition(period)
                                            << " AND KD_JENIS_PAJAK = " << store::text(copy.kdJenisPajak)
                                            << " AND (NPWP IS NULL OR NPWP <> " << store::text(npwp) << ")");
    for (; !rows->get_EOF(); rows->MoveNext())
      obstacles.push_back({.kind = kind,
                           .table = std::string(table.view()),
                           .form = textOf(rows->cell(0)),
                           .number = textOf(rows->cell(1)),
                           .field = "NPWP",
                           .value = textOf(rows->cell(2))});
  }
}

}  // namespace

std::vector<CopyObstacle> findCopyObstacles(const store::StoreObject& store, const ReturnCopy& copy) {
  std::vector<CopyObstacle> obstacles;
  const auto search = [&](std::string_view table, CopySource source) {
    Search(table, std::move(source), obstacles).run();
  };
  search("DS_FORM_INDUK", sourceOfDocuments(store, copy));
  search("DS_FORM_LAMPIRAN", sourceOfListItems(store, copy));
  search("D113210", sourceOfPayees(store, copy));
  search("DAT_SSP_PPh22", sourceOfSelfPaidForms(store, copy));
  search("LAMPIRAN_SSP_PPh22", sourceOfSelfPaidListItems(store, copy));
  search("DATSSP", sourceOfPayments(store, store::taxArticle, copy.source));
  if (copy.manner.goesByFiler) {
    lookForOthers(store, copy, copy.source, copy.oldNumber, CopyObstacleKind::OtherFiler, obstacles);
    lookForOthers(store, copy, copy.target, copy.newNumber, CopyObstacleKind::OtherFilerInTarget, obstacles);
  }
  return obstacles;
}

}  // namespace tarvola::mainreturn
