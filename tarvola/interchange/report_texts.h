#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What a person reads when a reporting file is written or read. All such texts stand here.
namespace tarvola::interchange {

// --- writing -------------------------------------------------------------------------------------------

/// The return that a notice speaks of, as the caller words it.
struct ReportedPeriod {
  std::string_view month;
  std::string_view year;
  std::int16_t correction = 0;
};

/// The store holds no main return of the period.
void showNothingToReport(const ReportedPeriod& period);
void showReportWritten(const ReportedPeriod& period, std::string_view fileName);
/// The failure that is being handled. Only inside a catch block.
void showReportFailure() noexcept;
void showPasswordFailure() noexcept;

// --- ciphers -------------------------------------------------------------------------------------------

std::string cipherFailedText(std::string_view reason);

// --- reading -------------------------------------------------------------------------------------------

std::string emptyReportText();
std::string notEncipheredText();
/// The writing of the file was interrupted and left it in its first or second stage.
std::string plainStageText();
std::string compressedStageText();
std::string cutOffText(std::size_t presentBytes);
std::string foreignCharacterText();
std::string damagedEnvelopeText();
std::string foreignCipherText(std::uint32_t version, std::uint32_t algorithm, std::uint32_t keyBits);
std::string wrongSecretText();
std::string damagedContentText(std::string_view what);
std::string otherLengthText(std::string_view statedBytes, std::size_t foundBytes);
/// Of lines that no report can hold, whose file was written all the same.
std::string beyondBlockText(std::uint64_t statedBytes);
std::string unreadableSumText(std::size_t lineNumber, std::string_view kdForm);
std::string otherSumText(std::size_t lineNumber, std::string_view kdForm, std::string_view stated,
                         std::string_view computed);

}  // namespace tarvola::interchange
