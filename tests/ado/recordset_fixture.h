#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tarvola/ado/connection.h"
#include "tarvola/ado/engine/embedded_store.h"
#include "tarvola/ado/engine/session.h"
#include "tarvola/ado/fields.h"
#include "tarvola/ado/recordset.h"
#include "tarvola/ado/table_rows.h"
#include "tarvola/runtime/errors.h"
#include "tests/support/engine_store.h"
#include "tests/support/temp_folder.h"

namespace tarvola::test {

/// The number of the failure that an action ends with, 0 if it ends well.
template <class Action>
std::int32_t errorOf(Action action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return 0;
}

/// The text of the failure that an action ends with, "" if it ends well.
template <class Action>
std::string errorTextOf(Action action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.description();
  }
  return {};
}

constexpr std::int32_t number(ErrorNumber error) { return static_cast<std::int32_t>(error); }

/// Rows made in memory: two columns, NAME (text) and SIZE (Long).
inline std::shared_ptr<ado::TableRows> namedSizes(
    std::initializer_list<std::pair<std::string_view, std::int32_t>> content) {
  static const auto columns = std::make_shared<const ado::Columns>(std::vector<ado::Column>{
      {.name = "NAME", .type = ado::ColumnType::Text}, {.name = "SIZE", .type = ado::ColumnType::Long}});
  auto rows = std::make_shared<ado::TableRows>(columns);
  for (const auto& [name, size] : content) {
    const std::size_t row = rows->append();
    rows->set(row, 0, name);
    rows->set(row, 1, size);
  }
  return rows;
}

/// The first columns of the visible rows, joined by blanks; the cursor is left alone.
inline std::string namesOf(const Recordset& recordset) {
  std::string names;
  for (const std::size_t row : recordset.visibleRows()) {
    if (!names.empty()) names += ' ';
    recordset.rows()->cell(row, 0).appendText(names);
  }
  return names;
}

/// The first column of the current row; "BOF", "EOF", or both where there is none.
inline std::string here(const Recordset& recordset) {
  if (recordset.get_BOF() && recordset.get_EOF()) return "BOF EOF";
  if (recordset.get_BOF()) return "BOF";
  if (recordset.get_EOF()) return "EOF";
  return recordset.cell(0).toVariant().string();
}

/// A store in a file of its own: goods in stock, and orders with their lines.
class StockStore {
 public:
  StockStore() {
    ado::engine::createEmbeddedStore(path(), {.scripts = {tables}, .contents = {}});
    connection_ = connect();
  }

  [[nodiscard]] std::string path() const { return folder_.path("stock.tarvola"); }
  [[nodiscard]] const ConnectionPtr& connection() const noexcept { return connection_; }
  [[nodiscard]] ConnectionPtr connect() const {
    ConnectionPtr connection = Connection::create();
    connection->put_CursorLocation(adUseClient);
    connection->Open(connectionTextOf(path()));
    return connection;
  }

  void run(std::string_view statement) const { connection_->Execute(statement); }
  void addGoods(std::initializer_list<std::string_view> names) const {
    std::int32_t size = 0;
    for (const std::string_view name : names) {
      run("INSERT INTO GOODS (NAME, SIZE) VALUES ('" + std::string(name) + "', " + std::to_string(++size) + ")");
    }
  }
  void addOrder(std::string_view kind, int month, std::string_view note) const {
    run("INSERT INTO ORDERS (KIND, MONTH, NOTE) VALUES ('" + std::string(kind) + "', " + std::to_string(month) + ", '" +
        std::string(note) + "')");
  }
  void addLine(std::string_view item, std::string_view kind, int month, int set = 0) const {
    run("INSERT INTO LINES (ITEM, KIND, MONTH, PART) VALUES ('" + std::string(item) + "', '" + std::string(kind) +
        "', " + std::to_string(month) + ", " + std::to_string(set) + ")");
  }

  /// A recordset as the classes open it: client cursor, static, optimistic.
  RecordsetPtr open(std::string_view statement, std::int32_t lockType = adLockOptimistic) const {
    RecordsetPtr recordset = Recordset::create();
    recordset->put_CursorLocation(adUseClient);
    recordset->Open(statement, connection_, adOpenStatic, lockType, adCmdText);
    return recordset;
  }
  [[nodiscard]] RecordsetPtr goods() const { return open("SELECT * FROM GOODS"); }

  /// What a statement reads from the store now: fields separated by "," and rows by "|".
  [[nodiscard]] std::string stored(std::string_view statement) const {
    const RecordsetPtr recordset = connection_->Execute(statement);
    return recordset->get_EOF() ? "" : recordset->GetString(adClipString, -1, ",", "|", "null");
  }

 private:
  static constexpr std::string_view tables =
      "CREATE TABLE GOODS (NAME TEXT COLLATE NOCASE, SIZE INTEGER, PRICE DOUBLE DEFAULT 7, BOUGHT DATE, COUNTED "
      "BOOLEAN, REMARK LONGTEXT, SHELF TEXT DEFAULT 'A1');"
      "CREATE TABLE ORDERS (KIND TEXT COLLATE NOCASE, MONTH SMALLINT, NOTE TEXT COLLATE NOCASE);"
      "CREATE TABLE LINES (ITEM TEXT COLLATE NOCASE, KIND TEXT COLLATE NOCASE, MONTH SMALLINT, PART SMALLINT);"
      "CREATE TABLE STRICT_GOODS (NAME TEXT COLLATE NOCASE UNIQUE, SIZE INTEGER NOT NULL);"
      "CREATE TABLE LABELS (CODE VARCHAR(3), PLACE SMALLINT);";

  TempFolder folder_;
  ConnectionPtr connection_;
};

}  // namespace tarvola::test
