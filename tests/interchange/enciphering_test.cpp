// Digests, Base64, the envelope and RC2: against a text of the platform's own component and against other
// implementations.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tarvola/interchange/enciphering.h"
#include "tarvola/interchange/hashed_data.h"
#include "tarvola/interchange/report_texts.h"
#include "tarvola/interchange/utf16.h"
#include "tarvola/runtime/code_page.h"
#include "tarvola/runtime/errors.h"
#include "tests/interchange/other_ciphers.h"

namespace tarvola::test {
namespace {

using namespace tarvola::interchange;

/// Salt 10, 11 ... 1F and initial vector A0 ... A7, hexadecimal.
void fillKnown(std::span<std::uint8_t> bytes) {
  std::uint8_t next = bytes.size() == Salt().size() ? 0x10 : 0xA0;
  for (std::uint8_t& byte : bytes) byte = next++;
}

std::vector<std::string> linesOf(std::string_view content, std::string_view password,
                                 const RandomSource& random = fillKnown) {
  std::vector<std::string> lines;
  encipher(content, password, random, [&](std::string_view line) { lines.emplace_back(line); });
  return lines;
}

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

/// The content as UTF-16; "wrong password" where the padding says so.
std::string opened(std::string_view base64, std::string_view password) {
  std::string utf16 = decipher(readEnciphered(base64), password);
  return removePadding(utf16) ? utf16 : "wrong password";
}

/// The description of the failure, "" without one.
template <class Action>
std::string failureOf(Action action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::InvalidFileFormat));
    return error.description();
  }
  return "";
}

std::string readFailure(std::string_view base64) {
  return failureOf([&] { readEnciphered(base64); });
}
std::string envelopeFailure(const std::string& bytes) {
  return failureOf([&] { readEnvelope(bytes); });
}

/// Written by the platform's own cipher component, of release 2.0.
constexpr const char* componentsOwn =
    "MGoGCSsGAQQBgjdYA6BdMFsGCisGAQQBgjdYAwGgTTBLAgMCAAACAmYCAgIAgAQI\r\n"
    "Pz8ylwBOw2MEENsET3V1ObwGwvnjZqYDgZYEIGgSoptbdq8KwiswDqh3e/yjBt3p\r\n"
    "r2IC75pMoqedV5f4\r\n";

struct Vector {
  const char* name;
  const char* password;
  const char* content;
  const char* text;
};

constexpr Vector vectors[] = {
    {"one block", "secret", "Ab1",
     "MFIGCSsGAQQBgjdYA6BFMEMGCisGAQQBgjdYAwGgNTAzAgMCAAECAmYCAgIAgAQI\r\n"
     "oKGio6SlpqcEEBAREhMUFRYXGBkaGxwdHh8ECKVDO+eC6mAo\r\n"},
    {"a whole block of padding", "secret", "abcd",
     "MFoGCSsGAQQBgjdYA6BNMEsGCisGAQQBgjdYAwGgPTA7AgMCAAECAmYCAgIAgAQI\r\n"
     "oKGio6SlpqcEEBAREhMUFRYXGBkaGxwdHh8EEC5kiQpj2xwuPyLQBEknd1A=\r\n"},
    {"letters beyond ASCII, a surrogate pair", "päss€", "naïve € 😀",
     "MGIGCSsGAQQBgjdYA6BVMFMGCisGAQQBgjdYAwGgRTBDAgMCAAECAmYCAgIAgAQI\r\n"
     "oKGio6SlpqcEEBAREhMUFRYXGBkaGxwdHh8EGOM93Mu/bPDlNfws0Ytcblny3qr3\r\n"
     "vqw3/w==\r\n"},
};

TEST(Enciphering, GivesTheKnownTexts) {
  for (const Vector& known : vectors)
    EXPECT_EQ(joined(linesOf(known.content, known.password)), known.text) << known.name;
}

TEST(Enciphering, TheKnownTextsAreReadBack) {
  for (const Vector& known : vectors)
    EXPECT_EQ(opened(known.text, known.password), toUtf16(known.content)) << known.name;
}

