#pragma once

#include <cstdint>
#include <vector>

#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

namespace tarvola::store {

/// How many rows of each kind a store holds of a return of kind "113". Payments belong to a month and not to a return,
/// so they are not among them.
struct ReturnContents {
  std::int64_t mainForms = 0;
  /// Headers of lists, in both tables of documents.
  std::int64_t listHeaders = 0;
  std::int64_t slips = 0;
  std::int64_t selfPaidForms = 0;
  /// Rows of the lists of slips and of the self-paid lists.
  std::int64_t listRows = 0;
  std::int64_t selfPaidListRows = 0;
  /// Rows of table D113210.
  std::int64_t interestPayees = 0;

  [[nodiscard]] std::int64_t documents() const noexcept { return mainForms + listHeaders + slips + selfPaidForms; }
  /// Nothing at all, not even what an interrupted removal has left.
  [[nodiscard]] bool isEmpty() const noexcept {
    return documents() + listRows + selfPaidListRows + interestPayees == 0;
  }

  friend bool operator==(const ReturnContents&, const ReturnContents&) = default;
};

/// A return of the store as its directory shows it.
struct StoredReturn {
  Period period;
  ReturnContents contents;
  /// The totals of its main form, in rupiah; 0 without one, and where they cannot be read.
  double grossRupiah = 0;
  double taxRupiah = 0;
};

/// Counts what is there of a return; all 0 where there is none.
ReturnContents contentsOf(const StoreObject& store, const Period& period);

/// All returns of kind "113", in the order of year, month and correction. A return is there as soon as one row of it
/// is, so that a half removed or half copied one shows.
std::vector<StoredReturn> storedReturns(const StoreObject& store);

}  // namespace tarvola::store
