#pragma once

#include <deque>
#include <optional>
#include <string>
#include <unordered_map>

#include "tarvola/interchange/line_writer.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

namespace tarvola::interchange {

/// The self-paid forms that a period held before an import, so that importing a file again doubles none.
///
/// A self-paid form has no number of its own: several may stand on one payment, and two may be equal to the last field.
/// So a line takes one of the stored forms that say the same as it does, and the second of two equal lines the second
/// such form. Only a line that finds none left is a new form. Forms that come in after the ledger was made do not
/// count: the file's own lines never take one another for an earlier import, and two imports at once do not either.
///
/// A list row without its form is what an interruption between the two leaves; a line that says the same may complete
/// it.
class SelfPaidLedger {
 public:
  SelfPaidLedger(const store::StoreObject& store, std::string_view npwp, const store::Period& period);

  /// Takes a stored form that says the same as the line; false if none is left.
  bool takeForm(const LineWriter& line);
  /// Takes the SEQ of a list row without a form that says the same as the line.
  std::optional<double> takeOrphan(const LineWriter& line);

 private:
  void readForms(const store::StoreObject& store, std::string_view npwp, const store::Period& period,
                 const ImportForm& form);

  std::unordered_map<std::string, std::size_t> forms_;
  std::unordered_map<std::string, std::deque<double>> orphans_;
};

}  // namespace tarvola::interchange
