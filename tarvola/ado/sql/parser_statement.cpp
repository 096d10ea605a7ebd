#include "tarvola/ado/sql/parser.h"
#include "tarvola/ado/sql/parser_scopes.h"

namespace tarvola::ado::sql {

Statement Parser::statement() {
  Statement made;
  if (isWord("SELECT")) {
    made.body = std::move(*query());
  } else if (takeWord("INSERT")) {
    made.body = insertStatement();
  } else if (takeWord("UPDATE")) {
    made.body = updateStatement();
  } else if (takeWord("DELETE")) {
    made.body = deleteStatement();
  } else {
    failSyntax(notAStatementText());
  }
  endOfStatement();
  made.reusable = reusable_;
  for (const Token& token : tokens_) {
    const bool isLiteral =
        token.kind == TokenKind::Text || token.kind == TokenKind::Number || token.kind == TokenKind::Date;
    if (isLiteral) ++made.literalCount;
  }
  return made;
}

void Parser::endOfStatement() {
  const bool closed = takeSign(";");
  if (peek().kind == TokenKind::End) return;
  failSyntax(closed ? textAfterStatementText() : incompleteClauseText());
}

Insert Parser::insertStatement() {
  Insert made;
  if (!takeWord("INTO") || !isName()) failSyntax(statementSyntaxText("INSERT INTO"));
  made.table = take().text;
  if (isSign("(") && !isWord("SELECT", 1)) insertColumns(made);
  if (takeWord("VALUES")) {
    insertValues(made);
  } else if (isWord("SELECT")) {
    made.query = query();
  } else if (isSign("(") && isWord("SELECT", 1)) {
    take();
    made.query = nestedQuery();
  } else {
    failSyntax(statementSyntaxText("INSERT INTO"));
  }
  if (peek().kind != TokenKind::End && !isSign(";")) failSyntax(statementSyntaxText("INSERT INTO"));
  return made;
}

void Parser::insertColumns(Insert& insert) {
  insert.hasColumns = true;
  take();
  do {
    if (!isName()) failSyntax(statementSyntaxText("INSERT INTO"));
    insert.columns.push_back(take().text);
  } while (takeSign(","));
  if (!takeSign(")")) failSyntax(statementSyntaxText("INSERT INTO"));
}

void Parser::insertValues(Insert& insert) {
  if (!takeSign("(")) failSyntax(statementSyntaxText("INSERT INTO"));
  do {
    const EchoScope scope(*this, Echo::Rest);
    const bool isQuery = isWord("SELECT") || (isSign("(") && isWord("SELECT", 1));
    const bool isMissing = isQuery || isSign(",") || isSign(")") || peek().kind == TokenKind::End;
    if (isMissing) failSyntax(statementSyntaxText("INSERT INTO"));
    insert.values.push_back(expression());
    if (peek().kind == TokenKind::End || isSign(";")) failSyntax(statementSyntaxText("INSERT INTO"));
    if (!isSign(",") && !isSign(")")) failAtToken();
  } while (takeSign(","));
  take();
}

Update Parser::updateStatement() {
  Update made;
  made.table = tableName(statementSyntaxText("UPDATE"));
  if (!takeWord("SET")) failSyntax(statementSyntaxText("UPDATE"));
  do made.assignments.push_back(assignment());
  while (takeSign(","));
  made.where = optionalWhere("UPDATE");
  return made;
}

Assignment Parser::assignment() {
  if (!isName()) failSyntax(statementSyntaxText("UPDATE"));
  Assignment made;
  made.target = name();
  const bool isTarget = made.target->kind == ExpressionKind::Name && takeSign("=");
  if (!isTarget) failSyntax(statementSyntaxText("UPDATE"));
  const bool isMissing = isSign(",") || isWord("WHERE") || peek().kind == TokenKind::End || isSign(";");
  if (isMissing) failSyntax(statementSyntaxText("UPDATE"));
  made.value = condition(Echo::Item, {",", "WHERE"});
  return made;
}

Delete Parser::deleteStatement() {
  Delete made;
  if (!takeSign("*") && !isWord("FROM")) {
    const bool isTableStar = isName() && isSign(".", 1) && isSign("*", 2);
    if (!isTableStar) failSyntax(statementSyntaxText("DELETE"));
    made.qualifier = take().text;
    at_ += 2;
  }
  if (!takeWord("FROM")) failSyntax(statementSyntaxText("DELETE"));
  made.table = tableName(clauseSyntaxText("FROM"));
  made.where = optionalWhere("DELETE");
  return made;
}

ExpressionPtr Parser::optionalWhere(std::string_view statement) {
  if (takeWord("WHERE")) return where({});
  if (peek().kind == TokenKind::End || isSign(";")) return nullptr;
  failSyntax(statement == "DELETE" ? clauseSyntaxText("FROM") : statementSyntaxText(statement));
}

}  // namespace tarvola::ado::sql
