#include "tarvola/runtime/format_pattern.h"

namespace tarvola {
namespace {

using Kind = PatternElement::Kind;

constexpr Kind kindOf(char c) noexcept {
  switch (c) {
    case '0':
      return Kind::ForcedDigit;
    case '#':
      return Kind::OptionalDigit;
    case '.':
      return Kind::Point;
    case ',':
      return Kind::Comma;
    case '%':
      return Kind::Percent;
    case ';':
      return Kind::SectionEnd;
    default:
      return Kind::Literal;
  }
}

constexpr std::string_view numberSigns = "0#.%";
constexpr std::string_view dateSigns = "dmyhnsqwcDMYHNSQWC/:";

}  // namespace

bool takeQuoted(std::string_view& pattern, std::string_view& literal) noexcept {
  if (pattern.empty()) return false;
  if (pattern.front() == '\\') {
    literal = pattern.substr(1, 1);
    pattern.remove_prefix(1 + literal.size());
    return true;
  }
  if (pattern.front() != '"') return false;
  pattern.remove_prefix(1);
  literal = pattern.substr(0, pattern.find('"'));
  pattern.remove_prefix(literal.size());
  if (!pattern.empty()) pattern.remove_prefix(1);
  return true;
}

bool NumberPatternReader::next(PatternElement& element) noexcept {
  if (rest_.empty()) return false;
  if (takeQuoted(rest_, element.text)) {
    element.kind = Kind::Literal;
    return true;
  }
  element = {kindOf(rest_.front()), rest_.substr(0, 1)};
  rest_.remove_prefix(1);
  return true;
}

PatternSections sectionsOf(std::string_view pattern) noexcept {
  PatternSections result;
  NumberPatternReader reader(pattern);
  std::string_view start = pattern;
  PatternElement element{};
  while (result.count + 1 < result.sections.size() && reader.next(element)) {
    if (element.kind != Kind::SectionEnd) continue;
    result.sections[result.count++] = start.substr(0, start.size() - reader.rest().size() - 1);
    start = reader.rest();
  }
  result.sections[result.count++] = start;
  return result;
}

bool isDatePattern(std::string_view pattern) noexcept {
  std::string_view literal;
  while (!pattern.empty()) {
    if (takeQuoted(pattern, literal)) continue;
    if (numberSigns.find(pattern.front()) != std::string_view::npos) return false;
    if (dateSigns.find(pattern.front()) != std::string_view::npos) return true;
    pattern.remove_prefix(1);
  }
  return false;
}

}  // namespace tarvola
