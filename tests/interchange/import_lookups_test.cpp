// Lookups and registrations around an import.

#include <gtest/gtest.h>

#include "tarvola/ado/columns.h"
#include "tarvola/ado/table_rows.h"
#include "tarvola/interchange/CImporBP.h"
#include "tarvola/runtime/errors.h"
#include "tests/interchange/interchange_store.h"

namespace tarvola::test {
namespace {

class ImportLookups : public testing::Test {
 protected:
  /// Rows made in memory, as an application hands them over.
  static RecordsetPtr rowsOf(const std::vector<std::string>& names,
                             const std::vector<std::vector<std::string>>& values) {
    std::vector<ado::Column> columns;
    for (const std::string& name : names) columns.push_back({name, ado::ColumnType::Text});
    auto rows = std::make_shared<ado::TableRows>(std::make_shared<const ado::Columns>(columns));
    for (const std::vector<std::string>& row : values) {
      const std::size_t number = rows->append();
      for (std::size_t i = 0; i < row.size(); ++i) rows->set(number, i, Variant(row[i]));
    }
    return Recordset::over(rows);
  }
  void document(const char* table, const char* form, const char* noBukti, int month = 1, int correction = 0) {
    store.run(
        std::string("INSERT INTO ") + table +
        " (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,DAT_FORM,TGL_REKAM,"
        "TGL_UBAH,NIP) VALUES ('1','" +
        form + "','00'," + std::to_string(month) + ",2009," + std::to_string(correction) + ",'" + noBukti +
        "','113','','','','')");
  }
  static std::vector<std::string> column(const RecordsetPtr& rows, const char* name) {
    std::vector<std::string> values;
    for (; !rows->get_EOF(); rows->MoveNext()) values.push_back(CStr(rows->get_Collect(name)));
    return values;
  }
  InterchangeStore store;
};

TEST_F(ImportLookups, NewExchangesGetTheNextIdAndKnownOnesNone) {
  store.run("DELETE * FROM BURSA");
  CImporBP().pCreateNewBursa(rowsOf({"BURSA"}, {{"Bursa A"}, {"  Bursa B "}, {"bursa a"}}));
  EXPECT_EQ(store.rows("SELECT * FROM BURSA"), (std::vector<std::string>{"Bursa A|1", "Bursa B|2"}));
  CImporBP().pCreateNewBursa(rowsOf({"BURSA"}, {{"Bursa C"}}));
  EXPECT_EQ(column(CImporBP().pGetBursa(), "BURSA"), (std::vector<std::string>{"Bursa A", "Bursa B", "Bursa C"}));
}

TEST_F(ImportLookups, NoRowsRegisterNothing) {
  const std::vector<std::string> before = store.rows("SELECT * FROM BURSA");
  CImporBP().pCreateNewBursa(rowsOf({"BURSA"}, {}));
  CImporBP().pCreateNewKomoditi(rowsOf({"KODE_KOMODITI", "NAMA_KOMODITI"}, {}));
  EXPECT_EQ(store.rows("SELECT * FROM BURSA"), before);
  EXPECT_THAT(store.messages().texts(), testing::IsEmpty());
}

TEST_F(ImportLookups, AFilterOnTheRowsIsTakenOff) {
  store.run("DELETE * FROM BURSA");
  const RecordsetPtr rows = rowsOf({"BURSA"}, {{"Bursa A"}, {"Bursa B"}});
  rows->put_Filter("BURSA = 'Bursa B'");
  CImporBP().pCreateNewBursa(rows);
  EXPECT_EQ(store.rows("SELECT BURSA FROM BURSA").size(), 2U);
}

TEST_F(ImportLookups, AnExchangeWithAnApostropheFailsAndEndsTheWalk) {
  store.run("DELETE * FROM BURSA");
  CImporBP().pCreateNewBursa(rowsOf({"BURSA"}, {{"Bursa A"}, {"Jum'at"}, {"Bursa C"}}));
  EXPECT_EQ(store.messages().texts().size(), 1U);
  EXPECT_EQ(store.rows("SELECT BURSA FROM BURSA"), std::vector<std::string>{"Bursa A"});
}

TEST_F(ImportLookups, CommoditiesGetTheNextCodeAndTheFirstOfAllGetsTwo) {
  store.run("DELETE * FROM JENIS_KOMODITI");
  CImporBP import;
  for (int i = 0; i < 10; ++i)
    import.pCreateNewKomoditi(rowsOf({"KODE_KOMODITI", "NAMA_KOMODITI"}, {{ "77", "Komoditi " + std::to_string(i) }}));
  EXPECT_EQ(column(import.pGetKomoditi(), "KODE_KOMODITI"),
            (std::vector<std::string>{"02", "03", "04", "05", "06", "07", "08", "09", "10", "11"}));
  EXPECT_THAT(store.rows("SELECT * FROM JENIS_KOMODITI WHERE KODE_KOMODITI = '02'"),
              testing::ElementsAre("02|Komoditi 0|22|0"));
}

TEST_F(ImportLookups, CommoditiesOfAnotherArticleDoNotCount) {
  store.run("DELETE * FROM JENIS_KOMODITI");
  store.run("INSERT INTO JENIS_KOMODITI VALUES ('50', 'Semen', 23, 0)");
  CImporBP import;
  import.pCreateNewKomoditi(rowsOf({"KODE_KOMODITI", "NAMA_KOMODITI"}, {{ "50", "Semen" }}));
  EXPECT_EQ(column(import.pGetKomoditi(), "KODE_KOMODITI"), std::vector<std::string>{"02"});
}

TEST_F(ImportLookups, ExchangesComeByTheirIdAndCommoditiesByTheirCode) {
  store.run("DELETE * FROM BURSA");
  store.run("DELETE * FROM JENIS_KOMODITI");
  for (const char* values : {"'Bursa C', 3", "'Bursa A', 1", "'Bursa B', 2"})
    store.run(std::string("INSERT INTO BURSA VALUES (") + values + ")");
  for (const char* values : {"'10', 'Baja', 22, 0", "'02', 'Semen', 22, 0"})
    store.run(std::string("INSERT INTO JENIS_KOMODITI VALUES (") + values + ")");
  EXPECT_EQ(column(CImporBP().pGetBursa(), "ID"), (std::vector<std::string>{"1", "2", "3"}));
  EXPECT_EQ(column(CImporBP().pGetKomoditi(), "KODE_KOMODITI"), (std::vector<std::string>{"02", "10"}));
}

TEST_F(ImportLookups, ACommodityIsKnownByCodeAndName) {
  store.run("DELETE * FROM JENIS_KOMODITI");
  CImporBP import;
  import.pCreateNewKomoditi(rowsOf({"KODE_KOMODITI", "NAMA_KOMODITI"}, {{ "02", "Semen" }}));
  import.pCreateNewKomoditi(rowsOf({"KODE_KOMODITI", "NAMA_KOMODITI"}, {{ " 02 ", " semen " }}));
  EXPECT_EQ(store.rows("SELECT * FROM JENIS_KOMODITI").size(), 1U);
}

TEST_F(ImportLookups, APartnerIsRegisteredOnceTrimmedAndWithoutLineBreaks) {
  CImporBP import;
  const Variant partner(Variant::Array{" 086556479946000 ", " Maria\r\nSantoso", "Jl. Hayam Wuruk 12 "});
  import.pUpdateDataWP(partner);
  EXPECT_EQ(store.rows("SELECT NPWP_PARTNER, NAMA_WP_PARTNER, ALAMAT_PARTNER, KODE_POS_PARTNER, TELEPON_PARTNER FROM "
                       "PARTNER_INFO"),
            std::vector<std::string>{"086556479946000|MariaSantoso|Jl. Hayam Wuruk 12||"});
  import.pUpdateDataWP(Variant(Variant::Array{"086556479946000", "MariaSantoso", "Jl. Hayam Wuruk 12"}));
  EXPECT_EQ(import.pGetDataWP()->get_RecordCount(), 1);
}

// It is looked for as the line says it and kept without its line break.
TEST_F(ImportLookups, APartnerWhoseNameHasALineBreakIsRegisteredEachTime) {
  CImporBP import;
  for (int time = 0; time < 2; ++time) import.pUpdateDataWP(Variant(Variant::Array{"1", "Maria\r\nSantoso", "A"}));
  EXPECT_EQ(store.rows("SELECT NAMA_WP_PARTNER FROM PARTNER_INFO"),
            (std::vector<std::string>{"MariaSantoso", "MariaSantoso"}));
}

TEST_F(ImportLookups, APartnerOfTooFewElementsFails) {
  CImporBP().pUpdateDataWP(Variant(Variant::Array{"1", "2"}));
  EXPECT_EQ(store.messages().texts(), std::vector<std::string>{"Subscript out of range"});
}

TEST_F(ImportLookups, FormRowsAreFoundByArticle) {
  struct Case {
    std::int16_t article;
    std::vector<std::string> forms;
  };
  const std::vector<Case> articles = {
      {4, {"F113309", "F113310", "F113311", "F113312", "F113316", "F113317", "F113319", "F113320", "F113321"}},
      {15, {"F113313", "F113314", "F113315", "PPh24"}},
      {21, {"F113301", "F113302", "F113308_A"}},
      {22, {"F113303", "F113304", "F113305"}},
      {23, {"F113306", "F113307", "F113308", "F113318"}}};
  std::vector<std::string> all = {"F113204"};
  for (const Case& row : articles) all.insert(all.end(), row.forms.begin(), row.forms.end());
  for (const std::string& form : all) document("DS_FORM_INDUK", form.c_str(), "-");
  document("DS_FORM_INDUK", "F113309", "other month", 2);
  document("DS_FORM_INDUK", "F113309", "other correction", 1, 1);
  const auto found = [](std::int16_t article) {
    return column(CImporBP().pGetRecDbase("", article, 1, 2009, 0), "KD_FORM");
  };
  for (const Case& row : articles)
    EXPECT_THAT(found(row.article), testing::UnorderedElementsAreArray(row.forms)) << row.article;
  for (const std::int16_t other : std::initializer_list<std::int16_t>{0, 5, 14})
    EXPECT_THAT(found(other), testing::UnorderedElementsAreArray(all)) << other;
}

TEST_F(ImportLookups, PaymentNumbersAreFoundByArticleAndTransfersAreNotAmongThem) {
  document("DAT_SSP_PPh22", "FSewaTnhBgn", "NTPN 1");
  document("DAT_SSP_PPh22", "FJasaKonstruksi", "NTPN 2");
  document("DAT_SSP_PPh22", "FAlihTnhBgn", "NTPN 3");
  document("DAT_SSP_PPh22", "FImblnPelPenLN", "NTPN 4");
  document("DAT_SSP_PPh22", "PPh22Impor", "NTPN 5");
  document("DAT_SSP_PPh22", "PPh22MigasFinal", "NTPN 6");
  document("DAT_SSP_PPh22", "PPh22MigasTdkFinal", "NTPN 7");
  const auto found = [](std::int16_t article) {
    return column(CImporBP().pGetNTTP("", article, 1, 2009, 0), "NOBUKTI");
  };
  EXPECT_THAT(found(4), testing::UnorderedElementsAre("NTPN 1", "NTPN 2"));
  EXPECT_THAT(found(15), testing::UnorderedElementsAre("NTPN 4"));
  EXPECT_THAT(found(22), testing::UnorderedElementsAre("NTPN 5", "NTPN 6", "NTPN 7"));
  EXPECT_EQ(found(21).size(), 7U);
}

TEST_F(ImportLookups, TheHighestCorrectionIsZeroForAMonthWithoutRows) {
  EXPECT_EQ(CImporBP().pGetMaxCorr(1, 2009), 0);
  document("DS_FORM_INDUK", "F113204", "-", 1, 0);
  document("DS_FORM_INDUK", "F113204", "-", 1, 3);
  document("DS_FORM_INDUK", "F113204", "-", 2, 7);
  EXPECT_EQ(CImporBP().pGetMaxCorr(1, 2009), 3);
}

TEST_F(ImportLookups, TheHighestCorrectionAloneLetsItsFailureThrough) {
  moduleState() = {};
  CImporBP withoutStore;
  store.messages().clear();
  EXPECT_THROW(withoutStore.pGetMaxCorr(1, 2009), RunTimeError);
  EXPECT_EQ(withoutStore.pGetBursa(), nullptr);
  EXPECT_EQ(store.messages().texts().size(), 1U);
}

TEST_F(ImportLookups, ThePartnersCanBeChangedThroughTheirRows) {
  CImporBP import;
  import.pUpdateDataWP(Variant(Variant::Array{"1", "A", "B"}));
  const RecordsetPtr partners = import.pGetDataWP();
  partners->put_Collect("TELEPON_PARTNER", Variant("021-1"));
  partners->UpdateBatch();
  EXPECT_EQ(store.value("SELECT TELEPON_PARTNER FROM PARTNER_INFO"), "021-1");
}

}  // namespace
}  // namespace tarvola::test
