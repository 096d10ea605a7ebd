#include <algorithm>

#include "tarvola/ado/sql/parser.h"
#include "tarvola/ado/sql/parser_scopes.h"
#include "tarvola/ado/sql/scan.h"

namespace tarvola::ado::sql {
namespace {

constexpr Binding tighter(Binding binding) { return static_cast<Binding>(static_cast<std::uint8_t>(binding) + 1); }

/// Adds an operand to a chain of the same binding, or makes a chain of two.
void lengthen(ExpressionPtr& chain, Operator op, ExpressionPtr operand) {
  const bool continues =
      chain->kind == ExpressionKind::Chain && rowOf(chain->operators.front()).binding == rowOf(op).binding;
  if (!continues) {
    auto longer = std::make_unique<Expression>();
    longer->kind = ExpressionKind::Chain;
    longer->operands.push_back(std::move(chain));
    chain = std::move(longer);
  }
  if (chain->operands.size() == longestChain) failTooComplex();
  chain->operators.push_back(op);
  chain->operands.push_back(std::move(operand));
}

}  // namespace

ExpressionPtr Parser::node(ExpressionKind kind, std::size_t firstToken) {
  auto made = std::make_unique<Expression>();
  made->kind = kind;
  finish(*made, firstToken);
  return made;
}

void Parser::finish(Expression& expression, std::size_t firstToken) const {
  expression.source = sourceFrom(firstToken);
}

ExpressionPtr Parser::expression() {
  const Nesting nesting(*this);
  return chainOf(Operator::Or, &Parser::conjunction);
}

ExpressionPtr Parser::conjunction() { return chainOf(Operator::And, &Parser::negation); }

ExpressionPtr Parser::chainOf(Operator op, ExpressionPtr (Parser::*operand)()) {
  const std::size_t first = at_;
  ExpressionPtr left = (this->*operand)();
  while (takeWord(rowOf(op).spelling)) {
    lengthen(left, op, (this->*operand)());
    finish(*left, first);
  }
  return left;
}

ExpressionPtr Parser::negation() {
  if (!isWord("NOT")) return predicate();
  const Nesting nesting(*this);
  const std::size_t first = at_;
  take();
  ExpressionPtr operand = negation();
  ExpressionPtr made = node(ExpressionKind::Not, first);
  made->operands.push_back(std::move(operand));
  return made;
}

ExpressionPtr Parser::predicate() {
  const std::size_t first = at_;
  ExpressionPtr left = arithmetic(Binding::Join);
  for (std::size_t count = 0; continuePredicate(left); ++count) {
    if (count == deepestNesting) failTooComplex();
    finish(*left, first);
  }
  return left;
}

bool Parser::continuePredicate(ExpressionPtr& left) {
  const bool negated = isWord("NOT") && (isWord("IN", 1) || isWord("BETWEEN", 1) || isWord("LIKE", 1));
  if (negated) take();
  const OperatorRow* row = operatorHere();
  if (takeWord("IN")) {
    left = inPredicate(std::move(left));
  } else if (takeWord("BETWEEN")) {
    left = betweenPredicate(std::move(left));
  } else if (takeWord("LIKE")) {
    left = comparisonWith(ExpressionKind::Like, std::move(left));
  } else if (takeWord("IS")) {
    left = nullPredicate(std::move(left));
  } else if (row != nullptr && row->binding == Binding::Compare) {
    take();
    left = comparisonWith(ExpressionKind::Comparison, std::move(left));
    left->operators.push_back(row->op);
  } else {
    return false;
  }
  left->negated |= negated;
  return true;
}

ExpressionPtr Parser::comparisonWith(ExpressionKind kind, ExpressionPtr left) {
  ExpressionPtr made = node(kind, at_);
  made->operands.push_back(std::move(left));
  made->operands.push_back(arithmetic(Binding::Join));
  return made;
}

ExpressionPtr Parser::nullPredicate(ExpressionPtr operand) {
  ExpressionPtr made = node(ExpressionKind::IsNull, at_);
  made->negated = takeWord("NOT");
  if (!takeWord("NULL")) failAtToken();
  made->operands.push_back(std::move(operand));
  return made;
}

ExpressionPtr Parser::inPredicate(ExpressionPtr left) {
  if (!takeSign("(")) failAtToken();
  ExpressionPtr made = node(isWord("SELECT") ? ExpressionKind::InQuery : ExpressionKind::InList, at_);
  made->operands.push_back(std::move(left));
  if (made->kind == ExpressionKind::InQuery) {
    made->query = nestedQuery();
    return made;
  }
  do made->operands.push_back(expression());
  while (takeSign(","));
  closeParenthesis();
  return made;
}

ExpressionPtr Parser::betweenPredicate(ExpressionPtr left) {
  ExpressionPtr made = node(ExpressionKind::Between, at_);
  made->operands.push_back(std::move(left));
  made->operands.push_back(arithmetic(Binding::Join));
  if (!takeWord("AND")) failAtToken();
  made->operands.push_back(arithmetic(Binding::Join));
  return made;
}

const OperatorRow* Parser::operatorHere() const {
  if (peek().kind != TokenKind::Sign && !isWord("MOD")) return nullptr;
  const auto found = std::ranges::find_if(
      operatorRows, [this](const OperatorRow& row) { return sameName(row.spelling, peek().text); });
  return found == operatorRows.end() ? nullptr : &*found;
}

ExpressionPtr Parser::arithmetic(Binding loosest) {
  const std::size_t first = at_;
  ExpressionPtr left = isSign("-") || isSign("+") ? negatedOperand() : primary();
  for (const OperatorRow* row = operatorHere(); row != nullptr && row->binding >= loosest; row = operatorHere()) {
    const Nesting nesting(*this);
    take();
    lengthen(left, row->op, arithmetic(tighter(row->binding)));
    finish(*left, first);
  }
  return left;
}

ExpressionPtr Parser::negatedOperand() {
  const Nesting nesting(*this);
  const std::size_t first = at_;
  const bool negative = take().text == "-";
  // A power binds tighter than the sign before it: -2^2 is -4.
  ExpressionPtr operand = arithmetic(Binding::Power);
  if (!negative) return operand;
  ExpressionPtr made = node(ExpressionKind::Negate, first);
  made->operands.push_back(std::move(operand));
  return made;
}

ExpressionPtr Parser::primary() {
  switch (peek().kind) {
    case TokenKind::Text:
    case TokenKind::Number:
    case TokenKind::Date:
      return literal();
    case TokenKind::Sign:
      return isSign("(") ? parenthesised() : isSign("{") ? escapedDate() : name();
    default:
      return name();
  }
}

ExpressionPtr Parser::literal() {
  const std::size_t first = at_;
  const Token& token = take();
  ExpressionPtr made = node(ExpressionKind::Literal, first);
  const LiteralKind kind = token.kind == TokenKind::Text     ? LiteralKind::Text
                           : token.kind == TokenKind::Number ? LiteralKind::Number
                                                             : LiteralKind::Date;
  made->literal = {kind, token.text};
  made->literalPlace = token.literal;
  return made;
}

// {d '2009-01-31'} and {ts '2009-01-31 13:45:00'}: the way of the driver to write a date.
ExpressionPtr Parser::escapedDate() {
  const std::size_t first = at_;
  take();
  if (!takeWord("d") && !takeWord("ts")) failAtToken();
  if (peek().kind != TokenKind::Text) failAtToken();
  ExpressionPtr made = literal();
  if (!takeSign("}")) failAtToken();
  made->literal.kind = LiteralKind::Date;
  finish(*made, first);
  return made;
}

ExpressionPtr Parser::parenthesised() {
  const std::size_t first = at_;
  take();
  ExpressionPtr made;
  if (isWord("SELECT")) {
    made = node(ExpressionKind::Subquery, first);
    made->query = nestedQuery();
  } else {
    made = expression();
    closeParenthesis();
  }
  finish(*made, first);
  return made;
}

void Parser::closeParenthesis() {
  if (takeSign(")")) return;
  const bool over =
      peek().kind == TokenKind::End || isSign(";") || isSign("]") || (peek().kind == TokenKind::Word && !isName());
  if (over) failSyntax(missingParenthesisText(echo()));
  failAtToken();
}

ExpressionPtr Parser::name() {
  // Three words of the language are names of functions too.
  const bool isFunction = isSign("(", 1) && (isName() || isWord("LEFT") || isWord("RIGHT") || isWord("ASC"));
  if (isFunction) return call();
  if (isWord("EXISTS")) return exists();
  const std::size_t first = at_;
  if (takeWord("NULL")) return node(ExpressionKind::Null, first);
  // The driver's mark for a parameter: a value that nobody gives.
  if (takeSign("?")) return node(ExpressionKind::Name, first);
  if (!isName()) failAtToken();
  if (isWord("TRUE") || isWord("FALSE")) return truthValue();
  std::string_view word = take().text;
  std::string_view qualifier;
  if ((isSign(".") || isSign("!")) && isName(1)) {
    take();
    qualifier = word;
    word = take().text;
  }
  ExpressionPtr made = node(ExpressionKind::Name, first);
  made->qualifier = qualifier;
  made->name = word;
  return made;
}

ExpressionPtr Parser::truthValue() {
  const std::size_t first = at_;
  const bool isFalse = sameName(take().text, "FALSE");
  ExpressionPtr made = node(ExpressionKind::Boolean, first);
  made->negated = isFalse;
  return made;
}

ExpressionPtr Parser::exists() {
  const std::size_t first = at_;
  take();
  if (!takeSign("(") || !isWord("SELECT")) failAtToken();
  ExpressionPtr made = node(ExpressionKind::Exists, first);
  made->query = nestedQuery();
  finish(*made, first);
  return made;
}

ExpressionPtr Parser::call() {
  const Nesting nesting(*this);
  const std::size_t first = at_;
  ExpressionPtr made = node(ExpressionKind::Call, first);
  made->name = take().text;
  take();
  if (!takeSign(")")) callArguments(*made);
  finish(*made, first);
  return made;
}

void Parser::callArguments(Expression& call) {
  if (isSign("*") && isSign(")", 1)) {
    call.operands.push_back(node(ExpressionKind::AllRows, at_));
    take();
  } else {
    do call.operands.push_back(expression());
    while (takeSign(","));
  }
  closeParenthesis();
}

}  // namespace tarvola::ado::sql
