#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/recordset.h"

namespace tarvola {

/// A column of a recordset. It belongs to the recordset, not to a row: kept, it always shows the current row. After
/// the recordset's Close it answers with error 3420.
class Field {
 public:
  const std::string& get_Name() const;
  Variant get_Value() const;
  /// Converts to the column's type at once; the row is then being edited.
  void put_Value(const Variant& value);
  /// The value as it was last read from or sent to the store, behind a pending change. Of a chapter: the child rows.
  Variant get_UnderlyingValue() const;
  Variant get_OriginalValue() const;

 private:
  friend class Fields;
  Field(Recordset& owner, std::size_t column) : owner_(&owner), column_(column) {}
  Recordset::State& state() const;
  Recordset* owner_;
  std::size_t column_;
};

/// The columns of a recordset.
class Fields {
 public:
  std::int32_t get_Count() const;
  /// By name without regard to case, or by ordinal from 0; error 3265 if there is none. A numeric text is a name.
  Field& get_Item(const Variant& nameOrOrdinal);

 private:
  friend class Recordset;
  explicit Fields(Recordset& owner) : owner_(&owner) {}
  Recordset* owner_;
  std::vector<std::unique_ptr<Field>> items_;
};

}  // namespace tarvola
