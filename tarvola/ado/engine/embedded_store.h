#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvola::ado::engine {

/// Rows that a table is delivered with. Every value is a text; a numeric column turns it into a number (point
/// decimals).
struct TableContent {
  std::string table;
  std::vector<std::string> columns;
  std::vector<std::vector<std::string>> rows;
};

/// What a new store consists of: the texts that make its tables and indexes, in the embedded engine's own language, and
/// the rows of its tables.
struct StoreDefinition {
  std::vector<std::string_view> scripts;
  std::vector<TableContent> contents;
};

/// Makes a store in a new file that only its owner may read and write. The file must not exist (error 58). It is made
/// whole or not at all: after a failure there is no file.
void createEmbeddedStore(const std::string& path, const StoreDefinition& definition);

}  // namespace tarvola::ado::engine
