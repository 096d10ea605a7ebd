#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvola::interchange {

// Texts as UTF-16, low byte first, without a mark in front and without a closing NUL: what is hashed and enciphered.

/// A text as UTF-16. A broken sequence becomes U+FFFD.
std::string toUtf16(std::string_view text);

/// Bytes of the ANSI code page as UTF-16: two bytes for each.
std::string utf16FromAnsi(std::string_view bytes);

/// A text that should be of the ANSI code page, as its bytes.
struct AnsiBytes {
  std::string bytes;
  /// Code units that the code page does not have; each became "?".
  std::size_t foreignCount = 0;
};

/// The ANSI bytes of UTF-16, one for each code unit. An odd byte at the end is left out.
AnsiBytes ansiFromUtf16(std::string_view utf16);

}  // namespace tarvola::interchange
