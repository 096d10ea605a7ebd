#include "tarvola/mainreturn/payment_count.h"
#include "tests/mainreturn/return_fixture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace tarvola::test {
namespace {

class ReturnCounts : public ReturnTest {
 protected:
  struct Payment {
    std::string article = "4";
    std::string month = "3";
    std::string year = "2009";
    std::string correction = "0";
    std::string account = "'411128'";
    std::string kind = "'403'";
    std::string rupiah = "1000";
  };
  void addPayment(const Payment& payment) {
    run("INSERT INTO DATSSP(KodePasal,NPWP,MsPjk,ThPjk,KdPmbtln,KdMAP,KdJnsStr,TglSSP,NTPP,JmlByr) VALUES (" +
        payment.article + ",'013121660091000'," + payment.month + "," + payment.year + "," + payment.correction + "," +
        payment.account + "," + payment.kind + ",DATEVALUE('09/04/2009'),'1'," + payment.rupiah + ")");
  }
  void addTransfer(const std::string& article, const std::string& month, const std::string& year,
                   const std::string& rupiah) {
    run("INSERT INTO datPBKPPhMasa (PASAL,MsPjkPBK,ThPjkPBK,JumlahPBK) VALUES (" + article + "," + month + "," + year +
        "," + rupiah + ")");
  }
  CF113204 mainReturn_;
};

TEST_F(ReturnCounts, AreZeroWithoutRecordsAndWithoutAMessage) {
  EXPECT_EQ(mainReturn_.aJumlahSSP("", "3", "2009", "0"), 0);
  EXPECT_EQ(mainReturn_.aJumlahPBK("", 4, 3, 2009), 0);
  EXPECT_EQ(mainReturn_.aJumlahBP("", 0, 3, 2009), 0);
  EXPECT_EQ(mainReturn_.aTotalNominalSSP("", "3", "2009", "0"), 0);
  EXPECT_EQ(mainReturn_.aTotalNominalPBK("", 4, 3, 2009), 0);
  EXPECT_THAT(messages_.texts(), IsEmpty());
}

TEST_F(ReturnCounts, OfPaymentsAreThoseOfArticleFourPeriodAndCorrection) {
  addPayment({.rupiah = "1000"});
  addPayment({.account = "'X'", .kind = "'X'", .rupiah = "500.5"});
  addPayment({.article = "21"});
  addPayment({.month = "4"});
  addPayment({.year = "2010"});
  addPayment({.correction = "1"});
  EXPECT_EQ(mainReturn_.aJumlahSSP("not read", "3", "2009", "0"), 2);
  EXPECT_EQ(mainReturn_.aTotalNominalSSP("not read", "3", "2009", "0"), 1500.5);
  EXPECT_EQ(mainReturn_.aJumlahSSP("", "03", " 2009 ", "1"), 1) << "texts of numbers in any form";
}

TEST_F(ReturnCounts, OfPaymentsFailForAPeriodThatIsNoNumber) {
  addPayment({});
  EXPECT_EQ(mainReturn_.aJumlahSSP("", "Maret", "2009", "0"), 0);
  EXPECT_EQ(mainReturn_.aTotalNominalSSP("", "3 OR 1=1", "2009", "0"), 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::TypeMismatch), HasSubstr("Syntax error")));
}

TEST_F(ReturnCounts, OfTransfersAreThoseOfArticleMonthAndYear) {
  addTransfer("4", "3", "2009", "1000");
  addTransfer("4", "3", "2009", "234");
  addTransfer("21", "3", "2009", "1");
  addTransfer("4", "4", "2009", "1");
  addTransfer("4", "3", "2008", "1");
  EXPECT_EQ(mainReturn_.aJumlahPBK("not read", 4, 3, 2009), 2);
  EXPECT_EQ(mainReturn_.aTotalNominalPBK("not read", 4, 3, 2009), 1234);
  EXPECT_EQ(mainReturn_.aJumlahPBK("", 21, 3, 2009), 1);
}

TEST_F(ReturnCounts, OfRupiahFailForARecordWithoutAnAmount) {
  addPayment({});
  addPayment({.rupiah = "Null"});
  addTransfer("4", "3", "2009", "Null");
  EXPECT_EQ(mainReturn_.aTotalNominalSSP("", "3", "2009", "0"), 0);
  EXPECT_EQ(mainReturn_.aTotalNominalPBK("", 4, 3, 2009), 0);
  const std::string text = description(ErrorNumber::InvalidUseOfNull);
  EXPECT_THAT(messages_.texts(), ElementsAre(text, text));
  EXPECT_EQ(mainReturn_.aJumlahSSP("", "3", "2009", "0"), 2) << "as records they count";
}

TEST_F(ReturnCounts, OfSlipsAreTheNineFormsOfThePeriodWhoeverFiled) {
  makeReturn();
  for (const char* form : {"F113309", "F113310", "F113311", "F113312", "F113316", "F113317", "F113319", "F113320",
                           "F113321", "FSewaTnhBgn", "FJasaKonstruksi", "FAlihTnhBgn"})
    addDocument({.form = form});
  addDocument({.form = "F113309", .correction = 1});
  EXPECT_EQ(mainReturn_.aJumlahBP("not read", 0, 3, 2009), 9);
  EXPECT_EQ(mainReturn_.aJumlahBP("", 1, 3, 2009), 1);
  EXPECT_EQ(mainReturn_.aJumlahBP("", 0, 4, 2009), 0);
  EXPECT_EQ(mainReturn_.aJumlahBP("", 0, 3, 2008), 0);
  run("UPDATE DS_FORM_INDUK SET NPWP = '999', KD_JENIS_PAJAK = '114' WHERE KD_FORM = 'F113321'");
  EXPECT_EQ(mainReturn_.aJumlahBP("", 0, 3, 2009), 9);
}

TEST_F(ReturnCounts, OfPaymentsByArticleAskForAccountAndKindInArticleFourAlone) {
  addPayment({});
  addPayment({.account = "'0118'", .kind = "'100'"});
  addPayment({.account = "'411121'"});
  addPayment({.kind = "'500'"});
  addPayment({.article = "21", .account = "'411121'", .kind = "'500'"});
  const store::StoreObject store;
  const store::Period period{.msPajak = 3, .thPajak = 2009, .kdPembetulanKe = 0};
  EXPECT_EQ(mainreturn::aJumlahSSPPasal(store, 4, period), 2);
  EXPECT_EQ(mainreturn::aJumlahSSPPasal(store, 21, period), 1);
  EXPECT_EQ(mainreturn::aJumlahSSPPasal(store, 22, period), 0);
}

}  // namespace
}  // namespace tarvola::test