TEST(Enciphering, TheComponentsOwnTextIsRead) {
  EXPECT_EQ(opened(componentsOwn, "p9r8688"), toUtf16("prodProducerID"));
}

TEST(Enciphering, UnderTheComponentsSaltAndVectorTheBytesAreTheComponentsButForTheRelease) {
  const EncipheredText component = readEnciphered(componentsOwn);
  const auto sameNoise = [&](std::span<std::uint8_t> bytes) {
    if (bytes.size() == component.salt.size())
      std::copy(component.salt.begin(), component.salt.end(), bytes.begin());
    else
      std::copy(component.iv.begin(), component.iv.end(), bytes.begin());
  };
  std::string theirs = readBase64(componentsOwn).bytes;
  const std::string ours = readBase64(joined(linesOf("prodProducerID", "p9r8688", sameNoise))).bytes;
  // 131072 is 02 00 00, 131073 is 02 00 01.
  const std::size_t release = theirs.find(std::string("\x02\x03\x02\x00\x00", 5)) + 4;
  ASSERT_LT(release, theirs.size());
  theirs[release] = '\x01';
  EXPECT_EQ(ours, theirs);
}

TEST(Enciphering, SaltAndVectorAreNewForEachText) {
  const EncipheredText first = readEnciphered(joined(linesOf("abc", "secret", fillFromSystem)));
  const EncipheredText second = readEnciphered(joined(linesOf("abc", "secret", fillFromSystem)));
  EXPECT_NE(first.salt, second.salt);
  EXPECT_NE(first.iv, second.iv);
  EXPECT_NE(first.ciphertext, second.ciphertext);
}

TEST(Enciphering, OthersReadTextsOfAllLengthsAroundTheBlocksAndTheLengthForms) {
  const OtherCiphers others;
  for (const int length : {0, 1, 3, 4, 5, 25, 26, 27, 28, 29, 59, 60, 61, 91, 92, 123, 124, 32700, 32767, 100000}) {
    const std::string content(static_cast<std::size_t>(length), 'x');
    const std::string text = joined(linesOf(content, "BF3096A9F3FB75DF", fillFromSystem));
    EXPECT_EQ(others.decipher(text, "BF3096A9F3FB75DF"), OtherCiphers::wide(content)) << length;
    EXPECT_EQ(opened(text, "BF3096A9F3FB75DF"), OtherCiphers::wide(content)) << length;
  }
}

TEST(Enciphering, WhatOthersEncipheredIsRead) {
  const Salt salt = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 255};
  const InitialVector iv = {255, 0, 1, 2, 3, 4, 5, 6};
  const std::string content = OtherCiphers::wide("113;00;1.0;");
  const std::string ciphertext = OtherCiphers().encipher(content, "secret", std::string(salt.begin(), salt.end()),
                                                         std::string(iv.begin(), iv.end()));
  std::string utf16 = decipher({.iv = iv, .salt = salt, .ciphertext = ciphertext}, "secret");
  ASSERT_TRUE(removePadding(utf16));
  EXPECT_EQ(utf16, content);
}

TEST(Enciphering, ALongTextComesBack) {
  std::string content = "x";
  for (int i = 0; i < 20'000; ++i) content += i % 3 == 0 ? "😀" : "€";
  EXPECT_EQ(opened(joined(linesOf(content, "secret")), "secret"), toUtf16(content));
}

TEST(Enciphering, ABrokenSequenceIsEncipheredAsTheReplacementCharacter) {
  EXPECT_EQ(opened(joined(linesOf("a\xC3(", "secret")), "secret"), std::string("a\0\xFD\xFF(\0", 6));
}

TEST(Enciphering, NoLineIsEmptyWhereTheLastIsExactlyFull) {
  std::size_t fullEndings = 0;
  for (std::size_t length = 0; length < 400; ++length) {
    const std::vector<std::string> lines = linesOf(std::string(length, 'x'), "secret");
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) EXPECT_EQ(lines[i].size(), 64U);
    EXPECT_FALSE(lines.back().empty());
    EXPECT_LE(lines.back().size(), 64U);
    if (lines.back().size() == 64) ++fullEndings;
  }
  EXPECT_GT(fullEndings, 0U);
}

