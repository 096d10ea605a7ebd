#include "tarvola/interchange/CEksporSSPPBK.h"

#include <span>
#include <string>
#include <utility>

#include "tarvola/interchange/payment_files.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/message_box.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/text_file.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"

namespace tarvola {

namespace {

using store::Statement;

/// What is exported: the records of a period, the article as its number in the law.
struct ExportedPeriod {
  std::string_view npwp;
  std::int16_t article = 0;
  std::int16_t month = 0;
  std::int16_t year = 0;
  std::int16_t correction = 0;
};

// --- lines --------------------------------------------------------------------------------------------

/// What a column of a line holds behind the first three, which are word with article, month and year.
struct LineColumn {
  enum class Holds : std::uint8_t { Field, Correction, Nothing };
  Holds holds = Holds::Field;
  std::string_view field = {};
};

constexpr LineColumn correctionColumn{.holds = LineColumn::Holds::Correction};
constexpr LineColumn emptyColumn{.holds = LineColumn::Holds::Nothing};

constexpr LineColumn paymentColumns[] = {correctionColumn,    {.field = "NTPP"},  {.field = "TglSSP"},
                                         {.field = "JmlByr"}, {.field = "KdMAP"}, {.field = "KdJnsStr"}};
constexpr LineColumn transferColumns[] = {{.field = "NoBuktiPBK"}, {.field = "TanggalBerlaku"}, {.field = "JumlahPBK"}};
/// The same in the file of both kinds, with the columns that only payments fill left empty.
constexpr LineColumn transferColumnsAmongPayments[] = {
    emptyColumn, {.field = "NoBuktiPBK"}, {.field = "TanggalBerlaku"}, {.field = "JumlahPBK"}, emptyColumn,
    emptyColumn};

/// The text form of a value without blanks around; nothing for a value that is missing.
void appendTrimmed(std::string& line, const ado::Cell& value) {
  if (value.isNull()) return;
  std::string text;
  value.appendText(text);
  line += Trim(text);
}

std::string lineOf(std::string_view word, const ExportedPeriod& period, std::span<const LineColumn> columns,
                   const Recordset& record) {
  std::string line(word);
  line.append(CStr(std::int32_t{period.article})).append(";").append(CStr(std::int32_t{period.month}));
  line.append(";").append(CStr(std::int32_t{period.year}));
  for (const LineColumn& column : columns) {
    line += ';';
    if (column.holds == LineColumn::Holds::Correction) line += CStr(std::int32_t{period.correction});
    if (column.holds == LineColumn::Holds::Field) appendTrimmed(line, record.cell(record.column(column.field)));
  }
  return withoutLineBreaks(std::move(line));
}

void writeLines(TextFile& file, std::string_view word, const ExportedPeriod& period,
                std::span<const LineColumn> columns, const RecordsetPtr& records) {
  if (!store::isEmptyResult(records)) {
    Progress progress("Exporting payments", static_cast<std::uint64_t>(records->get_RecordCount()));
    std::uint64_t done = 0;
    for (records->MoveFirst(); !records->get_EOF(); records->MoveNext()) {
      file.WriteLine(lineOf(word, period, columns, *records));
      progress.done(++done);
    }
  }
  records->Close();
}

// --- files --------------------------------------------------------------------------------------------

constexpr std::string_view headerOfPayments =
    "Kode Pasal Untuk SSP; Masa Pajak SSP; Tahun Pajak SSP; Pembetulan (SSP) ; NTPP (Nomor Tanda Pembayaran Pajak) SSP "
    "; Tanggal Setor SSP; Jumlah SSP ; Kode MAP SSP ; Kode Jenis Setoran (KJS) SSP";
constexpr std::string_view headerOfTransfers =
    "Kode Pasal Untuk PBK ; Masa(Bulan) Berlaku PBK ; Tahun Berlaku PBK ; Nomor Bukti PBK ; Tanggal Berlaku PBK ; "
    "Jumlah PBK";

/// A kind of file: its titles and the columns of each kind of record; no columns for a kind that it does not hold.
struct PaymentFile {
  std::string_view header;
  std::span<const LineColumn> payments = {};
  std::span<const LineColumn> transfers = {};
  /// How the selection of payments begins. One of the two has a second blank.
  store::FixedText selection = "SELECT * FROM DATSSP WHERE MsPjk = ";
};

constexpr PaymentFile fileOfBoth{
    .header = interchange::headerOfBoth, .payments = paymentColumns, .transfers = transferColumnsAmongPayments};
constexpr PaymentFile fileOfPayments{
    .header = headerOfPayments, .payments = paymentColumns, .selection = "SELECT * FROM DATSSP WHERE  MsPjk = "};
constexpr PaymentFile fileOfTransfers{.header = headerOfTransfers, .transfers = transferColumns};

/// The payments of a period; '401' stands twice in the list of kinds, which changes nothing.
Statement selectPayments(store::FixedText start, const ExportedPeriod& period) {
  return Statement(start) << std::int32_t{period.month} << " AND KODEPASAL = " << std::int32_t{period.article}
                          << " AND ThPjk=" << std::int32_t{period.year}
                          << " AND KdPmbtln=" << std::int32_t{period.correction}
                          << " AND KdMAP IN ('0118', '0171', '0172', '0173','411128') AND KdJnsStr IN ( '100', '199', "
                             "'300', '310', '312', '320', '322', '401', '401', '402', '403', '404', '405', '406', "
                             "'407', '408', '409', '416', '390','417','418','419','499','500','501','510','511') "
                             "ORDER BY TglSSP ASC";
}

void exportTo(const store::StoreObject& store, const PaymentFile& kind, const ExportedPeriod& period,
              std::string_view fileName) {
  TextFile file = TextFile::create(std::string(fileName));
  file.WriteLine(kind.header);
  if (!kind.payments.empty()) {
    writeLines(file, interchange::paymentWord, period, kind.payments,
               store.open(selectPayments(kind.selection, period)));
  }
  if (!kind.transfers.empty()) {
    writeLines(file, interchange::transferWord, period, kind.transfers,
               store.open(interchange::selectTransfers(period.npwp, period.article, period.month, period.year)));
  }
  file.Close();
}

/// A missing folder has a message of its own. Only inside a catch block.
void showExportFailure(const RunTimeError& error) noexcept {
  if (error.number() != static_cast<std::int32_t>(ErrorNumber::PathNotFound)) return showCurrentFailure();
  showMessage({.text = "Lokasi Atau Tempat Penyimpanan Data Yang Akan Diekspor Tidak Valid/Tidak Ditemukan",
               .title = "INFORMASI",
               .icon = MessageIcon::Information});
}

}  // namespace

struct CEksporSSPPBK::State {
  store::StoreObject store{store::StartUpWording::Description, store::StartUpConverter::None};

