#include "tarvola/interchange/block_reader.h"

#include <algorithm>
#include <fstream>

#include "tarvola/runtime/code_page.h"

namespace tarvola::interchange {

namespace {

constexpr std::int32_t usualBlockBytes = 327'680'000;
constexpr std::int32_t largestBlockBytes = 655'350'000;
constexpr auto emptyFileNumber = static_cast<std::int32_t>(0x80040001U);
constexpr const char* emptyFileText = "File Does Not Exist";

/// The bytes of the last block: of the remainder behind the whole blocks, where there is one.
std::int64_t lastBlockBytes(std::int64_t lengthBytes, std::int64_t blockBytes) {
  const std::int64_t remainder = lengthBytes % blockBytes;
  return remainder > 0 ? remainder : blockBytes;
}

std::string lastBytes(std::ifstream& file, std::int64_t lengthBytes, std::int64_t wantedBytes) {
  std::string bytes(static_cast<std::size_t>(wantedBytes), ' ');
  file.seekg(lengthBytes - wantedBytes);
  file.read(bytes.data(), wantedBytes);
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

}  // namespace

std::string BlockReader::pReadFile(const std::string& strFile) noexcept {
  std::int64_t ignored = 0;
  return pReadFileSize(strFile, ignored);
}

std::string BlockReader::pReadFileSize(const std::string& strFile, std::int64_t& lengthBytes) noexcept try {
  return fromAnsi(readBytes(strFile, lengthBytes));
} catch (...) {
  return {};
}

void BlockReader::settleBlockBytes() noexcept {
  if (blockBytes == 0) blockBytes = usualBlockBytes;
  blockBytes = std::min(blockBytes, largestBlockBytes);
}

bool BlockReader::readsWhole(std::int64_t lengthBytes) noexcept {
  settleBlockBytes();
  return lengthBytes <= blockBytes;
}

std::string BlockReader::readBytes(const std::string& path, std::int64_t& lengthBytes) noexcept try {
  lastErrorNumber = 0;
  lastErrorText.clear();
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  lengthBytes = std::max(std::int64_t{0}, static_cast<std::int64_t>(file.tellg()));
  if (lengthBytes == 0) {
    lastErrorNumber = emptyFileNumber;
    lastErrorText = emptyFileText;
    return {};
  }
  settleBlockBytes();
  return lastBytes(file, lengthBytes, lastBlockBytes(lengthBytes, blockBytes));
} catch (...) {
  return {};
}

}  // namespace tarvola::interchange
