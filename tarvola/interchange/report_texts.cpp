#include "tarvola/interchange/report_texts.h"

#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/message_box.h"
#include "tarvola/runtime/text_forms.h"
#include "tarvola/store/failure_rule.h"

namespace tarvola::interchange {

namespace {

constexpr const char* noticeTitle = "INFORMASI";
constexpr const char* pathNotFoundNotice =
    "Lokasi Atau Tempat Penyimpanan Data Yang Akan Diekspor Tidak Valid/Tidak Ditemukan";

void showNotice(std::string text) {
  showMessage({.text = std::move(text), .title = noticeTitle, .icon = MessageIcon::Information});
}

std::string periodNotice(std::string_view beginning, const ReportedPeriod& period, std::string_view ending) {
  std::string text(beginning);
  text.append("TRV PPh Masa Pasal 4 Ayat (2) Untuk :\r\n\r\n* Masa Pajak  : ").append(period.month);
  text.append("\r\n* Tahun Pajak : ").append(period.year);
  text.append("\r\n* Pembetulan  : ").append(CStr(std::int32_t{period.correction}));
  return text.append("\r\n\r\n").append(ending);
}

bool isPathNotFound() noexcept {
  try {
    throw;
  } catch (const RunTimeError& error) {
    return error.number() == static_cast<std::int32_t>(ErrorNumber::PathNotFound);
  } catch (...) {
    return false;
  }
}

std::string lineText(std::size_t lineNumber, std::string_view kdForm) {
  return "line " + std::to_string(lineNumber) + " (" + std::string(kdForm) + "): ";
}

}  // namespace

void showNothingToReport(const ReportedPeriod& period) {
  showNotice(periodNotice("", period, "Tidak Ada Pada DataBase, Proses Pelaporan Data Dibatalkan"));
}

void showReportWritten(const ReportedPeriod& period, std::string_view fileName) {
  showNotice(periodNotice("Pelaporan Data ", period,
                          std::string("Berhasil Diekspor Ke File : [").append(fileName).append("]")));
}

void showReportFailure() noexcept {
  if (isPathNotFound()) return showNotice(pathNotFoundNotice);
  showCurrentFailure();
}

void showPasswordFailure() noexcept {
  showMessage({.text = "funcHashData : \r\n" + currentFailureDescription(),
               .title = "clsEkspor1706",
               .icon = MessageIcon::Critical});
}

std::string cipherFailedText(std::string_view reason) {
  return std::string("The cipher library failed: ").append(reason);
}

std::string emptyReportText() { return "the file is empty"; }
std::string notEncipheredText() { return "this is no reporting file"; }

std::string plainStageText() {
  return "the file holds plain lines: its writing was interrupted before they were compressed and enciphered";
}

std::string compressedStageText() { return "the file is compressed and not enciphered: its writing was interrupted"; }

std::string cutOffText(std::size_t presentBytes) {
  return "the file is cut off: only the first " + std::to_string(presentBytes) + " enciphered bytes are there";
}

std::string foreignCharacterText() { return "the file is damaged: it holds a character that is not of Base64"; }
std::string damagedEnvelopeText() { return "the file is damaged: its enciphered bytes do not fit together"; }

std::string foreignCipherText(std::uint32_t version, std::uint32_t algorithm, std::uint32_t keyBits) {
  return "the file is enciphered in a way that no reporting file is, or damaged (version " + std::to_string(version) +
         ", algorithm " + std::to_string(algorithm) + ", key of " + std::to_string(keyBits) + " bits)";
}

std::string wrongSecretText() { return "the secret is not the one that the file was written with"; }

std::string damagedContentText(std::string_view what) {
  return std::string("the secret fits, but the file is damaged: ").append(what);
}

std::string otherLengthText(std::string_view statedBytes, std::size_t foundBytes) {
  return "the file says that it holds " + std::string(statedBytes) + " bytes of lines, and holds " +
         std::to_string(foundBytes);
}

std::string beyondBlockText(std::uint64_t statedBytes) {
  return "it is of " + Format(static_cast<double>(statedBytes), "#,##0") +
         " bytes of lines; a report takes no more than 327.680.000, and of more than that holds the last part alone";
}

std::string unreadableSumText(std::size_t lineNumber, std::string_view kdForm) {
  return lineText(lineNumber, kdForm) + "the amounts of its control sum cannot be read";
}

std::string otherSumText(std::size_t lineNumber, std::string_view kdForm, std::string_view stated,
                         std::string_view computed) {
  return lineText(lineNumber, kdForm) + "its control sum is " + std::string(stated) + ", its amounts give " +
         std::string(computed);
}

}  // namespace tarvola::interchange
