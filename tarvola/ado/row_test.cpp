#include "tarvola/ado/row_test.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado {
namespace {

constexpr auto unordered = std::partial_ordering::unordered;

std::string_view textForm(const Cell& cell, std::string& store) {
  if (cell.isText()) return cell.text();
  store.clear();
  cell.appendText(store);
  return store;
}

/// A cell that is a number or a date, or a text that reads as a number.
std::optional<double> numberForm(const Cell& cell) {
  if (cell.isText()) return tryNumber(cell.text());
  return cell.toDouble();
}

bool holdsNothing(const Cell& cell) { return cell.isNull() || cell.type() == Cell::Type::Empty; }

constexpr std::uint64_t mixed(std::uint64_t hash, std::uint64_t word) {
  hash = (hash ^ word) * 0x9E3779B97F4A7C15U;
  return hash ^ (hash >> 32U);
}

/// Eight characters with their case taken out. Only bits in which the two cases of a letter may differ are dropped: of
/// ASCII characters one bit, of others all, since they fold in more than one byte.
constexpr std::uint64_t withoutCase(std::uint64_t eight) {
  const std::uint64_t beyondAscii = (eight & 0x8080808080808080U) >> 7U;
  return (eight & ~(beyondAscii * 0xFFU)) | 0x2020202020202020U;
}

std::uint64_t hashOfAll(std::uint64_t hash, std::string_view text) {
  while (text.size() >= sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data(), sizeof word);
    hash = mixed(hash, withoutCase(word));
    text.remove_prefix(sizeof word);
  }
  std::uint64_t rest = 0;
  if (!text.empty()) std::memcpy(&rest, text.data(), text.size());
  return mixed(hash, withoutCase(rest));
}

/// Of a long text its length, beginning and end are hashed: packed texts of one form differ in their last fields, and
/// whether two really are equal is for the test to say.
std::uint64_t textHash(std::string_view text) {
  constexpr std::size_t beginning = 32;
  constexpr std::size_t end = 96;
  if (text.size() <= beginning + end) return hashOfAll(text.size(), text);
  return hashOfAll(hashOfAll(text.size(), text.substr(0, beginning)), text.substr(text.size() - end));
}

// 0 and -0 are equal and have different bits; adding 0 makes both the same.
std::uint64_t numberHash(double number) { return mixed(1, std::bit_cast<std::uint64_t>(number + 0.0)); }

double booleanNumber(double number) { return number == 0 ? 0 : -1; }

std::optional<double> booleanOf(std::string_view text) {
  if (equalsIgnoreCase(text, "True")) return -1;
  if (equalsIgnoreCase(text, "False")) return 0;
  return tryNumber(text);
}

std::optional<double> dateNumber(std::string_view text) {
  const std::optional<Date> date = tryDate(text);
  return date ? std::optional(date->serial()) : std::nullopt;
}

/// A quoted text against a column of numbers or dates is read as the column's type, under the regional settings.
std::optional<double> quotedNumber(std::string_view text, ColumnType type) {
  if (type == ColumnType::Date) return dateNumber(text);
  return type == ColumnType::Boolean ? booleanOf(text) : tryNumber(text);
}

}  // namespace

Comparing comparingOf(ColumnType type) noexcept {
  switch (type) {
    case ColumnType::Text:
    case ColumnType::LongText:
      return Comparing::Text;
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Double:
    case ColumnType::Boolean:
    case ColumnType::Date:
      return Comparing::Number;
    default:
      return Comparing::Mixed;
  }
}

RowTest::RowTest(const FilterClause& clause, const Columns& columns)
    : comparison_(clause.comparison), kind_(clause.kind), text_(clause.text) {
  const auto column = columns.find(clause.field);
  if (!column) fail(ErrorNumber::ItemNotFound);
  column_ = static_cast<std::uint32_t>(*column);
  const ColumnType type = columns[*column].type;
  comparing_ = comparingOf(type);
  if (kind_ != FilterValueKind::Null) convertValue(clause, type);
}

// What equals nothing becomes a test that no row passes: a number that is none.
RowTest::RowTest(std::size_t column, ColumnType type, const Variant& value)
    : column_(static_cast<std::uint32_t>(column)), kind_(FilterValueKind::Number), comparing_(Comparing::Number) {
  if (value.isNull() || value.isEmpty()) return;
  comparing_ = comparingOf(type);
  if (value.isString()) {
    kind_ = FilterValueKind::Text;
    number_ = tryNumber(value.string());
  } else {
    number_ = value.type() == Variant::Type::Date ? value.date().serial() : CDbl(value);
  }
  takeText(CStr(value));
}

void RowTest::takeText(std::string text) {
  ownText_ = std::move(text);
  ownsText_ = true;
}

