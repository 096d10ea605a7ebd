#pragma once

#include <string>
#include <string_view>

namespace tarvola::cli {

/// Who files with the connected store.
struct Filer {
  std::string npwp;
  std::string name;
  std::string address;
};

/// Reads the filer of the connected store; fails if it names none.
Filer readFiler();

/// 15 digits as 99.999.999.9-999.999; any other text as it stands.
std::string formattedNpwp(std::string_view npwp);
/// The digits of an NPWP that is written with points and a hyphen.
std::string npwpDigits(std::string_view npwp);

}  // namespace tarvola::cli
