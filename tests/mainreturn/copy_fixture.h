#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/ado/fields.h"
#include "tarvola/runtime/text_forms.h"
#include "tests/mainreturn/return_fixture.h"

namespace tarvola::test {

/// A row of a table as the texts of its columns, Null as "(null)".
using Row = std::vector<std::string>;

/// A table that holds parts of a return: where its rows say their correction, and where a packed text that says it too.
struct CopiedTable {
  const char* name;
  std::size_t correctionColumn;
  /// Of the packed text that gets the new correction; none for tables whose texts are copied as they stand.
  std::size_t packedColumn = 0;
};

inline constexpr CopiedTable documents{.name = "DS_FORM_INDUK", .correctionColumn = 5, .packedColumn = 8};
inline constexpr CopiedTable listItems{.name = "DS_FORM_LAMPIRAN", .correctionColumn = 3};
inline constexpr CopiedTable payees{.name = "D113210", .correctionColumn = 5};
inline constexpr CopiedTable selfPaidForms{.name = "DAT_SSP_PPh22", .correctionColumn = 5, .packedColumn = 8};
inline constexpr CopiedTable selfPaidItems{.name = "LAMPIRAN_SSP_PPh22", .correctionColumn = 3};

/// The return of March 2009 with a document of every form, and the ways to look at its copies.
class CopyTest : public ReturnTest {
 protected:
  static constexpr const char* filer = "013121660091000";
  static constexpr const char* newNumber = "013121660093000";

  void copy(std::int16_t correction = 0, std::string_view npwp = filer) {
    CF113204().pCopyAllData(npwp, "113", 3, 2009, correction);
  }
  void copySelfPaid(std::int16_t correction = 0, std::string_view npwp = filer) {
    CF113204().pCopyAllDataSSP(npwp, "113", 3, 2009, correction);
  }
  void move(std::int16_t correction = 0, std::string_view to = newNumber) {
    CF113204().pCopyAllDataOldKPP(filer, to, "113", 3, 2009, correction);
  }
  void moveSelfPaid(std::int16_t correction = 0, std::string_view to = newNumber) {
    CF113204().pCopyAllDataSSPOldKPP(filer, to, "113", 3, 2009, correction);
  }

  void addItem(const std::string& table, const std::string& list, const std::string& number, const std::string& packed,
               int sequence = 1, int collection = 0, int correction = 0) {
    run("INSERT INTO " + table + " VALUES ('" + list + "',3,2009," + std::to_string(correction) + "," +
        std::to_string(collection) + "," + std::to_string(sequence) + ",'" + number + "','" + packed + "')");
  }
  void addPayee(const std::string& number, const std::string& rate, const std::string& kind = "DN",
                int correction = 0) {
    run("INSERT INTO D113210 VALUES ('021832415000000','Budi','Bandung',3,2009," + std::to_string(correction) +
        ",DateValue('09/03/2009'),'" + number + "','" + kind + "','Bank A',1000000," + rate + ",200000.5,'',0)");
  }

  /// A document of every form, their list items, payees of the interest slip.
  void fill() {
    makeReturn();
    int sequence = 0;
    for (const char* form :
         {"F113309", "F113310", "F113311", "F113312", "F113316", "F113317", "F113319", "F113320", "F113321"}) {
      const std::string number = "00000" + std::to_string(++sequence) + "/PPH4";
      addDocument({.form = form,
                   .number = number,
                   .fields = {{"NoBukti", number}, {"Tgl_Potong", "09/03/2009"}},
                   .totals = {{"FlagNPWP", std::to_string(sequence % 3)},
                              {"Total_Bruto", std::to_string(1000 * sequence) + ".5"},
                              {"Total_PPh4", std::to_string(sequence)}}});
      addItem("DS_FORM_LAMPIRAN", "D113206", number, "3;2009;" + std::to_string(sequence) + ";" + number + ";1;2",
              sequence);
    }
    addItem("DS_FORM_LAMPIRAN", "D113206", "000001/PPH4", "second collection", 1, 1);
    addPayee("000002/PPH4", "20");
    addPayee("000002/PPH4", "17.5", "LN");
    fillSelfPaid();
  }
  void fillSelfPaid() {
    int sequence = 0;
    for (const auto& [form, list] : {std::pair("FSewaTnhBgn", "DSewaTnhBgn"),
                                     {"FJasaKonstruksi", "DJasaKonstruksi"},
                                     {"FAlihTnhBgn", "DAlihTnhBgn"}}) {
      ++sequence;
      const std::string number = "NTPN " + std::to_string(sequence);
      addDocument({.form = form, .number = number, .fields = {{"NTTP", number}, {"SEQ", "1"}}});
      addItem("LAMPIRAN_SSP_PPh22", list, number, "3;2009;1;" + number, 1);
      addItem("LAMPIRAN_SSP_PPh22", list, number, "3;2009;2;" + number, 2);
    }
  }

