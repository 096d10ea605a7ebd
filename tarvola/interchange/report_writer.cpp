#include "tarvola/interchange/report_writer.h"

#include <array>
#include <optional>

#include "tarvola/interchange/report_lines.h"
#include "tarvola/interchange/report_rows.h"
#include "tarvola/interchange/report_texts.h"
#include "tarvola/interchange/zlib_codec.h"
#include "tarvola/runtime/progress.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using store::bare;
using store::fieldTextOr;
using store::Statement;

constexpr auto profileFields = std::to_array<std::string_view>(
    {"NPWP", "NAMA_WP_PROFILE", "ALAMAT", "KOTA_WP", "KODE_POS", "TELEPON", "FAX", "EMAIL", "NPWP_TTD_TRV",
     "Nm_TTD_TRV", "NPWP_KU_TTD_TRV", "NM_KU_TTD_TRV", "JABATAN_TTD_BP", "NM_TTD_BP", "NKKPP"});

/// The period without quotes, as the caller words it, whatever NPWP the rows bear.
Statement periodCondition(const ReportOrder& order) {
  return Statement("KD_PEMBETULAN_KE = ")
         << std::int32_t{order.correction} << " AND TH_PAJAK = " << bare(order.year)
         << " AND MS_PAJAK = " << bare(order.month) << " AND KD_JENIS_PAJAK = '113' AND ";
}

Statement selectHeader(const ReportOrder& order) {
  return Statement("SELECT * FROM DS_FORM_INDUK WHERE ") << periodCondition(order) << "KD_FORM = 'F113204'";
}

// The documents of a report are those of each table ordered by JENIS_DOKUMEN. The store would carry every packed text
// through its sort, so it is asked for the rows alone, and of their columns for those that a line is made of.

/// Main return and slips.
Statement selectSlips(const ReportOrder& order) {
  return Statement("SELECT JENIS_DOKUMEN,KD_FORM,DAT_FORM FROM DS_FORM_INDUK WHERE ")
         << periodCondition(order)
         << "(KD_FORM = 'F113204' OR KD_FORM = 'F113309' OR KD_FORM = 'F113310' OR "
            "KD_FORM = 'F113311' OR KD_FORM = 'F113312' OR KD_FORM = 'F113316' OR "
            "KD_FORM = 'F113317' OR KD_FORM = 'F113319' OR "
            " KD_FORM = 'F113320' OR KD_FORM = 'F113321' OR KD_FORM = 'D113210')";
}

/// The self-paid forms, which stand behind all of those.
Statement selectSelfPaidForms(const ReportOrder& order) {
  return Statement("SELECT JENIS_DOKUMEN,KD_FORM,DAT_FORM FROM DAT_SSP_PPh22 WHERE ")
         << periodCondition(order)
         << "(KD_FORM = 'FSewaTnhBgn' OR KD_FORM = 'FJasaKonstruksi'  OR KD_FORM = 'FAlihTnhBgn')";
}

std::string trimmedField(const RecordsetPtr& rows, std::string_view field) {
  return std::string(Trim(fieldTextOr(rows, field, "")));
}

void appendItem(std::string& line, std::string_view item) { line.append(item).append(";"); }

/// Calls for each row; the recordset ends behind the last.
template <class Action>
void forEachRow(const RecordsetPtr& rows, Action action) {
  if (store::isEmptyResult(rows)) return;
  rows->MoveFirst();
  const std::int32_t rowCount = rows->get_RecordCount();
  for (std::int32_t row = 1; row <= rowCount; ++row) {
    action();
    if (!rows->get_EOF()) rows->MoveNext();
  }
}

/// The account code of today for a payment's, which stands for itself where the table does not know it.
std::string accountCode(const RecordsetPtr& payments, const RecordsetPtr& codes) {
  const std::string oldCode = fieldTextOr(payments, "KdMAP", "");
  codes->put_Filter("KDMAP_LAMA = '" + oldCode + "'");
  std::string code = store::isEmptyResult(codes) ? std::string(Trim(oldCode)) : fieldTextOr(codes, "KDMAP_BARU", "");
  codes->put_Filter("");
  return code;
}

