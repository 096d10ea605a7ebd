#include "tarvola/interchange/return_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "tarvola/interchange/rebuild_return.h"
#include "tarvola/interchange/slip_file_import.h"
#include "tarvola/store/form_layouts.h"
#include "tests/interchange/interchange_store.h"

namespace tarvola::test {
namespace {

using interchange::Column;
using interchange::index;

constexpr const char* slipTable = "DS_FORM_INDUK";
constexpr const char* slipRows = "DS_FORM_LAMPIRAN";
constexpr const char* selfPaidTable = "DAT_SSP_PPh22";
constexpr const char* selfPaidRows = "LAMPIRAN_SSP_PPh22";

/// A month with one document of each of the twelve forms.
///
/// Its lines of the return, gross in millions: 1a1 50, 1a2 20, 1b 30, 1c 10, 2b 40, 3 20, 4 100, 5a 60, 5b 70, 6a1 5,
/// 6a2 11, 6b1 80, 6b2 12, 7 90, 8 1, 9 2, 10 3; together 604. The nine slips have 421 of them, with a tax of 58290000.
class ReturnCheck {
 public:
  ReturnCheck() {
    const auto line = [](const char* form, const char* number) {
      Line made(form, number);
      return made;
    };
    const auto money = [](Line& made, Column gross, const char* grossText, Column rate, const char* rateText,
                          Column tax, const char* taxText) {
      made.with(index(gross), grossText).with(index(rate), rateText).with(index(tax), taxText);
    };
    std::vector<Line> lines;
    Line prize = line("F113309", "000001/PPH4").with(index(Column::Text1), "Mobil");
    money(prize, Column::Gross1, "100000000", Column::Rate1, "25", Column::Tax1, "25000000");
    lines.push_back(prize.with(index(Column::TotalTax), "25000000"));
    Line interest = line("F113310", "000002/PPH4").with(index(Column::Option2), "1");
    money(interest, Column::Gross1, "50000000", Column::Rate1, "20", Column::Tax1, "10000000");
    money(interest, Column::Gross2, "20000000", Column::Rate2, "20", Column::Tax2, "4000000");
    money(interest, Column::Gross6, "30000000", Column::Rate6, "20", Column::Tax6, "6000000");
    money(interest, Column::Gross7, "10000000", Column::Rate7, "20", Column::Tax7, "2000000");
    lines.push_back(interest.with(index(Column::TotalTax), "22000000"));
    Line shares = line("F113311", "000003/PPH4");
    money(shares, Column::Gross2, "40000000", Column::Rate2, "0,1", Column::Tax2, "40000");
    lines.push_back(shares.with(index(Column::TotalTax), "40000"));
    Line rent = line("F113312", "000004/PPH4").with(index(Column::Text1), "Jl. Sudirman 1");
    money(rent, Column::Gross1, "60000000", Column::Rate1, "10", Column::Tax1, "6000000");
    lines.push_back(rent.with(index(Column::TotalTax), "6000000"));
    Line construction = line("F113316", "000005/PPH4").with(index(Column::Option4), "1");
    money(construction, Column::Gross1, "80000000", Column::Rate1, "2", Column::Tax1, "1600000");
    money(construction, Column::Gross4, "5000000", Column::Rate4, "4", Column::Tax4, "200000");
    lines.push_back(construction.with(index(Column::TotalTax), "1800000"));
    lines.push_back(bond());
    lines.push_back(singleItem("F113319", "000007/PPH4", "1000000", "10", "100000"));
    lines.push_back(singleItem("F113320", "000008/PPH4", "2000000", "2,5", "50000"));
    lines.push_back(singleItem("F113321", "000009/PPH4", "3000000", "10", "300000"));
    lines.push_back(singleItem("FSewaTnhBgn", "1000000000000001", "70000000", "0", "7000000"));
    lines.push_back(singleItem("FAlihTnhBgn", "1000000000000002", "90000000", "0", "4500000"));
    Line services = singleItem("FJasaKonstruksi", "1000000000000003", "11000000", "0", "440000");
    money(services, Column::Gross2, "12000000", Column::Rate2, "0", Column::Tax2, "240000");
    lines.push_back(services.with(index(Column::TotalTax), "680000"));
    std::string file;
    for (const Line& each : lines) file += each.text() + "\r\n";
    store.folder().write("month.csv", file);
    const SlipFileImportResult result =
        importSlipFile({.path = store.path("month.csv"), .month = 1, .year = 2009, .rejectPath = store.path("no.csv")});
    EXPECT_EQ(result.stored, 12U);
    EXPECT_THAT(result.rebuildFailures, testing::IsEmpty());
  }

