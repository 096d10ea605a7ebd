#include "tarvola/store/new_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tarvola/ado/engine/session.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/csv.h"
#include "tests/support/store_fixture.h"

namespace tarvola {
namespace {

using test::StoreFixture;
using testing::ElementsAre;

std::vector<std::string> columnNames(ado::Session& session, const std::string& table) {
  const ado::RowsPtr rows = session.run("SELECT * FROM " + table).rows;
  std::vector<std::string> names;
  for (std::size_t place = 0; place < rows->columns().count(); ++place) names.push_back(rows->columns()[place].name);
  return names;
}

class NewStore : public testing::Test {
 protected:
  std::string only(const std::string& statement) {
    const ado::RowsPtr rows = session_->run(statement).rows;
    EXPECT_EQ(rows->count(), 1U) << statement;
    std::string text;
    if (rows->count() == 1) rows->cell(0, 0).appendText(text);
    return text;
  }

  /// The rows of a statement, fields parted by "|".
  std::vector<std::string> rowsOf(const std::string& statement) {
    const ado::RowsPtr rows = session_->run(statement).rows;
    std::vector<std::string> texts(rows->count());
    for (std::size_t row = 0; row < rows->count(); ++row)
      for (std::size_t column = 0; column < rows->columns().count(); ++column) {
        if (column > 0) texts[row] += '|';
        rows->cell(row, column).appendText(texts[row]);
      }
    return texts;
  }

