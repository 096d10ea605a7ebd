#pragma once

#include <string>

#include "tarvola/interchange/accounted_lines.h"
#include "tarvola/interchange/import_line.h"
#include "tarvola/interchange/self_paid_ledger.h"
#include "tarvola/interchange/store_lock.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

namespace tarvola::interchange {

/// Takes lines into a period and tells what became of each.
///
/// It writes the same rows in the same order as CImporBP::pImporPPh4. It differs in what it does about lines that are
/// there already: a slip that says something else is refused instead of passed over, interest lines that an
/// interruption kept out are completed, and a self-paid form that is there is not stored again.
class AccountedImport {
 public:
  AccountedImport(const store::StoreObject& store, std::string npwp, const store::Period& period, StoreLock& lock);

  LineOutcome import(const ImportLine& line);

 private:
  LineOutcome write(const ImportLine& line);
  LineOutcome writeSlip(const LineWriter& writer);
  LineOutcome writeSelfPaidForm(const LineWriter& writer);

  const store::StoreObject& store_;
  std::string npwp_;
  store::Period period_;
  StoreLock& lock_;
  SelfPaidLedger ledger_;
};

}  // namespace tarvola::interchange
