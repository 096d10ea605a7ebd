#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "tarvola/runtime/errors.h"

namespace tarvola {

struct FileCloser {
  void operator()(std::FILE* file) const noexcept {
    // Only for files that are given up on; whoever must know whether the close succeeded calls fclose.
    (void)std::fclose(file);
  }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

/// The failure that a code of the system (errno) means.
ErrorNumber fileError(int code) noexcept;

/// Opens a file for reading bytes. Missing is error 53, in a missing folder 76, unreadable 70, a folder 75.
FileHandle openForReading(const std::string& path);
/// Makes or empties a file. A missing folder is error 76, what may not be written 70, a folder 75.
FileHandle openForWriting(const std::string& path);
/// Makes a file where another of that name was, which is deleted; the new one has its rights. A link, a file with a
/// second name or a device is emptied instead: deleted, it would keep its contents under the name that stays. Fails as
/// openForWriting.
FileHandle openInPlaceOf(const std::string& path);

/// Fills a buffer as far as the file goes and gives the number of bytes. Fails if the file cannot be read on.
std::size_t readBytes(std::FILE* file, char* to, std::size_t size);

}  // namespace tarvola
