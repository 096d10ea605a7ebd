// Self-paid forms against themselves, their list rows and the sums of their lists.

#include <array>
#include <set>
#include <span>

#include "tarvola/interchange/return_check_lists.h"
#include "tarvola/interchange/return_check_packed.h"
#include "tarvola/interchange/return_check_parts.h"
#include "tarvola/selfpaid/self_paid_descriptions.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using selfpaid::SelfPaidDescription;

struct CheckedKind {
  const SelfPaidDescription* description;
  /// What the rows of its list are packed as.
  std::string_view rowsLayout;
};

constexpr std::array kinds = {CheckedKind{&selfpaid::landRent, "DSewaTnhBgn-Coll"},
                              CheckedKind{&selfpaid::constructionServices, "DJasaKonstruksi-Coll"},
                              CheckedKind{&selfpaid::landTransfer, "DAlihTnhBgn-Coll"}};

std::string keyOf(std::string_view ntpn, double seq) { return std::string(ntpn) + ", SEQ " + CStr(seq); }

class SelfPaidCheck {
 public:
  SelfPaidCheck(const CheckContext& context, const CheckedKind& kind)
      : context_(context),
        kind_(*kind.description),
        rowsLayout_(kind.rowsLayout),
        list_(context.report, kind_.list.kdForm) {}

  void run() {
    readList();
    checkForms();
    list_.reportStray(CheckKind::StrayListRow);
    checkSums();
  }

 private:
  void readList();
  void checkForms();
  void checkForm(const std::string& ntpn, const PackedRowReader& packed);
  void checkSums() const;
  [[nodiscard]] double sumOf(const PackedRowReader& packed, std::string_view selfpaid::AmountPair::*part) const;

  const CheckContext& context_;
  const SelfPaidDescription& kind_;
  std::string_view rowsLayout_;
  ListRows list_;
  ListSums gross_;
  ListSums tax_;
  std::set<std::string> seen_;
};

double SelfPaidCheck::sumOf(const PackedRowReader& packed, std::string_view selfpaid::AmountPair::*part) const {
  double sum = 0;
  for (const selfpaid::AmountPair& pair : kind_.pairs) sum += packed.number(pair.*part);
  return sum;
}

void SelfPaidCheck::readList() {
  const RecordsetPtr rows =
      context_.store.execute(store::Statement("SELECT NOBUKTI, SEQ, DAT_FORM FROM LAMPIRAN_SSP_PPh22 WHERE KD_FORM = ")
                             << store::text(kind_.list.kdForm) << " AND COLLNO = 0 AND "
                             << store::periodCondition(context_.period) << " ORDER BY SEQ");
  PackedRowReader packed(rowsLayout_);
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const std::string ntpn = textOf(rows->cell(0));
    const double seq = rows->cell(1).isNull() ? 0 : rows->cell(1).toDouble();
    const std::string key = keyOf(ntpn, seq);
    const std::string document = std::string(kind_.list.kdForm) + " " + key;
    const std::string text = textOf(rows->cell(2));
    if (!packed.read(context_.report, document, text)) continue;
    packed.checkReadable(context_.report, document, {});
    context_.report.compare(CheckKind::OtherThanRow, document, "NoBukti", packed.text("NoBukti"), ntpn);
    context_.report.compare(CheckKind::OtherThanRow, document, "SEQ", packed.number("SEQ"), seq);
    gross_.add(packed.number("PHSL"));
    tax_.add(packed.number("PPH"));
    list_.add(key, {.grossRupiah = packed.number("PHSL"),
                    .taxRupiah = packed.number("PPH"),
                    .texts = {{"Tgl_Potong", std::string(Trim(packed.text("Tgl_Potong")))}}});
  }
}

void SelfPaidCheck::checkForms() {
  const RecordsetPtr rows = context_.store.execute(store::Statement("SELECT * FROM DAT_SSP_PPh22 WHERE KD_FORM = ")
                                                   << store::text(kind_.form.kdForm) << " AND "
                                                   << store::periodCondition(context_.period) << " ORDER BY NOBUKTI");
  const DocumentColumns columns(*rows);
  PackedRowReader packed(kind_.form.kdForm);
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const std::string ntpn = textOf(rows->cell(columns.noBukti));
    const std::string npwp = textOf(rows->cell(columns.npwp));
    const std::string text = textOf(rows->cell(columns.datForm));
    const std::string document = std::string(kind_.form.kdForm) + " " + ntpn;
    checkCodes(context_, document, kind_.form, npwp, textOf(rows->cell(columns.jenisDokumen)),
               textOf(rows->cell(columns.kdJenisPajak)));
    if (!packed.read(context_.report, document, text)) continue;
    checkHead(context_, document, packed, npwp, "NTTP", ntpn);
    checkForm(ntpn, packed);
  }
}

void SelfPaidCheck::checkForm(const std::string& ntpn, const PackedRowReader& packed) {
  const std::string key = keyOf(ntpn, packed.number("SEQ"));
  const std::string document = std::string(kind_.form.kdForm) + " " + key;
  std::vector<std::string_view> needed = {"SEQ"};
  for (const selfpaid::AmountPair& pair : kind_.pairs) needed.insert(needed.end(), {pair.gross, pair.tax});
  packed.checkReadable(context_.report, document, needed);
  const double gross = sumOf(packed, &selfpaid::AmountPair::gross);
  const double tax = sumOf(packed, &selfpaid::AmountPair::tax);
  if (kind_.hasSums()) {
    context_.report.compare(CheckKind::WrongSum, document, kind_.grossSum, packed.number(kind_.grossSum), gross);
    context_.report.compare(CheckKind::WrongSum, document, kind_.taxSum, packed.number(kind_.taxSum), tax);
  }
  if (!seen_.insert(key).second)
    context_.report.add({.kind = CheckKind::DoubledNumber,
                         .document = document,
                         .field = "NTTP",
                         .stored = ntpn,
                         .recounted = "another number or SEQ"});
  list_.take(
      key,
      {.grossRupiah = gross, .taxRupiah = tax, .texts = {{"Tgl_Potong", std::string(Trim(packed.text("Tgl_Potong")))}}},
      "PHSL", "PPH", false);
}

void SelfPaidCheck::checkSums() const {
  const std::optional<std::string> header = headerText(context_, kind_.list);
  PackedRowReader packed(kind_.list.kdForm);
  CheckReport ignored;
  if (!header || !packed.read(ignored, kind_.list.kdForm, *header)) return;
  const auto compare = [&](std::string_view field, const ListSums& sums) {
    if (!sums.agreesWith(packed.number(field)))
      context_.report.compare(CheckKind::ListSum, kind_.list.kdForm, field, packed.number(field), sums.positive);
  };
  compare("JMLPHSL", gross_);
  compare("JmlPPh", tax_);
}

}  // namespace

void checkSelfPaidForms(const CheckContext& context) {
  for (const CheckedKind& kind : kinds) SelfPaidCheck(context, kind).run();
}

}  // namespace tarvola::interchange
