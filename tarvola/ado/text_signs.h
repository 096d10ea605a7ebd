#pragma once

/// The signs of which criteria texts and hierarchical commands are made.
namespace tarvola::ado {

constexpr bool isBlank(char c) noexcept { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// Letters beyond ASCII come as several bytes, all of them above 127.
constexpr bool isNameStart(char c) noexcept {
  const auto lower = static_cast<unsigned char>(c | 0x20);
  return (lower >= 'a' && lower <= 'z') || c == '_' || static_cast<unsigned char>(c) > 127;
}
constexpr bool isNamePart(char c) noexcept { return isNameStart(c) || isDigit(c); }

}  // namespace tarvola::ado
