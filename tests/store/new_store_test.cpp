#include "tarvola/store/new_store.h"

#include <gtest/gtest.h>

#include "tarvola/ado/engine/session.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/csv.h"
#include "tests/support/store_fixture.h"

namespace tarvola {
namespace {

using test::StoreFixture;

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
  const test::StoreFixture& store = store_;
  ASSERT_FALSE(store.path().empty());
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
  EXPECT_EQ(session_->run("SELECT * FROM SETTING_TARIF_PPH WHERE PASAL = 4").rows->count(), 15U);
  const auto rate = [&](const std::string& form, const std::string& item) {
    return only("SELECT TARIF_JML_BRUTO FROM SETTING_TARIF_PPH WHERE KODE_FORM = '" + form +
                "' AND ITEM_PENGHASILAN = '" + item + "'");
  };
  EXPECT_EQ(rate("F113309", "B14"), "25");
  EXPECT_EQ(rate("F113310", "WP LN"), "20");
  EXPECT_EQ(rate("F113311", "B14"), "0,5");
  EXPECT_EQ(rate("F113311", "B24"), "0,1");
  EXPECT_EQ(rate("F113316", "B34"), "3");
  EXPECT_EQ(rate("F113317", "Tarif"), "15");
  EXPECT_EQ(rate("F113320", "Tarif"), "2,5");
  EXPECT_EQ(rate("F113321", "Tarif"), "10");
}

TEST_F(NewStore, IsDeliveredWithItsReferenceTables) {
  EXPECT_EQ(only("SELECT MAX(ID) FROM BURSA"), "3");
  EXPECT_EQ(only("SELECT ID FROM BURSA WHERE BURSA = 'bursa efek indonesia'"), "1");
  EXPECT_EQ(only("SELECT KDMAP_BARU FROM REF_SSP_NEW WHERE KDMAP_LAMA = '0118'"), "411128");
  EXPECT_EQ(session_->run("SELECT * FROM DS_REF_JENIS_PAJAK WHERE KD_JENIS_PAJAK = '113'").rows->count(), 18U);
  EXPECT_EQ(only("SELECT URAIAN FROM DS_REF_JENIS_PAJAK WHERE KD_DOK_TRV = '20'"),
            "Daftar Bunga Deposito/Tabungan, Diskonto SBI, Jasa Giro");
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
