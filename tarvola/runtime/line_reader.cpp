// Reading files: line by line in constant memory, or whole.

#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "tarvola/runtime/error_texts.h"
#include "tarvola/runtime/file_errors.h"
#include "tarvola/runtime/text_file.h"

namespace tarvola {
namespace {

constexpr std::size_t firstBufferBytes = std::size_t{256} * 1024;
/// A longer line is no line of a text file; reading on would only eat up the memory.
constexpr std::size_t longestLineBytes = std::size_t{64} * 1024 * 1024;

/// 0 for what has no size, such as a pipe.
std::uint64_t sizeOf(const std::string& path) noexcept {
  std::error_code problem;
  if (!std::filesystem::is_regular_file(path, problem)) return 0;
  const std::uintmax_t size = std::filesystem::file_size(path, problem);
  return problem ? 0 : size;
}

}  // namespace

struct LineReader::State {
  State(FileHandle opened, std::uint64_t size) : file(std::move(opened)), total(size), buffer(firstBufferBytes) {}

  [[nodiscard]] std::string_view waiting() const noexcept { return {buffer.data() + begin, end - begin}; }

  /// Makes room behind the bytes that wait for their line end, and reads on.
  void fill() {
    std::memmove(buffer.data(), buffer.data() + begin, end - begin);
    end -= std::exchange(begin, 0);
    if (end == buffer.size()) grow();
    const std::size_t count = readBytes(file.get(), buffer.data() + end, buffer.size() - end);
    atEnd = count < buffer.size() - end;
    end += count;
  }

  void grow() {
    if (buffer.size() >= longestLineBytes) {
      fail(ErrorNumber::InvalidFileFormat, lineTooLongText(lineNumber + 1, longestLineBytes));
    }
    buffer.resize(2 * buffer.size());
  }

  std::string_view take(std::size_t length, std::size_t lineEndLength) noexcept {
    const std::string_view line = waiting().substr(0, length);
    begin += length + lineEndLength;
    handedOut += length + lineEndLength;
    ++lineNumber;
    return line;
  }

  FileHandle file;
  std::uint64_t total;
  std::uint64_t handedOut = 0;
  std::uint64_t lineNumber = 0;
  std::vector<char> buffer;
  std::size_t begin = 0;
  std::size_t end = 0;
  bool atEnd = false;
};

LineReader::LineReader(std::unique_ptr<State> state) : state_(std::move(state)) {}
LineReader::LineReader(LineReader&&) noexcept = default;
LineReader& LineReader::operator=(LineReader&&) noexcept = default;
LineReader::~LineReader() = default;

LineReader LineReader::open(const std::string& path) {
  return LineReader(std::make_unique<State>(openForReading(path), sizeOf(path)));
}

bool LineReader::next(std::string_view& line) {
  if (!state_) fail(ErrorNumber::BadFileNameOrNumber);
  std::size_t searched = 0;
  for (;;) {
    const std::string_view waiting = state_->waiting();
    const std::size_t lineFeed = waiting.find('\n', searched);
    if (lineFeed != std::string_view::npos) {
      const std::size_t closing = lineFeed > 0 && waiting[lineFeed - 1] == '\r' ? 2 : 1;
      line = state_->take(lineFeed + 1 - closing, closing);
      return true;
    }
    if (state_->atEnd) break;
    searched = waiting.size();
    state_->fill();
  }
  const std::size_t left = state_->waiting().size();
  line = state_->take(left, 0);
  return left > 0;
}

std::uint64_t LineReader::bytesRead() const noexcept { return state_ ? state_->handedOut : 0; }
std::uint64_t LineReader::bytesTotal() const noexcept { return state_ ? state_->total : 0; }

std::string readFile(const std::string& path) {
  const FileHandle file = openForReading(path);
  // One byte more than the size, so that a file of a known size is read to its end in one go.
  std::string bytes(sizeOf(path) + 1, '\0');
  std::size_t length = 0;
  for (;;) {
    const std::size_t room = bytes.size() - length;
    const std::size_t count = readBytes(file.get(), bytes.data() + length, room);
    length += count;
    if (count < room) break;
    bytes.resize(2 * bytes.size());
  }
  bytes.resize(length);
  return bytes;
}

}  // namespace tarvola
