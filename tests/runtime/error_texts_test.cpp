#include "tarvola/runtime/error_texts.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/runtime/failures.h"

namespace tarvola {
namespace {

struct TextRow {
  ErrorNumber number;
  std::string_view text;
};

TEST(ErrorTexts, AreThePlatformsOwn) {
  constexpr TextRow rows[] = {
      {ErrorNumber::InvalidProcedureCall, "Invalid procedure call or argument"},
      {ErrorNumber::Overflow, "Overflow"},
      {ErrorNumber::SubscriptOutOfRange, "Subscript out of range"},
      {ErrorNumber::DivisionByZero, "Division by zero"},
      {ErrorNumber::TypeMismatch, "Type mismatch"},
      {ErrorNumber::ComTypeMismatch, "Type mismatch."},
      {ErrorNumber::PathNotFound, "Path not found"},
      {ErrorNumber::InvalidUseOfNull, "Invalid use of Null"},
      {ErrorNumber::ObjectVariableNotSet, "Object variable or With block variable not set"},
      {ErrorNumber::NoCurrentRecord,
       "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current "
       "record."},
      {ErrorNumber::ItemNotFound,
       "Item cannot be found in the collection corresponding to the requested name or ordinal."},
      {ErrorNumber::ObjectClosed, "Operation is not allowed when the object is closed."},
      {ErrorNumber::RowNotLocated,
       "Row cannot be located for updating. Some values may have been changed since it was last read."},
  };
  for (const TextRow& row : rows) EXPECT_EQ(errorText(row.number), row.text);
  EXPECT_EQ(errorText(static_cast<ErrorNumber>(12345)), "");
}

TEST(ErrorTexts, StandOnceForEachNumberAndAreNeverEmpty) {
  std::int64_t before = std::numeric_limits<std::int64_t>::min();
  for (const ErrorText& entry : errorTexts()) {
    EXPECT_GT(entry.number, before);
    EXPECT_FALSE(entry.text.empty()) << entry.number;
    before = entry.number;
  }
}

TEST(Failures, CarryNumberAndText) {
  EXPECT_EQ(failureOf([] { fail(ErrorNumber::Overflow); }), 6);
  EXPECT_EQ(descriptionOf([] { fail(ErrorNumber::Overflow); }), "Overflow");
  EXPECT_EQ(descriptionOf([] { fail(ErrorNumber::Overflow, "of a sum"); }), "of a sum");
  EXPECT_EQ(descriptionOf([] { fail(static_cast<ErrorNumber>(12345)); }),
            "Application-defined or object-defined error");
  EXPECT_STREQ(RunTimeError(6, "Overflow").what(), "Overflow");
}

TEST(DriverTexts, NameTheCaseBehindThePrefix) {
  EXPECT_EQ(unknownDataSourceText(),
            "[Microsoft][ODBC Driver Manager] Data source name not found and no default driver specified");
  EXPECT_EQ(unknownTableText("NADA"),
            "[Microsoft][ODBC Microsoft Access Driver] The Microsoft Jet database engine cannot find the input table "
            "or query 'NADA'.  Make sure it exists and that its name is spelled correctly.");
  EXPECT_EQ(missingOperatorText("a b"),
            "[Microsoft][ODBC Microsoft Access Driver] Syntax error (missing operator) in query expression 'a b'.");
  EXPECT_EQ(openQuoteText("'x"),
            "[Microsoft][ODBC Microsoft Access Driver] Syntax error in string in query expression ''x'.");
  EXPECT_EQ(tooFewParametersText(2), "[Microsoft][ODBC Microsoft Access Driver] Too few parameters. Expected 2.");
  EXPECT_EQ(criteriaMismatchText(),
            "[Microsoft][ODBC Microsoft Access Driver] Data type mismatch in criteria expression.");
  EXPECT_EQ(clauseSyntaxText("ORDER BY"), "[Microsoft][ODBC Microsoft Access Driver] Syntax error in ORDER BY clause.");
  EXPECT_EQ(statementSyntaxText("INSERT INTO"),
            "[Microsoft][ODBC Microsoft Access Driver] Syntax error in INSERT INTO statement.");
  EXPECT_EQ(missingParenthesisText("(a"),
            "[Microsoft][ODBC Microsoft Access Driver] Missing ), ], or Item in query expression '(a'.");
  EXPECT_EQ(requiredFieldText("T", "C"),
            "[Microsoft][ODBC Microsoft Access Driver] The field 'T.C' cannot contain a Null value because the "
            "Required property for this field is set to True.  Enter a value in this field.");
  EXPECT_EQ(unknownInsertFieldText("X"),
            "[Microsoft][ODBC Microsoft Access Driver] The INSERT INTO statement contains the following unknown field "
            "name: 'X'.  Make sure you have typed the name correctly, and try the operation again.");
}

}  // namespace
}  // namespace tarvola
