#include <functional>

#include "tarvola/lists/CDPPhAlihTnhBgn.h"
#include "tarvola/lists/CDPPhJasaKonstruksi.h"
#include "tarvola/lists/CDPPhSewaTanahBangunan.h"
#include "tarvola/runtime/clock.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/regional_settings.h"
#include "tarvola/runtime/text_forms.h"
#include "tests/lists/open_store.h"
#include "tests/support/refusing_store.h"

namespace tarvola::test {
namespace {

/// One payment as it goes into any of the three lists.
struct Payment {
  std::string_view number = "1234567890123456";
  double gross = 1000;
  double tax = 100;
  double seq = 1;
  std::string_view remark = "lunas";
  std::string_view location = "Jl. Braga";
  Date paidOn = Date::fromYmd(2009, 2, 5);
  std::int16_t collection = 0;
};

void put(CDPPhSewaTanahBangunan& list, const Payment& p) {
  list.pCreateD113203Hdr(1, 2009, 0, p.collection, p.number, p.paidOn, p.remark, p.gross, p.tax, p.seq, p.location);
}
void put(CDPPhAlihTnhBgn& list, const Payment& p) {
  list.pCreateD113203Hdr(1, 2009, 0, p.collection, p.number, p.paidOn, p.remark, p.gross, p.tax, p.seq, p.location);
}
void put(CDPPhJasaKonstruksi& list, const Payment& p) {
  list.pCreateD113203Hdr(1, 2009, 0, p.collection, p.number, p.paidOn, p.remark, p.gross, p.tax, p.seq);
}

/// What each list writes, worked out by hand.
template <class List>
struct Expected;
template <>
struct Expected<CDPPhSewaTanahBangunan> {
  static constexpr std::string_view form = "DSewaTnhBgn";
  static constexpr std::string_view document = "11";
  static constexpr std::string_view row = "1;2009;1;1000;100;Jl. Braga;1234567890123456;05/02/2009;lunas";
  static constexpr bool asksForFiler = false;
};
template <>
struct Expected<CDPPhAlihTnhBgn> {
  static constexpr std::string_view form = "DAlihTnhBgn";
  static constexpr std::string_view document = "18";
  static constexpr std::string_view row = "1;2009;1;1000;100;1234567890123456;05/02/2009;lunas";
  static constexpr bool asksForFiler = true;
};
template <>
struct Expected<CDPPhJasaKonstruksi> {
  static constexpr std::string_view form = "DJasaKonstruksi";
  static constexpr std::string_view document = "13";
  static constexpr std::string_view row = "1;2009;1;1000;100;1234567890123456;05/02/2009;lunas";
  static constexpr bool asksForFiler = false;
};

constexpr std::string_view filer = "013121660091000";

template <class List>
class SelfPaidLists : public testing::Test {
 protected:
  SelfPaidLists() { setToday(Date::fromYmd(2009, 2, 7)); }
  ~SelfPaidLists() override { setToday(std::nullopt); }

  void createHeader() {
    list.pCreateHdrInduk(1, 2009, 0, filer, "Jakarta", "PT Contoh Sejahtera", Date::fromYmd(2009, 2, 7));
  }
  /// "gross;tax" of the stored header.
  std::string storedSums() const {
    const std::string packed = store.row("SELECT DAT_FORM FROM DAT_SSP_PPh22");
    return packed.substr(packed.find(";0;") + 3);
  }
  std::vector<std::string> places() const {
    return store.rows("SELECT SEQ, NOBUKTI FROM LAMPIRAN_SSP_PPh22 ORDER BY NOBUKTI, SEQ");
  }

