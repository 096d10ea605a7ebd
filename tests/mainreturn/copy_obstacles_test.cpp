// What would end a copy or get lost in it is found before anything is cleared.

#include "tarvola/mainreturn/copy_obstacles.h"

#include "tarvola/store/form_layouts.h"
#include "tests/mainreturn/copy_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace tarvola::test {
namespace {

class Obstacles : public CopyTest {
 protected:
  std::vector<std::string> found(const mainreturn::CopyManner& manner = mainreturn::sameOffice) {
    const store::StoreObject store;
    std::vector<std::string> texts;
    const bool moves = manner.goesByFiler;
    for (const CopyObstacle& each : mainreturn::findCopyObstacles(store, {.manner = manner,
                                                                         .oldNumber = filer,
                                                                         .newNumber = moves ? newNumber : filer,
                                                                         .kdJenisPajak = "113",
                                                                         .source = {3, 2009, 0},
                                                                         .target = {3, 2009, 1}}))
      texts.push_back(nameOf(each.kind) + " " + each.table + " " + each.form + " " + each.number + " " + each.field +
                      (each.value.empty() ? "" : " " + each.value));
    return texts;
  }
  static std::string nameOf(CopyObstacleKind kind) {
    switch (kind) {
      case CopyObstacleKind::Apostrophe:
        return "apostrophe";
      case CopyObstacleKind::MissingValue:
        return "missing";
      case CopyObstacleKind::SameKey:
        return "same key";
      case CopyObstacleKind::OtherFiler:
        return "other filer";
      default:
        return "other filer in target";
    }
  }
  /// Puts a text into a column, past the statements' own quotes.
  void put(const std::string& table, const std::string& column, const std::string& condition, const Variant& value) {
    const RecordsetPtr rows = Recordset::create();
    rows->Open("SELECT * FROM " + table + " WHERE " + condition, connection_);
    ASSERT_FALSE(rows->get_EOF());
    rows->put_Collect(column, value);
    rows->UpdateBatch();
  }
};

TEST_F(Obstacles, AreNoneInAFullMonth) {
  fill();
  EXPECT_THAT(found(), IsEmpty());
  EXPECT_THAT(found(mainreturn::otherOffice), IsEmpty());
}

TEST_F(Obstacles, NameTheFieldThatHoldsAnApostrophe) {
  fill();
  run("UPDATE DS_FORM_INDUK SET DAT_FORM = '013121660091000;PT "
      "Contoh;Jakarta;3;2009;0;10/03/2009;000001/PPH4;1;Ja''far' "
      "WHERE KD_FORM = 'F113309'");
  run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = '013121660091000;PT Contoh;Jakarta;3;2009;0;Jl. D''Alembert;1;NTPN 1;1;0;0' "
      "WHERE KD_FORM = 'FSewaTnhBgn'");
  run("UPDATE DS_FORM_LAMPIRAN SET DAT_FORM = '3;2009;1;1;alamat;Ja''far' WHERE NOBUKTI = '000003/PPH4'");
  run("UPDATE LAMPIRAN_SSP_PPh22 SET DAT_FORM = '3;2009;1;2;3;x''y' WHERE NOBUKTI = 'NTPN 3' AND SEQ = 2");
  put("D113210", "NMWP", "JENIS = 'LN'", "O'Neill");
  EXPECT_THAT(found(), ElementsAre("apostrophe DS_FORM_INDUK F113309 000001/PPH4 NMWPLT Ja'far",
                                   "apostrophe DS_FORM_LAMPIRAN D113206 000003/PPH4 NMWPLT Ja'far",
                                   "apostrophe D113210  000002/PPH4 NMWP O'Neill",
                                   "apostrophe DAT_SSP_PPh22 FSewaTnhBgn NTPN 1 Lokasi Jl. D'Alembert",
                                   "apostrophe LAMPIRAN_SSP_PPh22 DAlihTnhBgn NTPN 3 NoBukti x'y"));
}

TEST_F(Obstacles, NameAColumnAndAFieldBehindTheLayout) {
  addDocument({.form = "F113319", .number = "1"});
  put("DS_FORM_INDUK", "TGL_REKAM", "NOBUKTI = '1'", "it's");
  addDocument({.form = "F113320", .number = "2", .packedText = "a;b;c;3;2009;0;d;2;e;f;g;1;2;3;inv;user;place;''"});
  EXPECT_THAT(found(), ElementsAre("apostrophe DS_FORM_INDUK F113319 1 TGL_REKAM it's",
                                   "apostrophe DS_FORM_INDUK F113320 2 Field17 '"));
}

TEST_F(Obstacles, AreInThePaymentRecordsToo) {
  run("INSERT INTO DATSSP (KodePasal,MsPjk,ThPjk,KdPmbtln,NTPP,KdMAP) VALUES (4,3,2009,0,'77','41''1128')");
  run("INSERT INTO DATSSP (KodePasal,MsPjk,ThPjk,KdPmbtln,NTPP,KdMAP) VALUES (4,3,2009,1,'88','41''1128')");
  EXPECT_THAT(found(), ElementsAre("apostrophe DATSSP  77 KdMAP 41'1128"));
}

