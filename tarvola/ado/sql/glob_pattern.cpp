#include "tarvola/ado/sql/glob_pattern.h"

#include "tarvola/ado/sql/letters.h"

namespace tarvola::ado::sql {
namespace {

bool isCapital(std::string_view character) {
  return character.size() == 1 && character[0] >= 'A' && character[0] <= 'Z';
}
bool isSmall(std::string_view character) { return character.size() == 1 && character[0] >= 'a' && character[0] <= 'z'; }

/// Reads the members of a set and writes them for both cases.
class SetWriter {
 public:
  explicit SetWriter(std::string_view inside) : rest_(inside) {
    isNegated_ = !rest_.empty() && (rest_.front() == '!' || rest_.front() == '^');
    if (isNegated_) rest_.remove_prefix(1);
  }

  void appendTo(std::string& glob) {
    while (!rest_.empty()) member();
    if (members_.empty() && !hasHyphen_ && !hasCaret_) return;
    // A caret in front would negate the set, a hyphen between two others would make a range.
    if (hasCaret_ && members_.empty() && !isNegated_) {
      glob += hasHyphen_ ? "[-^]" : "^";
      return;
    }
    glob += isNegated_ ? "[^" : "[";
    glob += members_;
    if (hasCaret_) glob += '^';
    if (hasHyphen_) glob += '-';
    glob += ']';
  }

 private:
  std::string_view take() {
    const std::string_view character = firstCharacter(rest_);
    rest_.remove_prefix(character.size());
    return character;
  }

  void member() {
    const std::string_view first = take();
    const bool isRange = rest_.size() > 1 && rest_.front() == '-' && first != "-";
    if (isRange) {
      rest_.remove_prefix(1);
      return range(first, take());
    }
    if (first == "-") {
      hasHyphen_ = true;
    } else if (first == "^") {
      hasCaret_ = true;
    } else {
      members_ += first;
      members_ += otherCase(first);
    }
  }

  void range(std::string_view first, std::string_view last) {
    appendRange(first, last);
    const bool isOneCase = (isCapital(first) && isCapital(last)) || (isSmall(first) && isSmall(last));
    if (isOneCase) appendRange(otherCase(first), otherCase(last));
  }

  void appendRange(std::string_view first, std::string_view last) {
    members_ += first;
    members_ += '-';
    members_ += last;
  }

  std::string_view rest_;
  std::string members_;
  bool isNegated_ = false;
  bool hasHyphen_ = false;
  bool hasCaret_ = false;
};

void appendCharacter(std::string& glob, std::string_view character) {
  if (character == "%") {
    glob += '*';
  } else if (character == "_") {
    glob += '?';
  } else if (character == "*" || character == "?" || character == "[") {
    glob += '[';
    glob += character;
    glob += ']';
  } else if (const std::string_view other = otherCase(character); !other.empty()) {
    glob += '[';
    glob += character;
    glob += other;
    glob += ']';
  } else {
    glob += character;
  }
}

}  // namespace

std::string globPattern(std::string_view pattern) {
  std::string glob;
  while (!pattern.empty()) {
    const std::size_t closing = pattern.front() == '[' ? pattern.find(']', 1) : std::string_view::npos;
    if (closing != std::string_view::npos) {
      SetWriter(pattern.substr(1, closing - 1)).appendTo(glob);
      pattern.remove_prefix(closing + 1);
      continue;
    }
    const std::string_view character = firstCharacter(pattern);
    appendCharacter(glob, character);
    pattern.remove_prefix(character.size());
  }
  return glob;
}

}  // namespace tarvola::ado::sql
