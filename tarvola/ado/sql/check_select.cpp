#include <algorithm>
#include <charconv>

#include "tarvola/ado/sql/checker.h"
#include "tarvola/ado/sql/parser.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::sql {
namespace {

/// A column of two joined tables that bear the same name is told apart by its table: "t1.C", "t2.C".
void nameDoublesByTable(Select& select) {
  const std::vector<OutputColumn> before = select.columns;
  for (OutputColumn& output : select.columns) {
    const bool isPlain = output.column != nullptr && output.source != nullptr && !output.aliased;
    if (!isPlain) continue;
    const bool isDouble = std::ranges::any_of(before, [&](const OutputColumn& other) {
      return other.source != nullptr && other.source != output.source && sameName(other.name, output.name);
    });
    if (isDouble) output.name = output.source->name + "." + output.name;
  }
}

std::string unnamed(std::size_t number) { return "Expr" + std::to_string(1000 + number); }

/// The place of a result by the name that an ORDER BY of a union gives it, 0 if there is none.
std::size_t placeOf(const Select& first, const Expression& name) {
  const auto& columns = first.columns;
  const auto found = std::ranges::find_if(columns, [&](const OutputColumn& output) {
    const bool isIts = output.column != nullptr && sameName(output.column->name, name.name) && !output.aliased;
    const bool named = isIts || sameName(output.name, name.name);
    const bool fromIts = output.source != nullptr && sameName(output.source->name, name.qualifier);
    return named && (name.qualifier.empty() || fromIts);
  });
  return found == columns.end() ? 0 : static_cast<std::size_t>(found - columns.begin()) + 1;
}

/// The number that a literal stands for as a position, 0 if it cannot be one.
std::size_t positionOf(const Expression& literal) {
  const std::string_view digits = literal.literal.text;
  std::size_t position = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), position);
  return read.ec == std::errc() && read.ptr == digits.data() + digits.size() ? position : 0;
}

bool isNumberLiteral(const Expression& expression) {
  return expression.kind == ExpressionKind::Literal && expression.literal.kind == LiteralKind::Number;
}

}  // namespace

std::vector<Column> columnsOf(const Query& query) {
  std::vector<Column> columns;
  for (const OutputColumn& output : query.parts.front()->columns)
    columns.push_back({output.name, output.type, output.column != nullptr ? output.column->length : 0});
  for (std::size_t part = 1; part < query.parts.size(); ++part)
    for (std::size_t place = 0; place < columns.size(); ++place)
      columns[place].type = commonType(columns[place].type, query.parts[part]->columns[place].type);
  return columns;
}

void Checker::checkQuery(Query& query, const Scope* outer, bool isWholeStatement) {
  const bool isUnion = query.parts.size() > 1;
  const bool ordersEarlier = std::any_of(query.parts.begin(), query.parts.end() - 1,
                                         [](const auto& part) { return !part->orderBy.empty() && !part->top; });
  const bool isOrdered = !query.parts.back()->orderBy.empty() && !query.parts.back()->top;
  const bool partsKeepOrder = ordersEarlier && !query.distinctRows && isWholeStatement;
  query.orderedAsWhole = isUnion && isOrdered && !partsKeepOrder;
  for (const auto& part : query.parts) {
    const bool isLast = part == query.parts.back();
    // What sorts the rows of one part alone has no effect once all rows come together.
    const bool isLost = isUnion && !partsKeepOrder && !isLast && !part->top;
    if (isLost) part->orderBy.clear();
    checkSelect(*part, outer, !(query.orderedAsWhole && isLast));
  }
  if (isUnion) checkUnion(query);
}

void Checker::checkUnion(Query& query) {
  const std::size_t count = query.parts.front()->columns.size();
  for (const auto& part : query.parts)
    if (part->columns.size() != count) fail(ErrorNumber::SyntaxError, unionColumnCountText());
  if (query.orderedAsWhole) orderUnion(query);
}

// The ORDER BY behind the last part sorts the whole, by the names or positions of the first.
void Checker::orderUnion(Query& query) {
  const Select& first = *query.parts.front();
  for (OrderItem& item : query.parts.back()->orderBy) {
    Expression& by = *item.expression;
    if (isNumberLiteral(by)) {
      item.position = positionOf(by);
      reusable_ = false;
    } else if (by.kind == ExpressionKind::Name) {
      item.position = placeOf(first, by);
    }
    if (item.position == 0 || item.position > first.columns.size())
      fail(ErrorNumber::SyntaxError, unionOrderText(by.source));
  }
}

