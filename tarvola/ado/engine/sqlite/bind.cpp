#include "tarvola/ado/engine/sqlite/bind.h"

#include "tarvola/ado/sql/literals.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::ado::engine::sqlite {

void Binder::bindText(sqlite3_stmt* statement, int parameter, std::string_view text) const {
  // A null pointer would be NULL, and an empty text need not have another.
  const char* const start = text.empty() ? "" : text.data();
  check(sqlite3_bind_text64(statement, parameter, start, text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Binder::bindCell(sqlite3_stmt* statement, int parameter, const Cell& cell, std::string& scratch) const {
  switch (cell.type()) {
    case Variant::Type::String:
      return bindText(statement, parameter, cell.text());
    case Variant::Type::Integer:
    case Variant::Type::Long:
    case Variant::Type::Boolean:
      return check(sqlite3_bind_int64(statement, parameter, static_cast<std::int64_t>(cell.toDouble())));
    case Variant::Type::Double:
      return check(sqlite3_bind_double(statement, parameter, cell.toDouble()));
    case Variant::Type::Date:
      scratch.clear();
      sql::appendIsoDate(scratch, Date::fromSerial(cell.toDouble()));
      return bindText(statement, parameter, scratch);
    default:
      return check(sqlite3_bind_null(statement, parameter));
  }
}

void Binder::bindLiterals(sqlite3_stmt* statement, const std::vector<sql::Literal>& literals,
                          const std::vector<sql::Parameter>& parameters) {
  if (scratch_.size() < parameters.size()) scratch_.resize(parameters.size());
  for (std::size_t index = 0; index < parameters.size(); ++index) {
    const auto& [literal, conversion] = parameters[index];
    const Cell cell = sql::literalCell(literals[literal], conversion, scratch_[index]);
    bindCell(statement, static_cast<int>(index) + 1, cell, scratch_[index]);
  }
}

void Binder::bindValue(sqlite3_stmt* statement, int parameter, const Variant& value, std::string& scratch) const {
  bindCell(statement, parameter, Cell::of(value), scratch);
}

}  // namespace tarvola::ado::engine::sqlite
