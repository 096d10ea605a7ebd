#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/rows.h"

namespace tarvola::ado {

/// What a statement gave: rows for a SELECT, nothing but a count for any other.
struct StatementResult {
  RowsPtr rows;
  std::int64_t recordsAffected = 0;
};

/// A column of a base table with the value that is written into it, or that it is expected to hold.
struct ColumnValue {
  std::string_view column;
  Variant value;
};

/// Fields of a packed text, such as "1;2009;50": whole numbers without a sign that are summed.
struct PackedFields {
  std::string_view column;
  char separator = ';';
  /// How many fields a text has; one with more or fewer is not understood.
  std::size_t count = 0;
  /// Their places, counted from 0.
  std::vector<std::size_t> summed;
};

/// A native handle with its prepared statements: what Connection objects of one thread and one text share.
///
/// A statement's text is read by the dialect once for each shape (the text with its literals taken out); the literals
/// become bound values, so that the same shape is prepared once and used again.
class Session {
 public:
  virtual ~Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// The session of this thread for a connection text, opened if there is none.
  static std::shared_ptr<Session> open(std::string_view connectionText);

  /// Runs one statement of the Access dialect (no SHAPE; that is the recordset's matter).
  virtual StatementResult run(std::string_view statement) = 0;

  /// The sums of packed fields over the rows that a SELECT COUNT(*) counts, if the session keeps them in step with the
  /// rows and they are the very figures that adding up the rows gives. Nothing where a field is no whole number, and
  /// from an engine that keeps no sums: the rows must be read then.
  virtual std::optional<std::vector<double>> packedSums(std::string_view /*countStatement*/,
                                                        const PackedFields& /*fields*/) {
    return std::nullopt;
  }

  /// Adds a row with the given columns, the rest at the store's defaults. Returns its identity.
  virtual std::int64_t insertRow(const BaseTable& table, std::span<const ColumnValue> values) = 0;
  /// Writes columns of the row with that identity, provided that the columns named in `expected` still hold what they
  /// held. No such row: error -2147217864 "Row cannot be located for updating. ...".
  virtual void updateRow(const BaseTable& table, std::int64_t identity, std::span<const ColumnValue> values,
                         std::span<const ColumnValue> expected) = 0;
  /// Removes the row; gone already: error -2147217864.
  virtual void deleteRow(const BaseTable& table, std::int64_t identity) = 0;

 protected:
  Session() = default;
};

}  // namespace tarvola::ado