  static Line singleItem(const char* form, const char* number, const char* gross, const char* rate, const char* tax) {
    return Line(form, number)
        .with(index(Column::Gross1), gross)
        .with(index(Column::Rate1), rate)
        .with(index(Column::Tax1), tax)
        .with(index(Column::TotalTax), tax);
  }
  static Line bond() {
    return Line("F113317", "000006/PPH4")
        .with(index(Column::Text1), "Obligasi Contoh I")
        .with(index(Column::Gross1), "1000000000")
        .with(index(Column::Rate1), "10")
        .with(index(Column::Gross2), "990000000")
        .with(index(Column::Gross3), "995000000")
        .with(index(Column::Gross4), "5000000")
        .with(index(Column::Gross5), "15000000")
        .with(index(Column::Gross6), "20000000")
        .with(index(Column::Rate6), "15")
        .with(index(Column::TotalTax), "3000000")
        .with(index(Column::DueOn), "01/01/2015")
        .with(index(Column::BoughtOn), "01/10/2008")
        .with(index(Column::SoldOn), "05/01/2009")
        .with(index(Column::HoldingDays), "60")
        .with(index(Column::TimeDays), "180");
  }

  /// Writes one field into the packed text of the only row of a condition.
  void setField(const std::string& table, const std::string& layout, const std::string& condition,
                std::string_view field, std::string_view value) {
    std::vector<std::string> fields = split(store.value("SELECT DAT_FORM FROM " + table + " WHERE " + condition), ';');
    fields.at(store::findLayout(layout)->position(field).value()) = value;
    store.run("UPDATE " + table + " SET DAT_FORM = '" + join(fields, ";") + "' WHERE " + condition);
  }
  /// Writes one field of a slip, or of a header whose number is "-".
  void setSlipField(const std::string& form, std::string_view field, std::string_view value) {
    setField(slipTable, form, "KD_FORM = '" + form + "'", field, value);
  }
  void setListField(const char* number, std::string_view field, std::string_view value) {
    setField(slipRows, "D113206-CollA", "NOBUKTI = '" + std::string(number) + "'", field, value);
  }

