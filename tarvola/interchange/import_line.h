#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tarvola/interchange/file_columns.h"
#include "tarvola/interchange/import_forms.h"

namespace tarvola::interchange {

/// The columns of one line of the exchange file, as views. A column that the line lacks is error 9.
class ImportLine {
 public:
  explicit ImportLine(std::span<const std::string_view> columns) noexcept : columns_(columns) {}

  [[nodiscard]] std::size_t count() const noexcept { return columns_.size(); }
  /// The column as it stands.
  [[nodiscard]] std::string_view raw(Column column) const;
  /// The column with blanks cut.
  [[nodiscard]] std::string_view text(Column column) const;
  /// The column read as an amount: 1234,56 under a decimal comma, and 1234.56 as well. No number: error 13.
  [[nodiscard]] double number(Column column) const;
  /// The number cut down to whole rupiah: 1234,56 gives 1234, -0,5 gives -1.
  [[nodiscard]] double whole(Column column) const;
  /// Whether an option column says that number. A text that is no number says none.
  [[nodiscard]] bool saysOption(Column column, double value) const;

 private:
  std::span<const std::string_view> columns_;
};

/// The sum of amounts, each cut down to whole rupiah.
double sumOf(const ImportLine& line, std::span<const Column> amounts);
double sumOf(const ImportLine& line, std::span<const Addend> addends);

/// What the list row of a line shows, in rupiah.
struct ListedAmounts {
  double gross = 0;
  double tax = 0;
};
ListedAmounts listedAmounts(const ImportForm& form, const ImportLine& line);

/// The packed text of a line's form: the head, then the elements of the form, without line breaks. A ";" in a text is
/// error 5. `seq` counts for self-paid forms only.
std::string packedForm(const ImportForm& form, const ImportLine& line, std::string_view head, double seq);

/// What tells the marked payees apart in FlagNPWP: 0 without an NPWP, 2 for one that begins with nine zeros, else 1.
int flagOfPayee(const ImportLine& line);

}  // namespace tarvola::interchange
