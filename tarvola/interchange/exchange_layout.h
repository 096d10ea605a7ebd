#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvola::interchange {

/// What sets one kind of exchange file apart from another, for whoever reads its lines or writes refused ones aside.
struct ExchangeLayout {
  /// Columns of a full line. What the header of a reject file has behind them is the reason.
  std::size_t columnCount = 0;
  /// The header line of the file, without its line end.
  std::string (*header)() = nullptr;
  /// Whether a line that begins with this column is the header. It may stand again where files were put together.
  bool (*isHeader)(std::string_view firstColumn) = nullptr;
  /// Whether a file without a header may begin with this column.
  bool (*isDataLine)(std::string_view firstColumn) = nullptr;
  /// What a person reads of a file that begins with neither.
  std::string (*foreignFileText)(std::string_view path) = nullptr;
};

}  // namespace tarvola::interchange
