#pragma once

#include <string>
#include <vector>

#include "tests/interchange/interchange_store.h"

namespace tarvola::test {

/// A store with payments and transfers of payments.
class PaymentStore : public InterchangeStore {
 public:
  static constexpr const char* filer = "013121660091000";

  struct Payment {
    std::string number = "0102030405060708";
    std::string date = "10/02/2009";
    std::string amount = "1500000";
    std::string account = "411128";
    std::string kind = "402";
    std::string npwp = filer;
    int article = 4;
    int month = 1;
    int year = 2009;
    int correction = 0;
    int key = 0;
  };
  void payment(const Payment& record) {
    run("INSERT INTO DATSSP (TableKey,KodePasal,NPWP,MsPjk,ThPjk,KdPmbtln,KdMAP,KdJnsStr,TglSSP,NTPP,JmlByr,Catatan,"
        "NoSK) VALUES (" +
        join({std::to_string(record.key), std::to_string(record.article), quoted(record.npwp),
              std::to_string(record.month), std::to_string(record.year), std::to_string(record.correction),
              quoted(record.account), quoted(record.kind), "DateValue(" + quoted(record.date) + ")",
              quoted(record.number), record.amount, "''", "''"},
             ",") +
        ")");
  }

  struct Transfer {
    std::string number;
    std::string npwp = filer;
    int article = 4;
    int month = 1;
    int year = 2009;
  };
  void transfer(const Transfer& record) {
    run("INSERT INTO datPBKPPhMasa (PASAL,NoBuktiPBK,MsPjkPBK,ThPjkPBK,NPWPTertuju,TanggalBerlaku,JumlahPBK) VALUES (" +
        join({std::to_string(record.article), quoted(record.number), std::to_string(record.month),
              std::to_string(record.year), quoted(record.npwp), "DateValue('15/02/2009')", "250000"},
             ",") +
        ")");
  }

  [[nodiscard]] std::vector<std::string> payments() const { return rows("SELECT * FROM DATSSP"); }
  [[nodiscard]] std::vector<std::string> transfers() const { return rows("SELECT * FROM datPBKPPhMasa"); }
  /// Both.
  [[nodiscard]] std::vector<std::string> records() const {
    std::vector<std::string> all = payments();
    for (std::string& row : transfers()) all.push_back(std::move(row));
    return all;
  }

 private:
  static std::string quoted(const std::string& text) { return "'" + text + "'"; }
};

}  // namespace tarvola::test
