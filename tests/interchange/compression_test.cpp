// zlib behind byte arrays and texts.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tarvola/interchange/CompressZIt.h"
#include "tarvola/runtime/code_page.h"
#include "tests/interchange/other_ciphers.h"
#include "tests/support/messages.h"

namespace tarvola::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::int32_t bufferTooSmall = static_cast<std::int32_t>(CZErrors::InsufficientBuffer);
constexpr std::int32_t damagedData = -3;
constexpr std::int32_t noMemory = -4;

Bytes bytesOf(std::string_view text) { return {text.begin(), text.end()}; }

/// Every character of the code page, many times over.
std::string everyCharacter() {
  std::string bytes;
  for (int i = 0; i < 16 * 256; ++i) bytes += static_cast<char>(i % 256);
  return fromAnsi(bytes);
}

TEST(Compression, ATextComesBackAsItWas) {
  for (const std::string& text : {std::string("a"), std::string(100'000, 'x'), std::string("naïve €"), everyCharacter(),
                                  std::string("with\0null", 9)}) {
    CompressZIt zip;
    std::string changed = text;
    ASSERT_EQ(zip.CompressString(changed), 0);
    const std::int32_t originalSize = zip.OriginalSize();
    EXPECT_NE(changed, text);
    EXPECT_EQ(zip.DecompressString(changed, originalSize), 0);
    EXPECT_EQ(changed, text);
  }
}

TEST(Compression, BytesComeBackAsTheyWere) {
  for (const Bytes& bytes : {Bytes{0, 0}, bytesOf(std::string(100'000, 'x')), bytesOf(toAnsi(everyCharacter()))}) {
    CompressZIt zip;
    Bytes changed = bytes;
    ASSERT_EQ(zip.CompressData(changed), 0);
    EXPECT_EQ(zip.CompressedSize(), static_cast<std::int32_t>(changed.size()));
    EXPECT_EQ(zip.OriginalSize(), static_cast<std::int32_t>(bytes.size()));
    EXPECT_EQ(zip.DecompressData(changed, static_cast<std::int32_t>(bytes.size())), 0);
    EXPECT_EQ(changed, bytes);
    EXPECT_EQ(zip.OriginalSize(), static_cast<std::int32_t>(bytes.size()));
  }
}

TEST(Compression, WrittenInTheCodePageACompressedTextIsAZlibStreamForOthers) {
  const std::string text = "113;01;F113204;Bank Café €;" + std::string(1000, '0');
  std::string compressed = text;
  ASSERT_EQ(CompressZIt().CompressString(compressed), 0);
  EXPECT_EQ(toAnsi(compressed).substr(0, 2), "\x78\x9C");
  EXPECT_EQ(OtherCiphers().inflate(toAnsi(compressed)), toAnsi(text));
}

TEST(Compression, CompressedCharactersAreThoseOfTheCodePage) {
  std::string text;
  ASSERT_EQ(CompressZIt().CompressString(text), 0);
  // zlib's form of nothing is 78 9C 03 00 00 00 00 01; 9C is the letter œ in the code page.
  EXPECT_EQ(text, std::string("x\u0153\x03\0\0\0\0\x01", 9));
}

TEST(Compression, AnEmptyTextGivesAStreamOfAFewBytesAndOriginalSizeZero) {
  CompressZIt zip;
  std::string text;
  ASSERT_EQ(zip.CompressString(text), 0);
  EXPECT_EQ(zip.CompressedSize(), 8);
  EXPECT_EQ(zip.OriginalSize(), 0);
  EXPECT_EQ(zip.DecompressString(text, 0), 0);
  EXPECT_EQ(text, "");
}

TEST(Compression, SizesAreCountedInCharactersOfTheCodePage) {
  CompressZIt zip;
  std::string text = "é€";
  ASSERT_EQ(zip.CompressString(text), 0);
  EXPECT_EQ(zip.OriginalSize(), 2);
  EXPECT_EQ(zip.CompressedSize(), static_cast<std::int32_t>(toAnsi(text).size()));
}

TEST(Compression, ACharacterOutsideTheCodePageComesBackAsAQuestionMark) {
  CompressZIt zip;
  std::string text = "a\u65e5b";
  ASSERT_EQ(zip.CompressString(text), 0);
  ASSERT_EQ(zip.DecompressString(text, 3), 0);
  EXPECT_EQ(text, "a?b");
}

TEST(Compression, AnArrayOfOneElementIsLeftAloneAndBothSizesStayZero) {
  CompressZIt zip;
  Bytes one = {65};
  EXPECT_EQ(zip.CompressData(one), 0);
  EXPECT_EQ(one, Bytes{65});
  EXPECT_EQ(zip.CompressedSize(), 0);
  EXPECT_EQ(zip.OriginalSize(), 0);
  EXPECT_EQ(zip.DecompressData(one, 10), 0);
  EXPECT_EQ(one, Bytes{65});
}

TEST(Compression, AnUnallocatedArrayGivesZeroWithoutAFailure) {
  CompressZIt zip;
  Bytes none;
  EXPECT_EQ(zip.CompressData(none), 0);
  EXPECT_EQ(zip.DecompressData(none, 10), 0);
  EXPECT_TRUE(none.empty());
}

TEST(Compression, SizesOfTheOperationBeforeDoNotStand) {
  CompressZIt zip;
  Bytes many(1000, 7);
  ASSERT_EQ(zip.CompressData(many), 0);
  Bytes one = {65};
  zip.CompressData(one);
  EXPECT_EQ(zip.CompressedSize(), 0);
  EXPECT_EQ(zip.OriginalSize(), 0);
}

TEST(Decompression, AnOriginalSizeThatIsTooSmallLeavesTheTextCompressed) {
  CompressZIt zip;
  std::string text(100, 'x');
  ASSERT_EQ(zip.CompressString(text), 0);
  const std::string compressed = text;
  EXPECT_EQ(zip.DecompressString(text, 99), bufferTooSmall);
  EXPECT_EQ(text, compressed);
  EXPECT_EQ(zip.CompressedSize(), 0);
  EXPECT_EQ(zip.OriginalSize(), 0);
}

TEST(Decompression, OfAnArrayHasRoomForOneByteMoreThanTheCallerNames) {
  CompressZIt zip;
  Bytes bytes(100, 7);
  ASSERT_EQ(zip.CompressData(bytes), 0);
  Bytes again = bytes;
  EXPECT_EQ(zip.DecompressData(again, 98), bufferTooSmall);
  EXPECT_EQ(again, bytes);
  EXPECT_EQ(zip.OriginalSize(), 0);
  EXPECT_EQ(zip.DecompressData(again, 99), 0);
  EXPECT_EQ(again, Bytes(100, 7));
}

TEST(Decompression, AnOriginalSizeOfZeroOrBelowIsTooSmall) {
  for (const std::int32_t size : {0, -1, -2, std::numeric_limits<std::int32_t>::min()}) {
    CompressZIt zip;
    for (std::string text : {"a", "abc"}) {
      ASSERT_EQ(zip.CompressString(text), 0);
      EXPECT_EQ(zip.DecompressString(text, size), bufferTooSmall) << size;
    }
    Bytes bytes = bytesOf("abc");
    ASSERT_EQ(zip.CompressData(bytes), 0);
    EXPECT_EQ(zip.DecompressData(bytes, size), bufferTooSmall) << size;
  }
}

TEST(Decompression, TheLargestOriginalSizeIsRoomOrTooLittleMemoryButNoCrash) {
  CompressZIt zip;
  std::string text = "abc";
  ASSERT_EQ(zip.CompressString(text), 0);
  const std::int32_t code = zip.DecompressString(text, std::numeric_limits<std::int32_t>::max());
  EXPECT_TRUE(code == 0 ? text == "abc" : code == noMemory);
}

TEST(Decompression, WhatIsNoStreamOrADamagedOneStaysAsItIs) {
  CompressZIt zip;
  std::string plain = "no stream at all";
  EXPECT_EQ(zip.DecompressString(plain, 100), damagedData);
  EXPECT_EQ(plain, "no stream at all");

  Bytes bytes(1000, 7);
  ASSERT_EQ(zip.CompressData(bytes), 0);
  bytes.pop_back();
  const Bytes cut = bytes;
  EXPECT_EQ(zip.DecompressData(bytes, 1000), damagedData);
  EXPECT_EQ(bytes, cut);
}

TEST(Compression, IncompressibleDataOfAnyLengthFindsRoomAtTheFirstTry) {
  std::mt19937 random(20090210);
  for (const int length : {2, 3, 10, 87, 88, 100, 255, 1000, 16383, 16384, 70000, 300000}) {
    Bytes bytes(static_cast<std::size_t>(length));
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    EXPECT_EQ(CompressZIt().CompressData(bytes), 0) << length;
  }
}

TEST(CompressZItClass, GivesTheSystemsTextForACodeAndNothingForAnUnknownOne) {
  EXPECT_EQ(CompressZIt().WinAPIError(2), std::string(std::strerror(2)));
  EXPECT_EQ(CompressZIt().WinAPIError(123456), "");
  EXPECT_EQ(CompressZIt().WinAPIError(-1), "");
}

TEST(CompressZItClass, ShowsWhatItIs) {
  CapturedMessages messages;
  EXPECT_TRUE(CompressZIt().About());
  ASSERT_EQ(messages.boxes().size(), 1U);
  EXPECT_EQ(messages.boxes().front().icon, MessageIcon::Information);
  EXPECT_THAT(messages.texts().front(), testing::HasSubstr("CompressZIt"));
}

TEST(CompressZItClass, StartsWithBothSizesZero) {
  EXPECT_EQ(CompressZIt().CompressedSize(), 0);
  EXPECT_EQ(CompressZIt().OriginalSize(), 0);
}

}  // namespace
}  // namespace tarvola::test
