#include "tarvola/ado/sql/functions.h"
#include "tarvola/ado/sql/writer.h"
#include "tarvola/ado/sql/writer_nested.h"

namespace tarvola::ado::sql {
namespace {

constexpr std::string_view joinWords(JoinKind kind) {
  switch (kind) {
    case JoinKind::Left:
      return " LEFT JOIN ";
    case JoinKind::Right:
      return " RIGHT JOIN ";
    case JoinKind::Inner:
      break;
  }
  return " INNER JOIN ";
}

bool isComputedText(const OutputColumn& output) { return familyOf(output.type) == Family::Text && !output.column; }

}  // namespace

void Writer::query(const Query& query, const SelectUse& use) {
  SelectUse partUse = use;
  partUse.isPart = query.parts.size() > 1;
  partUse.comparesRows |= partUse.isPart && query.distinctRows;
  for (std::size_t place = 0; place < query.parts.size(); ++place) {
    if (place != 0) put(query.distinctRows ? " UNION " : " UNION ALL ");
    const Select& one = *query.parts[place];
    partUse.isPart ? part(one, partUse) : select(one, partUse);
  }
  if (query.orderedAsWhole) unionOrder(query);
}

// A part with an order or a limit of its own must be a query of its own inside a union.
void Writer::part(const Select& one, const SelectUse& use) {
  if (!one.top) return select(one, use);
  const Nested nested(*this);
  SelectUse inner = use;
  inner.namesColumns = true;
  inner.isPart = false;
  put("SELECT * FROM (");
  select(one, inner);
  put(")");
}

void Writer::unionOrder(const Query& query) {
  const char* between = " ORDER BY ";
  for (const OrderItem& item : query.parts.back()->orderBy) {
    put(between);
    put(std::to_string(item.position));
    if (item.descending) put(" DESC");
    between = ", ";
  }
}

void Writer::select(const Select& select, const SelectUse& use) {
  const Nested nested(*this);
  qualified_ = select.qualified || use.namesColumns;
  if (select.top) return topRows(select, use);
  if (fixedGroup(select, use)) return;
  put(select.distinct ? "SELECT DISTINCT " : "SELECT ");
  results(select, use);
  fromClause(select);
  putWhere(select.where.get());
  grouping(select);
  if (!use.isPart) orderClause(select);
}

void Writer::results(const Select& select, const SelectUse& use) {
  SelectUse each = use;
  each.comparesRows |= select.distinct;
  for (std::size_t place = 0; place < select.columns.size(); ++place) {
    if (place != 0) put(", ");
    result(select, place, each);
    if (use.namesColumns) resultName(select.columns[place]);
  }
  if (use.withIdentity) identity(select);
}

void Writer::result(const Select& select, std::size_t place, const SelectUse& use) {
  const OutputColumn& output = select.columns[place];
  if (!use.targets.empty()) return assignedResult(output, *use.targets[place]);
  if (output.column != nullptr) return putColumn(output.source, *output.column);
  const bool needsRule = isComputedText(output) && (use.comparesRows || use.namesColumns);
  value(*output.expression, needsRule ? Level::Whole : Level::Or);
  if (needsRule) put(dialect_.caseInsensitive);
}

void Writer::assignedResult(const OutputColumn& output, const Column& target) {
  if (output.column == nullptr) return assignedValue(*output.expression, target);
  const std::string_view function = assignmentFunction(familyOf(output.type), output.type, target.type);
  beginBounded(target);
  if (!function.empty()) (put(function), put("("));
  putColumn(output.source, *output.column);
  if (!function.empty()) put(")");
  endBounded(target);
}

void Writer::resultName(const OutputColumn& output) {
  const bool bearsItsName = output.column != nullptr && output.column->name == output.name;
  if (bearsItsName) return;
  putAs(output.name);
}

void Writer::identity(const Select& select) {
  put(", ");
  if (qualified_) {
    putName(select.sources.front()->name);
    put(".");
  }
  put(dialect_.identityColumn);
}

void Writer::fromClause(const Select& select) {
  const char* between = " FROM ";
  for (const auto& item : select.from) {
    put(between);
    fromItem(*item, select.from.size() == 1);
    between = ", ";
  }
}

void Writer::fromItem(const FromItem& item, bool isWhole) {
  if (!item.left) return table(item);
  const Nested nested(*this);
  if (!isWhole) put("(");
  fromItem(*item.left, true);
  put(joinWords(item.join));
  fromItem(*item.right, false);
  put(" ON ");
  condition(*item.on, Level::Or);
  if (!isWhole) put(")");
}

void Writer::table(const FromItem& item) {
  if (item.query) {
    put("(");
    query(*item.query, {.namesColumns = true});
    put(")");
    return putAs(item.source->name);
  }
  putName(item.source->table->name);
  if (!item.alias.empty()) putAs(item.alias);
}

void Writer::grouping(const Select& select) {
  const char* between = " GROUP BY ";
  for (const ExpressionPtr& by : select.groupBy) {
    put(between);
    sortKey(*by);
    between = ", ";
  }
  if (!select.having) return;
  // Some engines take HAVING only with groups: all rows are one.
  put(select.onlyHaving ? " GROUP BY NULL HAVING " : " HAVING ");
  condition(*select.having, Level::Or);
}

void Writer::orderClause(const Select& select) {
  if (select.orderBy.empty()) return;
  put(" ORDER BY ");
  orderList(select);
}

void Writer::orderList(const Select& select) {
  const char* between = "";
  for (const OrderItem& item : select.orderBy) {
    put(between);
    between = ", ";
    if (item.position == 0) {
      sortKey(*item.expression);
    } else {
      const OutputColumn& output = select.columns[item.position - 1];
      output.expression ? sortKey(*output.expression) : putColumn(output.source, *output.column);
    }
    if (item.descending) put(" DESC");
  }
}

// Rows are sorted and grouped without regard to case.
void Writer::sortKey(const Expression& expression) {
  const bool needsRule = expression.family == Family::Text && expression.kind != ExpressionKind::Name;
  needsRule ? ruled(expression) : value(expression, Level::Or);
}

}  // namespace tarvola::ado::sql
