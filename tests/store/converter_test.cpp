#include "tarvola/store/DatFormConverter.h"

#include <gtest/gtest.h>

#include "tarvola/ado/fields.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/store/document_key.h"
#include "tarvola/store/field_access.h"
#include "tarvola/store/named_field_rows.h"
#include "tarvola/store/store_object.h"
#include "tests/store/store_session.h"

namespace tarvola::store {
namespace {

using test::StoreSession;

class Converter : public testing::Test {
 protected:
  void insertSlip(std::string_view number, std::string_view packed) {
    const DocumentKey key{.npwp = "01.1",
                          .kdForm = F113311.kdForm,
                          .jenisDokumen = F113311.jenisDokumen,
                          .period = {.msPajak = 1, .thPajak = 2009, .kdPembetulanKe = 0},
                          .noBukti = number};
    session.execute(insertDocument(FormTable::Induk, key, packed, "31/01/2009"));
  }
  RecordsetPtr slips() { return object.open("SELECT * FROM DS_FORM_INDUK ORDER BY NOBUKTI ASC"); }

  template <class Body>
  std::int32_t errorOf(Body body) {
    try {
      body();
    } catch (const RunTimeError& error) {
      return error.number();
    }
    return 0;
  }

  StoreSession session;
  StoreObject object;
  DatFormConverter converter;
};

constexpr const char* first = "01.1;PT;Jl;1;2009;0;05/01/2009;000001/PPH4;02.2;A;B;1000;0,1;1;0;0;0;1;1000";
constexpr const char* second = "01.1;PT;Jl;1;2009;0;06/01/2009;000002/PPH4;02.2;C;D;3000;0,1;3;0;0;0;3;3000";

TEST_F(Converter, MakesOneRecordForEachRowInTheSameOrder) {
  insertSlip("000002/PPH4", second);
  insertSlip("000001/PPH4", first);
  const RecordsetPtr fields = object.expand("F113311", slips());
  ASSERT_EQ(fields->get_RecordCount(), 2);
  EXPECT_EQ(fieldText(fields, "NMWPLT"), "A") << "the first record is current";
  fields->MoveNext();
  EXPECT_EQ(fieldText(fields, "NMWPLT"), "C");
  fields->MoveNext();
  EXPECT_TRUE(fields->get_EOF());
}

TEST_F(Converter, TakesTheRowsThatAFilterShows) {
  insertSlip("000001/PPH4", first);
  insertSlip("000002/PPH4", second);
  const RecordsetPtr rows = slips();
  rows->put_Filter("KD_FORM = 'F113311' AND NOBUKTI = '000002/PPH4'");
  const RecordsetPtr fields = converter.ExpandDatForm("F113311", rows);
  EXPECT_EQ(fields->get_RecordCount(), 1);
  EXPECT_EQ(fieldText(fields, "NMWPLT"), "C");
}

TEST_F(Converter, GivesAnEmptyRecordsetForNoRows) {
  const RecordsetPtr fields = object.expand("F113311", slips());
  EXPECT_TRUE(isEmptyResult(fields));
  EXPECT_EQ(errorOf([&] { fieldText(fields, "npwp"); }), static_cast<std::int32_t>(ErrorNumber::NoCurrentRecord));
  EXPECT_EQ(errorOf([&] { converter.PackDatForm(fields); }), static_cast<std::int32_t>(ErrorNumber::NoCurrentRecord));
}

TEST_F(Converter, ExpandsAllRowsWhereverTheCursorStands) {
  insertSlip("000001/PPH4", first);
  insertSlip("000002/PPH4", second);
  const RecordsetPtr rows = slips();
  rows->MoveLast();
  rows->MoveNext();
  EXPECT_EQ(converter.ExpandDatForm("F113311", rows)->get_RecordCount(), 2);
  EXPECT_TRUE(rows->get_EOF()) << "and leaves it there";
}

TEST_F(Converter, KnowsNpwpAndNPWPAsOneField) {
  insertSlip("000001/PPH4", first);
  const RecordsetPtr fields = object.expand("F113311", slips());
  setField(fields, "NPWP", "77");
  EXPECT_EQ(fieldText(fields, "npwp"), "77");
}

TEST_F(Converter, WritesNothingToTheStoreByItself) {
  insertSlip("000001/PPH4", first);
  const std::string before = session.dump();
  const RecordsetPtr fields = object.expand("F113311", slips());
  setField(fields, "B13", 5000.0);
  setField(fields, "NMWPLT", "Other");
  fields->UpdateBatch();
  EXPECT_EQ(session.dump(), before);
}

TEST_F(Converter, ReachesTheStoreByPackingAndSaving) {
  insertSlip("000001/PPH4", first);
  const RecordsetPtr rows = slips();
  const RecordsetPtr fields = object.expand("F113311", rows);
  setField(fields, "B13", 5000.0);
  setField(rows, "DAT_FORM", object.pack(fields));
  saveAndRequery(rows);
  EXPECT_EQ(session.rowsOf("SELECT DAT_FORM FROM DS_FORM_INDUK"),
            "01.1;PT;Jl;1;2009;0;05/01/2009;000001/PPH4;02.2;A;B;5000;0,1;1;0;0;0;1;1000\n");
}

TEST_F(Converter, PacksTheCurrentRecord) {
  insertSlip("000001/PPH4", first);
  insertSlip("000002/PPH4", second);
  const RecordsetPtr fields = object.expand("F113311", slips());
  EXPECT_EQ(converter.PackDatForm(fields), first);
  fields->MoveNext();
  EXPECT_EQ(converter.PackDatForm(fields), second);
}

TEST_F(Converter, OutlivesTheRowsAndTheConnectionItCameFrom) {
  insertSlip("000001/PPH4", first);
  RecordsetPtr fields;
  {
    const StoreObject other;
    fields = other.expand("F113311", other.open("SELECT * FROM DS_FORM_INDUK"));
  }
  EXPECT_EQ(fieldNumber(fields, "B13"), 1000);
  EXPECT_EQ(converter.PackDatForm(fields), first);
}

TEST_F(Converter, ANewTextOfTheRowDoesNotReachTheNamedFields) {
  insertSlip("000001/PPH4", first);
  const RecordsetPtr rows = slips();
  const RecordsetPtr fields = object.expand("F113311", rows);
  setField(rows, "DAT_FORM", "a;b");
  saveAndRequery(rows);
  EXPECT_EQ(fieldNumber(fields, "B13"), 1000);
}

TEST_F(Converter, FailsForAnUnknownFormAndForRowsWithoutAPackedText) {
  insertSlip("000001/PPH4", first);
  EXPECT_EQ(errorOf([&] { converter.ExpandDatForm("F113313", slips()); }),
            static_cast<std::int32_t>(ErrorNumber::InvalidProcedureCall));
  EXPECT_EQ(errorOf([&] { converter.ExpandDatForm("F113311", object.open("SELECT * FROM BURSA")); }),
            static_cast<std::int32_t>(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorOf([&] { converter.PackDatForm(slips()); }),
            static_cast<std::int32_t>(ErrorNumber::InvalidProcedureCall));
  EXPECT_EQ(errorOf([&] { converter.ExpandDatForm("F113311", nullptr); }),
            static_cast<std::int32_t>(ErrorNumber::ObjectVariableNotSet));
}

TEST_F(Converter, IsUsableWithoutSettings) {
  insertSlip("000001/PPH4", first);
  converter.pSetCon("", "", "");
  EXPECT_EQ(converter.ExpandDatForm("F113311", slips())->get_RecordCount(), 1);
}

TEST_F(Converter, FiltersItsRecordsLikeAnyRecordset) {
  insertSlip("000001/PPH4", first);
  insertSlip("000002/PPH4", second);
  const RecordsetPtr fields = object.expand("F113311", slips());
  fields->put_Filter("B13 = 3000");
  ASSERT_EQ(fields->get_RecordCount(), 1);
  EXPECT_EQ(fieldText(fields, "NoBukti"), "000002/PPH4");
  fields->put_Filter("NoBukti = '000001/pph4'");
  ASSERT_EQ(fields->get_RecordCount(), 1);
  EXPECT_EQ(fieldNumber(fields, "B13"), 1000);
}

TEST_F(Converter, WritesNumbersUnderTheRegionalSettings) {
  insertSlip("000001/PPH4", first);
  const RecordsetPtr fields = object.expand("F113311", slips());
  setField(fields, "B14", 2.5);
  EXPECT_NE(converter.PackDatForm(fields).find(";2,5;"), std::string::npos);
}

TEST_F(Converter, GivesTheTextOfAFieldOfAnyRecordset) {
  insertSlip("000001/PPH4", first);
  const RecordsetPtr rows = slips();
  const RecordsetPtr fields = object.expand("F113311", rows);
  std::string text;
  appendFieldText(text, *fields, fields->column("B14"));
  appendFieldText(text, *rows, rows->column("NOBUKTI"));
  EXPECT_EQ(text, "0,1000001/PPH4");
}

// --- field access -----------------------------------------------------------------------------------------------

TEST_F(Converter, FieldsReadNullAsAnErrorOrAsWhatStandsForIt) {
  insertSlip("000001/PPH4", "01.1;PT;Jl;1;2009;0;05/01/2009");
  const RecordsetPtr fields = object.expand("F113311", slips());
  EXPECT_TRUE(isNullField(fields, "B13"));
  EXPECT_EQ(errorOf([&] { fieldNumber(fields, "B13"); }), static_cast<std::int32_t>(ErrorNumber::InvalidUseOfNull));
  EXPECT_EQ(errorOf([&] { fieldText(fields, "NoBukti"); }), static_cast<std::int32_t>(ErrorNumber::InvalidUseOfNull));
  EXPECT_EQ(fieldNumberOr(fields, "B13", 0), 0);
  EXPECT_EQ(fieldTextOr(fields, "NoBukti", "-"), "-");
  EXPECT_EQ(fieldInteger(fields, "MS_PAJAK"), 1);
  EXPECT_EQ(errorOf([&] { fieldNumber(fields, "B99"); }), static_cast<std::int32_t>(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorOf([] { fieldNumber(nullptr, "B13"); }), static_cast<std::int32_t>(ErrorNumber::ObjectVariableNotSet));
}

TEST_F(Converter, NullBecomes0AndAnythingElseItsInt) {
  insertSlip("000001/PPH4", "01.1;PT;Jl;1;2009;0;05/01/2009;;;;;1234,99;-8,4;x");
  const RecordsetPtr fields = object.expand("F113311", slips());
  for (const char* name : {"B13", "B14", "B23"}) nullToZeroElseInt(fields, name);
  nullToZero(fields, "B24");
  EXPECT_EQ(fieldNumber(fields, "B13"), 1234);
  EXPECT_EQ(fieldNumber(fields, "B14"), -9);
  EXPECT_EQ(fieldNumber(fields, "B23"), 0);
  EXPECT_EQ(fieldNumber(fields, "B24"), 0);
  EXPECT_EQ(errorOf([&] { nullToZeroElseInt(fields, "B15"); }), static_cast<std::int32_t>(ErrorNumber::TypeMismatch));
}

}  // namespace
}  // namespace tarvola::store
