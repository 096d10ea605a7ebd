#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/columns.h"
#include "tarvola/ado/rows.h"
#include "tarvola/ado/sql/kept_question.h"

namespace tarvola::ado::sql {

/// A table of the store as the dialect must know it.
struct Table {
  std::string name;
  std::vector<Column> columns;
};

/// The tables of a store, found without regard to case.
class Catalog {
 public:
  virtual ~Catalog() = default;
  [[nodiscard]] virtual const Table* find(std::string_view name) const = 0;
};

enum class LiteralKind : std::uint8_t { Text, Number, Date };

/// A literal as it stood in the statement: text without its quotes (doubled ones still doubled), a number's digits,
/// what stood between #.
struct Literal {
  LiteralKind kind;
  std::string_view text;
};

/// A statement with its literals taken out: equal keys mean statements that differ in nothing but the values.
struct Shape {
  std::string key;
  std::vector<Literal> literals;
};

/// Takes a statement apart in one pass. Fails with the dialect's texts for an open quote or date.
/// The literals point into `statement`. `shape` is reused so that no memory is asked for in the usual case.
void readShape(std::string_view statement, Shape& shape);

/// What a literal becomes on its way into the engine.
enum class Conversion : std::uint8_t {
  Text,           ///< text as text
  Number,         ///< number as number
  TextToNumber,   ///< assigned text read as a number under the regional settings; not readable: criteria mismatch
  TextToInteger,  ///< the same as an Integer of 16 bits, half to even; beyond it: numeric overflow
  TextToLong,     ///< the same as a Long of 32 bits
  NumberToText,   ///< assigned number as its text
  TextToDate,     ///< assigned text read as a date (dd/MM/yyyy or ISO); not readable: criteria mismatch
  Date,           ///< a #...# literal
  MonthOfPeriod,  ///< the month of a quoted MMYYYY; other texts: criteria mismatch
  YearOfPeriod,   ///< the year of a quoted MMYYYY
  LikePattern,    ///< a LIKE pattern: % and _ are wildcards, sets in [ ] too
  GlobPattern,    ///< a LIKE pattern in the words of an engine that matches sets, but minds the case of letters

  TextToDay,         ///< DateValue of a text: its day, without the time
  TextToBoolean,     ///< assigned text: "True", "False" or a number
  NumberToInteger,   ///< assigned number as an Integer of 16 bits, half to even; beyond it: numeric overflow
  NumberToLong,      ///< the same as a Long of 32 bits
  NegatedToInteger,  ///< assigned number with a minus sign in front, which may be -32768
  NegatedToLong,     ///< the same as a Long
  NumberToBoolean,   ///< assigned number: 0 is False
  NumberToDate,      ///< a number as days since 30 December 1899
  DateToText,        ///< assigned date in its text form
  DateToNumber,      ///< assigned date as days since 30 December 1899
  DateToInteger,     ///< the same as an Integer of 16 bits, half to even; beyond it: numeric overflow
  DateToLong,        ///< the same as a Long of 32 bits
};

/// How an engine wants its own text. A difference between engines is a field here, never a name in an `if`.
/// Functions that no engine has under a name and meaning of its own are supplied to it: see engine_functions.h.
struct EngineDialect {
  char identifierQuote = '"';
  /// The hidden column by which a row is found again, "" if the engine has none.
  std::string_view identityColumn = "rowid";
  /// A function of the engine that folds the case of all letters; used where a literal holds letters beyond ASCII.
  std::string_view foldFunction = "tv_fold";
  /// What makes a computed text compare without regard to case, as the columns of the store do by themselves.
  std::string_view caseInsensitive = " COLLATE NOCASE";
  /// The operator that matches a LIKE pattern, and the form in which it wants the pattern.
  std::string_view likeOperator = "GLOB";
  Conversion likePattern = Conversion::GlobPattern;
  /// The operator that joins texts.
  std::string_view joinOperator = "||";
  /// The functions that give the smaller and the larger of two values.
  std::string_view leastFunction = "min";
  std::string_view greatestFunction = "max";
};

/// A value that the engine's text expects at its next "?": which literal, and how it is converted.
struct Parameter {
  std::size_t literal;
  Conversion conversion;
};

/// One statement in the engine's own text.
struct EngineText {
  std::string text;
  std::vector<Parameter> parameters;
};

enum class StatementKind : std::uint8_t { Select, Insert, Update, Delete };

/// A statement of the Access dialect, read, checked against the tables, and put into the engine's words.
struct Compiled {
  StatementKind kind = StatementKind::Select;
  /// One part; a UNION ALL has several, run one after another, whose rows follow one another.
  std::vector<EngineText> parts;
  /// Of a SELECT: its columns. The parts deliver these, and behind them the identity if the set has a base table.
  ColumnsPtr columns;
  /// Of a SELECT over one table without aggregates, DISTINCT or union: that table; its name is empty otherwise.
  BaseTable base;
  /// Of a SELECT whose answer can be kept in step with the rows: what it asks.
  std::optional<KeptQuestion> keptQuestion;
  /// Whether any statement of the same shape may use this one. False where a number is part of the text itself
  /// (ORDER BY 1, TOP 5), which must then be kept by the whole text.
  bool reusable = true;
  /// Number of literals in the statement: a shape with another number of them is another statement.
  std::size_t literalCount = 0;
};

/// Reads a statement and puts it into the engine's words. Fails with the platform's number and text for what is not
/// accepted: syntax, unknown tables and columns ("Too few parameters. Expected 1."), types that clash, value counts.
Compiled compile(std::string_view statement, const Catalog& catalog, const EngineDialect& dialect);

}  // namespace tarvola::ado::sql
