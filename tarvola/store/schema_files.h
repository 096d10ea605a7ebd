#pragma once

#include <span>
#include <string_view>

namespace tarvola::store {

/// A file of schema/ as it was when the library was built. Its name is the path below that folder: "tables.sql",
/// "rows/BURSA.csv".
struct SchemaFile {
  std::string_view name;
  std::string_view content;
};

/// All of them, ordered by name.
std::span<const SchemaFile> schemaFiles() noexcept;

}  // namespace tarvola::store
