#include "tarvola/interchange/slip_file_import.h"

#include "tarvola/interchange/accounted_import.h"
#include "tarvola/interchange/import_texts.h"
#include "tarvola/interchange/rebuild_return.h"
#include "tarvola/interchange/reject_file.h"
#include "tarvola/interchange/slip_file_reader.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/store_object.h"

namespace tarvola {

namespace {

using interchange::AccountedImport;
using interchange::ImportLine;
using interchange::LineOutcome;
using interchange::RejectFile;
using interchange::SlipFileReader;
using interchange::StoreLock;
using store::Period;

// --- lines -----------------------------------------------------------------------------------------------

/// What the reader itself has to say against a line.
std::string faultOfReading(const SlipFileReader& reader) {
  if (reader.isTooLong())
    return interchange::lineTooLongForFormText(reader.bytes().size(), interchange::longestLineBytes);
  return reader.isBroken() ? interchange::brokenUtf8Text() : std::string();
}

LineOutcome importLine(const SlipFileReader& reader, AccountedImport& import) {
  if (std::string fault = faultOfReading(reader); !fault.empty())
    return {.kind = LineOutcome::Kind::Refused, .reason = std::move(fault)};
  return import.import(ImportLine(reader.columns()));
}

void account(SlipFileImportResult& result, const LineOutcome& outcome) {
  ++result.read;
  switch (outcome.kind) {
    case LineOutcome::Kind::Stored:
      ++result.stored;
      if (outcome.isSelfPaid) ++result.selfPaidStored;
      return;
    case LineOutcome::Kind::AlreadyThere:
      ++result.alreadyThere;
      return;
    case LineOutcome::Kind::Refused:
      ++result.refused;
      return;
  }
}

void importLines(SlipFileReader& reader, AccountedImport& import, RejectFile& rejects, SlipFileImportResult& result) {
  Progress progress("Importing slips", reader.bytesTotal());
  while (reader.next()) {
    const LineOutcome outcome = importLine(reader, import);
    account(result, outcome);
    if (reader.isLikeUtf8()) ++result.likeUtf8;
    if (outcome.kind == LineOutcome::Kind::Refused) {
      rejects.add(reader.bytes(), outcome.reason);
      if (result.firstRefused.size() < refusedLinesKept)
        result.firstRefused.push_back({reader.lineNumber(), outcome.reason});
    }
    progress.done(reader.bytesRead());
  }
}

}  // namespace

SlipFileImportResult importSlipFile(const SlipFileImport& order) {
  const Period period{order.month, order.year, order.correction};
  const store::StoreObject store;
  const store::FilerHeader filer = interchange::readFiler(store);
  if (filer.npwp.empty()) fail(ErrorNumber::InvalidProcedureCall, interchange::noFilerText());
  SlipFileReader reader(order.path);
  RejectFile rejects(order.rejectPath, reader.encoding());
  StoreLock lock(moduleState().sDSN);
  AccountedImport import(store, filer.npwp, period, lock);

  SlipFileImportResult result;
  importLines(reader, import, rejects, result);
  rejects.finish();
  if (result.read > result.refused) {
    RebuildOutcome rebuilt = rebuildReturn(order.month, order.year, order.correction);
    result.rebuildFailures = std::move(rebuilt.failures);
    result.rebuildWarnings = std::move(rebuilt.warnings);
  }
  return result;
}

}  // namespace tarvola
