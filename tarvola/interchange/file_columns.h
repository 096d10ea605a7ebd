#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarvola::interchange {

/// The columns of the slip exchange file in their order, the first being 0. A slip has up to eight groups of kind,
/// option, gross, rate and tax; the later groups lack some of the five.
enum class Column : std::uint8_t {
  FormCode,
  Month,
  Year,
  Correction,
  PayeeNpwp,
  PayeeName,
  PayeeAddress,
  Number,
  DateOfSlip,
  Text1,
  Option1,
  Gross1,
  Rate1,
  Tax1,
  Text2,
  Option2,
  Gross2,
  Rate2,
  Tax2,
  Text3,
  Option3,
  Gross3,
  Rate3,
  Tax3,
  Text4,
  Option4,
  Gross4,
  Rate4,
  Tax4,
  Text5,
  Option5,
  Gross5,
  Rate5,
  Tax5,
  Text6,
  Gross6,
  Rate6,
  Tax6,
  Gross7,
  Rate7,
  Tax7,
  Text8,
  Gross8,
  Rate8,
  Tax8,
  TotalTax,
  DueOn,
  BoughtOn,
  SoldOn,
  HoldingDays,
  TimeDays,
};

using enum Column;

inline constexpr std::size_t columnCount = 51;
static_assert(static_cast<std::size_t>(TimeDays) + 1 == columnCount);

constexpr std::size_t index(Column column) noexcept { return static_cast<std::size_t>(column); }

/// What stands in a column of a form that has nothing to say there: 0 where numbers stand, nothing where texts and
/// dates stand.
enum class ColumnKind : std::uint8_t { Text, Number };

struct ColumnInfo {
  Column column;
  ColumnKind kind;
  /// The title in the header line, blanks included.
  std::string_view title;
};

