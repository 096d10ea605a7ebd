#include "bench/roads/road_import.h"

#include "bench/roads/bare_store.h"
#include "bench/roads/month_maker.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/text_file.h"
#include "tarvola/tarvola.h"

namespace tarvola::bench {

namespace {

using Rows = std::vector<std::vector<OwnedValue>>;

/// What an import of some lines wrote, table by table in the order of writing: what the floor writes again.
struct Written {
  Rows forms, listRows, interestRows, selfPaidForms, selfPaidListRows;
};

Written readBack(const std::string& path) {
  BareStore store(path);
  const auto rowsOf = [&](const std::string& table) {
    return store.prepare("SELECT * FROM " + table + " ORDER BY rowid").rows();
  };
  return {rowsOf("DS_FORM_INDUK"), rowsOf("DS_FORM_LAMPIRAN"), rowsOf("D113210"), rowsOf("DAT_SSP_PPh22"),
          rowsOf("LAMPIRAN_SSP_PPh22")};
}

std::string placeholders(std::size_t count) {
  std::string text = "?";
  for (std::size_t i = 1; i < count; ++i) text += ",?";
  return text;
}

/// The statements of an import, prepared once.
class Floor {
 public:
  Floor(const std::string& path, const Written& written)
      : store_(path),
        written_(written),
        profile_(store_.prepare("SELECT * FROM PROFILE")),
        findForm_(
            store_.prepare("SELECT * FROM DS_FORM_INDUK WHERE NPWP=? AND KD_FORM=? AND JENIS_DOKUMEN=? AND MS_PAJAK=? "
                           "AND TH_PAJAK=? AND KD_PEMBETULAN_KE=? AND NOBUKTI=? AND KD_JENIS_PAJAK=?")),
        insertForm_(insertInto("DS_FORM_INDUK", written.forms)),
        findListRow_(store_.prepare("SELECT * FROM DS_FORM_LAMPIRAN WHERE KD_FORM=? AND MS_PAJAK=? AND TH_PAJAK=? AND "
                                    "KD_PEMBETULAN_KE=? AND COLLNO=? AND NOBUKTI=?")),
        lastSequence_(
            store_.prepare("SELECT SEQ FROM DS_FORM_LAMPIRAN WHERE KD_FORM=? AND MS_PAJAK=? AND TH_PAJAK=? AND "
                           "KD_PEMBETULAN_KE=? AND COLLNO=? ORDER BY SEQ DESC LIMIT 1")),
        insertListRow_(insertInto("DS_FORM_LAMPIRAN", written.listRows)),
        findInterest_(store_.prepare("SELECT * FROM D113210 WHERE NPWP=? AND NMWP=? AND ALM=? AND MS_PAJAK=? AND "
                                     "TH_PAJAK=? AND KD_PEMBETULAN_KE=? AND NOBUKTI=?")),
        insertInterest_(insertInto("D113210", written.interestRows)),
        lastSelfPaid_(
            store_.prepare("SELECT SEQ FROM LAMPIRAN_SSP_PPh22 WHERE KD_FORM=? AND MS_PAJAK=? AND TH_PAJAK=? AND "
                           "KD_PEMBETULAN_KE=? AND COLLNO=? ORDER BY SEQ DESC LIMIT 1")),
        insertSelfPaidListRow_(insertInto("LAMPIRAN_SSP_PPh22", written.selfPaidListRows)),
        insertSelfPaid_(insertInto("DAT_SSP_PPh22", written.selfPaidForms)) {}

  void slip(std::size_t number) {
    const std::vector<BareValue> form = viewsOf(written_.forms[number]);
    const std::vector<BareValue> listRow = viewsOf(written_.listRows[number]);
    profile_.run();
    findForm_.run({form.begin(), form.begin() + 8});
    insertForm_.run(form);
    findListRow_.run({listRow[0], listRow[1], listRow[2], listRow[3], listRow[4], listRow[6]});
    lastSequence_.run({listRow.begin(), listRow.begin() + 5});
    insertListRow_.run(listRow);
    if (std::get<std::string_view>(form[1]) == "F113310") interestOf(form);
  }

  void selfPaid(std::size_t number) {
    const std::vector<BareValue> listRow = viewsOf(written_.selfPaidListRows[number]);
    profile_.run();
    lastSelfPaid_.run({listRow.begin(), listRow.begin() + 5});
    insertSelfPaidListRow_.run(listRow);
    insertSelfPaid_.run(viewsOf(written_.selfPaidForms[number]));
  }

 private:
  BareStatement insertInto(const std::string& table, const Rows& rows) {
    const std::size_t columns = rows.empty() ? 1 : rows[0].size();
    return store_.prepare("INSERT INTO " + table + " VALUES (" + placeholders(columns) + ")");
  }

  void interestOf(const std::vector<BareValue>& form) {
    const auto& rows = written_.interestRows;
    const auto isOfForm = [&](std::size_t i) { return i < rows.size() && viewsOf(rows[i])[7] == form[6]; };
    if (!isOfForm(nextInterest_)) return;
    const std::vector<BareValue> first = viewsOf(rows[nextInterest_]);
    findInterest_.run({first[0], first[1], first[2], first[3], first[4], first[5], first[7]});
    for (; isOfForm(nextInterest_); ++nextInterest_) insertInterest_.run(viewsOf(rows[nextInterest_]));
  }

  BareStore store_;
  const Written& written_;
  std::size_t nextInterest_ = 0;
  BareStatement profile_, findForm_, insertForm_, findListRow_, lastSequence_, insertListRow_, findInterest_,
      insertInterest_, lastSelfPaid_, insertSelfPaidListRow_, insertSelfPaid_;
};

void runFloor(const std::string& path, const Written& written, const std::vector<std::string>& lines) {
  Floor floor(path, written);
  std::size_t slips = 0;
  std::size_t selfPaid = 0;
  for (const std::string& line : lines) line[1] == '1' ? floor.slip(slips++) : floor.selfPaid(selfPaid++);
}

}  // namespace

Measurement measureImport(std::int64_t slips) {
  const std::vector<std::string> lines = makeMonth(slips);
  Measurement result{.road = "import of lines", .slips = slips, .operations = slips};
  const BenchStore ours;
  connectTo(ours);
  {
    const CGeneralClass keptOpen;
    result.ours = seconds([&] { importLines(lines); });
  }
  const Written written = readBack(ours.path());
  const BenchStore bare;
  result.floor = seconds([&] { runFloor(bare.path(), written, lines); });
  return result;
}

double importPeakMib(std::int64_t slips) {
  const BenchStore store;
  peakMibOf([&] {
    TextFile file = TextFile::create(store.file("lines.csv"));
    for (const std::string& line : makeMonth(slips)) file.WriteLine(fromAnsi(line));
    file.Close();
  });
  return peakMibOf([&] {
    connectTo(store);
    const CGeneralClass keptOpen;
    CImporBP import;
    LineReader reader = LineReader::open(store.file("lines.csv"));
    for (std::string_view line; reader.next(line);) importLine(import, std::string(line));
  });
}

}  // namespace tarvola::bench