TEST(Deciphering, AWrongPasswordShowsInThePaddingOrGivesRubbish) {
  const std::string text = joined(linesOf("113;00;1.0;10022009;", "secret"));
  std::size_t refused = 0;
  for (int i = 0; i < 400; ++i) {
    const std::string result = opened(text, "wrong " + std::to_string(i));
    EXPECT_NE(result, toUtf16("113;00;1.0;10022009;"));
    if (result == "wrong password") ++refused;
  }
  // By chance 1 of 256 looks padded, and of those the half have whole code units.
  EXPECT_GT(refused, 390U);
}

TEST(Deciphering, OnlyWholePaddingOverWholeCodeUnitsIsTakenOff) {
  struct Case {
    std::string bytes;
    bool isPadded;
    std::string rest;
  };
  const std::string full(8, '\x08');
  for (const Case& row :
       {Case{full, true, ""}, Case{std::string("ab\6\6\6\6\6\6"), true, "ab"}, Case{"ab\6\6\6\5\6\6", false, ""},
        Case{"abc\5\5\5\5\5", false, ""}, Case{"abcdefg\1", false, ""}, Case{std::string("abcdef\2\2"), true, "abcdef"},
        Case{std::string(8, '\0'), false, ""}, Case{std::string(16, '\x09'), false, ""}, Case{"", false, ""},
        Case{"\x04\x04", false, ""}}) {
    std::string changed = row.bytes;
    EXPECT_EQ(removePadding(changed), row.isPadded) << row.bytes;
    EXPECT_EQ(changed, row.isPadded ? row.rest : row.bytes);
  }
}

TEST(Deciphering, ACiphertextOfBrokenBlocksIsDamage) {
  EXPECT_EQ(failureOf([] { decipher({.iv = {}, .salt = {}, .ciphertext = "1234567"}, "secret"); }),
            damagedEnvelopeText());
  EXPECT_EQ(failureOf([] { decipher({.iv = {}, .salt = {}, .ciphertext = ""}, "secret"); }), damagedEnvelopeText());
}

TEST(Base64Reading, IgnoresWhiteSpaceAndMissingLineBreaks) {
  std::string oneLine;
  std::string spaced;
  for (const char c : std::string_view(vectors[2].text)) {
    if (c != '\r' && c != '\n') oneLine += c;
    spaced.append({c, ' ', '\t', '\n'});
  }
  EXPECT_EQ(opened(oneLine, vectors[2].password), toUtf16(vectors[2].content));
  EXPECT_EQ(opened(spaced, vectors[2].password), toUtf16(vectors[2].content));
  EXPECT_EQ(opened(oneLine.substr(0, oneLine.find('=')), vectors[2].password), toUtf16(vectors[2].content));
}

TEST(Base64Reading, KnowsItsAlphabetAndNothingElse) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    const bool isLetter =
        (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '/';
    const bool isBlank = c == ' ' || (c >= '\t' && c <= '\r');
    EXPECT_EQ(readBase64(std::string(4, c)).isWhole, isLetter || isBlank || c == '=') << byte;
    EXPECT_EQ(readBase64(std::string(4, c)).bytes.size(), isLetter ? 3U : 0U) << byte;
  }
  EXPECT_FALSE(readBase64("AA==AA").isWhole);
}

TEST(Base64Reading, AForeignCharacterIsDamageInAnEncipheredTextAndNothingKnownElsewhere) {
  std::string text = vectors[0].text;
  text[80] = '*';
  EXPECT_EQ(readFailure(text), foreignCharacterText());
  EXPECT_EQ(readFailure("Kode Form Bukti Potong;Masa Pajak"), notEncipheredText());
}

