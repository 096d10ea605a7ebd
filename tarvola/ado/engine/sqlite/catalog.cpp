#include "tarvola/ado/engine/sqlite/catalog.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::ado::engine::sqlite {
namespace {

struct DeclaredWord {
  std::string_view word;
  ColumnType type;
};

// The words of this system's own stores and of those that were carried over from other engines.
constexpr std::array declaredWords{
    DeclaredWord{"TEXT", ColumnType::Text},         DeclaredWord{"VARCHAR", ColumnType::Text},
    DeclaredWord{"CHAR", ColumnType::Text},         DeclaredWord{"NVARCHAR", ColumnType::Text},
    DeclaredWord{"LONGTEXT", ColumnType::LongText}, DeclaredWord{"MEMO", ColumnType::LongText},
    DeclaredWord{"CLOB", ColumnType::LongText},     DeclaredWord{"SMALLINT", ColumnType::Integer},
    DeclaredWord{"TINYINT", ColumnType::Integer},   DeclaredWord{"BYTE", ColumnType::Integer},
    DeclaredWord{"INTEGER", ColumnType::Long},      DeclaredWord{"INT", ColumnType::Long},
    DeclaredWord{"LONG", ColumnType::Long},         DeclaredWord{"COUNTER", ColumnType::Long},
    DeclaredWord{"BIGINT", ColumnType::Long},       DeclaredWord{"DOUBLE", ColumnType::Double},
    DeclaredWord{"REAL", ColumnType::Double},       DeclaredWord{"FLOAT", ColumnType::Double},
    DeclaredWord{"CURRENCY", ColumnType::Double},   DeclaredWord{"DECIMAL", ColumnType::Double},
    DeclaredWord{"NUMERIC", ColumnType::Double},    DeclaredWord{"BOOLEAN", ColumnType::Boolean},
    DeclaredWord{"YESNO", ColumnType::Boolean},     DeclaredWord{"BIT", ColumnType::Boolean},
    DeclaredWord{"DATE", ColumnType::Date},         DeclaredWord{"DATETIME", ColumnType::Date},
    DeclaredWord{"TIMESTAMP", ColumnType::Date},
};

std::string_view textOf(sqlite3_stmt* statement, int column) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return text == nullptr ? std::string_view()
                         : std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
}

constexpr std::string_view everyColumn =
    "SELECT t.name, c.name, c.type FROM sqlite_master AS t JOIN pragma_table_info(t.name) AS c "
    "WHERE t.type = 'table' AND t.name NOT LIKE 'sqlite!_%' ESCAPE '!' ORDER BY t.rowid, c.cid";

}  // namespace

ColumnType declaredType(std::string_view declaration) noexcept {
  const std::string_view word = declaration.substr(0, declaration.find_first_of(" ("));
  const auto* const found = std::ranges::find_if(
      declaredWords, [word](const DeclaredWord& known) { return equalsIgnoreCase(known.word, word); });
  return found == declaredWords.end() ? ColumnType::Any : found->type;
}

std::size_t declaredLength(std::string_view declaration) noexcept {
  const std::size_t open = declaration.find('(');
  if (open == std::string_view::npos || declaredType(declaration) != ColumnType::Text) return 0;
  const std::string_view digits = declaration.substr(open + 1);
  std::size_t length = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), length);
  return length;
}

const sql::Table* Catalog::find(std::string_view name) const {
  if (!loaded_) load();
  const auto found = tables_.find(foldCase(name));
  return found == tables_.end() ? nullptr : &found->second;
}

const sql::Table& Catalog::table(std::string_view name) const {
  const sql::Table* const found = find(name);
  if (found == nullptr) fail(ErrorNumber::UnknownTable, unknownTableText(name));
  return *found;
}

// The version is read first: a change in between then counts as one that has not been seen.
void Catalog::load() const {
  tables_.clear();
  version_ = handle_.number("PRAGMA schema_version");
  const Statement statement = handle_.prepare(everyColumn);
  int code = SQLITE_ROW;
  while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
    const std::string_view name = textOf(statement.get(), 0);
    sql::Table& table = tables_[foldCase(name)];
    table.name = name;
    const std::string_view declaration = textOf(statement.get(), 2);
    table.columns.push_back({.name = std::string(textOf(statement.get(), 1)),
                             .type = declaredType(declaration),
                             .length = declaredLength(declaration)});
  }
  if (code != SQLITE_DONE) handle_.fail(code);
  loaded_ = true;
}

bool Catalog::forgetIfChanged() {
  if (!loaded_ || handle_.number("PRAGMA schema_version") == version_) return false;
  tables_.clear();
  loaded_ = false;
  return true;
}

}  // namespace tarvola::ado::engine::sqlite
