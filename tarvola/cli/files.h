#pragma once

#include <string>

/// The files that commands read and write.
namespace tarvola::cli {

/// Fails unless a file is there to be read. `what` is what a person should name instead: "the payment file".
void requireInputFile(const std::string& path, const char* what);

/// A file that a command writes: beside its place first, and put there once it is whole. So nothing that looks whole is
/// left by a full disk or an interruption, and a file that is replaced stays until there is a new one.
class FinishedFile {
 public:
  /// Fails if the place cannot take a file: the name belongs to a folder or a device, or, unless `force` is given, to a
  /// file that exists; a store is never replaced. Whether its folder exists is not asked.
  FinishedFile(const std::string& path, bool force);
  /// Takes away what was written unless finish was called.
  ~FinishedFile();
  FinishedFile(const FinishedFile&) = delete;
  FinishedFile& operator=(const FinishedFile&) = delete;

  /// Where to write. Nobody else may read it until it is finished.
  [[nodiscard]] const std::string& partPath() const noexcept { return partPath_; }
  /// Hands all bytes to the disk and puts the file in its place. Fails, and leaves nothing, if that cannot be done.
  void finish();

 private:
  std::string path_;
  std::string partPath_;
};

/// Of a file that is to be written: that its folder does not exist, and what to do about it.
std::string missingFolderRemedy(const std::string& path);
/// Fails unless the folder of a file that is to be written exists.
void requireFolder(const std::string& path);

}  // namespace tarvola::cli
