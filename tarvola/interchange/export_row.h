#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/ado/columns.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/interchange/export_columns.h"

namespace tarvola::interchange {

/// The header line of the slip export file.
const std::string& exportHeader();

/// What a data line says besides the fields of its form.
struct ExportRowHead {
  std::string_view kdForm;
  std::string_view month;
  std::string_view year;
  std::int16_t correction = 0;
};

/// Builds the data lines of the export over the table of columns.
///
/// Where a form's fields lie among the named fields is looked up once for each set of columns and kept, since the lines
/// of a period come one record at a time.
class ExportRowBuilder {
 public:
  /// Appends the line of the current record of `named`, without its line end. On failure the line holds what had been
  /// built so far.
  void append(std::string& line, const ExportForm& form, const ExportRowHead& head, const Recordset& named);

 private:
  static constexpr std::size_t missing = ~std::size_t{0};
  struct Places {
    ado::ColumnsPtr columns;
    std::array<std::size_t, columnCount> field{};
  };

  /// A text as the whole number it says: "01" gives "1". All lines of a period say the same month and year, so each is
  /// converted once.
  struct WholeText {
    std::string text;
    std::string whole;
    const std::string& of(std::string_view asked);
  };

  void appendHead(std::string& line, const ExportRowHead& head);
  const Places& placesOf(const ExportForm& form, const Recordset& named);

  std::array<Places, exportForms.size()> places_;
  WholeText month_;
  WholeText year_;
};

}  // namespace tarvola::interchange
