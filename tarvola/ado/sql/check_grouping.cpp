#include <algorithm>

#include "tarvola/ado/sql/checker.h"
#include "tarvola/ado/sql/functions.h"
#include "tarvola/ado/sql/parser.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

// What an aggregating SELECT shows must be the same for all rows of a group: an aggregate, or something grouped by.

namespace tarvola::ado::sql {

void Checker::checkGrouping(Select& select) {
  for (const OutputColumn& output : select.columns) {
    if (output.expression != nullptr) {
      requireGrouped(select, *output.expression);
    } else if (!isGrouped(select, output.column, output.source)) {
      fail(ErrorNumber::SyntaxError, notAggregatedText(output.name));
    }
  }
  if (select.having) requireGrouped(select, *select.having);
  // Without groups there is one row, whose order says nothing: "SELECT COUNT(c) FROM t ORDER BY d" is accepted.
  if (select.groupBy.empty()) select.orderBy.clear();
  for (const OrderItem& item : select.orderBy)
    if (item.position == 0) requireGrouped(select, *item.expression);
}

void Checker::requireGrouped(const Select& select, const Expression& expression) {
  const bool isWhole =
      std::ranges::any_of(select.groupBy, [&](const ExpressionPtr& by) { return sameExpression(*by, expression); });
  const bool isAggregateCall = expression.function != nullptr && expression.function->isAggregate;
  if (isWhole || isAggregateCall) return;
  const bool isOwnName = expression.kind == ExpressionKind::Name && expression.table != nullptr &&
                         std::ranges::find(select.sources, expression.table) != select.sources.end();
  if (isOwnName) fail(ErrorNumber::SyntaxError, notAggregatedText(expression.source));
  for (const ExpressionPtr& operand : expression.operands) requireGrouped(select, *operand);
}

bool Checker::isGrouped(const Select& select, const Column* column, const Source* source) const {
  return std::ranges::any_of(select.groupBy, [&](const ExpressionPtr& by) {
    return by->kind == ExpressionKind::Name && by->column == column && by->table == source;
  });
}

bool Checker::sameExpression(const Expression& left, const Expression& right) {
  if (left.kind != right.kind || left.query || right.query) return false;
  if (left.kind == ExpressionKind::Literal) {
    // Whether the two literals are equal holds for this statement only, not for others of its shape.
    reusable_ = false;
    return left.literal.kind == right.literal.kind && left.literal.text == right.literal.text;
  }
  const bool isSameNode = left.table == right.table && left.column == right.column && left.negated == right.negated &&
                          left.function == right.function && left.operators == right.operators &&
                          left.operands.size() == right.operands.size();
  if (!isSameNode || (left.kind == ExpressionKind::Name && left.column == nullptr)) return false;
  return std::ranges::equal(
      left.operands, right.operands,
      [this](const ExpressionPtr& one, const ExpressionPtr& other) { return sameExpression(*one, *other); });
}

}  // namespace tarvola::ado::sql
