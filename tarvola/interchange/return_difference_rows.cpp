#include "tarvola/interchange/return_difference_rows.h"

#include <algorithm>
#include <unordered_map>

#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

using RowNumbers = std::vector<std::size_t>;

/// The rows of one key.
struct Group {
  RowNumbers before;
  RowNumbers after;
};

/// Takes the rows of equal content out of a group, pair by pair.
void pairEqualRows(Group& group, const RowContent& contentBefore, const RowContent& contentAfter,
                   std::vector<RowPair>& pairs) {
  std::unordered_multimap<std::string, std::size_t> byContent;
  for (const std::size_t row : group.after) byContent.emplace(contentAfter(row), row);
  RowNumbers unpaired;
  for (const std::size_t row : group.before) {
    const auto same = byContent.find(contentBefore(row));
    if (same == byContent.end()) {
      unpaired.push_back(row);
      continue;
    }
    pairs.push_back({.before = row, .after = same->second});
    byContent.erase(same);
  }
  group.before = std::move(unpaired);
  group.after.clear();
  for (const auto& [content, row] : byContent) group.after.push_back(row);
  std::sort(group.after.begin(), group.after.end());
}

void pairInOrder(const Group& group, std::vector<RowPair>& pairs) {
  for (std::size_t index = 0; index < std::max(group.before.size(), group.after.size()); ++index) {
    RowPair pair;
    if (index < group.before.size()) pair.before = group.before[index];
    if (index < group.after.size()) pair.after = group.after[index];
    pairs.push_back(pair);
  }
}

}  // namespace

std::vector<RowPair> pairRows(const std::vector<std::string>& keysBefore, const std::vector<std::string>& keysAfter,
                              const RowContent& contentBefore, const RowContent& contentAfter) {
  std::unordered_map<std::string_view, Group> groups;
  groups.reserve(keysBefore.size() + keysAfter.size());
  for (std::size_t row = 0; row < keysBefore.size(); ++row) groups[keysBefore[row]].before.push_back(row);
  for (std::size_t row = 0; row < keysAfter.size(); ++row) groups[keysAfter[row]].after.push_back(row);
  std::vector<RowPair> pairs;
  pairs.reserve(groups.size());
  for (auto& [key, group] : groups) {
    if (group.before.size() > 1 || group.after.size() > 1) pairEqualRows(group, contentBefore, contentAfter, pairs);
    pairInOrder(group, pairs);
  }
  return pairs;
}

bool saysTheSame(store::FieldType type, std::string_view before, std::string_view after) {
  if (before == after) return true;
  if (!isNumeric(type)) return false;
  const std::optional<double> left = before.empty() ? 0 : tryNumber(before);
  const std::optional<double> right = after.empty() ? 0 : tryNumber(after);
  return left && right && *left == *right;
}

}  // namespace tarvola::interchange
