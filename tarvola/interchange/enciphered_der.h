#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvola::interchange {

/// Sets the cipher's first block.
using InitialVector = std::array<std::uint8_t, 8>;
/// Makes the key of a password another one for each text.
using Salt = std::array<std::uint8_t, 16>;

/// An enciphered text as its envelope carries it.
struct EncipheredText {
  InitialVector iv{};
  Salt salt{};
  std::string ciphertext;
};

// The envelope is DER, in shortest form and with nothing beside:
//
//   SEQUENCE { OBJECT IDENTIFIER 1.3.6.1.4.1.311.88.3
//     [0] { SEQUENCE { OBJECT IDENTIFIER 1.3.6.1.4.1.311.88.3.1
//       [0] { SEQUENCE { INTEGER version, INTEGER algorithm, INTEGER keyLength,
//                        OCTET STRING iv, OCTET STRING salt, OCTET STRING ciphertext } } } } }

/// All bytes of the envelope that stand in front of the ciphertext, which ends it.
std::string envelopeAhead(const InitialVector& iv, const Salt& salt, std::size_t ciphertextBytes);

/// Whether bytes begin as an envelope does, as far as there are any.
bool startsAsEnvelope(std::string_view bytes);

/// Takes an envelope apart. Error 321, each with a description of its own, for bytes that are no envelope, an envelope
/// that is cut off, one that is damaged, and one of another cipher than RC2 with 128 bits.
EncipheredText readEnvelope(std::string bytes);

}  // namespace tarvola::interchange
