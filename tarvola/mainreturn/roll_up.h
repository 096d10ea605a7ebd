#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/mainreturn/document_sums.h"
#include "tarvola/mainreturn/tax_rates.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

namespace tarvola::mainreturn {

/// The recount of a return: walks the documents of the period form by form and puts their sums and rates on the lines.
///
/// It writes to the named fields of the return and to the running sums, never to the store.
class RollUp {
 public:
  /// `form` is the loaded return; its filer's documents are counted.
  RollUp(const store::StoreObject& store, RecordsetPtr form, const store::Period& period, RunningSums& interest);

  /// Recounts all twelve forms. A failure leaves the lines of the forms before it set.
  void run();

  [[nodiscard]] const std::string& npwp() const noexcept { return npwp_; }

 private:
  void rollUp(const RolledUpForm& form);
  [[nodiscard]] RecordsetPtr documentsOf(const store::FormCodes& form) const;
  void setLine(const RolledUpForm& form, const FedLine& fed, const LineSum& sum);
  void setOtherInterest(const RolledUpForm& form);
  void setAverage(const RolledUpForm& form, const ReturnLine& line, std::string_view choice);

  const store::StoreObject& store_;
  RecordsetPtr form_;
  store::Period period_;
  RunningSums& interest_;
  std::string npwp_;
  double documentCount_ = 0;
  /// The totals of the form in progress, read for the first of its averages: all of them ask the same question.
  std::optional<TotalPairs> totals_;
};

}  // namespace tarvola::mainreturn
