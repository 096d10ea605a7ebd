#include "tarvola/store/slip_numbering.h"

#include <algorithm>
#include <array>
#include <optional>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/statement.h"

namespace tarvola::store {
namespace {

constexpr std::size_t digitCount = 6;
constexpr std::string_view unusedNumber = "000000";
constexpr std::string_view firstNumber = "000001";

struct DefaultSuffix {
  std::int16_t article;
  std::string_view suffix;
};

constexpr std::array<DefaultSuffix, 5> defaultSuffixes = {{
    {.article = 4, .suffix = "/PPH4"},
    {.article = 15, .suffix = "/PPH15"},
    {.article = 21, .suffix = "/PPH21"},
    {.article = 22, .suffix = "/PPH22"},
    {.article = 23, .suffix = "/PPH23"},
}};

RecordsetPtr openMemory(const StoreObject& store, std::int16_t article) {
  return store.open(Statement("SELECT * FROM SETTING_NOBUKTI_PPH WHERE PASAL = ") << std::int32_t{article});
}

/// Zeros in front up to six places. A longer text stays: behind 999999 comes 1000000, with no wrap.
std::string padded(std::string_view number) {
  const std::size_t length = Len(number);
  std::string result(length < digitCount ? digitCount - length : 0, '0');
  return result += number;
}

/// The value that NO_URUT takes: padded text up to five digits, and at six the number itself, which the text column
/// turns into the same six digits. Nothing for a text that is longer, such as that of "1E0014".
std::optional<Variant> rememberedValue(double number) {
  const std::string text = CStr(number);
  if (Len(text) > digitCount) return std::nullopt;
  if (Len(text) == digitCount) return Variant(number);
  return Variant(padded(text));
}

void remember(const RecordsetPtr& memory, std::string_view digits) {
  if (const std::optional<Variant> value = rememberedValue(CDbl(digits))) setField(memory, "NO_URUT", *value);
}

/// The row's suffix is Null: a bare number of six digits, and no look at what is remembered.
void rememberWithoutSuffix(const RecordsetPtr& memory, std::string_view noBukti) {
  if (Len(noBukti) == digitCount && IsNumeric(noBukti)) remember(memory, noBukti);
}

void rememberWithSuffix(const RecordsetPtr& memory, const std::string& formatString, std::string_view noBukti) {
  const std::string_view digits = Left(noBukti, digitCount);
  if (Len(noBukti) <= digitCount || !IsNumeric(digits)) return;
  if (Mid(noBukti, digitCount + 1) != Trim(formatString)) return;
  if (fieldNumber(memory, "NO_URUT") < CDbl(digits)) remember(memory, digits);
}

void addMemoryRow(const RecordsetPtr& memory, std::int16_t article) {
  memory->AddNew();
  setField(memory, "PASAL", article);
  if (const std::string_view suffix = defaultSuffix(article); !suffix.empty())
    setField(memory, "FORMAT_STRING", suffix);
  setField(memory, "NO_URUT", unusedNumber);
}

}  // namespace

std::string_view defaultSuffix(std::int16_t article) noexcept {
  const auto found = std::find_if(defaultSuffixes.begin(), defaultSuffixes.end(),
                                  [article](const DefaultSuffix& entry) { return entry.article == article; });
  return found == defaultSuffixes.end() ? std::string_view() : found->suffix;
}

void proposeSlipNumber(const StoreObject& store, std::int16_t article, SlipNumber& proposal) {
  const RecordsetPtr memory = openMemory(store, article);
  if (isEmptyResult(memory)) {
    proposal = {.digits = std::string(firstNumber), .suffix = std::string(defaultSuffix(article))};
    return;
  }
  const std::string lastNumber = fieldText(memory, "NO_URUT");
  proposal.digits = padded(CStr(CDbl(Trim(lastNumber)) + 1));
  const std::string formatString = fieldText(memory, "FORMAT_STRING");
  proposal.suffix = Trim(formatString);
}

void rememberSlipNumber(const StoreObject& store, std::int16_t article, std::string_view noBukti) {
  const RecordsetPtr memory = openMemory(store, article);
  if (isEmptyResult(memory)) {
    addMemoryRow(memory, article);
  } else if (isNullField(memory, "FORMAT_STRING")) {
    rememberWithoutSuffix(memory, noBukti);
  } else {
    rememberWithSuffix(memory, fieldText(memory, "FORMAT_STRING"), noBukti);
  }
  saveAndRequery(memory);
  memory->Close();
}

}  // namespace tarvola::store
