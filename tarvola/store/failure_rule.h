#pragma once

#include <exception>
#include <string>
#include <utility>

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/message_box.h"

namespace tarvola {

/// The description of the failure that is being handled, as a person sees it. Only inside a catch block.
std::string currentFailureDescription() noexcept;

/// Shows the failure that is being handled: its description as the only text, no title. Only inside a catch block.
void showCurrentFailure() noexcept;

/// The rule of every public operation: a failure inside shows its description and ends the operation normally. What was
/// written stays written, results assigned before the failure stand, and nothing reaches the caller.
template <class Body>
void guarded(Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    showCurrentFailure();
  }
}

/// The same without the message, for the few operations that fail in silence.
template <class Body>
void guardedSilently(Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
  } catch (...) {
  }
}

}  // namespace tarvola
