#include "tarvola/ado/recordset_state.h"
#include "tarvola/runtime/errors.h"

namespace tarvola {

// Columns are separated and rows ended by their delimiters, the last row too. Chapters have no text and are left out.
std::string Recordset::GetString(std::int32_t format, std::int32_t rowCount, std::string_view columnDelimiter,
                                 std::string_view rowDelimiter, std::string_view nullText) {
  if (format != adClipString) fail(ErrorNumber::WrongArguments);
  std::string text;
  State& state = *state_;
  state.move([&] {
    state.requireRow();
    const std::size_t textColumns = state.columnCount - state.chapters.size();
    for (std::int32_t taken = 0; state.cursor.place == State::Place::OnRow; ++taken) {
      if (rowCount > 0 && taken == rowCount) return;
      for (std::size_t column = 0; column < textColumns; ++column) {
        if (column != 0) text += columnDelimiter;
        const ado::Cell cell = state.rows->cell(state.cursor.row, column);
        const bool isMissing = cell.isNull() || cell.type() == ado::Cell::Type::Empty;
        if (isMissing) {
          text += nullText;
        } else {
          cell.appendText(text);
        }
      }
      text += rowDelimiter;
      state.moveFromCurrent(1);
    }
  });
  return text;
}

}  // namespace tarvola
