#include <limits>

#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/mainreturn/return_copy.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/failure_rule.h"

namespace tarvola {
namespace {

using mainreturn::CopyManner;
using mainreturn::ReturnCopy;

using mainreturn::otherOffice;
using mainreturn::sameOffice;

/// The move to another office as its operations make it.
constexpr CopyManner otherOfficeWithRatesAsRead{.goesByFiler = otherOffice.goesByFiler,
                                                .alwaysWritesNumber = otherOffice.alwaysWritesNumber,
                                                .replacesNumberColumn = otherOffice.replacesNumberColumn,
                                                .splicesRateAsRead = true};

/// The correction behind a period. Behind 32767 there is none: error 6.
store::Period nextCorrection(store::Period period) {
  if (period.kdPembetulanKe == std::numeric_limits<std::int16_t>::max()) fail(ErrorNumber::Overflow);
  ++period.kdPembetulanKe;
  return period;
}

// The order of the tables is that in which a failure leaves the earlier ones copied and the later ones as they were.

void copyReturn(const store::StoreObject& store, const ReturnCopy& copy) {
  mainreturn::copyDocuments(store, copy);
  mainreturn::copyListItems(store, copy);
  mainreturn::copyPayees(store, copy);
}

void copySelfPaidPart(const store::StoreObject& store, const ReturnCopy& copy) {
  mainreturn::copySelfPaidForms(store, copy);
  mainreturn::copySelfPaidListItems(store, copy);
}

ReturnCopy sameFiler(std::string_view number, std::string_view kind, store::Period source) {
  return {.manner = sameOffice,
          .oldNumber = number,
          .newNumber = number,
          .kdJenisPajak = kind,
          .source = source,
          .target = nextCorrection(source)};
}

ReturnCopy movedFiler(std::string_view oldNumber, std::string_view newNumber, std::string_view kind,
                      store::Period source) {
  return {.manner = otherOfficeWithRatesAsRead,
          .oldNumber = oldNumber,
          .newNumber = newNumber,
          .kdJenisPajak = kind,
          .source = source,
          .target = nextCorrection(source)};
}

}  // namespace

void CF113204::pCopyAllData(std::string_view sNPWP, std::string_view skdJnsPjk, std::int16_t iMsPjk,
                            std::int16_t iThPjk, std::int16_t iCorrSeq) {
  guarded([&] { copyReturn(store_, sameFiler(sNPWP, skdJnsPjk, {iMsPjk, iThPjk, iCorrSeq})); });
}

void CF113204::pCopyAllDataSSP(std::string_view sNPWP, std::string_view skdJnsPjk, std::int16_t iMsPjk,
                               std::int16_t iThPjk, std::int16_t iCorrSeq) {
  guarded([&] { copySelfPaidPart(store_, sameFiler(sNPWP, skdJnsPjk, {iMsPjk, iThPjk, iCorrSeq})); });
}

void CF113204::pCopySSP_42(std::int16_t sKdPsl, std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq) {
  guarded([&] {
    const store::Period source{iMsPjk, iThPjk, iCorrSeq};
    mainreturn::copyPayments(store_, sKdPsl, source, nextCorrection(source));
  });
}

void CF113204::pCopyAllDataOldKPP(std::string_view sNpwpOld, std::string_view sNpwpNew, std::string_view skdJnsPjk,
                                  std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq) {
  guarded([&] { copyReturn(store_, movedFiler(sNpwpOld, sNpwpNew, skdJnsPjk, {iMsPjk, iThPjk, iCorrSeq})); });
}

void CF113204::pCopyAllDataSSPOldKPP(std::string_view sNpwpOld, std::string_view sNpwpNew, std::string_view skdJnsPjk,
                                     std::int16_t iMsPjk, std::int16_t iThPjk, std::int16_t iCorrSeq) {
  guarded([&] { copySelfPaidPart(store_, movedFiler(sNpwpOld, sNpwpNew, skdJnsPjk, {iMsPjk, iThPjk, iCorrSeq})); });
}

}  // namespace tarvola