  InterchangeStore store;
};

std::string asText(const CheckFinding& finding) {
  return std::string(finding.isWarning ? "warning: " : "") + std::string(checkKindText(finding.kind)) + ": " +
         finding.document + " | " + finding.field + " | " + finding.stored + " | " + finding.recounted;
}

std::vector<std::string> findings() {
  std::vector<std::string> texts;
  for (const CheckFinding& finding : checkReturn(1, 2009, 0)) texts.push_back(asText(finding));
  return texts;
}

TEST(CleanReturn, HasNoFindingsAfterAnImport) {
  const ReturnCheck month;
  EXPECT_THAT(findings(), testing::IsEmpty());
}

TEST(CleanReturn, HasNoFindingsAfterARebuilding) {
  const ReturnCheck month;
  rebuildReturn(1, 2009, 0);
  EXPECT_THAT(findings(), testing::IsEmpty());
}

TEST(CleanReturn, IsTheExampleMonth) {
  InterchangeStore store;
  importSlipFile({.path = TARVOLA_SOURCE_DIR "/examples/month-2009-01.csv", .month = 1, .year = 2009});
  EXPECT_THAT(findings(), testing::IsEmpty());
}

TEST(ReturnCheckRun, ChangesNothingInTheStore) {
  ReturnCheck month;
  month.setSlipField("F113204", "B43", "1");
  const std::vector<std::string> before = month.store.dump();
  EXPECT_THAT(findings(), testing::Not(testing::IsEmpty()));
  EXPECT_EQ(month.store.dump(), before);
}

TEST(ReturnCheckRun, LooksAtItsOwnPeriodAlone) {
  ReturnCheck month;
  month.setSlipField("F113204", "B43", "1");
  EXPECT_EQ(checkReturn(2, 2009, 0).front().kind, CheckKind::MissingHeader);
  for (const CheckFinding& finding : checkReturn(2, 2009, 0)) EXPECT_EQ(finding.kind, CheckKind::MissingHeader);
}

// --- damage ----------------------------------------------------------------------------------------------------

/// Damage that is done by hand, and the finding that must come of it.
struct Damage {
  const char* name;
  std::function<void(ReturnCheck&)> done;
  const char* finding;
};

void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.name; }

class DamagedReturn : public testing::TestWithParam<Damage> {};

TEST_P(DamagedReturn, IsFound) {
  ReturnCheck month;
  GetParam().done(month);
  EXPECT_THAT(findings(), testing::Contains(GetParam().finding));
}

/// A statement by which the damage is done.
std::function<void(ReturnCheck&)> by(std::string statement) {
  return [statement = std::move(statement)](ReturnCheck& month) { month.store.run(statement); };
}
std::function<void(ReturnCheck&)> slipField(const char* form, const char* field, const char* value) {
  return [=](ReturnCheck& month) { month.setSlipField(form, field, value); };
}
std::function<void(ReturnCheck&)> listField(const char* number, const char* field, const char* value) {
  return [=](ReturnCheck& month) { month.setListField(number, field, value); };
}

INSTANTIATE_TEST_SUITE_P(
    MainForm, DamagedReturn,
    testing::Values(Damage{"GrossOfALine", slipField("F113204", "B43", "1"),
                           "amount of the return is wrong: F113204 | B43 | 1 | 100000000"},
                    Damage{"TaxOfALine", slipField("F113204", "B45", "25000001"),
                           "amount of the return is wrong: F113204 | B45 | 25000001 | 25000000"},
                    Damage{"GrossOfASelfPaidLine", slipField("F113204", "B5b3", "0"),
                           "amount of the return is wrong: F113204 | B5b3 | 0 | 70000000"},
                    Damage{"RateOfALine", slipField("F113204", "B5a4", "11"),
                           "rate of the return is wrong: F113204 | B5a4 | 11 | 10"},
                    Damage{"RateOfAnEmptyLine", slipField("F113204", "B2a4", "7"),
                           "rate of the return is wrong: F113204 | B2a4 | 7 | 0,5"},
                    Damage{"TotalGross", slipField("F113204", "JMLPHSL", "603999999"),
                           "amount of the return is wrong: F113204 | JMLPHSL | 603999999 | 604000000"},
                    Damage{"TotalTax", slipField("F113204", "JmlB5", "0"),
                           "amount of the return is wrong: F113204 | JmlB5 | 0 | 70470000"},
                    Damage{"LettersInALine", slipField("F113204", "B43", "seratus juta"),
                           "value cannot be read: F113204 | B43 | seratus juta | 100000000"},
                    Damage{"LettersInTheTotal", slipField("F113204", "JmlB5", "x"),
                           "value cannot be read: F113204 | JmlB5 | x | 70470000"},
                    Damage{"NumberOfSlips", slipField("F113204", "C3", "8"),
                           "count or mark of the return is wrong: F113204 | C3 | 8 | 9"},
                    Damage{"MarkOfTheList", slipField("F113204", "CHKC2", "0"),
                           "count or mark of the return is wrong: F113204 | CHKC2 | 0 | 1"},
                    Damage{"MarkOfTheSlips", slipField("F113204", "CHKC3", "0"),
                           "count or mark of the return is wrong: F113204 | CHKC3 | 0 | 1"},
                    Damage{"OtherInterestFromNowhere",
                           [](ReturnCheck& month) {
                             month.setSlipField("F113204", "B11a", "Lain-Lain");
                             month.setSlipField("F113204", "B11a3", "5");
                           },
                           "line 11a is not the other interest of the slips: F113204 | B11a3 | 5 | 0"},
                    Damage{"PaymentsThatAreNotThere", slipField("F113204", "c1", "2"),
                           "warning: number of payment records is not that of the store: F113204 | c1 | 2 | 0"},
                    Damage{"TooFewFields", by("UPDATE DS_FORM_INDUK SET DAT_FORM = 'a;b;c' WHERE KD_FORM = 'F113204'"),
                           "wrong number of fields: F113204 | DAT_FORM | 3 | 107"},
                    Damage{"NoMainForm", by("DELETE FROM DS_FORM_INDUK WHERE KD_FORM = 'F113204'"),
                           "header document missing: F113204 |  | no row | one row"}),
    [](const auto& damage) { return damage.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Slips, DamagedReturn,
    testing::Values(
        Damage{"LostSlip", by("DELETE FROM DS_FORM_INDUK WHERE NOBUKTI = '000001/PPH4'"),
               "list row without document: D113206 000001/PPH4 |  | 100000000 / 25000000 | no document"},
        Damage{"LostListRow", by("DELETE FROM DS_FORM_LAMPIRAN WHERE NOBUKTI = '000004/PPH4'"),
               "document without list row: D113206 000004/PPH4 |  | no row | 60000000 / 6000000"},
        Damage{"DoubledListRow",
               by("INSERT INTO DS_FORM_LAMPIRAN SELECT * FROM DS_FORM_LAMPIRAN WHERE NOBUKTI = '000003/PPH4'"),
               "document with several list rows: D113206 000003/PPH4 | rows | 2 | 1"},
        Damage{"GrossOfAListRow", listField("000005/PPH4", "NOP", "84000000"),
               "list row says otherwise than its document: D113206 000005/PPH4 | NOP | 84000000 | 85000000"},
        Damage{"TaxOfAListRow", listField("000002/PPH4", "PPHDIPTG", "1"),
               "list row says otherwise than its document: D113206 000002/PPH4 | PPHDIPTG | 1 | 22000000"},
        Damage{
            "PayeeOfAListRow", listField("000001/PPH4", "NMWPLT", "Somebody else"),
            "list row says otherwise than its document: D113206 000001/PPH4 | NMWPLT | Somebody else | Maria Santoso"},
        Damage{"DateOfAListRow", listField("000001/PPH4", "Tgl_Potong", "09/01/2009"),
               "list row says otherwise than its document: D113206 000001/PPH4 | Tgl_Potong | 09/01/2009 | 08/01/2009"},
        Damage{"SumOfTheList", slipField("D113206", "A6", "420999999"),
               "sum of the list is wrong: D113206 | A6 | 420999999 | 421000000"},
        Damage{"TaxSumOfTheList", slipField("D113206", "A7", "0"),
               "sum of the list is wrong: D113206 | A7 | 0 | 58290000"},
        Damage{"SumOfTheSecondCollection", slipField("D113206", "B6", "1"),
               "sum of the list is wrong: D113206 | B6 | 1 | 0"},
        Damage{"TwoListHeaders", by("INSERT INTO DS_FORM_INDUK SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = 'D113206'"),
               "document there more than once: D113206 | rows | 2 | 1"},
        Damage{"AmountOfASlip", slipField("F113309", "B13", "100000001"),
               "sum of the document is wrong: F113309 000001/PPH4 | JMLPHSL | 100000000 | 100000001"},
        Damage{"SumOfASlip", slipField("F113316", "JmlB5", "1"),
               "sum of the document is wrong: F113316 000005/PPH4 | JmlB5 | 1 | 1800000"},
        Damage{"TotalOfABond", slipField("F113317", "JML", "19000000"),
               "sum of the document is wrong: F113317 000006/PPH4 | JML | 19000000 | 20000000"},
        Damage{"TotalColumn", by("UPDATE DS_FORM_INDUK SET Total_PPh = 1 WHERE NOBUKTI = '000008/PPH4'"),
               "total column is wrong, so average rates will be: F113320 000008/PPH4 | Total_PPh | 1 | 50000"},
        Damage{"TotalColumnOfASide", by("UPDATE DS_FORM_INDUK SET Total_Bruto2 = 0 WHERE NOBUKTI = '000002/PPH4'"),
               "total column is wrong, so average rates will be: F113310 000002/PPH4 | Total_Bruto2 | 0 | 20000000"},
        Damage{"OptionOfConstruction", slipField("F113316", "Opt4", "2"),
               "total column is wrong, so average rates will be: F113316 000005/PPH4 | Total_Bruto1 | 5000000 | 0"},
        Damage{"LettersInAnAmount", slipField("F113312", "JMLBRUTO", "enam puluh"),
               "value cannot be read: F113312 000004/PPH4 | JMLBRUTO | enam puluh | a number"},
        Damage{"AmountThatStopsARecount", slipField("F113319", "PPHDIPTG", ""),
               "the return cannot be recounted: F113204 |  | Invalid use of Null | "},
        Damage{"DateThatIsNone", slipField("F113321", "Tgl_Potong", "31/02/2009"),
               "value cannot be read: F113321 000009/PPH4 | Tgl_Potong | 31/02/2009 | a date"},
        Damage{"SlipWithTooFewFields",
               by("UPDATE DS_FORM_INDUK SET DAT_FORM = '1;2;3;4;5;6;7;8' WHERE NOBUKTI = '000003/PPH4'"),
               "wrong number of fields: F113311 000003/PPH4 | DAT_FORM | 8 | 19"},
        Damage{"SlipWithASemicolonTooMuch",
               [](ReturnCheck& month) {
                 for (int i = 0; i < 4; ++i)
                   month.store.run("UPDATE DS_FORM_INDUK SET DAT_FORM = DAT_FORM & ';x' WHERE NOBUKTI = '000003/PPH4'");
               },
               "wrong number of fields: F113311 000003/PPH4 | DAT_FORM | 23 | 19"},
        Damage{"NumberInThePackedText", slipField("F113309", "NoBukti", "000099/PPH4"),
               "packed text says otherwise than its row: F113309 000001/PPH4 | NoBukti | 000099/PPH4 | 000001/PPH4"},
        Damage{"MonthInThePackedText", slipField("F113309", "MS_PAJAK", "2"),
               "packed text says otherwise than its row: F113309 000001/PPH4 | MS_PAJAK | 2 | 1"},
        Damage{"DocumentCode", by("UPDATE DS_FORM_INDUK SET JENIS_DOKUMEN = '05' WHERE NOBUKTI = '000001/PPH4'"),
               "code is not that of its form: F113309 000001/PPH4 | JENIS_DOKUMEN | 05 | 02"},
        Damage{"AnotherFiler", by("UPDATE DS_FORM_INDUK SET NPWP = '021832415000000' WHERE NOBUKTI = '000001/PPH4'"),
               "document of another filer, which a recount passes over: F113309 000001/PPH4 | NPWP | 021832415000000 | "
               "013121660091000"}),
    [](const auto& damage) { return damage.param.name; });

INSTANTIATE_TEST_SUITE_P(
    InterestLines, DamagedReturn,
    testing::Values(
        Damage{"LostLine", by("DELETE FROM D113210 WHERE JENIS = 'SBI'"),
               "interest slip without its interest line: D113210 000002/PPH4 SBI |  | no row | 30000000 / 6000000"},
        Damage{"LineWithoutSlip", by("UPDATE D113210 SET NOBUKTI = '000099/PPH4' WHERE JENIS = 'LN'"),
               "interest line without slip: D113210 000099/PPH4 LN |  | 20000000 / 4000000 | no document"},
        Damage{"GrossOfALine", by("UPDATE D113210 SET BRUTO = 1 WHERE JENIS = 'DN'"),
               "interest line says otherwise than its slip: D113210 000002/PPH4 DN | BRUTO | 1 | 50000000"},
        Damage{"PayeeOfALine", by("UPDATE D113210 SET NPWP = '021832415000000' WHERE JENIS = 'GIRO'"),
               "interest line says otherwise than its slip: D113210 000002/PPH4 GIRO | NPWP | 021832415000000 | "
               "086556479946000"},
        Damage{"PayeesInTheHeader", slipField("D113210", "JML1A3", "2"),
               "sum of the list is wrong: D113210 | JML1A3 | 2 | 1"},
        Damage{"TotalInTheHeader", slipField("D113210", "JML5", "0"),
               "sum of the list is wrong: D113210 | JML5 | 0 | 22000000"},
        Damage{"NoHeader", by("DELETE FROM DS_FORM_INDUK WHERE KD_FORM = 'D113210'"),
               "header document missing: D113210 |  | no row | one row"}),
    [](const auto& damage) { return damage.param.name; });

/// Writes a field of a self-paid form or list.
std::function<void(ReturnCheck&)> selfPaidField(const char* table, const char* layout, const char* form,
                                                const char* field, const char* value) {
  return
      [=](ReturnCheck& month) { month.setField(table, layout, "KD_FORM = '" + std::string(form) + "'", field, value); };
}

INSTANTIATE_TEST_SUITE_P(
    SelfPaid, DamagedReturn,
    testing::Values(
        Damage{"LostForm", by("DELETE FROM DAT_SSP_PPh22 WHERE KD_FORM = 'FSewaTnhBgn'"),
               "list row without document: DSewaTnhBgn 1000000000000001, SEQ 1 |  | 70000000 / 7000000 | no document"},
        Damage{"LostListRow", by("DELETE FROM LAMPIRAN_SSP_PPh22 WHERE KD_FORM = 'DAlihTnhBgn'"),
               "document without list row: DAlihTnhBgn 1000000000000002, SEQ 1 |  | no row | 90000000 / 4500000"},
        Damage{"DoubledForm", by("INSERT INTO DAT_SSP_PPh22 SELECT * FROM DAT_SSP_PPh22 WHERE KD_FORM = 'FAlihTnhBgn'"),
               "number held by more than one document: FAlihTnhBgn 1000000000000002, SEQ 1 | NTTP | 1000000000000002 | "
               "another number or SEQ"},
        Damage{"SumOfAList", selfPaidField(selfPaidTable, "DSewaTnhBgn", "DSewaTnhBgn", "JMLPHSL", "1"),
               "sum of the list is wrong: DSewaTnhBgn | JMLPHSL | 1 | 70000000"},
        Damage{"AmountOfAListRow",
               selfPaidField(selfPaidRows, "DJasaKonstruksi-Coll", "DJasaKonstruksi", "PPH", "679999"),
               "list row says otherwise than its document: DJasaKonstruksi 1000000000000003, SEQ 1 | PPH | 679999 | "
               "680000"},
        Damage{"SumOfAForm", selfPaidField(selfPaidTable, "FJasaKonstruksi", "FJasaKonstruksi", "JmlPPh", "5"),
               "sum of the document is wrong: FJasaKonstruksi 1000000000000003, SEQ 1 | JmlPPh | 5 | 680000"},
        Damage{"NumberInThePackedText", selfPaidField(selfPaidTable, "FSewaTnhBgn", "FSewaTnhBgn", "NTTP", "77"),
               "packed text says otherwise than its row: FSewaTnhBgn 1000000000000001 | NTTP | 77 | 1000000000000001"},
        Damage{"FormWithTooFewFields", by("UPDATE DAT_SSP_PPh22 SET DAT_FORM = '1;2' WHERE KD_FORM = 'FAlihTnhBgn'"),
               "wrong number of fields: FAlihTnhBgn 1000000000000002 | DAT_FORM | 2 | 11"},
        Damage{"LettersInAnAmount", selfPaidField(selfPaidTable, "FAlihTnhBgn", "FAlihTnhBgn", "PPH", "x"),
               "value cannot be read: FAlihTnhBgn 1000000000000002, SEQ 1 | PPH | x | a number"}),
    [](const auto& damage) { return damage.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Numbers, DamagedReturn,
    testing::Values(
        Damage{"HeldByTwoForms", by("UPDATE DS_FORM_INDUK SET NOBUKTI = '000001/PPH4' WHERE NOBUKTI = '000002/PPH4'"),
               "number held by more than one document: F113309 000001/pph4 | NOBUKTI | F113309 of month 1, F113310 of "
               "month 1 | one slip"},
        Damage{"HeldByAnotherMonth",
               by("INSERT INTO DS_FORM_INDUK (NPWP, KD_FORM, JENIS_DOKUMEN, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, "
                  "NOBUKTI, "
                  "KD_JENIS_PAJAK) VALUES ('1', 'F113319', '15', 2, 2009, 0, '000007/PPH4', '113')"),
               "number held by more than one document: F113319 000007/pph4 | NOBUKTI | F113319 of month 1, F113319 of "
               "month 2 | one slip"},
        Damage{
            "PassedByTheMemory",
            by("INSERT INTO SETTING_NOBUKTI_PPH (PASAL, FORMAT_STRING, NO_URUT) VALUES (4, '/PPH4', '000012')"),
            "warning: numbers that the memory has passed by and no slip holds: SETTING_NOBUKTI_PPH | NO_URUT | 000012 "
            "| 000010/PPH4 to 000012/PPH4"},
        Damage{
            "GapInTheMiddle",
            [](ReturnCheck& month) {
              month.store.run(
                  "INSERT INTO SETTING_NOBUKTI_PPH (PASAL, FORMAT_STRING, NO_URUT) VALUES (4, '/PPH4', '000009')");
              month.store.run("DELETE FROM DS_FORM_INDUK WHERE NOBUKTI = '000005/PPH4'");
            },
            "warning: numbers that the memory has passed by and no slip holds: SETTING_NOBUKTI_PPH | NO_URUT | 000009 "
            "| 000005/PPH4"},
        Damage{
            "CheckDigit", slipField("F113309", "NPWPLT", "014518697054000"),
            "warning: NPWP with a wrong check digit: F113309 000001/PPH4 | NPWPLT | 014518697054000 | another number"}),
    [](const auto& damage) { return damage.param.name; });

// --- what only looks like damage -------------------------------------------------------------------------------

TEST(ReturnCheckRun, TakesAPlaceholderForAPayeeWithoutNumber) {
  ReturnCheck month;
  month.setSlipField("F113309", "NPWPLT", "000000000060000");
  month.setListField("000001/PPH4", "NPWPLT", "000000000060000");
  EXPECT_THAT(findings(), testing::IsEmpty());
}

TEST(ReturnCheckRun, LeavesALineThatAPersonTypedIn) {
  ReturnCheck month;
  month.setSlipField("F113204", "B11b", "Revaluasi");
  month.setSlipField("F113204", "B11b3", "1000");
  month.setSlipField("F113204", "JMLPHSL", "604001000");
  EXPECT_THAT(findings(), testing::IsEmpty());
}

TEST(ReturnCheckRun, TakesTheZeroThatASaveLeavesOfARateBeyondSixteenBits) {
  // A tax of 7000000 on a gross of 7 is a rate of 100000000 %, which the save of a form cannot cut to two decimals.
  ReturnCheck month;
  month.setField(selfPaidTable, "FSewaTnhBgn", "KD_FORM = 'FSewaTnhBgn'", "JMLBRUTO", "7");
  month.setField(selfPaidRows, "DSewaTnhBgn-Coll", "KD_FORM = 'DSewaTnhBgn'", "PHSL", "7");
  rebuildReturn(1, 2009, 0);
  month.setSlipField("F113204", "B5b4", "0");
  month.store.messages().clear();
  EXPECT_THAT(findings(), testing::IsEmpty());
  EXPECT_THAT(month.store.messages().texts(), testing::IsEmpty());
}

TEST(ReturnCheckRun, DoesNotMissANumberThatACorrectionHolds) {
  ReturnCheck month;
  month.store.run("INSERT INTO SETTING_NOBUKTI_PPH (PASAL, FORMAT_STRING, NO_URUT) VALUES (4, '/PPH4', '000010')");
  month.store.run(
      "INSERT INTO DS_FORM_INDUK (NPWP, KD_FORM, JENIS_DOKUMEN, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, NOBUKTI, "
      "KD_JENIS_PAJAK) VALUES ('013121660091000', 'F113319', '15', 1, 2009, 1, '000010/PPH4', '113')");
  EXPECT_THAT(findings(), testing::IsEmpty());
}

TEST(ReturnCheckRun, TakesTheSameNumberOfAnotherCorrectionForAnother) {
  ReturnCheck month;
  month.store.run(
      "INSERT INTO DS_FORM_INDUK (NPWP, KD_FORM, JENIS_DOKUMEN, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, NOBUKTI, "
      "KD_JENIS_PAJAK) VALUES ('013121660091000', 'F113309', '02', 1, 2009, 1, '000001/PPH4', '113')");
  EXPECT_THAT(findings(), testing::IsEmpty());
}

TEST(ReturnCheckRun, DoesNotMissNumbersBelowTheFirstOfTheYear) {
  ReturnCheck month;
  month.store.run("INSERT INTO SETTING_NOBUKTI_PPH (PASAL, FORMAT_STRING, NO_URUT) VALUES (4, '/PPH4', '000009')");
  EXPECT_THAT(findings(), testing::IsEmpty());
}

struct NpwpCase {
  const char* npwp;
  bool isRight;
};
class CheckDigitOf : public testing::TestWithParam<NpwpCase> {};
TEST_P(CheckDigitOf, IsTheLuhnDigitOverTheFirstEight) {
  EXPECT_EQ(hasRightCheckDigit(GetParam().npwp), GetParam().isRight);
}
INSTANTIATE_TEST_SUITE_P(Npwp, CheckDigitOf,
                         testing::Values(NpwpCase{"013121660091000", true}, NpwpCase{"021832415000000", true},
                                         NpwpCase{"013000666091000", true}, NpwpCase{"014518690054000", true},
                                         NpwpCase{"014518697054000", false}, NpwpCase{"000000000013000", true},
                                         NpwpCase{"01312166009100", false}, NpwpCase{"01.312.166.0-091", false},
                                         NpwpCase{"", false}));

}  // namespace
}  // namespace tarvola::test
