#pragma once

#include <array>
#include <string>
#include <string_view>

#include "tarvola/ado/recordset.h"
#include "tarvola/store/CGeneralClass.h"
#include "tarvola/store/module_state.h"
#include "tests/support/messages.h"
#include "tests/support/store_fixture.h"

namespace tarvola::test {

/// A new store that this thread is connected to, and the messages that its objects show.
class StoreSession {
 public:
  StoreSession() { setModuleConnection(store_.path(), "", ""); }
  ~StoreSession() { moduleState() = {}; }
  StoreSession(const StoreSession&) = delete;
  StoreSession& operator=(const StoreSession&) = delete;

  [[nodiscard]] const StoreFixture& store() const noexcept { return store_; }
  [[nodiscard]] CapturedMessages& messages() noexcept { return messages_; }
  [[nodiscard]] const ConnectionPtr& connection() {
    if (!connection_) connection_ = store_.connect();
    return connection_;
  }

  void execute(std::string_view statement) { connection()->Execute(statement); }

  /// The rows of a text: columns by "|", Null as "<null>", one line each.
  [[nodiscard]] std::string rowsOf(std::string_view statement) {
    const RecordsetPtr rows = connection()->Execute(statement);
    if (rows->get_BOF() && rows->get_EOF()) return "";
    return rows->GetString(adClipString, -1, "|", "\n", "<null>");
  }

  /// Everything that the store's tables hold.
  [[nodiscard]] std::string dump() {
    static constexpr std::array tables = {
        "DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22",     "LAMPIRAN_SSP_PPh22",  "D113210",
        "DATSSP",        "datPBKPPhMasa",    "SETTING_TARIF_PPH", "SETTING_NOBUKTI_PPH", "BURSA",
        "PARTNER_INFO",  "JENIS_KOMODITI",   "PROFILE",           "REF_SSP_NEW",         "DS_REF_JENIS_PAJAK"};
    std::string all;
    for (const char* table : tables) {
      all.append(table).append(":\n");
      all += rowsOf(std::string("SELECT * FROM ") + table);
    }
    return all;
  }

 private:
  StoreFixture store_;
  CapturedMessages messages_;
  ConnectionPtr connection_;
};

}  // namespace tarvola::test
