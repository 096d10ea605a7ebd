#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvola::store {

/// The lines of a comma separated text, cut into fields. A field in double quotes may hold commas, line ends and
/// (doubled) quotes. Lines end with LF or CR LF; empty ones are passed over.
std::vector<std::vector<std::string>> readCsv(std::string_view text);

}  // namespace tarvola::store
