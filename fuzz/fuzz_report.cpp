// The reading side of the reporting file: Base64, envelope, ciphers, compressed text, lines. Whatever the bytes, they
// are refused or read; and what is written is read back as it was.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "tarvola/interchange/CompressZIt.h"
#include "tarvola/interchange/enciphering.h"
#include "tarvola/interchange/hashed_data.h"
#include "tarvola/interchange/report_stages.h"
#include "tarvola/interchange/utf16.h"
#include "tarvola/interchange/zlib_codec.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/errors.h"

namespace {

using namespace tarvola;
using namespace tarvola::interchange;

void require(bool condition) {
  if (!condition) std::abort();
}

/// Runs one reader; a refusal is an answer like any other.
template <class Reader>
void tryReading(Reader reader) {
  try {
    reader();
  } catch (const RunTimeError& error) {
    require(!error.description().empty());
  }
}

void readLines(std::string_view plain) {
  std::size_t number = 0;
  for (const std::string& line : linesOfReport(plain)) requireControlSum(line, ++number);
}

void readStage(std::string_view stage) { readLines(decompressReport(stage)); }

/// The bytes as what zlib makes of them, behind their true length: so the fuzzer reaches the lines.
std::string compressedStage(std::string_view plain) {
  std::string packed;
  require(compressBytes(plain, 2 * plain.size() + 100, packed) == zlibSuccess);
  const std::string digits = std::to_string(plain.size());
  return std::string(20 - digits.size(), '0') + digits + packed + "\r\n";
}

std::string enciphered(std::string_view text) {
  const RandomSource zeros = [](std::span<std::uint8_t> bytes) {
    for (std::uint8_t& byte : bytes) byte = 0;
  };
  std::string lines;
  encipher(text, "secret", zeros, [&](std::string_view line) { lines.append(line).append("\r\n"); });
  return lines;
}

void goThereAndBack(const std::string& bytes) {
  const std::string text = fromAnsi(bytes);
  std::string utf16 = decipher(readEnciphered(enciphered(text)), "secret");
  require(removePadding(utf16));
  require(utf16 == toUtf16(text));
  require(ansiFromUtf16(utf16).bytes == bytes);

  CompressZIt zip;
  std::string changed = text;
  require(zip.CompressString(changed) == 0);
  require(zip.DecompressString(changed, zip.OriginalSize()) == 0);
  require(changed == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  tryReading([&] { readStage(decipherReport(bytes, "secret")); });
  tryReading([&] { decipher(readEnvelope(bytes), "secret"); });
  tryReading([&] { readStage(bytes); });
  tryReading([&] { readStage(decipherReport(enciphered(fromAnsi(bytes)), "secret")); });
  tryReading([&] { readStage(compressedStage(bytes)); });
  passwordOf(bytes);
  goThereAndBack(bytes);
  return 0;
}
