// Lines of a slip exchange file: what the check lets through must be packed, summed and read back without a failure,
// and nothing at all may break the reader.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "fuzz/fuzz_file.h"
#include "tarvola/interchange/import_line.h"
#include "tarvola/interchange/line_check.h"
#include "tarvola/interchange/packed_compare.h"
#include "tarvola/interchange/slip_file_layout.h"

namespace {

using namespace tarvola;
using namespace tarvola::interchange;
using fuzz::require;

constexpr store::Period period{1, 2009, 0};

/// A line that passes the check has a packed text with all fields of its form, which says the same as itself.
void importLine(const ImportLine& line) {
  if (!faultOf(line, period).empty()) return;
  const ImportForm* form = findImportForm(line.text(FormCode));
  require(form != nullptr);
  const std::string packed = packedForm(*form, line, "024573180013000;PT Contoh;Jakarta;1;2009;0", 1);
  require(saysTheSame(packed, packed));
  require(packed.find('\'') == std::string::npos);
  for (const Total& total : form->totals) sumOf(line, total.addends);
  listedAmounts(*form, line);
  require(flagOfPayee(line) >= 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::forEachLine(data, size, slipFileLayout,
                    [](std::span<const std::string_view> columns) { importLine(ImportLine(columns)); });
  return 0;
}
