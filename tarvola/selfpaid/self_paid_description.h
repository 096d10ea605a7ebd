#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "tarvola/selfpaid/form_list.h"
#include "tarvola/store/form_codes.h"

namespace tarvola::selfpaid {

/// The rate of a line of the return whose gross is 0: that of an item of the settings, or 0 where no item is named.
struct DefaultRate {
  std::string_view item = {};
  std::string_view kdForm = {};

  [[nodiscard]] constexpr bool isInSettings() const noexcept { return !item.empty(); }
};

/// The line of the main return that a pair of amounts moves: gross and tax in rupiah, rate in percent.
struct ReturnLine {
  std::string_view gross;
  std::string_view rate;
  std::string_view tax;
  DefaultRate defaultRate = {};
};

/// A gross amount of a form and the tax that belongs to it, both in rupiah, and where they go in the return.
struct AmountPair {
  std::string_view gross;
  std::string_view tax;
  ReturnLine line;
};

/// No form has more pairs.
inline constexpr std::size_t maximumPairs = 3;

/// Everything in which a self-paid form differs from the others, as far as a table can say it.
struct SelfPaidDescription {
  store::FormCodes form;
  /// The list that the form's payments stand in.
  store::FormCodes list;
  std::unique_ptr<FormList> (*openList)() = nullptr;
  /// Whether the location of the object (Lokasi) has a position in the packed text, in front of the date. Only then is
  /// it given a default and handed to the list.
  bool hasLocation = false;
  std::span<const AmountPair> pairs;
  /// The fields that hold the sums of gross and tax over all pairs, "" where the form has none. A form that has them is
  /// normalised once more before its list is moved.
  std::string_view grossSum = {};
  std::string_view taxSum = {};

  [[nodiscard]] constexpr bool hasSums() const noexcept { return !taxSum.empty(); }
};

}  // namespace tarvola::selfpaid
