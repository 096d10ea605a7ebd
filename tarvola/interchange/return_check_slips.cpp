// Slips against themselves, their list rows and the sums of the list.

#include <array>
#include <span>

#include "tarvola/interchange/return_check_lists.h"
#include "tarvola/interchange/return_check_packed.h"
#include "tarvola/interchange/return_check_parts.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using slips::SlipDescription;

constexpr std::array slipDescriptions = {&slips::lotteryPrizes,
                                         &slips::interest,
                                         &slips::exchangeSales,
                                         &slips::landRent,
                                         &slips::constructionServices,
                                         &slips::bonds,
                                         &slips::cooperativeInterest,
                                         &slips::futures,
                                         &slips::dividends};

/// Options that send a row to a side or a line, and what must be read for it.
struct OptionRow {
  std::size_t row;
  std::string_view first;
  std::string_view second;
};
constexpr std::array<OptionRow, 5> depositSides = {{{0, "OPTDN1", "OPTLN1"},
                                                    {1, "OPTDN2", "OPTLN2"},
                                                    {2, "OPTDN3", "OPTLN3"},
                                                    {3, "OPTDN4", "OPTLN4"},
                                                    {4, "OPTDN5", "OPTLN5"}}};
constexpr std::array<OptionRow, 2> serviceOptions = {{{3, "Opt4", ""}, {4, "Opt5", ""}}};

bool isForm(const SlipDescription& slip, const store::FormCodes& form) { return slip.form.kdForm == form.kdForm; }

/// Gross and tax, in rupiah.
struct Amounts {
  double gross = 0;
  double tax = 0;

  Amounts& operator+=(const Amounts& other) {
    gross += other.gross;
    tax += other.tax;
    return *this;
  }
};

Amounts rowOf(const SlipDescription& slip, const PackedRowReader& packed, std::size_t row) {
  return {.gross = packed.number(slip.rows[row].gross), .tax = packed.number(slip.rows[row].tax)};
}

Amounts sumOfRows(const SlipDescription& slip, const PackedRowReader& packed, slips::RowRange rows) {
  Amounts sum;
  for (std::size_t row = rows.first; row < rows.first + rows.count; ++row) sum += rowOf(slip, packed, row);
  return sum;
}

/// What a pair of total columns should hold. Those without rows of their own take the rows that an option sends there:
/// the sides of the deposits (1 and 2), planning and supervision of construction (1 and 3).
Amounts totalOf(const SlipDescription& slip, const PackedRowReader& packed, std::size_t index) {
  const slips::TotalColumns& columns = slip.totals[index];
  if (columns.rows.count > 0) return sumOfRows(slip, packed, columns.rows);
  Amounts sum;
  if (isForm(slip, store::F113310)) {
    for (const OptionRow& side : depositSides)
      if (packed.number(index == 0 ? side.first : side.second) == 1) sum += rowOf(slip, packed, side.row);
  } else {
    for (const OptionRow& service : serviceOptions)
      if (packed.number(service.first) == (index == 0 ? 1 : 2)) sum += rowOf(slip, packed, service.row);
  }
  return sum;
}

/// Fields in which an empty value ends a recount.
std::vector<std::string_view> neededFields(const SlipDescription& slip) {
  std::vector<std::string_view> fields;
  for (const slips::AmountRow& row : slip.rows) {
    fields.push_back(row.gross);
    fields.push_back(row.tax);
  }
  if (!slip.taxSum.empty()) fields.push_back(slip.taxSum);
  if (isForm(slip, store::F113310))
    for (const OptionRow& side : depositSides) fields.insert(fields.end(), {side.first, side.second});
  return fields;
}

