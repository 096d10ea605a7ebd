#pragma once

#include <string>

#include "tarvola/store/new_store.h"
#include "tests/support/engine_store.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {

/// The filer whom the tests' stores belong to.
inline FilerProfile filerOfTests() {
  return {.npwp = "013121660091000",
          .name = "PT Contoh Sejahtera",
          .address = "Jl. Merdeka No. 1",
          .city = "Jakarta",
          .postcode = "10110",
          .phone = "021-3500001",
          .fax = "021-3500002",
          .mail = "pajak@contoh.co.id",
          .signerNpwp = "021832415000000",
          .signerName = "Budi Santoso",
          .attorneyNpwp = "",
          .attorneyName = "",
          .slipSignerOffice = "Kepala Bagian Pajak",
          .slipSignerName = "Siti Rahma",
          .taxOffice = "091"};
}

/// A new store as it is delivered, in a folder of its own.
class StoreFixture {
 public:
  explicit StoreFixture(const FilerProfile& filer = filerOfTests()) { createStore(path(), filer); }

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
  TempFolder folder_;
};

}  // namespace tarvola::test