inline constexpr std::array<ColumnInfo, columnCount> fileColumns = {{
    {FormCode, ColumnKind::Text, "Kode Form Bukti Potong / Kode Form Input PPh Yang Dibayar Sendiri"},
    {Month, ColumnKind::Number, "Masa Pajak"},
    {Year, ColumnKind::Number, "Tahun Pajak"},
    {Correction, ColumnKind::Number, "Pembetulan"},
    {PayeeNpwp, ColumnKind::Text, "NPWP WP yang Dipotong"},
    {PayeeName, ColumnKind::Text, "Nama WP yang Dipotong"},
    {PayeeAddress, ColumnKind::Text, "Alamat WP yang Dipotong"},
    {Number, ColumnKind::Text, "Nomor Bukti Potong / NTPN"},
    {DateOfSlip, ColumnKind::Text, "Tanggal Bukti Potong/Tanggal SSP"},
    {Text1, ColumnKind::Text, "Jenis Hadiah Undian 1 / Lokasi Tanah dan atau Bangunan / Nama Obligasi"},
    {Option1, ColumnKind::Number, "Kode Option Tempat Penyimpanan 1 (Khusus F113310)"},
    {Gross1, ColumnKind::Number,
     "Jumlah Nilai Bruto 1 / Jumlah Nilai Nominal Obligasi Yg Diperdagangkan Di Bursa Efek / Jumlah Penghasilan Pada "
     "Form Input Yang Dibayar Sendiri"},
    {Rate1, ColumnKind::Number, "Tarif 1 / Tingkat Bunga per Tahun"},
    {Tax1, ColumnKind::Number, "PPh Yang Dipotong  1 /Jumlah PPh Pada Form Input Yang Dibayar Sendiri"},
    {Text2, ColumnKind::Text, "Jenis Hadiah Undian 2 / Nomor Seri Obligasi "},
    {Option2, ColumnKind::Number, "Kode Option Tempat Penyimpanan 2"},
    {Gross2, ColumnKind::Number,
     "Jumlah Nilai Bruto 2 / Jumlah Harga Perolehan Bersih (tanpa Bunga) Pada Obligasi Yg Diperdagangkan Di Bursa "
     "Efek"},
    {Rate2, ColumnKind::Number, "Tarif 2"},
    {Tax2, ColumnKind::Number, "PPh Yang Dipotong  2"},
    {Text3, ColumnKind::Text, "Jenis Hadiah Undian 3"},
    {Option3, ColumnKind::Number, "Kode Option Tempat Penyimpanan 3"},
    {Gross3, ColumnKind::Number,
     "Jumlah Nilai Bruto 3 / Jumlah Harga Penjualan Bersih (tanpa Bunga) Pada Obligasi Yg Diperdagangkan Di Bursa "
     "Efek"},
    {Rate3, ColumnKind::Number, "Tarif 3"},
    {Tax3, ColumnKind::Number, "PPh Yang Dipotong  3"},
    {Text4, ColumnKind::Text, "Jenis Hadiah Undian 4"},
    {Option4, ColumnKind::Number,
     "Kode Option Tempat Penyimpanan 4 / Kode Option Perencanaan (1) atau Pengawasan (2) atau selainnya (0) untuk BP "
     "Jasa Konstruksi poin 4"},
    {Gross4, ColumnKind::Number,
     "Jumlah Nilai Bruto 4 / Jumlah Diskonto Pada Obligasi Yg Diperdagangkan Di Bursa Efek"},
    {Rate4, ColumnKind::Number, "Tarif 4"},
    {Tax4, ColumnKind::Number, "PPh Yang Dipotong  4"},
    {Text5, ColumnKind::Text, "Jenis Hadiah Undian 5"},
    {Option5, ColumnKind::Number,
     "Kode Option Tempat Penyimpanan 5 / Kode Option Perencanaan (1) atau Pengawasan (2) atau selainnya (0) untuk BP "
     "Jasa Konstruksi poin 5"},
    {Gross5, ColumnKind::Number, "Jumlah Nilai Bruto 5 / Jumlah Bunga Pada Obligasi Yg Diperdagangkan Di Bursa Efek"},
    {Rate5, ColumnKind::Number, "Tarif 5"},
    {Tax5, ColumnKind::Number, "PPh Yang Dipotong  5"},
    {Text6, ColumnKind::Text, "Jenis Hadiah Undian 6"},
    {Gross6, ColumnKind::Number,
     "Jumlah Nilai Bruto 6 / Jumlah Total Bunga atau Diskonto Obligasi Yang Diperdagangkan"},
    {Rate6, ColumnKind::Number, "Tarif 6 / Tarif PPh Final Pada Obligasi Yang Diperdagangkan Di Bursa Efek"},
    {Tax6, ColumnKind::Number, "PPh Yang Dipotong  6"},
    {Gross7, ColumnKind::Number, "Jumlah Nilai Bruto 7"},
    {Rate7, ColumnKind::Number, "Tarif 7"},
    {Tax7, ColumnKind::Number, "PPh Yang Dipotong 7"},
    {Text8, ColumnKind::Text, "Jenis Penghasilan 8"},
    {Gross8, ColumnKind::Number, "Jumlah Nilai Bruto 8"},
    {Rate8, ColumnKind::Number, "Tarif 8"},
    {Tax8, ColumnKind::Number, "PPh Yang Dipotong 8"},
    {TotalTax, ColumnKind::Number, "Jumlah PPh Yang Dipotong"},
    {DueOn, ColumnKind::Text, "Tanggal Jatuh Tempo Obligasi"},
    {BoughtOn, ColumnKind::Text, "Tanggal Perolehan Obligasi"},
    {SoldOn, ColumnKind::Text, "Tanggal Penjualan Obligasi"},
    {HoldingDays, ColumnKind::Text, "Holding Periode Obligasi (Hari)"},
    {TimeDays, ColumnKind::Text, "Time Periode Obligasi (Hari)"},
}};

/// Each row of the table stands at its own column's place.
constexpr bool isInOrder() {
  for (std::size_t i = 0; i < columnCount; ++i)
    if (index(fileColumns[i].column) != i) return false;
  return true;
}
static_assert(isInOrder());

}  // namespace tarvola::interchange
