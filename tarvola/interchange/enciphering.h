#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "tarvola/interchange/base64.h"
#include "tarvola/interchange/enciphered_der.h"

namespace tarvola::interchange {

/// Fills bytes for salt and initial vector, in this order, one call for each.
using RandomSource = std::function<void(std::span<std::uint8_t> bytes)>;

/// The random numbers of the system.
void fillFromSystem(std::span<std::uint8_t> bytes);

// The enciphered form of a text, as the EncryptedData of CAPICOM writes it and the tax office reads it: RC2 with a key
// of 128 bits in CBC mode over the text as UTF-16, in an envelope of DER, in Base64. The key is the first 16 bytes of
// the SHA-1 of password, as UTF-16, and salt. There is no checksum in it.

/// Enciphers a text under new salt and initial vector and hands out the lines of the Base64.
void encipher(std::string_view content, std::string_view password, const RandomSource& random, const LineSink& sink);
/// The same for a text in the ANSI code page. It is worked through piece by piece, so that nothing as long as itself is
/// made of it.
void encipherAnsi(std::string_view bytes, std::string_view password, const RandomSource& random, const LineSink& sink);

/// Reads Base64 and envelope of an enciphered text. Fails as readEnvelope, and for a foreign character.
EncipheredText readEnciphered(std::string_view base64);

/// The UTF-16 of the text, its padding still behind it. A wrong password gives rubbish. Error 321 if the ciphertext is
/// no whole number of blocks.
std::string decipher(EncipheredText text, std::string_view password);

/// Takes the padding off deciphered UTF-16. False, and everything stays, if that is none or leaves half a code unit:
/// so a wrong password shows, but for once in about 256 times.
bool removePadding(std::string& utf16) noexcept;

}  // namespace tarvola::interchange
