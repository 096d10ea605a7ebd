#include "tarvola/store/layout_generation.h"

#include <string>

#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/packed_text.h"
#include "tarvola/store/return_kinds.h"

namespace tarvola::store {

bool isNewPeriod(std::int16_t month, std::int16_t year) noexcept {
  constexpr std::int16_t firstYear = 2008;
  constexpr std::int16_t firstMonth = 11;
  return year > firstYear || (year == firstYear && month >= firstMonth);
}

Statement selectMainForm(std::string_view kdForm, std::string_view month, std::string_view year,
                         std::string_view correction) {
  Statement selection("SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = ");
  selection << text(kdForm) << " AND JENIS_DOKUMEN = '01' AND MS_PAJAK = " << number(Val(month))
            << " AND TH_PAJAK = " << number(Val(year));
  if (const ReturnKind* kind = findReturnOfMainForm(Trim(kdForm))) {
    selection << " AND KD_PEMBETULAN_KE = " << number(Val(correction))
              << " AND KD_JENIS_PAJAK = " << text(kind->kdJenisPajak);
  }
  return selection;
}

bool hasNewLayout(const RecordsetPtr& mainForm) {
  const std::string packed = fieldText(mainForm, "DAT_FORM");
  const ReturnKind* kind = findReturnOfMainForm(fieldText(mainForm, "KD_FORM"));
  if (kind == nullptr || kind->newLayoutFieldCount == 0) return true;
  return countFields(packed) == kind->newLayoutFieldCount;
}

}  // namespace tarvola::store
