#include "tarvola/slips/CF113316.h"

#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/store/field_access.h"

namespace tarvola {
namespace {

using slips::ReturnLine;
using slips::RowRange;

/// Rows 4 and 5, and the options that send them to a line.
struct OptionRow {
  std::size_t row;
  std::string_view option;
};
constexpr std::array<OptionRow, 2> optionRows = {{{.row = 3, .option = "Opt4"}, {.row = 4, .option = "Opt5"}}};

/// Places in the form's lines of the return, and in its total columns alike.
constexpr std::size_t planning = 0;
constexpr std::size_t work = 1;
constexpr std::size_t supervision = 2;

/// An option and the place that it picks.
struct Service {
  std::int16_t option;
  std::size_t place;
};
constexpr std::array<Service, 2> services = {{{.option = 1, .place = planning}, {.option = 2, .place = supervision}}};

constexpr RowRange onlyRow(std::size_t row) { return {.first = row, .count = 1}; }

}  // namespace

void CF113316::pCreateF113316Hdr(std::string_view sNPWP, std::string_view snmForm, std::string_view sJnsDok,
                                 std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq,
                                 std::string_view sNoBukti, std::string_view sJnsPjk, std::int16_t iKdPmtg,
                                 std::string_view sNmWP, std::string_view sAlamat, std::string_view dTgl_Setor) {
  createStub({.key = keyOf(sNPWP, snmForm, sJnsDok, iMsPjk, iThPjk, iCorrSeq, sNoBukti, sJnsPjk),
              .filerName = sNmWP,
              .filerAddress = sAlamat,
              .dateText = std::string(dTgl_Setor),
              .option = iKdPmtg});
}

bool CF113316::isService(std::string_view option, std::int16_t service) const {
  return store::fieldNumberOr(namedFields(), option, 0) == service;
}

void CF113316::rememberOldValues() {
  SlipFrame::rememberOldValues();
  for (std::size_t index = 0; index < oldOptions_.size(); ++index) {
    const std::string_view option = optionRows[index].option;
    const bool isNull = store::isNullField(namedFields(), option);
    oldOptions_[index] = isNull ? std::int16_t{0} : store::fieldInteger(namedFields(), option);
  }
}

void CF113316::writeTotals(const RecordsetPtr& storeRow) {
  // The slip is packed by now: the stored text still says nothing where the option was Null.
  store::nullToZero(namedFields(), optionRows.front().option);
  const auto put = [&](std::size_t place, const Amounts& amounts) {
    store::setField(storeRow, description().totals[place].gross, amounts.grossRupiah);
    store::setField(storeRow, description().totals[place].tax, amounts.taxRupiah);
  };
  for (const Service& service : services) {
    Amounts sum;
    for (const OptionRow& optionRow : optionRows) {
      if (!isService(optionRow.option, service.option)) continue;
      sum.grossRupiah += sumOfGross(onlyRow(optionRow.row));
      sum.taxRupiah += sumOfTax(onlyRow(optionRow.row));
    }
    put(service.place, sum);
  }
  const RowRange workRows = description().totals[work].rows;
  put(work, {.grossRupiah = sumOfGross(workRows), .taxRupiah = sumOfTax(workRows)});
}

/// A Null Opt5 fails here. It has picked no total, so that the slip is stored by now.
void CF113316::beforeRollUp() {
  for (std::size_t index = 0; index < newOptions_.size(); ++index)
    newOptions_[index] = store::fieldInteger(namedFields(), optionRows[index].option);
}

// --- the return ------------------------------------------------------------------------------------------

void CF113316::moveReturnLines(CF113204& mainReturn) {
  const RecordsetPtr returnRow = mainReturn.rs4_2Form();
  if (status().onlyRemoves()) takeOptionRows(returnRow);
  if (status().addsOrEdits()) moveOptionRows(returnRow);
  moveReturnLine(returnRow, description().returnLines[work]);
  for (const ReturnLine& line : description().returnLines) setReturnTariff(mainReturn, line);
}

void CF113316::takeOptionRows(const RecordsetPtr& returnRow) const {
  for (const Service& service : services)
    for (std::size_t index = 0; index < oldOptions_.size(); ++index) {
      if (oldOptions_[index] != service.option) continue;
      addToLine(returnRow, description().returnLines[service.place], takenAway(optionRows[index].row));
    }
}

void CF113316::moveOptionRows(const RecordsetPtr& returnRow) const {
  for (const Service& service : services)
    for (std::size_t index = 0; index < newOptions_.size(); ++index)
      if (newOptions_[index] == service.option) moveOptionRow(returnRow, index, service.option);
}

/// Brings one of the two rows to the line of its option. An edit that changed the option takes the old amounts from the
/// other line, whatever the old option was: from 0 to 1 they leave supervision, where they never were. An edit to 0
/// does not come here at all: from 1 to 0 the old amounts stay in planning.
void CF113316::moveOptionRow(const RecordsetPtr& returnRow, std::size_t optionRow, std::int16_t option) const {
  const auto lines = description().returnLines;
  const ReturnLine& own = option == 1 ? lines[planning] : lines[supervision];
  const ReturnLine& other = option == 1 ? lines[supervision] : lines[planning];
  const std::size_t row = optionRows[optionRow].row;
  if (status().edit && oldOptions_[optionRow] != option) {
    addToLine(returnRow, own, {.grossRupiah = sumOfGross(onlyRow(row)), .taxRupiah = sumOfTax(onlyRow(row))});
    addToLine(returnRow, other, takenAway(row));
    return;
  }
  addToLine(returnRow, own, changeOf(row));
}

}  // namespace tarvola