/// Which interest lines a slip has: deposits with an amount on their side, domestic first, then SBI and giro.
InterestDocument interestOf(const PackedRowReader& packed, std::string number) {
  InterestDocument document{.number = std::move(number),
                            .payeeNpwp = std::string(packed.text("NPWPLT")),
                            .payeeName = std::string(packed.text("NMWPLT")),
                            .kinds = {}};
  const auto addTo = [&](std::size_t kind, const Amounts& amounts) {
    document.kinds[kind].first += amounts.gross;
    document.kinds[kind].second += amounts.tax;
  };
  for (const OptionRow& side : depositSides) {
    const Amounts amounts = rowOf(slips::interest, packed, side.row);
    if (amounts.gross == 0) continue;
    if (packed.number(side.first) == 1)
      addTo(0, amounts);
    else if (packed.number(side.second) == 1)
      addTo(1, amounts);
  }
  addTo(2, rowOf(slips::interest, packed, 5));
  addTo(3, rowOf(slips::interest, packed, 6));
  return document;
}

class SlipCheck {
 public:
  explicit SlipCheck(const CheckContext& context) : context_(context), list_(context.report, "D113206") {}

  void run() {
    readList();
    for (const SlipDescription* slip : slipDescriptions) checkForm(*slip);
    list_.reportStray(CheckKind::StrayListRow);
    checkSums();
    checkInterestLines(context_, interest_);
  }

 private:
  void readList();
  void checkForm(const SlipDescription& slip);
  void checkPacked(const SlipDescription& slip, const std::string& document, const PackedRowReader& packed) const;
  void checkTotals(const SlipDescription& slip, const std::string& document, const PackedRowReader& packed,
                   const RecordsetPtr& row) const;
  void takeListRow(const SlipDescription& slip, const std::string& number, const PackedRowReader& packed);
  void checkSums() const;

  const CheckContext& context_;
  ListRows list_;
  std::array<std::array<ListSums, 2>, 2> sums_;
  std::vector<InterestDocument> interest_;
};

/// The texts of a slip that its list row repeats, by their names, which are the same on both sides.
std::vector<std::pair<std::string_view, std::string>> listedTexts(const PackedRowReader& packed) {
  std::vector<std::pair<std::string_view, std::string>> texts;
  for (const std::string_view field : {"NPWPLT", "NMWPLT", "ALMLT", "Tgl_Potong"})
    texts.emplace_back(field, std::string(Trim(packed.text(field))));
  return texts;
}

void SlipCheck::readList() {
  const RecordsetPtr rows = context_.store.execute(
      store::Statement("SELECT COLLNO, NOBUKTI, DAT_FORM FROM DS_FORM_LAMPIRAN WHERE KD_FORM = 'D113206' AND ")
      << store::periodCondition(context_.period) << " ORDER BY SEQ");
  PackedRowReader packed("D113206-CollA");
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const std::size_t collection = rows->cell(0).toDouble() == 0 ? 0 : 1;
    const std::string number = textOf(rows->cell(1));
    const std::string document = "D113206 " + number;
    const std::string text = textOf(rows->cell(2));
    if (!packed.read(context_.report, document, text)) continue;
    packed.checkReadable(context_.report, document, {});
    context_.report.compare(CheckKind::OtherThanRow, document, "NoBukti", packed.text("NoBukti"), number);
    const ListedDocument row{
        .grossRupiah = packed.number("NOP"), .taxRupiah = packed.number("PPHDIPTG"), .texts = listedTexts(packed)};
    sums_[collection][0].add(row.grossRupiah);
    sums_[collection][1].add(row.taxRupiah);
    if (collection == 0) list_.add(number, row);
  }
}

