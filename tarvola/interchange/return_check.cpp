#include "tarvola/interchange/return_check.h"

#include <algorithm>
#include <array>
#include <mutex>

#include "tarvola/interchange/line_writer.h"
#include "tarvola/interchange/return_check_packed.h"
#include "tarvola/interchange/return_check_parts.h"
#include "tarvola/interchange/store_lock.h"
#include "tarvola/store/module_state.h"
#include "tarvola/store/statement.h"

namespace tarvola {

namespace {

struct KindText {
  CheckKind kind;
  std::string_view text;
};

constexpr std::array kindTexts = {
    KindText{CheckKind::MissingHeader, "header document missing"},
    KindText{CheckKind::DoubledDocument, "document there more than once"},
    KindText{CheckKind::WrongCode, "code is not that of its form"},
    KindText{CheckKind::OtherFiler, "document of another filer, which a recount passes over"},
    KindText{CheckKind::FieldCount, "wrong number of fields"},
    KindText{CheckKind::OtherThanRow, "packed text says otherwise than its row"},
    KindText{CheckKind::Unreadable, "value cannot be read"},
    KindText{CheckKind::WrongSum, "sum of the document is wrong"},
    KindText{CheckKind::WrongTotal, "total column is wrong, so average rates will be"},
    KindText{CheckKind::MissingListRow, "document without list row"},
    KindText{CheckKind::StrayListRow, "list row without document"},
    KindText{CheckKind::DoubledListRow, "document with several list rows"},
    KindText{CheckKind::ListRowDiffers, "list row says otherwise than its document"},
    KindText{CheckKind::ListSum, "sum of the list is wrong"},
    KindText{CheckKind::MissingInterestLine, "interest slip without its interest line"},
    KindText{CheckKind::StrayInterestLine, "interest line without slip"},
    KindText{CheckKind::InterestLineDiffers, "interest line says otherwise than its slip"},
    KindText{CheckKind::ReturnAmount, "amount of the return is wrong"},
    KindText{CheckKind::ReturnRate, "rate of the return is wrong"},
    KindText{CheckKind::ReturnMark, "count or mark of the return is wrong"},
    KindText{CheckKind::RecountFails, "the return cannot be recounted"},
    KindText{CheckKind::OtherInterest, "line 11a is not the other interest of the slips"},
    KindText{CheckKind::PaymentCount, "number of payment records is not that of the store"},
    KindText{CheckKind::DoubledNumber, "number held by more than one document"},
    KindText{CheckKind::SkippedNumbers, "numbers that the memory has passed by and no slip holds"},
    KindText{CheckKind::CheckDigit, "NPWP with a wrong check digit"},
};

}  // namespace

std::string_view checkKindText(CheckKind kind) noexcept {
  for (const KindText& each : kindTexts)
    if (each.kind == kind) return each.text;
  return {};
}

bool hasRightCheckDigit(std::string_view npwp) noexcept {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (npwp.size() != 15 || !std::all_of(npwp.begin(), npwp.end(), isDigit)) return false;
  int sum = 0;
  for (std::size_t i = 0; i < 8; ++i) {
    const int weighted = (npwp[i] - '0') * (i % 2 == 1 ? 2 : 1);
    sum += weighted > 9 ? weighted - 9 : weighted;
  }
  return (sum + (npwp[8] - '0')) % 10 == 0;
}

std::vector<CheckFinding> checkReturn(std::int16_t month, std::int16_t year, std::int16_t correction) {
  const store::StoreObject store;
  interchange::StoreLock lock(moduleState().sDSN);
  const std::lock_guard held(lock);
  interchange::CheckReport report;
  const interchange::CheckContext context{.store = store,
                                          .filer = interchange::readFiler(store),
                                          .period = {.msPajak = month, .thPajak = year, .kdPembetulanKe = correction},
                                          .report = report};
  interchange::checkHeaders(context);
  interchange::checkSlips(context);
  interchange::checkSelfPaidForms(context);
  interchange::checkNumbers(context);
  interchange::checkMainForm(context);
  return std::move(report).take();
}

// --- headers -----------------------------------------------------------------------------------------------

namespace interchange {

namespace {

constexpr std::array headers = {store::F113204,     store::D113206,         store::D113210,
                                store::DSewaTnhBgn, store::DJasaKonstruksi, store::DAlihTnhBgn};

RecordsetPtr headerRows(const CheckContext& context, const store::FormCodes& form) {
  return context.store.execute(store::Statement("SELECT * FROM ") << store::name(store::tableName(form.table))
                                                                  << " WHERE KD_FORM = " << store::text(form.kdForm)
                                                                  << " AND " << store::periodCondition(context.period));
}

/// A fresh main form has 88 fields, one that was saved 107.
bool isMainForm(std::size_t fieldCount) { return fieldCount == 88 || fieldCount == 107; }

void checkHeaderRow(const CheckContext& context, const store::FormCodes& form, const RecordsetPtr& row) {
  const DocumentColumns columns(*row);
  const std::string packed = textOf(row->cell(columns.datForm));
  const std::string npwp = textOf(row->cell(columns.npwp));
  checkCodes(context, form.kdForm, form, npwp, textOf(row->cell(columns.jenisDokumen)),
             textOf(row->cell(columns.kdJenisPajak)));
  context.report.compare(CheckKind::WrongCode, form.kdForm, "NOBUKTI", textOf(row->cell(columns.noBukti)),
                         store::headerNumber);
  if (form.kind == store::FormKind::MainReturn) {
    if (!isMainForm(store::countFields(packed)))
      context.report.compare(CheckKind::FieldCount, form.kdForm, "DAT_FORM",
                             static_cast<double>(store::countFields(packed)), 107);
    return;
  }
  PackedRowReader reader(form.kdForm);
  if (!reader.read(context.report, form.kdForm, packed)) return;
  checkHead(context, form.kdForm, reader, npwp, "", "");
  reader.checkReadable(context.report, form.kdForm, {});
}

}  // namespace

void checkHeaders(const CheckContext& context) {
  for (const store::FormCodes& form : headers) {
    const RecordsetPtr rows = headerRows(context, form);
    const std::int32_t count = rows->get_RecordCount();
    if (count == 0)
      context.report.add({.kind = CheckKind::MissingHeader,
                          .document = std::string(form.kdForm),
                          .stored = "no row",
                          .recounted = "one row"});
    else if (count > 1)
      context.report.compare(CheckKind::DoubledDocument, form.kdForm, "rows", static_cast<double>(count), 1);
    else
      checkHeaderRow(context, form, rows);
  }
}

std::optional<std::string> headerText(const CheckContext& context, const store::FormCodes& form) {
  const RecordsetPtr rows = headerRows(context, form);
  if (rows->get_RecordCount() != 1) return std::nullopt;
  return textOf(rows->cell(rows->column("DAT_FORM")));
}

void checkNpwp(CheckReport& report, std::string_view document, std::string_view field, std::string_view npwp) {
  if (npwp.empty() || hasRightCheckDigit(npwp)) return;
  report.add({.kind = CheckKind::CheckDigit,
              .isWarning = true,
              .document = std::string(document),
              .field = std::string(field),
              .stored = std::string(npwp),
              .recounted = "another number"});
}

}  // namespace interchange

}  // namespace tarvola
