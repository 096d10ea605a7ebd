#include "tarvola/store/failure_rule.h"

#include <new>

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
    return "Application-defined or object-defined error";
  }
}

void showCurrentFailure() noexcept { showMessage({.text = currentFailureDescription(), .title = {}}); }

}  // namespace tarvola
