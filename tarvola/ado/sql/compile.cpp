#include "tarvola/ado/sql/compile.h"

#include "tarvola/ado/sql/checker.h"
#include "tarvola/ado/sql/parser.h"
#include "tarvola/ado/sql/writer.h"

namespace tarvola::ado::sql {
namespace {

/// The table that the rows of a query lie in: one table, and each row of the result one row of it.
BaseTable baseOf(const Query& query) {
  const Select& select = *query.parts.front();
  const bool isPlain = query.parts.size() == 1 && !select.distinct && !select.aggregated &&
                       select.sources.size() == 1 && select.sources.front()->table != nullptr;
  if (!isPlain) return {};
  BaseTable base{select.sources.front()->table->name, {}};
  for (const OutputColumn& output : select.columns)
    base.columns.push_back(output.column != nullptr ? output.column->name : std::string());
  return base;
}

void writeBody(const Query& query, const EngineDialect& dialect, Compiled& compiled) {
  compiled.kind = StatementKind::Select;
  compiled.columns = std::make_shared<const Columns>(columnsOf(query));
  compiled.base = baseOf(query);
  compiled.keptQuestion = keptQuestionOf(query);
  const bool isOneText = query.parts.size() == 1 || query.distinctRows || query.orderedAsWhole;
  if (isOneText && query.parts.size() != 1) {
    compiled.parts.push_back(Writer(dialect).write(query));
    return;
  }
  const bool withIdentity = !compiled.base.name.empty() && !dialect.identityColumn.empty();
  for (const auto& part : query.parts)
    compiled.parts.push_back(Writer(dialect).write(*part, {.withIdentity = withIdentity}));
}

void writeBody(const Insert& insert, const EngineDialect& dialect, Compiled& compiled) {
  compiled.kind = StatementKind::Insert;
  compiled.parts.push_back(Writer(dialect).write(insert));
}

void writeBody(const Update& update, const EngineDialect& dialect, Compiled& compiled) {
  compiled.kind = StatementKind::Update;
  compiled.parts.push_back(Writer(dialect).write(update));
}

void writeBody(const Delete& remove, const EngineDialect& dialect, Compiled& compiled) {
  compiled.kind = StatementKind::Delete;
  compiled.parts.push_back(Writer(dialect).write(remove));
}

}  // namespace

Compiled compile(std::string_view statement, const Catalog& catalog, const EngineDialect& dialect) {
  Statement parsed = parse(statement);
  Checker(catalog).check(parsed);
  Compiled compiled;
  compiled.reusable = parsed.reusable;
  compiled.literalCount = parsed.literalCount;
  std::visit([&](const auto& body) { writeBody(body, dialect, compiled); }, parsed.body);
  return compiled;
}

}  // namespace tarvola::ado::sql
