#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tarvola/store/document_key.h"

/// What a person reads of a payment file or one of its lines that is not taken, beside the texts of every import.
namespace tarvola::interchange {

std::string notAPaymentFileText(std::string_view path);

std::string paymentColumnCountText(std::size_t count, std::string_view expected);
/// Of a line without a single separator, as programs write it that part columns with commas or tabs.
std::string noSeparatorText();
/// Of a transfer of nine columns.
std::string notEmptyColumnsText();
std::string otherRecordText(std::string_view found, std::string_view payment, std::string_view transfer);
std::string otherMonthText(std::string_view month, std::string_view year, const store::Period& wanted);
/// "column "Jumlah SSP": " and what is wrong there.
std::string inTitledColumnText(std::string_view title, std::string_view fault);
std::string decimalsText(std::string_view value);
std::string belowZeroText(std::string_view value);
std::string noDayText(std::string_view value);
std::string noPaymentNumberText(std::string_view zeros);
std::string noTransferNumberText();
std::string otherAmountText(std::string_view number, double storedRupiah);
std::string otherTransferText(std::string_view number, std::string_view storedDay, double storedRupiah);

}  // namespace tarvola::interchange
