#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvola {

/// What a reporting file says.
struct ReportingFile {
  /// The bytes of all lines in the file, their line ends included.
  std::uint64_t byteLength = 0;
  /// The plain lines in their order, without line ends; the last is that of D113210, or empty. The texts of forms that
  /// keep their line breaks go over several lines.
  std::vector<std::string> lines;
};

/// Reads a reporting file back: deciphers it with the password made from the first 32 characters of the secret,
/// decompresses it, and compares the length and the control sum of every form line with what they should be. Amounts
/// are read under the thread's regional settings, which must be those that the file was written under.
///
/// Fails with a RunTimeError whose description names the file and what is wrong: it cannot be opened, is no reporting
/// file, was left unfinished, is cut off or damaged (error 321); or the secret does not fit (AuthenticationFailed). A
/// change in the few bytes that carry the key looks like a secret that does not fit.
ReportingFile readReportingFile(const std::string& path, std::string_view secretSource);

}  // namespace tarvola
