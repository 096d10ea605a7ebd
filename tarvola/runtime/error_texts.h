#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarvola {

// Every text of a failure that a person can meet stands here or in error_texts.cpp, and nowhere else.

/// A failure number and the text that belongs to it.
struct ErrorText {
  std::int32_t number;
  std::string_view text;
};

/// The texts of run time, recordset layer and cursor engine, ordered by number.
std::span<const ErrorText> errorTexts() noexcept;

/// What stands for a number that has no text of its own.
inline constexpr std::string_view unknownErrorText = "Application-defined or object-defined error";

// --- run time, with the case named -------------------------------------------------------------------------

/// A line longer than a reader is willing to hold: "Line 3 is longer than 67108864 bytes".
std::string lineTooLongText(std::uint64_t lineNumber, std::uint64_t limitBytes);

// --- recordset layer, second forms of 3251 --------------------------------------------------------------------

inline constexpr std::string_view updatingNotSupportedText =
    "Current Recordset does not support updating. This may be a limitation of the provider, or of the selected "
    "locktype.";
inline constexpr std::string_view bookmarksNotSupportedText =
    "Current Recordset does not support bookmarks. This may be a limitation of the provider or of the selected "
    "cursortype.";
inline constexpr std::string_view emptyRowText =
    "Cannot insert an empty row. Row must have at least one column value set.";
inline constexpr std::string_view insufficientBaseTableText =
    "Insufficient base table information for updating or refreshing.";

// --- shaping service ---------------------------------------------------------------------------------------

/// A hierarchical command that cannot be read, with the reason as a sentence.
inline std::string shapeSyntaxText(std::string_view reason) {
  return std::string("Syntax error in SHAPE command. ").append(reason);
}

// --- driver ----------------------------------------------------------------------------------------------
// Whole texts, prefix included. The number they go with is named behind each.

inline constexpr std::string_view driverPrefix = "[Microsoft][ODBC Microsoft Access Driver] ";
inline constexpr std::string_view driverManagerPrefix = "[Microsoft][ODBC Driver Manager] ";

/// Any text of the driver's own, behind its prefix.
std::string driverText(std::string_view text);
std::string driverManagerText(std::string_view text);

// Connecting.
std::string unknownDataSourceText();                       // Unspecified
std::string driverNotLoadedText(std::string_view reason);  // Unspecified
std::string fileNotFoundText(std::string_view path);       // Unspecified
std::string fileInUseText(std::string_view path);          // Unspecified
std::string wrongPasswordText();                           // AuthenticationFailed

// The file of a store. Unless another is named the number is Unspecified.
std::string folderNotFileText(std::string_view path);
std::string unrecognizedFormatText(std::string_view path);
std::string fileNotReadableText(std::string_view path);  // AccessDenied
/// The text of a statement that cannot write, with the file that stands in its way.
std::string fileNotWritableText(std::string_view path);
std::string fileDamagedText(std::string_view path);
std::string diskFullText(std::string_view path);
/// The disk or network failed; the reason is the engine's own.
std::string fileAccessFailedText(std::string_view path, std::string_view reason);
std::string fileExistsText(std::string_view path);                               // FileAlreadyExists
std::string fileNotCreatedText(std::string_view path, std::string_view reason);  // PathFileAccessError

// Reading a statement. Unless another is named the number is SyntaxError.
std::string notAStatementText();
std::string textAfterStatementText();
std::string incompleteClauseText();
std::string missingOperatorText(std::string_view expression);
std::string openQuoteText(std::string_view expression);
std::string badDateLiteralText(std::string_view expression);
std::string extraParenthesisText(std::string_view expression);
std::string missingParenthesisText(std::string_view expression);
/// "Syntax error in FROM clause." of "FROM"; likewise WHERE, GROUP BY, HAVING, ORDER BY.
std::string clauseSyntaxText(std::string_view clause);
/// "Syntax error in UPDATE statement." of "UPDATE"; likewise INSERT INTO, DELETE, SELECT.
std::string statementSyntaxText(std::string_view statement);
std::string joinSyntaxText();
std::string unionSyntaxText();
std::string unionColumnCountText();
std::string valueCountText();
std::string unknownInsertFieldText(std::string_view field);
std::string ambiguousFieldText(std::string_view field);
std::string notAggregatedText(std::string_view expression);
std::string unknownFunctionText(std::string_view function);
/// A word of the language where a name belongs, or a list of results that cannot be read.
std::string selectSyntaxText();
std::string noTableText();
std::string unionOrderText(std::string_view expression);
/// An aggregate where none may stand: a "WHERE clause", a "GROUP BY clause", another "expression".
std::string aggregateRefusedText(std::string_view place, std::string_view expression);
std::string subqueryColumnsText();
std::string argumentCountText(std::string_view expression);
std::string duplicateDestinationText(std::string_view field);
std::string tooFewParametersText(std::size_t count);  // TooFewParameters
std::string unknownTableText(std::string_view name);  // UnknownTable

// Running a statement.
std::string criteriaMismatchText();                                             // CriteriaMismatch
std::string duplicateKeyText();                                                 // IntegrityViolation
std::string requiredFieldText(std::string_view table, std::string_view field);  // Unspecified
std::string zeroLengthText(std::string_view table, std::string_view field);     // Unspecified
std::string fieldTooSmallText();                                                // Unspecified
std::string notUpdatableText();                                                 // Unspecified
std::string tooManyRowsInSubqueryText();                                        // Unspecified
std::string queryTooComplexText();                                              // Unspecified
std::string numericOverflowText();                                              // Unspecified

}  // namespace tarvola
