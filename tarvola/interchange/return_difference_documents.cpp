// Slips and self-paid forms of two returns, field by field of their packed texts.

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>

#include "tarvola/interchange/return_difference_parts.h"
#include "tarvola/interchange/return_difference_rows.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/packed_text.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using store::FieldType;
using store::FormLayout;
using store::PackedText;
using store::Statement;

/// A table of documents.
struct DocumentTable {
  store::FixedText name;
  std::string_view task;
  /// Whether several documents of a form may share a number, and SEQ tells them apart.
  bool hasSeq = false;
  /// Whether it has the column FlagNPWP.
  bool hasFlag = false;
};

constexpr DocumentTable slipTable{.name = "DS_FORM_INDUK", .task = "Comparing slips", .hasFlag = true};
constexpr DocumentTable selfPaidTable{.name = "DAT_SSP_PPh22", .task = "Comparing self-paid forms", .hasSeq = true};

/// What a form's layout says to a comparison.
struct ComparedForm {
  const FormLayout* layout = nullptr;
  std::optional<std::size_t> npwp;
  std::optional<std::size_t> correction;
  std::optional<std::size_t> seq;
  /// Its gross and its tax as a whole.
  std::array<std::optional<std::size_t>, 2> totals = {};
};

/// The names under which the forms hold their gross and their tax as a whole. A form has one of each; where it has two,
/// the first here is the sum.
constexpr std::array<std::string_view, 3> grossNames = {"JMLPHSL", "JML", "JMLBRUTO"};
constexpr std::array<std::string_view, 5> taxNames = {"JmlB5", "JmlPPh", "PPhFinal", "PPHDIPTG", "PPH"};

std::optional<std::size_t> firstPosition(const FormLayout& layout, std::span<const std::string_view> names) {
  for (const std::string_view name : names)
    if (const auto position = layout.position(name)) return position;
  return std::nullopt;
}

ComparedForm makeForm(std::string_view kdForm) {
  const FormLayout* layout = store::findLayout(kdForm);
  if (layout == nullptr) return {};
  return {.layout = layout,
          .npwp = layout->position("npwp"),
          .correction = layout->position("KD_PEMBETULAN_KE"),
          .seq = layout->position("SEQ"),
          .totals = {firstPosition(*layout, grossNames), firstPosition(*layout, taxNames)}};
}

/// A field of a packed text, "" where the text is too short.
std::string_view fieldOf(const PackedText& packed, std::optional<std::size_t> position) {
  return position && *position < packed.count() ? packed[*position] : std::string_view();
}

/// The documents of one return.
class Documents {
 public:
  Documents(const store::StoreObject& store, const DocumentTable& table, const store::Period& period) : table_(table) {
    Statement select("SELECT KD_FORM, NOBUKTI, DAT_FORM");
    if (table.hasFlag) select << ", FlagNPWP";
    source_ = store.execute(select << " FROM " << table.name << " WHERE " << store::periodCondition(period)
                                   << " AND KD_JENIS_PAJAK = " << store::text(store::taxKind)
                                   << " AND NOBUKTI <> '-' AND KD_FORM <> 'F113204'");
    rows_ = source_->rows();
  }

  [[nodiscard]] std::size_t count() const { return rows_->count(); }
  [[nodiscard]] std::string_view form(std::size_t row) const { return textAt(row, KdForm); }
  [[nodiscard]] std::string_view number(std::size_t row) const { return textAt(row, NoBukti); }
  [[nodiscard]] std::string_view packed(std::size_t row) const { return textAt(row, DatForm); }
  [[nodiscard]] std::string flag(std::size_t row) const {
    std::string text;
    if (table_.hasFlag && !rows_->cell(row, FlagNpwp).isNull()) rows_->cell(row, FlagNpwp).appendText(text);
    return text;
  }

 private:
  enum Column : std::size_t { KdForm, NoBukti, DatForm, FlagNpwp };

  [[nodiscard]] std::string_view textAt(std::size_t row, std::size_t column) const {
    const ado::Cell cell = rows_->cell(row, column);
    return cell.isText() ? cell.text() : std::string_view();
  }

  const DocumentTable& table_;
  RecordsetPtr source_;
  ado::RowsPtr rows_;
};

class DocumentComparison {
 public:
  DocumentComparison(const ComparedReturns& returns, const DocumentTable& table)
      : returns_(returns),
        table_(table),
        before_(returns.store, table, returns.before.period),
        after_(returns.store, table, returns.after.period) {}

  std::vector<DocumentDifference> run() {
    const std::vector<RowPair> pairs = pairRows(
        keysOf(before_), keysOf(after_), [this](std::size_t row) { return contentOf(before_, row); },
        [this](std::size_t row) { return contentOf(after_, row); });
    Progress progress(table_.task, pairs.size());
    std::uint64_t done = 0;
    for (const RowPair& pair : pairs) {
      compare(pair);
      progress.done(++done);
    }
    sortByNumber(differences_);
    return std::move(differences_);
  }