// The number of a text pattern is never asked for: LIKE always looks at texts.
void RowTest::convertValue(const FilterClause& clause, ColumnType type) {
  const bool isPattern = comparison_ == FilterOperator::Begins || comparison_ == FilterOperator::Contains;
  if (isPattern) return;
  const bool isText = kind_ == FilterValueKind::Text;
  if (comparing_ == Comparing::Text) {
    if (isText) return;
    takeText(kind_ == FilterValueKind::Date ? CStr(Date::fromSerial(clause.number)) : numberLiteral(clause.number));
    return;
  }
  number_ = isText ? quotedNumber(clause.text, type) : clause.number;
  if (!number_ && comparing_ == Comparing::Number) fail(ErrorNumber::WrongArguments);
  if (type == ColumnType::Boolean) number_ = booleanNumber(*number_);
}

bool RowTest::holds(const Cell& cell) const {
  if (holdsNothing(cell)) return kind_ == FilterValueKind::Null && comparison_ == FilterOperator::Equal;
  if (kind_ == FilterValueKind::Null) return comparison_ == FilterOperator::NotEqual;
  if (comparing_ == Comparing::Text && comparison_ == FilterOperator::Equal && cell.isText()) {
    return equalsIgnoreCase(cell.text(), text());
  }
  switch (comparison_) {
    case FilterOperator::Equal:
      return std::is_eq(order(cell));
    case FilterOperator::NotEqual:
      return std::is_neq(order(cell));
    case FilterOperator::Less:
      return std::is_lt(order(cell));
    case FilterOperator::LessOrEqual:
      return std::is_lteq(order(cell));
    case FilterOperator::Greater:
      return std::is_gt(order(cell));
    case FilterOperator::GreaterOrEqual:
      return std::is_gteq(order(cell));
    default:
      break;
  }
  std::string store;
  return holdsText(textForm(cell, store));
}

bool RowTest::holdsText(std::string_view value) const {
  if (comparison_ == FilterOperator::Begins) {
    return value.size() >= text().size() && equalsIgnoreCase(value.substr(0, text().size()), text());
  }
  return text().empty() || InStrText(value, text()) != 0;
}

std::partial_ordering RowTest::order(const Cell& cell) const {
  if (comparing_ == Comparing::Mixed) return orderMixed(cell);
  if (comparing_ == Comparing::Number) {
    const auto number = numberForm(cell);
    return number && number_ ? *number <=> *number_ : unordered;
  }
  std::string store;
  return compareIgnoreCase(textForm(cell, store), text()) <=> 0;
}

// Two texts are compared as texts. Otherwise both sides must be numbers, or texts that read as numbers; for a date the
// quoted text may be that of a date.
std::partial_ordering RowTest::orderMixed(const Cell& cell) const {
  if (cell.isText() && kind_ == FilterValueKind::Text) return compareIgnoreCase(cell.text(), text()) <=> 0;
  const auto number = numberForm(cell);
  std::optional<double> value = number_;
  if (!value && cell.type() == Cell::Type::Date) value = dateNumber(text());
  return number && value ? *number <=> *value : unordered;
}

bool RowTest::isIndexable() const {
  if (comparison_ != FilterOperator::Equal || kind_ == FilterValueKind::Null) return false;
  return comparing_ != Comparing::Mixed || number_ || !dateNumber(text());
}

std::uint64_t RowTest::valueHash() const {
  if (comparing_ == Comparing::Text) return textHash(text());
  return number_ ? numberHash(*number_) : textHash(text());
}

// A text in a column of numbers, or of anything, goes by the number it reads as, so that '05' and 5 meet; whether they
// really match is for the test to say.
std::optional<std::uint64_t> RowTest::cellHash(const Cell& cell, Comparing comparing) {
  if (holdsNothing(cell)) return std::nullopt;
  if (comparing == Comparing::Text) {
    std::string store;
    return textHash(textForm(cell, store));
  }
  const auto number = numberForm(cell);
  return number ? numberHash(*number) : textHash(cell.text());
}

void RowCriteria::bind(const Filter& filter, const Columns& columns) {
  tests_.clear();
  tests_.reserve(filter.clauses().size());
  for (const FilterClause& clause : filter.clauses()) tests_.emplace_back(clause, columns);
  alternativeEnds_ = &filter.alternativeEnds();
  isIndexable_ = alternativeEnds_->size() == 1 &&
                 std::all_of(tests_.begin(), tests_.end(), [](const RowTest& test) { return test.isIndexable(); });
}

bool RowCriteria::match(const Rows& rows, std::size_t row) const {
  std::size_t start = 0;
  for (const std::size_t end : *alternativeEnds_) {
    if (allHold(std::span(tests_).subspan(start, end - start), rows, row)) return true;
    start = end;
  }
  return false;
}

bool allHold(std::span<const RowTest> tests, const Rows& rows, std::size_t row) {
  return std::all_of(tests.begin(), tests.end(),
                     [&](const RowTest& test) { return test.holds(rows.cell(row, test.column())); });
}

}  // namespace tarvola::ado
