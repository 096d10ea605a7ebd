#include "tarvola/cli/table.h"

#include <algorithm>
#include <ostream>

#include "tarvola/runtime/text_forms.h"

namespace tarvola::cli {

namespace {

constexpr std::string_view gap = "  ";
/// A column is not made narrower than this: less of a name tells nothing.
constexpr std::size_t narrowest = 12;

void printCell(std::ostream& out, const std::string& text, std::size_t width, Table::Align align, bool last) {
  const std::string padding(width - std::min(width, Len(text)), ' ');
  if (align == Table::Align::Right)
    out << padding << text;
  else
    out << text << (last ? std::string() : padding);
}

}  // namespace

std::vector<std::size_t> Table::widths() const {
  std::vector<std::size_t> result;
  for (const Heading& heading : headings_) result.push_back(Len(heading.text));
  for (const auto& row : rows_)
    for (std::size_t i = 0; i < row.size(); ++i) result[i] = std::max(result[i], Len(row[i]));
  return result;
}

void Table::shrink(std::size_t column, std::size_t toWidth) {
  const std::vector<std::size_t> width = widths();
  std::size_t total = gap.size() * (width.size() - 1);
  for (const std::size_t each : width) total += each;
  if (toWidth == 0 || total <= toWidth) return;
  const std::size_t tooMuch = std::min(total - toWidth, width[column] - std::min(width[column], narrowest));
  const std::size_t room = width[column] - tooMuch;
  for (auto& row : rows_)
    if (!row.empty() && Len(row[column]) > room) row[column] = std::string(RTrim(Left(row[column], room - 1))) + "…";
}

void Table::print(std::ostream& out) const {
  const std::vector<std::size_t> width = widths();
  const auto printRow = [&](const std::vector<std::string>& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) out << gap;
      printCell(out, row[i], width[i], headings_[i].align, i + 1 == row.size());
    }
    out << '\n';
  };
  const auto printRule = [&] {
    for (std::size_t i = 0; i < width.size(); ++i) out << (i > 0 ? gap : "") << std::string(width[i], '-');
    out << '\n';
  };

  std::vector<std::string> titles;
  for (const Heading& heading : headings_) titles.push_back(heading.text);
  printRow(titles);
  printRule();
  for (const auto& row : rows_) row.empty() ? printRule() : printRow(row);
}

}  // namespace tarvola::cli
