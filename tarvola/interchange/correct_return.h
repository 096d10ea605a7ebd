#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tarvola/mainreturn/copy_obstacles.h"
#include "tarvola/store/return_contents.h"

namespace tarvola {

/// A correction that is to be made: of which return, and whether the filer has moved to another tax office meanwhile.
struct CorrectionOrder {
  std::int16_t month = 0;
  std::int16_t year = 0;
  /// The number of the return that is corrected; the correction gets the next one.
  std::int16_t corrected = 0;
  /// The filer's new number, 15 digits; "" for a filer who has not moved.
  std::string newNpwp = {};
};

/// What became of a correction.
struct CorrectionOutcome {
  /// What stands in the way. If there is anything, nothing was changed.
  std::vector<CopyObstacle> obstacles;
  store::ReturnContents source;
  /// What the correction holds now. It is less than the source only where that has documents of forms that no return of
  /// this kind has.
  store::ReturnContents target;
  std::int64_t paymentsCopied = 0;
  /// Payment records that the correction held already.
  std::int64_t paymentsThere = 0;
};

/// Makes the next correction of a return: a copy of all its documents, lists and payees, and of the payment records
/// that the correction lacks. Whatever the correction held before of documents, lists and payees is replaced; payment
/// records of its own stay.
///
/// The return is looked through before anything is cleared. There is no transaction: a process that is ended in the
/// middle leaves the correction incomplete, and the same call again gives what an undisturbed one gives.
///
/// Copies under a new number stand under it in column and packed text; payees and payment records keep their numbers.
///
/// The thread's connection settings must have been given to pSetCon. It waits for imports and rebuildings of other
/// processes. Fails with a RunTimeError if there is no main form to correct, or if the store refuses a row.
CorrectionOutcome correctReturn(const CorrectionOrder& order);

}  // namespace tarvola
