#pragma once

#include <string>

#include "tarvola/cli/commands.h"
#include "tarvola/cli/slip_forms.h"

namespace tarvola::cli {

/// How a list of documents is wanted.
struct ListOptions {
  std::string form;
  bool csv = false;
};

/// Prints one slip with all its fields.
void showSlip(const Context& context, const SlipForm& form, const Period& period, const std::string& number);
/// Prints one line for each slip of a return, in the order of their numbers, and the sums.
void listSlips(const Context& context, const Period& period, const ListOptions& options);
/// Prints the default tariffs of all slip forms, or of one.
void showRates(const Context& context, const std::string& form);

}  // namespace tarvola::cli
