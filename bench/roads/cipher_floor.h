#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace tarvola::bench {

/// What compressing a plain text and enciphering the result cost by themselves: one call of zlib and one of libgcrypt,
/// in memory that is there already.
class CipherFloor {
 public:
  /// The text of a report, with its line ends.
  explicit CipherFloor(std::string plain);
  ~CipherFloor();
  CipherFloor(const CipherFloor&) = delete;
  CipherFloor& operator=(const CipherFloor&) = delete;

  void run();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tarvola::bench
