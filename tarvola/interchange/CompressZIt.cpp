#include "tarvola/interchange/CompressZIt.h"

#include <algorithm>
#include <limits>
#include <system_error>

#include "tarvola/interchange/zlib_codec.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/message_box.h"
#include "tarvola/runtime/utf8.h"

namespace tarvola {

namespace {

using interchange::roomToCompress;
using interchange::zlibNoMemory;
using interchange::zlibSuccess;

constexpr std::int32_t longestBytes = std::numeric_limits<std::int32_t>::max();

bool isTooLong(std::size_t bytes) noexcept { return bytes > std::size_t{longestBytes}; }

std::size_t roomOf(std::int64_t bytes) {
  return static_cast<std::size_t>(std::clamp(bytes, std::int64_t{0}, std::int64_t{longestBytes}));
}

/// An array of one element is taken for an empty one: so it stands.
bool countsAsEmpty(const std::vector<std::uint8_t>& data) { return data.size() < 2; }

std::string_view textOf(const std::vector<std::uint8_t>& data) {
  return {reinterpret_cast<const char*>(data.data()), data.size()};
}

/// A text in the code page, for as long as the text lives. One of plain ASCII, as most are, is not copied.
class AnsiView {
 public:
  explicit AnsiView(std::string_view text) : bytes_(text) {
    if (utf8::asciiLength(text) == text.size()) return;
    converted_ = toAnsi(text);
    bytes_ = converted_;
  }
  AnsiView(const AnsiView&) = delete;
  AnsiView& operator=(const AnsiView&) = delete;
  [[nodiscard]] std::string_view bytes() const noexcept { return bytes_; }

 private:
  std::string converted_;
  std::string_view bytes_;
};

}  // namespace

std::string CompressZIt::WinAPIError(std::int32_t lLastDLLError) {
  std::string text = std::system_category().message(lLastDLLError);
  // The system words even what it does not know; nobody is helped by that.
  return text.starts_with("Unknown error") ? std::string() : text;
}

bool CompressZIt::About() {
  showMessage({.text = "CompressZIt: zlib compression of byte arrays and texts",
               .title = "CompressZIt",
               .icon = MessageIcon::Information});
  return true;
}

std::int32_t CompressZIt::CompressData(std::vector<std::uint8_t>& TheData) {
  setSizes(0, 0);
  if (countsAsEmpty(TheData)) return zlibSuccess;
  if (isTooLong(TheData.size())) return zlibNoMemory;
  setSizes(0, TheData.size());
  std::string packed;
  const std::int32_t code = interchange::compressBytes(textOf(TheData), roomToCompress(TheData.size()), packed);
  if (code != zlibSuccess) return code;
  setSizes(packed.size(), TheData.size());
  TheData.assign(packed.begin(), packed.end());
  return code;
}

std::int32_t CompressZIt::CompressString(std::string& TheString) {
  setSizes(0, 0);
  std::string packed;
  {
    const AnsiView source(TheString);
    if (isTooLong(source.bytes().size())) return zlibNoMemory;
    const std::int32_t code = interchange::compressBytes(source.bytes(), roomToCompress(source.bytes().size()), packed);
    if (code != zlibSuccess) return code;
    setSizes(packed.size(), source.bytes().size());
  }
  TheString = fromAnsi(packed);
  return zlibSuccess;
}

std::int32_t CompressZIt::DecompressData(std::vector<std::uint8_t>& TheData, std::int32_t OrigSize) {
  setSizes(0, 0);
  if (countsAsEmpty(TheData)) return zlibSuccess;
  if (isTooLong(TheData.size())) return zlibNoMemory;
  std::string_view source = textOf(TheData);
  std::string plain;
  // One byte more than the caller names: so it stands.
  const std::int32_t code = interchange::uncompressBytes(source, roomOf(std::int64_t{OrigSize} + 1), plain);
  if (code != zlibSuccess) return code;
  setSizes(TheData.size(), plain.size());
  TheData.assign(plain.begin(), plain.end());
  return code;
}

std::int32_t CompressZIt::DecompressString(std::string& TheString, std::int32_t OrigSize) {
  setSizes(0, 0);
  std::string plain;
  {
    const AnsiView packed(TheString);
    std::string_view source = packed.bytes();
    if (isTooLong(source.size())) return zlibNoMemory;
    const std::int32_t code = interchange::uncompressBytes(source, roomOf(OrigSize), plain);
    if (code != zlibSuccess) return code;
    setSizes(packed.bytes().size(), plain.size());
  }
  TheString = fromAnsi(plain);
  return zlibSuccess;
}

void CompressZIt::setSizes(std::size_t compressed, std::size_t original) noexcept {
  compressedSize_ = static_cast<std::int32_t>(compressed);
  originalSize_ = static_cast<std::int32_t>(original);
}

}  // namespace tarvola
