#include "tarvola/ado/filter.h"

#include <array>
#include <charconv>
#include <optional>

#include "tarvola/ado/text_signs.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado {
namespace {

/// Deeper parentheses are nobody's criteria; the limit keeps a hostile text from using up the stack.
constexpr int deepestNesting = 100;

constexpr bool isWildcard(char c) { return c == '*' || c == '%'; }

struct OperatorText {
  std::string_view text;
  FilterOperator comparison;
};

// Longer ones first, since "<" begins two others.
constexpr std::array<OperatorText, 6> operatorTexts{{
    {.text = "<=", .comparison = FilterOperator::LessOrEqual},
    {.text = ">=", .comparison = FilterOperator::GreaterOrEqual},
    {.text = "<>", .comparison = FilterOperator::NotEqual},
    {.text = "=", .comparison = FilterOperator::Equal},
    {.text = "<", .comparison = FilterOperator::Less},
    {.text = ">", .comparison = FilterOperator::Greater},
}};

bool isWord(std::string_view name, std::string_view upperWord) {
  if (name.size() != upperWord.size()) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if ((name[i] & ~0x20) != upperWord[i]) return false;
  }
  return true;
}

/// A date in a criteria text does not follow the regional settings: month first, or year, month, day.
std::optional<Date> readDate(std::string_view text) {
  const RegionalSettingsScope monthFirst(RegionalSettings::unitedStates());
  return tryDate(text);
}

}  // namespace

/// Walks once through a criteria text. Reading "a OR b" closes an alternative, reading "a AND b" goes on with it, so
/// that parentheses need no tree: where they are allowed they change nothing but the order, which is checked.
class FilterReader {
 public:
  explicit FilterReader(Filter& filter) : filter_(filter), rest_(filter.text_) {}

  void read() {
    readAlternatives(0);
    skipBlanks();
    if (!rest_.empty()) refuse();
    filter_.alternativeEnds_.push_back(filter_.clauses_.size());
  }

 private:
  [[noreturn]] static void refuse() { fail(ErrorNumber::WrongArguments); }

  void skipBlanks() {
    while (!rest_.empty() && isBlank(rest_.front())) rest_.remove_prefix(1);
  }

  /// The next character that is no blank, 0 at the end.
  char peek() {
    skipBlanks();
    return rest_.empty() ? '\0' : rest_.front();
  }

  std::string_view take(std::size_t length) {
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return taken;
  }

  /// The name or word at the front; empty if there is none.
  [[nodiscard]] std::string_view peekName() const {
    if (rest_.empty() || !isNameStart(rest_.front())) return {};
    std::size_t length = 1;
    while (length < rest_.size() && isNamePart(rest_[length])) ++length;
    return rest_.substr(0, length);
  }

  bool takeWord(std::string_view upperWord) {
    skipBlanks();
    const std::string_view name = peekName();
    if (!isWord(name, upperWord)) return false;
    rest_.remove_prefix(name.size());
    return true;
  }

  /// What stands between a sign and the next such sign, or the closing bracket.
  std::string_view takeBetween(char closing) {
    rest_.remove_prefix(1);
    const std::size_t end = rest_.find(closing);
    if (end == std::string_view::npos) refuse();
    const std::string_view inside = take(end);
    rest_.remove_prefix(1);
    return inside;
  }

  /// Whether an OR was met.
  bool readAlternatives(int depth) {
    bool holdsOr = readTogether(depth);
    while (takeWord("OR")) {
      filter_.alternativeEnds_.push_back(filter_.clauses_.size());
      readTogether(depth);
      holdsOr = true;
    }
    return holdsOr;
  }

  bool readTogether(int depth) {
    bool holdsOr = readPart(depth);
    while (takeWord("AND")) {
      holdsOr |= readPart(depth);
      if (holdsOr) refuse();
    }
    return holdsOr;
  }

  bool readPart(int depth) {
    if (peek() != '(') {
      readClause();
      return false;
    }
    if (depth == deepestNesting) refuse();
    rest_.remove_prefix(1);
    const bool holdsOr = readAlternatives(depth + 1);
    if (peek() != ')') refuse();
    rest_.remove_prefix(1);
    return holdsOr;
  }

