#include <algorithm>
#include <array>

#include "tarvola/ado/sql/conversions.h"
#include "tarvola/ado/sql/functions.h"
#include "tarvola/ado/sql/writer.h"
#include "tarvola/ado/sql/writer_nested.h"

namespace tarvola::ado::sql {
namespace {

bool isNumberLiteral(const Expression& expression) {
  return expression.kind == ExpressionKind::Literal && expression.literal.kind == LiteralKind::Number;
}

Binding bindingOf(const Expression& chain) { return rowOf(chain.operators.front()).binding; }

/// Whether the engine answers with its own 1 and 0 where the dialect has -1 and 0.
bool isTruth(const Expression& expression) {
  switch (expression.kind) {
    case ExpressionKind::Not:
    case ExpressionKind::Comparison:
    case ExpressionKind::InList:
    case ExpressionKind::InQuery:
    case ExpressionKind::Between:
    case ExpressionKind::Like:
    case ExpressionKind::IsNull:
    case ExpressionKind::Exists:
      return true;
    case ExpressionKind::Chain:
      return bindingOf(expression) <= Binding::And;
    case ExpressionKind::Call:
      return expression.function->isCondition;
    default:
      return false;
  }
}

/// Whether a query can have no second row: an aggregate over all rows.
bool givesOneRow(const Query& query) {
  return query.parts.size() == 1 && query.parts.front()->aggregated && query.parts.front()->groupBy.empty();
}

Level chainLevel(const Expression& chain) {
  switch (bindingOf(chain)) {
    case Binding::Or:
      return Level::Or;
    case Binding::And:
      return Level::And;
    case Binding::Join:
      return Level::Join;
    case Binding::Add:
      return chain.family == Family::Text ? Level::Join : chain.family == Family::Date ? Level::Whole : Level::Add;
    case Binding::Power:
      return Level::Whole;
    default:
      return Level::Multiply;
  }
}

}  // namespace

Level Writer::levelOf(const Expression& expression) const {
  switch (expression.kind) {
    case ExpressionKind::Negate:
    case ExpressionKind::Boolean:
      return Level::Sign;
    case ExpressionKind::Not:
      return Level::Not;
    case ExpressionKind::Chain:
      return chainLevel(expression);
    case ExpressionKind::Comparison:
      return expression.year != nullptr ? Level::Whole : Level::Compare;
    case ExpressionKind::InList:
    case ExpressionKind::InQuery:
    case ExpressionKind::Between:
    case ExpressionKind::Like:
    case ExpressionKind::IsNull:
      return Level::Compare;
    default:
      return Level::Whole;
  }
}

void Writer::value(const Expression& expression, Level loosest) {
  const bool truth = isTruth(expression);
  const bool needsParentheses = truth || levelOf(expression) < loosest;
  if (!needsParentheses) return node(expression);
  const Nested nested(*this);
  put(truth ? "-(" : "(");
  node(expression);
  put(")");
}

// A text or a date in place of a condition holds whenever there is one: WHERE a = 'x' OR 'y' takes every row.
void Writer::condition(const Expression& expression, Level loosest) {
  const bool asksForValue = expression.family == Family::Text || expression.family == Family::Date;
  const Level level = asksForValue ? Level::Compare : levelOf(expression);
  const auto inside = [&] {
    if (!asksForValue) return isTruth(expression) ? node(expression) : value(expression, Level::Or);
    value(expression, Level::Add);
    put(" IS NOT NULL");
  };
  if (level >= loosest) return inside();
  const Nested nested(*this);
  put("(");
  inside();
  put(")");
}

void Writer::node(const Expression& expression) {
  using Part = void (Writer::*)(const Expression&);
  // In the order of ExpressionKind.
  static constexpr std::array<Part, 17> parts{
      &Writer::literal,  &Writer::null,   &Writer::truthValue, &Writer::name,     &Writer::allRows, &Writer::negated,
      &Writer::negation, &Writer::chain,  &Writer::comparison, &Writer::inList,   &Writer::inQuery, &Writer::between,
      &Writer::like,     &Writer::isNull, &Writer::exists,     &Writer::subquery, &Writer::call};
  static_assert(parts.size() == static_cast<std::size_t>(ExpressionKind::Call) + 1);
  (this->*parts[static_cast<std::size_t>(expression.kind)])(expression);
}

void Writer::literal(const Expression& expression) {
  putParameter(expression.literalPlace, asItStands(expression.literal.kind));
}

void Writer::null(const Expression&) { put("NULL"); }
void Writer::truthValue(const Expression& expression) { put(expression.negated ? "0" : "-1"); }
void Writer::name(const Expression& expression) { putColumn(expression.table, *expression.column); }
void Writer::allRows(const Expression&) { put("*"); }

void Writer::negation(const Expression& expression) {
  const Nested nested(*this);
  put("NOT ");
  condition(*expression.operands[0], Level::Not);
}

void Writer::isNull(const Expression& expression) {
  value(*expression.operands[0], Level::Add);
  put(expression.negated ? " IS NOT NULL" : " IS NULL");
}

void Writer::exists(const Expression& expression) {
  put("EXISTS ");
  subquery(expression);
}

void Writer::subquery(const Expression& expression) {
  const Nested nested(*this);
  const Query& asked = *expression.query;
  const bool isValue = expression.kind == ExpressionKind::Subquery;
  put("(");
  isValue && !givesOneRow(asked) ? onlyRow(asked) : query(asked, {});
  put(")");
}

// An engine of its own accord takes the first of several rows; here a second one is a failure.
void Writer::onlyRow(const Query& asked) {
  const Nested nested(*this);
  put("SELECT tv_only(");
  putName(asked.parts.front()->columns.front().name);
  put(") FROM (");
  query(asked, {.namesColumns = true});
  put(")");
  putAs("tv_asked");
}

// Two signs in a row would begin a comment of the engine, so what has a sign of its own stands in parentheses.
void Writer::negated(const Expression& expression) {
  const Nested nested(*this);
  const Expression& operand = *expression.operands[0];
  const bool isBare = operand.kind == ExpressionKind::Literal || operand.kind == ExpressionKind::Name;
  put(isBare ? "-" : "-(");
  converted(operand, ColumnType::Double, Level::Or);
  if (!isBare) put(")");
}

void Writer::chain(const Expression& expression) {
  switch (bindingOf(expression)) {
    case Binding::Or:
    case Binding::And:
      return conditions(expression);
    case Binding::Join:
      return joinedTexts(expression);
    case Binding::Power:
      return powers(expression);
    default:
      break;
  }
  if (expression.family == Family::Text) return joinedTexts(expression);
  if (expression.family != Family::Date) return numbers(expression);
  put("tv_date(");
  numbers(expression);
  put(")");
}

void Writer::conditions(const Expression& chain) {
  const OperatorRow& row = rowOf(chain.operators.front());
  const Level inside = row.op == Operator::And ? Level::Not : Level::And;
  for (std::size_t place = 0; place < chain.operands.size(); ++place) {
    if (place != 0) (put(" "), put(row.engine), put(" "));
    condition(*chain.operands[place], inside);
  }
}

// "/" divides with a fraction even two whole numbers, "\" and MOD take whole numbers only.
void Writer::numbers(const Expression& chain) {
  const Binding binding = bindingOf(chain);
  const bool wholeOnly = binding == Binding::WholeDivide || binding == Binding::Modulo;
  const ColumnType type = wholeOnly ? ColumnType::Long : ColumnType::Double;
  for (std::size_t place = 0; place < chain.operands.size(); ++place) {
    if (place != 0) {
      const Operator op = chain.operators[place - 1];
      put(op == Operator::Divide ? " * 1.0 " : " ");
      put(rowOf(op).engine);
      put(" ");
    }
    if (beginUnlessNull(chain, place)) {
      converted(*chain.operands[place], type, Level::Or);
      put(" END");
    } else {
      converted(*chain.operands[place], type, binding == Binding::Add ? Level::Multiply : Level::Join);
    }
  }
}

// Where one operand is Null the result is, whatever the others are: a text is read as a number only if no column beside
// it is Null.
bool Writer::beginUnlessNull(const Expression& chain, std::size_t textPlace) {
  if (chain.operands[textPlace]->family != Family::Text) return false;
  bool isGuarded = false;
  for (std::size_t place = 0; place < chain.operands.size(); ++place) {
    const Expression& other = *chain.operands[place];
    if (place == textPlace || other.kind != ExpressionKind::Name) continue;
    put(isGuarded ? " AND " : "CASE WHEN ");
    name(other);
    put(" IS NOT NULL");
    isGuarded = true;
  }
  if (isGuarded) put(" THEN ");
  return isGuarded;
}

// "+" with a Null gives Null, as the engine's own operator does; "&" takes a Null for "".
void Writer::joinedTexts(const Expression& chain) {
  const bool nullIsEmpty = bindingOf(chain) == Binding::Join;
  for (std::size_t place = 0; place < chain.operands.size(); ++place) {
    const Expression& operand = *chain.operands[place];
    if (place != 0) (put(" "), put(dialect_.joinOperator), put(" "));
    const bool guarded = nullIsEmpty && operand.kind != ExpressionKind::Literal;
    if (guarded) put("coalesce(");
    converted(operand, ColumnType::Text, guarded ? Level::Or : Level::Sign);
    if (guarded) put(", '')");
  }
}

void Writer::powers(const Expression& chain) {
  for (std::size_t place = 1; place < chain.operands.size(); ++place) put("tv_power(");
  converted(*chain.operands.front(), ColumnType::Double, Level::Or);
  for (std::size_t place = 1; place < chain.operands.size(); ++place) {
    put(", ");
    converted(*chain.operands[place], ColumnType::Double, Level::Or);
    put(")");
  }
}

void Writer::converted(const Expression& expression, ColumnType target, Level loosest) {
  if (literalAs(expression, target)) return;
  const std::string_view function = conversionFunction(expression.family, expression.type, target);
  if (function.empty()) return value(expression, loosest);
  const Nested nested(*this);
  put(function);
  put("(");
  value(expression, Level::Or);
  put(")");
}

void Writer::assignedValue(const Expression& expression, const Column& target) {
  if (expression.kind == ExpressionKind::Null) return null(expression);
  beginBounded(target);
  assignedValue(expression, target.type);
  endBounded(target);
}

void Writer::assignedValue(const Expression& expression, ColumnType target) {
  if (literalAs(expression, target)) return;
  const std::string_view function = assignmentFunction(expression.family, expression.type, target);
  if (function.empty()) return value(expression, Level::Or);
  const Nested nested(*this);
  put(function);
  put("(");
  value(expression, Level::Or);
  put(")");
}

void Writer::beginBounded(const Column& target) {
  if (target.length != 0) put("tv_fit(");
}

void Writer::endBounded(const Column& target) {
  if (target.length == 0) return;
  put(", ");
  put(std::to_string(target.length));
  put(")");
}

bool Writer::literalAs(const Expression& expression, ColumnType target) {
  if (expression.kind == ExpressionKind::Literal) {
    putParameter(expression.literalPlace, assigned(expression.literal.kind, target));
    return true;
  }
  const bool isNegative = expression.kind == ExpressionKind::Negate && isNumberLiteral(*expression.operands[0]);
  if (!isNegative || familyOf(target) != Family::Number) return false;
  const Expression& number = *expression.operands[0];
  if (isWhole(target)) {
    // The least number of a width has no positive counterpart in it, so the sign is bound with the digits.
    const bool isInteger = target == ColumnType::Integer;
    putParameter(number.literalPlace, isInteger ? Conversion::NegatedToInteger : Conversion::NegatedToLong);
    return true;
  }
  put("-");
  return literalAs(number, target);
}

void Writer::call(const Expression& expression) {
  const Nested nested(*this);
  const std::string_view pattern = expression.function->engine;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    if (pattern[at] != '{') {
      out_.text += pattern[at];
      continue;
    }
    argument(expression, static_cast<std::size_t>(pattern[at + 1] - '1'));
    at += 2;
  }
}

