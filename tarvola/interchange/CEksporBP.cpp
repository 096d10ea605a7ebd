#include "tarvola/interchange/CEksporBP.h"

#include "tarvola/interchange/export_row.h"
#include "tarvola/interchange/exported_documents.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/message_box.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/text_file.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/statement.h"
#include "tarvola/store/store_object.h"

namespace tarvola {

namespace {

using interchange::ExportForm;
using interchange::ExportRowHead;
using store::bare;
using store::Statement;

/// The return that is exported, as the caller words it.
struct ExportPeriod {
  std::string_view month;
  std::string_view year;
  std::int16_t correction = 0;
};

std::string_view articleLabel(std::int16_t article) {
  return article == store::taxArticle ? "Pasal 4 Ayat (2)" : std::string_view();
}

Statement periodCondition(const ExportPeriod& period) {
  return Statement(" KD_PEMBETULAN_KE = ") << std::int32_t{period.correction} << " AND TH_PAJAK = " << bare(period.year)
                                           << " AND MS_PAJAK = " << bare(period.month) << " AND ";
}

/// All slips and behind them all self-paid forms of a period, in the order in which the store hands them over. Every
/// field of a line stands in the packed text, so nothing is fetched but that and what finds a document.
Statement selectDocuments(const ExportPeriod& period) {
  return Statement("SELECT KD_FORM,NOBUKTI,DAT_FORM FROM DS_FORM_INDUK WHERE ")
         << periodCondition(period)
         << "(KD_FORM = 'F113309' OR KD_FORM = 'F113310' OR KD_FORM = 'F113311' OR "
            "KD_FORM = 'F113312' OR KD_FORM = 'F113316' OR KD_FORM = 'F113317' OR "
            "KD_FORM = 'F113319' OR KD_FORM = 'F113320' OR KD_FORM = 'F113321') "
            "UNION ALL "
            " SELECT KD_FORM,NOBUKTI,DAT_FORM FROM DAT_SSP_PPh22 WHERE "
         << periodCondition(period)
         << "(KD_FORM = 'FSewaTnhBgn' OR KD_FORM = 'FJasaKonstruksi'  OR KD_FORM = 'FAlihTnhBgn')";
}

void showNotice(std::string_view label, const ExportPeriod& period, std::string_view ending) {
  std::string text = "Data Bukti Potong PPh Masa ";
  text.append(label).append(" Untuk :\r\n\r\n* Masa Pajak   : ").append(period.month);
  text.append("\r\n* Tahun Pajak : ").append(period.year);
  text.append("\r\n* Pembetulan  : ").append(CStr(std::int32_t{period.correction}));
  text.append("\r\n\r\n").append(ending);
  showMessage({.text = std::move(text), .title = "INFORMASI", .icon = MessageIcon::Information});
}

}  // namespace

struct CEksporBP::State {
  store::StoreObject store{store::WaitsForSettings{}};
  interchange::ExportRowBuilder builder;

  /// The rule of every row builder: the line as far as it was built, and a message if that is not to its end.
  void buildLine(std::string& line, const ExportForm& form, const ExportRowHead& head, const RecordsetPtr& rsTemp) {
    line.clear();
    guarded([&] {
      if (!rsTemp) fail(ErrorNumber::ObjectVariableNotSet);
      if (!rsTemp->get_BOF()) rsTemp->MoveFirst();
      builder.append(line, form, head, *rsTemp);
    });
  }

  std::string lineOf(const store::FormCodes& codes, const ExportRowHead& head, const RecordsetPtr& rsTemp) {
    std::string line;
    buildLine(line, *interchange::findExportForm(codes.kdForm), head, rsTemp);
    return line;
  }

  void writeRows(TextFile& file, const RecordsetPtr& rows, const ExportPeriod& period);
  void exportPeriod(std::int16_t article, const ExportPeriod& period, std::string_view fileName);
};

/// One line for each row.
void CEksporBP::State::writeRows(TextFile& file, const RecordsetPtr& rows, const ExportPeriod& period) {
  const ModuleState& state = moduleState();
  store.converter().pSetCon(state.sDSN, state.sUID, state.sPWD);
  interchange::ExportedDocuments documents(store, rows);
  Progress progress("Exporting slips", documents.count());
  std::string line;
  for (std::uint64_t done = 1; done <= documents.count(); ++done) {
    const ExportForm* form = documents.next();
    if (form == nullptr) continue;
    const auto [kdForm, named] = documents.find(*form);
    buildLine(line, *form, {kdForm, period.month, period.year, period.correction}, named);
    if (line.find("\r\n") != std::string::npos) line = withoutLineBreaks(std::move(line));
    file.WriteLine(line);
    progress.done(done);
  }
}

void CEksporBP::State::exportPeriod(std::int16_t article, const ExportPeriod& period, std::string_view fileName) {
  // Another article has no selection; the store refuses the empty text.
  const std::string selection = article == store::taxArticle ? selectDocuments(period).str() : std::string();
  const RecordsetPtr rows = store.execute(selection);
  if (store::isEmptyResult(rows)) {
    showNotice(articleLabel(article), period, "Tidak Ada Pada DataBase");
    return;
  }
  TextFile file = TextFile::create(std::string(fileName));
  file.WriteLine(interchange::exportHeader());
  writeRows(file, rows, period);
  file.Close();
  const std::string count = Format(static_cast<double>(rows->get_RecordCount()), "#,##0");
  showNotice(articleLabel(article), period, "Berhasil Diekspor Sebanyak : " + count + " Baris (Record) Data");
}

CEksporBP::CEksporBP() : state_(std::make_unique<State>()) {}
CEksporBP::~CEksporBP() = default;

void CEksporBP::pSetCon(std::string_view sDSN, std::string_view sUID, std::string_view sPWD) {
  guarded([&] {
    setModuleConnection(sDSN, sUID, sPWD);
    state_->store.startUp();
  });
}

void CEksporBP::pEksporPPh(std::string_view, std::int16_t iKodePasal, std::string_view sMsPjk, std::string_view sThPjk,
                           std::int16_t iKdPembetulan, std::string_view strFileName, std::string_view) {
  guarded([&] { state_->exportPeriod(iKodePasal, {sMsPjk, sThPjk, iKdPembetulan}, strFileName); });
}

// The twelve row builders differ in nothing but the form in their names.
#define TARVOLA_ROW_BUILDER(form)                                                                 \
  std::string CEksporBP::pBuildData##form(std::string_view strKdForm, const RecordsetPtr& rsTemp, \
                                          std::string_view sMsPjk, std::string_view sThPjk,       \
                                          std::int16_t iKdPembetulan) {                           \
    return state_->lineOf(store::form, {strKdForm, sMsPjk, sThPjk, iKdPembetulan}, rsTemp);       \
  }

TARVOLA_ROW_BUILDER(F113309)
TARVOLA_ROW_BUILDER(F113310)
TARVOLA_ROW_BUILDER(F113311)
TARVOLA_ROW_BUILDER(F113312)
TARVOLA_ROW_BUILDER(F113316)
TARVOLA_ROW_BUILDER(F113317)
TARVOLA_ROW_BUILDER(F113319)
TARVOLA_ROW_BUILDER(F113320)
TARVOLA_ROW_BUILDER(F113321)
TARVOLA_ROW_BUILDER(FSewaTnhBgn)
TARVOLA_ROW_BUILDER(FAlihTnhBgn)
TARVOLA_ROW_BUILDER(FJasaKonstruksi)

#undef TARVOLA_ROW_BUILDER

}  // namespace tarvola