  void write(const PaymentFile& kind, const ExportedPeriod& period, std::string_view fileName) noexcept {
    guarded([&] {
      try {
        exportTo(store, kind, period, fileName);
      } catch (const RunTimeError& error) {
        showExportFailure(error);
      }
    });
  }
};

CEksporSSPPBK::CEksporSSPPBK() : state_(std::make_unique<State>()) {}
CEksporSSPPBK::~CEksporSSPPBK() { interchange::closeConnection(state_->store); }

void CEksporSSPPBK::pEksporSSPPBK(std::string_view sNPWP, std::int16_t iKodePasal, std::int16_t iMsPjk,
                                  std::int16_t iThPjk, std::string_view strFileName, std::int16_t iCorr) {
  state_->write(fileOfBoth, {sNPWP, iKodePasal, iMsPjk, iThPjk, iCorr}, strFileName);
}

void CEksporSSPPBK::pEksporSSP(std::string_view sNPWP, std::int16_t iKodePasal, std::int16_t iMsPjk,
                               std::int16_t iThPjk, std::string_view strFileName, std::int16_t iCorr) {
  state_->write(fileOfPayments, {sNPWP, iKodePasal, iMsPjk, iThPjk, iCorr}, strFileName);
}

void CEksporSSPPBK::pEksporPBK(std::string_view sNPWP, std::int16_t iKodePasal, std::int16_t iMsPjk,
                               std::int16_t iThPjk, std::string_view strFileName, std::int16_t iCorr) {
  state_->write(fileOfTransfers, {sNPWP, iKodePasal, iMsPjk, iThPjk, iCorr}, strFileName);
}

}  // namespace tarvola
