#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "tarvola/runtime/date.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/store_object.h"

namespace tarvola::interchange {

/// What the store held of a period's payments and transfers when it was asked, and what an import added since.
///
/// A payment is known by account, kind, number and day, a transfer by its number, without regard to case. Payments
/// without a number are known by all that they say, as often as they stand there: of three equal ones in a file that is
/// imported again all three are there, and a fourth is new.
class PaymentLedger {
 public:
  PaymentLedger(const store::StoreObject& store, std::string_view npwp, const store::Period& period);

  struct Payment {
    std::string_view account;
    std::string_view kind;
    std::string_view number;
    Date day;
    double rupiah = 0;
  };
  /// The amount of a numbered payment, nullptr for one that is not there.
  [[nodiscard]] const double* amountOf(const Payment& payment) const;
  /// Whether a payment without a number was there; each is found once.
  bool takeUnnumbered(const Payment& payment);
  void add(const Payment& payment) { numbered_[keyOf(payment)] = payment.rupiah; }

  struct Transfer {
    Date day;
    double rupiah = 0;
    friend bool operator==(const Transfer&, const Transfer&) = default;
  };
  [[nodiscard]] const Transfer* transferOf(std::string_view number) const;
  void add(std::string_view number, const Transfer& transfer);

 private:
  static std::string keyOf(const Payment& payment);
  static std::string unnumberedKeyOf(const Payment& payment);
  void readPayments(const store::StoreObject& store, const store::Period& period);
  void readTransfers(const store::StoreObject& store, std::string_view npwp, const store::Period& period);

  std::map<std::string, double> numbered_;
  std::map<std::string, std::size_t> unnumbered_;
  std::map<std::string, Transfer> transfers_;
};

}  // namespace tarvola::interchange
