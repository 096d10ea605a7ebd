// Slip numbers: held twice, or passed by.

#include <algorithm>
#include <map>

#include "tarvola/interchange/return_check_packed.h"
#include "tarvola/interchange/return_check_parts.h"
#include "tarvola/slips/slip_descriptions.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/statement.h"

namespace tarvola::interchange {

namespace {

constexpr std::size_t digitCount = 6;

bool isSlipForm(std::string_view kdForm) {
  return std::any_of(slips::nineSlipForms.begin(), slips::nineSlipForms.end(),
                     [&](const store::FormCodes& form) { return equalsIgnoreCase(form.kdForm, kdForm); });
}

struct Holder {
  std::string form;
  std::int16_t month = 0;
  std::int16_t correction = 0;
};

/// The slips of a year, all corrections, by their numbers, without regard to case, as the store compares them.
using Holders = std::map<std::string, std::vector<Holder>>;

Holders holdersOf(const CheckContext& context) {
  Holders holders;
  const RecordsetPtr rows = context.store.execute(
      store::Statement("SELECT NOBUKTI, KD_FORM, MS_PAJAK, KD_PEMBETULAN_KE FROM DS_FORM_INDUK WHERE TH_PAJAK = ")
      << std::int32_t{context.period.thPajak} << " AND KD_JENIS_PAJAK = " << store::text(store::taxKind));
  for (; !rows->get_EOF(); rows->MoveNext()) {
    const std::string form = textOf(rows->cell(1));
    if (isSlipForm(form))
      holders[foldCase(textOf(rows->cell(0)))].push_back(
          {form, CInt(rows->cell(2).toDouble()), CInt(rows->cell(3).toDouble())});
  }
  return holders;
}

std::string listed(const std::vector<Holder>& holders) {
  std::string text;
  for (const Holder& holder : holders)
    text += (text.empty() ? "" : ", ") + holder.form + " of month " + std::to_string(holder.month);
  return text;
}

/// A number is unique within a year and a correction, whatever the form and the month.
void checkDoubles(const CheckContext& context, const Holders& holders) {
  for (const auto& [number, ofYear] : holders) {
    if (ofYear.size() < 2) continue;
    std::vector<Holder> all = ofYear;
    std::erase_if(all, [&](const Holder& holder) { return holder.correction != context.period.kdPembetulanKe; });
    const bool isOfPeriod = std::any_of(all.begin(), all.end(),
                                        [&](const Holder& holder) { return holder.month == context.period.msPajak; });
    if (all.size() < 2 || !isOfPeriod) continue;
    context.report.add({.kind = CheckKind::DoubledNumber,
                        .document = all.front().form + " " + number,
                        .field = "NOBUKTI",
                        .stored = listed(all),
                        .recounted = "one slip"});
  }
}

/// The number memory: the last number used and the suffix of all numbers.
struct Memory {
  std::int32_t last = 0;
  std::string suffix;
};

std::optional<Memory> readMemory(const CheckContext& context) {
  const RecordsetPtr row = context.store.execute("SELECT * FROM SETTING_NOBUKTI_PPH WHERE PASAL = 4");
  if (row->get_RecordCount() != 1) return std::nullopt;
  const std::optional<double> last = tryNumber(Trim(store::fieldTextOr(row, "NO_URUT", "")));
  if (!last || *last < 0 || *last > 999999) return std::nullopt;
  return Memory{static_cast<std::int32_t>(*last), std::string(Trim(store::fieldTextOr(row, "FORMAT_STRING", "")))};
}

std::vector<std::int32_t> numbersWith(const Holders& holders, const std::string& suffix) {
  const std::string folded = foldCase(suffix);
  std::vector<std::int32_t> numbers;
  for (const auto& [number, all] : holders) {
    if (number.size() != digitCount + folded.size() || !number.ends_with(folded)) continue;
    const std::optional<double> digits = tryNumber(std::string_view(number).substr(0, digitCount));
    if (digits) numbers.push_back(static_cast<std::int32_t>(*digits));
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

void reportGap(const CheckContext& context, const Memory& memory, std::int32_t first, std::int32_t last) {
  const auto number = [&](std::int32_t value) { return Format(static_cast<double>(value), "000000") + memory.suffix; };
  context.report.add({.kind = CheckKind::SkippedNumbers,
                      .isWarning = true,
                      .document = "SETTING_NOBUKTI_PPH",
                      .field = "NO_URUT",
                      .stored = Format(static_cast<double>(memory.last), "000000"),
                      .recounted = first == last ? number(first) : number(first) + " to " + number(last)});
}

/// Numbers between the lowest of the year and the memory that no slip holds: removed slips, numbers typed over, and
/// rows that were lost. The memory is one for all corrections, so a number that any of them holds is not missing.
void checkGaps(const CheckContext& context, const Holders& holders) {
  const std::optional<Memory> memory = readMemory(context);
  if (!memory) return;
  const std::vector<std::int32_t> numbers = numbersWith(holders, memory->suffix);
  if (numbers.empty()) return;
  std::int32_t expected = numbers.front();
  for (const std::int32_t number : numbers) {
    if (number > memory->last) break;
    if (number > expected) reportGap(context, *memory, expected, number - 1);
    expected = number + 1;
  }
  if (expected <= memory->last) reportGap(context, *memory, expected, memory->last);
}

}  // namespace

void checkNumbers(const CheckContext& context) {
  const Holders holders = holdersOf(context);
  checkDoubles(context, holders);
  checkGaps(context, holders);
}

}  // namespace tarvola::interchange
