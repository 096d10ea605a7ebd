#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

namespace tarvola::test {

/// Makes a store refuse a kind of write from now on: refuseWrites(path, "DELETE", "DATSSP"). It stands for whatever may
/// go wrong between two statements of an operation. A condition on the rows, "OLD.KdMAP = '0118'", narrows it.
inline void refuseWrites(const std::string& path, const std::string& write, const std::string& table,
                         const std::string& condition = "1") {
  sqlite3* handle = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &handle), SQLITE_OK);
  const std::string trigger = "CREATE TRIGGER REFUSE_" + write + "_" + table + " BEFORE " + write + " ON " + table +
                              " WHEN " + condition + " BEGIN SELECT RAISE(ABORT, 'refused'); END";
  EXPECT_EQ(sqlite3_exec(handle, trigger.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
  sqlite3_close(handle);
}

}  // namespace tarvola::test
