#pragma once

#include <string>
#include <string_view>

#include "tarvola/lists/CD113206.h"
#include "tests/lists/open_store.h"

namespace tarvola::test {

/// A store whose January has the header of the list of slips.
class SlipListStore : public OpenStore {
 public:
  SlipListStore() { addHeader(january, "0;0;0;0"); }

  void addHeader(const store::Period& period, std::string_view sums) const {
    addDocument(
        {.npwp = "013121660091000",
         .kdForm = store::D113206.kdForm,
         .jenisDokumen = store::D113206.jenisDokumen,
         .period = period},
        store::packedHead({.npwp = "013121660091000", .name = "PT Contoh Sejahtera", .address = "Jakarta"}, period) +
            ";" + std::string(sums));
  }

  /// "A6;A7;B6;B7" of the stored header.
  [[nodiscard]] std::string storedSums() const {
    const std::string packed = row("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'");
    std::size_t start = 0;
    for (int field = 0; field < 6; ++field) start = packed.find(';', start) + 1;
    return packed.substr(start);
  }
  /// "SEQ|NOBUKTI" of all rows, in the order of the slip numbers.
  [[nodiscard]] std::vector<std::string> places() const {
    return rows("SELECT SEQ, NOBUKTI FROM DS_FORM_LAMPIRAN ORDER BY NOBUKTI, SEQ");
  }
};

/// Puts a slip of 1000 and 250 rupiah into a collection.
inline void putSlip(CD113206& list, std::string_view number, std::int16_t collection = 0, double gross = 1000,
                    double tax = 250, std::string_view payee = "Ani") {
  list.pCreateD113206Hdr(1, 2009, 0, collection, number, "021832415000000", "Bandung", payee, "05/01/2009", gross, tax);
}

}  // namespace tarvola::test
