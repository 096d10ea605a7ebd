#include "bench/roads/road_export.h"

#include "bench/roads/bare_store.h"
#include "bench/roads/line_file.h"
#include "bench/roads/month_maker.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

constexpr std::int64_t repetitions = 2;

const std::string selection =
    "SELECT NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE, NOBUKTI,KD_JENIS_PAJAK,DAT_FORM,TGL_REKAM,"
    "TGL_UBAH,NIP,FlagNPWP FROM DS_FORM_INDUK WHERE KD_PEMBETULAN_KE=? AND TH_PAJAK=? AND MS_PAJAK=? AND "
    "(KD_FORM='F113309' "
    "OR KD_FORM='F113310' OR KD_FORM='F113311' OR KD_FORM='F113312' OR KD_FORM='F113316' OR KD_FORM='F113317' OR "
    "KD_FORM='F113319' OR KD_FORM='F113320' OR KD_FORM='F113321') UNION ALL SELECT NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,"
    "TH_PAJAK,KD_PEMBETULAN_KE, NOBUKTI,KD_JENIS_PAJAK,DAT_FORM,TGL_REKAM,TGL_UBAH,NIP,0 FROM DAT_SSP_PPh22 WHERE "
    "KD_PEMBETULAN_KE=?1 AND TH_PAJAK=?2 AND MS_PAJAK=?3 AND (KD_FORM='FSewaTnhBgn' OR KD_FORM='FJasaKonstruksi' OR "
    "KD_FORM='FAlihTnhBgn')";

void exportOnce(const BenchStore& store) {
  setMessageBoxHandler([](const MessageBox&) {});
  CEksporBP().pEksporPPh("", 4, "1", "2009", 0, store.file("out.csv"), "");
  setMessageBoxHandler({});
}

void floorOnce(BareStatement& select, const std::vector<std::string>& lines, const std::string& path) {
  select.run({std::int64_t{0}, std::int64_t{benchYear}, std::int64_t{benchMonth}});
  writeLines(lines, path);
}

}  // namespace

Measurement measureExport(std::int64_t slips) {
  const BenchStore store;
  fill(store, makeMonth(slips));
  Measurement result{.road = "export", .slips = slips, .operations = slips * repetitions};
  {
    const CGeneralClass keptOpen;
    exportOnce(store);
    result.ours = seconds([&] {
      for (int i = 0; i < repetitions; ++i) exportOnce(store);
    });
  }
  const std::vector<std::string> lines = linesOf(store.file("out.csv"));
  BareStore bare(store.path());
  BareStatement select = bare.prepare(selection);
  floorOnce(select, lines, store.file("floor.csv"));
  result.floor = seconds([&] {
    for (int i = 0; i < repetitions; ++i) floorOnce(select, lines, store.file("floor.csv"));
  });
  return result;
}

double exportPeakMib(std::int64_t slips) {
  const BenchStore store;
  peakMibOf([&] { fill(store, makeMonth(slips)); });
  return peakMibOf([&] {
    connectTo(store);
    exportOnce(store);
  });
}

}  // namespace tarvola::bench
