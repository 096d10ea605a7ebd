#include <algorithm>

#include "tarvola/ado/sql/conversions.h"
#include "tarvola/ado/sql/scan.h"
#include "tarvola/ado/sql/writer.h"
#include "tarvola/ado/sql/writer_nested.h"

namespace tarvola::ado::sql {
namespace {

bool isTextLiteral(const Expression& expression) {
  return expression.kind == ExpressionKind::Literal && expression.literal.kind == LiteralKind::Text;
}

bool holdsLettersBeyondAscii(const Expression& expression) {
  const std::string_view text = expression.literal.text;
  return isTextLiteral(expression) && isBeyondAscii(text.data(), text.data() + text.size());
}

/// Whether the engine's own comparison would mind the case of some letter: it knows the letters of ASCII only.
bool needsFolding(const Expression& comparison) {
  return std::ranges::any_of(comparison.operands,
                             [](const ExpressionPtr& operand) { return holdsLettersBeyondAscii(*operand); });
}

bool comparesTexts(const Expression& comparison) {
  return std::ranges::any_of(comparison.operands,
                             [](const ExpressionPtr& operand) { return operand->family == Family::Text; });
}

bool comparesDates(const Expression& comparison) {
  return std::ranges::any_of(comparison.operands,
                             [](const ExpressionPtr& operand) { return operand->family == Family::Date; });
}

/// A column brings its rule of comparison with it, a computed text has none.
bool hasColumn(const Expression& comparison) {
  const bool listed = comparison.kind != ExpressionKind::Comparison;
  return std::any_of(comparison.operands.begin(), listed ? comparison.operands.begin() + 1 : comparison.operands.end(),
                     [](const ExpressionPtr& operand) { return operand->kind == ExpressionKind::Name; });
}

}  // namespace

void Writer::compared(const Expression& operand, const Expression& whole) {
  if (needsFolding(whole)) {
    put(dialect_.foldFunction);
    put("(");
    value(operand, Level::Or);
    return put(")");
  }
  const bool isDayNumber = comparesDates(whole) && operand.family == Family::Number;
  if (isDayNumber) return converted(operand, ColumnType::Date, Level::Add);
  value(operand, Level::Add);
}

void Writer::comparedFirst(const Expression& operand, const Expression& whole) {
  const bool needsRule = comparesTexts(whole) && !hasColumn(whole) && !needsFolding(whole);
  return needsRule ? ruled(operand) : compared(operand, whole);
}

void Writer::ruled(const Expression& operand) {
  value(operand, Level::Whole);
  put(dialect_.caseInsensitive);
}

void Writer::comparison(const Expression& expression) {
  const Expression& left = *expression.operands[0];
  const Expression& right = *expression.operands[1];
  if (expression.year != nullptr) {
    put("(");
    putColumn(left.table, *left.column);
    put(" = ");
    putParameter(right.literalPlace, Conversion::MonthOfPeriod);
    put(" AND ");
    putColumn(left.table, *expression.year);
    put(" = ");
    putParameter(right.literalPlace, Conversion::YearOfPeriod);
    return put(")");
  }
  comparedFirst(left, expression);
  put(" ");
  put(rowOf(expression.operators.front()).engine);
  put(" ");
  compared(right, expression);
}

void Writer::inList(const Expression& expression) {
  comparedFirst(*expression.operands[0], expression);
  put(expression.negated ? " NOT IN (" : " IN (");
  for (std::size_t place = 1; place < expression.operands.size(); ++place) {
    if (place != 1) put(", ");
    compared(*expression.operands[place], expression);
  }
  put(")");
}

void Writer::inQuery(const Expression& expression) {
  comparedFirst(*expression.operands[0], expression);
  put(expression.negated ? " NOT IN (" : " IN (");
  const Nested nested(*this);
  query(*expression.query, {});
  put(")");
}

// The bounds may stand in either order.
void Writer::between(const Expression& expression) {
  comparedFirst(*expression.operands[0], expression);
  put(expression.negated ? " NOT BETWEEN " : " BETWEEN ");
  const bool needsRule = comparesTexts(expression) && !needsFolding(expression);
  for (const std::string_view function : {dialect_.leastFunction, dialect_.greatestFunction}) {
    put(function);
    put("(");
    needsRule ? ruled(*expression.operands[1]) : compared(*expression.operands[1], expression);
    put(", ");
    compared(*expression.operands[2], expression);
    put(function == dialect_.leastFunction ? ") AND " : ")");
  }
}

// A pattern that is computed is left to the engine's own LIKE, which knows the wildcards but no sets.
void Writer::like(const Expression& expression) {
  const Expression& pattern = *expression.operands[1];
  value(*expression.operands[0], Level::Add);
  put(expression.negated ? " NOT " : " ");
  if (!isTextLiteral(pattern)) {
    put("LIKE ");
    return converted(pattern, ColumnType::Text, Level::Add);
  }
  put(dialect_.likeOperator);
  put(" ");
  putParameter(pattern.literalPlace, dialect_.likePattern);
}

}  // namespace tarvola::ado::sql
