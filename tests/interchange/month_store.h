#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "tarvola/interchange/slip_file_import.h"
#include "tests/interchange/interchange_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {

/// A store with the return of January 2009: a lottery prize, an interest slip with two payees, a rent slip, two
/// self-paid rents, and two payment records.
///
/// Lines, gross and tax: 1a1 1000000 and 200000, 1a2 500000 and 87500 (17,5 %), 4 100000000 and 25000000,
/// 5a 60000000 and 6000000, 5b 70000000 + 30000000 and 7000000 + 3000000; in all 261500000 and 41287500.
class MonthStore : public InterchangeStore {
 public:
  MonthStore() {
    using interchange::Column;
    using interchange::index;
    const auto with = [](Line line, const std::vector<std::pair<Column, const char*>>& values) {
      for (const auto& [column, value] : values) line.with(index(column), value);
      return line.text() + "\r\n";
    };
    std::string file = with(Line("F113309", "000001/PPH4"), {{Column::Text1, "Mobil"},
                                                             {Column::Gross1, "100000000"},
                                                             {Column::Rate1, "25"},
                                                             {Column::Tax1, "25000000"},
                                                             {Column::TotalTax, "25000000"}});
    file += with(Line("F113310", "000002/PPH4"), {{Column::Gross1, "1000000"},
                                                  {Column::Rate1, "20"},
                                                  {Column::Tax1, "200000"},
                                                  {Column::Option2, "1"},
                                                  {Column::Gross2, "500000"},
                                                  {Column::Rate2, "17,5"},
                                                  {Column::Tax2, "87500"},
                                                  {Column::TotalTax, "287500"}});
    file += with(Line("F113312", "000003/PPH4"), {{Column::Text1, "Jl. Sudirman 1"},
                                                  {Column::Gross1, "60000000"},
                                                  {Column::Rate1, "10"},
                                                  {Column::Tax1, "6000000"},
                                                  {Column::TotalTax, "6000000"}});
    file += with(Line("FSewaTnhBgn", "1000000000000001"),
                 {{Column::Gross1, "70000000"}, {Column::Tax1, "7000000"}, {Column::TotalTax, "7000000"}});
    file += with(Line("FSewaTnhBgn", "1000000000000001"),
                 {{Column::Gross1, "30000000"}, {Column::Tax1, "3000000"}, {Column::TotalTax, "3000000"}});
    folder().write("month.csv", file);
    const SlipFileImportResult result =
        importSlipFile({.path = path("month.csv"), .month = 1, .year = 2009, .rejectPath = path("no.csv")});
    EXPECT_EQ(result.stored, 5U);
    EXPECT_THAT(result.rebuildFailures, testing::IsEmpty());
    pay("25000000", "2000000000000001", 0, "405");
    pay("16200000", "2000000000000002", 0, "403");
  }

  void pay(const std::string& rupiah, const std::string& number, int correction, const std::string& kind) {
    run("INSERT INTO DATSSP (KodePasal,NPWP,MsPjk,ThPjk,KdPmbtln,KdMAP,KdJnsStr,TglSSP,NTPP,JmlByr) VALUES "
        "(4,'013121660091000',1,2009," +
        std::to_string(correction) + ",'411128','" + kind + "',DateValue('10/02/2009'),'" + number + "'," + rupiah +
        ")");
  }

  /// Every row of every table of returns and payments.
  [[nodiscard]] std::vector<std::string> everything() const {
    std::vector<std::string> all = dump();
    for (const char* table : {"DATSSP", "datPBKPPhMasa", "PROFILE", "SETTING_NOBUKTI_PPH"})
      for (const std::string& row : rows(std::string("SELECT * FROM ") + table))
        all.push_back(std::string(table) + ": " + row);
    return all;
  }

  /// Lifts what refuseWrites has put on a table.
  void allowWrites(const std::string& write, const std::string& table) const {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(storePath().c_str(), &handle), SQLITE_OK);
    const std::string drop = "DROP TRIGGER REFUSE_" + write + "_" + table;
    EXPECT_EQ(sqlite3_exec(handle, drop.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(handle);
    sqlite3_close(handle);
  }
};

/// The tables of a return in the order in which a copy fills them.
inline constexpr std::array copiedTables = {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "D113210", "DAT_SSP_PPh22",
                                            "LAMPIRAN_SSP_PPh22"};

}  // namespace tarvola::test