  OpenStore store;
  CapturedMessages messages;
  List list;
};
using AllLists = testing::Types<CDPPhSewaTanahBangunan, CDPPhAlihTnhBgn, CDPPhJasaKonstruksi>;
struct ListNames {
  template <class List>
  static std::string GetName(int) {
    return std::string(Expected<List>::form);
  }
};
TYPED_TEST_SUITE(SelfPaidLists, AllLists, ListNames);

// --- rows ------------------------------------------------------------------------------------------------

TYPED_TEST(SelfPaidLists, WriteTheirRowsFieldByField) {
  put(this->list, {});
  EXPECT_EQ(this->store.row("SELECT * FROM LAMPIRAN_SSP_PPh22"), std::string(Expected<TypeParam>::form) +
                                                                     "|1|2009|0|0|1|1234567890123456|" +
                                                                     std::string(Expected<TypeParam>::row));
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLists, ReplaceARowOfTheSamePaymentAndSeq) {
  put(this->list, {});
  put(this->list, {.gross = 5, .tax = 1});
  EXPECT_EQ(this->places().size(), 1U);
  put(this->list, {.seq = 2});
  EXPECT_EQ(this->places(), (std::vector<std::string>{"1|1234567890123456", "2|1234567890123456"}));
  put(this->list, {.number = "77"});
  EXPECT_EQ(this->places().size(), 3U);
}

TYPED_TEST(SelfPaidLists, LoseARowWhoseReplacementFails) {
  put(this->list, {});
  put(this->list, {.remark = "Ma'ruf"});
  EXPECT_TRUE(this->places().empty());
  EXPECT_EQ(this->messages.texts().size(), 1U);
}

TYPED_TEST(SelfPaidLists, KeepARowWhenATextHoldsTheSeparator) {
  put(this->list, {});
  put(this->list, {.remark = "a;b"});
  EXPECT_EQ(this->places().size(), 1U);
  put(this->list, {.number = "a;b"});
  EXPECT_EQ(this->places().size(), 1U);
  EXPECT_EQ(this->messages.texts().size(), 2U);
}

TYPED_TEST(SelfPaidLists, DeleteARowByItsWholeKey) {
  put(this->list, {});
  put(this->list, {.seq = 2});
  put(this->list, {.seq = 2, .collection = 1});
  this->list.pDeleteD113203Coll("anything", 1, 2009, 0, "1234567890123456", 0, 2);
  EXPECT_EQ(this->store.rows("SELECT COLLNO, SEQ FROM LAMPIRAN_SSP_PPh22 ORDER BY COLLNO, SEQ"),
            (std::vector<std::string>{"0|1", "1|2"}));
  this->list.pDeleteD113203Coll("", 1, 2009, 0, "77", 0, 1);
  this->list.pDeleteD113203Coll("", 1, 2009, 1, "1234567890123456", 0, 1);
  EXPECT_EQ(this->places().size(), 2U);
  EXPECT_TRUE(this->messages.empty());
}

// A row of another list, month, year, correction, collection, payment or SEQ is another row, to a replacement as to a
// delete.
TYPED_TEST(SelfPaidLists, TouchNoRowOfAnotherKey) {
  const std::string form(Expected<TypeParam>::form);
  for (const std::string key :
       {"'DOther', 1, 2009, 0, 0, 1, '1234567890123456'", "'FORM', 2, 2009, 0, 0, 1, '1234567890123456'",
        "'FORM', 1, 2010, 0, 0, 1, '1234567890123456'", "'FORM', 1, 2009, 1, 0, 1, '1234567890123456'",
        "'FORM', 1, 2009, 0, 1, 1, '1234567890123456'", "'FORM', 1, 2009, 0, 0, 2, '1234567890123456'",
        "'FORM', 1, 2009, 0, 0, 1, '77'"}) {
    std::string own = key;
    if (own.starts_with("'FORM'")) own.replace(0, 6, "'" + form + "'");
    this->store.run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES (" + own + ", 'other')");
  }
  const auto before = this->store.dump();
  put(this->list, {});
  EXPECT_EQ(this->store.rows("SELECT * FROM LAMPIRAN_SSP_PPh22 WHERE DAT_FORM = 'other'").size(), 7U);
  EXPECT_EQ(this->places().size(), 8U);
  this->list.pDeleteD113203Coll("", 1, 2009, 0, "1234567890123456", 0, 1);
  EXPECT_EQ(this->store.dump(), before);
  EXPECT_TRUE(this->messages.empty());
}

// The old row is looked for before anything is written: a number that breaks the search leaves everything as it was.
TYPED_TEST(SelfPaidLists, LookForTheOldRowBeforeTheyWriteTheNewOne) {
  put(this->list, {});
  const auto before = this->store.dump();
  put(this->list, {.number = "1234567890123456' OR '1'='1", .remark = "Ma'ruf"});
  EXPECT_EQ(this->store.dump(), before);
  EXPECT_THAT(this->messages.texts(), testing::ElementsAre(testing::HasSubstr("OR '1'='1")));
}

TYPED_TEST(SelfPaidLists, TellSeqsApartThatAreNotWhole) {
  put(this->list, {.seq = 1.5});
  put(this->list, {.seq = 1});
  put(this->list, {.gross = 3, .seq = 1.5});
  EXPECT_EQ(this->places(), (std::vector<std::string>{"1|1234567890123456", "1,5|1234567890123456"}));
}

// --- the header -----------------------------------------------------------------------------------------

TYPED_TEST(SelfPaidLists, CreateTheirHeaderWithBothSumsZero) {
  this->createHeader();
  EXPECT_EQ(this->store.row("SELECT * FROM DAT_SSP_PPh22"),
            "013121660091000|" + std::string(Expected<TypeParam>::form) + "|" +
                std::string(Expected<TypeParam>::document) +
                "|1|2009|0|-|113|013121660091000;PT Contoh Sejahtera;Jakarta;1;2009;0;0;0|07/02/2009|07/02/2009|");
  this->createHeader();
  EXPECT_EQ(this->store.rows("SELECT * FROM DAT_SSP_PPh22").size(), 2U);
}

TYPED_TEST(SelfPaidLists, CreateTheirHeaderWithTheDateInItsDefaultTextForm) {
  const Date noon = Date::fromSerial(Date::fromYmd(2009, 2, 7).serial() + 0.5);
  this->list.pCreateHdrInduk(1, 2009, 0, filer, "Jakarta", "PT Contoh Sejahtera", noon);
  EXPECT_EQ(this->store.row("SELECT TGL_REKAM, TGL_UBAH, NIP FROM DAT_SSP_PPh22"),
            "07/02/2009 12:00:00|07/02/2009 12:00:00|");
}

TYPED_TEST(SelfPaidLists, FindTheirHeaderByPeriod) {
  EXPECT_FALSE(this->list.pCheckHdr(filer, 1, 2009, 0));
  this->createHeader();
  EXPECT_TRUE(this->list.pCheckHdr(filer, 1, 2009, 0));
  EXPECT_FALSE(this->list.pCheckHdr(filer, 2, 2009, 0));
  EXPECT_FALSE(this->list.pCheckHdr(filer, 1, 2010, 0));
  EXPECT_FALSE(this->list.pCheckHdr(filer, 1, 2009, 1));
  EXPECT_TRUE(this->messages.empty());
}

// The list of transfers alone asks for the taxpayer as well.
TYPED_TEST(SelfPaidLists, AskForTheFilerOrNot) {
  this->createHeader();
  EXPECT_EQ(this->list.pCheckHdr("another", 1, 2009, 0), !Expected<TypeParam>::asksForFiler);
}

TYPED_TEST(SelfPaidLists, LoadTheirHeaderAloneAndDropTheRawRow) {
  this->createHeader();
  this->list.pGetD113203("", 1, "2009", "0");
  EXPECT_NE(this->list.rs4_2Form(), nullptr);
  this->list.pGetD113203Induk("", 1, "2009", "0");
  EXPECT_EQ(this->list.rs4_2Form(), nullptr);
  EXPECT_TRUE(this->messages.empty());
}

// Three other headers stand around it. Only that of the period moves.
TYPED_TEST(SelfPaidLists, LoadAndSaveTheHeaderOfTheirPeriod) {
  const Date day = Date::fromYmd(2009, 2, 7);
  this->list.pCreateHdrInduk(2, 2009, 0, filer, "Jakarta", "PT Contoh Sejahtera", day);
  this->list.pCreateHdrInduk(1, 2010, 0, filer, "Jakarta", "PT Contoh Sejahtera", day);
  this->list.pCreateHdrInduk(1, 2009, 1, filer, "Jakarta", "PT Contoh Sejahtera", day);
  this->store.run("INSERT INTO DAT_SSP_PPh22 VALUES ('n', 'DOther', '99', 1, 2009, 0, '-', '113', 'x', '', '', '')");
  const auto others = this->store.dump();
  this->createHeader();
  this->list.pAssignStatus(true, false, false);
  this->list.pGetD113203Induk("", 1, "2009", "0");
  this->list.pJmlPajak(10, 1);
  this->list.pUpdate();
  this->list.pGetD113203("", 1, "2009", "0");
  this->list.pJmlPajak(5, 1);
  this->list.pUpdateInduk();
  EXPECT_EQ(this->store.row("SELECT DAT_FORM FROM DAT_SSP_PPh22 WHERE MS_PAJAK = 1 AND TH_PAJAK = 2009 AND "
                            "KD_PEMBETULAN_KE = 0 AND KD_FORM = '" +
                            std::string(Expected<TypeParam>::form) + "'"),
            "013121660091000;PT Contoh Sejahtera;Jakarta;1;2009;0;15;2");
  this->store.run(
      "DELETE * FROM DAT_SSP_PPh22 WHERE MS_PAJAK = 1 AND TH_PAJAK = 2009 AND KD_PEMBETULAN_KE = 0 AND "
      "KD_FORM = '" +
      std::string(Expected<TypeParam>::form) + "'");
  EXPECT_EQ(this->store.dump(), others);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLists, SaveTheHeaderAloneOnlyThroughTheRawRowOfAWholeLoad) {
  this->createHeader();
  const auto before = this->store.dump();
  this->list.pGetD113203Induk("", 1, "2009", "0");
  this->list.pUpdateInduk();
  EXPECT_EQ(this->messages.texts(), std::vector<std::string>{"Object variable or With block variable not set"});
  EXPECT_EQ(this->store.dump(), before);
}

TYPED_TEST(SelfPaidLists, LoadTheirOwnRowsOnly) {
  this->createHeader();
  put(this->list, {});
  this->store.run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES ('DOther', 1, 2009, 0, 0, 1, 'x', '1;2009;1;5;5')");
  this->store.run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES ('" + std::string(Expected<TypeParam>::form) +
                  "', 1, 2009, 1, 0, 1, 'x', '1;2009;1;5;5')");
  this->store.run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES ('" + std::string(Expected<TypeParam>::form) +
                  "', 1, 2009, 0, 1, 1, 'x', '1;2009;1;5;5')");
  this->store.run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES ('" + std::string(Expected<TypeParam>::form) +
                  "', 2, 2009, 0, 0, 1, 'x', '2;2009;1;5;5')");
  this->store.run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES ('" + std::string(Expected<TypeParam>::form) +
                  "', 1, 2010, 0, 0, 1, 'x', '1;2010;1;5;5')");
  this->list.pGetD113203("", 1, "2009", "0");
  ASSERT_NE(this->list.rs4_2FormColl1(), nullptr);
  EXPECT_EQ(this->list.rs4_2FormColl1()->get_RecordCount(), 1);
  EXPECT_EQ(this->list.dataMember("Primary"), this->list.rs4_2Form());
  EXPECT_EQ(this->list.dataMember("Secondary")->get_RecordCount(), 1);
  EXPECT_EQ(this->list.dataMember("Ternary"), nullptr);
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLists, ReadYearAndCorrectionAsNumbersOnly) {
  this->createHeader();
  const auto before = this->store.dump();
  this->list.pGetD113203("", 1, "2009 OR 1=1", "0");
  this->list.pGetD113203Induk("", 1, "2009", "0)");
  EXPECT_EQ(this->messages.texts().size(), 2U);
  EXPECT_EQ(this->store.dump(), before);
}

// --- sums -----------------------------------------------------------------------------------------------

TYPED_TEST(SelfPaidLists, AddUpTheirRows) {
  this->createHeader();
  put(this->list, {.gross = 1000.5, .tax = 100.25});
  put(this->list, {.gross = 2000, .tax = 200, .seq = 2});
  put(this->list, {.gross = -5, .tax = 7, .seq = 3});
  put(this->list, {.gross = 9, .tax = -7, .seq = 4});
  this->list.pGetD113203("", 1, "2009", "0");
  this->list.pPPhFinal(1);
  this->list.pUpdateInduk();
  EXPECT_EQ(this->storedSums(), "3009,5;307,25");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLists, HaveSumsOfZeroWithoutRows) {
  this->createHeader();
  this->store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'n;a;b;1;2009;0;5;6'");
  this->list.pGetD113203("", 1, "2009", "0");
  this->list.pPPhFinal(1);
  this->list.pUpdateInduk();
  EXPECT_EQ(this->storedSums(), "0;0");
}

TYPED_TEST(SelfPaidLists, PassOverRowsWithoutAmounts) {
  this->createHeader();
  put(this->list, {.gross = 40, .tax = 4});
  for (const char* packed : {"1;2009;2;;9;x;05/02/2009;", "1;2009;3;9;;x;05/02/2009;", "1;2009"})
    this->store.run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES ('" + std::string(Expected<TypeParam>::form) +
                    "', 1, 2009, 0, 0, 2, 'x', '" + packed + "')");
  this->list.pGetD113203("", 1, "2009", "0");
  this->list.pPPhFinal(1);
  this->list.pUpdateInduk();
  EXPECT_EQ(this->storedSums(), "49;13");
  EXPECT_TRUE(this->messages.empty());
}

// The walk begins at the first row, wherever the last one ended.
TYPED_TEST(SelfPaidLists, AddUpTheSameTwice) {
  this->createHeader();
  put(this->list, {});
  put(this->list, {.seq = 2});
  this->list.pGetD113203("", 1, "2009", "0");
  this->list.pPPhFinal(1);
  this->list.pPPhFinal(1);
  this->list.pUpdateInduk();
  EXPECT_EQ(this->storedSums(), "2000;200");
}

TYPED_TEST(SelfPaidLists, KeepTheirSumsWhenAnAmountIsNoNumber) {
  this->createHeader();
  put(this->list, {});
  this->store.run("INSERT INTO LAMPIRAN_SSP_PPh22 VALUES ('" + std::string(Expected<TypeParam>::form) +
                  "', 1, 2009, 0, 0, 2, 'x', '1;2009;2;seribu;9;x;05/02/2009;')");
  this->list.pGetD113203("", 1, "2009", "0");
  this->list.pPPhFinal(1);
  this->list.pUpdateInduk();
  EXPECT_EQ(this->messages.texts(), std::vector<std::string>{"Type mismatch"});
  EXPECT_EQ(this->storedSums(), "0;0");
}

TYPED_TEST(SelfPaidLists, NeedTheirRowsToBeLoaded) {
  this->createHeader();
  this->list.pGetD113203Induk("", 1, "2009", "0");
  this->list.pPPhFinal(1);
  EXPECT_EQ(this->messages.texts(), std::vector<std::string>{"Object variable or With block variable not set"});
}

struct AdjustCase {
  bool add, edit, remove;
  double gross, tax;
  const char* sums;
};

TYPED_TEST(SelfPaidLists, MoveTheirSumsByTheStatus) {
  constexpr AdjustCase cases[] = {
      {.add = true, .edit = false, .remove = false, .gross = 10, .tax = 1, .sums = "110;21"},
      {.add = false, .edit = true, .remove = false, .gross = 10, .tax = 1, .sums = "110;21"},
      // An edit that lowers the amount.
      {.add = false, .edit = true, .remove = false, .gross = -10, .tax = -1, .sums = "90;19"},
      {.add = false, .edit = false, .remove = true, .gross = 10, .tax = 1, .sums = "90;19"},
      {.add = true, .edit = false, .remove = true, .gross = 10, .tax = 1, .sums = "110;21"},
      // Unlike the list of slips, a call without any flag subtracts.
      {.add = false, .edit = false, .remove = false, .gross = 10, .tax = 1, .sums = "90;19"},
      // The floor comes behind the change, for each sum by itself.
      {.add = false, .edit = false, .remove = true, .gross = 500, .tax = 1, .sums = "0;19"},
      {.add = false, .edit = false, .remove = true, .gross = 10, .tax = 500, .sums = "90;0"},
      {.add = false, .edit = true, .remove = false, .gross = -500, .tax = -500, .sums = "0;0"},
      {.add = false, .edit = false, .remove = true, .gross = -10, .tax = -1, .sums = "110;21"},
  };
  this->createHeader();
  for (const AdjustCase& test : cases) {
    this->store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'n;a;b;1;2009;0;100;20'");
    this->list.pGetD113203Induk("", 1, "2009", "0");
    this->list.pAssignStatus(test.add, test.edit, test.remove);
    this->list.pJmlPajak(test.gross, test.tax);
    this->list.pUpdate();
    EXPECT_EQ(this->storedSums(), test.sums);
  }
  EXPECT_TRUE(this->messages.empty());
}

// Gross is changed first, then tax, and only then is either looked at for the floor: a tax that is no number leaves a
// gross below 0 behind.
TYPED_TEST(SelfPaidLists, ChangeBothSumsBeforeTheFloor) {
  this->createHeader();
  this->store.run("UPDATE DAT_SSP_PPh22 SET DAT_FORM = 'n;a;b;1;2009;0;100;dua'");
  this->list.pGetD113203Induk("", 1, "2009", "0");
  this->list.pAssignStatus(false, false, true);
  this->list.pJmlPajak(500, 1);
  EXPECT_EQ(this->messages.texts(), std::vector<std::string>{"Type mismatch"});
  this->list.pUpdate();
  EXPECT_EQ(this->storedSums(), "-400;dua");
}

// --- a missing header -----------------------------------------------------------------------------------

TYPED_TEST(SelfPaidLists, FailWithoutALoadedHeaderAndAddNone) {
  this->list.pAssignStatus(true, false, false);
  this->list.pJmlPajak(10, 1);
  this->list.pUpdate();
  this->list.pUpdateInduk();
  EXPECT_EQ(this->messages.texts(), std::vector<std::string>(3, "Object variable or With block variable not set"));

  this->messages.clear();
  this->list.pGetD113203Induk("", 1, "2009", "0");
  EXPECT_TRUE(this->messages.empty());
  this->list.pJmlPajak(10, 1);
  EXPECT_EQ(this->messages.texts().size(), 1U);
  this->list.pUpdate();
  EXPECT_EQ(this->messages.texts().size(), 2U);
  EXPECT_TRUE(this->store.rows("SELECT * FROM DAT_SSP_PPh22").empty());
}

// The header's fields are made before its row is looked for, the rows after it: so the header of an earlier load goes
// and its rows stay.
TYPED_TEST(SelfPaidLists, FailToLoadTheirRowsWithoutAHeader) {
  this->createHeader();
  put(this->list, {});
  this->list.pGetD113203("", 1, "2009", "0");
  const RecordsetPtr rows = this->list.rs4_2FormColl1();
  this->list.pGetD113203("", 2, "2009", "0");
  this->list.pJmlPajak(10, 1);
  EXPECT_EQ(this->messages.texts(), std::vector<std::string>(2, std::string(errorText(ErrorNumber::NoCurrentRecord))));
  EXPECT_EQ(this->list.rs4_2FormColl1(), rows);
}

// The header's row has gone since the load: it is added anew, with the filer of PROFILE and today's date.
TYPED_TEST(SelfPaidLists, AddAHeaderThatHasGoneSinceTheLoad) {
  this->createHeader();
  this->list.pGetD113203Induk("", 1, "2009", "0");
  this->store.run("DELETE * FROM DAT_SSP_PPh22");
  setToday(Date::fromYmd(2009, 3, 9));
  this->list.pAssignStatus(true, false, false);
  this->list.pJmlPajak(10, 1);
  this->list.pUpdate();
  EXPECT_EQ(this->store.row("SELECT * FROM DAT_SSP_PPh22"),
            "013121660091000|" + std::string(Expected<TypeParam>::form) + "|" +
                std::string(Expected<TypeParam>::document) +
                "|1|2009|0|-|113|013121660091000;PT Contoh Sejahtera;Jakarta;1;2009;0;10;1|09/03/2009|09/03/2009|");
  EXPECT_TRUE(this->messages.empty());
}

TYPED_TEST(SelfPaidLists, AddAHeaderWithTodayAsDayMonthYearUnderAnySettings) {
  const RegionalSettingsScope scope(RegionalSettings::unitedStates());
  this->createHeader();
  this->list.pGetD113203Induk("", 1, "2009", "0");
  this->store.run("DELETE * FROM DAT_SSP_PPh22");
  this->list.pUpdate();
  EXPECT_EQ(this->store.row("SELECT TGL_REKAM, TGL_UBAH FROM DAT_SSP_PPh22"), "07/02/2009|07/02/2009");
}

TYPED_TEST(SelfPaidLists, AddAHeaderWithoutAFilerWhenTheProfileIsEmpty) {
  this->createHeader();
  this->list.pGetD113203Induk("", 1, "2009", "0");
  this->store.run("DELETE * FROM DAT_SSP_PPh22");
  this->store.run("DELETE * FROM PROFILE");
  this->list.pUpdate();
  EXPECT_EQ(this->store.row("SELECT NPWP, NOBUKTI FROM DAT_SSP_PPh22"), "|-");
  EXPECT_TRUE(this->messages.empty());
}

// The profile names the filer of the header that is added. If it cannot be read, nobody would know whose list it is.
TYPED_TEST(SelfPaidLists, AddNoHeaderIfTheProfileCannotBeRead) {
  this->createHeader();
  this->list.pGetD113203Induk("", 1, "2009", "0");
  this->store.run("DELETE * FROM DAT_SSP_PPh22");
  dropTable(this->store.path(), "PROFILE");
  this->list.pUpdate();
  EXPECT_EQ(this->messages.texts(), std::vector<std::string>{"Object variable or With block variable not set"});
  EXPECT_TRUE(this->store.rows("SELECT * FROM DAT_SSP_PPh22").empty());
}

// The period to save under is read from the loaded header. Without one no row is looked for.
TYPED_TEST(SelfPaidLists, OpenNoRowForAHeaderThatWasNotFound) {
  this->list.pGetD113203Induk("", 1, "2009", "0");
  this->list.pUpdate();
  EXPECT_EQ(this->messages.texts().size(), 1U);
  EXPECT_EQ(this->list.rs4_2Form(), nullptr);
}

TYPED_TEST(SelfPaidLists, TellNoMoveOfTheirRawRow) {
  int moves = 0;
  this->createHeader();
  this->list.MoveComplete.connect([&] { ++moves; });
  this->list.pGetD113203("", 1, "2009", "0");
  this->list.rs4_2Form()->MoveFirst();
  EXPECT_EQ(moves, 0);
}

TYPED_TEST(SelfPaidLists, LiveOnWithoutAStore) {
  moduleState() = {};
  TypeParam stranded;
  ASSERT_EQ(this->messages.texts().size(), 1U);
  stranded.pCreateHdrInduk(1, 2009, 0, filer, "a", "n", Date::fromYmd(2009, 2, 7));
  EXPECT_FALSE(stranded.pCheckHdr(filer, 1, 2009, 0));
  put(stranded, {});
  stranded.pDeleteD113203Coll("", 1, 2009, 0, "77", 0, 1);
  stranded.pGetD113203("", 1, "2009", "0");
  stranded.pGetD113203Induk("", 1, "2009", "0");
  stranded.pUpdate();
  EXPECT_EQ(this->messages.texts().size(), 8U);
}

// --- hostile texts --------------------------------------------------------------------------------------

TYPED_TEST(SelfPaidLists, FailOnHostileTextsAndChangeNothing) {
  this->createHeader();
  put(this->list, {});
  const auto before = this->store.dump();
  const Date day = Date::fromYmd(2009, 2, 7);
  for (const std::string_view hostile : {"x'y", "' OR '1'='1", "'; DELETE * FROM DAT_SSP_PPh22"}) {
    const std::vector<std::function<void()>> calls = {
        [&] { this->list.pCreateHdrInduk(2, 2009, 0, hostile, "a", "n", day); },
        [&] { this->list.pCreateHdrInduk(2, 2009, 0, "n", hostile, "n", day); },
        [&] { this->list.pCreateHdrInduk(2, 2009, 0, "n", "a", hostile, day); },
        [&] { put(this->list, {.number = hostile}); },
        [&] { put(this->list, {.number = "77", .remark = hostile}); },
        [&] { this->list.pGetD113203("", 1, hostile, "0"); },
        [&] { this->list.pGetD113203("", 1, "2009", hostile); },
        [&] { this->list.pGetD113203Induk("", 1, hostile, "0"); },
        [&] { this->list.pGetD113203Induk("", 1, "2009", hostile); },
        [&] { this->list.pDeleteD113203Coll("", 1, 2009, 0, hostile, 0, 1); },
    };
    for (std::size_t index = 0; index < calls.size(); ++index) {
      this->messages.clear();
      calls[index]();
      EXPECT_EQ(this->messages.texts().size(), 1U) << index << " " << hostile;
      EXPECT_EQ(this->store.dump(), before) << index << " " << hostile;
    }
  }
}

TYPED_TEST(SelfPaidLists, RefuseTheSeparatorInTheirHeader) {
  const Date day = Date::fromYmd(2009, 2, 7);
  this->list.pCreateHdrInduk(1, 2009, 0, "n;n", "a", "n", day);
  this->list.pCreateHdrInduk(1, 2009, 0, "n", "a;a", "n", day);
  this->list.pCreateHdrInduk(1, 2009, 0, "n", "a", "n;n", day);
  EXPECT_EQ(this->messages.texts().size(), 3U);
  EXPECT_TRUE(this->store.rows("SELECT * FROM DAT_SSP_PPh22").empty());
}

// --- where the lists differ -----------------------------------------------------------------------------

class SelfPaidListDifferences : public testing::Test {
 protected:
  OpenStore store;
  CapturedMessages messages;
};

// With a time of day behind the date, the two forms of the date part ways.
TEST_F(SelfPaidListDifferences, ConstructionWritesTheDateInItsDefaultTextForm) {
  const Payment payment{.paidOn = Date::fromSerial(Date::fromYmd(2009, 2, 5).serial() + 0.5)};
  CDPPhJasaKonstruksi construction;
  put(construction, payment);
  CDPPhAlihTnhBgn transfer;
  put(transfer, payment);
  EXPECT_EQ(store.rows("SELECT DAT_FORM FROM LAMPIRAN_SSP_PPh22"),
            (std::vector<std::string>{"1;2009;1;1000;100;1234567890123456;" + CStr(payment.paidOn) + ";lunas",
                                      "1;2009;1;1000;100;1234567890123456;05/02/2009;lunas"}));
  EXPECT_NE(CStr(payment.paidOn), "05/02/2009");
}

// Under settings that put the month first, the default text form follows them and the fixed one does not.
TEST_F(SelfPaidListDifferences, RentAndTransferWriteTheDayFirstUnderAnySettings) {
  const RegionalSettingsScope scope(RegionalSettings::unitedStates());
  CDPPhSewaTanahBangunan rent;
  CDPPhAlihTnhBgn transfer;
  CDPPhJasaKonstruksi construction;
  put(rent, {});
  put(transfer, {});
  put(construction, {});
  EXPECT_EQ(store.rows("SELECT DAT_FORM FROM LAMPIRAN_SSP_PPh22 ORDER BY KD_FORM"),
            (std::vector<std::string>{"1;2009;1;1000;100;1234567890123456;05/02/2009;lunas",
                                      "1;2009;1;1000;100;1234567890123456;02/05/2009;lunas",
                                      "1;2009;1;1000;100;Jl. Braga;1234567890123456;05/02/2009;lunas"}));
}

TEST_F(SelfPaidListDifferences, TransferDoesNotReadTheLocation) {
  CDPPhAlihTnhBgn transfer;
  put(transfer, {.location = "a;b'c"});
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(store.rows("SELECT * FROM LAMPIRAN_SSP_PPh22").size(), 1U);
}

TEST_F(SelfPaidListDifferences, RentRefusesAHostileLocation) {
  CDPPhSewaTanahBangunan rent;
  put(rent, {.location = "a;b"});
  put(rent, {.location = "c'd"});
  EXPECT_EQ(messages.texts().size(), 2U);
  EXPECT_TRUE(store.rows("SELECT * FROM LAMPIRAN_SSP_PPh22").empty());
}

}  // namespace
}  // namespace tarvola::test
