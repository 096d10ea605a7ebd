// Removing a return: what goes, what stays to the last byte, and what a failure between two tables leaves.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tarvola/runtime/errors.h"
#include "tests/store/store_session.h"
#include "tests/support/refusing_store.h"

namespace tarvola {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

constexpr const char* filer = "013121660091000";
constexpr const char* otherFiler = "021832415000000";

struct Month {
  int month = 1;
  int year = 2009;
  int correction = 0;
};

/// What a row is called, so that a test says which ones go: "113 1/2009/0 DAT_SSP_PPh22". It stands in its number.
std::string tag(const std::string& kind, const Month& month, const std::string& table) {
  return kind + " " + std::to_string(month.month) + "/" + std::to_string(month.year) + "/" +
         std::to_string(month.correction) + " " + table;
}

class Removal : public testing::Test {
 protected:
  std::string values(const Month& month) {
    return std::to_string(month.month) + "," + std::to_string(month.year) + "," + std::to_string(month.correction);
  }
  void document(const std::string& kind, const Month& month, const std::string& table = "DS_FORM_INDUK",
                const std::string& npwp = filer) {
    session.execute("INSERT INTO " + table +
                    " (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,DAT_FORM) "
                    "VALUES ('" +
                    npwp + "','FORM','01'," + values(month) + ",'" + tag(kind, month, table) +
                    (npwp == filer ? "" : " of another") + "','" + kind + "','a;b;c')");
  }
  void item(const std::string& kind, const Month& month, const std::string& table, const std::string& list) {
    session.execute("INSERT INTO " + table + " VALUES ('" + list + "'," + values(month) + ",0,1,'" +
                    tag(kind, month, table) + "','" + list + ";1;2')");
  }
  void payment(const std::string& name, int article, const Month& month, const std::string& account = "411128",
               const std::string& paymentKind = "402") {
    session.execute("INSERT INTO DATSSP (KodePasal,MsPjk,ThPjk,KdPmbtln,KdMAP,KdJnsStr,TglSSP,NTPP,JmlByr) VALUES (" +
                    std::to_string(article) + "," + values(month) + ",'" + account + "','" + paymentKind +
                    "',DateValue('10/02/2009'),'" + name + "',1500000.25)");
  }
  void transfer(const std::string& name, int article, const Month& month, const std::string& npwp = filer) {
    session.execute("INSERT INTO datPBKPPhMasa (PASAL,NoBuktiPBK,MsPjkPBK,ThPjkPBK,NPWPTertuju,JumlahPBK) VALUES (" +
                    std::to_string(article) + ",'" + name + "'," + std::to_string(month.month) + "," +
                    std::to_string(month.year) + ",'" + npwp + "',250000)");
  }

  std::vector<std::string> lines() {
    std::istringstream dump(session.dump());
    std::vector<std::string> all;
    for (std::string line; std::getline(dump, line);) all.push_back(line);
    return all;
  }
  static std::vector<std::string> without(std::vector<std::string> all, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      const auto gone = [&name](const std::string& line) { return line.find("|" + name + "|") != std::string::npos; };
      EXPECT_EQ(std::count_if(all.begin(), all.end(), gone), 1) << name;
      std::erase_if(all, gone);
    }
    return all;
  }
  /// Whether a row with that number is in the store.
  bool holds(const std::string& name) { return session.dump().find("|" + name + "|") != std::string::npos; }

  test::StoreSession session;
  CGeneralClass general;
};

/// All five returns, their shared documents and their payments, over five periods, and a few rows that look alike.
class RemovalAmongReturns : public Removal {
 protected:
  static constexpr Month removed{1, 2009, 0};
  static constexpr Month corrected{1, 2009, 1};

