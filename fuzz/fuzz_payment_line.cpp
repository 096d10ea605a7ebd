// Lines of a payment file: what the check lets through must become a statement without a failure, and nothing at all
// may break the reader.

#include <cmath>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/fuzz_file.h"
#include "tarvola/interchange/payment_check.h"
#include "tarvola/interchange/payment_files.h"
#include "tarvola/interchange/payment_line.h"
#include "tarvola/interchange/payment_records.h"

namespace {

using namespace tarvola;
using namespace tarvola::interchange;
using fuzz::require;
using namespace tarvola::interchange::payment_columns;

constexpr store::Period period{1, 2009, 0};
constexpr std::string_view npwp = "024573180013000";

bool isWholeAmount(double rupiah) { return std::isfinite(rupiah) && rupiah >= 0 && rupiah == std::floor(rupiah); }

/// A line that passes the check is a payment or a transfer of whole rupiah.
void importLine(std::span<const std::string_view> cells) {
  const std::vector<std::string> columns = paymentColumns(cells);
  if (!faultOfPayment(columns, period).empty()) return;
  const Variant values = Variant::Array(columns.begin(), columns.end());
  const PaymentLine line(values);
  require(line.article() == 4);
  if (line.word() == transferWord) {
    require(isWholeAmount(line.wholeRupiah(JumlahPBK)));
    require(
        !insertTransfer(line, {.npwp = std::string(npwp), .name = "PT Contoh", .address = "Jakarta"}).str().empty());
  } else {
    require(line.word() == paymentWord);
    require(isWholeAmount(line.wholeRupiah(JmlByr)));
    require(!insertPayment(line, period, std::string(npwp), 0).str().empty());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::forEachLine(data, size, paymentFileLayout,
                    [](std::span<const std::string_view> columns) { importLine(columns); });
  return 0;
}
