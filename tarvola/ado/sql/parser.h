#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/sql/ast.h"
#include "tarvola/ado/sql/tokenizer.h"

namespace tarvola::ado::sql {

/// Reads the grammar of a statement; looks up neither tables nor columns. Fails with the dialect's syntax errors.
Statement parse(std::string_view statement);

/// Fails with what the grammar has to say about a statement whose literals cannot be taken apart. An open quote may
/// lie behind an earlier fault, and then the earlier one is told: 'O'Brien' lacks an operator behind 'O'.
[[noreturn]] void failToRead(std::string_view statement);

/// How much of the statement an error shows.
enum class Echo : std::uint8_t {
  Condition,  // the whole condition
  Item,       // one item of a list
  Rest,       // the item and all that follows
};

/// A recursive-descent reader of the dialect. One object reads one statement.
class Parser {
 public:
  explicit Parser(std::string_view statement);

  Statement statement();

 private:
  /// Counts how deep the reader stands in nested constructs, and fails before the stack runs out.
  class Nesting;
  /// Marks what an error inside the scope shows, and where it begins.
  class EchoScope;

  // --- parser.cpp: tokens and errors
  [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
  const Token& take();
  [[nodiscard]] bool isWord(std::string_view word, std::size_t ahead = 0) const;
  [[nodiscard]] bool isSign(std::string_view sign, std::size_t ahead = 0) const;
  bool takeWord(std::string_view word);
  bool takeSign(std::string_view sign);
  [[nodiscard]] bool isName(std::size_t ahead = 0) const;
  /// Whether a nested query or join ends here.
  [[nodiscard]] bool closesNested(const Token& token) const;
  [[nodiscard]] std::string_view sourceFrom(std::size_t token) const;
  [[nodiscard]] std::string_view echo() const;
  [[nodiscard]] bool endsEcho(const Token& token, std::size_t depth) const;
  /// Fails if the expression just read is followed by anything but the end of its clause, one of the signs or words.
  void requireFollower(std::initializer_list<std::string_view> followers);
  [[noreturn]] void failAtToken();

  // --- parser_statement.cpp
  Insert insertStatement();
  void insertColumns(Insert& insert);
  void insertValues(Insert& insert);
  Update updateStatement();
  Assignment assignment();
  Delete deleteStatement();
  ExpressionPtr optionalWhere(std::string_view statement);
  void endOfStatement();

  // --- parser_select.cpp
  QueryPtr query();
  std::unique_ptr<Select> select();
  void selectOptions(Select& select);
  Top top();
  SelectItem selectItem();
  std::string_view itemAlias();
  std::vector<std::unique_ptr<FromItem>> fromList();
  std::unique_ptr<FromItem> joined();
  std::unique_ptr<FromItem> joinWith(std::unique_ptr<FromItem> left, JoinKind kind);
  std::unique_ptr<FromItem> tableOrQuery();
  std::unique_ptr<FromItem> inParentheses();
  std::unique_ptr<FromItem> inBrackets();
  std::unique_ptr<FromItem> tableName(const std::string& error);
  std::string_view tableAlias();
  std::optional<JoinKind> joinWords();
  ExpressionPtr where(std::initializer_list<std::string_view> followers);
  ExpressionPtr condition(Echo shown, std::initializer_list<std::string_view> followers);
  void groupBy(Select& select);
  void orderBy(Select& select);
  QueryPtr nestedQuery();

  // --- parser_expression.cpp
  ExpressionPtr expression();
  ExpressionPtr chainOf(Operator op, ExpressionPtr (Parser::*operand)());
  ExpressionPtr conjunction();
  ExpressionPtr negation();
  ExpressionPtr predicate();
  bool continuePredicate(ExpressionPtr& left);
  ExpressionPtr comparisonWith(ExpressionKind kind, ExpressionPtr left);
  ExpressionPtr nullPredicate(ExpressionPtr operand);
  ExpressionPtr inPredicate(ExpressionPtr left);
  ExpressionPtr betweenPredicate(ExpressionPtr left);
  ExpressionPtr arithmetic(Binding loosest);
  ExpressionPtr negatedOperand();
  ExpressionPtr primary();
  ExpressionPtr literal();
  ExpressionPtr escapedDate();
  ExpressionPtr parenthesised();
  ExpressionPtr name();
  ExpressionPtr truthValue();
  ExpressionPtr exists();
  ExpressionPtr call();
  void callArguments(Expression& call);
  void closeParenthesis();
  [[nodiscard]] const OperatorRow* operatorHere() const;
  ExpressionPtr node(ExpressionKind kind, std::size_t firstToken);
  void finish(Expression& expression, std::size_t firstToken) const;

  std::string_view statement_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  std::size_t depth_ = 0;
  std::size_t openParentheses_ = 0;  // around a nested query or a join, which may follow any clause
  Echo echo_ = Echo::Rest;
  std::size_t echoFrom_ = 0;
  bool reusable_ = true;
};

/// Whether the word belongs to the language, so that it cannot stand as a bare name.
bool isReserved(std::string_view word) noexcept;
/// Whether the word is refused as a bare name of a result column.
bool isRefusedAlias(std::string_view word) noexcept;

/// Whether two words or names are the same, without regard to case.
bool sameName(std::string_view left, std::string_view right) noexcept;

}  // namespace tarvola::ado::sql
