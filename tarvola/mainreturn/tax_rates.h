#pragma once

#include <array>
#include <string_view>

#include "tarvola/runtime/variant.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/store_object.h"

namespace tarvola::mainreturn {

/// The documents whose average rate is asked for: all of one form, period and tax kind, whatever their number.
struct AverageKey {
  std::string_view npwp;
  std::string_view kdForm;
  std::string_view jenisDokumen;
  store::Period period;
  std::string_view kdJenisPajak = store::taxKind;
};

/// Gross and tax, in rupiah, that the store rows of all these documents hold in one pair of their total columns. Null
/// without documents.
struct TotalPair {
  Variant gross;
  Variant tax;
};

/// Total_Bruto and Total_PPh, then the pairs 1 to 4.
using TotalPairs = std::array<TotalPair, 5>;

/// Reads the sums from the store.
TotalPairs readTotals(const store::StoreObject& store, const AverageKey& key);

/// The average rate in percent of the pair that `choice` picks: rounded to three decimals, then cut to two. 0 for an
/// unknown choice, without documents, and if all five gross sums are 0. A gross of 0 beside one that is not is a
/// division by zero, error 11 or 6.
double averageRate(const TotalPairs& totals, std::string_view choice);

}  // namespace tarvola::mainreturn
