#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tarvola/interchange/payment_line.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/statement.h"

/// The statements that look a line of a payment file up and store it.
namespace tarvola::interchange {

/// The columns of a line behind the first.
namespace payment_columns {
/// Of a payment. CImporSSPPBK does not read the period in it.
enum Payment : std::size_t {
  MsPjk = 1,
  ThPjk = 2,
  KdPmbtln = 3,
  NTPP = 4,
  TglSSP = 5,
  JmlByr = 6,
  KdMAP = 7,
  KdJnsStr = 8
};
/// Of a transfer.
enum Transfer : std::size_t { MsPjkPBK = 1, ThPjkPBK = 2, NoBuktiPBK = 3, TanggalBerlaku = 4, JumlahPBK = 5 };
}  // namespace payment_columns

/// "DateValue('...')".
store::Statement dateValue(std::string_view date);

/// Payments of the period with the line's account, kind, number and day. The amount takes no part.
store::Statement selectPayment(const PaymentLine& line, const store::Period& period);
store::Statement insertPayment(const PaymentLine& line, const store::Period& period, std::string_view npwp,
                               double tableKey);

/// Transfers to the filer of the line's number and month.
store::Statement selectTransfer(const PaymentLine& line, std::string_view npwp);
/// All thirty-eight columns by position. What a line does not say of decision, old and new payment stays empty; the
/// three dates are the one that it says.
store::Statement insertTransfer(const PaymentLine& line, const store::FilerHeader& filer);

}  // namespace tarvola::interchange
