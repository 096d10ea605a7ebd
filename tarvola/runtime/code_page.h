#pragma once

#include <string>
#include <string_view>

namespace tarvola {

// The ANSI code page of the system's files is Windows-1252. The five bytes that it leaves unassigned (81, 8D, 8F, 90,
// 9D hexadecimal) stand for the characters of the same number, so that any byte survives the way there and back.

/// UTF-8 of a text in the ANSI code page.
std::string fromAnsi(std::string_view bytes);
void appendFromAnsi(std::string& out, std::string_view bytes);
/// The ANSI bytes of a UTF-8 text. A character outside the code page becomes "?"; so does a broken sequence.
std::string toAnsi(std::string_view text);
void appendToAnsi(std::string& out, std::string_view text);
/// Whether the bytes are well-formed UTF-8.
bool isUtf8(std::string_view bytes) noexcept;

}  // namespace tarvola
