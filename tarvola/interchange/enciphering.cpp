#include "tarvola/interchange/enciphering.h"

#include <gcrypt.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "tarvola/interchange/gcrypt_calls.h"
#include "tarvola/interchange/report_texts.h"
#include "tarvola/interchange/utf16.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/progress.h"

namespace tarvola::interchange {

namespace {

constexpr std::size_t blockBytes = 8;
constexpr std::size_t keyBytes = 16;

/// RC2 in CBC mode, in place, over any number of whole blocks. A text may come in several pieces.
class Rc2 {
 public:
  Rc2(std::string_view password, const Salt& salt, const InitialVector& iv) {
    readyCiphers();
    const std::string key = keyOf(password, salt);
    gcry_cipher_hd_t made = nullptr;
    requireCipher(gcry_cipher_open(&made, GCRY_CIPHER_RFC2268_128, GCRY_CIPHER_MODE_CBC, 0));
    cipher_.reset(made);
    requireCipher(gcry_cipher_setkey(made, key.data(), key.size()));
    requireCipher(gcry_cipher_setiv(made, iv.data(), iv.size()));
  }

  void encipher(std::span<char> bytes) {
    requireCipher(gcry_cipher_encrypt(cipher_.get(), bytes.data(), bytes.size(), nullptr, 0));
  }
  void decipher(std::span<char> bytes) {
    requireCipher(gcry_cipher_decrypt(cipher_.get(), bytes.data(), bytes.size(), nullptr, 0));
  }

 private:
  struct Closer {
    void operator()(gcry_cipher_hd_t cipher) const noexcept { gcry_cipher_close(cipher); }
  };

  static std::string keyOf(std::string_view password, const Salt& salt) {
    constexpr std::size_t digestBytes = 20;
    std::string hashed = toUtf16(password);
    hashed.append(salt.begin(), salt.end());
    std::string digest(digestBytes, '\0');
    gcry_md_hash_buffer(GCRY_MD_SHA1, digest.data(), hashed.data(), hashed.size());
    digest.resize(keyBytes);
    return digest;
  }

  std::unique_ptr<gcry_cipher_handle, Closer> cipher_;
};

/// What fills the last block; a text that fills its blocks exactly gets a whole block more.
constexpr std::size_t paddingOf(std::size_t bytes) noexcept { return blockBytes - bytes % blockBytes; }

/// A text on its way through cipher, envelope and Base64. Its UTF-16 comes in pieces of whole blocks and a last one of
/// any length.
class EncipheredLines {
 public:
  EncipheredLines(std::size_t utf16Bytes, std::string_view password, const RandomSource& random, const LineSink& sink)
      : lines_(sink) {
    random(salt_);
    random(iv_);
    cipher_.emplace(password, salt_, iv_);
    lines_.add(envelopeAhead(iv_, salt_, utf16Bytes + paddingOf(utf16Bytes)));
  }

  void add(std::string blocks) {
    cipher_->encipher(blocks);
    lines_.add(blocks);
  }
  void addLast(std::string utf16) {
    const std::size_t padding = paddingOf(utf16.size());
    utf16.append(padding, static_cast<char>(padding));
    add(std::move(utf16));
    lines_.finish();
  }

 private:
  Salt salt_{};
  InitialVector iv_{};
  std::optional<Rc2> cipher_;
  Base64Lines lines_;
};

/// Bytes of the code page that are worked on at a time: whole blocks as UTF-16, and little enough to stay in the
/// processor's cache on their way.
constexpr std::size_t pieceBytes = std::size_t{16} * 1024;
static_assert(pieceBytes % (blockBytes / 2) == 0);

}  // namespace

void fillFromSystem(std::span<std::uint8_t> bytes) {
  readyCiphers();
  gcry_randomize(bytes.data(), bytes.size(), GCRY_STRONG_RANDOM);
}

void encipher(std::string_view content, std::string_view password, const RandomSource& random, const LineSink& sink) {
  std::string utf16 = toUtf16(content);
  EncipheredLines lines(utf16.size(), password, random, sink);
  lines.addLast(std::move(utf16));
}

void encipherAnsi(std::string_view bytes, std::string_view password, const RandomSource& random, const LineSink& sink) {
  EncipheredLines lines(2 * bytes.size(), password, random, sink);
  Progress progress("Enciphering", bytes.size());
  const std::size_t all = bytes.size();
  for (; bytes.size() > pieceBytes; bytes.remove_prefix(pieceBytes)) {
    lines.add(utf16FromAnsi(bytes.substr(0, pieceBytes)));
    progress.done(all - bytes.size());
  }
  lines.addLast(utf16FromAnsi(bytes));
}

EncipheredText readEnciphered(std::string_view base64) {
  Base64Bytes read = readBase64(base64);
  if (!read.isWhole)
    fail(ErrorNumber::InvalidFileFormat, startsAsEnvelope(read.bytes) ? foreignCharacterText() : notEncipheredText());
  return readEnvelope(std::move(read.bytes));
}

std::string decipher(EncipheredText text, std::string_view password) {
  if (text.ciphertext.empty() || text.ciphertext.size() % blockBytes != 0)
    fail(ErrorNumber::InvalidFileFormat, damagedEnvelopeText());
  Rc2 cipher(password, text.salt, text.iv);
  const std::span<char> bytes(text.ciphertext);
  Progress progress("Deciphering", bytes.size());
  for (std::size_t begin = 0; begin < bytes.size(); begin += pieceBytes) {
    cipher.decipher(bytes.subspan(begin, std::min(pieceBytes, bytes.size() - begin)));
    progress.done(begin);
  }
  return std::move(text.ciphertext);
}

bool removePadding(std::string& utf16) noexcept {
  if (utf16.empty()) return false;
  const auto padding = static_cast<unsigned char>(utf16.back());
  if (padding == 0 || padding > blockBytes || padding > utf16.size() || (utf16.size() - padding) % 2 != 0) return false;
  const auto isPadding = [&](char byte) { return static_cast<unsigned char>(byte) == padding; };
  if (!std::all_of(utf16.end() - padding, utf16.end(), isPadding)) return false;
  utf16.resize(utf16.size() - padding);
  return true;
}

}  // namespace tarvola::interchange
