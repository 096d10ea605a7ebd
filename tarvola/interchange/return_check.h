#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvola {

/// What is wrong with a stored return.
enum class CheckKind : std::uint8_t {
  MissingHeader,
  DoubledDocument,
  WrongCode,
  OtherFiler,
  FieldCount,
  OtherThanRow,
  Unreadable,
  WrongSum,
  WrongTotal,
  MissingListRow,
  StrayListRow,
  DoubledListRow,
  ListRowDiffers,
  ListSum,
  MissingInterestLine,
  StrayInterestLine,
  InterestLineDiffers,
  ReturnAmount,
  ReturnRate,
  ReturnMark,
  RecountFails,
  OtherInterest,
  PaymentCount,
  DoubledNumber,
  SkippedNumbers,
  CheckDigit,
};

/// One difference between what is stored and what its documents say.
struct CheckFinding {
  CheckKind kind = CheckKind::ReturnAmount;
  /// Whether it may be as it has to be, and a person should look: a wrong check digit, numbers that nobody has used.
  bool isWarning = false;
  /// Form and number, "F113309 000001/PPH4".
  std::string document = {};
  /// The field or column; "" where the document as a whole is meant.
  std::string field = {};
  std::string stored = {};
  std::string recounted = {};
};

/// What a kind of finding is called, "list row without slip".
std::string_view checkKindText(CheckKind kind) noexcept;

/// Compares a stored return with its documents: every slip and self-paid form with itself and with its row in the list,
/// every list with its sums, the interest lines with their slips, the numbers with one another, and the main form with
/// a recount that is made on the side. Nothing is stored. A return in which all agrees gives no finding.
///
/// The thread's connection settings must have been given to pSetCon, and the store must name its filer. It waits for
/// imports and rebuildings of other processes. Fails with a RunTimeError if the store cannot be read.
std::vector<CheckFinding> checkReturn(std::int16_t month, std::int16_t year, std::int16_t correction);

/// Whether the check digit of a 15-digit NPWP is right: the Luhn digit over its first eight. Placeholders of payees
/// without a number (00.000.000.0-xxx.000) pass.
bool hasRightCheckDigit(std::string_view npwp) noexcept;

}  // namespace tarvola
