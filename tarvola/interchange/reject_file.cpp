#include "tarvola/interchange/reject_file.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "tarvola/interchange/import_account.h"
#include "tarvola/interchange/import_texts.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/store/store_file.h"

namespace tarvola::interchange {

namespace {

constexpr char separator = ';';
constexpr std::string_view lineEnd = "\r\n";

/// A reason is one column on one line.
std::string asColumn(std::string_view reason) {
  std::string column(reason);
  std::replace_if(
      column.begin(), column.end(), [](char c) { return c == separator || c == '\r' || c == '\n'; }, ',');
  return column;
}

/// What cannot become the reject file shows before a line is stored. At the end it would be too late: the lines would
/// be in the store, and those that are not nowhere.
void requirePlace(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  std::error_code ignored;
  if (!folder.empty() && !std::filesystem::is_directory(folder, ignored))
    fail(ErrorNumber::PathNotFound, rejectFileWithoutFolderText(path, folder.string()));
  if (std::filesystem::is_directory(path, ignored))
    fail(ErrorNumber::PathFileAccessError, rejectFileIsFolderText(path));
  if (store::isStoreFile(path)) fail(ErrorNumber::PermissionDenied, rejectFileIsStoreText(path));
}

}  // namespace

RejectFile::RejectFile(std::string path, FileEncoding encoding, const ExchangeLayout& layout)
    : path_(std::move(path)), partPath_(path_ + ".part"), encoding_(encoding), layout_(layout) {
  if (path_.empty()) return;
  requirePlace(path_);
  file_.open(partPath_, std::ios::binary | std::ios::trunc);
  if (!file_) fail(ErrorNumber::PermissionDenied, rejectFileForbiddenText(path_));
}

RejectFile::~RejectFile() {
  if (!file_.is_open()) return;
  file_.close();
  std::error_code error;
  std::filesystem::remove(partPath_, error);
}

void RejectFile::add(std::string_view lineBytes, std::string_view reason) {
  if (!file_.is_open()) return;
  if (!std::exchange(hasLines_, true)) {
    if (encoding_ == FileEncoding::Utf8) write(utf8Mark);
    write(encoded(layout_.header()));
    write(";" + encoded(refusalReasonTitle) + std::string(lineEnd));
  }
  write(lineBytes);
  write(std::string(missingSeparators(lineBytes), separator));
  write(encoded(asColumn(reason)));
  write(lineEnd);
}

void RejectFile::finish() {
  if (!file_.is_open()) return;
  file_.close();
  if (!file_) fail(ErrorNumber::DiskFull);
  std::error_code error;
  if (hasLines_)
    std::filesystem::rename(partPath_, path_, error);
  else
    std::filesystem::remove(partPath_, error);
  if (error) fail(ErrorNumber::PathFileAccessError);
}

void RejectFile::write(std::string_view bytes) {
  file_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file_) fail(ErrorNumber::DiskFull);
}

/// The reason stands behind the last column of the layout, or behind whatever a line has too much.
std::size_t RejectFile::missingSeparators(std::string_view lineBytes) const {
  const auto present = static_cast<std::size_t>(std::count(lineBytes.begin(), lineBytes.end(), separator));
  return present < layout_.columnCount ? layout_.columnCount - present : 1;
}

std::string RejectFile::encoded(std::string_view text) const {
  return encoding_ == FileEncoding::Ansi ? toAnsi(text) : std::string(text);
}

}  // namespace tarvola::interchange