 private:
  const ComparedForm& formOf(std::string_view kdForm) {
    const auto [place, isNew] = forms_.try_emplace(std::string(kdForm));
    if (isNew) place->second = makeForm(kdForm);
    return place->second;
  }

  std::string seqOf(const Documents& documents, std::size_t row) {
    if (!table_.hasSeq) return {};
    cutBefore_.cut(documents.packed(row));
    return std::string(fieldOf(cutBefore_, formOf(documents.form(row)).seq));
  }

  /// Texts compare as the store compares them, without regard to case.
  std::vector<std::string> keysOf(const Documents& documents) {
    std::vector<std::string> keys;
    keys.reserve(documents.count());
    for (std::size_t row = 0; row < documents.count(); ++row) {
      std::string key(documents.form(row));
      key.append("\n").append(documents.number(row));
      if (table_.hasSeq) key.append("\n").append(seqOf(documents, row));
      keys.push_back(foldCase(key));
    }
    return keys;
  }

  /// The packed text without what differs between corrections as such.
  std::string contentOf(const Documents& documents, std::size_t row) {
    const ComparedForm& form = formOf(documents.form(row));
    cutBefore_.cut(documents.packed(row));
    std::string content = documents.flag(row);
    for (std::size_t position = 0; position < cutBefore_.count(); ++position) {
      content += ';';
      if (position != form.correction && position != form.npwp) content += cutBefore_[position];
    }
    return content;
  }

  void compare(const RowPair& pair) {
    if (pair.before && pair.after) return compareFields(*pair.before, *pair.after);
    const Documents& documents = pair.before ? before_ : after_;
    const std::size_t row = pair.before ? *pair.before : *pair.after;
    DocumentDifference difference =
        named(pair.before ? DifferenceKind::Removed : DifferenceKind::Added, documents, row);
    const ComparedForm& form = formOf(documents.form(row));
    cutBefore_.cut(documents.packed(row));
    for (const std::optional<std::size_t>& total : form.totals) {
      if (!total) continue;
      FieldDifference amount{
          .field = store::fieldAt(form.layout, *total).name, .before = {}, .after = {}, .isNumber = true};
      (pair.before ? amount.before : amount.after) = fieldOf(cutBefore_, total);
      difference.fields.push_back(std::move(amount));
    }
    differences_.push_back(std::move(difference));
  }

  DocumentDifference named(DifferenceKind kind, const Documents& documents, std::size_t row) {
    return {.kind = kind,
            .form = std::string(documents.form(row)),
            .number = std::string(documents.number(row)),
            .seq = seqOf(documents, row),
            .fields = {}};
  }

  /// Whether a difference of the filer's own number is that of the main forms.
  [[nodiscard]] bool followsFiler(std::string_view before, std::string_view after) const {
    return before == returns_.before.npwp && after == returns_.after.npwp;
  }

  void compareFields(std::size_t rowBefore, std::size_t rowAfter) {
    const ComparedForm& form = formOf(before_.form(rowBefore));
    cutBefore_.cut(before_.packed(rowBefore));
    cutAfter_.cut(after_.packed(rowAfter));
    std::vector<FieldDifference> fields;
    for (std::size_t position = 0; position < std::max(cutBefore_.count(), cutAfter_.count()); ++position) {
      const std::string_view before = fieldOf(cutBefore_, position);
      const std::string_view after = fieldOf(cutAfter_, position);
      if (before == after || position == form.correction) continue;
      if (position == form.npwp && followsFiler(before, after)) continue;
      const store::NamedField field = store::fieldAt(form.layout, position);
      if (saysTheSame(field.type, before, after)) continue;
      fields.push_back({.field = field.name,
                        .before = std::string(before),
                        .after = std::string(after),
                        .isNumber = isNumeric(field.type)});
    }
    if (std::string before = before_.flag(rowBefore), after = after_.flag(rowAfter);
        !saysTheSame(FieldType::Integer, before, after))
      fields.push_back({.field = "FlagNPWP", .before = std::move(before), .after = std::move(after), .isNumber = true});
    if (fields.empty()) return;
    differences_.push_back(named(DifferenceKind::Changed, before_, rowBefore));
    differences_.back().fields = std::move(fields);
  }

  const ComparedReturns& returns_;
  const DocumentTable& table_;
  Documents before_;
  Documents after_;
  std::unordered_map<std::string, ComparedForm> forms_;
  PackedText cutBefore_;
  PackedText cutAfter_;
  std::vector<DocumentDifference> differences_;
};

}  // namespace

std::vector<DocumentDifference> compareSlips(const ComparedReturns& returns) {
  return DocumentComparison(returns, slipTable).run();
}

std::vector<DocumentDifference> compareSelfPaidForms(const ComparedReturns& returns) {
  return DocumentComparison(returns, selfPaidTable).run();
}

}  // namespace tarvola::interchange
