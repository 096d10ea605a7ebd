#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tarvola/ado/sql/types.h"

namespace tarvola::ado::sql {

/// What a function wants of an argument. An argument of another family is converted on the way.
enum class ArgumentKind : char {
  Any = 'A',
  Text = 'T',
  Number = 'N',
  Date = 'D',
  Day = 'd',       // a date without its time
  Count = 'C',     // a whole number of characters, none at least; fewer is error 5
  Position = 'P',  // a place in a text, counted from 1
  Condition = 'B',
};

/// A function of the dialect and its spelling for the engine.
struct FunctionRow {
  std::string_view name;
  std::string_view arguments;  // one ArgumentKind for each
  std::string_view engine;     // {1} stands for the first argument
  ColumnType type = ColumnType::Any;
  std::size_t typeFrom = 0;           // the argument (from 1) whose type the result has; 0: `type` says it
  Family onlyForFirst = Family::Any;  // the row holds only for a first argument of that family
  bool isAggregate = false;
  bool isCondition = false;  // gives the engine's truth value, not -1 and 0
};

/// Whether the dialect has a function of that name, whatever its arguments. "Left$" is "Left".
bool isFunction(std::string_view name) noexcept;
/// Whether the name is that of an aggregate.
bool isAggregate(std::string_view name) noexcept;
/// The function for so many arguments, nullptr if none takes that many.
const FunctionRow* findFunction(std::string_view name, std::size_t argumentCount, Family first) noexcept;

/// The engine's function that converts a computed value to a type, "" where none is needed.
std::string_view conversionFunction(Family from, ColumnType fromType, ColumnType to) noexcept;
/// The same for a value that is put into a column of the type: a whole number must fit the column's width.
std::string_view assignmentFunction(Family from, ColumnType fromType, ColumnType to) noexcept;

}  // namespace tarvola::ado::sql
