#include "tarvola/interchange/report_stages.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "tarvola/interchange/control_sums.h"
#include "tarvola/interchange/enciphering.h"
#include "tarvola/interchange/report_texts.h"
#include "tarvola/interchange/utf16.h"
#include "tarvola/interchange/zlib_codec.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/form_codes.h"

namespace tarvola::interchange {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t lengthDigits = 20;
/// zlib cannot make less than a byte of so many.
constexpr std::uint64_t largestRatio = 1032;

/// Lines beyond this are lost when a report is written, but for the last part: its files are taken up in such blocks.
constexpr std::uint64_t largestReport = 327'680'000;

[[noreturn]] void refuse(std::string description) { fail(ErrorNumber::InvalidFileFormat, std::move(description)); }

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

bool startsWithLength(std::string_view bytes) noexcept {
  return bytes.size() >= lengthDigits && std::all_of(bytes.begin(), bytes.begin() + lengthDigits, isDigit);
}

/// A zlib stream begins with its method, 8, in the low half of a byte. No line of a report does.
bool startsLikeZlib(std::string_view bytes) noexcept { return !bytes.empty() && (bytes.front() & 0x0F) == 8; }

/// Tells a file that an interrupted writing left in an earlier stage.
void refuseEarlierStage(std::string_view bytes) {
  if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return c == '\r' || c == '\n' || c == ' '; }))
    refuse(emptyReportText());
  if (startsWithLength(bytes)) refuse(compressedStageText());
  if (bytes.starts_with("113;")) refuse(plainStageText());
}

/// Whether the secret fitted. Under the right one every character is of the code page, but for the few that a changed
/// byte spoils; under a wrong one hardly one in two hundred is. So a damaged file is not blamed on the secret.
bool looksDeciphered(const AnsiBytes& text) noexcept { return text.foreignCount < text.bytes.size() / 2; }

std::string inflated(std::string_view& packed, std::uint64_t length) {
  if (length > largestReport && length > (packed.size() + 1) * largestRatio) refuse(beyondBlockText(length));
  if (length > (packed.size() + 1) * largestRatio) refuse(damagedContentText("its length cannot be true"));
  std::string plain;
  // Room for one byte more than there should be, so that too much shows as another length.
  const std::int32_t code = uncompressBytes(packed, static_cast<std::size_t>(length) + 1, plain);
  if (code == zlibNoMemory) fail(ErrorNumber::OutOfMemory);
  if (code != zlibSuccess) refuse(damagedContentText("it cannot be decompressed"));
  return plain;
}

/// The line of a form with a control sum, cut at its separators.
class SummedLine {
 public:
  /// In front of the packed text: tax kind, document code, form code. Behind it the sum, and nothing after the last
  /// ";".
  static constexpr std::size_t headFields = 3;
  static constexpr std::size_t tailFields = 2;

  explicit SummedLine(std::string_view line) {
    if (!line.starts_with(store::taxKind)) return;
    fields_.cut(line);
    if (fields_.count() <= headFields) return;
    form_ = findReportForm(fields_[headFields - 1]);
    if (form_ != nullptr && form_->summedFields.empty()) form_ = nullptr;
  }

  /// nullptr for a line without a control sum.
  [[nodiscard]] const ReportForm* form() const noexcept { return form_; }
  [[nodiscard]] std::string_view stated() const noexcept { return fields_[fields_.count() - tailFields]; }
  /// Fails where an amount is missing or none.
  [[nodiscard]] std::string computed() const {
    const std::span<const std::size_t> elements = summedElements(*form_);
    if (headFields + elements.back() + tailFields >= fields_.count()) fail(ErrorNumber::SubscriptOutOfRange);
    return CStr(controlSum(elements, fields_, headFields));
  }

 private:
  store::PackedText fields_;
  const ReportForm* form_ = nullptr;
};

}  // namespace

std::string decipherReport(std::string_view fileBytes, std::string_view password) {
  refuseEarlierStage(fileBytes);
  std::string utf16 = decipher(readEnciphered(fileBytes), password);
  const bool isPadded = removePadding(utf16);
  AnsiBytes text = ansiFromUtf16(utf16);
  if (!looksDeciphered(text)) fail(ErrorNumber::AuthenticationFailed, wrongSecretText());
  if (!isPadded) refuse(damagedContentText("its end is not that of an enciphered text"));
  if (text.foreignCount > 0) refuse(damagedContentText("it holds characters that no report has"));
  return std::move(text.bytes);
}

std::string decompressReport(std::string_view stageBytes) {
  if (!startsWithLength(stageBytes) || !stageBytes.ends_with(lineEnd))
    refuse(damagedContentText("it is not a length and a compressed text"));
  const std::string_view stated = stageBytes.substr(0, lengthDigits);
  std::uint64_t length = 0;
  if (std::from_chars(stated.data(), stated.data() + stated.size(), length).ec != std::errc())
    refuse(damagedContentText("its length cannot be true"));
  const std::string_view body = stageBytes.substr(lengthDigits, stageBytes.size() - lengthDigits - lineEnd.size());
  std::string_view used = body;
  std::string plain = startsLikeZlib(body) ? inflated(used, length) : std::string(body);
  if (used.size() != body.size()) refuse(damagedContentText("something stands behind its compressed text"));
  if (plain.size() != length)
    refuse(length > largestReport ? beyondBlockText(length) : otherLengthText(stated, plain.size()));
  return plain;
}

std::vector<std::string> linesOfReport(std::string_view plainBytes) {
  std::vector<std::string> lines;
  while (!plainBytes.empty()) {
    const std::size_t end = std::min(plainBytes.find(lineEnd), plainBytes.size());
    lines.push_back(fromAnsi(plainBytes.substr(0, end)));
    plainBytes.remove_prefix(std::min(end + lineEnd.size(), plainBytes.size()));
  }
  return lines;
}

void requireControlSum(std::string_view line, std::size_t lineNumber) {
  const SummedLine summed(line);
  if (summed.form() == nullptr) return;
  std::string computed;
  try {
    computed = summed.computed();
  } catch (const RunTimeError&) {
    refuse(unreadableSumText(lineNumber, summed.form()->kdForm));
  }
  if (computed != summed.stated()) refuse(otherSumText(lineNumber, summed.form()->kdForm, summed.stated(), computed));
}

}  // namespace tarvola::interchange
