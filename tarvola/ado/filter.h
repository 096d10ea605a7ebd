#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvola::ado {

enum class FilterOperator : std::uint8_t {
  Equal,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual,
  Begins,
  Contains
};

enum class FilterValueKind : std::uint8_t { Text, Number, Date, Null };

/// One comparison of a criteria text: a field, an operator, a value.
struct FilterClause {
  std::string_view field;
  FilterOperator comparison = FilterOperator::Equal;
  FilterValueKind kind = FilterValueKind::Null;
  /// Of a text: without its quotes, doubled ones undone; of LIKE without its wildcards.
  std::string_view text;
  /// Of a number its value, of a date its serial number.
  double number = 0;
};

/// A criteria text taken apart: alternatives joined by OR, each made of clauses joined by AND.
///
///   field op value, joined by AND and OR, with parentheses. op is one of = <> < > <= >= LIKE.
///
/// Texts stand in single quotes, a quote inside is doubled. Dates stand between #, best as #yyyy-mm-dd#; with slashes
/// the month comes first. Numbers have a decimal point whatever the settings. A name with blanks stands in [ ].
/// LIKE takes * or % at the end, or at both ends; the two mean the same. "field = NULL" finds rows without a value.
/// AND binds tighter than OR, and OR must be the outermost: an OR group in parentheses cannot be a part of an AND.
class Filter {
 public:
  Filter() = default;
  // The clauses point into the object's own texts.
  Filter(const Filter&) = delete;
  Filter& operator=(const Filter&) = delete;

  /// Takes a text apart; the object may hold another one. A text that is no criteria: error 3001, and the object then
  /// holds nothing of use. Memory of the last text is used again.
  void read(std::string_view criteria);

  [[nodiscard]] const std::string& text() const noexcept { return text_; }
  [[nodiscard]] const std::vector<FilterClause>& clauses() const noexcept { return clauses_; }
  /// For each alternative, the number of clauses up to its end.
  [[nodiscard]] const std::vector<std::size_t>& alternativeEnds() const noexcept { return alternativeEnds_; }

 private:
  friend class FilterReader;
  std::string text_;
  /// Texts whose doubled quotes are undone. Never longer than text_, so that it is reserved once and never moves.
  std::string unquoted_;
  std::vector<FilterClause> clauses_;
  std::vector<std::size_t> alternativeEnds_;
};

}  // namespace tarvola::ado
