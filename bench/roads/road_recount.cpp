#include "bench/roads/road_recount.h"

#include "bench/roads/bare_store.h"
#include "bench/roads/month_maker.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

constexpr std::int64_t repetitions = 3;

struct FormAndAverages {
  const char* table;
  const char* form;
  const char* document;
  int averages;
};

/// The forms of the recount, each with the number of average rates that it asks for.
constexpr FormAndAverages forms[] = {
    {"DS_FORM_INDUK", "F113309", "02", 1},     {"DS_FORM_INDUK", "F113310", "03", 5},
    {"DS_FORM_INDUK", "F113311", "04", 2},     {"DS_FORM_INDUK", "F113312", "05", 1},
    {"DS_FORM_INDUK", "F113316", "06", 3},     {"DS_FORM_INDUK", "F113317", "07", 1},
    {"DAT_SSP_PPh22", "FSewaTnhBgn", "12", 0}, {"DAT_SSP_PPh22", "FJasaKonstruksi", "14", 0},
    {"DS_FORM_INDUK", "F113319", "15", 1},     {"DS_FORM_INDUK", "F113320", "16", 1},
    {"DS_FORM_INDUK", "F113321", "17", 1},     {"DAT_SSP_PPh22", "FAlihTnhBgn", "19", 0}};

const std::string formCondition =
    " WHERE NPWP=? AND KD_FORM=? AND JENIS_DOKUMEN=? AND MS_PAJAK=? AND TH_PAJAK=? AND KD_PEMBETULAN_KE=? AND "
    "KD_JENIS_PAJAK='113'";
const std::string mainReturn =
    "SELECT * FROM DS_FORM_INDUK WHERE KD_FORM='F113204' AND JENIS_DOKUMEN='01' AND MS_PAJAK=? AND TH_PAJAK=? AND "
    "KD_PEMBETULAN_KE=? AND NOBUKTI='-' AND KD_JENIS_PAJAK='113'";

void recountOnce() {
  CF113204 form;
  form.pGetF113204(filerNpwp, "F113204", "01", benchMonth, benchYear, 0, "-", "113");
  form.pUpdF113204(benchMonth, benchYear, 0);
  form.pHitPjk3204(1);
  form.pUpdate();
}

class Floor {
 public:
  explicit Floor(const std::string& path)
      : store_(path),
        induk_(store_.prepare("SELECT * FROM DS_FORM_INDUK" + formCondition)),
        ssp_(store_.prepare("SELECT * FROM DAT_SSP_PPh22" + formCondition)),
        average_(store_.prepare(
            "SELECT sum(Total_Bruto), sum(Total_PPh), sum(Total_Bruto1), sum(Total_PPh1), sum(Total_Bruto2), "
            "sum(Total_PPh2), sum(Total_Bruto3), sum(Total_PPh3), sum(Total_Bruto4), sum(Total_PPh4) FROM "
            "DS_FORM_INDUK" +
            formCondition)),
        count_(store_.prepare(
            "SELECT COUNT(*) FROM DS_FORM_INDUK WHERE MS_PAJAK=? AND TH_PAJAK=? AND KD_PEMBETULAN_KE=? AND "
            "KD_FORM IN ('F113309','F113310','F113311','F113312','F113316','F113317','F113319','F113320',"
            "'F113321')")),
        mainReturn_(store_.prepare(mainReturn)),
        update_(store_.prepare("UPDATE DS_FORM_INDUK SET DAT_FORM=DAT_FORM WHERE KD_FORM='F113204' AND MS_PAJAK=? AND "
                               "TH_PAJAK=? AND KD_PEMBETULAN_KE=?")) {}

  void recount() {
    const std::int64_t month = benchMonth;
    const std::int64_t year = benchYear;
    const std::int64_t first = 0;
    mainReturn_.run({month, year, first});
    for (const FormAndAverages& form : forms) {
      const std::initializer_list<BareValue> key = {std::string_view(filerNpwp),
                                                    std::string_view(form.form),
                                                    std::string_view(form.document),
                                                    month,
                                                    year,
                                                    first};
      (form.table[1] == 'S' ? induk_ : ssp_).run(key);
      for (int i = 0; i < form.averages; ++i) average_.run(key);
    }
    count_.run({month, year, first});
    update_.run({month, year, first});
    mainReturn_.run({month, year, first});
  }

 private:
  BareStore store_;
  BareStatement induk_, ssp_, average_, count_, mainReturn_, update_;
};

}  // namespace

Measurement measureRecount(std::int64_t slips) {
  const BenchStore store;
  fill(store, makeMonth(slips));
  Measurement result{.road = "full recount", .slips = slips, .operations = slips * repetitions};
  {
    const CGeneralClass keptOpen;
    recountOnce();
    result.ours = seconds([] {
      for (int i = 0; i < repetitions; ++i) recountOnce();
    });
  }
  Floor floor(store.path());
  floor.recount();
  result.floor = seconds([&] {
    for (int i = 0; i < repetitions; ++i) floor.recount();
  });
  return result;
}

}  // namespace tarvola::bench
