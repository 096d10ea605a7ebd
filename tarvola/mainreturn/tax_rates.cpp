#include "tarvola/mainreturn/tax_rates.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/runtime/variant_math.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/statement.h"

namespace tarvola::mainreturn {
namespace {

using store::Statement;
using store::text;

/// The names under which the sums come back, in the order of TotalPairs.
struct PairNames {
  std::string_view gross;
  std::string_view tax;
};
constexpr std::array<PairNames, 5> pairNames = {{{"JML_BRUTO", "JML_PPh"},
                                                 {"JML_BRUTO1", "JML_PPh1"},
                                                 {"JML_BRUTO2", "JML_PPh2"},
                                                 {"JML_BRUTO3", "JML_PPh3"},
                                                 {"JML_BRUTO4", "JML_PPh4"}}};

/// A word that picks a pair. Interest slips name their pairs, the other forms number them.
struct Choice {
  std::string_view word;
  std::size_t pair;
};
constexpr std::array<Choice, 9> choices = {
    {{"", 0}, {"1", 1}, {"DN", 1}, {"2", 2}, {"LN", 2}, {"3", 3}, {"SBI", 3}, {"4", 4}, {"GIRO", 4}}};

std::optional<std::size_t> chosenPair(std::string_view word) {
  const auto found =
      std::find_if(choices.begin(), choices.end(), [word](const Choice& choice) { return choice.word == word; });
  if (found == choices.end()) return std::nullopt;
  return found->pair;
}

Statement totalsSelection(const AverageKey& key) {
  return Statement(
             "SELECT sum(TOTAL_BRUTO) as JML_BRUTO, sum(TOTAL_PPh) as JML_PPh, "
             "sum(TOTAL_BRUTO1) as JML_BRUTO1, sum(TOTAL_PPh1) as JML_PPh1, "
             "sum(TOTAL_BRUTO2) as JML_BRUTO2, sum(TOTAL_PPh2) as JML_PPh2, "
             "sum(TOTAL_BRUTO3) as JML_BRUTO3, sum(TOTAL_PPh3) as JML_PPh3, "
             "sum(TOTAL_BRUTO4) as JML_BRUTO4, sum(TOTAL_PPh4) as JML_PPh4 "
             "FROM DS_FORM_INDUK WHERE NPWP = ")
         << text(key.npwp) << " AND KD_FORM = " << text(key.kdForm) << " AND JENIS_DOKUMEN = " << text(key.jenisDokumen)
         << " AND " << store::periodCondition(key.period) << " AND KD_JENIS_PAJAK = " << text(key.kdJenisPajak);
}

/// A sum over no rows is Null and does not count as 0.
bool isZero(const TotalPair& pair) { return isTrue(isEqual(pair.gross, 0.0)); }

}  // namespace

TotalPairs readTotals(const store::StoreObject& store, const AverageKey& key) {
  const RecordsetPtr sums = store.execute(totalsSelection(key));
  TotalPairs totals;
  totals.fill({.gross = Variant::null(), .tax = Variant::null()});
  if (store::isEmptyResult(sums)) return totals;
  for (std::size_t pair = 0; pair < totals.size(); ++pair)
    totals[pair] = {.gross = store::fieldValue(sums, pairNames[pair].gross),
                    .tax = store::fieldValue(sums, pairNames[pair].tax)};
  return totals;
}

double averageRate(const TotalPairs& totals, std::string_view choice) {
  if (std::all_of(totals.begin(), totals.end(), isZero)) return 0;
  const std::optional<std::size_t> pair = chosenPair(choice);
  if (!pair || totals[*pair].gross.isNull()) return 0;
  const Variant rate = divide(multiply(totals[*pair].tax, 100.0), totals[*pair].gross);
  // First rounded to three decimals, then cut to two: 12.3456 gives 12.346 and then 12.34.
  return pRoundDown2(CDbl(Format(CDbl(rate), "0.000")));
}

}  // namespace tarvola::mainreturn
