#pragma once

#include <array>
#include <initializer_list>
#include <string_view>

#include "tarvola/interchange/file_columns.h"
#include "tarvola/store/form_codes.h"

/// What each form writes into the columns of the slip export file behind the first nine.
namespace tarvola::interchange {

/// How a column comes about.
enum class Source : std::uint8_t {
  Nothing,         ///< no text between the two separators
  Zero,            ///< the text 0
  Field,           ///< a field's value, blanks cut at both ends
  UntrimmedField,  ///< a field's value as it is
  InvertedOption,  ///< "0" for a stored 1, "1" for anything else; the import turns it round again
};

struct ColumnSource {
  Source source = Source::Nothing;
  std::string_view field = {};
};

/// Where a form's field goes.
struct ExportField {
  Column column;
  std::string_view field;
  Source source = Source::Field;
};

using RowColumns = std::array<ColumnSource, columnCount>;

namespace detail {

/// The columns of a form: its fields, and in all other columns the 0 or nothing that their kind asks for. The first
/// four are the form code and the period, which no field gives.
constexpr RowColumns columnsOf(std::initializer_list<ExportField> head, std::initializer_list<ExportField> fields) {
  RowColumns columns{};
  for (const ColumnInfo& column : fileColumns)
    if (column.kind == ColumnKind::Number) columns[index(column.column)].source = Source::Zero;
  for (const ExportField& field : head) columns[index(field.column)] = {field.source, field.field};
  for (const ExportField& field : fields) columns[index(field.column)] = {field.source, field.field};
  return columns;
}

constexpr RowColumns slip(std::initializer_list<ExportField> fields) {
  return columnsOf({{PayeeNpwp, "NPWPLT"},
                    {PayeeName, "NMWPLT"},
                    {PayeeAddress, "ALMLT"},
                    {Number, "NoBukti"},
                    {DateOfSlip, "Tgl_Potong"}},
                   fields);
}

/// A self-paid form has no payee, whatever its extra fields hold.
constexpr RowColumns selfPaidForm(std::initializer_list<ExportField> fields) {
  return columnsOf({{Number, "NTTP"}, {DateOfSlip, "Tgl_Potong"}}, fields);
}

constexpr ExportField option(Column column, std::string_view field) { return {column, field, Source::InvertedOption}; }
constexpr ExportField untrimmed(Column column, std::string_view field) {
  return {column, field, Source::UntrimmedField};
}

}  // namespace detail

// clang-format off
// One line for each group of the file's columns.

/// F113309: six prizes.
inline constexpr RowColumns lotteryColumns = detail::slip({
    {Text1, "B12"}, {Gross1, "B13"}, {Rate1, "B14"}, {Tax1, "B15"},
    {Text2, "B22"}, {Gross2, "B23"}, {Rate2, "B24"}, {Tax2, "B25"},
    {Text3, "B32"}, {Gross3, "B33"}, {Rate3, "B34"}, {Tax3, "B35"},
    {Text4, "B42"}, {Gross4, "B43"}, {Rate4, "B44"}, {Tax4, "B45"},
    {Text5, "B52"}, {Gross5, "B53"}, {Rate5, "B54"}, {Tax5, "B55"},
    {Text6, "B62"}, {Gross6, "B63"}, {Rate6, "B64"}, {Tax6, "B65"},
    {TotalTax, "JmlB5"},
});

/// F113310: five deposits with the side that they lie on, SBI, giro, other interest with its text.
inline constexpr RowColumns interestColumns = detail::slip({
    detail::option(Option1, "OPTDN1"), {Gross1, "B1A3"}, {Rate1, "B1A4"}, {Tax1, "B1A5"},
    detail::option(Option2, "OPTDN2"), {Gross2, "B1B3"}, {Rate2, "B1B4"}, {Tax2, "B1B5"},
    detail::option(Option3, "OPTDN3"), {Gross3, "B1C3"}, {Rate3, "B1C4"}, {Tax3, "B1C5"},
    detail::option(Option4, "OPTDN4"), {Gross4, "B23"}, {Rate4, "B24"}, {Tax4, "B25"},
    detail::option(Option5, "OPTDN5"), {Gross5, "B33"}, {Rate5, "B34"}, {Tax5, "B35"},
    {Gross6, "B43"}, {Rate6, "B44"}, {Tax6, "B45"},
    {Gross7, "B53"}, {Rate7, "B54"}, {Tax7, "B55"},
    {Text8, "B62"}, {Gross8, "B63"}, {Rate8, "B64"}, {Tax8, "B65"},
    {TotalTax, "JmlB5"},
});

/// F113311: founder shares and others.
inline constexpr RowColumns exchangeColumns = detail::slip({
    {Gross1, "B13"}, {Rate1, "B14"}, {Tax1, "B15"},
    {Gross2, "B23"}, {Rate2, "B24"}, {Tax2, "B25"},
    {TotalTax, "JmlB5"},
});

/// F113319, F113320 and F113321: one item, whose tax is the total too.
inline constexpr RowColumns singleItemColumns = detail::slip({
    {Gross1, "JMLBRUTO"}, {Rate1, "Tarif"}, {Tax1, "PPHDIPTG"}, {TotalTax, "PPHDIPTG"},
});

/// F113312: the same with the location of land or building.
inline constexpr RowColumns rentColumns = detail::slip({
    {Text1, "Lokasi"}, {Gross1, "JMLBRUTO"}, {Rate1, "Tarif"}, {Tax1, "PPHDIPTG"}, {TotalTax, "PPHDIPTG"},
});

/// F113316: five rows, the last two with the option planning (1), supervision (2) or neither (0).
inline constexpr RowColumns constructionColumns = detail::slip({
    {Gross1, "B13"}, {Rate1, "B14"}, {Tax1, "B15"},
    {Gross2, "B23"}, {Rate2, "B24"}, {Tax2, "B25"},
    {Gross3, "B33"}, {Rate3, "B34"}, {Tax3, "B35"},
    detail::untrimmed(Option4, "Opt4"), {Gross4, "B43"}, {Rate4, "B44"}, {Tax4, "B45"},
    detail::untrimmed(Option5, "Opt5"), {Gross5, "B53"}, {Rate5, "B54"}, {Tax5, "B55"},
    {TotalTax, "JmlB5"},
});

/// F113317: one bond, its figures spread over the gross columns.
inline constexpr RowColumns bondColumns = detail::slip({
    {Text1, "a1"}, {Gross1, "b1"}, {Rate1, "d1"}, {Text2, "c1"}, {Gross2, "h1"}, {Gross3, "i1"}, {Gross4, "j2"},
    {Gross5, "k2"}, {Gross6, "JML"}, {Rate6, "Tarif"}, {TotalTax, "PPhFinal"},
    {DueOn, "E1"}, {BoughtOn, "F1"}, {SoldOn, "G1"},
    detail::untrimmed(HoldingDays, "HoldingPeriode"), detail::untrimmed(TimeDays, "TimePeriode"),
});

inline constexpr RowColumns selfPaidRentColumns = detail::selfPaidForm({
    {Text1, "Lokasi"}, {Gross1, "JMLBRUTO"}, {Tax1, "PPH"}, {TotalTax, "PPH"},
});

inline constexpr RowColumns selfPaidTransferColumns = detail::selfPaidForm({
    {Gross1, "JMLBRUTO"}, {Tax1, "PPH"}, {TotalTax, "PPH"},
});

inline constexpr RowColumns selfPaidConstructionColumns = detail::selfPaidForm({
    {Gross1, "JmlBruto1"}, {Tax1, "PPH1"}, {Gross2, "JmlBruto2"}, {Tax2, "PPH2"}, {Gross3, "JmlBruto3"},
    {Tax3, "PPH3"}, {TotalTax, "JmlPPh"},
});

// clang-format on

/// One form of the export.
struct ExportForm {
  store::FormCodes codes;
  const RowColumns& columns;
};

inline constexpr std::array<ExportForm, 12> exportForms = {{
    {store::F113309, lotteryColumns},
    {store::F113310, interestColumns},
    {store::F113311, exchangeColumns},
    {store::F113312, rentColumns},
    {store::F113316, constructionColumns},
    {store::F113317, bondColumns},
    {store::F113319, singleItemColumns},
    {store::F113320, singleItemColumns},
    {store::F113321, singleItemColumns},
    {store::FSewaTnhBgn, selfPaidRentColumns},
    {store::FJasaKonstruksi, selfPaidConstructionColumns},
    {store::FAlihTnhBgn, selfPaidTransferColumns},
}};

/// The export of a form by its exact code, nullptr for a form that is not exported.
constexpr const ExportForm* findExportForm(std::string_view kdForm) noexcept {
  for (const ExportForm& form : exportForms)
    if (form.codes.kdForm == kdForm) return &form;
  return nullptr;
}

}  // namespace tarvola::interchange
