#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "tarvola/store/packed_text.h"

namespace tarvola::interchange {

/// What sets the line of a form in the reporting file apart from the others.
struct ReportForm {
  std::string_view kdForm;
  /// The fields whose sum stands behind the packed text, by their names; none: no sum.
  std::span<const std::string_view> summedFields;
  /// The forms of rent and transfer, and the list, keep the line breaks of their texts: so it stands.
  bool keepsLineBreaks = false;
  /// The list D113210 is written last of all, with the date of the return behind it.
  bool isClosing = false;
};

/// All forms of the reporting file but the main return.
std::span<const ReportForm> reportForms() noexcept;
/// The form of an exactly written code, nullptr for another.
const ReportForm* findReportForm(std::string_view kdForm) noexcept;

/// The elements of a packed text, counted from 0, that the control sum of a form adds up.
std::span<const std::size_t> summedElements(const ReportForm& form);

/// The sum of elements, each read as a number, with the packed text beginning at a field of what was cut. An element
/// that is missing is error 9, one that is no number 13.
double controlSum(std::span<const std::size_t> elements, const store::PackedText& fields, std::size_t firstField = 0);

}  // namespace tarvola::interchange
