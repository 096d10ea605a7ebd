#include "tarvola/runtime/file_errors.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace tarvola {
namespace {

struct FileError {
  int code;
  ErrorNumber number;
};

constexpr FileError fileErrors[] = {
    {.code = ENOENT, .number = ErrorNumber::PathNotFound},
    {.code = ENOTDIR, .number = ErrorNumber::PathNotFound},
    {.code = EACCES, .number = ErrorNumber::PermissionDenied},
    {.code = EPERM, .number = ErrorNumber::PermissionDenied},
    {.code = EROFS, .number = ErrorNumber::PermissionDenied},
    {.code = ETXTBSY, .number = ErrorNumber::PermissionDenied},
    {.code = EISDIR, .number = ErrorNumber::PathFileAccessError},
    {.code = ENOSPC, .number = ErrorNumber::DiskFull},
    {.code = EDQUOT, .number = ErrorNumber::DiskFull},
    {.code = ENOMEM, .number = ErrorNumber::OutOfMemory},
};

/// The system reads a C text, so a path with a null character would name another file.
void requireName(const std::string& path) {
  if (path.find('\0') != std::string::npos) fail(ErrorNumber::BadFileNameOrNumber);
}

FileHandle open(const std::string& path, const char* mode) {
  requireName(path);
  FileHandle file(std::fopen(path.c_str(), mode));
  // The callers move whole blocks; a second buffer between would only copy them once more.
  if (file) std::setvbuf(file.get(), nullptr, _IONBF, 0);
  return file;
}

bool hasFolder(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  std::error_code ignored;
  return folder.empty() || std::filesystem::is_directory(folder, ignored);
}

}  // namespace

ErrorNumber fileError(int code) noexcept {
  for (const FileError& error : fileErrors) {
    if (error.code == code) return error.number;
  }
  return ErrorNumber::DeviceIoError;
}

FileHandle openForReading(const std::string& path) {
  FileHandle file = open(path, "rb");
  if (file) return file;
  const int code = errno;
  fail(code == ENOENT && hasFolder(path) ? ErrorNumber::FileNotFound : fileError(code));
}

FileHandle openForWriting(const std::string& path) {
  FileHandle file = open(path, "wb");
  if (!file) fail(fileError(errno));
  return file;
}

FileHandle openInPlaceOf(const std::string& path) {
  namespace fs = std::filesystem;
  requireName(path);
  std::error_code ignored;
  const fs::file_status old = fs::symlink_status(path, ignored);
  const bool isDeleted =
      fs::is_regular_file(old) && fs::hard_link_count(path, ignored) == 1 && fs::remove(path, ignored);
  FileHandle file = openForWriting(path);
  if (isDeleted) fs::permissions(path, old.permissions(), ignored);
  return file;
}

std::size_t readBytes(std::FILE* file, char* to, std::size_t size) {
  errno = 0;
  const std::size_t count = std::fread(to, 1, size, file);
  if (count < size && std::ferror(file) != 0) fail(fileError(errno));
  return count;
}

}  // namespace tarvola
