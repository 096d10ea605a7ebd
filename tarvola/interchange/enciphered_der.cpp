#include "tarvola/interchange/enciphered_der.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "tarvola/interchange/report_texts.h"
#include "tarvola/runtime/errors.h"

namespace tarvola::interchange {

namespace {

using namespace std::string_view_literals;

enum Tag : std::uint8_t {
  Integer = 0x02,
  OctetString = 0x04,
  ObjectIdentifier = 0x06,
  Sequence = 0x30,
  Context = 0xA0
};

constexpr std::string_view outerIdentifier = "\x2B\x06\x01\x04\x01\x82\x37\x58\x03"sv;
constexpr std::string_view innerIdentifier = "\x2B\x06\x01\x04\x01\x82\x37\x58\x03\x01"sv;

/// Releases 2.0 and 2.1 of the format differ in nothing else.
constexpr std::uint32_t firstVersion = 131072;
constexpr std::uint32_t writtenVersion = 131073;
constexpr std::uint32_t algorithmRc2 = 26114;
constexpr std::uint32_t keyBits = 128;

constexpr std::size_t shortLengthLimit = 0x80;

/// Tag and length of a value.
std::string headOf(Tag tag, std::size_t length) {
  std::string head(1, static_cast<char>(tag));
  if (length < shortLengthLimit) return head + static_cast<char>(length);
  std::string digits;
  for (; length > 0; length >>= 8) digits.insert(digits.begin(), static_cast<char>(length & 0xFFU));
  return head + static_cast<char>(shortLengthLimit | digits.size()) + digits;
}

std::string valueOf(Tag tag, std::string_view content) { return headOf(tag, content.size()).append(content); }

template <std::size_t Count>
std::string octets(const std::array<std::uint8_t, Count>& bytes) {
  return valueOf(OctetString, std::string(bytes.begin(), bytes.end()));
}

/// A whole number in as few bytes as keep its sign, which is plus.
std::string integer(std::uint32_t value) {
  std::string digits;
  do {
    digits.insert(digits.begin(), static_cast<char>(value & 0xFFU));
    value >>= 8;
  } while (value > 0);
  if ((static_cast<unsigned char>(digits.front()) & 0x80U) != 0) digits.insert(digits.begin(), '\0');
  return valueOf(Integer, digits);
}

[[noreturn]] void failDamaged() { fail(ErrorNumber::InvalidFileFormat, damagedEnvelopeText()); }

/// Walks the values of an envelope. What does not fit is damage.
class EnvelopeReader {
 public:
  explicit EnvelopeReader(std::string_view bytes) : rest_(bytes) {}

  /// The content of the next value, which must be of that kind.
  std::string_view take(Tag tag) {
    if (takeByte() != tag) failDamaged();
    const std::size_t length = takeLength();
    if (length > rest_.size()) failDamaged();
    const std::string_view content = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return content;
  }
  /// The next value, which must be the last, as a reader of what it holds.
  EnvelopeReader takeLast(Tag tag) {
    const EnvelopeReader inside(take(tag));
    requireEnd();
    return inside;
  }
  void requireEnd() const {
    if (!rest_.empty()) failDamaged();
  }
  std::uint32_t takeInteger() {
    const std::string_view digits = take(Integer);
    if (digits.empty() || digits.size() > sizeof(std::uint32_t)) failDamaged();
    std::uint32_t value = 0;
    for (const char digit : digits) value = (value << 8) | static_cast<unsigned char>(digit);
    return value;
  }
  template <std::size_t Count>
  void takeOctets(std::array<std::uint8_t, Count>& bytes) {
    const std::string_view content = take(OctetString);
    if (content.size() != Count) failDamaged();
    std::copy(content.begin(), content.end(), bytes.begin());
  }