  /// The rows of March 2009 under this correction, in the order in which they were inserted. All rows are read, since a
  /// condition could bring them in the order of an index.
  std::vector<Row> rows(const CopiedTable& table, int correction) {
    const Row period = {"3", "2009", std::to_string(correction)};
    std::vector<Row> found;
    for (Row& row : allRows(table.name)) {
      const auto last = row.begin() + static_cast<std::ptrdiff_t>(table.correctionColumn);
      if (std::equal(period.begin(), period.end(), last - 2)) found.push_back(std::move(row));
    }
    return found;
  }
  std::vector<Row> sorted(std::vector<Row> found) {
    std::sort(found.begin(), found.end());
    return found;
  }
  std::vector<Row> allRows(const std::string& table) {
    std::vector<Row> all;
    const RecordsetPtr found = query("SELECT * FROM " + table);
    const std::int32_t count = found->get_Fields().get_Count();
    for (; !found->get_EOF(); found->MoveNext()) {
      Row row;
      for (std::int32_t column = 0; column < count; ++column) {
        const Variant value = found->get_Collect(column);
        row.push_back(value.isNull() ? "(null)" : CStr(value));
      }
      all.push_back(std::move(row));
    }
    return all;
  }
  /// Every row of every table that a copy may touch.
  std::vector<std::vector<Row>> everything() {
    std::vector<std::vector<Row>> all;
    for (const char* table : {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "D113210", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22",
                              "DATSSP", "datPBKPPhMasa"})
      all.push_back(allRows(table));
    return all;
  }

  /// What the copy of a row must be: the same row under the next correction.
  static Row copyOf(Row row, const CopiedTable& table, int correction) {
    row[table.correctionColumn] = std::to_string(correction);
    if (table.packedColumn != 0) row[table.packedColumn] = withField(row[table.packedColumn], 5, correction);
    // A main form of the older layout is written anew with all positions of the newer.
    if (table.packedColumn != 0 && row[1] == "F113204")
      row[table.packedColumn].append(static_cast<std::size_t>(106 - std::count(row[8].begin(), row[8].end(), ';')),
                                     ';');
    return row;
  }
  static std::vector<Row> copiesOf(std::vector<Row> found, const CopiedTable& table, int correction) {
    for (Row& row : found) row = copyOf(std::move(row), table, correction);
    return found;
  }
  static std::string withField(std::string packed, int field, int value) {
    std::size_t start = 0;
    for (int i = 0; i < field; ++i) start = packed.find(';', start) + 1;
    const std::size_t end = std::min(packed.find(';', start), packed.size());
    return packed.replace(start, end - start, std::to_string(value));
  }

  /// Each row of the target is the copy of a row of the source, and each of the source has one.
  void expectCopy(const CopiedTable& table, int source = 0) {
    EXPECT_EQ(sorted(rows(table, source + 1)), sorted(copiesOf(rows(table, source), table, source + 1))) << table.name;
  }
  std::string text(const std::string& table, const std::string& column, const std::string& condition) {
    const std::vector<std::string> found = this->column("SELECT " + column + " FROM " + table + " WHERE " + condition);
    return found.size() == 1 ? found.front() : "(" + std::to_string(found.size()) + " rows)";
  }
};

}  // namespace tarvola::test