void Checker::checkSelect(Select& select, const Scope* outer, bool ownOrder) {
  for (const auto& item : select.from) collectSources(*item, select.sources);
  select.qualified = select.sources.size() > 1 || outer != nullptr;
  Scope scope{outer, &select.sources, &select, {}};
  checkItems(select, scope);
  scope.refusesAggregatesIn = "JOIN operation";
  for (const auto& item : select.from) checkJoins(*item, scope);
  scope.refusesAggregatesIn = "WHERE clause";
  if (select.where) checkExpression(*select.where, scope);
  scope.refusesAggregatesIn = "GROUP BY clause";
  for (const ExpressionPtr& by : select.groupBy) checkExpression(*by, scope);
  scope.refusesAggregatesIn = {};
  if (select.having) checkExpression(*select.having, scope);
  if (ownOrder) checkOrder(select, scope);
  select.onlyHaving = select.having != nullptr && select.groupBy.empty() && !select.aggregated;
  select.aggregated |= !select.groupBy.empty() || select.having != nullptr;
  if (select.aggregated) checkGrouping(select);
}

void Checker::collectSources(FromItem& item, std::vector<const Source*>& sources) {
  if (item.left) {
    collectSources(*item.left, sources);
    collectSources(*item.right, sources);
    return;
  }
  item.source = std::make_unique<Source>();
  if (item.query) {
    checkQuery(*item.query, nullptr, false);
    item.source->columns = columnsOf(*item.query);
    item.source->name = item.alias.empty() ? "tv_" + std::to_string(++unnamedQueries_) : std::string(item.alias);
  } else {
    item.source->table = &tableNamed(item.table);
    item.source->name = item.alias.empty() ? item.source->table->name : std::string(item.alias);
  }
  sources.push_back(item.source.get());
}

void Checker::checkJoins(FromItem& item, const Scope& scope) {
  if (!item.left) return;
  checkJoins(*item.left, scope);
  checkJoins(*item.right, scope);
  checkExpression(*item.on, scope);
}

void Checker::checkItems(Select& select, const Scope& scope) {
  for (SelectItem& item : select.items) {
    if (!item.expression) {
      addStar(select, item.qualifier);
      continue;
    }
    checkExpression(*item.expression, scope);
    addItem(select, item);
  }
  std::size_t count = 0;
  for (OutputColumn& output : select.columns)
    if (output.name.empty()) output.name = unnamed(count++);
  if (select.sources.size() > 1) nameDoublesByTable(select);
}

void Checker::addStar(Select& select, std::string_view qualifier) {
  if (select.sources.empty()) fail(ErrorNumber::SyntaxError, noTableText());
  bool isKnown = false;
  for (const Source* source : select.sources) {
    if (!qualifier.empty() && !sameName(source->name, qualifier)) continue;
    isKnown = true;
    for (const Column& column : source->allColumns())
      select.columns.push_back({column.name, column.type, nullptr, source, &column, false});
  }
  if (!isKnown) fail(ErrorNumber::UnknownTable, unknownTableText(qualifier));
}

void Checker::addItem(Select& select, SelectItem& item) {
  Expression& expression = *item.expression;
  OutputColumn output{std::string(item.alias), expression.type, &expression, nullptr, nullptr, !item.alias.empty()};
  if (expression.column != nullptr && expression.kind == ExpressionKind::Name) {
    output.source = expression.table;
    output.column = expression.column;
    if (item.alias.empty()) output.name = expression.name;
  }
  select.columns.push_back(std::move(output));
}

void Checker::checkOrder(Select& select, const Scope& scope) {
  for (OrderItem& item : select.orderBy) {
    if (isNumberLiteral(*item.expression)) {
      checkPosition(select, item);
    } else {
      checkExpression(*item.expression, scope);
    }
  }
}

void Checker::checkPosition(Select& select, OrderItem& item) {
  item.position = positionOf(*item.expression);
  reusable_ = false;
  if (item.position == 0 || item.position > select.columns.size())
    fail(ErrorNumber::SyntaxError, clauseSyntaxText("ORDER BY"));
}

}  // namespace tarvola::ado::sql
