#include "tarvola/ado/sql/parser.h"

#include <algorithm>
#include <array>

#include "tarvola/ado/sql/parser_scopes.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::sql {
namespace {

constexpr auto reservedWords = std::to_array<std::string_view>({
    "ALL",         "AND",    "AS",     "ASC",   "BETWEEN", "BY",     "DELETE", "DESC",   "DISTINCT",
    "DISTINCTROW", "EXISTS", "FROM",   "GROUP", "HAVING",  "IN",     "INNER",  "INSERT", "INTO",
    "IS",          "JOIN",   "LEFT",   "LIKE",  "MOD",     "NOT",    "NULL",   "ON",     "OR",
    "ORDER",       "RIGHT",  "SELECT", "SET",   "UNION",   "UPDATE", "VALUES", "WHERE",
});

// They may name a column, but not a result.
constexpr auto refusedAliases = std::to_array<std::string_view>({"ACTION", "DATE", "LEVEL", "MONEY", "VALUE"});

// The words that begin the next clause, so that what came before them is over.
constexpr auto clauseWords = std::to_array<std::string_view>({"FROM", "WHERE", "GROUP", "HAVING", "ORDER", "UNION"});

bool isAmong(std::string_view word, std::span<const std::string_view> words) {
  return std::ranges::any_of(words, [word](std::string_view other) { return sameName(word, other); });
}

}  // namespace

bool sameName(std::string_view left, std::string_view right) noexcept {
  return left.size() == right.size() && equalsIgnoreCase(left, right);
}

bool isReserved(std::string_view word) noexcept { return isAmong(word, reservedWords); }
bool isRefusedAlias(std::string_view word) noexcept { return isAmong(word, refusedAliases); }

Statement parse(std::string_view statement) { return Parser(statement).statement(); }

void failToRead(std::string_view statement) {
  parse(statement);
  failSyntax(incompleteClauseText());
}

Parser::Parser(std::string_view statement) : statement_(statement), tokens_(tokenize(statement)) {}

const Token& Parser::peek(std::size_t ahead) const { return tokens_[std::min(at_ + ahead, tokens_.size() - 1)]; }

const Token& Parser::take() {
  const Token& token = peek();
  if (token.kind != TokenKind::End) ++at_;
  return token;
}

bool Parser::isWord(std::string_view word, std::size_t ahead) const {
  return peek(ahead).kind == TokenKind::Word && sameName(peek(ahead).text, word);
}

bool Parser::isSign(std::string_view sign, std::size_t ahead) const {
  return peek(ahead).kind == TokenKind::Sign && peek(ahead).text == sign;
}

bool Parser::takeWord(std::string_view word) {
  if (!isWord(word)) return false;
  take();
  return true;
}

bool Parser::takeSign(std::string_view sign) {
  if (!isSign(sign)) return false;
  take();
  return true;
}

bool Parser::isName(std::size_t ahead) const {
  const Token& token = peek(ahead);
  return token.kind == TokenKind::Name || (token.kind == TokenKind::Word && !isReserved(token.text));
}

bool Parser::closesNested(const Token& token) const {
  return openParentheses_ != 0 && token.kind == TokenKind::Sign && (token.text == ")" || token.text == "]");
}

std::string_view Parser::sourceFrom(std::size_t token) const {
  const char* first = tokens_[token].source.data();
  const std::string_view last = token < at_ ? tokens_[at_ - 1].source : tokens_[token].source.substr(0, 0);
  return {first, static_cast<std::size_t>(last.data() + last.size() - first)};
}

bool Parser::endsEcho(const Token& token, std::size_t depth) const {
  if (token.kind == TokenKind::End || (token.kind == TokenKind::Sign && token.text == ";")) return true;
  if (echo_ == Echo::Rest || depth != 0) return false;
  if (token.kind == TokenKind::Word) return isAmong(token.text, clauseWords);
  return closesNested(token) || (token.kind == TokenKind::Sign && token.text == "," && echo_ == Echo::Item);
}

std::string_view Parser::echo() const {
  std::size_t depth = 0;
  std::size_t last = echoFrom_;
  for (; !endsEcho(tokens_[last], depth); ++last) {
    if (tokens_[last].source == "(") ++depth;
    if (tokens_[last].source == ")" && depth != 0) --depth;
  }
  const char* first = tokens_[echoFrom_].source.data();
  if (last == echoFrom_) return tokens_[echoFrom_].source.substr(0, 0);
  const std::string_view end = tokens_[last - 1].source;
  return {first, static_cast<std::size_t>(end.data() + end.size() - first)};
}

void Parser::requireFollower(std::initializer_list<std::string_view> followers) {
  if (peek().kind == TokenKind::End || isSign(";")) return;
  if (closesNested(peek())) return;
  const bool follows =
      std::ranges::any_of(followers, [this](std::string_view next) { return isSign(next) || isWord(next); });
  if (!follows) failAtToken();
}

void Parser::failAtToken() {
  switch (peek().kind) {
    case TokenKind::OpenText:
      failSyntax(openQuoteText(echo()));
    case TokenKind::OpenDate:
      failSyntax(badDateLiteralText(echo()));
    case TokenKind::OpenName:
      failSyntax(missingParenthesisText(echo()));
    default:
      failSyntax(isSign(")") ? extraParenthesisText(echo()) : missingOperatorText(echo()));
  }
}

}  // namespace tarvola::ado::sql
