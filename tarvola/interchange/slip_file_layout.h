#pragma once

#include "tarvola/interchange/exchange_layout.h"

namespace tarvola::interchange {

/// The file of slips and self-paid forms.
extern const ExchangeLayout slipFileLayout;

}  // namespace tarvola::interchange
