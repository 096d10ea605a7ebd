#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tarvola::cli {

/// A table of aligned columns for people: headings, a rule under them, numbers to the right.
class Table {
 public:
  enum class Align { Left, Right };
  struct Heading {
    std::string text;
    Align align = Align::Left;
  };

  explicit Table(std::vector<Heading> headings) : headings_(std::move(headings)) {}

  void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
  /// A rule before the next row, as above totals.
  void addRule() { rows_.emplace_back(); }
  /// Shortens a column, down to 12 characters and "…" at the end of what is cut, until the table is so many columns
  /// wide. 0: it stays as it is.
  void shrink(std::size_t column, std::size_t toWidth);
  [[nodiscard]] bool empty() const noexcept { return rows_.empty(); }

  void print(std::ostream& out) const;

 private:
  [[nodiscard]] std::vector<std::size_t> widths() const;
  std::vector<Heading> headings_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace tarvola::cli
