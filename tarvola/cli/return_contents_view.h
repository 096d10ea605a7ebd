#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "tarvola/store/return_contents.h"

namespace tarvola::cli {

/// "9 slips, 3 self-paid forms", and behind it the payees of interest slips where there are any.
std::string inWords(const store::ReturnContents& contents);
/// The number of rows of each kind.
nlohmann::ordered_json asJson(const store::ReturnContents& contents);

}  // namespace tarvola::cli
