#include "tarvola/interchange/slip_file_import.h"

#include "tarvola/interchange/accounted_import.h"
#include "tarvola/interchange/exchange_file_reader.h"
#include "tarvola/interchange/import_texts.h"
#include "tarvola/interchange/rebuild_return.h"
#include "tarvola/interchange/reject_file.h"
#include "tarvola/interchange/slip_file_layout.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/store_object.h"

namespace tarvola {

namespace {

using interchange::AccountedImport;
using interchange::ExchangeFileReader;
using interchange::ImportLine;
using interchange::LineOutcome;
using interchange::RejectFile;
using interchange::StoreLock;
using store::Period;

LineOutcome importLine(std::span<const std::string_view> columns, AccountedImport& import,
                       SlipFileImportResult& result) {
  LineOutcome outcome = import.import(ImportLine(columns));
  if (outcome.kind == LineOutcome::Kind::Stored && outcome.isSelfPaid) ++result.selfPaidStored;
  return outcome;
}

}  // namespace

SlipFileImportResult importSlipFile(const FileImport& order) {
  const Period period{order.month, order.year, order.correction};
  const store::StoreObject store;
  const store::FilerHeader filer = interchange::readFiler(store);
  if (filer.npwp.empty()) fail(ErrorNumber::InvalidProcedureCall, interchange::noFilerText());
  ExchangeFileReader reader(order.path, interchange::slipFileLayout);
  RejectFile rejects(order.rejectPath, reader.encoding(), interchange::slipFileLayout);
  StoreLock lock(moduleState().sDSN);
  AccountedImport import(store, filer.npwp, period, lock);

  SlipFileImportResult result;
  interchange::importLines(
      "Importing slips", reader,
      [&](std::span<const std::string_view> columns) { return importLine(columns, import, result); }, rejects, result);
  rejects.finish();
  if (result.read > result.refused) {
    RebuildOutcome rebuilt = rebuildReturn(order.month, order.year, order.correction);
    result.rebuildFailures = std::move(rebuilt.failures);
    result.rebuildWarnings = std::move(rebuilt.warnings);
  }
  return result;
}

}  // namespace tarvola
