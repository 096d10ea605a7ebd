#include "tarvola/interchange/import_texts.h"

#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

std::string periodText(std::string_view month, std::string_view year, std::string_view correction) {
  std::string text(month);
  return text.append("/").append(year).append(", correction ").append(correction);
}

/// The part of a title that names the column for most forms: "Tarif 1 / Tingkat Bunga per Tahun" gives "Tarif 1".
std::string_view shortTitle(Column column) {
  const std::string_view title = fileColumns[index(column)].title;
  return Trim(title.substr(0, title.find('/')));
}

std::string noPlaceForRefusedLines(std::string_view path) {
  return "Refused lines cannot be written to " + std::string(path) + ": ";
}

}  // namespace

std::string quoted(std::string_view value) {
  constexpr std::size_t longest = 40;
  const std::string_view shown = Left(value, longest);
  return "'" + std::string(shown) + (shown.size() < value.size() ? "...'" : "'");
}

std::string emptyFileText(std::string_view path) { return std::string(path) + " is empty"; }

std::string notAnExchangeFileText(std::string_view path) {
  return std::string(path) + " is no slip exchange file: its first line is neither the header nor the line of a form";
}

std::string utf16Text(std::string_view path) {
  return std::string(path) + " is UTF-16; save it as text in the ANSI code page or in UTF-8";
}

std::string noFilerText() { return "The store names no filer: the table PROFILE is empty"; }

std::string rejectFileWithoutFolderText(std::string_view path, std::string_view folder) {
  return noPlaceForRefusedLines(path) + "there is no folder " + std::string(folder) +
         ". Make it, or name another place for them";
}

std::string rejectFileIsFolderText(std::string_view path) {
  return noPlaceForRefusedLines(path) + "it is a folder. Name a file for them";
}

std::string rejectFileIsStoreText(std::string_view path) {
  return noPlaceForRefusedLines(path) + "it is a store, and they would take its place. Name another file for them";
}

std::string rejectFileForbiddenText(std::string_view path) {
  return noPlaceForRefusedLines(path) + "the place may not be written to. Name another one for them";
}

std::string lineTooLongForFormText(std::size_t bytes, std::size_t limitBytes) {
  return "the line has " + std::to_string(bytes) + " bytes; a line of this file has at most " +
         std::to_string(limitBytes);
}

std::string brokenUtf8Text() { return "the line is not UTF-8, as the file says it is"; }

std::string columnCountText(std::size_t count) {
  return "the line has " + std::to_string(count) + (count == 1 ? " column" : " columns") + " where " +
         std::to_string(columnCount) + " are expected" +
         (count > columnCount ? "; a text may hold the separator ';'" : "");
}

std::string unknownFormCodeText(std::string_view code) { return "the form code " + quoted(code) + " is unknown"; }

std::string otherPeriodText(std::string_view month, std::string_view year, std::string_view correction,
                            const store::Period& wanted) {
  return "the line is of " + periodText(month, year, correction) + ", not of " +
         periodText(CStr(std::int32_t{wanted.msPajak}), CStr(std::int32_t{wanted.thPajak}),
                    CStr(std::int32_t{wanted.kdPembetulanKe}));
}

std::string inColumnText(Column column, std::string_view fault) {
  return "column " + std::to_string(index(column) + 1) + " (" + std::string(shortTitle(column)) +
         "): " + std::string(fault);
}

std::string noNumberText(std::string_view value) {
  return value.empty() ? "is empty" : quoted(value) + " is no number";
}

std::string misplacedThousandsText(std::string_view value, char decimal) {
  return quoted(value) + " parts thousands in the wrong place; the decimal sign is '" + std::string(1, decimal) + "'";
}

std::string tooLargeText(std::string_view value) {
  return quoted(value) + " has more than 15 digits, so that not every rupiah of it could be kept";
}

std::string noDateText(std::string_view value) {
  return value.empty() ? "is empty; interest lines need the day" : quoted(value) + " is no date";
}

std::string noOptionText(std::string_view value, std::string_view choices) {
  return quoted(value) + " is none of " + std::string(choices);
}

std::string apostropheText() { return "holds an apostrophe, which the store cannot take"; }

std::string nulCharacterText() { return "holds a NUL character"; }

std::string noSlipNumberText() { return "is empty; a slip is known by its number"; }

std::string headerNumberText() { return "'-' is the number of list headers"; }

std::string otherContentsText(std::string_view noBukti) {
  return "slip " + std::string(noBukti) + " is in the store with other contents, which stay";
}

std::string numberTakenText(std::string_view noBukti) {
  return "the number " + std::string(noBukti) + " belongs to a slip of another form in this period";
}

std::string otherInterestText(const Amounts& slips, const Amounts& line) {
  const auto words = [](const Amounts& amounts) {
    return "gross " + Format(amounts.grossRupiah, "#,##0") + ", tax " + Format(amounts.taxRupiah, "#,##0");
  };
  return "Line 11a does not agree with the other interest of the F113310 slips: the slips have " + words(slips) +
         "; the line has " + words(line) +
         ". A recount fills the line only in a month with giro and while the line has no text of its own. Check it.";
}

}  // namespace tarvola::interchange