std::string paymentLine(const RecordsetPtr& payments, const RecordsetPtr& codes) {
  std::string line;
  appendItem(line, store::taxKind);
  appendItem(line, "77");
  appendItem(line, fieldTextOr(payments, "MsPjk", ""));
  appendItem(line, fieldTextOr(payments, "ThPjk", ""));
  appendItem(line, trimmedField(payments, "KdPmbtln"));
  appendItem(line, trimmedField(payments, "TableKey"));
  appendItem(line, accountCode(payments, codes));
  for (const std::string_view field : {"KdJnsStr", "TglSSP", "JmlByr", "NTPP"})
    appendItem(line, trimmedField(payments, field));
  removeLineBreaks(line);
  return line;
}

std::string compensationLine(const RecordsetPtr& compensations, std::int16_t article, std::int16_t month,
                             std::int16_t year) {
  std::string line;
  appendItem(line, store::taxKind);
  appendItem(line, "PBK" + CStr(std::int32_t{article}));
  appendItem(line, CStr(std::int32_t{month}));
  appendItem(line, CStr(std::int32_t{year}));
  for (const std::string_view field : {"NoBuktiPBK", "TanggalBerlaku", "JumlahPBK"})
    appendItem(line, trimmedField(compensations, field));
  removeLineBreaks(line);
  return line;
}

/// 20 digits with zeros in front.
std::string lengthText(std::int64_t bytes) {
  constexpr std::size_t digitCount = 20;
  const std::string digits = std::to_string(bytes);
  return std::string(digitCount - digits.size(), '0') + digits;
}

ReportedPeriod periodOf(const ReportOrder& order) {
  return {.month = order.month, .year = order.year, .correction = order.correction};
}

}  // namespace

void ReportWriter::write(const ReportOrder& order) {
  if (store::isEmptyResult(store_.execute(selectHeader(order)))) return showNothingToReport(periodOf(order));
  const std::string path(order.fileName);
  const RecordsetPtr header = store_.execute(selectHeader(order));
  PlainStage plain(path);
  buildLines(order, header, [&](std::string_view line) { plain.WriteLine(line); });
  plain.Close();
  compress(path, plain);
  encipherFile(path, order.secretSource);
  showReportWritten(periodOf(order), order.fileName);
}

void ReportWriter::buildLines(const ReportOrder& order, const LineSink& sink) {
  buildLines(order, store_.execute(selectHeader(order)), sink);
}

void ReportWriter::buildLines(const ReportOrder& order, const RecordsetPtr& header, const LineSink& sink) {
  buildProfile(order, sink);
  const std::string closingLine = buildDocuments(order, header, sink);
  pWriteSSPPBK(order.npwp, store::taxArticle, order.month, order.year, sink, order.paymentsCorrection);
  sink(closingLine);
}

void ReportWriter::buildProfile(const ReportOrder& order, const LineSink& sink) {
  const RecordsetPtr profile = store_.execute("SELECT * FROM PROFILE");
  if (profile->get_RecordCount() == 0) return;
  std::string line(store::taxKind);
  line += ";00;1.0;";
  appendItem(line, order.updateDate);
  for (const std::string_view field : profileFields) appendItem(line, fieldTextOr(profile, field, ""));
  sink(line);
}

std::string ReportWriter::buildDocuments(const ReportOrder& order, const RecordsetPtr& header, const LineSink& sink) {
  const RecordsetPtr slips = store_.execute(selectSlips(order));
  const RecordsetPtr selfPaidForms = store_.execute(selectSelfPaidForms(order));
  Progress progress("Building the lines of the report", slips->rows()->count() + selfPaidForms->rows()->count());
  std::uint64_t doneCount = 0;
  ReportLines lines;
  const auto write = [&](const ReportDocument& document) {
    if (document.kdForm == store::F113204.kdForm)
      lines.addMainReturn(document, order.status, order.dJmlNKLB, store_.expand(document.kdForm, header));
    else
      lines.addForm(document);
    if (document.kdForm != store::D113210.kdForm) sink(lines.line());
    progress.done(++doneCount);
  };
  forEachDocument(*slips->rows(), write);
  forEachDocument(*selfPaidForms->rows(), write);
  return lines.closingLine();
}

