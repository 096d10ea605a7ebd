// Interest lines (table D113210) against the interest slips, and the header of their list against the lines.

#include <map>
#include <set>

#include "tarvola/interchange/return_check_packed.h"
#include "tarvola/interchange/return_check_parts.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

constexpr std::array<std::string_view, 4> kinds = {"DN", "LN", "SBI", "GIRO"};
/// The fields of the header: payees, gross and tax of each kind, then of all.
constexpr std::string_view headerFields[5][3] = {{"JML1A3", "JML1A4", "JML1A5"},
                                                 {"JML1B3", "JML1B4", "JML1B5"},
                                                 {"JML23", "JML24", "JML25"},
                                                 {"JML33", "JML34", "JML35"},
                                                 {"JML3", "JML4", "JML5"}};

struct InterestLine {
  std::string payeeNpwp;
  std::string payeeName;
  double grossRupiah = 0;
  double taxRupiah = 0;
};

/// Lines by number and kind, and their sums.
struct InterestTable {
  std::map<std::pair<std::string, std::string>, std::vector<InterestLine>> lines;
  std::array<std::set<std::string>, 4> payees;
  std::array<std::array<double, 3>, 5> sums{};
};

double numberOf(const ado::Cell& cell) { return cell.isNull() ? 0 : cell.toDouble(); }

void addToSums(InterestTable& table, const std::string& kind, const InterestLine& line) {
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    if (!equalsIgnoreCase(kinds[i], kind)) continue;
    table.payees[i].insert(foldCase(line.payeeNpwp));
    table.sums[i][1] += line.grossRupiah;
    table.sums[i][2] += line.taxRupiah;
  }
}

InterestTable readTable(const CheckContext& context) {
  InterestTable table;
  const RecordsetPtr rows =
      context.store.execute(store::Statement("SELECT NOBUKTI, JENIS, NPWP, NMWP, BRUTO, PPH FROM D113210 WHERE ")
                            << store::periodCondition(context.period));
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const InterestLine line{.payeeNpwp = textOf(rows->cell(2)),
                            .payeeName = textOf(rows->cell(3)),
                            .grossRupiah = numberOf(rows->cell(4)),
                            .taxRupiah = numberOf(rows->cell(5))};
    const std::string kind = textOf(rows->cell(1));
    addToSums(table, kind, line);
    table.lines[{textOf(rows->cell(0)), kind}].push_back(line);
  }
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    table.sums[i][0] = static_cast<double>(table.payees[i].size());
    for (std::size_t part = 0; part < 3; ++part) table.sums[4][part] += table.sums[i][part];
  }
  return table;
}

std::string pairText(double gross, double tax) { return CStr(gross) + " / " + CStr(tax); }

/// An interest line holds the sum of its deposits, cut; the slip the sum of the cut deposits. So the decimals of an
/// exchange file may make a line greater by less than a rupiah for each deposit.
void compareAmount(CheckReport& report, const std::string& document, std::string_view field, double stored,
                   double recounted) {
  constexpr double deposits = 5;
  if (stored == recounted) return;
  report.add({.kind = CheckKind::InterestLineDiffers,
              .isWarning = stored > recounted && stored - recounted < deposits,
              .document = document,
              .field = std::string(field),
              .stored = CStr(stored),
              .recounted = CStr(recounted)});
}

void checkSlipLine(const CheckContext& context, InterestTable& table, const InterestDocument& slip, std::size_t kind) {
  const auto [gross, tax] = slip.kinds[kind];
  const std::string document = "D113210 " + slip.number + " " + std::string(kinds[kind]);
  const auto found = table.lines.find({slip.number, std::string(kinds[kind])});
  const std::size_t count = found == table.lines.end() ? 0 : found->second.size();
  if (count == 0) {
    if (gross != 0)
      context.report.add({.kind = CheckKind::MissingInterestLine,
                          .document = document,
                          .stored = "no row",
                          .recounted = pairText(gross, tax)});
    return;
  }
  if (gross == 0) return;
  if (count > 1)
    context.report.compare(CheckKind::InterestLineDiffers, document, "rows", static_cast<double>(count), 1);
  const InterestLine line = found->second.front();
  table.lines.erase(found);
  compareAmount(context.report, document, "BRUTO", line.grossRupiah, gross);
  compareAmount(context.report, document, "PPH", line.taxRupiah, tax);
  const auto compare = [&](std::string_view field, std::string_view stored, std::string_view recounted) {
    context.report.compare(CheckKind::InterestLineDiffers, document, field, Trim(stored), Trim(recounted));
  };
  compare("NPWP", line.payeeNpwp, slip.payeeNpwp);
  compare("NMWP", line.payeeName, slip.payeeName);
}

void checkHeader(const CheckContext& context, const InterestTable& table) {
  const std::optional<std::string> header = headerText(context, store::D113210);
  PackedRowReader packed("D113210");
  CheckReport ignored;
  if (!header || !packed.read(ignored, "D113210", *header)) return;
  for (std::size_t kind = 0; kind < 5; ++kind)
    for (std::size_t part = 0; part < 3; ++part)
      context.report.compare(CheckKind::ListSum, "D113210", headerFields[kind][part],
                             packed.number(headerFields[kind][part]), table.sums[kind][part]);
}

}  // namespace

void checkInterestLines(const CheckContext& context, const std::vector<InterestDocument>& slips) {
  InterestTable table = readTable(context);
  for (const InterestDocument& slip : slips)
    for (std::size_t kind = 0; kind < kinds.size(); ++kind) checkSlipLine(context, table, slip, kind);
  for (const auto& [key, lines] : table.lines)
    for (const InterestLine& line : lines)
      context.report.add({.kind = CheckKind::StrayInterestLine,
                          .document = "D113210 " + key.first + " " + key.second,
                          .stored = pairText(line.grossRupiah, line.taxRupiah),
                          .recounted = "no document"});
  checkHeader(context, table);
}

}  // namespace tarvola::interchange
