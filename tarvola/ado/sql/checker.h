#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/sql/ast.h"

namespace tarvola::ado::sql {

/// The tables among which a name is looked up: those of a SELECT, then those of the statement around it.
struct Scope {
  const Scope* outer = nullptr;
  const std::vector<const Source*>* sources = nullptr;
  Select* select = nullptr;
  std::string_view refusesAggregatesIn;  // "" where they are welcome
};

/// Looks up the names of a statement in the store's tables and checks that the types of its values go together.
///
/// Faults are told in the platform's order: tables that do not exist, then functions and fields that can mean nothing
/// or two things, then the number of values, then names that nobody knows (they count as parameters without a value),
/// and types that clash last.
class Checker {
 public:
  explicit Checker(const Catalog& catalog) : catalog_(catalog) {}

  void check(Statement& statement);

 private:
  // --- check_statement.cpp
  void checkBody(Query& query);
  void checkBody(Insert& insert);
  void checkBody(Update& update);
  void checkBody(Delete& remove);
  static void checkTargets(Insert& insert);
  static void takeTargetsByName(Insert& insert);
  const Table& tableNamed(std::string_view name) const;
  [[noreturn]] void failOnNamesOrTypes() const;

  // --- check_select.cpp
  void checkQuery(Query& query, const Scope* outer, bool isWholeStatement);
  void checkUnion(Query& query);
  void checkSelect(Select& select, const Scope* outer, bool ownOrder);
  void checkItems(Select& select, const Scope& scope);
  void addStar(Select& select, std::string_view qualifier);
  void addItem(Select& select, SelectItem& item);
  void checkOrder(Select& select, const Scope& scope);
  void checkPosition(Select& select, OrderItem& item);
  void orderUnion(Query& query);
  void collectSources(FromItem& item, std::vector<const Source*>& sources);
  void checkJoins(FromItem& item, const Scope& scope);

  // --- check_grouping.cpp
  void checkGrouping(Select& select);
  void requireGrouped(const Select& select, const Expression& expression);
  [[nodiscard]] bool isGrouped(const Select& select, const Column* column, const Source* source) const;
  bool sameExpression(const Expression& left, const Expression& right);

  // --- check_expression.cpp
  void checkExpression(Expression& expression, const Scope& scope);
  void checkLiteral(Expression& expression) const;
  void checkName(Expression& expression, const Scope& scope);
  bool findName(Expression& expression, const Scope& scope) const;
  static void checkChain(Expression& expression);
  void checkComparison(Expression& expression);
  bool isPeriod(Expression& expression) const;
  void checkOperandsAgree(const Expression& expression);
  void checkCall(Expression& expression, const Scope& scope);
  void checkArguments(const Expression& expression);
  void setResultType(Expression& call) const;
  void checkSubquery(Expression& expression, const Scope& scope);
  void noteUnknown(const Expression& expression);

  const Catalog& catalog_;
  std::vector<std::string> unknownNames_;
  bool typesClash_ = false;
  bool reusable_ = true;
  std::size_t unnamedQueries_ = 0;
};

/// The columns that a query delivers: names of its first part, types that hold for all parts.
std::vector<Column> columnsOf(const Query& query);

}  // namespace tarvola::ado::sql
