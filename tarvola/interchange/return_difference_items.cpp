// Interest payees and payment records of two returns, column by column.

#include <algorithm>
#include <array>
#include <span>
#include <tuple>

#include "tarvola/interchange/return_difference_parts.h"
#include "tarvola/interchange/return_difference_rows.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using store::FieldType;
using store::Statement;

/// A column that is compared, under its own name.
struct ComparedColumn {
  std::string_view name;
  FieldType type = FieldType::Text;
  /// Whether it is told of a row that only one of the returns has.
  bool isAmount = false;
};

/// Rows of plain columns: first those that identify a row, then those that are compared.
struct PlainTable {
  std::span<const std::string_view> key;
  /// Which of the key stands for the form, and which for the number.
  std::size_t form = 0;
  std::size_t number = 0;
  std::span<const ComparedColumn> columns;
};

constexpr std::array<std::string_view, 2> payeeKey = {"NOBUKTI", "JENIS"};
constexpr std::array payeeColumns = {ComparedColumn{"NPWP"},
                                     ComparedColumn{"NMWP"},
                                     ComparedColumn{"ALM"},
                                     ComparedColumn{"TGL_POTONG", FieldType::DateText},
                                     ComparedColumn{"TEMPAT"},
                                     ComparedColumn{.name = "BRUTO", .type = FieldType::Double, .isAmount = true},
                                     ComparedColumn{.name = "TARIF", .type = FieldType::Double},
                                     ComparedColumn{.name = "PPH", .type = FieldType::Double, .isAmount = true},
                                     ComparedColumn{"ATR1"},
                                     ComparedColumn{"ATR2"}};
constexpr PlainTable payees{.key = payeeKey, .form = 1, .number = 0, .columns = payeeColumns};

constexpr std::array<std::string_view, 3> paymentKey = {"NTPP", "KdMAP", "KdJnsStr"};
constexpr std::array paymentColumns = {ComparedColumn{"NPWP"}, ComparedColumn{"TglSSP", FieldType::DateText},
                                       ComparedColumn{.name = "JmlByr", .type = FieldType::Double, .isAmount = true}};
constexpr PlainTable payments{.key = paymentKey, .form = 2, .number = 0, .columns = paymentColumns};

Statement selectColumns(const PlainTable& table) {
  Statement select("SELECT ");
  for (const std::string_view column : table.key) select << store::name(column) << ", ";
  for (const ComparedColumn& column : table.columns)
    select << (&column == table.columns.data() ? store::FixedText("") : store::FixedText(", "))
           << store::name(column.name);
  return select << " FROM ";
}

/// The rows of one return.
class PlainRows {
 public:
  PlainRows(const PlainTable& table, RecordsetPtr rows)
      : table_(table), source_(std::move(rows)), rows_(*source_->rows()) {}

  [[nodiscard]] std::string keyText(std::size_t row, std::size_t key) const { return textAt(row, key); }
  [[nodiscard]] std::string text(std::size_t row, std::size_t column) const {
    return textAt(row, table_.key.size() + column);
  }
  [[nodiscard]] std::vector<std::string> keys() const {
    std::vector<std::string> all(rows_.count());
    for (std::size_t row = 0; row < all.size(); ++row)
      for (std::size_t key = 0; key < table_.key.size(); ++key) all[row] += foldCase(keyText(row, key)) + '\n';
    return all;
  }
  [[nodiscard]] std::string content(std::size_t row) const {
    std::string all;
    for (std::size_t column = 0; column < table_.columns.size(); ++column) all += text(row, column) + '\n';
    return all;
  }

 private:
  [[nodiscard]] std::string textAt(std::size_t row, std::size_t column) const {
    std::string text;
    const ado::Cell value = rows_.cell(row, column);
    if (!value.isNull()) value.appendText(text);
    return text;
  }

  const PlainTable& table_;
  RecordsetPtr source_;
  const ado::Rows& rows_;
};

DocumentDifference onlyIn(DifferenceKind kind, const PlainTable& table, const PlainRows& rows, std::size_t row) {
  DocumentDifference difference{.kind = kind, .form = {}, .number = {}, .seq = {}, .fields = {}};
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    if (!table.columns[column].isAmount) continue;
    FieldDifference field{
        .field = std::string(table.columns[column].name), .before = {}, .after = {}, .isNumber = true};
    (kind == DifferenceKind::Removed ? field.before : field.after) = rows.text(row, column);
    difference.fields.push_back(std::move(field));
  }
  return difference;
}

DocumentDifference changes(const PlainTable& table, const PlainRows& before, std::size_t rowBefore,
                           const PlainRows& after, std::size_t rowAfter) {
  DocumentDifference difference;
  for (std::size_t column = 0; column < table.columns.size(); ++column) {
    const ComparedColumn& compared = table.columns[column];
    std::string left = before.text(rowBefore, column);
    std::string right = after.text(rowAfter, column);
    if (saysTheSame(compared.type, left, right)) continue;
    difference.fields.push_back({.field = std::string(compared.name),
                                 .before = std::move(left),
                                 .after = std::move(right),
                                 .isNumber = isNumeric(compared.type)});
  }
  return difference;
}

std::vector<DocumentDifference> compareRows(const PlainTable& table, const PlainRows& before, const PlainRows& after) {
  std::vector<DocumentDifference> differences;
  const std::vector<RowPair> pairs = pairRows(
      before.keys(), after.keys(), [&](std::size_t row) { return before.content(row); },
      [&](std::size_t row) { return after.content(row); });
  for (const RowPair& pair : pairs) {
    const PlainRows& rows = pair.before ? before : after;
    const std::size_t row = pair.before ? *pair.before : *pair.after;
    DocumentDifference difference =
        pair.before && pair.after
            ? changes(table, before, *pair.before, after, *pair.after)
            : onlyIn(pair.before ? DifferenceKind::Removed : DifferenceKind::Added, table, rows, row);
    if (difference.kind == DifferenceKind::Changed && difference.fields.empty()) continue;
    difference.form = rows.keyText(row, table.form);
    difference.number = rows.keyText(row, table.number);
    differences.push_back(std::move(difference));
  }
  sortByNumber(differences);
  return differences;
}

}  // namespace

void sortByNumber(std::vector<DocumentDifference>& differences) {
  const auto order = [](const DocumentDifference& difference) {
    return std::tuple(std::string_view(difference.number), std::string_view(difference.form),
                      tryNumber(difference.seq).value_or(0), difference.kind);
  };
  std::stable_sort(
      differences.begin(), differences.end(),
      [&](const DocumentDifference& left, const DocumentDifference& right) { return order(left) < order(right); });
}

std::vector<DocumentDifference> compareInterestPayees(const ComparedReturns& returns) {
  const auto read = [&](const store::Period& period) {
    return PlainRows(
        payees, returns.store.execute(selectColumns(payees) << "D113210 WHERE " << store::periodCondition(period)));
  };
  return compareRows(payees, read(returns.before.period), read(returns.after.period));
}

std::vector<DocumentDifference> comparePayments(const ComparedReturns& returns) {
  const auto read = [&](const store::Period& period) {
    return PlainRows(payments, returns.store.execute(selectColumns(payments)
                                                     << "DATSSP WHERE KodePasal = " << std::int32_t{store::taxArticle}
                                                     << " AND MsPjk = " << std::int32_t{period.msPajak}
                                                     << " AND ThPjk = " << std::int32_t{period.thPajak}
                                                     << " AND KdPmbtln = " << std::int32_t{period.kdPembetulanKe}));
  };
  return compareRows(payments, read(returns.before.period), read(returns.after.period));
}

}  // namespace tarvola::interchange