  /// A length in its shortest form.
  std::size_t takeLength() {
    const std::size_t first = takeByte();
    if (first < shortLengthLimit) return first;
    std::size_t length = 0;
    std::size_t digitCount = first - shortLengthLimit;
    if (digitCount == 0 || digitCount > sizeof(length)) failDamaged();
    const std::size_t shortest = digitCount == 1 ? shortLengthLimit : std::size_t{1} << (8 * (digitCount - 1));
    for (; digitCount > 0; --digitCount) length = (length << 8) | takeByte();
    if (length < shortest) failDamaged();
    return length;
  }
  [[nodiscard]] std::size_t size() const noexcept { return rest_.size(); }

 private:
  std::uint8_t takeByte() {
    if (rest_.empty()) failDamaged();
    const auto byte = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
  }

  std::string_view rest_;
};

/// The bytes of tag and length in front of the outermost value's content.
std::size_t outerHeadBytes(std::string_view bytes) noexcept {
  const auto first = static_cast<unsigned char>(bytes[1]);
  return first < shortLengthLimit ? 2 : 2 + (first - shortLengthLimit);
}

void requireWhole(std::string_view bytes) {
  if (!startsAsEnvelope(bytes)) fail(ErrorNumber::InvalidFileFormat, notEncipheredText());
  const bool hasHead = bytes.size() >= 2 && bytes.size() >= outerHeadBytes(bytes);
  EnvelopeReader reader(bytes.substr(1));
  if (!hasHead || reader.takeLength() > reader.size()) fail(ErrorNumber::InvalidFileFormat, cutOffText(bytes.size()));
}

void requireKnownCipher(EnvelopeReader& values) {
  const std::uint32_t version = values.takeInteger();
  const std::uint32_t algorithm = values.takeInteger();
  const std::uint32_t bits = values.takeInteger();
  if ((version != firstVersion && version != writtenVersion) || algorithm != algorithmRc2 || bits != keyBits)
    fail(ErrorNumber::InvalidFileFormat, foreignCipherText(version, algorithm, bits));
}

}  // namespace

std::string envelopeAhead(const InitialVector& iv, const Salt& salt, std::size_t ciphertextBytes) {
  std::string ahead = integer(writtenVersion) + integer(algorithmRc2) + integer(keyBits) + octets(iv) + octets(salt) +
                      headOf(OctetString, ciphertextBytes);
  const auto enclose = [&](Tag tag) { ahead.insert(0, headOf(tag, ahead.size() + ciphertextBytes)); };
  for (const std::string_view identifier : {innerIdentifier, outerIdentifier}) {
    enclose(Sequence);
    enclose(Context);
    ahead.insert(0, valueOf(ObjectIdentifier, identifier));
  }
  enclose(Sequence);
  return ahead;
}

bool startsAsEnvelope(std::string_view bytes) {
  constexpr std::size_t longestHead = 2 + sizeof(std::size_t);
  if (bytes.empty() || static_cast<unsigned char>(bytes.front()) != Sequence) return false;
  if (bytes.size() < 2) return true;
  const std::size_t headBytes = outerHeadBytes(bytes);
  if (headBytes > longestHead) return false;
  bytes.remove_prefix(std::min(headBytes, bytes.size()));
  const std::string identifier = valueOf(ObjectIdentifier, outerIdentifier);
  return bytes.substr(0, identifier.size()) == std::string_view(identifier).substr(0, bytes.size());
}

EncipheredText readEnvelope(std::string bytes) {
  requireWhole(bytes);
  EnvelopeReader values = EnvelopeReader(bytes).takeLast(Sequence);
  for (const std::string_view identifier : {outerIdentifier, innerIdentifier}) {
    if (values.take(ObjectIdentifier) != identifier) failDamaged();
    values = values.takeLast(Context).takeLast(Sequence);
  }
  requireKnownCipher(values);
  EncipheredText text;
  values.takeOctets(text.iv);
  values.takeOctets(text.salt);
  const std::string_view ciphertext = values.take(OctetString);
  values.requireEnd();
  // The ciphertext ends the envelope; cut out in place it costs no second copy.
  bytes.erase(0, static_cast<std::size_t>(ciphertext.data() - bytes.data()));
  text.ciphertext = std::move(bytes);
  return text;
}

}  // namespace tarvola::interchange