  RemovalAmongReturns() {
    for (const Month& month : {removed, corrected, Month{2, 2009, 0}, Month{1, 2010, 0}, Month{12, 2009, 0}})
      fill(month);
    session.execute(
        "INSERT INTO D113210 (NPWP,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,JENIS,BRUTO) VALUES ('1',1,2009,0,"
        "'000001/PPH4','DN',1000)");
    payment("of an account of another return", 4, removed, "411121");
    payment("of a kind of payment of another return", 4, removed, "411128", "390");
    transfer("in favour of another", 4, removed, otherFiler);
  }
  void fill(const Month& month) {
    for (const char* kind : {"111", "112", "113", "114", "117", "118"}) document(kind, month);
    for (const char* kind : {"112", "113", "118"}) document(kind, month, "DAT_SSP_PPh22");
    for (const auto& [kind, list] : {std::pair("111", "D113201"),
                                     {"112", "D113204"},
                                     {"113", "D113206"},
                                     {"114", "D113205"},
                                     {"118", "D113209"},
                                     {"113b", "D113207"},
                                     {"113c", "D113208"},
                                     {"118b", "DWklDagang"},
                                     {"none", "F113309"}})
      item(kind, month, "DS_FORM_LAMPIRAN", list);
    for (const auto& [kind, list] : {std::pair("112", "D113202"),
                                     {"112b", "D113203"},
                                     {"112c", "DImporDbyrSdr"},
                                     {"113", "DSewaTnhBgn"},
                                     {"113b", "DJasaKonstruksi"},
                                     {"113c", "DAlihTnhBgn"},
                                     {"118", "DImblnPelPenLN"},
                                     {"118b", "DWklDagang"},
                                     {"none", "FSewaTnhBgn"}})
      item(kind, month, "LAMPIRAN_SSP_PPh22", list);
    for (const auto& [kind, article] : {std::pair("111", 21), {"112", 22}, {"113", 4}, {"114", 23}, {"118", 15}}) {
      payment(tag(kind, month, "DATSSP"), article, month);
      transfer(tag(kind, month, "PBK"), article, month);
    }
  }
  static std::string induk(const std::string& kind, const Month& month) { return tag(kind, month, "DS_FORM_INDUK"); }
  static std::string ssp(const std::string& kind, const Month& month) { return tag(kind, month, "DAT_SSP_PPh22"); }
  static std::string listItem(const std::string& kind, const Month& month) {
    return tag(kind, month, "DS_FORM_LAMPIRAN");
  }
  static std::string selfPaidItem(const std::string& kind, const Month& month) {
    return tag(kind, month, "LAMPIRAN_SSP_PPh22");
  }
};

/// The documents that go with a return, by kind.
struct Cascade {
  std::string kind;
  std::vector<std::string> documents;
  std::vector<std::string> listItems;
  std::vector<std::string> selfPaidForms;
  std::vector<std::string> selfPaidItems;
};

class RemovalByKind : public RemovalAmongReturns, public testing::WithParamInterface<Cascade> {
 protected:
  static std::vector<std::string> documentsThatGo(const Month& month) {
    std::vector<std::string> names;
    for (const std::string& kind : GetParam().documents) names.push_back(induk(kind, month));
    for (const std::string& kind : GetParam().listItems) names.push_back(listItem(kind, month));
    for (const std::string& kind : GetParam().selfPaidForms) names.push_back(ssp(kind, month));
    for (const std::string& kind : GetParam().selfPaidItems) names.push_back(selfPaidItem(kind, month));
    return names;
  }
};

TEST_P(RemovalByKind, OfACorrectionTakesItsDocumentsAndNoPayment) {
  const std::vector<std::string> expected = without(lines(), documentsThatGo(corrected));
  general.pDelete(filer, GetParam().kind, 1, 2009, 1);
  EXPECT_EQ(lines(), expected);
  EXPECT_TRUE(session.messages().empty());
}

