#include "tarvola/interchange/payment_ledger.h"

#include "tarvola/interchange/payment_files.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using store::fieldTextOr;
using store::Statement;

/// A record that another program stored may lack its day or its amount; it is then like no line of a file.
Date dayOf(const RecordsetPtr& rows, std::string_view field) {
  return store::isNullField(rows, field) ? Date() : CDate(rows->get_Collect(field));
}
double amountOf(const RecordsetPtr& rows, std::string_view field) {
  return store::isNullField(rows, field) ? -1 : store::fieldNumber(rows, field);
}

}  // namespace

PaymentLedger::PaymentLedger(const store::StoreObject& store, std::string_view npwp, const store::Period& period) {
  readPayments(store, period);
  readTransfers(store, npwp, period);
}

void PaymentLedger::readPayments(const store::StoreObject& store, const store::Period& period) {
  const RecordsetPtr rows = store.execute(
      Statement("SELECT * FROM DATSSP WHERE KODEPASAL = ")
      << std::int32_t{store::taxArticle} << " AND MsPjk = " << std::int32_t{period.msPajak}
      << " AND ThPjk = " << std::int32_t{period.thPajak} << " AND KdPmbtln = " << std::int32_t{period.kdPembetulanKe});
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const std::string account = fieldTextOr(rows, "KdMAP", "");
    const std::string kind = fieldTextOr(rows, "KdJnsStr", "");
    const std::string number = fieldTextOr(rows, "NTPP", "");
    const Payment payment{.account = account,
                          .kind = kind,
                          .number = number,
                          .day = dayOf(rows, "TglSSP"),
                          .rupiah = interchange::amountOf(rows, "JmlByr")};
    if (number == noPaymentNumber)
      ++unnumbered_[unnumberedKeyOf(payment)];
    else
      numbered_.try_emplace(keyOf(payment), payment.rupiah);
  }
}

void PaymentLedger::readTransfers(const store::StoreObject& store, std::string_view npwp, const store::Period& period) {
  const RecordsetPtr rows = store.execute(selectTransfers(npwp, store::taxArticle, period.msPajak, period.thPajak));
  for (; !rows->get_EOF(); rows->MoveNext())
    transfers_.try_emplace(
        foldCase(fieldTextOr(rows, "NoBuktiPBK", "")),
        Transfer{.day = dayOf(rows, "TanggalBerlaku"), .rupiah = interchange::amountOf(rows, "JumlahPBK")});
}

const double* PaymentLedger::amountOf(const Payment& payment) const {
  const auto found = numbered_.find(keyOf(payment));
  return found == numbered_.end() ? nullptr : &found->second;
}

bool PaymentLedger::takeUnnumbered(const Payment& payment) {
  const auto found = unnumbered_.find(unnumberedKeyOf(payment));
  if (found == unnumbered_.end() || found->second == 0) return false;
  --found->second;
  return true;
}

const PaymentLedger::Transfer* PaymentLedger::transferOf(std::string_view number) const {
  const auto found = transfers_.find(foldCase(number));
  return found == transfers_.end() ? nullptr : &found->second;
}

void PaymentLedger::add(std::string_view number, const Transfer& transfer) { transfers_[foldCase(number)] = transfer; }

std::string PaymentLedger::keyOf(const Payment& payment) {
  std::string key = foldCase(payment.account);
  key.append(";").append(foldCase(payment.kind)).append(";").append(foldCase(payment.number));
  return key.append(";").append(CStr(payment.day));
}

std::string PaymentLedger::unnumberedKeyOf(const Payment& payment) {
  return keyOf(payment) + ";" + CStr(payment.rupiah);
}

}  // namespace tarvola::interchange
