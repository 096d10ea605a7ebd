#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "tarvola/store/form_codes.h"

namespace tarvola::mainreturn {

/// One of the 23 lines of the main form: its three fields, its name on the printed form, and what fills it.
struct ReturnLine {
  /// As the printed form numbers it: "1a1" to "11c".
  std::string_view number;
  std::string_view printedName = {};
  /// Field names: gross income in rupiah, rate in percent, tax in rupiah.
  std::string_view gross = {};
  std::string_view rate = {};
  std::string_view tax = {};
  /// The form whose documents fill the line; "" for a line that only a person fills.
  std::string_view filledFrom = {};
  /// The field of the line's own text, "" for a line without one.
  std::string_view ownText = {};
};

/// The lines in the order of the form, which is also their order in the packed text.
inline constexpr std::array returnLines = {
    ReturnLine{.number = "1a1",
               .printedName = "Bunga Deposito/Tabungan, ditempatkan di Dalam Negeri",
               .gross = "B1a13",
               .rate = "B1a14",
               .tax = "B1a15",
               .filledFrom = store::F113310.kdForm},
    ReturnLine{.number = "1a2",
               .printedName = "Bunga Deposito/Tabungan, ditempatkan di Luar Negeri",
               .gross = "B1a23",
               .rate = "B1a24",
               .tax = "B1a25",
               .filledFrom = store::F113310.kdForm},
    ReturnLine{.number = "1b",
               .printedName = "Diskonto Sertifikat Bank Indonesia",
               .gross = "B1B3",
               .rate = "B1B4",
               .tax = "B1B5",
               .filledFrom = store::F113310.kdForm},
    ReturnLine{.number = "1c",
               .printedName = "Jasa Giro",
               .gross = "B1C3",
               .rate = "B1C4",
               .tax = "B1C5",
               .filledFrom = store::F113310.kdForm},
    ReturnLine{.number = "2a",
               .printedName = "Saham Pendiri",
               .gross = "B2a3",
               .rate = "B2a4",
               .tax = "B2a5",
               .filledFrom = store::F113311.kdForm},
    ReturnLine{.number = "2b",
               .printedName = "Bukan Saham Pendiri",
               .gross = "B2b3",
               .rate = "B2b4",
               .tax = "B2b5",
               .filledFrom = store::F113311.kdForm},
    ReturnLine{.number = "3",
               .printedName = "Bunga/Diskonto Obligasi dan Surat Berharga Negara",
               .gross = "B33",
               .rate = "B34",
               .tax = "B35",
               .filledFrom = store::F113317.kdForm},
    ReturnLine{.number = "4",
               .printedName = "Hadiah Undian",
               .gross = "B43",
               .rate = "B44",
               .tax = "B45",
               .filledFrom = store::F113309.kdForm},
    ReturnLine{.number = "5a",
               .printedName = "Persewaan Tanah dan/atau Bangunan, Penyewa sebagai Pemotong Pajak",
               .gross = "B5a3",
               .rate = "B5a4",
               .tax = "B5a5",
               .filledFrom = store::F113312.kdForm},
    ReturnLine{.number = "5b",
               .printedName = "Persewaan Tanah dan/atau Bangunan, Orang Pribadi/Badan yang Menyetor Sendiri PPh",
               .gross = "B5b3",
               .rate = "B5b4",
               .tax = "B5b5",
               .filledFrom = store::FSewaTnhBgn.kdForm},
    ReturnLine{.number = "6a1",
               .printedName = "Perencana Konstruksi, Pengguna Jasa sebagai Pemotong",
               .gross = "B6a13",
               .rate = "B6a14",
               .tax = "B6a15",
               .filledFrom = store::F113316.kdForm},
    ReturnLine{.number = "6a2",
               .printedName = "Perencana Konstruksi, Penyedia Jasa Menyetor Sendiri",
               .gross = "B6a23",
               .rate = "B6a24",
               .tax = "B6a25",
               .filledFrom = store::FJasaKonstruksi.kdForm},
    ReturnLine{.number = "6b1",
               .printedName = "Pelaksana Konstruksi, Pengguna Jasa sebagai Pemotong",
               .gross = "B6b13",
               .rate = "B6b14",
               .tax = "B6b15",
               .filledFrom = store::F113316.kdForm},
    ReturnLine{.number = "6b2",
               .printedName = "Pelaksana Konstruksi, Penyedia Jasa Menyetor Sendiri",
               .gross = "B6b23",
               .rate = "B6b24",
               .tax = "B6b25",
               .filledFrom = store::FJasaKonstruksi.kdForm},
    ReturnLine{.number = "6c1",
               .printedName = "Pengawas Konstruksi, Pengguna Jasa sebagai Pemotong",
               .gross = "B6c13",
               .rate = "B6c14",
               .tax = "B6c15",
               .filledFrom = store::F113316.kdForm},
    ReturnLine{.number = "6c2",
               .printedName = "Pengawas Konstruksi, Penyedia Jasa Menyetor Sendiri",
               .gross = "B6c23",
               .rate = "B6c24",
               .tax = "B6c25",
               .filledFrom = store::FJasaKonstruksi.kdForm},
    ReturnLine{.number = "7",
               .printedName = "Pengalihan Hak atas Tanah/Bangunan",
               .gross = "B73",
               .rate = "B74",
               .tax = "B75",
               .filledFrom = store::FAlihTnhBgn.kdForm},
    ReturnLine{.number = "8",
               .printedName = "Bunga Simpanan Koperasi",
               .gross = "B83",
               .rate = "B84",
               .tax = "B85",
               .filledFrom = store::F113319.kdForm},
    ReturnLine{.number = "9",
               .printedName = "Transaksi Derivatif Berupa Kontrak Berjangka",
               .gross = "B93",
               .rate = "B94",
               .tax = "B95",
               .filledFrom = store::F113320.kdForm},
    ReturnLine{.number = "10",
               .printedName = "Dividen yang Diterima Wajib Pajak Orang Pribadi Dalam Negeri",
               .gross = "B103",
               .rate = "B104",
               .tax = "B105",
               .filledFrom = store::F113321.kdForm},
    ReturnLine{.number = "11a",
               .printedName = "Penghasilan Tertentu Lainnya",
               .gross = "B11a3",
               .rate = "B11a4",
               .tax = "B11a5",
               .filledFrom = store::F113310.kdForm,
               .ownText = "B11a"},
    ReturnLine{.number = "11b",
               .printedName = "Penghasilan Tertentu Lainnya",
               .gross = "B11b3",
               .rate = "B11b4",
               .tax = "B11b5",
               .ownText = "B11b"},
    ReturnLine{.number = "11c",
               .printedName = "Penghasilan Tertentu Lainnya",
               .gross = "B11c3",
               .rate = "B11c4",
               .tax = "B11c5",
               .ownText = "B11c"},
};
static_assert(returnLines.size() == 23);

/// The line of a number. A number that no line has does not compile.
consteval const ReturnLine& returnLine(std::string_view number) {
  return *std::find_if(returnLines.begin(), returnLines.end(),
                       [number](const ReturnLine& line) { return line.number == number; });
}

/// The totals of the return, over the gross and the tax of all lines.
inline constexpr std::string_view totalGross = "JMLPHSL";
inline constexpr std::string_view totalTax = "JmlB5";

/// The marks of part C and the quantities behind them that a save makes whole; CHKC5 and CHKC6 are not among them.
inline constexpr std::array<std::string_view, 6> partC = {"CHKC1", "CHKC2", "CHKC3", "CHKC4", "c1", "C3"};

}  // namespace tarvola::mainreturn
