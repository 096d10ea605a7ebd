#include "tarvola/interchange/value_check.h"

#include <cmath>
#include <optional>

#include "tarvola/interchange/import_texts.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

/// Amounts are kept as numbers of 15 digits.
constexpr double tooLarge = 1e15;

/// In "1234.56" the point may be the decimal sign of another country or a slip of the hand. The amount is refused,
/// since neither guess is safe with money.
bool hasMisplacedThousands(std::string_view value) {
  const RegionalSettings& settings = regionalSettings();
  const std::string_view whole = value.substr(0, value.find(settings.decimal));
  const std::size_t first = whole.find(settings.thousands);
  if (first == std::string_view::npos) return value.find(settings.thousands) != std::string_view::npos;
  for (std::size_t sign = first; sign != std::string_view::npos;) {
    const std::size_t next = whole.find(settings.thousands, sign + 1);
    const std::size_t end = next == std::string_view::npos ? whole.size() : next;
    if (end - sign != 4) return true;
    sign = next;
  }
  return false;
}

}  // namespace

std::string faultOfNumber(std::string_view value) {
  const std::optional<double> number = tryNumber(value);
  if (!number) return noNumberText(value);
  if (hasMisplacedThousands(value)) return misplacedThousandsText(value, regionalSettings().decimal);
  if (std::fabs(*number) >= tooLarge) return tooLargeText(value);
  return {};
}

std::string faultOfText(std::string_view value) {
  if (value.find('\'') != std::string_view::npos) return apostropheText();
  if (value.find('\0') != std::string_view::npos) return nulCharacterText();
  return {};
}

}  // namespace tarvola::interchange
