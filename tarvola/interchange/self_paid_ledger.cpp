#include "tarvola/interchange/self_paid_ledger.h"

#include <algorithm>
#include <unordered_set>

#include "tarvola/interchange/packed_compare.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/packed_text.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

using store::Statement;
using store::text;

/// The place of SEQ in the packed text of a self-paid form.
std::size_t seqPosition(const ImportForm& form) {
  const auto isSeq = [](const Element& element) { return element.packing == Packing::Seq; };
  const auto found = std::find_if(form.packed.begin(), form.packed.end(), isSeq);
  return headFieldCount + static_cast<std::size_t>(found - form.packed.begin());
}

constexpr std::size_t listSeqPosition = 2;

/// What a form says, without filer, period and SEQ. Field by field in the form in which an import writes it.
std::string formKey(const ImportForm& form, std::string_view packed) {
  return std::string(form.codes.kdForm) +
         fieldsOf(packed, headFieldCount, headFieldCount + form.packed.size(), seqPosition(form));
}

std::string listKey(const ImportForm& form, std::string_view packed) {
  constexpr std::size_t mostFields = 9;
  return std::string(form.list.kdForm) + fieldsOf(packed, 0, mostFields, listSeqPosition);
}

/// A list row and its form are tied by the number of the payment and SEQ.
std::string tie(std::string_view noBukti, double seq) { return CStr(seq) + ";" + std::string(noBukti); }

double seqOf(const ImportForm& form, std::string_view packed) {
  store::PackedText fields;
  fields.cut(packed);
  const std::size_t position = seqPosition(form);
  return position < fields.count() ? tryNumber(fields[position]).value_or(0) : 0;
}

}  // namespace

SelfPaidLedger::SelfPaidLedger(const store::StoreObject& store, std::string_view npwp, const store::Period& period) {
  for (const ImportForm& form : importForms)
    if (form.codes.kind == store::FormKind::SelfPaidForm) readForms(store, npwp, period, form);
}

void SelfPaidLedger::readForms(const store::StoreObject& store, std::string_view npwp, const store::Period& period,
                               const ImportForm& form) {
  const RecordsetPtr listRows =
      store.execute(Statement("SELECT SEQ, NOBUKTI, DAT_FORM FROM LAMPIRAN_SSP_PPh22 WHERE KD_FORM = ")
                    << text(form.list.kdForm) << " AND " << store::periodCondition(period) << " AND COLLNO = 0");
  const RecordsetPtr formRows = store.execute(Statement("SELECT NOBUKTI, DAT_FORM FROM DAT_SSP_PPh22 WHERE NPWP = ")
                                              << text(npwp) << " AND KD_FORM = " << text(form.codes.kdForm) << " AND "
                                              << store::periodCondition(period));
  std::unordered_set<std::string> ties;
  for (; !formRows->get_EOF(); formRows->MoveNext()) {
    const std::string packed = store::fieldTextOr(formRows, "DAT_FORM", "");
    ++forms_[formKey(form, packed)];
    ties.insert(tie(store::fieldTextOr(formRows, "NOBUKTI", ""), seqOf(form, packed)));
  }
  for (; !listRows->get_EOF(); listRows->MoveNext()) {
    const double seq = store::fieldNumberOr(listRows, "SEQ", 0);
    if (ties.contains(tie(store::fieldTextOr(listRows, "NOBUKTI", ""), seq))) continue;
    orphans_[listKey(form, store::fieldTextOr(listRows, "DAT_FORM", ""))].push_back(seq);
  }
}

bool SelfPaidLedger::takeForm(const LineWriter& line) {
  if (forms_.empty()) return false;
  const auto found = forms_.find(formKey(line.form(), line.packed()));
  if (found == forms_.end() || found->second == 0) return false;
  --found->second;
  return true;
}

std::optional<double> SelfPaidLedger::takeOrphan(const LineWriter& line) {
  if (orphans_.empty()) return std::nullopt;
  const auto found = orphans_.find(listKey(line.form(), line.packedListRow(0)));
  if (found == orphans_.end() || found->second.empty()) return std::nullopt;
  const double seq = found->second.front();
  found->second.pop_front();
  return seq;
}

}  // namespace tarvola::interchange