  StoreFixture store_;
  std::shared_ptr<ado::Session> session_ = ado::Session::open(store_.connectionText());
};

TEST_F(NewStore, HoldsTheColumnsOfDocumentsInTheirOrder) {
  const std::vector<std::string> document{"NPWP",     "KD_FORM",          "JENIS_DOKUMEN", "MS_PAJAK",
                                          "TH_PAJAK", "KD_PEMBETULAN_KE", "NOBUKTI",       "KD_JENIS_PAJAK",
                                          "DAT_FORM", "TGL_REKAM",        "TGL_UBAH",      "NIP"};
  const std::vector<std::string> item{"KD_FORM", "MS_PAJAK", "TH_PAJAK", "KD_PEMBETULAN_KE",
                                      "COLLNO",  "SEQ",      "NOBUKTI",  "DAT_FORM"};
  EXPECT_EQ(columnNames(*session_, "DAT_SSP_PPh22"), document);
  EXPECT_EQ(columnNames(*session_, "DS_FORM_LAMPIRAN"), item);
  EXPECT_EQ(columnNames(*session_, "LAMPIRAN_SSP_PPh22"), item);
  std::vector<std::string> slip = document;
  for (const char* name : {"FlagNPWP", "Total_Bruto", "Total_PPh", "Total_Bruto1", "Total_PPh1", "Total_Bruto2",
                           "Total_PPh2", "Total_Bruto3", "Total_PPh3", "Total_Bruto4", "Total_PPh4"}) {
    slip.emplace_back(name);
  }
  EXPECT_EQ(columnNames(*session_, "DS_FORM_INDUK"), slip);
}

TEST_F(NewStore, HoldsTheColumnsOfItsOtherTablesInTheirOrder) {
  EXPECT_THAT(columnNames(*session_, "D113210"),
              ElementsAre("NPWP", "NMWP", "ALM", "MS_PAJAK", "TH_PAJAK", "KD_PEMBETULAN_KE", "TGL_POTONG", "NOBUKTI",
                          "JENIS", "TEMPAT", "BRUTO", "TARIF", "PPH", "ATR1", "ATR2"));
  EXPECT_THAT(columnNames(*session_, "DATSSP"),
              ElementsAre("TableKey", "KodePasal", "NPWP", "MsPjk", "ThPjk", "KdPmbtln", "KdMAP", "KdJnsStr", "TglSSP",
                          "NTPP", "JmlByr", "Catatan", "NoSK"));
  EXPECT_THAT(columnNames(*session_, "SETTING_NOBUKTI_PPH"), ElementsAre("PASAL", "FORMAT_STRING", "NO_URUT"));
  EXPECT_THAT(columnNames(*session_, "SETTING_TARIF_PPH"),
              ElementsAre("PASAL", "KODE_FORM", "ITEM_PENGHASILAN", "TARIF_JML_BRUTO"));
  EXPECT_THAT(columnNames(*session_, "BURSA"), ElementsAre("BURSA", "ID"));
  EXPECT_THAT(columnNames(*session_, "JENIS_KOMODITI"),
              ElementsAre("KODE_KOMODITI", "NAMA_KOMODITI", "PASAL", "TARIF"));
  EXPECT_THAT(columnNames(*session_, "PARTNER_INFO"),
              ElementsAre("NPWP_PARTNER", "NAMA_WP_PARTNER", "ALAMAT_PARTNER", "KODE_POS_PARTNER", "TELEPON_PARTNER"));
  EXPECT_THAT(columnNames(*session_, "REF_SSP_NEW"), ElementsAre("KDMAP_LAMA", "KDMAP_BARU"));
  EXPECT_THAT(columnNames(*session_, "DS_REF_JENIS_PAJAK"), ElementsAre("KD_JENIS_PAJAK", "KD_DOK_TRV", "URAIAN"));
}

TEST_F(NewStore, HoldsTheColumnsOfATransferAtTheirPlaces) {
  const std::vector<std::string> names = columnNames(*session_, "datPBKPPhMasa");
  ASSERT_EQ(names.size(), 38U);
  const struct {
    std::size_t place;
    const char* name;
  } cases[] = {{1, "PASAL"},        {2, "NoBuktiPBK"},      {3, "MsPjkPBK"},  {4, "ThPjkPBK"},
               {23, "NPWPTertuju"}, {33, "TanggalBerlaku"}, {34, "JumlahPBK"}};
  for (const auto& [place, name] : cases) EXPECT_EQ(names[place - 1], name);
}

TEST_F(NewStore, TakesATransferByPosition) {
  session_->run(
      "INSERT INTO datPBKPPhMasa VALUES (4, '0001', 1, 2009, 1, '', '', DateValue('31/01/2009'), '', '', '', '', '', "
      "1, "
      "2009, '', '', '', '', '', 'PT Contoh', 'Jakarta', '013121660091000', '', '', 1, 2009, '', '', '', '', '', "
      "DateValue('31/01/2009'), 1500000, '', DateValue('31/01/2009'), '', '')");
  EXPECT_EQ(only("SELECT JumlahPBK FROM datPBKPPhMasa WHERE NPWPTertuju = '013121660091000' AND PASAL = 4 AND "
                 "MsPjkPBK = 1 AND ThPjkPBK = 2009"),
            "1500000");
  EXPECT_EQ(only("SELECT TanggalBerlaku FROM datPBKPPhMasa"), "31/01/2009");
}

TEST_F(NewStore, HoldsTheFilerUnderBothNames) {
  EXPECT_EQ(only("SELECT NPWP FROM PROFILE"), "013121660091000");
  EXPECT_EQ(only("SELECT NAMA_WP_PARTNER FROM PROFILE"), "PT Contoh Sejahtera");
  EXPECT_EQ(only("SELECT NAMA_WP_PROFILE FROM PROFILE"), "PT Contoh Sejahtera");
  EXPECT_EQ(only("SELECT ALAMAT_WP_PARTNER FROM PROFILE"), "Jl. Merdeka No. 1");
  EXPECT_EQ(only("SELECT Alamat FROM PROFILE"), "Jl. Merdeka No. 1");
  EXPECT_EQ(only("SELECT Nm_TTD_TRV FROM PROFILE"), "Budi Santoso");
  EXPECT_EQ(only("SELECT NM_KU_TTD_TRV FROM PROFILE"), "");
  EXPECT_EQ(only("SELECT NKKPP FROM PROFILE"), "091");
}

TEST_F(NewStore, IsDeliveredWithTheDefaultRates) {
  EXPECT_THAT(rowsOf("SELECT PASAL, KODE_FORM, ITEM_PENGHASILAN, TARIF_JML_BRUTO FROM SETTING_TARIF_PPH"),
              ElementsAre("4|F113309|B14|25", "4|F113310|WP DN|20", "4|F113310|WP LN|20", "4|F113311|B14|0,5",
                          "4|F113311|B24|0,1", "4|F113312|Tarif|10", "4|F113316|B14|2", "4|F113316|B24|4",
                          "4|F113316|B34|3", "4|F113316|B44|4", "4|F113316|B54|6", "4|F113317|Tarif|15",
                          "4|F113319|Tarif|10", "4|F113320|Tarif|2,5", "4|F113321|Tarif|10"));
}

TEST_F(NewStore, IsDeliveredWithTheExchangesAndTheAccountCodes) {
  EXPECT_THAT(rowsOf("SELECT BURSA, ID FROM BURSA"),
              ElementsAre("Bursa Efek Indonesia|1", "Bursa Efek Jakarta|2", "Bursa Efek Surabaya|3"));
  EXPECT_EQ(only("SELECT ID FROM BURSA WHERE BURSA = 'bursa efek indonesia'"), "1");
  EXPECT_THAT(rowsOf("SELECT KDMAP_LAMA, KDMAP_BARU FROM REF_SSP_NEW"),
              ElementsAre("0118|411128", "0171|411611", "0172|411619", "0173|411621"));
}

TEST_F(NewStore, IsDeliveredWithANameForEveryDocument) {
  const std::string slip = "Bukti Pemotongan/Pemungutan PPh Final Pasal 4 Ayat (2)";
  const std::string rent = "Persewaan Tanah dan/atau Bangunan";
  const std::string transfer = "Pengalihan Hak atas Tanah dan/atau Bangunan";
  EXPECT_THAT(
      rowsOf("SELECT KD_DOK_TRV, URAIAN FROM DS_REF_JENIS_PAJAK WHERE KD_JENIS_PAJAK = '113'"),
      ElementsAre("01|SPT Masa PPh Final Pasal 4 Ayat (2)", "02|" + slip + " atas Hadiah Undian",
                  "03|" + slip + " atas Bunga Deposito/Tabungan, Diskonto SBI, Jasa Giro",
                  "04|" + slip + " atas Penjualan Saham yang Diperdagangkan di Bursa Efek",
                  "05|" + slip + " atas " + rent, "06|" + slip + " atas Usaha Jasa Konstruksi",
                  "07|" + slip + " atas Bunga dan/atau Diskonto Obligasi dan Surat Berharga Negara",
                  "08|Daftar " + slip, "11|Daftar " + rent + " disetor sendiri",
                  "12|Formulir " + rent + " disetor sendiri", "13|Daftar Jasa Konstruksi disetor sendiri",
                  "14|Formulir Jasa Konstruksi disetor sendiri", "15|" + slip + " atas Bunga Simpanan Koperasi",
                  "16|" + slip + " atas Kontrak Berjangka", "17|" + slip + " atas Dividen Orang Pribadi Dalam Negeri",
                  "18|Daftar " + transfer + " disetor sendiri", "19|Formulir " + transfer + " disetor sendiri",
                  "20|Daftar Bunga Deposito/Tabungan, Diskonto SBI, Jasa Giro"));
}

TEST_F(NewStore, HoldsNoDocumentAndNoTableOfOlderStores) {
  for (const char* table : {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22", "D113210",
                            "DATSSP", "datPBKPPhMasa", "SETTING_NOBUKTI_PPH", "JENIS_KOMODITI", "PARTNER_INFO"}) {
    EXPECT_EQ(session_->run(std::string("SELECT * FROM ") + table).rows->count(), 0U) << table;
  }
  EXPECT_THROW(session_->run("SELECT * FROM DAT_FORM"), RunTimeError);
}

TEST_F(NewStore, TakesTheSameSlipTwice) {
  for (int copy = 0; copy < 2; ++copy) {
    session_->run("INSERT INTO DS_FORM_INDUK (NPWP, KD_FORM, NOBUKTI) VALUES ('1', 'F113309', '000001/PPH4')");
  }
  EXPECT_EQ(session_->run("SELECT * FROM DS_FORM_INDUK").rows->count(), 2U);
}

TEST_F(NewStore, DoesNotReplaceAnotherStore) {
  EXPECT_THROW(createStore(store_.path(), {}), RunTimeError);
  EXPECT_EQ(only("SELECT NPWP FROM PROFILE"), "013121660091000");
}

TEST(Csv, IsCutIntoFields) {
  using Lines = std::vector<std::vector<std::string>>;
  EXPECT_EQ(store::readCsv("a,b\nc,d\n"), (Lines{{"a", "b"}, {"c", "d"}}));
  EXPECT_EQ(store::readCsv("a,b\r\n\r\nc,"), (Lines{{"a", "b"}, {"c", ""}}));
  EXPECT_EQ(store::readCsv("\"a,b\",\"say \"\"x\"\"\"\n"), (Lines{{"a,b", "say \"x\""}}));
  EXPECT_EQ(store::readCsv("\"two\nlines\",x"), (Lines{{"two\nlines", "x"}}));
  EXPECT_EQ(store::readCsv(""), Lines{});
  EXPECT_EQ(store::readCsv("\"open"), (Lines{{"open"}}));
}

}  // namespace
}  // namespace tarvola
