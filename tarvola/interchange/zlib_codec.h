#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvola::interchange {

// zlib's one-shot compression of whole buffers. Results are zlib's own codes.

inline constexpr std::int32_t zlibSuccess = 0;
inline constexpr std::int32_t zlibNoMemory = -4;

/// The room that compressing may use, with no second try in a larger one: the source and a hundredth, and 12 bytes.
std::size_t roomToCompress(std::size_t sourceBytes) noexcept;

/// Compresses into a buffer of so many bytes; what is written replaces `packed`. On failure `packed` stays.
std::int32_t compressBytes(std::string_view source, std::size_t roomBytes, std::string& packed) noexcept;

/// The same for a text that comes in pieces: what is made are the same bytes, however the text was cut.
class Deflation {
 public:
  /// Fails with std::bad_alloc, as add does.
  Deflation();
  ~Deflation();
  Deflation(const Deflation&) = delete;
  Deflation& operator=(const Deflation&) = delete;

  void add(std::string_view piece);
  /// All of it compressed. Nothing can be added then.
  std::string finish();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The reverse. Of `source` the stream is taken and `source` cut down to it, so that the caller sees what follows.
std::int32_t uncompressBytes(std::string_view& source, std::size_t roomBytes, std::string& plain) noexcept;

}  // namespace tarvola::interchange
