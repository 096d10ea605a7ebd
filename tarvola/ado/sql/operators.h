#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tarvola::ado::sql {

enum class Operator : std::uint8_t {
  Or,
  And,
  Equal,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual,
  Join,
  Add,
  Subtract,
  Modulo,
  WholeDivide,
  Multiply,
  Divide,
  Power,
};

/// How tightly an operator of the dialect binds, loosest first.
enum class Binding : std::uint8_t { Or, And, Not, Compare, Join, Add, Modulo, WholeDivide, Multiply, Negate, Power };

struct OperatorRow {
  Operator op;
  std::string_view spelling;  // in the dialect
  Binding binding;
  std::string_view engine;  // "" where the engine writes it in another way
};

inline constexpr auto operatorRows = std::to_array<OperatorRow>({
    {.op = Operator::Or, .spelling = "OR", .binding = Binding::Or, .engine = "OR"},
    {.op = Operator::And, .spelling = "AND", .binding = Binding::And, .engine = "AND"},
    {.op = Operator::Equal, .spelling = "=", .binding = Binding::Compare, .engine = "="},
    {.op = Operator::NotEqual, .spelling = "<>", .binding = Binding::Compare, .engine = "<>"},
    {.op = Operator::Less, .spelling = "<", .binding = Binding::Compare, .engine = "<"},
    {.op = Operator::LessOrEqual, .spelling = "<=", .binding = Binding::Compare, .engine = "<="},
    {.op = Operator::Greater, .spelling = ">", .binding = Binding::Compare, .engine = ">"},
    {.op = Operator::GreaterOrEqual, .spelling = ">=", .binding = Binding::Compare, .engine = ">="},
    {.op = Operator::Join, .spelling = "&", .binding = Binding::Join, .engine = ""},
    {.op = Operator::Add, .spelling = "+", .binding = Binding::Add, .engine = "+"},
    {.op = Operator::Subtract, .spelling = "-", .binding = Binding::Add, .engine = "-"},
    {.op = Operator::Modulo, .spelling = "MOD", .binding = Binding::Modulo, .engine = "%"},
    {.op = Operator::WholeDivide, .spelling = "\\", .binding = Binding::WholeDivide, .engine = "/"},
    {.op = Operator::Multiply, .spelling = "*", .binding = Binding::Multiply, .engine = "*"},
    {.op = Operator::Divide, .spelling = "/", .binding = Binding::Multiply, .engine = "/"},
    {.op = Operator::Power, .spelling = "^", .binding = Binding::Power, .engine = ""},
});

constexpr const OperatorRow& rowOf(Operator op) { return operatorRows[static_cast<std::size_t>(op)]; }

static_assert(
    [] {
      for (std::size_t place = 0; place < operatorRows.size(); ++place)
        if (operatorRows[place].op != static_cast<Operator>(place)) return false;
      return operatorRows.size() == static_cast<std::size_t>(Operator::Power) + 1;
    }(),
    "each operator stands in its own place");

}  // namespace tarvola::ado::sql
