#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tarvola/interchange/file_columns.h"
#include "tarvola/store/document_key.h"

/// What a person reads of a file or line that is not taken. All such texts stand here.
namespace tarvola::interchange {

// --- of the whole file ---------------------------------------------------------------------------------

std::string emptyFileText(std::string_view path);
std::string notAnExchangeFileText(std::string_view path);
std::string utf16Text(std::string_view path);
std::string noFilerText();
// Of a place where refused lines cannot go.
std::string rejectFileWithoutFolderText(std::string_view path, std::string_view folder);
std::string rejectFileIsFolderText(std::string_view path);
std::string rejectFileIsStoreText(std::string_view path);
std::string rejectFileForbiddenText(std::string_view path);

/// A value of a file in quotes, cut behind 40 characters.
std::string quoted(std::string_view value);

// --- of a line -----------------------------------------------------------------------------------------

std::string lineTooLongForFormText(std::size_t bytes, std::size_t limitBytes);
std::string brokenUtf8Text();
std::string columnCountText(std::size_t count);
std::string unknownFormCodeText(std::string_view code);
/// The period that a line says, in the words of its columns, against the one asked for.
std::string otherPeriodText(std::string_view month, std::string_view year, std::string_view correction,
                            const store::Period& wanted);
/// "column 12 (Jumlah Nilai Bruto 1): " and what is wrong there.
std::string inColumnText(Column column, std::string_view fault);
std::string noNumberText(std::string_view value);
std::string misplacedThousandsText(std::string_view value, char decimal);
std::string tooLargeText(std::string_view value);
std::string noDateText(std::string_view value);
std::string noOptionText(std::string_view value, std::string_view choices);
std::string apostropheText();
std::string nulCharacterText();
std::string noSlipNumberText();
std::string headerNumberText();
std::string otherContentsText(std::string_view noBukti);
std::string numberTakenText(std::string_view noBukti);

// --- of the rebuilt return -----------------------------------------------------------------------------

struct Amounts {
  double grossRupiah = 0;
  double taxRupiah = 0;
};
/// Other interest as the slips have it, against line 11a.
std::string otherInterestText(const Amounts& slips, const Amounts& line);

}  // namespace tarvola::interchange
