#include "bench/roads/cipher_floor.h"

#include <gcrypt.h>
#include <zlib.h>

#include <array>
#include <stdexcept>
#include <utility>

namespace tarvola::bench {

namespace {

void require(bool held) {
  if (!held) throw std::runtime_error("compressing or enciphering failed");
}

/// The second stage is the length in 20 digits, the compressed bytes and a line end; as UTF-16 each takes two bytes,
/// and the cipher works on whole blocks of eight.
std::size_t enciphered(std::size_t compressedBytes) { return (2 * (20 + compressedBytes + 2) / 8 + 1) * 8; }

}  // namespace

struct CipherFloor::State {
  explicit State(std::string text) : plain(std::move(text)), packed(compressBound(plain.size()), '\0') {
    compress();
    block.assign(enciphered(packedBytes), 'x');
    const std::array<char, 16> key = {1, 2, 3, 4, 5, 6, 7, 8};
    require(gcry_cipher_open(&cipher, GCRY_CIPHER_RFC2268_128, GCRY_CIPHER_MODE_CBC, 0) == 0);
    require(gcry_cipher_setkey(cipher, key.data(), key.size()) == 0);
    require(gcry_cipher_setiv(cipher, key.data(), 8) == 0);
  }
  ~State() { gcry_cipher_close(cipher); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  void compress() {
    packedBytes = packed.size();
    require(::compress(reinterpret_cast<Bytef*>(packed.data()), &packedBytes,
                       reinterpret_cast<const Bytef*>(plain.data()), plain.size()) == Z_OK);
  }

  std::string plain;
  std::string packed;
  uLongf packedBytes = 0;
  std::string block;
  gcry_cipher_hd_t cipher = nullptr;
};

CipherFloor::CipherFloor(std::string plain) : state_(std::make_unique<State>(std::move(plain))) {}
CipherFloor::~CipherFloor() = default;

void CipherFloor::run() {
  state_->compress();
  require(gcry_cipher_encrypt(state_->cipher, state_->block.data(), state_->block.size(), nullptr, 0) == 0);
}

}  // namespace tarvola::bench
