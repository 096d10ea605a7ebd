#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/store/store_object.h"

namespace tarvola::store {

// The number memory: one row of SETTING_NOBUKTI_PPH for each article of the tax law, with the last number used
// (NO_URUT, "000123") and the suffix of its numbers (FORMAT_STRING, "/PPH4").

/// The two parts of a slip number.
struct SlipNumber {
  std::string digits;
  std::string suffix;
};

/// The suffix of an article that has no row yet; "" for an article that is not one of the five.
std::string_view defaultSuffix(std::int16_t article) noexcept;

/// Puts the number behind the last one used into `proposal`, six digits or more. After a failure it holds what was
/// found until then: nothing, or the digits.
void proposeSlipNumber(const StoreObject& store, std::int16_t article, SlipNumber& proposal);

/// Moves the article's memory forward to the number that a slip was saved with.
///
/// An article without a row gets one that says "000000", whatever the number is: the first number saved is not
/// remembered. With a suffix on file only a higher number with exactly that suffix counts. With a Null suffix on file a
/// bare number of six digits is taken as it is, also a lower one.
void rememberSlipNumber(const StoreObject& store, std::int16_t article, std::string_view noBukti);

}  // namespace tarvola::store
