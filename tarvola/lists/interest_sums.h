#pragma once

#include <array>
#include <string>
#include <string_view>

#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

/// The sums of the table D113210, the interest lines of a period, by kind. They count every line of the period,
/// whoever the filer: a store holds one.
namespace tarvola::lists {

/// A kind of interest line (JENIS) and the names under which its count and sums come back from the store.
struct InterestKind {
  std::string_view kind;
  std::string_view payees;
  std::string_view gross;
  std::string_view tax;
};

/// Domestic, foreign, SBI, giro: the order of the header's fields. A line of any other kind enters no sum.
inline constexpr std::array interestKinds = {
    InterestKind{.kind = "DN", .payees = "JML1A3", .gross = "JmlA14", .tax = "JmlA15"},
    InterestKind{.kind = "LN", .payees = "JML1B3", .gross = "Jml1B4", .tax = "Jml1B5"},
    InterestKind{.kind = "SBI", .payees = "JML23", .gross = "Jml24", .tax = "Jml25"},
    InterestKind{.kind = "GIRO", .payees = "JML33", .gross = "Jml34", .tax = "Jml35"}};

/// How many different payees have lines of the kind: one with two lines counts once.
double countPayees(const store::StoreObject& store, const InterestKind& kind, const store::Period& period);

struct InterestSums {
  double grossRupiah = 0;
  double taxRupiah = 0;
};
/// The gross and tax of all lines of the kind, 0 without any.
InterestSums sumInterest(const store::StoreObject& store, const InterestKind& kind, const store::Period& period);

/// Writes the header of the list D113210 anew from the table: for each kind payees, gross and tax, then the three
/// totals. The totals add up the kinds, so a payee with lines of two kinds counts twice in them. Gives the packed text.
///
/// The filer's header row is written to if it is there; none is added.
std::string rewriteInterestHeader(const store::StoreObject& store, const store::FilerHeader& filer,
                                  const store::Period& period);

}  // namespace tarvola::lists
