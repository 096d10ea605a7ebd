#include "tarvola/store/document_key.h"

#include <gtest/gtest.h>

#include "tarvola/runtime/errors.h"
#include "tarvola/store/store_object.h"
#include "tests/store/store_session.h"

namespace tarvola::store {
namespace {

using test::StoreSession;

const DocumentKey slip{.npwp = "013121660091000",
                       .kdForm = F113309.kdForm,
                       .jenisDokumen = F113309.jenisDokumen,
                       .period = {.msPajak = 1, .thPajak = 2009, .kdPembetulanKe = 0},
                       .noBukti = "000001/PPH4"};

TEST(DocumentKey, NamesTheWholePeriod) {
  EXPECT_EQ(periodCondition({.msPajak = 12, .thPajak = 2010, .kdPembetulanKe = 3}).str(),
            "MS_PAJAK = 12 AND TH_PAJAK = 2010 AND KD_PEMBETULAN_KE = 3");
}

TEST(DocumentKey, FindsADocumentByItsWholeKey) {
  StoreSession session;
  const StoreObject store;
  EXPECT_TRUE(isEmptyResult(store.open(selectOwnDocument(FormTable::Induk, slip))));
  store.execute(insertDocument(FormTable::Induk, slip, "a;b", "31/01/2009"));
  EXPECT_FALSE(isEmptyResult(store.open(selectOwnDocument(FormTable::Induk, slip))));

  const auto findsAfter = [&](auto change) {
    DocumentKey key = slip;
    change(key);
    return !isEmptyResult(store.open(selectOwnDocument(FormTable::Induk, key)));
  };
  EXPECT_FALSE(findsAfter([](DocumentKey& key) { key.npwp = "9"; }));
  EXPECT_FALSE(findsAfter([](DocumentKey& key) { key.kdForm = "F113310"; }));
  EXPECT_FALSE(findsAfter([](DocumentKey& key) { key.jenisDokumen = "03"; }));
  EXPECT_FALSE(findsAfter([](DocumentKey& key) { key.period.msPajak = 2; }));
  EXPECT_FALSE(findsAfter([](DocumentKey& key) { key.period.thPajak = 2010; }));
  EXPECT_FALSE(findsAfter([](DocumentKey& key) { key.period.kdPembetulanKe = 1; }));
  EXPECT_FALSE(findsAfter([](DocumentKey& key) { key.noBukti = headerNumber; }));
  EXPECT_FALSE(findsAfter([](DocumentKey& key) { key.kdJenisPajak = "111"; }));
}

TEST(DocumentKey, LeavesTheFilerOutWhereAnyFilersDocumentIsMeant) {
  StoreSession session;
  const StoreObject store;
  store.execute(insertDocument(FormTable::Induk, slip, "a;b", "31/01/2009"));
  DocumentKey other = slip;
  other.npwp = "9";
  EXPECT_FALSE(isEmptyResult(store.open(selectDocument(FormTable::Induk, other))));
}

TEST(DocumentKey, TellsAHeaderFromASlipByItsNumber) {
  StoreSession session;
  const StoreObject store;
  DocumentKey header = slip;
  header.noBukti = headerNumber;
  store.execute(insertDocument(FormTable::Induk, slip, "slip", "31/01/2009"));
  store.execute(insertDocument(FormTable::Induk, header, "header", "31/01/2009"));
  const RecordsetPtr found = store.open(selectOwnDocument(FormTable::Induk, header));
  EXPECT_EQ(found->get_RecordCount(), 1);
  EXPECT_EQ(found->get_Collect("DAT_FORM"), Variant("header"));
}

TEST(DocumentKey, InsertsBothDatesNoOfficerAndNoFlag) {
  StoreSession session;
  const StoreObject store;
  store.execute(insertDocument(FormTable::Induk, slip, "a;b", "31/01/2009"));
  EXPECT_EQ(session.rowsOf("SELECT NPWP, KD_FORM, JENIS_DOKUMEN, MS_PAJAK, TH_PAJAK, KD_PEMBETULAN_KE, NOBUKTI, "
                           "KD_JENIS_PAJAK, DAT_FORM, TGL_REKAM, TGL_UBAH, NIP, FlagNPWP FROM DS_FORM_INDUK"),
            "013121660091000|F113309|02|1|2009|0|000001/PPH4|113|a;b|31/01/2009|31/01/2009||0\n");
}

TEST(DocumentKey, InsertsASelfPaidDocumentIntoItsOwnTable) {
  StoreSession session;
  const StoreObject store;
  DocumentKey form = slip;
  form.kdForm = FSewaTnhBgn.kdForm;
  form.jenisDokumen = FSewaTnhBgn.jenisDokumen;
  store.execute(insertDocument(FormTable::Ssp, form, "a;b", "31/01/2009"));
  EXPECT_EQ(session.rowsOf("SELECT * FROM DAT_SSP_PPh22"),
            "013121660091000|FSewaTnhBgn|12|1|2009|0|000001/PPH4|113|a;b|31/01/2009|31/01/2009|\n");
  EXPECT_EQ(session.rowsOf("SELECT * FROM DS_FORM_INDUK"), "");
}

TEST(DocumentKey, RefusesAnApostropheInAnyText) {
  for (const auto change :
       {+[](DocumentKey& key) { key.npwp = "a'b"; }, +[](DocumentKey& key) { key.kdForm = "a'b"; },
        +[](DocumentKey& key) { key.jenisDokumen = "a'b"; }, +[](DocumentKey& key) { key.noBukti = "a'b"; },
        +[](DocumentKey& key) { key.kdJenisPajak = "a'b"; }}) {
    DocumentKey key = slip;
    change(key);
    EXPECT_THROW(static_cast<void>(selectOwnDocument(FormTable::Induk, key)), RunTimeError);
    EXPECT_THROW(static_cast<void>(insertDocument(FormTable::Ssp, key, "", "")), RunTimeError);
  }
  EXPECT_THROW(static_cast<void>(insertDocument(FormTable::Induk, slip, "a'b", "")), RunTimeError);
  EXPECT_THROW(static_cast<void>(insertDocument(FormTable::Induk, slip, "", "a'b")), RunTimeError);
}

TEST(FilerHeader, ComesFromTheProfile) {
  StoreSession session;
  const StoreObject store;
  const FilerHeader filer = filerOfProfile(store.execute("SELECT * FROM PROFILE"));
  EXPECT_EQ(filer.npwp, test::filerOfTests().npwp);
  EXPECT_EQ(filer.name, test::filerOfTests().name);
  EXPECT_EQ(filer.address, test::filerOfTests().address);
}

TEST(FilerHeader, ReadsEitherPairOfColumns) {
  StoreSession session;
  session.execute("UPDATE PROFILE SET NAMA_WP_PARTNER = 'PT Rekan', ALAMAT_WP_PARTNER = 'Jl. Rekan'");
  const StoreObject store;
  const RecordsetPtr profile = store.execute("SELECT NPWP,NAMA_WP_PARTNER,ALAMAT_WP_PARTNER FROM PROFILE");
  EXPECT_EQ(filerOfPartnerColumns(profile).name, "PT Rekan");
  EXPECT_EQ(filerOfPartnerColumns(profile).address, "Jl. Rekan");
}

TEST(FilerHeader, IsEmptyWithoutARowAndForANull) {
  StoreSession session;
  const StoreObject store;
  session.execute("UPDATE PROFILE SET NAMA_WP_PROFILE = NULL");
  EXPECT_EQ(filerOfProfile(store.execute("SELECT * FROM PROFILE")).name, "");
  session.execute("DELETE * FROM PROFILE");
  const FilerHeader filer = filerOfProfile(store.execute("SELECT * FROM PROFILE"));
  EXPECT_EQ(filer.npwp + filer.name + filer.address, "");
}

TEST(PackedHead, JoinsTheSixLeadingFields) {
  EXPECT_EQ(packedHead({.npwp = "01.1", .name = "PT Satu", .address = "Jl. 1"}, slip.period),
            "01.1;PT Satu;Jl. 1;1;2009;0");
}

TEST(PackedHead, RefusesASemicolonThatWouldShiftTheFields) {
  EXPECT_THROW(packedHead({.npwp = "01;1", .name = "", .address = ""}, slip.period), RunTimeError);
  EXPECT_THROW(packedHead({.npwp = "", .name = "A;B", .address = ""}, slip.period), RunTimeError);
  EXPECT_THROW(packedHead({.npwp = "", .name = "", .address = "A;B"}, slip.period), RunTimeError);
}

}  // namespace
}  // namespace tarvola::store
