#pragma once

#include <memory>
#include <string_view>

#include "tarvola/slips/slip_frame.h"

namespace tarvola::slips {

/// A new slip object of a form by its exact code, "F113309" to "F113321"; nullptr for any other code.
std::unique_ptr<SlipFrame> makeSlip(std::string_view kdForm);

}  // namespace tarvola::slips
