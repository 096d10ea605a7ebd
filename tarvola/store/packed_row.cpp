#include "tarvola/store/packed_row.h"

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/store_texts.h"

namespace tarvola::store {

void PackedRow::separate() {
  if (started_) text_ += ';';
  started_ = true;
}

PackedRow& PackedRow::whole(std::int32_t value) {
  separate();
  text_ += CStr(value);
  return *this;
}

PackedRow& PackedRow::amount(double value) {
  separate();
  appendCStr(text_, value);
  return *this;
}

PackedRow& PackedRow::text(std::string_view fieldName, std::string_view value) {
  if (value.find(';') != std::string_view::npos) {
    fail(ErrorNumber::InvalidProcedureCall, separatorInFieldText(fieldName));
  }
  separate();
  text_ += value;
  return *this;
}

PackedRow& PackedRow::fields(const PackedRow& behind) {
  separate();
  text_ += behind.text_;
  return *this;
}

}  // namespace tarvola::store
