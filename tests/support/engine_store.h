#pragma once

#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

#include "tarvola/ado/connection.h"
#include "tarvola/ado/engine/embedded_store.h"
#include "tarvola/ado/engine/session.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {

/// The connection text of a store in a file, as the module state builds it.
inline std::string connectionTextOf(std::string_view path) {
  return "PROVIDER=MSDataShape;Data PROVIDER=MSDASQL;DSN=" + std::string(path) + ";UID=;PWD=;";
}

/// A store with all tables and no rows, for tests of the rooms that know nothing of what a store is delivered with.
class EngineStore {
 public:
  EngineStore() {
    const std::string tables = schemaFile("tables.sql");
    const std::string indexes = schemaFile("indexes.sql");
    ado::engine::createEmbeddedStore(path(), {.scripts = {tables, indexes}, .contents = {}});
  }

  [[nodiscard]] const TempFolder& folder() const noexcept { return folder_; }
  [[nodiscard]] std::string path() const { return folder_.path("store.tarvola"); }
  [[nodiscard]] std::string connectionText() const { return connectionTextOf(path()); }
  [[nodiscard]] std::shared_ptr<ado::Session> session() const { return ado::Session::open(connectionText()); }
  [[nodiscard]] ConnectionPtr connect() const {
    ConnectionPtr connection = Connection::create();
    connection->put_CursorLocation(adUseClient);
    connection->Open(connectionText());
    return connection;
  }

 private:
  static std::string schemaFile(std::string_view name) {
    std::ifstream stream(TARVOLA_SOURCE_DIR "/schema/" + std::string(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  TempFolder folder_;
};

}  // namespace tarvola::test
