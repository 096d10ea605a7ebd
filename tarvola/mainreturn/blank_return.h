#pragma once

#include <string>

namespace tarvola::mainreturn {

/// What the packed text of a new main form says behind its six leading fields, the ";" in front included: 0 in every
/// number, nothing in every text, and today as the date of the return, which ends it. With the leading fields these are
/// 88 fields: the later ones are missing until the return is saved for the first time.
std::string blankReturn();

}  // namespace tarvola::mainreturn
