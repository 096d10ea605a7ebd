#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/recordset.h"
#include "tarvola/interchange/export_columns.h"
#include "tarvola/store/store_object.h"

namespace tarvola::interchange {

/// Hashes that were met before. Slots by open addressing, twice as many as hashes are expected.
class MetHashes {
 public:
  explicit MetHashes(std::size_t expectedCount);
  /// Whether the hash is met for the first time; from now on it is known.
  bool add(std::uint64_t hash);

 private:
  std::vector<std::uint64_t> slots_;
};

/// The documents of an export, found anew one by one.
///
/// A slip is known by form and number alone: of two filers' slips of one number both lines show the first. A self-paid
/// form needs its packed text too, since a payment may stand on several. A filter finds them; but a row whose form and
/// number no row above it bears is the first of its kind, and is taken as it stands.
class ExportedDocuments {
 public:
  ExportedDocuments(const store::StoreObject& store, RecordsetPtr rows);

  [[nodiscard]] std::size_t count() const noexcept { return rows_->rows()->count(); }

  /// A document that was found: its form code as the store spells it, and its named fields.
  struct Found {
    std::string_view kdForm;
    RecordsetPtr named;
  };
  /// Goes to the next row. Null for a row that is no exported form's.
  const ExportForm* next();
  /// The document that the current row stands for. A number with an apostrophe (of a self-paid form also a packed text)
  /// is error 3001: spliced into a filter, it could pick the row of another document.
  Found find(const ExportForm& form);

 private:
  [[nodiscard]] std::string_view formOf(std::size_t row) const;
  [[nodiscard]] bool isFirstOfItsKind(std::size_t row);
  Found asItStands(const ExportForm& form) const;
  Found filtered(const ExportForm& form);
  void appendQuoted(std::size_t column);

  const store::StoreObject& store_;
  RecordsetPtr rows_;
  std::size_t kdForm_;
  std::size_t noBukti_;
  std::size_t datForm_;
  MetHashes met_;
  std::size_t nextRow_ = 0;
  bool isFirst_ = false;
  std::string criteria_;
};

}  // namespace tarvola::interchange
