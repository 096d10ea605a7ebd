#include "tarvola/ado/sql/conversions.h"
#include "tarvola/ado/sql/functions.h"
#include "tarvola/ado/sql/parser.h"
#include "tarvola/ado/sql/writer.h"
#include "tarvola/ado/sql/writer_nested.h"

namespace tarvola::ado::sql {
namespace {

/// The comparison with a literal that fixes the one group of a HAVING, nullptr if it does anything else.
const Expression* fixingComparison(const Select& select) {
  const Expression* having = select.having.get();
  const bool compares = having != nullptr && having->kind == ExpressionKind::Comparison && having->year == nullptr &&
                        having->operators.front() == Operator::Equal && select.groupBy.size() == 1;
  if (!compares) return nullptr;
  const Expression& group = *select.groupBy.front();
  for (const std::size_t place : {0U, 1U}) {
    const Expression& one = *having->operands[place];
    const Expression& other = *having->operands[1 - place];
    const bool fixes = group.kind == ExpressionKind::Name && one.kind == ExpressionKind::Name &&
                       one.column == group.column && one.table == group.table && other.kind == ExpressionKind::Literal;
    if (fixes) return having;
  }
  return nullptr;
}

/// The column of a SELECT that shows nothing but the MAX or MIN of a column, nullptr otherwise.
const Expression* onlyExtreme(const Select& select) {
  const Expression* call = select.columns.size() == 1 ? select.columns.front().expression : nullptr;
  const bool isExtreme = call != nullptr && call->kind == ExpressionKind::Call &&
                         (sameName(call->function->name, "MAX") || sameName(call->function->name, "MIN"));
  if (!isExtreme || call->operands.front()->kind != ExpressionKind::Name) return nullptr;
  return call->operands.front().get();
}

// Names of our own inside a ranked query.
constexpr std::string_view rankName = "tv_rank";
constexpr std::string_view countName = "tv_count";
constexpr std::string_view identityName = "tv_identity";

std::string numbered(std::size_t place) { return "tv_c" + std::to_string(place + 1); }

}  // namespace

// SELECT MAX(c) FROM t WHERE w GROUP BY k HAVING k = 'x' asks for one group only. Grouping first would walk all rows of
// w; written as the first row of w AND k = 'x' in the order of c, an index gives it at once. An absent group has no
// row, and one that holds nothing but Nulls has one row with Null, as before.
bool Writer::fixedGroup(const Select& select, const SelectUse& use) {
  const Expression* fixing = fixingComparison(select);
  const Expression* column = onlyExtreme(select);
  const bool isSimple = fixing != nullptr && column != nullptr && select.sources.size() == 1 && !select.distinct &&
                        select.orderBy.empty() && use.targets.empty();
  if (!isSimple) return false;
  put("SELECT ");
  value(*column, Level::Or);
  if (use.namesColumns) resultName(select.columns.front());
  fromClause(select);
  put(" WHERE ");
  if (select.where) {
    condition(*select.where, Level::And);
    put(" AND ");
  }
  condition(*fixing, Level::Not);
  put(" ORDER BY ");
  value(*column, Level::Or);
  const bool largest = sameName(select.columns.front().expression->function->name, "MAX");
  put(largest ? " DESC LIMIT 1" : " NULLS LAST LIMIT 1");
  return true;
}

// TOP n keeps the rows that tie with the last one, so rows are counted by rank. Without an order any n rows will do,
// and DISTINCT rows are counted as they come.
void Writer::topRows(const Select& select, const SelectUse& use) {
  const bool counts = !select.top->percent && (select.orderBy.empty() || select.distinct);
  if (!counts) return rankedRows(select, use);
  put(select.distinct ? "SELECT DISTINCT " : "SELECT ");
  results(select, use);
  fromClause(select);
  putWhere(select.where.get());
  grouping(select);
  orderClause(select);
  put(" LIMIT ");
  putParameter(select.top->literalPlace, Conversion::NumberToLong);
}

void Writer::rankedRows(const Select& select, const SelectUse& use) {
  if (select.distinct) fail(ErrorNumber::Unspecified, queryTooComplexText());
  put("SELECT ");
  rankedResults(select, use);
  put(" FROM (SELECT ");
  rankingQuery(select, use);
  put(") WHERE ");
  putName(rankName);
  put(" <= ");
  if (select.top->percent) (put("("), putName(countName), put(" * "));
  putParameter(select.top->literalPlace, Conversion::NumberToLong);
  if (select.top->percent) put(" + 99) / 100");
  put(" ORDER BY ");
  putName(rankName);
}

void Writer::rankedResults(const Select& select, const SelectUse& use) {
  for (std::size_t place = 0; place < select.columns.size(); ++place) {
    if (place != 0) put(", ");
    putName(numbered(place));
    if (use.namesColumns) putAs(select.columns[place].name);
  }
  if (use.withIdentity) (put(", "), putName(identityName));
}

void Writer::rankingQuery(const Select& select, const SelectUse& use) {
  for (std::size_t place = 0; place < select.columns.size(); ++place) {
    result(select, place, use);
    putAs(numbered(place));
    put(", ");
  }
  put(select.orderBy.empty() ? "row_number() OVER (" : "rank() OVER (");
  orderClause(select);
  put(")");
  putAs(rankName);
  put(", count(*) OVER ()");
  putAs(countName);
  if (use.withIdentity) (identity(select), putAs(identityName));
  fromClause(select);
  putWhere(select.where.get());
  grouping(select);
}

}  // namespace tarvola::ado::sql
