#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "tarvola/ado/recordset.h"
#include "tarvola/interchange/return_check_report.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/form_layouts.h"
#include "tarvola/store/packed_text.h"

/// Reading packed texts while checking them.
namespace tarvola::interchange {

/// The packed text of one row, read by the names of its layout. It is good for one row after the other; the text must
/// outlive the reading.
class PackedRowReader {
 public:
  explicit PackedRowReader(std::string_view layoutCode);

  /// Takes a row's text. False, with a finding, if it has another number of fields than its form.
  bool read(CheckReport& report, std::string_view document, std::string_view packed);

  [[nodiscard]] std::string_view text(std::string_view field) const;
  /// 0 for an empty field and for one that is no number.
  [[nodiscard]] double number(std::string_view field) const;
  [[nodiscard]] double sumOf(std::span<const std::string_view> fields) const;

  /// A finding for each numeric field that holds something else, and each date that is no day. Of the given fields an
  /// empty one is a finding too, since a recount ends there.
  void checkReadable(CheckReport& report, std::string_view document, std::span<const std::string_view> needed) const;

 private:
  [[nodiscard]] std::size_t positionOf(std::string_view field) const;

  const store::FormLayout& layout_;
  store::PackedText fields_;
  /// Positions that were asked for once, so that a month of many slips does not search the layout for each.
  mutable std::unordered_map<std::string_view, std::size_t> positions_;
};

/// The columns of a document table that a check reads, found once.
struct DocumentColumns {
  std::size_t npwp;
  std::size_t kdForm;
  std::size_t jenisDokumen;
  std::size_t noBukti;
  std::size_t kdJenisPajak;
  std::size_t datForm;

  explicit DocumentColumns(const Recordset& rows);
};

/// The text of a cell, "" for Null.
std::string textOf(const ado::Cell& cell);

/// Codes and filer of a document's row against those of its form, then the head of its packed text against the row.
void checkCodes(const CheckContext& context, std::string_view document, const store::FormCodes& form,
                std::string_view npwp, std::string_view jenisDokumen, std::string_view kdJenisPajak);
void checkHead(const CheckContext& context, std::string_view document, const PackedRowReader& packed,
               std::string_view npwp, std::string_view numberField, std::string_view number);

}  // namespace tarvola::interchange