/// A failure here shows, and the report goes on without the lines that are missing: so it stands.
void ReportWriter::pWriteSSPPBK(std::string_view, std::int16_t iPasal, std::string_view sMsPjk, std::string_view sThPjk,
                                const LineSink& sink, std::string_view sCorr) noexcept {
  guarded([&] {
    const RecordsetPtr codes = store_.open("SELECT * FROM REF_SSP_NEW");
    const std::int16_t month = CInt(Variant(sMsPjk));
    const std::int16_t year = CInt(Variant(sThPjk));
    buildPayments(iPasal, month, year, CInt(Variant(sCorr)), codes, sink);
    buildCompensations(iPasal, month, year, sink);
  });
}

void ReportWriter::buildPayments(std::int16_t article, std::int16_t month, std::int16_t year, std::int16_t correction,
                                 const RecordsetPtr& codes, const LineSink& sink) {
  const RecordsetPtr payments = store_.open(Statement("SELECT * FROM DATSSP WHERE MsPjk = ")
                                            << std::int32_t{month} << " AND THPJK=" << std::int32_t{year}
                                            << " AND KdPmbtln=" << std::int32_t{correction}
                                            << " AND KODEPASAL = " << std::int32_t{article} << " ORDER BY TglSSP ASC");
  forEachRow(payments, [&] { sink(paymentLine(payments, codes)); });
}

/// All of the month's, whatever correction they came with: the selection knows none.
void ReportWriter::buildCompensations(std::int16_t article, std::int16_t month, std::int16_t year,
                                      const LineSink& sink) {
  const RecordsetPtr rows = store_.open(Statement("SELECT * FROM datPBKPPhMasa WHERE PASAL = ")
                                        << std::int32_t{article} << " AND MsPjkPBK = " << std::int32_t{month}
                                        << " AND ThPjkPBK = " << std::int32_t{year});
  forEachRow(rows, [&] { sink(compensationLine(rows, article, month, year)); });
}

// The bytes of the code page are handed on as they are: a compressed text is as good a text of it as any, and nothing
// would come of turning it into characters and back.

/// What stands behind the length in the second stage: the text compressed, or the text itself if that failed.
std::string ReportWriter::compressed(const std::string& path, PlainStage& plain) {
  std::optional<std::string> packed = plain.compressed();
  if (packed && reader.readsWhole(plain.lengthBytes())) return std::move(*packed);
  std::int64_t lengthBytes = 0;
  std::string text = reader.readBytes(path, lengthBytes);
  compressBytes(text, roomToCompress(text.size()), text);
  return text;
}

/// The second stage. What the compression says is not looked at: so it stands.
void ReportWriter::compress(const std::string& path, PlainStage& plain) {
  const std::string text = compressed(path, plain);
  TextFile file = TextFile::createAnew(path);
  file.WriteBytes(lengthText(plain.lengthBytes()));
  file.WriteBytes(text);
  file.WriteLine("");
  file.Close();
}

/// The third stage. The Base64 ends its own last line, and the file has one more line end behind it.
void ReportWriter::encipherFile(const std::string& path, std::string_view secretSource) {
  std::int64_t lengthBytes = 0;
  const std::string text = reader.readBytes(path, lengthBytes);
  TextFile file = TextFile::createAnew(path);
  encipherAnsi(text, funcHashData(secretSource), random, [&](std::string_view line) { file.WriteLine(line); });
  file.WriteLine("");
  file.Close();
}

/// A failure shows and gives "", with which the report is then enciphered: so it stands.
std::string ReportWriter::funcHashData(std::string_view sData) noexcept try { return password(sData); } catch (...) {
  showPasswordFailure();
  return {};
}

}  // namespace tarvola::interchange
