#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/ado/sql/compile.h"

namespace tarvola::ado::engine::sqlite {

/// The type of a column by the words of its declaration: "SMALLINT" is an Integer, "VARCHAR(20)" a Text. Words that
/// are not known, and none at all, give Any.
ColumnType declaredType(std::string_view declaration) noexcept;
/// Most characters of a text by its declaration: 20 for "VARCHAR(20)". 0 where it names no bound or is no text.
std::size_t declaredLength(std::string_view declaration) noexcept;

/// The tables of one file, read when first asked for.
class Catalog final : public sql::Catalog {
 public:
  explicit Catalog(const Handle& handle) noexcept : handle_(handle) {}

  [[nodiscard]] const sql::Table* find(std::string_view name) const override;
  /// Error -2147217865 for an unknown name.
  [[nodiscard]] const sql::Table& table(std::string_view name) const;

  /// Forgets what was read if somebody has changed the tables since. Tells whether that was so.
  bool forgetIfChanged();

 private:
  void load() const;

  const Handle& handle_;
  // What has been read so far is no part of what the catalog is.
  mutable std::unordered_map<std::string, sql::Table> tables_;
  mutable std::int64_t version_ = 0;
  mutable bool loaded_ = false;
};

}  // namespace tarvola::ado::engine::sqlite
