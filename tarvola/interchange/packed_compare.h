#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Telling whether packed texts say the same.
namespace tarvola::interchange {

/// Filer and period, in front of what a form itself says.
inline constexpr std::size_t headFieldCount = 6;

/// The fields [begin, end) of a packed text but one, each behind a ";", numbers in their default text form. Fields that
/// the text is too short for are empty; those behind `end` do not count.
std::string fieldsOf(std::string_view packed, std::size_t begin, std::size_t end, std::size_t without);

/// Whether a stored slip says what another packed text of its form says. Filer and period do not count, nor what the
/// stored slip carries behind the other's last field; "20,00" is 20, and an empty number 0, as the slip's class saves
/// it.
bool saysTheSame(std::string_view stored, std::string_view other);

}  // namespace tarvola::interchange