TEST_F(Obstacles, AreDocumentsWithoutWhatTheCopyFindsThemBy) {
  addDocument({.form = "F113309", .number = "1"});
  addItem("DS_FORM_LAMPIRAN", "D113206", "1", "1");
  put("DS_FORM_INDUK", "NOBUKTI", "KD_FORM = 'F113309'", Variant::null());
  put("DS_FORM_LAMPIRAN", "COLLNO", "NOBUKTI = '1'", Variant::null());
  EXPECT_THAT(found(),
              ElementsAre("missing DS_FORM_INDUK F113309  NOBUKTI", "missing DS_FORM_LAMPIRAN D113206 1 COLLNO"));
}

// The copy would make two of the first. Rows that are equal lose nothing by that.
TEST_F(Obstacles, AreDifferentRowsOfOneNumber) {
  addDocument({.form = "F113309", .number = "1", .fields = {{"NMWPLT", "A"}}});
  addDocument({.form = "F113309", .number = "1", .fields = {{"NMWPLT", "B"}}});
  addDocument({.form = "F113319", .number = "2"});
  addDocument({.form = "F113319", .number = "2"});
  addItem("DS_FORM_LAMPIRAN", "D113206", "1", "A", 1);
  addItem("DS_FORM_LAMPIRAN", "D113206", "1", "B", 2);
  addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", "1", "A", 1);
  addItem("LAMPIRAN_SSP_PPh22", "DSewaTnhBgn", "1", "B", 2);
  EXPECT_THAT(found(),
              ElementsAre("same key DS_FORM_INDUK F113309 1 NOBUKTI", "same key DS_FORM_LAMPIRAN D113206 1 COLLNO"));
}

TEST_F(Obstacles, AreNotTheListsOfExchangesWhichTheirCodeTellsApart) {
  const auto add = [this](const std::string& code, const std::string& packed) {
    run("INSERT INTO DS_FORM_INDUK "
        "(NPWP,KD_FORM,JENIS_DOKUMEN,MS_PAJAK,TH_PAJAK,KD_PEMBETULAN_KE,NOBUKTI,KD_JENIS_PAJAK,"
        "DAT_FORM) VALUES ('013121660091000','D113207','" +
        code + "',3,2009,0,'-','113','" + packed + "')");
  };
  add("21", "a;b;c;3;2009;0;1");
  add("22", "a;b;c;3;2009;0;2");
  EXPECT_THAT(found(), IsEmpty());
  add("22", "a;b;c;3;2009;0;3");
  EXPECT_THAT(found(), ElementsAre("same key DS_FORM_INDUK D113207 - NOBUKTI"));
}

TEST_F(Obstacles, OfAMoveAreDocumentsThatItWouldLeaveBehindOrMeet) {
  addDocument({.form = "F113309", .number = "1"});
  addDocument({.form = "F113309", .number = "2"});
  addDocument({.form = "F113309", .number = "1", .correction = 1});
  addDocument({.form = "F113309", .number = "2", .correction = 1});
  addDocument({.form = "FSewaTnhBgn", .number = "3", .correction = 1});
  run("UPDATE DS_FORM_INDUK SET NPWP = '021832415000000' WHERE NOBUKTI = '2' AND KD_PEMBETULAN_KE = 0");
  run("UPDATE DS_FORM_INDUK SET NPWP = '" + std::string(newNumber) + "' WHERE NOBUKTI = '2' AND KD_PEMBETULAN_KE = 1");
  EXPECT_THAT(found(), IsEmpty()) << "at the same office the documents of all filers are copied and cleared";
  EXPECT_THAT(found(mainreturn::otherOffice),
              ElementsAre("other filer DS_FORM_INDUK F113309 2 NPWP 021832415000000",
                          "other filer in target DS_FORM_INDUK F113309 1 NPWP 013121660091000",
                          "other filer in target DAT_SSP_PPh22 FSewaTnhBgn 3 NPWP 013121660091000"));
}

// Every position and extra of every layout has its name here, so that a person is told which field to mend.
TEST(FieldsByPosition, AreThoseOfTheLayout) {
  for (const store::FormLayout& layout : store::allLayouts()) {
    for (std::size_t position = 0; position < layout.positions.size() + layout.extras.size(); ++position)
      EXPECT_EQ(layout.position(store::fieldAt(&layout, position).name), position) << layout.code;
    const std::size_t behind = layout.positions.size() + layout.extras.size();
    EXPECT_EQ(store::fieldAt(&layout, behind).name, "Field" + std::to_string(behind));
  }
  EXPECT_EQ(store::fieldAt(nullptr, 3).name, "Field3");
}

}  // namespace
}  // namespace tarvola::test
