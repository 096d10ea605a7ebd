#include "tarvola/interchange/line_writer.h"

#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/packed_row.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using store::name;
using store::number;
using store::Statement;
using store::text;

/// NIP of every document that comes in by import; what forms and headers write themselves is ''.
constexpr store::FixedText importedNip = "'-'";

Statement documentCondition(std::string_view npwp, const store::Period& period, std::string_view kdForm,
                            std::string_view noBukti) {
  return Statement("NPWP = ") << text(npwp) << " AND KD_FORM = " << text(kdForm) << " AND "
                              << store::periodCondition(period) << " AND NOBUKTI = " << text(noBukti);
}

store::FixedText listTable(const ImportForm& form) {
  return form.codes.table == store::FormTable::Induk ? store::FixedText("DS_FORM_LAMPIRAN")
                                                     : store::FixedText("LAMPIRAN_SSP_PPh22");
}

void appendPeriod(Statement& values, const store::Period& period) {
  values << std::int32_t{period.msPajak} << "," << std::int32_t{period.thPajak} << ","
         << std::int32_t{period.kdPembetulanKe};
}

}  // namespace

std::optional<std::string> findFormInduk(const store::StoreObject& store, std::string_view npwp,
                                         const store::Period& period, std::string_view kdForm,
                                         std::string_view noBukti) {
  const RecordsetPtr rows = store.execute(Statement("SELECT DAT_FORM FROM DS_FORM_INDUK WHERE ")
                                          << documentCondition(npwp, period, kdForm, noBukti));
  if (store::isEmptyResult(rows)) return std::nullopt;
  return store::fieldTextOr(rows, "DAT_FORM", "");
}

bool existsInSsp(const store::StoreObject& store, std::string_view npwp, const store::Period& period,
                 std::string_view kdForm, std::string_view noBukti) {
  return !store::isEmptyResult(store.execute(Statement("SELECT NOBUKTI FROM DAT_SSP_PPh22 WHERE ")
                                             << documentCondition(npwp, period, kdForm, noBukti)));
}

bool existsInLampiran(const store::StoreObject& store, const store::Period& period, std::string_view kdForm,
                      std::string_view noBukti, std::int32_t collection) {
  return !store::isEmptyResult(store.execute(Statement("SELECT NOBUKTI FROM DS_FORM_LAMPIRAN WHERE KD_FORM = ")
                                             << text(kdForm) << " AND " << store::periodCondition(period)
                                             << " AND COLLNO = " << collection << " AND NOBUKTI = " << text(noBukti)));
}

store::FilerHeader readFiler(const store::StoreObject& store) {
  return store::filerOfProfile(store.execute("SELECT * FROM PROFILE"));
}

std::string LineWriter::packed(double seq) const {
  return packedForm(form_, line_, store::packedHead(filer_, period_), seq);
}

std::string LineWriter::packedListRow(double seq) const {
  const ListedAmounts amounts = listedAmounts(form_, line_);
  const auto title = [](Column column) { return fileColumns[index(column)].title; };
  const auto append = [&](store::PackedRow& row, Column column) { row.text(title(column), line_.text(column)); };
  store::PackedRow row;
  row.whole(period_.msPajak).whole(period_.thPajak).amount(seq);
  if (form_.codes.kind == store::FormKind::Slip) {
    for (const Column column : {PayeeNpwp, PayeeAddress, PayeeName, Number, DateOfSlip}) append(row, column);
    row.amount(amounts.gross).amount(amounts.tax);
  } else {
    row.amount(amounts.gross).amount(amounts.tax);
    if (form_.listShowsLocation) append(row, Text1);
    append(row, Number);
    append(row, DateOfSlip);
    row.text("keterangan", "");
  }
  return withoutLineBreaks(row.str());
}

double LineWriter::nextSeq() const {
  Statement select("SELECT MAX(SEQ) AS dMaxSeq FROM ");
  select << listTable(form_) << " WHERE " << store::periodCondition(period_)
         << " AND KD_FORM = " << text(form_.list.kdForm)
         << " AND COLLNO = 0 GROUP BY KD_FORM HAVING (KD_FORM = " << text(form_.list.kdForm) << ")";
  const RecordsetPtr rows = store_.execute(select);
  return store::isEmptyResult(rows) ? 1 : store::fieldNumber(rows, "dMaxSeq") + 1;
}

void LineWriter::insertSlip() const {
  const std::string datForm = packed();
  const std::string date = formatDate(today());
  Statement insert(
      "INSERT INTO DS_FORM_INDUK (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,"
      "KD_JENIS_PAJAK,DAT_FORM,TGL_REKAM,TGL_UBAH,NIP,FlagNPWP");
  for (const Total& total : form_.totals) insert << "," << name(total.column);
  insert << ") VALUES (" << text(filer_.npwp) << "," << text(form_.codes.kdForm) << ","
         << text(form_.codes.jenisDokumen) << ",";
  appendPeriod(insert, period_);
  insert << "," << text(noBukti()) << "," << text(store::taxKind) << "," << text(datForm) << "," << text(date) << ","
         << text(date) << "," << importedNip << "," << std::int32_t{flagOfPayee(line_)};
  for (const Total& total : form_.totals) insert << "," << number(sumOf(line_, total.addends));
  store_.execute(insert << ")");
}

void LineWriter::insertSelfPaidForm(double seq) const {
  const std::string datForm = packed(seq);
  const std::string date = formatDate(today());
  Statement insert(
      "INSERT INTO DAT_SSP_PPh22 (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,"
      "KD_JENIS_PAJAK,DAT_FORM,TGL_REKAM,TGL_UBAH,NIP) VALUES (");
  insert << text(filer_.npwp) << "," << text(form_.codes.kdForm) << "," << text(form_.codes.jenisDokumen) << ",";
  appendPeriod(insert, period_);
  insert << "," << text(noBukti()) << "," << text(store::taxKind) << "," << text(datForm) << "," << text(date) << ","
         << text(date) << "," << importedNip;
  store_.execute(insert << ")");
}

void LineWriter::insertListRow(double seq) const {
  const std::string datForm = packedListRow(seq);
  Statement insert("INSERT INTO ");
  insert << listTable(form_)
         << " (KD_FORM, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, COLLNO, SEQ, NOBUKTI, DAT_FORM) VALUES ("
         << text(form_.list.kdForm) << ",";
  appendPeriod(insert, period_);
  insert << ",'0'," << number(seq) << "," << text(noBukti()) << "," << text(datForm);
  store_.execute(insert << ")");
}

}  // namespace tarvola::interchange
