#include "tarvola/ado/shape_narrowing.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "tarvola/ado/text_signs.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado {
namespace {

/// Beyond so many keys one walk over all children costs less than a statement for each key.
constexpr std::size_t mostKeys = 50;

constexpr std::array<std::string_view, 4> wordsBehindCondition{"ORDER", "GROUP", "HAVING", "UNION"};

bool isPlainName(std::string_view name) {
  return !name.empty() && isNameStart(name.front()) && std::all_of(name.begin(), name.end(), isNamePart);
}

std::string_view withoutEnd(std::string_view text) {
  while (!text.empty() && (isBlank(text.back()) || text.back() == ';')) text.remove_suffix(1);
  return text;
}

/// Takes words and signs from the front of a statement, one after the other.
class Words {
 public:
  explicit Words(std::string_view text) : text_(text) {}

  bool take(std::string_view word) {
    skipBlanks();
    if (!equalsIgnoreCase(nextWord(), word)) return false;
    place_ += word.size();
    return true;
  }

  bool takeName() {
    skipBlanks();
    if (place_ < text_.size() && text_[place_] == '[') {
      const std::size_t end = text_.find(']', place_);
      place_ = end == std::string_view::npos ? place_ : end + 1;
      return end != std::string_view::npos;
    }
    const std::string_view word = nextWord();
    place_ += word.size();
    return isPlainName(word);
  }

  [[nodiscard]] bool atEnd() {
    skipBlanks();
    return place_ == text_.size();
  }
  [[nodiscard]] std::string_view taken() const { return text_.substr(0, place_); }
  [[nodiscard]] std::string_view rest() const { return text_.substr(place_); }

 private:
  void skipBlanks() {
    while (place_ < text_.size() && isBlank(text_[place_])) ++place_;
  }

  /// A run of letters and digits, or the single sign that stands there.
  [[nodiscard]] std::string_view nextWord() const {
    std::size_t end = place_;
    while (end < text_.size() && isNamePart(text_[end])) ++end;
    return text_.substr(place_, std::max<std::size_t>(end - place_, 1));
  }

  std::string_view text_;
  std::size_t place_ = 0;
};

constexpr char closingOf(char opening) {
  switch (opening) {
    case '\'':
    case '"':
    case '#':
      return opening;
    case '[':
      return ']';
    default:
      return '\0';
  }
}

/// The place behind a run of letters that begins here. A word may directly follow a number ("4AND").
std::size_t wordEnd(std::string_view text, std::size_t start) {
  std::size_t end = start + 1;
  while (end < text.size() && isNamePart(text[end])) ++end;
  return end;
}

bool endsCondition(std::string_view word) {
  return std::any_of(wordsBehindCondition.begin(), wordsBehindCondition.end(),
                     [word](std::string_view known) { return equalsIgnoreCase(word, known); });
}

/// Whether a text is one condition and stays one when it is put in parentheses: all that is opened is closed, and no
/// further clause follows.
bool isWholeCondition(std::string_view text) {
  int depth = 0;
  std::size_t place = 0;
  while (place < text.size()) {
    const char sign = text[place];
    std::size_t next = place + 1;
    if (const char closing = closingOf(sign); closing != '\0') {
      const std::size_t end = text.find(closing, next);
      if (end == std::string_view::npos) return false;
      next = end + 1;
    } else if (isNameStart(sign)) {
      next = wordEnd(text, place);
      if (depth == 0 && endsCondition(text.substr(place, next - place))) return false;
    }
    depth += sign == '(' ? 1 : sign == ')' ? -1 : 0;
    if (depth < 0 || sign == ';') return false;
    place = next;
  }
  return depth == 0 && !withoutEnd(text).empty();
}

std::string quoted(std::string_view text) {
  std::string literal = "'";
  for (const char c : text) {
    literal += c;
    if (c == '\'') literal += c;
  }
  return literal += '\'';
}

/// The number as a literal; nothing for a fraction, whose literal has fewer digits than the store may hold of it.
std::optional<std::string> wholeLiteral(double number) {
  constexpr double exactBelow = 1e15;
  if (number != std::trunc(number) || std::abs(number) >= exactBelow) return std::nullopt;
  return numberLiteral(number);
}

/// The value as a literal of a statement that finds every row which the relation finds; nothing for a date, whose
/// literal depends on the type of the column.
std::optional<std::string> literalOf(const Cell& cell) {
  switch (cell.type()) {
    case Cell::Type::String:
      return quoted(cell.text());
    case Cell::Type::Integer:
    case Cell::Type::Long:
    case Cell::Type::Double:
      return wholeLiteral(cell.toDouble());
    default:
      return std::nullopt;
  }
}

/// Texts that differ in case alone find the same rows, which must not be read twice.
bool isKnown(const std::vector<std::string>& conditions, std::string_view condition) {
  return std::any_of(conditions.begin(), conditions.end(),
                     [condition](std::string_view known) { return equalsIgnoreCase(known, condition); });
}

bool isMissing(const Cell& cell) { return cell.isNull() || cell.type() == Cell::Type::Empty; }

enum class KeyKind { Usable, WithoutChildren, WithoutLiteral };

KeyKind appendCondition(const Cell& cell, std::string_view column, std::string& condition) {
  if (isMissing(cell)) return KeyKind::WithoutChildren;
  const auto literal = literalOf(cell);
  if (!literal || !isPlainName(column)) return KeyKind::WithoutLiteral;
  if (!condition.empty()) condition += " AND ";
  condition.append(column).append(" = ").append(*literal);
  return KeyKind::Usable;
}

}  // namespace

std::optional<PlainSelect> readPlainSelect(std::string_view statement) {
  Words words(withoutEnd(statement));
  if (!words.take("SELECT") || !words.take("*") || !words.take("FROM") || !words.takeName()) return std::nullopt;
  PlainSelect select{.head = words.taken(), .condition = {}};
  if (words.atEnd()) return select;
  if (!words.take("WHERE") || !isWholeCondition(words.rest())) return std::nullopt;
  select.condition = words.rest();
  return select;
}

std::string withCondition(const PlainSelect& select, std::string_view condition) {
  std::string text(select.head);
  text += " WHERE ";
  if (!select.condition.empty()) text.append("(").append(select.condition).append(") AND ");
  return text.append(condition);
}

std::optional<std::vector<std::string>> keyConditions(const Rows& parents, const std::vector<ShapeRelation>& relation,
                                                      const std::vector<ShapeRelationText>& names) {
  std::vector<std::string> conditions;
  for (std::size_t row = 0; row < parents.count(); ++row) {
    std::string condition;
    KeyKind kind = KeyKind::Usable;
    for (std::size_t i = 0; i < relation.size() && kind == KeyKind::Usable; ++i) {
      kind = appendCondition(parents.cell(row, relation[i].parentColumn), names[i].childColumn, condition);
    }
    if (kind == KeyKind::WithoutLiteral) return std::nullopt;
    if (kind == KeyKind::WithoutChildren) continue;
    if (isKnown(conditions, condition)) continue;
    if (conditions.size() == mostKeys) return std::nullopt;
    conditions.push_back(std::move(condition));
  }
  return conditions;
}

}  // namespace tarvola::ado
