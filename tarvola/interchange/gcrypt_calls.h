#pragma once

namespace tarvola::interchange {

/// Prepares the cipher library once for the process; every use of it comes after this. An application that uses the
/// library itself keeps its own preparation.
void readyCiphers();

/// Fails with the cipher library's own words if a call of it failed.
void requireCipher(unsigned int code);

}  // namespace tarvola::interchange
