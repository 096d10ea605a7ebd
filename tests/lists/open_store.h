#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/recordset.h"
#include "tarvola/store/CGeneralClass.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/module_state.h"
#include "tests/support/messages.h"
#include "tests/support/store_fixture.h"

namespace tarvola::test {

/// The return that the tests work on: January 2009, first filing.
inline constexpr store::Period january{.msPajak = 1, .thPajak = 2009, .kdPembetulanKe = 0};

/// A new store that the thread's module state points at, with a connection to look at it from outside.
class OpenStore : public StoreFixture {
 public:
  OpenStore() : connection_(connect()) { CGeneralClass().pSetCon(path(), "", ""); }
  ~OpenStore() { moduleState() = {}; }
  OpenStore(const OpenStore&) = delete;
  OpenStore& operator=(const OpenStore&) = delete;

  void run(std::string_view statement) const { connection_->Execute(statement); }

  /// The rows of a statement, one text each, "|" between the columns and "-null-" for a Null.
  [[nodiscard]] std::vector<std::string> rows(std::string_view statement) const {
    std::vector<std::string> texts;
    const RecordsetPtr found = connection_->Execute(statement);
    while (!found->get_EOF()) texts.push_back(found->GetString(adClipString, 1, "|", "", "-null-"));
    return texts;
  }
  /// The only row of a statement, "none" or "several" if there is not exactly one.
  [[nodiscard]] std::string row(std::string_view statement) const {
    const std::vector<std::string> found = rows(statement);
    if (found.size() != 1) return found.empty() ? "none" : "several";
    return found.front();
  }

  /// All rows of all tables that the library writes to, sorted within a table.
  [[nodiscard]] std::vector<std::string> dump() const {
    std::vector<std::string> all;
    for (const std::string table : {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22",
                                    "D113210", "BURSA", "SETTING_NOBUKTI_PPH", "SETTING_TARIF_PPH", "PROFILE"}) {
      std::vector<std::string> texts = rows("SELECT * FROM " + table);
      std::sort(texts.begin(), texts.end());
      for (const std::string& text : texts) all.push_back(table + ": " + text);
    }
    return all;
  }

  /// Puts in a document row of DS_FORM_INDUK with this packed text.
  void addDocument(const store::DocumentKey& key, std::string_view packed) const {
    run(store::insertDocument(store::FormTable::Induk, key, packed, "31/01/2009"));
  }

 private:
  ConnectionPtr connection_;
};

}  // namespace tarvola::test
