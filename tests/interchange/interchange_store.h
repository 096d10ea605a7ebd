#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/fields.h"
#include "tarvola/interchange/file_columns.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/CGeneralClass.h"
#include "tarvola/store/module_state.h"
#include "tests/support/messages.h"
#include "tests/support/store_fixture.h"

namespace tarvola::test {

/// A new store to which the thread is connected, with the clock stopped on 10 February 2009 and messages captured.
class InterchangeStore {
 public:
  InterchangeStore() {
    setToday(Date::fromYmd(2009, 2, 10));
    moduleState() = {};
    CGeneralClass().pSetCon(store_.path(), "", "");
  }
  ~InterchangeStore() {
    moduleState() = {};
    setToday({});
  }

  [[nodiscard]] std::string path(std::string_view file) const { return store_.folder().path(file); }
  [[nodiscard]] std::string storePath() const { return store_.path(); }
  [[nodiscard]] const TempFolder& folder() const noexcept { return store_.folder(); }
  [[nodiscard]] CapturedMessages& messages() noexcept { return messages_; }

  /// Runs a statement and takes any failure as the test's own.
  RecordsetPtr run(std::string_view statement) const { return store_.connect()->Execute(statement); }

  /// The rows of a SELECT, each as its values joined by "|", Null as "NULL".
  [[nodiscard]] std::vector<std::string> rows(std::string_view select) const {
    std::vector<std::string> result;
    for (const RecordsetPtr found = run(select); !found->get_EOF(); found->MoveNext()) {
      std::string row;
      for (std::int32_t i = 0; i < found->get_Fields().get_Count(); ++i) {
        const Variant value = found->get_Fields().get_Item(i).get_Value();
        row += (i == 0 ? "" : "|") + (value.isNull() ? std::string("NULL") : CStr(value));
      }
      result.push_back(row);
    }
    return result;
  }

  /// The only value of a SELECT, as text.
  [[nodiscard]] std::string value(std::string_view select) const {
    const std::vector<std::string> all = rows(select);
    return all.size() == 1 ? all.front() : "(" + std::to_string(all.size()) + " rows)";
  }

  /// Every row of every table that holds documents, table by table, in the order of the store.
  [[nodiscard]] std::vector<std::string> dump() const {
    std::vector<std::string> result;
    for (const char* table :
         {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22", "D113210", "BURSA"})
      for (const std::string& row : rows(std::string("SELECT * FROM ") + table))
        result.push_back(std::string(table) + ": " + row);
    return result;
  }

 private:
  CapturedMessages messages_;
  StoreFixture store_;
};

inline std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == separator)
      parts.emplace_back();
    else
      parts.back() += c;
  }
  return parts;
}

inline std::string join(const std::vector<std::string>& parts, std::string_view separator) {
  std::string result;
  for (std::size_t i = 0; i < parts.size(); ++i) result += (i == 0 ? "" : std::string(separator)) + parts[i];
  return result;
}

/// A line of the exchange file being put together: all amounts, rates and options 0, all texts empty, January 2009.
class Line {
 public:
  explicit Line(std::string_view formCode, std::string_view number = "000001/PPH4") : columns_(51) {
    for (const interchange::ColumnInfo& column : interchange::fileColumns)
      if (column.kind == interchange::ColumnKind::Number) columns_[interchange::index(column.column)] = "0";
    with(0, formCode).with(1, "1").with(2, "2009").with(3, "0").with(7, number).with(8, "08/01/2009");
    if (formCode.starts_with("F1")) with(4, "086556479946000").with(5, "Maria Santoso").with(6, "Jl. Hayam Wuruk 12");
  }
  /// Sets a column, counted from 0.
  Line& with(std::size_t column, std::string_view value) {
    columns_.at(column) = value;
    return *this;
  }
  [[nodiscard]] const std::vector<std::string>& columns() const noexcept { return columns_; }
  [[nodiscard]] std::string text() const { return join(columns_, ";"); }
  [[nodiscard]] Variant array() const { return Variant(Variant::Array(columns_.begin(), columns_.end())); }

 private:
  std::vector<std::string> columns_;
};

/// A line of text as the array that the import takes.
inline Variant arrayOf(std::string_view line) {
  const std::vector<std::string> columns = split(line, ';');
  return Variant(Variant::Array(columns.begin(), columns.end()));
}

}  // namespace tarvola::test
