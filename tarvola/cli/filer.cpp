#include "tarvola/cli/filer.h"

#include <algorithm>

#include "tarvola/cli/failure.h"
#include "tarvola/tarvola.h"

namespace tarvola::cli {

namespace {

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

std::string textOf(const RecordsetPtr& row, const char* field) {
  const Variant value = row->get_Collect(field);
  return value.isNull() ? "" : CStr(value);
}

}  // namespace

Filer readFiler() {
  CGeneralClass general;
  const RecordsetPtr profile = general.pGetRecordDbase("SELECT * FROM PROFILE");
  if (profile == nullptr || profile->get_EOF())
    throw CommandFailure(
        "The store names no filer: its table PROFILE is empty.\nMake a new store with the filer's data.");
  return {textOf(profile, "NPWP"), textOf(profile, "NAMA_WP_PROFILE"), textOf(profile, "ALAMAT")};
}

std::string formattedNpwp(std::string_view npwp) {
  if (npwp.size() != 15 || !std::all_of(npwp.begin(), npwp.end(), isDigit)) return std::string(npwp);
  std::string result;
  for (std::size_t i = 0; i < npwp.size(); ++i) {
    if (i == 2 || i == 5 || i == 8 || i == 12) result += '.';
    if (i == 9) result += '-';
    result += npwp[i];
  }
  return result;
}

std::string npwpDigits(std::string_view npwp) {
  std::string digits;
  for (const char c : npwp)
    if (c != '.' && c != '-' && c != ' ') digits += c;
  return digits;
}

}  // namespace tarvola::cli
