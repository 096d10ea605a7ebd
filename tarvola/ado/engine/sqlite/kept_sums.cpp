// The header declares the hook's functions on demand.
#define SQLITE_ENABLE_PREUPDATE_HOOK
#include "tarvola/ado/engine/sqlite/kept_sums.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tarvola/ado/engine/sqlite/quoted.h"
#include "tarvola/ado/sql/literals.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::engine::sqlite {
namespace {

constexpr std::size_t mostAnswers = 64;
/// So many rows of its table may change before an answer that nobody has asked for again is forgotten.
constexpr int mostChanges = 1000;

/// The place of a column, the number of columns for an unknown one.
int columnOf(const sql::Table& table, std::string_view name) {
  const auto found = std::ranges::find(table.columns, name, &Column::name);
  return static_cast<int>(found - table.columns.begin());
}

const std::string& nameOf(const sql::Table& table, int column) {
  return table.columns[static_cast<std::size_t>(column)].name;
}

bool isAscii(std::string_view text) {
  return std::ranges::none_of(text, [](char letter) { return static_cast<unsigned char>(letter) >= 0x80; });
}

/// Whether a column compares texts without regard to case; nothing for a rule that is not known here.
std::optional<bool> ignoresCase(sqlite3* database, const std::string& table, const std::string& column) {
  const char* rule = nullptr;
  const int code = sqlite3_table_column_metadata(database, nullptr, table.c_str(), column.c_str(), nullptr, &rule,
                                                 nullptr, nullptr, nullptr);
  if (code != SQLITE_OK || rule == nullptr) return std::nullopt;
  if (equalsIgnoreCase(rule, "NOCASE")) return true;
  if (equalsIgnoreCase(rule, "BINARY")) return false;
  return std::nullopt;
}

std::string selectionOf(const KeptAnswer& answer, const sql::Table& table) {
  std::string text;
  for (const KeptAnswer::Summed& summed : answer.summed()) {
    text += text.empty() ? "SELECT " : ", ";
    text += summed.column == KeptAnswer::Summed::rows ? "0" : quoted(nameOf(table, summed.column));
  }
  text += " FROM " + quoted(table.name);
  const char* between = " WHERE ";
  for (const KeptAnswer::Key& key : answer.keys()) {
    text += between + quoted(nameOf(table, key.column)) + " = ?";
    between = " AND ";
  }
  return text;
}

void bindKeys(sqlite3_stmt* statement, const std::vector<KeptAnswer::Key>& keys) {
  int parameter = 0;
  for (const KeptAnswer::Key& key : keys) {
    ++parameter;
    if (key.isText)
      sqlite3_bind_text64(statement, parameter, key.text.data(), key.text.size(), SQLITE_STATIC, SQLITE_UTF8);
    else
      sqlite3_bind_int64(statement, parameter, key.number);
  }
}

}  // namespace

KeptSums::~KeptSums() {
  sqlite3_preupdate_hook(handle_.get(), nullptr, nullptr);
  sqlite3_rollback_hook(handle_.get(), nullptr, nullptr);
}

RowsPtr KeptSums::answer(std::string_view statement, const sql::Compiled& compiled,
                         const std::vector<sql::Literal>& literals) {
  const sql::KeptQuestion& question = *compiled.keptQuestion;
  const KeptAnswer* const answer = exactAnswer(std::string(statement), [&] {
    const sql::Table& table = catalog_.table(question.table);
    std::vector<KeptAnswer::Summed> summed(question.summed.size());
    for (std::size_t place = 0; place < summed.size(); ++place)
      if (!question.summed[place].empty()) summed[place].column = columnOf(table, question.summed[place]);
    return outline(question, literals, std::move(summed));
  });
  return answer == nullptr ? nullptr : answer->asRow(compiled.columns);
}

std::optional<std::vector<double>> KeptSums::packedSums(std::string_view statement, const sql::Compiled& compiled,
                                                        const std::vector<sql::Literal>& literals,
                                                        const PackedFields& fields) {
  if (!compiled.keptQuestion) return std::nullopt;
  const sql::Table& table = catalog_.table(compiled.keptQuestion->table);
  const int column = columnOf(table, fields.column);
  if (column == static_cast<int>(table.columns.size())) return std::nullopt;
  std::string name(statement);
  for (const std::size_t field : fields.summed) (name += fields.separator) += std::to_string(field);
  const KeptAnswer* const answer = exactAnswer(std::move(name), [&] {
    std::vector<KeptAnswer::Summed> summed;
    for (const std::size_t field : fields.summed)
      summed.push_back({.column = column,
                        .field = static_cast<int>(field),
                        .fieldCount = static_cast<int>(fields.count),
                        .separator = fields.separator});
    return outline(*compiled.keptQuestion, literals, std::move(summed));
  });
  return answer == nullptr ? std::nullopt : std::optional(answer->sums());
}

