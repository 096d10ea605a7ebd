#include "tarvola/interchange/exchange_file_reader.h"

#include <algorithm>

#include "tarvola/interchange/import_texts.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

constexpr char separator = ';';

/// Nothing but blanks and separators, as spreadsheets leave behind the last row.
bool isBlank(std::string_view line) { return line.find_first_not_of("; \t") == std::string_view::npos; }

bool hasLettersBeyondAscii(std::string_view bytes) {
  return std::any_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

bool isUtf16(std::string_view firstLine) {
  return firstLine.starts_with("\xFF\xFE") || firstLine.starts_with("\xFE\xFF");
}

}  // namespace

ExchangeFileReader::ExchangeFileReader(const std::string& path, const ExchangeLayout& layout)
    : layout_(layout), lines_(LineReader::open(path)) {
  if (lines_.bytesTotal() == 0) fail(ErrorNumber::InvalidFileFormat, emptyFileText(path));
  takeFirstLine(path);
}

bool ExchangeFileReader::next() {
  if (std::exchange(isFirstTaken_, false)) return true;
  while (readLine())
    if (!isHeader()) return true;
  return false;
}

/// The next line that is not blank.
bool ExchangeFileReader::readLine() {
  while (lines_.next(bytes_)) {
    ++lineNumber_;
    if (lineNumber_ == 1 && bytes_.starts_with(utf8Mark)) {
      encoding_ = FileEncoding::Utf8;
      bytes_.remove_prefix(utf8Mark.size());
    }
    if (isBlank(bytes_)) continue;
    decode();
    cut();
    return true;
  }
  return false;
}

void ExchangeFileReader::takeFirstLine(const std::string& path) {
  if (!readLine()) fail(ErrorNumber::InvalidFileFormat, emptyFileText(path));
  if (isUtf16(bytes_)) fail(ErrorNumber::InvalidFileFormat, utf16Text(path));
  if (isHeader()) {
    hasReasons_ = columns_.size() > layout_.columnCount;
    return;
  }
  // By the bytes: a line that is too long or broken has no columns, and is still a line of its form.
  if (!layout_.isDataLine(Trim(bytes_.substr(0, bytes_.find(separator)))))
    fail(ErrorNumber::InvalidFileFormat, layout_.foreignFileText(path));
  isFirstTaken_ = true;
}

void ExchangeFileReader::decode() {
  text_.clear();
  const bool hasLetters = !isTooLong() && hasLettersBeyondAscii(bytes_);
  isLikeUtf8_ = hasLetters && encoding_ == FileEncoding::Ansi && isUtf8(bytes_);
  isBroken_ = hasLetters && encoding_ == FileEncoding::Utf8 && !isUtf8(bytes_);
  if (isTooLong() || isBroken_) return;
  if (encoding_ == FileEncoding::Ansi)
    appendFromAnsi(text_, bytes_);
  else
    text_ += bytes_;
}

void ExchangeFileReader::cut() {
  columns_.clear();
  if (text_.empty()) return;
  std::string_view rest = text_;
  for (std::size_t end = rest.find(separator); end != std::string_view::npos; end = rest.find(separator)) {
    columns_.push_back(rest.substr(0, end));
    rest.remove_prefix(end + 1);
  }
  columns_.push_back(rest);
  if (hasReasons_ && columns_.size() > layout_.columnCount) {
    columns_.pop_back();
    bytes_ = bytes_.substr(0, bytes_.rfind(separator));
  }
}

bool ExchangeFileReader::isHeader() const { return !columns_.empty() && layout_.isHeader(Trim(columns_.front())); }

}  // namespace tarvola::interchange
