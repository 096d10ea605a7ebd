#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "tarvola/slips/slip_description.h"
#include "tarvola/slips/slip_field.h"

/// The rows of the nine slip forms, and the fields of each that can be written, in the order in which a person fills
/// in the form. Whatever is not in these tables has no property to write it.
namespace tarvola::slips::detail {

// --- the rows ------------------------------------------------------------------------------------------------

/// One row for each kind of prize.
inline constexpr std::array prizeRows = {
    AmountRow{.gross = "B13", .tariff = "B14", .tax = "B15"}, AmountRow{.gross = "B23", .tariff = "B24", .tax = "B25"},
    AmountRow{.gross = "B33", .tariff = "B34", .tax = "B35"}, AmountRow{.gross = "B43", .tariff = "B44", .tax = "B45"},
    AmountRow{.gross = "B53", .tariff = "B54", .tax = "B55"}, AmountRow{.gross = "B63", .tariff = "B64", .tax = "B65"}};

/// Five rows of deposits, each domestic or foreign by its options, then SBI, giro and other interest.
inline constexpr std::array interestRows = {AmountRow{.gross = "B1A3", .tariff = "B1A4", .tax = "B1A5"},
                                            AmountRow{.gross = "B1B3", .tariff = "B1B4", .tax = "B1B5"},
                                            AmountRow{.gross = "B1C3", .tariff = "B1C4", .tax = "B1C5"},
                                            AmountRow{.gross = "B23", .tariff = "B24", .tax = "B25"},
                                            AmountRow{.gross = "B33", .tariff = "B34", .tax = "B35"},
                                            AmountRow{.gross = "B43", .tariff = "B44", .tax = "B45"},
                                            AmountRow{.gross = "B53", .tariff = "B54", .tax = "B55"},
                                            AmountRow{.gross = "B63", .tariff = "B64", .tax = "B65"}};

/// Founder shares and other shares.
inline constexpr std::array exchangeRows = {AmountRow{.gross = "B13", .tariff = "B14", .tax = "B15"},
                                            AmountRow{.gross = "B23", .tariff = "B24", .tax = "B25"}};

inline constexpr std::array singleRow = {AmountRow{.gross = "JMLBRUTO", .tariff = "Tarif", .tax = "PPHDIPTG"}};

/// Three rows of construction work, then two of planning or supervision.
inline constexpr std::array constructionRows = {
    AmountRow{.gross = "B13", .tariff = "B14", .tax = "B15"}, AmountRow{.gross = "B23", .tariff = "B24", .tax = "B25"},
    AmountRow{.gross = "B33", .tariff = "B34", .tax = "B35"}, AmountRow{.gross = "B43", .tariff = "B44", .tax = "B45"},
    AmountRow{.gross = "B53", .tariff = "B54", .tax = "B55"}};

inline constexpr std::array bondRows = {AmountRow{.gross = "JML", .tariff = "Tarif", .tax = "PPhFinal"}};

// --- the words in which the tables are written down ------------------------------------------------------------

constexpr SlipField text(std::string_view name, std::string_view label = {}) {
  return {.name = name, .kind = FieldKind::Text, .label = label, .takesAnyValue = true};
}
/// A text whose property is a plain String.
constexpr SlipField plainText(std::string_view name, std::string_view label = {}) {
  return {.name = name, .kind = FieldKind::Text, .label = label};
}
constexpr SlipField date(std::string_view name, std::string_view label) {
  return {.name = name, .kind = FieldKind::Date, .label = label, .takesAnyValue = true};
}
constexpr SlipField amount(std::string_view name, std::string_view label = {}) {
  return {.name = name, .kind = FieldKind::Amount, .label = label};
}
constexpr SlipField percent(std::string_view name, std::string_view label) {
  return {.name = name, .kind = FieldKind::Percent, .label = label};
}
constexpr SlipField option(std::string_view name, std::string_view label = {}) {
  return {.name = name, .kind = FieldKind::Option, .label = label};
}
constexpr SlipField wholeNumber(std::string_view name, std::string_view label) {
  return {.name = name, .kind = FieldKind::WholeNumber, .label = label};
}

template <class... Fields>
constexpr std::array<SlipField, sizeof...(Fields)> list(Fields... fields) {
  return {fields...};
}

/// Runs of fields, one behind the other.
template <std::size_t... Counts>
constexpr std::array<SlipField, (Counts + ...)> joined(const std::array<SlipField, Counts>&... runs) {
  std::array<SlipField, (Counts + ...)> all{};
  std::size_t count = 0;
  const auto append = [&](std::span<const SlipField> run) {
    for (const SlipField& field : run) all[count++] = field;
  };
  (append(runs), ...);
  return all;
}

struct RowLabels {
  std::string_view gross;
  std::string_view tariff;
  std::string_view tax;
};
inline constexpr std::array<RowLabels, maximumRows> rowLabels = {
    {{"Jumlah Nilai Bruto 1", "Tarif 1", "PPh Yang Dipotong 1"},
     {"Jumlah Nilai Bruto 2", "Tarif 2", "PPh Yang Dipotong 2"},
     {"Jumlah Nilai Bruto 3", "Tarif 3", "PPh Yang Dipotong 3"},
     {"Jumlah Nilai Bruto 4", "Tarif 4", "PPh Yang Dipotong 4"},
     {"Jumlah Nilai Bruto 5", "Tarif 5", "PPh Yang Dipotong 5"},
     {"Jumlah Nilai Bruto 6", "Tarif 6", "PPh Yang Dipotong 6"},
     {"Jumlah Nilai Bruto 7", "Tarif 7", "PPh Yang Dipotong 7"},
     {"Jumlah Nilai Bruto 8", "Tarif 8", "PPh Yang Dipotong 8"}}};

/// Gross, tariff and tax of a form's row, the first being 0.
template <std::size_t Count>
constexpr std::array<SlipField, 3> row(const std::array<AmountRow, Count>& rows, std::size_t index) {
  const RowLabels& labels = rowLabels[index];
  return list(amount(rows[index].gross, labels.gross), percent(rows[index].tariff, labels.tariff),
              amount(rows[index].tax, labels.tax));
}

// --- what every form has ---------------------------------------------------------------------------------------

inline constexpr auto slipStart =
    list(date("Tgl_Potong", "Tanggal Bukti Potong"), text("NoBukti", "Nomor Bukti Potong"));
inline constexpr SlipField payeeNpwp = text("NPWPLT", "NPWP WP yang Dipotong");
inline constexpr SlipField payeeName = text("NMWPLT", "Nama WP yang Dipotong");
inline constexpr std::string_view payeeAddressLabel = "Alamat WP yang Dipotong";
inline constexpr auto payee = list(payeeNpwp, payeeName, text("ALMLT", payeeAddressLabel));
/// Where the payee's address is a plain String.
inline constexpr auto payeeOfPlainAddress = list(payeeNpwp, payeeName, plainText("ALMLT", payeeAddressLabel));
inline constexpr auto invoice = list(text("INVOICE"));

// --- the forms -------------------------------------------------------------------------------------------------

inline constexpr auto prizeFields =
    joined(slipStart, payee, list(text("B12", "Jenis Hadiah Undian 1")), row(prizeRows, 0),
           list(text("B22", "Jenis Hadiah Undian 2")), row(prizeRows, 1), list(text("B32", "Jenis Hadiah Undian 3")),
           row(prizeRows, 2), list(text("B42", "Jenis Hadiah Undian 4")), row(prizeRows, 3),
           list(text("B52", "Jenis Hadiah Undian 5")), row(prizeRows, 4), list(text("B62", "Jenis Hadiah Undian 6")),
           row(prizeRows, 5), invoice);

constexpr std::array<SlipField, 2> sides(std::string_view domestic, std::string_view foreign, std::string_view label) {
  return list(option(domestic, label), option(foreign, label));
}
inline constexpr auto certificates = list(plainText("NoSKB1"), plainText("NoSKB2"), plainText("NoSKB3"),
                                          plainText("NoSKB4"), plainText("NoSKB5"), plainText("NoSKB6"));
inline constexpr auto interestFields =
    joined(slipStart, payee, sides("OPTDN1", "OPTLN1", "Kode Option Tempat Penyimpanan 1"), row(interestRows, 0),
           sides("OPTDN2", "OPTLN2", "Kode Option Tempat Penyimpanan 2"), row(interestRows, 1),
           sides("OPTDN3", "OPTLN3", "Kode Option Tempat Penyimpanan 3"), row(interestRows, 2),
           sides("OPTDN4", "OPTLN4", "Kode Option Tempat Penyimpanan 4"), row(interestRows, 3),
           sides("OPTDN5", "OPTLN5", "Kode Option Tempat Penyimpanan 5"), row(interestRows, 4), row(interestRows, 5),
           row(interestRows, 6), list(text("B62", "Jenis Penghasilan 8")), row(interestRows, 7), certificates,
           list(amount("JmlNOPDN"), amount("JmlNOPLN"), amount("JmlPPhDN"), amount("JmlPPhLN")), invoice);

/// The filer, where it can be written.
inline constexpr auto filer = list(text("npwp"), text("NmWP"), plainText("ALM"));

inline constexpr auto exchangeFields =
    joined(slipStart, payee, list(plainText("BURSA")), row(exchangeRows, 0), row(exchangeRows, 1), filer, invoice);

inline constexpr auto singleItemFields = joined(
    slipStart, payeeOfPlainAddress, list(text("Lokasi", "Lokasi Tanah dan atau Bangunan")),
    list(amount("JMLBRUTO", "Jumlah Nilai Bruto"), percent("Tarif", "Tarif"), amount("PPHDIPTG", "PPh Yang Dipotong")),
    filer, list(text("NMUSER")), invoice);

constexpr SlipField kindOfService(std::string_view name) {
  SlipField field = option(name, "Kode Option Perencanaan (1) atau Pengawasan (2) atau selainnya (0)");
  field.takesAnyValue = true;
  return field;
}
inline constexpr auto constructionFields =
    joined(slipStart, payeeOfPlainAddress, row(constructionRows, 0), row(constructionRows, 1), row(constructionRows, 2),
           list(kindOfService("Opt4")), row(constructionRows, 3), list(kindOfService("Opt5")), row(constructionRows, 4),
           list(text("npwp"), text("NmWP"), text("ALM")), invoice);

// Behind what the total depends on stands the total, then the tariff, whose write computes the tax from it.
inline constexpr auto bondFields = joined(
    slipStart, payee,
    list(text("a1", "Nama Obligasi"), text("c1", "Nomor Seri Obligasi"), amount("b1", "Jumlah Nilai Nominal Obligasi"),
         percent("d1", "Tingkat Bunga per Tahun"), date("E1", "Tanggal Jatuh Tempo Obligasi"),
         date("F1", "Tanggal Perolehan Obligasi"), date("G1", "Tanggal Penjualan Obligasi"),
         wholeNumber("HoldingPeriode", "Holding Periode Obligasi (Hari)"),
         wholeNumber("TimePeriode", "Time Periode Obligasi (Hari)")),
    list(amount("h1", "Jumlah Harga Perolehan Bersih (tanpa Bunga)"),
         amount("i1", "Jumlah Harga Penjualan Bersih (tanpa Bunga)"), amount("j2", "Jumlah Diskonto"),
         amount("k2", "Jumlah Bunga"), amount("JML", "Jumlah Total Bunga atau Diskonto"),
         percent("Tarif", "Tarif PPh Final"), amount("PPhFinal", "PPh Yang Dipotong")),
    list(option("OptPPhFinTdkDiptg"), wholeNumber("MS_PAJAK", "Masa Pajak"), wholeNumber("TH_PAJAK", "Tahun Pajak"),
         text("npwp")),
    invoice);

/// No field twice: a field has one property.
template <std::size_t Count>
constexpr bool hasNoDouble(const std::array<SlipField, Count>& fields) {
  for (std::size_t index = 0; index < Count; ++index)
    for (std::size_t other = index + 1; other < Count; ++other)
      if (fields[index].name == fields[other].name) return false;
  return true;
}
static_assert(hasNoDouble(prizeFields) && hasNoDouble(interestFields) && hasNoDouble(exchangeFields));
static_assert(hasNoDouble(singleItemFields) && hasNoDouble(constructionFields) && hasNoDouble(bondFields));

}  // namespace tarvola::slips::detail
