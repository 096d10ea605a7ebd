#pragma once

#include <cstddef>
#include <cstdint>
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

/// The reverse. Of `source` the stream is taken and `source` cut down to it, so that the caller sees what follows.
std::int32_t uncompressBytes(std::string_view& source, std::size_t roomBytes, std::string& plain) noexcept;

}  // namespace tarvola::interchange
