#include "tarvola/mainreturn/document_sums.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tarvola/ado/rows.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::mainreturn {
namespace {

// A month may hold hundreds of thousands of slips: the columns are looked up once for each form, and every cell is read
// where it lies.

// --- forms that the table describes whole ---------------------------------------------------------------

/// A column and the sum that it is added to.
struct SummedColumn {
  std::size_t column;
  std::size_t line;
  double LineSum::*part;
};

std::vector<SummedColumn> summedColumns(const RolledUpForm& form, const Recordset& documents) {
  std::vector<SummedColumn> columns;
  for (std::size_t line = 0; line < form.lines.size(); ++line) {
    for (const std::string_view field : form.lines[line].gross)
      if (!field.empty()) columns.push_back({documents.column(field), line, &LineSum::gross});
    columns.push_back({documents.column(form.lines[line].tax), line, &LineSum::tax});
  }
  return columns;
}

LineSums sumFields(const RolledUpForm& form, const Recordset& documents) {
  LineSums sums;
  const std::vector<SummedColumn> columns = summedColumns(form, documents);
  const ado::Rows& rows = *documents.rows();
  for (std::size_t row = 0; row < rows.count(); ++row)
    for (const SummedColumn& summed : columns)
      sums[summed.line].*summed.part += rows.cell(row, summed.column).toDouble();
  return sums;
}

// --- interest -------------------------------------------------------------------------------------------

/// The columns of a gross and its tax.
struct AmountColumns {
  std::size_t gross;
  std::size_t tax;

  AmountColumns(const Recordset& documents, std::string_view grossField, std::string_view taxField)
      : gross(documents.column(grossField)), tax(documents.column(taxField)) {}

  [[nodiscard]] LineSum read(const ado::Rows& rows, std::size_t row) const {
    return {.gross = rows.cell(row, gross).toDouble(), .tax = rows.cell(row, tax).toDouble()};
  }
};

/// An item of an interest slip: its amounts and the options that say where it was placed.
struct ItemColumns {
  AmountColumns amounts;
  std::size_t atHome;
  std::size_t abroad;

  ItemColumns(const Recordset& documents, std::string_view gross, std::string_view tax, std::string_view number)
      : amounts(documents, gross, tax),
        atHome(documents.column("OPTDN" + std::string(number))),
        abroad(documents.column("OPTLN" + std::string(number))) {}
};

/// What one interest slip says. It is read whole before anything is added, so that a slip that lacks an amount adds
/// nothing.
struct InterestSlip {
  LineSum atHome = {};
  LineSum abroad = {};
  LineSum sbi;
  LineSum giro;
  LineSum others;
};

class InterestColumns {
 public:
  explicit InterestColumns(const Recordset& documents)
      : items_{ItemColumns(documents, "B1A3", "B1A5", "1"), ItemColumns(documents, "B1B3", "B1B5", "2"),
               ItemColumns(documents, "B1C3", "B1C5", "3"), ItemColumns(documents, "B23", "B25", "4"),
               ItemColumns(documents, "B33", "B35", "5")},
        sbi_(documents, "B43", "B45"),
        giro_(documents, "B53", "B55"),
        others_(documents, "B63", "B65") {}

  [[nodiscard]] InterestSlip read(const ado::Rows& rows, std::size_t row) const {
    InterestSlip slip{.sbi = sbi_.read(rows, row), .giro = giro_.read(rows, row), .others = others_.read(rows, row)};
    // An item with both options counts twice, one with neither counts nowhere.
    for (const ItemColumns& item : items_) {
      const LineSum amounts = item.amounts.read(rows, row);
      if (isChosen(rows, row, item.atHome)) slip.atHome.add(amounts);
      if (isChosen(rows, row, item.abroad)) slip.abroad.add(amounts);
    }
    return slip;
  }

 private:
  /// An option must be there: a Null is error 94 here, unlike the options of construction slips.
  static bool isChosen(const ado::Rows& rows, std::size_t row, std::size_t option) {
    return CInt(rows.cell(row, option).toDouble()) == 1;
  }

  std::array<ItemColumns, 5> items_;
  AmountColumns sbi_;
  AmountColumns giro_;
  AmountColumns others_;
};

LineSums sumInterest(const Recordset& documents, RunningSums& running) {
  LineSums sums;
  const InterestColumns columns(documents);
  const ado::Rows& rows = *documents.rows();
  for (std::size_t row = 0; row < rows.count(); ++row) {
    const InterestSlip slip = columns.read(rows, row);
    sums[0].add(slip.atHome);
    sums[1].add(slip.abroad);
    running.sbi.add(slip.sbi);
    running.giro.add(slip.giro);
    running.others.add(slip.others);
  }
  return sums;
}

// --- construction services ------------------------------------------------------------------------------

/// A row of a construction slip that an option leads to planning (1), supervision (2) or nowhere.
struct OptionalRowColumns {
  AmountColumns amounts;
  std::size_t option;

  void addTo(LineSum& planning, LineSum& supervision, const ado::Rows& rows, std::size_t row) const {
    // The amounts of a row without an option are not looked at, so that they may be missing.
    const ado::Cell chosen = rows.cell(row, option);
    if (chosen.isNull()) return;
    const double value = chosen.toDouble();
    if (value == 1) planning.add(amounts.read(rows, row));
    if (value == 2) supervision.add(amounts.read(rows, row));
  }
};

LineSums sumConstruction(const Recordset& documents) {
  const std::array<AmountColumns, 3> workRows = {AmountColumns(documents, "B13", "B15"),
                                                 AmountColumns(documents, "B23", "B25"),
                                                 AmountColumns(documents, "B33", "B35")};
  const std::array<OptionalRowColumns, 2> optionalRows = {
      OptionalRowColumns{AmountColumns(documents, "B43", "B45"), documents.column("Opt4")},
      OptionalRowColumns{AmountColumns(documents, "B53", "B55"), documents.column("Opt5")}};
  LineSum work;
  LineSum planning;
  LineSum supervision;
  const ado::Rows& rows = *documents.rows();
  for (std::size_t row = 0; row < rows.count(); ++row) {
    for (const AmountColumns& amounts : workRows) work.add(amounts.read(rows, row));
    for (const OptionalRowColumns& optional : optionalRows) optional.addTo(planning, supervision, rows, row);
  }
  return {planning, work, supervision};
}

}  // namespace

LineSums sumDocuments(const RolledUpForm& form, const Recordset& documents, RunningSums& interest) {
  switch (form.rowRule) {
    case RowRule::Interest:
      return sumInterest(documents, interest);
    case RowRule::Construction:
      return sumConstruction(documents);
    default:
      return sumFields(form, documents);
  }
}

}  // namespace tarvola::mainreturn
