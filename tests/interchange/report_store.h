#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tarvola/interchange/CLaporData.h"
#include "tarvola/interchange/reporting_file.h"
#include "tarvola/store/form_codes.h"
#include "tests/interchange/interchange_store.h"

namespace tarvola::test {

/// So many fields of a packed text, "f0", "f1" and so on, some of them replaced.
inline std::string packedText(std::size_t fieldCount, const std::map<std::size_t, std::string>& replaced = {}) {
  std::vector<std::string> fields;
  for (std::size_t i = 0; i < fieldCount; ++i) fields.push_back("f" + std::to_string(i));
  for (const auto& [place, text] : replaced) fields.at(place) = text;
  return join(fields, ";");
}

/// The packed text of a fresh main return: 88 fields, each amount with a number of its own, 10 February 2009.
inline std::string packedReturn(const std::map<std::size_t, std::string>& replaced = {}) {
  std::map<std::size_t, std::string> fields = {
      {0, "013121660091000"}, {1, "PT Contoh Sejahtera"}, {2, "Jl. Merdeka No. 1"}, {3, "1"}, {4, "2009"}, {5, "0"}};
  for (std::size_t i = 6; i < 87; ++i) fields[i] = std::to_string(1000 + i);
  fields[87] = "10/02/2009";
  for (const auto& [place, text] : replaced) fields[place] = text;
  return packedText(88, fields);
}

/// What a test reports beside the period, which is January 2009.
struct Report {
  std::int16_t correction = 0;
  std::uint8_t status = 1;
  double dJmlNKLB = 0;
  std::string paymentsCorrection = "0";
  std::string secret = "rahasia";
};

/// A store whose returns are reported into one file.
class ReportStore : public InterchangeStore {
 public:
  /// A row of January 2009 under the codes of its form.
  void document(std::string_view kdForm, std::string_view datForm, int correction = 0, std::string_view spelling = {},
                std::string_view npwp = "013121660091000") {
    const store::FormCodes& codes = *store::findForm(kdForm);
    const bool isInduk = codes.table == store::FormTable::Induk;
    run(std::string("INSERT INTO ") + (isInduk ? "DS_FORM_INDUK" : "DAT_SSP_PPh22") +
        " (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,DAT_FORM,TGL_REKAM,"
        "TGL_UBAH,NIP) VALUES ('" +
        std::string(npwp) + "','" + std::string(spelling.empty() ? kdForm : spelling) + "','" +
        std::string(codes.jenisDokumen) + "',1,2009," + std::to_string(correction) + ",'-','113','" +
        std::string(datForm) + "','','','')");
  }
  void mainReturn(int correction = 0) { document("F113204", packedReturn(), correction); }
  void payment(int key, std::string_view kdMap, int correction = 0, std::string_view date = "10/02/2009") {
    run("INSERT INTO "
        "DATSSP(TableKey,KodePasal,NPWP,MsPjk,ThPjk,KdPmbtln,KdMAP,KdJnsStr,TglSSP,NTPP,JmlByr,Catatan,NoSK) "
        "VALUES (" +
        std::to_string(key) + ",4,'013121660091000',1,2009," + std::to_string(correction) + ",'" + std::string(kdMap) +
        "',' 401 ',DateValue('" + std::string(date) + "'),' 0102030405060708 ',1500000.5,'','')");
  }
  void compensation(std::string_view number) {
    run("INSERT INTO datPBKPPhMasa (PASAL,NoBuktiPBK,MsPjkPBK,ThPjkPBK,TanggalBerlaku,JumlahPBK) VALUES (4,'" +
        std::string(number) + "',1,2009,DateValue('15/02/2009'),250000)");
  }

  [[nodiscard]] std::string reportPath() const { return path("report"); }
  [[nodiscard]] std::string reportBytes() const { return folder().read("report"); }

  void writeReport(const Report& report = {}) const { writeReportTo(reportPath(), report); }
  static void writeReportTo(const std::string& path, const Report& report = {}) {
    CLaporData().pEksporDataTRV4_2009("1", "2009", report.correction, path, report.status, "013121660091000",
                                      report.dJmlNKLB, report.paymentsCorrection, report.secret, "10/02/2009");
  }
  /// Writes the report and reads it back.
  [[nodiscard]] std::vector<std::string> reportedLines(const Report& report = {}) const {
    writeReport(report);
    return readReportingFile(reportPath(), report.secret).lines;
  }
};

inline constexpr const char* profileLine =
    "113;00;1.0;10/02/2009;013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;Jakarta;10110;021-3500001;021-3500002;"
    "pajak@contoh.co.id;021832415000000;Budi Santoso;;;Kepala Bagian Pajak;Siti Rahma;091;";

/// The line of packedReturn: every field stands in it, in the order of the packed text.
inline std::string mainLine() { return "113;01;F113204;1;0;" + packedReturn() + ";"; }

}  // namespace tarvola::test
