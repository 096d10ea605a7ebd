#include "tarvola/ado/sql/parser.h"
#include "tarvola/ado/sql/parser_scopes.h"

namespace tarvola::ado::sql {

// The opening parenthesis has been taken already.
QueryPtr Parser::nestedQuery() {
  const Nesting nesting(*this);
  const EchoScope scope(*this, Echo::Rest);
  ++openParentheses_;
  QueryPtr nested = query();
  --openParentheses_;
  closeParenthesis();
  return nested;
}

QueryPtr Parser::query() {
  auto made = std::make_unique<Query>();
  made->parts.push_back(select());
  while (takeWord("UNION")) {
    if (!takeWord("ALL")) made->distinctRows = true;
    if (!isWord("SELECT")) failSyntax(unionSyntaxText());
    if (made->parts.size() == longestChain) failTooComplex();
    made->parts.push_back(select());
  }
  return made;
}

std::unique_ptr<Select> Parser::select() {
  auto made = std::make_unique<Select>();
  takeWord("SELECT");
  selectOptions(*made);
  do made->items.push_back(selectItem());
  while (takeSign(","));
  if (takeWord("FROM")) made->from = fromList();
  if (takeWord("WHERE")) made->where = where({"GROUP", "HAVING", "ORDER", "UNION"});
  groupBy(*made);
  orderBy(*made);
  return made;
}

void Parser::selectOptions(Select& select) {
  if (takeWord("DISTINCT") || takeWord("DISTINCTROW")) {
    select.distinct = true;
  } else {
    takeWord("ALL");
  }
  const bool isTop = isWord("TOP") && peek(1).kind == TokenKind::Number;
  if (isTop) select.top = top();
}

// The last rows that tie are always kept, so WITH TIES says nothing new.
Top Parser::top() {
  take();
  const Token& count = take();
  if (count.text.find_first_not_of("0123456789") != std::string_view::npos) failSyntax(selectSyntaxText());
  const Top made{count.literal, takeWord("PERCENT")};
  if (isWord("WITH") && isWord("TIES", 1)) at_ += 2;
  reusable_ = false;
  return made;
}

SelectItem Parser::selectItem() {
  if (takeSign("*")) return {};
  const bool isTableStar = isName() && (isSign(".", 1) || isSign("!", 1)) && isSign("*", 2);
  if (isTableStar) {
    const std::string_view table = take().text;
    at_ += 2;
    return {nullptr, table, {}};
  }
  const bool isMissing = isSign(",") || isWord("FROM") || peek().kind == TokenKind::End || isSign(";");
  if (isMissing) failSyntax(selectSyntaxText());
  const EchoScope scope(*this, Echo::Item);
  SelectItem item{expression(), {}, {}};
  requireFollower({",", "FROM", "AS", "UNION", "WHERE", "GROUP", "ORDER", "HAVING"});
  if (takeWord("AS")) item.alias = itemAlias();
  requireFollower({",", "FROM", "UNION", "WHERE", "GROUP", "ORDER", "HAVING"});
  return item;
}

std::string_view Parser::itemAlias() {
  const bool refused = !isName() || (peek().kind == TokenKind::Word && isRefusedAlias(peek().text));
  if (refused) failSyntax(selectSyntaxText());
  return take().text;
}

std::vector<std::unique_ptr<FromItem>> Parser::fromList() {
  std::vector<std::unique_ptr<FromItem>> items;
  do items.push_back(joined());
  while (takeSign(","));
  const bool isOver = peek().kind == TokenKind::End || isSign(";") || closesNested(peek()) || isWord("WHERE") ||
                      isWord("GROUP") || isWord("HAVING") || isWord("ORDER") || isWord("UNION");
  if (!isOver) failSyntax(clauseSyntaxText("FROM"));
  return items;
}

// Two tables are joined at a time: a further join needs parentheses around the first.
std::unique_ptr<FromItem> Parser::joined() {
  std::unique_ptr<FromItem> left = tableOrQuery();
  const std::optional<JoinKind> kind = joinWords();
  return kind ? joinWith(std::move(left), *kind) : std::move(left);
}

std::optional<JoinKind> Parser::joinWords() {
  std::optional<JoinKind> kind;
  if (isWord("INNER")) kind = JoinKind::Inner;
  if (isWord("LEFT")) kind = JoinKind::Left;
  if (isWord("RIGHT")) kind = JoinKind::Right;
  if (!kind) return kind;
  take();
  if (*kind != JoinKind::Inner) takeWord("OUTER");
  if (!takeWord("JOIN")) failSyntax(clauseSyntaxText("FROM"));
  return kind;
}

std::unique_ptr<FromItem> Parser::joinWith(std::unique_ptr<FromItem> left, JoinKind kind) {
  auto made = std::make_unique<FromItem>();
  made->join = kind;
  made->left = std::move(left);
  made->right = tableOrQuery();
  if (!takeWord("ON") || peek().kind == TokenKind::End) failSyntax(joinSyntaxText());
  made->on = condition(Echo::Item, {",", "WHERE", "GROUP", "HAVING", "ORDER", "UNION"});
  return made;
}

std::unique_ptr<FromItem> Parser::tableOrQuery() {
  if (isSign("(")) return inParentheses();
  if (isSign("[")) return inBrackets();
  return tableName(clauseSyntaxText("FROM"));
}

std::unique_ptr<FromItem> Parser::inParentheses() {
  const Nesting nesting(*this);
  take();
  if (isWord("SELECT")) {
    auto made = std::make_unique<FromItem>();
    made->query = nestedQuery();
    made->alias = tableAlias();
    return made;
  }
  ++openParentheses_;
  std::unique_ptr<FromItem> made = joined();
  --openParentheses_;
  if (!takeSign(")")) failSyntax(joinSyntaxText());
  return made;
}

// [SELECT ...]. AS a: what was written before a query could stand in parentheses.
std::unique_ptr<FromItem> Parser::inBrackets() {
  const Nesting nesting(*this);
  take();
  auto made = std::make_unique<FromItem>();
  ++openParentheses_;
  made->query = query();
  --openParentheses_;
  if (!takeSign("]") || !takeSign(".")) failSyntax(clauseSyntaxText("FROM"));
  made->alias = tableAlias();
  return made;
}

std::unique_ptr<FromItem> Parser::tableName(const std::string& error) {
  if (!isName()) failSyntax(error);
  auto made = std::make_unique<FromItem>();
  made->table = take().text;
  made->alias = tableAlias();
  return made;
}

std::string_view Parser::tableAlias() {
  const bool named = takeWord("AS");
  if (named && !isName()) failSyntax(clauseSyntaxText("FROM"));
  return isName() ? take().text : std::string_view{};
}

ExpressionPtr Parser::where(std::initializer_list<std::string_view> followers) {
  if (peek().kind == TokenKind::End || isSign(";")) failSyntax(clauseSyntaxText("WHERE"));
  return condition(Echo::Condition, followers);
}

ExpressionPtr Parser::condition(Echo shown, std::initializer_list<std::string_view> followers) {
  const EchoScope scope(*this, shown);
  ExpressionPtr made = expression();
  requireFollower(followers);
  return made;
}

void Parser::groupBy(Select& select) {
  if (takeWord("GROUP")) {
    if (!takeWord("BY") || peek().kind == TokenKind::End) failSyntax(clauseSyntaxText("GROUP BY"));
    do select.groupBy.push_back(condition(Echo::Item, {",", "HAVING", "ORDER", "UNION"}));
    while (takeSign(","));
  }
  if (!takeWord("HAVING")) return;
  if (peek().kind == TokenKind::End) failSyntax(clauseSyntaxText("HAVING"));
  select.having = condition(Echo::Condition, {"ORDER", "UNION"});
}

void Parser::orderBy(Select& select) {
  if (!takeWord("ORDER")) return;
  if (!takeWord("BY") || peek().kind == TokenKind::End) failSyntax(clauseSyntaxText("ORDER BY"));
  do {
    const EchoScope scope(*this, Echo::Item);
    OrderItem item{expression(), false, 0};
    requireFollower({",", "ASC", "DESC", "UNION"});
    item.descending = takeWord("DESC");
    if (!item.descending) takeWord("ASC");
    requireFollower({",", "UNION"});
    select.orderBy.push_back(std::move(item));
  } while (takeSign(","));
}

}  // namespace tarvola::ado::sql
