#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "tarvola/interchange/exchange_file_reader.h"
#include "tarvola/interchange/import_account.h"
#include "tarvola/interchange/reject_file.h"

namespace tarvola::interchange {

/// What became of a line.
struct LineOutcome {
  enum class Kind : std::uint8_t { Stored, AlreadyThere, Refused };
  Kind kind = Kind::Stored;
  /// Whether the line is that of a self-paid form.
  bool isSelfPaid = false;
  /// Of a refused line.
  std::string reason = {};
};

LineOutcome refusedLine(std::string reason);

/// Takes the columns of one line.
using LineImport = std::function<LineOutcome(std::span<const std::string_view> columns)>;

/// Hands every line that can be read to `import`, accounts for each, and writes the refused ones aside. Progress is
/// reported under the name of the task, in bytes.
void importLines(const char* task, ExchangeFileReader& reader, const LineImport& import, RejectFile& rejects,
                 ImportAccount& account);

}  // namespace tarvola::interchange
