#include "tarvola/interchange/payment_file_import.h"

#include <mutex>
#include <span>

#include "tarvola/interchange/accounted_lines.h"
#include "tarvola/interchange/import_texts.h"
#include "tarvola/interchange/line_writer.h"
#include "tarvola/interchange/payment_check.h"
#include "tarvola/interchange/payment_files.h"
#include "tarvola/interchange/payment_ledger.h"
#include "tarvola/interchange/payment_line.h"
#include "tarvola/interchange/payment_records.h"
#include "tarvola/interchange/payment_texts.h"
#include "tarvola/interchange/store_lock.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/store_object.h"

namespace tarvola {

namespace {

using namespace interchange;
using namespace interchange::payment_columns;
using Kind = LineOutcome::Kind;

/// The filer as CImporSSPPBK takes it, without blanks around.
store::FilerHeader trimmedFiler(const store::StoreObject& store) {
  store::FilerHeader filer = readFiler(store);
  for (std::string* field : {&filer.npwp, &filer.name, &filer.address}) *field = std::string(Trim(*field));
  return filer;
}

/// Takes payments and transfers into a period.
class PaymentImport {
 public:
  PaymentImport(const store::StoreObject& store, store::FilerHeader filer, const store::Period& period,
                PaymentFileImportResult& result)
      : store_(store),
        filer_(std::move(filer)),
        period_(period),
        ledger_(store, filer_.npwp, period),
        result_(result) {}

  LineOutcome import(std::span<const std::string_view> cells) {
    const std::vector<std::string> columns = paymentColumns(cells);
    if (std::string fault = faultOfPayment(columns, period_); !fault.empty()) return refusedLine(std::move(fault));
    try {
      const Variant values = Variant::Array(columns.begin(), columns.end());
      const PaymentLine line(values);
      return line.word() == transferWord ? importTransfer(line) : importPayment(line);
    } catch (const RunTimeError& error) {
      return refusedLine(error.description());
    }
  }

 private:
  LineOutcome importPayment(const PaymentLine& line) {
    const std::string account = line.text(KdMAP);
    const std::string kind = line.text(KdJnsStr);
    const std::string number = line.text(NTPP);
    const PaymentLedger::Payment payment{.account = account,
                                         .kind = kind,
                                         .number = number,
                                         .day = DateValue(line.text(TglSSP)),
                                         .rupiah = line.wholeRupiah(JmlByr)};
    const bool isNumbered = number != noPaymentNumber;
    if (isNumbered) {
      if (const double* stored = ledger_.amountOf(payment))
        return *stored == payment.rupiah ? LineOutcome{.kind = Kind::AlreadyThere}
                                         : refusedLine(otherAmountText(number, *stored));
    } else if (ledger_.takeUnnumbered(payment)) {
      return {.kind = Kind::AlreadyThere};
    }
    // A key tells payments without a number apart where it can be found, and CImporSSPPBK never finds one.
    constexpr double tableKey = 0;
    store_.execute(insertPayment(line, period_, filer_.npwp, tableKey));
    if (isNumbered)
      ledger_.add(payment);
    else
      ++result_.unnumberedStored;
    return {};
  }

  LineOutcome importTransfer(const PaymentLine& line) {
    const std::string number = line.text(NoBuktiPBK);
    const PaymentLedger::Transfer transfer{.day = DateValue(line.text(TanggalBerlaku)),
                                           .rupiah = line.wholeRupiah(JumlahPBK)};
    if (const PaymentLedger::Transfer* stored = ledger_.transferOf(number))
      return *stored == transfer ? LineOutcome{.kind = Kind::AlreadyThere}
                                 : refusedLine(otherTransferText(number, formatDate(stored->day), stored->rupiah));
    store_.execute(insertTransfer(line, filer_));
    ledger_.add(number, transfer);
    return {};
  }

  const store::StoreObject& store_;
  store::FilerHeader filer_;
  store::Period period_;
  PaymentLedger ledger_;
  PaymentFileImportResult& result_;
};

/// A line that no reader can hold shows before anything is written.
void requireReadable(const std::string& path) {
  LineReader lines = LineReader::open(path);
  for (std::string_view line; lines.next(line);) {
  }
}

}  // namespace

PaymentFileImportResult importPaymentFile(const FileImport& order) {
  const store::StoreObject store(store::StartUpWording::Description, store::StartUpConverter::None);
  store::FilerHeader filer = trimmedFiler(store);
  if (filer.npwp.empty()) fail(ErrorNumber::InvalidProcedureCall, noFilerText());
  requireReadable(order.path);
  ExchangeFileReader reader(order.path, paymentFileLayout);
  RejectFile rejects(order.rejectPath, reader.encoding(), paymentFileLayout);
  StoreLock lock(moduleState().sDSN);
  const std::lock_guard held(lock);

  PaymentFileImportResult result;
  PaymentImport import(store, std::move(filer), {order.month, order.year, order.correction}, result);
  importLines(
      "Importing payments", reader, [&](std::span<const std::string_view> columns) { return import.import(columns); },
      rejects, result);
  rejects.finish();
  return result;
}

}  // namespace tarvola
