#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tarvola/ado/sql/compile.h"
#include "tarvola/ado/sql/operators.h"
#include "tarvola/ado/sql/types.h"

// A statement as the grammar sees it. The parser fills the upper part of each node; what stands behind "found by the
// checker" is filled when names and types are looked up.

namespace tarvola::ado::sql {

struct Query;
struct Source;
struct FunctionRow;
struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;
using QueryPtr = std::unique_ptr<Query>;

enum class ExpressionKind : std::uint8_t {
  Literal,
  Null,
  Boolean,     // True, False
  Name,        // c, t.c
  AllRows,     // the * of COUNT(*)
  Negate,      // -a
  Not,         // NOT a
  Chain,       // a + b - c, a AND b AND c: operands of one binding, from left to right
  Comparison,  // a = b
  InList,      // a IN (b, c)
  InQuery,     // a IN (SELECT ...)
  Between,     // a BETWEEN b AND c
  Like,        // a LIKE b
  IsNull,      // a IS NULL
  Exists,      // EXISTS (SELECT ...)
  Subquery,    // (SELECT ...)
  Call,        // f(a, b); aggregates too
};

struct Expression {
  ExpressionKind kind;
  std::string_view source;  // as it stands in the statement

  std::vector<ExpressionPtr> operands;
  std::vector<Operator> operators;  // of a chain one between each two operands, of a comparison its own
  bool negated = false;             // NOT IN, NOT BETWEEN, NOT LIKE, IS NOT NULL; of a Boolean: False
  Literal literal{};
  std::size_t literalPlace = 0;  // among the literals of the statement
  std::string_view qualifier;    // the t of t.c
  std::string_view name;         // of a name or a call
  QueryPtr query;

  // Found by the checker.
  const Source* table = nullptr;   // of a name: where it was found
  const Column* column = nullptr;  // and which column it is
  const Column* year = nullptr;    // of a comparison of a period with its text: the column of the year
  const FunctionRow* function = nullptr;
  Family family = Family::Any;
  ColumnType type = ColumnType::Any;
};

struct SelectItem {
  ExpressionPtr expression;    // nullptr for * and t.*
  std::string_view qualifier;  // the t of t.*
  std::string_view alias;
};

struct OrderItem {
  ExpressionPtr expression;
  bool descending = false;
  std::size_t position = 0;  // found by the checker: counted from 1, 0 if the item is no position
};

enum class JoinKind : std::uint8_t { Inner, Left, Right };

/// What stands in FROM: a table, a query in parentheses, or two of them joined.
struct FromItem {
  std::string_view table;
  std::string_view alias;
  QueryPtr query;
  std::unique_ptr<FromItem> left;
  std::unique_ptr<FromItem> right;
  JoinKind join = JoinKind::Inner;
  ExpressionPtr on;

  std::unique_ptr<Source> source;  // found by the checker, of a table or a query
};

/// A table or a query of FROM, under the name by which its columns are reached.
struct Source {
  std::string name;
  const Table* table = nullptr;  // nullptr for a query
  std::vector<Column> columns;   // of a query

  [[nodiscard]] const std::vector<Column>& allColumns() const { return table != nullptr ? table->columns : columns; }
};

/// A column that a SELECT delivers.
struct OutputColumn {
  std::string name;
  ColumnType type = ColumnType::Any;
  Expression* expression = nullptr;  // nullptr for a column that a star stands for
  const Source* source = nullptr;    // of a plain column, named or starred
  const Column* column = nullptr;
  bool aliased = false;  // named by an AS
};

struct Top {
  std::size_t literalPlace = 0;
  bool percent = false;
};

struct Select {
  bool distinct = false;
  std::optional<Top> top;
  std::vector<SelectItem> items;
  std::vector<std::unique_ptr<FromItem>> from;
  ExpressionPtr where;
  std::vector<ExpressionPtr> groupBy;
  ExpressionPtr having;
  std::vector<OrderItem> orderBy;

  // Found by the checker.
  std::vector<const Source*> sources;
  std::vector<OutputColumn> columns;
  bool aggregated = false;  // has GROUP BY, HAVING or an aggregate
  bool onlyHaving = false;  // HAVING alone, with neither GROUP BY nor an aggregate
  bool qualified = false;   // whether names are written with their table in front
};

/// One SELECT, or several joined by UNION. The ORDER BY of a union stands in its last part.
struct Query {
  std::vector<std::unique_ptr<Select>> parts;
  bool distinctRows = false;    // one UNION without ALL makes the whole distinct
  bool orderedAsWhole = false;  // found by the checker: the last ORDER BY sorts all parts together
};

struct Insert {
  std::string_view table;
  bool hasColumns = false;
  std::vector<std::string_view> columns;
  std::vector<ExpressionPtr> values;
  QueryPtr query;

  const Table* target = nullptr;  // found by the checker
  std::vector<const Column*> targets;
};

struct Assignment {
  ExpressionPtr target;
  ExpressionPtr value;
};

struct Update {
  std::unique_ptr<FromItem> table;
  std::vector<Assignment> assignments;
  ExpressionPtr where;
};

struct Delete {
  std::string_view qualifier;  // the t of DELETE t.*
  std::unique_ptr<FromItem> table;
  ExpressionPtr where;
};

struct Statement {
  std::variant<Query, Insert, Update, Delete> body;
  std::size_t literalCount = 0;
  bool reusable = true;
};

}  // namespace tarvola::ado::sql
