#include <algorithm>

#include "tarvola/ado/sql/checker.h"
#include "tarvola/ado/sql/functions.h"
#include "tarvola/ado/sql/parser.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::sql {
namespace {

// The columns of a payment's period.
constexpr std::string_view monthColumn = "MsPjk";
constexpr std::string_view yearColumn = "ThPjk";

void setType(Expression& expression, ColumnType type) {
  expression.type = type;
  expression.family = familyOf(type);
}

const Column* findColumn(const Source& source, std::string_view name) {
  const auto& columns = source.allColumns();
  const auto found =
      std::ranges::find_if(columns, [name](const Column& column) { return sameName(column.name, name); });
  return found == columns.end() ? nullptr : &*found;
}

bool isTextLiteral(const Expression& expression) {
  return expression.kind == ExpressionKind::Literal && expression.literal.kind == LiteralKind::Text;
}

}  // namespace

void Checker::checkExpression(Expression& expression, const Scope& scope) {
  if (expression.kind == ExpressionKind::Call) return checkCall(expression, scope);
  for (const ExpressionPtr& operand : expression.operands) checkExpression(*operand, scope);
  if (expression.query) checkSubquery(expression, scope);
  switch (expression.kind) {
    case ExpressionKind::Literal:
      return checkLiteral(expression);
    case ExpressionKind::Name:
      return checkName(expression, scope);
    case ExpressionKind::Negate:
      expression.family = Family::Number;
      return;
    case ExpressionKind::Chain:
      return checkChain(expression);
    case ExpressionKind::Comparison:
      checkComparison(expression);
      break;
    case ExpressionKind::InList:
    case ExpressionKind::Between:
      checkOperandsAgree(expression);
      break;
    case ExpressionKind::Null:
    case ExpressionKind::AllRows:
    case ExpressionKind::Subquery:
      return;
    default:
      break;
  }
  setType(expression, ColumnType::Boolean);
}

// The digits of a number decide whether it is whole, and they are no part of the shape: its type stays open.
void Checker::checkLiteral(Expression& expression) const {
  switch (expression.literal.kind) {
    case LiteralKind::Text:
      return setType(expression, ColumnType::Text);
    case LiteralKind::Date:
      return setType(expression, ColumnType::Date);
    case LiteralKind::Number:
      expression.family = Family::Number;
  }
}

void Checker::checkName(Expression& expression, const Scope& scope) {
  for (const Scope* place = &scope; place != nullptr; place = place->outer)
    if (findName(expression, *place)) return setType(expression, expression.column->type);
  noteUnknown(expression);
}

bool Checker::findName(Expression& expression, const Scope& scope) const {
  for (const Source* source : *scope.sources) {
    if (!expression.qualifier.empty() && !sameName(source->name, expression.qualifier)) continue;
    const Column* column = findColumn(*source, expression.name);
    if (column == nullptr) continue;
    if (expression.column != nullptr) fail(ErrorNumber::SyntaxError, ambiguousFieldText(expression.source));
    expression.column = column;
    expression.table = source;
  }
  return expression.column != nullptr;
}

// A name that nobody knows is a parameter, and one parameter however often it stands in the statement.
void Checker::noteUnknown(const Expression& expression) {
  std::string name = foldCase(expression.source);
  if (std::ranges::find(unknownNames_, name) == unknownNames_.end()) unknownNames_.push_back(std::move(name));
}

void Checker::checkChain(Expression& expression) {
  const auto count = [&](Family family) {
    return std::ranges::count_if(expression.operands,
                                 [family](const ExpressionPtr& operand) { return operand->family == family; });
  };
  const auto all = static_cast<std::ptrdiff_t>(expression.operands.size());
  const Binding binding = rowOf(expression.operators.front()).binding;
  if (binding <= Binding::And) return setType(expression, ColumnType::Boolean);
  // Arithmetic with a Null is Null whatever the others are, a text that is no number included: NPWP + Null. "&" takes a
  // Null for "".
  const bool isNull = binding != Binding::Join && std::ranges::any_of(expression.operands, [](const auto& operand) {
                        return operand->kind == ExpressionKind::Null;
                      });
  if (isNull) {
    expression.kind = ExpressionKind::Null;
    return;
  }
  const bool joins = binding == Binding::Add && count(Family::Text) == all &&
                     std::ranges::count(expression.operators, Operator::Subtract) == 0;
  if (binding == Binding::Join || joins) return setType(expression, ColumnType::Text);
  expression.family = Family::Number;
  // A date and a number of days give a date; the days between two dates are a number.
  if (binding == Binding::Add && count(Family::Date) == 1) setType(expression, ColumnType::Date);
  if (expression.operators.front() == Operator::Divide) expression.type = ColumnType::Double;
}

