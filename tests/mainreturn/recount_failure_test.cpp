#include "tarvola/mainreturn/return_lines.h"
#include "tarvola/mainreturn/roll_up_forms.h"
#include "tests/mainreturn/return_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace tarvola::test {
namespace {

/// Every form has one document that adds 100 to each of its lines. A stub beside it, which ends behind the slip number,
/// stops the recount there.
class RecountThatFails : public ReturnTest {
 protected:
  RecountThatFails() {
    makeReturn();
    for (const mainreturn::RolledUpForm& form : mainreturn::rolledUpForms) addDocument(hundredOnEachLine(form));
  }

  static Document hundredOnEachLine(const mainreturn::RolledUpForm& form) {
    Document document{.form = form.form.kdForm};
    for (const mainreturn::FedLine& line : form.lines)
      if (!line.tax.empty()) document.fields[std::string(line.gross.front())] = "100";
    if (form.rowRule == mainreturn::RowRule::Interest)
      document.fields = {{"OPTDN1", "1"}, {"OPTLN1", "1"}, {"B1A3", "100"}, {"B43", "100"}, {"B53", "100"}};
    if (form.rowRule == mainreturn::RowRule::Construction)
      document.fields = {{"B13", "100"}, {"Opt4", "1"}, {"B43", "100"}, {"Opt5", "2"}, {"B53", "100"}};
    return document;
  }

  /// Recounts a return whose lines hold 7 before.
  void recountOver7(CF113204& mainReturn) {
    load(mainReturn);
    for (const mainreturn::ReturnLine& line : mainreturn::returnLines) put(mainReturn, line.gross, 7.0);
    mainReturn.aC3(77);
    mainReturn.aCHKC2(9);
    mainReturn.pUpdF113204(3, 2009, 0);
  }
};

TEST_F(RecountThatFails, HasSetTheLinesOfTheFormsBeforeAndNoOthers) {
  // The forms in their order; the first that is not set any more is the one with the stub.
  const std::string_view order[] = {"F113309",     "F113310",         "F113311", "F113312", "F113316", "F113317",
                                    "FSewaTnhBgn", "FJasaKonstruksi", "F113319", "F113320", "F113321", "FAlihTnhBgn"};
  for (std::size_t failing = 0; failing < std::size(order); ++failing) {
    addDocument(
        {.form = order[failing], .number = "stub", .packedText = "013121660091000;PT;Jl;3;2009;0;01/03/2009;stub"});
    messages_.clear();
    CF113204 mainReturn;
    recountOver7(mainReturn);
    EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::InvalidUseOfNull))) << order[failing];
    for (std::size_t index = 0; index < std::size(order); ++index)
      for (const mainreturn::FedLine& line : mainreturn::rolledUpForms[index].lines) {
        ASSERT_EQ(mainreturn::rolledUpForms[index].form.kdForm, order[index]);
        EXPECT_EQ(number(mainReturn, line.line.gross), index < failing ? 100 : 7) << order[failing] << line.line.number;
      }
    // C3 holds the slips of the first six forms once they are through.
    EXPECT_EQ(mainReturn.aC3(), failing > 5 ? 6 : 77) << order[failing];
    EXPECT_EQ(mainReturn.aCHKC2(), 9) << order[failing];
    run("DELETE * FROM DS_FORM_INDUK WHERE NOBUKTI = 'stub'");
    run("DELETE * FROM DAT_SSP_PPh22 WHERE NOBUKTI = 'stub'");
  }
}

TEST_F(RecountThatFails, CountsAllNineFormsInTheEndOnceNothingFails) {
  CF113204 mainReturn;
  recountOver7(mainReturn);
  EXPECT_THAT(messages_.texts(), IsEmpty());
  EXPECT_EQ(mainReturn.aC3(), 9);
  EXPECT_EQ(mainReturn.aCHKC2(), 1);
  EXPECT_EQ(mainReturn.aCHKC3(), 1);
}

TEST_F(RecountThatFails, ForATextWhereAnAmountBelongs) {
  addDocument({.form = "F113312", .number = "2", .fields = {{"JMLBRUTO", "seratus"}}});
  CF113204 mainReturn;
  recountOver7(mainReturn);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::TypeMismatch)));
  EXPECT_EQ(number(mainReturn, "B2a3"), 100);
  EXPECT_EQ(number(mainReturn, "B5a3"), 7);
}

TEST_F(RecountThatFails, ForAnEmptyAmountWhereverItStands) {
  for (const char* field : {"B13", "B63", "JmlB5"}) {
    addDocument({.form = "F113309", .number = "stub", .fields = {{field, ""}}});
    messages_.clear();
    CF113204 mainReturn;
    recountOver7(mainReturn);
    EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::InvalidUseOfNull))) << field;
    EXPECT_EQ(number(mainReturn, "B43"), 7) << field;
    run("DELETE * FROM DS_FORM_INDUK WHERE NOBUKTI = 'stub'");
  }
}

TEST_F(RecountThatFails, ForAnOptionThatIsAWord) {
  addDocument({.form = "F113316", .number = "2", .fields = {{"Opt4", "ya"}}});
  CF113204 mainReturn;
  recountOver7(mainReturn);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::TypeMismatch)));
}

TEST_F(RecountThatFails, BeforeTheReturnIsLoaded) {
  CF113204 mainReturn;
  mainReturn.pUpdF113204(3, 2009, 0);
  EXPECT_THAT(messages_.texts(), ElementsAre(description(ErrorNumber::ObjectVariableNotSet)));
}

}  // namespace
}  // namespace tarvola::test
