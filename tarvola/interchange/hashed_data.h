#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvola::interchange {

/// Digests of texts. What is hashed are the bytes of the text as UTF-16.
///
/// Hash calls without a read of Value between them add up to one digest. After a read the next Hash begins a new one,
/// with the algorithm that is set then; reading Value again without a Hash gives the same text.
class HashedData {
 public:
  static constexpr std::int32_t sha1 = 0;
  static constexpr std::int32_t md4 = 2;

  HashedData();
  ~HashedData();
  HashedData(const HashedData&) = delete;
  HashedData& operator=(const HashedData&) = delete;

  /// Any other algorithm than the two is error 5.
  void put_Algorithm(std::int32_t algorithm);
  void Hash(std::string_view text);
  /// The digest in upper-case hexadecimal digits. Error 5 before the first Hash.
  std::string get_Value();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The password of a reporting file: 16 hexadecimal digits made from the first 32 characters of the secret's text.
///
/// Of the SHA-1 of those characters the digits 1 to 4, 10 to 13, 5 to 8 and 20 to 23 are joined, and the first 16
/// digits of the MD4 of that are the password.
std::string passwordOf(std::string_view secretSource);

}  // namespace tarvola::interchange
