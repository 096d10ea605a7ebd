#include "tarvola/store/store_object.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tarvola/runtime/errors.h"
#include "tarvola/store/failure_rule.h"
#include "tests/store/store_session.h"

namespace tarvola::store {
namespace {

using test::CapturedMessages;
using test::StoreSession;

template <class Body>
std::int32_t errorOf(Body body) {
  try {
    body();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return 0;
}

constexpr std::int32_t numberOf(ErrorNumber number) { return static_cast<std::int32_t>(number); }

TEST(StoreObject, ShowsOneMessageAtCreationBeforeAnySettings) {
  moduleState() = {};
  CapturedMessages messages;
  const StoreObject object;
  ASSERT_EQ(messages.boxes().size(), 1U);
  EXPECT_FALSE(messages.boxes()[0].text.empty());
  EXPECT_EQ(messages.boxes()[0].title, "");
}

TEST(StoreObject, FailsInEveryOperationWithoutSettingsAndCrashesInNone) {
  moduleState() = {};
  CapturedMessages messages;
  const StoreObject object;
  EXPECT_NE(errorOf([&] { static_cast<void>(object.open("SELECT * FROM BURSA")); }), 0);
  EXPECT_NE(errorOf([&] { object.execute("SELECT * FROM BURSA"); }), 0);
  EXPECT_EQ(errorOf([&] { static_cast<void>(object.expand("F113309", nullptr)); }),
            numberOf(ErrorNumber::ObjectVariableNotSet));
  EXPECT_EQ(errorOf([&] { static_cast<void>(object.pack(nullptr)); }), numberOf(ErrorNumber::ObjectVariableNotSet));
}

TEST(StoreObject, NamesNumberAndOriginWhereTheClassWordsItSo) {
  moduleState() = {};
  CapturedMessages plain;
  { const StoreObject object; }
  const std::string description = plain.texts().at(0);
  CapturedMessages worded;
  { const StoreObject object(StartUpWording::NumberAndOrigin); }
  ASSERT_EQ(worded.texts().size(), 1U);
  const std::string text = worded.texts()[0];
  const std::size_t colon = text.find(": ");
  ASSERT_NE(colon, std::string::npos);
  EXPECT_NE(std::stol(text.substr(0, colon)), 0);
  EXPECT_EQ(text.substr(colon), ": Class_Initialize Sub: " + description);
}

TEST(StoreObject, WaitsForSettingsInSilenceWhereItIsAskedTo) {
  moduleState() = {};
  CapturedMessages messages;
  const StoreObject object{WaitsForSettings{}};
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(errorOf([&] { static_cast<void>(object.connection()); }), numberOf(ErrorNumber::ObjectVariableNotSet));
}

TEST(StoreObject, OpensWhenItIsToldToStartUp) {
  moduleState() = {};
  StoreObject object{WaitsForSettings{}};
  StoreSession session;
  object.startUp();
  EXPECT_EQ(object.connection()->get_State(), adStateOpen);
  EXPECT_NE(&object.converter(), nullptr);
}

TEST(StoreObject, HoldsAConnectionOfItsOwn) {
  StoreSession session;
  const StoreObject first;
  const StoreObject second;
  EXPECT_NE(first.connection(), second.connection());
  EXPECT_EQ(first.connection()->get_CursorLocation(), adUseClient);
  first.connection()->Close();
  EXPECT_FALSE(isEmptyResult(second.open("SELECT * FROM PROFILE")));
}

TEST(StoreObject, HasNoConverterWhereTheClassHasNone) {
  StoreSession session;
  const StoreObject object(StartUpWording::Description, StartUpConverter::None);
  EXPECT_EQ(errorOf([&] { static_cast<void>(object.converter()); }), numberOf(ErrorNumber::ObjectVariableNotSet));
}

TEST(StoreObject, DropsBothAtRelease) {
  StoreSession session;
  StoreObject object;
  object.release();
  EXPECT_EQ(errorOf([&] { static_cast<void>(object.converter()); }), numberOf(ErrorNumber::ObjectVariableNotSet));
  EXPECT_EQ(errorOf([&] { static_cast<void>(object.connection()); }), numberOf(ErrorNumber::ObjectVariableNotSet));
}

TEST(StoreObject, OpensRowsThatCanBeChangedAndSavesThem) {
  StoreSession session;
  session.execute("DELETE * FROM BURSA");
  const StoreObject object;
  const RecordsetPtr rows = object.open("SELECT * FROM BURSA");
  EXPECT_TRUE(isEmptyResult(rows));
  rows->AddNew();
  rows->put_Collect("BURSA", "Jakarta");
  rows->put_Collect("ID", std::int16_t{1});
  saveAndRequery(rows);
  EXPECT_FALSE(isEmptyResult(rows));
  EXPECT_EQ(session.rowsOf("SELECT * FROM BURSA"), "Jakarta|1\n");
}

TEST(StoreObject, CallsNoRecordsetAnObjectThatIsNotSet) {
  EXPECT_EQ(errorOf([] { static_cast<void>(isEmptyResult(nullptr)); }), numberOf(ErrorNumber::ObjectVariableNotSet));
  EXPECT_EQ(errorOf([] { saveAndRequery(nullptr); }), numberOf(ErrorNumber::ObjectVariableNotSet));
}

TEST(FailureRule, ShowsTheDescriptionAloneAndEndsNormally) {
  CapturedMessages messages;
  int result = 7;
  guarded([&] {
    result = 8;
    fail(ErrorNumber::DivisionByZero);
  });
  EXPECT_EQ(result, 8) << "what was assigned before the failure stands";
  ASSERT_EQ(messages.boxes().size(), 1U);
  EXPECT_EQ(messages.boxes()[0].text, errorText(ErrorNumber::DivisionByZero));
  EXPECT_EQ(messages.boxes()[0].title, "");
  EXPECT_EQ(messages.boxes()[0].icon, MessageIcon::None);
}

TEST(FailureRule, ShowsNothingWhereItIsSilent) {
  CapturedMessages messages;
  guardedSilently([] { fail(ErrorNumber::DivisionByZero); });
  EXPECT_TRUE(messages.empty());
}

TEST(FailureRule, LetsNoOtherFailureThroughEither) {
  CapturedMessages messages;
  guarded([] { throw std::bad_alloc(); });
  guarded([] { throw std::runtime_error("disk on fire"); });
  guarded([] { throw 5; });
  EXPECT_THAT(messages.texts(), testing::ElementsAre(errorText(ErrorNumber::OutOfMemory), "disk on fire",
                                                     "Application-defined or object-defined error"));
}

}  // namespace
}  // namespace tarvola::store
