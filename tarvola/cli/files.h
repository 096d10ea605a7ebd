#pragma once

#include <string>

/// The files that commands read and write.
namespace tarvola::cli {

class Messages;

/// Fails unless a file is there to be read; a folder is none, nor is a device that would never end. `what` is what a
/// person should name instead: "the payment file".
void requireInputFile(const std::string& path, const char* what);

/// Fails if a file that is to be written is one that is read, by whatever name: what it holds would be lost. Either may
/// be "".
void requireOtherFile(const std::string& written, const std::string& read);

/// Fails unless lines that are refused may go to a file: it may be neither the one they come from nor what a
/// store keeps beside itself. That it is no store is seen to where they are written.
void requirePlaceOfRefused(const std::string& path, const std::string& input);

/// A file that a command writes: beside its place first, and put there once it is whole. So nothing that looks whole is
/// left by a full disk or an interruption, and a file that is replaced stays until there is a new one. A signal that
/// ends the process takes away what was written till then; only a process that is killed outright leaves it.
class FinishedFile {
 public:
  /// Fails if the place cannot take a file: its folder is not there; the name belongs to a folder, a device, a store or
  /// what a store keeps beside itself, or, unless `force` is given, to a file that exists; or nothing can be written
  /// there.
  FinishedFile(const std::string& path, bool force);
  /// Takes away what was written unless finish was called.
  ~FinishedFile();
  FinishedFile(const FinishedFile&) = delete;
  FinishedFile& operator=(const FinishedFile&) = delete;

  /// Where to write. Nobody else may read it until it is finished.
  [[nodiscard]] const std::string& partPath() const noexcept { return partPath_; }
  /// Fails if a message tells of a failure. One of the disk is told with the name of the file and what to do about it.
  void requireWritten(const Messages& messages) const;
  /// Fails with such a failure of the disk.
  [[noreturn]] void failUnwritten(const std::string& failure) const;
  /// Hands all bytes to the disk and puts the file in its place. Fails, and leaves nothing, if that cannot be done.
  void finish();

 private:
  std::string path_;
  std::string partPath_;
};

/// Of a file that is to be written: that its folder does not exist, and what to do about it.
std::string missingFolderRemedy(const std::string& path);

}  // namespace tarvola::cli
