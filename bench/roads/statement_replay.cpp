#include "bench/roads/statement_replay.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace tarvola::bench {

namespace {

[[noreturn]] void refuse(std::string_view text) {
  throw std::runtime_error("a noted value is not understood: " + std::string(text.substr(0, 40)));
}

/// Takes the literal in front of a text off it.
OwnedValue takeQuoted(std::string_view& text) {
  std::string value;
  for (text.remove_prefix(1); !text.empty(); text.remove_prefix(1)) {
    if (text.front() == '\'') {
      text.remove_prefix(1);
      if (!text.starts_with('\'')) return value;
    }
    value += text.front();
  }
  refuse(text);
}

OwnedValue takeNumber(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789.eE+-"), text.size());
  if (end == 0) refuse(text);
  const std::string digits(text.substr(0, end));
  text.remove_prefix(end);
  if (digits.find_first_of(".eE") == std::string::npos) return std::int64_t{std::strtoll(digits.c_str(), nullptr, 10)};
  return std::strtod(digits.c_str(), nullptr);
}

OwnedValue takeLiteral(std::string_view& text) {
  constexpr std::string_view null = "NULL";
  if (text.starts_with('\'')) return takeQuoted(text);
  if (!text.starts_with(null)) return takeNumber(text);
  text.remove_prefix(null.size());
  return nullptr;
}

/// Takes a parameter, "?" or "?12", off a text and gives its number; the one without a number follows the last.
std::size_t takeParameter(std::string_view& text, std::size_t last) {
  if (!text.starts_with('?')) refuse(text);
  text.remove_prefix(1);
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  if (end == 0) return last + 1;
  const std::size_t number = std::strtoull(std::string(text.substr(0, end)).c_str(), nullptr, 10);
  text.remove_prefix(end);
  return number;
}

/// The values of the parameters. The two texts differ nowhere else, so each difference is the next parameter.
std::vector<OwnedValue> valuesOf(const NotedStatement& statement) {
  std::vector<OwnedValue> values;
  std::string_view text = statement.text;
  std::string_view withValues = statement.withValues;
  for (std::size_t last = 0;;) {
    const auto [differs, literal] = std::mismatch(text.begin(), text.end(), withValues.begin(), withValues.end());
    if (differs == text.end()) return values;
    text.remove_prefix(static_cast<std::size_t>(differs - text.begin()));
    withValues.remove_prefix(static_cast<std::size_t>(literal - withValues.begin()));
    last = takeParameter(text, last);
    if (values.size() < last) values.resize(last);
    values[last - 1] = takeLiteral(withValues);
  }
}

}  // namespace

StatementReplay::StatementReplay(const std::string& path, const std::vector<NotedStatement>& statements)
    : store_(path) {
  std::map<std::string, std::size_t> places;
  steps_.reserve(statements.size());
  for (const NotedStatement& statement : statements) {
    const auto [known, isNew] = places.try_emplace(statement.text, prepared_.size());
    if (isNew) prepared_.push_back(store_.prepare(statement.text));
    Step& step = steps_.emplace_back();
    step.statement = known->second;
    step.owned = valuesOf(statement);
    step.values = viewsOf(step.owned);
  }
}

void StatementReplay::run() {
  for (const Step& step : steps_) prepared_[step.statement].run(step.values);
}

void StatementReplay::close() {
  prepared_.clear();
  store_.close();
}

}  // namespace tarvola::bench