TEST(Base64Writing, GivesTheTextsThatEverybodyKnows) {
  struct Case {
    const char* bytes;
    const char* text;
  };
  for (const Case& row : {Case{"", ""}, Case{"f", "Zg=="}, Case{"fo", "Zm8="}, Case{"foo", "Zm9v"},
                          Case{"foob", "Zm9vYg=="}, Case{"fooba", "Zm9vYmE="}, Case{"foobar", "Zm9vYmFy"}}) {
    std::string text;
    const LineSink sink = [&](std::string_view line) { text += line; };
    Base64Lines lines(sink);
    for (const char byte : std::string_view(row.bytes)) lines.add(std::string_view(&byte, 1));
    lines.finish();
    EXPECT_EQ(text, row.text);
    EXPECT_EQ(readBase64(row.text).bytes, row.bytes);
  }
}

TEST(Envelope, EveryCutIsToldFromAForeignFile) {
  const std::string whole = readBase64(componentsOwn).bytes;
  for (std::size_t length = 1; length < whole.size(); ++length)
    EXPECT_EQ(envelopeFailure(whole.substr(0, length)), cutOffText(length));
  EXPECT_EQ(envelopeFailure(""), notEncipheredText());
  EXPECT_EQ(envelopeFailure("113;00;1.0;"), notEncipheredText());
}

TEST(Envelope, NoChangedByteOfTheFrameIsReadOver) {
  const std::string whole = readBase64(componentsOwn).bytes;
  const EncipheredText good = readEnvelope(whole);
  const std::size_t ciphertext = whole.size() - good.ciphertext.size();
  for (std::size_t at = 0; at < ciphertext; ++at) {
    std::string changed = whole;
    changed[at] = static_cast<char>(changed[at] ^ 0x55);
    EncipheredText read;
    const std::string failure = failureOf([&] { read = readEnvelope(changed); });
    // Salt and vector carry no mark of their own; any other byte is part of the frame.
    EXPECT_TRUE(!failure.empty() || read.salt != good.salt || read.iv != good.iv) << "byte " << at;
  }
}

TEST(Envelope, WhatStandsBehindItIsDamage) {
  EXPECT_EQ(envelopeFailure(readBase64(componentsOwn).bytes + '\0'), damagedEnvelopeText());
}

TEST(Envelope, LengthsNotInTheirShortestFormAreDamage) {
  const std::string whole = readBase64(componentsOwn).bytes;
  std::string longer = "\x30\x81" + whole.substr(1);
  EXPECT_EQ(envelopeFailure(longer), damagedEnvelopeText());
  longer = std::string("\x30\x82\x00", 3) + whole.substr(1);
  EXPECT_EQ(envelopeFailure(longer), damagedEnvelopeText());
}

TEST(Envelope, AnotherCipherIsNamed) {
  std::string bytes = readBase64(componentsOwn).bytes;
  const std::size_t algorithm = bytes.find("\x02\x02\x66\x02");
  ASSERT_NE(algorithm, std::string::npos);
  bytes[algorithm + 3] = '\x01';
  EXPECT_EQ(envelopeFailure(bytes), foreignCipherText(131072, 26113, 128));
}

struct Digest {
  const char* text;
  const char* md4;
  const char* sha1;
};

constexpr Digest digests[] = {
    {"password", "8846F7EAEE8FB117AD06BDD830B7586C", "E8F97FBA9104D1EA5047948E6DFB67FACD9F5B73"},
    {"abc", "E0FBA38268D0EC66EF1CB452D5885E53", "9F04F41A848514162050E3D68C1A7ABB441DC2B5"},
    {"", "31D6CFE0D16AE931B73C59D7E0C089C0", "DA39A3EE5E6B4B0D3255BFEF95601890AFD80709"},
};

TEST(Hashing, GivesTheKnownDigests) {
  for (const Digest& known : digests) {
    HashedData hashed;
    hashed.put_Algorithm(HashedData::sha1);
    hashed.Hash(known.text);
    EXPECT_EQ(hashed.get_Value(), known.sha1) << known.text;
    hashed.put_Algorithm(HashedData::md4);
    hashed.Hash(known.text);
    EXPECT_EQ(hashed.get_Value(), known.md4) << known.text;
  }
}

