#include "tarvola/store/return_contents.h"

#include <map>
#include <optional>
#include <tuple>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/return_directory.h"
#include "tarvola/store/return_kinds.h"
#include "tarvola/store/statement.h"

namespace tarvola::store {
namespace {

using ByPeriod = std::map<std::tuple<std::int16_t, std::int16_t, std::int16_t>, StoredReturn>;

/// The directory while it is put together.
class Counting {
 public:
  /// Of one return, or of all.
  Counting(const StoreObject& store, std::optional<Period> only) : store_(store), only_(only) {}

  /// Counts the rows of a table that meet a condition, for each return.
  void count(FixedText table, const Statement& condition, std::int64_t ReturnContents::*member) {
    Statement select("SELECT TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE, COUNT(*) AS N FROM ");
    select << table << " WHERE " << condition;
    if (only_) select << " AND " << periodCondition(*only_);
    select << " GROUP BY TH_PAJAK, MS_PAJAK, KD_PEMBETULAN_KE";
    const RecordsetPtr rows = store_.execute(select);
    for (; !rows->get_EOF(); rows->MoveNext())
      returnOfRow(rows).contents.*member += static_cast<std::int64_t>(fieldNumber(rows, "N"));
  }

  [[nodiscard]] StoredReturn& returnOfRow(const RecordsetPtr& rows) {
    const Period period{fieldInteger(rows, "MS_PAJAK"), fieldInteger(rows, "TH_PAJAK"),
                        fieldInteger(rows, "KD_PEMBETULAN_KE")};
    StoredReturn& found = returns_[{period.thPajak, period.msPajak, period.kdPembetulanKe}];
    found.period = period;
    return found;
  }

  [[nodiscard]] std::vector<StoredReturn> take() {
    std::vector<StoredReturn> all;
    for (auto& [period, found] : returns_) all.push_back(found);
    return all;
  }

 private:
  const StoreObject& store_;
  std::optional<Period> only_;
  ByPeriod returns_;
};

Statement ofKind(FixedText condition) {
  return Statement("KD_JENIS_PAJAK = ") << text(taxKind) << " AND " << condition;
}

void countAll(Counting& counting) {
  const ReturnKind& kind = *findReturnKind(taxKind);
  counting.count("DS_FORM_INDUK", ofKind("KD_FORM = 'F113204'"), &ReturnContents::mainForms);
  counting.count("DS_FORM_INDUK", ofKind("KD_FORM <> 'F113204' AND NOBUKTI = '-'"), &ReturnContents::listHeaders);
  counting.count("DS_FORM_INDUK", ofKind("KD_FORM <> 'F113204' AND NOBUKTI <> '-'"), &ReturnContents::slips);
  counting.count("DAT_SSP_PPh22", ofKind("NOBUKTI = '-'"), &ReturnContents::listHeaders);
  counting.count("DAT_SSP_PPh22", ofKind("NOBUKTI <> '-'"), &ReturnContents::selfPaidForms);
  counting.count("DS_FORM_LAMPIRAN", anyFormCondition(kind.lists), &ReturnContents::listRows);
  counting.count("LAMPIRAN_SSP_PPh22", anyFormCondition(kind.selfPaidLists), &ReturnContents::selfPaidListRows);
  counting.count("D113210", Statement("1 = 1"), &ReturnContents::interestPayees);
}

double readableNumber(const RecordsetPtr& fields, std::string_view name) {
  const Variant value = fieldValue(fields, name);
  return IsNumeric(value) ? CDbl(value) : 0;
}

/// The period is that of the row: what the packed text says of it is another matter.
void readTotals(const StoreObject& store, Counting& counting) {
  const RecordsetPtr rows =
      store.execute(Statement("SELECT * FROM DS_FORM_INDUK WHERE ") << ofKind("KD_FORM = 'F113204'"));
  const RecordsetPtr fields = store.expand(F113204.kdForm, rows);
  for (; !rows->get_EOF(); rows->MoveNext(), fields->MoveNext()) {
    StoredReturn& found = counting.returnOfRow(rows);
    found.grossRupiah = readableNumber(fields, "JMLPHSL");
    found.taxRupiah = readableNumber(fields, "JmlB5");
  }
}

}  // namespace

ReturnContents contentsOf(const StoreObject& store, const Period& period) {
  Counting counting(store, period);
  countAll(counting);
  const std::vector<StoredReturn> found = counting.take();
  return found.empty() ? ReturnContents() : found.front().contents;
}

std::vector<StoredReturn> storedReturns(const StoreObject& store) {
  Counting counting(store, std::nullopt);
  countAll(counting);
  readTotals(store, counting);
  return counting.take();
}

}  // namespace tarvola::store
