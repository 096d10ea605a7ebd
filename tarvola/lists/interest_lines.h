#pragma once

#include <string>
#include <string_view>

#include "tarvola/store/document_key.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"

/// The rows of the table D113210: what one interest slip says about each kind of interest.
namespace tarvola::lists {

/// By what the lines of a slip are found again: its payee, period and number. A slip whose number or payee has changed
/// since leaves its old lines behind.
struct InterestSlip {
  std::string payeeNpwp;
  std::string payeeName;
  std::string payeeAddress;
  store::Period period;
  std::string noBukti;
};

/// One line. Gross and tax are cut down to whole rupiah as they are written, not before they are added up.
struct InterestLine {
  std::string_view kind;
  std::string_view place;
  double grossRupiah = 0;
  double ratePercent = 0;
  double taxRupiah = 0;
};

/// The deposits of one side, domestic or foreign, put together into a line.
class DepositSum {
 public:
  /// Kind and place of the line are the side, "DN" or "LN".
  explicit DepositSum(std::string_view side) : line_{.kind = side, .place = side} {}

  /// Adds a deposit. The rate is that of the first one and halves its way with each further one: 10, 10 and 40 give 25,
  /// which is no mean; the list shows this value.
  void add(double grossRupiah, double ratePercent, double taxRupiah);

  [[nodiscard]] const InterestLine& line() const noexcept { return line_; }

 private:
  InterestLine line_;
  bool isEmpty_ = true;
};

/// "NPWP = '..' AND NMWP = '..' AND ALM = '..' AND <period> AND NOBUKTI = '..'"
store::Statement interestLinesCondition(const InterestSlip& slip);
/// Deletes the lines of a slip if it has any.
void removeInterestLines(const store::StoreObject& store, const InterestSlip& slip);
/// Adds a line to a slip; one whose gross is 0 is none. The date is a text that the store reads as a date.
void insertInterestLine(const store::StoreObject& store, const InterestSlip& slip, std::string_view dateOfSlip,
                        const InterestLine& line);

}  // namespace tarvola::lists
