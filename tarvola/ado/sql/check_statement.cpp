#include <algorithm>

#include "tarvola/ado/sql/checker.h"
#include "tarvola/ado/sql/parser.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::sql {
namespace {

const Column* findColumn(const std::vector<Column>& columns, std::string_view name) {
  const auto found =
      std::ranges::find_if(columns, [name](const Column& column) { return sameName(column.name, name); });
  return found == columns.end() ? nullptr : &*found;
}

void addTarget(Insert& insert, std::string_view name) {
  const Column* column = findColumn(insert.target->columns, name);
  if (column == nullptr) fail(ErrorNumber::SyntaxError, unknownInsertFieldText(name));
  if (std::ranges::find(insert.targets, column) != insert.targets.end())
    fail(ErrorNumber::SyntaxError, duplicateDestinationText(name));
  insert.targets.push_back(column);
}

bool hasStar(const Query& query) {
  return std::ranges::any_of(query.parts.front()->items, [](const SelectItem& item) { return !item.expression; });
}

}  // namespace

void Checker::check(Statement& statement) {
  std::visit([this](auto& body) { checkBody(body); }, statement.body);
  if (!unknownNames_.empty() || typesClash_) failOnNamesOrTypes();
  statement.reusable = statement.reusable && reusable_;
}

void Checker::failOnNamesOrTypes() const {
  if (unknownNames_.empty()) fail(ErrorNumber::CriteriaMismatch, criteriaMismatchText());
  fail(ErrorNumber::TooFewParameters, tooFewParametersText(unknownNames_.size()));
}

const Table& Checker::tableNamed(std::string_view name) const {
  const Table* table = catalog_.find(name);
  if (table == nullptr) fail(ErrorNumber::UnknownTable, unknownTableText(name));
  return *table;
}

void Checker::checkBody(Query& query) { checkQuery(query, nullptr, true); }

void Checker::checkBody(Insert& insert) {
  insert.target = &tableNamed(insert.table);
  checkTargets(insert);
  static const std::vector<const Source*> nothing;
  const Scope scope{nullptr, &nothing, nullptr, "expression"};
  for (const ExpressionPtr& value : insert.values) checkExpression(*value, scope);
  if (insert.query) checkQuery(*insert.query, nullptr, false);
  if (insert.query && !insert.hasColumns && hasStar(*insert.query)) takeTargetsByName(insert);
  const std::size_t count = insert.query ? insert.query->parts.front()->columns.size() : insert.values.size();
  if (count != insert.targets.size()) fail(ErrorNumber::SyntaxError, valueCountText());
}

void Checker::checkTargets(Insert& insert) {
  if (!insert.hasColumns)
    for (const Column& column : insert.target->columns) insert.targets.push_back(&column);
  for (const std::string_view name : insert.columns) addTarget(insert, name);
}

// What a star stands for goes into the columns of the same names, wherever they stand.
void Checker::takeTargetsByName(Insert& insert) {
  insert.targets.clear();
  for (const OutputColumn& output : insert.query->parts.front()->columns) addTarget(insert, output.name);
}

void Checker::checkBody(Update& update) {
  std::vector<const Source*> sources;
  collectSources(*update.table, sources);
  Scope scope{nullptr, &sources, nullptr, "expression"};
  for (Assignment& assignment : update.assignments) {
    checkExpression(*assignment.target, scope);
    checkExpression(*assignment.value, scope);
  }
  scope.refusesAggregatesIn = "WHERE clause";
  if (update.where) checkExpression(*update.where, scope);
}

void Checker::checkBody(Delete& remove) {
  std::vector<const Source*> sources;
  collectSources(*remove.table, sources);
  const bool isOther = !remove.qualifier.empty() && !sameName(remove.qualifier, sources.front()->name);
  if (isOther) fail(ErrorNumber::UnknownTable, unknownTableText(remove.qualifier));
  const Scope scope{nullptr, &sources, nullptr, "WHERE clause"};
  if (remove.where) checkExpression(*remove.where, scope);
}

}  // namespace tarvola::ado::sql
