#include "tarvola/interchange/hashed_data.h"

#include <gcrypt.h>

#include "tarvola/interchange/gcrypt_calls.h"
#include "tarvola/interchange/utf16.h"
#include "tarvola/runtime/errors.h"
#include "tarvola/runtime/text_forms.h"

namespace tarvola::interchange {

namespace {

struct DigestCloser {
  void operator()(gcry_md_hd_t digest) const noexcept { gcry_md_close(digest); }
};
using Digest = std::unique_ptr<gcry_md_handle, DigestCloser>;

std::string hexadecimal(const unsigned char* bytes, std::size_t count) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    text += digits[bytes[i] >> 4U];
    text += digits[bytes[i] & 0x0FU];
  }
  return text;
}

}  // namespace

struct HashedData::State {
  int algorithm = GCRY_MD_SHA1;
  int openAlgorithm = GCRY_MD_SHA1;
  /// Set while a digest is being added up.
  Digest open;
  std::string value;

  void begin() {
    readyCiphers();
    gcry_md_hd_t made = nullptr;
    requireCipher(gcry_md_open(&made, algorithm, 0));
    open.reset(made);
    openAlgorithm = algorithm;
  }
};

HashedData::HashedData() : state_(std::make_unique<State>()) {}
HashedData::~HashedData() = default;

void HashedData::put_Algorithm(std::int32_t algorithm) {
  if (algorithm != sha1 && algorithm != md4) fail(ErrorNumber::InvalidProcedureCall);
  state_->algorithm = algorithm == sha1 ? GCRY_MD_SHA1 : GCRY_MD_MD4;
}

void HashedData::Hash(std::string_view text) {
  if (!state_->open) state_->begin();
  const std::string bytes = toUtf16(text);
  gcry_md_write(state_->open.get(), bytes.data(), bytes.size());
}

std::string HashedData::get_Value() {
  if (state_->open) {
    const unsigned char* digest = gcry_md_read(state_->open.get(), state_->openAlgorithm);
    state_->value = hexadecimal(digest, gcry_md_get_algo_dlen(state_->openAlgorithm));
    state_->open.reset();
  }
  if (state_->value.empty()) fail(ErrorNumber::InvalidProcedureCall);
  return state_->value;
}

std::string passwordOf(std::string_view secretSource) {
  constexpr std::size_t sourceLength = 32;
  constexpr std::size_t passwordLength = 16;
  HashedData hashed;
  hashed.put_Algorithm(HashedData::sha1);
  hashed.Hash(Left(secretSource, sourceLength));
  const std::string a = hashed.get_Value();
  const std::string b = hashed.get_Value();
  const std::string c = hashed.get_Value();
  const std::string d = hashed.get_Value();
  std::string joined(Mid(a, 1, 4));
  joined.append(Mid(b, 10, 4)).append(Mid(c, 5, 4)).append(Mid(d, 20, 4));
  hashed.put_Algorithm(HashedData::md4);
  hashed.Hash(joined);
  return std::string(Left(hashed.get_Value(), passwordLength));
}

}  // namespace tarvola::interchange
