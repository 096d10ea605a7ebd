#include "tarvola/runtime/errors.h"

#include "tarvola/runtime/error_texts.h"

namespace tarvola {

void fail(ErrorNumber number) {
  const std::string_view text = errorText(number);
  fail(number, std::string(text.empty() ? unknownErrorText : text));
}

void fail(ErrorNumber number, std::string description) {
  throw RunTimeError(static_cast<std::int32_t>(number), std::move(description));
}

}  // namespace tarvola