void Checker::checkComparison(Expression& expression) {
  if (!isPeriod(expression)) checkOperandsAgree(expression);
}

// MsPjk = '012009' asks for January 2009: the quoted text holds month and year of the payment.
bool Checker::isPeriod(Expression& expression) const {
  if (expression.operators.front() != Operator::Equal) return false;
  const bool isTurned = isTextLiteral(*expression.operands[0]);
  const Expression& month = *expression.operands[isTurned ? 1 : 0];
  const bool comparesMonth = month.kind == ExpressionKind::Name && month.column != nullptr &&
                             sameName(month.column->name, monthColumn) && isWhole(month.type) &&
                             isTextLiteral(*expression.operands[isTurned ? 0 : 1]);
  if (comparesMonth) expression.year = findColumn(*month.table, yearColumn);
  if (expression.year != nullptr && isTurned) std::swap(expression.operands[0], expression.operands[1]);
  return expression.year != nullptr;
}

void Checker::checkOperandsAgree(const Expression& expression) {
  const Family family = expression.operands.front()->family;
  for (const ExpressionPtr& operand : expression.operands) typesClash_ |= clash(family, operand->family);
}

void Checker::checkSubquery(Expression& expression, const Scope& scope) {
  checkQuery(*expression.query, &scope, false);
  if (expression.kind == ExpressionKind::Exists) return;
  const std::vector<Column> columns = columnsOf(*expression.query);
  if (columns.size() != 1) fail(ErrorNumber::SyntaxError, subqueryColumnsText());
  if (expression.kind == ExpressionKind::Subquery) return setType(expression, columns.front().type);
  typesClash_ |= clash(expression.operands.front()->family, familyOf(columns.front().type));
}

void Checker::checkCall(Expression& expression, const Scope& scope) {
  if (!isFunction(expression.name)) fail(ErrorNumber::SyntaxError, unknownFunctionText(expression.name));
  const bool aggregates = isAggregate(expression.name);
  if (aggregates && !scope.refusesAggregatesIn.empty())
    fail(ErrorNumber::SyntaxError, aggregateRefusedText(scope.refusesAggregatesIn, expression.source));
  Scope inner = scope;
  if (aggregates) inner.refusesAggregatesIn = "expression";
  if (aggregates && scope.select != nullptr) scope.select->aggregated = true;
  for (const ExpressionPtr& operand : expression.operands) checkExpression(*operand, inner);
  const Family first = expression.operands.empty() ? Family::Any : expression.operands.front()->family;
  expression.function = findFunction(expression.name, expression.operands.size(), first);
  if (expression.function == nullptr) fail(ErrorNumber::SyntaxError, argumentCountText(expression.source));
  checkArguments(expression);
  setResultType(expression);
}

void Checker::setResultType(Expression& call) const {
  const FunctionRow& row = *call.function;
  if (row.typeFrom == 0) return setType(call, row.type);
  const Expression& model = *call.operands[row.typeFrom - 1];
  const bool converts = row.arguments[row.typeFrom - 1] == 'N' && model.family != Family::Number;
  if (converts) return setType(call, ColumnType::Double);
  call.family = model.family;
  call.type = model.type;
  if (call.operands.size() == row.typeFrom) return;
  const Expression& other = *call.operands[row.typeFrom];
  call.type = commonType(call.type, other.type);
  if (call.family != other.family) call.family = Family::Any;
}

void Checker::checkArguments(const Expression& expression) {
  const FunctionRow& row = *expression.function;
  if (!row.isAggregate) return;
  const Expression& argument = *expression.operands.front();
  if (argument.kind == ExpressionKind::AllRows && !sameName(row.name, "COUNT"))
    fail(ErrorNumber::SyntaxError, argumentCountText(expression.source));
  typesClash_ |= row.arguments == "N" && (argument.family == Family::Text);
}

}  // namespace tarvola::ado::sql
