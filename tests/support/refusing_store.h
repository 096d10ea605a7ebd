#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

namespace tarvola::test {

/// Runs a text of the engine's own, behind the back of every connection.
inline void runNative(const std::string& path, const std::string& text) {
  sqlite3* handle = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(handle, text.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
  sqlite3_close(handle);
}

/// Makes a store refuse a kind of write from now on: refuseWrites(path, "DELETE", "DATSSP"). It stands for whatever may
/// go wrong between two statements of an operation. A condition on the rows, "OLD.KdMAP = '0118'", narrows it; the
/// words of the failure tell several of them apart.
inline void refuseWrites(const std::string& path, const std::string& write, const std::string& table,
                         const std::string& condition = "1", const std::string& words = "refused") {
  runNative(path, "CREATE TRIGGER REFUSE_" + write + "_" + table + " BEFORE " + write + " ON " + table + " WHEN " +
                      condition + " BEGIN SELECT RAISE(ABORT, '" + words + "'); END");
}

/// Takes a table out of a store, as a store of another program may lack it.
inline void dropTable(const std::string& path, const std::string& table) { runNative(path, "DROP TABLE " + table); }

}  // namespace tarvola::test
