#include "tarvola/ado/sql/kept_question.h"

#include <algorithm>

#include "tarvola/ado/sql/ast.h"
#include "tarvola/ado/sql/functions.h"

namespace tarvola::ado::sql {
namespace {

/// Whether nothing stands between the rows of the table and the sums over all of them.
bool isPlainAggregate(const Query& query) {
  const Select& select = *query.parts.front();
  return query.parts.size() == 1 && select.aggregated && !select.distinct && !select.top && select.groupBy.empty() &&
         !select.having && select.orderBy.empty() && select.where != nullptr && select.sources.size() == 1 &&
         select.sources.front()->table != nullptr;
}

/// The column that an output sums, "" for COUNT(*); nothing for any other output.
std::optional<std::string> summedColumn(const OutputColumn& output) {
  const Expression* call = output.expression;
  if (call == nullptr || call->kind != ExpressionKind::Call || call->operands.size() != 1) return std::nullopt;
  const Expression& argument = *call->operands.front();
  if (call->function->name == "COUNT" && argument.kind == ExpressionKind::AllRows) return "";
  const bool isSumOfAmounts = call->function->name == "SUM" && argument.kind == ExpressionKind::Name &&
                              argument.column->type == ColumnType::Double;
  if (!isSumOfAmounts) return std::nullopt;
  return argument.column->name;
}

bool isKeyColumn(const Expression& expression) {
  return expression.kind == ExpressionKind::Name &&
         (isWhole(expression.column->type) || expression.column->type == ColumnType::Text);
}

/// Whether the condition is `column = literal` of one family: a whole number with a number, a text with a text.
bool isKey(const Expression& condition) {
  if (condition.kind != ExpressionKind::Comparison || condition.operators.front() != Operator::Equal ||
      condition.year != nullptr)
    return false;
  const Expression& left = *condition.operands[0];
  const Expression& right = *condition.operands[1];
  if (!isKeyColumn(left) || right.kind != ExpressionKind::Literal) return false;
  const bool isText = left.column->type == ColumnType::Text;
  return right.literal.kind == (isText ? LiteralKind::Text : LiteralKind::Number);
}

/// Adds the keys of a condition; false if it is anything but keys joined by AND.
bool collectKeys(const Expression& condition, std::vector<KeptQuestion::Key>& keys) {
  if (condition.kind == ExpressionKind::Chain) {
    const auto isAnd = [](Operator each) { return each == Operator::And; };
    return std::ranges::all_of(condition.operators, isAnd) &&
           std::ranges::all_of(condition.operands, [&](const ExpressionPtr& each) { return collectKeys(*each, keys); });
  }
  if (!isKey(condition)) return false;
  const Expression& column = *condition.operands[0];
  keys.push_back({.column = column.column->name,
                  .literal = condition.operands[1]->literalPlace,
                  .isText = column.column->type == ColumnType::Text});
  return true;
}

}  // namespace

std::optional<KeptQuestion> keptQuestionOf(const Query& query) {
  if (!isPlainAggregate(query)) return std::nullopt;
  const Select& select = *query.parts.front();
  KeptQuestion question{.table = select.sources.front()->table->name, .keys = {}, .summed = {}};
  if (!collectKeys(*select.where, question.keys)) return std::nullopt;
  for (const OutputColumn& output : select.columns) {
    auto summed = summedColumn(output);
    if (!summed) return std::nullopt;
    question.summed.push_back(std::move(*summed));
  }
  return question;
}

}  // namespace tarvola::ado::sql
