#include "tarvola/ado/engine/connection_text.h"

#include <array>

#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::engine {
namespace {

struct Keyword {
  std::string_view name;
  std::string ConnectionText::*value;
};

constexpr std::array keywords{
    Keyword{.name = "DSN", .value = &ConnectionText::dsn},
    Keyword{.name = "UID", .value = &ConnectionText::user},
    Keyword{.name = "PWD", .value = &ConnectionText::password},
};

/// Takes what stands before `stop` off the front of the text, `stop` included.
std::string_view takeUntil(std::string_view& text, char stop) {
  const std::size_t end = text.find(stop);
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return taken;
}

std::string takeBraced(std::string_view& text) {
  std::string value;
  text.remove_prefix(1);
  while (!text.empty()) {
    value += takeUntil(text, '}');
    if (!text.starts_with('}')) break;
    value += '}';
    text.remove_prefix(1);
  }
  takeUntil(text, ';');
  return value;
}

std::string takeValue(std::string_view& text) {
  text = LTrim(text);
  return text.starts_with('{') ? takeBraced(text) : std::string(Trim(takeUntil(text, ';')));
}

}  // namespace

ConnectionText readConnectionText(std::string_view text) {
  ConnectionText result;
  std::array<bool, keywords.size()> seen{};
  while (!text.empty()) {
    const std::size_t equals = text.find_first_of("=;");
    const std::string_view name = Trim(text.substr(0, equals));
    const bool hasValue = equals != std::string_view::npos && text[equals] == '=';
    text.remove_prefix(equals == std::string_view::npos ? text.size() : equals + 1);
    if (!hasValue) continue;
    std::string value = takeValue(text);
    for (std::size_t index = 0; index < keywords.size(); ++index) {
      if (seen[index] || !equalsIgnoreCase(name, keywords[index].name)) continue;
      seen[index] = true;
      result.*keywords[index].value = std::move(value);
      break;
    }
  }
  return result;
}

std::string quotedValue(std::string_view value) {
  std::string result = "{";
  for (const char letter : value) result.append(letter == '}' ? 2 : 1, letter);
  return result + '}';
}

}  // namespace tarvola::ado::engine
