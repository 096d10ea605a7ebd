#pragma once

#include <array>

#include "tarvola/ado/recordset.h"
#include "tarvola/mainreturn/roll_up_forms.h"
#include "tarvola/mainreturn/running_sums.h"

namespace tarvola::mainreturn {

/// What the documents of one form add up to for its lines, in the order of RolledUpForm::lines.
using LineSums = std::array<LineSum, 4>;

/// Adds up all rows of named fields of a form. A Null amount is error 94, a text that is no number 13, a field that the
/// rows do not have 3265; the sums are then lost, but what `interest` has taken from earlier rows stays in it.
LineSums sumDocuments(const RolledUpForm& form, const Recordset& documents, RunningSums& interest);

}  // namespace tarvola::mainreturn
