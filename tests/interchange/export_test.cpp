// The slip export: the file of a period and the lines of each form.

#include <gtest/gtest.h>

#include "tarvola/interchange/CEksporBP.h"
#include "tarvola/interchange/CImporBP.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/store/DatFormConverter.h"
#include "tests/interchange/interchange_store.h"

namespace tarvola::test {
namespace {

constexpr const char* filer = "013121660091000";
const std::string head = "013121660091000;PT Contoh Sejahtera;Jl. Merdeka No. 1;1;2009;0;";

class Export : public testing::Test {
 protected:
  void slip(const char* form, const char* number, const std::string& packed, const char* npwp = filer) {
    store.run(std::string("INSERT INTO DS_FORM_INDUK (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,"
                          "NOBUKTI,KD_JENIS_PAJAK,DAT_FORM) VALUES ('") +
              npwp + "','" + form + "','00',1,2009,0,'" + number + "','113','" + packed + "')");
  }
  void selfPaid(const char* form, const char* number, const std::string& packed) {
    store.run(std::string("INSERT INTO DAT_SSP_PPh22 VALUES ('") + filer + "','" + form + "','00',1,2009,0,'" + number +
              "','113','" + packed + "','','','')");
  }
  void exportMonth(const char* month = "1", const char* year = "2009", std::int16_t correction = 0) {
    CEksporBP().pEksporPPh("", 4, month, year, correction, file(), "");
  }
  [[nodiscard]] std::string file() const { return store.path("export.csv"); }
  [[nodiscard]] std::string bytes() const { return store.folder().read("export.csv"); }
  /// The data lines, the header left out; every line must have its CR LF.
  [[nodiscard]] std::vector<std::string> lines() const {
    std::vector<std::string> all = split(fromAnsi(bytes()), '\n');
    EXPECT_EQ(all.back(), "");
    all.pop_back();
    for (std::string& line : all) {
      EXPECT_TRUE(line.ends_with('\r'));
      line.pop_back();
    }
    all.erase(all.begin());
    return all;
  }
  InterchangeStore store;
};

const std::string singleItem =
    head + "08/01/2009;000001/PPH4;086556479946000;Maria Santoso;Jl. Hayam Wuruk 12;1000;10;100";

/// What stands behind column 14 of a form with a single item: its tax once more as the total.
std::string afterItem(const std::string& tax) {
  return ";;0;0;0;0;;0;0;0;0;;0;0;0;0;;0;0;0;0;;0;0;0;0;0;0;;0;0;0;" + tax + ";;;;;";
}

/// The titles as the readers of the file know them, two blanks and a blank at an end included.
constexpr const char* titles =
    // clang-format off
    "Kode Form Bukti Potong / Kode Form Input PPh Yang Dibayar Sendiri;"
    "Masa Pajak;"
    "Tahun Pajak;"
    "Pembetulan;"
    "NPWP WP yang Dipotong;"
    "Nama WP yang Dipotong;"
    "Alamat WP yang Dipotong;"
    "Nomor Bukti Potong / NTPN;"
    "Tanggal Bukti Potong/Tanggal SSP;"
    "Jenis Hadiah Undian 1 / Lokasi Tanah dan atau Bangunan / Nama Obligasi;"
    "Kode Option Tempat Penyimpanan 1 (Khusus F113310);"
    "Jumlah Nilai Bruto 1 / Jumlah Nilai Nominal Obligasi Yg Diperdagangkan Di Bursa Efek / Jumlah Penghasilan Pada Form Input Yang Dibayar Sendiri;"
    "Tarif 1 / Tingkat Bunga per Tahun;"
    "PPh Yang Dipotong  1 /Jumlah PPh Pada Form Input Yang Dibayar Sendiri;"
    "Jenis Hadiah Undian 2 / Nomor Seri Obligasi ;"
    "Kode Option Tempat Penyimpanan 2;"
    "Jumlah Nilai Bruto 2 / Jumlah Harga Perolehan Bersih (tanpa Bunga) Pada Obligasi Yg Diperdagangkan Di Bursa Efek;"
    "Tarif 2;"
    "PPh Yang Dipotong  2;"
    "Jenis Hadiah Undian 3;"
    "Kode Option Tempat Penyimpanan 3;"
    "Jumlah Nilai Bruto 3 / Jumlah Harga Penjualan Bersih (tanpa Bunga) Pada Obligasi Yg Diperdagangkan Di Bursa Efek;"
    "Tarif 3;"
    "PPh Yang Dipotong  3;"
    "Jenis Hadiah Undian 4;"
    "Kode Option Tempat Penyimpanan 4 / Kode Option Perencanaan (1) atau Pengawasan (2) atau selainnya (0) untuk BP Jasa Konstruksi poin 4;"
    "Jumlah Nilai Bruto 4 / Jumlah Diskonto Pada Obligasi Yg Diperdagangkan Di Bursa Efek;"
    "Tarif 4;"
    "PPh Yang Dipotong  4;"
    "Jenis Hadiah Undian 5;"
    "Kode Option Tempat Penyimpanan 5 / Kode Option Perencanaan (1) atau Pengawasan (2) atau selainnya (0) untuk BP Jasa Konstruksi poin 5;"
    "Jumlah Nilai Bruto 5 / Jumlah Bunga Pada Obligasi Yg Diperdagangkan Di Bursa Efek;"
    "Tarif 5;"
    "PPh Yang Dipotong  5;"
    "Jenis Hadiah Undian 6;"
    "Jumlah Nilai Bruto 6 / Jumlah Total Bunga atau Diskonto Obligasi Yang Diperdagangkan;"
    "Tarif 6 / Tarif PPh Final Pada Obligasi Yang Diperdagangkan Di Bursa Efek;"
    "PPh Yang Dipotong  6;"
    "Jumlah Nilai Bruto 7;"
    "Tarif 7;"
    "PPh Yang Dipotong 7;"
    "Jenis Penghasilan 8;"
    "Jumlah Nilai Bruto 8;"
    "Tarif 8;"
    "PPh Yang Dipotong 8;"
    "Jumlah PPh Yang Dipotong;"
    "Tanggal Jatuh Tempo Obligasi;"
    "Tanggal Perolehan Obligasi;"
    "Tanggal Penjualan Obligasi;"
    "Holding Periode Obligasi (Hari);"
    "Time Periode Obligasi (Hari)";
// clang-format on

TEST_F(Export, TheFirstLineIsTheHeaderOfFiftyOneTitles) {
  slip("F113319", "000001/PPH4", singleItem);
  exportMonth();
  EXPECT_EQ(bytes().substr(0, bytes().find("\r\n")), titles);
  EXPECT_EQ(split(titles, ';').size(), 51U);
}

TEST_F(Export, ASlipIsOneLineThatEndsWithASeparator) {
  slip("F113319", "000001/PPH4", singleItem);
  exportMonth();
  EXPECT_THAT(lines(), testing::ElementsAre("F113319;1;2009;0;086556479946000;Maria Santoso;Jl. Hayam Wuruk 12;"
                                            "000001/PPH4;08/01/2009;;0;1000;10;100" +
                                            afterItem("100")));
}

TEST_F(Export, ANumberWithAnApostropheEndsTheExportInsteadOfPickingAnotherDocument) {
  slip("F113319", "x'' OR NOBUKTI = ''000001/PPH4", singleItem);
  exportMonth();
  EXPECT_THAT(lines(), testing::IsEmpty());
  EXPECT_THAT(
      store.messages().texts(),
      testing::ElementsAre("Arguments are of the wrong type, are out of acceptable range, or are in conflict with "
                           "one another."));
}

TEST_F(Export, MonthAndYearLoseLeadingZeros) {
  slip("F113319", "000001/PPH4", singleItem);
  exportMonth("01", "02009");
  EXPECT_TRUE(lines().front().starts_with("F113319;1;2009;0;")) << lines().front();
}

TEST_F(Export, SelfPaidFormsAloneHaveNoPayeeEvenIfTheyCarryOne) {
  selfPaid("FAlihTnhBgn", "NTPN 1", head + "14/01/2009;NTPN 1;1;6000;300;payee;name;address;remark");
  exportMonth();
  EXPECT_THAT(lines(),
              testing::ElementsAre("FAlihTnhBgn;1;2009;0;;;;NTPN 1;14/01/2009;;0;6000;0;300" + afterItem("300")));
}

TEST_F(Export, SlipsComeBeforeSelfPaidFormsEachInTheOrderOfTheStore) {
  selfPaid("FAlihTnhBgn", "NTPN 1", head + "14/01/2009;NTPN 1;1;6000;300");
  slip("F113320", "000002/PPH4", singleItem);
  slip("F113319", "000001/PPH4", singleItem);
  exportMonth();
  ASSERT_EQ(lines().size(), 3U);
  EXPECT_TRUE(lines()[2].starts_with("FAlihTnhBgn;"));
}

TEST_F(Export, RowsOfEveryFilerAndNoHeaderOrOtherPeriodAreTaken) {
  slip("F113319", "000001/PPH4", singleItem, "021832415000000");
  slip("D113206", "-", head + "0;0;0;0");
  slip("F113204", "-", head);
  store.run("INSERT INTO DS_FORM_INDUK SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = 'F113319'");
  for (const char* other : {"MS_PAJAK = 2", "TH_PAJAK = 2010", "KD_PEMBETULAN_KE = 1"}) {
    slip("F113320", "000002/PPH4", singleItem);
    selfPaid("FAlihTnhBgn", "NTPN 1", head + "14/01/2009;NTPN 1;1;6000;300");
    store.run(std::string("UPDATE DS_FORM_INDUK SET KD_FORM = 'F113321', ") + other + " WHERE KD_FORM = 'F113320'");
    store.run(std::string("UPDATE DAT_SSP_PPh22 SET KD_FORM = 'FSewaTnhBgn', ") + other +
              " WHERE KD_FORM = 'FAlihTnhBgn'");
  }
  exportMonth();
  EXPECT_EQ(lines().size(), 2U);
}

TEST_F(Export, ADocumentOfAnotherKindOfTaxIsTakenAsWell) {
  slip("F113319", "000001/PPH4", singleItem);
  store.run("UPDATE DS_FORM_INDUK SET KD_JENIS_PAJAK = '999'");
  exportMonth();
  EXPECT_EQ(lines().size(), 1U);
}

TEST_F(Export, OptionsOfInterestAreTurnedRound) {
  Line line("F113310");
  for (const std::size_t gross : {11U, 16U, 21U}) line.with(gross, "1000");
  CImporBP().pImporPPh4(line.with(10, "0").with(15, "1").with(20, "7").array(), filer, 1, 2009, 0);
  EXPECT_THAT(store.value("SELECT DAT_FORM FROM DS_FORM_INDUK"), testing::HasSubstr(";1;0;0;1;0;1;0;0;0;0;"));
  exportMonth();
  const std::vector<std::string> columns = split(lines().front(), ';');
  EXPECT_EQ(columns[10] + columns[15] + columns[20] + columns[25] + columns[30], "01111");
}

TEST_F(Export, BlanksAreCutButForOptionsAndDays) {
  slip(
      "F113316", "000001/PPH4",
      head + "08/01/2009; 000001/PPH4 ; 1 ;  PT Konstruksi  ; Jl. A ;1;2;3;4;5;6;7;8;9; 1 ;11;12;13;2 ;14;15;16;17;18");
  slip("F113317", "000002/PPH4", head + "08/01/2009;;;;000002/PPH4;1;N;A; Obligasi ;1;SR;2;3;4;5;6;7;8;9; 61 ; 182 ");
  exportMonth();
  const std::vector<std::string> construction = split(lines()[0], ';');
  EXPECT_EQ(construction[5], "PT Konstruksi");
  EXPECT_EQ(construction[7], "000001/PPH4");
  EXPECT_TRUE(lines()[1].ends_with("61;182")) << lines()[1];
  EXPECT_EQ(split(lines()[1], ';')[9], "Obligasi");
}

TEST_F(Export, BlanksOfOptionsAndDaysStay) {
  slip("F113316", "000001/PPH4",
       head + "08/01/2009;000001/PPH4;1;N;A;1;2;3;4;5;6;7;8;9; a ;11;12;13; b;14;15;16;17;18");
  slip("F113317", "000002/PPH4", head + "08/01/2009;;;;000002/PPH4;1;N;A;O;1;SR;2;3;4;5;6;7;8;9; c ; d ");
  exportMonth();
  EXPECT_EQ(split(lines()[0], ';')[25], " a ");
  EXPECT_EQ(split(lines()[0], ';')[30], " b");
  EXPECT_TRUE(lines()[1].ends_with("; c ; d ")) << lines()[1];
}

TEST_F(Export, EveryStoredOptionOfInterestButOneIsWrittenAsOne) {
  slip("F113310", "000001/PPH4", head + "08/01/2009;000001/PPH4;1;0;0;1;;1;2;1;x;1;1;N;A" + std::string(31, ';'));
  exportMonth();
  const std::vector<std::string> columns = split(lines().front(), ';');
  EXPECT_EQ(columns[10] + columns[15] + columns[20] + columns[25] + columns[30], "01111");
}

TEST_F(Export, OnlyABondSlipHasNoSeparatorAtItsEnd) {
  slip("F113317", "000002/PPH4", head + "08/01/2009;;;;000002/PPH4;1;N;A;O;1;SR;2;3;4;5;6;7;8;9;61;182");
  exportMonth();
  EXPECT_EQ(split(lines().front(), ';').size(), 51U);
  EXPECT_FALSE(lines().front().ends_with(';'));
}

TEST_F(Export, ARowThatIsTooShortGivesEmptyColumns) {
  slip("F113319", "000001/PPH4", head + "08/01/2009");
  exportMonth();
  EXPECT_THAT(lines(), testing::ElementsAre("F113319;1;2009;0;;;;;08/01/2009;;0;;;" + afterItem("")));
}

TEST_F(Export, LineBreaksAreTakenOutAndLoneOnesStay) {
  slip("F113319", "000001/PPH4", head + "08/01/2009;000001/PPH4;1;PT\r\nDua\rTiga;A;1000;10;100");
  exportMonth();
  EXPECT_THAT(split(bytes(), '\n')[1], testing::HasSubstr(";PTDua\rTiga;"));
}

TEST_F(Export, AStrayCharacterOutsideTheCodePageBecomesAQuestionMark) {
  slip("F113319", "000001/PPH4", head + "08/01/2009;000001/PPH4;1;Jos\xC3\xA9 \xE2\x82\xAC \xEA\xA6\xA0;A;1000;10;100");
  exportMonth();
  EXPECT_THAT(bytes(), testing::HasSubstr(";Jos\xE9 \x80 ?;"));
}

TEST_F(Export, OfTwoFilersSlipsWithOneNumberBothLinesShowTheFirst) {
  slip("F113319", "000001/PPH4", head + "08/01/2009;000001/PPH4;1;First;A;1000;10;100");
  slip("F113319", "000001/PPH4", head + "08/01/2009;000001/PPH4;1;Second;A;2000;10;200", "021832415000000");
  exportMonth();
  ASSERT_EQ(lines().size(), 2U);
  EXPECT_THAT(lines()[0], testing::HasSubstr(";First;"));
  EXPECT_EQ(lines()[1], lines()[0]);
}

TEST_F(Export, NumbersAreToldApartWithoutRegardToCase) {
  slip("F113319", "a-000001/PPH4", head + "08/01/2009;a-000001/PPH4;1;First;A;1000;10;100");
  slip("F113319", "A-000001/pph4", head + "08/01/2009;A-000001/pph4;1;Second;A;2000;10;200");
  slip("F113320", "a-000001/PPH4", head + "08/01/2009;a-000001/PPH4;1;Third;A;3000;10;300");
  exportMonth();
  ASSERT_EQ(lines().size(), 3U);
  EXPECT_THAT(lines()[0], testing::HasSubstr(";First;"));
  EXPECT_EQ(lines()[1], lines()[0]);
  EXPECT_THAT(lines()[2], testing::HasSubstr(";Third;"));
}

TEST_F(Export, SelfPaidFormsOfOnePaymentAreToldApartByTheirPackedText) {
  selfPaid("FAlihTnhBgn", "NTPN 1", head + "14/01/2009;NTPN 1;1;6000;300");
  selfPaid("FAlihTnhBgn", "NTPN 1", head + "14/01/2009;NTPN 1;2;8000;400");
  exportMonth();
  EXPECT_THAT(lines()[0], testing::HasSubstr(";6000;0;300;"));
  EXPECT_THAT(lines()[1], testing::HasSubstr(";8000;0;400;"));
}

TEST_F(Export, TheMessageOfSuccessCountsTheRowsWithAThousandsSign) {
  for (int i = 0; i < 1001; ++i) slip("F113319", std::to_string(i).c_str(), singleItem);
  exportMonth("01");
  ASSERT_EQ(store.messages().boxes().size(), 1U);
  const MessageBox& box = store.messages().boxes().front();
  EXPECT_EQ(box.title, "INFORMASI");
  EXPECT_EQ(box.icon, MessageIcon::Information);
  EXPECT_EQ(box.text,
            "Data Bukti Potong PPh Masa Pasal 4 Ayat (2) Untuk :\r\n\r\n* Masa Pajak   : 01\r\n* Tahun Pajak : "
            "2009\r\n* Pembetulan  : 0\r\n\r\nBerhasil Diekspor Sebanyak : 1.001 Baris (Record) Data");
}

TEST_F(Export, TheMessageOfSuccessCountsTheRowsAndNotTheLines) {
  slip("F113319", "000001/PPH4", singleItem);
  // The store finds the code whatever its case, and no line is made for this spelling.
  slip("f113319", "000002/PPH4", singleItem);
  exportMonth();
  EXPECT_EQ(lines().size(), 1U);
  EXPECT_THAT(store.messages().texts(),
              testing::ElementsAre(testing::EndsWith("Berhasil Diekspor Sebanyak : 2 Baris (Record) Data")));
}

TEST_F(Export, TheFileIsWholeWhenItsMessageIsShown) {
  slip("F113319", "000001/PPH4", singleItem);
  std::string bytesAtMessage;
  {
    const MessageBoxScope scope([&](const MessageBox&) { bytesAtMessage = bytes(); });
    exportMonth();
  }
  EXPECT_EQ(bytesAtMessage, bytes());
  EXPECT_TRUE(bytesAtMessage.ends_with(";100;;;;;\r\n"));
}

TEST_F(Export, ALineThatCannotBeBuiltIsWrittenAsFarAsItGoesAndTheNextFollows) {
  slip("F113319", "000001/PPH4", singleItem);
  slip("F113319", "000002/PPH4", singleItem);
  // The statement reads a point as the decimal sign, the line as one of the thousands: the year is too large for it.
  exportMonth("1", "2009.0000000");
  EXPECT_THAT(lines(), testing::ElementsAre("F113319;1;", "F113319;1;"));
  EXPECT_THAT(store.messages().texts(), testing::ElementsAre("Overflow", "Overflow", testing::HasSubstr(" : 2 Baris")));
}

TEST_F(Export, AnEmptyPeriodMakesNoFileAndLeavesAnOldOne) {
  store.folder().write("export.csv", "old");
  exportMonth("2", "2009", 3);
  EXPECT_EQ(bytes(), "old");
  ASSERT_EQ(store.messages().boxes().size(), 1U);
  EXPECT_EQ(store.messages().boxes().front().title, "INFORMASI");
  EXPECT_EQ(store.messages().boxes().front().text,
            "Data Bukti Potong PPh Masa Pasal 4 Ayat (2) Untuk :\r\n\r\n* Masa Pajak   : 2\r\n* Tahun Pajak : "
            "2009\r\n* Pembetulan  : 3\r\n\r\nTidak Ada Pada DataBase");
}

TEST_F(Export, AnOldFileIsReplacedWithoutAQuestion) {
  slip("F113319", "000001/PPH4", singleItem);
  store.folder().write("export.csv", std::string(100000, 'x'));
  exportMonth();
  EXPECT_EQ(lines().size(), 1U);
}

TEST_F(Export, AnotherArticleFailsAndMakesNoFile) {
  slip("F113319", "000001/PPH4", singleItem);
  CEksporBP().pEksporPPh("", 23, "1", "2009", 0, file(), "");
  ASSERT_EQ(store.messages().boxes().size(), 1U);
  EXPECT_EQ(store.messages().boxes().front().title, "");
  EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(Export, APathThatDoesNotExistShowsTheDescriptionAlone) {
  slip("F113319", "000001/PPH4", singleItem);
  CEksporBP().pEksporPPh("", 4, "1", "2009", 0, store.path("no/such/folder.csv"), "");
  ASSERT_EQ(store.messages().boxes().size(), 1U);
  EXPECT_EQ(store.messages().boxes().front().text, "Path not found");
  EXPECT_EQ(store.messages().boxes().front().title, "");
}

TEST_F(Export, AMonthThatIsNoNumberIsRefusedAndNothingRuns) {
  exportMonth("1 OR 1=1");
  EXPECT_EQ(store.messages().texts().size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(Export, AnApostropheInANumberEndsTheFileThere) {
  slip("F113319", "000001/PPH4", singleItem);
  slip("F113319", "000002/PPH4", singleItem);
  slip("F113319", "000003/PPH4", singleItem);
  ConnectionPtr connection = Connection::create();
  connection->put_CursorLocation(adUseClient);
  connection->Open(moduleState().sConnString);
  const RecordsetPtr rows = Recordset::create();
  rows->put_CursorLocation(adUseClient);
  rows->Open("SELECT * FROM DS_FORM_INDUK WHERE NOBUKTI = '000002/PPH4'", connection);
  rows->put_Collect("NOBUKTI", Variant("000002'"));
  rows->UpdateBatch();
  exportMonth();
  EXPECT_EQ(store.messages().texts(),
            std::vector<std::string>{"Arguments are of the wrong type, are out of acceptable range, or are in conflict "
                                     "with one another."});
  EXPECT_EQ(lines().size(), 1U);
}

TEST_F(Export, NothingInTheStoreChanges) {
  slip("F113319", "000001/PPH4", singleItem);
  selfPaid("FAlihTnhBgn", "NTPN 1", head + "14/01/2009;NTPN 1;1;6000;300");
  const std::vector<std::string> before = store.dump();
  exportMonth();
  EXPECT_EQ(store.dump(), before);
}

TEST_F(Export, ItWaitsForSettingsAndTakesItsOwn) {
  slip("F113319", "000001/PPH4", singleItem);
  moduleState() = {};
  CEksporBP eksport;
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
  eksport.pSetCon(store.storePath(), "", "");
  eksport.pEksporPPh("", 4, "1", "2009", 0, file(), "");
  EXPECT_EQ(lines().size(), 1U);
}

TEST_F(Export, ItsSettingsAreThoseOfTheThreadFromThenOn) {
  moduleState() = {};
  CEksporBP().pSetCon(store.storePath(), "admin", "rahasia");
  EXPECT_EQ(moduleState().sDSN, store.storePath());
  EXPECT_EQ(moduleState().sConnString,
            "PROVIDER=MSDataShape;Data PROVIDER=MSDASQL;DSN=" + store.storePath() + ";UID=admin;PWD=rahasia;");
}

TEST_F(Export, WithoutSettingsItFailsWithAMessage) {
  moduleState() = {};
  CEksporBP().pEksporPPh("", 4, "1", "2009", 0, file(), "");
  EXPECT_EQ(store.messages().texts().size(), 1U);
}

// --- row builders ----------------------------------------------------------------------------------------

class ExportRow : public Export {
 protected:
  /// The named fields of a packed text.
  RecordsetPtr named(const char* form, const std::string& packed) {
    store.run("DELETE * FROM DS_FORM_INDUK");
    slip(form, "x", packed);
    return DatFormConverter().ExpandDatForm(form, store.run("SELECT * FROM DS_FORM_INDUK"));
  }
};

TEST_F(ExportRow, TheFormCodeIsWrittenAsItIsHandedOver) {
  CEksporBP eksport;
  const RecordsetPtr fields = named("F113319", singleItem);
  EXPECT_TRUE(eksport.pBuildDataF113320("anything", fields, "1", "2009", 2).starts_with("anything;1;2009;2;0865"));
  EXPECT_EQ(eksport.pBuildDataF113319("F", fields, "1", "2009", 0),
            eksport.pBuildDataF113320("F", fields, "1", "2009", 0));
  EXPECT_EQ(eksport.pBuildDataF113319("F", fields, "1", "2009", 0),
            eksport.pBuildDataF113321("F", fields, "1", "2009", 0));
}

TEST_F(ExportRow, AFieldThatIsMissingGivesTheLineAsFarAsItWasBuilt) {
  const RecordsetPtr fields = named("F113319", singleItem);
  const std::string line = CEksporBP().pBuildDataF113309("F113309", fields, "1", "2009", 0);
  EXPECT_EQ(line, "F113309;1;2009;0;086556479946000;Maria Santoso;Jl. Hayam Wuruk 12;000001/PPH4;08/01/2009;");
  EXPECT_EQ(store.messages().texts(),
            std::vector<std::string>{
                "Item cannot be found in the collection corresponding to the requested name or ordinal."});
}

TEST_F(ExportRow, ARecordsetWithoutARecordGivesTheHeadOfTheLine) {
  const RecordsetPtr none =
      DatFormConverter().ExpandDatForm("F113319", store.run("SELECT * FROM DS_FORM_INDUK WHERE KD_FORM = 'none'"));
  EXPECT_EQ(CEksporBP().pBuildDataF113319("F113319", none, "1", "2009", 0), "F113319;1;2009;0;");
  EXPECT_THAT(store.messages().texts(), testing::ElementsAre(testing::StartsWith("Either BOF or EOF is True")));
}

TEST_F(ExportRow, AMonthThatIsNoNumberEndsTheLineThere) {
  const RecordsetPtr fields = named("F113319", singleItem);
  EXPECT_EQ(CEksporBP().pBuildDataF113319("F113319", fields, "x", "2009", 0), "F113319;");
  EXPECT_EQ(store.messages().texts(), std::vector<std::string>{"Type mismatch"});
}

TEST_F(ExportRow, TheFirstRecordIsWritten) {
  store.run("DELETE * FROM DS_FORM_INDUK");
  slip("F113319", "a", head + "08/01/2009;a;1;First;A;1000;10;100");
  slip("F113319", "b", head + "08/01/2009;b;1;Second;A;1000;10;100");
  const RecordsetPtr fields = DatFormConverter().ExpandDatForm("F113319", store.run("SELECT * FROM DS_FORM_INDUK"));
  fields->MoveLast();
  EXPECT_THAT(CEksporBP().pBuildDataF113319("F113319", fields, "1", "2009", 0), testing::HasSubstr(";First;"));
}

TEST_F(ExportRow, NoRecordsetFailsWithAMessage) {
  EXPECT_EQ(CEksporBP().pBuildDataF113319("F113319", nullptr, "1", "2009", 0), "");
  EXPECT_EQ(store.messages().texts().size(), 1U);
}

TEST_F(ExportRow, ChangedFieldsAreWrittenInTheirTextForm) {
  const RecordsetPtr fields = named("F113319", singleItem);
  fields->put_Collect("Tarif", Variant(2.5));
  fields->put_Collect("JMLBRUTO", Variant::null());
  fields->put_Collect("NMWPLT", Variant("  PT Baru "));
  EXPECT_EQ(CEksporBP().pBuildDataF113319("F113319", fields, "1", "2009", 0),
            "F113319;1;2009;0;086556479946000;PT Baru;Jl. Hayam Wuruk 12;000001/PPH4;08/01/2009;;0;;2,5;100" +
                afterItem("100"));
}

/// The columns of each form, in the words of the rules: the field that stands in columns 10 to 51, 0 for the text 0, -
/// for nothing, ! in front of an option that is turned round.
struct RowRule {
  const char* form;
  std::string (CEksporBP::*build)(std::string_view, const RecordsetPtr&, std::string_view, std::string_view,
                                  std::int16_t);
  const char* fields;
};

const std::vector<RowRule> rowRules = {
    {"F113309", &CEksporBP::pBuildDataF113309,
     "B12 0 B13 B14 B15 B22 0 B23 B24 B25 B32 0 B33 B34 B35 B42 0 B43 B44 B45 B52 0 B53 B54 B55 B62 B63 B64 B65 0 0 0 "
     "- 0 0 0 "
     "JmlB5 - - - - -"},
    {"F113310", &CEksporBP::pBuildDataF113310,
     "- !OPTDN1 B1A3 B1A4 B1A5 - !OPTDN2 B1B3 B1B4 B1B5 - !OPTDN3 B1C3 B1C4 B1C5 - !OPTDN4 B23 B24 B25 - !OPTDN5 B33 "
     "B34 "
     "B35 - B43 B44 B45 B53 B54 B55 B62 B63 B64 B65 JmlB5 - - - - -"},
    {"F113311", &CEksporBP::pBuildDataF113311,
     "- 0 B13 B14 B15 - 0 B23 B24 B25 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 0 0 - 0 0 0 JmlB5 - - - - -"},
    {"F113312", &CEksporBP::pBuildDataF113312,
     "Lokasi 0 JMLBRUTO Tarif PPHDIPTG - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 0 0 - 0 0 0 PPHDIPTG - - - - "
     "-"},
    {"F113319", &CEksporBP::pBuildDataF113319,
     "- 0 JMLBRUTO Tarif PPHDIPTG - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 0 0 - 0 0 0 PPHDIPTG - - - - -"},
    {"F113320", &CEksporBP::pBuildDataF113320,
     "- 0 JMLBRUTO Tarif PPHDIPTG - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 0 0 - 0 0 0 PPHDIPTG - - - - -"},
    {"F113321", &CEksporBP::pBuildDataF113321,
     "- 0 JMLBRUTO Tarif PPHDIPTG - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 0 0 - 0 0 0 PPHDIPTG - - - - -"},
    {"F113316", &CEksporBP::pBuildDataF113316,
     "- 0 B13 B14 B15 - 0 B23 B24 B25 - 0 B33 B34 B35 - Opt4 B43 B44 B45 - Opt5 B53 B54 B55 - 0 0 0 0 0 0 - 0 0 0 "
     "JmlB5 - "
     "- - - -"},
    {"F113317", &CEksporBP::pBuildDataF113317,
     "a1 0 b1 d1 0 c1 0 h1 0 0 - 0 i1 0 0 - 0 j2 0 0 - 0 k2 0 0 - JML Tarif 0 0 0 0 - 0 0 0 PPhFinal E1 F1 G1 "
     "HoldingPeriode TimePeriode"},
    {"FSewaTnhBgn", &CEksporBP::pBuildDataFSewaTnhBgn,
     "Lokasi 0 JMLBRUTO 0 PPH - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 0 0 - 0 0 0 PPH - - - - -"},
    {"FAlihTnhBgn", &CEksporBP::pBuildDataFAlihTnhBgn,
     "- 0 JMLBRUTO 0 PPH - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 0 0 - 0 0 0 PPH - - - - -"},
    {"FJasaKonstruksi", &CEksporBP::pBuildDataFJasaKonstruksi,
     "- 0 JmlBruto1 0 PPH1 - 0 JmlBruto2 0 PPH2 - 0 JmlBruto3 0 PPH3 - 0 0 0 0 - 0 0 0 0 - 0 0 0 0 0 0 - 0 0 0 JmlPPh "
     "- - - - "
     "-"},
};

TEST_F(ExportRow, EveryColumnOfEveryFormHoldsWhatItsRuleSays) {
  for (const RowRule& rule : rowRules) {
    // Every field holds its own position, so that a field in the wrong column shows.
    std::string packed = "0";
    for (int position = 1; position < 48; ++position) packed += ";" + std::to_string(position);
    const RecordsetPtr fields = named(rule.form, packed);
    const auto valueOf = [&](const std::string& field) { return CStr(fields->get_Collect(field)); };
    std::vector<std::string> expected = {rule.form, "1", "2009", "0"};
    const bool isSlip = std::string_view(rule.form).starts_with("F1");
    for (const char* field : {"NPWPLT", "NMWPLT", "ALMLT"}) expected.push_back(isSlip ? valueOf(field) : "");
    expected.push_back(valueOf(isSlip ? "NoBukti" : "NTTP"));
    expected.push_back(valueOf("Tgl_Potong"));
    for (const std::string& column : split(rule.fields, ' ')) {
      if (column == "-" || column == "0")
        expected.push_back(column == "-" ? "" : "0");
      else
        expected.push_back(column[0] == '!' ? "1" : valueOf(column));
    }
    ASSERT_EQ(expected.size(), 51U) << rule.form;
    CEksporBP eksport;
    EXPECT_EQ((eksport.*rule.build)(rule.form, fields, "1", "2009", 0), join(expected, ";")) << rule.form;
  }
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

}  // namespace
}  // namespace tarvola::test