  void readClause() {
    FilterClause& clause = filter_.clauses_.emplace_back();
    clause.field = readField();
    if (takeWord("LIKE")) {
      readPattern(clause);
      return;
    }
    clause.comparison = readOperator();
    readValue(clause);
    const bool isEquality = clause.comparison == FilterOperator::Equal || clause.comparison == FilterOperator::NotEqual;
    if (clause.kind == FilterValueKind::Null && !isEquality) refuse();
  }

  std::string_view readField() {
    const std::string_view field = peek() == '[' ? takeBetween(']') : take(peekName().size());
    if (field.empty()) refuse();
    return field;
  }

  FilterOperator readOperator() {
    skipBlanks();
    for (const OperatorText& candidate : operatorTexts) {
      if (!rest_.starts_with(candidate.text)) continue;
      rest_.remove_prefix(candidate.text.size());
      return candidate.comparison;
    }
    refuse();
  }

  void readValue(FilterClause& clause) {
    const char first = peek();
    if (first == '\'') {
      clause.kind = FilterValueKind::Text;
      clause.text = readText();
    } else if (first == '#') {
      readFenced(clause);
    } else if (isNameStart(first)) {
      readConstant(clause);
    } else {
      readNumber(clause);
    }
  }

  std::string_view readText() {
    rest_.remove_prefix(1);
    std::size_t end = rest_.find('\'');
    bool isDoubled = false;
    while (end != std::string_view::npos && end + 1 < rest_.size() && rest_[end + 1] == '\'') {
      isDoubled = true;
      end = rest_.find('\'', end + 2);
    }
    if (end == std::string_view::npos) refuse();
    const std::string_view text = take(end);
    rest_.remove_prefix(1);
    return isDoubled ? withoutDoubling(text) : text;
  }

  std::string_view withoutDoubling(std::string_view text) {
    std::string& store = filter_.unquoted_;
    store.reserve(filter_.text_.size());
    const std::size_t start = store.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
      store += text[i];
      if (text[i] == '\'') ++i;
    }
    return std::string_view(store).substr(start);
  }

  /// #...# holds a date, or a text that itself begins and ends with a quote: #'abc'# is the text 'abc', quotes
  /// included.
  void readFenced(FilterClause& clause) {
    const std::string_view inside = takeBetween('#');
    if (inside.size() > 1 && inside.front() == '\'' && inside.back() == '\'') {
      clause.kind = FilterValueKind::Text;
      clause.text = inside;
      return;
    }
    const std::optional<Date> date = readDate(inside);
    if (!date) refuse();
    clause.kind = FilterValueKind::Date;
    clause.text = inside;
    clause.number = date->serial();
  }

  void readConstant(FilterClause& clause) {
    if (takeWord("NULL")) {
      clause.kind = FilterValueKind::Null;
      return;
    }
    const bool isTrue = takeWord("TRUE");
    if (!isTrue && !takeWord("FALSE")) refuse();
    clause.kind = FilterValueKind::Number;
    clause.number = isTrue ? -1 : 0;
  }

  void readNumber(FilterClause& clause) {
    const bool isNegative = rest_.starts_with('-');
    if (isNegative || rest_.starts_with('+')) rest_.remove_prefix(1);
    if (rest_.starts_with('$')) rest_.remove_prefix(1);
    if (rest_.empty() || !(isDigit(rest_.front()) || rest_.front() == '.')) refuse();
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), clause.number);
    if (error != std::errc()) refuse();
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    clause.kind = FilterValueKind::Number;
    if (isNegative) clause.number = -clause.number;
  }

  void readPattern(FilterClause& clause) {
    if (peek() != '\'') refuse();
    std::string_view pattern = readText();
    const bool isOpenAtEnd = !pattern.empty() && isWildcard(pattern.back());
    if (isOpenAtEnd) pattern.remove_suffix(1);
    const bool isOpenAtStart = isOpenAtEnd && !pattern.empty() && isWildcard(pattern.front());
    if (isOpenAtStart) pattern.remove_prefix(1);
    if (pattern.find_first_of("*%") != std::string_view::npos) refuse();
    clause.comparison = isOpenAtStart ? FilterOperator::Contains
                        : isOpenAtEnd ? FilterOperator::Begins
                                      : FilterOperator::Equal;
    clause.kind = FilterValueKind::Text;
    clause.text = pattern;
  }

  Filter& filter_;
  std::string_view rest_;
};

void Filter::read(std::string_view criteria) {
  text_ = criteria;
  unquoted_.clear();
  clauses_.clear();
  alternativeEnds_.clear();
  FilterReader(*this).read();
}

}  // namespace tarvola::ado
