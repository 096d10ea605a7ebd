#pragma once

#include <cstddef>

namespace tarvola::ado {

/// Memory that is asked of the system in large pieces where much is needed: a set of a hundred thousand rows would
/// otherwise spend more time on the system's small pages than on its own values. Fails with std::bad_alloc.
class GrowingBlock {
 public:
  GrowingBlock() noexcept = default;
  ~GrowingBlock();
  GrowingBlock(GrowingBlock&& other) noexcept;
  GrowingBlock& operator=(GrowingBlock&& other) noexcept;

  [[nodiscard]] void* data() const noexcept { return data_; }
  [[nodiscard]] std::size_t bytes() const noexcept { return bytes_; }

  /// Makes room for at least so many bytes; what the block held stays, though it may lie elsewhere. A large block moves
  /// by its pages, not byte by byte. Only plain values may lie in it.
  void growTo(std::size_t bytes);

 private:
  void growSmall(std::size_t bytes);
  void growLarge(std::size_t bytes);
  void release() noexcept;

  void* data_ = nullptr;
  std::size_t bytes_ = 0;
};

}  // namespace tarvola::ado
