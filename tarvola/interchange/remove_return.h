#pragma once

#include <cstdint>

#include "tarvola/store/return_contents.h"

namespace tarvola {

/// What a removal takes: the return, and with a first filing the payments of its month.
struct ReturnRemoval {
  store::ReturnContents contents;
  /// Payment records of the month, those of its corrections too; 0 where a correction is removed.
  std::int64_t payments = 0;
  /// Transfers of payments in favour of the filer; likewise.
  std::int64_t transfers = 0;
};

/// What removeReturn would take now. Nothing is removed.
ReturnRemoval whatRemovalTakes(std::int16_t month, std::int16_t year, std::int16_t correction);

/// Removes a return as CGeneralClass::pDelete does, and beside that the payees of its interest slips: left behind, they
/// would be summed into the next return of that period. Gives what was there before.
///
/// Payments go first and the documents last. So a removal that was interrupted still finds documents to go on with, and
/// the same call ends it.
///
/// The thread's connection settings must have been given to pSetCon, and the store must name its filer. It waits for
/// imports and rebuildings of other processes. Fails with a RunTimeError; what was removed till then stays removed.
ReturnRemoval removeReturn(std::int16_t month, std::int16_t year, std::int16_t correction);

}  // namespace tarvola