TEST(Hashing, CallsWithoutAReadBetweenAddUpToOneDigest) {
  HashedData hashed;
  hashed.put_Algorithm(HashedData::md4);
  hashed.Hash("a");
  hashed.Hash("");
  hashed.Hash("bc");
  EXPECT_EQ(hashed.get_Value(), digests[1].md4);
}

TEST(Hashing, ReadingAgainGivesTheSameTextAndTheNextHashBeginsAnew) {
  HashedData hashed;
  hashed.Hash("password");
  EXPECT_EQ(hashed.get_Value(), digests[0].sha1);
  EXPECT_EQ(hashed.get_Value(), digests[0].sha1);
  hashed.put_Algorithm(HashedData::md4);
  EXPECT_EQ(hashed.get_Value(), digests[0].sha1);
  hashed.Hash("abc");
  EXPECT_EQ(hashed.get_Value(), digests[1].md4);
}

TEST(Hashing, WithoutAHashOrWithAnUnknownAlgorithmFails) {
  HashedData hashed;
  EXPECT_THROW(hashed.get_Value(), RunTimeError);
  EXPECT_THROW(hashed.put_Algorithm(3), RunTimeError);
}

TEST(Password, IsMadeOfPiecesOfTheDigest) {
  struct Case {
    const char* secret;
    const char* password;
  };
  // Put together with another program's digests: of "rahasia" SHA-1 is 41BA5A8D3ABA937E1845ED7B2E1FB7D374254F7D, the
  // pieces are 41BA, ABA9, 5A8D, 5ED7.
  for (const Case& row : {Case{"rahasia", "BF3096A9F3FB75DF"}, Case{"", "D17CFC0D46A4AA88"},
                          Case{"0123456789ABCDEF0123456789ABCDEFxyz", "5F782C32D27E74DA"}})
    EXPECT_EQ(passwordOf(row.secret), row.password) << row.secret;
}

TEST(Password, OfASecretOfMoreThan32CharactersIsThatOfItsFirst32) {
  const std::string first32 = "Kunci rahasia PT Contoh Sejahter";
  ASSERT_EQ(first32.size(), 32U);
  EXPECT_EQ(passwordOf(first32 + "a tahun 2009"), passwordOf(first32));
  EXPECT_NE(passwordOf(first32.substr(0, 31)), passwordOf(first32));
  // Characters are counted, not bytes.
  EXPECT_EQ(passwordOf(first32.substr(0, 31) + "é2009"), passwordOf(first32.substr(0, 31) + "é"));
}

TEST(Utf16, EveryByteOfTheCodePageComesBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  const AnsiBytes back = ansiFromUtf16(toUtf16(fromAnsi(bytes)));
  EXPECT_EQ(back.bytes, bytes);
  EXPECT_EQ(back.foreignCount, 0U);
}

TEST(Utf16, BytesOfTheCodePageBecomeTheSameAsTheirText) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(utf16FromAnsi(bytes), toUtf16(fromAnsi(bytes)));
  EXPECT_EQ(utf16FromAnsi(""), "");
}

TEST(Enciphering, BytesOfTheCodePageGiveTheLinesOfTheirTextAtEveryLength) {
  // Around the lengths at which a block, a line and a piece of the work are full.
  for (const std::size_t length : {0U, 1U, 3U, 4U, 5U, 16383U, 16384U, 16385U, 32767U, 32768U, 32769U, 50001U}) {
    std::string bytes;
    for (std::size_t i = 0; i < length; ++i) bytes += static_cast<char>(i * 7 + i / 251);
    std::vector<std::string> lines;
    encipherAnsi(bytes, "secret", fillKnown, [&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_EQ(lines, linesOf(fromAnsi(bytes), "secret")) << length;
  }
}

TEST(Utf16, ForeignCharactersAreCounted) {
  const AnsiBytes back = ansiFromUtf16(toUtf16("a😀\u0100z"));
  EXPECT_EQ(back.bytes, "a???z");
  EXPECT_EQ(back.foreignCount, 3U);
}

}  // namespace
}  // namespace tarvola::test
