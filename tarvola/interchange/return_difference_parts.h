#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tarvola/interchange/return_difference.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

/// The parts of a comparison.
namespace tarvola::interchange {

/// One of the two returns.
struct ComparedReturn {
  store::Period period;
  /// The filer's number on its main form.
  std::string npwp;
};

/// The two returns of a comparison.
struct ComparedReturns {
  const store::StoreObject& store;
  ComparedReturn before;
  ComparedReturn after;
};

std::vector<DocumentDifference> compareSlips(const ComparedReturns& returns);
std::vector<DocumentDifference> compareSelfPaidForms(const ComparedReturns& returns);
std::vector<DocumentDifference> compareInterestPayees(const ComparedReturns& returns);
std::vector<DocumentDifference> comparePayments(const ComparedReturns& returns);

/// By number, then form, then SEQ.
void sortByNumber(std::vector<DocumentDifference>& differences);

}  // namespace tarvola::interchange