TEST_P(RemovalByKind, OfAFirstFilingTakesThePaymentsOfTheMonthAndOfAllItsCorrections) {
  const std::string& kind = GetParam().kind;
  std::vector<std::string> names = documentsThatGo(removed);
  // Transfers know no correction, so that each stands twice in the month: once for each correction above.
  for (const Month& month : {removed, corrected})
    names.insert(names.end(), {tag(kind, month, "DATSSP"), tag(kind, month, "PBK")});
  // The other returns take their payments whatever account and kind of payment they have.
  const std::vector<std::string> expected = without(lines(), names);
  general.pDelete(filer, kind, 1, 2009, 0);
  EXPECT_EQ(lines(), expected);
  EXPECT_TRUE(session.messages().empty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, RemovalByKind,
                         testing::Values(Cascade{"111", {"111", "117"}, {"111"}, {}, {}},
                                         Cascade{"112", {"112"}, {"112"}, {"112"}, {"112", "112b", "112c"}},
                                         Cascade{
                                             "113", {"113"}, {"113", "113b", "113c"}, {"113"}, {"113", "113b", "113c"}},
                                         Cascade{"114", {"114", "117"}, {"114"}, {}, {}},
                                         Cascade{"118", {"118"}, {"118", "118b"}, {"118"}, {"118", "118b"}}),
                         [](const auto& cascade) { return "Kind" + cascade.param.kind; });

TEST_F(RemovalAmongReturns, FindsThePaymentsOfAMonthOfTwoDigits) {
  const Month december{12, 2009, 0};
  general.pDelete(filer, "113", 12, 2009, 0);
  EXPECT_FALSE(holds(tag("113", december, "DATSSP")));
  EXPECT_FALSE(holds(tag("113", december, "PBK")));
  EXPECT_TRUE(holds(tag("113", removed, "DATSSP")));
  EXPECT_TRUE(holds(tag("118", december, "DATSSP")));
}

TEST_F(RemovalAmongReturns, RunTwiceIsRunOnce) {
  general.pDelete(filer, "113", 1, 2009, 0);
  const std::vector<std::string> once = lines();
  general.pDelete(filer, "113", 1, 2009, 0);
  EXPECT_EQ(lines(), once);
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(RemovalAmongReturns, OfAnUnknownKindTakesNothing) {
  document("999", removed);
  const std::vector<std::string> before = lines();
  for (const char* kind : {"999", "117"}) general.pDelete(filer, kind, 1, 2009, 0);
  EXPECT_EQ(lines(), before);
  EXPECT_THAT(session.messages().texts(), ElementsAre("No return has the tax kind '999'. Nothing was removed.",
                                                      "No return has the tax kind '117'. Nothing was removed."));
}

TEST_F(RemovalAmongReturns, OfAKindWithAnApostropheTakesNothing) {
  const std::vector<std::string> before = lines();
  general.pDelete(filer, "113' OR '1' = '1", 1, 2009, 0);
  EXPECT_EQ(lines(), before);
  ASSERT_THAT(session.messages().texts(), SizeIs(1));
  EXPECT_THAT(session.messages().texts()[0], testing::HasSubstr("Syntax error"));
}

TEST_F(Removal, OfAFirstFilingWithoutDocumentsStillTakesThePayments) {
  payment("payment", 4, {});
  transfer("transfer", 4, {});
  general.pDelete(filer, "113", 1, 2009, 0);
  EXPECT_FALSE(holds("payment"));
  EXPECT_FALSE(holds("transfer"));
}

// A kind that is none of the five has the article 0, which no payment of a return has.
TEST_F(Removal, OfAnUnknownKindWithoutDocumentsTakesThePaymentsOfNoArticle) {
  payment("no article", 0, {});
  transfer("transfer of no article", 0, {});
  for (const int article : {4, 15, 21, 22, 23}) payment("article " + std::to_string(article), article, {});
  transfer("transfer", 4, {});
  general.pDelete(filer, "999", 1, 2009, 0);
  EXPECT_EQ(session.rowsOf("SELECT NTPP FROM DATSSP ORDER BY NTPP"),
            "article 15\narticle 21\narticle 22\narticle 23\narticle 4\n");
  EXPECT_EQ(session.rowsOf("SELECT NoBuktiPBK FROM datPBKPPhMasa"), "transfer\n");
  EXPECT_TRUE(session.messages().empty());
}

TEST_F(Removal, OfACorrectionWithoutDocumentsTakesNothing) {
  payment("payment", 4, {});
  item("113", {1, 2009, 1}, "DS_FORM_LAMPIRAN", "D113206");
  general.pDelete(filer, "113", 1, 2009, 1);
  EXPECT_TRUE(holds("payment"));
  EXPECT_TRUE(holds("113 1/2009/1 DS_FORM_LAMPIRAN")) << "items go only with a document";
}

TEST_F(Removal, GoesByTheFilerOnlyInTheSelfPaidFormsOfKind112) {
  for (const char* kind : {"112", "113"}) {
    for (const char* table : {"DS_FORM_INDUK", "DAT_SSP_PPh22"}) document(kind, {}, table, otherFiler);
    general.pDelete(filer, kind, 1, 2009, 0);
  }
  EXPECT_TRUE(holds("112 1/2009/0 DAT_SSP_PPh22 of another"));
  EXPECT_FALSE(holds("112 1/2009/0 DS_FORM_INDUK of another"));
  EXPECT_FALSE(holds("113 1/2009/0 DAT_SSP_PPh22 of another"));
  EXPECT_FALSE(holds("113 1/2009/0 DS_FORM_INDUK of another"));
}

TEST_F(Removal, KnowsTheKindsOfPaymentOfTheReturnOneByOne) {
  for (const char* kind : {"100", "199", "300", "310", "312", "320", "322", "401", "402", "403", "404", "405", "406",
                           "407", "408", "409", "416", "417", "418", "419", "499", "500", "501", "510", "511"})
    payment(std::string("kind ") + kind, 4, {}, "0171", kind);
  for (const char* account : {"0118", "0171", "0172", "0173", "411128"})
    payment(std::string("account ") + account, 4, {}, account);
  payment("kind 390", 4, {}, "0171", "390");
  payment("account 0174", 4, {}, "0174");
  general.pDelete(filer, "113", 1, 2009, 0);
  EXPECT_EQ(session.rowsOf("SELECT NTPP FROM DATSSP ORDER BY NTPP"), "account 0174\nkind 390\n");
}

// --- a failure between two tables ------------------------------------------------------------------------------

/// Five tables in the order in which they are emptied.
class RemovalThatFails : public Removal {
 protected:
  RemovalThatFails() {
    document("113", {});
    item("113", {}, "DS_FORM_LAMPIRAN", "D113206");
    document("113", {}, "DAT_SSP_PPh22");
    item("113", {}, "LAMPIRAN_SSP_PPh22", "DSewaTnhBgn");
    payment("113 1/2009/0 DATSSP", 4, {});
    transfer("113 1/2009/0 datPBKPPhMasa", 4, {});
  }
  std::vector<std::string> tablesWithRows() {
    std::vector<std::string> tables;
    for (const char* table :
         {"DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22", "DATSSP", "datPBKPPhMasa"})
      if (holds(std::string("113 1/2009/0 ") + table)) tables.emplace_back(table);
    return tables;
  }
  std::vector<std::string> leftByAFailureIn(const std::string& table) {
    test::refuseWrites(session.store().path(), "DELETE", table);
    general.pDelete(filer, "113", 1, 2009, 0);
    EXPECT_THAT(session.messages().texts(), SizeIs(1));
    return tablesWithRows();
  }
};

TEST_F(RemovalThatFails, InTheDocumentsLeavesAll) { EXPECT_THAT(leftByAFailureIn("DS_FORM_INDUK"), SizeIs(6)); }

TEST_F(RemovalThatFails, InTheListItemsLeavesAllButTheDocuments) {
  EXPECT_THAT(leftByAFailureIn("DS_FORM_LAMPIRAN"),
              ElementsAre("DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22", "DATSSP", "datPBKPPhMasa"));
}

TEST_F(RemovalThatFails, InTheSelfPaidFormsLeavesThemAndWhatComesBehind) {
  EXPECT_THAT(leftByAFailureIn("DAT_SSP_PPh22"),
              ElementsAre("DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22", "DATSSP", "datPBKPPhMasa"));
}

TEST_F(RemovalThatFails, InTheSelfPaidItemsLeavesThemAndThePayments) {
  EXPECT_THAT(leftByAFailureIn("LAMPIRAN_SSP_PPh22"), ElementsAre("LAMPIRAN_SSP_PPh22", "DATSSP", "datPBKPPhMasa"));
}

// The removal of payments shows its own failure, and that of transfers runs all the same.
TEST_F(RemovalThatFails, InThePaymentsLeavesOnlyThose) {
  EXPECT_THAT(leftByAFailureIn("DATSSP"), ElementsAre("DATSSP"));
}

TEST_F(RemovalThatFails, InTheTransfersLeavesOnlyThose) {
  EXPECT_THAT(leftByAFailureIn("datPBKPPhMasa"), ElementsAre("datPBKPPhMasa"));
}

TEST_F(RemovalThatFails, OverAFilerWithAnApostropheLeavesOnlyTheTransfers) {
  general.pDelete("013121660091000' OR '1' = '1", "113", 1, 2009, 0);
  EXPECT_THAT(tablesWithRows(), ElementsAre("datPBKPPhMasa"));
  EXPECT_THAT(session.messages().texts(), SizeIs(1));
}

// The search for documents shows its own failure and has found nothing then; the payments of the month go all the same.
TEST_F(RemovalThatFails, InTheSearchForDocumentsTakesThePaymentsOnly) {
  test::runNative(session.store().path(), "ALTER TABLE DS_FORM_INDUK RENAME TO GONE");
  general.pDelete(filer, "113", 1, 2009, 0);
  EXPECT_THAT(session.messages().texts(), ElementsAre(testing::HasSubstr("'DS_FORM_INDUK'")));
  test::runNative(session.store().path(), "ALTER TABLE GONE RENAME TO DS_FORM_INDUK");
  EXPECT_THAT(tablesWithRows(),
              ElementsAre("DS_FORM_INDUK", "DS_FORM_LAMPIRAN", "DAT_SSP_PPh22", "LAMPIRAN_SSP_PPh22"));
}

TEST_F(RemovalThatFails, InBothSortsOfPaymentsShowsThatOfTheRecordsFirst) {
  test::runNative(session.store().path(), "DROP TABLE DATSSP; DROP TABLE datPBKPPhMasa");
  general.pDelete(filer, "113", 1, 2009, 0);
  EXPECT_THAT(session.messages().texts(),
              ElementsAre(testing::HasSubstr("'DATSSP'"), testing::HasSubstr("'datPBKPPhMasa'")));
}

// Payments are removed in the order of their dates, row by row.
TEST_F(Removal, ThatFailsInTheMiddleOfThePaymentsLeavesTheLaterOnes) {
  payment("late", 4, {});
  payment("early", 4, {});
  payment("refused", 4, {});
  session.execute("UPDATE DATSSP SET TglSSP = DateValue('01/02/2009') WHERE NTPP = 'early'");
  session.execute("UPDATE DATSSP SET TglSSP = DateValue('05/02/2009') WHERE NTPP = 'refused'");
  test::refuseWrites(session.store().path(), "DELETE", "DATSSP", "OLD.NTPP = 'refused'");
  general.pDelete(filer, "113", 1, 2009, 0);
  EXPECT_EQ(session.rowsOf("SELECT NTPP FROM DATSSP ORDER BY NTPP"), "late\nrefused\n");
}

}  // namespace
}  // namespace tarvola
