#include "tarvola/store/return_contents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tarvola/store/return_directory.h"
#include "tests/store/store_session.h"

namespace tarvola::store {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class Contents : public testing::Test {
 protected:
  void document(const std::string& table, const std::string& form, const std::string& code, const std::string& number,
                const std::string& period = "1,2009,0", const std::string& packed = "",
                const std::string& kind = "113") {
    session.execute("INSERT INTO " + table +
                    " (NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,DAT_FORM) "
                    "VALUES ('013121660091000','" +
                    form + "','" + code + "'," + period + ",'" + number + "','" + kind + "','" + packed + "')");
  }
  void item(const std::string& table, const std::string& list, const std::string& period = "1,2009,0") {
    session.execute("INSERT INTO " + table + " VALUES ('" + list + "'," + period + ",0,1,'1','a')");
  }
  void payee(const std::string& period = "1,2009,0") {
    session.execute("INSERT INTO D113210 (MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI) VALUES (" + period + ",'1')");
  }
  static std::string periodText(const Period& period) {
    return std::to_string(period.msPajak) + "/" + std::to_string(period.thPajak) + "/" +
           std::to_string(period.kdPembetulanKe);
  }

  test::StoreSession session;
  StoreObject store;
};

TEST_F(Contents, AreCountedByKindAndForOneReturnAlone) {
  document("DS_FORM_INDUK", "F113204", "01", "-");
  document("DS_FORM_INDUK", "D113206", "08", "-");
  document("DS_FORM_INDUK", "F113309", "02", "000001/PPH4");
  document("DS_FORM_INDUK", "F113310", "03", "000002/PPH4");
  document("DAT_SSP_PPh22", "DSewaTnhBgn", "11", "-");
  document("DAT_SSP_PPh22", "FSewaTnhBgn", "12", "1000000000000001");
  for (const char* list : {"D113206", "D113206", "D113207"}) item("DS_FORM_LAMPIRAN", list);
  for (const char* list : {"DSewaTnhBgn", "DAlihTnhBgn"}) item("LAMPIRAN_SSP_PPh22", list);
  payee();
  // Nothing of this belongs to it: another kind of return, the list of one, another month, another correction.
  document("DS_FORM_INDUK", "F113201", "01", "-", "1,2009,0", "", "111");
  item("DS_FORM_LAMPIRAN", "D113201");
  item("LAMPIRAN_SSP_PPh22", "D113202");
  for (const char* period : {"2,2009,0", "1,2010,0", "1,2009,1"}) {
    document("DS_FORM_INDUK", "F113309", "02", "000009/PPH4", period);
    payee(period);
  }
  EXPECT_EQ(contentsOf(store, {1, 2009, 0}), (ReturnContents{.mainForms = 1,
                                                             .listHeaders = 2,
                                                             .slips = 2,
                                                             .selfPaidForms = 1,
                                                             .listRows = 3,
                                                             .selfPaidListRows = 2,
                                                             .interestPayees = 1}));
  EXPECT_EQ(contentsOf(store, {1, 2009, 0}).documents(), 6);
  EXPECT_TRUE(contentsOf(store, {3, 2009, 0}).isEmpty());
  EXPECT_FALSE(contentsOf(store, {1, 2009, 1}).isEmpty());
}

TEST_F(Contents, TellOfEveryReturnInTheOrderOfTimeAlsoOfAHalfOne) {
  EXPECT_THAT(storedReturns(store), IsEmpty());
  document("DS_FORM_INDUK", "F113204", "01", "-", "12,2009,0");
  document("DS_FORM_INDUK", "F113204", "01", "-", "2,2010,0");
  document("DAT_SSP_PPh22", "FSewaTnhBgn", "12", "1", "2,2010,1");
  payee("1,2010,0");
  document("DS_FORM_INDUK", "F113204", "01", "-", "2,2009,0");
  std::vector<std::string> periods;
  for (const StoredReturn& each : storedReturns(store)) periods.push_back(periodText(each.period));
  EXPECT_THAT(periods, testing::ElementsAre("2/2009/0", "12/2009/0", "1/2010/0", "2/2010/0", "2/2010/1"));
}

// The totals stand in positions 78 (tax) and 79 (gross) of a main form. What cannot be read counts as 0, so that a
// directory shows in any case.
TEST_F(Contents, TakeTheTotalsFromTheMainForm) {
  std::string packed = "013121660091000;PT Contoh;Jakarta;9;1999;7";
  for (int position = 6; position < 88; ++position)
    packed += position == 78 ? ";25000000" : position == 79 ? ";100000000" : ";0";
  document("DS_FORM_INDUK", "F113204", "01", "-", "1,2009,0", packed);
  document("DS_FORM_INDUK", "F113204", "01", "-", "1,2009,1", "a;b;c");
  const std::vector<StoredReturn> all = storedReturns(store);
  ASSERT_THAT(all, SizeIs(2));
  EXPECT_EQ(periodText(all[0].period), "1/2009/0") << "the row counts, not what its packed text says";
  EXPECT_EQ(all[0].taxRupiah, 25000000);
  EXPECT_EQ(all[0].grossRupiah, 100000000);
  EXPECT_EQ(all[1].taxRupiah, 0);
}

TEST_F(Contents, ListTheSelfPaidDocumentsWithTheirNames) {
  document("DAT_SSP_PPh22", "FSewaTnhBgn", "12", "2");
  document("DAT_SSP_PPh22", "FSewaTnhBgn", "12", "2");
  document("DAT_SSP_PPh22", "DSewaTnhBgn", "11", "-");
  document("DAT_SSP_PPh22", "FAlihTnhBgn", "99", "3");
  document("DAT_SSP_PPh22", "FAlihTnhBgn", "19", "4", "2,2009,0");
  const RecordsetPtr rows = listSelfPaidDocuments(store, "113", {1, 2009, 0});
  EXPECT_EQ(rows->GetString(adClipString, -1, "|", "\n", "Null"),
            "Daftar Persewaan Tanah dan/atau Bangunan disetor sendiri|DSewaTnhBgn|11|-\n"
            "Formulir Persewaan Tanah dan/atau Bangunan disetor sendiri|FSewaTnhBgn|12|2\n"
            "Formulir Persewaan Tanah dan/atau Bangunan disetor sendiri|FSewaTnhBgn|12|2\n");
}

}  // namespace
}  // namespace tarvola::store
