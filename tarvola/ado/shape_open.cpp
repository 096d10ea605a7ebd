#include "tarvola/ado/joined_rows.h"
#include "tarvola/ado/shape.h"
#include "tarvola/ado/shape_narrowing.h"
#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado {
namespace {

std::size_t relatedColumn(const Columns& columns, std::string_view name) {
  const auto column = columns.find(name);
  if (!column) fail(ErrorNumber::SyntaxError, shapeSyntaxText("There is no column '" + std::string(name) + "'."));
  return *column;
}

RowsPtr runSelect(std::string_view statement, Session& session) {
  RowsPtr rows = session.run(statement).rows;
  if (!rows) fail(ErrorNumber::SyntaxError, shapeSyntaxText("A statement that is shaped must give rows."));
  return rows;
}

/// The parent's part of a relation; the child's columns are known only when its rows are there.
std::vector<ShapeRelation> parentRelation(const Rows& parents, const ShapeChildText& child) {
  std::vector<ShapeRelation> relation;
  for (const ShapeRelationText& pair : child.relation) {
    relation.push_back({.parentColumn = relatedColumn(parents.columns(), pair.parentColumn), .childColumn = 0});
  }
  return relation;
}

RowsPtr runForKeys(const PlainSelect& select, const std::vector<std::string>& conditions, Session& session) {
  if (conditions.empty()) return runSelect(withCondition(select, "1 = 0"), session);
  std::vector<RowsPtr> parts;
  parts.reserve(conditions.size());
  for (const std::string& condition : conditions) parts.push_back(runSelect(withCondition(select, condition), session));
  return parts.size() == 1 ? parts.front() : std::make_shared<ChainedRows>(std::move(parts));
}

/// Whether a narrowed statement may fail this way where the given one does not: the relation's columns or their types
/// do not fit the store's. The relation itself converts, so the whole set must then be read.
bool isOfNarrowing(const RunTimeError& error) {
  const auto number = static_cast<ErrorNumber>(error.number());
  return number == ErrorNumber::CriteriaMismatch || number == ErrorNumber::TooFewParameters;
}

RowsPtr runChild(const ShapeChildText& child, const Rows& parents, const std::vector<ShapeRelation>& relation,
                 Session& session) {
  const auto select = readPlainSelect(child.statement);
  const auto conditions = select ? keyConditions(parents, relation, child.relation) : std::nullopt;
  if (!conditions) return runSelect(child.statement, session);
  try {
    return runForKeys(*select, *conditions, session);
  } catch (const RunTimeError& error) {
    if (!isOfNarrowing(error)) throw;
  }
  return runSelect(child.statement, session);
}

ShapeChapter openChapter(const ShapeChildText& child, const Rows& parents, Session& session) {
  ShapeChapter chapter{.rows = nullptr, .relation = parentRelation(parents, child)};
  chapter.rows = runChild(child, parents, chapter.relation, session);
  for (std::size_t i = 0; i < child.relation.size(); ++i) {
    chapter.relation[i].childColumn = relatedColumn(chapter.rows->columns(), child.relation[i].childColumn);
  }
  return chapter;
}

}  // namespace

ShapeResult openShape(std::string_view text, Session& session) {
  const ShapeCommand command = readShapeCommand(text);
  ShapeResult result{.rows = runSelect(command.statement, session), .chapters = {}};
  if (command.children.empty()) return result;
  std::vector<std::string> names;
  for (const ShapeChildText& child : command.children) {
    result.chapters.push_back(openChapter(child, *result.rows, session));
    names.push_back(child.name);
  }
  result.rows = std::make_shared<RowsWithChapters>(std::move(result.rows), names);
  return result;
}

}  // namespace tarvola::ado
