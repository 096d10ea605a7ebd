#include <gtest/gtest.h>

#include "tarvola/ado/engine/sqlite/catalog.h"
#include "tarvola/ado/sql/compile.h"
#include "tests/support/engine_store.h"

namespace tarvola::ado::engine::sqlite {
namespace {

// The statements of the system's frequent roads must find their rows by an index, whatever the store holds.
class SchemaPlans : public testing::Test {
 protected:
  /// What the engine would do for a statement of the dialect: one line for each step.
  std::string plan(const std::string& statement) {
    std::string steps;
    for (const sql::EngineText& part : sql::compile(statement, catalog_, {}).parts) {
      const Statement explained = handle_->prepare("EXPLAIN QUERY PLAN " + part.text);
      while (sqlite3_step(explained.get()) == SQLITE_ROW) {
        steps += reinterpret_cast<const char*>(sqlite3_column_text(explained.get(), 3));
        steps += '\n';
      }
    }
    return steps;
  }

  test::EngineStore store_;
  std::unique_ptr<Handle> handle_ = openStore(store_.path());
  Catalog catalog_{*handle_};
};

std::string withPeriod(std::string statement) {
  constexpr std::string_view mark = "{period}";
  const std::size_t place = statement.find(mark);
  if (place == std::string::npos) return statement;
  return statement.replace(place, mark.size(), "MS_PAJAK = 1 AND TH_PAJAK = 2009 AND KD_PEMBETULAN_KE = 0");
}

struct PlanCase {
  const char* statement;
  const char* step;
};

// {period} stands for the three columns of a return.
constexpr PlanCase plans[] = {
    {"SELECT * FROM DS_FORM_INDUK WHERE NPWP = '1' AND KD_FORM = 'F113309' AND {period} AND NOBUKTI = '1'",
     "INDEX DS_FORM_INDUK_PERIOD (TH_PAJAK=? AND MS_PAJAK=? AND KD_PEMBETULAN_KE=? AND KD_FORM=? AND NOBUKTI=?)"},
    {"SELECT sum(TOTAL_BRUTO) AS A, sum(TOTAL_PPh4) AS B FROM DS_FORM_INDUK WHERE NPWP = '1' AND KD_FORM = 'F113309' "
     "AND JENIS_DOKUMEN = '02' AND {period} AND KD_JENIS_PAJAK = '113'",
     "COVERING INDEX DS_FORM_INDUK_PERIOD"},
    {"SELECT * FROM DS_FORM_INDUK WHERE {period} AND (KD_FORM = 'F113309' OR KD_FORM = 'F113310')",
     "INDEX DS_FORM_INDUK_PERIOD (TH_PAJAK=? AND MS_PAJAK=? AND KD_PEMBETULAN_KE=? AND KD_FORM=?)"},
    {"DELETE * FROM DS_FORM_INDUK WHERE KD_JENIS_PAJAK = '113' AND {period}",
     "INDEX DS_FORM_INDUK_PERIOD (TH_PAJAK=? AND MS_PAJAK=? AND KD_PEMBETULAN_KE=?)"},
    {"SELECT NOBUKTI FROM DS_FORM_INDUK WHERE NOBUKTI = '1' AND KD_PEMBETULAN_KE = 0 AND TH_PAJAK = 2009 AND "
     "KD_JENIS_PAJAK = '113' AND (KD_FORM = 'F113309' OR KD_FORM = 'F113310')",
     "INDEX DS_FORM_INDUK_NUMBER (TH_PAJAK=? AND KD_PEMBETULAN_KE=? AND NOBUKTI=?"},
    {"SELECT NOBUKTI FROM DS_FORM_INDUK WHERE TH_PAJAK = 2009 AND KD_PEMBETULAN_KE = 0 AND (KD_FORM = 'F113309' OR "
     "KD_FORM = 'F113310') ORDER BY NOBUKTI ASC",
     "INDEX DS_FORM_INDUK_NUMBER (TH_PAJAK=? AND KD_PEMBETULAN_KE=?)"},
    {"SELECT * FROM DS_FORM_INDUK WHERE ( KD_FORM = 'F113311' AND NOBUKTI = '1' AND KD_PEMBETULAN_KE = 0)",
     "INDEX DS_FORM_INDUK_NUMBER (ANY(TH_PAJAK) AND KD_PEMBETULAN_KE=? AND NOBUKTI=? AND KD_FORM=?)"},
    {"SELECT * FROM DS_FORM_LAMPIRAN WHERE KD_FORM = 'D113206' AND {period} AND COLLNO = 0 AND NOBUKTI = '1'",
     "INDEX DS_FORM_LAMPIRAN_NUMBER"},
    {"SELECT MAX(SEQ) AS dMaxSeq FROM DS_FORM_LAMPIRAN WHERE {period} AND KD_FORM = 'D113206' AND COLLNO = 0 GROUP BY "
     "KD_FORM HAVING (KD_FORM = 'D113206')",
     "COVERING INDEX DS_FORM_LAMPIRAN_LIST (TH_PAJAK=? AND MS_PAJAK=? AND KD_PEMBETULAN_KE=? AND KD_FORM=? AND "
     "COLLNO=?)"},
    {"DELETE * FROM DS_FORM_LAMPIRAN WHERE {period} AND (KD_FORM = 'D113206' OR KD_FORM = 'D113207')",
     "INDEX DS_FORM_LAMPIRAN_LIST"},
    {"SELECT * FROM DAT_SSP_PPh22 WHERE KD_FORM = 'FSewaTnhBgn' AND {period} AND NOBUKTI = '1'",
     "INDEX DAT_SSP_PPh22_PERIOD"},
    {"SELECT * FROM LAMPIRAN_SSP_PPh22 WHERE KD_FORM = 'DSewaTnhBgn' AND {period} AND COLLNO = 0 AND NOBUKTI = '1' "
     "AND SEQ = 1",
     "INDEX LAMPIRAN_SSP_PPh22_LIST"},
    {"SELECT * FROM D113210 WHERE NPWP = '1' AND NMWP = '2' AND ALM = '3' AND {period} AND NOBUKTI = '4' ;",
     "INDEX D113210_NUMBER"},
    {"SELECT sum(BRUTO) as JmlA14, sum(PPh) as JmlA15 FROM D113210 WHERE {period} AND JENIS='DN' ; ",
     "COVERING INDEX D113210_KIND"},
    {"SELECT COUNT(J) as JML1A3 FROM ( SELECT DISTINCT(NPWP) as J FROM D113210 WHERE {period} AND JENIS='DN') ; ",
     "COVERING INDEX D113210_KIND"},
    {"SELECT * FROM DATSSP WHERE MsPjk = 1 AND KODEPASAL = 4 AND ThPjk=2009 AND KdPmbtln=0 ORDER BY TglSSP ASC",
     "INDEX DATSSP_PERIOD"},
    {"SELECT * FROM datPBKPPhMasa WHERE NPWPTertuju = '1' AND PASAL = 4 AND MsPjkPBK = 1 AND ThPjkPBK = 2009",
     "INDEX datPBKPPhMasa_PERIOD"},
    {"SELECT * FROM DATSSP WHERE KODEPASAL = 4 AND MsPjk = 1 AND ThPjk = 2009 AND KdPmbtln = 0 AND KdMAP = '411128' "
     "AND "
     "NTPP = '1' AND KdJnsStr = '402' AND TglSSP = DateValue('02/01/2009') ORDER BY TGLSSP DESC",
     "INDEX DATSSP_NUMBER"},
    {"SELECT * FROM datPBKPPhMasa WHERE NPWPTertuju = '1' AND PASAL = 4 AND NoBuktiPBK = '2' AND MsPjkPBK = 1 AND "
     "ThPjkPBK = 2009",
     "INDEX datPBKPPhMasa_NUMBER"},
    {"SELECT NPWP_PARTNER FROM PARTNER_INFO WHERE NPWP_PARTNER = '1'", "INDEX PARTNER_INFO_NPWP"},
};

TEST_F(SchemaPlans, FindTheRowsOfFrequentStatementsByAnIndex) {
  for (const auto& [statement, step] : plans) {
    const std::string steps = plan(withPeriod(statement));
    EXPECT_NE(steps.find(step), std::string::npos) << statement << "\n" << steps;
    for (const char* table : {"DS_FORM", "SSP", "D113210", "datPBK", "PARTNER"}) {
      EXPECT_EQ(steps.find(std::string("SCAN ") + table), std::string::npos) << statement << "\n" << steps;
    }
  }
}

TEST_F(SchemaPlans, ReadTheNumbersOfAYearInTheirOrder) {
  EXPECT_EQ(plan("SELECT NOBUKTI FROM DS_FORM_INDUK WHERE TH_PAJAK = 2009 AND KD_PEMBETULAN_KE = 0 AND (KD_FORM = "
                 "'F113309' OR KD_FORM = 'F113310') ORDER BY NOBUKTI ASC")
                .find("TEMP B-TREE"),
            std::string::npos);
}

}  // namespace
}  // namespace tarvola::ado::engine::sqlite
