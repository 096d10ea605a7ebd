#include "tarvola/interchange/payment_texts.h"

#include "tarvola/interchange/import_texts.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

std::string rupiahText(double value) { return Format(value, "#,##0"); }

}  // namespace

std::string notAPaymentFileText(std::string_view path) {
  return std::string(path) +
         " is no payment file: its first line is neither the header nor a line that begins with SSP4 or PBK4";
}

std::string paymentColumnCountText(std::size_t count, std::string_view expected) {
  return "the line has " + std::to_string(count) + (count == 1 ? " column" : " columns") + " where " +
         std::string(expected) + " are expected";
}

std::string noSeparatorText() { return paymentColumnCountText(1, "9") + "; columns are separated by ';'"; }

std::string notEmptyColumnsText() {
  return "a transfer of 9 columns has nothing in the columns 4 (correction), 8 and 9 (codes)";
}

std::string otherRecordText(std::string_view found, std::string_view payment, std::string_view transfer) {
  return "the line begins with " + quoted(found) + "; a payment begins with " + std::string(payment) +
         ", a transfer with " + std::string(transfer);
}

std::string otherMonthText(std::string_view month, std::string_view year, const store::Period& wanted) {
  return "the line is of " + std::string(month) + "/" + std::string(year) + ", not of " +
         CStr(std::int32_t{wanted.msPajak}) + "/" + CStr(std::int32_t{wanted.thPajak});
}

std::string inTitledColumnText(std::string_view title, std::string_view fault) {
  return "column \"" + std::string(title) + "\": " + std::string(fault);
}

std::string decimalsText(std::string_view value) {
  return quoted(value) + " has decimals; payments are whole rupiah, so write the amount without";
}

std::string belowZeroText(std::string_view value) { return quoted(value) + " is below 0"; }

std::string noDayText(std::string_view value) {
  return (value.empty() ? "is empty" : quoted(value) + " is no date") + "; write it as 31/01/2009";
}

std::string noPaymentNumberText(std::string_view zeros) {
  return "is empty; a payment without a number has " + std::string(zeros);
}

std::string noTransferNumberText() { return "is empty; a transfer is known by its number"; }

std::string otherAmountText(std::string_view number, double storedRupiah) {
  return "payment " + std::string(number) + " is in the store with " + rupiahText(storedRupiah) + " rupiah, which stay";
}

std::string otherTransferText(std::string_view number, std::string_view storedDay, double storedRupiah) {
  return "transfer " + std::string(number) + " is in the store as of " + std::string(storedDay) + " with " +
         rupiahText(storedRupiah) + " rupiah, which stay";
}

}  // namespace tarvola::interchange
