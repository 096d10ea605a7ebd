#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "tarvola/lists/CD113206.h"
#include "tarvola/mainreturn/CF113204.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/slips/CF113309.h"
#include "tarvola/store/field_access.h"
#include "tests/lists/open_store.h"

namespace tarvola::test {

inline constexpr std::string_view filerNpwp = "013121660091000";
inline constexpr std::string_view filerName = "PT Contoh Sejahtera";
inline constexpr std::string_view filerAddress = "Jl. Merdeka No. 1";

/// A store whose January 2009 has a return, on 7 February 2009.
class SlipStore : public OpenStore {
 public:
  SlipStore() {
    setToday(Date::fromYmd(2009, 2, 7));
    createReturn(january);
  }
  ~SlipStore() { setToday(std::nullopt); }

  void createReturn(const store::Period& period) const {
    CF113204 mainReturn;
    mainReturn.pCreateF113204Hdr(filerNpwp, "F113204", "01", period.msPajak, period.thPajak, period.kdPembetulanKe, "-",
                                 "113", filerName, filerAddress, "07/02/2009");
  }

  /// Fields of the stored return, with ";" between them.
  [[nodiscard]] std::string ofReturn(std::initializer_list<std::string_view> fields,
                                     const store::Period& period = january) const {
    CF113204 mainReturn;
    mainReturn.pGetF113204("", "", "01", period.msPajak, period.thPajak, period.kdPembetulanKe, "", "113");
    return joined(mainReturn.rs4_2Form(), fields);
  }
  /// "A6;A7" of the stored list.
  [[nodiscard]] std::string listSums(const store::Period& period = january) const {
    CD113206 list;
    list.pGetDaftarInduk("", period.msPajak, period.thPajak, period.kdPembetulanKe);
    return joined(list.rs4_2Hdr(), {"A6", "A7"});
  }
  /// The slip numbers in the list.
  [[nodiscard]] std::vector<std::string> listed() const {
    return rows("SELECT NOBUKTI FROM DS_FORM_LAMPIRAN WHERE KD_FORM = 'D113206' ORDER BY NOBUKTI");
  }

  [[nodiscard]] static std::string joined(const RecordsetPtr& row, std::initializer_list<std::string_view> fields) {
    std::string text;
    const char* separator = "";
    for (const std::string_view field : fields) {
      text += separator + store::fieldTextOr(row, field, "-null-");
      separator = ";";
    }
    return text;
  }
};

// --- the road of a slip of any form ------------------------------------------------------------------------

/// Starts a new slip: stub, load, number, old values, status, payee. The number comes before the old values, since most
/// stubs hold none.
inline void startSlip(slips::SlipFrame& slip, std::string_view number, const store::Period& period = january) {
  slip.createSlip(
      {.npwp = std::string(filerNpwp), .name = std::string(filerName), .address = std::string(filerAddress)}, period,
      number, Date::fromYmd(2009, 1, 5));
  slip.loadSlip(period, number);
  slip.aNoBukti(number);
  slip.pAssignOldValues();
  slip.pAssignStatus(true, false, false);
  slip.aNPWPLT("021832415000000");
  slip.aNMWPLT("Ani");
  slip.aALMLT("Bandung");
}

/// Loads a slip for an edit: old values, status.
inline void startEdit(slips::SlipFrame& slip, std::string_view number, const store::Period& period = january) {
  slip.loadSlip(period, number);
  slip.pAssignOldValues();
  slip.pAssignStatus(false, true, false);
}

inline void save(slips::SlipFrame& slip) {
  slip.pHitPjk(1);
  slip.pUpdate();
}

/// Fields of a loaded slip, with ";" between them.
inline std::string fieldsOf(const slips::SlipFrame& slip, std::initializer_list<std::string_view> names) {
  return SlipStore::joined(slip.rs4_2Form(), names);
}

// --- the road of a lottery prize slip --------------------------------------------------------------------

inline void stub(CF113309& slip, std::string_view number, const store::Period& period = january) {
  slip.pCreateF113309Hdr(filerNpwp, "F113309", "02", period.msPajak, period.thPajak, period.kdPembetulanKe, number,
                         "113", filerName, filerAddress, "05/01/2009");
}

inline void load(CF113309& slip, std::string_view number, const store::Period& period = january) {
  slip.pGetF113309(filerNpwp, "F113309", "02", period.msPajak, period.thPajak, period.kdPembetulanKe, number, "113",
                   filerName, filerAddress, Date::fromYmd(2009, 1, 5));
}

/// Starts a new slip: stub, load, old values, status.
inline void begin(CF113309& slip, std::string_view number, const store::Period& period = january) {
  stub(slip, number, period);
  load(slip, number, period);
  slip.pAssignOldValues();
  slip.pAssignStatus(true, false, false);
  slip.aNPWPLT("021832415000000");
  slip.aNMWPLT("Ani");
  slip.aALMLT("Bandung");
}

/// Loads a slip for an edit: old values, status.
inline void beginEdit(CF113309& slip, std::string_view number, const store::Period& period = january) {
  load(slip, number, period);
  slip.pAssignOldValues();
  slip.pAssignStatus(false, true, false);
}

/// Adds a slip of one prize.
inline void addSlip(std::string_view number, double gross, double tariff = 25, const store::Period& period = january) {
  CF113309 slip;
  begin(slip, number, period);
  slip.aB12("Undian");
  slip.aB14(tariff);
  slip.aB13(gross);
  slip.pHitPjk(1);
  slip.pUpdate();
}

inline void removeSlip(std::string_view number, const store::Period& period = january) {
  CF113309 slip;
  slip.pDeleteF113309(filerNpwp, "F113309", "02", period.msPajak, period.thPajak, period.kdPembetulanKe, number, "113");
}

}  // namespace tarvola::test
