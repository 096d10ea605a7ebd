#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/rows.h"

namespace tarvola::ado {

/// Whether a command text is a hierarchical one: its first word is SHAPE.
bool isShapeCommand(std::string_view text) noexcept;

/// "p TO c": a column of the parent and the column of the child that must equal it.
struct ShapeRelationText {
  std::string_view parentColumn;
  std::string_view childColumn;
};

struct ShapeChildText {
  std::string_view statement;
  std::vector<ShapeRelationText> relation;
  /// The name of the chapter column; Chapter1, Chapter2 and so on where the text gives none.
  std::string name;
};

/// A hierarchical command taken apart. Points into the text it was read from.
struct ShapeCommand {
  std::string_view statement;
  std::vector<ShapeChildText> children;
};

/// Reads
///
///   SHAPE {statement} [[AS] alias]
///     [APPEND ({statement} [[AS] alias] RELATE p TO c [, p TO c ...]) [[AS] name] [, ( ... ) [[AS] name] ...]]
///
/// Keywords in any case; names bare or in "", '' or [ ]. What stands in braces is the store's own text; a brace inside
/// its quotes does not end it. Anything else, and a SHAPE within a SHAPE, is error -2147217900.
ShapeCommand readShapeCommand(std::string_view text);

struct ShapeRelation {
  std::size_t parentColumn;
  std::size_t childColumn;
};

/// The rows that a chapter column of a parent draws from, for all parents together.
struct ShapeChapter {
  RowsPtr rows;
  std::vector<ShapeRelation> relation;
};

/// What a command gave. Without chapters it is a plain set of rows; with chapters the last columns of the rows are the
/// chapter columns, in the chapters' order.
struct ShapeResult {
  RowsPtr rows;
  std::vector<ShapeChapter> chapters;
};

/// Runs a hierarchical command: the parent's statement, then each child's.
///
/// A child's statement that is a plain "SELECT * FROM table [WHERE condition]" is run for the parents that were found
/// and no others; rows that belong to no parent could not be reached anyway. Errors inside the braces are the store's
/// own; columns of a relation that do not exist are error -2147217900.
ShapeResult openShape(std::string_view text, Session& session);

}  // namespace tarvola::ado
