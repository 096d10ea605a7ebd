// Lines of a slip exchange file: what the check lets through must be packed, summed and read back without a failure,
// and nothing at all may break the reader.

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

#include "tarvola/interchange/exchange_file_reader.h"
#include "tarvola/interchange/import_line.h"
#include "tarvola/interchange/line_check.h"
#include "tarvola/interchange/packed_compare.h"
#include "tarvola/interchange/slip_file_layout.h"
#include "tarvola/runtime/errors.h"

namespace {

using namespace tarvola;
using namespace tarvola::interchange;

constexpr store::Period period{1, 2009, 0};

void require(bool condition) {
  if (!condition) std::abort();
}

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

std::string fileWith(std::string_view bytes) {
  static const std::string path = "/tmp/fuzz_import_line." + std::to_string(getpid());
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  try {
    ExchangeFileReader reader(fileWith(bytes), slipFileLayout);
    while (reader.next()) importLine(ImportLine(reader.columns()));
  } catch (const RunTimeError&) {
    // A file that is none is refused whole.
  }
  return 0;
}
