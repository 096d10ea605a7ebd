#include "tarvola/mainreturn/return_properties.h"

#include "tarvola/store/failure_rule.h"
#include "tarvola/store/field_access.h"

namespace tarvola::mainreturn {

void ReturnProperties::put(std::string_view field, const Variant& value) noexcept {
  guarded([&] { store::setField(form_, field, value); });
}

Variant ReturnProperties::valueOf(std::string_view field) const noexcept {
  Variant result;
  guarded([&] { result = store::fieldValue(form_, field); });
  return result;
}

double ReturnProperties::numberOf(std::string_view field) const noexcept {
  double result = 0;
  guarded([&] { result = store::fieldNumber(form_, field); });
  return result;
}

double ReturnProperties::numberOrZero(std::string_view field) const noexcept {
  double result = 0;
  guarded([&] { result = store::fieldNumberOr(form_, field, 0); });
  return result;
}

std::string ReturnProperties::textOf(std::string_view field) const noexcept {
  std::string result;
  guarded([&] { result = store::fieldText(form_, field); });
  return result;
}

std::int16_t ReturnProperties::markOf(std::string_view field) noexcept {
  std::int16_t result = 0;
  guarded([&] {
    if (store::isNullField(form_, field)) store::setField(form_, field, std::int16_t{0});
    result = store::fieldInteger(form_, field);
  });
  return result;
}

}  // namespace tarvola::mainreturn
