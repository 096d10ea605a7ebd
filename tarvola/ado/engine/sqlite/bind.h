#pragma once

#include <string>
#include <vector>

#include "tarvola/ado/engine/sqlite/handle.h"
#include "tarvola/ado/sql/compile.h"
#include "tarvola/runtime/variant.h"

namespace tarvola::ado::engine::sqlite {

/// Gives the parameters of a statement their values. Null and Empty become NULL, Boolean -1 or 0, dates ISO texts.
/// Texts are not copied: what they point into, and the binder itself, must stay as they are until the statement has
/// run.
class Binder {
 public:
  explicit Binder(const Handle& handle) noexcept : handle_(handle) {}

  /// The literals that the dialect took out of the statement's text.
  void bindLiterals(sqlite3_stmt* statement, const std::vector<sql::Literal>& literals,
                    const std::vector<sql::Parameter>& parameters);
  /// One value for the parameter of that number, counted from 1. `scratch` holds the text of a date.
  void bindValue(sqlite3_stmt* statement, int parameter, const Variant& value, std::string& scratch) const;

 private:
  void bindCell(sqlite3_stmt* statement, int parameter, const Cell& cell, std::string& scratch) const;
  void bindText(sqlite3_stmt* statement, int parameter, std::string_view text) const;
  void check(int code) const {
    if (code != SQLITE_OK) handle_.fail(code);
  }

  const Handle& handle_;
  std::vector<std::string> scratch_;
};

}  // namespace tarvola::ado::engine::sqlite
