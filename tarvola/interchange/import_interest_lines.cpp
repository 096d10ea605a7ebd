// The detail rows of an interest slip in the table D113210.

#include <array>
#include <cstdint>

#include "tarvola/interchange/line_writer.h"
#include "tarvola/lists/interest_lines.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using lists::InterestLine;
using store::Statement;

/// Columns of one group of the slip.
struct Group {
  Column option;
  Column gross;
  Column rate;
  Column tax;
};

constexpr std::array<Group, 5> deposits = {{{Option1, Gross1, Rate1, Tax1},
                                            {Option2, Gross2, Rate2, Tax2},
                                            {Option3, Gross3, Rate3, Tax3},
                                            {Option4, Gross4, Rate4, Tax4},
                                            {Option5, Gross5, Rate5, Tax5}}};

InterestLine sumOfSide(const ImportLine& line, std::string_view kind, bool isDomestic) {
  lists::DepositSum sum(kind);
  for (const Group& group : deposits) {
    if (line.number(group.gross) == 0 || line.saysOption(group.option, 0) != isDomestic) continue;
    sum.add(line.number(group.gross), line.number(group.rate), line.number(group.tax));
  }
  return sum.line();
}

InterestLine single(const ImportLine& line, std::string_view kind, const Group& group) {
  InterestLine row{.kind = kind, .place = "", .grossRupiah = line.number(group.gross)};
  if (row.grossRupiah == 0) return row;
  row.ratePercent = line.number(group.rate);
  row.taxRupiah = line.number(group.tax);
  return row;
}

/// Calls for each row that the slip can have; one whose gross is 0 is none. The deposits are summed first, then each
/// row is made when its turn comes: a rate of SBI that is no number fails behind the rows of the deposits.
template <class Visit>
void forEachInterestLine(const ImportLine& line, Visit visit) {
  const std::array sides = {sumOfSide(line, "DN", true), sumOfSide(line, "LN", false)};
  for (const InterestLine& side : sides) visit(side);
  visit(single(line, "SBI", {Option1, Gross6, Rate6, Tax6}));
  visit(single(line, "GIRO", {Option1, Gross7, Rate7, Tax7}));
}

/// The rows of a slip are known by payee, period and number, as the line writes them, blanks included.
lists::InterestSlip slipOf(const ImportLine& line, const store::Period& period) {
  return {.payeeNpwp = std::string(line.raw(PayeeNpwp)),
          .payeeName = std::string(line.raw(PayeeName)),
          .payeeAddress = std::string(line.raw(PayeeAddress)),
          .period = period,
          .noBukti = std::string(line.raw(Number))};
}

}  // namespace

void LineWriter::replaceInterestLines() const {
  const lists::InterestSlip slip = slipOf(line_, period_);
  lists::removeInterestLines(store_, slip);
  forEachInterestLine(
      line_, [&](const InterestLine& row) { lists::insertInterestLine(store_, slip, line_.raw(DateOfSlip), row); });
}

bool LineWriter::hasAllInterestLines() const {
  const RecordsetPtr rows = store_.execute(Statement("SELECT NOBUKTI FROM D113210 WHERE ")
                                           << lists::interestLinesCondition(slipOf(line_, period_)));
  std::int32_t wanted = 0;
  forEachInterestLine(line_, [&](const InterestLine& row) { wanted += row.grossRupiah != 0 ? 1 : 0; });
  return rows->get_RecordCount() >= wanted;
}

}  // namespace tarvola::interchange
