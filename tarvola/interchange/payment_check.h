#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/interchange/exchange_layout.h"
#include "tarvola/store/document_key.h"

namespace tarvola::interchange {

/// The file of payments and transfers, nine columns; files of one kind read under it as well.
extern const ExchangeLayout paymentFileLayout;

/// A line of a payment file in the columns that CImporSSPPBK takes: nine for a payment, six for a transfer, whichever
/// of the two forms of a transfer the file has. Columns without blanks around. A line of another number of columns
/// comes back as it is.
std::vector<std::string> paymentColumns(std::span<const std::string_view> cells);

/// Why a line cannot be stored as a record of the period; "" if it can. It is stricter than CImporSSPPBK, which books a
/// line of another month into the period, cuts decimals, turns 31/02/09 into a day of 1931, and stores codes that no
/// export takes, all without a word.
std::string faultOfPayment(std::span<const std::string> columns, const store::Period& wanted);

}  // namespace tarvola::interchange
