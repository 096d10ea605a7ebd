#include "tarvola/slips/CF113310.h"

#include <cstddef>

#include "tarvola/lists/interest_sums.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"

namespace tarvola {
namespace {

using slips::ReturnLine;

/// The options of a row of deposits. The deposits are the first rows of the form.
struct Options {
  std::string_view domestic;
  std::string_view foreign;
};
constexpr std::array<Options, 5> depositOptions = {{{.domestic = "OPTDN1", .foreign = "OPTLN1"},
                                                    {.domestic = "OPTDN2", .foreign = "OPTLN2"},
                                                    {.domestic = "OPTDN3", .foreign = "OPTLN3"},
                                                    {.domestic = "OPTDN4", .foreign = "OPTLN4"},
                                                    {.domestic = "OPTDN5", .foreign = "OPTLN5"}}};
constexpr std::size_t depositCount = depositOptions.size();
constexpr std::size_t sbiRow = 5;
constexpr std::size_t giroRow = 6;

constexpr std::string_view domesticSide = "DN";
constexpr std::string_view foreignSide = "LN";

/// Places in the form's lines of the return, and in its total columns alike; the line that has a text and no default
/// tariff.
constexpr std::size_t domesticLine = 0;
constexpr std::size_t foreignLine = 1;
constexpr std::size_t sbiLine = 2;
constexpr std::size_t giroLine = 3;
constexpr std::string_view otherText = "B11a";
constexpr ReturnLine otherLine{.gross = "B11a3", .tariff = "B11a4", .tax = "B11a5", .rows = {.first = 7, .count = 1}};
/// What the text line is called once other interest of several slips stands in it.
constexpr std::string_view severalKinds = "Lain-Lain";

void floorAtZero(const RecordsetPtr& returnRow, std::string_view field) {
  if (store::fieldNumber(returnRow, field) < 0) store::setField(returnRow, field, 0.0);
}

}  // namespace

void CF113310::pCreateF113310Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk, std::string_view sNmWP,
                                 std::string_view sAlamat, std::string_view dTgl_Setor, std::int16_t iOptWP) {
  createStub({.key = keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk),
              .filerName = sNmWP,
              .filerAddress = sAlamat,
              .dateText = std::string(dTgl_Setor),
              .option = iOptWP});
}

/// Behind the eight leading fields the options of the five rows of deposits, in pairs.
std::string CF113310::stubText(const NewSlip& slip) const {
  constexpr std::int16_t domestic = 1;
  constexpr std::int16_t onNoSide = 2;
  if (slip.option != domestic && slip.option != onNoSide) return {};
  store::PackedRow packed(SlipFrame::stubText(slip));
  for (std::size_t row = 0; row < depositCount; ++row) packed.whole(slip.option == domestic ? 1 : 0).whole(0);
  return packed.str();
}

// --- totals ------------------------------------------------------------------------------------------------

/// Whether a row belongs to a side. An option that is Null marks nothing.
bool CF113310::isMarked(std::string_view option) const { return store::fieldNumberOr(namedFields(), option, 0) == 1; }

/// A slip with a Null among its grosses has no totals, also if the row is on no side: a stub that is deleted so leaves
/// the return alone, which never counted it.
void CF113310::pHitTotalF113310() {
  totals_ = totalsOf([this](std::size_t row) {
    return Amounts{.grossRupiah = sumOfGross({.first = row, .count = 1}),
                   .taxRupiah = sumOfTax({.first = row, .count = 1})};
  });
  totals_.slipGrossRupiah = sumOfGross({.count = description().rows.size()});
}

void CF113310::rememberOldValues() {
  SlipFrame::rememberOldValues();
  oldTotals_ = totalsOf([this](std::size_t row) {
    const OldRow& old = oldValues().rows[row];
    return Amounts{.grossRupiah = old.grossRupiah, .taxRupiah = old.taxRupiah};
  });
  for (const OldRow& row : oldValues().rows) oldTotals_.slipGrossRupiah += row.grossRupiah;
}

/// The kinds alone. The tax of a deposit on no side is not looked at.
template <class AmountsOf>
CF113310::Totals CF113310::totalsOf(const AmountsOf& amountsOf) const {
  Totals totals;
  const auto add = [&](std::size_t kind, std::size_t row) {
    const Amounts amounts = amountsOf(row);
    totals.kinds[kind].grossRupiah += amounts.grossRupiah;
    totals.kinds[kind].taxRupiah += amounts.taxRupiah;
  };
  for (std::size_t deposit = 0; deposit < depositCount; ++deposit) {
    if (isMarked(depositOptions[deposit].domestic)) add(domesticLine, deposit);
    if (isMarked(depositOptions[deposit].foreign)) add(foreignLine, deposit);
  }
  for (std::size_t row = depositCount; row < description().rows.size(); ++row) add(row - depositCount + sbiLine, row);
  return totals;
}