void SlipCheck::checkForm(const SlipDescription& slip) {
  const RecordsetPtr rows = context_.store.execute(store::Statement("SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = ")
                                                   << store::text(slip.form.kdForm) << " AND "
                                                   << store::periodCondition(context_.period) << " ORDER BY NOBUKTI");
  if (rows->get_EOF()) return;
  const DocumentColumns columns(*rows);
  const std::vector<std::string_view> needed = neededFields(slip);
  PackedRowReader packed(slip.form.kdForm);
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const std::string number = textOf(rows->cell(columns.noBukti));
    const std::string npwp = textOf(rows->cell(columns.npwp));
    const std::string text = textOf(rows->cell(columns.datForm));
    const std::string document = std::string(slip.form.kdForm) + " " + number;
    checkCodes(context_, document, slip.form, npwp, textOf(rows->cell(columns.jenisDokumen)),
               textOf(rows->cell(columns.kdJenisPajak)));
    if (!packed.read(context_.report, document, text)) {
      list_.takeUnread(number);
      continue;
    }
    checkHead(context_, document, packed, npwp, "NoBukti", number);
    packed.checkReadable(context_.report, document, needed);
    checkPacked(slip, document, packed);
    checkTotals(slip, document, packed, rows);
    takeListRow(slip, number, packed);
    if (isForm(slip, store::F113310)) interest_.push_back(interestOf(packed, number));
  }
}

void SlipCheck::checkPacked(const SlipDescription& slip, const std::string& document,
                            const PackedRowReader& packed) const {
  const Amounts sum = sumOfRows(slip, packed, {0, slip.rows.size()});
  if (!slip.grossSum.empty())
    context_.report.compare(CheckKind::WrongSum, document, slip.grossSum, packed.number(slip.grossSum), sum.gross);
  if (!slip.taxSum.empty())
    context_.report.compare(CheckKind::WrongSum, document, slip.taxSum, packed.number(slip.taxSum), sum.tax);
  if (isForm(slip, store::F113317))
    context_.report.compare(CheckKind::WrongSum, document, "JML", packed.number("JML"),
                            packed.number("j2") + packed.number("k2"));
  checkNpwp(context_.report, document, "NPWPLT", packed.text("NPWPLT"));
}

void SlipCheck::checkTotals(const SlipDescription& slip, const std::string& document, const PackedRowReader& packed,
                            const RecordsetPtr& row) const {
  for (std::size_t index = 0; index < slip.totals.size(); ++index) {
    const slips::TotalColumns& columns = slip.totals[index];
    const Amounts total = totalOf(slip, packed, index);
    const auto compare = [&](std::string_view column, double recounted) {
      const ado::Cell stored = row->cell(row->column(column));
      context_.report.compare(CheckKind::WrongTotal, document, column, stored.isNull() ? 0 : stored.toDouble(),
                              recounted);
    };
    compare(columns.gross, total.gross);
    compare(columns.tax, total.tax);
  }
}

/// The list row shows the slip as a whole. That of an imported bond slip without a nominal value shows 0 and 0.
void SlipCheck::takeListRow(const SlipDescription& slip, const std::string& number, const PackedRowReader& packed) {
  const Amounts sum = sumOfRows(slip, packed, {0, slip.rows.size()});
  const bool mayBeZero = isForm(slip, store::F113317) && packed.number("b1") == 0;
  const double tax = slip.taxSum.empty() ? sum.tax : packed.number(slip.taxSum);
  list_.take(number, {.grossRupiah = sum.gross, .taxRupiah = tax, .texts = listedTexts(packed)}, "NOP", "PPHDIPTG",
             mayBeZero);
}

void SlipCheck::checkSums() const {
  const std::optional<std::string> header = headerText(context_, store::D113206);
  PackedRowReader packed("D113206");
  CheckReport ignored;
  if (!header || !packed.read(ignored, "D113206", *header)) return;
  constexpr std::string_view fields[2][2] = {{"A6", "A7"}, {"B6", "B7"}};
  for (std::size_t collection = 0; collection < 2; ++collection)
    for (std::size_t part = 0; part < 2; ++part) {
      const double stored = packed.number(fields[collection][part]);
      const ListSums& sums = sums_[collection][part];
      if (!sums.agreesWith(stored))
        context_.report.compare(CheckKind::ListSum, "D113206", fields[collection][part], stored, sums.positive);
    }
}

}  // namespace

void checkSlips(const CheckContext& context) { SlipCheck(context).run(); }

}  // namespace tarvola::interchange
