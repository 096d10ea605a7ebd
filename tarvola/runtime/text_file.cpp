#include "tarvola/runtime/text_file.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <utility>

#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/file_errors.h"

namespace tarvola {
namespace {

constexpr std::size_t blockBytes = std::size_t{64} * 1024;

}  // namespace

struct TextFile::State {
  explicit State(FileHandle opened) : file(std::move(opened)) { buffer.reserve(2 * blockBytes); }

  ~State() {
    if (!file) return;
    try {
      writeOut();
    } catch (const RunTimeError&) {
      // Whoever drops a file without closing it has given up on what is in it.
    }
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  void writeOut() {
    if (failure) fail(*failure);
    errno = 0;
    const bool whole = std::fwrite(buffer.data(), 1, buffer.size(), file.get()) == buffer.size();
    const int code = errno;
    // What did not get through must not be written a second time behind the part that did.
    buffer.clear();
    if (!whole) remember(code);
  }

  void writeOutIfFull() {
    if (buffer.size() >= blockBytes) writeOut();
  }

  void close() {
    std::FILE* closing = file.release();
    errno = 0;
    if (std::fclose(closing) != 0 && !failure) failure = fileError(errno);
    if (failure) fail(*failure);
  }

  [[noreturn]] void remember(int code) {
    failure = fileError(code);
    fail(*failure);
  }

  FileHandle file;
  std::string buffer;
  std::optional<ErrorNumber> failure;
};

TextFile::TextFile(std::unique_ptr<State> state) : state_(std::move(state)) {}
TextFile::TextFile(TextFile&&) noexcept = default;
TextFile& TextFile::operator=(TextFile&&) noexcept = default;
TextFile::~TextFile() = default;

TextFile TextFile::create(const std::string& path) { return TextFile(std::make_unique<State>(openForWriting(path))); }
TextFile TextFile::createAnew(const std::string& path) {
  return TextFile(std::make_unique<State>(openInPlaceOf(path)));
}

void TextFile::WriteLine(std::string_view text) {
  if (!state_ || !state_->file) fail(ErrorNumber::BadFileNameOrNumber);
  appendToAnsi(state_->buffer, text);
  state_->buffer += "\r\n";
  state_->writeOutIfFull();
}

void TextFile::WriteBytes(std::string_view bytes) {
  if (!state_ || !state_->file) fail(ErrorNumber::BadFileNameOrNumber);
  while (!bytes.empty()) {
    const std::size_t taken = std::min(bytes.size(), blockBytes);
    state_->buffer += bytes.substr(0, taken);
    bytes.remove_prefix(taken);
    state_->writeOutIfFull();
  }
}

void TextFile::Close() {
  if (!state_ || !state_->file) return;
  try {
    state_->writeOut();
  } catch (const RunTimeError&) {
    // The failure is remembered; the file is closed all the same, and close() tells of it.
  }
  state_->close();
}

}  // namespace tarvola