/// A row whose options were never set counts as domestic.
void CF113310::normalise(std::int16_t /*nrec*/) {
  normaliseRows();
  const RecordsetPtr& form = namedFields();
  for (const Options& options : depositOptions) {
    if (store::isNullField(form, options.domestic)) store::setField(form, options.domestic, std::int16_t{1});
    if (store::isNullField(form, options.foreign)) store::setField(form, options.foreign, std::int16_t{0});
  }
  if (store::isNullField(form, "B62")) store::setField(form, "B62", "");
  normaliseSums();
}

void CF113310::writeTotals(const RecordsetPtr& storeRow) {
  for (std::size_t kind = 0; kind < totals_.kinds.size(); ++kind) {
    store::setField(storeRow, description().totals[kind].gross, totals_.kinds[kind].grossRupiah);
    store::setField(storeRow, description().totals[kind].tax, totals_.kinds[kind].taxRupiah);
  }
}

CF113310::ListAmounts CF113310::listAmounts() const {
  ListAmounts amounts = SlipFrame::listAmounts();
  amounts.grossChangeRupiah = amounts.grossRupiah - oldTotals_.slipGrossRupiah;
  return amounts;
}

// --- the return --------------------------------------------------------------------------------------------

void CF113310::moveReturnLines(CF113204& mainReturn) {
  const auto lines = description().returnLines;
  const RecordsetPtr returnRow = mainReturn.rs4_2Form();
  for (const std::size_t side : {domesticLine, foreignLine})
    moveSide(returnRow, lines[side], totals_.kinds[side], oldTotals_.kinds[side]);
  setReturnTariff(mainReturn, lines[domesticLine]);
  setReturnTariff(mainReturn, lines[foreignLine]);
  if (status().remove) takeFromReturn(mainReturn);
  if (status().addsOrEdits()) addToReturn(mainReturn);
  setReturnTariff(mainReturn, lines[sbiLine]);
  setReturnTariff(mainReturn, lines[giroLine]);
}

/// A delete leaves a side at 0 where it would fall below it; an edit may drive it below 0.
void CF113310::moveSide(const RecordsetPtr& returnRow, const ReturnLine& line, const Amounts& now,
                        const Amounts& old) const {
  const bool adds = status().addsOrEdits();
  if (!adds && !status().remove) return;
  addToLine(returnRow, line,
            {.grossRupiah = adds ? now.grossRupiah - old.grossRupiah : -old.grossRupiah,
             .taxRupiah = adds ? now.taxRupiah - old.taxRupiah : -old.taxRupiah});
  if (adds) return;
  floorAtZero(returnRow, line.gross);
  floorAtZero(returnRow, line.tax);
}

/// The text line keeps its text only while it stands for several slips and still holds something: with "Deposito" in
/// it, deleting any interest slip empties the text, whatever is left in the amounts.
///
/// The mark of deletion alone leads here: a slip that is saved as edited and deleted at once is taken from SBI, giro
/// and other interest with its old amounts and then added with the difference, while its sides move by the difference.
void CF113310::takeFromReturn(CF113204& mainReturn) {
  const auto lines = description().returnLines;
  const RecordsetPtr returnRow = mainReturn.rs4_2Form();
  takeFromLine(returnRow, lines[sbiLine]);
  takeFromLine(returnRow, lines[giroLine]);
  const std::string words = store::fieldTextOr(returnRow, otherText, "");
  const bool standsForSeveral = InStrText(Trim(words), severalKinds) >= 1;
  takeFromLine(returnRow, otherLine);
  if (!standsForSeveral || store::fieldNumber(returnRow, otherLine.gross) == 0)
    store::setField(returnRow, otherText, "");
  setOtherTariff(mainReturn);
  for (const std::size_t line : {sbiLine, giroLine}) {
    floorAtZero(returnRow, lines[line].gross);
    floorAtZero(returnRow, lines[line].tax);
  }
}

