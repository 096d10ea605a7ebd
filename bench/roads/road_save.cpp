#include "bench/roads/road_save.h"

#include <string>

#include "bench/roads/bare_store.h"
#include "bench/roads/month_maker.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

constexpr std::int64_t saves = 200;
/// The first line of the example month is a slip of this form.
constexpr const char* slipNumber = "000001/PPH4";

void saveOnce(double gross) {
  CF113309 slip;
  slip.pGetF113309(filerNpwp, "F113309", "02", benchMonth, benchYear, 0, slipNumber, "113", "", "", Date());
  slip.pAssignOldValues();
  slip.pAssignStatus(false, true, false);
  slip.aB13(gross);
  slip.pHitPjk(1);
  slip.pUpdate();
}

const std::string slipKey = " WHERE KD_FORM='F113309' AND JENIS_DOKUMEN='02' AND MS_PAJAK=1 AND TH_PAJAK=2009 AND "
                            "KD_PEMBETULAN_KE=0 AND NOBUKTI='000001/PPH4' AND KD_JENIS_PAJAK='113'";
const std::string headerKey = " AND MS_PAJAK=1 AND TH_PAJAK=2009 AND KD_PEMBETULAN_KE=0";
const std::string returnKey =
    " WHERE KD_FORM='F113204' AND JENIS_DOKUMEN='01'" + headerKey + " AND NOBUKTI='-' AND KD_JENIS_PAJAK='113'";
const std::string listRowKey = " WHERE KD_FORM='D113206'" + headerKey + " AND COLLNO=0 AND NOBUKTI='000001/PPH4'";

/// The statements of one save of a slip that exists, in their order.
class Floor {
 public:
  explicit Floor(const std::string& path) : store_(path) {
    const std::string induk = "SELECT * FROM DS_FORM_INDUK";
    add(induk + slipKey);
    add(induk + slipKey + " AND NPWP='" + filerNpwp + "'");
    add("UPDATE DS_FORM_INDUK SET FlagNPWP=FlagNPWP, DAT_FORM=DAT_FORM, NOBUKTI=NOBUKTI, Total_Bruto=Total_Bruto, "
        "Total_PPh=Total_PPh" + slipKey);
    add(induk + slipKey + " AND NPWP='" + filerNpwp + "'");
    add("SELECT * FROM SETTING_NOBUKTI_PPH WHERE PASAL=4");
    add("SELECT * FROM SETTING_NOBUKTI_PPH WHERE PASAL=4");
    add("SELECT * FROM DS_FORM_LAMPIRAN" + listRowKey);
    // The list row is deleted and inserted anew, with the very values that it had.
    listRow_ = store_.prepare("SELECT * FROM DS_FORM_LAMPIRAN" + listRowKey).rows().at(0);
    add("DELETE FROM DS_FORM_LAMPIRAN" + listRowKey);
    insertPlace_ = statements_.size();
    add("INSERT INTO DS_FORM_LAMPIRAN VALUES (?,?,?,?,?,?,?,?)");
    const std::string list = " WHERE KD_FORM='D113206'" + headerKey;
    add(induk + list);
    add("UPDATE DS_FORM_INDUK SET DAT_FORM=DAT_FORM" + list);
    add(induk + list);
    add(induk + returnKey);
    add("SELECT sum(Total_Bruto), sum(Total_PPh), sum(Total_Bruto1), sum(Total_PPh1), sum(Total_Bruto2), sum(Total_PPh2), "
        "sum(Total_Bruto3), sum(Total_PPh3), sum(Total_Bruto4), sum(Total_PPh4) FROM DS_FORM_INDUK WHERE NPWP='" +
        std::string(filerNpwp) + "' AND KD_FORM='F113309' AND JENIS_DOKUMEN='02'" + headerKey + " AND KD_JENIS_PAJAK='113'");
    add("UPDATE DS_FORM_INDUK SET DAT_FORM=DAT_FORM" + returnKey);
    add(induk + returnKey);
  }

  void save() {
    for (std::size_t i = 0; i < statements_.size(); ++i)
      i == insertPlace_ ? statements_[i].run(viewsOf(listRow_)) : statements_[i].run();
  }

 private:
  void add(const std::string& text) { statements_.push_back(store_.prepare(text)); }
  BareStore store_;
  std::vector<BareStatement> statements_;
  std::vector<OwnedValue> listRow_;
  std::size_t insertPlace_ = 0;
};

}  // namespace

Measurement measureSave(std::int64_t slips) {
  const BenchStore store;
  fill(store, makeMonth(slips));
  Measurement result{.road = "save of one slip", .slips = slips, .operations = saves};
  {
    const CGeneralClass keptOpen;
    saveOnce(1);
    result.ours = seconds([] {
      for (std::int64_t i = 0; i < saves; ++i) saveOnce(1000.0 * static_cast<double>(i));
    });
  }
  Floor floor(store.path());
  floor.save();
  result.floor = seconds([&] {
    for (std::int64_t i = 0; i < saves; ++i) floor.save();
  });
  return result;
}

}  // namespace tarvola::bench
