#include "tarvola/interchange/accounted_import.h"

#include <mutex>
#include <optional>

#include "tarvola/interchange/import_texts.h"
#include "tarvola/interchange/line_check.h"
#include "tarvola/interchange/packed_compare.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::interchange {

namespace {

using Kind = LineOutcome::Kind;

bool hasInterestLines(const LineWriter& writer) { return writer.form().codes.kdForm == store::F113310.kdForm; }

/// What lacks of a slip that the store holds, from an import that was interrupted.
LineOutcome completeSlip(const LineWriter& writer, bool isListed) {
  if (!isListed) writer.insertListRow(writer.nextSeq());
  const bool lacksInterestLines = hasInterestLines(writer) && !writer.hasAllInterestLines();
  if (lacksInterestLines) writer.replaceInterestLines();
  return {.kind = isListed && !lacksInterestLines ? Kind::AlreadyThere : Kind::Stored};
}

SelfPaidLedger readLedger(const store::StoreObject& store, std::string_view npwp, const store::Period& period,
                          StoreLock& lock) {
  const std::lock_guard held(lock);
  return SelfPaidLedger(store, npwp, period);
}

}  // namespace

AccountedImport::AccountedImport(const store::StoreObject& store, std::string npwp, const store::Period& period,
                                 StoreLock& lock)
    : store_(store),
      npwp_(std::move(npwp)),
      period_(period),
      lock_(lock),
      ledger_(readLedger(store_, npwp_, period_, lock_)) {}

LineOutcome AccountedImport::import(const ImportLine& line) {
  if (std::string fault = faultOf(line, period_); !fault.empty()) return refusedLine(std::move(fault));
  const std::lock_guard held(lock_);
  try {
    return write(line);
  } catch (const RunTimeError& error) {
    return refusedLine(error.description());
  }
}

LineOutcome AccountedImport::write(const ImportLine& line) {
  const store::FilerHeader filer = readFiler(store_);
  const LineWriter writer(store_, period_, filer, *findImportForm(line.text(FormCode)), line);
  return writer.form().codes.kind == store::FormKind::Slip ? writeSlip(writer) : writeSelfPaidForm(writer);
}

/// Both checks come before the first write: a list row goes in behind its slip, so that one without a slip is that of
/// another form's slip, and the new slip would never be listed.
LineOutcome AccountedImport::writeSlip(const LineWriter& writer) {
  const std::string_view noBukti = writer.noBukti();
  const std::optional<std::string> stored = findFormInduk(store_, npwp_, period_, writer.form().codes.kdForm, noBukti);
  const bool isListed = existsInLampiran(store_, period_, store::D113206.kdForm, noBukti, 0);
  if (stored) {
    if (!saysTheSame(*stored, writer.packed())) return refusedLine(otherContentsText(noBukti));
    return completeSlip(writer, isListed);
  }
  if (isListed) return refusedLine(numberTakenText(noBukti));
  writer.insertSlip();
  writer.insertListRow(writer.nextSeq());
  if (hasInterestLines(writer)) writer.replaceInterestLines();
  return {};
}

LineOutcome AccountedImport::writeSelfPaidForm(const LineWriter& writer) {
  if (ledger_.takeForm(writer)) return {.kind = Kind::AlreadyThere, .isSelfPaid = true};
  const std::optional<double> orphan = ledger_.takeOrphan(writer);
  const double seq = orphan ? *orphan : writer.nextSeq();
  if (!orphan) writer.insertListRow(seq);
  writer.insertSelfPaidForm(seq);
  return {.isSelfPaid = true};
}

}  // namespace tarvola::interchange
