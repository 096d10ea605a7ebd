#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/rows.h"
#include "tarvola/ado/shape.h"

namespace tarvola::ado {

/// A statement of the form "SELECT * FROM table [WHERE condition]", to which further conditions can be added.
struct PlainSelect {
  std::string_view head;
  std::string_view condition;
};

/// Nothing if the statement has any other form: an ORDER BY, several tables, a condition with open parentheses.
std::optional<PlainSelect> readPlainSelect(std::string_view statement);

/// The statement with one more condition: the given one stays whole, in parentheses.
std::string withCondition(const PlainSelect& select, std::string_view condition);

/// For each distinct key of the parents, the condition that its children meet ("KD_FORM = 'D113206' AND MS_PAJAK = 5").
/// A key with a Null has no children and gives none; keys that differ in case alone are one. Nothing if there are more
/// keys than a statement for each is worth, or a value that has no literal: a date, a fraction.
std::optional<std::vector<std::string>> keyConditions(const Rows& parents, const std::vector<ShapeRelation>& relation,
                                                      const std::vector<ShapeRelationText>& names);

}  // namespace tarvola::ado
