#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/sql/ast.h"

namespace tarvola::ado::sql {

/// How tightly a construct of the engine binds, loosest first. One that binds looser than its place asks for is put in
/// parentheses.
enum class Level : std::uint8_t { Or, And, Not, Compare, Add, Multiply, Join, Sign, Whole };

/// What a SELECT is written for.
struct SelectUse {
  bool namesColumns = false;                 // others refer to its columns, so each gets its name
  bool comparesRows = false;                 // its rows are told apart from one another (UNION)
  bool isPart = false;                       // the whole union has the order, not the part
  bool withIdentity = false;                 // the identity of the row stands behind the columns
  std::span<const Column* const> targets{};  // columns that the results are put into
};

/// Puts a checked statement into an engine's words. One object writes one text.
///
/// No value ever becomes part of the text: where a literal stood the engine finds a "?".
class Writer {
 public:
  explicit Writer(const EngineDialect& dialect) : dialect_(dialect) {}

  EngineText write(const Insert& insert);
  EngineText write(const Update& update);
  EngineText write(const Delete& remove);
  /// All parts of a query as one text.
  EngineText write(const Query& query);
  /// One SELECT as a text of its own.
  EngineText write(const Select& select, const SelectUse& use);

 private:
  /// Restores how names are written when a SELECT is done, and fails before an engine's own stack runs out.
  class Nested;

  // --- writer.cpp: words, names, statements
  void put(std::string_view text) { out_.text += text; }
  void putName(std::string_view name);
  void putAs(std::string_view name);
  void putColumn(const Source* source, const Column& column);
  void putParameter(std::size_t literal, Conversion conversion);
  void putList(std::span<const Column* const> columns);
  void putWhere(const Expression* where);

  // --- writer_select.cpp
  void query(const Query& query, const SelectUse& use);
  void part(const Select& select, const SelectUse& use);
  void select(const Select& select, const SelectUse& use);
  void results(const Select& select, const SelectUse& use);
  void result(const Select& select, std::size_t place, const SelectUse& use);
  void resultName(const OutputColumn& output);
  void identity(const Select& select);
  void assignedResult(const OutputColumn& output, const Column& target);
  void fromClause(const Select& select);
  void fromItem(const FromItem& item, bool isWhole);
  void table(const FromItem& item);
  void grouping(const Select& select);
  void orderClause(const Select& select);
  void orderList(const Select& select);
  void sortKey(const Expression& expression);
  void unionOrder(const Query& query);

  // --- writer_special.cpp: SELECTs that the engine answers in another shape
  void topRows(const Select& select, const SelectUse& use);
  void rankedRows(const Select& select, const SelectUse& use);
  void rankedResults(const Select& select, const SelectUse& use);
  void rankingQuery(const Select& select, const SelectUse& use);
  bool fixedGroup(const Select& select, const SelectUse& use);

  // --- writer_expression.cpp
  void value(const Expression& expression, Level loosest);
  void condition(const Expression& expression, Level loosest);
  void node(const Expression& expression);
  void literal(const Expression& expression);
  void null(const Expression& expression);
  void truthValue(const Expression& expression);
  void name(const Expression& expression);
  void allRows(const Expression& expression);
  void negated(const Expression& expression);
  void negation(const Expression& expression);
  void isNull(const Expression& expression);
  void exists(const Expression& expression);
  void subquery(const Expression& expression);
  void onlyRow(const Query& asked);
  void chain(const Expression& expression);
  void conditions(const Expression& chain);
  void numbers(const Expression& chain);
  bool beginUnlessNull(const Expression& chain, std::size_t textPlace);
  void joinedTexts(const Expression& chain);
  void powers(const Expression& chain);
  void converted(const Expression& expression, ColumnType target, Level loosest);
  /// A value on its way into a column: converted to its type, and held against its width.
  void assignedValue(const Expression& expression, const Column& target);
  void assignedValue(const Expression& expression, ColumnType target);
  /// What is put between the two is held against the length of a text column that has one.
  void beginBounded(const Column& target);
  void endBounded(const Column& target);
  bool literalAs(const Expression& expression, ColumnType target);
  void call(const Expression& expression);
  void argument(const Expression& call, std::size_t place);
  [[nodiscard]] Level levelOf(const Expression& expression) const;

  // --- writer_comparison.cpp
  void comparison(const Expression& expression);
  void inList(const Expression& expression);
  void inQuery(const Expression& expression);
  void between(const Expression& expression);
  void like(const Expression& expression);
  /// An operand of a comparison, in the form in which it compares with the others.
  void compared(const Expression& operand, const Expression& whole);
  /// The first operand: texts that the engine would compare exactly get the rule that ignores case.
  void comparedFirst(const Expression& operand, const Expression& whole);
  /// A text that brings no rule of its own.
  void ruled(const Expression& operand);

  const EngineDialect& dialect_;
  EngineText out_;
  bool qualified_ = false;
  std::size_t depth_ = 0;
};

}  // namespace tarvola::ado::sql
