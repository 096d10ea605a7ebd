#include "tarvola/runtime/error_texts.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "tarvola/runtime/errors.h"

namespace tarvola {
namespace {

constexpr std::int32_t numberOf(ErrorNumber number) { return static_cast<std::int32_t>(number); }

// Ordered by number, so that a look-up can halve its way.
constexpr auto texts = std::to_array<ErrorText>({
    // COM and the provider. A number whose text always comes from the driver has the general meaning here.
    {numberOf(ErrorNumber::Unspecified), "Unspecified error"},
    {numberOf(ErrorNumber::ComTypeMismatch), "Type mismatch."},
    {numberOf(ErrorNumber::ComOutOfRange), "Out of present range."},
    {numberOf(ErrorNumber::CriteriaMismatch), "Data type mismatch in criteria expression."},
    {numberOf(ErrorNumber::AccessDenied), "Permission denied"},
    {numberOf(ErrorNumber::TooFewParameters), "No value given for one or more required parameters."},
    {numberOf(ErrorNumber::SyntaxError), "Syntax error in query. Incomplete query clause."},
    {numberOf(ErrorNumber::MultipleStepErrors), "Multiple-step operation generated errors. Check each status value."},
    {numberOf(ErrorNumber::RowDeleted), "Row handle referred to a deleted row or a row marked for deletion."},
    {numberOf(ErrorNumber::IntegrityViolation),
     "The changes you requested to the table were not successful because they would create duplicate values in the "
     "index, primary key, or relationship."},
    {numberOf(ErrorNumber::TimeoutExpired), "Timeout expired"},
    {numberOf(ErrorNumber::UnknownTable), "The input table or query cannot be found."},
    {numberOf(ErrorNumber::RowNotLocated),
     "Row cannot be located for updating. Some values may have been changed since it was last read."},
    {numberOf(ErrorNumber::AuthenticationFailed), "Authentication failed."},
    {numberOf(ErrorNumber::OperationCanceled), "Operation was canceled."},

    // Run time.
    {3, "Return without GoSub"},
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {10, "This array is fixed or temporarily locked"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {14, "Out of string space"},
    {16, "Expression too complex"},
    {17, "Can't perform requested operation"},
    {20, "Resume without error"},
    {28, "Out of stack space"},
    {35, "Sub or Function not defined"},
    {48, "Error in loading DLL"},
    {51, "Internal error"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {54, "Bad file mode"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {58, "File already exists"},
    {59, "Bad record length"},
    {61, "Disk full"},
    {62, "Input past end of file"},
    {63, "Bad record number"},
    {67, "Too many files"},
    {68, "Device unavailable"},
    {70, "Permission denied"},
    {71, "Disk not ready"},
    {74, "Can't rename with different drive"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
    {92, "For loop not initialized"},
    {93, "Invalid pattern string"},
    {94, "Invalid use of Null"},
    {321, "Invalid file format"},
    {322, "Can't create necessary temporary file"},
    {380, "Invalid property value"},
    {424, "Object required"},
    {429, "ActiveX component can't create object"},
    {430, "Class does not support Automation or does not support expected interface"},
    {432, "File name or class name not found during Automation operation"},
    {438, "Object doesn't support this property or method"},
    {440, "Automation error"},
    {445, "Object doesn't support this action"},
    {448, "Named argument not found"},
    {449, "Argument not optional"},
    {450, "Wrong number of arguments or invalid property assignment"},
    {457, "This key is already associated with an element of this collection"},
    {458, "Variable uses an Automation type not supported in Visual Basic"},
    {462, "The remote server machine does not exist or is unavailable"},
    {482, "Printer error"},

    // Recordset layer.
    {3000, "Provider failed to perform the requested operation."},
    {3001, "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another."},
    {3002, "File could not be opened."},
    {3003, "File could not be read."},
    {3004, "Write to file failed."},
    {3021,
     "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current "
     "record."},
    {3219, "Operation is not allowed in this context."},
    {3220, "Supplied provider is different from the one already in use."},
    {3246, "Connection object cannot be explicitly closed while in a transaction."},
    {3251, "Object or provider is not capable of performing requested operation."},
    {3265, "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    {3367, "Object is already in collection. Cannot append."},
    {3420, "Object is no longer valid."},
    {3421, "Application uses a value of the wrong type for the current operation."},
    {3704, "Operation is not allowed when the object is closed."},
    {3705, "Operation is not allowed when the object is open."},
    {3706, "Provider cannot be found. It may not be properly installed."},
    {3707,
     "Cannot change the ActiveConnection property of a Recordset object which has a Command object as its source."},
    {3708, "Parameter object is improperly defined. Inconsistent or incomplete information was provided."},
    {3709, "The connection cannot be used to perform this operation. It is either closed or invalid in this context."},
    {3710, "Operation cannot be performed while processing event."},
    {3711, "Operation cannot be performed while executing asynchronously."},
    {3712, "Operation has been cancelled by the user."},
    {3713, "Operation cannot be performed while connecting asynchronously."},
    {3714, "Coordinating transaction is invalid or has not started."},
    {3715, "Operation cannot be performed while not executing."},
    {3716, "Safety settings on this computer prohibit accessing a data source on another domain."},
    {3719, "Data value conflicts with the integrity constraints of the field."},
    {3721, "Data value is too large to be represented by the field data type."},
    {3722, "Data value conflicts with the data type or constraints of the field."},
    {3724,
     "Data value cannot be converted for reasons other than sign mismatch or data overflow. For example, conversion "
     "would have truncated data."},
    {3749, "Fields update failed. For further information, examine the Status property of individual field objects."},
});

static_assert(std::ranges::adjacent_find(texts, std::ranges::greater_equal{}, &ErrorText::number) == texts.end(),
              "the texts stand in the order of their numbers, each once");

std::string joined(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) text += piece;
  return text;
}

std::string inExpression(std::string_view what, std::string_view expression) {
  return joined({driverPrefix, what, " in query expression '", expression, "'."});
}

}  // namespace

std::span<const ErrorText> errorTexts() noexcept { return texts; }

std::string_view errorText(ErrorNumber number) noexcept {
  const auto found = std::ranges::lower_bound(texts, numberOf(number), {}, &ErrorText::number);
  return found != texts.end() && found->number == numberOf(number) ? found->text : std::string_view{};
}

std::string lineTooLongText(std::uint64_t lineNumber, std::uint64_t limitBytes) {
  return joined({"Line ", std::to_string(lineNumber), " is longer than ", std::to_string(limitBytes), " bytes"});
}

std::string driverText(std::string_view text) { return joined({driverPrefix, text}); }
std::string driverManagerText(std::string_view text) { return joined({driverManagerPrefix, text}); }

std::string unknownDataSourceText() {
  return driverManagerText("Data source name not found and no default driver specified");
}

std::string driverNotLoadedText(std::string_view reason) {
  return joined({driverManagerPrefix, "Specified driver could not be loaded due to system error ", reason});
}

std::string fileNotFoundText(std::string_view path) {
  return joined({driverPrefix, "Could not find file '", path, "'."});
}

std::string fileInUseText(std::string_view path) {
  return joined({driverPrefix, "Could not use '", path, "'; file already in use."});
}

std::string folderNotFileText(std::string_view path) {
  return joined({driverPrefix, "'", path, "' is a folder, not a file."});
}

std::string unrecognizedFormatText(std::string_view path) {
  return joined({driverPrefix, "Unrecognized database format '", path, "'."});
}

std::string fileNotReadableText(std::string_view path) {
  return joined({driverPrefix, "Could not open '", path, "'; you need permission to read it."});
}

std::string fileNotWritableText(std::string_view path) {
  return joined({notUpdatableText(), " The file '", path, "' cannot be written."});
}

std::string fileDamagedText(std::string_view path) {
  return joined({driverPrefix, "The file '", path, "' is damaged."});
}

std::string diskFullText(std::string_view path) {
  return joined({driverPrefix, "Could not write to '", path, "'; there is not enough space on the disk."});
}

std::string fileAccessFailedText(std::string_view path, std::string_view reason) {
  return joined({driverPrefix, "Disk or network error on '", path, "': ", reason, "."});
}

std::string fileExistsText(std::string_view path) { return joined({"File already exists: '", path, "'"}); }

std::string fileNotCreatedText(std::string_view path, std::string_view reason) {
  return joined({"Could not create '", path, "': ", reason});
}

std::string wrongPasswordText() { return driverText("Not a valid password."); }

std::string notAStatementText() {
  return driverText("Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'.");
}

std::string textAfterStatementText() { return driverText("Characters found after end of SQL statement."); }
std::string incompleteClauseText() { return driverText("Syntax error in query. Incomplete query clause."); }

std::string missingOperatorText(std::string_view expression) {
  return inExpression("Syntax error (missing operator)", expression);
}

std::string openQuoteText(std::string_view expression) { return inExpression("Syntax error in string", expression); }
std::string badDateLiteralText(std::string_view expression) { return inExpression("Syntax error in date", expression); }
std::string extraParenthesisText(std::string_view expression) { return inExpression("Extra )", expression); }

std::string missingParenthesisText(std::string_view expression) {
  return inExpression("Missing ), ], or Item", expression);
}

std::string clauseSyntaxText(std::string_view clause) {
  return joined({driverPrefix, "Syntax error in ", clause, " clause."});
}

std::string statementSyntaxText(std::string_view statement) {
  return joined({driverPrefix, "Syntax error in ", statement, " statement."});
}

std::string joinSyntaxText() { return driverText("Syntax error in JOIN operation."); }
std::string unionSyntaxText() { return driverText("Syntax error in union query."); }

std::string unionColumnCountText() {
  return driverText("The number of columns in the two selected tables or queries of a union query do not match.");
}

std::string valueCountText() { return driverText("Number of query values and destination fields are not the same."); }

std::string unknownInsertFieldText(std::string_view field) {
  return joined({driverPrefix, "The INSERT INTO statement contains the following unknown field name: '", field,
                 "'.  Make sure you have typed the name correctly, and try the operation again."});
}

std::string ambiguousFieldText(std::string_view field) {
  return joined({driverPrefix, "The specified field '", field,
                 "' could refer to more than one table listed in the FROM clause of your SQL statement."});
}

std::string notAggregatedText(std::string_view expression) {
  return joined({driverPrefix, "You tried to execute a query that does not include the specified expression '",
                 expression, "' as part of an aggregate function."});
}

std::string unknownFunctionText(std::string_view function) {
  return joined({driverPrefix, "Undefined function '", function, "' in expression."});
}

std::string selectSyntaxText() {
  return driverText(
      "The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or the "
      "punctuation is incorrect.");
}

std::string noTableText() { return driverText("Query input must contain at least one table or query."); }

std::string unionOrderText(std::string_view expression) {
  return joined({driverPrefix, "The ORDER BY expression (", expression,
                 ") includes fields that are not selected by the query.  Only those fields requested in the first "
                 "query can be included in an ORDER BY expression."});
}

std::string aggregateRefusedText(std::string_view place, std::string_view expression) {
  return joined({driverPrefix, "Cannot have aggregate function in ", place, " (", expression, ")."});
}

std::string subqueryColumnsText() {
  return driverText(
      "You have written a subquery that can return more than one field without using the EXISTS reserved word in the "
      "main query's FROM clause. Revise the SELECT statement of the subquery to request only one field.");
}

std::string argumentCountText(std::string_view expression) {
  return inExpression("Wrong number of arguments used with function", expression);
}

std::string duplicateDestinationText(std::string_view field) {
  return joined({driverPrefix, "Duplicate output destination '", field, "'."});
}

std::string tooFewParametersText(std::size_t count) {
  return joined({driverPrefix, "Too few parameters. Expected ", std::to_string(count), "."});
}

std::string unknownTableText(std::string_view name) {
  return joined({driverPrefix, "The Microsoft Jet database engine cannot find the input table or query '", name,
                 "'.  Make sure it exists and that its name is spelled correctly."});
}

std::string criteriaMismatchText() { return driverText("Data type mismatch in criteria expression."); }

std::string duplicateKeyText() {
  return driverText(
      "The changes you requested to the table were not successful because they would create duplicate values in the "
      "index, primary key, or relationship. Change the data in the field or fields that contain duplicate data, "
      "remove the index, or redefine the index to permit duplicate entries and try again.");
}

std::string requiredFieldText(std::string_view table, std::string_view field) {
  constexpr std::string_view reason =
      "' cannot contain a Null value because the Required property for this field is set to True.  Enter a value in "
      "this field.";
  return joined({driverPrefix, "The field '", table, ".", field, reason});
}

std::string zeroLengthText(std::string_view table, std::string_view field) {
  return joined({driverPrefix, "Field '", table, ".", field, "' cannot be a zero-length string."});
}

std::string fieldTooSmallText() {
  return driverText(
      "The field is too small to accept the amount of data you attempted to add.  Try inserting or pasting less data.");
}

std::string notUpdatableText() { return driverText("Operation must use an updatable query."); }

std::string tooManyRowsInSubqueryText() { return driverText("At most one record can be returned by this subquery."); }

std::string queryTooComplexText() { return driverText("Query is too complex."); }
std::string numericOverflowText() { return driverText("Numeric field overflow."); }

}  // namespace tarvola
