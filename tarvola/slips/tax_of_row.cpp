#include "tarvola/slips/slip_description.h"

#include "tarvola/runtime/variant_math.h"

namespace tarvola::slips {

Variant grossTimesShare(const Variant& gross, const Variant& tariff) { return multiply(gross, divide(tariff, 100.0)); }

Variant productByHundred(const Variant& gross, const Variant& tariff) { return divide(multiply(gross, tariff), 100.0); }

Variant productTimesHundredth(const Variant& gross, const Variant& tariff) {
  return multiply(multiply(gross, tariff), 0.01);
}

}  // namespace tarvola::slips