void Writer::argument(const Expression& call, std::size_t place) {
  const Expression& given = *call.operands[place];
  switch (static_cast<ArgumentKind>(call.function->arguments[place])) {
    case ArgumentKind::Text:
      return converted(given, ColumnType::Text, Level::Sign);
    case ArgumentKind::Number:
      return converted(given, ColumnType::Double, Level::Sign);
    case ArgumentKind::Date:
      return converted(given, ColumnType::Date, Level::Sign);
    case ArgumentKind::Count:
      put("tv_count(");
      converted(given, ColumnType::Double, Level::Or);
      return put(")");
    case ArgumentKind::Position:
      put("tv_position(");
      converted(given, ColumnType::Double, Level::Or);
      return put(")");
    case ArgumentKind::Condition:
      return condition(given, Level::Or);
    case ArgumentKind::Day:
      if (given.kind == ExpressionKind::Literal && given.literal.kind == LiteralKind::Text)
        return putParameter(given.literalPlace, Conversion::TextToDay);
      put("substr(");
      converted(given, ColumnType::Date, Level::Or);
      return put(", 1, 10)");
    case ArgumentKind::Any:
      value(given, Level::Sign);
  }
  const bool isComputedText = given.family == Family::Text && given.kind != ExpressionKind::Name;
  if (call.function->isAggregate && isComputedText) put(dialect_.caseInsensitive);
}

}  // namespace tarvola::ado::sql