/// The first slip gives the text line its own words; any further save, with the same words, with none, or of the same
/// slip once more, makes "Lain-Lain" of them.
void CF113310::addToReturn(CF113204& mainReturn) {
  const auto lines = description().returnLines;
  const RecordsetPtr returnRow = mainReturn.rs4_2Form();
  moveReturnLine(returnRow, lines[sbiLine]);
  moveReturnLine(returnRow, lines[giroLine]);
  for (const std::string_view words : {otherText, std::string_view("B11b"), std::string_view("B11c")})
    if (store::isNullField(returnRow, words)) store::setField(returnRow, words, "");
  const bool isFree = store::fieldText(returnRow, otherText).empty();
  store::setField(returnRow, otherText,
                  isFree ? store::fieldTextOr(namedFields(), "B62", "") : std::string(severalKinds));
  moveReturnLine(returnRow, otherLine);
  setOtherTariff(mainReturn);
}

void CF113310::setOtherTariff(CF113204& mainReturn) {
  const RecordsetPtr returnRow = mainReturn.rs4_2Form();
  const bool isZero = store::fieldNumber(returnRow, otherLine.gross) == 0;
  store::setField(returnRow, otherLine.tariff, isZero ? Variant("0") : Variant(averageTariff(otherLine.averageChoice)));
}

// --- the list of interest ------------------------------------------------------------------------------------

void CF113310::pInsert_D113210() {
  guarded([&] {
    const lists::InterestSlip slip = interestSlip();
    lists::removeInterestLines(storeObject(), slip);
    const auto insert = [&, dateOfSlip = spliced("Tgl_Potong")](const lists::InterestLine& line) {
      lists::insertInterestLine(storeObject(), slip, dateOfSlip, line);
    };
    const lists::InterestLine domestic = depositLine(domesticSide);
    const lists::InterestLine foreign = depositLine(foreignSide);
    insert(domestic);
    insert(foreign);
    insert(lineOf("SBI", description().rows[sbiRow]));
    insert(lineOf("GIRO", description().rows[giroRow]));
    pUpdHdrD113210();
  });
}

void CF113310::pDelD113210() {
  guarded([&] {
    lists::removeInterestLines(storeObject(), interestSlip());
    pUpdHdrD113210();
  });
}

/// A field as a statement takes it: a Null, such as an address that nobody wrote, enters it as an empty text.
std::string CF113310::spliced(std::string_view name) const { return store::fieldTextOr(namedFields(), name, ""); }

lists::InterestSlip CF113310::interestSlip() const {
  return {.payeeNpwp = spliced("NPWPLT"),
          .payeeName = spliced("NMWPLT"),
          .payeeAddress = spliced("ALMLT"),
          .period = formPeriod(),
          .noBukti = spliced("NoBukti")};
}

/// The deposits of a side. One that is marked on both sides is domestic here, though it counts twice in the totals; one
/// whose gross is 0 or Null is none.
lists::InterestLine CF113310::depositLine(std::string_view side) const {
  const RecordsetPtr& form = namedFields();
  lists::DepositSum sum(side);
  for (std::size_t index = 0; index < depositCount; ++index) {
    const slips::AmountRow& row = description().rows[index];
    const double gross = store::fieldNumberOr(form, row.gross, 0);
    if (gross == 0) continue;
    const bool isDomestic = isMarked(depositOptions[index].domestic);
    const bool isForeign = !isDomestic && isMarked(depositOptions[index].foreign);
    if (side == domesticSide ? isDomestic : isForeign)
      sum.add(gross, store::fieldNumber(form, row.tariff), store::fieldNumber(form, row.tax));
  }
  return sum.line();
}

/// SBI or giro. Without a gross nothing else is looked at.
lists::InterestLine CF113310::lineOf(std::string_view kind, const slips::AmountRow& row) const {
  const RecordsetPtr& form = namedFields();
  const double gross = store::fieldNumberOr(form, row.gross, 0);
  if (gross == 0) return {};
  return {.kind = kind,
          .place = "",
          .grossRupiah = gross,
          .ratePercent = store::fieldNumber(form, row.tariff),
          .taxRupiah = store::fieldNumber(form, row.tax)};
}

/// The list counts all lines of the period; the slip's filer only says whose header is written.
void CF113310::pUpdHdrD113210() const {
  lists::rewriteInterestHeader(
      storeObject(), {.npwp = spliced("npwp"), .name = spliced("NmWP"), .address = spliced("ALM")}, formPeriod());
}

// --- certificates ----------------------------------------------------------------------------------------------

std::string CF113310::aGetNoSKB(std::int16_t iIndex) const {
  constexpr std::array<std::string_view, 6> certificates = {"NoSKB1", "NoSKB2", "NoSKB3", "NoSKB4", "NoSKB5", "NoSKB6"};
  if (iIndex < 0 || static_cast<std::size_t>(iIndex) >= certificates.size()) return {};
  return textField(certificates[static_cast<std::size_t>(iIndex)]);
}

}  // namespace tarvola
