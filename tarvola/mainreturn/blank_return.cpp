#include "tarvola/mainreturn/blank_return.h"

#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/form_codes.h"
#include "tarvola/store/form_layouts.h"

namespace tarvola::mainreturn {

std::string blankReturn() {
  const store::FormLayout& layout = *store::findLayout(store::F113204.kdForm);
  const std::size_t firstAmount = layout.position("B1a13").value();
  const std::size_t returnDate = layout.position("TGL_TRV").value();
  std::string packed;
  for (std::size_t position = firstAmount; position < returnDate; ++position) {
    const bool isText = layout.positions[position].fields.front().type == store::FieldType::Text;
    packed += isText ? ";" : ";0";
  }
  return packed + ";" + formatDate(today());
}

}  // namespace tarvola::mainreturn
