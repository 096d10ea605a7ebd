#include "tarvola/store/failure_rule.h"

#include <new>

#include "tarvola/runtime/error_texts.h"

namespace tarvola {

std::string currentFailureDescription() noexcept {
  try {
    throw;
  } catch (const RunTimeError& error) {
    return error.description();
  } catch (const std::bad_alloc&) {
    return std::string(errorText(ErrorNumber::OutOfMemory));
  } catch (const std::exception& error) {
    return error.what();
  } catch (...) {
    return std::string(unknownErrorText);
  }
}

void showCurrentFailure() noexcept { showMessage({.text = currentFailureDescription(), .title = {}}); }

}  // namespace tarvola