template <class Outline>
const KeptAnswer* KeptSums::exactAnswer(std::string name, Outline&& outlined) {
  if (othersHaveWritten()) clear();
  auto found = answers_.find(name);
  if (found == answers_.end()) {
    std::optional<KeptAnswer> answer = outlined();
    if (!answer) return nullptr;
    listen();
    addUpRows(*answer);
    if (answers_.size() >= mostAnswers) clear();
    found = answers_.emplace(std::move(name), Kept{.answer = std::move(*answer)}).first;
  }
  Kept& kept = found->second;
  kept.changesSinceAsked = 0;
  return kept.answer.isExact() ? &kept.answer : nullptr;
}

// Begun with the first question, so that who only fills a store or reads it whole never pays for it.
void KeptSums::listen() {
  sqlite3_preupdate_hook(handle_.get(), rowChanges, this);
  sqlite3_rollback_hook(handle_.get(), takenBack, this);
}

void KeptSums::rowChanges(void* kept, sqlite3* database, int operation, const char* /*schema*/, const char* table,
                          sqlite3_int64 /*oldIdentity*/, sqlite3_int64 /*newIdentity*/) {
  auto& answers = static_cast<KeptSums*>(kept)->answers_;
  for (auto entry = answers.begin(); entry != answers.end();) {
    Kept& each = entry->second;
    const bool stays = each.answer.table() != table ||
                       (++each.changesSinceAsked <= mostChanges && each.answer.follow(database, operation));
    entry = stays ? std::next(entry) : answers.erase(entry);
  }
}

bool KeptSums::othersHaveWritten() {
  if (!dataVersion_) dataVersion_ = handle_.prepare("PRAGMA data_version", SQLITE_PREPARE_PERSISTENT);
  const ResetAtEnd reset(dataVersion_.get());
  const int code = sqlite3_step(dataVersion_.get());
  if (code != SQLITE_ROW) handle_.fail(code);
  const std::int64_t version = sqlite3_column_int64(dataVersion_.get(), 0);
  return std::exchange(seenVersion_, version) != version;
}

std::optional<KeptAnswer> KeptSums::outline(const sql::KeptQuestion& question,
                                            const std::vector<sql::Literal>& literals,
                                            std::vector<KeptAnswer::Summed> summed) const {
  const sql::Table& table = catalog_.table(question.table);
  std::vector<KeptAnswer::Key> keys;
  for (const sql::KeptQuestion::Key& wanted : question.keys) {
    auto key = outlineKey(wanted, table, literals);
    if (!key) return std::nullopt;
    keys.push_back(std::move(*key));
  }
  return KeptAnswer(table.name, static_cast<int>(table.columns.size()), std::move(keys), std::move(summed));
}

std::optional<KeptAnswer::Key> KeptSums::outlineKey(const sql::KeptQuestion::Key& wanted, const sql::Table& table,
                                                    const std::vector<sql::Literal>& literals) const {
  KeptAnswer::Key key{.column = columnOf(table, wanted.column), .isText = wanted.isText};
  const sql::Literal& literal = literals[wanted.literal];
  if (!wanted.isText) {
    const double number = CDbl(sql::convertLiteral(literal, sql::Conversion::Number));
    key.number = static_cast<std::int64_t>(std::clamp(number, -KeptAnswer::largestExact, KeptAnswer::largestExact));
    return static_cast<double>(key.number) == number ? std::optional(std::move(key)) : std::nullopt;
  }
  key.text = CStr(sql::convertLiteral(literal, sql::Conversion::Text));
  const auto rule = ignoresCase(handle_.get(), table.name, wanted.column);
  // Letters beyond ASCII are compared by another rule.
  if (!rule || !isAscii(key.text)) return std::nullopt;
  key.ignoresCase = *rule;
  return key;
}

void KeptSums::addUpRows(KeptAnswer& answer) const {
  const Statement statement = handle_.prepare(selectionOf(answer, catalog_.table(answer.table())));
  bindKeys(statement.get(), answer.keys());
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) answer.add(statement.get());
  if (code != SQLITE_DONE) handle_.fail(code);
}

}  // namespace tarvola::ado::engine::sqlite
