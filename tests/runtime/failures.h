#pragma once

#include <cstdint>
#include <string>

#include "tarvola/runtime/errors.h"

namespace tarvola {

/// The number of the failure that a call ends in; 0 if it ends well.
template <typename Call>
std::int32_t failureOf(Call&& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return 0;
}

/// The description of the failure that a call ends in; "" if it ends well.
template <typename Call>
std::string descriptionOf(Call&& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return error.description();
  }
  return {};
}

}  // namespace tarvola
